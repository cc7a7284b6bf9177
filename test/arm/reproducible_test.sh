#!/bin/sh
# A release is the same to the byte in whatever folder it is built: builds another copy of the tree
# and compares a static program with that in dist/, and one for a board's own libraries.
#
#   reproducible_test.sh ROOT
set -eu
root=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
copy="$work/another folder with a longer name"
mkdir "$copy"
tar -C "$root" -c --exclude='./build*' --exclude=./.git --exclude=./dist . | tar -C "$copy" -x

"$copy/scripts/dist" armhf >/dev/null
(cd "$copy" && cmake --preset armhf -DCMAKE_UNITY_BUILD=ON && cmake --build --preset armhf -j "$(nproc)" --target brisel) >/dev/null

same() {
    cmp "$root/$1" "$copy/$2"
    echo "$1: the same"
}
same dist/brisel-armhf dist/brisel-armhf
same build-check-armhf/brisel build-armhf/brisel
