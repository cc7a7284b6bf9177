#!/bin/sh
# Boots Debian's ARM kernel in an emulated machine and runs a static brisel on it, as root, through
# the kernel's own memory device, with memory where a board has its registers.
#
#   kernel_test.sh SESSION BITS PROGRAM FOLDER
#
# SESSION is "board" or "refused", BITS the kernel's: 64 or 32. FOLDER is for downloads and results.
# Compares what brisel said, what it did to the registers as the emulator saw it, and what they hold
# afterwards. Ends with 77 where the kernels cannot be had.
set -eu
session=$1 bits=$2 program=$3 folder=$4
here=$(cd "$(dirname "$0")" && pwd)
power_on=$here/../../../sim/power-on
packages=$folder/packages
first_address=$((0x10000000))

"$here/fetch" "$packages"
work=$folder/$session-$bits-$(basename "$program")
rm -rf "$work"
mkdir -p "$work/root"

# The address and the word of every register at power-on. Where several words share an address the
# first counts: this machine's memory keeps one.
words_at_power_on() {
    awk '!/^#/ && NF && !seen[$1]++ { print $1, $3 }' "$power_on/registers"
}

# Stores words, in lines of an address and a word, in the image $1.
store_words() {
    while read -r address word; do
        number=$((word))
        for byte in 0 8 16 24; do
            # shellcheck disable=SC2059 # an octal escape
            printf "\\$(printf %03o $((number >> byte & 255)))"
        done | dd of="$1" bs=4 seek=$(((address - first_address) / 4)) conv=notrunc status=none
    done
}

make_root() (
    cd "$work/root"
    mkdir -p bin dev proc sys tmp board session
    cp "$packages/busybox-$bits" bin/busybox
    cp "$program" bin/brisel
    cp -R "$power_on/root/sys" board/sys
    cp "$here/init" init
    cp "$here/lib.sh" session/lib.sh
    cp "$here/session-$session" "session/$session"
    chmod +x init bin/*
    find . | cpio -o -H newc --quiet | gzip -1 >../initramfs
)

run_machine() {
    timeout 500 "$@" -accel tcg,thread=single -smp 1 -kernel "$packages/kernel-$bits" \
        -initrd "$work/initramfs" -append "quiet loglevel=0 panic=-1 console=ttyAMA0 session=$session" \
        -nic none -display none -monitor none -serial stdio -no-reboot >"$work/console" 2>&1 </dev/null || {
        echo "the emulator ended with status $?"
        cat "$work/console"
        exit 1
    }
}

# With highmem=off the memory of PCI devices begins at 0x10000000, and this device has all of it.
run_board_machine() {
    truncate -s 256M "$work/registers" "$work/registers.expected"
    words_at_power_on | store_words "$work/registers"
    g++ -std=c++20 -O2 -shared -fPIC -o "$work/access_log.so" "$here/access_log.cpp"
    case $bits in
    64) set -- qemu-system-aarch64 -M virt,highmem=off,gic-version=2 -cpu cortex-a53 ;;
    32) set -- qemu-system-arm -M virt,highmem=off -cpu cortex-a15 ;;
    esac
    run_machine "$@" -m 256M \
        -object "memory-backend-file,id=registers,size=256M,mem-path=$work/registers,share=on" \
        -device ivshmem-plain,memdev=registers,addr=0x3 \
        -plugin "$work/access_log.so,registers=$work/registers,log=$work/accesses"
}

# This machine has its memory from address 0 on.
run_refusing_machine() {
    run_machine qemu-system-arm -M highbank -m 1G -dtb "$packages/highbank.dtb"
}

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

make_root
if [ "$session" = board ]; then
    run_board_machine
else
    run_refusing_machine
fi

tr -d '\r' <"$work/console" | sed -n '/^BEGIN$/,/^END$/p' | sed '1d;$d' >"$work/transcript"
compare "output and statuses" diff -u "$here/$session.expected" "$work/transcript"
if [ "$session" = board ]; then
    expected_accesses >"$work/accesses.expected"
    compare "$(wc -l <"$work/accesses") accesses" diff -u "$work/accesses.expected" "$work/accesses"
    { words_at_power_on && cat "$here/registers.expected"; } | store_words "$work/registers.expected"
    compare 'registers afterwards' cmp "$work/registers.expected" "$work/registers"
fi
