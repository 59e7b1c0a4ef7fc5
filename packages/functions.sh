# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Used by the scripts in the root of the source tree and by tour/pictures.sh: installs packages, configures and builds.
# Kept to bash 3.2, the one macOS has.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

# missing LIST... - sets 'missing' to the packages of these lists that are not installed, and 'doubtful' to those that
# have a pattern and may be unknown. Asks dpkg once.
missing() {
    local list name pattern status wanted='' installed=' '
    doubtful=' '
    for list in "$@"; do
        while read -r name pattern; do
            case $name in '' | '#'*) continue ;; esac
            if [[ -n $pattern ]]; then
                if compgen -G "$pattern" >/dev/null; then continue; fi
                doubtful="$doubtful$name "
            fi
            wanted="$wanted $name"
        done <"$list"
    done
    # shellcheck disable=SC2086,SC2016 # the names are words; dpkg-query expands the fields
    while read -r name status; do
        if [[ $status == installed ]]; then installed="$installed$name "; fi
    done < <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' $wanted 2>/dev/null)
    missing=''
    for name in $wanted; do
        case $installed in *" $name "*) ;; *) missing="$missing $name" ;; esac
    done
}

# Takes the packages that apt-get does not know out of 'missing': the doubtful ones altogether, others into 'unknown'.
drop_unknown() {
    local name known kept=''
    unknown=''
    # shellcheck disable=SC2086
    known=$(apt-cache show $missing 2>/dev/null | sed -n 's/^Package: //p' | tr '\n' ' ') || true
    for name in $missing; do
        case " $known" in *" $name "*) kept="$kept $name" && continue ;; esac
        case $doubtful in *" $name "*) ;; *) unknown="$unknown $name" ;; esac
    done
    missing=$kept
}

# Says what to install by hand, and ends the script.
give_up() {
    say "$1 As root:"
    drop_unknown
    printf '    apt-get update && apt-get install --no-install-recommends%s\n' "$missing$unknown" >&2
    exit 1
}

# install_packages LIST... - installs what is missing of these lists. Ends the script where it cannot.
install_packages() {
    local as_root='env DEBIAN_FRONTEND=noninteractive'
    missing "$@"
    if [[ -z $missing ]]; then return; fi
    if [[ $EUID != 0 ]]; then
        if ! command -v sudo >/dev/null; then
            give_up "packages are missing, and only root can install them (there is no sudo here)."
        fi
        as_root="sudo $as_root"
    fi
    say "installing$missing"
    if ! $as_root true; then give_up "packages are missing, and sudo did not let you install them."; fi
    # An earlier run may have been interrupted: finish what it began.
    if ! $as_root dpkg --configure -a </dev/null; then say "went on, apt-get may mend this"; fi
    if ! $as_root apt-get update; then say "went on with the package lists at hand"; fi
    drop_unknown
    if [[ -n $unknown ]]; then say "went on without$unknown, which apt-get does not know"; fi
    if [[ -z $missing ]]; then return; fi
    # shellcheck disable=SC2086
    if ! $as_root apt-get -o DPkg::Lock::Timeout=300 install -y --fix-broken --no-install-recommends $missing </dev/null
    then
        give_up "could not install the packages."
    fi
}

# need_tools COMMAND... - ends the script when a command is not there.
need_tools() {
    local tool
    for tool in "$@"; do
        if ! command -v "$tool" >/dev/null; then
            say "'$tool' was not found."
            exit 1
        fi
    done
}

# build PRESET - brings the preset up to date, in build/PRESET.
build() {
    local folder=build/$1 line source=''
    if [[ -e $folder && ! -w $folder ]]; then
        say "$PWD/$folder belongs to another user: remove it, and start again."
        exit 1
    fi
    if [[ -f $folder/CMakeCache.txt ]]; then
        while read -r line; do
            case $line in CMAKE_HOME_DIRECTORY:*) source=${line#*=} ;; esac
        done <"$folder/CMakeCache.txt"
    fi
    if [[ -n $source && $source != "$PWD" ]]; then
        cmake --preset "$1" --fresh  # the source tree was moved or copied
    elif [[ ! -f $folder/build.ninja ]]; then
        cmake --preset "$1"
    fi
    cmake --build --preset "$1" --parallel "$(getconf _NPROCESSORS_ONLN)"
}
