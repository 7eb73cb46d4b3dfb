# The Debian package, made by CPack from the install rules; scripts/package makes and tries it.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${KORVANE_PACKAGE})
set(CPACK_PACKAGE_VENDOR "Import SVG for Korvane")
set(CPACK_PACKAGE_CONTACT "Import SVG for Korvane <import-svg@korvane.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_SOURCE_DIR}/build/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "SVG import for CAD drawings")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Converts SVG files to DWG and DXF drawings. svg2dwg does so from the
command line, for single files and for whole folders; the Reference Host
is a CAD window in which the import add-in for Korvane runs.

Files are prepared first, so that drawings look like them.")
# What the programs link to is found by its symbols; they also start or load these.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "nodejs (>= 18), libqt5svg5, fonts-dejavu-core | fonts-liberation | fonts-freefont-ttf")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qttranslations5-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qtwayland5")

include(CPack)
