// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/read_journal_text.h"

#include "workbench/sdk/core/commands/CommandError.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Names the line, so that it can be found and mended. */
qsizetype first_bad_line(const QByteArray& bytes)
{
    qsizetype number = 1;
    for (const QByteArray& line : bytes.split('\n')) {
        if (!line.isValidUtf8())
            break;
        ++number;
    }
    return number;
}

} // namespace

JournalText read_journal_text(QIODevice& device, const QString& shown)
{
    const QByteArray bytes = device.readAll();
    if (const auto* file = qobject_cast<QFileDevice*>(&device); file && file->error() != QFileDevice::NoError)
        return {{}, u"cannot read %1: %2"_s.arg(shown, file->errorString())};

    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0)
        return {{},
                u"%1 is not a text file: it has a NUL byte on line %2"_s.arg(shown).arg(
                    bytes.first(nul).count('\n') + 1)};
    // Stateless, so that a character cut off at the end is an error as well.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return {{}, u"%1 is not UTF-8 on line %2"_s.arg(shown).arg(first_bad_line(bytes))};
    return {text, {}};
}

JournalText read_journal_text(const QString& path)
{
    const QString shown = CommandError::shown(path, path.size());
    const QFileInfo info(path);
    if (!info.exists())
        return {{}, u"%1 does not exist"_s.arg(shown)};
    if (info.isDir())
        return {{}, u"%1 is a directory"_s.arg(shown)};
    // A device or a pipe might never end.
    if (!info.isFile())
        return {{}, u"%1 is not a regular file"_s.arg(shown)};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, u"cannot read %1: %2"_s.arg(shown, file.errorString())};
    return read_journal_text(file, shown);
}

} // namespace fennar
