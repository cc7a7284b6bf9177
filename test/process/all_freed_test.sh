#!/bin/sh
# Every object is freed before the process ends, whatever it was asked to do.
#
#   all_freed_test.sh LAUNCHER
#
# valgrind puts its own memory in the place of the program's, and so sees every object.
set -eu
launcher=$1

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
        --leak-check=full --show-leak-kinds=all --errors-for-leak-kinds=all brisel "$@" >/dev/null 2>&1 || status=$?
    if ! grep -q 'ERROR SUMMARY: 0 errors' "$work/log" || ! grep -q 'HEAP SUMMARY' "$work/log"; then
        echo "brisel $*: status $status"
        cat "$work/log"
        exit 1
    fi
    echo "all freed: brisel $*"
}

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
