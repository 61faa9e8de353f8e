# The command players run, ${bindir}/reelmoor, is a shell script that starts
# the real executable (kept in ${libexecdir}/reelmoor) in the player's own
# folder. It finds the executable and the assets relative to itself, so the
# same script works under any prefix, in a staging DESTDIR and in the package.
file(RELATIVE_PATH REELMOOR_BIN_TO_GAME
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/reelmoor/reelmoor)
file(RELATIVE_PATH REELMOOR_BIN_TO_ASSETS
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/reelmoor)
configure_file(reelmoor.sh.in ${CMAKE_CURRENT_BINARY_DIR}/reelmoor @ONLY)
install(PROGRAMS ${CMAKE_CURRENT_BINARY_DIR}/reelmoor DESTINATION ${CMAKE_INSTALL_BINDIR})
