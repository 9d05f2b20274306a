# Installing the simulator as a desktop application, and its Debian package.
#
# The program's folder, lib/nautrix/, holds the executable and the four wave
# files, which the device reads from its own folder at each use. bin/nautrix is
# a relative symbolic link to the executable; Qt resolves the link when it asks
# for the program's folder, so the installed tree works wherever it is moved.
# Beside them: the desktop entry, the AppStream metadata and the hicolor icons
# under the program's id, the manual page, and the copyright and changelog.
include(GNUInstallDirs)

set(NAUTRIX_APP_ID org.tickplaysim.Nautrix)
# The day this version was released: keep it with project(VERSION) when that
# changes, for the AppStream release and the manual page.
set(NAUTRIX_RELEASE_DATE 2026-11-23)
set(NAUTRIX_PROGRAM_DIR lib/nautrix CACHE STRING
  "Folder of the executable and its wave files, under the install prefix")
set(NAUTRIX_MAINTAINER "Tickplay Simulator developers <developers@tickplaysim.org>")

# The Wayland compositor ties the window to the desktop entry by this id.
target_compile_definitions(nautrix PRIVATE NAUTRIX_APP_ID="${NAUTRIX_APP_ID}"
  NAUTRIX_VERSION="${PROJECT_VERSION}")

set(desktop_dir ${CMAKE_SOURCE_DIR}/desktop)
set(staged ${CMAKE_BINARY_DIR}/install-files)

# The program's folder and the link in bin/.
install(TARGETS nautrix RUNTIME DESTINATION ${NAUTRIX_PROGRAM_DIR})
# A stripped program keeps no .comment section either: the compilers' names
# are of no use to the user.
if(CMAKE_OBJCOPY)
  install(CODE "
    if(CMAKE_INSTALL_DO_STRIP)
      execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.comment
        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${NAUTRIX_PROGRAM_DIR}/nautrix\"
        COMMAND_ERROR_IS_FATAL ANY)
    endif()")
endif()
foreach(n 0 1 2 3)
  install(FILES ${CMAKE_BINARY_DIR}/Beep${n}.wav DESTINATION ${NAUTRIX_PROGRAM_DIR})
endforeach()
file(RELATIVE_PATH link_target /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${NAUTRIX_PROGRAM_DIR}/nautrix)
file(MAKE_DIRECTORY ${staged})
file(CREATE_LINK ${link_target} ${staged}/nautrix SYMBOLIC)
install(FILES ${staged}/nautrix DESTINATION ${CMAKE_INSTALL_BINDIR})

# The desktop entry, the metadata and the icons.
install(FILES ${desktop_dir}/${NAUTRIX_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${desktop_dir}/${NAUTRIX_APP_ID}.metainfo.xml.in ${staged}/${NAUTRIX_APP_ID}.metainfo.xml @ONLY)
install(FILES ${staged}/${NAUTRIX_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES ${CMAKE_SOURCE_DIR}/assets/icons/hicolor/${size}x${size}/apps/nautrix.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME ${NAUTRIX_APP_ID}.png)
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/assets/nautrix.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME ${NAUTRIX_APP_ID}.svg)

# The manual page and the changelog, compressed as Debian keeps them (no name
# or time in the gzip header, so that a rebuild gives the same bytes).
configure_file(${desktop_dir}/nautrix.6.in ${staged}/nautrix.6 @ONLY)
execute_process(COMMAND env LC_ALL=C date -u -R -d ${NAUTRIX_RELEASE_DATE}
  OUTPUT_VARIABLE changelog_date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${staged}/changelog
  "nautrix (${PROJECT_VERSION}) stable; urgency=medium\n\n"
  "  * The first release of the simulator.\n\n"
  " -- ${NAUTRIX_MAINTAINER}  ${changelog_date}\n")
add_custom_command(OUTPUT ${staged}/nautrix.6.gz ${staged}/changelog.gz
  COMMAND gzip -9nkf ${staged}/nautrix.6 ${staged}/changelog
  DEPENDS ${staged}/nautrix.6 ${staged}/changelog)
add_custom_target(nautrix_install_files ALL DEPENDS ${staged}/nautrix.6.gz ${staged}/changelog.gz)
install(FILES ${staged}/nautrix.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
install(FILES ${staged}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The copyright file in Debian's machine-readable form, around the licence.
file(READ ${CMAKE_SOURCE_DIR}/LICENSE license)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)" _ "${license}")
set(holders "${CMAKE_MATCH_1}")
string(REGEX REPLACE "\n$" "" license "${license}")
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n" "\n " license "${license}")
file(WRITE ${staged}/copyright
  "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"
  "Upstream-Name: nautrix\n\n"
  "Files: *\n"
  "Copyright: ${holders}\n"
  "License: MIT\n ${license}\n")
install(FILES ${staged}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The Debian package: scripts/package.sh configures with prefix /usr and runs
# CPack, which asks dpkg-shlibdeps for the libraries' packages.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nautrix)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${NAUTRIX_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pocket LCD game and alarm clock of the Tickplay family")
set(CPACK_PACKAGE_DESCRIPTION
  "A desktop simulator of the Nautrix, a pocket LCD game-and-clock, shown as
a small frameless window with its case, its segment screen and seven keys.
A diver carries treasure from a chest to his boat past the five tentacles of
a nautrix; Game A and the faster Game B keep their own high scores. The
device is also a 12-hour clock with one daily alarm, and is played with the
pointer or the keyboard.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Debian's games keep their programs in /usr/games: scripts/package.sh puts
# the link there.
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The art's texts are set in DejaVu Sans; the native Wayland platform serves
# sessions without XWayland.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, libpulse0")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)

# `cmake --build build --target uninstall` undoes the last `cmake --install`
# from this build: the files of its install_manifest.txt, then the folders
# that are left empty below the prefix they share.
add_custom_target(uninstall
  COMMAND ${CMAKE_COMMAND} -DMANIFEST=${CMAKE_BINARY_DIR}/install_manifest.txt
    -P ${CMAKE_SOURCE_DIR}/cmake/uninstall.cmake)
