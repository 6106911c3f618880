# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# What `cmake --install` puts below the prefix: the program with its components and its place on the desktop, the libraries,
# the headers of the classes that components and hosts use, the CMake package OstrelGui and the pkg-config file ostrelgui.
#
# Two install components: "runtime" is what it takes to run the program, "development" what it takes to build against it.

include(CMakePackageConfigHelpers)

set(ostrel_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/ostrel)
set(ostrel_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OstrelGui)

# Appends a header and all headers of the tree that it includes to a list.
function(ostrel_collect_headers list header)
    if(header IN_LIST ${list})
        return()
    endif()
    set(headers ${${list}} ${header})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${header})
    file(STRINGS ${CMAKE_SOURCE_DIR}/${header} includes REGEX "^#include \"[^\"]+/[^\"]+\"")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${include}")
        ostrel_collect_headers(headers ${included})
    endforeach()
    set(${list} ${headers} PARENT_SCOPE)
endfunction()

# Compresses a text of the tree, or one that has been made.
function(ostrel_compress_text source target)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    if(NOT source MATCHES "^${CMAKE_BINARY_DIR}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    endif()
    # Without name and time, so that the same text gives the same file.
    execute_process(COMMAND gzip -9nc INPUT_FILE ${source} OUTPUT_FILE ${target} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The shell's exported classes, all of host/, what they include, and what they hand out.
file(GLOB_RECURSE candidates RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/frame/*.h ${CMAKE_SOURCE_DIR}/console/*.h ${CMAKE_SOURCE_DIR}/files/*.h
    ${CMAKE_SOURCE_DIR}/journal/*.h ${CMAKE_SOURCE_DIR}/menus/*.h ${CMAKE_SOURCE_DIR}/options/*.h
    ${CMAKE_SOURCE_DIR}/host/*.h)
set(public_headers)
foreach(header IN LISTS candidates)
    file(STRINGS ${CMAKE_SOURCE_DIR}/${header} exported REGEX "^(class|struct) OSTRELGUI_EXPORT |^OSTRELGUI_EXPORT ")
    if(exported OR header MATCHES "^host/")
        ostrel_collect_headers(public_headers ${header})
    endif()
endforeach()
# What exported classes hand out without being exported itself. Others use it as the class of Qt that it derives from.
foreach(header frame/OstrelSplitter.h journal/JournalDocument.h)
    ostrel_collect_headers(public_headers ${header})
endforeach()
set(exported_targets ostrelgui)

if(OSTREL_BUILD_WORKBENCH)
    # What components and hosts need of the workbench: the whole kit, and what of the host libraries a host may use.
    file(GLOB_RECURSE kit RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/workbench/sdk/*.h)
    foreach(header IN LISTS kit ITEMS
            workbench/host/fennar_python/PythonRuntime.h workbench/host/fennar_python/make_python_interpreter.h
            workbench/host/ostrelfw/FrameworkInterpreters.h workbench/host/ostrelfw/HostMediator.h)
        ostrel_collect_headers(public_headers ${header})
    endforeach()
    list(APPEND exported_targets fennar_core fennar_component fennar_util fennari19 fennar_python navigation ostrelfw)

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

list(JOIN public_headers "\n" lines)
file(WRITE ${CMAKE_BINARY_DIR}/install/headers.txt "${lines}\n")
foreach(header IN LISTS public_headers)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${ostrel_include_dir}/${folder} COMPONENT development)
endforeach()

# Before version 1 each minor version may change the interface, and so the name that programs look for.
set(interface_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set_target_properties(${exported_targets} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${interface_version})
install(TARGETS ${exported_targets} EXPORT OstrelGuiTargets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    INCLUDES DESTINATION ${ostrel_include_dir})
install(EXPORT OstrelGuiTargets NAMESPACE OstrelGui:: DESTINATION ${ostrel_package_dir} COMPONENT development)
configure_package_config_file(cmake/OstrelGuiConfig.cmake.in ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfig.cmake
    INSTALL_DESTINATION ${ostrel_package_dir} PATH_VARS OSTREL_SHELL_TRANSLATIONS)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfig.cmake ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfigVersion.cmake
        cmake/OstrelGuiComponent.cmake
    DESTINATION ${ostrel_package_dir} COMPONENT development)

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
