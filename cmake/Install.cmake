# cmake --install: the programs, their man pages, and what a desktop needs to show Quillet in its menu.
include(GNUInstallDirs)

foreach(program quillet zentreld zentrelctl)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME)
  endif()
endforeach()

foreach(section 1 5 8)
  file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.${section})
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillet.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillet.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
