#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the packages without installing them: with Debian's own tools, and what is in them. package.sh comes first;
# needs lintian, appstream, desktop-file-utils and man-db.
# shellcheck disable=SC2317 # check calls the functions
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/../.."

failed=0
check() {
    local what=$1
    shift
    if "$@"; then echo "passed: $what"; else failed=1 && echo "FAILED: $what"; fi
}
# quiet COMMAND... - whether the command succeeds and says nothing.
quiet() {
    local said
    if said=$("$@" 2>&1) && [[ -z $said ]]; then return; fi
    echo "$said"
    return 1
}

deb=(build/package/pelmo-wizard_*.deb)
scheme=(build/package/pelmo-scheme_*.deb)
archive=(build/package/*.tar.gz)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
dpkg-deb -x "${deb[0]}" "$folder/deb"
dpkg-deb -x "${scheme[0]}" "$folder/scheme"
mkdir "$folder/portable"
tar -xzf "${archive[0]}" -C "$folder/portable"
mv "$folder"/portable/* "$folder/portable/it" # fails when the archive holds more than one folder
share=$folder/deb/usr/share

check "lintian" lintian --fail-on error,warning "${deb[0]}" "${scheme[0]}"
check "AppStream" appstreamcli validate --no-net "$share"/metainfo/*.xml
check "desktop entry" quiet desktop-file-validate "$share"/applications/*.desktop
man_page() { { MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 -Z "$1" >/dev/null; } 2>&1; }
check "man page" quiet man_page "$share/man/man1/pelmo-wizard.1.gz"
check "man page of pelmo-scheme" quiet man_page "$folder/scheme/usr/share/man/man1/pelmo-scheme.1.gz"

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
same_version() {
    [[ -n $version && $(dpkg-deb -f "${deb[0]}" Version) == "$version" &&
        $(dpkg-parsechangelog -l packaging/changelog -S Version) == "$version" ]] &&
        grep -q "^pelmo-wizard ($version)" <(zcat "$share/doc/pelmo-wizard/changelog.gz") &&
        grep -q "<release version=\"$version\"" packaging/*.metainfo.xml &&
        grep -q "^[.]TH PELMO-WIZARD 1 [-0-9]* \"$version\"" <(zcat "$share/man/man1/pelmo-wizard.1.gz") &&
        [[ $(dpkg-deb -f "${scheme[0]}" Version) == "$version" ]] &&
        grep -q "^[.]TH PELMO-SCHEME 1 [-0-9]* \"$version\"" <(zcat "$folder/scheme/usr/share/man/man1/pelmo-scheme.1.gz") &&
        grep -q "^Reporting Scheme Wizard for Pelmo $version$" "$folder/portable/it/README.txt" &&
        grep -q "^## $version" NEWS.md &&
        grep -q "^# Reporting Scheme Wizard for Pelmo $version$" README.md
}
check "one version, $version, everywhere" same_version
check "the license as in LICENSE" diff <(sed '1,/^License:/d; s/^ //; s/^[.]$//' "$share/doc/pelmo-wizard/copyright") \
    <(sed 1,4d LICENSE)
check "the program's folder is the same in both" diff <(cd "$folder/deb/usr/lib/pelmo-wizard" && sha256sum -- *) \
    <(cd "$folder/portable/it" && sha256sum -- * | grep -vE '  (LICENSE|README[.]txt)$')
check "the samples are those of the source" diff -r --exclude=pelmo-wizard --exclude=Pelmo.chm samples \
    "$folder/deb/usr/lib/pelmo-wizard"
check "the link is relative" [ "$(readlink "$folder/deb/usr/bin/pelmo-wizard")" = ../lib/pelmo-wizard/pelmo-wizard ]
icons() { (cd "$share/icons/hicolor" && file -- */apps/* | sed -E 's/:.*(PNG|SVG)[^,]*,? ?([0-9]+ x [0-9]+)?.*/ \1 \2/'); }
check "icons of all sizes" diff <(icons) - <<'END'
128x128/apps/pelmo-wizard.png PNG 128 x 128
16x16/apps/pelmo-wizard.png PNG 16 x 16
22x22/apps/pelmo-wizard.png PNG 22 x 22
24x24/apps/pelmo-wizard.png PNG 24 x 24
256x256/apps/pelmo-wizard.png PNG 256 x 256
32x32/apps/pelmo-wizard.png PNG 32 x 32
48x48/apps/pelmo-wizard.png PNG 48 x 48
64x64/apps/pelmo-wizard.png PNG 64 x 64
scalable/apps/pelmo-wizard.svg SVG 
END
check "what is in the package of pelmo-scheme" diff <(cd "$folder/scheme" && find . -type f | sort) - <<'END'
./usr/bin/pelmo-scheme
./usr/share/bash-completion/completions/pelmo-scheme
./usr/share/doc/pelmo-scheme/changelog.gz
./usr/share/doc/pelmo-scheme/copyright
./usr/share/fish/vendor_completions.d/pelmo-scheme.fish
./usr/share/man/man1/pelmo-scheme.1.gz
./usr/share/zsh/vendor-completions/_pelmo-scheme
END
hardened() { # PROGRAM: position-independent, bound at the start, with checks of the stack
    local told
    told=$(readelf -W -h -l -d --dyn-syms "$1")
    grep -q 'Type: *DYN' <<<"$told" && grep -q 'FLAGS_1.*NOW.*PIE' <<<"$told" && grep -q GNU_RELRO <<<"$told" &&
        grep -q __stack_chk_fail <<<"$told"
}
check "the wizard is hardened" hardened "$folder/deb/usr/lib/pelmo-wizard/pelmo-wizard"
check "pelmo-scheme is hardened" hardened "$folder/scheme/usr/bin/pelmo-scheme"
stays_open() { # PROGRAM: is still running when it is ended after some seconds
    local code=0
    QT_QPA_PLATFORM=offscreen timeout 5 "$1" || code=$?
    ((code == 124))
}
check "the wizard starts" stays_open "$folder/deb/usr/lib/pelmo-wizard/pelmo-wizard"
check "pelmo-scheme runs" "$folder/scheme/usr/bin/pelmo-scheme" check samples/XST1.txt samples/XST2.txt
check "the wizard's package has nothing of it" diff <(cd "$folder/deb" && find . -name '*pelmo-scheme*') - </dev/null
check "the wizard recommends it" grep -q pelmo-scheme <(dpkg-deb -f "${deb[0]}" Recommends)
no_windows() { ! grep -qE "qt6(gui|widgets)|libx11" <<<"$(dpkg-deb -f "${scheme[0]}" Depends)"; }
check "pelmo-scheme needs no windows" no_windows
exit $failed
