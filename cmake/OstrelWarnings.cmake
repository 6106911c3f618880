# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# Whether a warning of the compiler is an error.

# Sets RESULT to whether the tree is known to compile without a warning by this compiler, told as CMake tells it,
# and with this version of Qt.
function(ostrel_is_proven result compiler compiler_version qt_version)
    set(${result} OFF PARENT_SCOPE)
    string(REGEX REPLACE "^([0-9]+).*" "\\1" major ${compiler_version})
    string(REGEX REPLACE "^([0-9]+\\.[0-9]+).*" "\\1" minor ${qt_version})
    # Debian 12 and Debian 13; clang is for the sanitizers
    set(proven "GNU 12 with 6.4" "Clang 14 with 6.4" "GNU 14 with 6.8")
    if("${compiler} ${major} with ${minor}" IN_LIST proven)
        set(${result} ON PARENT_SCOPE)
    endif()
endfunction()
