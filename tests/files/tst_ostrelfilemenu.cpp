// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "files/RecentFiles.h"
#include "frame/Ostrel.h"
#include "handlers.h"
#include "hostdouble/HostDouble.h"
#include "resources/load_icon.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/menus.h"
#include "support/statics.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPointer>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

const auto missing = u"BrokerCommand::operator<<(\"ERROR: Missing open/save handler.\n\")"_s;

QMenu* file_menu_of(const Ostrel& window)
{
    return window.menuBar()->actions().constFirst()->menu();
}

QAction* action(const Ostrel& window, const QString& name)
{
    return window.file_menu()->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

QImage picture(const QIcon& icon)
{
    return icon.pixmap(22, 22).toImage();
}

// The menu's row, the one at the submenu being its title.
QString name_of(const QAction* entry)
{
    if (entry->isSeparator())
        return u"---"_s;
    return entry->menu() ? u"> "_s + entry->text() : entry->objectName();
}

QList<QLabel*> labels(const Ostrel& window)
{
    return window.statusBar()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

QStringList enabled(const Ostrel& window)
{
    QStringList names;
    for (const QAction* entry : window.file_menu()->findChildren<QAction*>()) {
        if (entry->isEnabled())
            names << entry->objectName();
    }
    return names;
}

void make_file(const QString& name)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

/** Counts the rows that leave a menu. */
class ActionCounter : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ActionRemoved)
            ++removed;
        return QObject::eventFilter(watched, event);
    }

    int removed = 0;
};

} // namespace

class TstOstrelFileMenu : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    // The menu.
    void menu_comes_first_in_the_bar();
    void entries_keep_their_order();
    void entries_show_what_they_do_data();
    void entries_show_what_they_do();
    void entries_are_children_of_the_file_menu();
    void without_handlers_two_entries_are_enabled();
    void texts_are_translated_and_shortcuts_are_not();
    void slots_keep_their_order();
    void toolbar_gets_five_actions();
    void exit_closes_the_window();

    // Statics.
    void statics_start_empty_and_prompting();
    void first_directory_is_that_of_documents_data();
    void first_directory_is_that_of_documents();
    void known_directory_stays();
    void statics_outlive_the_menu();
    void statics_are_read_and_set();
    void directory_comes_from_a_file();

    // The handler for documents.
    void handler_enables_the_four_document_actions();
    void handler_is_not_owned();
    void without_handler_every_flow_complains_and_does_nothing_data();
    void without_handler_every_flow_complains_and_does_nothing();
    void save_prompt_is_not_asked_without_handler();

    // Working directory.
    void label_is_empty_until_the_directory_changes();
    void label_takes_the_room_of_its_text_on_the_left();
    void new_directory_is_taken_as_it_is_data();
    void new_directory_is_taken_as_it_is();
    void only_the_user_changes_the_label();
    void directory_action_asks_the_handler();

    // Recent lists.
    void recent_files_stand_above_exit();
    void recent_imports_have_a_menu_of_their_own();
    void entries_are_appended_newest_first();
    void chosen_recent_file_is_opened();
    void chosen_recent_import_is_run();
    void missing_recent_file_is_not_opened_directly();
    void missing_entries_are_reported_above_the_window_data();
    void missing_entries_are_reported_above_the_window();
    void recent_lists_leave_the_menu_before_it_dies();

    // The end.
    void menu_label_and_lists_go_with_the_file_menu();

private:
    QString mHomeBefore;
};

void TstOstrelFileMenu::set_up()
{
    reset_statics();
    host().reset();
    mHomeBefore = QDir::homePath();
}

void TstOstrelFileMenu::tear_down()
{
    qputenv("HOME", mHomeBefore.toLocal8Bit());
    reset_statics();
}

void TstOstrelFileMenu::menu_comes_first_in_the_bar()
{
    const Ostrel window;
    QVERIFY(window.file_menu());
    QCOMPARE(window.file_menu()->objectName(), u"OstrelFileMenu"_s);
    QVERIFY(!window.menuBar()->actions().isEmpty());
    QCOMPARE(file_menu_of(window)->title(), u"&File"_s);
}

void TstOstrelFileMenu::entries_keep_their_order()
{
    const Ostrel window;
    QStringList names;
    for (const QAction* entry : file_menu_of(window)->actions())
        names << name_of(entry);
    QCOMPARE(names, (QStringList{u"mFileNewAction"_s, u"mFileOpenAction"_s, u"mFileSaveAction"_s,
                                 u"mFileSaveAsAction"_s, u"---"_s, u"> &Recent Imports"_s,
                                 u"mFileImportAction"_s, u"mFileExportAction"_s, u"---"_s,
                                 u"mFileSetDirectory"_s, u"---"_s, u"mFileExitAction"_s}));
}

void TstOstrelFileMenu::entries_show_what_they_do_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QByteArray>("icon");
    QTest::addColumn<QString>("tool_tip");

    QTest::newRow("new") << u"mFileNewAction"_s << u"&New"_s << u"Ctrl+N"_s << "filenew_ot.svg"_ba
                         << u"New"_s;
    QTest::newRow("open") << u"mFileOpenAction"_s << u"&Open..."_s << u"Ctrl+O"_s << "fileopen_ot.svg"_ba
                          << u"Open"_s;
    QTest::newRow("save") << u"mFileSaveAction"_s << u"&Save"_s << u"Ctrl+S"_s << "filesave_ot.svg"_ba
                          << u"Save"_s;
    QTest::newRow("save as") << u"mFileSaveAsAction"_s << u"Save &As..."_s << u""_s << ""_ba << u"Save As"_s;
    QTest::newRow("import") << u"mFileImportAction"_s << u"&Import..."_s << u""_s << "Import22.svg"_ba
                            << u"Import"_s;
    QTest::newRow("export") << u"mFileExportAction"_s << u"&Export..."_s << u""_s << "Export22.svg"_ba
                            << u"Export"_s;
    QTest::newRow("directory") << u"mFileSetDirectory"_s << u"Set &Directory"_s << u""_s << ""_ba
                               << u"Sets the current working directory"_s;
    QTest::newRow("exit") << u"mFileExitAction"_s << u"E&xit"_s << u""_s << ""_ba << u"Exit"_s;
}

void TstOstrelFileMenu::entries_show_what_they_do()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, icon);
    const Ostrel window;
    const QAction* entry = action(window, name);
    QVERIFY(entry);
    QTEST(entry->text(), "text");
    QTEST(entry->shortcut().toString(QKeySequence::PortableText), "shortcut");
    QTEST(entry->toolTip(), "tool_tip");
    QVERIFY(!entry->isCheckable());
    QCOMPARE(entry->icon().isNull(), icon.isEmpty());
    if (!icon.isEmpty()) {
        QVERIFY(!picture(load_icon(icon.constData())).isNull());
        QCOMPARE(picture(entry->icon()), picture(load_icon(icon.constData())));
    }
}

void TstOstrelFileMenu::entries_are_children_of_the_file_menu()
{
    const Ostrel window;
    QStringList names;
    for (const QAction* entry : window.file_menu()->findChildren<QAction*>())
        names << entry->objectName();
    QCOMPARE(names, (QStringList{u"mFileNewAction"_s, u"mFileOpenAction"_s, u"mFileSaveAction"_s,
                                 u"mFileSaveAsAction"_s, u"mFileImportAction"_s, u"mFileExportAction"_s,
                                 u"mFileSetDirectory"_s, u"mFileExitAction"_s}));
}

void TstOstrelFileMenu::without_handlers_two_entries_are_enabled()
{
    const Ostrel window;
    QCOMPARE(enabled(window), (QStringList{u"mFileSetDirectory"_s, u"mFileExitAction"_s}));
    QVERIFY(!window.file_menu()->get_open_save_handler());
    QVERIFY(!file_menu_of(window)->actions().at(5)->menu()->isEnabled());
}

void TstOstrelFileMenu::texts_are_translated_and_shortcuts_are_not()
{
    const MarkingTranslator translator("OstrelFileMenu");
    Ostrel window;
    QCOMPARE(file_menu_of(window)->title(), u"<&File>"_s);
    QCOMPARE(menu_rows(file_menu_of(window)),
             (QStringList{u"<&New> [Ctrl+N] (disabled)"_s, u"<&Open...> [Ctrl+O] (disabled)"_s,
                          u"<&Save> [Ctrl+S] (disabled)"_s, u"<Save &As...> [] (disabled)"_s, u"---"_s,
                          u"<&Recent Imports> [] (disabled)"_s, u"<&Import...> [] (disabled)"_s,
                          u"<&Export...> [] (disabled)"_s, u"---"_s, u"<Set &Directory> [] (enabled)"_s,
                          u"---"_s, u"<E&xit> [] (enabled)"_s}));
    QCOMPARE(action(window, u"mFileSetDirectory"_s)->toolTip(), u"<Sets the current working directory>"_s);
    window.file_menu()->user_changed_directory(u"/a"_s);
    QCOMPARE(labels(window).constFirst()->text(), u"<Working Directory: >/a"_s);
    host().take_calls();
    window.file_menu()->file_new();
    QCOMPARE(host().take_calls(),
             QStringList{u"BrokerCommand::operator<<(\"<ERROR: Missing open/save handler.\n>\")"_s});
}

void TstOstrelFileMenu::slots_keep_their_order()
{
    const QMetaObject& meta = OstrelFileMenu::staticMetaObject;
    QList<QByteArray> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Public);
        methods << meta.method(i).methodSignature();
    }
    QCOMPARE(methods, (QList<QByteArray>{
                          "file_new()",
                          "file_open()",
                          "file_save()",
                          "file_save_as()",
                          "file_import()",
                          "file_import_exodus_only()",
                          "file_export(QString)",
                          "file_export()",
                          "file_directory()",
                          "open_recent_file(QString)",
                          "import_recent_file(QString)",
                      }));
}

void TstOstrelFileMenu::toolbar_gets_five_actions()
{
    const Ostrel window;
    QAction before;
    std::vector<QAction*> items{&before};
    window.file_menu()->get_items_for_toolbar(items);
    QCOMPARE(items, (std::vector<QAction*>{
                        &before, action(window, u"mFileNewAction"_s), action(window, u"mFileOpenAction"_s),
                        action(window, u"mFileSaveAction"_s), action(window, u"mFileImportAction"_s),
                        action(window, u"mFileExportAction"_s)}));
}

void TstOstrelFileMenu::exit_closes_the_window()
{
    Ostrel window;
    window.show();
    host().take_calls();
    action(window, u"mFileExitAction"_s)->trigger();
    QVERIFY(!window.isVisible());
    QCOMPARE(host().take_calls(), QStringList{u"Mediator::request_exit()"_s});
}

void TstOstrelFileMenu::statics_start_empty_and_prompting()
{
    const Ostrel window;
    QCOMPARE(OstrelFileMenu::mFileName, QString());
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, QString());
    QVERIFY(OstrelFileMenu::mDoPrompt);
}

void TstOstrelFileMenu::first_directory_is_that_of_documents_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QString>("behind_home");

    QTest::newRow("neither") << QStringList() << u""_s;
    QTest::newRow("documents") << QStringList{u"Documents"_s} << u"/Documents"_s;
    QTest::newRow("my documents") << QStringList{u"My Documents"_s} << u"/My Documents"_s;
    QTest::newRow("both") << QStringList{u"My Documents"_s, u"Documents"_s} << u"/Documents"_s;
    QTest::newRow("in a folder") << QStringList{u"work/Documents"_s} << u""_s;
}

void TstOstrelFileMenu::first_directory_is_that_of_documents()
{
    QFETCH(QStringList, folders);
    QFETCH(QString, behind_home);
    const QTemporaryDir home;
    for (const QString& folder : folders)
        QVERIFY(QDir(home.path()).mkpath(folder));
    qputenv("HOME", home.path().toLocal8Bit());
    const Ostrel window;
    QCOMPARE(OstrelFileMenu::mPath, QDir::homePath() + behind_home);
    QCOMPARE(QDir::homePath(), home.path());
}

void TstOstrelFileMenu::known_directory_stays()
{
    OstrelFileMenu::mPath = u"/not there"_s;
    const Ostrel window;
    QCOMPARE(OstrelFileMenu::mPath, u"/not there"_s);
}

void TstOstrelFileMenu::statics_outlive_the_menu()
{
    {
        const Ostrel window;
        OstrelFileMenu::set_file_name(u"/a/b.mdl"_s);
        OstrelFileMenu::set_path(u"/a"_s);
        window.file_menu()->set_active_import_filter(u"Mesh (*.msh)"_s);
        OstrelFileMenu::set_save_prompt(false);
    }
    QCOMPARE(OstrelFileMenu::mFileName, u"/a/b.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, u"/a"_s);
    QCOMPARE(OstrelFileMenu::mActiveImportFilter, u"Mesh (*.msh)"_s);
    QVERIFY(!OstrelFileMenu::mDoPrompt);
}

void TstOstrelFileMenu::statics_are_read_and_set()
{
    QString text = u"before"_s;
    OstrelFileMenu::get_file_name(text);
    QCOMPARE(text, QString());
    OstrelFileMenu::set_file_name(u"x.mdl"_s);
    OstrelFileMenu::get_file_name(text);
    QCOMPARE(text, u"x.mdl"_s);
    OstrelFileMenu::set_path(u"relative dir"_s);
    OstrelFileMenu::get_path(text);
    QCOMPARE(text, u"relative dir"_s);
    QCOMPARE(OstrelFileMenu::mPath, u"relative dir"_s);
    QCOMPARE(OstrelFileMenu::mFileName, u"x.mdl"_s);
    QVERIFY(OstrelFileMenu::do_save_prompt());
    OstrelFileMenu::set_save_prompt(false);
    QVERIFY(!OstrelFileMenu::do_save_prompt());
    QVERIFY(!OstrelFileMenu::mDoPrompt);
}

void TstOstrelFileMenu::directory_comes_from_a_file()
{
    OstrelFileMenu::set_path_from_file(u"/a/b c/plate.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, u"/a/b c/"_s);
    OstrelFileMenu::set_path_from_file(u"C:\\work\\plate.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, u"C:\\work\\"_s);
    OstrelFileMenu::set_path_from_file(u"plate.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, u"plate.mdl"_s);
    OstrelFileMenu::set_path_from_file(QString());
    QCOMPARE(OstrelFileMenu::mPath, QString());
}

void TstOstrelFileMenu::handler_enables_the_four_document_actions()
{
    const Ostrel window;
    Documents documents;
    window.file_menu()->set_open_save_handler(&documents);
    QCOMPARE(window.file_menu()->get_open_save_handler(), &documents);
    QCOMPARE(enabled(window),
             (QStringList{u"mFileNewAction"_s, u"mFileOpenAction"_s, u"mFileSaveAction"_s,
                          u"mFileSaveAsAction"_s, u"mFileSetDirectory"_s, u"mFileExitAction"_s}));
    window.file_menu()->set_open_save_handler(nullptr);
    QVERIFY(!window.file_menu()->get_open_save_handler());
    QCOMPARE(enabled(window), (QStringList{u"mFileSetDirectory"_s, u"mFileExitAction"_s}));
}

void TstOstrelFileMenu::handler_is_not_owned()
{
    Documents documents;
    {
        const Ostrel window;
        window.file_menu()->set_open_save_handler(&documents);
    }
    // The object is still whole.
    QVERIFY(!documents.is_modified());
}

void TstOstrelFileMenu::without_handler_every_flow_complains_and_does_nothing_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("takes_a_text");

    QTest::newRow("new") << "file_new"_ba << false;
    QTest::newRow("open") << "file_open"_ba << false;
    QTest::newRow("save") << "file_save"_ba << false;
    QTest::newRow("save as") << "file_save_as"_ba << false;
    QTest::newRow("directory") << "file_directory"_ba << false;
    QTest::newRow("recent file") << "open_recent_file"_ba << true;
    QTest::newRow("recent import") << "import_recent_file"_ba << true;
}

void TstOstrelFileMenu::without_handler_every_flow_complains_and_does_nothing()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, takes_a_text);
    Ostrel window;
    OstrelFileMenu::mFileName = u"/a/b.mdl"_s;
    window.update_title();
    const QString path = OstrelFileMenu::mPath;
    host().take_calls();
    // A dialog would not let it return.
    if (takes_a_text)
        QVERIFY(
            QMetaObject::invokeMethod(window.file_menu(), slot.constData(), Q_ARG(QString, u"/c/d.mdl"_s)));
    else
        QVERIFY(QMetaObject::invokeMethod(window.file_menu(), slot.constData()));
    QCOMPARE(host().take_calls(), QStringList{missing});
    QCOMPARE(OstrelFileMenu::mFileName, u"/a/b.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, path);
    QCOMPARE(window.windowTitle(), u"Ostrel - /a/b.mdl"_s);
}

void TstOstrelFileMenu::save_prompt_is_not_asked_without_handler()
{
    const Ostrel window;
    host().take_calls();
    QVERIFY(window.file_menu()->check_modified());
    QCOMPARE(host().take_calls(), QStringList());
}

void TstOstrelFileMenu::label_is_empty_until_the_directory_changes()
{
    const Ostrel window;
    QCOMPARE(labels(window).size(), 1);
    const QLabel* label = labels(window).constFirst();
    QCOMPARE(label->text(), QString());
    QCOMPARE(label->parentWidget(), window.statusBar());
    window.file_menu()->user_changed_directory(u"/a"_s);
    QCOMPARE(label->text(), u"Working Directory: /a"_s);
}

void TstOstrelFileMenu::label_takes_the_room_of_its_text_on_the_left()
{
    Ostrel window;
    window.file_menu()->user_changed_directory(u"/a"_s);
    window.show();
    const QLabel* label = labels(window).constFirst();
    QTRY_COMPARE(label->width(), label->sizeHint().width());
    QVERIFY(label->geometry().right() < window.statusBar()->width() / 2);
}

void TstOstrelFileMenu::new_directory_is_taken_as_it_is_data()
{
    QTest::addColumn<QString>("directory");

    QTest::newRow("without separator") << u"/a/b"_s;
    QTest::newRow("with separator") << u"/a/b/"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("odd characters") << u"/a b;#%20%1%L1&<b>'\"\u677f\nx"_s;
}

void TstOstrelFileMenu::new_directory_is_taken_as_it_is()
{
    QFETCH(QString, directory);
    const Ostrel window;
    const QString current = QDir::currentPath();
    window.file_menu()->user_changed_directory(directory);
    QCOMPARE(OstrelFileMenu::mPath, directory);
    QCOMPARE(labels(window).constFirst()->text(), u"Working Directory: "_s + directory);
    QCOMPARE(labels(window).constFirst()->textFormat(), Qt::PlainText);
    QCOMPARE(QDir::currentPath(), current);
}

void TstOstrelFileMenu::only_the_user_changes_the_label()
{
    const Ostrel window;
    window.file_menu()->user_changed_directory(u"/a"_s);
    OstrelFileMenu::set_path(u"/b"_s);
    OstrelFileMenu::set_path_from_file(u"/c/d"_s);
    QCOMPARE(labels(window).constFirst()->text(), u"Working Directory: /a"_s);
}

void TstOstrelFileMenu::directory_action_asks_the_handler()
{
    const Ostrel window;
    Documents documents;
    window.file_menu()->set_open_save_handler(&documents);
    documents.on_call = [&](const QString&) { window.file_menu()->user_changed_directory(u"/chosen"_s); };
    host().take_calls();
    action(window, u"mFileSetDirectory"_s)->trigger();
    QCOMPARE(host().take_calls(), QStringList{u"Documents::set_directory()"_s});
    QCOMPARE(OstrelFileMenu::mPath, u"/chosen"_s);
}

void TstOstrelFileMenu::recent_files_stand_above_exit()
{
    const Ostrel window;
    window.file_menu()->recent_file(u"/a.mdl"_s);
    window.file_menu()->recent_file(u"/b.mdl"_s);
    const QStringList rows = menu_rows(file_menu_of(window));
    QCOMPARE(rows.mid(8),
             (QStringList{u"---"_s, u"Set &Directory [] (enabled)"_s, u"---"_s, u"&1 /b.mdl [] (enabled)"_s,
                          u"&2 /a.mdl [] (enabled)"_s, u"---"_s, u"E&xit [] (enabled)"_s}));
}

void TstOstrelFileMenu::recent_imports_have_a_menu_of_their_own()
{
    const Ostrel window;
    QMenu* imports = file_menu_of(window)->actions().at(5)->menu();
    window.file_menu()->recent_import(u"import step \"/a.stp\" heal"_s);
    window.file_menu()->recent_import(u"import step '/b.stp'"_s);
    QVERIFY(imports->isEnabled());
    QCOMPARE(menu_rows(imports), (QStringList{u"&1 /b.stp [] (enabled)"_s, u"&2 /a.stp [] (enabled)"_s}));
}

void TstOstrelFileMenu::entries_are_appended_newest_first()
{
    const Ostrel window;
    std::vector<QString> files{u"before"_s};
    window.file_menu()->get_recent_files(files);
    window.file_menu()->get_recent_imports(files);
    QCOMPARE(files, std::vector<QString>{u"before"_s});
    for (int i = 1; i <= 7; ++i) {
        window.file_menu()->recent_file(u"/%1.mdl"_s.arg(i));
        window.file_menu()->recent_import(u"import \"/%1.stp\""_s.arg(i));
    }
    window.file_menu()->get_recent_files(files);
    QCOMPARE(files, (std::vector<QString>{u"before"_s, u"/7.mdl"_s, u"/6.mdl"_s, u"/5.mdl"_s, u"/4.mdl"_s,
                                          u"/3.mdl"_s}));
    files.clear();
    window.file_menu()->get_recent_imports(files);
    QCOMPARE(files,
             (std::vector<QString>{u"import \"/7.stp\""_s, u"import \"/6.stp\""_s, u"import \"/5.stp\""_s,
                                   u"import \"/4.stp\""_s, u"import \"/3.stp\""_s}));
}

void TstOstrelFileMenu::chosen_recent_file_is_opened()
{
    const QTemporaryDir place;
    const QString file = place.filePath(u"pl ate;#%1&'\u677f\n.mdl"_s);
    make_file(file);
    Ostrel window;
    Documents documents;
    window.file_menu()->set_open_save_handler(&documents);
    window.file_menu()->recent_file(file);
    window.file_menu()->recent_file(u"/newer.mdl"_s);
    const QString path = OstrelFileMenu::mPath;
    QString title;
    std::vector<QString> recent;
    documents.on_call = [&](const QString& operation) {
        if (operation != u"open_file"_s)
            return;
        title = window.windowTitle();
        window.file_menu()->get_recent_files(recent);
    };
    host().take_calls();
    QAction* second = file_menu_of(window)->actions().at(12);
    QVERIFY(second->text().startsWith(u"&2 "_s));
    second->trigger();
    QCOMPARE(host().take_calls(),
             (QStringList{u"Documents::is_modified()"_s, u"Documents::open_file(\"%1\")"_s.arg(file)}));
    QCOMPARE(OstrelFileMenu::mFileName, file);
    QCOMPARE(title, u"Ostrel - "_s + file);
    QCOMPARE(OstrelFileMenu::mPath, path);
    // The handler runs first, then the entry moves up.
    QCOMPARE(recent, (std::vector<QString>{u"/newer.mdl"_s, file}));
    recent.clear();
    window.file_menu()->get_recent_files(recent);
    QCOMPARE(recent, (std::vector<QString>{file, u"/newer.mdl"_s}));
    QVERIFY(!QSettings().contains(u"/ostrelgui/ostrel/file1"_s));
}

void TstOstrelFileMenu::chosen_recent_import_is_run()
{
    const QTemporaryDir place;
    const QString file = place.filePath(u"p.stp"_s);
    make_file(file);
    const QString command = u"import step \""_s + file + u"\" heal"_s;
    Ostrel window;
    Documents documents;
    documents.modified = true;
    window.file_menu()->set_open_save_handler(&documents);
    window.file_menu()->recent_import(command);
    host().take_calls();
    const QString path = OstrelFileMenu::mPath;
    file_menu_of(window)->actions().at(5)->menu()->actions().constFirst()->trigger();
    // No look at the modified state, no name.
    QCOMPARE(host().take_calls(), QStringList{u"Documents::import_recent(\"%1\")"_s.arg(command)});
    QCOMPARE(OstrelFileMenu::mFileName, QString());
    QCOMPARE(OstrelFileMenu::mPath, path);
    QVERIFY(documents.modified);
}

void TstOstrelFileMenu::missing_recent_file_is_not_opened_directly()
{
    Ostrel window;
    Documents documents;
    window.file_menu()->set_open_save_handler(&documents);
    host().take_calls();
    // The slot itself does not look whether the file is there.
    window.file_menu()->open_recent_file(u"/gone.mdl"_s);
    QCOMPARE(host().take_calls(),
             (QStringList{u"Documents::is_modified()"_s, u"Documents::open_file(\"/gone.mdl\")"_s}));
    std::vector<QString> recent;
    window.file_menu()->get_recent_files(recent);
    QVERIFY(recent.empty());
}

void TstOstrelFileMenu::missing_entries_are_reported_above_the_window_data()
{
    QTest::addColumn<bool>("import");
    QTest::newRow("file") << false;
    QTest::newRow("import") << true;
}

void TstOstrelFileMenu::missing_entries_are_reported_above_the_window()
{
    QFETCH(const bool, import);
    Ostrel window;
    const QPointer<QMenu> imports = file_menu_of(window)->actions().at(5)->menu();
    if (import)
        window.file_menu()->recent_import(u"import '/gone.stp'"_s);
    else
        window.file_menu()->recent_file(u"/gone.mdl"_s);
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        parent = box->parentWidget();
        press(QDialogButtonBox::Ok)(box);
    });
    (import ? imports->actions().constFirst() : file_menu_of(window)->actions().at(11))->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(parent, &window);
    // The file menu has other rows, the menu of imports has not.
    QVERIFY(file_menu_of(window)->isEnabled());
    QVERIFY(!imports->isEnabled());
}

void TstOstrelFileMenu::recent_lists_leave_the_menu_before_it_dies()
{
    Ostrel window;
    auto second = std::make_unique<OstrelFileMenu>(&window);
    second->recent_file(u"/a.mdl"_s);
    second->recent_import(u"import '/a.stp'"_s);
    QMenu* menu = window.menuBar()->actions().constLast()->menu();
    QMenu* imports = menu->actions().at(5)->menu();
    ActionCounter files_counter;
    ActionCounter imports_counter;
    menu->installEventFilter(&files_counter);
    imports->installEventFilter(&imports_counter);
    second.reset();
    // The entry and its separator; the other rows go when there is no menu left to hear of it.
    QCOMPARE(files_counter.removed, 2);
    QCOMPARE(imports_counter.removed, 1);
}

void TstOstrelFileMenu::menu_label_and_lists_go_with_the_file_menu()
{
    auto window = std::make_unique<Ostrel>();
    const QPointer<QMenu> menu(file_menu_of(*window));
    const QPointer<QMenu> imports(menu->actions().at(5)->menu());
    const QPointer<QLabel> label(labels(*window).constFirst());
    const QPointer<QObject> bar(window->menuBar());
    QStringList at_the_end;
    connect(window->file_menu(), &QObject::destroyed, this, [&] {
        at_the_end << u"menu %1, imports %2, label %3, bar %4"_s.arg(!menu.isNull())
                          .arg(!imports.isNull())
                          .arg(!label.isNull())
                          .arg(!bar.isNull());
    });
    window.reset();
    QCOMPARE(at_the_end, QStringList{u"menu 0, imports 0, label 0, bar 1"_s});
}

OSTREL_TEST(TstOstrelFileMenu)
#include "tst_ostrelfilemenu.moc"
