# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# The translations: what users read in their own language.

find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

set(OSTREL_LANGUAGES de zh_CN)

# Where the translations of the shell and of the workbench are installed. The build tree has them in the same places.
set(OSTREL_SHELL_TRANSLATIONS ${CMAKE_INSTALL_DATADIR}/ostrelgui/translations)
set(OSTREL_WORKBENCH_TRANSLATIONS ${CMAKE_INSTALL_DATADIR}/fennar/translations)

# Declares the target NAME, which compiles NAME_<language>.ts of the current folder for each language.
#
#   ostrel_add_translations(NAME DESTINATION directory)
#
# DESTINATION  where the compiled files are installed, relative to the prefix
function(ostrel_add_translations name)
    cmake_parse_arguments(arg "" "DESTINATION" "" ${ARGN})
    set(folder ${CMAKE_BINARY_DIR}/share/${name}/translations)
    file(MAKE_DIRECTORY ${folder})
    set(compiled)
    foreach(language IN LISTS OSTREL_LANGUAGES)
        set(source ${CMAKE_CURRENT_SOURCE_DIR}/${name}_${language}.ts)
        set(result ${folder}/${name}_${language}.qm)
        # Texts without a translation stay out of the result, and so in English.
        add_custom_command(OUTPUT ${result}
            COMMAND Qt6::lrelease -silent -nounfinished ${source} -qm ${result}
            DEPENDS ${source}
            COMMENT "Compiling ${name}_${language}.ts"
            VERBATIM)
        list(APPEND compiled ${result})
    endforeach()
    add_custom_target(${name}_translations ALL DEPENDS ${compiled})
    if(PROJECT_IS_TOP_LEVEL)
        install(FILES ${compiled} DESTINATION ${arg_DESTINATION})
    endif()
endfunction()
