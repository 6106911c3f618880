// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "sweep.h"

#include "support/failing_calls.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file could not be written");
}

QStringList neighbors(const QString& path)
{
    return QFileInfo(path).dir().entryList(QDir::AllEntries | QDir::System | QDir::Hidden |
                                           QDir::NoDotAndDotDot);
}

/** Lets the call of that number fail. */
QString run(const Writing& writing, int number, bool lasting, int& count)
{
    const FailingCalls calls{QFileInfo(writing.folder).canonicalFilePath().toStdString(), number, lasting};
    if (writing.program.isEmpty()) {
        begin_failing(calls);
        const QString told = writing.write();
        count = end_failing();
        return told;
    }
    const QString counted = QDir::tempPath() + u"/failing-calls"_s;
    begin_failing_in(writing.program.toStdString(), calls, counted.toStdString());
    const QString told = writing.write();
    end_failing_in();
    count = content(counted).trimmed().toInt();
    QFile::remove(counted);
    return told;
}

} // namespace

QString sweep(const Writing& writing)
{
    const auto now = [&] {
        const QByteArray bytes = content(writing.file);
        return writing.clean ? writing.clean(bytes) : bytes;
    };
    const QByteArray at_first = content(writing.file);
    const QByteArray old = now();
    int count = 0;
    if (const QString told = run(writing, 0, false, count); !told.isEmpty())
        return u"fails by itself: "_s + told;
    const QByteArray written = now();
    const QStringList files = neighbors(writing.file);
    if (count == 0 || written == old)
        return u"%1 calls, and the file is %2"_s.arg(count).arg(written == old ? u"the same"_s : u"new"_s);
    QString wrong;
    int failed = 0;
    for (const bool lasting : {false, true}) {
        for (int number = 1; number <= count; ++number) {
            put(writing.file, at_first);
            int calls = 0;
            const QString told = run(writing, number, lasting, calls);
            const QByteArray found = now();
            failed += !told.isEmpty();
            const QString where = u"call %1 of %2%3: "_s.arg(number).arg(count).arg(
                lasting ? u" and all behind it"_s : QString());
            if (found != written && (told.isEmpty() || found != old))
                wrong += where + u"there are %1 bytes, not %2: "_s.arg(found.size()).arg(written.size()) +
                         (told.isEmpty() ? u"not told\n"_s : told + u'\n');
            if (neighbors(writing.file) != files)
                wrong += where + u"left behind: "_s + neighbors(writing.file).join(u", "_s) + u'\n';
        }
    }
    if (failed == 0)
        wrong += u"none of %1 calls makes the writing fail\n"_s.arg(count);
    return wrong;
}
