# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# What CPack makes of a build: three Debian packages.
#
#   fennar              the program, its components, and the libraries that both use
#   python3-fennar      the module fennar for the system's Python
#   libostrelgui-dev    what it takes to build hosts and components
#
# The preset "package" sets the directories up as Debian has them.

if(NOT OSTREL_BUILD_WORKBENCH OR NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
    return()
endif()

# The text of a file, indented and without empty lines, as Debian's control files want it.
function(ostrel_read_indented result file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${file})
    file(READ ${file} text)
    string(REGEX REPLACE "\n+$" "" text "${text}")
    string(REPLACE "\n\n" "\n.\n" text "${text}")
    string(REPLACE "\n\n" "\n.\n" text "${text}")
    string(REPLACE "\n" "\n " text "${text}")
    set(${result} " ${text}\n" PARENT_SCOPE)
endfunction()
ostrel_read_indented(ostrel_license LICENSE)
ostrel_read_indented(font_license resources/fonts/OFL.txt)
set(package_dir ${CMAKE_BINARY_DIR}/package)
configure_file(cmake/package/copyright.in ${package_dir}/copyright @ONLY)
ostrel_compress_text(CHANGELOG.md ${package_dir}/changelog.gz)
# The packaging has no history of its own.
set(package_release 1)
string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT ${package_dir}/changelog.Debian @ONLY CONTENT
"fennar (@PROJECT_VERSION@-@package_release@) unstable; urgency=medium

  * The changes are listed in changelog.gz.

 -- The Ostrel developers <>  @package_date@
")
ostrel_compress_text(${package_dir}/changelog.Debian ${package_dir}/changelog.Debian.gz)
foreach(part fennar:runtime python3-fennar:python libostrelgui-dev:development)
    string(REGEX REPLACE "(.*):(.*)" "${CMAKE_INSTALL_DATADIR}/doc/\\1;package-\\2" part ${part})
    list(GET part 0 directory)
    list(GET part 1 component)
    install(FILES ${package_dir}/copyright ${package_dir}/changelog.gz ${package_dir}/changelog.Debian.gz
        DESTINATION ${directory} COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()

# Qt's SVG plugins are loaded at run time, so no library asks for them. The release that the package is built on
# decides which package has them.
set(svg_package "qt6-svg-plugins")
execute_process(COMMAND dpkg-query --search */plugins/imageformats/libqsvg.so
    OUTPUT_VARIABLE owner ERROR_QUIET RESULT_VARIABLE failed)
if(NOT failed AND owner MATCHES "^([^:,]+)[:,]")
    set(svg_package ${CMAKE_MATCH_1})
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fennar)
set(CPACK_PACKAGE_VENDOR "The Ostrel developers")
set(CPACK_PACKAGE_CONTACT "The Ostrel developers")
set(CPACK_PACKAGE_DIRECTORY ${package_dir})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${package_release})
set(CPACK_COMPONENTS_ALL runtime python development package-runtime package-python package-development)

set(CPACK_DEBIAN_FENNAR_PACKAGE_NAME fennar)
set(CPACK_DEBIAN_FENNAR_PACKAGE_SECTION science)
set(CPACK_DEBIAN_FENNAR_DESCRIPTION "workbench for geometry and meshing
Fennar makes solids with a CAD kernel, combines them, fills them with
tetrahedral meshes, and reads and writes STEP, BREP, STL, MSH and other files.
It is driven by menus, by commands on its console, by journals and by Python,
with a window or in batch runs.
.
The package also has the library ostrelgui, the graphical shell that the
program is built on.")
set(CPACK_DEBIAN_FENNAR_PACKAGE_SHLIBDEPS ON)
# Other packages that link its libraries depend on this very version.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_FENNAR_PACKAGE_DEPENDS ${svg_package})
# OpenGL without a graphics card; the program that Python code finds as sys.executable; Qt's own texts in other languages.
set(CPACK_DEBIAN_FENNAR_PACKAGE_RECOMMENDS "libgl1-mesa-dri, python3, qt6-translations-l10n")
set(CPACK_DEBIAN_FENNAR_PACKAGE_SUGGESTS "python3-fennar, libostrelgui-dev")
set(CPACK_DEBIAN_FENNAR_PACKAGE_CONTROL_EXTRA ${CMAKE_SOURCE_DIR}/cmake/package/triggers)

# The shared object in it is for one version of Python.
string(REGEX MATCH "^([0-9]+)[.]([0-9]+)" python_version ${FENNAR_PYTHON_VERSION})
math(EXPR python_next "${CMAKE_MATCH_2} + 1")
set(CPACK_DEBIAN_MODULE_PACKAGE_NAME python3-fennar)
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION python)
set(CPACK_DEBIAN_MODULE_DESCRIPTION "workbench for geometry and meshing (module for Python 3)
The module fennar has the commands of the workbench fennar as functions for
scripts and notebooks, without a window and without a display: solids are made
and combined, filled with tetrahedral meshes, and files of several formats read
and written.")
set(CPACK_DEBIAN_MODULE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_MODULE_PACKAGE_DEPENDS "fennar (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), \
python3 (>= ${python_version}), python3 (<< ${CMAKE_MATCH_1}.${python_next})")
set(CPACK_DEBIAN_MODULE_PACKAGE_RECOMMENDS "python3-numpy")
# They compile its sources and remove what that has left.
set(CPACK_DEBIAN_MODULE_PACKAGE_CONTROL_EXTRA
    "${CMAKE_SOURCE_DIR}/cmake/package/postinst;${CMAKE_SOURCE_DIR}/cmake/package/prerm")
set(CPACK_DEBIAN_MODULE_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_LIBOSTRELGUI_PACKAGE_NAME libostrelgui-dev)
set(CPACK_DEBIAN_LIBOSTRELGUI_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBOSTRELGUI_DESCRIPTION "graphical shell for engineering applications (development files)
The headers of the library ostrelgui, the CMake packages OstrelGui and
FennarSdk, and a file for pkg-config. With them hosts of the shell are built,
and components of the workbench fennar.")
set(CPACK_DEBIAN_LIBOSTRELGUI_PACKAGE_DEPENDS
    "fennar (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), qt6-base-dev (>= 6.4), libgl-dev")
# What compiles the translations of components.
set(CPACK_DEBIAN_LIBOSTRELGUI_PACKAGE_RECOMMENDS "qt6-tools-dev, qt6-tools-dev-tools, qt6-l10n-tools")
set(CPACK_DEBIAN_LIBOSTRELGUI_PACKAGE_SUGGESTS "cmake (>= 3.25), pkgconf")

include(CPack)
cpack_add_component_group(fennar)
cpack_add_component_group(module)
cpack_add_component_group(libostrelgui)
cpack_add_component(runtime GROUP fennar)
cpack_add_component(package-runtime GROUP fennar)
cpack_add_component(python GROUP module)
cpack_add_component(package-python GROUP module)
cpack_add_component(development GROUP libostrelgui)
cpack_add_component(package-development GROUP libostrelgui)
