# Where `cmake --install` puts the files, and the Debian package of them (cpack -G DEB; packaging/build-deb
# does all of that). The executables contain everything they need, so the installed tree can be anywhere.
if(NOT GLIMRA_DESKTOP)
  return()
endif()

include(GNUInstallDirs)
set(here ${CMAKE_CURRENT_LIST_DIR})

# On Debian games, and what belongs to them, are in /usr/games.
install(TARGETS glimra glimra-pilot RUNTIME DESTINATION games)

install(FILES ${here}/glimra.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${here}/example.glimra.glimra.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

function(install_icon file size)
  install(FILES ${file} RENAME glimra.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endfunction()
foreach(size 16 32 48 64)
  install_icon(${here}/icons/${size}.png ${size})
endforeach()
install_icon(${PROJECT_SOURCE_DIR}/resources/glimra_128.png 128)

# ---- Texts, compressed without a time stamp: the same text gives the same bytes ------------------

find_program(GZIP gzip REQUIRED)
set(texts_folder ${PROJECT_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${texts_folder})

function(install_compressed text name folder)
  add_custom_command(OUTPUT ${texts_folder}/${name}.gz
                     COMMAND ${GZIP} -9 -n -c ${text} > ${texts_folder}/${name}.gz
                     DEPENDS ${text})
  add_custom_target(${name}.gz ALL DEPENDS ${texts_folder}/${name}.gz)
  install(FILES ${texts_folder}/${name}.gz DESTINATION ${folder})
endfunction()
install_compressed(${here}/glimra.6 glimra.6 ${CMAKE_INSTALL_MANDIR}/man6)
install_compressed(${here}/glimra-pilot.1 glimra-pilot.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${CMAKE_INSTALL_DOCDIR})
install_compressed(${here}/debian/changelog changelog.Debian ${CMAKE_INSTALL_DOCDIR})
install(FILES ${here}/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# ---- The Debian package --------------------------------------------------------------------------

# Both changelogs begin with the version that is built.
file(STRINGS ${here}/debian/changelog first_line LIMIT_COUNT 1)
if(NOT first_line MATCHES "^glimra \\(([^-]+)-([0-9]+)\\)" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}.")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME glimra)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Glimra authors <authors@glimra.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS xdg-utils) # opens the help page
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "falling-block puzzle on a handheld in a window")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Pieces of four blocks fall into a well; complete rows vanish. Four modes, a
ghost, a hold box, up to six pieces ahead, high scores, and a game that is
still there after the window was closed.
.
The game was written for a handheld with a screen of 240 by 320 pixels, which
comes with it: the window shows that screen, and keyboard, mouse, touch screen
or game controller are its buttons and its stylus.
.
glimra-pilot plays the same game by a script, without a display.")
include(CPack)
