# Installed: the executables with their data files in one folder, links to them in bin.
include(GNUInstallDirs)
set(SHEETWRIGHT_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/sheetwright)
