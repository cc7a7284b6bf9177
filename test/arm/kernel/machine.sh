# shellcheck shell=sh
# An emulated machine that runs Debian's ARM kernel, with memory where a board has its registers.
# To be sourced by what has set
#
#   here       this folder
#   bits       the kernel's: 64 or 32
#   packages   the folder that fetch has filled
#   work       a folder for this machine alone
#
# shellcheck disable=SC2154 # these
power_on=$here/../../../sim/power-on
first_address=$((0x10000000))

# The address and the word of every register at power-on. Where several words share an address the
# first counts: this machine's memory keeps one.
words_at_power_on() {
    awk '/^0x/ && !seen[$1]++ { print $1, $3 }' "$power_on/registers"
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

# make_root FILE: what the machine starts with, in root: init, and the file with a session.
make_root() (
    mkdir -p "$work/root"
    cd "$work/root" || exit
    mkdir -p bin dev proc sys tmp board session
    cp "$packages/busybox-$bits" bin/busybox
    cp -R "$power_on/root/sys" board/sys
    cp "$here/init" init
    cp "$here/lib.sh" session/lib.sh
    cp "$1" session/
    chmod +x init
)

# run_machine FILE EMULATOR [OPTION...]: runs the session of that name, and leaves its output in transcript.
run_machine() {
    file=$1
    shift
    (cd "$work/root" && find . | cpio -o -H newc --quiet | gzip -1 >../initramfs)
    timeout 500 "$@" -accel tcg,thread=single -smp 1 -kernel "$packages/kernel-$bits" \
        -initrd "$work/initramfs" -append "quiet loglevel=0 panic=-1 console=ttyAMA0 session=$file" \
        -nic none -display none -monitor none -serial stdio -no-reboot >"$work/console" 2>&1 </dev/null || {
        echo "the emulator ended with status $?"
        cat "$work/console"
        exit 1
    }
    tr -d '\r' <"$work/console" | sed -n '/^BEGIN$/,/^END$/p' | sed '1d;$d' >"$work/transcript"
}

# run_board_machine FILE [OPTION...]: the same, with the registers in the file of that name. With
# highmem=off the memory of PCI devices begins at 0x10000000, and this device has all of it. Where it has
# none any more, an access ends in a bus error.
run_board_machine() {
    file=$1
    shift
    truncate -s 256M "$work/registers"
    words_at_power_on | store_words "$work/registers"
    case $bits in
    64) set -- qemu-system-aarch64 -M virt,highmem=off,gic-version=2 -cpu cortex-a53 "$@" ;;
    32) set -- qemu-system-arm -M virt,highmem=off -cpu cortex-a15 "$@" ;;
    esac
    run_machine "$file" "$@" -m 256M -global gpex-pcihost.allow-unmapped-accesses=off \
        -object "memory-backend-file,id=registers,size=256M,mem-path=$work/registers,share=on" \
        -device ivshmem-plain,memdev=registers,addr=0x3
}
