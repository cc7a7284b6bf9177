#!/bin/sh
# brisel is the same to the byte in whatever folder it is built: builds another copy of the tree and compares
# the static program with that in dist/, and the one for a board's own libraries.
#
#   reproducible_test.sh ROOT
set -eu
root=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
copy="$work/another folder with a longer name"
mkdir "$copy"
tar -C "$root" -c --exclude='./build*' --exclude=./.git --exclude=./dist . | tar -C "$copy" -x

# build PRESET [ARGUMENT...]: brisel in the copy.
build() {
    (cd "$copy" && cmake --preset "$@" && cmake --build --preset "$1" -j "$(nproc)" --target brisel) >/dev/null
}
build static-armhf
build armhf -DCMAKE_UNITY_BUILD=ON

same() {
    cmp "$root/$1" "$copy/$2"
    echo "$1: the same"
}
same dist/brisel-armhf build-static-armhf/brisel
same build-check-armhf/brisel build-armhf/brisel
