#!/bin/sh
# The version is written down once, the newest entry of CHANGELOG.md is about it, and new hardware has an entry.
#
#   changelog_test.sh VERSION SOURCE_FOLDER
set -eu
cd "$2"

status=0
newest=$(sed -n 's/^## \([0-9.]*\) (.*/\1/p' CHANGELOG.md | head -n 1)
if [ "$newest" != "$1" ]; then
    echo "CHANGELOG.md begins with $newest, and the project is at $1"
    status=1
fi
total=$(awk '$1 == "total" && $2 != "properties" { print $2 }' test/catalogue/hardware.tsv)
said=$(grep -o '[0-9][0-9]* properties' CHANGELOG.md | head -n 1)
if [ "$said" != "$total properties" ]; then
    echo "CHANGELOG.md: its newest entry does not say that there are \"$total properties\" now"
    status=1
fi
if grep -rnF "$1" man completion packaging src docs cmake; then
    echo "this should take the version from CMakeLists.txt"
    status=1
fi
exit "$status"
