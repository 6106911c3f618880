// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/settings_keys.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/editor_helpers.h"
#include "support/FullDisk.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/failing_calls.h"
#include "support/windows.h"
#include "workbench/application/journals/JournalFiles.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto unsaved_box = u"QtMessageSettingBox"_s;
constexpr auto not_saved = "journalNotSaved"_L1;
constexpr auto changed = "journalChanged"_L1;
constexpr auto differences = "journalDifferences"_L1;

/** An editor whose files are looked after, in a folder of its own. */
struct Desk
{
    Desk() { files = make_files(); }
    std::unique_ptr<JournalFiles> make_files()
    {
        return std::make_unique<JournalFiles>(editor.get(), [this](const QString& text) { reports << text; });
    }

    QString path(const QString& name = u"a.jou"_s) const { return directory.filePath(name); }
    QByteArray content(const QString& name = u"a.jou"_s) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    /** As another program does. */
    void write(const QByteArray& bytes, const QString& name = u"a.jou"_s) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the file cannot be written");
    }
    /** Opens a file and types ahead of its text. */
    JournalDocument* open_and_type(const QString& typed)
    {
        editor->open_file(path());
        JournalDocument* const document = editor->returnCurrentDocument();
        if (!typed.isEmpty())
            QTextCursor(document->document()).insertText(typed);
        return document;
    }
    void trigger(const QString& action) const { action_of(*editor, action)->trigger(); }
    template <class Box = QMessageBox>
    Box* box(QLatin1StringView name) const
    {
        for (Box* one : editor->findChildren<Box*>(QString(name))) {
            if (one->isVisible())
                return one;
        }
        return nullptr;
    }
    void press(QLatin1StringView name, const QString& button) const
    {
        box(name)->template findChild<QPushButton*>(button)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTemporaryDir directory;
    QStringList reports;
    std::unique_ptr<JournalEditor> editor = std::make_unique<JournalEditor>();
    std::unique_ptr<JournalFiles> files;
};

bool is_modified(const QPlainTextEdit* document)
{
    return document->document()->isModified();
}

} // namespace

class TstJournalFiles : public TestCase
{
    Q_OBJECT

private slots:
    // What is not written whole.
    void journal_that_is_cut_counts_as_unsaved_data();
    void journal_that_is_cut_counts_as_unsaved();
    void cut_file_of_an_unmodified_journal_is_told();
    void cut_journal_is_not_closed_data();
    void cut_journal_is_not_closed();
    void save_all_stops_at_a_cut_journal();
    void journal_is_whole_or_the_user_is_told_whatever_call_fails_data();
    void journal_is_whole_or_the_user_is_told_whatever_call_fails();
    void device_that_swallows_the_journal_is_told();
    void text_behind_a_nul_is_missed();
    void whole_journal_is_saved_without_a_word();
    void saved_journal_is_the_first_of_the_recent_ones();
    void cut_journal_is_none_of_the_recent_ones();
    void changes_that_are_dropped_are_no_failed_save();

    // What others have changed.
    void change_by_others_is_noticed_data();
    void change_by_others_is_noticed();
    void change_by_others_is_not_overwritten_data();
    void change_by_others_is_not_overwritten();
    void change_while_the_user_is_asked_is_not_overwritten_data();
    void change_while_the_user_is_asked_is_not_overwritten();
    void kept_journal_is_saved();
    void change_behind_the_question_is_asked_about_data();
    void change_behind_the_question_is_asked_about();
    void file_read_anew_replaces_the_journal_which_can_be_undone();
    void comparison_shows_the_lines_that_differ();
    void question_that_is_put_off_comes_again_before_saving();
    void question_goes_when_the_file_is_as_before();
    void touched_file_is_no_change_data();
    void touched_file_is_no_change();
    void file_that_is_gone_is_written_anew();
    void unmodified_journal_of_a_changed_file_may_be_closed_data();
    void unmodified_journal_of_a_changed_file_may_be_closed();
    void unmodified_journal_is_not_written_over_a_changed_file();

    // Lives.
    void question_goes_with_its_document();
    void editor_may_go_first();
    void editor_works_as_before_at_the_end();
};

void TstJournalFiles::journal_that_is_cut_counts_as_unsaved_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"slot"_s, u"action"_s, u"save as"_s, u"save all"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalFiles::journal_that_is_cut_counts_as_unsaved()
{
    QFETCH(const QString, by);
    Desk desk;
    JournalDocument* const document = typed_document(*desk.editor, u"0123456789"_s);
    if (by != "save as"_L1)
        document->set_file_name(desk.path());
    {
        const FullDisk full(4);
        if (by == "slot"_L1) {
            desk.editor->fileSave();
        } else if (by == "action"_L1) {
            desk.trigger(u"fileSaveAction"_s);
        } else if (by == "save all"_L1) {
            desk.trigger(u"fileSaveAllAction"_s);
        } else {
            DialogDriver driver;
            driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, desk.path()); });
            desk.trigger(u"fileSaveAsAction"_s);
            QVERIFY(driver.finish());
        }
    }
    QCOMPARE(desk.content(), "0123");
    QVERIFY(is_modified(document));
    QCOMPARE(tab_texts(*desk.editor), QStringList(u"* a.jou"_s));
    QVERIFY(desk.box(not_saved));
    QVERIFY2(desk.box(not_saved)->text().contains(u"it has only 4 of 10 bytes"_s),
             qPrintable(desk.box(not_saved)->text()));
    QCOMPARE(desk.reports, QStringList(u"%1 does not hold the whole journal: it has only 4 of 10 bytes"_s.arg(
                               desk.path())));

    // There is room again.
    desk.editor->fileSave();
    QCOMPARE(desk.content(), "0123456789");
    QVERIFY(!is_modified(document));
    QVERIFY(!desk.box(not_saved));
    QCOMPARE(desk.reports.size(), 1);
}

void TstJournalFiles::cut_file_of_an_unmodified_journal_is_told()
{
    Desk desk;
    desk.write("0123456789");
    JournalDocument* const document = desk.open_and_type({});
    QVERIFY(!is_modified(document));
    {
        const FullDisk full(4);
        desk.trigger(u"fileSaveAction"_s);
    }
    QCOMPARE(desk.content(), "0123");
    QCoreApplication::sendPostedEvents();
    QVERIFY(is_modified(document));
    QVERIFY(desk.box(not_saved));
}

void TstJournalFiles::cut_journal_is_not_closed_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"menu"_s, u"tab"_s, u"window"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalFiles::cut_journal_is_not_closed()
{
    QFETCH(const QString, by);
    Desk desk;
    QVERIFY(show_active(desk.editor.get()));
    JournalDocument* const document = typed_document(*desk.editor, u"0123456789"_s);
    document->set_file_name(desk.path());
    DialogDriver driver;
    driver.expect(unsaved_box, ::press(u"mYesButton"_s));
    {
        const FullDisk full(4);
        if (by == "menu"_L1)
            desk.trigger(u"fileCloseAction"_s);
        else if (by == "tab"_L1)
            emit tabs_of(*desk.editor)->tabCloseRequested(0);
        else
            QVERIFY(!desk.editor->close());
    }
    QVERIFY(driver.finish());
    QVERIFY(desk.editor->isVisible());
    QCOMPARE(document_of(*desk.editor, 0), document);
    QVERIFY(is_modified(document));
}

void TstJournalFiles::save_all_stops_at_a_cut_journal()
{
    Desk desk;
    typed_document(*desk.editor, u"0123456789"_s)->set_file_name(desk.path());
    typed_document(*desk.editor, u"9"_s)->set_file_name(desk.path(u"b.jou"_s));
    {
        const FullDisk full(4);
        desk.trigger(u"fileSaveAllAction"_s);
    }
    QVERIFY(is_modified(document_of(*desk.editor, 0)));
    QVERIFY(is_modified(document_of(*desk.editor, 1)));
    QVERIFY(!QFile::exists(desk.path(u"b.jou"_s)));
}

void TstJournalFiles::device_that_swallows_the_journal_is_told()
{
    Desk desk;
    JournalDocument* const document = typed_document(*desk.editor, u"text"_s);
    document->set_file_name(u"/dev/full"_s);
    desk.editor->fileSave();
    QVERIFY(is_modified(document));
    QVERIFY(desk.box(not_saved));
}

void TstJournalFiles::text_behind_a_nul_is_missed()
{
    Desk desk;
    JournalDocument* const document = typed_document(*desk.editor, u"ab"_s + QChar(0) + u"cd"_s);
    document->set_file_name(desk.path());
    desk.editor->fileSave();
    QCOMPARE(desk.content(), "ab");
    QVERIFY(is_modified(document));
    QVERIFY(desk.box(not_saved));
}

void TstJournalFiles::journal_is_whole_or_the_user_is_told_whatever_call_fails_data()
{
    QTest::addColumn<bool>("lasting");
    QTest::newRow("one call") << false;
    QTest::newRow("all from one on") << true;
}

void TstJournalFiles::journal_is_whole_or_the_user_is_told_whatever_call_fails()
{
    QFETCH(const bool, lasting);
    int number = 0;
    int failed = 0;
    for (int calls = 1; number < calls;) {
        Desk desk;
        desk.write("old");
        // More than one buffer, so that the disk may end within it.
        JournalDocument* const document = desk.open_and_type(QString(40'000, u'x'));
        begin_failing({desk.directory.path().toStdString(), ++number, lasting});
        desk.editor->fileSave();
        calls = end_failing();
        const bool is_whole = desk.content() == document->toPlainText().toUtf8();
        const bool is_told = desk.reports.size() == 1 && desk.box(not_saved) && is_modified(document);
        QVERIFY2(is_whole || is_told, qPrintable(u"call %1"_s.arg(number)));
        failed += is_told ? 1 : 0;
        // When the disk works again the journal can be saved.
        if (is_modified(document))
            desk.editor->fileSave();
        QCOMPARE(desk.content(), document->toPlainText().toUtf8());
        QVERIFY(!is_modified(document));
    }
    QVERIFY(failed > 0);
}

void TstJournalFiles::saved_journal_is_the_first_of_the_recent_ones()
{
    using namespace settings_keys;
    Desk desk;
    for (int number = 1; number <= 5; ++number)
        QSettings().setValue(numbered(recent_journal, number), u"/old/%1.jou"_s.arg(number));
    QSettings().setValue(numbered(recent_journal, 3), desk.path());
    desk.write("text");
    desk.open_and_type(u"more "_s);
    desk.editor->fileSave();
    QStringList files;
    for (int number = 1; number <= 5; ++number)
        files << QSettings().value(numbered(recent_journal, number)).toString();
    QCOMPARE(files,
             (QStringList{desk.path(), u"/old/1.jou"_s, u"/old/2.jou"_s, u"/old/4.jou"_s, u"/old/5.jou"_s}));
}

void TstJournalFiles::cut_journal_is_none_of_the_recent_ones()
{
    Desk desk;
    desk.write("0123456789");
    desk.open_and_type(u"more "_s);
    {
        const FullDisk full(4);
        desk.editor->fileSave();
    }
    QVERIFY(desk.box(not_saved));
    QVERIFY(!QSettings().contains(settings_keys::numbered(settings_keys::recent_journal, 1)));
}

void TstJournalFiles::whole_journal_is_saved_without_a_word()
{
    Desk desk;
    desk.write("a\nb");
    JournalDocument* const document = desk.open_and_type(u"typed "_s);
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "typed a\nb\n");
    QVERIFY(!is_modified(document));
    desk.trigger(u"fileSaveAction"_s);
    desk.files->check();
    QVERIFY(!desk.box(not_saved) && !desk.box(changed));
    QCOMPARE(desk.reports, QStringList());
}

/** The file is shorter than the text then, as a cut one is. */
void TstJournalFiles::changes_that_are_dropped_are_no_failed_save()
{
    Desk desk;
    desk.write("a");
    JournalDocument* const document = desk.open_and_type({});
    desk.editor->fileNew();
    document->appendPlainText(u"more"_s);
    DialogDriver driver;
    driver.expect(unsaved_box, ::press(u"mNoButton"_s));
    emit tabs_of(*desk.editor)->tabCloseRequested(0);
    QVERIFY(driver.finish());
    QCOMPARE(desk.content(), "a");
    QVERIFY(!desk.box(not_saved) && !desk.box(changed));
    QCOMPARE(desk.reports, QStringList());
}

void TstJournalFiles::change_by_others_is_noticed_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("written") << u"write"_s;
    QTest::newRow("replaced") << u"rename"_s;
    QTest::newRow("replaced twice") << u"rename twice"_s;
}

void TstJournalFiles::change_by_others_is_noticed()
{
    QFETCH(const QString, how);
    Desk desk;
    desk.write("old");
    desk.open_and_type({});
    const auto replace = [&](const QByteArray& bytes) {
        desk.write(bytes, u"new"_s);
        const QByteArray from = QFile::encodeName(desk.path(u"new"_s));
        QCOMPARE(std::rename(from.constData(), QFile::encodeName(desk.path()).constData()), 0);
    };
    if (how == "write"_L1)
        desk.write("by others");
    else
        replace("by others");
    QTRY_VERIFY(desk.box(changed));
    QVERIFY(desk.box(changed)->text().contains(desk.path()));
    if (how == "rename twice"_L1) {
        desk.press(changed, u"journalKeep"_s);
        QVERIFY(!desk.box(changed));
        replace("again");
        QTRY_VERIFY(desk.box(changed));
    }
}

void TstJournalFiles::change_by_others_is_not_overwritten_data()
{
    QTest::addColumn<QString>("by");
    for (const QString& by : {u"save"_s, u"save all"_s, u"close"_s, u"tab"_s, u"window"_s, u"call to save"_s,
                              u"call to save all"_s})
        QTest::newRow(qPrintable(by)) << by;
}

void TstJournalFiles::change_by_others_is_not_overwritten()
{
    QFETCH(const QString, by);
    Desk desk;
    QVERIFY(show_active(desk.editor.get()));
    desk.write("old");
    JournalDocument* const document = desk.open_and_type(u"typed "_s);
    desk.write("by others");
    const DialogDriver nothing_is_asked_by_the_editor;
    // Before anything has been told of the change.
    if (by == "save"_L1)
        desk.trigger(u"fileSaveAction"_s);
    else if (by == "save all"_L1)
        desk.trigger(u"fileSaveAllAction"_s);
    else if (by == "close"_L1)
        desk.trigger(u"fileCloseAction"_s);
    else if (by == "tab"_L1)
        emit tabs_of(*desk.editor)->tabCloseRequested(0);
    else if (by == "call to save"_L1)
        desk.editor->fileSave();
    else if (by == "call to save all"_L1)
        desk.editor->fileSaveAll();
    else
        QVERIFY(!desk.editor->close());
    QCOMPARE(desk.content(), "by others");
    QVERIFY(is_modified(document));
    QVERIFY(desk.editor->isVisible());
    QVERIFY(desk.box(changed));
    QVERIFY(desk.box(changed)->text().contains(u"unsaved changes"_s));
}

void TstJournalFiles::change_while_the_user_is_asked_is_not_overwritten_data()
{
    cut_journal_is_not_closed_data();
}

void TstJournalFiles::change_while_the_user_is_asked_is_not_overwritten()
{
    QFETCH(const QString, by);
    Desk desk;
    QVERIFY(show_active(desk.editor.get()));
    desk.write("old");
    JournalDocument* const document = desk.open_and_type(u"typed "_s);
    DialogDriver driver;
    driver.expect(unsaved_box, [&](QWidget* box) {
        desk.write("by others");
        ::press(u"mYesButton"_s)(box);
    });
    if (by == "menu"_L1)
        desk.trigger(u"fileCloseAction"_s);
    else if (by == "tab"_L1)
        emit tabs_of(*desk.editor)->tabCloseRequested(0);
    else
        QVERIFY(!desk.editor->close());
    QVERIFY(driver.finish());
    QCOMPARE(desk.content(), "by others");
    QVERIFY(is_modified(document));
    QVERIFY(desk.editor->isVisible());
    QVERIFY(desk.box(changed));
}

void TstJournalFiles::kept_journal_is_saved()
{
    Desk desk;
    desk.write("old");
    JournalDocument* const document = desk.open_and_type({});
    desk.write("by others");
    desk.files->check();
    QVERIFY(desk.box(changed));
    desk.press(changed, u"journalKeep"_s);
    // It is not what the file holds.
    QVERIFY(is_modified(document));
    QCOMPARE(desk.content(), "by others");
    desk.files->check();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "old\n");
    QVERIFY(!is_modified(document));
    QVERIFY(!desk.box(changed) && !desk.box(not_saved));
}

void TstJournalFiles::change_behind_the_question_is_asked_about_data()
{
    QTest::addColumn<bool>("noticed");
    QTest::newRow("noticed") << true;
    QTest::newRow("not noticed") << false;
}

void TstJournalFiles::change_behind_the_question_is_asked_about()
{
    QFETCH(const bool, noticed);
    Desk desk;
    desk.write("old");
    desk.open_and_type(u"typed "_s);
    desk.write("by others");
    desk.files->check();
    desk.write("by yet others");
    if (noticed)
        desk.files->check();
    desk.press(changed, u"journalKeep"_s);
    QVERIFY(desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "by yet others");
    desk.press(changed, u"journalKeep"_s);
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "typed old\n");
}

void TstJournalFiles::file_read_anew_replaces_the_journal_which_can_be_undone()
{
    Desk desk;
    desk.write("old");
    JournalDocument* const document = desk.open_and_type(u"typed "_s);
    desk.write(QByteArray("by\0 nobody\nothers", 17));
    desk.files->check();
    desk.press(changed, u"journalReload"_s);
    // As the editor reads it.
    QCOMPARE(document->toPlainText(), u"by\nothers\n"_s);
    QVERIFY(!is_modified(document));
    desk.files->check();
    QVERIFY(!desk.box(changed));
    document->undo();
    QCOMPARE(document->toPlainText(), u"typed old\n"_s);
    QVERIFY(is_modified(document));
    QVERIFY(desk.content().startsWith("by"));
}

void TstJournalFiles::comparison_shows_the_lines_that_differ()
{
    Desk desk;
    desk.write("one\ntwo\nthree");
    desk.open_and_type(u"typed "_s);
    desk.write("one\ntwo\n3");
    desk.files->check();
    desk.press(changed, u"journalCompare"_s);
    auto* const dialog = desk.box<QDialog>(differences);
    QVERIFY(dialog);
    const QStringList lines =
        dialog->findChild<QPlainTextEdit*>(u"journalDifferencesText"_s)->toPlainText().split(u'\n');
    QVERIFY2(lines.contains(u"- typed one"_s) && lines.contains(u"+ one"_s) && lines.contains(u"  two"_s) &&
                 lines.contains(u"- three"_s) && lines.contains(u"+ 3"_s),
             qPrintable(lines.join(u'\n')));
    // The question comes back.
    dialog->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(desk.box(changed));
    QCOMPARE(desk.content(), "one\ntwo\n3");
}

void TstJournalFiles::question_that_is_put_off_comes_again_before_saving()
{
    Desk desk;
    desk.write("old");
    desk.open_and_type(u"typed "_s);
    desk.write("by others");
    desk.files->check();
    desk.press(changed, u"journalLater"_s);
    desk.files->check();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QVERIFY(desk.box(changed));
    QCOMPARE(desk.content(), "by others");
    desk.press(changed, u"journalLater"_s);
    // Another change.
    desk.write("by yet others");
    desk.files->check();
    QVERIFY(desk.box(changed));
}

void TstJournalFiles::question_goes_when_the_file_is_as_before()
{
    Desk desk;
    desk.write("old");
    desk.open_and_type(u"typed "_s);
    desk.write("by others");
    desk.files->check();
    QVERIFY(desk.box(changed));
    desk.write("old");
    desk.files->check();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "typed old\n");
}

void TstJournalFiles::touched_file_is_no_change_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("unmodified") << QString();
    QTest::newRow("modified") << u"typed "_s;
}

void TstJournalFiles::touched_file_is_no_change()
{
    QFETCH(const QString, typed);
    Desk desk;
    desk.write("old");
    desk.open_and_type(typed);
    QVERIFY(QFile::remove(desk.path()));
    desk.write("old");
    desk.files->check();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), typed.toUtf8() + "old\n");
}

void TstJournalFiles::file_that_is_gone_is_written_anew()
{
    Desk desk;
    desk.write("old");
    JournalDocument* const document = desk.open_and_type(u"typed "_s);
    QVERIFY(QFile::remove(desk.path()));
    desk.files->check();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "typed old\n");
    QVERIFY(!is_modified(document));
}

void TstJournalFiles::unmodified_journal_of_a_changed_file_may_be_closed_data()
{
    cut_journal_is_not_closed_data();
}

void TstJournalFiles::unmodified_journal_of_a_changed_file_may_be_closed()
{
    QFETCH(const QString, by);
    Desk desk;
    QVERIFY(show_active(desk.editor.get()));
    desk.write("old");
    desk.open_and_type({});
    desk.write("by others");
    if (by == "menu"_L1)
        desk.trigger(u"fileCloseAction"_s);
    else if (by == "tab"_L1)
        emit tabs_of(*desk.editor)->tabCloseRequested(0);
    else
        QVERIFY(desk.editor->close());
    QVERIFY(desk.editor->isHidden());
    QCOMPARE(desk.content(), "by others");
}

void TstJournalFiles::unmodified_journal_is_not_written_over_a_changed_file()
{
    Desk desk;
    desk.write("old");
    desk.open_and_type({});
    desk.write("by others");
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "by others");
    QVERIFY(desk.box(changed));
}

void TstJournalFiles::question_goes_with_its_document()
{
    Desk desk;
    desk.editor->fileNew();
    desk.write("old");
    JournalDocument* const document = desk.open_and_type({});
    typed_document(*desk.editor, u"other"_s);
    desk.write("by others");
    desk.files->check();
    QVERIFY(desk.box(changed));
    delete document;
    QVERIFY(!desk.box(changed));
    desk.files->check();
}

void TstJournalFiles::editor_may_go_first()
{
    Desk desk;
    desk.write("old");
    desk.open_and_type({});
    desk.write("by others");
    desk.files->check();
    desk.press(changed, u"journalCompare"_s);
    desk.editor.reset();
    desk.files->check();
    desk.files.reset();
}

void TstJournalFiles::editor_works_as_before_at_the_end()
{
    Desk desk;
    QVERIFY(show_active(desk.editor.get()));
    desk.write("old");
    desk.open_and_type(u"typed "_s);
    desk.write("by others");
    desk.files->check();
    desk.files.reset();
    QVERIFY(!desk.box(changed));
    desk.trigger(u"fileSaveAction"_s);
    QCOMPARE(desk.content(), "typed old\n");
    typed_document(*desk.editor, u"second"_s)->document()->setModified(false);
    emit tabs_of(*desk.editor)->tabCloseRequested(1);
    QCOMPARE(tab_texts(*desk.editor), QStringList(u"a.jou"_s));
    desk.trigger(u"fileCloseAction"_s);
    QVERIFY(desk.editor->isHidden());
}

OSTREL_TEST(TstJournalFiles)
#include "tst_journalfiles.moc"
