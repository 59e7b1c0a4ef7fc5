#!/usr/bin/env bash
# Builds and runs all tests: with warnings as errors, under the sanitizers, and the fuzz targets.
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

run() {
    say "preset $1"
    build "$1"
    ctest --preset "$1" --no-tests=error -j "$(getconf _NPROCESSORS_ONLN)"
}

run dev
run asan
if [[ -f fuzz/CMakeLists.txt ]]; then
    run fuzz
else
    say "preset fuzz: left out, there is no fuzz/CMakeLists.txt yet"
fi
