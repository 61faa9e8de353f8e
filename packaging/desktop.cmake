# SPDX-License-Identifier: GPL-2.0-or-later
# The metainfo that software centres show, under the id the menu entry and
# the icons share; its <releases> are the entries of NEWS. Each layout makes
# its own menu entry (layout.cmake), which runs the launcher where that
# layout puts it.
set(REELMOOR_RELEASES "${REELMOOR_NEWS_RELEASES_XML}")
set(REELMOOR_METAINFO ${CMAKE_CURRENT_BINARY_DIR}/${REELMOOR_APP_ID}.metainfo.xml)
configure_file(reelmoor.metainfo.xml.in ${REELMOOR_METAINFO} @ONLY)
