#!/bin/sh
# A tuning is applied at boot, and not again before the system has come up with it.
#
#   boot_test.sh LAUNCHER SCRIPT
set -eu
launcher=$1 script=$2

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
