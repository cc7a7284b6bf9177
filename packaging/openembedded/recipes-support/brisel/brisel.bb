SUMMARY = "Tuning knobs of a board, by name"
DESCRIPTION = "Shows the electrical tuning knobs of a board with the chips orlin and pelune as named \
properties: lists them, reads them and writes them."
SECTION = "console/utils"
# None has been chosen yet.
LICENSE = "CLOSED"

# This tree itself, four folders above the recipe.
EXTERNALSRC := "${@os.path.realpath('${THISDIR}/../../../..')}"

def brisel_version(d):
    import re
    with open(d.expand('${EXTERNALSRC}/CMakeLists.txt')) as lists:
        return re.search(r'project\(brisel VERSION ([0-9.]+)', lists.read()).group(1)

PV = "${@brisel_version(d)}"

inherit cmake externalsrc bash-completion

# The C++ library that every program of the image shares; a static one is in no image's toolchain by default.
EXTRA_OECMAKE = "-DBRISEL_BOARD=OFF -DBRISEL_STATIC_RUNTIME=OFF"

FILES:${PN} += "${datadir}/zsh ${datadir}/fish"
