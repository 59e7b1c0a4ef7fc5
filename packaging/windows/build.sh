#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the wizard and pelmo-scheme for Windows, on Debian 12 or later, and makes a .zip of their folder and an
# installer, in build/windows-package. First it installs the packages that are missing and builds Qt; see libraries.sh.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
source packages/functions.sh

if command -v apt-get >/dev/null; then install_packages packages/run.txt packages/windows.txt; fi
need_tools cmake ninja x86_64-w64-mingw32-g++-posix makensis rsvg-convert icotool
WINDOWS_PREFIX=$(packaging/windows/libraries.sh)
export WINDOWS_PREFIX

build windows
cmake --preset windows # the previous run may not have found what is installed now
build windows
if [[ ! -f build/windows/bin/Pelmo.chm ]]; then say "the packages are made without the help file, Pelmo.chm"; fi

made=$PWD/build/windows-package
rm -rf "$made"
cpack --config build/windows/CPackConfig.cmake -B "$made"
rm -rf "$made/_CPack_Packages"

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/windows/CMakeCache.txt)
IFS=. read -r major minor <<<"$version"
cmake --install build/windows --prefix "$made/folder" --strip >/dev/null
makensis -V2 -NOCD -DVERSION="$version" -DFOUR_NUMBERS="$major.$((10#$minor)).0.0" -DFOLDER="$made/folder" \
    -DICON="$PWD/build/windows/packaging/pelmo-wizard.ico" -DINSTALLER="$made/pelmo-wizard-$version-win64-setup.exe" \
    packaging/windows/installer.nsi
rm -rf "$made/folder"
ls -l "$made"
