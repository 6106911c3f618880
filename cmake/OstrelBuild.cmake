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

# Times and the way that macros are defined are no part of what precompiled headers mean, and paths below the root are relative,
# so that another clone of the same sources can use what the compiler has made for this one.
find_program(OSTREL_CCACHE ccache)
if(OSTREL_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${OSTREL_CCACHE})
    execute_process(COMMAND ${OSTREL_CCACHE} --get-config cache_dir OUTPUT_VARIABLE OSTREL_CCACHE_DIR
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()

# The 76 links of a release build, with all else built, took `ninja -j2` 24 seconds with the usual linker and 4 with this one,
# measured on two cores that were not idle.
find_program(OSTREL_MOLD mold)
if(OSTREL_MOLD)
    add_link_options(-fuse-ld=mold)
endif()

# The interpreter for scripts of the build and of tests. What is called python3 may be a script that looks for one among many,
# which takes it longer than most of ours run.
find_program(OSTREL_PYTHON3 python3 REQUIRED)
execute_process(COMMAND ${OSTREL_PYTHON3} -c "import sys; print(sys.executable, end='')"
    OUTPUT_VARIABLE OSTREL_PYTHON3 COMMAND_ERROR_IS_FATAL ANY)

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
    add_compile_options(-fsanitize=${OSTREL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
        -fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/tests/support/sanitizers.ignore)
    # To look at calls through pointers, libraries would export the types of functions. And callers may hand over any number
    # for an enumeration.
    add_compile_options(-fno-sanitize=enum,function)
    add_link_options(-fsanitize=${OSTREL_SANITIZE})
    # One library for a program and all that it loads.
    add_link_options(-shared-libasan)
    set(sanitizer libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${sanitizer}
        OUTPUT_VARIABLE OSTREL_SANITIZER OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang OR NOT EXISTS ${OSTREL_SANITIZER})
        message(FATAL_ERROR "Sanitizers need clang and its ${sanitizer}, in Debian's package libclang-rt-dev: "
            "configure with -DCMAKE_CXX_COMPILER=clang++.")
    endif()
    cmake_path(GET OSTREL_SANITIZER PARENT_PATH OSTREL_SANITIZER_DIR)
    list(APPEND CMAKE_BUILD_RPATH ${OSTREL_SANITIZER_DIR})
endif()

# Declares the headers that are installed with a library; all among its sources if none are named.
function(ostrel_public_headers target)
    set(headers ${ARGN})
    if(NOT headers)
        get_target_property(headers ${target} SOURCES)
        list(FILTER headers INCLUDE REGEX "[.]h$")
    endif()
    list(TRANSFORM headers PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_compile_features(${target} PUBLIC cxx_std_20)    # which they take
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${headers})
endfunction()

# Precompiled headers of Qt halve the time to compile a source. Only what is included all over the tree stands here; a list
# that is longer costs every source more than it saves.
set(ostrel_core_headers
    <QByteArray> <QCoreApplication> <QDir> <QFile> <QFileInfo> <QList> <QMap> <QObject> <QPointer> <QProcess> <QRegularExpression>
    <QSettings> <QString> <QStringList> <QTimer> <QVariant>
    <algorithm> <array> <functional> <map> <memory> <optional> <utility> <vector>)
set(ostrel_widgets_headers
    ${ostrel_core_headers}
    <QAction> <QApplication> <QDialog> <QDockWidget> <QEvent> <QLabel> <QLayout> <QLineEdit> <QMainWindow> <QMenu> <QMenuBar>
    <QPlainTextEdit> <QPushButton> <QTabWidget> <QTextBlock> <QToolBar> <QToolButton> <QWidget>)

# For ccache.
set(ostrel_precompiled_option -fpch-preprocess)
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    set(ostrel_precompiled_option "SHELL:-Xclang -fno-pch-timestamp")
endif()

# Lets a target use precompiled headers: "core", "widgets" or "test", by what of Qt it links. It is to have all macros that
# they were compiled with, so these belong to targets that have none of their own. What a target hides stands in the headers, too, so
# there is a second edition for hidden visibility.
function(ostrel_precompile target headers)
    if(NOT OSTREL_PRECOMPILE)
        return()
    endif()
    get_target_property(visibility ${target} CXX_VISIBILITY_PRESET)
    if(visibility STREQUAL hidden)
        string(APPEND headers _hidden)
    endif()
    target_precompile_headers(${target} REUSE_FROM ostrel_precompiled_${headers})
    target_compile_options(${target} PRIVATE ${ostrel_precompiled_option})
endfunction()

# Declares the owners of precompiled headers. LIBRARIES are what their users link, too.
function(ostrel_add_precompiled headers)
    if(NOT OSTREL_PRECOMPILE)
        return()
    endif()
    cmake_parse_arguments(arg "" "" "LIBRARIES;HEADERS" ${ARGN})
    foreach(edition ${headers} ${headers}_hidden)
        set(owner ostrel_precompiled_${edition})
        add_library(${owner} OBJECT EXCLUDE_FROM_ALL ${CMAKE_SOURCE_DIR}/cmake/precompiled.cpp)
        target_link_libraries(${owner} PRIVATE ostrel_house ${arg_LIBRARIES})
        target_precompile_headers(${owner} PRIVATE ${arg_HEADERS})
        target_compile_options(${owner} PRIVATE ${ostrel_precompiled_option})
        set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTOUIC OFF)
    endforeach()
    set_target_properties(${owner} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
