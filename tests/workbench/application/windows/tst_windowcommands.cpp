// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/navigation/TaskPanel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "support/FullDisk.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <sys/stat.h>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The commands that open and photograph windows, in the whole application. */
class TstWindowCommands : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void tear_down() override;

private slots:
    void window_is_shown_photographed_and_hidden_data();
    void window_is_shown_photographed_and_hidden();
    void page_of_the_options_is_named_or_numbered();
    void options_hold_no_command_up();
    void journal_is_opened_in_the_editor();
    void folded_line_is_opened_in_the_editor();
    void typed_text_goes_into_the_journal();
    void form_of_a_command_is_shown();
    void picture_that_cannot_be_written_whole_leaves_the_old_one();
    void picture_does_not_wait_for_the_reader_of_a_pipe();
    void later_picture_shows_what_is_there_then();
    void later_picture_of_a_modal_dialog_is_taken_while_it_waits();
    void later_picture_that_fails_is_told();
    void later_picture_goes_to_the_directory_of_its_command();
    void picture_waits_for_shapes_and_no_longer_when_cancelled();
    void played_command_without_output_is_scrolled_to();
    void wrong_words_are_named_data();
    void wrong_words_are_named();

private:
    static QString current_page()
    {
        const auto* list = Ostrel::instance()->options()->findChild<QTreeWidget*>(u"mOptionList"_s);
        return list->currentItem() ? list->currentItem()->text(0) : QString();
    }
};

void TstWindowCommands::tear_down()
{
    for (const char* name : {"editor", "options", "plugins", "about"})
        enter(u"hide "_s + QLatin1StringView(name));
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void TstWindowCommands::window_is_shown_photographed_and_hidden_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::newRow("editor") << u"editor"_s << u"JournalEditor"_s;
    QTest::newRow("options") << u"options"_s << u"OptionsPanel"_s;
    QTest::newRow("plugins") << u"plugins"_s << u"ComponentTool"_s;
    QTest::newRow("about") << u"about"_s << u"HelpAboutOstrel"_s;
}

void TstWindowCommands::window_is_shown_photographed_and_hidden()
{
    QFETCH(const QString, name);
    QFETCH(const QString, type);
    const QString file = temp_path(u"a.png"_s);
    const QString picture = u"picture \"%1\" of %2"_s.arg(file, name);
    const QString refused = enter(picture);
    QVERIFY2(refused.contains(u"ERROR: picture: column 1: the window is not shown"_s), qPrintable(refused));
    QVERIFY(!QFile::exists(file));

    const QString shown = enter(u"show "_s + name);
    QVERIFY2(!shown.contains(u"ERROR"_s), qPrintable(shown));
    QWidget* window = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* candidate : windows) {
        if (candidate->isVisible() && candidate->inherits(type.toLatin1().constData()))
            window = candidate;
    }
    QVERIFY(window);
    QVERIFY(!window->isModal());

    if (name == "about"_L1) {
        const auto labels = window->findChildren<QLabel*>();
        QVERIFY(std::any_of(labels.begin(), labels.end(),
                            [](const QLabel* l) { return l->text().contains(u"Fennar"); }));
    }
    enter(picture);
    QCOMPARE(QImage(file).size(), window->size());
    enter(u"picture \"%1\""_s.arg(file)); // which is the main window, whatever is active
    QCOMPARE(QImage(file).size(), Ostrel::instance()->size());

    enter(u"hide "_s + name);
    QVERIFY(!window->isVisible());
    QVERIFY2(!enter(u"hide "_s + name).contains(u"ERROR"_s), "a hidden window is hidden");
}

void TstWindowCommands::page_of_the_options_is_named_or_numbered()
{
    enter(u"show options"_s);
    QCOMPARE(current_page(), u"General"_s);
    enter(u"show options Layout"_s);
    QCOMPARE(current_page(), u"Layout"_s);
    enter(u"show options"_s); // it is shown already, and stays as it is
    QCOMPARE(current_page(), u"Layout"_s);
    enter(u"show options 1"_s);
    QCOMPARE(current_page(), u"General"_s);
    const QStringList pages = Fennar::instance().registry().entities().names(u"options page"_s);
    QCOMPARE(pages.value(0), u"General"_s);
    for (const QString& page : pages) {
        QVERIFY2(!enter(u"show options \"%1\""_s.arg(page)).contains(u"ERROR"_s), qPrintable(page));
        QCOMPARE(current_page(), page.section(u'/', -1));
    }
    enter(u"hide options"_s);
    enter(u"show options 2"_s);
    QCOMPARE(current_page(), u"Journal Editor"_s);
}

void TstWindowCommands::options_hold_no_command_up()
{
    const QString journal = write_temp(u"a.jou"_s, "show options\necho behind it\n");
    const QString text = enter(u"play \"%1\""_s.arg(journal));
    QVERIFY2(text.contains(u"\nbehind it\n"_s), qPrintable(text));
    QVERIFY(Ostrel::instance()->options()->isVisible());
    // It can be used as ever.
    auto* panel = Ostrel::instance()->options();
    QVERIFY(panel->isEnabled());
    enter(u"hide options"_s);
    bool modal = false;
    QTimer::singleShot(0, panel, [&] {
        modal = panel->isModal();
        panel->close();
    });
    panel->show_panel(u"General"_s);
    QVERIFY(modal);
}

void TstWindowCommands::journal_is_opened_in_the_editor()
{
    const QString file = write_temp(u"with blank.jou"_s, "echo one\n");
    const QString text = enter(u"edit \"%1\""_s.arg(file));
    QVERIFY2(!text.contains(u"ERROR"_s), qPrintable(text));
    JournalEditor* editor = Ostrel::instance()->journal_editor();
    QVERIFY(editor->isVisible());
    const auto* tabs = editor->findChild<QTabWidget*>(u"mDocTab"_s);
    QCOMPARE(tabs->tabText(tabs->currentIndex()), u"with blank.jou"_s);
    QVERIFY(qobject_cast<QPlainTextEdit*>(tabs->currentWidget())->toPlainText().startsWith(u"echo one"_s));
    const QString missing = enter(u"edit /no/such.jou"_s);
    QVERIFY2(missing.contains(u"ERROR: edit: column 6: cannot read \"/no/such.jou\""_s), qPrintable(missing));
    QVERIFY(enter(u"edit /"_s).contains(u"ERROR: edit: column 6: cannot read"_s));
}

void TstWindowCommands::folded_line_is_opened_in_the_editor()
{
    const QString line = u"x"_s.repeated(10'000);
    const QString shown = enter(u"echo "_s + line);
    const QRegularExpressionMatch mark =
        QRegularExpression(u"\\[10000 characters; \"(edit line \\d+)\" shows"_s).match(shown);
    QVERIFY2(mark.hasMatch(), qPrintable(shown.right(200)));
    enter(mark.captured(1));
    JournalEditor* editor = Ostrel::instance()->journal_editor();
    QVERIFY(editor->isVisible());
    const auto documents = editor->findChildren<QPlainTextEdit*>();
    QVERIFY(std::any_of(documents.begin(), documents.end(), [&](const QPlainTextEdit* document) {
        return document->isVisible() && document->toPlainText() == line;
    }));
    QVERIFY(enter(u"edit line 1000"_s).contains(u"there is no such line, or it is no longer kept"_s));
    QVERIFY(enter(u"edit line x"_s).contains(u"expected the number of a folded line"_s));
    for (QPlainTextEdit* document : documents)
        document->document()->setModified(false);
    editor->close();
}

void TstWindowCommands::typed_text_goes_into_the_journal()
{
    JournalEditor* editor = Ostrel::instance()->journal_editor();
    const auto* tabs = editor->findChild<QTabWidget*>(u"mDocTab"_s);
    const auto type = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(editor->windowHandle(), key, modifiers);
    };
    const auto text = [&] { return qobject_cast<QPlainTextEdit*>(tabs->currentWidget())->toPlainText(); };
    const bool prompt = JournalEditor::do_save_prompt();
    JournalEditor::set_save_prompt(false);
    const auto restore = qScopeGuard([&] {
        enter(u"hide editor"_s);
        JournalEditor::set_save_prompt(prompt);
    });

    Ostrel::instance()->tools_menu()->show_journal_editor();
    QVERIFY(show_active(editor));
    editor->fileNew();
    type(Qt::Key_A);
    QCOMPARE(text(), u"a"_s);
    const int count = tabs->count();
    type(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(tabs->count(), count + 1);
    type(Qt::Key_B);
    QCOMPARE(text(), u"b"_s);
    enter(u"edit \"%1\""_s.arg(write_temp(u"a.jou"_s, "echo a")));
    QVERIFY(show_active(editor));
    type(Qt::Key_C);
    QCOMPARE(text().first(7), u"cecho a"_s);
    editor->fileClose();
    type(Qt::Key_D);
    QCOMPARE(text(), u"bd"_s);
    // Who goes through the tabs with the arrow keys stays there.
    tabs->tabBar()->setFocus();
    type(Qt::Key_Left);
    QCOMPARE(text(), u"a"_s);
    QVERIFY(tabs->tabBar()->hasFocus());

    enter(u"hide editor"_s);
    QVERIFY(!editor->isVisible());
    Ostrel::instance()->tools_menu()->show_journal_editor();
    QVERIFY(show_active(editor));
    const QString before = text();
    type(Qt::Key_E);
    QCOMPARE(text(), u'e' + before);
}

void TstWindowCommands::form_of_a_command_is_shown()
{
    const Ostrel* window = Ostrel::instance();
    auto* dock = window->findChild<QDockWidget*>(u"FennarCommandPanel"_s);
    dock->hide();
    for (const QString& name : {u"history"_s, u"set"_s}) {
        const QString text = enter(u"form "_s + name);
        QVERIFY2(!text.contains(u"ERROR"_s), qPrintable(text));
        QVERIFY(dock->isVisible());
        QCOMPARE(window->command_buttons()->current_index().data(NavigationRole::Command).toString(), name);
    }
    const QString unknown = enter(u"form hisory"_s);
    QVERIFY2(unknown.contains(u"did you mean \"history\"?"_s), qPrintable(unknown));
    Fennar::instance().registry().add(plain_command(u"nowhere"_s, {}, [](CommandCall&) {}));
    const QString no_entry = enter(u"form nowhere"_s);
    QVERIFY2(no_entry.contains(u"ERROR: form: column 6: the command panel has no entry for \"nowhere\""_s),
             qPrintable(no_entry));
    Fennar::instance().registry().remove(u"nowhere"_s);
}

void TstWindowCommands::picture_that_cannot_be_written_whole_leaves_the_old_one()
{
    const QString file = temp_path(u"full.png"_s);
    enter(u"picture \"%1\""_s.arg(file));
    QCOMPARE(QImage(file).size(), Ostrel::instance()->size());
    {
        const FullDisk disk(100);
        const QString answer = enter(u"picture \"%1\""_s.arg(file));
        QVERIFY2(answer.contains(u"cannot be written to \"%1\": File too large"_s.arg(file)),
                 qPrintable(answer));
    }
    QCOMPARE(QImage(file).size(), Ostrel::instance()->size());
}

void TstWindowCommands::picture_does_not_wait_for_the_reader_of_a_pipe()
{
    const QString file = temp_path(u"pipe.png"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
    const QString answer = enter(u"picture \"%1\""_s.arg(file));
    QVERIFY2(answer.contains(u"cannot be written to \"%1\": No such device"_s.arg(file)), qPrintable(answer));
}

void TstWindowCommands::later_picture_shows_what_is_there_then()
{
    const QString file = temp_path(u"later.png"_s);
    enter(u"picture \"%1\" of editor after 0.2"_s.arg(file)); // it is not shown yet
    QVERIFY(!QFile::exists(file));
    enter(u"show editor"_s);
    QTRY_COMPARE(QImage(file).size(), Ostrel::instance()->journal_editor()->size());
}

void TstWindowCommands::later_picture_of_a_modal_dialog_is_taken_while_it_waits()
{
    const QString file = temp_path(u"modal.png"_s);
    enter(u"picture \"%1\" of active after 0.05"_s.arg(file));
    QDialog dialog(Ostrel::instance());
    dialog.resize(321, 123);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &dialog, [&] {
        if (QFile::exists(file))
            dialog.close();
    });
    poll.start(5);
    dialog.exec();
    QCOMPARE(QImage(file).size(), QSize(321, 123));
}

void TstWindowCommands::later_picture_that_fails_is_told()
{
    enter(u"picture /no/such/directory/a.png after 0"_s);
    QTRY_VERIFY(page()->toPlainText().contains(
        u"ERROR: picture: the picture cannot be written to \"/no/such/directory/a.png\": No such "
        "file or directory\n"_s));
    enter(u"picture \"%1\" of about after 0"_s.arg(temp_path(u"a.png"_s)));
    QTRY_VERIFY(page()->toPlainText().contains(u"ERROR: picture: the window \"about\" is not shown\n"_s));
    QVERIFY(workbench().console()->error_page()->toPlainText().contains(u"\"about\" is not shown"_s));
}

void TstWindowCommands::later_picture_goes_to_the_directory_of_its_command()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(temp_directory()));
    enter(u"picture here.png after 0.05"_s);
    QVERIFY(QDir::setCurrent(before));
    QTRY_VERIFY(QFile::exists(temp_path(u"here.png"_s)));
}

void TstWindowCommands::picture_waits_for_shapes_and_no_longer_when_cancelled()
{
    Scene& scene = Scene::instance();
    scene.begin_work();
    const QString file = temp_path(u"a.png"_s);
    bool early = false;
    QTimer tick;
    int turns = 0;
    connect(&tick, &QTimer::timeout, this, [&] {
        if (turns == 10)
            return;
        early = early || QFile::exists(file);
        if (++turns == 10)
            scene.end_work();
    });
    tick.start(0);
    enter(u"picture \"%1\""_s.arg(file));
    tick.stop();
    QCOMPARE(turns, 10);
    QVERIFY(!early);
    QVERIFY(QFile::exists(file));

    scene.begin_work();
    QTimer cancel;
    connect(&cancel, &QTimer::timeout, this, [&] {
        if (!workbench().console()->is_running())
            return;
        cancel.stop();
        Ostrel::instance()->cancel_progress();
    });
    cancel.start(0);
    enter(u"picture \"%1\""_s.arg(temp_path(u"b.png"_s)));
    QVERIFY(!workbench().console()->is_running());
    scene.end_work();
}

void TstWindowCommands::played_command_without_output_is_scrolled_to()
{
    QByteArray lines;
    for (int i = 0; i < 100; ++i)
        lines += "set number " + QByteArray::number(i) + '\n';
    const QScrollBar* bar = page()->verticalScrollBar();
    int height = 0;
    int distance = -1;
    Fennar::instance().registry().add(plain_command(u"measure"_s, {}, [&](CommandCall&) {
        // On a slow machine lines are gathered.
        OutputRouter::instance().flush();
        height = bar->maximum();
        distance = bar->maximum() - bar->value();
    }));
    enter(u"play \"%1\""_s.arg(write_temp(u"quiet.jou"_s, lines + "measure\n")));
    Fennar::instance().registry().remove(u"measure"_s);
    QVERIFY2(height > 50, qPrintable(QString::number(height)));
    QCOMPARE(distance, 0);
}

void TstWindowCommands::wrong_words_are_named_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    QTest::newRow("no window")
        << u"show"_s
        << u"show: column 5: expected \"main\", \"editor\", \"options\", \"plugins\" or \"about\""_s;
    QTest::newRow("unknown window") << u"show help"_s << u"show: column 6: expected \"main\", \"editor\""_s;
    QTest::newRow("unknown page") << u"show options Nothing"_s
                                  << u"show: column 14: expected a page of the options or the end"_s;
    QTest::newRow("page 0") << u"show options 0"_s << u"show: column 14: expected a page"_s;
    QTest::newRow("page 99") << u"show options 99"_s << u"show: column 14: expected a page"_s;
    QTest::newRow("page of another window") << u"show editor 1"_s << u"show: column 13: expected the end"_s;
    QTest::newRow("word behind the page") << u"show options 1 2"_s << u"show: column 16: expected the end"_s;
    QTest::newRow("main window stays") << u"hide main"_s << u"hide: column 6: expected \"editor\""_s;
    QTest::newRow("no file") << u"edit"_s
                             << u"edit: column 5: expected the name of a journal file or \"line\""_s;
    QTest::newRow("no command") << u"form"_s << u"form: column 5: expected a command"_s;
    QTest::newRow("no picture") << u"picture"_s
                                << u"picture: column 8: expected the name of a picture file"_s;
    QTest::newRow("empty name") << u"picture ''"_s
                                << u"picture: column 9: expected the name of a picture file"_s;
    QTest::newRow("no word") << u"picture a.png editor"_s
                             << u"picture: column 15: expected \"of\", \"after\" or the end"_s;
    QTest::newRow("unknown picture") << u"picture a.png of help"_s
                                     << u"picture: column 18: expected \"main\""_s;
    QTest::newRow("no time") << u"picture a.png after"_s
                             << u"picture: column 20: expected a number of seconds"_s;
    QTest::newRow("past") << u"picture a.png after -1"_s
                          << u"picture: column 21: expected a number of seconds"_s;
    QTest::newRow("too late") << u"picture a.png after 3601"_s << u"picture: column 21: expected a number"_s;
    QTest::newRow("twice") << u"picture a.png after 1 after 2"_s
                           << u"picture: column 23: expected \"of\" or the end"_s;
    QTest::newRow("no place") << u"picture /no/such/a.png"_s
                              << u"picture: column 9: the picture cannot be written to"_s;
    QTest::newRow("no format") << u"picture /tmp/a.nothing"_s
                               << u"picture: column 9: the ending of the file tells no format of pictures"_s;
}

void TstWindowCommands::wrong_words_are_named()
{
    QFETCH(const QString, line);
    QFETCH(const QString, answer);
    const QString text = enter(line);
    QVERIFY2(text.contains(u"ERROR: "_s + answer), qPrintable(text));
}

OSTREL_TEST(TstWindowCommands)
#include "tst_windowcommands.moc"
