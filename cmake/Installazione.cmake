# `cmake --install build/release --prefix DIR`, and `cpack` in build/release for a Debian package.

install(TARGETS sortimetra-cli)
if(TARGET sortimetra)
    install(TARGETS sortimetra)
endif()
# No program for people: out of the command path, found by its place relative to the others.
if(TARGET sortimetra-lettore-jet)
    install(TARGETS sortimetra-lettore-jet DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/sortimetra)
endif()

install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(EXISTS ${PROJECT_SOURCE_DIR}/data)
    install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/sortimetra
            PATTERN "*.desktop" EXCLUDE PATTERN "*.qrc" EXCLUDE
            PATTERN "*.cpp" EXCLUDE PATTERN "CMakeLists.txt" EXCLUDE)
    file(GLOB voci_menu data/*.desktop)
    install(FILES ${voci_menu} DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    if(EXISTS ${PROJECT_SOURCE_DIR}/data/sortimetra.svg)
        install(FILES data/sortimetra.svg
                DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    endif()
endif()

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
include(CPack)
