#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Starts the Windows program WINDOWS_PROGRAM, where a script expects the wizard.
exec "$(dirname -- "${BASH_SOURCE[0]}")/program.sh" "$WINDOWS_PROGRAM" "$@"
