# Turns the staged installation into what Debian's policy asks of a package. Run by cpack.

if(NOT CPACK_GENERATOR STREQUAL DEB)
    return()
endif()
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(packaging ${CPACK_BRISEL_SOURCE_DIR}/packaging/debian)

macro(run)
    execute_process(${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endmacro()

# Changes in Debian's form: the entry of CHANGELOG.md for this version, a point for each of its points.
file(READ ${CPACK_BRISEL_SOURCE_DIR}/CHANGELOG.md changes)
string(REGEX REPLACE ".*\n## ${CPACK_PACKAGE_VERSION} \\(([-0-9]+)\\)" "\\1" changes "${changes}")
string(REGEX MATCH "^[-0-9]+" day "${changes}")
run(COMMAND date -u -R -d ${day} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE)
string(REGEX REPLACE "\n## .*" "" changes "${changes}")
string(REGEX MATCHALL "\n- [^\n]*(\n  [^\n]*)*" points "${changes}")
string(REGEX REPLACE "\n  " "\n    " points "${points}")
string(REGEX REPLACE ";?\n- " "\n  * " points "${points}")
string(STRIP "${points}" points)
file(WRITE ${share}/doc/brisel/changelog "\
brisel (${CPACK_PACKAGE_VERSION}) bookworm; urgency=medium

  ${points}

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
run(COMMAND gzip -9n ${share}/doc/brisel/changelog ${share}/man/man1/brisel.1
    ${share}/man/man1/brisel-tune.1)

run(COMMAND ${CPACK_BRISEL_STRIP} --strip-unneeded --remove-section=.comment
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/brisel
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/brisel-tune)

file(COPY ${packaging}/copyright DESTINATION ${share}/doc/brisel)
configure_file(${packaging}/lintian-overrides ${share}/lintian/overrides/brisel COPYONLY)
run(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
