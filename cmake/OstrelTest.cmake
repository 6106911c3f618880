# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# The tests find a German locale, whose decimal point is a comma, whatever the machine has installed.
set(OSTREL_TEST_LOCALES ${CMAKE_BINARY_DIR}/locale)
if(NOT EXISTS ${OSTREL_TEST_LOCALES}/de_DE.UTF-8/LC_NUMERIC)
    file(MAKE_DIRECTORY ${OSTREL_TEST_LOCALES})
    execute_process(COMMAND localedef -i de_DE -f UTF-8 ${OSTREL_TEST_LOCALES}/de_DE.UTF-8
        RESULT_VARIABLE failed OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(failed)
        message(WARNING "No German locale; tests that use one will fail. Is the package locales installed? ${output}")
    endif()
endif()

# What test code is built with, linked behind ostrel_house. A test spends its time in what it tests; not optimizing its own
# code halves the time to compile it. Objects of one kind, so that libraries and executables can share precompiled headers.
add_library(ostrel_test_house INTERFACE)
target_compile_options(ostrel_test_house INTERFACE -O0 -fPIC)
if(OSTREL_SANITIZE)
    target_compile_definitions(ostrel_test_house INTERFACE OSTREL_SANITIZED)
endif()
if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
    # These narrow numbers in the text of their test macros, where the compiler blames the sources that have them.
    target_compile_options(ostrel_test_house INTERFACE -Wno-conversion)
endif()

ostrel_add_precompiled(test LIBRARIES ostrel_test_house Qt6::Widgets Qt6::Test
    HEADERS ${ostrel_widgets_headers} <QSignalSpy> <QTemporaryDir> <QTest>)

# Those that take longest, by what they take a processor. They begin first, also where no earlier run has told how long tests
# take; one that begins last would run on alone.
set(OSTREL_LONG_TESTS
    installed_program debian_package guides tst_filecommands tst_matrix_windows installed_package tst_matrix_panels sweep_cluster
    sweep_slurm python_module tst_runmesher tst_matrix_files tst_tour sweep tst_matrix_journals tst_fennar_recovery
    tst_commanddescriptions tst_commandwidget_property tst_filemenuformats tst_monkey tst_failing_exports tst_fennar
    tst_matrix_field tst_modelfiles tst_fennar_options python_notebooks python_types_plate_functions tst_componentmanager)

# Gives a test that is declared a home directory of its own under the build tree.
function(ostrel_sandbox_test name platform)
    set(sandbox ${CMAKE_BINARY_DIR}/sandbox/${name})
    file(MAKE_DIRECTORY ${sandbox}/config ${sandbox}/config-dirs ${sandbox}/data ${sandbox}/run ${sandbox}/tmp)
    file(CHMOD ${sandbox}/run PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    list(FIND OSTREL_LONG_TESTS ${name} rank)
    if(NOT rank EQUAL -1)
        math(EXPR cost "1000 - ${rank}")
        set_tests_properties(${name} PROPERTIES COST ${cost})
    endif()
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "HOME=${sandbox};XDG_CONFIG_HOME=${sandbox}/config;XDG_CONFIG_DIRS=${sandbox}/config-dirs;\
XDG_DATA_HOME=${sandbox}/data;XDG_RUNTIME_DIR=${sandbox}/run;TMPDIR=${sandbox}/tmp;QT_QPA_PLATFORM=${platform};\
QT_STYLE_OVERRIDE=Fusion;QT_FONT_DPI=96;QT_LOGGING_RULES=;LC_ALL=C.UTF-8;LANGUAGE=;LOCPATH=${OSTREL_TEST_LOCALES};\
FENNAR_COMPONENT_PATH=;\
LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;\
UBSAN_OPTIONS=print_stacktrace=1")
    if(OSTREL_SANITIZE)
        # What is installed finds them nowhere else.
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT LD_LIBRARY_PATH=${OSTREL_SANITIZER_DIR})
    endif()
endfunction()

# Says that declared tests build projects with CMake, which then use the compiler cache of this build. Their folders, of another
# name each time, are below that for temporary files.
function(ostrel_test_compiles)
    if(NOT OSTREL_CCACHE)
        return()
    endif()
    foreach(name ${ARGN})
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT CMAKE_CXX_COMPILER_LAUNCHER=${OSTREL_CCACHE}
            CCACHE_DIR=${OSTREL_CCACHE_DIR} CCACHE_BASEDIR=${CMAKE_BINARY_DIR}/sandbox/${name}/tmp CCACHE_NOHASHDIR=1)
    endforeach()
endfunction()

# Declares an executable for related test classes.
#
#   ostrel_add_test_program(name [SHELL] [SOURCES file...] [LIBRARIES target...] [DEFINITIONS definition...] [DEPENDS target...])
#
# SHELL    links the shell's objects with the recording host
# SOURCES  what the classes share
# DEPENDS  what they load or start
function(ostrel_add_test_program name)
    cmake_parse_arguments(arg "SHELL" "" "SOURCES;LIBRARIES;DEFINITIONS;DEPENDS" ${ARGN})
    add_executable(${name} ${CMAKE_SOURCE_DIR}/tests/support/main.cpp ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ostrel_house ostrel_test_house ostrel_testsupport ${arg_LIBRARIES} Qt6::Test)
    if(arg_SHELL)
        target_link_libraries(${name} PRIVATE ostrelgui_objects hostdouble)
    endif()
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    if(arg_DEPENDS)
        add_dependencies(${name} ${arg_DEPENDS})
    endif()
    ostrel_precompile(${name} test)
endfunction()

# Declares a test: a class, in a source file of the test's name, that a test program runs in a home directory of its own
# under the build tree.
#
#   ostrel_add_test(tst_name IN program [STARTS_PROGRAM] [DISPLAY] [TIMEOUT seconds] [OPTIMIZED [file...]])
#
# STARTS_PROGRAM  starts the program fennar itself; the leak check then records whole stacks, so that leaks.supp can name
#                 what the threads of Qt's drawing still hold when the program ends
# DISPLAY         needs a real window system: runs under a virtual display with a window manager, label "display"
# TIMEOUT         default 120 seconds, with the sanitizers three times that. When nine tenths are over Qt Test names the function
#                 that runs, with its stack
# OPTIMIZED       spends most of its time in its own code, or in the files named, of the same directory: these are optimized
function(ostrel_add_test name)
    cmake_parse_arguments(arg "STARTS_PROGRAM;DISPLAY" "IN;TIMEOUT" "OPTIMIZED" ${ARGN})
    target_sources(${arg_IN} PRIVATE ${name}.cpp)
    if(OSTREL_SANITIZE MATCHES "undefined")
        # Three checks at each access, for what is tested and not for the test: its code takes a sixth longer to compile with
        # them. Where a pointer is null the test crashes anyway.
        set_property(SOURCE ${name}.cpp TARGET_DIRECTORY ${arg_IN} APPEND
            PROPERTY COMPILE_OPTIONS -fno-sanitize=null,alignment,vptr)
    endif()
    if(arg_OPTIMIZED OR "OPTIMIZED" IN_LIST arg_KEYWORDS_MISSING_VALUES)
        # The precompiled headers are for code that is not.
        set_property(SOURCE ${name}.cpp ${arg_OPTIMIZED} TARGET_DIRECTORY ${arg_IN} APPEND PROPERTY COMPILE_OPTIONS -O2)
        set_property(SOURCE ${name}.cpp ${arg_OPTIMIZED} TARGET_DIRECTORY ${arg_IN} PROPERTY SKIP_PRECOMPILE_HEADERS ON)
    endif()
    if(arg_DISPLAY)
        ostrel_declare_test(${name} ${ARGN} COMMAND ${CMAKE_SOURCE_DIR}/tests/support/with-display $<TARGET_FILE:${arg_IN}> ${name})
    else()
        ostrel_declare_test(${name} ${ARGN} COMMAND ${arg_IN} ${name})
    endif()
endfunction()

# The part of ostrel_add_test() that is CTest's, for a test with a command of its own. With CONFIGURATION it runs in
# `ctest -C` of that name only.
function(ostrel_declare_test name)
    cmake_parse_arguments(arg "STARTS_PROGRAM;DISPLAY" "IN;TIMEOUT;CONFIGURATION" "COMMAND" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    # The sanitizers make everything slower.
    if(OSTREL_SANITIZE)
        math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 3")
    endif()
    # Meant for one function. But the watch of Qt 6.4 misses the end of most of them, and counts on through the next.
    math(EXPR function_timeout "${arg_TIMEOUT} * 900")
    if(arg_CONFIGURATION)
        add_test(NAME ${name} COMMAND ${arg_COMMAND} CONFIGURATIONS ${arg_CONFIGURATION})
    else()
        add_test(NAME ${name} COMMAND ${arg_COMMAND})
    endif()
    if(arg_DISPLAY)
        ostrel_sandbox_test(${name} xcb)
        set_tests_properties(${name} PROPERTIES LABELS display)
    else()
        ostrel_sandbox_test(${name} offscreen)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QTEST_FUNCTION_TIMEOUT=${function_timeout}")
    if(arg_STARTS_PROGRAM)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=fast_unwind_on_malloc=0")
    endif()
endfunction()
