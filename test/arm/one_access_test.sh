#!/bin/sh
# The machine code of mmap_read holds one 32-bit load from the mapped page, and that of mmap_write
# one 32-bit store to it: nothing else between mmap and munmap refers to memory outside the stack.
#
#   one_access_test.sh OBJDUMP OBJECT
#
# OBJECT is what mmap_access.cpp was compiled to, for 32-bit or 64-bit ARM.
set -eu
objdump=$1 object=$2

# Every instruction of the function $1 from the call of mmap to that of munmap that loads or stores,
# stack and constants left out.
accesses() {
    "$objdump" -dr --no-show-raw-insn "$object" | awk -v name="<_Z.*$1j.*>:$" '
        $0 ~ "^[0-9a-f]+ <" { inside = $0 ~ name; mapped = 0; found += inside }
        !inside { next }
        $0 ~ "R_A(RM|ARCH64)_.*[ \t]munmap$" { mapped = 0; unmapped++ }
        mapped && $2 ~ "^v?(ld|st|swp|cas|push|pop)" && !/\[(sp|pc)[],]/ {
            sub("^[^\t]*\t", ""); sub("[ \t]*[@;/].*", ""); print
        }
        $0 ~ "R_A(RM|ARCH64)_.*[ \t]mmap(64)?$" { mapped = 1 }
        END { if (found != 1 || unmapped != 1) print "not one function with one munmap" }'
}

expect() {
    function=$1 instruction=$2
    seen=$(accesses "$function")
    if ! printf '%s\n' "$seen" | tr '\t' ' ' |
        grep -qxE "$instruction(\.w)? [rw][0-9a-z]+, \[[rx][0-9a-z]+(, [rw][0-9a-z]+)?(, uxtw)?\]" ||
        [ "$(printf '%s\n' "$seen" | wc -l)" -ne 1 ]; then
        printf '%s does not access the page by one %s, but:\n%s\n' "$function" "$instruction" "$seen"
        exit 1
    fi
    printf '%s: %s\n' "$function" "$seen"
}

expect mmap_read ldr
expect mmap_write str
