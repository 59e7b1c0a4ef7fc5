#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Retakes the pictures in the README and the help, of all kinds or of some:
#   window   the main window, from tour.sh
#   help     the pictures from help.sh: forms, dialogs, reports
#   types    the icons of the node types, from their drawings
#
#     tour/pictures.sh [KIND...]
#
# The program is build/release/bin/pelmo-wizard, or the one in the variable WIZARD. Needs what the tour needs, and
# rsvg-convert. Run tests/help/check_pages.py afterwards: it finds pages that give another size for a picture.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source packages/functions.sh

need_tools Xvfb openbox xdotool import convert rsvg-convert
wizard=${WIZARD:-build/release/bin/pelmo-wizard}
if (($# == 0)); then set -- window help types; fi

# Uses a palette without dithering, which would put noise on plain areas. With fewer than 128 colours the small picture
# of the window loses the green of an icon; with fewer than 32, a form loses the yellow of the field for the length of a
# key.
put() { # FROM TO COLOURS [OPTION...]
    convert "$1" -strip "${@:4}" +dither -colors "$3" -define png:compression-level=9 "PNG8:$2"
}

for kind in "$@"; do
    case $kind in
        window)
            tour/tour.sh "$wizard"
            put build/tour/07-clicked.png docs/wizard.png 128
            put build/tour/07-clicked.png help/pictures/main.png 128 -resize 760x608
            ;;
        help)
            tour/help.sh "$wizard"
            for shot in build/tour/help/*.png; do put "$shot" "help/pictures/${shot##*/}" 32; done
            ;;
        types)
            for type in root fixed gen recur nongen; do
                rsvg-convert -w 32 -h 32 "views/images/$type.svg" | put png:- "help/pictures/type-$type.png" 32
            done
            ;;
        *)
            say "no such kind of pictures: $kind"
            exit 1
            ;;
    esac
done
