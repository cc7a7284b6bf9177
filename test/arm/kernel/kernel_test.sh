#!/bin/sh
# Boots Debian's ARM kernel in an emulated machine and runs a static brisel on it, and the brisel-tune that
# lies beside it, as root, through the kernel's own memory device, with memory where a board has its registers.
#
#   kernel_test.sh SESSION BITS PROGRAM FOLDER
#
# SESSION is "board", "tune" or "refused", BITS the kernel's: 64 or 32. FOLDER is for downloads and results.
# Compares what the programs said, what they did to the registers as the emulator saw it, and what these hold
# afterwards. Ends with 77 where the kernels cannot be had.
set -eu
session=$1 bits=$2 program=$3 folder=$4
here=$(cd "$(dirname "$0")" && pwd)
packages=$folder/packages
work=$folder/$session-$bits-$(basename "$program")
# shellcheck source=test/arm/kernel/machine.sh
. "$here/machine.sh"

"$here/fetch" "$packages"
rm -rf "$work"

# The accesses of the loop at the session's end, after those that are listed.
expected_accesses() {
    cat "$here/accesses.expected"
    awk 'BEGIN {
        before = 3 # at power-on
        for (run = 0; run < 200; run++) {
            now = run % 16
            printf "read 0x10090130 0x0000002%x\nwrite 0x10090130 0x0000002%x\n", before, now
            printf "read 0x10090130 0x0000002%x\n", now
            before = now
        }
    }'
}

compare() {
    what=$1
    shift
    "$@" >"$work/difference" 2>&1 || {
        echo "$what: not as expected"
        head -n 100 "$work/difference"
        exit 1
    }
    echo "$what: as expected"
}

# Those accesses that write anything but the selector of a PHY.
writes() {
    grep write "$work/accesses" | grep -vE '^write 0x(1842812c|1844812c|1a41912c) '
}

make_root "$here/session-$session"
cp "$program" "$work/root/bin/brisel"
cp "${program%-*}-tune-${program##*-}" "$work/root/bin/brisel-tune"
if [ "$session" != refused ]; then
    g++ -std=c++20 -O2 -shared -fPIC -o "$work/access_log.so" "$here/access_log.cpp"
    run_board_machine "session-$session" \
        -plugin "$work/access_log.so,registers=$work/registers,log=$work/accesses"
else
    # This machine has its memory from address 0 on.
    run_machine "session-$session" qemu-system-arm -M highbank -m 1G -dtb "$packages/highbank.dtb"
fi

compare "output and statuses" diff -u "$here/$session.expected" "$work/transcript"
if [ "$session" = tune ]; then
    writes >"$work/writes"
    compare "$(wc -l <"$work/writes") writes" diff -u "$here/tune-writes.expected" "$work/writes"
fi
if [ "$session" = board ]; then
    expected_accesses >"$work/accesses.expected"
    compare "$(wc -l <"$work/accesses") accesses" diff -u "$work/accesses.expected" "$work/accesses"
    truncate -s 256M "$work/registers.expected"
    { words_at_power_on && cat "$here/registers.expected"; } | store_words "$work/registers.expected"
    compare 'registers afterwards' cmp "$work/registers.expected" "$work/registers"
fi
