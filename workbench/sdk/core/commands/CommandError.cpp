// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandError.h"

#include <new>

using namespace Qt::StringLiterals;

namespace fennar {

CommandError::CommandError(const QString& message, qsizetype column)
    : mMessage(message), mUtf8(message.toUtf8()), mColumn(column)
{}

CommandError CommandError::expected(const QString& what, const QString& found, qsizetype column,
                                    const QString& remedy)
{
    QString message = u"expected %1, found %2"_s.arg(what, found);
    if (!remedy.isEmpty())
        message += u"; "_s + remedy;
    CommandError error(message, column);
    error.mExpected = what;
    error.mRemedy = remedy;
    return error;
}

CommandError CommandError::reported()
{
    CommandError error(u"reported before"_s);
    error.mReported = true;
    return error;
}

CommandError CommandError::caught()
{
    try {
        throw;
    } catch (const CommandError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return CommandError(u"out of memory"_s);
    } catch (const std::exception& error) {
        return CommandError(QString::fromUtf8(error.what()));
    } catch (...) {
        return CommandError(u"failed for an unknown reason"_s);
    }
}

const char* CommandError::what() const noexcept
{
    return mUtf8.constData();
}

QString CommandError::shown(QStringView text, qsizetype most)
{
    QString result(u'"');
    const QStringView head = text.first(std::min(text.size(), most));
    for (const QChar c : head) {
        if (c == u'\n')
            result += "\\n"_L1;
        else if (c == u'\r')
            result += "\\r"_L1;
        else if (c == u'\t')
            result += "\\t"_L1;
        else if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
                 c == QChar::ParagraphSeparator)
            result += u"\\u%1"_s.arg(uint(c.unicode()), 4, 16, QChar(u'0'));
        else
            result += c;
    }
    if (head.size() < text.size()) {
        if (result.back().isHighSurrogate())
            result.chop(1);
        result += "..."_L1;
    }
    result += u'"';
    return result;
}

} // namespace fennar
