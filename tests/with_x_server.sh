#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs a command on an X server of its own, with the window manager openbox or without one:
#
#     with_x_server.sh wm|bare command [argument...]
#
# SCREEN is its size and depth, 1280x1024x24 unless it is set.
# The exit code is the command's; 77 if Xvfb or openbox is not installed; 99 if the screen could not be created. Server
# and window manager are always stopped: when the command ends or crashes, when this script is stopped, and even when it
# is killed.
set -u

leave() { code=$1; shift; echo "with_x_server.sh: $*" >&2; exit "$code"; }
fail() { leave 99 "$@"; }

[ $# -ge 2 ] || fail "usage: with_x_server.sh wm|bare command [argument...]"
desktop=$1
shift
case $desktop in wm | bare) ;; *) fail "no such desktop: $desktop" ;; esac
command -v Xvfb > /dev/null || leave 77 "Xvfb is not installed"
[ "$desktop" = bare ] || command -v openbox > /dev/null || leave 77 "openbox is not installed"

folder=$(mktemp -d) || fail "no temporary folder"
started=()

stop_all() {
    trap '' EXIT INT TERM HUP
    # The server last, so that the others do not complain about losing it.
    for ((i = ${#started[@]} - 1; i >= 0; --i)); do
        kill "${started[i]}" 2> /dev/null
        for _ in {1..50}; do kill -0 "${started[i]}" 2> /dev/null || break; sleep 0.1; done
        kill -KILL "${started[i]}" 2> /dev/null
        wait "${started[i]}" 2> /dev/null
    done
    rm -rf "$folder"
}
trap stop_all EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# Starts a program in the background that stops with this script, even if the script is killed.
start() {
    if command -v setpriv > /dev/null; then setpriv --pdeathsig TERM -- "$@" & else "$@" & fi
    started+=($!)
}

# Waits until a file has something in it; gives up if the program that should write it has ended.
wait_for() {
    for _ in {1..300}; do
        [ -s "$1" ] && return 0
        kill -0 "${started[${#started[@]} - 1]}" 2> /dev/null || return 1
        sleep 0.1
    done
    return 1
}

: > "$folder/display"
start Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x1024x24}" -dpi 96 -nolisten tcp 3> "$folder/display" 2> "$folder/server.log"
wait_for "$folder/display" || { cat "$folder/server.log" >&2; fail "the X server did not start"; }
DISPLAY=:$(head -n 1 "$folder/display")
export DISPLAY QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER

if [ "$desktop" = wm ]; then
    # With a home of its own it uses none of the user's settings and leaves nothing behind.
    HOME=$folder XDG_CONFIG_HOME=$folder XDG_CACHE_HOME=$folder XDG_DATA_HOME=$folder \
        start openbox --sm-disable --startup "sh -c 'echo yes > $folder/managed'" > "$folder/manager.log" 2>&1
    wait_for "$folder/managed" || { cat "$folder/manager.log" >&2; fail "the window manager did not start"; }
fi

start "$@"
wait "${started[${#started[@]} - 1]}"
code=$?
unset "started[${#started[@]} - 1]"
exit "$code"
