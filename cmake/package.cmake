# The Debian package: what is installed, below /usr. Its triggers for the caches of icons, types and menus come from
# where the files lie.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sheetwright)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Sheetwright authors <maintainers@sheetwright.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "fill in, calculate and print multi-page test forms")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Sheetwright fills in multi-page test forms: the sheets on which an engineer
records what was measured, and which somebody signs at the end. You pick a
template and type into it; the form's own formulas derive the totals and
verdicts; the form is saved as one archive that carries its values, its design
and its pictures.
.
The package holds the program with windows, a viewer that changes nothing, the
report engine that other programs drive, and the command line sheetwright-cli.")
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Not linked: the reader of the icons, and the fonts that stand in for those which forms name.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups, qt6-wayland")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/compress_documents.cmake)
configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
set(CPACK_SHEETWRIGHT_CHANGELOG ${PROJECT_BINARY_DIR}/packaging/changelog)
include(CPack)
