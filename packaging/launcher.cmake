# SPDX-License-Identifier: GPL-2.0-or-later
# The command players run, <bindir>/reelmoor, is a shell script that starts
# the real executable (kept in <libexecdir>/reelmoor) in the player's own
# folder. It finds the executable and the assets relative to itself, so the
# same script works under any prefix, in a staging DESTDIR and in the package.

# reelmoor_configure_launcher(<output> <bindir> <game> <datadir>), the last
# three relative to the install prefix (or absolute).
function(reelmoor_configure_launcher output bindir game datadir)
  foreach(path bindir game datadir)
    if(NOT IS_ABSOLUTE ${${path}})
      set(${path} ${CMAKE_INSTALL_PREFIX}/${${path}})
    endif()
  endforeach()
  file(RELATIVE_PATH REELMOOR_BIN_TO_GAME ${bindir} ${game})
  file(RELATIVE_PATH REELMOOR_BIN_TO_ASSETS ${bindir} ${datadir})
  configure_file(${CMAKE_CURRENT_SOURCE_DIR}/reelmoor.sh.in ${output} @ONLY)
endfunction()
