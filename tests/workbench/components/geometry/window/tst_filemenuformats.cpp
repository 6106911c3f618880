// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/ImportExportHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "support/IdleDocuments.h"
#include "support/describe_window.h"
#include "support/dialogs.h"
#include "support/leftovers.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

const auto engine_imports =
    u"STEP (*.step *.stp);;IGES (*.iges *.igs);;BREP (*.brep);;STL (*.stl);;MSH (*.msh);;VTK (*.vtk)"_s;
const auto engine_exports = u"STEP (*.step *.stp);;BREP (*.brep);;STL (*.stl);;MSH (*.msh);;VTK (*.vtk)"_s;
const auto obj_filter = u"OBJ (*.obj)"_s;

/** What the list of recent imports needs of the component with the documents. */
class Documents : public IdleDocuments
{
public:
    void import_recent(const QString& command) override { send_command(command); }
};

} // namespace

/** Import and export from the "File" menu of the whole application. */
class TstFileMenuFormats : public WorkbenchTest
{
    Q_OBJECT

protected:
    // Models are thrown away without a question.
    void set_up_class() override { OstrelFileMenu::set_save_prompt(false); }
    void set_up() override;
    void tear_down() override;
    void after_workbench() override { QCOMPARE(child_processes(), QList<int>()); }

private slots:
    void components_come_and_go_in_any_order();
    void without_formats_entries_are_disabled_and_commands_tell_why();
    void handlers_of_others_are_left_alone();
    void export_asks_and_adds_the_ending_of_the_filter_data();
    void export_asks_and_adds_the_ending_of_the_filter();
    void export_without_the_ending_replaces_no_file_unasked_data();
    void export_without_the_ending_replaces_no_file_unasked();
    void several_files_are_imported_one_after_the_other();
    void failed_import_is_no_recent_one();
    void typed_import_is_no_recent_one();
    void recent_import_runs_again_after_a_new_start_data();
    void recent_import_runs_again_after_a_new_start();
    void chosen_files_run_in_python_mode();

private:
    static OstrelFileMenu* menu() { return Ostrel::instance()->file_menu(); }
    static QStringList filters()
    {
        QString imports;
        QString exports;
        menu()->get_import_filters(imports);
        menu()->get_export_filters(exports);
        return {imports, exports};
    }
    static QAction* action(const char* name)
    {
        return menu()->findChild<QAction*>(QString::fromLatin1(name));
    }
    static QStringList recent_imports()
    {
        std::vector<QString> commands;
        menu()->get_recent_imports(commands);
        return {commands.begin(), commands.end()};
    }
    static void forget_recent_imports()
    {
        // Nothing stays of an import whose file is gone once it is chosen.
        Documents none;
        menu()->set_open_save_handler(&none);
        while (!recent_imports().isEmpty()) {
            DialogDriver driver;
            driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
            recent_menu()->actions().first()->trigger();
            QVERIFY(driver.finish());
        }
        menu()->set_open_save_handler(nullptr);
    }
    static QMenu* recent_menu()
    {
        QMenu* newest = nullptr;
        const auto menus = Ostrel::instance()->findChildren<QMenu*>();
        for (QMenu* candidate : menus) {
            if (candidate->title() == u"&Recent Imports")
                newest = candidate;
        }
        return newest;
    }
    void import_through_the_dialog(const QString& file, const QString& filter)
    {
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose_with_return(dialog, file, filter); });
        action("mFileImportAction")->trigger();
        QVERIFY(driver.finish());
        flush();
    }
};

void TstFileMenuFormats::set_up()
{
    const QString answer = enter(u"load "_s + QStringLiteral(GEOMETRY));
    QVERIFY2(!answer.contains(u"ERROR"), qPrintable(answer));
}

void TstFileMenuFormats::tear_down()
{
    for (const auto& name : {u"obj_format"_s, u"geometry"_s}) {
        const QString answer = enter(u"unload "_s + name);
        QVERIFY2(!answer.contains(u"left behind"), qPrintable(answer));
    }
    QCOMPARE(filters(), QStringList({QString(), QString()}));
    QCOMPARE(FormatRegistry::instance().formats().size(), 0);
    QVERIFY(QDir(temp_directory()).removeRecursively());
    forget_recent_imports();
}

void TstFileMenuFormats::components_come_and_go_in_any_order()
{
    const QStringList engine{engine_imports, engine_exports};
    const QStringList all{engine_imports + u";;"_s + obj_filter, engine_exports + u";;"_s + obj_filter};
    const QStringList none{QString(), QString()};
    const auto load = [this](const QString& file) { return enter(u"load "_s + file); };
    const auto unload = [this](const QString& name) { return enter(u"unload "_s + name); };
    const QString obj = QStringLiteral(OBJ_FORMAT);
    const QString geometry = QStringLiteral(GEOMETRY);
    QCOMPARE(filters(), engine);
    unload(u"geometry"_s);
    QVERIFY(!action("mFileImportAction")->isEnabled() && !action("mFileExportAction")->isEnabled());
    const QStringList before = describe_window(*Ostrel::instance());
    for (int i = 0; i < 3; ++i) {
        load(obj);
        QCOMPARE(filters(), none);
        QVERIFY(!action("mFileExportAction")->isEnabled());
        load(geometry);
        QCOMPARE(filters(), all);
        QVERIFY(action("mFileImportAction")->isEnabled() && action("mFileExportAction")->isEnabled());
        enter(u"brick 2"_s);
        const QString file = temp_path(u"%1.obj"_s.arg(i));
        QVERIFY(!enter(u"export "_s + file).contains(u"ERROR"));
        QVERIFY(enter(u"import "_s + file).contains(u"closed, volume 8\n"));
        unload(u"obj_format"_s);
        QCOMPARE(filters(), engine);
        QVERIFY(enter(u"import "_s + file)
                    .contains(u"ERROR: import: column 8: the ending of the file tells no format"));
        load(obj);
        QCOMPARE(filters(), all);
        unload(u"geometry"_s);
        QCOMPARE(filters(), none);
        QVERIFY(enter(u"import "_s + file).contains(u"expected a command"));
        load(geometry);
        QCOMPARE(filters(), all);
        unload(u"geometry"_s);
        unload(u"obj_format"_s);
        QCOMPARE(filters(), none);
        QCOMPARE(describe_window(*Ostrel::instance()), before);
    }
}

void TstFileMenuFormats::without_formats_entries_are_disabled_and_commands_tell_why()
{
    const QStringList entries{u"mFileNewAction"_s,    u"mFileOpenAction"_s,   u"mFileSaveAction"_s,
                              u"mFileSaveAsAction"_s, u"mFileImportAction"_s, u"mFileExportAction"_s};
    const auto enabled = [&entries] {
        return std::ranges::count_if(
            entries, [](const QString& name) { return action(qPrintable(name))->isEnabled(); });
    };
    const QString file = temp_path(u"part.stl"_s);
    enter(u"brick 1"_s);
    QVERIFY(!enter(u"export "_s + file).contains(u"ERROR"));
    QCOMPARE(enabled(), entries.size());
    enter(u"unload geometry"_s);
    QCOMPARE(enabled(), 0);
    for (const QString& name : {u"open"_s, u"import"_s, u"export"_s, u"save"_s}) {
        const QString answer = enter(name + u' ' + file);
        const QString why = u"expected a command, found \"%1\"; it comes with the component \"geometry\""_s;
        QVERIFY2(answer.contains(why.arg(name)), qPrintable(answer));
    }
}

void TstFileMenuFormats::handlers_of_others_are_left_alone()
{
    class Other : public ImportExportHandler
    {
    public:
        explicit Other(const QString& filter) : ImportExportHandler(u"other"_s) { mFilters = filter; }
        void execute(const QString&, const QString&) override {}
    };
    Other other(u"STEP (*.step *.stp);;Other (*.oth)"_s);
    QVERIFY(menu()->add_import(&other));
    enter(u"load "_s + QStringLiteral(OBJ_FORMAT));
    QCOMPARE(filters()[0].count(u"Other (*.oth)"), 1);
    enter(u"unload geometry"_s);
    QCOMPARE(filters()[0], other.mFilters);
    QVERIFY(action("mFileImportAction")->isEnabled());
    menu()->remove_component_items("other");
}

void TstFileMenuFormats::export_asks_and_adds_the_ending_of_the_filter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("command");
    QTest::newRow("STEP") << u"STEP (*.step *.stp)"_s << u"a b"_s << u"export \"%1/a b.step\""_s;
    QTest::newRow("second ending") << u"STEP (*.step *.stp)"_s << u"a.stp"_s << u"export %1/a.stp"_s;
    QTest::newRow("STL") << u"STL (*.stl)"_s << u"a"_s << u"export %1/a.stl"_s;
    QTest::newRow("OBJ") << obj_filter << u"größe"_s << u"export %1/größe.obj"_s;
    QTest::newRow("other ending") << u"BREP (*.brep)"_s << u"a.txt"_s << u"export %1/a.txt as BREP"_s;
}

void TstFileMenuFormats::export_asks_and_adds_the_ending_of_the_filter()
{
    QFETCH(const QString, filter);
    QFETCH(const QString, typed);
    QFETCH(const QString, command);
    enter(u"load "_s + QStringLiteral(OBJ_FORMAT));
    enter(u"brick 2"_s);
    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, temp_path(typed), filter);
    });
    page()->clearToPrompt();
    action("mFileExportAction")->trigger();
    QVERIFY(driver.finish());
    flush();
    QCOMPARE(asked.caption, u"Export File"_s);
    QCOMPARE(asked.filters, (engine_exports + u";;"_s + obj_filter).split(u";;"_s));
    const QString line = command.arg(temp_directory());
    QVERIFY2(page()->toPlainText().startsWith(u"Fennar>"_s + line + u'\n'),
             qPrintable(page()->toPlainText()));
    QVERIFY(!page()->toPlainText().contains(u"ERROR"));
    QCOMPARE(workbench().console()->history().entries().last(), line);
    QCOMPARE(QDir(temp_directory()).entryList(QDir::Files).size(), 1);
}

void TstFileMenuFormats::export_without_the_ending_replaces_no_file_unasked_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("replaces");
    // The file dialog asks about the name that is typed whole.
    for (const auto& typed : {u"a"_s, u"a.stl"_s}) {
        QTest::addRow("%s, no", qPrintable(typed)) << typed << false;
        QTest::addRow("%s, yes", qPrintable(typed)) << typed << true;
    }
}

void TstFileMenuFormats::export_without_the_ending_replaces_no_file_unasked()
{
    QFETCH(const QString, typed);
    QFETCH(const bool, replaces);
    enter(u"brick 2"_s);
    QFile file(temp_path(u"a.stl"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    DialogDriver driver;
    driver.expect<QFileDialog>(
        [&](QFileDialog* dialog) { choose_with_return(dialog, temp_path(typed), u"STL (*.stl)"_s); });
    driver.expect(u"QMessageBox"_s, press(replaces ? QDialogButtonBox::Yes : QDialogButtonBox::No));
    if (typed == u"a.stl"_s && !replaces)
        driver.expect<QFileDialog>(press(QDialogButtonBox::Cancel));
    action("mFileExportAction")->trigger();
    QVERIFY(driver.finish());
    flush();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll() == "precious", !replaces);
}

void TstFileMenuFormats::several_files_are_imported_one_after_the_other()
{
    enter(u"brick 2"_s);
    for (const auto& name : {u"a.step"_s, u"b.step"_s})
        enter(u"export "_s + temp_path(name));
    page()->clearToPrompt();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        choose_with_return(dialog, u"\"%1\" \"%2\""_s.arg(temp_path(u"a.step"_s), temp_path(u"b.step"_s)),
                           u"STEP (*.step *.stp)"_s);
    });
    action("mFileImportAction")->trigger();
    QVERIFY(driver.finish());
    flush();
    QVERIFY2(page()->toPlainText().startsWith(
                 u"Fennar>import %1\na: volume 8\nFennar>import %2\nb: volume 8\nFennar>"_s.arg(
                     temp_path(u"a.step"_s), temp_path(u"b.step"_s))),
             qPrintable(page()->toPlainText()));
    QCOMPARE(recent_imports(), QStringList({u"import \"%1\""_s.arg(temp_path(u"b.step"_s)),
                                            u"import \"%1\""_s.arg(temp_path(u"a.step"_s))}));
}

void TstFileMenuFormats::failed_import_is_no_recent_one()
{
    QFile file(temp_path(u"a.step"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no model") == 8);
    file.close();
    import_through_the_dialog(file.fileName(), u"STEP (*.step *.stp)"_s);
    QVERIFY(page()->toPlainText().contains(u"ERROR: import: "));
    QCOMPARE(recent_imports(), QStringList());
    // Nor does it become one when somebody types it.
    enter(u"brick 2"_s);
    enter(u"export "_s + file.fileName());
    enter(u"import "_s + file.fileName());
    QCOMPARE(recent_imports(), QStringList());
}

void TstFileMenuFormats::typed_import_is_no_recent_one()
{
    enter(u"brick 2"_s);
    enter(u"export "_s + temp_path(u"a.step"_s));
    QVERIFY(enter(u"import "_s + temp_path(u"a.step"_s)).contains(u"volume 8"));
    QCOMPARE(recent_imports(), QStringList());
}

void TstFileMenuFormats::recent_import_runs_again_after_a_new_start_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& name :
         {u"a b;c"_s, u"#a %1 &b"_s, u"a'b"_s, u"Деталь"_s, u"a\\b"_s, u"$a"_s, u"a\"b"_s, u"a\nb"_s})
        QTest::addRow("%s", qPrintable(QString(name).replace(u'\n', u"\\n"_s))) << name;
}

void TstFileMenuFormats::recent_import_runs_again_after_a_new_start()
{
    QFETCH(const QString, name);
    const QString file = temp_path(name + u".stl"_s);
    enter(u"brick 2"_s);
    enter(u"export "_s + quote_word(file));
    QVERIFY(QFile::exists(file));
    // The dialog takes quotes and backslashes for its own.
    menu()->execute_import(file, u"STL (*.stl)"_s);
    flush();
    QCOMPARE(recent_imports().size(), 1);
    Ostrel::instance()->save_settings();

    // The menu of a later run has nothing but the settings.
    QSettings settings;
    const QString stored = settings.value(u"ostrelgui/ostrel/import1"_s).toString();
    QCOMPARE(stored, recent_imports().first());
    OstrelFileMenu later(Ostrel::instance());
    later.recent_import(stored);
    Documents documents;
    later.set_open_save_handler(&documents);
    page()->clearToPrompt();
    const QMenu* entries = recent_menu();
    QCOMPARE(entries->actions().size(), 1);
    entries->actions().first()->trigger();
    flush();
    QVERIFY2(page()->toPlainText().contains(u"closed, volume 8\n"), qPrintable(page()->toPlainText()));
    QCOMPARE(recent_imports().size(), 1);
}

void TstFileMenuFormats::chosen_files_run_in_python_mode()
{
    enter(u"brick 2"_s);
    const QString file = temp_path(u"it's.step"_s);
    enter(u"export "_s + quote_word(file));
    emit Ostrel::instance()->command_line()->commandModeChanged(true);
    QVERIFY(workbench().console()->python_mode());
    import_through_the_dialog(file, u"STEP (*.step *.stp)"_s);
    emit Ostrel::instance()->command_line()->commandModeChanged(false);
    QCOMPARE(recent_imports(), QStringList(u"import \"%1\""_s.arg(file)));
}

OSTREL_TEST(TstFileMenuFormats)

#include "tst_filemenuformats.moc"
