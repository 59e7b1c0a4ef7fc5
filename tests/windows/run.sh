#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the programs and their tests for Windows and tries them under Wine: the tests of all folders, those of the file
# dialogs of Windows, the tour in the packaged program, at two scales, with the files that the Linux program saves, and the
# installer. The pictures of the tour are in build/windows-tour-96 and -192. "./test.sh windows" starts it.
#
#     tests/windows/run.sh [tests|tour|installer]      one part alone
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
source packages/functions.sh
source tests/windows/wine.sh
trap end_windows EXIT

part=${1:-}
is_wanted() { [[ -z $part || $part == "$1" ]]; }

build_tests() {
    WINDOWS_PREFIX=$(packaging/windows/libraries.sh tests)
    export WINDOWS_PREFIX
    build windows-tests
}

run_tests() {
    local folder failed=''
    new_windows build/windows-tests/wine
    for folder in model analysis views forms shell windows; do
        say "the tests of $folder"
        tests/with_x_server.sh wm tests/windows/program.sh "build/windows-tests/bin/${folder}_tests.exe" \
            --gtest_brief=1 || failed+=" $folder"
    done
    [[ -z $failed ]] || fail "tests of$failed"
}

# tour NAME SCREEN WIZARD - plays the tour, with its pictures in build/NAME.
tour() { TOUR_FOLDER=build/$1 SCREEN=$2 tour/tour.sh "$3"; }

run_tour() {
    local dpi folder=$PWD/build/windows-program
    rm -rf "$folder"
    cmake -E make_directory "$folder"
    (cd "$folder" && cmake -E tar xf "$PWD"/../windows-package/pelmo-wizard-*-win64.zip)
    build release
    say "the tour in the Linux program"
    tour linux-tour 1280x1024x24 build/release/bin/pelmo-wizard >/dev/null
    export WINDOWS_PROGRAM
    WINDOWS_PROGRAM=$(echo "$folder"/*/pelmo-wizard.exe)
    new_windows build/windows-tests/wine
    for dpi in 96 192; do
        say "the tour in the Windows program at $dpi dpi"
        set_dpi "$dpi"
        # Wine does not notice that a key is released while the window changes, so the tour presses them longer.
        KEY_TIME=0.4 TOUR_DRIVE=Z: tour "windows-tour-$dpi" "$((1280 * dpi / 96))x$((1024 * dpi / 96))x24" \
            tests/windows/wizard.sh >/dev/null
        for file in XST1.txt XST2.txt; do
            cmp "build/linux-tour/$file" "build/windows-tour-$dpi/$file" || fail "the programs save different files"
        done
    done
}

if is_wanted tests; then
    build_tests
    run_tests
fi
if is_wanted tour || is_wanted installer; then packaging/windows/build.sh >/dev/null; fi
if is_wanted tour; then run_tour; fi
if is_wanted installer; then tests/with_x_server.sh wm tests/windows/install.sh; fi
say "passed"
