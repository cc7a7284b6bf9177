#!/bin/sh
# While a sweep tries a value, neither it nor a process of its own writes to a file: beyond the eye of a
# memory, what is written may be damaged.
#
#   quiet_points_test.sh SIM_BOARD
set -eu
board=$1
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
export BRISEL_BOARD="$dir/board"
"$board" -r
strace -o "$dir/try" true || {
    echo 'LEFT OUT: strace cannot trace here, so nothing looked for writes while a value is tried'
    exit 77
}

# The board puts a file in its place whenever a register changes: when the value is set, and when the one
# before is set again. Its own files are not the program's, and what is no file is not written.
"$board" strace -f -y -o "$dir/calls" -e signal=none -e trace=%file,%desc,sync \
    brisel-tune sweep -o "$dir/log" --repeat=2 mac-tx::delay=2..4 -- true 2>/dev/null
awk -v board="$dir/board/" '
    /rename\(".*\/registers"/ { changes++; tried = changes % 2; next }
    index($0, board) || /\/dev\/null/ || /write\([0-9]+<(socket|pipe):/ { next }
    $2 ~ /^(p?write|writev|pwritev|sendfile|truncate|ftruncate|f?sync|fdatasync|syncfs|unlink|rename|link|mkdir|chmod|mknod)/ ||
        ($2 ~ /^open/ && /O_WRONLY|O_RDWR|O_CREAT|O_TRUNC/) {
        if (tried) { print "while a value is tried: " $0; failed = 1 } else seen++
    }
    END {
        if (changes != 4 || seen < 10) { print changes " changes, " seen " writes between them"; failed = 1 }
        exit failed
    }' "$dir/calls"
