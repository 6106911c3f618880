// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/read_journal.h"

#include <istream>
#include <string>

std::optional<QString> read_journal(std::istream& stream)
{
    if (!stream)
        return std::nullopt;
    QString text;
    std::string line;
    while (!stream.eof()) {
        std::getline(stream, line);
        if (stream.bad() || (stream.fail() && !stream.eof()))
            return std::nullopt;
        text += QString::fromUtf8(line.c_str());
        text += u'\n';
    }
    return text;
}
