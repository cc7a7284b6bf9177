#!/bin/sh
# systemd has nothing to say of the units, alone or enabled, when they are where a package puts them.
#
#   units_test.sh FOLDER
#
# FOLDER has the units, and the script that they start.
set -eu
folder=$1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/multi-user.target.wants"
for unit in "$folder"/*.service; do
    sed "s|=/usr/lib/brisel/|=$folder/|" "$unit" >"$work/$(basename "$unit")"
done
ln -s ../brisel-tune.service "$work/multi-user.target.wants"

# Whatever starts the first one makes the mark, and so has to start the one that takes it away.
grep -q '^Wants=.*brisel-tune-survived.service' "$work/brisel-tune.service"

# The target is this machine's own, and what is said of its other units does not count.
cd "$work"
export SYSTEMD_UNIT_PATH="$work:"
systemd-analyze verify --man=no ./*.service >said 2>&1 || status=$?
systemd-analyze verify --man=no multi-user.target >>said 2>&1 || true
if [ "${status:-0}" -ne 0 ] || grep -q brisel said; then
    cat said
    exit 1
fi
