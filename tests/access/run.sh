#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs a test of this folder on an X server, a D-Bus session and a home folder of its own:
#
#     run.sh test.py wizard
#
# The exit code is the test's; 77 if something that it needs is not installed.
set -u

leave() { echo "run.sh: $*" >&2; exit 77; }

for tool in dbus-run-session xdotool; do
    command -v "$tool" > /dev/null || leave "$tool is not installed"
done

# The operating system's own Python may have the bindings even if another one comes first in the path.
python=
for each in python3 /usr/bin/python3; do
    "$each" -c 'import gi; gi.require_version("Atspi", "2.0"); from gi.repository import Atspi' 2> /dev/null || continue
    python=$each
    break
done
[ -n "$python" ] || leave "the Python bindings for AT-SPI (python3-gi, gir1.2-atspi-2.0) are not installed"

service=share/dbus-1/services/org.a11y.Bus.service
[ -e "/usr/$service" ] || [ -e "/usr/local/$service" ] || leave "at-spi2-core is not installed"

folder=$(mktemp -d) || exit 99
trap 'rm -rf "$folder"' EXIT
mkdir -m 700 "$folder/home" "$folder/run"
mkdir "$folder/program"
# The program is put in a folder of its own: the file dialogs start there, and there is no help file.
cp "$2" "${0%/*}"/../../samples/XST[12].txt "$folder/program" || exit 99

export HOME=$folder/home XDG_RUNTIME_DIR=$folder/run LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1
export XDG_CONFIG_HOME=$HOME XDG_CACHE_HOME=$HOME XDG_DATA_HOME=$HOME
export QT_ACCESSIBILITY=1 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS NO_AT_BRIDGE QT_SCALE_FACTOR QT_FONT_DPI LANGUAGE
"${0%/*}/../with_x_server.sh" wm dbus-run-session -- "$python" -W ignore "$1" "$folder/program/${2##*/}" \
    2> >(grep -v '^dbus-daemon\|^SpiRegistry' >&2)
