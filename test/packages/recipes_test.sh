#!/bin/sh
# The recipes name a source folder that is one, options that the project has, and what their install step
# leaves in a staging folder is the program with all that belongs to it. Their build systems are not here:
# make reads the Buildroot recipe with that system's macros set to show what they are given, and python3
# runs the recipe's own function.
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$1" >&2
    exit 1
}

cat >"$work/Makefile" <<'END'
BR2_EXTERNAL_BRISEL_PATH = $(source)/packaging/buildroot
cmake-package = $(info site=$(BRISEL_SITE))$(info options=$(BRISEL_CONF_OPTS))
include $(BR2_EXTERNAL_BRISEL_PATH)/external.mk
all: ;
END
make -s -f "$work/Makefile" source="$source" >"$work/variables"
grep -qx "site=$source" "$work/variables" || fail "Buildroot: not this tree: $(cat "$work/variables")"
buildroot_options=$(sed -n 's/^options=//p' "$work/variables")

layer=$source/packaging/openembedded
recipe=$layer/recipes-support/brisel/brisel.bb
python3 - "$recipe" "$source" <<'END'
import os, re, sys
recipe, source = sys.argv[1:]
text = open(recipe).read()
path = re.search(r"realpath\('\$\{THISDIR\}/([./]+)'", text).group(1)
assert os.path.realpath(os.path.join(os.path.dirname(recipe), path)) == source, 'not this tree'
class Data:
    expand = staticmethod(lambda value: value.replace('${EXTERNALSRC}', source))
functions = {}
exec(re.search(r'^def .*?(?=^\S)', text[text.index('def '):], re.M | re.S).group(0), functions)
version = functions['brisel_version'](Data)
assert re.fullmatch(r'\d+\.\d+\.\d+', version), version
END
openembedded_options=$(sed -n 's/^EXTRA_OECMAKE = "\(.*\)"/\1/p' "$recipe")

cat >"$work/wanted" <<'END'
./usr/bin/brisel
./usr/bin/brisel-tune
./usr/share/bash-completion/completions/brisel
./usr/share/bash-completion/completions/brisel-tune
./usr/share/brisel/properties.tsv
./usr/share/doc/brisel/CHANGELOG.md
./usr/share/doc/brisel/properties.md
./usr/share/doc/brisel/tuning.md
./usr/share/fish/vendor_completions.d/brisel-tune.fish
./usr/share/fish/vendor_completions.d/brisel.fish
./usr/share/man/man1/brisel-tune.1
./usr/share/man/man1/brisel.1
./usr/share/zsh/site-functions/_brisel
./usr/share/zsh/site-functions/_brisel-tune
END

# stage NAME OPTION...: configures, builds and installs into a staging folder as both systems do.
stage() {
    name=$1
    shift
    if ! {
        cmake -S "$source" -B "$work/$name" -DCMAKE_INSTALL_PREFIX=/usr "$@" &&
            cmake --build "$work/$name" -j "$(nproc)" &&
            DESTDIR=$work/$name-staging cmake --install "$work/$name"
    } >"$work/log" 2>&1; then
        cat "$work/log"
        fail "$name: does not build"
    fi
    ! grep 'not used by the project' "$work/log" || fail "$name: unknown option"
    (cd "$work/$name-staging" && find . -type f) | LC_ALL=C sort >"$work/staged"
    diff -u "$work/wanted" "$work/staged" || fail "$name: the staging folder is not as wanted"
}

# shellcheck disable=SC2086 # both are lists of words
{
    stage buildroot $buildroot_options
    stage openembedded $openembedded_options
}
