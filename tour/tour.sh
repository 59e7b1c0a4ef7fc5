#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Plays the main job in the wizard from beginning to end, with the mouse and the keyboard, on a screen of its own.
#
#     tour/tour.sh [WIZARD]
#
# Writes a picture of each step and the two saved files to build/tour/. Fails if a window does not open, or if the files
# differ from what was entered. Needs Xvfb, openbox, xdotool and ImageMagick.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

source tour/functions.sh

wizard=${1:-build/release/bin/pelmo-wizard}
on_own_screen "${TOUR_FOLDER:-build/tour}" "$wizard" # another folder is for tests

count=0
picture() {
    count=$((count + 1))
    local name
    name=$(printf '%02d-%s.png' "$count" "$1")
    sleep 0.3
    import -window root -depth 8 "$folder/$name"
    printf '%s\n' "$name"
}

# Enters a name in the file dialog with this title.
file() {
    window "$1"
    write "$2"
    picture "$3"
    keys Return
}

# A file in the folder, as the program names it: TOUR_DRIVE is the drive that a Windows program finds the folder on.
saved() {
    local path=$folder/$1
    if [[ -n ${TOUR_DRIVE:-} ]]; then path=$TOUR_DRIVE${path//\//\\}; fi
    printf '%s' "$path"
}

report() { # MENU ITEM NAME
    menu "$1" "$2"
    window 'Output...'
    picture "$3"
    keys Escape
    window "$main"
}

start "$wizard"
window 'Pelmo Wizard Introduction...'
picture introduction
keys Escape
window "$message"
picture message
keys Return
window "$main"
picture new-scheme

menu f o n
file 'Open A File' XST1.txt open-nodes
window "$main"
menu f o w
file 'Open A File' XST2.txt open-paragraphs
window "$main"
picture samples

# Clicks through the tree: nodes below the root.
for row in 1 2 3; do click 1 150 $((70 + row * 20)); done
picture clicked
keys Home Right Down Right
picture tree-by-keys

# A node below the root.
keys Home Insert
window "$node_form"
keys Return
write 'Guided tours'
picture node-form
keys F3 Escape
window "$main"
picture node-added

# It should generate nodes, so it needs a query.
keys End F2
window "$node_form"
keys Return Return g
picture node-form-generating
keys F3
window "$message"
picture refused-without-query
keys Return
window "$node_form"
keys Return
write 'spG_Tours'
picture node-form-query
keys F3 Escape
window "$main"
picture node-edited

# A paragraph of its page.
keys End Return shift+Tab Menu
sleep 0.5
picture paragraph-menu
keys a
window "$paragraph_form"
keys Return
write 'Tours of this week'
keys Return Return
write 'spW_ToursOfWeek'
picture paragraph-form
keys F3 Escape
window "$main"
picture paragraph-added

menu n r
window "$main"
picture renumbered
report n a analysis-of-nodes
report n t to-do-of-nodes
report w a analysis-of-paragraphs
report w t to-do-of-paragraphs

menu n s
file 'Save File As...' "$(saved XST1.txt)" save-nodes
window "$main"
menu w s
file 'Save File As...' "$(saved XST2.txt)" save-paragraphs
window "$main"
picture end
leave

# The files end with what was entered; everything before it is the samples, unchanged.
line() { # FILE EXPECTED
    [[ $(tail -n 1 "$folder/$1") == "$2"$'\r' ]] || fail "$1 ends with: $(tail -n 1 "$folder/$1")"
    cmp -s <(head -n -1 "$folder/$1") "samples/$1" || fail "$1 has changed where nothing was entered"
}
line XST1.txt '71,"Guided tours","G",1,"spG_Tours","","leaf",""'
line XST2.txt '106,71,1,"Tours of this week","spW_ToursOfWeek","","S",0,"",""'
