# What `cmake --install` puts where, below the prefix.

include(GNUInstallDirs)

set(BRISEL_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
    "Where zsh looks for completions; Debian's packages use share/zsh/vendor-completions")
set(BRISEL_TMPFILES_DIR "" CACHE STRING
    "Where systemd looks for files to make at start-up, such as lib/tmpfiles.d; empty for nowhere")

# The completions find what they share through the program.
file(RELATIVE_PATH BRISEL_DATA_FROM_BIN
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/brisel)

set(configured ${CMAKE_CURRENT_BINARY_DIR}/configured)
foreach(file man/brisel.1 completion/brisel.bash completion/_brisel completion/brisel.fish)
    configure_file(${file}.in ${configured}/${file} @ONLY)
endforeach()

install(TARGETS brisel)
install(FILES ${configured}/man/brisel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES CHANGELOG.md docs/properties.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(PROGRAMS completion/candidates DESTINATION ${CMAKE_INSTALL_DATADIR}/brisel)
install(FILES completion/values DESTINATION ${CMAKE_INSTALL_DATADIR}/brisel)
install(FILES ${configured}/completion/brisel.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME brisel)
install(FILES ${configured}/completion/_brisel DESTINATION ${BRISEL_ZSH_DIR})
install(FILES ${configured}/completion/brisel.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
if(BRISEL_TMPFILES_DIR)
    install(FILES packaging/debian/brisel.conf DESTINATION ${BRISEL_TMPFILES_DIR})
endif()
