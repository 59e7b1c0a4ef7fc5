# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Completion of pelmo-scheme for bash.

_pelmo_scheme() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' words='' i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            check | todo | tree | orphans | renumber | fmt | sql | stubs | verify | preview) command=${COMP_WORDS[i]} && break ;;
        esac
    done
    case $before in
        --encoding) words='utf-8 windows-1252' ;;
        --format) words='text json sarif' ;;
        --dialect) words='sqlite postgresql mariadb sqlserver access' ;;
        --table) words='XST1 XST2' ;;
        --db) words='sqlite: postgresql:// mariadb:// mysql:// odbc:' ;;
        --depth | --rows | --seconds | --today) return ;;
        -o | --output)
            mapfile -t COMPREPLY < <(compgen -d -- "$word")
            return
            ;;
        *)
            if [[ -z $command && $word != -* ]]; then
                words='check todo tree orphans renumber fmt sql stubs verify preview'
            elif [[ $word == -* ]]; then
                words='--encoding --help'
                case $command in
                    '') words+=' --version' ;;
                    check) words+=' --format --strict' ;;
                    tree) words+=' --no-ids' ;;
                    renumber) words+=' --output --map' ;;
                    fmt) words+=' --check --table' ;;
                    sql | stubs) words+=' --dialect' ;;
                    preview) words+=' --db --no-browser --rows --run-actions --seconds --today' ;;
                    verify) words+=' --db --depth --format --rows --run-actions --seconds --strict --today' ;;
                esac
            fi
            ;;
    esac
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -o filenames -F _pelmo_scheme pelmo-scheme
