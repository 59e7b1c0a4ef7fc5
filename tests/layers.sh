#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fails if a file of the program includes a file from a folder that its own folder must not know; see
# docs/architecture.md.
set -euo pipefail
cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

code=0
# refuse TITLE - reads lines, and fails if there are any.
refuse() {
    local found
    found=$(cat)
    [[ -z $found ]] && return
    printf '%s:\n%s\n' "$1" "$found"
    code=1
}
# may FOLDER KNOWN - KNOWN lists the folders from which FOLDER may include files, separated by |.
may() {
    [[ -n $(grep -rhE '^#include "' "$1") ]] || { echo "no includes in $1"; code=1; }
    refuse "$1 may only include $2" < <(grep -rnE '^ *# *include *"' "$1" --include='*.h' --include='*.cpp' |
        grep -vE "\"($2)/[^\"]*\"")
}
may model model
may analysis 'model|analysis'
may database 'model|database'
may preview 'model|database|preview'
may commands 'model|analysis|database|preview|commands'
may views 'model|views'
may forms 'model|views|forms'
may shell 'model|analysis|views|forms|shell'
refuse "model, analysis and commands may not use Qt, except for writing files" < <(
    grep -rnE '^ *# *include *<Q' model analysis commands --include='*.h' --include='*.cpp' | grep -v '^model/FileWriter[.]cpp:')
refuse "of preview, only Server, FileWatch and Preview.cpp may use Qt" < <(grep -rnE '^ *# *include *<Q' preview |
    grep -vE '^preview/(Server[.](h|cpp)|FileWatch[.](h|cpp)|Preview[.]cpp):')
refuse "what other folders include of database may not use Qt" < <(
    grep -nE '^ *# *include *<Q' database/{Database,GeneratedTree,PictureBytes,QtStart,QueryCall,QueryFindings,ResultChecks,Verify}.h)
exit "$code"
