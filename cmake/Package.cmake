# cpack: the Debian packages quillet and zentrel, from the components of the same names (Install.cmake).
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)

# What only a package has: Debian's papers, and the configuration, which dpkg keeps as the administrator left
# it.
foreach(package quillet zentrel)
  install(FILES ${debian}/changelog ${debian}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    COMPONENT ${package} EXCLUDE_FROM_ALL)
endforeach()
install(FILES ${packaging}/zentreld.conf DESTINATION /etc/zentrel COMPONENT zentrel EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CONTACT "The Quillet maintainers <maintainers@quillet.example>")
set(CPACK_COMPONENTS_ALL quillet zentrel)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/CompressDocs.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://quillet.example/)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Its pictures are SVG, read through a plugin that no program is linked to; file types come from a database.
set(CPACK_DEBIAN_QUILLET_PACKAGE_NAME quillet)
set(CPACK_DEBIAN_QUILLET_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_QUILLET_PACKAGE_DEPENDS "libqt6svg6, shared-mime-info")
set(CPACK_DEBIAN_QUILLET_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n, zentrel (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_QUILLET_PACKAGE_SUGGESTS "odbc-postgresql, odbc-mariadb, tdsodbc, libsqliteodbc")
set(CPACK_DEBIAN_QUILLET_DESCRIPTION "looks into the cache of a Zentrel server
Zentrel compresses web responses and keeps the results as files, with a
record of each. Quillet shows this cache as a tree of web sites, folders,
virtual directories and cached URLs, deletes from it, follows the server's
counters and exports what it sees to files and, through ODBC, to databases.
.
The server may be this machine's, another one's, or a demonstration made from
files of this machine (quillet --demo).")

set(CPACK_DEBIAN_ZENTREL_PACKAGE_NAME zentrel)
set(CPACK_DEBIAN_ZENTREL_PACKAGE_SOURCE quillet)
set(CPACK_DEBIAN_ZENTREL_PACKAGE_SECTION httpd)
set(CPACK_DEBIAN_ZENTREL_PACKAGE_DEPENDS "systemd | systemd-standalone-sysusers | systemd-sysusers")
set(CPACK_DEBIAN_ZENTREL_PACKAGE_SUGGESTS quillet)
set(CPACK_DEBIAN_ZENTREL_PACKAGE_CONTROL_EXTRA
  ${debian}/zentrel/conffiles ${debian}/zentrel/postinst ${debian}/zentrel/prerm ${debian}/zentrel/postrm)
set(CPACK_DEBIAN_ZENTREL_DESCRIPTION "HTTP compression service with a cache folder
Zentrel compresses web responses and keeps the results as files, with a
record of each: sizes, dates, compression level, hits.
.
This package has zentreld, which keeps the cache in order and offers its
administration to this machine and, over TLS, to others; and zentrelctl, which
sets a server up, fills its cache and looks into it. The service is enabled
once its data folder has been made.")

include(CPack)
