#!/bin/sh
# Links the program's objects in many orders, and sees the static objects built and destroyed in
# the same order each time.
#
#   static_order_test.sh LAUNCHER COMPILER OBJECT_LIST LOGGER_OBJECT
#
# OBJECT_LIST is a file that names the program's objects, a line each.
set -eu
launcher=$1 compiler=$2 list=$3 logger=$4

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/expected" <<'END'
+ subval_garbages
+ info_garbages
+ property::properties
+ property_group::property_groups
+ dq_read_fields
+ dq_write_fields
+ orlin::_drv_map
+ orlin::_odt_map
- orlin::_odt_map
- orlin::_drv_map
- dq_write_fields
- dq_read_fields
- property_group::property_groups
- property::properties
- info_garbages
- subval_garbages
END

# Replaces addresses by names.
name_objects() {
    nm -C "$work/program" | sed -n 's/(anonymous namespace):://; s/^0*\([0-9a-f]*\) [bBdDuVvWw] /0x\1 /p' >"$work/symbols"
    awk 'NR == FNR { sub(/\[abi:[a-z0-9]*\]/, "", $2); name[$1] = $2; next }
         /^[+-] 0x/ { print $1, ($2 in name ? name[$2] : $2) }' "$work/symbols" "$1"
}

check_order() {
    # No position-independent code here, so that an address at run time is the one in the file.
    # shellcheck disable=SC2046 # a list of words
    "$compiler" -no-pie -Wl,--wrap=__cxa_atexit -o "$work/program" $(cat "$work/order") "$logger"
    status=0
    "$launcher" -b "$work/board" "$work/program" -h >/dev/null 2>"$work/log" || status=$?
    if [ "$status" -ne 254 ]; then
        echo "status $status when linked in the order of"
        cat "$work/order"
        exit 1
    fi
    name_objects "$work/log" >"$work/seen"
    diff -u "$work/expected" "$work/seen"
}

orders=0
count=$(wc -l <"$list")
tac "$list" >"$work/order"
check_order
while [ "$orders" -lt "$count" ]; do
    orders=$((orders + 1))
    { tail -n +"$orders" "$list" && head -n $((orders - 1)) "$list"; } >"$work/order"
    check_order
done
echo "the same order in $((orders + 1)) ways of linking $count objects"
