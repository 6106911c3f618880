# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# What `cmake --install` puts below the prefix: the program, the libraries, the headers of the classes that components and
# hosts use, and the CMake package OstrelGui.

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

# The shell's exported classes, all of host/, and what they include.
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
set(exported_targets ostrelgui)

if(OSTREL_BUILD_WORKBENCH)
    # What components need of the workbench.
    foreach(header components/component.h fennari19/Fennar.h fennari19/CommandCall.h fennari19/CommandError.h
            fennar_formats/FormatRegistry.h fennar_util/Interrupt.h scene/Scene.h)
        ostrel_collect_headers(public_headers workbench/${header})
    endforeach()
    list(APPEND exported_targets fennar_util fennari19 fennar_formats fennar_python navigation ostrelfw scene)
    install(TARGETS fennar)
    install(DIRECTORY workbench/xml DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY workbench/journals DESTINATION ${CMAKE_INSTALL_DATADIR}/fennar)
endif()

foreach(header IN LISTS public_headers)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${ostrel_include_dir}/${folder})
endforeach()
install(TARGETS ${exported_targets} EXPORT OstrelGuiTargets
    INCLUDES DESTINATION ${ostrel_include_dir})
install(EXPORT OstrelGuiTargets NAMESPACE OstrelGui:: DESTINATION ${ostrel_package_dir})
configure_package_config_file(cmake/OstrelGuiConfig.cmake.in ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfig.cmake
    INSTALL_DESTINATION ${ostrel_package_dir} PATH_VARS OSTREL_SHELL_TRANSLATIONS)
# Before version 1 each minor version may change the interface.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfig.cmake ${CMAKE_BINARY_DIR}/cmake/OstrelGuiConfigVersion.cmake
        cmake/OstrelGuiComponent.cmake
    DESTINATION ${ostrel_package_dir})
install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
