#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the benchmarks and prints the goals of docs/performance.md with what this machine reaches.
# usage: bench/compare.sh [NODES [RUNS]]; needs python3 and sqlite3
set -eu
cd "$(dirname "$0")/.."
[ -f build/bench/build.ninja ] || cmake --preset bench
cmake --build --preset bench >&2
exec python3 bench/compare.py "$@"
