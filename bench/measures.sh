# shellcheck shell=sh
# One function per kind of measurement; each runs a command and prints a number, or "?" where this
# machine cannot tell. Commands run with an empty environment, since the C library looks through it,
# and with their output in a file. To be sourced.

# shellcheck disable=SC2154 # root and build come from measure

log=/tmp/log
output=/tmp/output
launch=$build/static/bench/launch
valgrind=$(command -v valgrind)
perf=$(command -v perf || :)
strace=$(command -v strace)

# run COMMAND...: for a command whose own status does not matter.
run() {
    : >"$log"
    env -i "$@" >"$output" 2>&1 </dev/null || :
}

# number: the number on standard input, or "?" for none.
number() {
    read -r figure || figure='?'
    printf '%s\n' "$figure"
}

# instructions [--toggle-collect=FUNCTION]... COMMAND...: in user mode, of the whole process or of
# these functions with all that they call.
instructions() {
    run "$valgrind" --tool=callgrind --vgdb=no --log-file="$log" --callgrind-out-file=/dev/null "$@"
    sed -n 's/^.* Collected : \([0-9]*\)$/\1/p' "$log" | number
}

# page_faults COMMAND...: as the processor traps, from the new program's first instruction on. The
# mean of 20 runs, since addresses that differ from run to run make a few more or fewer.
page_faults() {
    run "$perf" stat -r 20 -x, -e page-faults -o "$log" "$@"
    sed -n 's/^\([0-9]*\),.*page-faults.*/\1/p' "$log" | number
}

system_calls() {
    run "$strace" -o "$log" "$@"
    grep -c '(' "$log" | sed '/^0$/d' | number
}

# resources COMMAND...: the peak memory in KiB and the page faults, as getrusage has them.
resources() {
    "$launch" 5 "$output" "$*" | cut -d ' ' -f 2-
}

# accesses COMMAND...: reads and writes of the device, on the simulated board at power-on. What has
# no library loaded into it cannot run there, and what reads /dev/mem finds none.
accesses() {
    : >"$log"
    BRISEL_BUILD="$build/dynamic" "$root/sim/board" -r -b /tmp/board -T "$log" "$@" \
        >"$output" 2>&1 || :
    if [ -s "$log" ]; then
        grep -c '^read 0x\|^write 0x' "$log" || :
    else
        echo '?'
    fi
}

# wall_times ROUNDS COMMAND...: the median of each command, in nanoseconds.
wall_times() {
    rounds=$1
    shift
    "$launch" "$rounds" "$output" "$@" | cut -d ' ' -f 1
}

# ratio A B: with two digits behind the point.
ratio() {
    awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f\n", a / b }'
}

# fault_source: "perf" and what it counts, or "getrusage" where perf is missing or not allowed.
fault_source() {
    if [ -n "$perf" ] && [ "$(page_faults /bin/true)" != '?' ]; then
        printf 'perf, %s\n' "$(sed -n 's/^[0-9]*,,\([^,]*\),.*/\1/p' "$log")"
    else
        echo getrusage
    fi
}
