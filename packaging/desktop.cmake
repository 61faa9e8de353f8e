# The menu entry, its icons (the crown, as a scalable picture and in pixel
# sizes) and the metainfo that software centres show, all under the one id.
configure_file(reelmoor.desktop.in
  ${CMAKE_CURRENT_BINARY_DIR}/${REELMOOR_APP_ID}.desktop @ONLY)
configure_file(reelmoor.metainfo.xml.in
  ${CMAKE_CURRENT_BINARY_DIR}/${REELMOOR_APP_ID}.metainfo.xml @ONLY)

install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${REELMOOR_APP_ID}.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${REELMOOR_APP_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${PROJECT_SOURCE_DIR}/assets/reelmoor.svg
  DESTINATION ${icons}/scalable/apps RENAME ${REELMOOR_APP_ID}.svg)
foreach(size 32 48 64 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/assets/reelmoor-${size}.png
    DESTINATION ${icons}/${size}x${size}/apps RENAME ${REELMOOR_APP_ID}.png)
endforeach()
