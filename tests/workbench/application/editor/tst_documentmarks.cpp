// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstDocumentMarks : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void words_have_the_colors_of_the_ground();
    void continued_command_is_marked_on_all_its_lines();
    void line_behind_an_edited_one_is_marked_anew();
    void command_that_is_too_long_is_plain();
    void document_that_is_too_long_is_plain();
    void string_of_python_goes_on_until_it_is_closed();
    void wrong_lines_keep_their_colors();
    void wrong_line_moves_and_stays_marked_until_it_is_edited();
    void wrong_lines_are_marked_without_a_language();
    void nothing_of_it_can_be_undone();

private:
    using Language = DocumentMarks::Language;

    DocumentMarks* marks()
    {
        DocumentMarks* const marks = DocumentMarks::of(mDocument.get());
        QCoreApplication::processEvents(); // a new one begins only then
        return marks;
    }
    /** A line with a letter in place of each character that has a color, in capitals where it is underlined.
     */
    QString line(int number) const;
    void replace(int line, const QString& text);

    std::unique_ptr<CommandRegistry> mRegistry;
    std::unique_ptr<QTextDocument> mDocument;
    bool mDark = false;
};

void TstDocumentMarks::set_up()
{
    mRegistry = std::make_unique<CommandRegistry>();
    mRegistry->add(plain_command(u"echo"_s, u"test"_s, [](CommandCall&) {}));
    mDocument = std::make_unique<QTextDocument>();
    mDocument->documentLayout(); // without one nothing is told of changes
    mDark = false;
}

QString TstDocumentMarks::line(int number) const
{
    constexpr auto letters = "cknsev#"_L1;
    const QTextBlock block = mDocument->findBlockByNumber(number);
    QString shown = block.text();
    for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        for (int i = range.start; i < range.start + range.length; ++i) {
            for (int kind = 0; kind < int(letters.size()); ++kind) {
                const QRgb color = mark_color(LineMark::Kind(kind), mDark);
                if (range.format.hasProperty(QTextFormat::ForegroundBrush) &&
                    range.format.foreground().color().rgba() == color)
                    shown[i] = letters[kind];
            }
            if (range.format.underlineStyle() == QTextCharFormat::WaveUnderline)
                shown[i] = shown[i].toUpper();
        }
    }
    return shown;
}

void TstDocumentMarks::replace(int line, const QString& text)
{
    QTextCursor cursor(mDocument->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

void TstDocumentMarks::words_have_the_colors_of_the_ground()
{
    mDocument->setPlainText(u"echo 1 x # y"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    QCOMPARE(line(0), u"cccc n x ###"_s);
    marks()->set_dark(true);
    QCOMPARE(line(0), u"echo 1 x # y"_s);
    mDark = true;
    QCOMPARE(line(0), u"cccc n x ###"_s);
    marks()->set_language(Language::None, nullptr);
    QCOMPARE(line(0), u"echo 1 x # y"_s);
}

void TstDocumentMarks::continued_command_is_marked_on_all_its_lines()
{
    mDocument->setPlainText(u"echo 1 \\\n  2 \"a\\\n3\\\n\" x # y \\\necho\necho"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    QCOMPARE(line(0), u"cccc n \\"_s);
    QCOMPARE(line(1), u"  n ss\\"_s);
    QCOMPARE(line(2), u"s\\"_s);
    QCOMPARE(line(3), u"s x ####\\"_s);
    QCOMPARE(line(4), u"####"_s);
    QCOMPARE(line(5), u"cccc"_s);
}

void TstDocumentMarks::line_behind_an_edited_one_is_marked_anew()
{
    mDocument->setPlainText(u"echo 1 \\\n2 \\\n3\necho"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    QCOMPARE(line(2), u"n"_s);
    replace(0, u"echo 1 'a\\"_s);
    QCOMPARE(line(1), u"ss\\"_s);
    QCOMPARE(line(2), u"s"_s);
    QCOMPARE(line(3), u"cccc"_s);
    replace(0, u"echo 1 # a\\"_s);
    QCOMPARE(line(2), u"#"_s);
    replace(0, u"echo 1"_s);
    QCOMPARE(line(1), u"2 \\"_s);
    QCOMPARE(line(2), u"n"_s);
}

void TstDocumentMarks::command_that_is_too_long_is_plain()
{
    const QString half = QString(DocumentMarks::most_of_command / 2, u' ');
    mDocument->setPlainText(u"echo 1"_s + half + u"2\\\n3"_s + half + u"\\\n4 \\\n5\necho"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    QVERIFY(line(0).startsWith("cccc n"_L1));
    QVERIFY(line(1).startsWith(u'3'));
    QCOMPARE(line(2), u"4 \\"_s);
    QCOMPARE(line(3), u"5"_s);
    QCOMPARE(line(4), u"cccc"_s);
    replace(0, u"echo 'a\\"_s);
    QCOMPARE(line(2), u"ss\\"_s);
    QCOMPARE(line(3), u"s"_s);
    const int lines = DocumentMarks::most_lines_of_command;
    mDocument->setPlainText(u"echo 1\\\n"_s + u"\\\n"_s.repeated(lines - 2) + u"2\\\n3\\\n4\necho"_s);
    QCOMPARE(line(lines - 1), u"n\\"_s);
    QCOMPARE(line(lines), u"3\\"_s);
    QCOMPARE(line(lines + 1), u"4"_s);
    QCOMPARE(line(lines + 2), u"cccc"_s);
}

void TstDocumentMarks::document_that_is_too_long_is_plain()
{
    marks()->set_language(Language::Commands, mRegistry.get());
    const QString filling(DocumentMarks::most_characters(Language::Commands), u'x');
    mDocument->setPlainText(u"echo 1\n"_s + filling);
    QCOMPARE(line(0), u"echo 1"_s);
    mDocument->setPlainText(u"echo 1\n"_s);
    QCOMPARE(line(0), u"cccc n"_s);
    marks()->set_language(Language::Python, nullptr);
    mDocument->setPlainText(u"if\n"_s + filling.first(DocumentMarks::most_characters(Language::Python)));
    QCOMPARE(line(0), u"if"_s);
}

void TstDocumentMarks::string_of_python_goes_on_until_it_is_closed()
{
    mDocument->setPlainText(u"x = 1\nif x:\n'''"_s);
    marks()->set_language(Language::Python, nullptr);
    QCOMPARE(line(1), u"kk x:"_s);
    replace(0, u"'''"_s);
    QCOMPARE(line(1), u"sssss"_s);
    QCOMPARE(line(2), u"sss"_s);
    replace(0, u"x"_s);
    QCOMPARE(line(1), u"kk x:"_s);
}

void TstDocumentMarks::wrong_lines_keep_their_colors()
{
    mDocument->setPlainText(u"echo 1 x\necho 2"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    marks()->set_wrong_lines({0});
    QCOMPARE(line(0), u"CCCC N X"_s);
    QCOMPARE(line(1), u"cccc n"_s);
    marks()->set_dark(true);
    mDark = true;
    QCOMPARE(line(0), u"CCCC N X"_s);
    marks()->set_language(Language::None, nullptr);
    QCOMPARE(line(0), u"ECHO 1 X"_s);
    marks()->set_wrong_lines({1});
    QCOMPARE(line(0), u"echo 1 x"_s);
    QCOMPARE(line(1), u"ECHO 2"_s);
}

void TstDocumentMarks::wrong_line_moves_and_stays_marked_until_it_is_edited()
{
    mDocument->setPlainText(u"a\nb"_s);
    marks()->set_language(Language::Commands, mRegistry.get());
    marks()->set_wrong_lines({1});
    QTextCursor(mDocument.get()).insertText(u"\n\n"_s);
    marks()->color_again();
    QCOMPARE(line(3), u"B"_s);
    replace(3, u"bc"_s);
    QCOMPARE(line(3), u"bc"_s);
    replace(3, u"b"_s);
    QCOMPARE(line(3), u"b"_s);
}

void TstDocumentMarks::wrong_lines_are_marked_without_a_language()
{
    mDocument->setPlainText(QString(DocumentMarks::most_characters(Language::None), u'x') + u"\necho\nb"_s);
    QVERIFY(!DocumentMarks::find(mDocument.get()));
    marks()->set_wrong_lines({1, 7});
    QCOMPARE(DocumentMarks::find(mDocument.get()), marks());
    QCOMPARE(line(1), u"ECHO"_s);
    QCOMPARE(line(2), u"b"_s);
}

void TstDocumentMarks::nothing_of_it_can_be_undone()
{
    mDocument->setPlainText(u"echo 1"_s);
    mDocument->setModified(false);
    marks()->set_language(Language::Commands, mRegistry.get());
    marks()->set_wrong_lines({0});
    QVERIFY(!mDocument->isUndoAvailable());
    QVERIFY(!mDocument->isModified());
}

OSTREL_TEST(TstDocumentMarks)
#include "tst_documentmarks.moc"
