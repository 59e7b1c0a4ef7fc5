# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Used by the scripts in the root of the source tree and by tour/pictures.sh: installs packages, configures and builds.
# Must run in bash 3.2, the version on macOS.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

# missing LIST... - sets 'missing' to the packages in these lists that are not installed, and 'doubtful' to those with a
# pattern, which apt-get may not know. Calls dpkg-query once.
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

# Removes the packages that apt-get does not know from 'missing'. The doubtful ones are dropped; the others go to
# 'unknown'.
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

# Says what to install by hand and exits.
give_up() {
    say "$1 As root:"
    drop_unknown
    printf '    apt-get update && apt-get install --no-install-recommends%s\n' "$missing$unknown" >&2
    exit 1
}

# install_packages LIST... - installs the packages in these lists that are missing. Exits if it cannot.
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
    # An earlier run may have been interrupted: finish what it started.
    if ! $as_root dpkg --configure -a </dev/null; then say "continuing; apt-get may fix this"; fi
    if ! $as_root apt-get update; then say "continuing with the package lists that are there"; fi
    drop_unknown
    if [[ -n $unknown ]]; then say "continuing without$unknown, which apt-get does not know"; fi
    if [[ -z $missing ]]; then return; fi
    # shellcheck disable=SC2086
    if ! $as_root apt-get -o DPkg::Lock::Timeout=300 install -y --fix-broken --no-install-recommends $missing </dev/null
    then
        give_up "could not install the packages."
    fi
}

# need_tools COMMAND... - exits if one of these commands is missing.
need_tools() {
    local tool
    for tool in "$@"; do
        if ! command -v "$tool" >/dev/null; then
            say "'$tool' is not installed."
            exit 1
        fi
    done
}

# build PRESET [TARGET] - brings the build of the preset, in build/PRESET, up to date, or what the target needs.
build() {
    local folder=build/$1 line source=''
    if [[ -e $folder && ! -w $folder ]]; then
        say "$PWD/$folder belongs to another user: remove it and try again."
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
    cmake --build --preset "$1" --parallel "$(getconf _NPROCESSORS_ONLN)" ${2:+--target "$2"}
}
