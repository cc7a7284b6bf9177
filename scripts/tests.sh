# shellcheck shell=sh
# How the checks run tests. To be sourced.

# Tests make thousands of small files: in memory, where a folder for that is to be had.
tests_folder=${TMPDIR:-/tmp}
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    tests_folder=/dev/shm
fi

# run_ctest ARGUMENT...: two tests at a time for each processor, since many of them wait.
run_ctest() {
    TMPDIR=$tests_folder ctest -j $((2 * $(nproc))) "$@"
}
