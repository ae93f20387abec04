# Run by CPack over the staged files: Debian wants a changelog of its own form, and it and the manual pages compressed.
find_program(GZIP gzip REQUIRED)
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
configure_file(${CPACK_SHEETWRIGHT_CHANGELOG} ${usr}/share/doc/sheetwright/changelog COPYONLY)
file(GLOB documents ${usr}/share/man/man1/*.1 ${usr}/share/doc/sheetwright/changelog)
execute_process(COMMAND ${GZIP} -9nf ${documents} COMMAND_ERROR_IS_FATAL ANY)
