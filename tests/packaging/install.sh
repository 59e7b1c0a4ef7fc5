#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian package into a bare Debian, uses the wizard there as a user does, and removes it without a trace.
# Starts the wizard from the portable archive, too.
#
#     tests/packaging/install.sh [release]      of Debian; bookworm when none is given
#
# package.sh comes first. Only for root; needs debootstrap, xdotool, Xvfb and openbox. What it mounts is seen by the
# programs that it starts only and gone with them, whatever happens.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."
if [[ ${1:-} != on-a-screen ]]; then exec tests/with_x_server.sh wm "${BASH_SOURCE[0]}" on-a-screen "$@"; fi
release=${2:-bookworm}

say() { printf 'install.sh: %s\n' "$*" >&2; }
fail() { say "FAILED: $*" && exit 1; }

packages=(build/package/*.deb build/package/*.tar.gz)
if [[ ${#packages[@]} != 2 || ! -f ${packages[0]} || ! -f ${packages[1]} ]]; then fail "not one package of each kind"; fi
package=${packages[0]}
archive=${packages[1]}

folder=$(mktemp -d)
root=$folder/root
wizard=''
# shellcheck disable=SC2317 # the trap calls it
clean_up() {
    if [[ -n $wizard ]]; then kill "$wizard" && wait "$wizard"; fi || true
    rm -rf --one-file-system "$folder"
}
trap clean_up EXIT

# Runs a command in the bare Debian, which ends with all that it started when this script or the command does.
inside() {
    unshare --mount --pid --fork --kill-child --mount-proc="$root/proc" \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive DISPLAY="$DISPLAY" \
        ${http_proxy:+http_proxy="$http_proxy"} chroot "$root" "$@"
}

# Every file with its kind, rights, and content or goal; but not what apt and dpkg note for themselves.
list_files() {
    (
        cd "$root"
        find . -xdev \( -path ./proc -o -path ./var/lib/apt -o -path ./var/lib/dpkg -o -path ./var/cache/apt \
            -o -path ./var/cache/debconf -o -path ./var/log \) -prune -o -printf '%p %y %m %u %g %l\n'
        find etc home opt root srv usr var -xdev \( -path var/lib/apt -o -path var/lib/dpkg -o -path var/cache/apt \
            -o -path var/cache/debconf -o -path var/log \) -prune -o -type f -print0 | xargs -0 sha256sum
    ) | sort
}

say "a bare Debian ($release) in $root"
mkdir "$root"
debootstrap --variant=minbase "$release" "$root" >"$folder/log" 2>&1 || { tail -n 20 "$folder/log" >&2; exit 1; }
cp "$package" "$root/package.deb"
inside useradd --create-home --shell /bin/bash reader
home=/home/reader
inside install -d -o reader -g reader -m 700 /run/user/reader # as a login does

say "what the package depends on"
{
    inside apt-get update
    inside apt-get satisfy -y --no-install-recommends "$(dpkg-deb -f "$package" Depends)"
} >"$folder/log" 2>&1 || { tail -n 20 "$folder/log" >&2; exit 1; }
list_files >"$folder/before"

# wait_for TITLE - waits for a window and until it has the keyboard. The title is a regular expression.
wait_for() {
    local i
    for ((i = 0; i < 300; ++i)); do
        if [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ ^$1$ ]]; then return; fi
        kill -0 "$wizard" || fail "the wizard ended"
        sleep 0.1
    done
    fail "no window \"$1\", but \"$(xdotool getactivewindow getwindowname)\""
}
press() { for key in "$@"; do xdotool key "$key" && sleep 0.3; done; }
answer() { xdotool key ctrl+a && xdotool type "$1" && press Return; }

message='Reporting Scheme Wizard for Pelmo'
main='Reporting Scheme Wizard for Pelmo 1[.]02'

# start COMMAND - starts the wizard, up to its main window.
start() {
    inside runuser -u reader -- env XDG_RUNTIME_DIR=/run/user/reader sh -c "cd && exec $1" &
    wizard=$!
    wait_for 'Pelmo Wizard Introduction[.]+'
    press Escape
    wait_for "$message"
    press Return
    wait_for "$main"
}
leave() {
    press alt+f x
    wait "$wizard" || fail "the wizard ended with $?"
    wizard=''
}
open_sample() {
    press alt+f o n
    wait_for 'Open A File'
    answer XST1.txt
    wait_for "$main"
}
# save_as NAME - leaves the dialog as it then is
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
start pelmo-wizard

say "opens a sample from its own folder, saves it in one of the user's"
open_sample
save_as $home/mine.txt
wait_for "$main"
check_saved $home/mine.txt
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
inside chown -R reader: $home/portable
start ./portable/pelmo-wizard
open_sample
save_as copy.txt
wait_for "$main"
check_saved $home/portable/copy.txt
leave
say "passed"
