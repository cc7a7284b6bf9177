# What `cmake --install` puts where, below the prefix.

include(GNUInstallDirs)

set(BRISEL_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
    "Where zsh looks for completions; Debian's packages use share/zsh/vendor-completions")
set(BRISEL_TMPFILES_DIR "" CACHE STRING
    "Where systemd looks for files to make at start-up, such as lib/tmpfiles.d; empty for nowhere")

set(BRISEL_SYSTEMD_DIR "" CACHE STRING
    "Where systemd looks for units, such as lib/systemd/system; empty for nowhere")

set(BRISEL_BASH_DIR ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
set(BRISEL_FISH_DIR ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# The completions find the table of properties by the way from where they lie themselves.
foreach(shell BASH ZSH FISH)
    file(RELATIVE_PATH BRISEL_DATA_FROM_${shell}
        /prefix/${BRISEL_${shell}_DIR} /prefix/${CMAKE_INSTALL_DATADIR}/brisel)
endforeach()

set(configured ${CMAKE_CURRENT_BINARY_DIR}/configured)
foreach(file man/brisel.1 man/brisel-tune.1
        completion/brisel.bash completion/_brisel completion/brisel.fish
        completion/brisel-tune.bash completion/_brisel-tune completion/brisel-tune.fish)
    configure_file(${file}.in ${configured}/${file} @ONLY)
endforeach()

install(TARGETS brisel brisel-tune)
install(FILES ${configured}/man/brisel.1 ${configured}/man/brisel-tune.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES CHANGELOG.md docs/properties.md docs/tuning.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES completion/properties.tsv DESTINATION ${CMAKE_INSTALL_DATADIR}/brisel)
foreach(program brisel brisel-tune)
    install(FILES ${configured}/completion/${program}.bash DESTINATION ${BRISEL_BASH_DIR} RENAME ${program})
    install(FILES ${configured}/completion/_${program} DESTINATION ${BRISEL_ZSH_DIR})
    install(FILES ${configured}/completion/${program}.fish DESTINATION ${BRISEL_FISH_DIR})
endforeach()
if(BRISEL_TMPFILES_DIR)
    install(FILES packaging/debian/brisel.conf DESTINATION ${BRISEL_TMPFILES_DIR})
endif()
if(BRISEL_SYSTEMD_DIR)
    install(FILES packaging/boot/brisel-tune.service packaging/boot/brisel-tune-survived.service
        DESTINATION ${BRISEL_SYSTEMD_DIR})
    install(PROGRAMS packaging/boot/apply-at-boot DESTINATION lib/brisel)
endif()
