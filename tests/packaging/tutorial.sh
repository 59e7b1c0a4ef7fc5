#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Does in a bare Debian what a new user does: installs the wizard as the README says, opens the help, follows its
# tutorial to the end, key by key, and imports both tables into SQLite and PostgreSQL. Then checks that the files and
# every row of the tables are what the tutorial promises.
#
#     tests/packaging/tutorial.sh [release]      of Debian; by default bookworm
#
# Leaves a picture of each step in build/tutorial/. Run package.sh first. Only for root; needs debootstrap, xdotool,
# ImageMagick, python3, Xvfb and openbox.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
if [[ ${1:-} != on-a-screen ]]; then exec tests/with_x_server.sh wm "${BASH_SOURCE[0]}" on-a-screen "$@"; fi
release=${2:-bookworm}

source tests/packaging/bare_debian.sh

pictures=$PWD/build/tutorial
rm -rf "$pictures"
mkdir -p "$pictures"
count=0
# picture NAME - takes a picture of the whole screen.
picture() {
    count=$((count + 1))
    sleep 0.3
    import -window root -depth 8 "$pictures/$(printf '%03d' "$count")-$1.png"
}
on_failure() {
    import -window root -depth 8 "$pictures/failed.png" || true
    say "the screen is in $pictures/failed.png"
}
trap '[[ $? == 0 ]] || on_failure; clean_up' EXIT

same() { diff "$1" "$2" >&2 || fail "$3"; }
example() { python3 tests/help/tutorial.py example "$@"; }

make_debian "$release" you
inside install -d -o you -g you -m 700 "$home/.config" # as a desktop does
quiet inside apt-get update
# As on a desktop, the user may become root.
quiet inside apt-get install -y --no-install-recommends sudo
echo 'APT::Get::Assume-Yes "true";' >"$root/etc/apt/apt.conf.d/yes"
cat >"$root/etc/sudoers.d/you" <<'SUDO'
Defaults env_keep += "DEBIAN_FRONTEND http_proxy"
you ALL=(ALL) NOPASSWD: ALL
SUDO

install=$(sed -n 's/^    \(sudo apt install [.].*\)$/\1/p' README.md)
[[ -n $install ]] || fail "the README does not say how to install the package"
say "$install"
as_user "mkdir -p build/package && cp /package.deb build/package/${package##*/}"
quiet as_user "$install"
sqlite=$(sed -n 's/.*<i>\(sudo apt install sqlite3\)<.*/\1/p' help/tutorial.html)
[[ -n $sqlite ]] || fail "the tutorial does not say how to install sqlite3"
say "$sqlite"
quiet as_user "$sqlite"

introduction='Pelmo Wizard Introduction[.]+'
node_form='Form to Add / Update a Navigational Node[.]'
paragraph_form='Form to Add / Update a Web-Page Paragraph[.]'
report='Output[.]+'
open_dialog='Open A File'
save_dialog='Save File As[.]+'

say "the help"
start pelmo-wizard
press Escape
wait_for "$message"
press Return
wait_for "$main"
picture main-window
press F1
wait_for "xCHM .*: $message"
sleep 2
picture help
press alt+F4
wait_for "$main"
leave

# --- the tutorial ---

# follow KEY - sets 'window' to the title of the window that must have the keyboard after the key, and 'menu' to the
# keys that opened a menu of the main window.
follow() {
    local goes_to=$window
    case "$window|$menu $1" in
        "$introduction| Escape") goes_to=$message ;;
        "$message| Return") goes_to=$main ;;
        "$main| alt+f" | "$main| alt+n" | "$main| alt+w" | "$main| Menu" | "$main|alt+f o")
            menu=${menu:+$menu }$1
            return
            ;;
        "$main|alt+n a" | "$main|alt+n t" | "$main|alt+w a" | "$main|alt+w t") goes_to=$report ;;
        "$main|alt+n s" | "$main|alt+w s") goes_to=$save_dialog ;;
        "$main|alt+f o n" | "$main|alt+f o w") goes_to=$open_dialog ;;
        "$main|alt+n r") ;;
        "$main|Menu a" | "$main|Menu e") goes_to=$paragraph_form ;;
        "$main| Insert") goes_to=$node_form ;;
        "$main| Home" | "$main| End" | "$main| Up" | "$main| Down" | "$main| Left" | "$main| Right" | "$main| Return" | \
            "$main| Tab" | "$main| shift+Tab" | "$main| asterisk") ;;
        "$node_form| Escape" | "$paragraph_form| Escape" | "$report| Escape") goes_to=$main ;;
        "$save_dialog| Return" | "$open_dialog| Return") goes_to=$main ;;
        "$node_form| Return" | "$paragraph_form| Return" | "$node_form| F3" | "$paragraph_form| F3") ;;
        "$node_form| "[a-z] | "$paragraph_form| "[a-z] | "$paragraph_form| End") ;;
        *) fail "'$1' is not to be pressed here: $window${menu:+, $menu}" ;;
    esac
    menu=''
    window=$goes_to
}

# play PAGE - takes a picture at the end of each step, of each menu, and of everything that is saved or closed.
play() {
    local page=$1 step='' action value before
    say "$page"
    while read -r action value <&3; do
        case $action in
            step)
                if [[ -n $step ]]; then picture "$page-$step"; fi
                step=$value
                ;;
            type) xdotool type --delay 30 -- "$value" ;;
            press)
                before=$window
                follow "$value"
                if [[ $value == F3 || ($window != "$before" && $before != "$main" && $before != Form*) ]]; then
                    picture "$page-$step-$value"
                fi
                press "$value"
                wait_for "$window"
                if [[ -n $menu ]]; then picture "$page-$step-$value"; fi
                ;;
            *) fail "nobody can $action $value" ;;
        esac
    done 3< <(python3 tests/help/tutorial.py steps "$page" || echo step failed)
    if [[ $step == failed ]]; then fail "the page cannot be followed"; fi
    picture "$page-$step"
}

start pelmo-wizard
window=$introduction
menu=''
play tutorial-nodes
play tutorial-paragraphs
as_user "mkdir library"
play tutorial-save

say "the files"
for number in 1 2; do
    sed 's/\r$//' "$root/home/you/library/XST$number.txt" >"$folder/saved"
    example tutorial-save "$number" >"$folder/promised"
    same "$folder/promised" "$folder/saved" "XST$number.txt is not the file of the tutorial"
done

# rows NUMBER - prints the rows of the file that the tutorial shows, as sqlite3 prints them.
rows() {
    example tutorial-save "$1" | python3 -c 'import csv, sys
for row in list(csv.reader(sys.stdin))[1:]: print("|".join(row))'
}

say "import into SQLite"
for number in 2 3 4; do example tutorial-import "$number"; done >"$folder/statements"
as_user "$(example tutorial-import 1)" <"$folder/statements" >"$folder/printed" 2>&1
{ rows 1 && rows 2 && printf '%s\n' '1|Amin' '2|Berger' '3|Castro'; } >"$folder/promised"
same "$folder/promised" "$folder/printed" "what sqlite3 prints"
play tutorial-import
leave

say "import into PostgreSQL"
# The bare Debian has no init system, but services must start anyway.
printf '#!/bin/sh\nexit 0\n' >"$root/usr/sbin/policy-rc.d"
chmod +x "$root/usr/sbin/policy-rc.d"
{ example import-postgresql 2 && echo 'SELECT * FROM XST1; SELECT * FROM XST2;'; } >"$folder/statements"
# A single command, so that the server that the installation starts runs to the end.
as_user "{ $(example import-postgresql 1)
} >server.log 2>&1 </dev/null && cd library && psql --no-align --tuples-only" <"$folder/statements" \
    >"$folder/printed" 2>"$folder/log" || { tail "$root$home/server.log" "$folder/log" >&2 && fail "PostgreSQL"; }
{
    printf '%s\n' 'DROP TABLE' 'DROP TABLE' 'CREATE TABLE' 'CREATE TABLE' 'COPY 7' 'COPY 4'
    rows 1
    rows 2
} >"$folder/promised"
same "$folder/promised" "$folder/printed" "what psql prints"

say "passed; the pictures are in $pictures"
