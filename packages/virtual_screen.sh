#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a program on a virtual screen that a VNC viewer can show, and says how to connect:
#
#     virtual_screen.sh program [argument...]
#
# Needs Xvfb, openbox and x11vnc. Only this user can reach the screen and the viewer's port: the screen requires a
# cookie; the port is open on this computer only and requires a password. Both are new for each run. The exit code is
# the program's, or 1 if the screen could not be created. Everything that was started is stopped when the program ends,
# when this script is stopped, and (if setpriv is installed) even when it is killed.
# Must run in bash 3.2, like functions.sh.
set -u

say() { printf '%s\n' "$*" >&2; }
if (($# == 0)); then say "usage: virtual_screen.sh program [argument...]" && exit 1; fi

folder=$(mktemp -d) || exit 1  # only this user can read it
started=()
last=''

# shellcheck disable=SC2317 # the trap calls it
stop_all() {
    trap '' EXIT INT TERM HUP
    local i
    # The X server last, so that the others do not complain about losing it.
    for ((i = ${#started[@]} - 1; i >= 0; --i)); do
        kill "${started[i]}"
        for _ in {1..50}; do kill -0 "${started[i]}" || break; sleep 0.1; done
        kill -KILL "${started[i]}"
        wait "${started[i]}"
    done 2>/dev/null
    rm -rf "$folder"
}
trap stop_all EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# start COMMAND... - starts a program in the background. It stops with this script, and only this script stops it:
# Ctrl+C in the terminal would also reach the X server, and the others would complain about losing it.
start() {
    if command -v setpriv >/dev/null; then setpriv --pdeathsig TERM -- setsid -- "$@" & else "$@" & fi
    last=$!
    started[${#started[@]}]=$last
}

# wait_for FILE WHAT LOG - waits until the program that was started last has written something to the file.
wait_for() {
    local i
    for ((i = 0; i < 300; ++i)); do
        if [[ -s $1 ]]; then return; fi
        kill -0 "$last" 2>/dev/null || break
        sleep 0.1
    done
    cat "$3" >&2
    say "$2 did not start."
    exit 1
}

# letters COUNT - prints that many random letters and digits, none of which is easily mistaken for another.
letters() { LC_ALL=C tr -dc 'a-hjkmnp-z2-9' </dev/urandom 2>/dev/null | head -c "$1"; }

# The cookie, as an authority file for any host and any display. Without it every user of this computer could use the
# screen, whatever the viewer's password.
export XAUTHORITY=$folder/authority
printf '\377\377\000\000\000\000\000\022MIT-MAGIC-COOKIE-1\000\020%s' "$(letters 16)" >"$XAUTHORITY"

: >"$folder/display"
start Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp -auth "$XAUTHORITY" \
    3>"$folder/display" >"$folder/server.log" 2>&1
wait_for "$folder/display" "The X server" "$folder/server.log"
DISPLAY=:$(head -n 1 "$folder/display")
export DISPLAY QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY SESSION_MANAGER

# With a home of its own it uses none of the user's settings and leaves nothing behind.
HOME=$folder XDG_CONFIG_HOME=$folder XDG_CACHE_HOME=$folder XDG_DATA_HOME=$folder \
    start openbox --sm-disable --startup "sh -c 'echo yes >$folder/managed'" >"$folder/manager.log" 2>&1
wait_for "$folder/managed" "The window manager" "$folder/manager.log"

# VNC uses only eight characters. x11vnc removes the file after reading it.
password=$(letters 8)
printf '%s\n' "$password" >"$folder/password"
HOME=$folder start x11vnc -norc -localhost -no6 -autoport 5901 -passwdfile "rm:$folder/password" \
    -forever -nevershared -flag "$folder/port" >"$folder/vnc.log" 2>&1
wait_for "$folder/port" "x11vnc" "$folder/vnc.log"
port=$(sed -n 's/^PORT=//p' "$folder/port")

# The address at which an SSH client reached this computer, or else its name.
host=$(uname -n)
read -r _ _ address ssh_port <<<"${SSH_CONNECTION:-}"
case $ssh_port in '' | 22) ssh_port='' ;; *) ssh_port=" -p $ssh_port" ;; esac
say "There is no display, so the program runs on a virtual screen. To see it from another computer, run this there:
    ssh -L $port:127.0.0.1:$port$ssh_port $(id -un)@${address:-$host}
and, while it is connected, open 127.0.0.1:$port in a VNC viewer. On this computer you only need the viewer.
    Password: $password
The screen closes when the program ends. Ctrl+C ends both."

start "$@"
wait "$last"
code=$?
unset "started[$((${#started[@]} - 1))]"
exit "$code"
