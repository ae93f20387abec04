# Fails unless what is installed works where it is installed, for a user who may write nothing there. Run as:
# cmake -DBUILD_DIR=<built> -DINSTALL_DIR=<of the executables, below the prefix> -DMETAFILE=<any> -P cmake/check_installation.cmake

cmake_minimum_required(VERSION 3.25)

# A build folder may be closed to other users, the folder for temporary files is not.
execute_process(COMMAND mktemp -d -t sheetwright-installation.XXXXXX OUTPUT_VARIABLE root
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(prefix ${root}/prefix)
set(home ${root}/home)

# Files that nobody may write can still be removed by root or after they were opened again.
function(clean_up)
    execute_process(COMMAND chmod -R u+w ${root} ERROR_QUIET)
    file(REMOVE_RECURSE ${root})
endfunction()

function(fail text)
    clean_up()
    message(FATAL_ERROR "${text}")
endfunction()

# Runs a command in the user's folder. What it prints is told only if it fails, and left in `output`.
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${home} RESULT_VARIABLE result OUTPUT_VARIABLE text
                    ERROR_VARIABLE text)
    if(NOT result EQUAL 0)
        fail("${ARGN}: ${result}\n${text}")
    endif()
    set(output "${text}" PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY ${home}/run)
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# A person starts only what has a manual page; the helpers lie beside the executables.
file(GLOB links RELATIVE ${prefix}/bin ${prefix}/bin/*)
if(NOT links STREQUAL "sheetwright;sheetwright-cli;sheetwright-list-editor;sheetwright-report;sheetwright-viewer")
    fail("bin holds \"${links}\"")
endif()
foreach(program IN LISTS links)
    file(READ_SYMLINK ${prefix}/bin/${program} target)
    if(IS_ABSOLUTE ${target})
        fail("the link leads to ${target}, which can't be moved")
    endif()
    if(NOT EXISTS ${prefix}/share/man/man1/${program}.1)
        fail("${program} has no manual page")
    endif()
endforeach()
foreach(file IN ITEMS ${INSTALL_DIR}/papersizes.csv ${INSTALL_DIR}/help/index.html share/doc/sheetwright/copyright)
    if(NOT EXISTS ${prefix}/${file})
        fail("${file} is not installed")
    endif()
endforeach()

# No executable remembers where it was built.
foreach(program IN LISTS links ITEMS sheetwright-wmf)
    run(readelf -d ${prefix}/${INSTALL_DIR}/${program})
    if(output MATCHES "R(UN)?PATH")
        fail("${program} looks for libraries where it was built")
    endif()
endforeach()

# The desktop's own tools take what they are given, and find what it names.
file(GLOB entries ${prefix}/share/applications/*.desktop)
run(desktop-file-validate --warn-kde ${entries})
run(update-desktop-database ${prefix}/share/applications)
run(update-mime-database ${prefix}/share/mime)
file(GLOB metainfo ${prefix}/share/metainfo/*.metainfo.xml)
run(appstreamcli validate --no-net ${metainfo})
file(STRINGS ${prefix}/share/applications/mimeinfo.cache handlers REGEX "^application/")
string(REPLACE "\\;" " " handlers "${handlers}")
if(NOT handlers MATCHES "sheetwright-form=sheetwright.desktop" OR NOT handlers MATCHES "sheetwright-template=sheetwright.desktop")
    fail("another program opens the forms: ${handlers}")
endif()
file(STRINGS ${prefix}/share/mime/globs globs REGEX "^application/")
if(NOT globs MATCHES "x-sheetwright-form:\\*\\.aff" OR NOT globs MATCHES "x-sheetwright-template:\\*\\.aft")
    fail("the endings lead to no type: ${globs}")
endif()
foreach(entry IN LISTS entries)
    file(STRINGS ${entry} program REGEX "^Exec=")
    string(REGEX REPLACE "^Exec=([^ ]+).*" "bin/\\1" program "${program}")
    file(STRINGS ${entry} icon REGEX "^Icon=")
    string(REGEX REPLACE "^Icon=(.+)" "share/icons/hicolor/scalable/apps/\\1.svg" icon "${icon}")
    if(NOT EXISTS ${prefix}/${program} OR NOT EXISTS ${prefix}/${icon})
        fail("${entry} names ${program} and ${icon}")
    endif()
endforeach()
foreach(size IN ITEMS 16 32 48 128 256)
    file(GLOB icons ${prefix}/share/icons/hicolor/${size}x${size}/*/*.png)
    list(LENGTH icons count)
    math(EXPR side "${size}" OUTPUT_FORMAT HEXADECIMAL)
    string(REGEX REPLACE "^0x" "0000000" side ${side})
    string(REGEX REPLACE "^.*(........)$" "\\1" side ${side})
    foreach(icon IN LISTS icons)
        file(READ ${icon} header OFFSET 16 LIMIT 8 HEX)
        if(NOT header STREQUAL "${side}${side}")
            fail("${icon} has another size: ${header}")
        endif()
    endforeach()
    if(NOT count EQUAL 4)
        fail("icons of ${size} pixels: ${icons}")
    endif()
endforeach()

# From here on as a user who can read only. The tree is moved before, as packages are.
file(RENAME ${prefix} ${root}/moved)
file(WRITE ${home}/form.aff [[VERSION 1.0.0
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
configure_file(${METAFILE} ${home}/drawing.wmf COPYONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/start_and_close.sh ${home}/start_and_close.sh COPYONLY)
run(${CMAKE_COMMAND} -E tar cf archive.aff --format=zip form.aff drawing.wmf)

execute_process(COMMAND id -u OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
set(as_user "")
if(user EQUAL 0)
    set(as_user setpriv --reuid=65534 --regid=65534 --clear-groups)
    run(chmod 755 ${root})
    run(chown -R 65534:65534 ${home})
endif()
run(chmod 700 ${home}/run)
run(chmod -R a-w ${root}/moved)
list(APPEND as_user ${CMAKE_COMMAND} -E env --unset=XDG_DATA_DIRS HOME=${home} TMPDIR=${home} XDG_RUNTIME_DIR=${home}/run
            XDG_CONFIG_HOME=${home}/config XDG_DATA_HOME=${home}/data QT_QPA_PLATFORM=offscreen
            CUPS_SERVER=${home}/run/no-spooler)
set(programs ${root}/moved/bin)
set(samples ${root}/moved/${INSTALL_DIR}/samples)
set(written ${home}/data/sheetwright)

run(${as_user} sh -c "! touch ${root}/moved/${INSTALL_DIR}/probe 2>/dev/null")

# Started through its link, the command line finds its data files and the program that draws metafiles.
run(${as_user} ${programs}/sheetwright-cli render archive.aff --png page.png)
file(READ ${home}/page.png header OFFSET 16 LIMIT 8 HEX)
if(NOT header STREQUAL "0000031a0000022f") # A5 on its side: 794 by 559
    fail("page.png has another size: ${header}")
endif()
set(sample ${samples}/calibration_certificate.aff)
run(${as_user} ${programs}/sheetwright-cli info ${sample})
run(${as_user} ${programs}/sheetwright-cli fill ${sample} --set "1:Customer=Marlow" --save copy.aff --pdf copy.pdf)
run(${as_user} ${programs}/sheetwright-cli values copy.aff --page 1)
if(NOT output MATCHES "\tCustomer\tMarlow\n")
    fail("the copy holds:\n${output}")
endif()
if(EXISTS ${written}/errors.csv)
    file(READ ${written}/errors.csv log)
    fail("failures were logged:\n${log}")
endif()

# The programs with windows unpack a form into the user's data folder, show it unless they are driven by a host, and
# leave nothing behind when they are asked to end.
function(check_window program title is_shown)
    run(${as_user} ./start_and_close.sh "${written}/TEMP/*/copy.aff" ${programs}/${program} copy.aff)
    file(GLOB_RECURSE left ${written}/TEMP/*)
    if(left OR EXISTS ${written}/errors.csv)
        fail("${program} leaves ${left}, or errors.csv")
    endif()
    file(READ "${home}/config/sheetwright/${title}.ini" settings)
    string(FIND "${settings}" "MainWidth=" at) # stored when a window is closed
    if((at EQUAL -1 AND is_shown) OR (NOT at EQUAL -1 AND NOT is_shown))
        fail("${program} was shown, or was not:\n${settings}")
    endif()
endfunction()
check_window(sheetwright "Tolvane Quillon Sheetwright" ON)
check_window(sheetwright-viewer "Tolvane Ketterlin Professional Viewer" ON)
file(WRITE "${home}/config/sheetwright/Tolvane Reports.ini" "")
check_window(sheetwright-report "Tolvane Reports" OFF)

# What can't be read is logged where the user may write.
file(WRITE ${home}/bad.aff "PK\nand nothing more")
execute_process(COMMAND ${as_user} ${programs}/sheetwright-cli info bad.aff WORKING_DIRECTORY ${home}
                RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
if(NOT result EQUAL 1 OR NOT EXISTS ${written}/errors.csv)
    fail("no failure was logged: ${result}")
endif()
clean_up()
