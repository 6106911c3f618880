# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Declares a component of the workbench: a shared object NAME.so.
#
#   fennar_add_component(NAME VERSION version SOURCES file... [LIBRARIES target...]
#                        [REQUIRES component...] [COMMANDS command...] [TRANSLATIONS file...])
#
# NAME         is the component's name: a lower-case letter, then lower-case letters, digits, "_" and "-"
# VERSION      is its own version, for people to read
# LIBRARIES    what it needs beside the shell, the command language and Qt
# REQUIRES     components that are loaded before it, and cannot be unloaded while it is loaded
# COMMANDS     the commands that it adds, by which users find it while it is not loaded
# TRANSLATIONS its texts in other languages, NAME_<language>.ts each; these need Qt's LinguistTools
#
# Other files of the target, as resources, are added with CMake's own commands. `cmake --install` puts the component
# where the workbench looks for it, below the prefix, and its translations beside those of the workbench.
function(fennar_add_component name)
    cmake_parse_arguments(arg "" "VERSION" "SOURCES;LIBRARIES;REQUIRES;COMMANDS;TRANSLATIONS" ${ARGN})
    add_library(${name} MODULE ${arg_SOURCES})
    fennar_describe_component(${name} NAME ${name} VERSION "${arg_VERSION}" KIT "${FennarSdk_VERSION}"
        REQUIRES ${arg_REQUIRES} COMMANDS ${arg_COMMANDS})
    target_link_libraries(${name} PRIVATE
        FennarSdk::component
        ${arg_LIBRARIES})
    target_link_options(${name} PRIVATE LINKER:--no-undefined)
    # Nothing but the plugin's own functions is of use to others, and components must not see each other's symbols.
    set_target_properties(${name} PROPERTIES
        PREFIX "" AUTOMOC ON AUTOUIC ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/components
        INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${name} LIBRARY DESTINATION ${FennarSdk_COMPONENT_DIR})
    if(arg_TRANSLATIONS)
        find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
    endif()
    foreach(source IN LISTS arg_TRANSLATIONS)
        cmake_path(GET source STEM LAST_ONLY catalog)
        if(NOT catalog MATCHES "^${name}_[a-z]+(_[A-Z]+)?$")
            message(FATAL_ERROR "The translations of ${name} are files ${name}_<language>.ts, and not ${source}")
        endif()
        cmake_path(ABSOLUTE_PATH source)
        set(folder ${CMAKE_BINARY_DIR}/share/fennar/translations)
        file(MAKE_DIRECTORY ${folder})
        # Texts without a translation stay out of the result, and so in English.
        add_custom_command(OUTPUT ${folder}/${catalog}.qm
            COMMAND Qt6::lrelease -silent -nounfinished ${source} -qm ${folder}/${catalog}.qm
            DEPENDS ${source}
            COMMENT "Compiling ${catalog}.ts"
            VERBATIM)
        target_sources(${name} PRIVATE ${folder}/${catalog}.qm)
        install(FILES ${folder}/${catalog}.qm DESTINATION ${FennarSdk_TRANSLATIONS_DIR})
    endforeach()
endfunction()

# Makes a shared object a component: writes its metadata, and the source of the object that Qt's plugins have.
#
#   fennar_describe_component(target NAME name VERSION version KIT version [INTERFACE id]
#                             [REQUIRES component...] [COMMANDS command...])
function(fennar_describe_component target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME;VERSION;KIT;INTERFACE" "REQUIRES;COMMANDS")
    foreach(list REQUIRES COMMANDS)
        list(TRANSFORM arg_${list} REPLACE "(.+)" "\"\\1\"")
        list(JOIN arg_${list} ", " ${list})
    endforeach()
    if(arg_INTERFACE)
        set(interface "\"${arg_INTERFACE}\"")
    else()
        set(interface FENNAR_COMPONENT_INTERFACE)
    endif()
    set(plugin ${CMAKE_CURRENT_BINARY_DIR}/${target}_plugin)
    file(CONFIGURE OUTPUT ${plugin}.json @ONLY CONTENT [[{
    "name": "@arg_NAME@",
    "version": "@arg_VERSION@",
    "kit": "@arg_KIT@",
    "requires": [@REQUIRES@],
    "commands": [@COMMANDS@]
}
]])
    # Qt's compiler is run again when the source changes, and not when only the metadata do.
    file(SHA256 ${plugin}.json metadata)
    file(CONFIGURE OUTPUT ${plugin}.cpp @ONLY CONTENT [[
// Metadata: @metadata@
#include "workbench/sdk/component/Component.h"

#include <QObject>

namespace fennar {
void load_component(ComponentContext& context);
}

namespace {

class Plugin : public QObject, public fennar::Component
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID @interface@ FILE "@target@_plugin.json")
    Q_INTERFACES(fennar::Component)

public:
    void load(fennar::ComponentContext& context) override { fennar::load_component(context); }
};

} // namespace

#include "@target@_plugin.moc"
]])
    target_sources(${target} PRIVATE ${plugin}.cpp)
endfunction()
