// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "options/GeneralOptions.h"
#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QCheckBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto splash_key = u"/ostrelgui/ostrel/splash"_s;
const auto restore_key = u"/ostrelgui/ostrel/restoreWorkingDir"_s;
const auto use_paths_key = u"/ostrelgui/ostrel/usepythonpaths"_s;
const auto paths_key = u"/ostrelgui/ostrel/pythonpaths"_s;

/** A page of its own and its controls. */
struct Page
{
    GeneralOptions page{nullptr};
    QCheckBox* data_prompt = box(u"mUsingDataPrompt"_s);
    QCheckBox* journal_prompt = box(u"mUsingJournalPrompt"_s);
    QCheckBox* change_directory = box(u"mUsingChangeDir"_s);
    QCheckBox* focus_follows = box(u"mFocusFollowsCursor"_s);
    QCheckBox* splash = box(u"mUsingSplash"_s);
    QCheckBox* restore = box(u"cbRestoreWorkingDir"_s);
    QCheckBox* use_paths = box(u"cbUsePaths"_s);
    QLineEdit* paths = page.findChild<QLineEdit*>(u"lePythonPaths"_s);
    QToolButton* browse = page.findChild<QToolButton*>(u"tbPythonPaths"_s);

    QCheckBox* box(const QString& name) const { return page.findChild<QCheckBox*>(name); }
};

QVariant stored(const QString& key)
{
    return QSettings().value(key);
}

} // namespace

class TstGeneralOptions : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void form_has_its_name_and_title();
    void controls_have_their_texts();
    void headings_are_bold();
    void boxes_stand_behind_a_spacer();
    void rows_stand_in_order();
    void help_texts_are_attached();
    void tab_order_begins_with_the_prompts();
    void slots_stand_in_order();

    void fresh_settings_show_the_defaults();
    void python_settings_are_read_at_construction_only();
    void unreadable_settings_show_the_defaults();
    void prompts_come_from_the_static_flags();
    void prompts_are_stored_in_the_static_flags_on_save();
    void page_may_go_while_the_framework_is_asked();
    void settings_are_stored_even_if_the_page_goes();
    void page_may_go_under_the_folder_dialog();
    void playback_option_comes_from_the_framework();
    void playback_option_goes_to_the_framework_on_save();
    void startup_settings_are_read_on_refresh();
    void save_writes_the_four_keys_and_no_other();
    void refresh_and_save_go_in_order();
    void edited_paths_survive_a_refresh();

    void focus_follows_cursor_acts_at_once();
    void focus_follows_cursor_is_read_from_the_console();
    void page_works_without_a_window();
    void chosen_directory_replaces_the_paths();
    void cancelled_directory_changes_nothing();

    void panel_drives_the_page();
    void page_leaves_with_its_owner();

private:
    std::unique_ptr<Ostrel> mWindow;
};

void TstGeneralOptions::set_up()
{
    HostDouble::instance().reset();
    OstrelFileMenu::set_save_prompt(true);
    JournalEditor::set_save_prompt(true);
}

void TstGeneralOptions::tear_down()
{
    mWindow.reset();
    OstrelFileMenu::set_save_prompt(true);
    JournalEditor::set_save_prompt(true);
}

void TstGeneralOptions::form_has_its_name_and_title()
{
    const Page p;
    QCOMPARE(p.page.objectName(), u"QtGeneralOptions"_s);
    QCOMPARE(p.page.windowTitle(), u"General"_s);
    QCOMPARE(p.page.size(), QSize(348, 553));
}

void TstGeneralOptions::controls_have_their_texts()
{
    const Page p;
    QCOMPARE(p.data_prompt->text(), u"Prompt for Unsaved Application Data"_s);
    QCOMPARE(p.journal_prompt->text(), u"Prompt for Unsaved Journal Data"_s);
    QCOMPARE(p.change_directory->text(), u"Change to Script Directory"_s);
    QCOMPARE(p.focus_follows->text(), u"Enable Focus Follows Cursor"_s);
    QCOMPARE(p.splash->text(), u"Show Startup Splash Screen"_s);
    QCOMPARE(p.restore->text(), u"Restore Working Directory"_s);
    QCOMPARE(p.use_paths->text(), u"Use Paths"_s);
    QCOMPARE(p.browse->text(), u"..."_s);
    const auto label = [&](const QString& name) { return p.page.findChild<QLabel*>(name)->text(); };
    QCOMPARE(label(u"label"_s), u"Python Version 3"_s);
    QCOMPARE(label(u"label_3"_s), u"Paths"_s);
    // Before the first refresh, as the form has them.
    QVERIFY(p.data_prompt->isChecked());
    QVERIFY(p.journal_prompt->isChecked());
    QVERIFY(p.splash->isChecked());
    QVERIFY(!p.focus_follows->isChecked());
    QCOMPARE(p.browse->accessibleName(), u"Browse"_s);
}

void TstGeneralOptions::headings_are_bold()
{
    const Page p;
    const QMap<QString, QString> headings{
        {u"textLabel1_4"_s, u"Unsaved Data"_s},
        {u"textLabel1_2"_s, u"Script Playback"_s},
        {u"textLabel1_3"_s, u"Focus Follows Cursor in Command Window"_s},
        {u"textLabel1"_s, u"Startup"_s},
        {u"textLabel1_6"_s, u"Python"_s},
    };
    for (auto heading = headings.begin(); heading != headings.end(); ++heading) {
        const auto* label = p.page.findChild<QLabel*>(heading.key());
        QCOMPARE(label->text(), heading.value());
        QCOMPARE(label->font().weight(), 700);
        QCOMPARE(label->font().family(), p.page.font().family());
        QCOMPARE(label->font().pointSize(), p.page.font().pointSize());
        QVERIFY(!label->wordWrap());
    }
}

void TstGeneralOptions::boxes_stand_behind_a_spacer()
{
    const Page p;
    const QMap<QString, QStringList> grids{
        {u"gridUnsavedData"_s, {u"mUsingDataPrompt"_s, u"mUsingJournalPrompt"_s}},
        {u"gridScriptPlayback"_s, {u"mUsingChangeDir"_s}},
        {u"gridFocusFollowsCursor"_s, {u"mFocusFollowsCursor"_s}},
        {u"gridStartup"_s, {u"mUsingSplash"_s, u"cbRestoreWorkingDir"_s}},
    };
    for (auto grid = grids.begin(); grid != grids.end(); ++grid) {
        const auto* layout = p.page.findChild<QGridLayout*>(grid.key());
        for (int row = 0; row < grid.value().size(); ++row) {
            const QSpacerItem* spacer = layout->itemAtPosition(row, 0)->spacerItem();
            QVERIFY(spacer);
            QCOMPARE(spacer->sizeHint().width(), 20);
            QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
            QCOMPARE(layout->itemAtPosition(row, 1)->widget()->objectName(), grid.value()[row]);
        }
    }
}

void TstGeneralOptions::rows_stand_in_order()
{
    const Page p;
    auto* grid = p.page.findChild<QGridLayout*>(u"gridLayout_2"_s);
    QCOMPARE(p.page.layout(), grid);
    QStringList rows;
    for (int row = 0; row < grid->rowCount(); ++row) {
        QLayoutItem* const item = grid->itemAtPosition(row, 0);
        if (item->widget())
            rows << item->widget()->objectName();
        else if (item->layout())
            rows << item->layout()->objectName();
        else
            rows << u"spacer"_s;
    }
    QCOMPARE(rows,
             (QStringList{u"textLabel1_4"_s, u"gridUnsavedData"_s, u"textLabel1_2"_s, u"gridScriptPlayback"_s,
                          u"textLabel1_3"_s, u"gridFocusFollowsCursor"_s, u"textLabel1"_s, u"gridStartup"_s,
                          u"textLabel1_6"_s, u"gridLayout"_s, u"spacer"_s}));
    const auto* python = p.page.findChild<QGridLayout*>(u"gridLayout"_s);
    const auto place = [&](const QWidget* widget) {
        QList<int> at{-1, -1, -1, -1};
        python->getItemPosition(python->indexOf(widget), &at[0], &at[1], &at[2], &at[3]);
        return at;
    };
    QCOMPARE(place(p.page.findChild<QLabel*>(u"label"_s))[0], 0);
    QCOMPARE(place(p.use_paths)[0], 1);
    QCOMPARE(place(p.use_paths)[3], 5);
    QCOMPARE(place(p.page.findChild<QLabel*>(u"label_3"_s))[0], 2);
    QCOMPARE(place(p.paths)[0], 2);
    QCOMPARE(place(p.paths)[3], 3);
    QCOMPARE(place(p.browse)[0], 2);
    QCOMPARE(place(p.browse)[1], python->columnCount() - 1);
}

void TstGeneralOptions::help_texts_are_attached()
{
    const Page p;
    QCOMPARE(p.change_directory->whatsThis(),
             u"Select this option to allow the framework to change the working directory when playing a "
             "script or history file. The directory will be changed to where the script is located, which "
             "allows the script to use relative paths when referring to other files. The working directory "
             "will be changed back when the script finishes."_s);
    QCOMPARE(
        p.data_prompt->whatsThis(),
        u"When this option is turned on, Ostrel will prompt you to save when the data has been modified."_s);
    QCOMPARE(p.journal_prompt->whatsThis(),
             u"When this option is turned on, the journal editor will prompt you to save when the document "
             "has been modified."_s);
    const auto splash = u"This option allows you to enable or disable the startup splash screen(s)."_s;
    QCOMPARE(p.splash->whatsThis(), splash);
    QCOMPARE(p.focus_follows->whatsThis(), splash);
    QCOMPARE(p.restore->toolTip(), u"When enabled, restores the working directory on application startup."_s);
}

void TstGeneralOptions::tab_order_begins_with_the_prompts()
{
    const Page p;
    QCOMPARE(next_tab_stop(p.data_prompt), p.journal_prompt);
    QCOMPARE(next_tab_stop(p.journal_prompt), p.change_directory);
    QCOMPARE(next_tab_stop(p.change_directory), p.splash);
}

void TstGeneralOptions::slots_stand_in_order()
{
    QStringList names;
    const QMetaObject& type = GeneralOptions::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names << QString::fromLatin1(type.method(i).methodSignature());
    QCOMPARE(names, (QStringList{u"saveClicked()"_s, u"refreshClicked()"_s,
                                 u"on_mFocusFollowsCursor_toggled(bool)"_s, u"choosePythonPath()"_s}));
}

void TstGeneralOptions::fresh_settings_show_the_defaults()
{
    Page p;
    p.splash->setChecked(false);
    p.restore->setChecked(true);
    p.page.refreshClicked();
    QVERIFY(p.splash->isChecked());
    QVERIFY(!p.restore->isChecked());
    QVERIFY(!p.use_paths->isChecked());
    QCOMPARE(p.paths->text(), QString());
}

void TstGeneralOptions::python_settings_are_read_at_construction_only()
{
    QSettings().setValue(use_paths_key, true);
    QSettings().setValue(paths_key, u"/one"_s);
    Page p;
    QVERIFY(p.use_paths->isChecked());
    QCOMPARE(p.paths->text(), u"/one"_s);
    QSettings().setValue(use_paths_key, false);
    QSettings().setValue(paths_key, u"/two"_s);
    p.page.refreshClicked();
    QVERIFY(p.use_paths->isChecked());
    QCOMPARE(p.paths->text(), u"/one"_s);
}

void TstGeneralOptions::unreadable_settings_show_the_defaults()
{
    QSettings().setValue(splash_key, QPoint(1, 2));
    QSettings().setValue(restore_key, QVariantMap{{u"a"_s, 1}});
    QSettings().setValue(use_paths_key, QVariantMap());
    QSettings().setValue(paths_key, QVariantMap());
    Page p;
    p.page.refreshClicked();
    QVERIFY(p.splash->isChecked());
    QVERIFY(!p.restore->isChecked());
    QVERIFY(!p.use_paths->isChecked());
    QCOMPARE(p.paths->text(), QString());
}

void TstGeneralOptions::prompts_come_from_the_static_flags()
{
    Page p;
    OstrelFileMenu::set_save_prompt(false);
    p.page.refreshClicked();
    QVERIFY(!p.data_prompt->isChecked());
    QVERIFY(p.journal_prompt->isChecked());
    OstrelFileMenu::set_save_prompt(true);
    JournalEditor::set_save_prompt(false);
    p.page.refreshClicked();
    QVERIFY(p.data_prompt->isChecked());
    QVERIFY(!p.journal_prompt->isChecked());
}

void TstGeneralOptions::prompts_are_stored_in_the_static_flags_on_save()
{
    Page p;
    p.data_prompt->setChecked(false);
    p.journal_prompt->setChecked(false);
    QVERIFY(OstrelFileMenu::do_save_prompt());
    QVERIFY(JournalEditor::do_save_prompt());
    p.page.saveClicked();
    QVERIFY(!OstrelFileMenu::do_save_prompt());
    QVERIFY(!JournalEditor::do_save_prompt());
    p.journal_prompt->setChecked(true);
    p.page.saveClicked();
    QVERIFY(!OstrelFileMenu::do_save_prompt());
    QVERIFY(JournalEditor::do_save_prompt());
}

void TstGeneralOptions::playback_option_comes_from_the_framework()
{
    Page p;
    HostDouble::instance().change_dir_on_playback = true;
    p.page.refreshClicked();
    QVERIFY(p.change_directory->isChecked());
    HostDouble::instance().change_dir_on_playback = false;
    p.page.refreshClicked();
    QVERIFY(!p.change_directory->isChecked());
}

void TstGeneralOptions::playback_option_goes_to_the_framework_on_save()
{
    Page p;
    HostDouble::instance().take_calls();
    p.change_directory->setChecked(true);
    QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    p.page.saveClicked();
    QCOMPARE(HostDouble::instance().take_calls(),
             QStringList{u"Mediator::set_change_dir_on_playback(true)"_s});
}

void TstGeneralOptions::startup_settings_are_read_on_refresh()
{
    Page p;
    QSettings().setValue(splash_key, false);
    QSettings().setValue(restore_key, true);
    p.page.refreshClicked();
    QVERIFY(!p.splash->isChecked());
    QVERIFY(p.restore->isChecked());
}

void TstGeneralOptions::save_writes_the_four_keys_and_no_other()
{
    Page p;
    p.splash->setChecked(false);
    p.restore->setChecked(true);
    p.use_paths->setChecked(true);
    p.paths->setText(u"/a b/\u00fc;/c"_s);
    QCOMPARE(QSettings().allKeys(), QStringList());
    p.page.saveClicked();
    QStringList keys = QSettings().allKeys();
    keys.sort();
    QCOMPARE(keys, (QStringList{u"ostrelgui/ostrel/pythonpaths"_s, u"ostrelgui/ostrel/restoreWorkingDir"_s,
                                u"ostrelgui/ostrel/splash"_s, u"ostrelgui/ostrel/usepythonpaths"_s}));
    QCOMPARE(stored(splash_key).toBool(), false);
    QCOMPARE(stored(restore_key).toBool(), true);
    QCOMPARE(stored(use_paths_key).toBool(), true);
    QCOMPARE(stored(paths_key).toString(), u"/a b/\u00fc;/c"_s);
}

void TstGeneralOptions::refresh_and_save_go_in_order()
{
    Page p;
    HostDouble::instance().take_calls();
    p.page.refreshClicked();
    p.page.saveClicked();
    QCOMPARE(HostDouble::instance().take_calls(),
             (QStringList{u"Mediator::change_dir_on_playback()"_s,
                          u"Mediator::set_change_dir_on_playback(false)"_s}));
}

void TstGeneralOptions::edited_paths_survive_a_refresh()
{
    Page p;
    p.paths->setText(u"/edited"_s);
    p.use_paths->setChecked(true);
    p.page.refreshClicked();
    QCOMPARE(p.paths->text(), u"/edited"_s);
    QVERIFY(p.use_paths->isChecked());
}

void TstGeneralOptions::focus_follows_cursor_acts_at_once()
{
    mWindow = std::make_unique<Ostrel>();
    Page p;
    QVERIFY(!mWindow->command_line()->get_focus_follows_cursor());
    p.focus_follows->click();
    QVERIFY(mWindow->command_line()->get_focus_follows_cursor());
    p.focus_follows->click();
    QVERIFY(!mWindow->command_line()->get_focus_follows_cursor());
}

void TstGeneralOptions::focus_follows_cursor_is_read_from_the_console()
{
    mWindow = std::make_unique<Ostrel>();
    Page p;
    mWindow->command_line()->set_focus_follows_cursor(true);
    p.page.refreshClicked();
    QVERIFY(p.focus_follows->isChecked());
    QVERIFY(mWindow->command_line()->get_focus_follows_cursor());
    p.page.saveClicked();
    QVERIFY(mWindow->command_line()->get_focus_follows_cursor());
}

void TstGeneralOptions::page_works_without_a_window()
{
    QCOMPARE(Ostrel::instance(), nullptr);
    Page p;
    p.focus_follows->click();
    p.page.refreshClicked();
    QVERIFY(p.focus_follows->isChecked());
    p.page.saveClicked();
    QCOMPARE(stored(splash_key).toBool(), true);
}

void TstGeneralOptions::chosen_directory_replaces_the_paths()
{
    Page p;
    p.paths->setText(u"/old;/older"_s);
    const QTemporaryDir directory;
    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, directory.path());
    });
    p.browse->click();
    QVERIFY(driver.finish());
    QVERIFY(asked.directories_only);
    QCOMPARE(asked.file_mode, QFileDialog::Directory);
    QCOMPARE(asked.directory, QDir::currentPath());
    QCOMPARE(p.paths->text(), directory.path());
}

void TstGeneralOptions::cancelled_directory_changes_nothing()
{
    Page p;
    p.paths->setText(u"/old"_s);
    DialogDriver driver;
    driver.expect(u"QFileDialog"_s, press_key(Qt::Key_Escape));
    p.browse->click();
    QVERIFY(driver.finish());
    QCOMPARE(p.paths->text(), u"/old"_s);
}

void TstGeneralOptions::panel_drives_the_page()
{
    mWindow = std::make_unique<Ostrel>();
    auto* page = mWindow->options()->findChild<GeneralOptions*>();
    QVERIFY(page);
    auto* journal_prompt = page->findChild<QCheckBox*>(u"mUsingJournalPrompt"_s);
    JournalEditor::set_save_prompt(false);
    mWindow->options()->refresh_settings();
    QVERIFY(!journal_prompt->isChecked());
    journal_prompt->setChecked(true);
    emit mWindow->options()->saveSettings();
    QVERIFY(JournalEditor::do_save_prompt());
}

void TstGeneralOptions::page_leaves_with_its_owner()
{
    mWindow = std::make_unique<Ostrel>();
    const QPointer<GeneralOptions> page(mWindow->options()->findChild<GeneralOptions*>());
    QVERIFY(page);
    mWindow.reset();
    QVERIFY(!page);
}

void TstGeneralOptions::page_may_go_while_the_framework_is_asked()
{
    auto page = std::make_unique<GeneralOptions>(nullptr);
    bool asked = false;
    HostDouble::instance().on_call = [&](const QString&) {
        asked = true;
        page.reset();
    };
    page->refreshClicked();
    QVERIFY(asked);
    HostDouble::instance().on_call = nullptr;
}

void TstGeneralOptions::settings_are_stored_even_if_the_page_goes()
{
    auto p = std::make_unique<Page>();
    p->splash->setChecked(false);
    p->restore->setChecked(true);
    p->use_paths->setChecked(true);
    p->paths->setText(u"/one"_s);
    HostDouble::instance().on_call = [&](const QString&) { p.reset(); };
    p->page.saveClicked();
    HostDouble::instance().on_call = nullptr;
    QVERIFY(!p);
    QCOMPARE(stored(splash_key), QVariant(false));
    QCOMPARE(stored(restore_key), QVariant(true));
    QCOMPARE(stored(use_paths_key), QVariant(true));
    QCOMPARE(stored(paths_key), QVariant(u"/one"_s));
}

void TstGeneralOptions::page_may_go_under_the_folder_dialog()
{
    auto page = std::make_unique<GeneralOptions>(nullptr);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog*) { page.reset(); });
    page->choosePythonPath();
    QVERIFY(driver.finish());
    QVERIFY(!page);
}

OSTREL_TEST(TstGeneralOptions)
#include "tst_generaloptions.moc"
