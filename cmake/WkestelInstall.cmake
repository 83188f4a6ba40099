# What `cmake --install` puts where, and the Debian package made from it (`cpack -G DEB`).
#
# The window loads its language libraries (Kes32_<lang>.dll) from its working directory, as the
# measuring application does, so the programs and the libraries share one folder: on Linux
# <prefix>/lib/wkestel32, on Windows <prefix>/bin. The desktop entry starts the window with
# that folder as its working directory (Path=); <prefix>/bin holds `wkestel` (a link) and
# `wkestel32`, a launcher that does what the desktop entry does, for a terminal.

if(WIN32)
  set(WKESTEL_INSTALL_PROGRAM_DIR bin)
else()
  set(WKESTEL_INSTALL_PROGRAM_DIR lib/wkestel32)
endif()

# Called once every target exists (from the top-level CMakeLists).
function(wk_install_desktop_integration)
  if(WIN32)
    return()
  endif()
  set(desktop ${PROJECT_SOURCE_DIR}/resources/desktop)
  file(RELATIVE_PATH program_dir_from_bin /bin /${WKESTEL_INSTALL_PROGRAM_DIR})

  # `wkestel` on PATH: a relative link, so that the tree can be moved as a whole.
  install(CODE "
    set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/wkestel\")
    message(STATUS \"Installing: \${link}\")
    file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
    file(REMOVE \"\${link}\")
    file(CREATE_LINK \"${program_dir_from_bin}/wkestel\" \"\${link}\" SYMBOLIC)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${CMAKE_INSTALL_PREFIX}/bin/wkestel\")")

  if(WKESTEL_BUILD_GUI)
    set(PROGRAM_DIR_FROM_BIN ${program_dir_from_bin})
    configure_file(${desktop}/wkestel32-launcher.in ${CMAKE_BINARY_DIR}/install/wkestel32 @ONLY)
    install(PROGRAMS ${CMAKE_BINARY_DIR}/install/wkestel32 DESTINATION bin)
    # The entry names the program's folder under the prefix the install really uses, which
    # `cmake --install --prefix` may change after configuring.
    install(CODE "
      set(PROGRAM_DIR \"\${CMAKE_INSTALL_PREFIX}/${WKESTEL_INSTALL_PROGRAM_DIR}\")
      configure_file(\"${desktop}/wkestel32.desktop.in\"
                     \"${CMAKE_BINARY_DIR}/install/wkestel32.desktop\" @ONLY)
      file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/share/applications\" TYPE FILE
           FILES \"${CMAKE_BINARY_DIR}/install/wkestel32.desktop\")")
    install(FILES ${PROJECT_SOURCE_DIR}/resources/pictures/MAINICON.svg
            DESTINATION share/icons/hicolor/scalable/apps RENAME wkestel32.svg)
  endif()
endfunction()

# The man page of `wkestel`, made from its own --help by help2man at build time, with one
# section per command (cmake/WkestelManPage.cmake).
function(wk_man_page)
  if(WIN32 OR CMAKE_CROSSCOMPILING OR NOT TARGET wkestel)
    return()
  endif()
  find_program(WKESTEL_HELP2MAN help2man)
  if(NOT WKESTEL_HELP2MAN)
    message(FATAL_ERROR "The man page of wkestel is made with help2man (Debian: help2man); "
                        "scripts/install-deps installs it.")
  endif()
  set(page ${CMAKE_BINARY_DIR}/man/wkestel.1)
  add_custom_command(
    OUTPUT ${page}.gz
    COMMAND ${CMAKE_COMMAND} -DWKESTEL=$<TARGET_FILE:wkestel> -DHELP2MAN=${WKESTEL_HELP2MAN}
            -DOUTPUT=${page} -P ${PROJECT_SOURCE_DIR}/cmake/WkestelManPage.cmake
    DEPENDS wkestel ${PROJECT_SOURCE_DIR}/cmake/WkestelManPage.cmake
    COMMENT "Writing the man page of wkestel"
    VERBATIM)
  add_custom_target(wkestel_man_page ALL DEPENDS ${page}.gz)
  install(FILES ${page}.gz DESTINATION share/man/man1)
endfunction()

# The package: on Linux a Debian package, `cpack -G DEB` in the build folder (tests/packaging
# checks it); for Windows a ZIP of the programs' folder.
function(wk_package)
  set(WKESTEL_PACKAGE_MAINTAINER "WKestel32 developers" CACHE STRING
      "Maintainer of the package")
  set(CPACK_PACKAGE_NAME wkestel32)
  set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
  set(CPACK_PACKAGE_CONTACT ${WKESTEL_PACKAGE_MAINTAINER})
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
      "General Setup editor of a CMM measuring application's settings files")
  set(CPACK_PACKAGE_DESCRIPTION
      "WKestel32 edits WZELKO.INI and WZELKO32.INI, the settings files of a measuring \
application for coordinate measuring machines that runs under Wine, exactly as the Windows \
private-profile functions would. wkestel does the same from the command line.")
  set(CPACK_STRIP_FILES ON)
  if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_SYSTEM_NAME windows-x86_64)
    include(CPack)
    return()
  endif()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION misc)
  set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
  # The libraries come from dpkg-shlibdeps; Qt's platform plugins are loaded at run time, so
  # no library names them: without qt6-qpa-plugins the window cannot open on any display.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  if(WKESTEL_BUILD_GUI)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
    # The help files of the measuring application are shown by Wine's help viewer.
    set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wine")
  endif()
  include(CPack)
endfunction()
