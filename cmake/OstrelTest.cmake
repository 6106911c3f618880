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

# Newer versions of Qt narrow numbers in the text of their test macros, where the compiler blames the sources that have them.
function(ostrel_has_test_macros)
    if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
        # On the sources, since a target's own options stand before those that it inherits.
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS -Wno-conversion)
    endif()
endfunction()

# Gives a test that is declared a home directory of its own under the build tree.
function(ostrel_sandbox_test name platform)
    set(sandbox ${CMAKE_BINARY_DIR}/sandbox/${name})
    file(MAKE_DIRECTORY ${sandbox}/config ${sandbox}/config-dirs ${sandbox}/data ${sandbox}/run ${sandbox}/tmp)
    file(CHMOD ${sandbox}/run PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "HOME=${sandbox};XDG_CONFIG_HOME=${sandbox}/config;XDG_CONFIG_DIRS=${sandbox}/config-dirs;\
XDG_DATA_HOME=${sandbox}/data;XDG_RUNTIME_DIR=${sandbox}/run;TMPDIR=${sandbox}/tmp;QT_QPA_PLATFORM=${platform};\
QT_STYLE_OVERRIDE=Fusion;QT_FONT_DPI=96;QT_LOGGING_RULES=;LC_ALL=C.UTF-8;LANGUAGE=;LOCPATH=${OSTREL_TEST_LOCALES};\
FENNAR_COMPONENT_PATH=;\
LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;\
UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# Declares a test: an executable of its own, run in a home directory of its own under the build tree.
#
#   ostrel_add_test(tst_name [SOURCES file...] [LIBRARIES target...] [WORKBENCH] [PROGRAM] [DISPLAY] [TIMEOUT seconds])
#
# SOURCES    default tst_name.cpp
# WORKBENCH  links the workbench's libraries; without it the shell's objects are linked with the recording host
# PROGRAM    starts the program fennar itself; the leak check then records whole stacks, so that leaks.supp can name what
#            the threads of Qt's drawing still hold when the program ends
# DISPLAY    needs a real window system: runs under a virtual display with a window manager, label "display"
# TIMEOUT    default 120 seconds; one test function may take a quarter of it, with the sanitizers three times that
function(ostrel_add_test name)
    cmake_parse_arguments(arg "WORKBENCH;PROGRAM;DISPLAY" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    if(NOT arg_SOURCES)
        set(arg_SOURCES ${name}.cpp)
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    # The sanitizers make everything slower.
    if(OSTREL_SANITIZE)
        math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 3")
    endif()

    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ostrel_house ostrel_testsupport ${arg_LIBRARIES} Qt6::Test)
    # A test spends its time in what it tests; not optimising its own code halves the time to compile it.
    target_compile_options(${name} PRIVATE -O0)
    ostrel_has_test_macros(${arg_SOURCES})
    if(NOT arg_WORKBENCH)
        target_link_libraries(${name} PRIVATE ostrelgui_objects hostdouble)
    endif()

    math(EXPR function_timeout "${arg_TIMEOUT} * 250")
    if(arg_DISPLAY)
        set(platform xcb)
        add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/tests/support/with-display $<TARGET_FILE:${name}>)
    else()
        set(platform offscreen)
        add_test(NAME ${name} COMMAND ${name})
    endif()
    ostrel_sandbox_test(${name} ${platform})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QTEST_FUNCTION_TIMEOUT=${function_timeout}")
    if(arg_PROGRAM)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=fast_unwind_on_malloc=0")
    endif()
    if(arg_DISPLAY)
        set_tests_properties(${name} PROPERTIES LABELS display)
    endif()
endfunction()
