#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fuzzes for an hour, a quarter of it for each target, from the corpus and what earlier runs have added to it in
# build/fuzz/. Ends with an error at the first finding, which is then a file there.
# usage: fuzz/hour.sh [MINUTES]
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

minutes=${1:-60}
[[ -f build/asan/build.ninja ]] || cmake --preset asan
cmake --build --preset asan --target fuzz
for target in nav web round commands; do
    folder=build/fuzz/$target
    mkdir -p "$folder"
    echo "fuzz_$target"
    build/asan/bin/fuzz_$target -max_total_time=$((minutes * 15)) -max_len=4096 -timeout=20 -verbosity=0 \
        -print_final_stats=1 -dict=fuzz/scheme.dict -artifact_prefix="build/fuzz/$target-" "$folder" "fuzz/corpus/$target"
done
