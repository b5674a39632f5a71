# `cmake --install build/release --prefix DIR`, and `cpack` in build/release for a Debian package.

install(TARGETS sortimetra sortimetra-cli)
# What follows is found by its place relative to the programs, so these two folders are fixed.
# No program for people: out of the command path.
install(TARGETS sortimetra-lettore-jet DESTINATION libexec/sortimetra)

# The modules that are loaded when they are used: pages as PDF, workbooks, pictures of stories, packed files, transfers.
install(TARGETS sortimetra-pdf sortimetra-xlsx sortimetra-grafico sortimetra-spacchetta sortimetra-scarica
        LIBRARY DESTINATION lib/sortimetra)

install(FILES README.md data/pacchetto/copyright ${SORTIMETRA_MANUALI}/doc/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES data/sortimetra.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/sortimetra.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
configure_file(data/sortimetra.metainfo.xml.in ${PROJECT_BINARY_DIR}/sortimetra.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/sortimetra.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${SORTIMETRA_MANUALI}/man1/sortimetra-cli.1.gz ${SORTIMETRA_MANUALI}/man1/sortimetra.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${SORTIMETRA_MANUALI}/bash/sortimetra-cli ${SORTIMETRA_MANUALI}/bash/sortimetra
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
# Where Debian's zsh looks for what packages bring.
install(FILES ${SORTIMETRA_MANUALI}/zsh/_sortimetra-cli ${SORTIMETRA_MANUALI}/zsh/_sortimetra
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)

set(SORTIMETRA_MANUTENTORE "Sortimetra <sortimetra@sortimetra.invalid>" CACHE STRING
    "Who answers for the Debian package: name <address>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sortimetra)
set(CPACK_PACKAGE_CONTACT "${SORTIMETRA_MANUTENTORE}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "statistics of the Italian number lotteries")
file(READ ${PROJECT_SOURCE_DIR}/data/pacchetto/descrizione.txt CPACK_PACKAGE_DESCRIPTION)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
             ${PROJECT_SOURCE_DIR}/data/pacchetto/descrizione.txt)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/PermessiPacchetto.cmake)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${SORTIMETRA_MANUTENTORE}")
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library name tells: the font of the reports, Qt's own words in Italian, whose certificates are believed.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "ca-certificates, fonts-liberation2, qt6-translations-l10n")
# What cpack itself runs; without them it would make a package that names no library.
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/StrumentiPacchetto.cmake)
include(CPack)
