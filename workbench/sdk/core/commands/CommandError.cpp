// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandError.h"

#include <QCoreApplication>

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** @p text with values in the places of "%1" and so on, whatever these hold themselves. */
QString filled(const QString& text, const QList<CommandMessage>& values, QString CommandMessage::*language)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int place = text[i] == u'%' && i + 1 < text.size() ? text[i + 1].digitValue() : 0;
        if (place > 0 && place <= values.size()) {
            result += values[place - 1].*language;
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

/** What only puts values together, as "%1 (%2)", is in no catalog. */
QString in_language(const char* text)
{
    const QString english = QString::fromUtf8(text);
    const bool has_words = std::any_of(english.begin(), english.end(), [](QChar c) { return c.isLetter(); });
    return has_words ? QCoreApplication::translate("CommandError", text) : english;
}

} // namespace

CommandMessage::CommandMessage(const char* text, const QList<CommandMessage>& values)
    : english(filled(QString::fromUtf8(text), values, &CommandMessage::english)),
      translated(filled(in_language(text), values, &CommandMessage::translated))
{}

CommandError::CommandError(const CommandMessage& message, qsizetype column)
    : mMessage(message), mUtf8(message.english.toUtf8()), mColumn(column)
{}

CommandError CommandError::expected(const CommandMessage& what, const CommandMessage& found, qsizetype column,
                                    const QString& remedy)
{
    CommandMessage message(QT_TRANSLATE_NOOP("CommandError", "expected %1, found %2"), {what, found});
    if (!remedy.isEmpty())
        message.english += u"; "_s + remedy;
    CommandError error(message, column);
    error.mExpected = what.english;
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
