// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/menus.h"
#include "support/windows.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/host/ostrelfw/LineFolder.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** "name:line" of the place that block @p number leads to; empty for none. */
QString place(const ErrorPage& page, int number)
{
    const auto found = page.place_at(page.document()->findBlockByNumber(number));
    return found ? found->file + u':' + QString::number(found->line) : QString();
}

/** The underlined part of block @p number. */
QString underlined(const ErrorPage& page, int number)
{
    QString result;
    const QTextBlock block = page.document()->findBlockByNumber(number);
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().charFormat().fontUnderline())
            result += it.fragment().text();
    }
    return result;
}

} // namespace

class TstErrorPage : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void error_with_a_file_and_line_is_a_link_data();
    void error_with_a_file_and_line_is_a_link();
    void name_that_is_no_journal_is_no_link();
    void name_is_looked_up_as_the_error_comes();
    void lines_of_one_error_lead_to_its_nearest_place();
    void text_in_pieces_is_linked_when_its_line_is_complete();
    void links_stay_right_when_old_lines_drop_off();
    void double_click_and_enter_ask_for_the_place();
    void keys_on_other_lines_do_what_they_do();
    void context_menu_offers_the_place();
    void without_a_finder_absolute_files_are_found();
    void long_lines_are_cut();
    void page_may_go_while_its_menu_is_open();

private:
    std::unique_ptr<ErrorPage> mPage;
    QStringList mAsked;
};

void TstErrorPage::set_up()
{
    mAsked.clear();
    mPage = std::make_unique<ErrorPage>();
    mPage->set_finder([this](const QString& name) -> std::optional<JournalPlace> {
        mAsked << name;
        if (!name.endsWith(".jou"_L1) && !name.endsWith(".py"_L1))
            return std::nullopt;
        return JournalPlace{u"/found/"_s + name, nullptr, 1};
    });
}

void TstErrorPage::tear_down()
{
    mPage.reset();
}

void TstErrorPage::error_with_a_file_and_line_is_a_link_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("marked");
    QTest::newRow("error") << u"ERROR: a.jou:3: set: column 5: expected a name"_s << u"/found/a.jou:3"_s
                           << u"a.jou:3"_s;
    QTest::newRow("blanks and colons in the name")
        << u"ERROR: my 1: 2.jou:12: nix"_s << u"/found/my 1: 2.jou:12"_s << u"my 1: 2.jou:12"_s;
    QTest::newRow("way") << u"  played from b.jou:7"_s << u"/found/b.jou:7"_s << u"b.jou:7"_s;
    QTest::newRow("cancelled") << u"Interrupted: a.jou:9"_s << u"/found/a.jou:9"_s << u"a.jou:9"_s;
    QTest::newRow("stopped") << u"Stopped: a.jou:9"_s << u"/found/a.jou:9"_s << u"a.jou:9"_s;
    QTest::newRow("traceback") << u"  File \"c.py\", line 4, in <module>"_s << u"/found/c.py:4"_s
                               << u"c.py\", line 4"_s;
    QTest::newRow("syntax error") << u"  File \"c.py\", line 4"_s << u"/found/c.py:4"_s
                                  << u"c.py\", line 4"_s;
    QTest::newRow("line zero") << u"ERROR: a.jou:0: nix"_s << u"/found/a.jou:1"_s << u"a.jou:0"_s;
    QTest::newRow("no line") << u"ERROR: a.jou: nix"_s << QString() << QString();
    QTest::newRow("column only") << u"ERROR: set: column 5: expected"_s << QString() << QString();
    QTest::newRow("no number") << u"ERROR: a.jou:three: nix"_s << QString() << QString();
    QTest::newRow("number beyond all lines") << u"ERROR: a.jou:99999999999: nix"_s << QString() << QString();
    QTest::newRow("within the text") << u"the file a.jou:3: is bad"_s << QString() << QString();
}

void TstErrorPage::error_with_a_file_and_line_is_a_link()
{
    QFETCH(const QString, text);
    QFETCH(const QString, found);
    QFETCH(const QString, marked);
    mPage->add(text + u'\n');
    QCOMPARE(place(*mPage, 0), found);
    QCOMPARE(underlined(*mPage, 0), marked);
    QCOMPARE(mPage->toPlainText(), text + u'\n');
}

void TstErrorPage::name_that_is_no_journal_is_no_link()
{
    mPage->add(u"ERROR: Untitled:3: nix\n  File \"<console>\", line 1, in <module>\n"_s);
    QCOMPARE(mAsked.contains(u"Untitled"_s), true);
    QCOMPARE(mAsked.contains(u"<console>"_s), true);
    QCOMPARE(place(*mPage, 0), QString());
    QCOMPARE(place(*mPage, 1), QString());
    QCOMPARE(underlined(*mPage, 0) + underlined(*mPage, 1), QString());
}

void TstErrorPage::name_is_looked_up_as_the_error_comes()
{
    mPage->add(u"ERROR: a.jou:3: nix\n"_s);
    mPage->set_finder([](const QString&) { return std::nullopt; });
    QCOMPARE(place(*mPage, 0), u"/found/a.jou:3"_s);
}

void TstErrorPage::lines_of_one_error_lead_to_its_nearest_place()
{
    mPage->add(u"Traceback (most recent call last):\n  File \"a.py\", line 9, in <module>\n    f()\n"
               "  File \"a.py\", line 4, in f\n    x\nNameError: x\n"_s,
               u"Fennar>play a.py"_s);
    mPage->add(u"  played from b.jou:2\n"_s);
    mPage->add(u"ERROR: nix: column 1: expected a command\n"_s, u"Fennar>nix"_s);
    QCOMPARE(place(*mPage, 0), u"/found/a.py:9"_s); // the command: down to the first
    QCOMPARE(place(*mPage, 3), u"/found/a.py:9"_s);
    QCOMPARE(place(*mPage, 6), u"/found/a.py:4"_s); // the message: up to the last
    QCOMPARE(place(*mPage, 7), u"/found/b.jou:2"_s);
    QCOMPARE(place(*mPage, 8), QString()); // another error
    QCOMPARE(place(*mPage, 9), QString());
    mPage->end_error();
    mPage->add(u"late words\n"_s);
    mPage->add(u"ERROR: c.jou:1: nix\n"_s);
    QCOMPARE(place(*mPage, 9), QString());
    QCOMPARE(place(*mPage, 10), u"/found/c.jou:1"_s);
}

void TstErrorPage::text_in_pieces_is_linked_when_its_line_is_complete()
{
    mPage->add(u"ERROR: a.jo"_s, u"work"_s);
    QCOMPARE(place(*mPage, 1), QString());
    mPage->add(u"u:1"_s);
    mPage->add(u"2: nix\nmore"_s);
    QCOMPARE(place(*mPage, 1), u"/found/a.jou:12"_s);
    QCOMPARE(underlined(*mPage, 1), u"a.jou:12"_s);
    // An error that is not ended by a line end is followed by the next on a line of its own.
    mPage->add(u"ERROR: b.jou:1: nix\n"_s, u"work"_s);
    QCOMPARE(mPage->toPlainText(), u"work\nERROR: a.jou:12: nix\nmore\nwork\nERROR: b.jou:1: nix\n"_s);
    QCOMPARE(place(*mPage, 2), u"/found/a.jou:12"_s);
    QCOMPARE(place(*mPage, 3), u"/found/b.jou:1"_s);
}

void TstErrorPage::links_stay_right_when_old_lines_drop_off()
{
    mPage->setMaximumBlockCount(4);
    for (int i = 1; i <= 50; ++i)
        mPage->add(u"ERROR: a.jou:%1: nix\n"_s.arg(i), u"work"_s);
    QCOMPARE(mPage->document()->blockCount(), 4);
    QCOMPARE(place(*mPage, 2), u"/found/a.jou:50"_s);
    QString many;
    for (int i = 1; i <= 100; ++i)
        many += u"ERROR: b.jou:%1: nix\n"_s.arg(i);
    mPage->add(many, u"work"_s);
    QCOMPARE(place(*mPage, 2), u"/found/b.jou:100"_s);
    QCOMPARE(place(*mPage, 0), u"/found/b.jou:98"_s);
}

void TstErrorPage::double_click_and_enter_ask_for_the_place()
{
    mPage->resize(600, 300);
    QVERIFY(show_active(mPage.get()));
    mPage->add(u"ERROR: a.jou:3: nix\nERROR: b.jou:4: nix\n"_s);
    QStringList asked;
    connect(mPage.get(), &ErrorPage::place_activated, this, [&asked](const JournalPlace& where) {
        asked << where.file + u':' + QString::number(where.line);
    });
    const QTextCursor second(mPage->document()->findBlockByNumber(1));
    QTest::mouseDClick(mPage->viewport(), Qt::LeftButton, {}, mPage->cursorRect(second).center());
    QCOMPARE(asked, QStringList(u"/found/b.jou:4"_s));
    mPage->setTextCursor(QTextCursor(mPage->document()->firstBlock()));
    QTest::keyClick(mPage.get(), Qt::Key_Return);
    QTest::keyClick(mPage.get(), Qt::Key_Down);
    QTest::keyClick(mPage.get(), Qt::Key_Enter);
    QCOMPARE(asked, QStringList({u"/found/b.jou:4"_s, u"/found/a.jou:3"_s, u"/found/b.jou:4"_s}));
}

void TstErrorPage::keys_on_other_lines_do_what_they_do()
{
    mPage->resize(600, 300);
    QVERIFY(show_active(mPage.get()));
    mPage->add(u"ERROR: words without a place\n"_s);
    QSignalSpy activated(mPage.get(), &ErrorPage::place_activated);
    mPage->setTextCursor(QTextCursor(mPage->document()->firstBlock()));
    QTest::keyClick(mPage.get(), Qt::Key_Return);
    QTest::keyClicks(mPage.get(), u"typed"_s);
    QCOMPARE(mPage->toPlainText(), u"ERROR: words without a place\n"_s);
    QTest::mouseDClick(mPage->viewport(), Qt::LeftButton, {}, mPage->cursorRect().center() + QPoint(5, 0));
    QCOMPARE(mPage->textCursor().selectedText(), u"ERROR"_s);
    QCOMPARE(activated.size(), 0);
}

void TstErrorPage::without_a_finder_absolute_files_are_found()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"a.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    mPage->set_finder(nullptr);
    mPage->add(u"ERROR: %1:3: nix\nERROR: %1x:3: nix\nERROR: a.jou:3: nix\n"_s.arg(file.fileName()));
    QCOMPARE(underlined(*mPage, 0), file.fileName() + u":3"_s);
    QCOMPARE(underlined(*mPage, 1), QString());
    QCOMPARE(underlined(*mPage, 2), QString());
}

void TstErrorPage::context_menu_offers_the_place()
{
    mPage->resize(600, 300);
    QVERIFY(show_active(mPage.get()));
    mPage->add(u"ERROR: a.jou:3: nix\n"_s);
    mPage->end_error();
    mPage->add(u"ERROR: no place\n"_s);
    QSignalSpy activated(mPage.get(), &ErrorPage::place_activated);
    const auto open_at = [this](int number, const std::function<void(QMenu*)>& act) {
        mPage->setTextCursor(QTextCursor(mPage->document()->findBlockByNumber(number)));
        const QPoint at = mPage->cursorRect().center();
        const MenuDriver driver(act);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, mPage->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(mPage->viewport(), &event);
    };
    bool offered = false;
    QStringList rows;
    open_at(0, [&](QMenu* menu) {
        rows = menu_rows(menu);
        offered = choose(menu, u"&Show in Journal Editor"_s);
    });
    QVERIFY(offered);
    QCOMPARE(rows.value(0), u"&Show in Journal Editor [] (enabled)"_s);
    QCOMPARE(rows.value(1), u"---"_s);
    QCOMPARE(activated.size(), 1);
    open_at(1, [&](QMenu* menu) { rows = menu_rows(menu); });
    QCOMPARE(rows.value(0), u"&Show in Journal Editor [] (disabled)"_s);
    QCOMPARE(activated.size(), 1);
}

void TstErrorPage::long_lines_are_cut()
{
    constexpr qsizetype most = LineFolder::shown_size;
    const QString start = u"ERROR: a.jou:3: "_s;
    mPage->add(start + QString(1'000'000, u'x') + u"\nnext\n"_s, u"echo "_s + QString(1'000'000, u'y'));
    mPage->add(QString(2 * most, u'z'));
    mPage->end_error();
    const QString mark = u" ... [%1 characters; the page of the commands says how to see the line whole]"_s;
    const QStringList lines = mPage->toPlainText().split(u'\n');
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines[0] == u"echo "_s + QString(most - 5, u'y') + mark.arg(1'000'005));
    QVERIFY(lines[1] == start + QString(most - start.size(), u'x') + mark.arg(start.size() + 1'000'000));
    QCOMPARE(lines[2], u"next"_s);
    QVERIFY(lines[3] == QString(most, u'z') + mark.arg(2 * most));
    QCOMPARE(place(*mPage, 1), u"/found/a.jou:3"_s);
}

void TstErrorPage::page_may_go_while_its_menu_is_open()
{
    mPage->resize(600, 300);
    QVERIFY(show_active(mPage.get()));
    mPage->add(u"ERROR: a.jou:3: nix\n"_s);
    ErrorPage* const page = mPage.get();
    const MenuDriver driver([this](QMenu*) { mPage.reset(); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), page->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(page->viewport(), &event);
    QVERIFY(!mPage);
}

OSTREL_TEST(TstErrorPage)
#include "tst_errorpage.moc"
