#!/bin/sh
# The property reference and the table for completion are what the program's catalogue gives today.
#
#   properties_reference_test.sh DESCRIBE_PROPERTIES SOURCE_FOLDER
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" "$work/properties.md" "$work/properties.tsv"
status=0
diff -u "$2/docs/properties.md" "$work/properties.md" || status=1
diff -u "$2/completion/properties.tsv" "$work/properties.tsv" || status=1
[ "$status" -eq 0 ] ||
    echo 'docs/properties.md or completion/properties.tsv is out of date: cmake --build build-check --target properties_reference'
exit "$status"
