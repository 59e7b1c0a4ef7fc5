#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Takes the pictures for the help on a screen of its own, using the mouse and the keyboard: the wizard with the samples,
# and the tutorial, key by key as on its pages.
#
#     tour/help.sh [WIZARD]
#
# Writes to build/tour/help/. Fails if a window does not open, if a picture does not show the node or paragraph that it
# should, or if the tutorial's two files differ from those on its page. Needs what tour.sh needs.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
source tour/functions.sh

wizard=${1:-build/release/bin/pelmo-wizard}
on_own_screen build/tour/help "$wizard"

shot() { # NAME WINDOW [PART]
    sleep 0.5
    import -window "$2" ${3:+-crop "$3"} -depth 8 +repage "$folder/$1.png"
    printf '%s.png\n' "$1"
}
form() { shot "$1" "$(xdotool getactivewindow)"; }

# A part of the tree: this many rows, beginning with that one; the root is row 0.
tree() { shot "$1" root "380x$(($3 * 20))+0+$((40 + $2 * 20))"; }
lower_grid() { shot "$1" root "898x$2+380+437"; }

save() { # MENU FILE
    menu "$1" s
    window 'Save File As...'
    write "$folder/$2"
    keys Return
    window "$main"
}

# Starting with a closed tree, goes to a node. The arguments are the positions among their siblings of the nodes on the
# way from the root, and of the node itself. Leaves its row in $row.
node() {
    menu n c
    keys Home
    row=0
    local place
    for place in "$@"; do
        ((row == 0)) || keys Right
        for ((; place > 0; place--)); do keys Down; row=$((row + 1)); done
    done
}

# Opens the form of the paragraph with this number on the node's page.
paragraph() { # NUMBER PLACE...
    local number=$1
    node "${@:2}"
    keys Return shift+Tab
    for ((; number > 0; number--)); do keys Down; done
    keys Menu e
    window "$paragraph_form"
}

# Fills in a form: the name, then keys, or, after a plus, text to type into a field.
enter() { # FORM NAME STEP...
    window "$1"
    keys Return
    write "$2"
    local step
    for step in "${@:3}"; do
        if [[ $step == +* ]]; then write "${step:1}"; else keys "$step"; fi
    done
}
add_node() { keys Insert; enter "$node_form" "$@"; }
add_paragraph() { keys Menu a; enter "$paragraph_form" "$@"; }
saved() { keys F3 Escape; window "$main"; }

# Writes the name of its picture into the record that was shown, so that the saved file tells which record it was.
sign() { # NAME
    write "In $1"
    saved
}

# The form of a paragraph with the help on its type, which appears when the type is selected.
paragraph_type() { # NAME KEYS NUMBER PLACE...
    paragraph "${@:3}"
    # shellcheck disable=SC2086 # several keys
    keys Return Return $2
    form "$1"
    keys shift+Tab
    sign "$1"
    keys Tab
}

start "$wizard"
window 'Pelmo Wizard Introduction...'
keys Escape
window "$message"
keys Return
window "$main"
xdotool mousemove 1279 1023

# Tutorial 1: the nodes.
keys Home Return
add_node 'Lending desk' Return f
saved
add_node Catalogue Return f
saved
keys Down Return
add_node Readers Return g Return +spG_Readers
form tutorial-node
saved
keys Return Down Return
add_node 'A reader'
saved
keys Up Return
add_node 'Overdue loans'
saved
keys End Return
add_node Subjects Return r Return +spG_SubjectsBelow Return l
saved
keys Home asterisk
tree tutorial-tree 0 7

# Tutorial 2: the paragraphs.
keys Down Down Down Return Tab Tab
add_paragraph Reader: Return h Return +spW_ReaderCard Return l
saved
add_paragraph 'Loans of this reader' Return Return +spW_LoansOfReader Return l Return Return +3
form tutorial-paragraph
saved
keys shift+Tab shift+Tab Down Return Tab Tab
add_paragraph 'Overdue today' Return Return +spW_OverdueLoans Return End Return Return +4
saved
keys shift+Tab shift+Tab Home Down Return Tab Tab
add_paragraph 'Loans by month' Return c Return +spW_LoansByMonth
saved

# Tutorial 3: check, re-number, save.
menu n a
window 'Output...'
keys Escape
window "$main"
menu w a
window 'Output...'
shot tutorial-finding "$(xdotool getactivewindow)" 715x200+0+0
keys Escape
window "$main"
keys Down Menu e
window "$paragraph_form"
keys Return Return Return Return Return Return
write 1:2
saved
menu n r
window "$main"
lower_grid tutorial-grid 110
save n library-XST1.txt
save w library-XST2.txt

# The samples.
menu f o n
window 'Open A File'
write XST1.txt
keys Return
window "$main"
menu f o w
window 'Open A File'
write XST2.txt
keys Return
window "$main"

keys Tab
node 1
keys Right Home
tree node-non-generating 1 3
node 1 6
keys Right Home
tree node-fixed "$row" 5
node 4 1
keys Right Home
tree node-recurring "$row" 2
node 4 3
keys Right Down Right Home
tree node-generating "$row" 3
node 6 1
keys Right Down Right Down Right Home
tree time-line "$row" 4

node 4 3 1
keys Return
click 3 222 $((50 + row * 20))
tree menu-node "$row" 5
keys Escape F2
window "$node_form"
form node-form
keys Return
sign node-form

node 4 3 1
keys Return shift+Tab Down
click 3 560 500
lower_grid menu-paragraph 182
keys e
window "$paragraph_form"
keys Return Return
form paragraph-form
keys shift+Tab
sign paragraph-form
keys Tab

paragraph_type chart 'Down Up' 3 1 1
paragraph_type header 'Up Down' 1 5 1 1 1
paragraph_type execute 'Up Down' 1 1 4
paragraph_type multi-chapter 'Up Down' 2 4 3 1
paragraph_type image-header 'Up Down' 1 4 1 1
paragraph_type show-table 'Up Down' 2 1 2 1
paragraph_type thumbnails 'Up Down' 3 2 2 1

save n XST1.txt
save w XST2.txt
leave

# The tutorial's pages show the two files that it ends with.
listed() { # NUMBER
    awk -v number="$1" '/<pre>/ { count++ } count == number && !done { print } /<\/pre>/ { done = count == number }' \
        help/tutorial-save.html | sed -e 's/<[^>]*>//g' -e '/^$/d' -e 's/$/\r/'
}
for number in 1 2; do
    cmp -s <(listed "$number") "$folder/library-XST$number.txt" ||
        fail "library-XST$number.txt is not the file of help/tutorial-save.html"
done

# Exactly the records that should be shown have been signed; nothing else has changed.
signed() { # FILE NUMBER=NAME...
    local sign script=()
    for sign in "${@:2}"; do script+=(-e "s/^(${sign%=*},([0-9]+,[0-9]+,)?)\"[^\"]*\"/\\1\"In ${sign#*=}\"/"); done
    cmp -s <(LC_ALL=C sed -E "${script[@]}" "samples/$1") "$folder/$1" ||
        fail "the pictures are not of the nodes and paragraphs that $1 was to be signed in"
}
signed XST1.txt 41=node-form
signed XST2.txt 63=paragraph-form 6=chart 73=header 13=execute 64=multi-chapter 58=image-header 9=show-table \
    42=thumbnails
