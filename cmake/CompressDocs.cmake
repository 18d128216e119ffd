# Before a package is made: its man pages and its changelog are compressed, as Debian has them.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*.[1-9])
file(GLOB changelogs ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog)
execute_process(COMMAND gzip -9n ${pages} ${changelogs} COMMAND_ERROR_IS_FATAL ANY)
