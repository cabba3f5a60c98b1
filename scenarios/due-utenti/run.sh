#!/bin/sh
# Runs the two users' scenarios at the same time, in two shell processes on one database
# file prepared beforehand. Arguments: the shell, this folder.
shell=$1
folder=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
database="$work/agenti.db"
"$shell" --db "$database" --script "$folder/preparazione.scenario" || exit 1
"$shell" --db "$database" --script "$folder/primo.scenario" &
first=$!
"$shell" --db "$database" --script "$folder/secondo.scenario"
second=$?
wait "$first"
first=$?
[ "$first" -eq 0 ] && [ "$second" -eq 0 ]
