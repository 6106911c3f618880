// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/mark_command.h"

#include <QList>
#include <QRgb>
#include <QSyntaxHighlighter>

namespace fennar {

class CommandRegistry;

/**
 * The color of text that is so marked, on a light ground or with @p dark on a dark one. It can be read there,
 * on the current line as well: the contrast is at least 4.5 to 1.
 */
QRgb mark_color(LineMark::Kind kind, bool dark);

/**
 * The marks of one document: colors for the words of its language, and wrong lines underlined. There is one
 * object for a document, which owns it, since two highlighters would take away each other's marks.
 *
 * A continued command is marked line by line, each by what stands ahead of it. GUI thread only.
 */
class DocumentMarks : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /** What the words of a document are. */
    enum class Language { None, Commands, Python };

    /**
     * The most characters of a document whose words are colored, so that no keystroke takes the 16 ms between
     * two pictures of a screen (./bench measures both). In a script the worst one is that which opens or
     * closes a string over all lines. In a journal a keystroke colors no more than one command; the whole is
     * colored when it is opened and when the commands change, which at this size takes a twentieth of a
     * second.
     */
    static constexpr int most_characters(Language language)
    {
        return language == Language::Python ? 100'000 : 250'000;
    }
    /** The most characters of a command whose words are colored, and of a line of Python. */
    static constexpr int most_of_command = 4'000;
    /** The most lines of a command whose words are colored: each is colored by all those ahead of it. */
    static constexpr int most_lines_of_command = 100;

    /** The marks of @p document; null if it has none yet. */
    static DocumentMarks* find(const QTextDocument* document);
    /** The marks of @p document, made now if there are none yet. */
    static DocumentMarks* of(QTextDocument* document);

    /** What the words are; none at first. */
    Language language() const { return mLanguage; }
    /** @param registry  has the commands; may be null for other languages. Outlives the language's use. */
    void set_language(Language language, const CommandRegistry* registry);
    /** Sets whether the document's ground is dark; it is not at first. */
    void set_dark(bool dark);
    /** Colors all anew, as behind a change of the commands. */
    void color_again();

    /** Underlines these lines, from 0, and no others, each until it is edited. Others are ignored. */
    void set_wrong_lines(const QList<int>& lines);

protected:
    void highlightBlock(const QString& text) override;

private:
    explicit DocumentMarks(QTextDocument* document);

    void color_command(const QString& text);
    void color_python(const QString& text);
    void color(const QList<LineMark>& marks, qsizetype before = 0);
    void underline(int length);

    Language mLanguage = Language::None;
    const CommandRegistry* mRegistry = nullptr;
    bool mDark = false;
};

} // namespace fennar
