// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/DocumentMarks.h"

#include "workbench/application/editor/mark_python.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"

#include <QHash>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace fennar {

namespace {

/** The state of a line that ends a command; Qt's for a line that has none. */
constexpr int ended = -1;
/** The state of a line that continues a command that is too long to be marked. */
constexpr int too_long = 1;

/** The state of a line whose command, so far @p text, goes on: another one for each text, so that the next
 * line is marked anew when it changes. Above those of too_long and ended. */
int continued(const QString& text)
{
    return too_long + 1 + int(qHash(text) & 0x3fffffff);
}

/** Says that a line with that text is wrong; it moves with its line. */
class Wrong : public QTextBlockUserData
{
public:
    explicit Wrong(const QString& text) : mText(text) {}
    bool holds(const QString& text) const { return mText == text; }

private:
    const QString mText;
};

} // namespace

QRgb mark_color(LineMark::Kind kind, bool dark)
{
    struct Color
    {
        QRgb light;
        QRgb dark;
    };
    static constexpr Color colors[] = {
        {0xff0b4fb3, 0xff9ccbff}, // Command
        {0xff7a1fa2, 0xffd9b8ff}, // Keyword
        {0xff9a3c00, 0xffffbd8a}, // Number
        {0xff1b6b24, 0xffa9dc9a}, // String
        {0xff00646b, 0xff7fdcd4}, // Name
        {0xffa8144a, 0xffffb0c8}, // Variable
        {0xff5f6570, 0xffc0c6ce}, // Comment
    };
    const Color& color = colors[std::size_t(kind)];
    return dark ? color.dark : color.light;
}

DocumentMarks::DocumentMarks(QTextDocument* document) : QSyntaxHighlighter(document) {}

DocumentMarks* DocumentMarks::find(const QTextDocument* document)
{
    return document->findChild<DocumentMarks*>(QString(), Qt::FindDirectChildrenOnly);
}

DocumentMarks* DocumentMarks::of(QTextDocument* document)
{
    DocumentMarks* const marks = find(document);
    return marks ? marks : new DocumentMarks(document);
}

void DocumentMarks::set_language(Language language, const CommandRegistry* registry)
{
    mRegistry = registry;
    if (language == mLanguage)
        return;
    mLanguage = language;
    rehighlight();
}

void DocumentMarks::set_dark(bool dark)
{
    if (dark == mDark)
        return;
    mDark = dark;
    color_again();
}

void DocumentMarks::color_again()
{
    if (mLanguage != Language::None)
        rehighlight();
}

void DocumentMarks::set_wrong_lines(const QList<int>& lines)
{
    QTextBlock block = document()->begin();
    for (int line = 0; block.isValid(); block = block.next(), ++line) {
        const bool wrong = std::binary_search(lines.begin(), lines.end(), line);
        if (!wrong && !block.userData())
            continue;
        block.setUserData(wrong ? new Wrong(block.text()) : nullptr);
        rehighlightBlock(block);
    }
}

void DocumentMarks::highlightBlock(const QString& text)
{
    setCurrentBlockState(ended);
    if (document()->characterCount() <= most_characters(mLanguage)) {
        if (mLanguage == Language::Commands)
            color_command(text);
        else if (mLanguage == Language::Python)
            color_python(text);
    }
    const auto* const wrong = static_cast<const Wrong*>(currentBlockUserData());
    if (wrong && wrong->holds(text))
        underline(int(text.size()));
    else if (wrong)
        setCurrentBlockUserData(nullptr);
}

void DocumentMarks::color_command(const QString& text)
{
    qsizetype before = 0;
    ContinuedCommand command;
    if (previousBlockState() != too_long) {
        QTextBlock first = currentBlock();
        while (first.previous().userState() > too_long)
            first = first.previous();
        for (; first != currentBlock(); first = first.next())
            command.add(first.text());
        before = command.text().size();
    }
    const bool goes_on = !command.add(text);
    if (previousBlockState() == too_long || command.text().size() > most_of_command ||
        command.line_count() > most_lines_of_command) {
        setCurrentBlockState(goes_on ? too_long : ended);
        return;
    }
    setCurrentBlockState(goes_on ? continued(command.text()) : ended);
    color(mark_command(command.text(), *mRegistry), before);
}

void DocumentMarks::color_python(const QString& text)
{
    // Too long to be one that a person reads.
    if (text.size() > most_of_command)
        return;
    const PythonLine line = mark_python(
        text, previousBlockState() == ended ? PythonString::None : PythonString(previousBlockState()));
    setCurrentBlockState(line.string == PythonString::None ? ended : int(line.string));
    color(line.marks);
}

/** @param before  how much of what is marked stands on lines before. */
void DocumentMarks::color(const QList<LineMark>& marks, qsizetype before)
{
    for (const LineMark& mark : marks) {
        const qsizetype start = std::max<qsizetype>(mark.start - before, 0);
        const qsizetype end = mark.start + mark.length - before;
        if (end > start)
            setFormat(int(start), int(end - start), QColor::fromRgb(mark_color(mark.kind, mDark)));
    }
}

void DocumentMarks::underline(int length)
{
    for (int start = 0, end = 0; start < length; start = end) {
        QTextCharFormat wrong = format(start);
        for (end = start + 1; end < length && format(end) == wrong;)
            ++end;
        wrong.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        wrong.setUnderlineColor(Qt::red);
        setFormat(start, end - start, wrong);
    }
}

} // namespace fennar
