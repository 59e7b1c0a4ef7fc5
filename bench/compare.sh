#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the benchmarks and prints the goals of docs/performance.md with the results of this machine.
# usage: bench/compare.sh [NODES [RUNS]]; needs python3, sqlite3, Xvfb and openbox, and to compare the start also
# doxywizard and sqlitebrowser
set -eu
cd "$(dirname "$0")/.."
[ -f build/bench/build.ninja ] || cmake --preset bench
cmake --build --preset bench >&2
exec tests/with_x_server.sh wm python3 bench/compare.py "$@"
