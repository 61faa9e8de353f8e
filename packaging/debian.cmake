# The Debian package: `cpack` in the build folder writes
# reelmoor_<version>_<arch>.deb, with the libraries it needs found by
# dpkg-shlibdeps (package dpkg-dev) and the fonts it draws its text with.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME reelmoor)
set(CPACK_PACKAGE_VENDOR "The reelmoor developers")
# Whoever publishes the package puts their own address here.
set(REELMOOR_PACKAGE_MAINTAINER "The reelmoor developers <maintainers@reelmoor.invalid>"
  CACHE STRING "Maintainer field of the Debian package")
set(CPACK_PACKAGE_CONTACT "${REELMOOR_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "video slot with fifteen reels and nine pay lines")
set(CPACK_PACKAGE_INSTALL_DIRECTORY reelmoor)
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
