// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/console/CommandHistory.h"
#include "workbench/application/console/CompletionKey.h"
#include "workbench/application/console/HistorySearch.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstCompletionKey : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void only_candidate_goes_in_with_a_blank_behind_it();
    void blank_goes_in_only_at_the_end_and_where_it_belongs();
    void common_part_goes_in_first_and_a_second_tab_lists();
    void list_stands_above_the_prompt_and_the_line_stays();
    void something_typed_in_between_starts_anew();
    void caret_within_the_line_is_completed_there();
    void caret_in_the_output_completes_at_the_end();
    void nothing_that_fits_changes_nothing_and_a_second_tab_tells_the_usage();
    void name_of_several_lines_is_listed_on_one();
    void long_list_is_cut();
    void tab_with_modifiers_is_left_alone();
    void read_only_page_is_left_alone();
    void tab_in_a_search_takes_the_match_and_completes();
    void columns_fit_the_width_data();
    void columns_fit_the_width();

private:
    void key(int code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(mPage.get(), Qt::Key(code), modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(mPage.get(), text); }
    QString text() const { return mPage->toPlainText(); }

    std::unique_ptr<CommandWidget> mPage;
    std::unique_ptr<CompletionKey> mKey;
    /** Words that can be completed. */
    QStringList mWords;
    bool mFollowed = true;
    QString mHint;
};

void TstCompletionKey::set_up()
{
    mWords = {u"brick"_s, u"bring"_s, u"sphere"_s};
    mFollowed = true;
    mHint.clear();
    mPage = std::make_unique<CommandWidget>();
    mKey = std::make_unique<CompletionKey>(mPage.get(), [this](const QString& line, qsizetype caret) {
        LineCompletion result{.start = line.lastIndexOf(u' ', caret - line.size() - 1) + 1};
        const QString typed = line.sliced(result.start, caret - result.start);
        for (const QString& word : std::as_const(mWords)) {
            if (!word.startsWith(typed))
                continue;
            result.candidates << LineCompletion::Candidate{word, word};
            if (result.candidates.size() == 1)
                result.common = word;
            while (!word.startsWith(result.common))
                result.common.chop(1);
        }
        result.followed = mFollowed;
        if (result.candidates.isEmpty())
            result.hint = mHint;
        return result;
    });
    mPage->resize(400, 300);
    mPage->printPrompt();
    QVERIFY(show_active(mPage.get()));
    mPage->setFocus();
    QVERIFY(mPage->hasFocus());
}

void TstCompletionKey::tear_down()
{
    mKey.reset();
    mPage.reset();
}

void TstCompletionKey::only_candidate_goes_in_with_a_blank_behind_it()
{
    type(u"sp"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ sphere "_s);
    type(u"5"_s);
    QCOMPARE(text(), u"$ sphere 5"_s);
}

void TstCompletionKey::blank_goes_in_only_at_the_end_and_where_it_belongs()
{
    mFollowed = false;
    type(u"sp"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ sphere"_s);
    mFollowed = true;
    mPage->setCurrentCommand(u"sp 5"_s);
    key(Qt::Key_Home);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ sphere 5"_s);
}

void TstCompletionKey::common_part_goes_in_first_and_a_second_tab_lists()
{
    type(u"b"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"brick  bring\n$ bri"_s);
}

void TstCompletionKey::list_stands_above_the_prompt_and_the_line_stays()
{
    QSignalSpy entered(mPage.get(), &CommandWidget::commandEntered);
    mPage->printOutput(u"output\n"_s);
    type(u"5 bri 6"_s);
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"output\nbrick  bring\n$ 5 bri 6"_s);
    QCOMPARE(mPage->cursorIndex(), 5);
    type(u"n"_s);
    QCOMPARE(mPage->currentCommand(), u"5 brin 6"_s);
    QCOMPARE(entered.size(), 0);
    key(Qt::Key_Tab);
    QCOMPARE(mPage->currentCommand(), u"5 bring 6"_s);
}

void TstCompletionKey::something_typed_in_between_starts_anew()
{
    type(u"bri"_s);
    key(Qt::Key_Tab);
    type(u"x"_s);
    key(Qt::Key_Backspace);
    type(u" bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ bri bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"brick  bring\n$ bri bri"_s);
}

void TstCompletionKey::caret_within_the_line_is_completed_there()
{
    type(u"sp and more"_s);
    for (int i = 0; i < 9; ++i)
        key(Qt::Key_Left);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ sphere and more"_s);
    QCOMPARE(mPage->cursorIndex(), 6);
}

void TstCompletionKey::caret_in_the_output_completes_at_the_end()
{
    mPage->printOutput(u"brick output\n"_s);
    type(u"sp"_s);
    mPage->setTextCursor(QTextCursor(mPage->document()));
    QVERIFY(mPage->cursorIndex() < 0);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"brick output\n$ sphere "_s);
}

void TstCompletionKey::nothing_that_fits_changes_nothing_and_a_second_tab_tells_the_usage()
{
    type(u"nix"_s);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ nix"_s);
    mHint = u"Usage: nix"_s;
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"Usage: nix\n$ nix"_s);
}

void TstCompletionKey::name_of_several_lines_is_listed_on_one()
{
    mWords = {u"a\nb"_s, u"a\tc"_s};
    type(u"a"_s);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"a\\nb  a\\tc\n$ a"_s);
}

void TstCompletionKey::long_list_is_cut()
{
    mWords.clear();
    for (int i = 0; i < CompletionKey::list_limit + 5; ++i)
        mWords << u"word%1"_s.arg(i);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ word"_s);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    QVERIFY(text().contains(u"word%1"_s.arg(CompletionKey::list_limit - 1)));
    QVERIFY(!text().contains(u"word%1"_s.arg(CompletionKey::list_limit)));
    QVERIFY(text().endsWith(u"\n... and 5 more\n$ word"_s));
}

void TstCompletionKey::tab_with_modifiers_is_left_alone()
{
    type(u"sp"_s);
    key(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(!text().contains(u"sphere"_s));
}

void TstCompletionKey::read_only_page_is_left_alone()
{
    type(u"sp"_s);
    mPage->setReadOnly(true);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"$ sp"_s);
}

void TstCompletionKey::tab_in_a_search_takes_the_match_and_completes()
{
    CommandHistory history;
    history.add(u"move sp"_s);
    const HistorySearch search(mPage.get(), history);
    key(Qt::Key_R, Qt::ControlModifier);
    type(u"mov"_s);
    key(Qt::Key_Tab);
    QVERIFY(!search.is_active());
    QCOMPARE(text(), u"$ move sphere "_s);
}

void TstCompletionKey::columns_fit_the_width_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("expected");
    QTest::newRow("all in a line") << 80 << u"a    bbb  cc   d\n"_s;
    QTest::newRow("just in a line") << 18 << u"a    bbb  cc   d\n"_s;
    QTest::newRow("two rows") << 17 << u"a    cc\nbbb  d\n"_s;
    QTest::newRow("narrow") << 3 << u"a\nbbb\ncc\nd\n"_s;
    QTest::newRow("none") << 0 << u"a\nbbb\ncc\nd\n"_s;
}

void TstCompletionKey::columns_fit_the_width()
{
    QFETCH(const int, width);
    QFETCH(const QString, expected);
    QCOMPARE(in_columns({u"a"_s, u"bbb"_s, u"cc"_s, u"d"_s}, width), expected);
    QCOMPARE(in_columns({}, width), QString());
}

OSTREL_TEST(TstCompletionKey)
#include "tst_completionkey.moc"
