// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "host/fennari19/FennarInterface.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "support/dialogs.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>

using namespace fennar;
using namespace Qt::StringLiterals;

/** Journals are played from the editor and the menu, and what is checked is what the user reads and what ran.
 */
class TstJournalPlayer : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void set_up_class() override;
    void set_up() override;
    void tear_down() override;
    void tear_down_class() override { Fennar::instance().registry().remove_owner(u"test"_s); }

private slots:
    void document_plays_line_by_line_on_the_console();
    void document_whose_first_line_is_empty_keeps_its_numbers();
    void empty_document_plays_nothing();
    void selection_is_numbered_as_the_editor_does();
    void first_error_ends_with_file_line_and_the_way_on_data();
    void first_error_ends_with_file_line_and_the_way_on();
    void played_on_from_the_line_told();
    void python_document_goes_whole_to_python_data();
    void python_document_goes_whole_to_python();
    void python_selection_keeps_its_line_numbers();
    void indented_python_selection_plays();
    void selection_that_cannot_move_to_the_left_says_so();
    void script_shows_progress_and_can_be_paused();
    void script_can_be_cancelled_while_it_pauses();
    void error_leads_to_its_line_in_the_editor_data();
    void error_leads_to_its_line_in_the_editor();
    void error_of_a_file_that_is_not_open_opens_it();
    void errors_lead_to_journals_and_not_to_the_library_of_python();
    void error_of_a_document_that_is_closed_is_told();
    void line_that_is_gone_leads_to_the_last_one();
    void example_in_python_is_the_translation_of_its_journal();
    void journal_waits_for_what_the_console_runs();
    void another_journal_is_refused_until_the_first_has_ended();
    void half_typed_command_stays();
    void command_that_is_not_complete_is_given_up();
    void nothing_of_a_journal_is_in_the_history();
    void what_runs_is_a_snapshot();
    void progress_is_shown_and_taken_down_data();
    void progress_is_shown_and_taken_down();
    void pause_button_holds_the_journal_and_says_where();
    void cancel_ends_a_pause_and_releases_the_button();
    void directory_is_changed_as_the_option_says_data();
    void directory_is_changed_as_the_option_says();
    void missing_directory_of_a_document_ends_it();
    void play_action_asks_for_a_file_and_plays_it_data();
    void play_action_asks_for_a_file_and_plays_it();
    void play_action_with_no_answer_does_nothing();
    void action_for_journals_without_ids_is_hidden();
    void import_menu_offers_the_pages();
    void example_journals_play_data();
    void example_journals_play();
    void closing_the_editor_waits_for_the_run_only_if_it_asks_data();
    void closing_the_editor_waits_for_the_run_only_if_it_asks();
    void closing_the_window_asks_when_the_run_has_ended();

private:
    static JournalEditor* editor() { return Ostrel::instance()->journal_editor(); }
    static QTabWidget* tabs() { return editor()->findChild<QTabWidget*>(u"mDocTab"_s); }
    static QPlainTextEdit* document() { return qobject_cast<QPlainTextEdit*>(tabs()->currentWidget()); }
    static QAction* pause() { return Ostrel::instance()->tools_menu()->pause_action(); }
    static QProgressBar* bar() { return Ostrel::instance()->findChild<QProgressBar*>(u"mProgress"_s); }
    /** Opens @p content as a file of that name. */
    QString open(const QString& name, const QByteArray& content);
    static void select_lines(int first, int last);
    void play_document();
    void play_selection();
    /** Presses Enter on the last line of the page of errors that holds @p text. */
    void activate_last_error(const QString& text = u"nix"_s);
    /** Waits for what has been started. */
    void wait_for_end();

    /** What "act" does in a journal. */
    std::function<void()> mAct;
    QStringList mSteps;
};

void TstJournalPlayer::set_up_class()
{
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"step"_s, u"test"_s,
                               [this](CommandCall& call) { mSteps << call.words().value(1).text; }));
    registry.add(plain_command(u"act"_s, u"test"_s, [this](CommandCall&) {
        if (mAct)
            mAct();
    }));
}

void TstJournalPlayer::set_up()
{
    mAct = nullptr;
    mSteps.clear();
    Ostrel::instance()->command_line()->set_focus();
    page()->clearToPrompt();
    workbench().console()->error_page()->clear();
}

void TstJournalPlayer::tear_down()
{
    if (FennarInterface::command_is_python_mode())
        python_mode(false);
    Broker::instance()->set_change_dir_on_playback(false);
    QVERIFY(!workbench().console()->is_running());
    QVERIFY(!FennarInterface::is_playback_paused());
    QVERIFY(!pause()->isChecked());
    // A single document that is pristine.
    const auto documents = editor()->findChildren<QPlainTextEdit*>();
    for (QPlainTextEdit* one : documents)
        one->document()->setModified(false);
    editor()->fileNew();
    while (tabs()->count() > 1) {
        tabs()->setCurrentIndex(0);
        editor()->fileClose();
    }
}

QString TstJournalPlayer::open(const QString& name, const QByteArray& content)
{
    const QString path = write_temp(name, content);
    editor()->open_file(path);
    return path;
}

void TstJournalPlayer::select_lines(int first, int last)
{
    QTextCursor cursor(document()->document()->findBlockByNumber(first - 1));
    cursor.setPosition(document()->document()->findBlockByNumber(last - 1).position(),
                       QTextCursor::KeepAnchor);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    document()->setTextCursor(cursor);
}

void TstJournalPlayer::play_document()
{
    editor()->playFile();
    wait_for_end();
}

void TstJournalPlayer::play_selection()
{
    editor()->playSelected();
    wait_for_end();
}

void TstJournalPlayer::activate_last_error(const QString& text)
{
    ErrorPage* errors = workbench().console()->error_page();
    QTextCursor cursor =
        errors->document()->find(text, errors->document()->characterCount() - 1, QTextDocument::FindBackward);
    if (cursor.isNull()) // as in a script: the last line of all
        cursor = QTextCursor(errors->document()->lastBlock().previous());
    errors->setTextCursor(cursor);
    QTest::keyClick(errors, Qt::Key_Return);
}

void TstJournalPlayer::wait_for_end()
{
    // What was asked for begins in the next turn of the loop; a later event comes behind its end.
    bool later = false;
    QTimer::singleShot(0, this, [&later] { later = true; });
    QTRY_VERIFY(later && !workbench().console()->is_running());
}

void TstJournalPlayer::document_plays_line_by_line_on_the_console()
{
    editor()->add_document(u"# note\necho one\n\necho \\\n  two"_s);
    play_document();
    QCOMPARE(text(), u"Fennar># note\nFennar>echo one\none\nFennar>\nFennar>echo \\\nFennar>  two\n"
                     "two\nFennar>"_s);
}

void TstJournalPlayer::document_whose_first_line_is_empty_keeps_its_numbers()
{
    editor()->add_document(u"\nstep 1\nnix"_s);
    play_document();
    QVERIFY2(text().contains(u"ERROR: Untitled:3: nix: "_s), qPrintable(text()));
    QCOMPARE(mSteps, QStringList(u"1"_s));
}

void TstJournalPlayer::empty_document_plays_nothing()
{
    play_document();
    QCOMPARE(text().count(u"ERROR"_s), 0);
    QVERIFY(text().endsWith(u"Fennar>"_s));
}

void TstJournalPlayer::selection_is_numbered_as_the_editor_does()
{
    const QString path = open(u"a.jou"_s, "step 1\nstep 2\n\nnix\nstep 5\n");
    select_lines(2, 5);
    play_selection();
    QCOMPARE(mSteps, QStringList(u"2"_s));
    QVERIFY2(text().contains(u"ERROR: %1:4: nix: column 1"_s.arg(path)), qPrintable(text()));
    mSteps.clear();
    select_lines(3, 4);
    play_selection();
    QVERIFY2(text().count(u"ERROR: %1:4: nix: column 1"_s.arg(path)) == 2, qPrintable(text()));
    select_lines(1, 2);
    play_selection();
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s}));
}

void TstJournalPlayer::first_error_ends_with_file_line_and_the_way_on_data()
{
    QTest::addColumn<bool>("file");
    QTest::addColumn<bool>("modified");
    QTest::addColumn<bool>("selection");
    QTest::newRow("saved file") << true << false << false;
    QTest::newRow("file with unsaved changes") << true << true << false;
    QTest::newRow("no file") << false << true << false;
    QTest::newRow("selection") << true << false << true;
}

void TstJournalPlayer::first_error_ends_with_file_line_and_the_way_on()
{
    QFETCH(const bool, file);
    QFETCH(const bool, modified);
    QFETCH(const bool, selection);
    QString name = u"Untitled"_s;
    if (file)
        name = open(u"a b.jou"_s, "step 1\nset \\\n= 5\nstep 3\n");
    else
        editor()->add_document(u"step 1\nset \\\n= 5\nstep 3\n"_s);
    document()->document()->setModified(modified);
    select_lines(1, 4);
    selection ? play_selection() : play_document();
    const QString way = file && !modified && !selection
                            ? u"play \"%1\" 2"_s.arg(name)
                            : u"select from line 2 on in the journal editor and press Ctrl+F5"_s;
    QVERIFY2(text().endsWith(u"ERROR: %1:3: set: column 1: expected a name, found \"=\"\n"
                             "  play on with: %2\nFennar>"_s.arg(name, way)),
             qPrintable(text()));
    QCOMPARE(mSteps, QStringList(u"1"_s));
    QVERIFY(workbench().console()->error_page()->toPlainText().contains(
        u"Playing %1\nERROR: %1:3: set"_s.arg(name)));
}

void TstJournalPlayer::played_on_from_the_line_told()
{
    const QString path = open(u"a.jou"_s, "step 1\nnix\nstep 3\n");
    play_document();
    const QString command = text().section(u"play on with: "_s, 1).section(u'\n', 0, 0);
    QCOMPARE(command, u"play %1 2"_s.arg(path));
    write_temp(u"a.jou"_s, "step 1\nstep 2\nstep 3\n");
    type(command);
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s, u"3"_s}));
}

void TstJournalPlayer::python_document_goes_whole_to_python_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("head");
    QTest::newRow("by its first line") << QString() << QByteArray("#!python\n");
    QTest::newRow("by its first line, in a journal") << u"a.jou"_s << QByteArray("#!python\n");
    QTest::newRow("by its name") << u"a.py"_s << QByteArray();
}

void TstJournalPlayer::python_document_goes_whole_to_python()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, head);
    const QByteArray script =
        head + "for n in range(2):\n\n    fennar.cmd(f'step {n}')\nraise OSError('end')\n";
    if (file.isEmpty())
        editor()->add_document(QString::fromUtf8(script));
    else
        open(file, script);
    play_document();
    QCOMPARE(mSteps, QStringList({u"0"_s, u"1"_s}));
    const QString place = u"File \"%1\", line %2"_s.arg(file.isEmpty() ? u"Untitled"_s : temp_path(file))
                              .arg(head.isEmpty() ? 4 : 5);
    QVERIFY2(text().contains(place), qPrintable(text()));
    QVERIFY(!text().contains(u"play on with"_s));
}

void TstJournalPlayer::python_selection_keeps_its_line_numbers()
{
    const QString path = open(u"a.py"_s, "first = 1\nfennar.cmd('step 2')\nraise OSError('end')\nlast = 1\n");
    select_lines(2, 3);
    play_selection();
    QCOMPARE(mSteps, QStringList(u"2"_s));
    QVERIFY2(text().contains(u"File \"%1\", line 3"_s.arg(path)), qPrintable(text()));
}

void TstJournalPlayer::journal_waits_for_what_the_console_runs()
{
    editor()->add_document(u"step journal"_s);
    mAct = [this] {
        editor()->playFile();
        QCoreApplication::processEvents();
        mSteps << u"act"_s;
    };
    type(u"act"_s);
    wait_for_end();
    QCOMPARE(mSteps, QStringList({u"act"_s, u"journal"_s}));
}

void TstJournalPlayer::another_journal_is_refused_until_the_first_has_ended()
{
    editor()->add_document(u"step 1\nact\nstep 2"_s);
    mAct = [] { editor()->playFile(); };
    editor()->playFile();
    editor()->playFile();
    wait_for_end();
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s}));
    const QString refusal = u"ERROR: a journal of the editor is being played; Untitled is not\n"_s;
    QCOMPARE(text().count(refusal), 2);
    QCOMPARE(workbench().console()->error_page()->toPlainText().count(refusal.trimmed()), 2);
    mAct = nullptr;
    play_document();
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s, u"1"_s, u"2"_s}));
    QCOMPARE(text().count(refusal), 2);
}

void TstJournalPlayer::half_typed_command_stays()
{
    editor()->add_document(u"echo one"_s);
    QTest::keyClicks(page(), u"half"_s);
    play_document();
    QCOMPARE(text(), u"Fennar>echo one\none\nFennar>half"_s);
}

void TstJournalPlayer::command_that_is_not_complete_is_given_up()
{
    editor()->add_document(u"echo one"_s);
    type(u"echo never \\"_s);
    play_document();
    type(u"echo two"_s);
    QVERIFY2(text().endsWith(u"\nFennar>echo one\none\nFennar>echo two\ntwo\nFennar>"_s), qPrintable(text()));
}

void TstJournalPlayer::nothing_of_a_journal_is_in_the_history()
{
    type(u"echo before"_s);
    editor()->add_document(u"echo one"_s);
    play_document();
    QCOMPARE(workbench().console()->history().entries().last(), u"echo before"_s);
}

void TstJournalPlayer::what_runs_is_a_snapshot()
{
    const QString path = open(u"a.jou"_s, "step 1\nact\nstep 2\n");
    mAct = [this, path] {
        document()->setPlainText(u"step never"_s);
        write_temp(u"a.jou"_s, "step never\n");
    };
    editor()->playFile();
    document()->setPlainText(u"step too late"_s);
    wait_for_end();
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s}));
    QCOMPARE(document()->toPlainText(), u"step never"_s);
}

void TstJournalPlayer::progress_is_shown_and_taken_down_data()
{
    QTest::addColumn<QString>("last");
    QTest::newRow("journal that ends") << u"step 3"_s;
    QTest::newRow("journal that fails") << u"nix"_s;
}

void TstJournalPlayer::progress_is_shown_and_taken_down()
{
    QFETCH(const QString, last);
    const int idle = bar()->value();
    QList<int> seen;
    mAct = [&seen] { seen << bar()->value(); };
    editor()->add_document(u"act\nact\nact\n# 34567890\n"_s + last);
    play_document();
    QCOMPARE(seen.size(), 3);
    QCOMPARE(seen.first(), idle);
    QVERIFY(seen[1] > 0 && seen[1] < seen[2] && seen[2] < 100);
    QCOMPARE(bar()->value(), idle);
}

void TstJournalPlayer::pause_button_holds_the_journal_and_says_where()
{
    editor()->add_document(u"step 1\nact\n\nstep 2\n"_s);
    QTimer resume;
    connect(&resume, &QTimer::timeout, this, [&] {
        // A turn of the loop may come before the journal waits.
        if (!text().contains(u"Paused ahead"_s))
            return;
        resume.stop();
        mSteps << u"waits"_s;
        pause()->trigger();
    });
    mAct = [&resume] {
        pause()->trigger();
        resume.start(0);
    };
    play_document();
    QCOMPARE(mSteps, QStringList({u"1"_s, u"waits"_s, u"2"_s}));
    QCOMPARE(text().count(u"Paused ahead of Untitled:3\n"_s), 1);
}

void TstJournalPlayer::cancel_ends_a_pause_and_releases_the_button()
{
    const QString path = open(u"a.jou"_s, "step 1\nact\nstep 2\n");
    mAct = [this] {
        pause()->trigger();
        QTimer::singleShot(0, this,
                           [] { Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s)->click(); });
    };
    play_document();
    QCOMPARE(mSteps, QStringList(u"1"_s));
    QVERIFY(!pause()->isChecked());
    QVERIFY2(text().endsWith(u"Interrupted: %1:2\n  play on with: play %1 3\nFennar>"_s.arg(path)),
             qPrintable(text()));
}

void TstJournalPlayer::directory_is_changed_as_the_option_says_data()
{
    QTest::addColumn<bool>("change");
    QTest::addColumn<bool>("selection");
    QTest::addColumn<QByteArray>("last");
    for (const bool change : {true, false}) {
        for (const bool selection : {true, false}) {
            for (const char* last : {"step end", "nix", "act"}) {
                QTest::addRow("%s, %s, %s", change ? "on" : "off", selection ? "selection" : "document",
                              last[0] == 's'   ? "to the end"
                              : last[0] == 'n' ? "to an error"
                                               : "cancelled")
                    << change << selection << QByteArray(last);
            }
        }
    }
}

void TstJournalPlayer::directory_is_changed_as_the_option_says()
{
    QFETCH(const bool, change);
    QFETCH(const bool, selection);
    QFETCH(const QByteArray, last);
    Broker::instance()->set_change_dir_on_playback(change);
    const QString before = QDir::currentPath();
    QStringList seen;
    mAct = [&seen] {
        seen << QDir::currentPath();
        if (seen.size() == 2)
            Ostrel::instance()->cancel_progress();
    };
    open(u"a.jou"_s, "act\n" + last + "\n");
    select_lines(1, 2);
    selection ? play_selection() : play_document();
    QVERIFY(!seen.isEmpty());
    QCOMPARE(seen.first(), change ? QDir(temp_directory()).canonicalPath() : before);
    QCOMPARE(QDir::currentPath(), before);
    QCOMPARE(text().contains(u"Interrupted: "_s), last == "act");
}

void TstJournalPlayer::missing_directory_of_a_document_ends_it()
{
    Broker::instance()->set_change_dir_on_playback(true);
    QVERIFY(QDir(temp_directory()).mkdir(u"gone"_s));
    const QString path = open(u"gone/a.jou"_s, "step 1\n");
    QVERIFY(QDir(temp_path(u"gone"_s)).removeRecursively());
    play_document();
    QCOMPARE(mSteps, QStringList());
    QVERIFY2(text().contains(u"ERROR: cannot change to the directory \"%1\" of \"%2\"\n"_s.arg(
                 temp_path(u"gone"_s), path)),
             qPrintable(text()));
}

void TstJournalPlayer::play_action_asks_for_a_file_and_plays_it_data()
{
    QTest::addColumn<bool>("python");
    QTest::newRow("command mode") << false;
    QTest::newRow("Python mode") << true;
}

void TstJournalPlayer::play_action_asks_for_a_file_and_plays_it()
{
    QFETCH(const bool, python);
    python_mode(python);
    QVERIFY(QDir(temp_directory()).mkdir(u"it's"_s));
    const QString path = write_temp(u"it's/a b.jou"_s, "step 1\n");
    OstrelFileMenu::set_path(temp_directory());
    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        choose(dialog, path);
    });
    Ostrel::instance()->tools_menu()->play_action()->trigger();
    QVERIFY(driver.finish());
    wait_for_end();
    QCOMPARE(mSteps, QStringList(u"1"_s));
    QCOMPARE(asked.caption, u"Play Journal File"_s);
    QCOMPARE(asked.directory, temp_directory());
    QCOMPARE(asked.filters, QStringList({u"Journal Files (*.jou *.py)"_s, u"All Files (*.*)"_s}));
    QCOMPARE(asked.file_mode, QFileDialog::ExistingFile);
    QCOMPARE(QDir(OstrelFileMenu::mPath), QDir(temp_path(u"it's"_s)));
    QVERIFY(workbench().console()->history().entries().last().contains(u"play "_s));
}

void TstJournalPlayer::play_action_with_no_answer_does_nothing()
{
    OstrelFileMenu::set_path(temp_directory());
    DialogDriver driver;
    driver.expect<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    Ostrel::instance()->tools_menu()->play_action()->trigger();
    QVERIFY(driver.finish());
    wait_for_end();
    QCOMPARE(text(), u"Fennar>"_s);
    QCOMPARE(OstrelFileMenu::mPath, temp_directory());
}

void TstJournalPlayer::action_for_journals_without_ids_is_hidden()
{
    const auto* action = Ostrel::instance()->findChild<QAction*>(u"mPlayFennarAction"_s);
    QVERIFY(action && !action->isVisible());
}

void TstJournalPlayer::import_menu_offers_the_pages()
{
    type(u"echo one"_s);
    const auto items = editor()->findChild<QMenu*>(u"fileImportMenu"_s)->actions();
    QCOMPARE(items.size(), 2);
    items[0]->trigger();
    QCOMPARE(document()->toPlainText(), u"echo one\n"_s);
    items[1]->trigger();
    QCOMPARE(document()->toPlainText(), workbench().console()->error_page()->toPlainText());
}

void TstJournalPlayer::example_journals_play_data()
{
    QTest::addColumn<QString>("file");
    const QFileInfoList files =
        QDir(QStringLiteral(JOURNALS)).entryInfoList({u"*.jou"_s, u"*.py"_s}, QDir::Files, QDir::Name);
    bool journal = false;
    bool python = false;
    for (const QFileInfo& file : files) {
        // The tour ends the application and has a test of its own.
        if (file.fileName() == u"tour.jou"_s)
            continue;
        // They need a component; other tests play them.
        if (file.fileName().startsWith(u"plate"_s) || file.fileName().startsWith(u"flange"_s))
            continue;
        (file.suffix() == u"py"_s ? python : journal) = true;
        QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath();
    }
    if (!journal || !python)
        qFatal("no example journals");
}

void TstJournalPlayer::example_journals_play()
{
    QFETCH(const QString, file);
    QTemporaryDir place;
    const QString before = QDir::currentPath();
    // What an example writes goes to the current directory.
    QVERIFY(QDir::setCurrent(place.path()));
    const QString errors = workbench().console()->error_page()->toPlainText();
    type(u"play '%1'"_s.arg(file));
    wait_for_end();
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(workbench().console()->error_page()->toPlainText(), errors);
    // Each ends with a line that says so.
    QVERIFY2(text().endsWith(u"\nThat was %1.\nFennar>"_s.arg(QFileInfo(file).fileName())),
             qPrintable(text()));
    // From the editor it does the same.
    page()->clearToPrompt();
    editor()->open_file(file);
    QVERIFY(QDir::setCurrent(place.path()));
    play_document();
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(workbench().console()->error_page()->toPlainText(), errors);
    QVERIFY2(text().contains(u"\nThat was %1.\n"_s.arg(QFileInfo(file).fileName())), qPrintable(text()));
}

void TstJournalPlayer::closing_the_editor_waits_for_the_run_only_if_it_asks_data()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("unsaved changes") << true;
    QTest::newRow("nothing to ask") << false;
}

void TstJournalPlayer::closing_the_editor_waits_for_the_run_only_if_it_asks()
{
    QFETCH(const bool, modified);
    editor()->show();
    editor()->add_document(u"step 1\nact\nstep 2"_s);
    document()->document()->setModified(modified);
    bool open_while_running = false;
    mAct = [&] {
        editor()->close();
        open_while_running = editor()->isVisible();
    };
    DialogDriver driver;
    if (modified)
        driver.expect(u"OstrelMessageBox"_s, press(u"mNoButton"_s));
    play_document();
    QTRY_VERIFY(!editor()->isVisible());
    QVERIFY(driver.finish());
    QCOMPARE(open_while_running, modified);
    QCOMPARE(mSteps, QStringList({u"1"_s, u"2"_s}));
}

void TstJournalPlayer::closing_the_window_asks_when_the_run_has_ended()
{
    editor()->show();
    editor()->add_document(u"step 1\nact\nstep 2"_s);
    bool running_when_asked = true;
    mAct = [] { Ostrel::instance()->close(); };
    DialogDriver driver;
    driver.expect(u"OstrelMessageBox"_s, [&](QWidget* box) {
        running_when_asked = workbench().console()->is_running();
        press(u"mCancelButton"_s)(box);
    });
    play_document();
    QTRY_COMPARE(driver.seen().size(), 1);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QVERIFY(driver.finish());
    QVERIFY(!running_when_asked);
    QVERIFY(Ostrel::instance()->isVisible());
    QVERIFY(editor()->isVisible());
    QCOMPARE(mSteps, QStringList(u"1"_s));
    QVERIFY2(text().contains(u"Interrupted: Untitled:2\n"_s), qPrintable(text()));
    editor()->hide();
}

void TstJournalPlayer::indented_python_selection_plays()
{
    const QString path =
        open(u"a.py"_s, "def f():\n    for n in range(2):\n        fennar.cmd(f'step {n}')\n"
                        "    text = \"\"\"\n  kept\n\"\"\"\n    fennar.cmd('step ' + repr(text))\n"
                        "    raise OSError('end')\n");
    select_lines(2, 8);
    play_selection();
    QCOMPARE(mSteps.mid(0, 2), QStringList({u"0"_s, u"1"_s}));
    QVERIFY2(text().contains(u"File \"%1\", line 8"_s.arg(path)), qPrintable(text()));
    QVERIFY2(text().contains(u"OSError: end"_s), qPrintable(text()));
    // The first line of a document may be indented as well.
    mSteps.clear();
    editor()->add_document(u"    fennar.cmd('step first')\n#!python\n"_s);
    open(u"b.py"_s, "    fennar.cmd('step first')\n");
    select_lines(1, 1);
    play_selection();
    QCOMPARE(mSteps, QStringList(u"first"_s));
}

void TstJournalPlayer::selection_that_cannot_move_to_the_left_says_so()
{
    const QString path = open(u"a.py"_s, "if True:\n    fennar.cmd('step 2')\nfennar.cmd('step 3')\n");
    select_lines(2, 3);
    play_selection();
    QCOMPARE(mSteps, QStringList());
    QVERIFY2(text().contains(u"File \"%1\", line 3"_s.arg(path)), qPrintable(text()));
    QVERIFY2(text().contains(u"this one begins further left than the first"_s), qPrintable(text()));
}

void TstJournalPlayer::script_shows_progress_and_can_be_paused()
{
    // A loop that lasts until it is told to end: turns come about ten times a second.
    editor()->add_document(u"#!python\nx = 1\nx = 2\nx = 3\nended = False\n"
                           "while not ended: fennar.cmd('act')\nfennar.cmd('step end')\n"_s);
    QList<int> seen;
    bool resumed = false;
    QTimer resume;
    connect(&resume, &QTimer::timeout, this, [&] {
        if (!text().contains(u"Paused in"_s))
            return;
        resume.stop();
        mSteps << u"waits"_s;
        pause()->trigger();
        resumed = true;
    });
    mAct = [&] {
        const int value = bar()->value();
        if (value > 0 && value < 100 && seen.isEmpty()) {
            seen << value;
            pause()->trigger();
            resume.start(0);
        }
        if (resumed)
            Fennar::instance().interpreter().run(u"python 'ended = True'"_s);
    };
    play_document();
    QCOMPARE(seen, QList<int>{62}); // line 6 of 8, as an empty one ends it: five are done
    QCOMPARE(mSteps, QStringList({u"waits"_s, u"end"_s}));
    QVERIFY2(text().contains(u"Paused in Untitled:6\n"_s), qPrintable(text()));
}

void TstJournalPlayer::script_can_be_cancelled_while_it_pauses()
{
    const QString path = open(u"a.py"_s, "while True: fennar.cmd('act')\n");
    bool cancelled = false;
    QTimer cancel;
    connect(&cancel, &QTimer::timeout, this, [&] {
        if (!text().contains(u"Paused in"_s))
            return;
        cancel.stop();
        cancelled = true;
        Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s)->click();
    });
    mAct = [&] {
        if (!pause()->isChecked() && !cancelled) {
            pause()->trigger();
            cancel.start(0);
        }
    };
    play_document();
    QVERIFY(cancelled);
    QVERIFY2(text().contains(u"KeyboardInterrupt"_s), qPrintable(text()));
    QVERIFY2(text().endsWith(u"Interrupted: %1\nFennar>"_s.arg(path)), qPrintable(text()));
    QVERIFY(!pause()->isChecked());
}

void TstJournalPlayer::error_leads_to_its_line_in_the_editor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");
    QTest::newRow("journal") << u"a.jou"_s << QByteArray("step 1\nstep 2\nnix\nstep 4\n") << 3;
    QTest::newRow("script") << u"a.py"_s << QByteArray("x = 1\nraise OSError('end')\n") << 2;
    QTest::newRow("far down") << u"a.jou"_s << QByteArray("step 1\n").repeated(500) + "nix\n" << 501;
    QTest::newRow("without a file") << QString() << QByteArray("step 1\nnix\n") << 2;
}

void TstJournalPlayer::error_leads_to_its_line_in_the_editor()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const int, line);
    if (name.isEmpty())
        editor()->add_document(QString::fromUtf8(content));
    else
        open(name, content);
    QPlainTextEdit* played = document();
    const int count = tabs()->count();
    play_document();
    editor()->fileNew();
    editor()->hide();
    QVERIFY(document() != played);
    activate_last_error();
    QVERIFY(editor()->isVisible());
    QCOMPARE(document(), played);
    QCOMPARE(tabs()->count(), count + 1);
    QCOMPARE(played->textCursor().blockNumber() + 1, line);
    QCOMPARE(played->textCursor().selectedText(), played->textCursor().block().text());
    QVERIFY(played->viewport()->rect().contains(played->cursorRect().center()));
    editor()->hide();
}

void TstJournalPlayer::error_of_a_file_that_is_not_open_opens_it()
{
    QVERIFY(QDir().mkdir(temp_path(u"sub"_s)));
    const QString inner = write_temp(u"sub/inner.jou"_s, "step 1\nnix\n");
    write_temp(u"sub/outer.jou"_s, "play inner.jou\n");
    // Relative names mean what they meant when the error came.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(temp_directory()));
    Broker::instance()->set_change_dir_on_playback(true);
    type(u"play sub/outer.jou"_s);
    wait_for_end();
    QVERIFY(QDir::setCurrent(before));
    ErrorPage* errors = workbench().console()->error_page();
    const auto place = errors->place_at(errors->document()->find(u"inner.jou:2:"_s).block());
    QVERIFY(place.has_value());
    QCOMPARE(place->file, inner);
    activate_last_error(u"inner.jou:2:"_s);
    QVERIFY2(editor()->windowTitle().startsWith(inner), qPrintable(editor()->windowTitle()));
    QCOMPARE(document()->textCursor().selectedText(), u"nix"_s);
    // A second time the same tab is found again.
    const int count = tabs()->count();
    editor()->fileNew();
    activate_last_error(u"inner.jou:2:"_s);
    QCOMPARE(tabs()->count(), count + 1);
    QCOMPARE(document()->textCursor().selectedText(), u"nix"_s);
    editor()->hide();
}

void TstJournalPlayer::errors_lead_to_journals_and_not_to_the_library_of_python()
{
    QVERIFY(QDir(temp_directory()).mkpath(u"lib/python"_s));
    write_temp(u"lib/python/own.py"_s, "import json\njson.loads('nix')\n");
    type(u"play \"%1\""_s.arg(temp_path(u"lib/python/own.py"_s)));
    wait_for_end();
    const ErrorPage* errors = workbench().console()->error_page();
    QStringList linked;
    for (QTextBlock block = errors->document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (piece.fragment().charFormat().fontUnderline())
                linked << piece.fragment().text();
        }
    }
    QVERIFY2(errors->toPlainText().contains(u"json/decoder.py\", line "_s),
             qPrintable(errors->toPlainText()));
    QCOMPARE(linked.size(), 1);
    QVERIFY2(linked[0].contains(u"lib/python/own.py\", line 2"_s), qPrintable(linked[0]));
}

void TstJournalPlayer::error_of_a_document_that_is_closed_is_told()
{
    editor()->add_document(u"step 1\nnix\n"_s);
    play_document();
    document()->document()->setModified(false);
    editor()->fileNew();
    tabs()->setCurrentIndex(tabs()->count() - 2);
    editor()->close_tab(tabs()->currentIndex());
    DialogDriver driver;
    driver.expect<QMessageBox>([](QMessageBox* box) { box->accept(); });
    activate_last_error();
    QVERIFY(driver.finish());
    QVERIFY(!editor()->isVisible());
}

void TstJournalPlayer::line_that_is_gone_leads_to_the_last_one()
{
    open(u"a.jou"_s, "step 1\nstep 2\nnix\n");
    play_document();
    document()->setPlainText(u"step 1"_s);
    activate_last_error();
    QCOMPARE(document()->textCursor().selectedText(), u"step 1"_s);
    editor()->hide();
}

void TstJournalPlayer::example_in_python_is_the_translation_of_its_journal()
{
    const QString folder = QStringLiteral(JOURNALS);
    editor()->open_file(folder + u"/plate.jou"_s);
    editor()->pythonizeFile();
    QFile file(folder + u"/plate.py"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    // The editor leaves an empty line at the end.
    const QString translated = document()->toPlainText().trimmed();
    const QString shipped = QString::fromUtf8(file.readAll()).trimmed();
    QVERIFY2(translated == shipped, qPrintable(translated.right(60)));
}

OSTREL_TEST(TstJournalPlayer)
#include "tst_journalplayer.moc"
