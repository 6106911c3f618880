// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/application/editor/EditorLanguage.h"
#include "workbench/application/windows/scheme_palette.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QPlainTextEdit>
#include <QSet>
#include <QSettings>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** As the rules for accessible web pages define it. */
double luminance(const QColor& color)
{
    const auto part = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double one = luminance(a);
    const double other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

} // namespace

/** What the journal editor knows of languages, in the whole application. */
class TstEditorLanguage : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void tear_down() override;

private slots:
    void journals_are_colored_by_the_commands();
    void python_is_told_by_the_first_line_and_the_name();
    void first_line_that_is_typed_changes_the_language();
    void commands_that_come_and_go_recolor_open_documents();
    void words_can_be_read_in_both_schemes();
    void current_line_goes_by_the_palette_of_the_document();
    void long_documents_are_plain_until_they_are_short_again();
    void tab_completes_commands_over_continued_lines();
    void tab_completes_python();
    void tab_knows_the_lines_ahead_in_a_script();
    void tab_in_a_script_knows_nothing_of_the_console();
    void tab_indents_at_the_start_of_a_line();
    void saved_options_take_effect();
    void everything_goes_with_it();
    void editor_may_go_first();

private:
    static JournalEditor& editor() { return *window().journal_editor(); }
    QPlainTextEdit* open(const QString& text);
    /** The words of a line that have a color. */
    static QStringList colored(const QPlainTextEdit* document, int line = 0);
    static QSet<QRgb> colors(const QPlainTextEdit* document);
    static void press_tab(QPlainTextEdit* document);
};

void TstEditorLanguage::tear_down()
{
    while (QPlainTextEdit* document = current_journal(&editor())) {
        document->document()->setModified(false);
        if (journal_tabs(&editor())->count() == 1)
            break;
        editor().fileClose();
    }
    editor().close();
    flush();
}

QPlainTextEdit* TstEditorLanguage::open(const QString& text)
{
    editor().add_document(text);
    flush();
    return current_journal(&editor());
}

QStringList TstEditorLanguage::colored(const QPlainTextEdit* document, int line)
{
    const QTextBlock block = document->document()->findBlockByNumber(line);
    QStringList words;
    for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        if (range.format.hasProperty(QTextFormat::ForegroundBrush))
            words << block.text().mid(range.start, range.length);
    }
    return words;
}

QSet<QRgb> TstEditorLanguage::colors(const QPlainTextEdit* document)
{
    QSet<QRgb> all;
    for (QTextBlock block = document->document()->begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            all << range.format.foreground().color().rgba();
    }
    return all;
}

void TstEditorLanguage::press_tab(QPlainTextEdit* document)
{
    document->moveCursor(QTextCursor::End);
    QTest::keyClick(document, Qt::Key_Tab);
}

void TstEditorLanguage::journals_are_colored_by_the_commands()
{
    const QPlainTextEdit* document = open(u"set width 2 # wide\nnothing 3\n"_s);
    QCOMPARE(colored(document), QStringList({u"set"_s, u"width"_s, u"2"_s, u"# wide"_s}));
    QCOMPARE(colored(document, 1), QStringList(u"3"_s));
}

void TstEditorLanguage::python_is_told_by_the_first_line_and_the_name()
{
    QCOMPARE(colored(open(u"\n  \n#!python\nif set:\n"_s), 3), QStringList(u"if"_s));
    QCOMPARE(colored(open(u"set x\n#!python\n"_s)), QStringList({u"set"_s, u"x"_s}));
    const QString file = write_temp(u"script.py"_s, "if set:\n");
    editor().open_file(file);
    flush();
    QCOMPARE(colored(current_journal(&editor())), QStringList(u"if"_s));
}

void TstEditorLanguage::first_line_that_is_typed_changes_the_language()
{
    QPlainTextEdit* document = open(u"set x\n"_s);
    document->moveCursor(QTextCursor::Start);
    document->insertPlainText(u"#!python\nif "_s);
    flush();
    QCOMPARE(colored(document, 1), QStringList(u"if"_s));
    document->undo();
    flush();
    QCOMPARE(colored(document), QStringList({u"set"_s, u"x"_s}));
}

void TstEditorLanguage::commands_that_come_and_go_recolor_open_documents()
{
    const QPlainTextEdit* document = open(u"sing\n"_s);
    QCOMPARE(colored(document), QStringList());
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"sing"_s, u"test"_s, [](CommandCall&) {}));
    flush();
    QCOMPARE(colored(document), QStringList(u"sing"_s));
    registry.remove_owner(u"test"_s);
    flush();
    QCOMPARE(colored(document), QStringList());
}

void TstEditorLanguage::words_can_be_read_in_both_schemes()
{
    // A command, a keyword, a number, a string, a variable, a comment; and a name that a script gives.
    QPlainTextEdit* journal = open(u"scheme dark 1 \"x\" $y # z\n"_s);
    const QPlainTextEdit* script = open(u"#!python\ndef name():\n"_s);
    QSet<QRgb> before;
    for (const QString& scheme : {u"light"_s, u"dark"_s}) {
        enter(u"scheme "_s + scheme + u" once"_s);
        flush();
        const QSet<QRgb> used = colors(journal) + colors(script);
        QCOMPARE(used.size(), 7);
        QVERIFY(!used.intersects(before));
        before = used;
        QList<QColor> grounds = {journal->palette().color(QPalette::Base)};
        for (const QTextEdit::ExtraSelection& current_line : journal->extraSelections())
            grounds << current_line.format.background().color();
        QCOMPARE(grounds.size(), 2);
        for (const QRgb color : used) {
            for (const QColor& ground : std::as_const(grounds))
                QVERIFY2(contrast(QColor::fromRgb(color), ground) >= 4.5,
                         qPrintable(QColor::fromRgb(color).name() + u" on "_s + ground.name()));
        }
    }
    enter(u"scheme system once"_s);
}

void TstEditorLanguage::current_line_goes_by_the_palette_of_the_document()
{
    QPlainTextEdit* document = open(u"one\ntwo\n"_s);
    for (const bool dark : {true, false}) {
        // The platform says of its colors what it said before.
        document->setPalette(scheme_palette(dark));
        flush();
        for (const auto position : {QTextCursor::End, QTextCursor::Start}) {
            document->moveCursor(position);
            QCOMPARE(document->extraSelections().size(), 1);
            const QTextEdit::ExtraSelection line = document->extraSelections().first();
            QCOMPARE(line.cursor.position(), document->textCursor().position());
            QCOMPARE(line.format.background().color().lightness() < 128, dark);
        }
    }
    document->setReadOnly(true);
    document->moveCursor(QTextCursor::End);
    QVERIFY(document->extraSelections().isEmpty());
}

void TstEditorLanguage::long_documents_are_plain_until_they_are_short_again()
{
    const QString filling(DocumentMarks::most_characters(DocumentMarks::Language::Commands), u' ');
    QPlainTextEdit* document = open(u"set x\n"_s + filling);
    QVERIFY(!DocumentMarks::find(document->document()));
    document->setPlainText(u"set x\n"_s);
    flush();
    QCOMPARE(colored(document), QStringList({u"set"_s, u"x"_s}));
    document->appendPlainText(filling);
    flush();
    QCOMPARE(colored(document), QStringList());
}

void TstEditorLanguage::tab_completes_commands_over_continued_lines()
{
    QPlainTextEdit* document = open(u"histo"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"history "_s);
    document->setPlainText(u"scheme \\\nli"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"scheme \\\nlight "_s);
    document->setPlainText(u"scheme li\\\ng"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"scheme li\\\ng\t"_s);
}

void TstEditorLanguage::tab_completes_python()
{
    QPlainTextEdit* document = open(u"#!python\nisinst"_s);
    press_tab(document);
    QVERIFY2(document->toPlainText().startsWith("#!python\nisinstance"_L1),
             qPrintable(document->toPlainText()));
    document->setPlainText(u"#!python\nif 1:\n"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"#!python\nif 1:\n    "_s);
}

void TstEditorLanguage::tab_knows_the_lines_ahead_in_a_script()
{
    const auto completed = [this](const QString& text) {
        QPlainTextEdit* document = open(u"#!python\n"_s + text);
        press_tab(document);
        return document->toPlainText().section(u'\n', 1);
    };
    QCOMPARE(completed(u"if 1:\n    fennar.echo(\n        wor"_s),
             u"if 1:\n    fennar.echo(\n        wor\t"_s);
    QCOMPARE(completed(u"fennar.play(\n  'a',\n    lin"_s), u"fennar.play(\n  'a',\n    line="_s);
    QCOMPARE(completed(u"if 1:\n    fennar.play('a',\n\n    lin"_s),
             u"if 1:\n    fennar.play('a',\n\n    line="_s);
    QCOMPARE(completed(u"fennar.play('a', \\\nlin"_s), u"fennar.play('a', \\\nline="_s);
    // Behind a statement, and in a string that has begun above.
    QCOMPARE(completed(u"fennar.play('a',\nlin"_s), u"fennar.play('a',\nlin\t"_s);
    QCOMPARE(completed(u"x = '''\nisinst"_s), u"x = '''\nisinst\t"_s);
    QCOMPARE(completed(u"x = '''\n'''\nisinst"_s), u"x = '''\n'''\nisinstance"_s);
}

void TstEditorLanguage::tab_in_a_script_knows_nothing_of_the_console()
{
    python_mode(true);
    type(u"x = '''"_s);
    QPlainTextEdit* document = open(u"#!python\nisinst"_s);
    press_tab(document);
    const QString text = document->toPlainText();
    python_mode(false);
    QCOMPARE(text, u"#!python\nisinstance"_s);
}

void TstEditorLanguage::tab_indents_at_the_start_of_a_line()
{
    QPlainTextEdit* document = open(u"brick \\\n "_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"brick \\\n \t"_s);
}

void TstEditorLanguage::saved_options_take_effect()
{
    QPlainTextEdit* document = open(u"set histo"_s);
    QSettings().setValue(u"/fennar/editor/colors"_s, false);
    QSettings().setValue(u"/fennar/editor/completion"_s, false);
    window().options()->refresh_settings();
    emit window().options()->saveSettings();
    flush();
    QCOMPARE(colored(document), QStringList());
    QCOMPARE(colored(open(u"set y"_s)), QStringList());
    document->setPlainText(u"histo"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"histo\t"_s);
    QSettings().remove(u"/fennar/editor"_s);
    window().options()->refresh_settings();
    emit window().options()->saveSettings();
    flush();
    document->setPlainText(u"histo"_s);
    press_tab(document);
    QCOMPARE(document->toPlainText(), u"history "_s);
    QCOMPARE(colored(document), QStringList(u"history"_s));
}

void TstEditorLanguage::everything_goes_with_it()
{
    JournalEditor other;
    other.add_document(u"histo"_s);
    QPlainTextEdit* document = current_journal(&other);
    auto language = std::make_unique<EditorLanguage>(&other, Fennar::instance().interpreter());
    flush();
    press_tab(document);
    QCOMPARE(colored(document), QStringList(u"history"_s));
    language.reset();
    QCOMPARE(colored(document), QStringList());
    document->setPlainText(u"histo"_s);
    press_tab(document);
    flush();
    QCOMPARE(document->toPlainText(), u"histo\t"_s);
    QCOMPARE(colored(document), QStringList());
    document->document()->setModified(false);
}

void TstEditorLanguage::editor_may_go_first()
{
    auto other = std::make_unique<JournalEditor>();
    other->add_document(u"set x"_s);
    EditorLanguage language(other.get(), Fennar::instance().interpreter());
    flush();
    other.reset();
    language.read_settings();
}

OSTREL_TEST(TstEditorLanguage)
#include "tst_editorlanguage.moc"
