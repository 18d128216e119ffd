# cmake --install: the programs, their man pages, what a desktop needs to show Quillet in its menu, and what
# runs the service. Two components, each with all of its own: quillet (the window) and zentrel (the server and
# its command line). "unpackaged" is what a package brings in a form of its own.
include(GNUInstallDirs)

install(TARGETS quillet RUNTIME COMPONENT quillet)
install(TARGETS zentreld zentrelctl RUNTIME COMPONENT zentrel)

set(pages ${PROJECT_SOURCE_DIR}/docs/man)
install(FILES ${pages}/quillet.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT quillet)
install(FILES ${pages}/zentrelctl.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT zentrel)
install(FILES ${pages}/zentreld.8 DESTINATION ${CMAKE_INSTALL_MANDIR}/man8 COMPONENT zentrel)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${packaging}/quillet.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
  COMPONENT quillet)
install(FILES ${packaging}/quillet.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  RENAME example.quillet.quillet.metainfo.xml COMPONENT quillet)
install(FILES ${packaging}/quillet.svg DESTINATION ${icons}/scalable/apps COMPONENT quillet)
install(FILES ${packaging}/quillet-symbolic.svg DESTINATION ${icons}/symbolic/apps COMPONENT quillet)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT unpackaged)

# The service: its unit, which names the program where this installation puts it, its user, and a
# configuration to begin with, which an installation does not replace.
set(ZENTREL_SYSTEMD_DIR lib/systemd/system CACHE STRING "Where systemd units go, below the prefix")
install(CODE "set(CMAKE_INSTALL_FULL_BINDIR \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  configure_file(${packaging}/zentreld.service ${PROJECT_BINARY_DIR}/zentreld.service @ONLY)"
  COMPONENT zentrel)
install(FILES ${PROJECT_BINARY_DIR}/zentreld.service DESTINATION ${ZENTREL_SYSTEMD_DIR} COMPONENT zentrel)
install(FILES ${packaging}/zentrel.sysusers DESTINATION lib/sysusers.d RENAME zentrel.conf
  COMPONENT zentrel)
install(FILES ${packaging}/zentreld.conf DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zentrel/examples
  COMPONENT unpackaged)
