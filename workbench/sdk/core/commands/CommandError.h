// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <exception>

namespace fennar {

/** What a command says: in English for the console, and in the user's language for forms. */
struct CommandMessage
{
    /** The same in all languages, as a name, a number, or what only the console shows. */
    CommandMessage(const QString& text) : english(text), translated(text) {}
    /**
     * @param text    marked with QT_TRANSLATE_NOOP("CommandError", ...), if it has words.
     * @param values  take the places of "%1" to "%9" in it.
     */
    FENNAR_CORE_EXPORT CommandMessage(const char* text, const QList<CommandMessage>& values = {});

    /** Whether both texts are the same. */
    bool operator==(const CommandMessage&) const = default;

    /** As the console prints it. */
    QString english;
    /** As forms show it. */
    QString translated;
};

/**
 * What a command throws to end with an error.
 *
 * CommandInterpreter catches it, together with everything else that a command throws, and prints it on its
 * error output. Exported by name, so that a component with hidden symbols can throw it.
 */
class FENNAR_CORE_EXPORT CommandError : public std::exception
{
public:
    /**
     * @param message  one line without the word "ERROR", the command's name and a line end.
     * @param column   the character of the command's line that is at fault, from 1; 0 for none.
     */
    explicit CommandError(const CommandMessage& message, qsizetype column = 0);

    /**
     * "expected WHAT, found FOUND; REMEDY". @p found is used as it stands; shown() puts a word into quotes.
     *
     * @param remedy  what to do about it, as "did you mean ...?"; empty for nothing.
     */
    static CommandError expected(const CommandMessage& what, const CommandMessage& found, qsizetype column,
                                 const QString& remedy = {});
    /** Ends a command whose failure has been reported already: nothing more is printed. */
    static CommandError reported();

    /** What has been thrown, whatever it is, as an error. Only to be called in a catch block. */
    static CommandError caught();

    /** The line that the constructor was given, in English. */
    const QString& message() const { return mMessage.english; }
    /** The same in the user's language, without a remedy. */
    const QString& translated() const { return mMessage.translated; }
    /** The character at fault, from 1; 0 for none. */
    qsizetype column() const { return mColumn; }
    /** What would have been right; empty if the error did not come from expected(). */
    const QString& expected_what() const { return mExpected; }
    /** What to do about it, which the message ends with; empty if it did not come from expected() with one.
     */
    const QString& remedy() const { return mRemedy; }
    /** Whether it came from reported(), so that there is nothing left to print. */
    bool is_reported() const { return mReported; }

    /** The message in UTF-8. */
    const char* what() const noexcept override;

    /** @p text in double quotes for a message: control characters escaped, cut behind @p most characters. */
    static QString shown(QStringView text, qsizetype most = 60);

private:
    CommandMessage mMessage;
    QString mExpected;
    QString mRemedy;
    QByteArray mUtf8;
    qsizetype mColumn;
    bool mReported = false;
};

} // namespace fennar
