# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Fails unless the package whose files begin with PACKAGE takes itself for good for VERSION.
string(REGEX MATCH "^([0-9]+)[.]([0-9]+)" PACKAGE_FIND_VERSION ${VERSION})
set(PACKAGE_FIND_VERSION_MAJOR ${CMAKE_MATCH_1})
set(PACKAGE_FIND_VERSION_MINOR ${CMAKE_MATCH_2})
include(${PACKAGE}ConfigVersion.cmake)
if(NOT PACKAGE_VERSION_COMPATIBLE OR PACKAGE_VERSION_UNSUITABLE)
    message(FATAL_ERROR "not taken")
endif()
