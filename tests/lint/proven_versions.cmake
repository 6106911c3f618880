# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Tests with which compilers and versions of Qt a warning is an error:  cmake -P proven_versions.cmake

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/OstrelWarnings.cmake)

function(expect expected compiler compiler_version qt_version)
    ostrel_is_proven(proven ${compiler} ${compiler_version} ${qt_version})
    if(NOT proven STREQUAL expected)
        message(SEND_ERROR "${compiler} ${compiler_version} with Qt ${qt_version}: ${proven}, expected ${expected}")
    endif()
endfunction()

expect(ON GNU 12.2.0 6.4.2)
expect(ON GNU 14.2.0 6.8.2)
expect(ON GNU 14.3 6.8.0)
expect(ON Clang 14.0.6 6.4.2)
# a newer compiler, a newer Qt, versions that are proven but not together
expect(OFF GNU 15.1.0 6.8.2)
expect(OFF GNU 14.2.0 6.9.0)
expect(OFF GNU 14.2.0 6.4.2)
expect(OFF GNU 12.2.0 6.8.2)
# older ones, and numbers that only begin alike
expect(OFF GNU 11.4.0 6.4.2)
expect(OFF GNU 12.2.0 6.40.2)
expect(OFF GNU 120.2.0 6.4.2)
expect(OFF GNU 14.6.8 16.8.2)
# another compiler
expect(OFF Clang 12.0.1 6.4.2)
expect(OFF Clang 14.0.6 6.8.2)
