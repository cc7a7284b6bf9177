# Turns the staged installation into what Debian's policy asks of a package. Run by cpack.

if(NOT CPACK_GENERATOR STREQUAL DEB)
    return()
endif()
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(packaging ${CPACK_BRISEL_SOURCE_DIR}/packaging/debian)

macro(run)
    execute_process(${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endmacro()

# Changes in Debian's form, made from the newest entry of CHANGELOG.md.
file(READ ${CPACK_BRISEL_SOURCE_DIR}/CHANGELOG.md changes)
string(REGEX MATCH "\n## [0-9.]+ \\(([-0-9]+)\\)" newest "${changes}")
run(COMMAND date -u -R -d ${CMAKE_MATCH_1} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE)
file(WRITE ${share}/doc/brisel/changelog "\
brisel (${CPACK_PACKAGE_VERSION}) bookworm; urgency=medium

  * As in CHANGELOG.md.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
run(COMMAND gzip -9n ${share}/doc/brisel/changelog ${share}/man/man1/brisel.1)

run(COMMAND ${CPACK_BRISEL_STRIP} --strip-unneeded --remove-section=.comment
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/brisel)

file(COPY ${packaging}/lintian-overrides DESTINATION ${share}/lintian/overrides)
file(RENAME ${share}/lintian/overrides/lintian-overrides ${share}/lintian/overrides/brisel)
run(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
