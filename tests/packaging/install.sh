#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian package in a bare Debian, uses the wizard there as a user does, and removes the package without a
# trace. Starts the wizard from the portable archive, too, and does the same with the package of pelmo-scheme.
#
#     tests/packaging/install.sh [release]      of Debian; by default bookworm
#
# Run package.sh first. Only for root; needs debootstrap, xdotool, Xvfb and openbox.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
if [[ ${1:-} != on-a-screen ]]; then exec tests/with_x_server.sh wm "${BASH_SOURCE[0]}" on-a-screen "$@"; fi
release=${2:-bookworm}

source tests/packaging/bare_debian.sh

# Every file with its kind, mode, and contents or link target, except the notes that apt and dpkg keep.
list_files() {
    (
        cd "$root"
        find . -xdev \( -path ./proc -o -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./var/cache/apt \
            -o -path ./var/cache/debconf -o -path ./var/log \) -prune -o -printf '%p %y %m %u %g %l\n'
        find etc home opt root srv usr var -xdev \( -path var/lib/apt -o -path var/lib/dpkg -o -path var/cache/apt \
            -o -path var/cache/debconf -o -path var/log \) -prune -o -type f -print0 | xargs -0 sha256sum
    ) | sort
}

make_debian "$release" reader

say "what the package depends on"
quiet inside apt-get update
quiet inside apt-get satisfy -y --no-install-recommends "$(dpkg-deb -f "$package" Depends)"
list_files >"$folder/before"

# start_up COMMAND - starts the wizard, up to its main window.
start_up() {
    start "$1"
    press Escape
    wait_for "$message"
    press Return
    wait_for "$main"
}
answer() { xdotool key ctrl+a && xdotool type "$1" && press Return; }
open_sample() {
    press alt+f o n
    wait_for 'Open A File'
    answer XST1.txt
    wait_for "$main"
}
# save_as NAME - answers the dialog, and does not wait for what happens then
save_as() {
    press alt+n s
    wait_for 'Save File As[.]+'
    answer "$1"
}
check_saved() { cmp "$root$1" samples/XST1.txt || fail "the saved file is not the one that was opened"; }

say "the package"
inside dpkg -i /package.deb >&2
[[ $(inside dpkg --verify pelmo-wizard) == '' ]] || fail "files differ from those of the package"
list_files >"$folder/installed"
grep -q '^[.]/usr/bin/pelmo-wizard .* [.][.]/lib/pelmo-wizard/pelmo-wizard$' "$folder/installed" || fail "no link"
start_up pelmo-wizard

say "opens a sample from its own folder, saves it in one of the user's"
open_sample
save_as "$home/mine.txt"
wait_for "$main"
check_saved "$home/mine.txt"
[[ $(stat -c %a "$root$home/mine.txt") == 644 ]] || fail "the rights of the saved file"

say "refuses to save in its own folder"
save_as refused.txt
wait_for "$message"
press Return
wait_for 'Save File As[.]+'
press Escape
wait_for "$main"
[[ ! -e $root/usr/lib/pelmo-wizard/refused.txt ]] || fail "a user could write in the program's folder"
leave

say "removes the package"
inside apt-get purge -y pelmo-wizard >&2
rm "$root$home/mine.txt"
list_files >"$folder/after"
diff "$folder/before" "$folder/after" >&2 || fail "the package left a trace"

say "the portable archive: opens a sample from its own folder, saves it there"
tar -xzf "$archive" -C "$root$home" --one-top-level=portable --strip-components=1
inside chown -R reader: "$home/portable"
start_up ./portable/pelmo-wizard
open_sample
save_as copy.txt
wait_for "$main"
check_saved "$home/portable/copy.txt"
leave

say "pelmo-scheme: checks, finds and renumbers"
quiet inside apt-get satisfy -y --no-install-recommends "$(dpkg-deb -f "$scheme" Depends)"
cp samples/XST*.txt "$root$home"
cp samples/shop.sql "$root$home"
quiet inside apt-get satisfy -y --no-install-recommends "$(dpkg-deb -f "$scheme" Recommends), sqlite3"
as_user 'sqlite3 -bail shop.db < shop.sql'
list_files >"$folder/before"
inside dpkg -i /scheme.deb >&2
[[ $(inside dpkg --verify pelmo-scheme) == '' ]] || fail "files differ from those of the package"
as_user 'pelmo-scheme check XST1.txt XST2.txt' >"$folder/found" || fail "the samples are not clean"
[[ ! -s $folder/found ]] || fail "there is something to find in the samples"
as_user 'pelmo-scheme check XST1-faults.txt XST2-faults.txt' >"$folder/found" && fail "no fault is found"
grep -q 'XST1-faults.txt:[0-9]*: error: ' "$folder/found" || fail "no place is named"
as_user 'mkdir new && pelmo-scheme renumber XST1.txt XST2.txt -o new && cmp XST1.txt new/XST1.txt && rm -r new'

say "pelmo-scheme: looks at the sample database, and shows it to a browser"
as_user 'pelmo-scheme verify XST1.txt XST2.txt --db sqlite:shop.db' >"$folder/found" || fail "the queries do not fit"
if grep -v '\[folder-elsewhere\]$' "$folder/found"; then fail "there is something to find in the sample database"; fi
"${enter[@]}" "${as[@]}" 'cd && exec pelmo-scheme preview XST1.txt XST2.txt --db sqlite:shop.db --no-browser' >"$folder/address" 2>&1 &
wizard=$!
for ((i = 0; i < 100; ++i)); do grep -q '^http' "$folder/address" && break; sleep 0.1; done
python3 - "$(head -n 1 "$folder/address")" <<'END' || fail "the preview shows no page"
import http.cookiejar, sys, urllib.request
browser = urllib.request.build_opener(urllib.request.HTTPCookieProcessor(http.cookiejar.CookieJar()))
page = browser.open(sys.argv[1], timeout=10).read().decode()
if "Data Browser" not in page or "Wheel and Spanner" not in page:  # the name of the shop is in the database
    sys.exit(page)
END
{ kill -KILL "$wizard" && wait "$wizard"; } 2>/dev/null || true # unshare ignores gentler signals
wizard=''

inside apt-get purge -y pelmo-scheme >&2
list_files >"$folder/after"
diff "$folder/before" "$folder/after" >&2 || fail "the package of pelmo-scheme left a trace"
say "passed"
