# Installing and packaging: the desktop entry, the icon theme files, the manual page and
# the Debian package. `cmake --install build` puts everything under CMAKE_INSTALL_PREFIX;
# `make package` builds rigwright_<version>_<arch>.deb in the build folder.
include(GNUInstallDirs)

set(rigwright_resources ${PROJECT_SOURCE_DIR}/resources)

# --- Manual page -----------------------------------------------------------------------
# Debian keeps manual pages compressed; -n leaves the time stamp out so builds repeat.
set(rigwright_man_dir ${CMAKE_BINARY_DIR}/man)
set(rigwright_man ${rigwright_man_dir}/rigwright.1.gz)
add_custom_command(
  OUTPUT ${rigwright_man}
  COMMAND ${CMAKE_COMMAND} -E copy ${rigwright_resources}/rigwright.1
          ${rigwright_man_dir}/rigwright.1
  COMMAND gzip -9nf ${rigwright_man_dir}/rigwright.1
  DEPENDS ${rigwright_resources}/rigwright.1
  COMMENT "Compressing the manual page"
  VERBATIM)

# --- Changelog -------------------------------------------------------------------------
# Debian keeps a package's changelog compressed in its doc folder, like the manual page.
set(rigwright_doc_dir ${CMAKE_BINARY_DIR}/doc)
set(rigwright_changelog ${rigwright_doc_dir}/changelog.gz)
add_custom_command(
  OUTPUT ${rigwright_changelog}
  COMMAND ${CMAKE_COMMAND} -E copy ${rigwright_resources}/debian/changelog
          ${rigwright_doc_dir}/changelog
  COMMAND gzip -9nf ${rigwright_doc_dir}/changelog
  DEPENDS ${rigwright_resources}/debian/changelog
  COMMENT "Compressing the changelog"
  VERBATIM)

add_custom_target(rigwright-desktop-files ALL DEPENDS ${rigwright_man} ${rigwright_changelog})

# --- Install rules ---------------------------------------------------------------------
# Our libraries are static, so the installed program needs no search path of its own; the
# default one would point at a lib folder beside bin, which a system package must not use.
set_target_properties(rigwright PROPERTIES INSTALL_RPATH "")

# One drawing serves every size: the icon theme scales it, for the program and its files.
install(FILES ${rigwright_resources}/pictures/rigwright.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${rigwright_resources}/rigwright.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${rigwright_man} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The file type of fixture files, so that a file manager opens them with the wizard.
install(FILES ${rigwright_resources}/rigwright-mime.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME rigwright.xml)
# Software centres list the program from its AppStream metadata.
set(rigwright_metainfo ${rigwright_resources}/org.tolvane.rigwright.metainfo.xml)
install(FILES ${rigwright_metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
# The licence and the history, where a Debian system looks for them (lower-case package name,
# not the project's).
install(FILES ${rigwright_resources}/debian/copyright ${rigwright_changelog}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/rigwright)

# The desktop entry is checked against the freedesktop rules where the checker is installed
# (package desktop-file-utils); without it the test is not registered.
find_program(RIGWRIGHT_DESKTOP_FILE_VALIDATE desktop-file-validate)
if(BUILD_TESTING AND RIGWRIGHT_DESKTOP_FILE_VALIDATE)
  add_test(NAME desktop_entry
           COMMAND ${RIGWRIGHT_DESKTOP_FILE_VALIDATE} ${rigwright_resources}/rigwright.desktop)
  # A hint still exits with 0, so any output at all counts as a failure.
  set_tests_properties(desktop_entry PROPERTIES FAIL_REGULAR_EXPRESSION ".")
endif()
# Likewise the AppStream metadata (package appstream); --no-net leaves the screenshot
# addresses unchecked, so the test needs no network.
find_program(RIGWRIGHT_APPSTREAMCLI appstreamcli)
if(BUILD_TESTING AND RIGWRIGHT_APPSTREAMCLI)
  add_test(NAME metainfo COMMAND ${RIGWRIGHT_APPSTREAMCLI} validate --no-net --pedantic
                                 ${rigwright_metainfo})
  # Infos and pedantic notes exit with 0 too: any one of them counts as a failure.
  set_tests_properties(metainfo PROPERTIES FAIL_REGULAR_EXPRESSION "(^|\n)[EWIP]: ")
endif()

# --- Debian package --------------------------------------------------------------------
# The icon cache and the menu database are refreshed by the triggers of the packages that
# own them (hicolor-icon-theme, desktop-file-utils), so the package needs no scripts.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME rigwright)
set(CPACK_PACKAGE_VENDOR "Rigwright")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "wizard that writes DMX fixture definition files")
# Debian shows the long description as it stands, so it is broken into lines here.
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION
  "Rigwright is a desktop wizard with which a lighting technician describes one"
  "DMX-controlled stage fixture (a moving head, a scanning mirror or any other"
  "unit): its general data, a table of its DMX channels with 25 presets, and the"
  "labelled ranges of a channel's values. It writes one plain-text fixture"
  "definition file (.R20) that a lighting desk loads to patch and drive the"
  "fixture. It starts from the QLC+ fixture definitions (.qxf) too, and converts"
  "and checks whole fixture libraries from the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)  # what Debian's own packages use
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Rigwright developers <rigwright@tolvane.org>"
    CACHE STRING "Maintainer line of the Debian package")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://rigwright.tolvane.org/")

# The Qt libraries are found by dpkg-shlibdeps (from dpkg-dev, which build-essential brings);
# what the binary loads at run time without linking it is named here: the platform plugins
# and the sans serif font the form falls back to.
set(rigwright_runtime_depends "qt6-qpa-plugins, fonts-liberation2")
# The fixture definitions of QLC+ that the wizard opens and converts.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qlcplus-data")
find_program(RIGWRIGHT_DPKG_SHLIBDEPS dpkg-shlibdeps)
if(RIGWRIGHT_DPKG_SHLIBDEPS)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS ${rigwright_runtime_depends})
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS
      "libqt6widgets6 (>= 6.4), libqt6gui6 (>= 6.4), libqt6core6 (>= 6.4), \
${rigwright_runtime_depends}")
endif()

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_IGNORE_FILES "/\\\\.git/" "/build[^/]*/" "/\\\\.cache/")

include(CPack)
