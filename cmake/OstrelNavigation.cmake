# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Gives the program what a folder has for its command panels: the files below navigation/, by the kind of panel, and the
# pictures that these name, in images/light/. They are copied, and installed, to where the program reads them, in xml/
# beside the executable; pictures are in xml/images/NAME. The pictures of components are in their libraries, too, but navigation
# files are read before these are loaded.
#
#   ostrel_add_navigation(NAME FOLDER)
#
# The target navigation_files makes all of them.
function(ostrel_add_navigation name folder)
    set(copies)
    foreach(kind "navigation:xml" "images/light:xml/images/${name}")
        string(REGEX REPLACE "(.*):(.*)" "\\1;\\2" kind ${kind})
        list(GET kind 0 source)
        list(GET kind 1 place)
        file(GLOB_RECURSE files RELATIVE ${folder}/${source} CONFIGURE_DEPENDS
            ${folder}/${source}/*.xml ${folder}/${source}/*.svg)
        foreach(file IN LISTS files)
            set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${place}/${file})
            add_custom_command(OUTPUT ${copy}
                COMMAND ${CMAKE_COMMAND} -E copy ${folder}/${source}/${file} ${copy}
                DEPENDS ${folder}/${source}/${file}
                COMMENT "Copying ${file}")
            list(APPEND copies ${copy})
        endforeach()
        if(files AND PROJECT_IS_TOP_LEVEL)
            install(DIRECTORY ${folder}/${source}/ DESTINATION ${CMAKE_INSTALL_LIBDIR}/fennar/${place})
        endif()
    endforeach()
    if(copies)
        add_custom_target(navigation_files_${name} DEPENDS ${copies})
        add_dependencies(navigation_files navigation_files_${name})
    endif()
endfunction()
