// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/is_written.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace fennar::geometry {

bool is_written(const char* path)
{
    // Where the engine has met the limit, more does not fit either.
    constexpr std::array<char, 65536> more{};
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const off_t size = lseek(file, 0, SEEK_END);
    const bool good = size > 0 &&
                      write(file, more.data(), more.size()) == static_cast<ssize_t>(more.size()) &&
                      ftruncate(file, size) == 0;
    return close(file) == 0 && good;
}

} // namespace fennar::geometry
