#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the wizard in a new Windows, for one user and for all, starts it from the menu, and removes it without a trace.
# Run packaging/windows/build.sh first. Needs Wine, an X server, xdotool.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
source tests/windows/wine.sh
trap end_windows EXIT

title='Reporting Scheme Wizard for Pelmo'
setup=(build/windows-package/pelmo-wizard-*-win64-setup.exe)
[[ -f ${setup[0]} ]] || fail "there is no installer"

# Every file, and what the registry says that programs may change.
list_all() {
    local root
    (cd "$WINEPREFIX" && find drive_c -printf '%p %y\n' | grep -v -e '/Temp/' -e '/windows/' | sort)
    for root in 'HKCU\Software' 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall'; do
        wine reg query "$root" /s | tr -d '\r' | grep -v -i -e 'MuiCache' -e 'Temporary System Parameters' -e '^$' || true
    done
}

# wait_for TITLE - waits until a window with this title is there.
wait_for() {
    for _ in {1..300}; do
        if xdotool search --name "^$1\$" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    fail "no window \"$1\""
}

wait_until_gone() { # FILE
    for _ in {1..300}; do
        if [[ ! -e $1 ]]; then return; fi
        sleep 0.1
    done
    fail "$1 is still there"
}

# try_out MODE PROGRAM_FOLDER MENU - MODE as the installer names it; the folders in the Windows.
try_out() {
    local mode=$1 folder menu file
    say "installs: $mode"
    new_windows build/windows-tests/wine-of-the-installer
    folder=$WINEPREFIX/drive_c/$2
    menu=$WINEPREFIX/drive_c/$3
    # A real Windows has these from the beginning.
    mkdir -p "$(dirname "$folder")" "$menu"
    wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall' /f >/dev/null 2>&1
    list_all >build/windows-tests/before.txt
    wine "${setup[0]}" /S "/$mode"
    for file in pelmo-wizard.exe pelmo-scheme.exe Pelmo.chm XST1.txt XST2.txt shop.sql LICENSE.txt README.txt uninstall.exe; do
        [[ -f $folder/$file ]] || fail "$file is not there"
    done
    cmp samples/XST1.txt "$folder/XST1.txt"
    [[ -f $menu/$title.lnk ]] || fail "there is no entry in the menu"
    list_all >build/windows-tests/installed.txt
    grep -q "DisplayName *REG_SZ *$title" build/windows-tests/installed.txt || fail "it is not in the list of programs"

    say "starts it from the menu"
    wine start /unix "$menu/$title.lnk"
    wait_for 'Pelmo Wizard Introduction...'
    end_windows

    say "removes it"
    echo mine >"$folder/XST1.txt"
    wine "$folder/uninstall.exe" /S "/$mode"
    wait_until_gone "$folder/uninstall.exe"
    [[ $(ls "$folder") == XST1.txt ]] || fail "left over: $(ls "$folder")"
    [[ $(cat "$folder/XST1.txt") == mine ]] || fail "the user's file has changed"
    rm -r "$folder"
    list_all >build/windows-tests/after.txt
    diff build/windows-tests/before.txt build/windows-tests/after.txt >&2 || fail "it left a trace"
}

user=users/$(id -un)
mkdir -p build/windows-tests
try_out CurrentUser "$user/AppData/Local/Programs/$title" \
    "$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
try_out AllUsers "Program Files/$title" "ProgramData/Microsoft/Windows/Start Menu/Programs"
say "passed"
