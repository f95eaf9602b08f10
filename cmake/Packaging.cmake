# Installation and the Debian package: the programs, a desktop entry, an icon, and a manual page
# for each program made from what its --help prints.
#   cmake --install build/release --prefix /usr/local
#   cd build/release && cpack -G DEB
include(GNUInstallDirs)

# dorvanta-server and the language files (share/dorvanta/languages, where the programs look
# beside their own folder) are installed by their own folders' rules.
set(DV_INSTALLED_PROGRAMS)
foreach(program dorvanta dorvanta-cli dorvanta-server)
    if(TARGET ${program})
        if(NOT program STREQUAL "dorvanta-server")
            install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
        endif()
        list(APPEND DV_INSTALLED_PROGRAMS ${program})
    endif()
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/packaging/dorvanta.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/dorvanta.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# Manual pages, made when the programs are built: each program runs once with --help.
set(dv_summary_dorvanta "develop, check and print systems of 10eLotto columns")
set(dv_summary_dorvanta-cli "the operations of Dorvanta on the command line")
set(dv_summary_dorvanta-server "the web server of Dorvanta")
find_program(DV_GZIP gzip)
set(dv_pages)
foreach(program ${DV_INSTALLED_PROGRAMS})
    set(page ${PROJECT_BINARY_DIR}/man/${program}.1)
    if(DV_GZIP)
        set(page ${page}.gz)
    endif()
    add_custom_command(
        OUTPUT ${page}
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
                ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}> -DBINDIR=$<TARGET_FILE_DIR:${program}>
                -DNAME=${program}
                "-DSUMMARY=${dv_summary_${program}}" -DVERSION=${PROJECT_VERSION} -DOUTPUT=${page}
                -DGZIP=${DV_GZIP} -P ${PROJECT_SOURCE_DIR}/cmake/ManPage.cmake
        DEPENDS ${program} ${PROJECT_SOURCE_DIR}/cmake/ManPage.cmake
        COMMENT "Manual page of ${program} from its --help"
        VERBATIM)
    list(APPEND dv_pages ${page})
endforeach()
add_custom_target(dv_man_pages ALL DEPENDS ${dv_pages})
install(FILES ${dv_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The Debian package. Its dependencies are read from the libraries the programs link.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME dorvanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Dorvanta")
set(CPACK_PACKAGE_CONTACT "Dorvanta developers <dorvanta@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Systems of 10eLotto columns: develop, check, compare and print")
set(CPACK_PACKAGE_DESCRIPTION
    "Dorvanta develops a forecast into a system of 10eLotto columns under conditions (sum, even numbers, runs, distances, filter tables, reductions), saves and checks systems against the draw archive, compares and prints them. It ships the desktop program, dorvanta-cli and dorvanta-server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
find_program(DV_DPKG_SHLIBDEPS dpkg-shlibdeps)
if(DV_DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
else()
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6, libqt6core6, libqt6gui6, libqt6widgets6, libqt6network6, libqt6printsupport6")
endif()
include(CPack)

add_subdirectory(${PROJECT_SOURCE_DIR}/tests/packaging ${PROJECT_BINARY_DIR}/tests/packaging)
