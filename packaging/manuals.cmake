# The manual pages, compressed as distributions keep them.
find_program(GZIP gzip REQUIRED)
set(manuals)
foreach(page reelmoor-odds.1 reelmoor.6)
  string(REGEX REPLACE ".*\\.([0-9])$" "\\1" section ${page})
  set(packed ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND ${GZIP} -9 -n -c ${CMAKE_CURRENT_SOURCE_DIR}/${page} > ${packed}
    DEPENDS ${page}
    COMMENT "Compressing the manual page ${page}")
  install(FILES ${packed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
  list(APPEND manuals ${packed})
endforeach()
add_custom_target(reelmoor_manuals ALL DEPENDS ${manuals})
