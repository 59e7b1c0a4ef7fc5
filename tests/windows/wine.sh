# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Used by the scripts here: a Windows of its own for each of them, in which Wine runs programs.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
fail() { say "FAILED: $*" && exit 1; }

# Debian does not put it into the PATH; its script "wine" asks for the 32-bit one, too.
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
[[ -x $wine ]] || fail "wine64 is not installed"
server=$(dirname "$(readlink -f "$wine")")/wineserver64
[[ -x $server ]] || server=$(command -v wineserver)

export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} LC_ALL=C.UTF-8
# No questions, no entries in the menus of this desktop, and no sounds.
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d;winealsa.drv,winepulse.drv,wineoss.drv='

wine() { env -u QT_QPA_PLATFORM -u GTEST_TOTAL_SHARDS "$wine" "$@"; }

# new_windows FOLDER - makes a Windows there, and makes it the one that is used.
new_windows() {
    rm -rf "$1"
    mkdir -p "$1"
    WINEPREFIX=$(cd "$1" && pwd)
    export WINEPREFIX
    wine wineboot --init >/dev/null 2>&1 || fail "Wine could not make a Windows in $1"
    # Without Arial, Qt would take the first font of all.
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Arial /d 'Liberation Sans' /f >/dev/null 2>&1
    "$server" --wait
}

# set_dpi DPI - what a user chooses as the scale of the screen: 96 is 100 %.
set_dpi() {
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
    "$server" --wait
}

# Ends all programs of the Windows.
end_windows() { "$server" --kill 2>/dev/null || true; "$server" --wait || true; }
