# SPDX-License-Identifier: MIT
# Completion of pelmo-scheme for fish.
set -l commands check todo tree orphans renumber fmt sql stubs preview
set -l none "not __fish_seen_subcommand_from $commands"

complete -c pelmo-scheme -n $none -f
complete -c pelmo-scheme -n $none -a check -d 'Say what breaks the rules'
complete -c pelmo-scheme -n $none -a todo -d 'List what is left to do in the database'
complete -c pelmo-scheme -n $none -a tree -d 'Print the tree'
complete -c pelmo-scheme -n $none -a orphans -d 'List the paragraphs whose node does not exist'
complete -c pelmo-scheme -n $none -a renumber -d 'Number the nodes, and write both files'
complete -c pelmo-scheme -n $none -a fmt -d 'Print the file that the wizard would save'
complete -c pelmo-scheme -n $none -a sql -d 'Print a script that fills both tables of a database'
complete -c pelmo-scheme -n $none -a stubs -d 'Print a script with a skeleton of each query to be written'
complete -c pelmo-scheme -n $none -a preview -d 'Show the tree and its pages in a browser'
complete -c pelmo-scheme -n $none -l version -d 'Print the version'
complete -c pelmo-scheme -s h -l help -d 'Print a help'
complete -c pelmo-scheme -l encoding -x -a 'utf-8 windows-1252' -d 'The encoding of what is printed'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from check' -l format -x -a 'text json sarif' -d 'How findings are printed'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from check' -l strict -d 'Count remarks as findings'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from tree' -l no-ids -d 'Print nothing that Re-Number changes'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from renumber' -s o -l output -x -a '(__fish_complete_directories)' -d 'The folder for both files'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from renumber' -l map -r -d 'Write the old and the new numbers, too'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from fmt' -l check -d 'Only say whether the file would differ'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from fmt' -l table -x -a 'XST1 XST2' -d 'What the file is'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from sql stubs' -l dialect -x -a 'sqlite postgresql mariadb sqlserver access' -d 'The database'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l db -x -d 'The database'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l no-browser -d 'Open no browser'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l today -x -d 'The day that queries get'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l rows -x -d 'How many rows are shown'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l seconds -x -d 'How long a query may take'
complete -c pelmo-scheme -n '__fish_seen_subcommand_from preview' -l run-actions -d 'Run also what cannot be undone'
