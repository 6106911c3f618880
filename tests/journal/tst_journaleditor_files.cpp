// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "editor_helpers.h"
#include "files/OstrelFileMenu.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/** What the question about unsaved changes shows. */
struct Question
{
    QString title;
    QString text;
    QStringList buttons;
    QString box;
    bool ticked = true;
};

Question question_of(const QWidget* dialog)
{
    Question question;
    question.title = dialog->windowTitle();
    question.text = dialog->findChild<QLabel*>(u"mMessage"_s)->text();
    for (const auto* name : {"mYesButton", "mNoButton", "mCancelButton"}) {
        const auto* button = dialog->findChild<QPushButton*>(QString::fromLatin1(name));
        if (button->isVisible())
            question.buttons << button->text();
    }
    const auto* box = dialog->findChild<QCheckBox*>(u"mPrompt"_s);
    question.box = box->text();
    question.ticked = box->isChecked();
    return question;
}

const auto yes = u"mYesButton"_s;
const auto no = u"mNoButton"_s;
const auto cancel = u"mCancelButton"_s;

/** Answers the question about unsaved changes with a button, after ticking its box if asked to. */
DialogDriver::Act answer(const QString& button, bool tick = false)
{
    return [button, tick](QWidget* dialog) {
        if (tick)
            dialog->findChild<QCheckBox*>(u"mPrompt"_s)->setChecked(true);
        press(button)(dialog);
    };
}

const auto unsaved_box = u"QtMessageSettingBox"_s;

/** What a message box says: "title: text [buttons]". */
QString describe(const QMessageBox* box)
{
    return box->windowTitle() + u": "_s + box->text() + u" ["_s +
           QString::number(int(box->standardButtons()), 16) + u']';
}

QString ok_only(const QString& text)
{
    return u"File Error: "_s + text + u" ["_s + QString::number(QMessageBox::Ok, 16) + u']';
}

bool is_modified(const JournalDocument* doc)
{
    return doc->document()->isModified();
}

/** The recent journals as their entries read, from the newest on. */
QStringList recent_entries(const JournalEditor& editor)
{
    QStringList texts;
    for (const QAction* action : menu_of(editor, u"fileMenu"_s)->actions())
        if (action->text().startsWith(u'&') && action->text().at(1).isDigit())
            texts << action->text();
    return texts;
}

} // namespace

class TstJournalEditorFiles : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    // Reading.
    void file_is_read_data();
    void file_is_read();
    void each_cycle_adds_one_line_end();
    void opened_file_fills_a_pristine_tab();
    void opened_file_gets_a_tab_beside_a_typed_document();
    void same_file_may_stand_in_two_tabs();
    void ending_of_the_name_plays_no_part();
    void open_asks_for_a_journal();
    void open_that_is_cancelled_changes_nothing();
    void file_that_cannot_be_read_is_refused_data();
    void file_that_cannot_be_read_is_refused();
    void large_file_is_read_whole();
    void line_of_many_characters_is_read_whole();

    // Recent journals.
    void recent_journals_stand_before_exit();
    void recent_journal_is_opened();
    void sixth_recent_journal_drops_the_oldest();
    void recent_journal_that_is_gone_is_reported();

    // Writing.
    void save_writes_the_text_and_nothing_more_data();
    void save_writes_the_text_and_nothing_more();
    void save_replaces_a_longer_file();
    void save_leaves_the_recent_journals();
    void save_that_fails_keeps_text_and_flag_data();
    void save_that_fails_keeps_text_and_flag();
    void save_on_a_full_disk_clears_the_flag();
    void save_of_an_untitled_document_asks_for_a_name();
    void save_as_completes_the_name_data();
    void save_as_completes_the_name();
    void save_as_takes_a_dot_in_a_directory_for_an_ending();
    void save_as_that_is_cancelled_changes_nothing();
    void save_as_asks_before_replacing_data();
    void save_as_asks_before_replacing();
    void save_as_asks_about_a_name_that_looks_like_markup();
    void save_as_asks_once_more_than_the_file_dialog();
    void save_as_that_fails_has_taken_the_name();
    void save_as_saves_a_document_that_is_not_modified();
    void odd_names_make_the_round_trip_data();
    void odd_names_make_the_round_trip();
    void save_all_saves_what_is_modified();
    void save_all_stops_where_a_name_is_refused();
    void save_all_stops_where_a_save_fails();
    void file_that_went_or_changed_meanwhile_is_written_anew();
    void line_ends_of_another_system_are_not_kept();
    void texts_of_the_dialogs_are_translated_in_the_context_of_the_window();

    // Unsaved changes.
    void question_about_unsaved_changes_reads_as_it_should();
    void unmodified_document_is_closed_without_a_question();
    void yes_saves_and_goes_on();
    void yes_with_a_refused_name_keeps_the_document();
    void yes_with_a_failing_save_keeps_the_document();
    void no_drops_the_changes();
    void refusal_changes_nothing_data();
    void refusal_changes_nothing();
    void ticked_no_silences_the_question();
    void ticked_answer_other_than_no_is_forgotten_data();
    void ticked_answer_other_than_no_is_forgotten();
    void question_shows_the_document_it_is_about();

    // Closing.
    void close_deletes_the_document_and_its_tab();
    void close_of_the_last_document_closes_the_window();
    void close_button_takes_the_tab_but_not_the_document();
    void close_button_on_the_last_tab_closes_the_window();
    void close_button_asks_about_its_own_document();
    void closing_a_tab_that_is_not_there_does_nothing();
    void closing_the_window_leaves_the_first_document();
    void closing_the_window_asks_from_the_last_tab_to_the_first();
    void refused_close_keeps_window_and_remaining_tabs();
    void closing_the_window_saves_what_it_is_told_to();
    void failing_save_keeps_the_window();
    void ticked_no_silences_the_question_for_the_rest_of_the_window();
    void document_may_be_closed_while_the_user_is_asked_about_it_data();
    void document_may_be_closed_while_the_user_is_asked_about_it();
    void document_may_be_closed_while_its_name_is_chosen();
    void document_may_be_closed_when_it_gets_its_name();
    void closed_window_can_be_shown_again();
    void exit_closes_the_window();
    void close_events_are_answered();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path(name) : QString();
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstJournalEditorFiles::set_up()
{
    HostDouble::instance().reset();
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
    OstrelFileMenu::mPath = mDirectory->path();
}

void TstJournalEditorFiles::tear_down()
{
    mDirectory.reset();
}

void TstJournalEditorFiles::file_is_read_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("last line ended") << "a\nb\n"_ba << u"a\nb\n\n"_s;
    QTest::newRow("last line open") << "a\nb"_ba << u"a\nb\n"_s;
    QTest::newRow("empty") << ""_ba << u"\n"_s;
    QTest::newRow("one line feed") << "\n"_ba << u"\n\n"_s;
    QTest::newRow("NUL cuts its line only") << QByteArray("a\0b\nc\n", 6) << u"a\nc\n\n"_s;
    QTest::newRow("NUL alone") << QByteArray("\0", 1) << u"\n"_s;
    QTest::newRow("NUL at the start of a line") << QByteArray("a\n\0b\nc", 6) << u"a\n\nc\n"_s;
    QTest::newRow("not Latin") << QByteArray("Журнал\n日誌 😀") << u"Журнал\n日誌 😀\n"_s;
    QTest::newRow("invalid bytes are replaced") << "a\xff\xfe"
                                                   "b\n"_ba
                                                << u"a\uFFFD\uFFFDb\n\n"_s;
    QTest::newRow("character cut by the line end") << "a\xc3\nb"_ba << u"a\uFFFD\nb\n"_s;
    QTest::newRow("character cut by the end") << "a\xe2\x82"_ba << QString::fromUtf8("a\xe2\x82") + u'\n';
    QTest::newRow("byte order mark") << "\xef\xbb\xbf"
                                        "a"_ba
                                     << u"a\n"_s;
    // The document takes each for one line end; nothing else looks at carriage returns.
    QTest::newRow("carriage return and line feed") << "a\r\nb\r\n"_ba << u"a\nb\n\n"_s;
    QTest::newRow("carriage return alone") << "a\rb"_ba << u"a\nb\n"_s;
    QTest::newRow("blanks and tabs") << " a \n\t\n"_ba << u" a \n\t\n\n"_s;
    QTest::newRow("script") << "#!python\nfennar.cmd('a')\n"_ba << u"#!python\nfennar.cmd('a')\n\n"_s;
}

void TstJournalEditorFiles::file_is_read()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    const QString name = write(u"a.jou"_s, bytes);
    JournalEditor editor;
    editor.open_file(name);
    QCOMPARE(texts_of(editor), QStringList(text));
    QVERIFY(!is_modified(document_of(editor, 0)));
    QCOMPARE(read(u"a.jou"_s), bytes);
}

void TstJournalEditorFiles::each_cycle_adds_one_line_end()
{
    const QString name = write(u"a.jou"_s, "a\nb");
    QByteArray expected = "a\nb";
    for (int cycle = 0; cycle < 3; ++cycle) {
        JournalEditor editor;
        editor.open_file(name);
        editor.fileSave();
        expected += '\n';
        QCOMPARE(read(u"a.jou"_s), expected);
    }
}

void TstJournalEditorFiles::opened_file_fills_a_pristine_tab()
{
    const QString name = write(u"a.jou"_s, "a\n");
    JournalEditor editor;
    JournalDocument* const doc = document_of(editor, 0);
    QSignalSpy named(doc, &JournalDocument::fileNameChanged);
    OstrelFileMenu::mPath = u"/elsewhere"_s;
    editor.open_file(name);
    QCOMPARE(document_of(editor, 0), doc);
    QCOMPARE(named.size(), 1);
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
    QCOMPARE(doc->file_name(), name);
    QCOMPARE(editor.windowTitle(), name + u" - Journal Editor"_s);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path() + u'/');
    QCOMPARE(recent_entries(editor).size(), 1);
    QVERIFY(!doc->document()->isUndoAvailable());
}

void TstJournalEditorFiles::opened_file_gets_a_tab_beside_a_typed_document()
{
    const QString name = write(u"a.jou"_s, "a\n");
    JournalEditor editor;
    typed_document(editor, u"typed"_s);
    editor.open_file(name);
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"a.jou"_s}));
    QCOMPARE(texts_of(editor), QStringList({u"typed"_s, u"a\n\n"_s}));
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
    QCOMPARE(editor.windowTitle(), name + u" - Journal Editor"_s);
    // The new one is connected as well.
    document_of(editor, 1)->set_file_name(u"/x/y.jou"_s);
    QCOMPARE(tabs_of(editor)->tabText(1), u"y.jou"_s);
}

void TstJournalEditorFiles::same_file_may_stand_in_two_tabs()
{
    const QString name = write(u"a.jou"_s, "a\n");
    JournalEditor editor;
    editor.open_file(name);
    editor.open_file(name);
    QCOMPARE(tab_texts(editor), QStringList({u"a.jou"_s, u"a.jou"_s}));
    QCOMPARE(recent_entries(editor).size(), 1);
}

void TstJournalEditorFiles::ending_of_the_name_plays_no_part()
{
    JournalEditor editor;
    editor.open_file(write(u"picture.png"_s, "\x89PNG\r\n\x1a\n"));
    QCOMPARE(tab_texts(editor), QStringList(u"picture.png"_s));
    QCOMPARE(document_of(editor, 0)->toPlainText(), u"\uFFFDPNG\n\x1a\n\n"_s);
}

void TstJournalEditorFiles::open_asks_for_a_journal()
{
    const QString name = write(u"a.jou"_s, "a\n");
    JournalEditor editor;
    OstrelFileMenu::mPath = mDirectory->path();
    FileQuestion asked;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        parent = dialog->parentWidget();
        choose(dialog, name);
    });
    action_of(editor, u"fileOpenAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(parent, &editor);
    QCOMPARE(asked.caption, u"Open"_s);
    QCOMPARE(asked.directory, mDirectory->path());
    QCOMPARE(asked.filters, QStringList({u"Journal Files (*.jou *.py)"_s, u"All Files (*.*)"_s}));
    QCOMPARE(asked.accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(asked.file_mode, QFileDialog::ExistingFile);
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
}

void TstJournalEditorFiles::open_that_is_cancelled_changes_nothing()
{
    JournalEditor editor;
    DialogDriver driver;
    driver.expect(u"QFileDialog"_s, press(QDialogButtonBox::Cancel));
    editor.fileOpen();
    QVERIFY(driver.finish());
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path());
    QCOMPARE(recent_entries(editor), QStringList());
}

void TstJournalEditorFiles::file_that_cannot_be_read_is_refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path_after");
    QTest::newRow("missing") << u"/missing.jou"_s << u"/"_s;
    QTest::newRow("directory missing too") << u"/no/such/a.jou"_s << u"/no/such/"_s;
    QTest::newRow("directory") << u"/folder"_s << u"/"_s;
    QTest::newRow("pipe") << u"/pipe"_s << u"/"_s;
    QTest::newRow("name too long") << u'/' + QString(300, u'a') << u"/"_s;
}

void TstJournalEditorFiles::file_that_cannot_be_read_is_refused()
{
    QFETCH(const QString, name);
    QFETCH(const QString, path_after);
    QVERIFY(QDir(mDirectory->path()).mkdir(u"folder"_s));
    QCOMPARE(::mkfifo(QFile::encodeName(mDirectory->path() + u"/pipe"_s).constData(), 0600), 0);
    JournalEditor editor;
    QString said;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        said = describe(box);
        parent = box->parentWidget();
        press(QDialogButtonBox::Ok)(box);
    });
    editor.open_file(mDirectory->path() + name);
    QVERIFY(driver.finish());
    QCOMPARE(said, ok_only(u"Unable to open the file."_s));
    QCOMPARE(parent, &editor);
    QCOMPARE(tab_texts(editor), QStringList(u"Untitled"_s));
    QCOMPARE(texts_of(editor), QStringList(QString()));
    QCOMPARE(recent_entries(editor), QStringList());
    // The directory of the dialogs has changed all the same.
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path() + path_after);
}

void TstJournalEditorFiles::large_file_is_read_whole()
{
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += "draw line " + QByteArray::number(i) + '\n';
    JournalEditor editor;
    editor.open_file(write(u"large.jou"_s, bytes));
    QCOMPARE(document_of(editor, 0)->blockCount(), 100002);
    QVERIFY(document_of(editor, 0)->toPlainText().toUtf8() == bytes + '\n');
}

void TstJournalEditorFiles::line_of_many_characters_is_read_whole()
{
    const QByteArray bytes(200000, 'x');
    JournalEditor editor;
    editor.open_file(write(u"long.jou"_s, bytes));
    QVERIFY(document_of(editor, 0)->toPlainText().toUtf8() == bytes + '\n');
}

void TstJournalEditorFiles::recent_journals_stand_before_exit()
{
    const QString name = write(u"a.jou"_s, "a\n");
    JournalEditor editor;
    const QMenu* const menu = menu_of(editor, u"fileMenu"_s);
    const QStringList before = entries(menu);
    editor.open_file(name);
    const QStringList after = entries(menu);
    QCOMPARE(after.first(11), before.first(11));
    QCOMPARE(menu->actions().at(11)->text().left(3), u"&1 "_s);
    QCOMPARE(after.sliced(12), QStringList({u"---"_s, u"fileExitAction"_s}));
}

void TstJournalEditorFiles::recent_journal_is_opened()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a\n"));
    editor.open_file(write(u"b.jou"_s, "b\n"));
    const QMenu* const menu = menu_of(editor, u"fileMenu"_s);
    menu->actions().at(12)->trigger();
    QCOMPARE(tab_texts(editor), QStringList({u"a.jou"_s, u"b.jou"_s, u"a.jou"_s}));
    QVERIFY(recent_entries(editor).at(0).endsWith(u"a.jou"_s));
}

void TstJournalEditorFiles::sixth_recent_journal_drops_the_oldest()
{
    JournalEditor editor;
    for (int i = 1; i <= 6; ++i)
        editor.open_file(write(u"%1.jou"_s.arg(i), "a\n"));
    const QStringList recent = recent_entries(editor);
    QCOMPARE(recent.size(), 5);
    QVERIFY(recent.constFirst().endsWith(u"6.jou"_s));
    QVERIFY(recent.constLast().endsWith(u"2.jou"_s));
}

void TstJournalEditorFiles::recent_journal_that_is_gone_is_reported()
{
    JournalEditor editor;
    const QString name = write(u"a.jou"_s, "a\n");
    editor.open_file(name);
    QVERIFY(QFile::remove(name));
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        parent = box->parentWidget();
        press(QDialogButtonBox::Ok)(box);
    });
    menu_of(editor, u"fileMenu"_s)->actions().at(11)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(parent, &editor);
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
    QCOMPARE(recent_entries(editor), QStringList());
}

void TstJournalEditorFiles::save_writes_the_text_and_nothing_more_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no line end added") << u"a\nb"_s << "a\nb"_ba;
    QTest::newRow("line end kept") << u"a\n"_s << "a\n"_ba;
    QTest::newRow("empty") << u""_s << ""_ba;
    QTest::newRow("not Latin, no byte order mark") << u"Журнал 日誌 😀"_s << QByteArray("Журнал 日誌 😀");
    QTest::newRow("up to the first NUL") << u"a\nb"_s + QChar(0) + u"c\nd"_s << "a\nb"_ba;
}

void TstJournalEditorFiles::save_writes_the_text_and_nothing_more()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, bytes);
    JournalEditor editor;
    JournalDocument* const doc = document_of(editor, 0);
    doc->setPlainText(text);
    QCOMPARE(doc->toPlainText(), text);
    doc->set_file_name(path(u"a.jou"_s));
    doc->document()->setModified(true);
    QCOMPARE(tab_texts(editor), QStringList(u"* a.jou"_s));
    action_of(editor, u"fileSaveAction"_s)->trigger();
    QCOMPARE(read(u"a.jou"_s), bytes);
    QVERIFY(!is_modified(doc));
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
    QCOMPARE(doc->toPlainText(), text);
}

void TstJournalEditorFiles::save_replaces_a_longer_file()
{
    JournalEditor editor;
    typed_document(editor, u"short"_s)->set_file_name(write(u"a.jou"_s, "much longer than that\n"));
    editor.fileSave();
    QCOMPARE(read(u"a.jou"_s), "short");
}

void TstJournalEditorFiles::save_leaves_the_recent_journals()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s)->set_file_name(path(u"a.jou"_s));
    editor.fileSave();
    QCOMPARE(read(u"a.jou"_s), "a");
    QCOMPARE(recent_entries(editor), QStringList());
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path());
}

void TstJournalEditorFiles::save_that_fails_keeps_text_and_flag_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("directory missing") << u"/no/such/a.jou"_s;
    QTest::newRow("directory in its place") << u"/folder"_s;
    QTest::newRow("pipe in its place") << u"/pipe"_s;
    QTest::newRow("name too long") << u'/' + QString(300, u'a');
}

void TstJournalEditorFiles::save_that_fails_keeps_text_and_flag()
{
    QFETCH(const QString, name);
    QVERIFY(QDir(mDirectory->path()).mkdir(u"folder"_s));
    QCOMPARE(::mkfifo(QFile::encodeName(mDirectory->path() + u"/pipe"_s).constData(), 0600), 0);
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"precious"_s);
    doc->set_file_name(mDirectory->path() + name);
    QString said;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        said = describe(box);
        parent = box->parentWidget();
        press(QDialogButtonBox::Ok)(box);
    });
    editor.fileSave();
    QVERIFY(driver.finish());
    QCOMPARE(said, ok_only(u"Unable to save the file."_s));
    QCOMPARE(parent, &editor);
    QVERIFY(is_modified(doc));
    QCOMPARE(texts_of(editor), QStringList(u"precious"_s));
    QCOMPARE(doc->file_name(), mDirectory->path() + name);
}

void TstJournalEditorFiles::save_on_a_full_disk_clears_the_flag()
{
    // Takes no byte and says so only when it is written to.
    QVERIFY(QFile::exists(u"/dev/full"_s));
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"precious"_s);
    doc->set_file_name(u"/dev/full"_s);
    editor.fileSave();
    QVERIFY(!is_modified(doc));
    QCOMPARE(texts_of(editor), QStringList(u"precious"_s));
}

void TstJournalEditorFiles::save_of_an_untitled_document_asks_for_a_name()
{
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    FileQuestion asked;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        parent = dialog->parentWidget();
        choose(dialog, path(u"a.py"_s));
    });
    OstrelFileMenu::mPath = mDirectory->path();
    editor.fileSave();
    QVERIFY(driver.finish());
    QCOMPARE(parent, &editor);
    QCOMPARE(asked.caption, u"Save As"_s);
    QCOMPARE(asked.directory, mDirectory->path());
    // Not quite the filter of opening.
    QCOMPARE(asked.filters, QStringList({u"Journal files (*.jou *.py)"_s, u"All Files (*.*)"_s}));
    QCOMPARE(asked.accept_mode, QFileDialog::AcceptSave);
    QCOMPARE(asked.name, QString());
    QCOMPARE(read(u"a.py"_s), "a");
    QVERIFY(!is_modified(doc));
    QCOMPARE(doc->file_name(), path(u"a.py"_s));
    QCOMPARE(tab_texts(editor), QStringList(u"a.py"_s));
    QCOMPARE(editor.windowTitle(), path(u"a.py"_s) + u" - Journal Editor"_s);
    QCOMPARE(recent_entries(editor).size(), 1);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path() + u'/');
}

void TstJournalEditorFiles::save_as_completes_the_name_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("saved");
    QTest::newRow("no ending") << u"run"_s << u"run.jou"_s;
    QTest::newRow("journal") << u"run.jou"_s << u"run.jou"_s;
    QTest::newRow("script") << u"run.py"_s << u"run.py"_s;
    QTest::newRow("other ending") << u"run.v2"_s << u"run.v2"_s;
    QTest::newRow("dot at the end") << u"run."_s << u"run."_s;
    QTest::newRow("dot at the start") << u".run"_s << u".run"_s;
}

void TstJournalEditorFiles::save_as_completes_the_name()
{
    QFETCH(const QString, chosen);
    QFETCH(const QString, saved);
    QVERIFY2(!mDirectory->path().contains(u'.'), "tests want a build directory without a dot in its path");
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(chosen)); });
    action_of(editor, u"fileSaveAsAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(doc->file_name(), path(saved));
    QCOMPARE(read(saved), "a");
}

void TstJournalEditorFiles::save_as_takes_a_dot_in_a_directory_for_an_ending()
{
    QVERIFY(QDir(mDirectory->path()).mkdir(u"a.b"_s));
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"a.b/run"_s)); });
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QCOMPARE(doc->file_name(), path(u"a.b/run"_s));
    QCOMPARE(read(u"a.b/run"_s), "a");
    QCOMPARE(OstrelFileMenu::mPath, path(u"a.b/"_s));
}

void TstJournalEditorFiles::save_as_that_is_cancelled_changes_nothing()
{
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    DialogDriver driver;
    driver.expect(u"QFileDialog"_s, press(QDialogButtonBox::Cancel));
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QVERIFY(is_modified(doc));
    QCOMPARE(doc->file_name(), QString());
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path());
    QCOMPARE(recent_entries(editor), QStringList());
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::Files), QStringList());
}

void TstJournalEditorFiles::save_as_asks_before_replacing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::addColumn<bool>("replace");
    QTest::newRow("yes") << false << true;
    QTest::newRow("no") << false << false;
    QTest::newRow("escape") << true << false;
}

void TstJournalEditorFiles::save_as_asks_before_replacing()
{
    QFETCH(const bool, escape);
    QFETCH(const bool, replace);
    // Under the name that the ending is added to, which the file dialog does not know.
    const QString name = write(u"run.jou"_s, "old");
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"new"_s);
    QString said;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"run"_s)); });
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        said = describe(box);
        parent = box->parentWidget();
        if (escape)
            press_key(Qt::Key_Escape)(box);
        else
            press(replace ? QDialogButtonBox::Yes : QDialogButtonBox::No)(box);
    });
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QCOMPARE(said, u"Save As: "_s + name + u" already exists.\nDo you want to replace it? ["_s +
                       QString::number(QMessageBox::Yes | QMessageBox::No, 16) + u']');
    QCOMPARE(parent, &editor);
    QCOMPARE(read(u"run.jou"_s), replace ? "new" : "old");
    QCOMPARE(is_modified(doc), !replace);
    QCOMPARE(doc->file_name(), replace ? name : QString());
    QCOMPARE(recent_entries(editor).size(), replace ? 1 : 0);
    QCOMPARE(OstrelFileMenu::mPath, mDirectory->path() + u'/');
}

void TstJournalEditorFiles::save_as_asks_about_a_name_that_looks_like_markup()
{
    write(u"<b>run.jou"_s, "old");
    JournalEditor editor;
    typed_document(editor, u"new"_s);
    Qt::TextFormat format = Qt::AutoText;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"<b>run"_s)); });
    driver.expect<QMessageBox>([&](QMessageBox* box) {
        format = box->textFormat();
        press(QDialogButtonBox::No)(box);
    });
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QCOMPARE(format, Qt::PlainText);
}

void TstJournalEditorFiles::save_as_asks_once_more_than_the_file_dialog()
{
    const QString name = write(u"run.jou"_s, "old");
    JournalEditor editor;
    typed_document(editor, u"new"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, name); });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QCOMPARE(read(u"run.jou"_s), "new");
}

void TstJournalEditorFiles::save_as_that_fails_has_taken_the_name()
{
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"a"_s);
    const QString name = path(u"no/such/run.jou"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, name); });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QVERIFY(is_modified(doc));
    QCOMPARE(doc->file_name(), name);
    QCOMPARE(recent_entries(editor).size(), 1);
}

void TstJournalEditorFiles::save_as_saves_a_document_that_is_not_modified()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a"));
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"b.jou"_s)); });
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QCOMPARE(read(u"a.jou"_s), "a");
    QCOMPARE(read(u"b.jou"_s), "a\n");
    QCOMPARE(tab_texts(editor), QStringList(u"b.jou"_s));
}

void TstJournalEditorFiles::odd_names_make_the_round_trip_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u"two  words .jou"_s;
    QTest::newRow("semicolon") << u"a;b;.jou"_s;
    QTest::newRow("hash") << u"#a.jou"_s;
    QTest::newRow("percent") << u"100%1%20.jou"_s;
    QTest::newRow("ampersand") << u"a&b&&c.jou"_s;
    QTest::newRow("apostrophe") << u"it's.jou"_s;
    QTest::newRow("double quotes") << u"\"a\" b.jou"_s;
    QTest::newRow("Cyrillic") << u"Журнал.jou"_s;
    QTest::newRow("Chinese and beyond the basic plane") << u"日誌😀.jou"_s;
    QTest::newRow("line feed") << u"a\nb.jou"_s;
    QTest::newRow("backslash") << u"a\\b.jou"_s;
    QTest::newRow("comma and equals sign") << u"a,b=c.jou"_s;
}

void TstJournalEditorFiles::odd_names_make_the_round_trip()
{
    QFETCH(const QString, name);
    {
        JournalEditor editor;
        typed_document(editor, u"a\n"_s)->set_file_name(path(name));
        editor.fileSave();
        QCOMPARE(read(name), "a\n");
        editor.open_file(path(name));
        QCOMPARE(tab_texts(editor), QStringList({name, name}));
        QCOMPARE(document_of(editor, 1)->toPlainText(), u"a\n\n"_s);
        editor.close();
    }
    JournalEditor editor;
    QCOMPARE(QSettings().value(u"/ostrelgui/journal/file1"_s).toString(), path(name));
    menu_of(editor, u"fileMenu"_s)->actions().at(11)->trigger();
    QCOMPARE(document_of(editor, 0)->file_name(), path(name));
}

void TstJournalEditorFiles::save_all_saves_what_is_modified()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s)->set_file_name(path(u"a.jou"_s));
    // Would be written anew if it counted.
    typed_document(editor, u"b"_s)->set_file_name(path(u"b.jou"_s));
    document_of(editor, 1)->document()->setModified(false);
    typed_document(editor, u"c"_s);
    tabs_of(editor)->addTab(new QLabel(u"no document"_s), u"other"_s);
    typed_document(editor, u"d"_s)->set_file_name(path(u"d.jou"_s));
    tabs_of(editor)->setCurrentIndex(1);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"c"_s)); });
    action_of(editor, u"fileSaveAllAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(read(u"a.jou"_s), "a");
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QCOMPARE(read(u"c.jou"_s), "c");
    QCOMPARE(read(u"d.jou"_s), "d");
    QCOMPARE(tab_texts(editor).join(u' '), u"a.jou b.jou c.jou other d.jou"_s);
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
}

void TstJournalEditorFiles::save_all_stops_where_a_name_is_refused()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s)->set_file_name(path(u"a.jou"_s));
    typed_document(editor, u"b"_s);
    typed_document(editor, u"c"_s)->set_file_name(path(u"c.jou"_s));
    DialogDriver driver;
    driver.expect(u"QFileDialog"_s, press(QDialogButtonBox::Cancel));
    editor.fileSaveAll();
    QVERIFY(driver.finish());
    QCOMPARE(read(u"a.jou"_s), "a");
    QVERIFY(!QFile::exists(path(u"c.jou"_s)));
    QVERIFY(is_modified(document_of(editor, 1)));
    QVERIFY(is_modified(document_of(editor, 2)));
}

void TstJournalEditorFiles::save_all_stops_where_a_save_fails()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s)->set_file_name(path(u"no/such/a.jou"_s));
    typed_document(editor, u"b"_s)->set_file_name(path(u"b.jou"_s));
    DialogDriver driver;
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    editor.fileSaveAll();
    QVERIFY(driver.finish());
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QVERIFY(is_modified(document_of(editor, 0)));
    QVERIFY(is_modified(document_of(editor, 1)));
}

void TstJournalEditorFiles::file_that_went_or_changed_meanwhile_is_written_anew()
{
    const QString name = write(u"a.jou"_s, "old");
    JournalEditor editor;
    editor.open_file(name);
    QVERIFY(QFile::remove(name));
    editor.fileSave();
    QCOMPARE(read(u"a.jou"_s), "old\n");
    QCOMPARE(write(u"a.jou"_s, "somebody else's, and longer"), name);
    editor.fileSave();
    QCOMPARE(read(u"a.jou"_s), "old\n");
}

void TstJournalEditorFiles::line_ends_of_another_system_are_not_kept()
{
    // The widget takes them for its own kind; the program itself would leave them.
    const QString name = write(u"a.jou"_s, "a\r\nb\r\n");
    JournalEditor editor;
    editor.open_file(name);
    editor.fileSave();
    QCOMPARE(read(u"a.jou"_s), "a\nb\n\n");
}

void TstJournalEditorFiles::texts_of_the_dialogs_are_translated_in_the_context_of_the_window()
{
    const MarkingTranslator translator("JournalEditor");
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    QVERIFY(QDir(mDirectory->path()).mkdir(u"folder.jou"_s));
    QStringList shown;
    const auto note_box = [&shown](QMessageBox* box, QDialogButtonBox::StandardButton button) {
        shown << box->windowTitle() << box->text();
        press(button)(box);
    };
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        shown << dialog->windowTitle() << dialog->nameFilters();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    editor.fileOpen();
    driver.expect<QMessageBox>([&](QMessageBox* box) { note_box(box, QDialogButtonBox::Ok); });
    editor.open_file(path(u"missing.jou"_s));
    const QString existing = write(u"b.jou"_s, "b");
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        shown << dialog->windowTitle() << dialog->nameFilters();
        choose(dialog, path(u"b"_s));
    });
    driver.expect<QMessageBox>([&](QMessageBox* box) { note_box(box, QDialogButtonBox::No); });
    editor.fileSave();
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        const Question question = question_of(dialog);
        shown << question.title << question.text << question.box;
        press(cancel)(dialog);
    });
    editor.fileClose();
    document_of(editor, 0)->set_file_name(path(u"folder.jou"_s));
    driver.expect<QMessageBox>([&](QMessageBox* box) { note_box(box, QDialogButtonBox::Ok); });
    editor.fileSave();
    QVERIFY(driver.finish());
    QCOMPARE(shown, QStringList({u"<Open>"_s, u"<Journal Files (*.jou *.py)"_s, u"All Files (*.*)>"_s,
                                 u"<File Error>"_s, u"<Unable to open the file.>"_s, u"<Save As>"_s,
                                 u"<Journal files (*.jou *.py)"_s, u"All Files (*.*)>"_s, u"<Save As>"_s,
                                 existing + u"< already exists.\nDo you want to replace it?>"_s,
                                 u"<Journal Editor>"_s,
                                 u"<The document has been modified.\nDo you wish to save the changes?>"_s,
                                 u"<Never prompt me when there is unsaved data.>"_s, u"<File Error>"_s,
                                 u"<Unable to save the file.>"_s}));
}

void TstJournalEditorFiles::question_about_unsaved_changes_reads_as_it_should()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    Question asked;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        asked = question_of(dialog);
        parent = dialog->parentWidget();
        press(cancel)(dialog);
    });
    action_of(editor, u"fileCloseAction"_s)->trigger();
    QVERIFY(driver.finish());
    QCOMPARE(parent, &editor);
    QCOMPARE(asked.title, u"Journal Editor"_s);
    QCOMPARE(asked.text, u"The document has been modified.\nDo you wish to save the changes?"_s);
    QCOMPARE(asked.buttons, QStringList({u"&Yes"_s, u"&No"_s, u"&Cancel"_s}));
    QCOMPARE(asked.box, u"Never prompt me when there is unsaved data."_s);
    QVERIFY(!asked.ticked);
}

void TstJournalEditorFiles::unmodified_document_is_closed_without_a_question()
{
    JournalEditor editor;
    typed_document(editor, u"a"_s);
    editor.open_file(write(u"b.jou"_s, "b"));
    editor.fileClose();
    QCOMPARE(tab_texts(editor), QStringList(u"* Untitled"_s));
}

void TstJournalEditorFiles::yes_saves_and_goes_on()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(yes));
    editor.fileClose();
    QVERIFY(driver.finish());
    QCOMPARE(read(u"b.jou"_s), "second");
    QCOMPARE(tab_texts(editor), QStringList(u"* Untitled"_s));
}

void TstJournalEditorFiles::yes_with_a_refused_name_keeps_the_document()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    DialogDriver driver;
    driver.expect(unsaved_box, answer(yes));
    driver.expect(u"QFileDialog"_s, press(QDialogButtonBox::Cancel));
    editor.fileClose();
    QVERIFY(driver.finish());
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"* Untitled"_s}));
    QVERIFY(is_modified(document_of(editor, 1)));
}

void TstJournalEditorFiles::yes_with_a_failing_save_keeps_the_document()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s)->set_file_name(path(u"no/such/b.jou"_s));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(yes));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    editor.fileClose();
    QVERIFY(driver.finish());
    QCOMPARE(texts_of(editor), QStringList({u"first"_s, u"second"_s}));
    QVERIFY(is_modified(document_of(editor, 1)));
}

void TstJournalEditorFiles::no_drops_the_changes()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(no));
    editor.fileClose();
    QVERIFY(driver.finish());
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
    QVERIFY(JournalEditor::do_save_prompt());
}

void TstJournalEditorFiles::refusal_changes_nothing_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("cancel") << 0;
    QTest::newRow("escape") << 1;
    QTest::newRow("close box") << 2;
}

void TstJournalEditorFiles::refusal_changes_nothing()
{
    QFETCH(const int, how);
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    const DialogDriver::Act acts[] = {press(cancel), press_key(Qt::Key_Escape), press_close_box()};
    DialogDriver driver;
    driver.expect(unsaved_box, acts[how]);
    editor.fileClose();
    QVERIFY(driver.finish());
    QCOMPARE(tab_texts(editor), QStringList({u"* Untitled"_s, u"* Untitled"_s}));
    QCOMPARE(texts_of(editor), QStringList({u"first"_s, u"second"_s}));
    QVERIFY(JournalEditor::do_save_prompt());
}

void TstJournalEditorFiles::ticked_no_silences_the_question()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    typed_document(editor, u"third"_s);
    {
        DialogDriver driver;
        driver.expect(unsaved_box, answer(no, true));
        editor.fileClose();
        QVERIFY(driver.finish());
    }
    QVERIFY(!JournalEditor::do_save_prompt());
    const DialogDriver nothing_comes;
    editor.fileClose();
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
    QVERIFY(editor.close());
    QVERIFY(!is_modified(document_of(editor, 0)));
    QCOMPARE(QSettings().value(u"/ostrelgui/journal/unsavedjournalprompt"_s), QVariant(u"false"_s));
}

void TstJournalEditorFiles::ticked_answer_other_than_no_is_forgotten_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("yes") << yes;
    QTest::newRow("cancel") << cancel;
}

void TstJournalEditorFiles::ticked_answer_other_than_no_is_forgotten()
{
    QFETCH(const QString, button);
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(button, true));
    editor.fileClose();
    QVERIFY(driver.finish());
    QVERIFY(JournalEditor::do_save_prompt());
}

void TstJournalEditorFiles::question_shows_the_document_it_is_about()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
    int shown = -1;
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        shown = tabs_of(editor)->currentIndex();
        press(cancel)(dialog);
    });
    editor.close_tab(0);
    QVERIFY(driver.finish());
    QCOMPARE(shown, 0);
    QCOMPARE(tabs_of(editor)->currentIndex(), 0);
}

void TstJournalEditorFiles::close_deletes_the_document_and_its_tab()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a"));
    editor.open_file(write(u"b.jou"_s, "b"));
    const QPointer<JournalDocument> first = document_of(editor, 0);
    const QPointer<JournalDocument> second = document_of(editor, 1);
    tabs_of(editor)->setCurrentIndex(0);
    editor.fileClose();
    QVERIFY(!first);
    QVERIFY(second);
    QCOMPARE(tab_texts(editor), QStringList(u"b.jou"_s));
    QCOMPARE(editor.windowTitle(), path(u"b.jou"_s) + u" - Journal Editor"_s);
}

void TstJournalEditorFiles::close_of_the_last_document_closes_the_window()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a"));
    QVERIFY(show_active(&editor));
    const QPointer<JournalDocument> doc = document_of(editor, 0);
    editor.fileClose();
    QVERIFY(editor.isHidden());
    QVERIFY(doc);
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
}

void TstJournalEditorFiles::close_button_takes_the_tab_but_not_the_document()
{
    QPointer<JournalDocument> doc;
    {
        JournalEditor editor;
        editor.open_file(write(u"a.jou"_s, "a"));
        editor.open_file(write(u"b.jou"_s, "b"));
        doc = document_of(editor, 0);
        emit tabs_of(editor)->tabCloseRequested(0);
        QCOMPARE(tab_texts(editor), QStringList(u"b.jou"_s));
        QVERIFY(doc);
        QVERIFY(doc->isHidden());
        // It lives on without a tab: a new name reaches no tab.
        doc->set_file_name(u"/x/c.jou"_s);
        QCOMPARE(tab_texts(editor), QStringList(u"b.jou"_s));
        QCOMPARE(editor.windowTitle(), path(u"b.jou"_s) + u" - Journal Editor"_s);
    }
    QVERIFY(!doc);
}

void TstJournalEditorFiles::close_button_on_the_last_tab_closes_the_window()
{
    JournalEditor editor;
    JournalDocument* const doc = typed_document(editor, u"kept"_s);
    QVERIFY(show_active(&editor));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(no));
    editor.close_tab(0);
    QVERIFY(driver.finish());
    QVERIFY(editor.isHidden());
    QCOMPARE(document_of(editor, 0), doc);
    QCOMPARE(doc->toPlainText(), u"kept"_s);
    QVERIFY(!is_modified(doc));
}

void TstJournalEditorFiles::close_button_asks_about_its_own_document()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    DialogDriver driver;
    driver.expect(unsaved_box, answer(cancel));
    driver.expect(unsaved_box, answer(no));
    editor.close_tab(0);
    QCOMPARE(tabs_of(editor)->count(), 2);
    editor.close_tab(0);
    QVERIFY(driver.finish());
    QCOMPARE(texts_of(editor), QStringList(u"second"_s));
}

void TstJournalEditorFiles::closing_a_tab_that_is_not_there_does_nothing()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    for (const int nowhere : {-1, 2, 1000})
        editor.close_tab(nowhere);
    QCOMPARE(texts_of(editor), QStringList({u"first"_s, u"second"_s}));
}

void TstJournalEditorFiles::closing_the_window_leaves_the_first_document()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a"));
    editor.open_file(write(u"b.jou"_s, "b"));
    editor.open_file(write(u"c.jou"_s, "c"));
    const QPointer<JournalDocument> docs[] = {document_of(editor, 0), document_of(editor, 1),
                                              document_of(editor, 2)};
    QVERIFY(show_active(&editor));
    QVERIFY(editor.close());
    QVERIFY(editor.isHidden());
    QVERIFY(docs[0]);
    QVERIFY(!docs[1]);
    QVERIFY(!docs[2]);
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
    QCOMPARE(editor.windowTitle(), path(u"a.jou"_s) + u" - Journal Editor"_s);
}

void TstJournalEditorFiles::closing_the_window_asks_from_the_last_tab_to_the_first()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    typed_document(editor, u"second"_s);
    typed_document(editor, u"third"_s);
    tabs_of(editor)->setCurrentIndex(1);
    QVERIFY(show_active(&editor));
    QStringList shown;
    DialogDriver driver;
    for (int i = 0; i < 3; ++i) {
        driver.expect(unsaved_box, [&](QWidget* dialog) {
            shown << editor.returnCurrentDocument()->toPlainText();
            press(no)(dialog);
        });
    }
    QSignalSpy turned(tabs_of(editor), &QTabWidget::currentChanged);
    QVERIFY(editor.close());
    QVERIFY(driver.finish());
    QCOMPARE(shown, QStringList({u"third"_s, u"second"_s, u"first"_s}));
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
    QVERIFY(!is_modified(document_of(editor, 0)));
    // The tabs say nothing meanwhile.
    QCOMPARE(turned.size(), 0);
    QVERIFY(!tabs_of(editor)->signalsBlocked());
}

void TstJournalEditorFiles::refused_close_keeps_window_and_remaining_tabs()
{
    JournalEditor editor;
    editor.open_file(write(u"a.jou"_s, "a"));
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    typed_document(editor, u"third"_s);
    tabs_of(editor)->setCurrentIndex(0);
    const QPointer<JournalDocument> third = document_of(editor, 2);
    QVERIFY(show_active(&editor));
    QSettings().clear();
    DialogDriver driver;
    driver.expect(unsaved_box, answer(no));
    driver.expect(unsaved_box, answer(cancel));
    QVERIFY(!editor.close());
    QVERIFY(driver.finish());
    QVERIFY(editor.isVisible());
    // What was decided before the refusal stays decided.
    QVERIFY(!third);
    QCOMPARE(tab_texts(editor), QStringList({u"a.jou"_s, u"b.jou"_s}));
    QVERIFY(is_modified(document_of(editor, 1)));
    QCOMPARE(tabs_of(editor)->currentIndex(), 1);
    QCOMPARE(editor.windowTitle(), path(u"b.jou"_s) + u" - Journal Editor"_s);
    QVERIFY(!tabs_of(editor)->signalsBlocked());
    QCOMPARE(QSettings().allKeys().filter(u"journal"_s), QStringList());
}

void TstJournalEditorFiles::closing_the_window_saves_what_it_is_told_to()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s)->set_file_name(path(u"a.jou"_s));
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    typed_document(editor, u"third"_s);
    QVERIFY(show_active(&editor));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(yes));
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"c"_s)); });
    driver.expect(unsaved_box, answer(no));
    driver.expect(unsaved_box, answer(yes));
    QVERIFY(editor.close());
    QVERIFY(driver.finish());
    QCOMPARE(read(u"c.jou"_s), "third");
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QCOMPARE(read(u"a.jou"_s), "first");
    QCOMPARE(tab_texts(editor), QStringList(u"a.jou"_s));
    QCOMPARE(QSettings().value(u"/ostrelgui/journal/file1"_s).toString(), path(u"c.jou"_s));
}

void TstJournalEditorFiles::failing_save_keeps_the_window()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s)->set_file_name(path(u"no/such/a.jou"_s));
    typed_document(editor, u"second"_s);
    QVERIFY(show_active(&editor));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(no));
    driver.expect(unsaved_box, answer(yes));
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
    QVERIFY(!editor.close());
    QVERIFY(driver.finish());
    QVERIFY(editor.isVisible());
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
    QVERIFY(is_modified(document_of(editor, 0)));
    QCOMPARE(editor.windowTitle(), path(u"no/such/a.jou"_s) + u" - Journal Editor"_s);
    editor.hide();
}

void TstJournalEditorFiles::ticked_no_silences_the_question_for_the_rest_of_the_window()
{
    JournalEditor editor;
    for (const auto* text : {"first", "second", "third"})
        typed_document(editor, QString::fromLatin1(text))->set_file_name(path(QString::fromLatin1(text)));
    QVERIFY(show_active(&editor));
    DialogDriver driver;
    driver.expect(unsaved_box, answer(no, true));
    QVERIFY(editor.close());
    QVERIFY(driver.finish());
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::Files), QStringList());
    QVERIFY(!is_modified(document_of(editor, 0)));
    QCOMPARE(QSettings().value(u"/ostrelgui/journal/unsavedjournalprompt"_s), QVariant(u"false"_s));
}

void TstJournalEditorFiles::document_may_be_closed_while_the_user_is_asked_about_it_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("command");
    for (const QString& command : {u"close"_s, u"close tab"_s, u"close window"_s})
        for (const QString& button : {yes, no, cancel})
            QTest::newRow(qPrintable(command + u", "_s + button)) << button << command;
}

/** By a script, say, which runs on while the question is on the screen. */
void TstJournalEditorFiles::document_may_be_closed_while_the_user_is_asked_about_it()
{
    QFETCH(const QString, button);
    QFETCH(const QString, command);
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    document_of(editor, 0)->document()->setModified(false);
    typed_document(editor, u"second"_s)->set_file_name(path(u"b.jou"_s));
    QVERIFY(show_active(&editor));
    const QPointer<JournalDocument> doc = editor.returnCurrentDocument();
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* dialog) {
        doc->document()->setModified(false);
        editor.fileClose();
        press(button)(dialog);
    });
    if (command == "close"_L1)
        editor.fileClose();
    else if (command == "close tab"_L1)
        editor.close_tab(1);
    else
        editor.close();
    QVERIFY(driver.finish());
    QVERIFY(!doc);
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
    // There was nothing to write any more.
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    editor.hide();
}

void TstJournalEditorFiles::document_may_be_closed_while_its_name_is_chosen()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    const QPointer<JournalDocument> doc = typed_document(editor, u"second"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        doc->document()->setModified(false);
        editor.fileClose();
        choose(dialog, path(u"b.jou"_s));
    });
    editor.fileSaveAs();
    QVERIFY(driver.finish());
    QVERIFY(!doc);
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QCOMPARE(tab_texts(editor), QStringList(u"* Untitled"_s));
    QCOMPARE(recent_entries(editor), QStringList());
}

void TstJournalEditorFiles::document_may_be_closed_when_it_gets_its_name()
{
    JournalEditor editor;
    typed_document(editor, u"first"_s);
    const QPointer<JournalDocument> doc = typed_document(editor, u"second"_s);
    connect(doc, &JournalDocument::fileNameChanged, &editor, [&] {
        doc->document()->setModified(false);
        editor.fileClose();
    });
    document_of(editor, 0)->document()->setModified(false);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"b.jou"_s)); });
    editor.fileSaveAll();
    QVERIFY(driver.finish());
    QVERIFY(!doc);
    QVERIFY(!QFile::exists(path(u"b.jou"_s)));
    QCOMPARE(texts_of(editor), QStringList(u"first"_s));
}

void TstJournalEditorFiles::closed_window_can_be_shown_again()
{
    JournalEditor editor;
    typed_document(editor, u"text"_s);
    QVERIFY(show_active(&editor));
    {
        DialogDriver driver;
        driver.expect(unsaved_box, answer(no));
        QVERIFY(editor.close());
        QVERIFY(driver.finish());
    }
    QVERIFY(show_active(&editor));
    QCOMPARE(texts_of(editor), QStringList(u"text"_s));
    // Declined changes are not asked about again.
    QVERIFY(editor.close());
}

void TstJournalEditorFiles::exit_closes_the_window()
{
    JournalEditor editor;
    QVERIFY(show_active(&editor));
    action_of(editor, u"fileExitAction"_s)->trigger();
    QVERIFY(editor.isHidden());
}

void TstJournalEditorFiles::close_events_are_answered()
{
    // Sent by hand, since close() does not tell whether the event was accepted or never looked at.
    JournalEditor editor;
    QCloseEvent accepted;
    accepted.ignore();
    QCoreApplication::sendEvent(&editor, &accepted);
    QVERIFY(accepted.isAccepted());

    typed_document(editor, u"text"_s);
    DialogDriver driver;
    driver.expect(unsaved_box, answer(cancel));
    QCloseEvent refused;
    QCoreApplication::sendEvent(&editor, &refused);
    QVERIFY(driver.finish());
    QVERIFY(!refused.isAccepted());
}

OSTREL_TEST(TstJournalEditorFiles)
#include "tst_journaleditor_files.moc"
