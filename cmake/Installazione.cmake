# `cmake --install build/release --prefix DIR`, and `cpack` in build/release for a Debian package.

install(TARGETS sortimetra sortimetra-cli)
# What follows is found by its place relative to the programs, so these two folders are fixed.
# No program for people: out of the command path.
install(TARGETS sortimetra-lettore-jet DESTINATION libexec/sortimetra)

# The module that sortimetra-cli loads when it writes a PDF.
install(TARGETS sortimetra-pdf LIBRARY DESTINATION lib/sortimetra)

install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES data/sortimetra.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/sortimetra.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sortimetra)
set(CPACK_PACKAGE_CONTACT "Sortimetra")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library name tells: the font of the reports, Qt's own words in Italian.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2, qt6-translations-l10n")
include(CPack)
