#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the wizard and starts it. On Debian 12 or later it first installs the packages that are missing. If there is no
# display, the wizard runs on a virtual screen that a VNC viewer can show.
#   ./run.sh --tour      plays the main job instead, on a screen of its own, and puts pictures in build/tour/
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
source packages/functions.sh

if [[ ${1:-} == --tour ]]; then
    if command -v apt-get >/dev/null; then install_packages packages/run.txt packages/tour.txt; fi
    need_tools cmake ninja c++ Xvfb openbox xdotool import
    build release
    exec tour/tour.sh build/release/bin/pelmo-wizard
fi

virtual_screen=''
case $OSTYPE in
    darwin* | msys* | cygwin*) ;;
    *) if [[ -z ${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-} ]]; then virtual_screen=yes; fi ;;
esac

if command -v apt-get >/dev/null; then
    if [[ -n $virtual_screen ]]; then
        install_packages packages/run.txt packages/viewer.txt packages/screen.txt
    elif [[ -z ${DISPLAY:-} && -n ${WAYLAND_DISPLAY:-} ]]; then
        install_packages packages/run.txt packages/viewer.txt packages/wayland.txt
    else
        install_packages packages/run.txt packages/viewer.txt
    fi
elif [[ ! -x build/release/bin/pelmo-wizard ]]; then
    say "the wizard needs Qt 6.4 or later with Svg, CMake 3.25, Ninja, a C++20 compiler, and Arial or a font of its metrics."
fi

need_tools cmake ninja c++
if [[ -n $virtual_screen ]]; then need_tools Xvfb openbox x11vnc; fi
build release
if [[ -n $virtual_screen ]]; then exec packages/virtual_screen.sh build/release/bin/pelmo-wizard "$@"; fi
exec build/release/bin/pelmo-wizard "$@"
