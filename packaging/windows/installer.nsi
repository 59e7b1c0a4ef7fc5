; SPDX-License-Identifier: MIT
; The installer for Windows. build.sh says what goes into it: VERSION, as people read it; FOUR_NUMBERS, as Windows counts
; it; FOLDER, with the programs; ICON; and INSTALLER, the file to make.
;
; It installs for the user who starts it, which needs no rights, or for all users:
;
;     setup.exe /S /CurrentUser       without questions; /AllUsers, /D=folder
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!define TITLE "Reporting Scheme Wizard for Pelmo"
!define NAME "pelmo-wizard"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define SAMPLES_KEY "${UNINSTALL_KEY}\Samples" ; when each was changed last

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "${TITLE}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

Name "${TITLE} ${VERSION}"
BrandingText " "
OutFile "${INSTALLER}"
ManifestDPIAware true
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
VIProductVersion "${FOUR_NUMBERS}"
VIAddVersionKey "ProductName" "${TITLE}"
VIAddVersionKey "FileDescription" "Installs the ${TITLE}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "The Reporting Scheme Wizard developers"
VIAddVersionKey "LegalCopyright" "MIT license"

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\${NAME}.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; The save dialogs start in this folder and propose the names of samples, so these files may be the user's work: an
; installation leaves those that are there, and the uninstaller those that are no longer the samples.
!macro Samples Do
  !insertmacro ${Do} XST1.txt
  !insertmacro ${Do} XST2.txt
  !insertmacro ${Do} XST1-faults.txt
  !insertmacro ${Do} XST2-faults.txt
  !insertmacro ${Do} shop.sql
  !insertmacro ${Do} shop-postgresql.sql
  !insertmacro ${Do} shop-mariadb.sql
!macroend

!macro InstallSample File
  ${IfNot} ${FileExists} "$INSTDIR\${File}"
    File "${FOLDER}/${File}"
    GetFileTime "$INSTDIR\${File}" $0 $1
    WriteRegStr SHCTX "${SAMPLES_KEY}" "${File}" "$0 $1"
  ${EndIf}
!macroend

!macro RemoveSample File
  GetFileTime "$INSTDIR\${File}" $0 $1
  ReadRegStr $2 SHCTX "${SAMPLES_KEY}" "${File}"
  ${If} $2 == "$0 $1"
    Delete "$INSTDIR\${File}"
  ${EndIf}
!macroend

Section
  SetOutPath "$INSTDIR"
  File "${FOLDER}/${NAME}.exe"
  File "${FOLDER}/pelmo-scheme.exe"
  File /nonfatal "${FOLDER}/Pelmo.chm"
  File "${FOLDER}/LICENSE.txt"
  File "${FOLDER}/README.txt"
  !insertmacro Samples InstallSample
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${TITLE}.lnk" "$INSTDIR\${NAME}.exe"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${TITLE}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${NAME}.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "The Reporting Scheme Wizard developers"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\${NAME}.exe"
  Delete "$INSTDIR\pelmo-scheme.exe"
  Delete "$INSTDIR\Pelmo.chm"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\README.txt"
  !insertmacro Samples RemoveSample
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR" ; stays with what the user has put there
  Delete "$SMPROGRAMS\${TITLE}.lnk"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
