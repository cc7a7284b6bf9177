#!/bin/sh
# The manual page is sound, is of this version, and leaves out no message and no exit status.
#
#   manual_test.sh PAGE VERSION SOURCE_FOLDER
set -eu

mandoc -T lint -W warning "$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
text=$work/text
mandoc -T ascii -O width=1000 "$1" | sed 's/.\x08//g' >"$text"
status=0

has() {
    grep -qF -- "$1" "$text" || {
        echo "the manual does not say: $1"
        status=1
    }
}

has "brisel $2"

# Every piece of text of the sources that has two words is in the manual, but for the catalogue's.
find "$3/src" -name '*.cpp' ! -name catalogue.cpp ! -path '*/tune/*' -exec grep -h '"' {} + | grep -v '#include\|no help' |
    grep -o '"[^"]*"' | sed 's/"//g; s/\\[nt]//g; s/%[0-9a-z]*/\n/g' |
    grep '[a-z!] .*[a-z:]' | grep -v '^-[hilx] \|^brisel \[\|no desc' | sort -u >"$work/messages"
while IFS=$(printf '\n') read -r message; do
    has "$message"
done <"$work/messages"

# The files outside of /dev that it reads and writes, by their own names.
awk '$1 ~ /^(regulator|file)$/ && $2 != "list" { print $4 }' "$3/test/catalogue/hardware.tsv" >"$work/files"
[ -s "$work/messages" ] && [ -s "$work/files" ]
while read -r file; do
    has "${file##*/}"
done <"$work/files"

sed -n 's/.*= -\([0-9]*\),.*/\1/p' "$3/src/cli/exit_status.hpp" >"$work/numbers"
while read -r number; do
    grep -q "^ *$((256 - number))  " "$text" || {
        echo "the manual does not explain exit status $((256 - number))"
        status=1
    }
done <"$work/numbers"
exit "$status"
