// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/application/journals/add_journal_check.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/journal_documents.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QWindow>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The entry "Check" of the journal editor, in the whole application. */
class TstJournalCheck : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void tear_down() override;

private slots:
    void wrong_lines_are_told_and_marked();
    void mark_goes_with_the_edit_of_its_line();
    void checked_again_only_what_is_wrong_then_is_marked();
    void journal_without_errors_is_told();
    void python_is_not_checked();
    void listener_may_end_the_check_and_close_the_journal();
    void entry_is_removed_with_the_check();
    void key_checks_too();

private:
    QPlainTextEdit* open(const QString& text);
    static QAction* action();
    /** The numbers of the lines that are marked, from 1. */
    static QList<int> marked(const QPlainTextEdit* journal);
};

void TstJournalCheck::tear_down()
{
    if (QPlainTextEdit* journal = current_journal(window().journal_editor()))
        journal->document()->setModified(false);
    window().journal_editor()->close();
    flush();
}

QAction* TstJournalCheck::action()
{
    for (QAction* action : window().journal_editor()->actions()) {
        if (action->objectName() == "checkJournal"_L1)
            return action;
    }
    return nullptr;
}

QPlainTextEdit* TstJournalCheck::open(const QString& text)
{
    enter({});
    window().journal_editor()->add_document(text);
    return current_journal(window().journal_editor());
}

QList<int> TstJournalCheck::marked(const QPlainTextEdit* journal)
{
    flush();
    QList<int> lines;
    for (QTextBlock block = journal->document()->begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            const int line = block.blockNumber() + 1;
            if (range.format.underlineStyle() == QTextCharFormat::WaveUnderline && !lines.endsWith(line))
                lines << line;
        }
    }
    return lines;
}

void TstJournalCheck::wrong_lines_are_told_and_marked()
{
    QPlainTextEdit* journal = open(u"echo a\nsing\nset 1x 2\necho b\n"_s);
    QVERIFY(action());
    action()->trigger();
    QTRY_COMPARE(marked(journal), QList<int>({2, 3}));
    QCOMPARE(journal->textCursor().blockNumber(), 1);
    QVERIFY(text().contains("ERROR: Untitled:2: sing: column 1: expected a command, found \"sing\""_L1));
    QVERIFY(text().contains("ERROR: Untitled:3: set: column 5: expected a name, found \"1x\""_L1));
    QVERIFY(!text().contains("\na\n"_L1));
    QVERIFY(!journal->document()->isUndoAvailable());
}

void TstJournalCheck::mark_goes_with_the_edit_of_its_line()
{
    QPlainTextEdit* journal = open(u"sing\ndance\n"_s);
    action()->trigger();
    QTRY_COMPARE(marked(journal), QList<int>({1, 2}));
    journal->moveCursor(QTextCursor::Start);
    journal->insertPlainText(u"echo "_s);
    QTRY_COMPARE(marked(journal), QList<int>{2});
    journal->insertPlainText(u"\n"_s);
    QTRY_COMPARE(marked(journal), QList<int>{3});
}

void TstJournalCheck::checked_again_only_what_is_wrong_then_is_marked()
{
    QPlainTextEdit* journal = open(u"sing\ndance\n"_s);
    action()->trigger();
    journal->setPlainText(u"echo sing\ndance\n"_s);
    action()->trigger();
    QTRY_COMPARE(marked(journal), QList<int>{2});
    journal->setPlainText(u"echo dance\n"_s);
    action()->trigger();
    QTRY_COMPARE(marked(journal), QList<int>());
}

void TstJournalCheck::journal_without_errors_is_told()
{
    const QString file = write_temp(u"good.jou"_s, "echo a\n");
    enter({});
    window().journal_editor()->open_file(file);
    action()->trigger();
    flush();
    QVERIFY2(text().contains(u"No errors were found in %1."_s.arg(file)), qPrintable(text()));
}

void TstJournalCheck::python_is_not_checked()
{
    QPlainTextEdit* journal = open(u"#!python\nsing\n"_s);
    action()->trigger();
    QTRY_COMPARE(marked(journal), QList<int>());
    QVERIFY(text().contains("Untitled is a Python script"_L1));
}

void TstJournalCheck::listener_may_end_the_check_and_close_the_journal()
{
    const QPointer<QPlainTextEdit> journal = open(u"sing\ndance\n"_s);
    QStringList told;
    auto context = std::make_unique<ComponentContext>(u"test"_s);
    add_journal_check(
        *context, Fennar::instance().interpreter(), [](const QString&) {},
        [&](const QString& text) {
            told << text;
            context.reset();
            delete journal;
        });
    window().journal_editor()->actions().last()->trigger();
    QCOMPARE(told.size(), 1);
    QVERIFY(!context && !journal);
}

void TstJournalCheck::entry_is_removed_with_the_check()
{
    const auto ignore = [](const QString&) {};
    QPlainTextEdit* journal = open(u"sing\n"_s);
    JournalEditor* editor = window().journal_editor();
    const qsizetype keys = editor->actions().size();
    auto context = std::make_unique<ComponentContext>(u"test"_s);
    add_journal_check(*context, Fennar::instance().interpreter(), ignore, ignore);
    QCOMPARE(editor->actions().size(), keys + 1);
    const QPointer<QAction> entry = editor->actions().last();
    entry->trigger();
    QTRY_COMPARE(marked(journal), QList<int>{1});
    context.reset();
    QVERIFY(!entry);
    QCOMPARE(editor->actions().size(), keys);
    // The marks stay.
    QCOMPARE(marked(journal), QList<int>{1});
}

void TstJournalCheck::key_checks_too()
{
    QPlainTextEdit* journal = open(u"sing\n"_s);
    JournalEditor* editor = window().journal_editor();
    editor->show();
    editor->activateWindow();
    QTRY_VERIFY(editor->isActiveWindow());
    journal->setFocus();
    QTest::keyClick(editor->windowHandle(), Qt::Key_F7);
    QTRY_COMPARE(marked(journal), QList<int>{1});
}

OSTREL_TEST(TstJournalCheck)
#include "tst_journalcheck.moc"
