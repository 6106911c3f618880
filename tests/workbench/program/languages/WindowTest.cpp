// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "WindowTest.h"

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/fennari19/FennarInterface.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/TaskPanel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "support/dialogs.h"
#include "support/menus.h"
#include "support/windows.h"
#include "window_checks.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/components/recovery/RecoveryFolder.h"
#include "workbench/components/recovery/RecoveryOffer.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

using namespace fennar;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;

namespace {

/** Prints each problem on a line of its own, since the message of a failure is cut, and fails if there is
 * any. */
#define VERIFY_NONE(problems)                                                                                \
    do {                                                                                                     \
        for (const QString& problem : std::as_const(problems))                                               \
            qInfo("%s", qPrintable(problem));                                                                \
        QCOMPARE((problems).size(), 0);                                                                      \
    } while (false)

/** How long a window may take until all is in its place. */
constexpr int settling_ms = 500;

/** Opens the context menu of @p widget as the menu key does, and closes it when @p act has seen it. */
void meet_menu(QWidget* widget, const std::function<void(QMenu*)>& act)
{
    bool came = false;
    MenuDriver driver([&](QMenu* menu) {
        act(menu);
        came = true;
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(widget, &event);
    QTRY_VERIFY(came);
}

} // namespace

QAction* WindowTest::action(const QString& name) const
{
    for (const QWidget* widget : QApplication::allWidgets())
        for (QAction* each : widget->actions())
            if (each->objectName() == name)
                return each;
    qFatal("no action %s", qPrintable(name));
}

void WindowTest::prepare(Workbench&)
{
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    mTranslations =
        std::make_unique<Translations>(mLanguage.isEmpty() ? QStringList() : QStringList{mLanguage});
    QCOMPARE(mTranslations->language(), mLanguage);
    QCOMPARE(mTranslations->missing(), QStringList());
    if (!mLanguage.isEmpty()) {
        mCatalog = std::make_unique<Catalog>(mLanguage);
        QCOMPARE(mCatalog->errors(), QStringList());
        QVERIFY(mCatalog->size() > 300);
    }
}

void WindowTest::set_up_class()
{
    workbench().components().load_all();
    QStringList loaded;
    for (const ComponentManager::Component& component : workbench().components().components())
        if (component.state == ComponentManager::State::Loaded)
            loaded << component.name;
    loaded.sort();
    QCOMPARE(loaded, QStringList({u"demo"_s, u"geometry"_s, u"graphics"_s, u"insert_command"_s,
                                  u"obj_format"_s, u"recovery"_s}));
    visit_all();
}

void WindowTest::tear_down_class()
{
    Ostrel::instance()->journal_editor()->hide();
}

void WindowTest::after_workbench()
{
    mTranslations.reset();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<QDialog*>(window) && !window->parent())
            delete window;
}

void WindowTest::visit(QWidget* window, const QString& name)
{
    mVisited << name;
    // Layouts settle in several steps.
    const bool settled = QTest::qWaitFor([window] { return clipped_texts(window).isEmpty(); }, settling_ms);
    const auto add = [&name](QStringList& list, const QStringList& problems) {
        for (const QString& problem : problems) {
            // The same widgets come again with other pages and panels.
            const bool known = std::any_of(list.begin(), list.end(), [&problem](const QString& told) {
                return told.startsWith(problem);
            });
            if (!known)
                list << problem + u" ("_s + name + u')';
        }
    };
    for (const ShownText& shown : shown_texts(window)) {
        ++mTexts;
        if (!mCatalog)
            continue;
        if (const QString wrong = mCatalog->judge(shown.text); !wrong.isEmpty())
            add(mUntranslated, {u"%1: \"%2\": %3"_s.arg(shown.place, shown.text, wrong)});
    }
    if (!settled)
        add(mClipped, clipped_texts(window));
    add(mMnemonics, mnemonic_faults(window));
    add(mNameless, nameless_widgets(window));
    // For people to look at.
    if (const QString folder = qEnvironmentVariable("OSTREL_WINDOW_PICTURES"); !folder.isEmpty()) {
        const QString file =
            u"%1/%2-%3.png"_s.arg(folder, mLanguage).arg(mVisited.size(), 3, 10, QLatin1Char('0'));
        if (!window->grab().save(file))
            qWarning("no picture %s", qPrintable(file));
    }
    if (qobject_cast<QDialog*>(window)) {
        if (show_active(window))
            add(mTabs, tab_faults(window));
        else
            add(mTabs, {u"the window does not become active"_s});
    }
}

void WindowTest::visit_all()
{
    visit_main_window();
    visit_search();
    visit_panels();
    visit_geometry();
    visit_editor();
    visit_dialogs();
    visit_file_dialogs();
    visit_recovery();
    Ostrel::instance()->activateWindow();
}

void WindowTest::visit_main_window()
{
    Ostrel* window = Ostrel::instance();
    window->resize(1200, 900);
    for (QDockWidget* dock : window->findChildren<QDockWidget*>())
        dock->show();
    visit(window, u"main window"_s);
    for (QDockWidget* dock : window->findChildren<QDockWidget*>()) {
        dock->raise();
        visit(window, u"main window with "_s + dock->objectName());
    }
    meet_menu(workbench().console()->command_page(),
              [this](QMenu* menu) { visit(menu, u"menu of the console"_s); });
}

void WindowTest::visit_search()
{
    Ostrel* window = Ostrel::instance();
    action(u"findCommand"_s)->trigger();
    auto* search = window->findChild<CommandSearch*>();
    QVERIFY(search && search->isVisible());
    // With the choice on an entry that is explained, on one that cannot be run, and on none.
    for (const QString& words : {u"brick"_s, u"ctrl+"_s, u"qxqx"_s}) {
        search->findChild<QLineEdit*>()->setText(words);
        visit(search, u"command search for "_s + words);
    }
    QTest::keyClick(search->findChild<QLineEdit*>(), Qt::Key_Escape);
    QVERIFY(!search->isVisible());
}

void WindowTest::visit_panels()
{
    Ostrel* window = Ostrel::instance();
    const QAbstractItemModel* model = window->navigation_model();
    for (const bool rows : {true, false}) {
        window->setUsingButtonRows(rows);
        const std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
            for (int row = 0; row < model->rowCount(parent); ++row) {
                const QModelIndex entry = model->index(row, 0, parent);
                window->command_buttons()->set_current_index(entry);
                const QString name =
                    u"panel %1 at %2"_s.arg(rows ? u"of rows"_s : u"of levels"_s, entry.data().toString());
                visit(window, name);
                const QScrollBar* bar =
                    window->command_buttons()->findChild<QScrollArea*>()->horizontalScrollBar();
                if (!QTest::qWaitFor([bar] { return bar->maximum() == 0; }, settling_ms))
                    mClipped << u"%1 is %2 pixels too wide"_s.arg(name).arg(bar->maximum());
                walk(entry);
            }
        };
        walk({});
    }
}

void WindowTest::visit_geometry()
{
    Ostrel* window = Ostrel::instance();
    workbench().console()->run_line(u"brick 1 2 3"_s);
    workbench().console()->run_line(u"mesh size 1"_s);
    const QString said = workbench().console()->command_page()->toPlainText();
    QVERIFY2(!said.contains(u"ERROR"_s), qPrintable(said));
    visit(window, u"main window with a model"_s);
    auto* dock = window->findChild<QDockWidget*>(u"GeometryModelDock"_s);
    if (auto* tree = dock ? dock->findChild<QTreeWidget*>() : nullptr)
        meet_menu(tree, [this](QMenu* menu) { visit(menu, u"menu of the model"_s); });
    for (const QString& command : {u"brick"_s, u"cylinder"_s, u"sphere"_s, u"cone"_s, u"torus"_s, u"move"_s,
                                   u"rotate"_s, u"copy"_s, u"rename"_s, u"subtract"_s, u"mesh"_s}) {
        action(u"geometry_"_s + command)->trigger();
        const QPointer<QDialog> dialog = window->findChild<QDialog*>(u"commandDialog_"_s + command);
        if (!dialog)
            continue;
        visit(dialog, dialog->objectName());
        dialog->close();
        QCoreApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
    }
}

void WindowTest::visit_editor()
{
    JournalEditor* editor = Ostrel::instance()->journal_editor();
    action(u"mScriptAction"_s)->trigger();
    QVERIFY(show_active(editor));
    visit(editor, u"journal editor"_s);
    auto* tabs = editor->findChild<QTabWidget*>(u"mDocTab"_s);
    auto* document = qobject_cast<QPlainTextEdit*>(tabs->currentWidget());
    QVERIFY(document);
    meet_menu(document, [this](QMenu* menu) { visit(menu, u"menu of a journal"_s); });
    document->insertPlainText(u"text"_s);
    visit(editor, u"journal editor with changes"_s);
    DialogDriver driver;
    driver.expect(u"MessageSettingBox"_s, [this](QWidget* box) {
        visit(box, u"question about changes"_s);
        press(u"mNoButton"_s)(box);
    });
    action(u"fileCloseAction"_s)->trigger();
    driver.expect(u"JournalFindDialog"_s, [this](QWidget* dialog) {
        visit(dialog, u"find dialog"_s);
        dialog->close();
    });
    action(u"editFindAction"_s)->trigger();
    driver.expect(u"InsertCommandDialog"_s, [this](QWidget* dialog) {
        visit(dialog, u"insert command"_s);
        dialog->close();
    });
    action(u"insertCommand"_s)->trigger();
    QVERIFY(driver.finish());
    editor->close();
}

void WindowTest::visit_dialogs()
{
    Ostrel* window = Ostrel::instance();
    DialogDriver driver;
    driver.expect(u"HelpAboutOstrel"_s, [this](QWidget* dialog) {
        visit(dialog, u"about"_s);
        dialog->close();
    });
    action(u"mAboutAction"_s)->trigger();
    driver.expect(u"OptionsPanel"_s, [this](QWidget* dialog) {
        auto* pages = dialog->findChild<QTreeWidget*>(u"mOptionList"_s);
        pages->expandAll();
        for (QTreeWidgetItemIterator item(pages); *item; ++item) {
            pages->setCurrentItem(*item);
            visit(dialog, u"options page "_s + (*item)->text(0));
        }
        dialog->close();
    });
    action(u"mOptionsAction"_s)->trigger();
    QVERIFY(driver.finish());
    action(u"mComponentAction"_s)->trigger();
    auto* tool = window->findChild<QDialog*>(u"QtComponentTool"_s);
    QVERIFY(tool);
    visit(tool, u"plugin tool"_s);
    tool->close();
    action(u"demoDialog"_s)->trigger();
    auto* demo = window->findChild<QDialog*>(u"demoDialog"_s);
    QVERIFY(demo);
    visit(demo, u"demo dialog"_s);
    demo->close();
}

void WindowTest::visit_file_dialogs()
{
    DialogDriver driver;
    // The model has been changed.
    driver.expect(u"MessageSettingBox"_s, [this](QWidget* box) {
        visit(box, u"question about data"_s);
        press(u"mNoButton"_s)(box);
    });
    for (const QString& name : {u"mFileOpenAction"_s, u"mFileSaveAsAction"_s, u"mFileImportAction"_s,
                                u"mFileExportAction"_s, u"mFileSetDirectory"_s, u"mPlayAction"_s}) {
        QAction* opener = Ostrel::instance()->findChild<QAction*>(name);
        if (!opener)
            continue;
        driver.expect<QFileDialog>([this, name](QFileDialog* dialog) {
            visit(dialog, u"file dialog of "_s + name);
            dialog->close();
        });
        opener->trigger();
    }
    QVERIFY(driver.finish());
}

void WindowTest::visit_recovery()
{
    const QTemporaryDir directory;
    for (int i = 0; i < 2; ++i) {
        const auto folder = RecoveryFolder::make(directory.path());
        QVERIFY(folder);
        folder->write(1,
                      {i ? u"/a/1.jou"_s : QString(), QDateTime(QDate(2026, 5, 1), QTime(12, i)), u"text"_s});
    }
    RecoveryOffer offer(Ostrel::instance(), RecoveryFolder::claim_left(directory.path()));
    offer.show();
    visit(&offer, u"offer to recover"_s);
    offer.close();
}

void WindowTest::all_windows_were_visited()
{
    for (const QString& name :
         {u"main window"_s, u"menu of the console"_s, u"menu of the model"_s, u"journal editor"_s,
          u"menu of a journal"_s, u"question about changes"_s, u"question about data"_s, u"find dialog"_s,
          u"command search for brick"_s, u"insert command"_s, u"about"_s, u"plugin tool"_s, u"demo dialog"_s,
          u"offer to recover"_s, u"commandDialog_torus"_s, u"commandDialog_mesh"_s})
        QVERIFY2(mVisited.contains(name), qPrintable(name));
    const auto count = [this](const QString& begin) {
        return std::count_if(mVisited.begin(), mVisited.end(),
                             [&begin](const QString& name) { return name.startsWith(begin); });
    };
    QCOMPARE(count(u"commandDialog_"_s), 11);
    QVERIFY(count(u"options page "_s) >= 4);
    QVERIFY(count(u"panel of rows"_s) > 10);
    QCOMPARE(count(u"panel of rows"_s), count(u"panel of levels"_s));
    QCOMPARE(count(u"file dialog"_s), 6);
    QVERIFY(mTexts > 1000);
}

void WindowTest::no_source_text_is_left()
{
    VERIFY_NONE(mUntranslated);
}

void WindowTest::no_text_is_clipped()
{
    VERIFY_NONE(mClipped);
}

void WindowTest::mnemonics_are_unique()
{
    VERIFY_NONE(mMnemonics);
}

void WindowTest::all_widgets_have_names()
{
    VERIFY_NONE(mNameless);
}

void WindowTest::tab_visits_each_field_once()
{
    VERIFY_NONE(mTabs);
}

void WindowTest::f6_goes_round_the_panes()
{
    Ostrel* window = Ostrel::instance();
    QVERIFY(show_active(window));
    window->set_focus_to_command_window();
    const auto pane_of_focus = [window] {
        for (QWidget* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
            if (qobject_cast<QDockWidget*>(widget) || widget == window->centralWidget())
                return widget == window->centralWidget() ? u"center"_s : widget->objectName();
        return QString();
    };
    QCOMPARE(pane_of_focus(), u"OstrelCommandWindow"_s);
    QStringList forward;
    do {
        QTest::keyClick(window, Qt::Key_F6);
        QVERIFY2(!forward.contains(pane_of_focus()), qPrintable(forward.join(u' ')));
        forward << pane_of_focus();
        QVERIFY(QApplication::focusWidget()->isVisible());
    } while (forward.last() != u"OstrelCommandWindow");
    QStringList sorted = forward;
    sorted.sort();
    QVERIFY2(sorted.size() == 5, qPrintable(forward.join(u' ')));
    QCOMPARE(sorted, QStringList({u"DemoDock"_s, u"FennarCommandPanel"_s, u"GeometryModelDock"_s,
                                  u"OstrelCommandWindow"_s, u"center"_s}));
    QStringList backward;
    for (qsizetype i = 0; i < forward.size(); ++i) {
        QTest::keyClick(window, Qt::Key_F6, Qt::ShiftModifier);
        backward.prepend(pane_of_focus());
    }
    std::rotate(backward.begin(), backward.begin() + 1, backward.end());
    QCOMPARE(backward, forward);
}

void WindowTest::tool_buttons_have_keys_or_stand_in_menus()
{
    for (QWidget* window : {static_cast<QWidget*>(Ostrel::instance()),
                            static_cast<QWidget*>(Ostrel::instance()->journal_editor())}) {
        QSet<QAction*> in_menus;
        const std::function<void(const QList<QAction*>&)> collect = [&](const QList<QAction*>& actions) {
            for (QAction* each : actions) {
                in_menus << each;
                if (each->menu())
                    collect(each->menu()->actions());
            }
        };
        collect(window->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)->actions());
        int count = 0;
        for (const QToolBar* bar : window->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly)) {
            for (QAction* each : bar->actions()) {
                if (each->isSeparator() || !each->isVisible())
                    continue;
                ++count;
                QVERIFY2(in_menus.contains(each) || !each->shortcut().isEmpty(), qPrintable(each->text()));
            }
        }
        QVERIFY(count > 5);
    }
}

void WindowTest::console_and_editor_tabs_change_by_keyboard()
{
    QVERIFY(show_active(Ostrel::instance()));
    auto* tabs = Ostrel::instance()->command_line()->findChild<QTabWidget*>(u"mCommandTab"_s);
    tabs->setCurrentIndex(0);
    Ostrel::instance()->set_focus_to_command_window();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 0);

    JournalEditor* editor = Ostrel::instance()->journal_editor();
    QVERIFY(show_active(editor));
    auto* documents = editor->findChild<QTabWidget*>(u"mDocTab"_s);
    editor->findChild<QAction*>(u"fileNewAction"_s)->trigger();
    QVERIFY(documents->count() > 1);
    documents->setCurrentIndex(0);
    documents->currentWidget()->setFocus();
    QTest::keyClick(documents->currentWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(documents->currentIndex(), 1);
    editor->close();
}

void WindowTest::scripts_name_menus_in_english()
{
    auto* tools = Ostrel::instance()->findChild<QMenu*>(u"Tools"_s);
    QVERIFY(tools);
    const qsizetype count = tools->actions().size();
    const qsizetype menus =
        Ostrel::instance()->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)->actions().size();
    workbench().console()->run_line(
        u"python 'import fennar; entry = fennar.PyAction(); entry.setText(\"of a script\"); "
        "fennar.add_to_menu(\"&Tools\", [entry], \"script\")'"_s);
    QCOMPARE(tools->actions().size(), count + 1);
    workbench().console()->run_line(u"python 'fennar.remove_menu_items(\"script\"); del entry'"_s);
    QCOMPARE(tools->actions().size(), count);
    QCOMPARE(
        Ostrel::instance()->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly)->actions().size(),
        menus);
}

void WindowTest::press_while_a_journal_is_paused(Qt::Key key)
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"paused.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("echo was_played\n") > 0);
    file.close();
    QVERIFY(show_active(Ostrel::instance()));
    Ostrel::instance()->set_focus_to_command_window();
    workbench().console()->command_page()->clearToPrompt();
    FennarInterface::pause_playback();
    bool pressed = false;
    // Comes in the turn that the paused journal gives, when input is dropped that is not for the cancel
    // button.
    QTimer::singleShot(0, this, [key, &pressed] {
        pressed = true;
        QTest::keyClick(QApplication::focusWidget(), key);
    });
    workbench().console()->run_line(u"play \"%1\""_s.arg(file.fileName()));
    QVERIFY(pressed);
    QVERIFY(!FennarInterface::is_playback_paused());
}

void WindowTest::escape_cancels_a_running_journal()
{
    press_while_a_journal_is_paused(Qt::Key_Escape);
    const QString text = workbench().console()->command_page()->toPlainText();
    QVERIFY2(text.contains(u"Interrupted: "_s), qPrintable(text));
    QVERIFY2(!text.contains(u"\nwas_played"_s), qPrintable(text));
}

void WindowTest::pause_key_goes_on_with_a_paused_journal()
{
    press_while_a_journal_is_paused(Qt::Key_Pause);
    const QString text = workbench().console()->command_page()->toPlainText();
    QVERIFY2(text.contains(u"\nwas_played"_s), qPrintable(text));
}

void WindowTest::escape_does_nothing_between_commands()
{
    QVERIFY(show_active(Ostrel::instance()));
    Ostrel::instance()->set_focus_to_command_window();
    QVERIFY(!interrupt_requested());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!interrupt_requested());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Pause);
    QVERIFY(!FennarInterface::is_playback_paused());
}
