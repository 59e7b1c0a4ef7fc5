# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2034 # for the script that sources it
# Used by install.sh and tutorial.sh: makes a bare Debian, starts the wizard in it, and presses keys. Only the programs
# that are started here see what is mounted, and it is gone when they end, whatever happens.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
fail() { say "FAILED: $*" && exit 1; }

packages=(build/package/pelmo-wizard_*.deb build/package/pelmo-wizard*.tar.gz build/package/pelmo-scheme_*.deb)
if [[ ${#packages[@]} != 3 ]]; then fail "not one package of each kind"; fi
for file in "${packages[@]}"; do [[ -f $file ]] || fail "there is no $file"; done
package=${packages[0]}
archive=${packages[1]}
scheme=${packages[2]}

folder=$(mktemp -d)
root=$folder/root
wizard=''
# shellcheck disable=SC2317 # the trap calls it
clean_up() {
    if [[ -n $wizard ]]; then kill -KILL "$wizard" && wait "$wizard"; fi 2>/dev/null || true
    rm -rf --one-file-system "$folder"
}
trap clean_up EXIT

# Runs a command in the bare Debian, which ends with all that it started when this script or the command does.
enter=(unshare --mount --pid --fork --kill-child --mount-proc="$root/proc"
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive DISPLAY="$DISPLAY"
    ${http_proxy:+http_proxy="$http_proxy"} chroot "$root")
inside() { "${enter[@]}" "$@"; }

# quiet COMMAND... - shows what it says only when it fails, which ends the script.
quiet() { "$@" >"$folder/log" 2>&1 || { tail -n 20 "$folder/log" >&2; exit 1; }; }

# make_debian RELEASE USER - with the packages as /package.deb and /scheme.deb, and a user who is logged in.
make_debian() {
    user=$2
    home=/home/$user
    as=(runuser -u "$user" -- env HOME="$home" USER="$user" XDG_RUNTIME_DIR="/run/user/$user" sh -c)
    say "a bare Debian ($1) in $root"
    mkdir "$root"
    quiet debootstrap --variant=minbase "$1" "$root"
    cp "$package" "$root/package.deb"
    cp "$scheme" "$root/scheme.deb"
    inside useradd --create-home --shell /bin/bash "$user"
    inside install -d -o "$user" -g "$user" -m 700 "/run/user/$user" # as a login does
}

# as_user SCRIPT - runs a shell script as the user, in the user's home.
as_user() { inside "${as[@]}" "cd && $1"; }

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

message='Reporting Scheme Wizard for Pelmo'
main="Reporting Scheme Wizard for Pelmo $(sed -n 's/^project(.* VERSION \([0-9]*\)[.]\([0-9]*\).*/\1[.]\2/p' CMakeLists.txt)"

# start COMMAND - starts the wizard, up to its first window.
start() {
    "${enter[@]}" "${as[@]}" "cd && exec $1" &
    wizard=$!
    wait_for 'Pelmo Wizard Introduction[.]+'
}
leave() {
    press alt+f x
    wait "$wizard" || fail "the wizard ended with $?"
    wizard=''
}
