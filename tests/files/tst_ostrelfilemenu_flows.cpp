// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FileMenuTest.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "frame/Ostrel.h"
#include "handlers.h"
#include "hostdouble/HostDouble.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/statics.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const auto missing = u"BrokerCommand::operator<<(\"ERROR: Missing open/save handler.\n\")"_s;
const auto yes_button = u"mYesButton"_s;
const auto no_button = u"mNoButton"_s;
const auto cancel_button = u"mCancelButton"_s;
const auto filters = u"Model Files (*.mdl);;Text Files (*.txt);;All Files (*.*)"_s;
const auto models = u"Model Files (*.mdl)"_s;
const auto texts = u"Text Files (*.txt)"_s;

/** What the question about unsaved data shows. */
struct Question
{
    QString title;
    QString message;
    QString check_text;
    bool ticked = false;
    QStringList buttons;
    const QWidget* parent = nullptr;
};

Question question(const OstrelMessageBox* box)
{
    Question seen;
    seen.title = box->windowTitle();
    seen.message = box->findChild<QLabel*>(u"mMessage"_s)->text();
    const auto* check = box->findChild<QCheckBox*>(u"mPrompt"_s);
    seen.check_text = check->text();
    seen.ticked = check->isChecked();
    for (const auto& name : {yes_button, no_button, cancel_button}) {
        const auto* button = box->findChild<QPushButton*>(name);
        if (button->isVisible())
            seen.buttons << button->text();
    }
    seen.parent = box->parentWidget();
    return seen;
}

/** Expects the question and answers it, with a tick in the check box if so wished. */
void answer(DialogDriver& driver, const QString& how, bool tick = false)
{
    driver.expect<OstrelMessageBox>([how, tick](OstrelMessageBox* box) {
        if (tick)
            box->findChild<QCheckBox*>(u"mPrompt"_s)->setChecked(true);
        if (how == u"Escape"_s)
            press_key(Qt::Key_Escape)(box);
        else if (how == u"close box"_s)
            press_close_box()(box);
        else
            press(how)(box);
    });
}

QString get_filters(bool saving)
{
    return u"Documents::get_filters(%1)"_s.arg(saving ? u"true"_s : u"false"_s);
}

const auto is_modified = u"Documents::is_modified()"_s;
const auto clear_modified = u"Documents::set_modified(false)"_s;
const auto location = u"Documents::get_save_location()"_s;

QString call(const QString& operation, const QStringList& texts_given)
{
    return u"Documents::"_s + operation + u"(\""_s + texts_given.join(u"\", \""_s) + u"\")"_s;
}

QString printed(const QString& text)
{
    return u"BrokerCommand::operator<<(\"%1\")"_s.arg(text);
}

} // namespace

class TstOstrelFileMenuFlows : public FileMenuTest
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    // Unsaved data.
    void unmodified_document_may_go_unasked();
    void question_says_what_is_at_stake();
    void answer_decides_data();
    void answer_decides();
    void saving_a_nameless_document_asks_for_a_name();
    void cancelled_saving_keeps_the_document();
    void question_that_is_off_discards_silently();
    void never_again_holds_in_the_next_run();
    void handler_that_goes_during_the_question_does_no_harm();

    // New.
    void new_forgets_the_name_before_the_handler_starts();
    void new_leaves_directory_and_recent_files();
    void refused_new_changes_nothing_data();
    void refused_new_changes_nothing();
    void actions_and_slots_do_the_same_data();
    void actions_and_slots_do_the_same();

    // Open.
    void open_asks_with_the_handlers_filters();
    void cancelled_open_changes_nothing();
    void open_prepares_everything_before_the_handler();
    void any_file_name_arrives_whole_data();
    void any_file_name_arrives_whole();
    void open_comes_up_with_the_filter_used_last();
    void refused_open_shows_no_dialog_data();
    void refused_open_shows_no_dialog();
    void open_goes_on_after_no();
    void handler_that_goes_during_open_is_missed();
    void new_document_of_another_format_has_other_filters();

    // Save.
    void save_writes_to_the_current_file();
    void save_without_a_name_asks_for_one();
    void failed_save_clears_the_modified_state_too();

    // Save as.
    void save_as_asks_at_the_handlers_place_data();
    void save_as_asks_at_the_handlers_place();
    void save_as_starts_with_no_filter_of_its_own();
    void cancelled_save_as_changes_nothing();
    void save_as_prepares_everything_before_the_handler();
    void save_as_completes_the_name_data();
    void save_as_completes_the_name();
    void save_as_over_a_file_asks_first();
    void save_as_clears_the_modified_state_whatever_happened();
    void handler_that_goes_during_save_as_is_missed();
    void handler_may_take_itself_out_while_it_saves();

    void what_the_user_reads_is_translated();

    // Recent files.
    void recent_file_asks_about_unsaved_data();

    // The window.
    void closing_asks_and_saves_the_settings_data();
    void closing_asks_and_saves_the_settings();

private:
    QStringList recent_files() const;

    std::unique_ptr<Documents> mDocuments;
};

void TstOstrelFileMenuFlows::set_up()
{
    FileMenuTest::set_up();
    mDocuments = std::make_unique<Documents>();
    mDocuments->open_filters = filters;
    mDocuments->save_filters = filters;
    mMenu->set_open_save_handler(mDocuments.get());
    host().reset();
}

void TstOstrelFileMenuFlows::tear_down()
{
    mWindow.reset();
    mDocuments.reset();
    FileMenuTest::tear_down();
}

QStringList TstOstrelFileMenuFlows::recent_files() const
{
    std::vector<QString> files;
    mMenu->get_recent_files(files);
    return {files.cbegin(), files.cend()};
}

void TstOstrelFileMenuFlows::unmodified_document_may_go_unasked()
{
    QVERIFY(mMenu->check_modified());
    QCOMPARE(host().take_calls(), QStringList{is_modified});
}

void TstOstrelFileMenuFlows::question_says_what_is_at_stake()
{
    mWindow->set_title(u"Fennar"_s);
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mWindow->update_title();
    mDocuments->modified = true;
    Question seen;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        seen = question(box);
        press(cancel_button)(box);
    });
    QVERIFY(!mMenu->check_modified());
    QVERIFY(driver.finish());
    // The window's name without that of the file.
    QCOMPARE(seen.title, u"Fennar"_s);
    QCOMPARE(seen.message, u"The data has been modified.\nDo you wish to save the changes?"_s);
    QCOMPARE(seen.check_text, u"Never prompt me when there is unsaved data."_s);
    QVERIFY(!seen.ticked);
    QCOMPARE(seen.buttons, (QStringList{u"&Yes"_s, u"&No"_s, u"&Cancel"_s}));
    QCOMPARE(seen.parent, mWindow.get());
}

void TstOstrelFileMenuFlows::answer_decides_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("tick");
    QTest::addColumn<bool>("saving_fails");
    QTest::addColumn<bool>("may_go");
    QTest::addColumn<bool>("asks_again");
    QTest::addColumn<QStringList>("calls");

    const QString save = call(u"save_file"_s, {u"/a.mdl"_s});
    const QStringList saved{is_modified, save, clear_modified, is_modified, clear_modified};
    const QStringList failed{is_modified, save, clear_modified, is_modified};
    const QStringList dropped{is_modified, clear_modified};
    const QStringList kept{is_modified};
    QTest::newRow("yes") << yes_button << false << false << true << true << saved;
    QTest::newRow("yes and a tick") << yes_button << true << false << true << true << saved;
    QTest::newRow("yes, saving fails") << yes_button << false << true << false << true << failed;
    QTest::newRow("yes and a tick, saving fails") << yes_button << true << true << false << true << failed;
    QTest::newRow("no") << no_button << false << false << true << true << dropped;
    QTest::newRow("no and a tick") << no_button << true << false << true << false << dropped;
    QTest::newRow("cancel") << cancel_button << false << false << false << true << kept;
    QTest::newRow("cancel and a tick") << cancel_button << true << false << false << true << kept;
    QTest::newRow("escape") << u"Escape"_s << false << false << false << true << kept;
    QTest::newRow("escape and a tick") << u"Escape"_s << true << false << false << true << kept;
    QTest::newRow("close box") << u"close box"_s << false << false << false << true << kept;
    QTest::newRow("close box and a tick") << u"close box"_s << true << false << false << true << kept;
}

void TstOstrelFileMenuFlows::answer_decides()
{
    QFETCH(QString, how);
    QFETCH(bool, tick);
    QFETCH(bool, saving_fails);
    QFETCH(bool, may_go);
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mDocuments->modified = true;
    mDocuments->stubborn = saving_fails;
    DialogDriver driver;
    answer(driver, how, tick);
    const bool went = mMenu->check_modified();
    QVERIFY(driver.finish());
    QCOMPARE(went, may_go);
    QTEST(OstrelFileMenu::mDoPrompt, "asks_again");
    QTEST(host().take_calls(), "calls");
    QCOMPARE(mDocuments->modified, !may_go);
}

void TstOstrelFileMenuFlows::saving_a_nameless_document_asks_for_a_name()
{
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, yes_button);
    expect_choice(driver, place(u"plate.mdl"_s));
    const bool went = mMenu->check_modified();
    QVERIFY(driver.finish());
    QVERIFY(went);
    QCOMPARE(host().take_calls(), (QStringList{is_modified, location, get_filters(true),
                                               call(u"save_file_as"_s, {place(u"plate.mdl"_s), models}),
                                               clear_modified, is_modified, clear_modified}));
}

void TstOstrelFileMenuFlows::cancelled_saving_keeps_the_document()
{
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, yes_button, true);
    expect_cancel(driver);
    const bool went = mMenu->check_modified();
    QVERIFY(driver.finish());
    QVERIFY(!went);
    QVERIFY(mDocuments->modified);
    QCOMPARE(host().take_calls(), (QStringList{is_modified, location, get_filters(true), is_modified}));
}

void TstOstrelFileMenuFlows::question_that_is_off_discards_silently()
{
    OstrelFileMenu::mDoPrompt = false;
    mDocuments->modified = true;
    QVERIFY(mMenu->check_modified());
    QCOMPARE(host().take_calls(), (QStringList{is_modified, clear_modified}));
    QVERIFY(!OstrelFileMenu::mDoPrompt);
}

void TstOstrelFileMenuFlows::never_again_holds_in_the_next_run()
{
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, no_button, true);
    QVERIFY(mMenu->check_modified());
    mDocuments->modified = true;
    QVERIFY(mMenu->check_modified());
    QVERIFY(driver.finish());

    mWindow->save_settings();
    mWindow.reset();
    reset_statics();
    QVERIFY(OstrelFileMenu::mDoPrompt);
    const Ostrel next;
    QVERIFY(!OstrelFileMenu::mDoPrompt);
    next.file_menu()->set_open_save_handler(mDocuments.get());
    mDocuments->modified = true;
    QVERIFY(next.file_menu()->check_modified());
}

void TstOstrelFileMenuFlows::handler_that_goes_during_the_question_does_no_harm()
{
    for (const QString& button : {yes_button, no_button}) {
        mMenu->set_open_save_handler(mDocuments.get());
        mDocuments->modified = true;
        DialogDriver driver;
        driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
            mMenu->set_open_save_handler(nullptr);
            press(button)(box);
        });
        OstrelFileMenu::mFileName = u"/a.mdl"_s;
        host().take_calls();
        mMenu->file_new();
        QVERIFY(driver.finish());
        QStringList calls{is_modified, missing};
        if (button == yes_button)
            calls << missing;
        QCOMPARE(host().take_calls(), calls);
        QCOMPARE(OstrelFileMenu::mFileName, u"/a.mdl"_s);
    }
}

void TstOstrelFileMenuFlows::new_forgets_the_name_before_the_handler_starts()
{
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mWindow->update_title();
    auto* page = new CommandWidget;
    mWindow->command_line()->add_command_tab(u"Command"_s, page);
    page->printOutput(u"some output\n"_s);
    QVERIFY(page->toPlainText().contains(u"some output"_s));
    QStringList at_new;
    mDocuments->on_call = [&](const QString& operation) {
        at_new << operation << OstrelFileMenu::mFileName << mWindow->windowTitle() << page->toPlainText();
    };
    mMenu->file_new();
    QCOMPARE(host().take_calls(), (QStringList{is_modified, u"Documents::new_file()"_s}));
    QCOMPARE(at_new.mid(0, 3), (QStringList{u"new_file"_s, QString(), u"Ostrel"_s}));
    QVERIFY(!at_new.constLast().contains(u"some output"_s));
}

void TstOstrelFileMenuFlows::new_leaves_directory_and_recent_files()
{
    mMenu->recent_file(u"/a.mdl"_s);
    mMenu->recent_import(u"import '/a.stp'"_s);
    mMenu->file_new();
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
    std::vector<QString> recent;
    mMenu->get_recent_files(recent);
    mMenu->get_recent_imports(recent);
    QCOMPARE(recent, (std::vector<QString>{u"/a.mdl"_s, u"import '/a.stp'"_s}));
}

void TstOstrelFileMenuFlows::refused_new_changes_nothing_data()
{
    QTest::addColumn<QString>("how");

    QTest::newRow("cancel") << cancel_button;
    QTest::newRow("escape") << u"Escape"_s;
    QTest::newRow("close box") << u"close box"_s;
}

void TstOstrelFileMenuFlows::refused_new_changes_nothing()
{
    QFETCH(QString, how);
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mWindow->update_title();
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, how);
    mMenu->file_new();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{is_modified});
    QCOMPARE(OstrelFileMenu::mFileName, u"/a.mdl"_s);
    QCOMPARE(mWindow->windowTitle(), u"Ostrel - /a.mdl"_s);
    QVERIFY(mDocuments->modified);
}

void TstOstrelFileMenuFlows::actions_and_slots_do_the_same_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("with_dialog");
    QTest::addColumn<QStringList>("calls");

    const QStringList save_as{location, get_filters(true)};
    QTest::newRow("new") << u"mFileNewAction"_s << false
                         << QStringList{is_modified, u"Documents::new_file()"_s};
    QTest::newRow("open") << u"mFileOpenAction"_s << true << QStringList{is_modified, get_filters(false)};
    QTest::newRow("save") << u"mFileSaveAction"_s << true << save_as;
    QTest::newRow("save as") << u"mFileSaveAsAction"_s << true << save_as;
    QTest::newRow("directory") << u"mFileSetDirectory"_s << false
                               << QStringList{u"Documents::set_directory()"_s};
}

void TstOstrelFileMenuFlows::actions_and_slots_do_the_same()
{
    QFETCH(QString, action);
    QFETCH(bool, with_dialog);
    DialogDriver driver;
    if (with_dialog)
        expect_cancel(driver);
    mMenu->findChild<QAction*>(action)->trigger();
    QVERIFY(driver.finish());
    QTEST(host().take_calls(), "calls");
}

void TstOstrelFileMenuFlows::open_asks_with_the_handlers_filters()
{
    const Asked seen = asked_by([&] { mMenu->file_open(); });
    QCOMPARE(seen.caption, u"Open"_s);
    QCOMPARE(seen.directory, mDirectory);
    QCOMPARE(seen.filters, filters.split(u";;"_s));
    QCOMPARE(seen.name, QString());
    QCOMPARE(seen.accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(seen.file_mode, QFileDialog::ExistingFile);
    QCOMPARE(seen.parent, mWindow.get());
}

void TstOstrelFileMenuFlows::cancelled_open_changes_nothing()
{
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    DialogDriver driver;
    expect_cancel(driver);
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{is_modified, get_filters(false)}));
    QCOMPARE(OstrelFileMenu::mFileName, u"/a.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
    QCOMPARE(recent_files(), QStringList());
    QVERIFY(!QSettings().contains(u"geometry"_s));
}

void TstOstrelFileMenuFlows::open_prepares_everything_before_the_handler()
{
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    make_file(u"sub/plate.txt"_s);
    const QString file = place(u"sub/plate.txt"_s);
    QStringList at_open;
    mDocuments->on_call = [&](const QString&) {
        at_open << OstrelFileMenu::mPath << OstrelFileMenu::mFileName << mWindow->windowTitle()
                << QSettings().value(u"/ostrelgui/ostrel/file1"_s).toString();
        at_open << recent_files();
    };
    DialogDriver driver;
    expect_choice(driver, file, texts);
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(),
             (QStringList{is_modified, get_filters(false), printed(u"selected filter: "_s), printed(texts),
                          printed(u"\n"_s), call(u"open_file"_s, {file})}));
    QCOMPARE(at_open, (QStringList{mDirectory + u"/sub/"_s, file, u"Ostrel - "_s + file, file, file}));
}

void TstOstrelFileMenuFlows::any_file_name_arrives_whole_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("blanks") << u" two  blanks .mdl"_s;
    QTest::newRow("semicolon") << u"a;b;;c.mdl"_s;
    QTest::newRow("number sign") << u"a#b.mdl"_s;
    QTest::newRow("percent") << u"a%20%1%L1.mdl"_s;
    QTest::newRow("ampersand") << u"a&b&&c.mdl"_s;
    QTest::newRow("apostrophe") << u"it's.mdl"_s;
    QTest::newRow("parentheses") << u"a(1).mdl"_s;
    QTest::newRow("non-Latin letters") << u"\u677f \u043f\u043b\u0438\u0442\u0430 \U0001f9f1.mdl"_s;
    QTest::newRow("no dot") << u"plate"_s;
    QTest::newRow("backslash") << u"a\\b.mdl"_s;
    QTest::newRow("very long") << QString(240, u'x') + u".mdl"_s;
}

void TstOstrelFileMenuFlows::any_file_name_arrives_whole()
{
    QFETCH(QString, name);
    make_file(name);
    DialogDriver driver;
    expect_choice(driver, place(name));
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(OstrelFileMenu::mFileName, place(name));
    QCOMPARE(OstrelFileMenu::mPath, mDirectory + u'/');
    QCOMPARE(host().take_calls().constLast(), call(u"open_file"_s, {place(name)}));
    QCOMPARE(QSettings().value(u"/ostrelgui/ostrel/file1"_s).toString(), place(name));
}

void TstOstrelFileMenuFlows::open_comes_up_with_the_filter_used_last()
{
    make_file(u"a.txt"_s);
    QStringList selected;
    const auto look_and = [&](DialogDriver& driver, bool accept, const QString& filter) {
        driver.expect<QFileDialog>([this, &selected, accept, filter](QFileDialog* dialog) {
            selected << dialog->selectedNameFilter();
            dialog->selectNameFilter(filter);
            if (accept)
                choose_with_return(dialog, place(u"a.txt"_s), filter);
            else
                press(QDialogButtonBox::Cancel)(dialog);
        });
        mMenu->file_open();
        QVERIFY(driver.finish());
    };
    {
        DialogDriver driver;
        look_and(driver, true, texts);
    }
    {
        DialogDriver driver;
        look_and(driver, false, models);
    }
    // A cancelled dialog does not count, and a new window does not forget.
    mWindow.reset();
    mWindow = std::make_unique<Ostrel>();
    mMenu = mWindow->file_menu();
    mMenu->set_open_save_handler(mDocuments.get());
    {
        DialogDriver driver;
        look_and(driver, true, models);
    }
    {
        DialogDriver driver;
        look_and(driver, false, models);
    }
    QCOMPARE(selected.mid(1), (QStringList{texts, texts, models}));
}

void TstOstrelFileMenuFlows::refused_open_shows_no_dialog_data()
{
    refused_new_changes_nothing_data();
}

void TstOstrelFileMenuFlows::refused_open_shows_no_dialog()
{
    QFETCH(QString, how);
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, how);
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), QStringList{is_modified});
}

void TstOstrelFileMenuFlows::open_goes_on_after_no()
{
    make_file(u"a.mdl"_s);
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, no_button);
    expect_choice(driver, place(u"a.mdl"_s), models);
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(),
             (QStringList{is_modified, clear_modified, get_filters(false), printed(u"selected filter: "_s),
                          printed(models), printed(u"\n"_s), call(u"open_file"_s, {place(u"a.mdl"_s)})}));
}

void TstOstrelFileMenuFlows::handler_that_goes_during_open_is_missed()
{
    make_file(u"a.mdl"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        mMenu->set_open_save_handler(nullptr);
        choose_with_return(dialog, place(u"a.mdl"_s));
    });
    mMenu->file_open();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{is_modified, get_filters(false), missing}));
    QCOMPARE(OstrelFileMenu::mFileName, QString());
}

void TstOstrelFileMenuFlows::new_document_of_another_format_has_other_filters()
{
    mDocuments->open_filters = u"Meshes (*.msh)"_s;
    const Asked seen = asked_by([&] { mMenu->file_open(); });
    QCOMPARE(seen.filters, QStringList{u"Meshes (*.msh)"_s});
    QCOMPARE(seen.selected_filter, u"Meshes (*.msh)"_s);
}

void TstOstrelFileMenuFlows::save_writes_to_the_current_file()
{
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mDocuments->modified = true;
    const QString title = mWindow->windowTitle();
    mMenu->file_save();
    QCOMPARE(host().take_calls(), (QStringList{call(u"save_file"_s, {u"/a.mdl"_s}), clear_modified}));
    QVERIFY(!mDocuments->modified);
    QCOMPARE(mWindow->windowTitle(), title);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
    QCOMPARE(recent_files(), QStringList());
}

void TstOstrelFileMenuFlows::save_without_a_name_asks_for_one()
{
    DialogDriver driver;
    expect_choice(driver, place(u"plate.mdl"_s));
    mMenu->file_save();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(),
             (QStringList{location, get_filters(true),
                          call(u"save_file_as"_s, {place(u"plate.mdl"_s), models}), clear_modified}));
}

void TstOstrelFileMenuFlows::failed_save_clears_the_modified_state_too()
{
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mDocuments->modified = true;
    mDocuments->stubborn = true;
    mMenu->file_save();
    QCOMPARE(host().take_calls(), (QStringList{call(u"save_file"_s, {u"/a.mdl"_s}), clear_modified}));
}

void TstOstrelFileMenuFlows::save_as_asks_at_the_handlers_place_data()
{
    QTest::addColumn<bool>("moves");
    QTest::addColumn<QString>("proposal");

    QTest::newRow("no wish") << false << u""_s;
    QTest::newRow("a name") << false << u"plate.mdl"_s;
    QTest::newRow("a directory") << true << u""_s;
    QTest::newRow("both") << true << u"plate 1;#&.mdl"_s;
}

void TstOstrelFileMenuFlows::save_as_asks_at_the_handlers_place()
{
    QFETCH(bool, moves);
    QFETCH(QString, proposal);
    QVERIFY(QDir(mDirectory).mkdir(u"sub"_s));
    if (moves)
        mDocuments->location = place(u"sub"_s);
    mDocuments->proposal = proposal;
    const Asked seen = asked_by([&] { mMenu->file_save_as(); });
    QCOMPARE(mDocuments->path_seen, mDirectory);
    QCOMPARE(mDocuments->name_seen, QString());
    QCOMPARE(seen.caption, u"Save As"_s);
    QCOMPARE(seen.directory, moves ? place(u"sub"_s) : mDirectory);
    QCOMPARE(seen.name, proposal);
    QCOMPARE(seen.filters, filters.split(u";;"_s));
    QCOMPARE(seen.accept_mode, QFileDialog::AcceptSave);
    QCOMPARE(seen.parent, mWindow.get());
}

void TstOstrelFileMenuFlows::save_as_starts_with_no_filter_of_its_own()
{
    for (int i = 0; i < 2; ++i) {
        QString selected;
        DialogDriver driver;
        driver.expect<QFileDialog>([&](QFileDialog* dialog) {
            selected = dialog->selectedNameFilter();
            choose_with_return(dialog, place(u"plate%1"_s.arg(i)), texts);
        });
        mMenu->file_save_as();
        QVERIFY(driver.finish());
        QCOMPARE(selected, models);
    }
}

void TstOstrelFileMenuFlows::cancelled_save_as_changes_nothing()
{
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mDocuments->modified = true;
    mDocuments->location = QDir::rootPath();
    mDocuments->proposal = u"b.mdl"_s;
    DialogDriver driver;
    expect_cancel(driver);
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{location, get_filters(true)}));
    QCOMPARE(OstrelFileMenu::mFileName, u"/a.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
    QVERIFY(mDocuments->modified);
    QCOMPARE(recent_files(), QStringList());
}

void TstOstrelFileMenuFlows::save_as_prepares_everything_before_the_handler()
{
    QVERIFY(QDir(mDirectory).mkdir(u"v1.2"_s));
    mDocuments->modified = true;
    QStringList at_save;
    mDocuments->on_call = [&](const QString& operation) {
        if (operation != u"save_file_as"_s)
            return;
        at_save << OstrelFileMenu::mPath << OstrelFileMenu::mFileName << mWindow->windowTitle();
        at_save << recent_files();
    };
    DialogDriver driver;
    expect_choice(driver, place(u"v1.2/plate"_s), texts);
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    // The extension is the first filter's, whatever the user has selected.
    const QString file = place(u"v1.2/plate.mdl"_s);
    QCOMPARE(host().take_calls(), (QStringList{location, get_filters(true),
                                               call(u"save_file_as"_s, {file, texts}), clear_modified}));
    QCOMPARE(at_save, (QStringList{place(u"v1.2/"_s), file, u"Ostrel - "_s + file, file}));
    QVERIFY(!mDocuments->modified);
    // Unlike with open, the settings wait for the end.
    QVERIFY(!QSettings().contains(u"/ostrelgui/ostrel/file1"_s));
    QVERIFY(!QSettings().contains(u"geometry"_s));
}

void TstOstrelFileMenuFlows::save_as_completes_the_name_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");

    const auto list = u"Model Files (*.mdl);;All Files (*.*)"_s;
    QTest::newRow("no dot") << list << u"plate"_s << u"plate.mdl"_s;
    QTest::newRow("dot") << list << u"plate.txt"_s << u"plate.txt"_s;
    QTest::newRow("dot at the end") << list << u"plate."_s << u"plate."_s;
    QTest::newRow("dot first") << list << u".plate"_s << u".plate"_s;
    QTest::newRow("odd characters") << list << u"p l;#%1&'\u677f"_s << u"p l;#%1&'\u677f.mdl"_s;
    QTest::newRow("two patterns") << u"Data (*.dat *.txt)"_s << u"plate"_s << u"plate.dat"_s;
    QTest::newRow("two patterns, two filters")
        << u"Data (*.dat *.txt);;All (*)"_s << u"plate"_s << u"plate.dat "_s;
    QTest::newRow("all files first") << u"All Files (*);;Models (*.mdl)"_s << u"plate"_s << u"plate"_s;
    QTest::newRow("all files with a dot first")
        << u"All Files (*.*);;Models (*.mdl)"_s << u"plate"_s << u"plate."_s;
    QTest::newRow("no filters") << u""_s << u"plate"_s << u"plate"_s;
}

void TstOstrelFileMenuFlows::save_as_completes_the_name()
{
    QFETCH(QString, list);
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    mDocuments->save_filters = list;
    DialogDriver driver;
    expect_choice(driver, place(typed));
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(OstrelFileMenu::mFileName, place(saved));
    QCOMPARE(OstrelFileMenu::mPath, mDirectory + u'/');
}

void TstOstrelFileMenuFlows::save_as_over_a_file_asks_first()
{
    make_file(u"plate.mdl"_s);
    DialogDriver driver;
    expect_choice(driver, place(u"plate.mdl"_s));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(OstrelFileMenu::mFileName, place(u"plate.mdl"_s));
}

void TstOstrelFileMenuFlows::save_as_clears_the_modified_state_whatever_happened()
{
    mDocuments->modified = true;
    mDocuments->stubborn = true;
    DialogDriver driver;
    expect_choice(driver, place(u"plate.mdl"_s));
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls().constLast(), clear_modified);
}

void TstOstrelFileMenuFlows::handler_that_goes_during_save_as_is_missed()
{
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        mMenu->set_open_save_handler(nullptr);
        choose_with_return(dialog, place(u"a.mdl"_s));
    });
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{location, get_filters(true), missing}));
    QCOMPARE(OstrelFileMenu::mFileName, QString());
}

void TstOstrelFileMenuFlows::handler_may_take_itself_out_while_it_saves()
{
    mDocuments->on_call = [this](const QString&) { mMenu->set_open_save_handler(nullptr); };
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mMenu->file_save();
    QCOMPARE(host().take_calls(), QStringList{call(u"save_file"_s, {u"/a.mdl"_s})});

    mMenu->set_open_save_handler(mDocuments.get());
    DialogDriver driver;
    expect_choice(driver, place(u"b.mdl"_s));
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(host().take_calls(), (QStringList{location, get_filters(true),
                                               call(u"save_file_as"_s, {place(u"b.mdl"_s), models})}));
    QCOMPARE(OstrelFileMenu::mFileName, place(u"b.mdl"_s));
}

void TstOstrelFileMenuFlows::what_the_user_reads_is_translated()
{
    make_file(u"a.mdl"_s);
    const MarkingTranslator translator("OstrelFileMenu");
    mDocuments->modified = true;
    QStringList read;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        const Question seen = question(box);
        read << seen.title << seen.message << seen.check_text;
        press(no_button)(box);
    });
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        read << dialog->windowTitle();
        choose_with_return(dialog, place(u"a.mdl"_s), models);
    });
    mMenu->file_open();
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        read << dialog->windowTitle();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    mMenu->file_save_as();
    QVERIFY(driver.finish());
    QCOMPARE(read,
             (QStringList{u"Ostrel"_s, u"<The data has been modified.\nDo you wish to save the changes?>"_s,
                          u"<Never prompt me when there is unsaved data.>"_s, u"<Open>"_s, u"<Save As>"_s}));
    QVERIFY(host().take_calls().contains(printed(u"<selected filter: >"_s)));
}

void TstOstrelFileMenuFlows::recent_file_asks_about_unsaved_data()
{
    mDocuments->modified = true;
    OstrelFileMenu::mFileName = u"/old.mdl"_s;
    {
        DialogDriver driver;
        answer(driver, cancel_button);
        mMenu->open_recent_file(u"/new.mdl"_s);
        QVERIFY(driver.finish());
    }
    QCOMPARE(host().take_calls(), QStringList{is_modified});
    QCOMPARE(OstrelFileMenu::mFileName, u"/old.mdl"_s);
    {
        DialogDriver driver;
        answer(driver, no_button);
        mMenu->open_recent_file(u"/new \"file\"\n.mdl"_s);
        QVERIFY(driver.finish());
    }
    QCOMPARE(host().take_calls(),
             (QStringList{is_modified, clear_modified, call(u"open_file"_s, {u"/new \"file\"\n.mdl"_s})}));
    QCOMPARE(OstrelFileMenu::mFileName, u"/new \"file\"\n.mdl"_s);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory);
}

void TstOstrelFileMenuFlows::closing_asks_and_saves_the_settings_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("tick");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("asks_again");

    QTest::newRow("no") << no_button << false << true << true;
    QTest::newRow("no and a tick") << no_button << true << true << false;
    QTest::newRow("yes") << yes_button << false << true << true;
    QTest::newRow("cancel") << cancel_button << false << false << true;
    QTest::newRow("escape") << u"Escape"_s << false << false << true;
}

void TstOstrelFileMenuFlows::closing_asks_and_saves_the_settings()
{
    QFETCH(QString, how);
    QFETCH(bool, tick);
    QFETCH(bool, closes);
    OstrelFileMenu::mFileName = u"/a.mdl"_s;
    mDocuments->modified = true;
    DialogDriver driver;
    answer(driver, how, tick);
    QCloseEvent close;
    QCoreApplication::sendEvent(mWindow.get(), &close);
    QVERIFY(driver.finish());
    QCOMPARE(close.isAccepted(), closes);
    QCOMPARE(host().take_calls().contains(u"Mediator::request_exit()"_s), closes);
    // Saved behind the question, and even if the window stays.
    QTEST(QSettings().value(u"/ostrelgui/ostrel/saveprompt"_s).toBool(), "asks_again");
    QVERIFY(QSettings().contains(u"geometry"_s));
}

OSTREL_TEST(TstOstrelFileMenuFlows)
#include "tst_ostrelfilemenu_flows.moc"
