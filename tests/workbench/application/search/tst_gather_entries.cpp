// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "workbench/application/search/gather_entries.h"
#include "workbench/application/windows/command_panel.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStandardItemModel>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** What the command search takes from menus, commands, option pages and recent files. */
class TstGatherEntries : public TestCase
{
    Q_OBJECT

private slots:
    void menu_texts_lose_their_marks_data();
    void menu_texts_lose_their_marks();
    void menus_are_walked();
    void entries_without_use_are_left_out();
    void disabled_entries_are_refused();
    void refusal_tells_the_reason_that_was_given();
    void menu_entry_runs_its_action_while_it_can();
    void commands_have_their_titles_of_the_panel();
    void summaries_are_in_the_language_of_the_user();
    void commands_that_need_nothing_are_told_data();
    void commands_that_need_nothing_are_told();
    void pages_are_listed_without_their_groups();
    void recent_files_run_their_entries();

private:
    static QStringList lines(const QList<SearchEntry>& entries)
    {
        QStringList lines;
        for (const SearchEntry& entry : entries)
            lines << entry.place + u'|' + entry.text + u'|' + entry.key + u'|' + entry.tip;
        return lines;
    }
};

void TstGatherEntries::menu_texts_lose_their_marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    QTest::newRow("mnemonic") << u"E&xit"_s << u"Exit"_s;
    QTest::newRow("dots") << u"&Open..."_s << u"Open"_s;
    QTest::newRow("one sign for dots") << u"Open\u2026"_s << u"Open"_s;
    QTest::newRow("ampersand") << u"Save && &Close"_s << u"Save & Close"_s;
    QTest::newRow("mnemonic in parentheses") << u"\u6253\u5f00(&O)..."_s << u"\u6253\u5f00"_s;
    QTest::newRow("key behind a tab") << u"&New\tCtrl+N"_s << u"New"_s;
    QTest::newRow("nothing but marks") << u"&..."_s << QString();
}

void TstGatherEntries::menu_texts_lose_their_marks()
{
    QFETCH(const QString, text);
    QTEST(plain_menu_text(text), "plain");
}

void TstGatherEntries::menus_are_walked()
{
    QMenuBar bar;
    QMenu* file = bar.addMenu(u"&File"_s);
    QAction* open = file->addAction(u"&Open..."_s);
    open->setShortcut(QKeySequence(u"Ctrl+O"_s));
    open->setStatusTip(u"Opens a file."_s);
    QMenu* more = file->addMenu(u"&More"_s);
    more->addAction(u"&Close"_s)->setToolTip(u"Closes it"_s);
    more->addAction(u"\u6253\u5f00(&O)..."_s);
    more->addAction(u"&Print..."_s)->setToolTip(u"Print"_s);
    bar.addAction(u"&Now"_s);
    const MenuEntries found = gather_menus(&bar, {}, {});
    QCOMPARE(lines(found.entries),
             QStringList({u"File|Open|Ctrl+O|Opens a file."_s, u"File > More|Close||Closes it"_s,
                          u"File > More|\u6253\u5f00||"_s, u"File > More|Print||"_s, u"|Now||"_s}));
    QCOMPARE(found.menus, QList<QPointer<QMenu>>({file, more}));
    QCOMPARE(
        lines(gather_menus(&bar, u"Editor"_s, {open}).entries),
        QStringList({u"Editor > File > More|Close||Closes it"_s, u"Editor > File > More|\u6253\u5f00||"_s,
                     u"Editor > File > More|Print||"_s, u"Editor|Now||"_s}));
}

void TstGatherEntries::entries_without_use_are_left_out()
{
    QMenuBar bar;
    QMenu* file = bar.addMenu(u"&File"_s);
    file->addSeparator();
    file->addAction(QString());
    file->addAction(u"&Hidden"_s)->setVisible(false);
    QMenu* hidden = file->addMenu(u"Hidden menu"_s);
    hidden->addAction(u"Inside"_s);
    hidden->menuAction()->setVisible(false);
    QAction* shared = file->addAction(u"Shared"_s);
    bar.addMenu(u"&Edit"_s)->addAction(shared);
    file->addMenu(file); // in a circle
    QCOMPARE(lines(gather_menus(&bar, {}, {}).entries), QStringList(u"File|Shared||"_s));
}

void TstGatherEntries::refusal_tells_the_reason_that_was_given()
{
    QMenuBar bar;
    QMenu* file = bar.addMenu(u"&File"_s);
    QAction* on = file->addAction(u"&On"_s);
    QAction* off = file->addAction(u"O&ff"_s);
    QMenu* menu = file->addMenu(u"&Menu"_s);
    menu->addAction(u"&Inside"_s);
    for (QAction* action : {on, off})
        fennar::set_disabled_reason(action, u"Nothing is selected."_s);
    fennar::set_disabled_reason(menu->menuAction(), u"There is no model."_s);
    off->setEnabled(false);
    menu->setEnabled(false);
    const auto refusals = [&bar] {
        QStringList lines;
        const MenuEntries found = gather_menus(&bar, {}, {});
        for (const SearchEntry& entry : found.entries)
            lines << entry.text + u": "_s + entry.refusal;
        return lines;
    };
    QCOMPARE(refusals(),
             QStringList({u"On: "_s, u"Off: Nothing is selected."_s, u"Inside: There is no model."_s}));
    set_disabled_reason(off, {});
    QCOMPARE(refusals().at(1), u"Off: Not available now."_s);
}

void TstGatherEntries::disabled_entries_are_refused()
{
    QMenuBar bar;
    QMenu* file = bar.addMenu(u"&File"_s);
    file->addAction(u"&On"_s);
    file->addAction(u"O&ff"_s)->setEnabled(false);
    QMenu* off = file->addMenu(u"&Menu"_s);
    off->addAction(u"&Inside"_s);
    off->setEnabled(false);
    QStringList refused;
    const MenuEntries found = gather_menus(&bar, {}, {});
    for (const SearchEntry& entry : found.entries)
        if (!entry.refusal.isEmpty())
            refused << entry.text;
    QCOMPARE(refused, QStringList({u"Off"_s, u"Inside"_s}));
}

void TstGatherEntries::menu_entry_runs_its_action_while_it_can()
{
    QMenuBar bar;
    QMenu* outer = bar.addMenu(u"&File"_s);
    QMenu* menu = outer->addMenu(u"&More"_s);
    int runs = 0;
    QAction* action = menu->addAction(u"&Run"_s, menu, [&runs] { ++runs; });
    const MenuEntries found = gather_menus(&bar, {}, {});
    const auto run = [&found] { found.entries.constFirst().run(); };
    run();
    QCOMPARE(runs, 1);
    action->setEnabled(false);
    run();
    action->setEnabled(true);
    action->setVisible(false);
    run();
    action->setVisible(true);
    outer->setEnabled(false);
    run();
    outer->setEnabled(true);
    QCOMPARE(runs, 1);
    run();
    QCOMPARE(runs, 2);
    delete menu;
    run();
    QCOMPARE(runs, 2);
}

void TstGatherEntries::commands_have_their_titles_of_the_panel()
{
    QStandardItemModel model;
    auto* page = new QStandardItem(u"Seite"_s);
    auto* entry = new QStandardItem(u"Kugel"_s);
    entry->setData(u"ball"_s, NavigationRole::Command);
    entry->setData(u"Macht eine Kugel."_s, NavigationRole::Tip);
    page->appendRow(entry);
    model.appendRow(page);
    CommandRegistry registry;
    for (const QString& name : {u"ball"_s, u"cube"_s})
        registry.add({.name = name,
                      .summary = u"Makes one."_s,
                      .perform = [](CommandCall&, const CommandArguments&) {}});
    QStringList used;
    const auto commands =
        gather_commands(registry, navigation_entries(model), [&used](const QString& name) { used << name; });
    QCOMPARE(lines(commands),
             QStringList({u"Command ball|Kugel||Macht eine Kugel."_s, u"Command|cube||Makes one."_s}));
    QCOMPARE(commands[0].words, u"Seite"_s);
    commands[0].run();
    commands[1].run();
    QCOMPARE(used, QStringList({u"ball"_s, u"cube"_s}));
}

void TstGatherEntries::summaries_are_in_the_language_of_the_user()
{
    CommandRegistry registry;
    registry.add({.name = u"cube"_s,
                  .summary = u"Makes one."_s,
                  .perform = [](CommandCall&, const CommandArguments&) {}});
    const MarkingTranslator translator("Command");
    const auto commands = gather_commands(registry, {}, [](const QString&) {});
    QCOMPARE(lines(commands), QStringList(u"Command|cube||<Makes one.>"_s));
}

void TstGatherEntries::commands_that_need_nothing_are_told_data()
{
    QTest::addColumn<QList<CommandSyntax>>("forms");
    QTest::addColumn<bool>("alone");
    const CommandClause needed = required_value({.name = u"X"_s});
    const CommandClause spare = optional_value({.name = u"X"_s});
    const auto row = [](const char* name, const QList<CommandSyntax>& forms, bool alone) {
        QTest::newRow(name) << forms << alone;
    };
    row("empty form", {{}}, true);
    row("value that may be left out", {{.clauses = {spare}}}, true);
    row("value that is needed", {{.clauses = {needed, spare}}}, false);
    row("one form needs none", {{.clauses = {needed}}, {.clauses = {spare}}}, true);
}

void TstGatherEntries::commands_that_need_nothing_are_told()
{
    QFETCH(const QList<CommandSyntax>, forms);
    QTEST(runs_without_arguments({.name = u"c"_s, .forms = forms}), "alone");
}

void TstGatherEntries::pages_are_listed_without_their_groups()
{
    QStringList shown;
    const auto pages =
        gather_pages({u"General"_s, u"Plugins"_s, u"Plugins/Demo"_s, u"Plugins/Demo/More"_s, u"Plug"_s},
                     [&shown](const QString& page) { shown << page; });
    QCOMPARE(lines(pages), QStringList({u"Options|General||"_s, u"Options > Plugins > Demo|More||"_s,
                                        u"Options|Plug||"_s}));
    pages[1].run();
    QCOMPARE(shown, QStringList(u"Plugins/Demo/More"_s));
}

void TstGatherEntries::recent_files_run_their_entries()
{
    int runs = 0;
    auto action = std::make_unique<QAction>();
    connect(action.get(), &QAction::triggered, this, [&runs] { ++runs; });
    const auto files = gather_recent_files({{u"/a/b/part.mdl"_s, action.get()}});
    QCOMPARE(lines(files), QStringList(u"Recent file in /a/b|part.mdl||/a/b/part.mdl"_s));
    files[0].run();
    QCOMPARE(runs, 1);
    action.reset();
    files[0].run();
    QCOMPARE(runs, 1);
}

OSTREL_TEST(TstGatherEntries)
#include "tst_gather_entries.moc"
