# Fails unless what is installed works where it is installed. Run as:
# cmake -DBUILD_DIR=<built> -DINSTALL_DIR=<of the executables, below the prefix> -DMETAFILE=<any> -P cmake/check_installation.cmake

cmake_minimum_required(VERSION 3.25)

set(root ${BUILD_DIR}/installation)
set(prefix ${root}/prefix)
file(REMOVE_RECURSE ${root})
file(MAKE_DIRECTORY ${root})

# Runs a command in the scratch folder. What it prints is told only if it fails.
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${root} RESULT_VARIABLE result OUTPUT_VARIABLE output
                    ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}: ${result}\n${output}")
    endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# A person starts only what has a manual page; the helpers lie beside the executables.
file(GLOB links RELATIVE ${prefix}/bin ${prefix}/bin/*)
if(NOT links STREQUAL "sheetwright;sheetwright-cli;sheetwright-viewer")
    message(FATAL_ERROR "bin holds \"${links}\"")
endif()
file(READ_SYMLINK ${prefix}/bin/sheetwright-cli target)
if(IS_ABSOLUTE ${target})
    message(FATAL_ERROR "the link leads to ${target}, which can't be moved")
endif()
foreach(file IN ITEMS ${INSTALL_DIR}/sheetwright-wmf ${INSTALL_DIR}/papersizes.csv ${INSTALL_DIR}/help/index.html
                      share/man/man1/sheetwright.1 share/man/man1/sheetwright-cli.1
                      share/man/man1/sheetwright-viewer.1)
    if(NOT EXISTS ${prefix}/${file})
        message(FATAL_ERROR "${file} is not installed")
    endif()
endforeach()

# Started through its link, the program finds its data files and the program that draws metafiles. The tree is
# moved before, as packages are.
file(RENAME ${prefix} ${root}/moved)
file(WRITE ${root}/form.aff [[VERSION 1.0.0
BEGIN DESIGN
BEGIN PAGE 1
Title=Cover
Orientation=2
PaperSize=11
BEGIN FIELD
Name=Picture
FieldType=1
BorderStyle=0
AbsLeft=0
AbsTop=0
Width=3000
Height=2000
END FIELD
END PAGE
END DESIGN
BEGIN DATA
BEGIN PAGE 1 DESIGN=1
Picture=drawing.wmf
END PAGE
END DATA
]])
configure_file(${METAFILE} ${root}/drawing.wmf COPYONLY)
run(${CMAKE_COMMAND} -E tar cf archive.aff --format=zip form.aff drawing.wmf)
run(${CMAKE_COMMAND} -E env TMPDIR=${root} XDG_CONFIG_HOME=${root} XDG_DATA_HOME=${root}
    moved/bin/sheetwright-cli render archive.aff --png page.png)
file(READ ${root}/page.png header OFFSET 16 LIMIT 8 HEX)
if(NOT header STREQUAL "0000031a0000022f") # A5 on its side: 794 by 559
    message(FATAL_ERROR "page.png has another size: ${header}")
endif()
file(REMOVE_RECURSE ${root})
