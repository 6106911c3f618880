// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <cstddef>
#include <cstdint>

// What fuzz targets share. Each has one function,
//
//     extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
//
// which hands the bytes to a reader and returns 0.

/** Ends the program if a rule does not hold, so that the fuzzer keeps the input. @p rule says what was wrong.
 */
void expect(bool holds, const char* rule);

/**
 * Expects that what is done while the object lives takes no more memory at any moment than an input of that
 * size may: a fixed amount, and some hundred bytes for each byte. One at a time.
 */
class MemoryBound
{
public:
    explicit MemoryBound(std::size_t input_size);
    ~MemoryBound();
    MemoryBound(const MemoryBound&) = delete;
    MemoryBound& operator=(const MemoryBound&) = delete;

private:
    std::size_t mMost;
};
