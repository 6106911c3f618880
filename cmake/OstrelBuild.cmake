# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# What every target of the project is built with.

include(OstrelWarnings)

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# What is installed finds its libraries wherever the prefix is moved to.
set(CMAKE_INSTALL_RPATH "$ORIGIN")
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME runtime)

find_program(OSTREL_CCACHE ccache)
if(OSTREL_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${OSTREL_CCACHE})
endif()

add_library(ostrel_house INTERFACE)
target_compile_features(ostrel_house INTERFACE cxx_std_20)
target_compile_options(ostrel_house INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
target_compile_definitions(ostrel_house INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_NO_CONTEXTLESS_CONNECT QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_link_options(ostrel_house INTERFACE -Wl,--no-undefined)
set(warnings_as_errors ${OSTREL_WARNINGS_AS_ERRORS})
if(OSTREL_WARNINGS_AS_ERRORS STREQUAL PROVEN)
    ostrel_is_proven(warnings_as_errors "${CMAKE_CXX_COMPILER_ID}" "${CMAKE_CXX_COMPILER_VERSION}" "${Qt6_VERSION}")
    if(NOT warnings_as_errors)
        message(STATUS "Warnings are not errors: the tree is not proven to have none by ${CMAKE_CXX_COMPILER_ID} "
            "${CMAKE_CXX_COMPILER_VERSION} with Qt ${Qt6_VERSION}")
    endif()
endif()
if(warnings_as_errors)
    target_compile_options(ostrel_house INTERFACE -Werror)
endif()
if(OSTREL_SANITIZE)
    add_compile_options(-fsanitize=${OSTREL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${OSTREL_SANITIZE})
endif()
