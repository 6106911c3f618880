// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "menus/OstrelToolsMenu.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/statics.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QtEndian>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

const auto question = u"MessageSettingBox"_s;
const auto yes = u"mYesButton"_s;
const auto no = u"mNoButton"_s;
const auto cancel = u"mCancelButton"_s;

/** Far longer than any run takes. */
constexpr int patience_ms = 60'000;

QString menu_text(const QAction* action)
{
    QString text = action->text();
    return text.remove(u'&');
}

} // namespace

/**
 * Models are made by typing, saved, and opened again, through the menus of the whole application.
 *
 * Each function begins with a new workbench, and settings of its own; a second life of the program is one
 * more workbench in the same process, which has no Python then.
 */
class TstModelFiles : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void initTestCase();

    void typed_model_comes_back_from_the_recent_files();
    void exported_surface_comes_back_by_import();
    void dialog_opens_a_model();
    void save_as_proposes_the_current_file();
    void saving_from_the_menu_is_a_command();
    void new_discard_drops_unsaved_data_without_a_question();
    void closing_asks_about_unsaved_data_data();
    void closing_asks_about_unsaved_data();
    void yes_to_the_question_saves_before_the_window_closes();
    void closing_without_changes_asks_nothing();
    void save_that_fails_keeps_data_name_and_window();
    void save_as_that_fails_keeps_the_old_name();
    void file_that_cannot_be_opened_keeps_name_and_unsaved_data();
    void no_to_the_question_and_no_file_keeps_the_data_unsaved();
    void commands_ask_as_the_menu_does();
    void name_comes_back_in_a_second_life_data();
    void name_comes_back_in_a_second_life();
    void dialog_takes_odd_names();
    void name_without_its_ending_replaces_no_file_unasked_data();
    void name_without_its_ending_replaces_no_file_unasked();
    void file_dialog_that_has_asked_asks_alone();
    void file_that_is_gone_leaves_the_recent_files();
    void set_directory_asks_and_tells();
    void set_directory_that_is_cancelled_changes_nothing();
    void window_may_go_under_a_dialog_of_files_data();
    void window_may_go_under_a_dialog_of_files();
    void recent_import_runs_its_command();
    void tree_of_an_opened_model_is_in_the_order_of_the_solids();
    void unloaded_component_takes_its_document_with_it();
    void model_of_the_command_line_is_open_data();
    void model_of_the_command_line_is_open();
    void batch_run_opens_before_it_plays();
    void batch_run_fails_with_the_model();

private:
    using Ask = void (*)();

    /** Begins a life of the program. */
    void start();
    /** Ends it, without a word about unsaved data. */
    void end();
    CommandWidget* page() const { return mWorkbench->console()->command_page(); }
    /** Types a line and returns what the console shows for it. */
    QString type(const QString& line);
    /** Enters a line that no keyboard could type. */
    QString enter(const QString& line);
    QString list() { return type(u"list"_s).section(u'\n', 1, -2); }
    static QAction* action(const QString& name) { return Ostrel::instance()->findChild<QAction*>(name); }
    static QString title() { return Ostrel::instance()->windowTitle(); }
    /** The recent files as the file menu shows them. */
    static QList<QAction*> recent_actions();
    static QStringList recent_files();
    static bool is_modified()
    {
        return Ostrel::instance()->file_menu()->get_open_save_handler()->is_modified();
    }
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QProcess* fennar(const QStringList& arguments);

    std::unique_ptr<Workbench> mWorkbench;
    std::unique_ptr<QTemporaryDir> mDirectory;
    QTemporaryDir mComponents;
};

void TstModelFiles::initTestCase()
{
    QVERIFY(QFile::link(QStringLiteral(GEOMETRY), mComponents.filePath(u"geometry.so"_s)));
    qputenv("FENNAR_COMPONENT_PATH", QFile::encodeName(mComponents.path()));
}

void TstModelFiles::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    reset_statics();
    start();
}

void TstModelFiles::tear_down()
{
    end();
}

void TstModelFiles::start()
{
    mWorkbench = std::make_unique<Workbench>();
    QVERIFY(mWorkbench->load());
    QVERIFY(show_active(Ostrel::instance()));
    QTRY_VERIFY(Fennar::instance().registry().find(u"brick"_s));
    Ostrel::instance()->command_line()->set_focus();
    page()->clearToPrompt();
}

void TstModelFiles::end()
{
    if (!mWorkbench)
        return;
    mWorkbench->unload();
    mWorkbench.reset();
    // These would still belong to the workbench that has gone.
    Fennar::instance().registry().remove_owner(u"workbench"_s);
    reset_statics();
}

QString TstModelFiles::type(const QString& line)
{
    page()->clearToPrompt();
    QTest::keyClicks(page(), line);
    QTest::keyClick(page(), Qt::Key_Return);
    return page()->toPlainText();
}

QString TstModelFiles::enter(const QString& line)
{
    page()->clearToPrompt();
    mWorkbench->console()->run_line(line);
    return page()->toPlainText();
}

QList<QAction*> TstModelFiles::recent_actions()
{
    QList<QAction*> result;
    const QMenu* menu = nullptr;
    for (const QMenu* candidate : Ostrel::instance()->findChildren<QMenu*>()) {
        if (candidate->actions().contains(action(u"mFileExitAction"_s)))
            menu = candidate;
    }
    for (QAction* candidate : menu->actions()) {
        const QString text = candidate->text();
        if (text.startsWith(u'&') && QStringView(text).mid(1, 1).toInt() > 0)
            result << candidate;
    }
    return result;
}

QStringList TstModelFiles::recent_files()
{
    std::vector<QString> files;
    Ostrel::instance()->file_menu()->get_recent_files(files);
    return {files.begin(), files.end()};
}

void TstModelFiles::typed_model_comes_back_from_the_recent_files()
{
    QVERIFY(action(u"mFileSaveAction"_s)->isEnabled());
    QCOMPARE(title(), u"Fennar"_s);
    type(u"brick 4 3 2 name plate"_s);
    type(u"cylinder 0.5 5 name drill"_s);
    QVERIFY(type(u"subtract drill from plate"_s).contains(u"plate: volume"_s));
    QVERIFY(type(u"mesh size 1"_s).contains(u"volume elements"_s));
    const QString before = list();
    const QString statistics = type(u"statistics"_s);
    QVERIFY(is_modified());

    DialogDriver driver;
    FileQuestion asked;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, path(u"plate"_s));
    });
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(asked.filters, QStringList({u"Model Files (*.mdl)"_s, u"All Files (*)"_s}));
    const QString file = path(u"plate.mdl"_s);
    QVERIFY(QFile::exists(file));
    QCOMPARE(title(), u"Fennar - "_s + file);
    QVERIFY(!is_modified());
    QCOMPARE(recent_files(), QStringList(file));

    action(u"mFileNewAction"_s)->trigger();
    QCOMPARE(title(), u"Fennar"_s);
    QCOMPARE(list(), u"There are no solids."_s);

    QCOMPARE(recent_actions().size(), 1);
    recent_actions().first()->trigger();
    QCOMPARE(title(), u"Fennar - "_s + file);
    QCOMPARE(list(), before);
    QCOMPARE(type(u"statistics"_s), statistics);
    QVERIFY(!is_modified());
    type(u"brick 1"_s);
    QVERIFY(is_modified());
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY(!is_modified());
}

void TstModelFiles::exported_surface_comes_back_by_import()
{
    type(u"brick 4 3 2 name plate"_s);
    type(u"cylinder 0.5 5 name drill"_s);
    type(u"subtract drill from plate"_s);

    // The menu sends its command to the console when the dialog has closed.
    const QString file = path(u"plate.stl"_s);
    const auto exchange = [&](const QString& name) {
        DialogDriver driver;
        driver.expect<QFileDialog>(
            [&](QFileDialog* dialog) { choose_with_return(dialog, file, u"STL (*.stl)"_s); });
        action(name)->trigger();
        return driver.finish();
    };
    QVERIFY(exchange(u"mFileExportAction"_s));
    QTRY_VERIFY(QFile::exists(file));
    // A binary STL file has 80 bytes of text, the number of triangles, and 50 bytes for each of them.
    QFile stl(file);
    QVERIFY(stl.open(QIODevice::ReadOnly));
    const QByteArray data = stl.readAll();
    const auto triangles = qFromLittleEndian<quint32>(data.constData() + 80);
    QVERIFY(triangles > 12);
    QCOMPARE(data.size(), 84 + 50 * qsizetype(triangles));

    OstrelFileMenu::set_save_prompt(false);
    QCOMPARE(type(u"new"_s).contains(u"ERROR"_s), false);
    QVERIFY(exchange(u"mFileImportAction"_s));
    QTRY_VERIFY(page()->toPlainText().contains(u"%1 x Triangle 3, closed"_s.arg(triangles)));
    std::vector<QString> imports;
    Ostrel::instance()->file_menu()->get_recent_imports(imports);
    QCOMPARE(imports.size(), std::size_t(1));
    QVERIFY2(imports.front().contains(file), qPrintable(imports.front()));
}

void TstModelFiles::dialog_opens_a_model()
{
    type(u"brick 2"_s);
    const QString before = list();
    enter(u"save "_s + path(u"a.mdl"_s));
    enter(u"new"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose_with_return(dialog, path(u"a.mdl"_s)); });
    action(u"mFileOpenAction"_s)->trigger();
    QVERIFY(driver.finish());
    QVERIFY(page()->toPlainText().contains(u"selected filter: Model Files (*.mdl)\n"_s));
    QCOMPARE(list(), before);
    QCOMPARE(title(), u"Fennar - "_s + path(u"a.mdl"_s));
}

void TstModelFiles::save_as_proposes_the_current_file()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    OstrelFileMenu::set_path(QDir::rootPath());
    DialogDriver driver;
    FileQuestion asked;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        dialog->reject();
    });
    action(u"mFileSaveAsAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(asked.directory, mDirectory->path());
    QCOMPARE(asked.name, u"a.mdl"_s);
    QCOMPARE(title(), u"Fennar - "_s + path(u"a.mdl"_s));
}

void TstModelFiles::saving_from_the_menu_is_a_command()
{
    type(u"brick 2"_s);
    {
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"a b.mdl"_s)); });
        action(u"mFileSaveAsAction"_s)->trigger();
        QVERIFY(driver.finish());
    }
    const QString file = path(u"a b.mdl"_s);
    QVERIFY2(page()->toPlainText().contains(u"Fennar>save %1\n"_s.arg(quote_word(file))),
             qPrintable(page()->toPlainText()));
    QVERIFY(!is_modified());
    QCOMPARE(recent_files(), QStringList(file));

    // In the current file.
    type(u"brick 3"_s);
    page()->clearToPrompt();
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY2(page()->toPlainText().contains(u"Fennar>save\n"_s), qPrintable(page()->toPlainText()));
    QVERIFY(!is_modified());
    QCOMPARE(title(), u"Fennar - "_s + file);
    QCOMPARE(recent_files(), QStringList(file));
}

void TstModelFiles::new_discard_drops_unsaved_data_without_a_question()
{
    type(u"brick 2"_s);
    QVERIFY(is_modified());
    QVERIFY(OstrelFileMenu::do_save_prompt());
    const DialogDriver nothing_comes;
    type(u"new discard"_s);
    QVERIFY(!is_modified());
    QCOMPARE(list(), u"There are no solids."_s);
    QVERIFY(OstrelFileMenu::do_save_prompt());
}

void TstModelFiles::closing_asks_about_unsaved_data_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("closes");
    QTest::newRow("no") << no << true;
    QTest::newRow("cancel") << cancel << false;
    QTest::newRow("yes, and the file dialog cancelled") << yes << false;
}

void TstModelFiles::closing_asks_about_unsaved_data()
{
    QFETCH(const QString, button);
    QFETCH(const bool, closes);
    type(u"brick 2"_s);
    const QString before = list();
    DialogDriver driver;
    driver.expect(question, press(button));
    if (button == yes)
        driver.expect<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    QCOMPARE(Ostrel::instance()->close(), closes);
    QVERIFY(driver.finish());
    QCOMPARE(Ostrel::instance()->isVisible(), !closes);
    if (!closes) {
        QCOMPARE(list(), before);
        QVERIFY(is_modified());
    }
}

void TstModelFiles::yes_to_the_question_saves_before_the_window_closes()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    const QString before = list();
    {
        DialogDriver driver;
        driver.expect(question, press(yes));
        QVERIFY(Ostrel::instance()->close());
        QVERIFY(driver.finish());
    }
    end();
    start();
    QCOMPARE(recent_actions().size(), 1);
    recent_actions().first()->trigger();
    QCOMPARE(list(), before);
}

void TstModelFiles::closing_without_changes_asks_nothing()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"list"_s);
    DialogDriver driver;
    QVERIFY(Ostrel::instance()->close());
    QVERIFY(driver.finish());
}

void TstModelFiles::save_that_fails_keeps_data_name_and_window()
{
    QVERIFY(QDir(mDirectory->path()).mkdir(u"d"_s));
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"d/a.mdl"_s));
    type(u"brick 3"_s);
    const QString before = list();
    QVERIFY(QDir(path(u"d"_s)).removeRecursively());
    page()->clearToPrompt();
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY2(
        page()->toPlainText().contains(
            u"ERROR: save: the model cannot be saved in \"%1\": No such file or directory; it stays in memory, unsaved\n"_s
                .arg(path(u"d/a.mdl"_s))),
        qPrintable(page()->toPlainText()));
    QVERIFY(is_modified());
    {
        DialogDriver driver;
        driver.expect(question, press(yes));
        QVERIFY(!Ostrel::instance()->close());
        QVERIFY(driver.finish());
    }
    QVERIFY(Ostrel::instance()->isVisible() && is_modified());
    QCOMPARE(list(), before);
    QCOMPARE(title(), u"Fennar - "_s + path(u"d/a.mdl"_s));
    QVERIFY(QDir(mDirectory->path()).mkdir(u"d"_s));
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY(!is_modified() && QFile::exists(path(u"d/a.mdl"_s)));
}

void TstModelFiles::save_as_that_fails_keeps_the_old_name()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    QVERIFY(enter(u"save /dev/full"_s).contains(u"No space left on device"_s));
    QCOMPARE(title(), u"Fennar - "_s + path(u"a.mdl"_s));
    QVERIFY(is_modified());
    type(u"save"_s);
    QVERIFY(!is_modified());
}

void TstModelFiles::file_that_cannot_be_opened_keeps_name_and_unsaved_data()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    QFile bad(path(u"bad.mdl"_s));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write("brick 1\n");
    bad.close();
    Ostrel::instance()->file_menu()->recent_file(bad.fileName());
    type(u"brick 3"_s);
    const QString before = list();
    DialogDriver driver;
    driver.expect(question, press(no));
    recent_actions().first()->trigger();
    QVERIFY(driver.finish());
    QVERIFY2(page()->toPlainText().contains(u"it does not begin as a model file does"_s),
             qPrintable(page()->toPlainText()));
    QCOMPARE(list(), before);
    QVERIFY(is_modified());
    QCOMPARE(title(), u"Fennar - "_s + path(u"a.mdl"_s));
    // Saving must not write over what could not be opened.
    action(u"mFileSaveAction"_s)->trigger();
    QCOMPARE(bad.size(), 8);
    QVERIFY(!is_modified());
}

void TstModelFiles::no_to_the_question_and_no_file_keeps_the_data_unsaved()
{
    type(u"brick 2"_s);
    DialogDriver driver;
    driver.expect(question, press(no));
    driver.expect<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    action(u"mFileOpenAction"_s)->trigger();
    QVERIFY(driver.finish());
    QVERIFY(is_modified());
}

void TstModelFiles::commands_ask_as_the_menu_does()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    const QString before = list();
    for (const QString& line : {u"new"_s, u"open "_s + path(u"a.mdl"_s)}) {
        DialogDriver driver;
        driver.expect(question, press(cancel));
        const QString answer = enter(line);
        QVERIFY(driver.finish());
        QVERIFY2(answer.contains(u": cancelled; the model is as it was\n"_s), qPrintable(answer));
        QCOMPARE(list(), before);
    }
    DialogDriver driver;
    driver.expect(question, press(no));
    enter(u"new"_s);
    QVERIFY(driver.finish());
    QCOMPARE(list(), u"There are no solids."_s);
    QCOMPARE(title(), u"Fennar"_s);
    QVERIFY(!is_modified());
    enter(u"open "_s + path(u"a.mdl"_s));
    QCOMPARE(title(), u"Fennar - "_s + path(u"a.mdl"_s));
    QString directory;
    OstrelFileMenu::get_path(directory);
    QCOMPARE(directory, mDirectory->path() + u'/');
    QCOMPARE(recent_files(), QStringList(path(u"a.mdl"_s)));
}

void TstModelFiles::name_comes_back_in_a_second_life_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u" a  b .mdl"_s;
    QTest::newRow("signs of shells and settings") << u"a;b#c%d&e=f,g@h[*]\\i.mdl"_s;
    QTest::newRow("quotes") << u"a\"b'c`d.mdl"_s;
    QTest::newRow("other letters") << u"модель 模型 é 😀.mdl"_s;
    QTest::newRow("line feed") << u"a\nb.mdl"_s;
    QTest::newRow("variable") << u"$HOME ${x} %n.mdl"_s;
}

void TstModelFiles::name_comes_back_in_a_second_life()
{
    QFETCH(const QString, name);
    type(u"brick 2 name a"_s);
    const QString before = list();
    enter(u"save "_s + quote_word(path(name)));
    QVERIFY(QFile::exists(path(name)));
    QCOMPARE(recent_files(), QStringList(path(name)));
    QVERIFY(Ostrel::instance()->close());
    end();
    start();
    QCOMPARE(recent_files(), QStringList(path(name)));
    QCOMPARE(recent_actions().size(), 1);
    recent_actions().first()->trigger();
    QCOMPARE(list(), before);
    QString file;
    OstrelFileMenu::get_file_name(file);
    QCOMPARE(file, path(name));
    type(u"brick 1"_s);
    action(u"mFileSaveAction"_s)->trigger();
    QVERIFY(!is_modified());
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::Files | QDir::Hidden), QStringList(name));
}

void TstModelFiles::dialog_takes_odd_names()
{
    const QString name = u"модель a;b #c%d&e'f"_s;
    type(u"brick 2"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(name)); });
    action(u"mFileSaveAsAction"_s)->trigger();
    QVERIFY(driver.finish());
    QVERIFY(QFile::exists(path(name + u".mdl"_s)));
    QCOMPARE(recent_files(), QStringList(path(name + u".mdl"_s)));
}

void TstModelFiles::name_without_its_ending_replaces_no_file_unasked_data()
{
    QTest::addColumn<bool>("replaces");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void TstModelFiles::name_without_its_ending_replaces_no_file_unasked()
{
    QFETCH(bool, replaces);
    QFile other(path(u"b.mdl"_s));
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("precious");
    other.close();
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"b"_s)); });
    QString asked;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        asked = box->text();
        press(replaces ? QDialogButtonBox::Yes : QDialogButtonBox::No)(box);
    });
    action(u"mFileSaveAsAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(asked, u"b.mdl already exists.\nDo you want to replace it?"_s);
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(other.readAll() == "precious", !replaces);
    QCOMPARE(is_modified(), !replaces);
    QCOMPARE(title(), u"Fennar - "_s + path(replaces ? u"b.mdl"_s : u"a.mdl"_s));
}

void TstModelFiles::file_dialog_that_has_asked_asks_alone()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"a.mdl"_s)); });
    driver.expect<QMessageBox>(press(QDialogButtonBox::Yes));
    action(u"mFileSaveAsAction"_s)->trigger();
    QVERIFY(driver.finish());
    QVERIFY(!is_modified());
}

void TstModelFiles::file_that_is_gone_leaves_the_recent_files()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    enter(u"save "_s + path(u"b.mdl"_s));
    QVERIFY(QFile::remove(path(u"a.mdl"_s)));
    const QString before = list();
    QCOMPARE(recent_files(), QStringList({path(u"b.mdl"_s), path(u"a.mdl"_s)}));
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    recent_actions().last()->trigger();
    QCOMPARE(driver.seen().join(u'\n').count(u"The selected file does not exist."_s), 1);
    QVERIFY(driver.finish());
    QCOMPARE(recent_files(), QStringList(path(u"b.mdl"_s)));
    QVERIFY(menu_text(recent_actions().first()).startsWith(u"1 "_s));
    QCOMPARE(list(), before);
    QCOMPARE(title(), u"Fennar - "_s + path(u"b.mdl"_s));
}

void TstModelFiles::set_directory_asks_and_tells()
{
    const QString before = QDir::currentPath();
    const QString directory = path(u"a directory"_s);
    QVERIFY(QDir().mkdir(directory));
    OstrelFileMenu::set_path(mDirectory->path());
    DialogDriver driver;
    FileQuestion asked;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, directory);
    });
    action(u"mFileSetDirectory"_s)->trigger();
    QVERIFY(driver.finish());
    QVERIFY(asked.directories_only);
    QCOMPARE(asked.directory, mDirectory->path());
    QCOMPARE(QDir::currentPath(), QDir(directory).canonicalPath());
    QString path_of_dialogs;
    OstrelFileMenu::get_path(path_of_dialogs);
    QCOMPARE(path_of_dialogs, directory);
    QStringList labels;
    for (const QLabel* label : Ostrel::instance()->statusBar()->findChildren<QLabel*>())
        labels << label->text();
    QVERIFY2(labels.contains(u"Working Directory: "_s + directory), qPrintable(labels.join(u'\n')));
    type(u"save a.mdl"_s);
    QVERIFY(QFile::exists(directory + u"/a.mdl"_s));
    QVERIFY(QDir::setCurrent(before));
}

void TstModelFiles::set_directory_that_is_cancelled_changes_nothing()
{
    const QString before = QDir::currentPath();
    OstrelFileMenu::set_path(mDirectory->path());
    DialogDriver driver;
    driver.expect<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    action(u"mFileSetDirectory"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(QDir::currentPath(), before);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path());
}

void TstModelFiles::window_may_go_under_a_dialog_of_files_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::newRow("Set Directory") << Ask([] { Ostrel::instance()->file_menu()->file_directory(); });
    QTest::newRow("Play Journal File")
        << Ask([] { Ostrel::instance()->tools_menu()->play_action()->trigger(); });
}

void TstModelFiles::window_may_go_under_a_dialog_of_files()
{
    QFETCH(const Ask, ask);
    const QString before = QDir::currentPath();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog*) { end(); });
    ask();
    QVERIFY(driver.finish());
    QVERIFY(!Ostrel::instance());
    QCOMPARE(QDir::currentPath(), before);
}

void TstModelFiles::recent_import_runs_its_command()
{
    page()->clearToPrompt();
    Ostrel::instance()->file_menu()->import_recent_file(u"echo 'a b'"_s);
    QVERIFY2(page()->toPlainText().contains(u"echo 'a b'\na b\n"_s), qPrintable(page()->toPlainText()));
}

void TstModelFiles::tree_of_an_opened_model_is_in_the_order_of_the_solids()
{
    for (int i = 0; i < 4; ++i)
        type(u"brick 1"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"delete brick1 brick3"_s);
    enter(u"save "_s + path(u"b.mdl"_s));
    const auto* tree = Ostrel::instance()->findChild<QTreeWidget*>(u"GeometryModelTree"_s);
    const QTreeWidgetItem* solids = tree->topLevelItem(0);
    QTRY_COMPARE(solids->childCount(), 2);
    enter(u"open "_s + path(u"a.mdl"_s));
    QTRY_COMPARE(solids->childCount(), 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(solids->child(i)->text(0), u"brick%1"_s.arg(i + 1));
}

void TstModelFiles::unloaded_component_takes_its_document_with_it()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    type(u"brick 3"_s);
    {
        DialogDriver driver;
        driver.expect(question, press(cancel));
        const QString answer = enter(u"unload geometry"_s);
        QVERIFY(driver.finish());
        QVERIFY2(answer.contains(u"holds unsaved data"_s), qPrintable(answer));
    }
    DialogDriver driver;
    driver.expect(question, press(yes));
    QString answer = enter(u"unload geometry"_s);
    QVERIFY(driver.finish());
    QVERIFY2(!answer.contains(u"ERROR"_s), qPrintable(answer));
    QCOMPARE(title(), u"Fennar"_s);
    QVERIFY(!Ostrel::instance()->file_menu()->get_open_save_handler());
    QVERIFY(!action(u"mFileSaveAction"_s)->isEnabled());
    page()->clearToPrompt();
    Ostrel::instance()->file_menu()->file_save();
    QVERIFY(page()->toPlainText().contains(u"ERROR: Missing open/save handler.\n"_s));
    enter(u"load geometry"_s);
    QVERIFY(action(u"mFileSaveAction"_s)->isEnabled());
    recent_actions().first()->trigger();
    answer = list();
    QVERIFY2(answer.contains(u"brick2"_s), qPrintable(answer));
}

QProcess* TstModelFiles::fennar(const QStringList& arguments)
{
    auto* process = new QProcess(Ostrel::instance());
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
    variables.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
    process->setProcessEnvironment(variables);
    process->setWorkingDirectory(mDirectory->path());
    process->start(QStringLiteral(FENNAR), arguments);
    if (!process->waitForFinished(patience_ms))
        process->kill();
    return process;
}

void TstModelFiles::model_of_the_command_line_is_open_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"a.mdl"_s;
    QTest::newRow("odd") << u"a b;c#$d\"e'f\n模型.mdl"_s;
}

void TstModelFiles::model_of_the_command_line_is_open()
{
    QFETCH(const QString, name);
    type(u"brick 2"_s);
    enter(u"save "_s + quote_word(path(name)));
    QFile journal(path(u"a.jou"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("brick 3\nsave copy.mdl\nquit\n");
    journal.close();
    // A relative name.
    const QProcess* process = fennar({u"--play"_s, u"a.jou"_s, name});
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    enter(u"open "_s + path(u"copy.mdl"_s));
    const QString solids = list();
    QVERIFY2(solids.contains(u"brick1"_s) && solids.contains(u"brick2"_s), qPrintable(solids));
}

void TstModelFiles::batch_run_opens_before_it_plays()
{
    type(u"brick 2"_s);
    enter(u"save "_s + path(u"a.mdl"_s));
    QFile journal(path(u"a.jou"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("brick 3\nsave\nnew\nopen a.mdl\nlist\n");
    journal.close();
    QProcess* process = fennar({u"--batch"_s, u"a.mdl"_s, u"--play"_s, u"a.jou"_s});
    QCOMPARE(QString::fromUtf8(process->readAllStandardError()), QString());
    QCOMPARE(process->exitCode(), 0);
    enter(u"open "_s + path(u"a.mdl"_s));
    const QString solids = list();
    QVERIFY2(solids.contains(u"brick2"_s), qPrintable(solids));
    QVERIFY(QString::fromUtf8(process->readAllStandardOutput()).contains(solids));
}

void TstModelFiles::batch_run_fails_with_the_model()
{
    QFile journal(path(u"a.jou"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("echo never\n");
    journal.close();
    QProcess* process = fennar({u"--batch"_s, u"gone.mdl"_s, u"--play"_s, u"a.jou"_s});
    QCOMPARE(process->exitCode(), 1);
    const QString errors = QString::fromUtf8(process->readAllStandardError());
    QVERIFY2(errors.contains(u"there is no file"_s) && errors.contains(u"gone.mdl"_s), qPrintable(errors));
    QVERIFY(!QString::fromUtf8(process->readAllStandardOutput()).contains(u"never"_s));
}

OSTREL_TEST(TstModelFiles)
#include "tst_modelfiles.moc"
