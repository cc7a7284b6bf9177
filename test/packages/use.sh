#!/usr/bin/env bash
# Uses what is installed on a board: both programs, their manuals and completions. Run by chroot_test.sh.
set -eu

reference=/usr/share/doc/brisel/properties.md
[ "$(brisel -l | grep -c '	.* : ')" -eq "$(grep -c '^| .*::' $reference)" ]
brisel orlin-ddra::odt 120
[ "$(brisel -r orlin-ddra::odt)" = 120 ]
[ "$(brisel -x orlin-ddra::odt)" = 0x78 ]

echo 'mac-tx::delay = 4' >/etc/brisel-test.conf
brisel-tune apply /etc/brisel-test.conf
[ "$(brisel-tune get mac-tx::delay)" = 'mac-tx::delay = 4' ]
BRISEL_TUNING=/etc/brisel-test.conf /usr/lib/brisel/apply-at-boot
rm /etc/brisel-test.conf

mandoc -T lint -W warning /usr/share/man/man1/brisel.1.gz
mandoc -T lint -W warning /usr/share/man/man1/brisel-tune.1.gz

# completes LINE WANTED: as the library that loads completions at a tab has it done.
completes() {
    COMP_LINE=$1 COMP_POINT=${#1}
    local program=${1%% *}
    "_${program/-/_}" || true # its status means nothing
    [ "${COMPREPLY[*]}" = "$2" ] || {
        echo "'$1' completes to '${COMPREPLY[*]}', not '$2'" >&2
        exit 1
    }
}

set +eu # the library bears neither
# shellcheck source=/dev/null
. /usr/share/bash-completion/bash_completion
_completion_loader brisel
_completion_loader brisel-tune
set -eu
completes 'brisel pelune-ddr::od' odt
completes 'brisel pelune-ddr::odt 1' 120
completes 'brisel-tune ap' apply
completes 'brisel-tune get mac-r' mac-rx::delay
