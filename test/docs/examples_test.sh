#!/bin/sh
# The examples of a document, run in their order on a fresh simulated board, print what it shows.
#
#   examples_test.sh DOCUMENT SOURCE_FOLDER
#
# DOCUMENT is a page with ```console blocks or a manual page. A line that begins with "$ " or "# " is a
# command, "> " continues it, and what follows is its output; "..." stands for any number of lines.
# $BRISEL_BUILD is the build folder.
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$2"
BRISEL_BOARD=$work/board
export BRISEL_BOARD
sim/board -r

ln -s "$PWD/sim" "$work/sim"
mkdir "$work/bin"
for program in brisel brisel-tune; do
    printf '#!/bin/sh\nexec "%s/sim/board" %s "$@"\n' "$PWD" "$program" >"$work/bin/$program"
done
printf '#!/bin/sh\nexec "%s/sim/memory-test"\n' "$PWD" >"$work/bin/memtester"
chmod +x "$work/bin"/*

# A page shows pictures in UTF-8, a manual, which is read anywhere, in ASCII.
unset COLUMNS LC_CTYPE LANG
LC_ALL=C
export LC_ALL

case $1 in
*.md) LC_ALL=C.UTF-8 && sed -n '/^\x60\{3\}console$/,/^\x60\{3\}$/{/^\x60/d;p;}' "$1" ;;
*) sed -n '/^\.Sh EXAMPLES/,/^\.Sh/{/^\.Bd/,/^\.Ed/{/^\./d;s/\\-/-/g;s/^\\&//;p;};}' "$1" ;;
esac >"$work/shown"

# The commands alone, each after a line that shows it.
{
    # A manual's own program is the one on the board; files of the examples are not left behind.
    echo "PATH=$work/bin:\$PATH; cd $work"
    sed -n "/^[\$#>] /{h;s/'/'\\\\''/g;s/.*/printf '%s\\\\n' '&'/;p;}" "$work/shown" >"$work/echoes"
    sed -n 's/^[$#>] //p' "$work/shown" >"$work/commands"
    # A command that goes on over several lines is echoed in whole before it.
    awk -v echoes="$work/echoes" '
        function flush_command() { if (command != "") printf "%s%s", shown, command }
        { getline echo_line <echoes }
        echo_line !~ /\x27> / { flush_command(); shown = command = "" }
        { shown = shown echo_line "\n"; command = command $0 "\n" }
        END { flush_command() }' "$work/commands"
} >"$work/script"
[ -s "$work/commands" ] || { echo "$1 shows no command"; exit 1; }
sh "$work/script" >"$work/actual" 2>&1 || true

awk -v shown="$work/shown" '
    { actual[++count] = $0 }
    END {
        at = 1
        while ((getline line <shown) > 0) {
            if (line == "...") { any = 1; continue }
            while (any && at <= count && actual[at] != line) at++
            any = 0
            if (at > count || actual[at] != line) {
                printf "shown:   %s\nprinted: %s\n", line, (at > count ? "(nothing)" : actual[at])
                exit 1
            }
            at++
        }
        if (!any && at <= count) { printf "not shown: %s\n", actual[at]; exit 1 }
    }' "$work/actual"
