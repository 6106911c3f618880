// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "editor_helpers.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace {

/** Selects from a line and column to another, both counted from 0. */
void select(JournalDocument* doc, int first_line, int first_column, int last_line, int last_column)
{
    const auto position = [doc](int line, int column) {
        return doc->document()->findBlockByNumber(line).position() + column;
    };
    QTextCursor cursor = doc->textCursor();
    cursor.setPosition(position(first_line, first_column));
    cursor.setPosition(position(last_line, last_column), QTextCursor::KeepAnchor);
    doc->setTextCursor(cursor);
}

} // namespace

class TstJournalEditorPlayback : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void whole_document_is_played_line_by_line_data();
    void whole_document_is_played_line_by_line();
    void selection_is_played_by_whole_lines_data();
    void selection_is_played_by_whole_lines();
    void selection_backwards_is_played_like_forwards();
    void nothing_selected_plays_nothing();
    void playing_leaves_the_document_as_it_is();
    void playing_brings_the_main_window_to_the_front();
    void playing_without_a_main_window_works();
    void signal_comes_before_the_call_returns();
    void receiver_may_close_the_document_that_it_plays_data();
    void receiver_may_close_the_document_that_it_plays();
    void keys_play();
    void file_is_translated_under_its_first_line();
    void selection_is_translated_by_the_same_rule();

private:
    JournalEditor& editor() { return *mWindow->journal_editor(); }
    JournalDocument* doc() { return document_of(editor(), 0); }

    std::unique_ptr<Ostrel> mWindow;
};

void TstJournalEditorPlayback::set_up()
{
    HostDouble::instance().reset();
    mWindow = std::make_unique<Ostrel>();
}

void TstJournalEditorPlayback::tear_down()
{
    mWindow.reset();
}

void TstJournalEditorPlayback::whole_document_is_played_line_by_line_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("two lines") << u"a\nb"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("last line empty") << u"a\n"_s << QStringList{u"a"_s, u""_s};
    QTest::newRow("first line empty") << u"\nb"_s << QStringList{u""_s, u""_s, u"b"_s};
    QTest::newRow("empty document") << u""_s << QStringList{u""_s, u""_s};
    QTest::newRow("line empty in the middle") << u"a\n\nb"_s << QStringList{u"a"_s, u""_s, u"b"_s};
    QTest::newRow("comments, continuations, blanks, script")
        << u"#!python\n# note\n  run \\\n  now\nfennar.cmd('a')\n \t"_s
        << QStringList{u"#!python"_s, u"# note"_s, u"  run \\"_s, u"  now"_s, u"fennar.cmd('a')"_s, u" \t"_s};
}

void TstJournalEditorPlayback::whole_document_is_played_line_by_line()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, lines);
    doc()->setPlainText(text);
    QSignalSpy file(&editor(), &JournalEditor::processCommandsAsFile);
    QSignalSpy selection(&editor(), &JournalEditor::processCommands);
    action_of(editor(), u"toolsPlayAction"_s)->trigger();
    QCOMPARE(file.size(), 1);
    QCOMPARE(file.at(0).at(0).toStringList(), lines);
    QCOMPARE(selection.size(), 0);
}

void TstJournalEditorPlayback::selection_is_played_by_whole_lines_data()
{
    QTest::addColumn<QList<int>>("range");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char* name, const QList<int>& range) -> QTestData& {
        return QTest::newRow(name) << range;
    };
    row("part of the first line", {0, 1, 0, 2}) << QStringList{u"one"_s};
    row("part of a later line", {1, 1, 1, 2}) << QStringList{u""_s, u"two"_s};
    row("middle to middle", {0, 1, 1, 2}) << QStringList{u"one"_s, u"two"_s};
    row("later lines", {1, 0, 2, 5}) << QStringList{u""_s, u"two"_s, u"three"_s};
    row("first line with its end", {0, 0, 1, 0}) << QStringList{u"one"_s};
    row("later line with its end", {1, 0, 2, 0}) << QStringList{u""_s, u"two"_s};
    row("rest of a line with its end", {1, 2, 2, 0}) << QStringList{u""_s, u"two"_s};
    row("two lines with their ends", {1, 0, 3, 0}) << QStringList{u""_s, u"two"_s, u"three"_s, u"four"_s};
    row("ends one column further", {1, 0, 2, 1}) << QStringList{u""_s, u"two"_s, u"three"_s};
    row("line end alone", {0, 3, 1, 0}) << QStringList{u"one"_s};
    row("all", {0, 0, 3, 4}) << QStringList{u"one"_s, u"two"_s, u"three"_s, u"four"_s};
}

void TstJournalEditorPlayback::selection_is_played_by_whole_lines()
{
    QFETCH(const QList<int>, range);
    QFETCH(const QStringList, lines);
    doc()->setPlainText(u"one\ntwo\nthree\nfour"_s);
    select(doc(), range[0], range[1], range[2], range[3]);
    QSignalSpy file(&editor(), &JournalEditor::processCommandsAsFile);
    QSignalSpy selection(&editor(), &JournalEditor::processCommands);
    editor().playSelected();
    QCOMPARE(selection.size(), 1);
    QCOMPARE(selection.at(0).at(0).toStringList(), lines);
    QCOMPARE(file.size(), 0);
}

void TstJournalEditorPlayback::selection_backwards_is_played_like_forwards()
{
    doc()->setPlainText(u"one\ntwo\nthree"_s);
    select(doc(), 2, 0, 1, 0);
    QSignalSpy selection(&editor(), &JournalEditor::processCommands);
    editor().playSelected();
    QCOMPARE(selection.at(0).at(0).toStringList(), QStringList({u""_s, u"two"_s}));
}

void TstJournalEditorPlayback::nothing_selected_plays_nothing()
{
    doc()->setPlainText(u"one\ntwo"_s);
    QVERIFY(show_active(mWindow.get()));
    QVERIFY(show_active(&editor()));
    QSignalSpy file(&editor(), &JournalEditor::processCommandsAsFile);
    QSignalSpy selection(&editor(), &JournalEditor::processCommands);
    editor().playSelected();
    QCOMPARE(file.size() + selection.size(), 0);
    QVERIFY(editor().isActiveWindow());
    editor().close();
    mWindow->hide();
}

void TstJournalEditorPlayback::playing_leaves_the_document_as_it_is()
{
    doc()->insertPlainText(u"one\ntwo"_s);
    editor().playFile();
    QVERIFY(doc()->document()->isModified());
    doc()->document()->setModified(false);
    doc()->selectAll();
    editor().playFile();
    editor().playSelected();
    QVERIFY(!doc()->document()->isModified());
    QVERIFY(doc()->textCursor().hasSelection());
    QCOMPARE(doc()->toPlainText(), u"one\ntwo"_s);
    QCOMPARE(doc()->file_name(), QString());
}

void TstJournalEditorPlayback::playing_brings_the_main_window_to_the_front()
{
    doc()->setPlainText(u"one"_s);
    QVERIFY(show_active(mWindow.get()));
    for (const bool whole : {true, false}) {
        QVERIFY(show_active(&editor()));
        QVERIFY(!mWindow->isActiveWindow());
        doc()->selectAll();
        whole ? editor().playFile() : editor().playSelected();
        QTRY_VERIFY(mWindow->isActiveWindow());
    }
    editor().close();
    mWindow->hide();
}

void TstJournalEditorPlayback::playing_without_a_main_window_works()
{
    mWindow.reset();
    JournalEditor alone;
    alone.returnCurrentDocument()->setPlainText(u"one"_s);
    QSignalSpy file(&alone, &JournalEditor::processCommandsAsFile);
    alone.playFile();
    QCOMPARE(file.size(), 1);
}

void TstJournalEditorPlayback::signal_comes_before_the_call_returns()
{
    doc()->setPlainText(u"one"_s);
    QStringList order;
    connect(&editor(), &JournalEditor::processCommandsAsFile, mWindow.get(),
            [&order](const QStringList& cmds) { order << cmds; });
    editor().playFile();
    order << u"returned"_s;
    QCOMPARE(order, QStringList({u"one"_s, u"returned"_s}));
}

void TstJournalEditorPlayback::receiver_may_close_the_document_that_it_plays_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("F5") << u"F5"_s;
    QTest::newRow("Ctrl+F5") << u"Ctrl+F5"_s;
    QTest::newRow("menu") << QString();
}

void TstJournalEditorPlayback::receiver_may_close_the_document_that_it_plays()
{
    QFETCH(const QString, how);
    doc()->setPlainText(u"first"_s);
    editor().add_document(u"second"_s);
    const QPointer<JournalDocument> played = editor().returnCurrentDocument();
    played->document()->setModified(false);
    played->selectAll();
    QVERIFY(show_active(&editor()));
    played->setFocus();
    QStringList received;
    const auto close = [this, &received](const QStringList& cmds) {
        received << cmds;
        editor().fileClose();
    };
    connect(&editor(), &JournalEditor::processCommandsAsFile, mWindow.get(), close);
    connect(&editor(), &JournalEditor::processCommands, mWindow.get(), close);
    if (how.isEmpty()) {
        bool chosen = false;
        const MenuDriver driver([&](QMenu* menu) { chosen = choose(menu, u"Play Selected"_s); });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5},
                                played->viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(played->viewport(), &event);
        QVERIFY(chosen);
    } else {
        QTest::keySequence(editor().windowHandle(), QKeySequence(how, QKeySequence::PortableText));
    }
    QCOMPARE(received, QStringList(u"second"_s));
    QVERIFY(!played);
    QCOMPARE(texts_of(editor()), QStringList(u"first"_s));
    editor().close();
}

void TstJournalEditorPlayback::keys_play()
{
    doc()->setPlainText(u"one\ntwo"_s);
    select(doc(), 0, 0, 0, 1);
    QVERIFY(show_active(&editor()));
    doc()->setFocus();
    QSignalSpy file(&editor(), &JournalEditor::processCommandsAsFile);
    QSignalSpy selection(&editor(), &JournalEditor::processCommands);
    QTest::keyClick(editor().windowHandle(), Qt::Key_F5);
    QCOMPARE(file.size(), 1);
    QVERIFY(show_active(&editor()));
    QTest::keyClick(editor().windowHandle(), Qt::Key_F5, Qt::ControlModifier);
    QCOMPARE(selection.size(), 1);
    editor().close();
}

void TstJournalEditorPlayback::file_is_translated_under_its_first_line()
{
    doc()->setPlainText(u"one\ntwo"_s);
    action_of(editor(), u"toolsPythonize"_s)->trigger();
    QCOMPARE(doc()->toPlainText(), u"#!python\nfennar.cmd('one')\nfennar.cmd('two')"_s);
    QVERIFY(doc()->document()->isModified());
}

void TstJournalEditorPlayback::selection_is_translated_by_the_same_rule()
{
    doc()->setPlainText(u"one\ntwo\nthree\nfour"_s);
    editor().pythonizeSelected();
    QCOMPARE(doc()->toPlainText(), u"one\ntwo\nthree\nfour"_s);
    select(doc(), 1, 0, 2, 0);
    editor().pythonizeSelected();
    QCOMPARE(doc()->toPlainText(), u"one\nfennar.cmd('two')\nthree\nfour"_s);
}

OSTREL_TEST(TstJournalEditorPlayback)
#include "tst_journaleditor_playback.moc"
