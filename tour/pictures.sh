#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Puts pictures of the last tour into the README and the help. Needs ImageMagick.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
shot=build/tour/07-clicked.png
convert "$shot" -strip -colors 256 docs/wizard.png
convert "$shot" -strip -resize 760x608 -colors 32 help/pictures/main.png
