#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds with warnings as errors and runs the tests, those that can under the sanitizers, and the fuzz targets.
#   ./test.sh            the presets dev, asan and fuzz; not twice what is the same in dev and asan
#   ./test.sh asan       one of them, or several
# On Debian 12 or later it installs what is missing for that. Stops at the first failure.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
source packages/functions.sh

if command -v apt-get >/dev/null; then
    install_packages packages/run.txt packages/test.txt
else
    say "the tests need what run.sh needs, and GoogleTest, RapidCheck, Xvfb, openbox and clang with its libFuzzer."
fi
need_tools cmake ninja c++ clang++

export LC_ALL=C.UTF-8
export QT_QPA_PLATFORM=offscreen # a test that wants an X server brings it along

processors=$(getconf _NPROCESSORS_ONLN)

run() { # PRESET [CTEST_OPTION...]
    say "preset $1"
    build "$1"
    ctest --preset "$1" --no-tests=error -j "$processors" "${@:2}"
}

if (($# == 0)); then
    # The tests off the screen run under the sanitizers, and on X servers here, but for the largest schemes. Those over
    # AT-SPI depend on the desktop's services for it, and run by name. Half of their time those on X servers wait.
    run dev -j $((2 * processors)) -LE 'offscreen|access'
    run asan
    run fuzz
fi
for preset in "$@"; do run "$preset"; done
