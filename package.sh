#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the wizard and pelmo-scheme, and makes their packages, in build/package: a .deb of each, and a .tar.gz of the
# wizard's folder.
# On Debian 12 or later it first installs the packages that are missing.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
source packages/functions.sh

if command -v apt-get >/dev/null; then install_packages packages/run.txt packages/package.txt; fi
need_tools cmake cpack ninja c++ dpkg-shlibdeps file gzip rsvg-convert

build release
cmake --preset release # the previous run may not have found what is installed now
build release
cmake --build --preset release --target pelmo-scheme
if [[ ! -f build/release/bin/Pelmo.chm ]]; then say "the packages are made without the help file, Pelmo.chm"; fi
rm -rf build/package
# The files in the packages have the time of the release, so that the same program always gives the same packages.
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l packaging/changelog -S Timestamp)
export SOURCE_DATE_EPOCH
cpack --config build/release/CPackConfig.cmake -B "$PWD/build/package"
cpack --config build/release/CPackScheme.cmake -B "$PWD/build/package"
rm -rf build/package/_CPack_Packages
ls -l build/package
