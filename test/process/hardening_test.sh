#!/bin/sh
# The program is a hardened, position-independent executable that needs the C library only.
#
#   hardening_test.sh PROGRAM
set -eu
program=$1

expect() {
    what=$1
    shift
    "$@" >/dev/null || {
        echo "not so: $what"
        exit 1
    }
    echo "$what"
}

headers=$(readelf -hldW "$program")
symbols=$(nm -D "$program")
has() { printf '%s\n' "$headers" | grep -E "$1"; }
imports() { printf '%s\n' "$symbols" | grep -E " U $1"; }

expect 'position-independent' has 'Type: +DYN'
expect 'relocations are read-only' has 'GNU_RELRO'
expect 'all symbols are bound at start' has 'Flags:.*NOW'
expect 'stack is protected' imports '__stack_chk_fail'
expect 'library calls are fortified' imports '__[a-z]+_chk'
needed=$(printf '%s\n' "$headers" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | sort | tr '\n' ' ' |
    sed 's/ld-linux[^ ]* //; s/libm\.so\.6 //') # parts of the C library
expect "needs $needed" [ "$needed" = 'libc.so.6 ' ]
