// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/failing_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdio_ext.h>
#include <string>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr auto folder_variable = "FAILING_CALLS_FOLDER";
constexpr auto number_variable = "FAILING_CALLS_NUMBER";
constexpr auto lasting_variable = "FAILING_CALLS_LASTING";
constexpr auto program_variable = "FAILING_CALLS_PROGRAM";
constexpr auto count_variable = "FAILING_CALLS_COUNT";

// Plain data: the first calls come before any constructor has run.
char folder[4096];
int number = 0;
bool lasting = false;
std::atomic<bool> active = false;
std::atomic<int> count = 0;
char count_file[4096];

/** The function of that name that would have been called without this library. */
template <typename Function>
Function real(const char* name, Function)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}
#define REAL(name) real(#name, &::name)

bool is_below(const char* path)
{
    const std::size_t size = std::strlen(folder);
    return size > 0 && std::strncmp(path, folder, size) == 0 && path[size] == '/';
}

/** Whether the descriptor can write to a file in the folder. */
bool is_watched(int descriptor)
{
    if (!active || (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_RDONLY)
        return false;
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    char path[4096];
    const ssize_t size = readlink(link, path, sizeof path - 1);
    if (size < 0)
        return false;
    path[size] = 0;
    return is_below(path);
}

/** Counts a call that counts. Returns whether it is to fail. */
bool fails()
{
    const int now = ++count;
    return number > 0 && (now == number || (lasting && now > number));
}

/** Whether a call that writes @p size bytes is to write a part: as the last one does before a disk is full.
 */
bool writes_part(std::size_t size)
{
    return lasting && count == number && size > 1;
}

[[gnu::constructor]] void start_in_program()
{
    const char* program = std::getenv(program_variable);
    if (!program || std::strcmp(program, program_invocation_short_name) != 0)
        return;
    std::snprintf(folder, sizeof folder, "%s", std::getenv(folder_variable));
    std::snprintf(count_file, sizeof count_file, "%s", std::getenv(count_variable));
    number = std::atoi(std::getenv(number_variable));
    lasting = std::atoi(std::getenv(lasting_variable)) != 0;
    active = true;
}

[[gnu::destructor]] void tell_count()
{
    if (!count_file[0])
        return;
    active = false;
    if (std::FILE* file = std::fopen(count_file, "w")) {
        std::fprintf(file, "%d\n", count.load());
        std::fclose(file);
    }
}

} // namespace

void begin_failing(const FailingCalls& calls)
{
    std::snprintf(folder, sizeof folder, "%s", calls.folder.c_str());
    number = calls.number;
    lasting = calls.lasting;
    count = 0;
    active = true;
}

int end_failing()
{
    active = false;
    return count;
}

void begin_failing_in(const std::string& program, const FailingCalls& calls, const std::string& told)
{
    Dl_info info = {};
    dladdr(reinterpret_cast<const void*>(&begin_failing_in), &info);
    const auto set = [](const char* name, const std::string& value) { setenv(name, value.c_str(), 1); };
    set("LD_PRELOAD", info.dli_fname);
    set(program_variable, program);
    set(folder_variable, calls.folder);
    set(number_variable, std::to_string(calls.number));
    set(lasting_variable, calls.lasting ? "1" : "0");
    set(count_variable, told);
}

void end_failing_in()
{
    for (const char* name :
         {"LD_PRELOAD", program_variable, folder_variable, number_variable, lasting_variable, count_variable})
        unsetenv(name);
}

// What the system has under the same names. Each does its work if it is not to fail.

extern "C" {

ssize_t write(int descriptor, const void* data, std::size_t size)
{
    const auto next = REAL(write);
    if (!is_watched(descriptor) || !fails())
        return next(descriptor, data, size);
    if (writes_part(size))
        return next(descriptor, data, size / 2);
    errno = ENOSPC;
    return -1;
}

ssize_t pwrite(int descriptor, const void* data, std::size_t size, off_t offset)
{
    const auto next = REAL(pwrite);
    if (!is_watched(descriptor) || !fails())
        return next(descriptor, data, size, offset);
    if (writes_part(size))
        return next(descriptor, data, size / 2, offset);
    errno = ENOSPC;
    return -1;
}

ssize_t pwrite64(int descriptor, const void* data, std::size_t size, off64_t offset)
{
    return pwrite(descriptor, data, size, offset);
}

ssize_t writev(int descriptor, const iovec* parts, int part_count)
{
    const auto next = REAL(writev);
    if (!is_watched(descriptor) || !fails())
        return next(descriptor, parts, part_count);
    errno = ENOSPC;
    return -1;
}

int fsync(int descriptor)
{
    const auto next = REAL(fsync);
    if (!is_watched(descriptor) || !fails())
        return next(descriptor);
    errno = EIO;
    return -1;
}

int fdatasync(int descriptor)
{
    const auto next = REAL(fdatasync);
    if (!is_watched(descriptor) || !fails())
        return next(descriptor);
    errno = EIO;
    return -1;
}

int rename(const char* from, const char* to) noexcept
{
    const auto next = REAL(rename);
    if (!active || !is_below(to) || !fails())
        return next(from, to);
    errno = EIO;
    return -1;
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) noexcept
{
    const auto next = REAL(renameat2);
    if (!active || !is_below(to) || !fails())
        return next(from_folder, from, to_folder, to, flags);
    errno = EIO;
    return -1;
}

// Gives a file that had no name until then its own.
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept
{
    const auto next = REAL(linkat);
    if (!active || !is_below(to) || !fails())
        return next(from_folder, from, to_folder, to, flags);
    errno = EIO;
    return -1;
}

int close(int descriptor)
{
    const auto next = REAL(close);
    const bool failing = is_watched(descriptor) && fails();
    const int result = next(descriptor);
    if (!failing)
        return result;
    errno = EIO;
    return -1;
}

int fflush(std::FILE* stream)
{
    const auto next = REAL(fflush);
    if (!stream || !is_watched(fileno(stream)) || !fails())
        return next(stream);
    __fpurge(stream);
    errno = ENOSPC;
    return EOF;
}

int fclose(std::FILE* stream)
{
    const auto next = REAL(fclose);
    const bool failing = is_watched(fileno(stream)) && fails();
    if (failing)
        __fpurge(stream);
    const int result = next(stream);
    if (!failing)
        return result;
    errno = ENOSPC;
    return EOF;
}

} // extern "C"
