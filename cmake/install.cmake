# Where an installed program lies, and its Debian package.
include(GNUInstallDirs)
install(TARGETS tarvix-cli DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET tarvix)
    install(TARGETS tarvix DESTINATION ${CMAKE_INSTALL_BINDIR})
    file(GLOB DESKTOP_FILES ${PROJECT_SOURCE_DIR}/data/*.desktop)
    install(FILES ${DESKTOP_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    if(EXISTS ${PROJECT_SOURCE_DIR}/data/icons/tarvix.svg)
        install(FILES data/icons/tarvix.svg
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    endif()
endif()
file(GLOB HELP_FILES ${PROJECT_SOURCE_DIR}/docs/help/*)
install(FILES ${HELP_FILES} DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Tarvix developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Move, copy and rename many files by rule")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libglib2.0-0) # which is loaded when it is needed
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
include(CPack)
