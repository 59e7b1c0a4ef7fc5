#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Takes all pictures of the README and the help anew: plays tour.sh and help.sh, and puts what they leave where it
# belongs.
#
#     tour/pictures.sh [WIZARD]
#
# Needs what the tour needs, and rsvg-convert.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source packages/functions.sh

need_tools Xvfb openbox xdotool import convert rsvg-convert
wizard=${1:-build/release/bin/pelmo-wizard}
tour/tour.sh "$wizard"
tour/help.sh "$wizard"

# A palette without dither, which would put noise on the plain areas. With fewer than 128 colours the
# small picture of the window loses the green of an icon; with fewer than 32 a form loses the yellow of the field for a
# key's length.
put() { # FROM TO COLOURS [OPTION...]
    convert "$1" -strip "${@:4}" +dither -colors "$3" -define png:compression-level=9 "PNG8:$2"
}

put build/tour/07-clicked.png docs/wizard.png 128
put build/tour/07-clicked.png help/pictures/main.png 128 -resize 760x608
for shot in build/tour/help/*.png; do put "$shot" "help/pictures/${shot##*/}" 32; done
for type in root fixed gen recur nongen; do
    rsvg-convert -w 32 -h 32 "views/images/$type.svg" | put png:- "help/pictures/type-$type.png" 32
done
