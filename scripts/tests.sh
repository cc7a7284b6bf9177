# shellcheck shell=sh
# How the checks run tests. To be sourced.

# has_room FOLDER: whether it has a gigabyte for files and lets programs run there.
has_room() {
    [ -w "$1" ] && [ "$(df -Pk "$1" | awk 'NR == 2 { print $4 }')" -ge 1000000 ] || return
    program=$(mktemp -p "$1") || return
    printf '#!/bin/sh\n' >"$program"
    chmod +x "$program"
    runs=0
    "$program" 2>/dev/null || runs=1
    rm "$program"
    return "$runs"
}

# Tests make thousands of small files: in memory, where a folder for that is to be had.
tests_folder=${TMPDIR:-/tmp}
if [ -z "${TMPDIR:-}" ] && has_room /dev/shm; then
    tests_folder=/dev/shm
fi

# left_out BUILD: what tests of the last run in this folder have left out, and why.
left_out() {
    grep -ho 'LEFT OUT: .*' "$1/Testing/Temporary/LastTest.log" | sort -u || true
}

# run_ctest --preset PRESET ARGUMENT...: two tests at a time for each processor, since many of them wait. Of tests that
# CTest knows in parts, those are left out that fit the patterns in tests_left_out. The C library fills freed memory, so
# that use of it is noticed where no sanitizer looks, too; only brisel has memory of its own, and never uses it again.
run_ctest() {
    TMPDIR=$tests_folder MALLOC_PERTURB_=165 GTEST_FILTER="*-${tests_left_out:-}" ctest -j $((2 * $(nproc))) "$@" || return
    left_out "build-$2"
}
