#!/bin/sh
# The simulated board watches a static ARM program as closely as one of this machine: whatever a
# program does to the device node, right or wrong, the trace and the status are the same.
#
#   emulated_board_test.sh ROOT BUILD
set -eu
root=$1 build=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
arm-linux-gnueabihf-g++ -std=c++20 -O2 -static -D_FILE_OFFSET_BITS=64 -o probe "$root/test/sim/board_probe.cpp"

# What comes of a program's steps on a fresh board.
outcome() {
    status=0
    BRISEL_BUILD=$build "$root/sim/board" -r -b board -t "$@" 2>&1 || status=$?
    echo "status: $status"
    "$root/sim/board" -s -b board
}

same() {
    # shellcheck disable=SC2086 # a list of words
    {
        outcome "$build/test/board_probe" $1 >native 2>/dev/null
        outcome ./probe $1 >emulated 2>/dev/null
    }
    diff -u native emulated
    echo "the same: $1 ($(grep '^status' emulated))"
}

same 'open map=0x18428000 read=0x18428120 unmap close'
same 'open map=0x18428000 write=0x1842812c:0x20e unmap map=0x18428000 write=0x18428194:0xc5 unmap'
same 'open fork map=0x18428000 read=0x18428120 unmap'
same 'open map=0x18428000 unmap'
same 'open map=0x18428000 read=0x18428120 read=0x18428120 unmap'
same 'open map=0x18428000 read=0x18428120 read=0x1842812c unmap'
same 'open map=0x18428000 read=0x18428120 write=0x18428120:1 unmap'
same 'open map=0x18428000 write=0x18428120:1 read=0x18428120 unmap'
same 'open map=0x18428000 write=0x18428120:1 write=0x18428120:1 unmap'
same 'open map=0x18428000 write=0x18428120:1 write=0x1842812c:1 unmap'
same 'open map=0x18428000 read=0x18428124 unmap'
same 'open map=0x18428000 write=0x18428124:1 unmap'
same 'open map=0x18428000 read-unaligned=0x1842812d unmap'
same 'open map=0x18428000 crash'
same 'open map=0x18428000 map=0x18428000'
same 'open map-long=0x18428000'
same 'open-async'
