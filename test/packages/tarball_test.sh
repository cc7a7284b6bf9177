#!/bin/sh
# A tarball unpacks to a folder named as it is, with a static program that runs from there.
#
#   tarball_test.sh TARBALL
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$(dirname "$1")" && sha256sum -c --quiet "$(basename "$1").sha256")
tar xzf "$1" -C "$work"
folder=$work/$(basename "$1" .tar.gz)

for file in bin/brisel bin/brisel-tune share/man/man1/brisel.1 share/man/man1/brisel-tune.1 share/brisel/properties.tsv \
    share/bash-completion/completions/brisel share/zsh/site-functions/_brisel \
    share/fish/vendor_completions.d/brisel.fish share/doc/brisel/properties.md; do
    [ -s "$folder/$file" ] || { echo "no $file" >&2; exit 1; }
done
if file "$folder/bin/brisel" | grep -q 'dynamically linked'; then
    echo 'not static' >&2
    exit 1
fi
case $1 in
*-amd64.*)
    status=0
    "$folder/bin/brisel" -h >/dev/null 2>&1 || status=$?
    [ "$status" -eq 254 ]
    ;;
esac
