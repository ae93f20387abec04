# Installed: the executables with their data files in one folder, links in bin to those that a person starts, the
# manual pages. What the desktop learns of them is installed by packaging/.
set(SHEETWRIGHT_INSTALL_DIR lib/sheetwright CACHE STRING "Folder of the executables and their data, below the prefix")

install(DIRECTORY ${PROJECT_SOURCE_DIR}/share/ DESTINATION ${SHEETWRIGHT_INSTALL_DIR}
        PATTERN CMakeLists.txt EXCLUDE
        PATTERN ".*" EXCLUDE)

get_property(programs DIRECTORY ${PROJECT_SOURCE_DIR}/src/apps PROPERTY BUILDSYSTEM_TARGETS)
add_custom_target(installed) # all that an installation needs
foreach(program IN LISTS programs)
    get_target_property(type ${program} TYPE)
    if(NOT type STREQUAL EXECUTABLE)
        continue()
    endif()
    add_dependencies(installed ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${SHEETWRIGHT_INSTALL_DIR})
    get_target_property(is_helper ${program} SHEETWRIGHT_HELPER)
    if(is_helper)
        continue()
    endif()
    # Relative, so that the tree can be staged or moved.
    file(RELATIVE_PATH target /${CMAKE_INSTALL_BINDIR} /${SHEETWRIGHT_INSTALL_DIR}/${program})
    install(CODE "
        set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(MAKE_DIRECTORY \"\${folder}\")
        file(CREATE_LINK \"${target}\" \"\${folder}/${program}\" SYMBOLIC)
        message(STATUS \"Installing: \${folder}/${program}\")")
endforeach()
add_dependencies(installed sheetwright_icons)

file(GLOB manual_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.1)
install(FILES ${manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
