#!/bin/sh
# Installs, uses and removes a Debian package in a fresh Debian 12. Needs root and the network.
#
#   chroot_test.sh PACKAGE BOARD_BUILD
#
# BOARD_BUILD is a build folder with the simulated board's library, which stands for the hardware.
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
[ "$(id -u)" -eq 0 ] || { echo 'needs root, for chroot' >&2; exit 1; }

root=$(mktemp -d)
clean() {
    umount "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$root"
}
trap clean EXIT

# From where this machine's own packages come.
mirror=$(apt-get indextargets --format "\$(SITE)" 'Created-By: Packages' | head -n 1)
debootstrap --variant=minbase bookworm "$root" "$mirror" >"$root.log" 2>&1 || {
    tail "$root.log"
    exit 1
}
rm "$root.log"
mount -t proc proc "$root/proc"

in_chroot() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C DEBIAN_FRONTEND=noninteractive \
        chroot "$root" "$@"
}

cp "$1" "$root/tmp/brisel.deb"
in_chroot apt-get update -qq
in_chroot apt-get install -y -qq --no-install-recommends /tmp/brisel.deb mandoc bash-completion

# Nothing is enabled but by its user; no systemd is here to do that.
units=$root/etc/systemd/system/multi-user.target.wants
[ -z "$(find "$root/etc" -name 'brisel*.service')" ]
mkdir -p "$units"
ln -s /lib/systemd/system/brisel-tune.service "$units"

# The board, with the packaged programs in the place of the built ones.
mkdir -p "$root/opt/build"
cp -R "$source/sim" "$root/opt/sim"
cp "$2/libbrisel-board.so" "$root/opt/build"
ln -s /usr/bin/brisel /usr/bin/brisel-tune "$root/opt/build"
cp "$source/test/packages/use.sh" "$root/opt/use.sh"
in_chroot /opt/sim/board bash /opt/use.sh

in_chroot apt-get purge -y -qq brisel
rm -r "$root/opt" "$root/tmp/brisel.deb"
left=$(find "$root" -xdev -name '*brisel*' -not -path "$root/var/log/*" -not -path "$root/var/lib/dpkg/*")
[ -z "$left" ] || {
    echo "left after removal: $left" >&2
    exit 1
}
echo 'installed, used and removed'
