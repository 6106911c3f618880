// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/obj_format/obj_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fennar::obj_format {

namespace {

[[noreturn]] void fail(std::size_t line, const std::string& what)
{
    throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

/** Takes the next word off the front of a line; empty at its end. */
std::string_view take_word(std::string_view& line)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t begin = line.find_first_not_of(blanks);
    if (begin == std::string_view::npos) {
        line = {};
        return {};
    }
    const std::size_t end = std::min(line.find_first_of(blanks, begin), line.size());
    const std::string_view word = line.substr(begin, end - begin);
    line.remove_prefix(end);
    return word;
}

template <typename Number>
bool parse(std::string_view text, Number& number)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

std::array<double, 3> read_point(std::string_view line, std::size_t number)
{
    std::array<double, 3> point{};
    for (double& value : point) {
        if (!parse(take_word(line), value) || !std::isfinite(value))
            fail(number, "a vertex needs three numbers");
    }
    return point;
}

/** "7", "7/1", "7//3" or "-1": counted from 1, or back from the last vertex. */
std::uint32_t read_corner(std::string_view word, std::size_t points, std::size_t number)
{
    long long index = 0;
    if (!parse(word.substr(0, word.find('/')), index))
        fail(number, "a corner of a face must be the number of a vertex");
    const auto count = static_cast<long long>(points);
    if (index < 0)
        index += count + 1;
    if (index < 1 || index > count)
        fail(number, "there is no vertex " + std::string(word.substr(0, 20)));
    return static_cast<std::uint32_t>(index - 1);
}

} // namespace

Surface read_obj(const QByteArray& text)
{
    Surface surface;
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()));
    std::string joined;
    std::vector<std::uint32_t> corners;
    std::size_t number = 0;
    std::size_t first = 0;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        ++number;
        if (line.find('\0') != std::string_view::npos)
            fail(number, "the file is not text");
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (joined.empty())
            first = number;
        // A backslash at its end continues a line.
        if (line.ends_with('\\')) {
            joined.append(line.substr(0, line.size() - 1)).push_back(' ');
            continue;
        }
        std::string whole;
        if (!joined.empty()) {
            whole = std::exchange(joined, {}).append(line);
            line = whole;
        }
        line = line.substr(0, line.find('#'));
        const std::string_view key = take_word(line);
        if (key == "v") {
            surface.points.push_back(read_point(line, first));
        } else if (key == "f") {
            corners.clear();
            for (std::string_view word = take_word(line); !word.empty(); word = take_word(line))
                corners.push_back(read_corner(word, surface.points.size(), first));
            if (corners.size() < 3)
                fail(first, "a face needs three corners");
            for (std::size_t i = 2; i < corners.size(); ++i)
                surface.triangles.push_back({corners[0], corners[i - 1], corners[i]});
        }
    }
    if (surface.triangles.empty())
        throw std::runtime_error("there are no faces in the file");
    return surface;
}

QByteArray write_obj(const Surface& surface)
{
    QByteArray text;
    text.reserve(qsizetype(surface.points.size()) * 40 + qsizetype(surface.triangles.size()) * 24);
    for (const std::array<double, 3>& point : surface.points) {
        text += 'v';
        for (const double value : point) {
            char digits[32];
            const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
            text += ' ';
            text.append(digits, end - digits);
        }
        text += '\n';
    }
    for (const std::array<std::uint32_t, 3>& triangle : surface.triangles) {
        text += 'f';
        for (const std::uint32_t corner : triangle)
            text += ' ' + QByteArray::number(corner + 1);
        text += '\n';
    }
    return text;
}

} // namespace fennar::obj_format
