# SPDX-License-Identifier: GPL-2.0-or-later
# reelmoor_install_layout(<component> [EXCLUDE_FROM_ALL] BINDIR <dir>
#                         DATADIR <dir> EXEC <command>)
# Installs, as <component>, the launcher into BINDIR, the pictures and sounds
# into DATADIR, a menu entry that runs EXEC, and what every layout shares:
# the metainfo, the icons and the manual pages. The directories are relative
# to the install prefix; the game itself is expected in
# ${CMAKE_INSTALL_LIBEXECDIR}/reelmoor.
function(reelmoor_install_layout component)
  cmake_parse_arguments(PARSE_ARGV 1 layout "EXCLUDE_FROM_ALL" "BINDIR;DATADIR;EXEC" "")
  set(as COMPONENT ${component})
  if(layout_EXCLUDE_FROM_ALL)
    list(APPEND as EXCLUDE_FROM_ALL)
  endif()
  set(out ${CMAKE_CURRENT_BINARY_DIR}/${component})

  reelmoor_configure_launcher(${out}/reelmoor
    ${layout_BINDIR} ${CMAKE_INSTALL_LIBEXECDIR}/reelmoor/reelmoor ${layout_DATADIR})
  install(PROGRAMS ${out}/reelmoor DESTINATION ${layout_BINDIR} ${as})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/assets/ DESTINATION ${layout_DATADIR} ${as}
    PATTERN README.md EXCLUDE)

  set(REELMOOR_EXEC ${layout_EXEC})
  configure_file(reelmoor.desktop.in ${out}/${REELMOOR_APP_ID}.desktop @ONLY)
  install(FILES ${out}/${REELMOOR_APP_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications ${as})
  install(FILES ${REELMOOR_METAINFO}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo ${as})

  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/reelmoor.svg
    DESTINATION ${icons}/scalable/apps RENAME ${REELMOOR_APP_ID}.svg ${as})
  foreach(size 32 48 64 128 256)
    install(FILES ${PROJECT_SOURCE_DIR}/assets/reelmoor-${size}.png
      DESTINATION ${icons}/${size}x${size}/apps RENAME ${REELMOOR_APP_ID}.png ${as})
  endforeach()

  foreach(page IN LISTS REELMOOR_MANUALS)
    string(REGEX REPLACE ".*\\.([0-9])\\.gz$" "\\1" section ${page})
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} ${as})
  endforeach()
endfunction()
