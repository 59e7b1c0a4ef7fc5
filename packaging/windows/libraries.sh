#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the libraries of the Windows programs, on Debian and from Debian's own sources, and prints the folder that they
# are in: Qt and, with the argument "tests", GoogleTest. They are kept outside of the source tree, in
# ${XDG_CACHE_HOME:-~/.cache}/pelmo-wizard, and built once: the first run takes a quarter of an hour or more, others no
# time. Needs the packages in packages/windows.txt.
#
# apt-get downloads the sources with lists of its own in that folder: the computer's list of sources stays as it is.
set -euo pipefail
here=$(cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/pelmo-wizard

recipe=1 # count up when the libraries are to be built in another way: each recipe has a folder of its own
# Qt's tools run on this computer, so its sources must have their version.
version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
export WINDOWS_PREFIX=$cache/windows-${version//[^0-9A-Za-z.+-]/_}-$recipe
work=$WINDOWS_PREFIX.work

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

# fetch SOURCE VERSION - unpacks a source package of Debian, with Debian's patches, and prints its folder.
fetch() {
    local apt=$work/apt options signed='' keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$apt/parts"
    options=(-o "Dir::Etc::SourceList=$apt/sources.list" -o "Dir::Etc::SourceParts=$apt/parts"
        -o "Dir::State::Lists=$apt/lists" -o "Dir::Cache=$apt" -o APT::Sandbox::User=root)
    if [[ ! -f $apt/sources.list ]]; then
        if [[ -f $keyring ]]; then signed="[signed-by=$keyring] "; fi
        # The computer's own sources, whatever the format of their lists.
        # shellcheck disable=SC2016 # apt-get expands the fields
        apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
            sort -u | sed "s|^|deb-src $signed|" >"$apt/new.list"
        mv "$apt/new.list" "$apt/sources.list"
        apt-get "${options[@]}" update >&2
    fi
    mkdir -p "$work/$1"
    (cd "$work/$1" && apt-get "${options[@]}" source -q "$1=$2" >&2)
    find "$work/$1" -mindepth 1 -maxdepth 1 -type d
}

# install SOURCE_FOLDER CMAKE_OPTION... - builds and installs.
install() {
    local build=$1.build
    cmake -S "$1" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
        -DCMAKE_INSTALL_PREFIX="$WINDOWS_PREFIX" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF "${@:2}" >&2
    cmake --build "$build" >&2
    cmake --install "$build" >"$build/install.log"
    rm -rf "$build"
}

# once NAME FUNCTION - calls the function unless an earlier run has.
once() {
    if [[ -f $WINDOWS_PREFIX/.has-$1 ]]; then return; fi
    say "building $1 in $WINDOWS_PREFIX"
    rm -rf "${work:?}/$1"
    mkdir -p "$work" "$WINDOWS_PREFIX"
    "$2"
    rm -rf "${work:?}/$1"
    : >"$WINDOWS_PREFIX/.has-$1"
}

qt_base() {
    local source off=() feature
    source=$(fetch qt6-base "$version")
    # What the wizard does not use. The header for tablets is not in Debian's sources; Direct2D and DirectWrite cannot
    # be linked statically one without the other.
    for feature in sql network dbus printsupport vulkan concurrent xml opengl dynamicgl tabletevent direct2d directwrite \
        directwrite3 icu glib zstd; do
        off+=("-DFEATURE_$feature=OFF")
    done
    # The copies in Qt's own sources instead of libraries of the operating system.
    for feature in pcre2 zlib png jpeg freetype harfbuzz doubleconversion libb2 textmarkdownreader sqlite; do
        off+=("-DFEATURE_system_$feature=OFF")
    done
    install "$source" "${off[@]}" -DINPUT_opengl=no -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
}

# Headers alone, which are the same everywhere.
headers() {
    mkdir -p "$WINDOWS_PREFIX/include" "$WINDOWS_PREFIX/share/cmake"
    cp -r /usr/include/CLI /usr/include/nlohmann "$WINDOWS_PREFIX/include/"
    cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$WINDOWS_PREFIX/share/cmake/"
}

googletest() {
    cp -r /usr/src/googletest "$work/googletest"
    install "$work/googletest" -DBUILD_GMOCK=OFF
}

once qt6-base qt_base
once headers headers
if [[ ${1:-} == tests ]]; then once googletest googletest; fi
rm -rf "$work"
printf '%s\n' "$WINDOWS_PREFIX"
