#!/bin/sh
# Every object is freed before the process ends, whatever it was asked to do.
#
#   all_freed_test.sh LAUNCHER PROGRAM
#
# valgrind puts its own memory in the place of the program's, and so sees every object. Processes that
# brisel-tune forks end without a word.
set -eu
launcher=$1 program=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# What the C++ library keeps to raise bad_alloc from is not the program's.
cat >"$work/suppressions" <<'END'
{
    emergency_pool
    Memcheck:Leak
    match-leak-kinds: reachable
    fun:malloc
    ...
    fun:_GLOBAL__sub_I_eh_alloc.cc
}
END

check() {
    status=0
    "$launcher" -b "$work/board" valgrind --log-file="$work/log" --suppressions="$work/suppressions" \
        --leak-check=full --show-leak-kinds=all --errors-for-leak-kinds=all --child-silent-after-fork=yes \
        "$program" "$@" >/dev/null 2>"$work/said" || status=$?
    if ! grep -q 'ERROR SUMMARY: 0 errors' "$work/log" || ! grep -q 'HEAP SUMMARY' "$work/log"; then
        echo "$program $*: status $status"
        cat "$work/said" "$work/log"
        exit 1
    fi
    echo "all freed: $program $*"
}

if [ "$(basename "$program")" = brisel-tune ]; then
    lanes=pelune-ddr-read1::dq
    printf '%s = {1,2,3,4,5,6,7,8}\nmmc::rdqs = 50\ncpu_regulator::microvolts = 1010000\n' $lanes >"$work/tuning"
    check
    check list --json mac
    check get $lanes cpu_regulator::microvolts mmc
    check get no::such
    check set mac-tx::delay=4
    check set mac-tx::delay=16
    check save mac mmc -o "$work/saved"
    check diff "$work/tuning"
    check apply "$work/tuning"
    check apply "$work/none"
    check sweep -o "$work/eye.log" mac-tx::delay=1..3 mac-rx::delay=4..5 -- true
    check best "$work/eye.log"
    check plot "$work/eye.log"
    check plot -o "$work/eye.html" "$work/eye.log"
    export BRISEL_BOARD_FAULTS='no-map mac-rx::delay'
    check set mac-tx::delay=5
    exit
fi

check
check -h
check -i
check -l
check -x
check -z
check -r mmc::rdqs
check no::such
check orlin-ddra::odt
check orlin-ddra::odt 60
check orlin-ddra::odt abc
check orlin-ddra-read0::dq
check orlin-ddra-write3::dq +1
check orlin-ddra-write3::dq '{1,2}'
check cpu_regulator::microvolts 95%
check mmc::rdqs 300
