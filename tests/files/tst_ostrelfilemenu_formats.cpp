// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FileMenuTest.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "handlers.h"
#include "hostdouble/HostDouble.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/statics.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

const auto meshes = u"Meshes (*.msh)"_s;
const auto steps = u"Steps (*.stp *.step)"_s;
const auto all_files = u"All Files (*.*)"_s;
const auto genesis = u"Genesis/Exodus (*.g *.gen *.e* *.exo)"_s;
const auto import_key = u"/ostrelgui/ostrel/importdir"_s;
const auto export_key = u"/ostrelgui/ostrel/exportdir"_s;

QString saved(const QString& key)
{
    return QSettings().value(key).toString();
}

QString executed(const QString& component, const QString& file, const QString& filter)
{
    return component + u"::execute(\""_s + file + u"\", \""_s + filter + u"\")"_s;
}

/** One of the two lists, so that what holds for both is tested on both. */
struct List
{
    bool (OstrelFileMenu::*add)(ImportExportHandler*);
    void (OstrelFileMenu::*remove)(ImportExportHandler*);
    void (OstrelFileMenu::*get)(QString&) const;
    void (OstrelFileMenu::*execute)(const QString&, const QString&);
    QString action;
};

/** A format that deletes itself on its first file, as one of a component that is unloaded may do. */
class ShortLived : public ImportExportHandler
{
public:
    explicit ShortLived(OstrelFileMenu* menu) : ImportExportHandler(u"short"_s), mMenu(menu)
    {
        mFilters = genesis;
    }

    void execute(const QString& file, const QString& filter) override
    {
        host().record(executed(mComponent, file, filter));
        mMenu->remove_component_items("short");
        delete this;
    }

private:
    OstrelFileMenu* mMenu;
};

const List imports{&OstrelFileMenu::add_import, &OstrelFileMenu::remove_import,
                   &OstrelFileMenu::get_import_filters, &OstrelFileMenu::execute_import,
                   u"mFileImportAction"_s};
const List exports{&OstrelFileMenu::add_export, &OstrelFileMenu::remove_export,
                   &OstrelFileMenu::get_export_filters, &OstrelFileMenu::execute_export,
                   u"mFileExportAction"_s};

} // namespace

class TstOstrelFileMenuFormats : public FileMenuTest
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // The lists.
    void handler_is_added_if_it_brings_something_new_data();
    void handler_is_added_if_it_brings_something_new();
    void refused_handler_leaves_everything();
    void lists_are_apart();
    void filters_are_appended_in_order();
    void removal_thins_out_by_filter_data();
    void removal_thins_out_by_filter();
    void removal_passes_over_the_one_behind();
    void removed_handlers_live_on();
    void removing_nothing_does_nothing();
    void last_removal_disables_the_action();
    void removal_does_not_enable_the_action();
    void component_takes_its_handlers_out();
    void other_names_take_nothing_out();
    void first_handler_with_the_filter_is_executed_data();
    void first_handler_with_the_filter_is_executed();
    void handlers_in_the_lists_die_with_the_menu();
    void handler_in_both_lists_dies_once();
    void handlers_may_say_goodbye_when_they_die();
    void handler_may_take_its_partner_along_when_it_dies_data();
    void handler_may_take_its_partner_along_when_it_dies();
    void thousand_handlers_are_kept_apart();

    // Import.
    void import_without_formats_asks_nothing();
    void import_asks_for_files();
    void import_comes_up_with_the_active_or_the_saved_filter_data();
    void import_comes_up_with_the_active_or_the_saved_filter();
    void import_hands_each_file_to_its_handler();
    void import_of_several_files_saves_the_filter_for_each();
    void cancelled_import_changes_nothing();
    void import_skips_files_that_nobody_takes();
    void import_looks_its_handler_up_in_the_same_case();
    void part_of_an_earlier_filter_goes_to_that_handler();
    void active_filter_outlives_the_window();
    void any_name_is_imported_data();
    void any_name_is_imported();
    void genesis_import_has_one_filter();
    void genesis_import_saves_nothing();
    void genesis_import_without_handler_only_moves_the_directory();
    void cancelled_genesis_import_changes_nothing();
    void handler_may_die_while_it_imports_data();
    void handler_may_die_while_it_imports();
    void window_may_be_closed_by_an_import_data();
    void window_may_be_closed_by_an_import();
    void formats_may_change_while_the_dialog_is_open();

    // Export.
    void export_without_formats_asks_nothing();
    void export_asks_for_a_name();
    void export_comes_up_with_the_given_or_the_saved_filter_data();
    void export_comes_up_with_the_given_or_the_saved_filter();
    void export_prepares_everything_before_the_handler();
    void export_completes_the_name_data();
    void export_completes_the_name();
    void cancelled_export_changes_nothing();
    void export_that_nobody_takes_saves_its_filter_all_the_same();
    void export_goes_to_the_first_handler_in_the_same_case();
    void export_leaves_the_import_filter();
    void export_over_a_file_asks_first();

    void captions_are_translated();
    void filters_live_on_in_the_settings();

private:
    /** Adds a format and, whatever the rules for adding say, gives it these filters. */
    Format* add(const List& list, const QString& filters, const QString& component);
    QString filters(const List& list) const;
    bool is_enabled(const List& list) const;
};

void TstOstrelFileMenuFormats::set_up()
{
    FileMenuTest::set_up();
    Format::alive = 0;
}

Format* TstOstrelFileMenuFormats::add(const List& list, const QString& filters, const QString& component)
{
    static int number = 0;
    auto* format = new Format(u"Unique %1 (*.u)"_s.arg(++number), component);
    if (!std::invoke(list.add, mMenu, format)) {
        QTest::qFail("a format of its own was refused", __FILE__, __LINE__);
        delete format;
        return nullptr;
    }
    format->mFilters = filters;
    return format;
}

QString TstOstrelFileMenuFormats::filters(const List& list) const
{
    QString all;
    std::invoke(list.get, mMenu, all);
    return all;
}

bool TstOstrelFileMenuFormats::is_enabled(const List& list) const
{
    return mMenu->findChild<QAction*>(list.action)->isEnabled();
}

void TstOstrelFileMenuFormats::handler_is_added_if_it_brings_something_new_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("filters");
    QTest::addColumn<bool>("added");

    const QStringList none;
    QTest::newRow("empty into none") << none << u""_s << false;
    QTest::newRow("one into none") << none << meshes << true;
    QTest::newRow("all files into none") << none << all_files << true;
    QTest::newRow("separator into none") << none << u";;"_s << true;
    QTest::newRow("empty into some") << QStringList{meshes} << u""_s << false;
    QTest::newRow("new") << QStringList{meshes} << steps << true;
    QTest::newRow("known") << QStringList{meshes} << meshes << false;
    QTest::newRow("known in another case") << QStringList{meshes} << u"MESHES (*.MSH)"_s << false;
    QTest::newRow("part of a known one") << QStringList{meshes} << u"shes (*.ms"_s << false;
    QTest::newRow("more than a known one") << QStringList{meshes} << u"All Meshes (*.msh)"_s << true;
    QTest::newRow("other blanks") << QStringList{meshes} << u"Meshes  (*.msh)"_s << true;
    QTest::newRow("all files into some") << QStringList{meshes} << all_files << false;
    QTest::newRow("all files among patterns") << QStringList{meshes} << u"Any (*.x *.*)"_s << false;
    QTest::newRow("star alone into some") << QStringList{meshes} << u"All Files (*)"_s << true;
    QTest::newRow("known and all files") << QStringList{meshes} << meshes + u";;"_s + all_files << false;
    QTest::newRow("new and all files") << QStringList{meshes} << steps + u";;"_s + all_files << true;
    QTest::newRow("known and new") << QStringList{meshes} << meshes + u";;"_s + steps << true;
    QTest::newRow("known to two handlers") << QStringList{meshes, steps} << steps + u";;"_s + meshes << false;
    QTest::newRow("known to the second") << QStringList{meshes, steps} << steps << false;
    QTest::newRow("separator into some") << QStringList{meshes} << u";;"_s << false;
    QTest::newRow("separator at the end") << QStringList{meshes} << meshes + u";;"_s << false;
    QTest::newRow("blank part") << QStringList{u"Meshes(*.msh)"_s} << u";; "_s << true;
    QTest::newRow("semicolon is none") << QStringList{meshes} << meshes + u";"_s << true;
    QTest::newRow("non-Latin letters in another case")
        << QStringList{u"\u0421\u0435\u0442\u043a\u0438 (*.msh)"_s}
        << u"\u0441\u0415\u0442\u043a\u0438 (*.msh)"_s << false;
}

void TstOstrelFileMenuFormats::handler_is_added_if_it_brings_something_new()
{
    QFETCH(QStringList, present);
    QFETCH(QString, filters);
    QFETCH(bool, added);
    for (const List& list : {imports, exports}) {
        for (const QString& of_present : present)
            add(list, of_present, u"present"_s);
        auto format = std::make_unique<Format>(filters);
        const bool was_added = std::invoke(list.add, mMenu, format.get());
        QCOMPARE(was_added, added);
        QCOMPARE(format->mFilters, filters);
        QCOMPARE(is_enabled(list), added || !present.isEmpty());
        if (was_added)
            static_cast<void>(format.release()); // it is the menu's
        QCOMPARE(this->filters(list), (added ? present + QStringList{filters} : present).join(u";;"_s));
    }
}

void TstOstrelFileMenuFormats::refused_handler_leaves_everything()
{
    for (const List& list : {imports, exports}) {
        QVERIFY(!std::invoke(list.add, mMenu, nullptr));
        Format empty{QString()};
        QVERIFY(!std::invoke(list.add, mMenu, &empty));
        QVERIFY(!is_enabled(list));
        QCOMPARE(filters(list), QString());
        // The same one twice.
        auto* format = new Format(meshes);
        QVERIFY(std::invoke(list.add, mMenu, format));
        QVERIFY(!std::invoke(list.add, mMenu, format));
        QCOMPARE(filters(list), meshes);
        QVERIFY(is_enabled(list));
    }
}

void TstOstrelFileMenuFormats::lists_are_apart()
{
    const std::unique_ptr<Format> format(add(imports, meshes, u"a"_s));
    QVERIFY(is_enabled(imports));
    QVERIFY(!is_enabled(exports));
    QCOMPARE(filters(exports), QString());
    add(exports, meshes, u"b"_s);
    host().take_calls();
    mMenu->execute_export(u"/f"_s, meshes);
    QCOMPARE(host().take_calls(), QStringList{executed(u"b"_s, u"/f"_s, meshes)});
    Format given(meshes);
    mMenu->remove_import(&given);
    QVERIFY(!is_enabled(imports));
    QVERIFY(is_enabled(exports));
    QCOMPARE(filters(exports), meshes);
}

void TstOstrelFileMenuFormats::filters_are_appended_in_order()
{
    for (const List& list : {imports, exports}) {
        QString text = u"before"_s;
        std::invoke(list.get, mMenu, text);
        QCOMPARE(text, u"before"_s);
        add(list, steps, u"a"_s);
        add(list, meshes + u";;"_s + all_files, u"b"_s);
        add(list, u"Points (*.pts)"_s, u"c"_s);
        std::invoke(list.get, mMenu, text);
        QCOMPARE(text, u"before"_s + steps + u";;"_s + meshes + u";;"_s + all_files + u";;Points (*.pts)"_s);
    }
}

void TstOstrelFileMenuFormats::removal_thins_out_by_filter_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QStringList>("left");

    const auto ab = u"A (*.a);;B (*.b)"_s;
    QTest::newRow("the only one") << QStringList{u"A (*.a)"_s} << u"A (*.a)"_s << QStringList();
    QTest::newRow("another") << QStringList{u"A (*.a)"_s} << u"B (*.b)"_s << QStringList{u"A (*.a)"_s};
    QTest::newRow("case does not count") << QStringList{u"A (*.a)"_s} << u"a (*.A)"_s << QStringList();
    QTest::newRow("part of a handler") << QStringList{ab} << u"B (*.b)"_s << QStringList{u"A (*.a)"_s};
    QTest::newRow("part of two handlers")
        << QStringList{ab, u"B (*.b);;C (*.c)"_s} << u"B (*.b)"_s << QStringList{u"A (*.a)"_s, u"C (*.c)"_s};
    QTest::newRow("one whole, one in part, not neighbors")
        << QStringList{u"B (*.b)"_s, u"C (*.c)"_s, ab} << u"B (*.b)"_s
        << QStringList{u"C (*.c)"_s, u"A (*.a)"_s};
    QTest::newRow("inside a longer one")
        << QStringList{u"A (*.a)"_s, u"B (*.b)"_s} << u"Big A (*.a) too"_s << QStringList{u"B (*.b)"_s};
    QTest::newRow("longer than the given one")
        << QStringList{u"Big A (*.a)"_s} << u"A (*.a)"_s << QStringList{u"Big A (*.a)"_s};
    QTest::newRow("empty part goes along")
        << QStringList{u"A (*.a);;"_s} << u"B (*.b)"_s << QStringList{u"A (*.a)"_s};
    QTest::newRow("nothing but separators")
        << QStringList{u";;"_s, u"A (*.a)"_s} << u"B (*.b)"_s << QStringList{u"A (*.a)"_s};
    QTest::newRow("all files") << QStringList{u"A (*.a);;All Files (*.*)"_s} << u"All Files (*.*)"_s
                               << QStringList{u"A (*.a)"_s};
    QTest::newRow("empty") << QStringList{ab} << u""_s << QStringList{ab};
    QTest::newRow("empty leaves empty parts alone")
        << QStringList{u"A (*.a);;"_s} << u""_s << QStringList{u"A (*.a);;"_s};
}

void TstOstrelFileMenuFormats::removal_thins_out_by_filter()
{
    QFETCH(QStringList, present);
    QFETCH(QString, given);
    QFETCH(QStringList, left);
    for (const List& list : {imports, exports}) {
        std::vector<std::unique_ptr<Format>> removed;
        QList<Format*> formats;
        for (const QString& of_present : present)
            formats << add(list, of_present, u"present"_s);
        Format with_the_same(given);
        std::invoke(list.remove, mMenu, &with_the_same);
        QCOMPARE(filters(list), left.join(u";;"_s));
        QCOMPARE(is_enabled(list), !left.isEmpty());
        QCOMPARE(with_the_same.mFilters, given);
        // Those that are out are ours again.
        for (Format* format : formats) {
            if (!left.contains(format->mFilters))
                removed.emplace_back(format);
        }
        QCOMPARE(qsizetype(removed.size()), present.size() - left.size());
    }
}

void TstOstrelFileMenuFormats::removal_passes_over_the_one_behind()
{
    for (const List& list : {imports, exports}) {
        const std::unique_ptr<Format> first(add(list, meshes, u"first"_s));
        add(list, meshes, u"second"_s);
        const std::unique_ptr<Format> third(add(list, meshes, u"third"_s));
        const Format* fourth = add(list, meshes + u";;"_s + steps, u"fourth"_s);
        std::invoke(list.remove, mMenu, first.get());
        // The first and the third are out; the second and the fourth were passed over.
        QCOMPARE(filters(list), meshes + u";;"_s + meshes + u";;"_s + steps);
        QCOMPARE(fourth->mFilters, meshes + u";;"_s + steps);
        QVERIFY(is_enabled(list));
        host().take_calls();
        std::invoke(list.execute, mMenu, u"/f"_s, meshes);
        QCOMPARE(host().take_calls(), QStringList{executed(u"second"_s, u"/f"_s, meshes)});
    }
}

void TstOstrelFileMenuFormats::removed_handlers_live_on()
{
    for (const List& list : {imports, exports}) {
        const std::unique_ptr<Format> format(add(list, meshes, u"a"_s));
        std::invoke(list.remove, mMenu, format.get());
        QCOMPARE(Format::alive, 1);
        QCOMPARE(format->mFilters, meshes);
        QCOMPARE(filters(list), QString());
        // And may come back.
        QVERIFY(std::invoke(list.add, mMenu, format.get()));
        QVERIFY(is_enabled(list));
        std::invoke(list.remove, mMenu, format.get());
    }
}

void TstOstrelFileMenuFormats::removing_nothing_does_nothing()
{
    for (const List& list : {imports, exports}) {
        std::invoke(list.remove, mMenu, nullptr);
        Format unknown(meshes);
        std::invoke(list.remove, mMenu, &unknown);
        QVERIFY(!is_enabled(list));
        add(list, steps, u"a"_s);
        std::invoke(list.remove, mMenu, nullptr);
        std::invoke(list.remove, mMenu, &unknown);
        QCOMPARE(filters(list), steps);
        QVERIFY(is_enabled(list));
    }
}

void TstOstrelFileMenuFormats::last_removal_disables_the_action()
{
    for (const List& list : {imports, exports}) {
        const std::unique_ptr<Format> first(add(list, meshes, u"a"_s));
        const std::unique_ptr<Format> second(add(list, steps, u"a"_s));
        std::invoke(list.remove, mMenu, first.get());
        QVERIFY(is_enabled(list));
        std::invoke(list.remove, mMenu, second.get());
        QVERIFY(!is_enabled(list));
    }
}

void TstOstrelFileMenuFormats::removal_does_not_enable_the_action()
{
    for (const List& list : {imports, exports}) {
        const std::unique_ptr<Format> first(add(list, meshes, u"a"_s));
        const std::unique_ptr<Format> second(add(list, steps, u"b"_s));
        auto* action = mMenu->findChild<QAction*>(list.action);
        action->setEnabled(false);
        std::invoke(list.remove, mMenu, first.get());
        QVERIFY(!action->isEnabled());
        std::invoke(list.remove, mMenu, second.get());
        QVERIFY(!action->isEnabled());
    }
}

void TstOstrelFileMenuFormats::component_takes_its_handlers_out()
{
    const std::unique_ptr<Format> first(add(imports, meshes, u"mesher"_s));
    const std::unique_ptr<Format> second(add(imports, steps, u"mesher"_s));
    add(imports, u"Points (*.pts)"_s, u"scanner"_s);
    const std::unique_ptr<Format> third(add(exports, meshes, u"mesher"_s));
    mMenu->remove_component_items("mesher");
    QCOMPARE(Format::alive, 4);
    QCOMPARE(filters(imports), u"Points (*.pts)"_s);
    QCOMPARE(filters(exports), QString());
    QVERIFY(is_enabled(imports));
    QVERIFY(!is_enabled(exports));
    QCOMPARE(first->mFilters, meshes);
}

void TstOstrelFileMenuFormats::other_names_take_nothing_out()
{
    add(imports, meshes, u"mesher"_s);
    add(imports, steps, QString());
    const std::unique_ptr<Format> foreign(add(exports, meshes, u"\u677f"_s));
    for (const char* name : {"Mesher", "mesher ", "mesh", "mesher2", static_cast<const char*>(nullptr)})
        mMenu->remove_component_items(name);
    QCOMPARE(filters(imports), meshes + u";;"_s + steps);
    QVERIFY(is_enabled(imports));
    QVERIFY(is_enabled(exports));
    // Names are UTF-8.
    add(exports, steps, u"other"_s);
    mMenu->remove_component_items("\xe6\x9d\xbf");
    QCOMPARE(filters(exports), steps);
}

void TstOstrelFileMenuFormats::first_handler_with_the_filter_is_executed_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("executes"); // the index, or -1

    const QStringList two{meshes + u";;"_s + all_files, steps + u";;"_s + all_files};
    QTest::newRow("first") << two << meshes << 0;
    QTest::newRow("second") << two << steps << 1;
    QTest::newRow("both have it") << two << all_files << 0;
    QTest::newRow("another case") << two << u"MESHES (*.msh)"_s << -1;
    QTest::newRow("unknown") << two << u"Points (*.pts)"_s << -1;
    QTest::newRow("part of an entry") << two << u"*.step"_s << 1;
    QTest::newRow("across a separator") << two << u")"_s + u";;All"_s << 0;
    QTest::newRow("empty is in all") << two << u""_s << 0;
    QTest::newRow("case decides between two") << QStringList{u"meshes (*.MSH)"_s, meshes} << meshes << 1;
    QTest::newRow("no handlers") << QStringList() << meshes << -1;
}

void TstOstrelFileMenuFormats::first_handler_with_the_filter_is_executed()
{
    QFETCH(QStringList, present);
    QFETCH(QString, filter);
    QFETCH(int, executes);
    const auto file = u"/no such place/a \"b\"\n;#%1.msh"_s;
    for (const List& list : {imports, exports}) {
        for (qsizetype i = 0; i < present.size(); ++i)
            add(list, present[i], QString::number(i));
        const QString path = OstrelFileMenu::mPath;
        host().take_calls();
        std::invoke(list.execute, mMenu, file, filter);
        QCOMPARE(host().take_calls(), executes < 0
                                          ? QStringList()
                                          : QStringList{executed(QString::number(executes), file, filter)});
        // The flows do all else.
        QCOMPARE(OstrelFileMenu::mPath, path);
        QVERIFY(!QSettings().contains(import_key));
        QVERIFY(!QSettings().contains(export_key));
    }
}

void TstOstrelFileMenuFormats::handlers_in_the_lists_die_with_the_menu()
{
    add(imports, meshes, u"a"_s);
    add(exports, meshes, u"a"_s);
    const std::unique_ptr<Format> removed(add(exports, steps, u"b"_s));
    mMenu->remove_component_items("b");
    QCOMPARE(Format::alive, 3);
    mWindow.reset();
    QCOMPARE(Format::alive, 1);
}

void TstOstrelFileMenuFormats::handler_in_both_lists_dies_once()
{
    auto* format = new Format(meshes);
    QVERIFY(mMenu->add_import(format));
    QVERIFY(mMenu->add_export(format));
    mWindow.reset();
    QCOMPARE(Format::alive, 0);
}

void TstOstrelFileMenuFormats::handlers_may_say_goodbye_when_they_die()
{
    const auto make = [&](const QString& name, const QString& filters) {
        auto* const made = new Format(filters, name);
        made->on_end = [this, name] {
            QString left;
            mMenu->get_import_filters(left);
            mMenu->get_export_filters(left);
            mMenu->remove_component_items(qPrintable(name));
            host().record(name + u" dies, left: "_s + left);
        };
        return made;
    };
    QVERIFY(mMenu->add_import(make(u"a"_s, meshes)));
    QVERIFY(mMenu->add_import(make(u"b"_s, steps)));
    QVERIFY(mMenu->add_export(make(u"c"_s, meshes)));
    host().take_calls();
    mWindow.reset();
    const QStringList calls = host().take_calls().filter(u" dies, left: "_s);
    QCOMPARE(calls.size(), 3);
    QVERIFY(calls.last().endsWith(u"left: "_s));
    QCOMPARE(Format::alive, 0);
}

void TstOstrelFileMenuFormats::handler_may_take_its_partner_along_when_it_dies_data()
{
    QTest::addColumn<List>("list");
    QTest::addColumn<List>("other_list");
    QTest::newRow("imports") << imports << imports;
    QTest::newRow("exports") << exports << exports;
    QTest::newRow("import and export") << imports << exports;
}

/** What it takes out is its own again. */
void TstOstrelFileMenuFormats::handler_may_take_its_partner_along_when_it_dies()
{
    QFETCH(const List, list);
    QFETCH(const List, other_list);
    // Whichever goes first.
    std::array pair{new Format(meshes, u"pair"_s), new Format(steps, u"pair"_s)};
    for (const size_t i : {0U, 1U}) {
        pair[i]->on_end = [this, &pair, i] {
            pair[i] = nullptr;
            mMenu->remove_component_items("pair");
            delete pair[1 - i];
        };
    }
    QVERIFY((mMenu->*list.add)(pair[0]));
    QVERIFY((mMenu->*other_list.add)(pair[1]));
    mWindow.reset();
    QCOMPARE(Format::alive, 0);
}

void TstOstrelFileMenuFormats::thousand_handlers_are_kept_apart()
{
    constexpr int count = 1000;
    const auto filter_of = [](int i) { return u"Kind %1. (*.k%1)"_s.arg(i); };
    for (int i = 0; i < count; ++i)
        QVERIFY(mMenu->add_import(new Format(filter_of(i), u"kind%1"_s.arg(i))));
    QCOMPARE(filters(imports).count(u";;"_s), count - 1);
    mMenu->execute_import(u"/a"_s, filter_of(count - 1));
    QCOMPARE(host().take_calls(), QStringList{executed(u"kind999"_s, u"/a"_s, filter_of(count - 1))});
    Format known(filter_of(500));
    QVERIFY(!mMenu->add_import(&known));
    mWindow.reset();
    QCOMPARE(Format::alive, 1);
}

void TstOstrelFileMenuFormats::import_without_formats_asks_nothing()
{
    OstrelFileMenu::mActiveImportFilter = meshes;
    // A dialog would not let it return.
    mMenu->file_import();
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, meshes);
}

void TstOstrelFileMenuFormats::import_asks_for_files()
{
    add(imports, meshes + u";;"_s + all_files, u"a"_s);
    add(imports, steps, u"b"_s);
    const Asked seen = asked_by([&] { mMenu->findChild<QAction*>(u"mFileImportAction"_s)->trigger(); });
    QCOMPARE(seen.caption, u"Import File"_s);
    QCOMPARE(seen.directory, mDirectory);
    QCOMPARE(seen.filters, (QStringList{meshes, all_files, steps}));
    QCOMPARE(seen.accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(seen.file_mode, QFileDialog::ExistingFiles);
    QCOMPARE(seen.parent, mWindow.get());
}

void TstOstrelFileMenuFormats::import_comes_up_with_the_active_or_the_saved_filter_data()
{
    QTest::addColumn<QString>("active");
    QTest::addColumn<QString>("saved_one");
    QTest::addColumn<QString>("selected");

    QTest::newRow("neither") << u""_s << u""_s << meshes;
    QTest::newRow("active") << steps << u""_s << steps;
    QTest::newRow("saved") << u""_s << steps << steps;
    QTest::newRow("both") << steps << all_files << steps;
    QTest::newRow("active is not offered") << u"Points (*.pts)"_s << steps << meshes;
}

void TstOstrelFileMenuFormats::import_comes_up_with_the_active_or_the_saved_filter()
{
    QFETCH(QString, active);
    QFETCH(QString, saved_one);
    add(imports, meshes + u";;"_s + all_files + u";;"_s + steps, u"a"_s);
    mMenu->set_active_import_filter(active);
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, active);
    if (!saved_one.isEmpty())
        QSettings().setValue(import_key, saved_one);
    QString selected;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        selected = dialog->selectedNameFilter();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QTEST(selected, "selected");
}

void TstOstrelFileMenuFormats::import_hands_each_file_to_its_handler()
{
    make_file(u"a.stp"_s);
    add(imports, meshes, u"mesher"_s);
    Format* format = add(imports, steps, u"reader"_s);
    QStringList seen;
    format->on_execute = [&] {
        seen << OstrelFileMenu::mPath << OstrelFileMenu::mActiveImportFilter << saved(import_key);
    };
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"a.stp"_s), steps); });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"reader"_s, place(u"a.stp"_s), steps)});
    // All of it is done before the handler is called.
    QCOMPARE(seen, (QStringList{mDirectory + u'/', steps, steps}));
    // An import does not name the document.
    QCOMPARE(OstrelFileMenu::mFileName, QString());
}

void TstOstrelFileMenuFormats::import_of_several_files_saves_the_filter_for_each()
{
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    for (const QString& name : {u"a.msh"_s, u"sub/b c.msh"_s})
        make_file(name);
    Format* format = add(imports, meshes, u"mesher"_s);
    QStringList seen;
    format->on_execute = [&] {
        seen << saved(import_key) << OstrelFileMenu::mPath;
        QSettings().remove(import_key);
    };
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(place(u"a.msh"_s), place(u"sub/b c.msh"_s)));
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{executed(u"mesher"_s, place(u"a.msh"_s), meshes),
                                               executed(u"mesher"_s, place(u"sub/b c.msh"_s), meshes)}));
    QCOMPARE(seen, (QStringList{meshes, place(u""_s), meshes, place(u"sub/"_s)}));
    QCOMPARE(OstrelFileMenu::mPath, place(u"sub/"_s));
}

void TstOstrelFileMenuFormats::cancelled_import_changes_nothing()
{
    add(imports, meshes + u";;"_s + steps, u"mesher"_s);
    OstrelFileMenu::mActiveImportFilter = meshes;
    QSettings().setValue(import_key, steps);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        dialog->selectNameFilter(steps);
        press_key(Qt::Key_Escape)(dialog);
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, meshes);
    QCOMPARE(saved(import_key), steps);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
}

void TstOstrelFileMenuFormats::import_skips_files_that_nobody_takes()
{
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    for (const QString& name : {u"a.msh"_s, u"sub/b.msh"_s})
        make_file(name);
    const std::unique_ptr<Format> format(add(imports, meshes, u"mesher"_s));
    format->on_execute = [&] { mMenu->remove_component_items("mesher"); };
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(place(u"a.msh"_s), place(u"sub/b.msh"_s)));
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"mesher"_s, place(u"a.msh"_s), meshes)});
    QCOMPARE(OstrelFileMenu::mPath, place(u"sub/"_s));
}

void TstOstrelFileMenuFormats::import_looks_its_handler_up_in_the_same_case()
{
    make_file(u"a.msh"_s);
    add(imports, u"MESHES (*.MSH)"_s, u"loud"_s);
    add(imports, meshes, u"quiet"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"a.msh"_s), meshes); });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"quiet"_s, place(u"a.msh"_s), meshes)});
}

void TstOstrelFileMenuFormats::part_of_an_earlier_filter_goes_to_that_handler()
{
    make_file(u"a.msh"_s);
    auto* first = new Format(u"Old Meshes (*.msh)"_s, u"first"_s);
    auto* second = new Format(meshes + u";;"_s + steps, u"second"_s);
    QVERIFY(mMenu->add_import(first));
    QVERIFY(mMenu->add_import(second));
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"a.msh"_s), meshes); });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"first"_s, place(u"a.msh"_s), meshes)});
}

void TstOstrelFileMenuFormats::active_filter_outlives_the_window()
{
    make_file(u"a.stp"_s);
    add(imports, meshes + u";;"_s + steps, u"a"_s);
    {
        DialogDriver driver;
        driver.expect<QFileDialog>(
            [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"a.stp"_s), steps); });
        mMenu->file_import();
        QVERIFY(driver.finish());
    }
    mWindow.reset();
    QSettings().remove(import_key);
    mWindow = std::make_unique<Ostrel>();
    mMenu = mWindow->file_menu();
    add(imports, meshes + u";;"_s + steps, u"a"_s);
    QString selected;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        selected = dialog->selectedNameFilter();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(selected, steps);
}

void TstOstrelFileMenuFormats::any_name_is_imported_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks") << u" two  blanks .msh"_s;
    QTest::newRow("separators of filters") << u"a;;b.msh"_s;
    QTest::newRow("signs") << u"a#b%20%1&c&&d.msh"_s;
    QTest::newRow("apostrophe") << u"it's.msh"_s;
    QTest::newRow("non-Latin letters") << u"\u677f \u043f\u043b\u0438\u0442\u0430.msh"_s;
    QTest::newRow("no dot") << u"plate"_s;
}

void TstOstrelFileMenuFormats::any_name_is_imported()
{
    QFETCH(QString, name);
    make_file(name);
    add(imports, meshes, u"a"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose_with_return(dialog, place(name)); });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"a"_s, place(name), meshes)});
}

void TstOstrelFileMenuFormats::genesis_import_has_one_filter()
{
    make_file(u"a.exo"_s);
    add(imports, meshes, u"mesher"_s);
    add(imports, all_files + u";;"_s + genesis, u"reader"_s);
    OstrelFileMenu::mActiveImportFilter = meshes;
    FileQuestion seen;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        seen = file_question(dialog);
        parent = dialog->parentWidget();
        choose_with_return(dialog, place(u"a.exo"_s));
    });
    mMenu->file_import_exodus_only();
    QVERIFY(driver.finish());
    QCOMPARE(seen.caption, u"Import File"_s);
    QCOMPARE(seen.directory, mDirectory);
    QCOMPARE(seen.filters, QStringList{genesis});
    QCOMPARE(seen.selected_filter, genesis);
    QCOMPARE(seen.accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(seen.file_mode, QFileDialog::ExistingFiles);
    QCOMPARE(parent, mWindow.get());
    QCOMPARE(host().take_calls(), QStringList{executed(u"reader"_s, place(u"a.exo"_s), genesis)});
}

void TstOstrelFileMenuFormats::genesis_import_saves_nothing()
{
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    for (const QString& name : {u"a.g"_s, u"sub/b.e01"_s})
        make_file(name);
    add(imports, genesis, u"reader"_s);
    OstrelFileMenu::mActiveImportFilter = meshes;
    QSettings().setValue(import_key, steps);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(place(u"a.g"_s), place(u"sub/b.e01"_s)));
    });
    mMenu->file_import_exodus_only();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{executed(u"reader"_s, place(u"a.g"_s), genesis),
                                               executed(u"reader"_s, place(u"sub/b.e01"_s), genesis)}));
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, meshes);
    QCOMPARE(saved(import_key), steps);
    QCOMPARE(OstrelFileMenu::mPath, place(u"sub/"_s));
}

void TstOstrelFileMenuFormats::genesis_import_without_handler_only_moves_the_directory()
{
    make_file(u"a.gen"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose_with_return(dialog, place(u"a.gen"_s)); });
    mMenu->file_import_exodus_only();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(OstrelFileMenu::mPath, mDirectory + u'/');
}

void TstOstrelFileMenuFormats::cancelled_genesis_import_changes_nothing()
{
    add(imports, genesis, u"reader"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([](QFileDialog* dialog) { press_close_box()(dialog); });
    mMenu->file_import_exodus_only();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
}

void TstOstrelFileMenuFormats::handler_may_die_while_it_imports_data()
{
    QTest::addColumn<bool>("genesis_only");
    QTest::newRow("any format") << false;
    QTest::newRow("genesis") << true;
}

void TstOstrelFileMenuFormats::handler_may_die_while_it_imports()
{
    QFETCH(const bool, genesis_only);
    for (const QString& name : {u"a.g"_s, u"b.g"_s})
        make_file(name);
    QVERIFY(mMenu->add_import(new ShortLived(mMenu)));
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(place(u"a.g"_s), place(u"b.g"_s)));
    });
    if (genesis_only)
        mMenu->file_import_exodus_only();
    else
        mMenu->file_import();
    QVERIFY(driver.finish());
    // Nobody is left for the second file.
    QCOMPARE(host().take_calls(), QStringList{executed(u"short"_s, place(u"a.g"_s), genesis)});
    QVERIFY(!is_enabled(imports));
}

void TstOstrelFileMenuFormats::window_may_be_closed_by_an_import_data()
{
    handler_may_die_while_it_imports_data();
}

void TstOstrelFileMenuFormats::window_may_be_closed_by_an_import()
{
    QFETCH(const bool, genesis_only);
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    for (const QString& name : {u"a.g"_s, u"sub/b.g"_s})
        make_file(name);
    const std::unique_ptr<Format> format(add(imports, genesis, u"closer"_s));
    format->on_execute = [&] {
        mMenu->remove_component_items("closer");
        host().take_calls();
        mWindow.reset();
    };
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(place(u"a.g"_s), place(u"sub/b.g"_s)));
    });
    if (genesis_only)
        mMenu->file_import_exodus_only();
    else
        mMenu->file_import();
    QVERIFY(driver.finish());
    QVERIFY(!mWindow);
    // The second file is left alone.
    QCOMPARE(OstrelFileMenu::mPath, place(u""_s));
}

void TstOstrelFileMenuFormats::formats_may_change_while_the_dialog_is_open()
{
    make_file(u"a.msh"_s);
    const std::unique_ptr<Format> gone(add(imports, meshes, u"gone"_s));
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        mMenu->remove_component_items("gone");
        add(imports, steps + u";;"_s + meshes, u"new"_s);
        choose_with_return(dialog, place(u"a.msh"_s));
    });
    mMenu->file_import();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"new"_s, place(u"a.msh"_s), meshes)});
}

void TstOstrelFileMenuFormats::export_without_formats_asks_nothing()
{
    mMenu->file_export();
    mMenu->file_export(meshes);
    QCOMPARE(host().take_calls(), QStringList());
    QVERIFY(!QSettings().contains(export_key));
}

void TstOstrelFileMenuFormats::export_asks_for_a_name()
{
    add(exports, meshes + u";;"_s + all_files, u"a"_s);
    add(exports, steps, u"b"_s);
    const Asked seen = asked_by([&] { mMenu->findChild<QAction*>(u"mFileExportAction"_s)->trigger(); });
    QCOMPARE(seen.caption, u"Export File"_s);
    QCOMPARE(seen.directory, mDirectory);
    QCOMPARE(seen.filters, (QStringList{meshes, all_files, steps}));
    QCOMPARE(seen.name, QString());
    QCOMPARE(seen.accept_mode, QFileDialog::AcceptSave);
    QCOMPARE(seen.parent, mWindow.get());
}

void TstOstrelFileMenuFormats::export_comes_up_with_the_given_or_the_saved_filter_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("saved_one");
    QTest::addColumn<QString>("selected");

    QTest::newRow("neither") << u""_s << u""_s << meshes;
    QTest::newRow("given") << steps << u""_s << steps;
    QTest::newRow("saved") << u""_s << steps << steps;
    QTest::newRow("both") << steps << all_files << steps;
    QTest::newRow("given one is not offered") << u"Points (*.pts)"_s << steps << meshes;
}

void TstOstrelFileMenuFormats::export_comes_up_with_the_given_or_the_saved_filter()
{
    QFETCH(QString, given);
    QFETCH(QString, saved_one);
    add(exports, meshes + u";;"_s + all_files + u";;"_s + steps, u"a"_s);
    // That of import does not count.
    OstrelFileMenu::mActiveImportFilter = all_files;
    if (!saved_one.isEmpty())
        QSettings().setValue(export_key, saved_one);
    QString selected;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        selected = dialog->selectedNameFilter();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    mMenu->file_export(given);
    QVERIFY(driver.finish());
    QTEST(selected, "selected");
}

void TstOstrelFileMenuFormats::export_prepares_everything_before_the_handler()
{
    QVERIFY(QDir(mDirectory).mkdir(u"v1.2"_s));
    add(exports, steps, u"writer"_s);
    Format* format = add(exports, meshes, u"mesher"_s);
    QStringList seen;
    format->on_execute = [&] { seen << OstrelFileMenu::mPath << saved(export_key); };
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"v1.2/plate"_s), meshes); });
    mMenu->file_export();
    QVERIFY(driver.finish());
    // The extension is that of the selected filter.
    QCOMPARE(host().take_calls(), QStringList{executed(u"mesher"_s, place(u"v1.2/plate.msh"_s), meshes)});
    QCOMPARE(seen, (QStringList{place(u"v1.2/"_s), meshes}));
    QCOMPARE(OstrelFileMenu::mFileName, QString());
}

void TstOstrelFileMenuFormats::export_completes_the_name_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("exported");

    const auto data = u"Data (*.dat *.txt)"_s;
    QTest::newRow("first pattern") << data << u"plate"_s << u"plate.dat"_s;
    QTest::newRow("dot") << data << u"plate.x"_s << u"plate.x"_s;
    QTest::newRow("dot at the end") << data << u"plate."_s << u"plate."_s;
    QTest::newRow("wildcard") << u"Results (*.e*)"_s << u"plate"_s << u"plate.e"_s;
    QTest::newRow("all files") << u"All Files (*)"_s << u"plate"_s << u"plate"_s;
    QTest::newRow("all files with a dot") << all_files << u"plate"_s << u"plate."_s;
    QTest::newRow("patterns parted by a semicolon") << u"Data (*.a;*.b)"_s << u"plate"_s << u"plate.a"_s;
    QTest::newRow("parentheses twice") << u"Mesh (2D) (*.msh)"_s << u"plate"_s << u"plateD)"_s;
    QTest::newRow("odd characters") << data << u"p l;#%1&'\u677f"_s << u"p l;#%1&'\u677f.dat"_s;
}

void TstOstrelFileMenuFormats::export_completes_the_name()
{
    QFETCH(QString, filter);
    QFETCH(QString, typed);
    QFETCH(QString, exported);
    add(exports, meshes + u";;"_s + filter + u";;"_s + steps, u"a"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(typed), filter); });
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"a"_s, place(exported), filter)});
    QCOMPARE(saved(export_key), filter);
}

void TstOstrelFileMenuFormats::cancelled_export_changes_nothing()
{
    add(exports, meshes + u";;"_s + steps, u"a"_s);
    QSettings().setValue(export_key, meshes);
    DialogDriver driver;
    driver.expect<QFileDialog>([](QFileDialog* dialog) {
        dialog->selectNameFilter(steps);
        press_key(Qt::Key_Escape)(dialog);
    });
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(saved(export_key), meshes);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
}

void TstOstrelFileMenuFormats::export_that_nobody_takes_saves_its_filter_all_the_same()
{
    const std::unique_ptr<Format> format(add(exports, meshes, u"mesher"_s));
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        mMenu->remove_component_items("mesher");
        choose_with_return(dialog, place(u"plate"_s));
    });
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(saved(export_key), meshes);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory + u'/');
}

void TstOstrelFileMenuFormats::export_goes_to_the_first_handler_in_the_same_case()
{
    add(exports, u"MESHES (*.MSH)"_s, u"loud"_s);
    add(exports, u"Old "_s + meshes, u"first"_s);
    add(exports, meshes, u"second"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"plate"_s), meshes); });
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"first"_s, place(u"plate.msh"_s), meshes)});
}

void TstOstrelFileMenuFormats::export_leaves_the_import_filter()
{
    add(exports, meshes, u"a"_s);
    OstrelFileMenu::mActiveImportFilter = steps;
    QSettings().setValue(import_key, all_files);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose_with_return(dialog, place(u"plate"_s)); });
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, steps);
    QCOMPARE(saved(import_key), all_files);
}

void TstOstrelFileMenuFormats::export_over_a_file_asks_first()
{
    make_file(u"plate.msh"_s);
    add(exports, meshes, u"a"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, place(u"plate.msh"_s)); });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    mMenu->file_export();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{executed(u"a"_s, place(u"plate.msh"_s), meshes)});
}

void TstOstrelFileMenuFormats::captions_are_translated()
{
    const MarkingTranslator translator("OstrelFileMenu");
    add(imports, meshes, u"a"_s);
    add(exports, meshes, u"a"_s);
    QStringList captions;
    QStringList last_filters;
    DialogDriver driver;
    for (int i = 0; i < 3; ++i) {
        driver.expect<QFileDialog>([&](QFileDialog* dialog) {
            captions << dialog->windowTitle();
            last_filters = dialog->nameFilters();
            press(QDialogButtonBox::Cancel)(dialog);
        });
    }
    mMenu->file_import();
    mMenu->file_export();
    mMenu->file_import_exodus_only();
    QVERIFY(driver.finish());
    QCOMPARE(captions, (QStringList{u"<Import File>"_s, u"<Export File>"_s, u"<Import File>"_s}));
    QCOMPARE(last_filters, QStringList{u"<"_s + genesis + u">"_s});
}

void TstOstrelFileMenuFormats::filters_live_on_in_the_settings()
{
    make_file(u"a.stp"_s);
    for (int life = 0; life < 2; ++life) {
        add(imports, meshes + u";;"_s + steps, u"a"_s);
        add(exports, meshes + u";;"_s + steps, u"a"_s);
        QStringList selected;
        DialogDriver driver;
        for (int i = 0; i < 2; ++i) {
            driver.expect<QFileDialog>([&](QFileDialog* dialog) {
                selected << dialog->selectedNameFilter();
                const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
                choose_with_return(dialog, place(saves ? u"new%1"_s.arg(life) : u"a.stp"_s), steps);
            });
        }
        mMenu->file_import();
        mMenu->file_export();
        QVERIFY(driver.finish());
        QCOMPARE(selected, life ? (QStringList{steps, steps}) : (QStringList{meshes, meshes}));
        mWindow.reset();
        reset_statics();
        mWindow = std::make_unique<Ostrel>();
        mMenu = mWindow->file_menu();
        OstrelFileMenu::mPath = mDirectory;
    }
}

OSTREL_TEST(TstOstrelFileMenuFormats)
#include "tst_ostrelfilemenu_formats.moc"
