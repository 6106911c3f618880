# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# What `cmake --install` puts below the prefix: the program with its components and its place on the desktop, the libraries,
# the headers of the classes that components and hosts use, the CMake packages OstrelGui and FennarSdk, and the pkg-config file
# ostrelgui.
#
# Two install components: "runtime" is what it takes to run the program, "development" what it takes to build against it.

include(CMakePackageConfigHelpers)

set(ostrel_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/ostrel)
set(ostrel_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake)

# Compresses a text of the tree, or one that has been made.
function(ostrel_compress_text source target)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    if(NOT source MATCHES "^${CMAKE_BINARY_DIR}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    endif()
    # Without name and time, so that the same text gives the same file.
    execute_process(COMMAND gzip -9nc INPUT_FILE ${source} OUTPUT_FILE ${target} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(OSTREL_BUILD_WORKBENCH)
    # The program reads its navigation files and finds its components in the folder that it lies in; these are installed where
    # they are declared. Folders are no use in a directory of commands, so it has one of its own, and what is there is a link
    # to it.
    set(program_dir ${CMAKE_INSTALL_LIBDIR}/fennar)
    set_target_properties(fennar PROPERTIES INSTALL_RPATH "$ORIGIN/..")
    install(TARGETS fennar DESTINATION ${program_dir})
    file(RELATIVE_PATH program ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/fennar/fennar)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install)
    file(CREATE_LINK ${program} ${CMAKE_BINARY_DIR}/install/fennar SYMBOLIC)
    install(FILES ${CMAKE_BINARY_DIR}/install/fennar DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY workbench/journals DESTINATION ${CMAKE_INSTALL_DATADIR}/fennar)
    # What a component of one's own begins with; see docs/component-guide.md.
    install(DIRECTORY workbench/components/template DESTINATION ${CMAKE_INSTALL_DATADIR}/fennar)

    ostrel_compress_text(workbench/desktop/fennar.1 ${CMAKE_BINARY_DIR}/install/fennar.1.gz)
    install(FILES ${CMAKE_BINARY_DIR}/install/fennar.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

    # Its place on the desktop.
    install(FILES workbench/desktop/fennar.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES workbench/desktop/fennar.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES resources/images/light/fennar.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    install(FILES workbench/application/product.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps RENAME fennar.png)
    install(FILES workbench/desktop/fennar-48.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/48x48/apps
        RENAME fennar.png)
endif()

# Before version 1 each minor version may change the interface, and so the name that programs look for. The component kit has a
# version of its own. Its core is what the host libraries use, so that it comes before the shell, and the rest behind it.
function(ostrel_install_libraries set)
    cmake_parse_arguments(arg "" "PACKAGE;VERSION" "TARGETS" ${ARGN})
    string(REGEX MATCH "^[0-9]+[.][0-9]+" interface ${arg_VERSION})
    set_target_properties(${arg_TARGETS} PROPERTIES VERSION ${arg_VERSION} SOVERSION ${interface})
    install(TARGETS ${arg_TARGETS} EXPORT ${set}Targets
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${ostrel_include_dir} COMPONENT development
        INCLUDES DESTINATION ${ostrel_include_dir})
    install(EXPORT ${set}Targets NAMESPACE ${arg_PACKAGE}:: DESTINATION ${ostrel_package_dir}/${arg_PACKAGE} COMPONENT development)
    foreach(target IN LISTS arg_TARGETS)
        get_target_property(headers ${target} HEADER_SET)
        if(headers)
            list(TRANSFORM headers REPLACE "^${CMAKE_SOURCE_DIR}/(.*)" "\\1\n")
            file(APPEND ${CMAKE_BINARY_DIR}/install/headers.txt ${headers})
        endif()
    endforeach()
endfunction()

# The files by which CMake finds a package; FILES come with them.
function(ostrel_install_package package)
    cmake_parse_arguments(arg "" "VERSION" "FILES" ${ARGN})
    set(folder ${ostrel_package_dir}/${package})
    set(config ${CMAKE_BINARY_DIR}/cmake/${package}Config)
    configure_package_config_file(cmake/${package}Config.cmake.in ${config}.cmake
        INSTALL_DESTINATION ${folder} PATH_VARS OSTREL_SHELL_TRANSLATIONS)
    write_basic_package_version_file(${config}Version.cmake VERSION ${arg_VERSION} COMPATIBILITY SameMinorVersion)
    install(FILES ${config}.cmake ${config}Version.cmake ${arg_FILES} DESTINATION ${folder} COMPONENT development)
endfunction()

file(WRITE ${CMAKE_BINARY_DIR}/install/headers.txt "")
set(libraries ostrelgui)
if(OSTREL_BUILD_WORKBENCH)
    set_target_properties(fennar_core PROPERTIES EXPORT_NAME core)
    set_target_properties(fennar_component PROPERTIES EXPORT_NAME component)
    ostrel_install_libraries(FennarSdkCore PACKAGE FennarSdk VERSION ${FENNAR_SDK_VERSION} TARGETS fennar_core)
    ostrel_install_libraries(FennarSdk PACKAGE FennarSdk VERSION ${FENNAR_SDK_VERSION} TARGETS fennar_component)
    ostrel_install_package(FennarSdk VERSION ${FENNAR_SDK_VERSION} FILES cmake/FennarSdkComponent.cmake)
    list(APPEND libraries fennar_util fennari19 fennar_python navigation ostrelfw)
endif()
ostrel_install_libraries(OstrelGui PACKAGE OstrelGui VERSION ${PROJECT_VERSION} TARGETS ${libraries})
ostrel_install_package(OstrelGui VERSION ${PROJECT_VERSION})

# For pkg-config. All paths count from the file's own, so that the prefix may be moved.
file(RELATIVE_PATH prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix ${prefix})
file(RELATIVE_PATH libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR}/ostrel)
set(libraries)
foreach(library ostrelgui ${OSTREL_HOST_LIBRARIES})
    if(TARGET ${library})
        list(APPEND libraries "-l$<TARGET_FILE_BASE_NAME:${library}>")
    else()
        list(APPEND libraries "-l${library}")
    endif()
endforeach()
list(JOIN libraries " " libraries)
configure_file(cmake/ostrelgui.pc.in ${CMAKE_BINARY_DIR}/install/ostrelgui.pc.in @ONLY)
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/install/ostrelgui.pc INPUT ${CMAKE_BINARY_DIR}/install/ostrelgui.pc.in)
install(FILES ${CMAKE_BINARY_DIR}/install/ostrelgui.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
