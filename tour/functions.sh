# SPDX-License-Identifier: MIT
# What the scripts here share: a screen of their own, the wizard on it, keys, clicks and pictures. The script that
# sources this must have changed to the root of the source tree.
# shellcheck shell=bash

# shellcheck disable=SC2034 # used by the scripts
{
main="Reporting Scheme Wizard for Pelmo $(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)"
message='Reporting Scheme Wizard for Pelmo'
node_form='Form to Add / Update a Navigational Node.'
paragraph_form='Form to Add / Update a Web-Page Paragraph.'
}

fail() { printf '%s: %s\n' "${0##*/}" "$*" >&2; exit 1; }

# Starts the calling script again on a screen of its own, with an empty folder for its output.
on_own_screen() { # FOLDER WIZARD
    folder=$PWD/$1
    if [[ -z ${TOUR_SCREEN:-} ]]; then
        rm -rf "$folder"
        mkdir -p "$folder"
        TOUR_SCREEN=yes exec tests/with_x_server.sh wm "tour/${0##*/}" "$2"
    fi
}

start() { # WIZARD
    "$1" &
    program=$!
    trap 'kill "$program" 2>/dev/null || true' EXIT
}

# Exits the wizard with its menu.
leave() {
    menu f x
    wait "$program" || fail "the wizard ended with an error"
    trap - EXIT
}

# Waits until the window with this title has the keyboard.
window() {
    local title=''
    for _ in {1..200}; do
        title=$(xdotool getactivewindow getwindowname 2>/dev/null) || title=''
        if [[ $title == "$1" ]]; then
            sleep 0.4 # until it is drawn
            return
        fi
        sleep 0.1
    done
    import -window root "$folder/failed.png"
    fail "the window '$1' does not come; the keyboard is at '$title'"
}

# Presses keys, each as long as KEY_TIME says, in seconds.
keys() {
    local key
    for key in "$@"; do
        xdotool keydown "$key" sleep "${KEY_TIME:-0.02}" keyup "$key"
        sleep 0.1
    done
}
write() { xdotool key --delay 30 ctrl+a; xdotool type --delay 15 -- "$1"; }
click() { xdotool mousemove "$2" "$3"; sleep 0.2; xdotool click "$1"; sleep 0.3; }
menu() { keys "alt+$1" "${@:2}"; }
