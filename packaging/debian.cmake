# SPDX-License-Identifier: GPL-2.0-or-later
# The Debian package: `cpack` in the build folder writes
# reelmoor_<version>_<arch>.deb from the install component `deb`, with the
# libraries it needs found by dpkg-shlibdeps (package dpkg-dev) and the fonts
# it draws its text with.

# Its documentation: the machine-readable copyright file and the changelog,
# made from NEWS (rewritten only when NEWS or the maintainer changed).
set(doc ${CMAKE_INSTALL_DATADIR}/doc/reelmoor)
set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog)
file(WRITE ${changelog}.new "${REELMOOR_NEWS_CHANGELOG}")
file(COPY_FILE ${changelog}.new ${changelog} ONLY_IF_DIFFERENT)
add_custom_command(OUTPUT ${changelog}.gz
  COMMAND ${GZIP} -9 -n -c ${changelog} > ${changelog}.gz
  DEPENDS ${changelog}
  COMMENT "Compressing the Debian changelog")
add_custom_target(reelmoor_changelog ALL DEPENDS ${changelog}.gz)
install(FILES copyright ${changelog}.gz DESTINATION ${doc} COMPONENT deb EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME reelmoor)
set(CPACK_PACKAGE_VENDOR "The reelmoor developers")
set(CPACK_PACKAGE_CONTACT "${REELMOOR_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "video slot with fifteen reels and nine pay lines")
set(CPACK_PACKAGE_INSTALL_DIRECTORY reelmoor)
# The package holds the Debian layout only.
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};${PROJECT_NAME};deb;/")
# Programs stripped of their symbols; the DEB generator puts everything below /usr.
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CHECKSUM SHA256)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Not a library the executable links: Qt finds the fonts at run time.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The long description; CPack puts the summary line above it.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A single-player video slot for the desktop. Every cell of the three-by-five
grid is a reel of its own. The player chooses one to nine pay lines, the
credits bet on each and whether wins count in one or both directions; runs
of identical symbols, of one figure or of one colour pay. The game keeps a
table of the ten best results for each player.

The package also holds reelmoor-odds, which computes the exact odds of the
pay schedule and plays random spins through the game's rules.")

# `make package_source`: the sources without version control or build folders.
set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_SOURCE_IGNORE_FILES "/\\.git/" "/build[^/]*/")

include(CPack)
