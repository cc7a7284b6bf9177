# Packages by cpack: DEB for a dynamic build of a Debian processor, TGZ for a static build.

set(CPACK_PACKAGE_NAME brisel)
set(CPACK_PACKAGE_VENDOR "the brisel maintainers")
set(CPACK_PACKAGE_CONTACT "brisel maintainers <maintainers@brisel.example>")
set(CPACK_PACKAGE_CHECKSUM SHA256)

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^armv7")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL x86_64)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS bash-completion)
if(CMAKE_CROSSCOMPILING)
    # dpkg-shlibdeps knows no package for the cross compiler's C library, which is Debian 12's.
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6 (>= 2.36)")
else()
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/packaging/debian/postinst ${PROJECT_SOURCE_DIR}/packaging/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION "\
brisel shows the electrical tuning knobs of a board with the chips orlin and
pelune as named properties: DDR PHY drive strengths, terminations and delays,
USB PHY fields, I2C, Ethernet and external-bus delays, the PCIe link state,
the eMMC host's rdqs and regulator voltages. It lists, reads and writes them,
absolutely or by a step.
brisel-tune saves, compares and applies whole tunings, also at boot.")

# For DEB alone, in the staging folder: what Debian's policy wants beside the plain installation.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/complete.cmake)
set(CPACK_BRISEL_SOURCE_DIR ${PROJECT_SOURCE_DIR})
set(CPACK_BRISEL_STRIP ${CMAKE_STRIP})

set(CPACK_SYSTEM_NAME ${CMAKE_SYSTEM_NAME}-${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
include(CPack)
