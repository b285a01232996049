# The .deb that scripts/package_deb.sh makes.
file(STRINGS ${CMAKE_SOURCE_DIR}/src/embedded/host.h version REGEX "velmar_version = ")
string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" version "${version}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmar)
set(CPACK_PACKAGE_VERSION ${version})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Velmar developers <velmar@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, libcairo2")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "drawing-editing commands for CAD drafters
Runs the methods of a toolbox for draftsmen, detailers and CAD managers on DXF
drawings, text and binary, from R12 to the newest: texts, layers, lengths and
areas, hatches, dimensions, whole folders. What a command does not change keeps
every byte.")
include(CPack)
