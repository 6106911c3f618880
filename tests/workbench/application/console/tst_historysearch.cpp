// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/console/CommandHistory.h"
#include "workbench/application/console/HistorySearch.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstHistorySearch : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void letters_typed_narrow_to_the_newest_match();
    void search_again_goes_to_older_matches_and_stays_at_the_oldest();
    void line_entered_several_times_is_found_once();
    void letters_match_large_and_small();
    void text_that_is_nowhere_keeps_the_match_and_says_so();
    void backspace_widens_and_brings_the_typed_line_back_at_last();
    void return_takes_the_match_without_running_it();
    void escape_brings_back_what_was_typed_and_the_caret();
    void escape_outside_of_a_search_is_the_page_s();
    void other_key_takes_the_match_and_does_its_work();
    void paste_goes_into_the_match();
    void up_goes_on_from_the_match();
    void search_for_nothing_repeats_the_last_one();
    void output_and_prompt_stay_as_they_are();
    void hint_shows_the_text_only_while_searching();
    void hint_stands_clear_of_the_command_line();
    void composed_text_is_searched_for();
    void click_takes_the_match();
    void losing_the_focus_takes_the_match();
    void read_only_page_is_not_searched_from();
    void empty_history_finds_nothing();
    void forgotten_search_leaves_the_line_alone();

private:
    void key(int code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(mPage.get(), Qt::Key(code), modifiers);
    }
    void search() { key(Qt::Key_R, Qt::ControlModifier); }
    void type(const QString& text) { QTest::keyClicks(mPage.get(), text); }
    QString command() const { return mPage->currentCommand(); }
    QLabel* hint() const { return mPage->findChild<QLabel*>(u"historySearchHint"_s); }

    std::unique_ptr<CommandWidget> mPage;
    std::unique_ptr<CommandHistory> mHistory;
    std::unique_ptr<HistorySearch> mSearch;
};

void TstHistorySearch::set_up()
{
    mPage = std::make_unique<CommandWidget>();
    mHistory = std::make_unique<CommandHistory>();
    for (const auto& line : {u"brick x 10"_s, u"echo one"_s, u"brick x 20"_s, u"echo two"_s})
        mHistory->add(line);
    mSearch = std::make_unique<HistorySearch>(mPage.get(), *mHistory);
    mPage->resize(400, 300);
    mPage->printPrompt();
    QVERIFY(show_active(mPage.get()));
    mPage->setFocus();
    QVERIFY(mPage->hasFocus());
}

void TstHistorySearch::tear_down()
{
    mSearch.reset();
    mPage.reset();
}

void TstHistorySearch::letters_typed_narrow_to_the_newest_match()
{
    search();
    QCOMPARE(command(), QString());
    type(u"o"_s);
    QCOMPARE(command(), u"echo two"_s);
    type(u"n"_s);
    QCOMPARE(command(), u"echo one"_s);
    QVERIFY(mSearch->is_active());
}

void TstHistorySearch::search_again_goes_to_older_matches_and_stays_at_the_oldest()
{
    search();
    type(u"brick"_s);
    QCOMPARE(command(), u"brick x 20"_s);
    search();
    QCOMPARE(command(), u"brick x 10"_s);
    search();
    QCOMPARE(command(), u"brick x 10"_s);
    QVERIFY(hint()->text().startsWith("Not in the history"_L1));
}

void TstHistorySearch::line_entered_several_times_is_found_once()
{
    mHistory->add(u"brick x 20"_s);
    mHistory->add(u"echo three"_s);
    search();
    type(u"brick"_s);
    QCOMPARE(command(), u"brick x 20"_s);
    search();
    QCOMPARE(command(), u"brick x 10"_s);
}

void TstHistorySearch::letters_match_large_and_small()
{
    mHistory->add(u"set Part gear"_s);
    search();
    type(u"part GEAR"_s);
    QCOMPARE(command(), u"set Part gear"_s);
}

void TstHistorySearch::text_that_is_nowhere_keeps_the_match_and_says_so()
{
    search();
    type(u"echo o"_s);
    QCOMPARE(command(), u"echo one"_s);
    type(u"x"_s);
    QCOMPARE(command(), u"echo one"_s);
    QCOMPARE(hint()->text(), u"Not in the history: echo ox"_s);
    key(Qt::Key_Backspace);
    QCOMPARE(command(), u"echo one"_s);
    QCOMPARE(hint()->text(), u"Search in the history: echo o"_s);
}

void TstHistorySearch::backspace_widens_and_brings_the_typed_line_back_at_last()
{
    type(u"half"_s);
    search();
    type(u"on"_s);
    QCOMPARE(command(), u"echo one"_s);
    key(Qt::Key_Backspace);
    QCOMPARE(command(), u"echo two"_s);
    key(Qt::Key_Backspace);
    QCOMPARE(command(), u"half"_s);
    key(Qt::Key_Backspace);
    QCOMPARE(command(), u"half"_s);
    QVERIFY(mSearch->is_active());
}

void TstHistorySearch::return_takes_the_match_without_running_it()
{
    for (const int code : {Qt::Key_Return, Qt::Key_Enter}) {
        QSignalSpy entered(mPage.get(), &CommandWidget::commandEntered);
        search();
        type(u"brick"_s);
        key(code);
        QVERIFY(!mSearch->is_active());
        QCOMPARE(entered.size(), 0);
        QCOMPARE(command(), u"brick x 20"_s);
        QCOMPARE(mPage->cursorIndex(), command().size());
        key(code);
        QCOMPARE(entered.size(), 1);
        QCOMPARE(entered[0][0].toString(), u"brick x 20"_s);
        mPage->printPrompt();
    }
}

void TstHistorySearch::escape_brings_back_what_was_typed_and_the_caret()
{
    type(u"half typed"_s);
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    search();
    type(u"brick"_s);
    QCOMPARE(command(), u"brick x 20"_s);
    key(Qt::Key_Escape);
    QVERIFY(!mSearch->is_active());
    QCOMPARE(command(), u"half typed"_s);
    QCOMPARE(mPage->cursorIndex(), 8);
    type(u"!"_s);
    QCOMPARE(command(), u"half typ!ed"_s);
}

void TstHistorySearch::escape_outside_of_a_search_is_the_page_s()
{
    type(u"half"_s);
    key(Qt::Key_Escape);
    QCOMPARE(command(), u"half"_s);
    QVERIFY(!mSearch->is_active());
}

void TstHistorySearch::other_key_takes_the_match_and_does_its_work()
{
    search();
    type(u"brick"_s);
    key(Qt::Key_Left);
    QVERIFY(!mSearch->is_active());
    type(u"1"_s);
    QCOMPARE(command(), u"brick x 210"_s);
}

void TstHistorySearch::paste_goes_into_the_match()
{
    QGuiApplication::clipboard()->setText(u"00"_s);
    search();
    type(u"brick"_s);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(command(), u"brick x 2000"_s);
}

void TstHistorySearch::up_goes_on_from_the_match()
{
    connect(mPage.get(), &CommandWidget::historyUpEvent, this,
            [this] { mPage->setCurrentCommand(mHistory->previous(command())); });
    connect(mPage.get(), &CommandWidget::historyDownEvent, this,
            [this] { mPage->setCurrentCommand(mHistory->next(command())); });
    type(u"half"_s);
    search();
    type(u"20"_s);
    key(Qt::Key_Up);
    QCOMPARE(command(), u"echo one"_s);
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Down);
    QCOMPARE(command(), u"half"_s);
}

void TstHistorySearch::search_for_nothing_repeats_the_last_one()
{
    search();
    type(u"20"_s);
    key(Qt::Key_Escape);
    search();
    QCOMPARE(command(), QString());
    search();
    QCOMPARE(command(), u"brick x 20"_s);
    QCOMPARE(hint()->text(), u"Search in the history: 20"_s);
}

void TstHistorySearch::output_and_prompt_stay_as_they_are()
{
    mPage->printOutput(u"output\n"_s);
    type(u"half"_s);
    QTextCursor cursor(mPage->document());
    mPage->setTextCursor(cursor);
    QVERIFY(mPage->cursorIndex() < 0);
    search();
    type(u"brick"_s);
    QCOMPARE(mPage->toPlainText(), u"output\n$ brick x 20"_s);
    key(Qt::Key_Backspace);
    key(Qt::Key_Escape);
    QCOMPARE(mPage->toPlainText(), u"output\n$ half"_s);
}

void TstHistorySearch::hint_shows_the_text_only_while_searching()
{
    QVERIFY(!hint()->isVisible());
    search();
    QVERIFY(hint()->isVisible());
    QCOMPARE(hint()->text(), u"Search in the history: "_s);
    type(u"<b>"_s);
    QCOMPARE(hint()->text(), u"Not in the history: <b>"_s);
    QCOMPARE(hint()->accessibleName(), hint()->text());
    key(Qt::Key_Escape);
    QVERIFY(!hint()->isVisible());
}

void TstHistorySearch::hint_stands_clear_of_the_command_line()
{
    const auto line = [this] { return mPage->cursorRect(QTextCursor(mPage->document()->lastBlock())); };
    search();
    // The first line of the page has nothing above it.
    QVERIFY(!hint()->geometry().intersects(line()));
    QVERIFY(hint()->y() > line().bottom());
    // Output pushes the line down to the end of the page; the hint goes along.
    for (int i = 0; i < 100; ++i)
        mPage->printOutput(u"output\n"_s);
    QVERIFY(line().top() > hint()->height());
    QVERIFY(!hint()->geometry().intersects(line()));
    QVERIFY(hint()->geometry().bottom() < line().top());
    QVERIFY(mPage->viewport()->rect().contains(hint()->geometry().topLeft()));
}

void TstHistorySearch::composed_text_is_searched_for()
{
    mHistory->add(u"echo größe"_s);
    search();
    QInputMethodEvent composed;
    composed.setCommitString(u"größ"_s);
    QCoreApplication::sendEvent(mPage.get(), &composed);
    QCOMPARE(command(), u"echo größe"_s);
    QVERIFY(mSearch->is_active());
}

void TstHistorySearch::click_takes_the_match()
{
    search();
    type(u"brick"_s);
    QTest::mouseClick(mPage->viewport(), Qt::LeftButton);
    QVERIFY(!mSearch->is_active());
    QCOMPARE(command(), u"brick x 20"_s);
}

void TstHistorySearch::losing_the_focus_takes_the_match()
{
    search();
    type(u"brick"_s);
    mPage->clearFocus();
    QVERIFY(!mSearch->is_active());
    QVERIFY(!hint()->isVisible());
    QCOMPARE(command(), u"brick x 20"_s);
}

void TstHistorySearch::read_only_page_is_not_searched_from()
{
    mPage->setReadOnly(true);
    search();
    QVERIFY(!mSearch->is_active());
}

void TstHistorySearch::empty_history_finds_nothing()
{
    *mHistory = CommandHistory();
    search();
    search();
    type(u"a"_s);
    search();
    QCOMPARE(command(), QString());
    QVERIFY(hint()->text().startsWith("Not in the history"_L1));
    key(Qt::Key_Return);
    QVERIFY(!mSearch->is_active());
}

void TstHistorySearch::forgotten_search_leaves_the_line_alone()
{
    search();
    type(u"brick"_s);
    mPage->clearToPrompt();
    mSearch->forget();
    QVERIFY(!mSearch->is_active());
    QVERIFY(!hint()->isVisible());
    QCOMPARE(mPage->toPlainText(), u"$ "_s);
}

OSTREL_TEST(TstHistorySearch)
#include "tst_historysearch.moc"
