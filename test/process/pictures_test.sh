#!/bin/sh
# The pictures of a sweep are well-formed.
#
#   pictures_test.sh SIM_BOARD
set -eu
board=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
export BRISEL_BOARD="$dir/board"
"$board" -r

# sweep LOG AXIS... : a test that passes on one side, with all that XML does not take as it is
sweep() {
    log=$1
    shift
    # shellcheck disable=SC2016 # for the shell of the test
    "$board" brisel-tune sweep --no-control -o "$log" "$@" -- \
        sh -c '[ "$BRISEL_VALUE" -lt 70 ] && : "<&>\" ]]>"' 2>/dev/null
}
sweep "$dir/lanes" orlin-ddra-read0::dq=d-1..d+9
sweep "$dir/grid" mac-tx::delay mac-rx::delay=4..6

for log in lanes grid; do
    for picture in "$dir/$log.svg" "$dir/$log.html"; do
        "$board" brisel-tune plot -o "$picture" "$dir/$log"
        xmllint --noout "$picture"
    done
done
