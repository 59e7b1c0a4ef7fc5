#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a Windows program in the Windows of the folder WINEPREFIX.
set -euo pipefail
# shellcheck source=tests/windows/wine.sh
source "$(dirname -- "${BASH_SOURCE[0]}")/wine.sh"
wine "$@"
