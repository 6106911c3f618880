// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentFile.h"
#include "files/RecentFiles.h"
#include "files/RecentImport.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/** The rows of a menu, "---" for a separator. */
QStringList rows(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? u"---"_s : action->text());
    return texts;
}

QStringList entries(const RecentFiles& recent)
{
    std::vector<QString> texts;
    recent.get_entries(texts);
    return {texts.begin(), texts.end()};
}

void add_all(RecentFiles& recent, const QStringList& texts)
{
    for (const QString& text : texts)
        recent.add(text);
}

QString shown(RecentFile& entry)
{
    QString text = u"left over"_s;
    entry.display_text(text);
    return text;
}

void create(const QString& path)
{
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
}

} // namespace

class TstRecentFiles : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void newest_entry_stands_first_and_all_are_numbered();
    void same_name_twice_leaves_one_entry();
    void same_name_twice_keeps_the_action_of_the_only_entry();
    void names_are_compared_exactly();
    void sixth_entry_drops_the_oldest();
    void known_entry_moves_to_the_top_data();
    void known_entry_moves_to_the_top();
    void entries_are_appended_to_what_is_there();
    void entries_come_back_when_added_from_the_oldest_on();

    void place_in_the_menu_data();
    void place_in_the_menu();
    void separator_is_there_once();
    void only_an_empty_menu_is_disabled_at_first();
    void end_of_the_list_leaves_the_menu_as_it_was();

    void long_texts_are_shortened_data();
    void long_texts_are_shortened();
    void odd_names_data();
    void odd_names();

    void file_of_an_import_stands_in_quotes_data();
    void file_of_an_import_stands_in_quotes();
    void import_of_the_same_file_remembers_the_newest_command();
    void import_of_another_file_leaves_the_command();
    void imports_without_quotes_are_one_entry();
    void import_exists_with_its_file();
    void list_of_imports_holds_one_entry_for_each_file();

    void chosen_entry_is_told_before_it_moves();
    void chosen_import_is_told_as_a_command();
    void directory_counts_as_existing();
    void other_actions_are_ignored();
    void removed_actions_are_ignored();
    void receiver_may_add_entries();
    void receiver_may_delete_the_list();

    void missing_file_is_removed_and_reported();
    void report_stands_above_the_given_window();
    void report_is_translated();
    void last_missing_file_takes_the_separator_along();
    void last_missing_import_disables_its_menu_until_the_next_one();
    void entry_is_gone_while_the_report_is_read();
    void list_may_be_deleted_while_the_report_is_read();

    void menu_cleared_by_others_is_survived();
    void menu_deleted_by_others_is_survived();
    void entry_without_an_action_is_that_of_null();
    void who_watches_the_menu_may_act_data();
    void who_watches_the_menu_may_act();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstRecentFiles::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
}

void TstRecentFiles::newest_entry_stands_first_and_all_are_numbered()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"b"_s, u"c"_s});
    QCOMPARE(entries(recent), QStringList({u"c"_s, u"b"_s, u"a"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 c"_s, u"&2 b"_s, u"&3 a"_s}));
    for (const QAction* action : menu.actions())
        QCOMPARE(action->parent(), &menu);
}

void TstRecentFiles::same_name_twice_leaves_one_entry()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"a"_s});
    QCOMPARE(entries(recent), QStringList(u"a"_s));
    recent.add(u"b"_s);
    add_all(recent, {u"b"_s, u"a"_s, u"a"_s});
    QCOMPARE(entries(recent), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 a"_s, u"&2 b"_s}));
}

void TstRecentFiles::same_name_twice_keeps_the_action_of_the_only_entry()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(u"a"_s);
    const QAction* action = menu.actions().constFirst();
    recent.add(u"a"_s);
    QCOMPARE(menu.actions(), QList<QAction*>({const_cast<QAction*>(action)}));
    // With others in the list it gets a new one, also where it stands on top already.
    recent.add(u"b"_s);
    action = menu.actions().constFirst();
    recent.add(u"b"_s);
    QVERIFY(menu.actions().constFirst() != action);
}

void TstRecentFiles::names_are_compared_exactly()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    const QStringList names{u"/a/file"_s, u"/a/File"_s, u"/a//file"_s, u"/a/file "_s, QString()};
    add_all(recent, names);
    QCOMPARE(entries(recent), QStringList(names.rbegin(), names.rend()));
}

void TstRecentFiles::sixth_entry_drops_the_oldest()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    QCOMPARE(entries(recent), QStringList({u"e"_s, u"d"_s, u"c"_s, u"b"_s, u"a"_s}));
    recent.add(u"f"_s);
    QCOMPARE(entries(recent), QStringList({u"f"_s, u"e"_s, u"d"_s, u"c"_s, u"b"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 f"_s, u"&2 e"_s, u"&3 d"_s, u"&4 c"_s, u"&5 b"_s}));
}

void TstRecentFiles::known_entry_moves_to_the_top_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("oldest") << u"a"_s << QStringList{u"a"_s, u"e"_s, u"d"_s, u"c"_s, u"b"_s};
    QTest::newRow("middle") << u"c"_s << QStringList{u"c"_s, u"e"_s, u"d"_s, u"b"_s, u"a"_s};
    QTest::newRow("newest") << u"e"_s << QStringList{u"e"_s, u"d"_s, u"c"_s, u"b"_s, u"a"_s};
}

void TstRecentFiles::known_entry_moves_to_the_top()
{
    QFETCH(const QString, name);
    QFETCH(const QStringList, order);
    QMenu menu;
    menu.addAction(u"below"_s);
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    recent.add(name);
    QCOMPARE(entries(recent), order);
    QStringList numbered;
    for (const QString& entry : order)
        numbered << u"&%1 %2"_s.arg(numbered.size() + 1).arg(entry);
    QCOMPARE(rows(menu), numbered + QStringList({u"---"_s, u"below"_s}));
}

void TstRecentFiles::entries_are_appended_to_what_is_there()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    std::vector<QString> texts{u"before"_s};
    recent.get_entries(texts);
    QCOMPARE(texts, std::vector<QString>{u"before"_s});
    add_all(recent, {u"a"_s, u"b"_s});
    recent.get_entries(texts);
    QCOMPARE(texts, (std::vector<QString>{u"before"_s, u"b"_s, u"a"_s}));
}

void TstRecentFiles::entries_come_back_when_added_from_the_oldest_on()
{
    QMenu menu;
    RecentFiles first(&menu, 0, true);
    add_all(first, {u"a 'x'"_s, u"b 'y'"_s, u"c 'z'"_s});
    const QStringList saved = entries(first);
    QMenu other;
    RecentFiles second(&other, 0, true);
    add_all(second, QStringList(saved.rbegin(), saved.rend()));
    QCOMPARE(entries(second), saved);
}

void TstRecentFiles::place_in_the_menu_data()
{
    QTest::addColumn<QStringList>("others");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("result");
    const QString first = u"&1 b"_s;
    const QString second = u"&2 a"_s;
    QTest::newRow("empty menu") << QStringList() << 0 << QStringList{first, second};
    QTest::newRow("above the last") << QStringList{u"x"_s, u"y"_s} << 1
                                    << QStringList{u"x"_s, first, second, u"---"_s, u"y"_s};
    QTest::newRow("above all") << QStringList{u"x"_s, u"y"_s} << 0
                               << QStringList{first, second, u"---"_s, u"x"_s, u"y"_s};
    QTest::newRow("at the end") << QStringList{u"x"_s, u"y"_s} << 2
                                << QStringList{u"x"_s, u"y"_s, first, second};
    QTest::newRow("beyond the end") << QStringList{u"x"_s} << 7 << QStringList{u"x"_s, second, first};
    QTest::newRow("beyond the end of an empty menu") << QStringList() << 7 << QStringList{second, first};
}

void TstRecentFiles::place_in_the_menu()
{
    QFETCH(const QStringList, others);
    QFETCH(const int, index);
    QFETCH(const QStringList, result);
    QMenu menu;
    for (const QString& other : others)
        menu.addAction(other);
    RecentFiles recent(&menu, index, false);
    QCOMPARE(rows(menu), others);
    add_all(recent, {u"a"_s, u"b"_s});
    QCOMPARE(rows(menu), result);
}

void TstRecentFiles::separator_is_there_once()
{
    QMenu menu;
    menu.addAction(u"below"_s);
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"a"_s, u"b"_s, u"a"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s});
    QCOMPARE(rows(menu).count(u"---"_s), 1);
    QCOMPARE(rows(menu).indexOf(u"---"_s), 5);
}

void TstRecentFiles::only_an_empty_menu_is_disabled_at_first()
{
    QMenu empty;
    RecentFiles imports(&empty, 0, true);
    QVERIFY(!empty.isEnabled());
    imports.add(u"'a'"_s);
    QVERIFY(empty.isEnabled());

    QMenu filled;
    filled.addAction(u"x"_s);
    const RecentFiles files(&filled, 0, false);
    QVERIFY(filled.isEnabled());
}

void TstRecentFiles::end_of_the_list_leaves_the_menu_as_it_was()
{
    QMenu menu;
    menu.addAction(u"x"_s);
    menu.addAction(u"y"_s);
    const QList<QAction*> before = menu.actions();
    {
        RecentFiles recent(&menu, 1, false);
        add_all(recent, {u"a"_s, u"b"_s});
        QCOMPARE(menu.actions().size(), 5);
    }
    QCOMPARE(menu.actions(), before);
    // What was taken out is deleted as well, not only hidden.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(menu.findChildren<QAction*>().size(), 3);
}

void TstRecentFiles::long_texts_are_shortened_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("form");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("25 characters") << u"/home/user/parts/part.mdl"_s << u"/home/user/parts/part.mdl"_s;
    QTest::newRow("26 characters") << u"/home/user/parts/parts.mdl"_s << u"/../home/user/parts/parts.mdl"_s;
    QTest::newRow("26 characters behind a drive")
        << u"C:/Users/me/parts/part.mdl"_s << u"C:/Users/me/parts/part.mdl"_s;
    QTest::newRow("26 characters without a separator")
        << u"abcdefghijklmnopqrstuvwxyz"_s << u"abcdefghijklmnopqrstuvwxyz"_s;
    QTest::newRow("long name without a separator") << QString(300, u'x') << QString(300, u'x');
    QTest::newRow("parts until 26 are reached")
        << u"/home/user/projects/engine/valves/inlet.model"_s << u"/../engine/valves/inlet.model"_s;
    // "/mnt/cd/valves/inlet.mdlx" has 25 characters, so one part more is taken.
    QTest::newRow("25 from the end do not do")
        << u"/home/user/mnt/cd/valves/inlet.mdlx"_s << u"/../user/mnt/cd/valves/inlet.mdlx"_s;
    QTest::newRow("26 from the end do")
        << u"/home/user/mnt/cd/valves/inlet.model"_s << u"/../mnt/cd/valves/inlet.model"_s;
    QTest::newRow("long last part") << u"/home/abcdefghijklmnopqrstuvwxyz.mdl"_s
                                    << u"/../abcdefghijklmnopqrstuvwxyz.mdl"_s;
    QTest::newRow("drive") << u"C:/Users/me/projects/engine/valves/inlet.model"_s
                           << u"C:/../engine/valves/inlet.model"_s;
    QTest::newRow("backslashes") << u"C:\\Users\\me\\projects\\engine\\valves\\inlet.model"_s
                                 << u"C:\\..\\engine\\valves\\inlet.model"_s;
    QTest::newRow("backslash in a name with slashes")
        << u"/home/user/projects\\engine/valves\\inlet.mdl"_s << u"/../projects\\engine/valves\\inlet.mdl"_s;
    QTest::newRow("relative") << u"projects/engine/valves/inlet.mdl"_s
                              << u"projects/engine/valves/inlet.mdl"_s;
    QTest::newRow("long first part") << u"abcdefghijklmnopqrstuvwxyz/b.mdl"_s
                                     << u"abcdefghijklmnopqrstuvwxyz/b.mdl"_s;
    QTest::newRow("empty parts count as parts")
        << u"/home/user/engine//valves///inlet.model"_s << u"/../engine//valves///inlet.model"_s;
    QTest::newRow("separator at the end")
        << u"/home/user/projects/engine/valves/inlets/"_s << u"/../projects/engine/valves/inlets/"_s;
    QTest::newRow("only separators") << QString(27, u'/') << u"/.."_s + QString(26, u'/');
    QTest::newRow("non-Latin letters count as one")
        << u"/дом/проекты/двигатель/клапан.mdl"_s << u"/../проекты/двигатель/клапан.mdl"_s;
}

void TstRecentFiles::long_texts_are_shortened()
{
    QFETCH(const QString, text);
    QFETCH(const QString, form);
    QCOMPARE(short_form(text), form);

    RecentFile file(text);
    QCOMPARE(shown(file), form);
    RecentImport import(u"import part \""_s + text + u"\" heal"_s);
    QCOMPARE(shown(import), form);
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(text);
    QCOMPARE(rows(menu), QStringList(u"&1 "_s + form));
}

void TstRecentFiles::odd_names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u" two  words "_s;
    QTest::newRow("semicolon") << u"a;b"_s;
    QTest::newRow("hash") << u"#1"_s;
    QTest::newRow("percent") << u"100%1 %2%"_s;
    QTest::newRow("ampersand") << u"a & b &c"_s;
    QTest::newRow("double quotes") << u"\"a\""_s;
    QTest::newRow("apostrophe") << u"user's"_s;
    QTest::newRow("non-Latin letters") << u"клапан"_s;
    QTest::newRow("beyond the basic plane") << u"\U0001F600"_s;
    QTest::newRow("line feed") << u"two\nlines"_s;
    QTest::newRow("tab") << u"a\tb"_s;
    QTest::newRow("backslash") << u"a\\b"_s;
    QTest::newRow("markup") << u"<b>x<br>"_s;
    QTest::newRow("leading dash") << u"-rf"_s;
}

void TstRecentFiles::odd_names()
{
    QFETCH(const QString, name);
    // Relative, so that the whole name is shown.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mDirectory->path()));
    create(name);
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {name, u"other"_s, name});
    QCOMPARE(entries(recent), QStringList({name, u"other"_s}));
    QCOMPARE(rows(menu).constFirst(), u"&1 "_s + name);
    const QSignalSpy selected(&recent, &RecentFiles::recent_file_selected);
    menu.actions().constFirst()->trigger();
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.constFirst().constFirst().toString(), name);
}

void TstRecentFiles::file_of_an_import_stands_in_quotes_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::newRow("double quotes") << u"import step \"/a/b.stp\" heal"_s << u"/a/b.stp"_s;
    QTest::newRow("apostrophes") << u"import step '/a/b.stp' heal"_s << u"/a/b.stp"_s;
    QTest::newRow("apostrophe inside double quotes") << u"import \"/a/user's.stp\""_s << u"/a/user's.stp"_s;
    QTest::newRow("double quotes win") << u"import 'a' \"b\""_s << u"b"_s;
    QTest::newRow("first pair counts") << u"import 'a' 'b'"_s << u"a"_s;
    QTest::newRow("open quote") << u"import 'a b"_s << u"a b"_s;
    QTest::newRow("quote at the start") << u"'a'"_s << u"a"_s;
    QTest::newRow("quote at the end") << u"import '"_s << QString();
    QTest::newRow("nothing in quotes") << u"import '' heal"_s << QString();
    QTest::newRow("no quotes") << u"import a"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void TstRecentFiles::file_of_an_import_stands_in_quotes()
{
    QFETCH(const QString, command);
    QFETCH(const QString, file);
    RecentImport import(command);
    QCOMPARE(shown(import), file);
    QVERIFY(import.matches(u"read \""_s + file + u"\""_s));
    QVERIFY(!import.matches(u"read \""_s + file + u"x\""_s));
}

void TstRecentFiles::import_of_the_same_file_remembers_the_newest_command()
{
    RecentImport import(u"import step 'a.stp'"_s);
    QVERIFY(import.matches(u"import step 'a.stp'"_s));
    QCOMPARE(import.mText, u"import step 'a.stp'"_s);
    QVERIFY(import.matches(u"import step \"a.stp\" heal"_s));
    QCOMPARE(import.mText, u"import step \"a.stp\" heal"_s);
}

void TstRecentFiles::import_of_another_file_leaves_the_command()
{
    RecentImport import(u"import step 'a.stp'"_s);
    QVERIFY(!import.matches(u"import step 'A.stp'"_s));
    QVERIFY(!import.matches(u"import step a.stp"_s));
    QCOMPARE(import.mText, u"import step 'a.stp'"_s);
}

void TstRecentFiles::imports_without_quotes_are_one_entry()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, true);
    add_all(recent, {u"import a"_s, u"import 'x'"_s, u"import b"_s});
    QCOMPARE(entries(recent), QStringList({u"import b"_s, u"import 'x'"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 "_s, u"&2 x"_s}));
    RecentImport import(u"import a"_s);
    QVERIFY(!import.exists());
}

void TstRecentFiles::import_exists_with_its_file()
{
    RecentImport import(u"import '"_s + path(u"a.stp"_s) + u"'"_s);
    QVERIFY(!import.exists());
    create(path(u"a.stp"_s));
    QVERIFY(import.exists());
}

void TstRecentFiles::list_of_imports_holds_one_entry_for_each_file()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, true);
    add_all(recent, {u"import 'a'"_s, u"import 'a' heal"_s});
    QCOMPARE(entries(recent), QStringList(u"import 'a' heal"_s));
    add_all(recent, {u"import 'b'"_s, u"read \"a\""_s});
    QCOMPARE(entries(recent), QStringList({u"read \"a\""_s, u"import 'b'"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 a"_s, u"&2 b"_s}));
}

void TstRecentFiles::chosen_entry_is_told_before_it_moves()
{
    create(path(u"a"_s));
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {path(u"a"_s), u"b"_s, u"c"_s});
    QStringList told;
    QStringList during;
    connect(&recent, &RecentFiles::recent_file_selected, &recent, [&](const QString& file) {
        told << file;
        during = entries(recent);
    });
    menu.actions().constLast()->trigger();
    QCOMPARE(told, QStringList(path(u"a"_s)));
    QCOMPARE(during, QStringList({u"c"_s, u"b"_s, path(u"a"_s)}));
    QCOMPARE(entries(recent), QStringList({path(u"a"_s), u"c"_s, u"b"_s}));
}

void TstRecentFiles::chosen_import_is_told_as_a_command()
{
    create(path(u"a.stp"_s));
    const QString command = u"import \""_s + path(u"a.stp"_s) + u"\" heal"_s;
    QMenu menu;
    RecentFiles recent(&menu, 0, true);
    add_all(recent, {command, u"import 'b'"_s});
    const QSignalSpy selected(&recent, &RecentFiles::recent_file_selected);
    menu.actions().constLast()->trigger();
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.constFirst().constFirst().toString(), command);
    QCOMPARE(entries(recent), QStringList({command, u"import 'b'"_s}));
}

void TstRecentFiles::directory_counts_as_existing()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(mDirectory->path());
    const QSignalSpy selected(&recent, &RecentFiles::recent_file_selected);
    menu.actions().constFirst()->trigger();
    QCOMPARE(selected.count(), 1);
}

void TstRecentFiles::other_actions_are_ignored()
{
    QMenu menu;
    QAction* other = menu.addAction(u"&1 a"_s);
    RecentFiles recent(&menu, 0, false);
    recent.add(u"a"_s);
    const QStringList before = rows(menu);
    const QSignalSpy selected(&recent, &RecentFiles::recent_file_selected);
    DialogDriver driver;
    other->trigger();
    recent.menu_selection(nullptr);
    QAction stranger(u"&1 a"_s);
    recent.menu_selection(&stranger);
    QVERIFY(driver.finish());
    QCOMPARE(selected.count(), 0);
    QCOMPARE(rows(menu), before);
    QCOMPARE(entries(recent), QStringList(u"a"_s));
}

void TstRecentFiles::removed_actions_are_ignored()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(u"a"_s);
    QAction* dropped = menu.actions().constFirst();
    add_all(recent, {u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s});
    DialogDriver driver;
    recent.menu_selection(dropped);
    QVERIFY(driver.finish());
    QCOMPARE(entries(recent).size(), 5);
}

void TstRecentFiles::receiver_may_add_entries()
{
    create(path(u"a"_s));
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(path(u"a"_s));
    connect(&recent, &RecentFiles::recent_file_selected, &recent, [&](const QString& file) {
        add_all(recent, {u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s});
        QVERIFY(!entries(recent).contains(file));
    });
    menu.actions().constFirst()->trigger();
    QCOMPARE(entries(recent), QStringList({path(u"a"_s), u"f"_s, u"e"_s, u"d"_s, u"c"_s}));
}

void TstRecentFiles::receiver_may_delete_the_list()
{
    create(path(u"a"_s));
    QMenu menu;
    auto recent = std::make_unique<RecentFiles>(&menu, 0, false);
    recent->add(path(u"a"_s));
    connect(recent.get(), &RecentFiles::recent_file_selected, this, [&] { recent.reset(); });
    menu.actions().constFirst()->trigger();
    QVERIFY(!recent);
    QVERIFY(menu.isEmpty());
}

void TstRecentFiles::missing_file_is_removed_and_reported()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"/a"_s, u"/b"_s, u"/c"_s, u"/d"_s});
    const QSignalSpy selected(&recent, &RecentFiles::recent_file_selected);
    QMessageBox::Icon icon{};
    QMessageBox::StandardButtons buttons;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        icon = box->icon();
        buttons = box->standardButtons();
        press(QDialogButtonBox::Ok)(box);
    });
    menu.actions()[1]->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(driver.seen(), QStringList(u"QMessageBox: File Error: The selected file does not exist."_s));
    QCOMPARE(icon, QMessageBox::Critical);
    QCOMPARE(buttons, QMessageBox::Ok);
    QCOMPARE(selected.count(), 0);
    QCOMPARE(entries(recent), QStringList({u"/d"_s, u"/b"_s, u"/a"_s}));
    QCOMPARE(rows(menu), QStringList({u"&1 /d"_s, u"&2 /b"_s, u"&3 /a"_s}));
    QVERIFY(menu.isEnabled());
}

void TstRecentFiles::report_stands_above_the_given_window()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    QVERIFY(!recent.mParent);
    QWidget window;
    QList<QWidget*> parents;
    const auto note_parent = [&](QMessageBox* box) {
        parents << box->parentWidget();
        press(QDialogButtonBox::Ok)(box);
    };
    DialogDriver driver;
    for (QWidget* parent : {static_cast<QWidget*>(nullptr), &window}) {
        recent.mParent = parent;
        recent.add(u"/a"_s);
        driver.expect<QMessageBox>(note_parent);
        menu.actions().constFirst()->trigger();
    }
    QVERIFY(driver.finish());
    QCOMPARE(parents, QList<QWidget*>({nullptr, &window}));
}

void TstRecentFiles::report_is_translated()
{
    const MarkingTranslator marker("RecentFiles");
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(u"/a"_s);
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    menu.actions().constFirst()->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(driver.seen(), QStringList(u"QMessageBox: <File Error>: <The selected file does not exist.>"_s));
}

void TstRecentFiles::last_missing_file_takes_the_separator_along()
{
    QMenu menu;
    menu.addAction(u"x"_s);
    menu.addAction(u"y"_s);
    RecentFiles recent(&menu, 1, false);
    for (int life = 0; life < 3; ++life) {
        add_all(recent, {u"/a"_s, u"/b"_s});
        QCOMPARE(rows(menu), QStringList({u"x"_s, u"&1 /b"_s, u"&2 /a"_s, u"---"_s, u"y"_s}));
        DialogDriver driver;
        driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
        menu.actions()[1]->trigger();
        QCOMPARE(rows(menu), QStringList({u"x"_s, u"&1 /a"_s, u"---"_s, u"y"_s}));
        driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
        menu.actions()[1]->trigger();
        QVERIFY(driver.finish());
        QCOMPARE(rows(menu), QStringList({u"x"_s, u"y"_s}));
        QVERIFY(menu.isEnabled());
    }
}

void TstRecentFiles::last_missing_import_disables_its_menu_until_the_next_one()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, true);
    for (int life = 0; life < 3; ++life) {
        recent.add(u"import '/a'"_s);
        QVERIFY(menu.isEnabled());
        QCOMPARE(rows(menu), QStringList(u"&1 /a"_s));
        bool enabled_meanwhile = false;
        DialogDriver driver;
        driver.expect<QMessageBox>([&](QMessageBox* box) {
            enabled_meanwhile = menu.isEnabled();
            press(QDialogButtonBox::Ok)(box);
        });
        menu.actions().constFirst()->trigger();
        QVERIFY(driver.finish());
        QVERIFY(enabled_meanwhile);
        QVERIFY(!menu.isEnabled());
        QVERIFY(menu.isEmpty());
        QVERIFY(entries(recent).isEmpty());
    }
}

void TstRecentFiles::entry_is_gone_while_the_report_is_read()
{
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"/a"_s, u"/b"_s});
    QStringList meanwhile;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        meanwhile = entries(recent) + rows(menu);
        press(QDialogButtonBox::Ok)(box);
    });
    menu.actions().constFirst()->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(meanwhile, QStringList({u"/a"_s, u"&1 /a"_s}));
}

void TstRecentFiles::list_may_be_deleted_while_the_report_is_read()
{
    QMenu menu;
    auto recent = std::make_unique<RecentFiles>(&menu, 0, false);
    add_all(*recent, {u"/a"_s, u"/b"_s});
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        recent.reset();
        press(QDialogButtonBox::Ok)(box);
    });
    menu.actions().constFirst()->trigger();
    QVERIFY(driver.finish());
    QVERIFY(menu.isEmpty());
    QVERIFY(menu.isEnabled());
}

void TstRecentFiles::menu_cleared_by_others_is_survived()
{
    QMenu menu;
    menu.addAction(u"x"_s);
    RecentFiles recent(&menu, 0, false);
    add_all(recent, {u"a"_s, u"b"_s});
    menu.clear();
    QCOMPARE(entries(recent), QStringList({u"b"_s, u"a"_s}));
    recent.add(u"a"_s);
    QCOMPARE(entries(recent), QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(rows(menu), QStringList(u"&1 a"_s));
}

void TstRecentFiles::menu_deleted_by_others_is_survived()
{
    auto menu = std::make_unique<QMenu>();
    RecentFiles recent(menu.get(), 0, false);
    recent.add(u"a"_s);
    menu.reset();
    recent.add(u"b"_s);
    QCOMPARE(entries(recent), QStringList(u"a"_s));
}

void TstRecentFiles::entry_without_an_action_is_that_of_null()
{
    RecentFile entry(u"/a"_s);
    QVERIFY(entry.has_action(nullptr));
    QAction action;
    QVERIFY(!entry.has_action(&action));
    entry.mAction = &action;
    QVERIFY(entry.has_action(&action));
    QVERIFY(!entry.has_action(nullptr));

    // Nobody chooses such an entry all the same.
    QMenu menu;
    RecentFiles recent(&menu, 0, false);
    recent.add(u"/a"_s);
    menu.clear();
    DialogDriver driver;
    recent.menu_selection(nullptr);
    QVERIFY(driver.finish());
    QCOMPARE(entries(recent), QStringList(u"/a"_s));
}

void TstRecentFiles::who_watches_the_menu_may_act_data()
{
    QTest::addColumn<QEvent::Type>("event");
    QTest::addColumn<QString>("act");
    for (const auto event : {QEvent::EnabledChange, QEvent::ActionAdded, QEvent::ActionRemoved,
                             QEvent::ActionChanged, QEvent::ChildAdded}) {
        for (const char* act : {"add", "fill", "delete list"})
            QTest::addRow("%s at %d", act, static_cast<int>(event)) << event << QString::fromUtf8(act);
    }
}

void TstRecentFiles::who_watches_the_menu_may_act()
{
    QFETCH(QEvent::Type, event);
    QFETCH(QString, act);

    /** Acts at the first event of a kind. */
    struct Watcher : QObject
    {
        bool eventFilter(QObject*, QEvent* met) override
        {
            if (met->type() == type && act)
                std::exchange(act, nullptr)();
            return false;
        }
        QEvent::Type type = QEvent::None;
        std::function<void()> act;
    };
    const auto dismiss = [] {
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            box->reject();
    };
    const QList<std::function<void(RecentFiles&, QMenu&)>> changes{
        [](RecentFiles& recent, QMenu&) { recent.add(u"/new"_s); },
        [](RecentFiles& recent, QMenu&) { recent.add(u"/1"_s); },
        [](RecentFiles& recent, QMenu&) { recent.add(u"/3"_s); },
        // A file that is missing.
        [](RecentFiles& recent, QMenu& menu) { recent.menu_selection(menu.actions().constFirst()); },
    };
    bool acted = false;
    for (const auto& change : changes) {
        for (const int count : {1, 5}) {
            QMenu menu;
            menu.addAction(u"x"_s);
            auto recent = std::make_unique<RecentFiles>(&menu, 0, false);
            for (int i = 1; i <= count; ++i)
                recent->add(u'/' + QString::number(i));
            menu.setEnabled(event != QEvent::EnabledChange);
            Watcher watcher;
            watcher.type = event;
            watcher.act = [&] {
                acted = true;
                if (act == u"add"_s)
                    recent->add(u"/added"_s);
                else if (act == u"fill"_s)
                    add_all(*recent, {u"/a"_s, u"/b"_s, u"/c"_s, u"/d"_s, u"/e"_s, u"/f"_s});
                else
                    recent.reset();
            };
            menu.installEventFilter(&watcher);
            QTimer answerer;
            connect(&answerer, &QTimer::timeout, this, dismiss);
            answerer.start(5);
            change(*recent, menu);
            menu.removeEventFilter(&watcher);
            // The menu shows what the list holds, in its order and with its numbers.
            QStringList expected;
            if (recent) {
                for (const QString& entry : entries(*recent))
                    expected << u"&%1 "_s.arg(expected.size() + 1) + entry;
            }
            if (!expected.isEmpty())
                expected << u"---"_s;
            QCOMPARE(rows(menu), expected << u"x"_s);
        }
    }
    QVERIFY(acted);
}

OSTREL_TEST(TstRecentFiles)
#include "tst_recentfiles.moc"
