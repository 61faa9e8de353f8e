# SPDX-License-Identifier: GPL-2.0-or-later
# The manual pages, with the version and the month of the release filled in
# and compressed as distributions keep them. REELMOOR_MANUALS lists the
# compressed pages for the layouts to install.
find_program(GZIP gzip REQUIRED)
string(REGEX MATCH "^([0-9]+)-([0-9]+)" date ${REELMOOR_RELEASE_DATE})
set(months January February March April May June July August September October November December)
math(EXPR month "1${CMAKE_MATCH_2} - 101")
list(GET months ${month} month)
set(REELMOOR_MANUAL_DATE "${month} ${CMAKE_MATCH_1}")

set(REELMOOR_MANUALS)
foreach(page reelmoor-odds.1 reelmoor-picture-check.1 reelmoor.6)
  set(filled ${CMAKE_CURRENT_BINARY_DIR}/${page})
  configure_file(${page} ${filled} @ONLY)
  set(packed ${filled}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND ${GZIP} -9 -n -c ${filled} > ${packed}
    DEPENDS ${filled}
    COMMENT "Compressing the manual page ${page}")
  list(APPEND REELMOOR_MANUALS ${packed})
endforeach()
add_custom_target(reelmoor_manuals ALL DEPENDS ${REELMOOR_MANUALS})
