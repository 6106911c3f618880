# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Declares a component of the workbench: a shared object NAME.so.
#
#   ostrelgui_add_component(NAME SOURCES file... [LIBRARIES target...])
#
# NAME      is the name in the component's FennarComponent
# LIBRARIES what it needs beside the shell, the command language and Qt
#
# Other files of the target, as resources, are added with CMake's own commands. `cmake --install` puts the component
# where the workbench looks for it, below the prefix.
function(ostrelgui_add_component name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_library(${name} MODULE ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE
        OstrelGui::ostrelgui     # the main window
        OstrelGui::fennar_core   # the registry of commands
        OstrelGui::fennar_component  # the context
        OstrelGui::ostrelfw      # the framework's text stream and trackers
        ${arg_LIBRARIES})
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_compile_definitions(${name} PRIVATE FENNAR_WORKBENCH_VERSION="${OstrelGui_VERSION}")
    target_link_options(${name} PRIVATE LINKER:--no-undefined)
    # Nothing but fennar_component is of use to others, and components must not see each other's symbols.
    set_target_properties(${name} PROPERTIES
        PREFIX "" AUTOMOC ON AUTOUIC ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/components
        INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${name} LIBRARY DESTINATION ${OstrelGui_COMPONENT_DIR})
endfunction()
