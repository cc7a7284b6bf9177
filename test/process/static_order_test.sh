#!/bin/sh
# Linked in the reverse order, the program does the same: no static object relies on where it is linked.
#
#   static_order_test.sh LAUNCHER COMPILER OBJECT_LIST PROGRAM ARGUMENT
#
# OBJECT_LIST is a file that names the program's objects, a line each. With the argument the program shows what it
# has. valgrind sees an object that is used before it is built, or after it is destroyed.
set -eu
launcher=$1 compiler=$2 list=$3 program=$4 argument=$5

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# shellcheck disable=SC2046 # a list of words
"$compiler" -o "$work/program" $(tac "$list")
"$launcher" -b "$work/board" "$program" "$argument" >"$work/list"
"$launcher" -b "$work/board" valgrind --error-exitcode=99 --leak-check=full "$work/program" "$argument" 2>"$work/log" |
    diff "$work/list" - || {
    cat "$work/log"
    exit 1
}
grep 'ERROR SUMMARY: 0 errors' "$work/log"
