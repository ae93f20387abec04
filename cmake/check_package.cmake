# Fails unless a Debian package comes out of what is built, with what it needs and with nothing outside /usr. Run as:
# cmake -DBUILD_DIR=<built> -P cmake/check_package.cmake

cmake_minimum_required(VERSION 3.25)

set(root ${BUILD_DIR}/package)
file(REMOVE_RECURSE ${root})
file(MAKE_DIRECTORY ${root})

function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${root} RESULT_VARIABLE result OUTPUT_VARIABLE text
                    ERROR_VARIABLE text)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}: ${result}\n${text}")
    endif()
    set(output "${text}" PARENT_SCOPE)
endfunction()

run(${CMAKE_CPACK_COMMAND} --config ${BUILD_DIR}/CPackConfig.cmake -G DEB -B ${root} -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip)
file(GLOB package ${root}/sheetwright_*.deb)

# The libraries are found by what is linked; the others are known by nobody but us.
run(dpkg-deb --field ${package} Depends)
foreach(needed IN ITEMS libqt6widgets6 libqt6printsupport6 libzip4 libwmflite libqt6svg6 fonts-liberation)
    if(NOT output MATCHES "${needed}")
        message(FATAL_ERROR "The package lacks ${needed}: ${output}")
    endif()
endforeach()

run(dpkg-deb --contents ${package})
string(REGEX MATCHALL "[^\n]+" lines "${output}")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^[d-]rw[x-]r-[x-]r-[x-] root/root .* \\./(usr/.*)?$"
       AND NOT line MATCHES "^lrwxrwxrwx root/root .* \\./usr/bin/.* -> \\.\\./lib/sheetwright/")
        message(FATAL_ERROR "Out of place, or open to others: ${line}")
    endif()
endforeach()
foreach(file IN ITEMS bin/sheetwright lib/sheetwright/sheetwright-wmf share/applications/sheetwright.desktop
                      share/doc/sheetwright/changelog.gz share/doc/sheetwright/copyright share/man/man1/sheetwright.1.gz
                      share/mime/packages/sheetwright.xml)
    if(NOT output MATCHES " \\./usr/${file}[ \n]")
        message(FATAL_ERROR "The package lacks ${file}")
    endif()
endforeach()
file(REMOVE_RECURSE ${root})
