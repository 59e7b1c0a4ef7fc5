#!/usr/bin/env bash
# Builds the wizard and starts it. On Debian 12 or later it installs what is missing for that.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
source packages/functions.sh

case $OSTYPE in
    darwin* | msys* | cygwin*) ;;
    *)
        if [[ -z ${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-} ]]; then
            say "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set."
            say "The wizard needs one for its windows. Start $PWD/run.sh from a terminal of a desktop session, or over 'ssh -X'."
            exit 1
        fi
        ;;
esac

if command -v apt-get >/dev/null; then
    if [[ -z ${DISPLAY:-} && -n ${WAYLAND_DISPLAY:-} ]]; then
        install_packages packages/run.txt packages/wayland.txt
    else
        install_packages packages/run.txt
    fi
elif [[ ! -x build/release/bin/pelmo-wizard ]]; then
    say "the wizard needs Qt 6.4 or later with Svg, CMake 3.25, Ninja, a C++20 compiler, and Arial or a font of its metrics."
fi

need_tools cmake ninja c++
build release
exec build/release/bin/pelmo-wizard "$@"
