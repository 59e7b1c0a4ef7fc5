#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds with warnings as errors and runs the tests.
#   ./test.sh            the preset dev, with what can be tested without a screen and a database, but for the largest schemes
#   ./test.sh all        all tests, as continuous integration does: dev with X servers and databases, asan and fuzz
#   ./test.sh asan       all of one preset, or of several
# On Debian 12 or later it installs what is missing for that. Stops at the first failure.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
source packages/functions.sh

if command -v apt-get >/dev/null; then
    install_packages packages/run.txt packages/test.txt
else
    say "the tests need what run.sh needs, and GoogleTest, RapidCheck, Xvfb, openbox and clang with its libFuzzer."
fi
need_tools cmake ninja c++ clang++ python3

export LC_ALL=C.UTF-8
export QT_QPA_PLATFORM=offscreen # a test that wants an X server brings it along

processors=$(getconf _NPROCESSORS_ONLN)

run() { # PRESET [CTEST_OPTION...]
    say "preset $1"
    build "$1"
    ctest --preset "$1" --no-tests=error -j "$processors" "${@:2}" \
        --output-junit "$PWD/build/$1/tests.xml" --test-output-size-passed 100000000
}

if (($# == 0)); then run dev -L 'halves|quick' -E '^database'; fi
for preset in "$@"; do
    case $preset in
        all)
            # The tests off the screen run under the sanitizers, and on X servers here, but for the largest schemes.
            # Half of their time those on X servers wait.
            run dev -j $((2 * processors)) -LE 'halves|offscreen'
            run asan
            run fuzz
            tests/skipped.py build/{dev,asan,fuzz}/tests.xml
            ;;
        asan | fuzz) run "$preset" ;;
        *) run "$preset" -LE halves ;;
    esac
done
