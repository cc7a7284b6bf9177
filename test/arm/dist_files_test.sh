#!/bin/sh
# The files that are shipped are what they claim to be: static, stripped, hardened, each for its
# processor, and with the checksums that lie beside them.
#
#   dist_files_test.sh DIST
set -eu
cd "$1"

sha256sum --check --strict SHA256SUMS

check() {
    file=$1 machine=$2
    headers=$(readelf -hldSAW "$file")
    expect() {
        printf '%s\n' "$headers" | grep -qE "$1" || {
            echo "$file: no $1"
            exit 1
        }
    }
    refuse() {
        if printf '%s\n' "$headers" | grep -E "$1"; then
            echo "$file: not wanted"
            exit 1
        fi
    }
    expect "Machine: +$machine"
    expect 'Type: +EXEC'
    expect 'GNU_STACK .* RW '
    expect 'GNU_RELRO'
    refuse 'INTERP|\(NEEDED\)'
    refuse ' \.symtab | \.debug_'
    if strings "$file" | grep -F "$(cd .. && pwd)"; then
        echo "$file: names the folder it was built in"
        exit 1
    fi
    echo "$file: $machine, $(wc -c <"$file") bytes"
}

for program in brisel brisel-tune; do
    check "$program-armhf" 'ARM$'
    expect 'Tag_CPU_arch: v7'
    expect 'Tag_ABI_VFP_args: VFP registers'
    check "$program-armel" 'ARM$'
    expect 'Tag_CPU_arch: v5TE'
    check "$program-arm64" 'AArch64$'
    check "$program-host" "$(readelf -h /bin/sh | sed -n 's/^ *Machine: *//p')"
done
