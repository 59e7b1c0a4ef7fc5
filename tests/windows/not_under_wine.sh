#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Prints the filter of the tests of a folder that cannot pass under Wine, each with its reason; docs/windows.md explains.
set -euo pipefail
tests=()
case $1 in
    model) ;;
esac
IFS=:
printf '%s\n' "${tests[*]:-}"
