// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a journal document does with its lines: comments, gathering, playing, translating.

#include "document.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/processor_time.h"
#include "support/windows.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class TstJournalDocumentText : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void comment_puts_a_mark_into_the_first_column_data();
    void comment_puts_a_mark_into_the_first_column();
    void uncomment_takes_one_mark_from_the_first_column_data();
    void uncomment_takes_one_mark_from_the_first_column();
    void comments_reach_from_first_to_last_inclusive();
    void last_below_zero_means_the_last_block();
    void each_commented_line_is_its_own_edit();
    void each_uncommented_line_is_its_own_edit();
    void uncomment_writes_back_what_it_leaves();
    void uncomment_takes_no_longer_than_comment_for_lines_of_one_length();
    void uncomment_leaves_room_for_the_longest_line();
    void comment_commands_take_every_line_the_selection_touches_data();
    void comment_commands_take_every_line_the_selection_touches();
    void first_line_decides_whether_all_are_commented_data();
    void first_line_decides_whether_all_are_commented();
    void gathered_text_data();
    void gathered_text();
    void gathering_keeps_characters_that_plain_text_changes();
    void whole_document_is_played_as_file_data();
    void whole_document_is_played_as_file();
    void lines_of_the_selection_are_played_data();
    void lines_of_the_selection_are_played();
    void without_a_selection_nothing_is_played_or_translated();
    void only_minus_one_plays_as_file();
    void playing_activates_the_main_window();
    void playing_works_without_a_main_window();
    void playing_leaves_the_document_as_it_is();
    void file_is_translated_under_a_first_line_data();
    void file_is_translated_under_a_first_line();
    void translation_of_a_file_is_undone_in_two_steps();
    void lines_of_the_selection_are_translated_data();
    void lines_of_the_selection_are_translated();
    void translation_of_a_selection_is_undone_in_one_step();
    void keys_comment_and_play_only_in_the_current_tab();

private:
    JournalDocument* open(const QStringList& text);

    std::unique_ptr<JournalEditor> mEditor;
    std::unique_ptr<QSignalSpy> mPlayed;
    std::unique_ptr<QSignalSpy> mPlayedAsFile;
};

void TstJournalDocumentText::set_up()
{
    HostDouble::instance().reset();
    mEditor = std::make_unique<JournalEditor>();
    mPlayed = std::make_unique<QSignalSpy>(mEditor.get(), &JournalEditor::processCommands);
    mPlayedAsFile = std::make_unique<QSignalSpy>(mEditor.get(), &JournalEditor::processCommandsAsFile);
}

void TstJournalDocumentText::tear_down()
{
    mPlayed.reset();
    mPlayedAsFile.reset();
    mEditor.reset();
}

/** Makes the editor's current document hold @p text, one line each. */
JournalDocument* TstJournalDocumentText::open(const QStringList& text)
{
    JournalDocument* document = mEditor->returnCurrentDocument();
    document->setPlainText(text.join(u'\n'));
    document->document()->setModified(false);
    return document;
}

void TstJournalDocumentText::comment_puts_a_mark_into_the_first_column_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("commented");

    QTest::newRow("plain") << u"a"_s << u"#a"_s;
    QTest::newRow("commented already") << u"#a"_s << u"##a"_s;
    QTest::newRow("behind blanks") << u"  a"_s << u"#  a"_s;
    QTest::newRow("empty") << u""_s << u"#"_s;
}

void TstJournalDocumentText::comment_puts_a_mark_into_the_first_column()
{
    QFETCH(const QString, line);
    QFETCH(const QString, commented);
    JournalDocument* document = open({line});
    document->comment_lines(0, 0);
    QCOMPARE(lines(*document), QStringList(commented));
}

void TstJournalDocumentText::uncomment_takes_one_mark_from_the_first_column_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("uncommented");

    QTest::newRow("commented twice") << u"##a"_s << u"#a"_s;
    QTest::newRow("commented") << u"#a"_s << u"a"_s;
    QTest::newRow("blank behind the mark") << u"# a"_s << u" a"_s;
    QTest::newRow("mark behind blanks") << u"  #a"_s << u"  #a"_s;
    QTest::newRow("plain") << u"a"_s << u"a"_s;
    QTest::newRow("mark alone") << u"#"_s << u""_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("mark at the end") << u"a#"_s << u"a#"_s;
}

void TstJournalDocumentText::uncomment_takes_one_mark_from_the_first_column()
{
    QFETCH(const QString, line);
    QFETCH(const QString, uncommented);
    JournalDocument* document = open({line});
    document->uncomment_lines(0, 0);
    QCOMPARE(lines(*document), QStringList(uncommented));
}

void TstJournalDocumentText::comments_reach_from_first_to_last_inclusive()
{
    JournalDocument* document = open({u"a"_s, u""_s, u"b"_s, u"c"_s});
    document->comment_lines(1, 2);
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"#"_s, u"#b"_s, u"c"_s}));
    document->uncomment_lines(2, 3);
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"#"_s, u"b"_s, u"c"_s}));
}

void TstJournalDocumentText::last_below_zero_means_the_last_block()
{
    JournalDocument* document = open({u"a"_s, u"b"_s, u"c"_s});
    document->comment_lines(1, -1);
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"#b"_s, u"#c"_s}));
    document->uncomment_lines(2, -7);
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"#b"_s, u"c"_s}));
}

void TstJournalDocumentText::each_commented_line_is_its_own_edit()
{
    JournalDocument* document = open({u""_s, u""_s, u"a"_s});
    document->comment_lines(0, -1);
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"#"_s, u"#"_s, u"a"_s}));
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"#"_s, u""_s, u"a"_s}));
    document->undo();
    QCOMPARE(lines(*document), QStringList({u""_s, u""_s, u"a"_s}));
    QVERIFY(!document->document()->isUndoAvailable());
}

void TstJournalDocumentText::each_uncommented_line_is_its_own_edit()
{
    JournalDocument* document = open({u"#a"_s, u"#b"_s});
    document->uncomment_lines(0, -1);
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"#b"_s}));
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"#a"_s, u"#b"_s}));
    QVERIFY(!document->document()->isUndoAvailable());
}

void TstJournalDocumentText::uncomment_writes_back_what_it_leaves()
{
    JournalDocument* document = open({u"a"_s});
    QVERIFY(!document->document()->isModified());
    document->uncomment_lines(0, 0);
    QVERIFY(document->document()->isModified());
}

/** It took the square of the number of lines, since each was the longest one when its turn came. */
void TstJournalDocumentText::uncomment_takes_no_longer_than_comment_for_lines_of_one_length()
{
    constexpr int count = 10'000;
    JournalDocument* document = open(QStringList(count, u"volume size 0.5"_s));
    QCOMPARE(takes_too_long(
                 6, [&] { return processor_time([&] { document->comment_lines(0, -1); }); },
                 [&] { return processor_time([&] { document->uncomment_lines(0, -1); }); }),
             QString());
    QCOMPARE(lines(*document), QStringList(count, u"volume size 0.5"_s));
}

void TstJournalDocumentText::uncomment_leaves_room_for_the_longest_line()
{
    const QString longest(300, u'x');
    JournalDocument* document = open({u"#a"_s, u'#' + longest, u"#b"_s, u"#"_s + QString(200, u'x')});
    QVERIFY(show_active(mEditor.get()));
    const auto range = [document] { return document->horizontalScrollBar()->maximum(); };
    document->uncomment_lines(0, -1);
    const int uncommented = range();
    document->setPlainText(QStringList({u"a"_s, longest, u"b"_s, QString(200, u'x')}).join(u'\n'));
    QVERIFY(range() > 0);
    QCOMPARE(uncommented, range());
    mEditor->hide();
}

void TstJournalDocumentText::comment_commands_take_every_line_the_selection_touches_data()
{
    QTest::addColumn<QList<int>>("selection");
    QTest::addColumn<QStringList>("commented");

    const QString a = u"ab"_s;
    const QString m = u"#ab"_s;
    QTest::newRow("cursor alone") << QList<int>{1, 1, 1, 1} << QStringList{a, m, a, a};
    QTest::newRow("within a line") << QList<int>{1, 0, 1, 1} << QStringList{a, m, a, a};
    QTest::newRow("middle to middle") << QList<int>{1, 1, 2, 1} << QStringList{a, m, m, a};
    QTest::newRow("ends in column 0") << QList<int>{0, 0, 1, 0} << QStringList{m, m, a, a};
    QTest::newRow("made backwards") << QList<int>{3, 0, 2, 1} << QStringList{a, a, m, m};
}

void TstJournalDocumentText::comment_commands_take_every_line_the_selection_touches()
{
    QFETCH(const QList<int>, selection);
    QFETCH(const QStringList, commented);
    const QStringList before(4, u"ab"_s);
    JournalDocument* document = open(before);
    select(*document, selection[0], selection[1], selection[2], selection[3]);
    mEditor->commentSelected();
    QCOMPARE(lines(*document), commented);

    document = open(QStringList(4, u"#ab"_s));
    select(*document, selection[0], selection[1], selection[2], selection[3]);
    mEditor->uncommentSelected();
    for (int line = 0; line < 4; ++line)
        QCOMPARE(lines(*document).at(line), commented.at(line) == before.at(line) ? u"#ab"_s : u"ab"_s);
}

void TstJournalDocumentText::first_line_decides_whether_all_are_commented_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");

    QTest::newRow("commented first") << QStringList{u"#a"_s, u"b"_s} << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("plain first") << QStringList{u"a"_s, u"#b"_s} << QStringList{u"#a"_s, u"##b"_s};
    QTest::newRow("mark behind a blank") << QStringList{u" #a"_s, u"b"_s} << QStringList{u"# #a"_s, u"#b"_s};
    QTest::newRow("empty first") << QStringList{u""_s, u"#b"_s} << QStringList{u"#"_s, u"##b"_s};
}

void TstJournalDocumentText::first_line_decides_whether_all_are_commented()
{
    QFETCH(const QStringList, before);
    QFETCH(const QStringList, after);
    JournalDocument* document = open(before);
    // The caret is in the second line one time and in the first the other.
    select(*document, 0, 0, 1, 1);
    mEditor->commentOrUncommentSelected();
    QCOMPARE(lines(*document), after);
    document = open(before);
    select(*document, 1, 1, 0, 0);
    mEditor->commentOrUncommentSelected();
    QCOMPARE(lines(*document), after);
}

void TstJournalDocumentText::gathered_text_data()
{
    QTest::addColumn<QStringList>("text");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("gathered");

    const QString a = u"a"_s;
    const QString b = u"b"_s;
    QTest::newRow("whole document") << QStringList{a, u""_s, b} << 0 << 2 << u"a\n\nb"_s;
    QTest::newRow("empty first block") << QStringList{u""_s, b} << 0 << 1 << u"\n\nb"_s;
    QTest::newRow("from the second block") << QStringList{a, b} << 1 << 1 << u"\nb"_s;
    QTest::newRow("first block alone") << QStringList{a, b} << 0 << 0 << u"a"_s;
    QTest::newRow("empty document") << QStringList{u""_s} << 0 << 0 << u"\n"_s;
    QTest::newRow("empty block in the middle") << QStringList{a, u""_s, b} << 1 << 2 << u"\n\nb"_s;
    QTest::newRow("empty last block") << QStringList{a, u""_s} << 0 << 1 << u"a\n"_s;
    QTest::newRow("three empty blocks") << QStringList{u""_s, u""_s, u""_s} << 0 << 2 << u"\n\n\n"_s;
    QTest::newRow("empty first block alone") << QStringList{u""_s, b} << 0 << 0 << u"\n"_s;
    QTest::newRow("two of three") << QStringList{a, b, a} << 0 << 1 << u"a\nb"_s;
    QTest::newRow("empty first block of more") << QStringList{u""_s, b, a} << 0 << 1 << u"\n\nb"_s;
    QTest::newRow("no block") << QStringList{a, b} << 1 << 0 << u""_s;
}

void TstJournalDocumentText::gathered_text()
{
    QFETCH(const QStringList, text);
    QFETCH(const int, first);
    QFETCH(const int, last);
    const JournalDocument* document = open(text);
    QTEST(document->collect_lines(first, last), "gathered");
}

void TstJournalDocumentText::gathering_keeps_characters_that_plain_text_changes()
{
    const JournalDocument* document = open({u"a\u00A0\u2028b"_s, u"\u00A0\u2028"_s});
    QVERIFY(document->toPlainText() != u"a\u00A0\u2028b\n\u00A0\u2028"_s);
    QCOMPARE(document->collect_lines(0, 1), u"a\u00A0\u2028b\n\u00A0\u2028"_s);
    QCOMPARE(document->collect_lines(0, 0), u"a\u00A0\u2028b"_s);
    QCOMPARE(document->collect_lines(1, 1), u"\n\u00A0\u2028"_s);
}

void TstJournalDocumentText::whole_document_is_played_as_file_data()
{
    QTest::addColumn<QStringList>("text");
    QTest::addColumn<QStringList>("played");

    QTest::newRow("two lines") << QStringList{u"a"_s, u"b"_s} << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("empty last line") << QStringList{u"a"_s, u""_s} << QStringList{u"a"_s, u""_s};
    QTest::newRow("empty first line") << QStringList{u""_s, u"b"_s} << QStringList{u""_s, u""_s, u"b"_s};
    QTest::newRow("empty document") << QStringList{u""_s} << QStringList{u""_s, u""_s};
    QTest::newRow("nothing is left out or changed")
        << QStringList{u"#!python"_s, u"# c"_s, u" run \\"_s, u" on "_s, u"fennar.cmd('a')"_s}
        << QStringList{u"#!python"_s, u"# c"_s, u" run \\"_s, u" on "_s, u"fennar.cmd('a')"_s};
}

void TstJournalDocumentText::whole_document_is_played_as_file()
{
    QFETCH(const QStringList, text);
    QFETCH(const QStringList, played);
    open(text);
    mEditor->playFile();
    QCOMPARE(mPlayed->count(), 0);
    QCOMPARE(mPlayedAsFile->count(), 1);
    QCOMPARE(mPlayedAsFile->first().first().toStringList(), played);
}

void TstJournalDocumentText::lines_of_the_selection_are_played_data()
{
    QTest::addColumn<QList<int>>("selection");
    QTest::addColumn<QStringList>("played");

    const QString none = u""_s;
    QTest::newRow("within the first line") << QList<int>{0, 0, 0, 1} << QStringList{u"l0"_s};
    QTest::newRow("middle to middle") << QList<int>{0, 1, 1, 1} << QStringList{u"l0"_s, u"l1"_s};
    QTest::newRow("later lines begin with an empty one")
        << QList<int>{1, 0, 2, 1} << QStringList{none, u"l1"_s, u"l2"_s};
    QTest::newRow("one line with its end") << QList<int>{1, 0, 2, 0} << QStringList{none, u"l1"_s};
    QTest::newRow("one line with its end, backwards") << QList<int>{2, 0, 1, 0} << QStringList{none, u"l1"_s};
    QTest::newRow("the end of a line alone") << QList<int>{1, 2, 2, 0} << QStringList{none, u"l1"_s};
    QTest::newRow("several lines with their ends")
        << QList<int>{1, 0, 4, 0} << QStringList{none, u"l1"_s, u"l2"_s, u"l3"_s, u"l4"_s};
    QTest::newRow("two lines with their ends")
        << QList<int>{0, 0, 2, 0} << QStringList{u"l0"_s, u"l1"_s, u"l2"_s};
}

void TstJournalDocumentText::lines_of_the_selection_are_played()
{
    QFETCH(const QList<int>, selection);
    QFETCH(const QStringList, played);
    JournalDocument* document = open({u"l0"_s, u"l1"_s, u"l2"_s, u"l3"_s, u"l4"_s});
    select(*document, selection[0], selection[1], selection[2], selection[3]);
    mEditor->playSelected();
    QCOMPARE(mPlayedAsFile->count(), 0);
    QCOMPARE(mPlayed->count(), 1);
    QCOMPARE(mPlayed->first().first().toStringList(), played);
}

void TstJournalDocumentText::without_a_selection_nothing_is_played_or_translated()
{
    const JournalDocument* document = open({u"a"_s});
    mEditor->playSelected();
    mEditor->pythonizeSelected();
    QCOMPARE(mPlayed->count() + mPlayedAsFile->count(), 0);
    QCOMPARE(lines(*document), QStringList(u"a"_s));
    QVERIFY(!document->document()->isModified());
}

void TstJournalDocumentText::only_minus_one_plays_as_file()
{
    JournalDocument* document = open({u"a"_s, u"b"_s});
    document->play_lines(0, -2);
    QCOMPARE(mPlayedAsFile->count(), 0);
    QCOMPARE(mPlayed->count(), 1);
    QCOMPARE(mPlayed->takeFirst().first().toStringList(), QStringList({u"a"_s, u"b"_s}));
    document->play_lines(1, -1);
    QCOMPARE(mPlayedAsFile->count(), 1);
    QCOMPARE(mPlayedAsFile->first().first().toStringList(), QStringList({u""_s, u"b"_s}));
}

void TstJournalDocumentText::playing_activates_the_main_window()
{
    MainFrame frame;
    QVERIFY(frame.load_gui());
    QVERIFY(show_active(Ostrel::instance()));
    QVERIFY(show_active(mEditor.get()));
    open({u"a"_s});
    mEditor->playSelected();
    QVERIFY(mEditor->isActiveWindow());

    bool in_front = false;
    connect(mEditor.get(), &JournalEditor::processCommandsAsFile, this,
            [&] { in_front = QTest::qWaitForWindowActive(Ostrel::instance()); });
    mEditor->playFile();
    QVERIFY(in_front);
    mEditor->hide();
    frame.unload_gui();
}

void TstJournalDocumentText::playing_works_without_a_main_window()
{
    QVERIFY(!Ostrel::instance());
    open({u"a"_s});
    mEditor->playFile();
    QCOMPARE(mPlayedAsFile->count(), 1);
}

void TstJournalDocumentText::playing_leaves_the_document_as_it_is()
{
    const JournalDocument* document = open({u"a"_s});
    for (const bool modified : {true, false}) {
        document->document()->setModified(modified);
        mEditor->playFile();
        QCOMPARE(document->document()->isModified(), modified);
        QCOMPARE(lines(*document), QStringList(u"a"_s));
    }
}

void TstJournalDocumentText::file_is_translated_under_a_first_line_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");

    const QString mark = u"#!python"_s;
    QTest::newRow("two commands") << QStringList{u"a"_s, u"b"_s}
                                  << QStringList{mark, u"fennar.cmd('a')"_s, u"fennar.cmd('b')"_s};
    QTest::newRow("empty document") << QStringList{u""_s} << QStringList{mark, u""_s, u""_s};
    QTest::newRow("empty first line becomes two")
        << QStringList{u""_s, u"a"_s} << QStringList{mark, u""_s, u""_s, u"fennar.cmd('a')"_s};
    QTest::newRow("translated already")
        << QStringList{mark, u"fennar.cmd('a')"_s}
        << QStringList{mark, u"fennar.cmd('#!python')"_s, u"fennar.cmd('fennar.cmd(\\'a\\')')"_s};
    QTest::newRow("begins with an apostrophe")
        << QStringList{u"'a'"_s, u"it's"_s}
        << QStringList{mark, u"fennar.cmd('\\\\'a\\\\'"_s, u"')fennar.cmd('it\\\\'s\\'')"_s};
    QTest::newRow("empty last line") << QStringList{u"a"_s, u""_s}
                                     << QStringList{mark, u"fennar.cmd('a')"_s, u""_s};
}

void TstJournalDocumentText::file_is_translated_under_a_first_line()
{
    QFETCH(const QStringList, before);
    const JournalDocument* document = open(before);
    mEditor->pythonizeFile();
    QTEST(lines(*document), "after");
    QVERIFY(document->document()->isModified());
}

void TstJournalDocumentText::translation_of_a_file_is_undone_in_two_steps()
{
    JournalDocument* document = open({u"a"_s, u"b"_s});
    mEditor->pythonizeFile();
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"fennar.cmd('a')"_s, u"fennar.cmd('b')"_s}));
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"b"_s}));
    QVERIFY(!document->document()->isUndoAvailable());
    QVERIFY(!document->document()->isModified());
}

void TstJournalDocumentText::lines_of_the_selection_are_translated_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QList<int>>("selection");
    QTest::addColumn<QStringList>("after");

    const QString a = u"a"_s;
    const QString b = u"b"_s;
    const QString c = u"c"_s;
    const QString call_a = u"fennar.cmd('a')"_s;
    const QString call_b = u"fennar.cmd('b')"_s;
    const QString call_c = u"fennar.cmd('c')"_s;
    QTest::newRow("first line") << QStringList{a, b} << QList<int>{0, 0, 0, 1} << QStringList{call_a, b};
    QTest::newRow("line in the middle")
        << QStringList{a, b, c} << QList<int>{1, 0, 1, 1} << QStringList{a, call_b, c};
    QTest::newRow("line with its end")
        << QStringList{a, b, c} << QList<int>{1, 0, 2, 0} << QStringList{a, call_b, c};
    QTest::newRow("to the end") << QStringList{a, b, c} << QList<int>{1, 1, 2, 1}
                                << QStringList{a, call_b, call_c};
    QTest::newRow("apostrophe at the begin of a later line")
        << QStringList{a, u"'b"_s} << QList<int>{1, 0, 1, 1} << QStringList{a, u"fennar.cmd('\\'b\\'')"_s};
    QTest::newRow("empty first block of the document")
        << QStringList{u""_s, b, c} << QList<int>{0, 0, 1, 1} << QStringList{u""_s, u""_s, call_b, c};
    QTest::newRow("empty block in the middle")
        << QStringList{a, u""_s, b, c} << QList<int>{1, 0, 2, 1} << QStringList{a, u""_s, u""_s, call_b, c};
}

void TstJournalDocumentText::lines_of_the_selection_are_translated()
{
    QFETCH(const QStringList, before);
    QFETCH(const QList<int>, selection);
    JournalDocument* document = open(before);
    select(*document, selection[0], selection[1], selection[2], selection[3]);
    mEditor->pythonizeSelected();
    QTEST(lines(*document), "after");
}

void TstJournalDocumentText::translation_of_a_selection_is_undone_in_one_step()
{
    JournalDocument* document = open({u"a"_s, u"b"_s, u"c"_s});
    select(*document, 1, 0, 2, 1);
    mEditor->pythonizeSelected();
    QVERIFY(document->document()->isModified());
    document->undo();
    QCOMPARE(lines(*document), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    QVERIFY(!document->document()->isModified());
}

void TstJournalDocumentText::keys_comment_and_play_only_in_the_current_tab()
{
    JournalDocument* other = open({u"a"_s});
    other->document()->setModified(true); // so that it is not used again
    mEditor->add_document(u"b"_s);
    JournalDocument* current = mEditor->returnCurrentDocument();
    QVERIFY(current != other);
    QVERIFY(show_active(mEditor.get()));

    // The editor is a window, so the keys need not go to the document.
    QTest::keyClick(mEditor.get(), Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(lines(*current), QStringList(u"#b"_s));
    QTest::keyClick(current, Qt::Key_Slash, Qt::ControlModifier);
    QCOMPARE(lines(*current), QStringList(u"b"_s));
    QTest::keyClick(current, Qt::Key_F5, Qt::ControlModifier);
    QCOMPARE(mPlayed->count(), 0);
    current->selectAll();
    QTest::keyClick(current, Qt::Key_F5, Qt::ControlModifier);
    QCOMPARE(mPlayed->count(), 1);
    QCOMPARE(mPlayed->first().first().toStringList(), QStringList(u"b"_s));
    QCOMPARE(lines(*other), QStringList(u"a"_s));
    mEditor->hide();
}

OSTREL_TEST(TstJournalDocumentText)
#include "tst_journaldocument_text.moc"
