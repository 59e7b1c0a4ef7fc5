#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs all tests and lists the lines of the program that no test reaches. Needs gcovr.
# Fails if there is such a line.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
# These start a program as another user, which writes down what it reaches, too.
chmod -R a+rwX build/coverage
(umask 000 && ctest --preset coverage -R '^commands')
ctest --preset coverage -E '^commands' -j "$(getconf _NPROCESSORS_ONLN)"
for kind in requests browser; do tests/preview/$kind.py build/coverage/bin/pelmo-scheme; done

report() {
    gcovr --root . --object-directory build/coverage --exclude-directories 'CMakeFiles/[0-9]' "$@"
}
folders=(--filter 'model/' --filter 'analysis/' --filter 'commands/' --filter 'database/' --filter 'preview/'
    --filter 'views/' --filter 'forms/' --filter 'shell/')
report "${folders[@]}" --json build/coverage/lines.json
report "${folders[@]}" --add-tracefile build/coverage/lines.json --txt --fail-under-line 100
