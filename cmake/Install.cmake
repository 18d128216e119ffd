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

# The service: its unit, its user, and a configuration to begin with, which an installation does not replace.
set(ZENTREL_SYSTEMD_DIR lib/systemd/system CACHE STRING "Where systemd units go, below the prefix")
configure_file(${PROJECT_SOURCE_DIR}/packaging/zentreld.service ${PROJECT_BINARY_DIR}/zentreld.service
  @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zentreld.service DESTINATION ${ZENTREL_SYSTEMD_DIR})
install(FILES ${PROJECT_SOURCE_DIR}/packaging/zentrel.sysusers DESTINATION lib/sysusers.d RENAME zentrel.conf)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/zentreld.conf
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zentrel/examples)
