#!/bin/sh
# A tuning is applied at boot, and not again before the system has come up with it: by the script of the
# units, and by those that the guide has for busybox.
#
#   boot_test.sh LAUNCHER SCRIPT GUIDE
set -eu
launcher=$1 script=$2 guide=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export BRISEL_BOARD="$work/board" BRISEL_TUNING="$work/tuning.conf" BRISEL_TUNING_MARK="$work/lib/mark"
echo 'mac-tx::delay = 4' >"$BRISEL_TUNING"

# boot STATUS VALUE: the script ends so, and the board holds that.
boot() {
    status=0
    "$launcher" sh "$script" >"$work/said" 2>&1 || status=$?
    value=$("$launcher" brisel -r mac-tx::delay 2>/dev/null)
    [ "$status $value" = "$1 $2" ] || {
        echo "status $status, value $value, in place of $1 and $2:"
        cat "$work/said"
        exit 1
    }
}

export BRISEL_BOOT_ID=first
boot 0 4
[ -e "$BRISEL_TUNING_MARK" ]
boot 0 4 # by hand, in the same boot

# It hung: nothing is applied, and the reason is said, until the mark is taken away.
for BRISEL_BOOT_ID in second third; do
    "$launcher" -r true
    boot 1 2
    grep -q 'a boot with it did not come up' "$work/said"
    "$launcher" sh "$script" survived
done
rm "$BRISEL_TUNING_MARK"

# It came up: applied again at the next boot.
boot 0 4
"$launcher" sh "$script" survived
BRISEL_BOOT_ID=fourth
"$launcher" -r true
boot 0 4

status=0
"$launcher" sh "$script" survive 2>/dev/null || status=$?
[ "$status" -eq 2 ]

# guide_script N: the N-th script of the guide, for the files of this test.
guide_script() {
    awk -v wanted="$1" '/^```/ { inside = 0 } /^#!\/bin\/sh$/ { inside = ++number == wanted } inside' "$guide" |
        sed -e "s|/etc/brisel/tuning.conf|$BRISEL_TUNING|; s|/var/lib/brisel/tuning-is-tried|$work/busybox/mark|" \
            -e "s|/proc/sys/kernel/random/boot_id|$work/id|; s|/proc/cmdline|$work/cmdline|; s|/dev/kmsg|$work/said|"
}
guide_script 1 >"$work/S20"
guide_script 2 >"$work/S99"
[ -s "$work/S99" ]
echo quiet >"$work/cmdline"
at_boot() { "$launcher" sh "$work/S20" start; }
at_end() {
    "$launcher" sh "$work/S99" stop
    "$launcher" sh "$work/S20" stop
}
delay() { "$launcher" brisel -r mac-tx::delay 2>/dev/null; }

# Two boots that come up, one that does not, and those after it.
for id in 1 2 3; do
    "$launcher" -r true
    echo "$id" >"$work/id"
    at_boot
    [ "$(delay)" = 4 ]
    if [ "$id" -lt 3 ]; then
        "$launcher" sh "$work/S99" start
        at_end
    fi
done
for id in 4 5; do
    "$launcher" -r true
    echo "$id" >"$work/id"
    if at_boot; then exit 1; fi
    grep -q 'a boot with it did not come up' "$work/said"
    [ "$(delay)" = 2 ]
    "$launcher" sh "$work/S99" start
    at_end
done

# What is left out.
rm "$work/busybox/mark"
echo 'quiet brisel-tune.off' >"$work/cmdline"
at_boot
[ "$(delay)" = 2 ]
