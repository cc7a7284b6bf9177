# shellcheck shell=sh
# The tables of bench/run, one function each. To be sourced after measures.sh.
# shellcheck disable=SC2154 # much comes from measure and measures.sh

tsv=/tmp/table

# row CELL...: one line of the table that is being collected.
row() {
    printf '%s' "$1"
    shift
    [ $# -eq 0 ] || printf '\t%s' "$@"
    printf '\n'
}

# print_table FIRST_NUMBER: what was collected in $tsv.
print_table() {
    printf '\n'
    awk -v numbers="$1" -f "$root/bench/table.awk" "$tsv"
}

facts() {
    faults_by=$(fault_source)
    compiler=$(readelf -p .comment /tmp/programs/static/brisel | sed -n 's/^ *\[ *0\]  *//p')
    cat <<END
# Cost of a run

Written by \`bench/run --write\` on $(date -u +%Y-%m-%d). \`bench/README.md\` says what the
columns mean.

- processor: $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1) ($(uname -m))
- C library: $(getconf GNU_LIBC_VERSION); compiler: $compiler
- page faults: by $faults_by
END
}

# action PROGRAM DEVICE_ACCESSES COMMAND...: one row, and its figures for whoever called.
action() {
    program=$1 device_accesses=$2
    shift 2
    count=$(instructions "$@")
    set -- "$program" "$device_accesses" "$(system_calls "$@")" "$(resources "$@")" "$@"
    peak=${4% *} faults=${4#* }
    program=$1 device_accesses=$2 calls=$3
    shift 4
    [ "$faults_by" = getrusage ] || faults=$(page_faults "$@")
    shift
    row "$program" "$*" "$count" "$faults" "$calls" "$peak" "$device_accesses"
}

# actions_of PROGRAM FILE: the actions of the tool.
actions_of() {
    for words in -h -l "$field" "$lanes" "$lanes 70" "-r $field"; do
        # shellcheck disable=SC2086 # a list of words
        action "$1" "$(accesses brisel $words)" "$2" $words
        [ "$words" != "$field" ] || [ "$2" != /tmp/programs/static/brisel ] || keep_read
    done
}

# keep_read: the figures that have a target.
keep_read() {
    read_count=$count read_faults=$faults read_peak=$peak
}

actions_table() {
    {
        row program action instructions 'page faults' 'system calls' 'peak memory, KiB' \
            'device accesses'
        actions_of 'brisel, static' /tmp/programs/static/brisel
        actions_of 'brisel, dynamic' /tmp/programs/dynamic/brisel
        action busybox - /tmp/programs/busybox devmem "$address"
        action memtool - /tmp/programs/memtool md -l "$address+4"
        for kind in static dynamic; do
            action "floor, $kind" "$(accesses /tmp/programs/dynamic/floor "$address")" \
                "/tmp/programs/$kind/floor" "$address"
        done
    } >"$tsv"
    printf '\n## Actions\n'
    print_table 3
}

wall_time_table() {
    # shellcheck disable=SC2046 # six numbers
    set -- $(wall_times 500 \
        "/tmp/programs/static/brisel $field" "/tmp/programs/dynamic/brisel $field" \
        "/tmp/programs/busybox devmem $address" "/tmp/programs/memtool md -l $address+4" \
        "/tmp/programs/static/floor $address" "/tmp/programs/dynamic/floor $address")
    static_to_busybox=$(ratio "$1" "$3") static_to_memtool=$(ratio "$1" "$4")
    {
        row program 'file, bytes' 'static brisel / this' 'dynamic brisel / this'
        compare_file 'brisel, static' /tmp/programs/static/brisel "$1" "$1" "$2"
        compare_file 'brisel, dynamic' /tmp/programs/dynamic/brisel "$2" "$1" "$2"
        compare_file busybox /tmp/programs/busybox "$3" "$1" "$2"
        compare_file memtool /tmp/programs/memtool "$4" "$1" "$2"
        compare_file 'floor, static' /tmp/programs/static/floor "$5" "$1" "$2"
        compare_file 'floor, dynamic' /tmp/programs/dynamic/floor "$6" "$1" "$2"
        if [ -e "$build/armhf/brisel" ]; then
            row 'brisel, static, armhf' "$(wc -c <"$build/armhf/brisel")" - -
        fi
    } >"$tsv"
    printf '\n## File size, and wall time of one read as a ratio of medians\n'
    print_table 2
}

# compare_file PROGRAM FILE TIME STATIC_TIME DYNAMIC_TIME
compare_file() {
    row "$1" "$(wc -c <"$2")" "$(ratio "$4" "$3")" "$(ratio "$5" "$3")"
}

# split BUILD FILE: what the phases of one read cost; they add up to `total`.
split() {
    catalogue_start=$(nm "$build/$1/src/CMakeFiles/brisel_platform.dir/platform/catalogue.cpp.o" |
        sed -n 's/^.* t \(_GLOBAL__sub_I_\)/\1/p')
    total=$(instructions "$2" "$field")
    main=$(inside 'main' "$2")
    catalogue=$(inside "$catalogue_start" "$2")
    registration=$(inside 'platform_register_properties()' "$2")
    lookup=$(inside 'property::get_property(*' "$2")
    access=$(inside 'property_register::get(*' "$2")
    groups=$(inside 'property_group::free_all()' "$2")
    properties=$(inside 'property::free_all()' "$2")
    ending=$(inside 'exit' "$2")
    start=$((total - main - catalogue - ending))
    rest=$((main - registration - lookup - access - groups - properties))
    release=$((groups + properties + ending))
}

# inside FUNCTION FILE: a pattern that no function has counts nothing, and that is to be seen.
inside() {
    spent=$(instructions --toggle-collect="$1" "$2" "$field")
    [ "$spent" != 0 ] || printf 'bench/run: %s is never called; has its name changed?\n' "$1" >&2
    printf '%s\n' "$spent"
}

start_up_table() {
    {
        row phase 'brisel, static' 'brisel, dynamic'
        split files /tmp/programs/symbols/static
        set -- "$start" "$catalogue" "$registration" "$lookup" "$access" "$release" "$rest" "$total"
        split dynamic /tmp/programs/symbols/dynamic
        row 'process and library start' "$1" "$start"
        row 'static catalogue' "$2" "$catalogue"
        row registration "$3" "$registration"
        row lookup "$4" "$lookup"
        row access "$5" "$access"
        row 'release, and the end of the process' "$6" "$release"
        row 'the rest: lock, command line, output' "$7" "$rest"
        row total "$8" "$total"
    } >"$tsv"
    printf '\n## Where the instructions of one read go\n'
    print_table 2
}

# grow STRIDE COPIES TEXT: one row of the growth table.
grow() {
    cost=$(($(instructions /tmp/programs/growth "$1" "$2") - not_growing))
    properties=$(cat "$output")
    per_n_log_n=$(awk -v n="$properties" -v cost="$cost" \
        'BEGIN { printf "%.1f\n", cost / (n * log(n) / log(2)) }')
    row "$3" "$properties" "$cost" "$((cost / properties))" "$per_n_log_n"
}

growth_table() {
    not_growing=$(instructions /tmp/programs/growth 1 0)
    {
        row properties number instructions 'per property' 'per n log2 n'
        grow 4 1 'a quarter'
        grow 2 1 'a half'
        grow 1 1 all
        per_n_log_n_of_all=$per_n_log_n
        grow 1 10 '10 times'
        grow 1 100 '100 times'
        growth=$(ratio "$per_n_log_n" "$per_n_log_n_of_all")
    } >"$tsv"
    printf '\n## One read among more properties\n'
    print_table 2
}

# target TEXT FIGURE LIMIT
target() {
    met=$(awk -v a="$2" -v b="$3" 'BEGIN { print a + 0 <= b + 0 ? "met" : "MISSED" }')
    row "$1" "$met" "$2" "$3"
}

targets_table() {
    {
        row 'one register read, static' '' figure 'at most'
        target instructions "$read_count" 600000
        target 'page faults' "$read_faults" 75
        target 'peak memory, KiB' "$read_peak" 2048
        target 'wall time / busybox' "$static_to_busybox" 1.00
        target 'wall time / memtool' "$static_to_memtool" 1.00
        target 'growth to 100 times / n log n' "$growth" 1.00
        if [ -e "$build/armhf/brisel" ]; then
            target 'file for armhf, bytes' "$(wc -c <"$build/armhf/brisel")" 1048576
        fi
    } >"$tsv"
    printf '\n## Targets\n'
    print_table 3
}
