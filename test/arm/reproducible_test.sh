#!/bin/sh
# A release is the same to the byte in whatever folder it is built: builds another copy of the tree
# and compares what two of the compilers make of it with dist/, and one program for a board's own
# libraries.
#
#   reproducible_test.sh ROOT
set -eu
root=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
copy="$work/another folder with a longer name"
mkdir "$copy"
tar -C "$root" -c --exclude='./build*' --exclude=./.git --exclude=./dist . | tar -C "$copy" -x

"$copy/scripts/dist" armhf host >/dev/null
for folder in "$root" "$copy"; do
    (cd "$folder" && cmake --preset armhf && cmake --build --preset armhf -j "$(nproc)") >/dev/null
done

for file in dist/brisel-armhf dist/brisel-host build-armhf/brisel; do
    cmp "$root/$file" "$copy/$file"
    echo "$file: the same"
done
