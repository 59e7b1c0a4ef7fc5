#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds with warnings as errors and runs the tests.
#   ./test.sh            the tests of preset dev that need neither screen nor database, except the slowest
#   ./test.sh all        all tests, as in continuous integration: dev with X servers and databases, and asan
#   ./test.sh asan       all tests of one or more presets
#   ./test.sh windows    builds the Windows programs and tests them under Wine; not part of "all"
# On Debian 12 or later it first installs the packages that are missing. Stops at the first failure.
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
export QT_QPA_PLATFORM=offscreen # a test that needs an X server starts one

processors=$(getconf _NPROCESSORS_ONLN)

run() { # PRESET [CTEST_OPTION...]
    say "preset $1"
    build "$1"
    run_tests "$@"
}

run_tests() { # PRESET [CTEST_OPTION...]
    # Tests of windows and databases spend most of their time waiting.
    ctest --preset "$1" --no-tests=error -j $((3 * processors)) "${@:2}" \
        --output-junit "$PWD/build/$1/tests.xml" --test-output-size-passed 100000000 || {
        local code=$?
        say "what failed"
        # Of test programs that run many tests, only the failures.
        grep -A 12 -e ': Failure$' -e '^\[  FAILED  \]' "build/$1/Testing/Temporary/LastTest.log" | tail -n 150 || true
        exit "$code"
    }
}

if (($# == 0)); then
    say "preset dev"
    build dev quick_tests
    run_tests dev -L quick
fi
for preset in "$@"; do
    case $preset in
        all)
            # The offscreen tests are left to the sanitizers, and to X servers here (except the largest schemes).
            run dev -LE offscreen
            run asan
            tests/skipped.py build/{dev,asan}/tests.xml
            ;;
        windows)
            if command -v apt-get >/dev/null; then install_packages packages/windows.txt packages/windows-test.txt; fi
            tests/windows/run.sh
            ;;
        *) run "$preset" ;;
    esac
done
