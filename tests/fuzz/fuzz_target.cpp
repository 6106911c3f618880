// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "fuzz/fuzz_target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sanitizer/allocator_interface.h>

namespace {

/** What a reader may take for any input, in bytes. */
constexpr std::size_t fixed_bytes = 1 << 20;
/** And for each byte of the input. The mark-up of a word costs some objects of Qt's. */
constexpr std::size_t bytes_per_byte = 512;

bool counts = false;
/** More may be freed than was taken while it counts. */
std::ptrdiff_t taken = 0;
std::ptrdiff_t most_taken = 0;

void count_malloc(const volatile void*, std::size_t size)
{
    if (!counts)
        return;
    taken += static_cast<std::ptrdiff_t>(size);
    most_taken = std::max(most_taken, taken);
}

void count_free(const volatile void* memory)
{
    if (counts && memory)
        taken -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
}

} // namespace

void expect(bool holds, const char* rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

MemoryBound::MemoryBound(std::size_t input_size) : mMost(fixed_bytes + bytes_per_byte * input_size)
{
    static const bool installed = __sanitizer_install_malloc_and_free_hooks(&count_malloc, &count_free) != 0;
    expect(installed, "memory can be counted");
    taken = 0;
    most_taken = 0;
    counts = true;
}

MemoryBound::~MemoryBound()
{
    counts = false;
    if (static_cast<std::size_t>(most_taken) <= mMost)
        return;
    std::fprintf(stderr, "%td bytes were taken, and %zu are enough\n", most_taken, mMost);
    expect(false, "memory is in proportion to the input");
}
