// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/FileLineEdit.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QLineEdit* edit(const FileLineEdit& field)
{
    return field.findChild<QLineEdit*>(u"leFilename"_s);
}

void browse(const FileLineEdit& field)
{
    field.findChild<QToolButton*>(u"tbBrowse"_s)->click();
}

void create(const QString& path)
{
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
}

/** What the dialog asks when the button is pressed; the dialog is cancelled. */
FileQuestion asked_by(const FileLineEdit& field)
{
    FileQuestion asked;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        asked = file_question(dialog);
        press(QDialogButtonBox::Cancel)(dialog);
    });
    browse(field);
    return asked;
}

/** Presses the button and answers the dialog. */
void choose_in(const FileLineEdit& field, const QString& path, const QString& filter = QString())
{
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path, filter); });
    browse(field);
}

} // namespace

class TstFileLineEdit : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void form_has_the_names_texts_and_measures();
    void texts_are_translated();
    void all_signals_of_the_line_edit_are_handed_on();
    void signals_have_their_order();
    void tool_tip_is_the_text();
    void text_and_placeholder_are_set_and_read();

    void dialog_asks_in_each_mode_data();
    void dialog_asks_in_each_mode();
    void dialog_has_no_caption_and_the_field_as_its_parent();
    void filters_are_offered_in_their_order();
    void no_filters_are_an_empty_filter_string();
    void removed_filter_is_the_first_that_fits_both_data();
    void removed_filter_is_the_first_that_fits_both();
    void dialog_starts_beside_what_exists_data();
    void dialog_starts_beside_what_exists();

    void file_to_open_is_taken();
    void file_to_save_is_taken();
    void file_to_save_over_is_asked_for();
    void directory_is_taken_in_both_accept_modes_data();
    void directory_is_taken_in_both_accept_modes();
    void missing_extension_is_appended_data();
    void missing_extension_is_appended();
    void first_of_equal_filters_counts();
    void cancelled_dialog_leaves_the_text_data();
    void cancelled_dialog_leaves_the_text();
    void chosen_name_is_changed_but_not_edited();
    void field_may_be_deleted_while_the_dialog_is_open();
    void filters_may_change_while_the_dialog_is_open();
    void focus_goes_to_the_line_edit();
    void button_has_a_name_for_screen_readers();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstFileLineEdit::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
}

void TstFileLineEdit::form_has_the_names_texts_and_measures()
{
    const FileLineEdit field;
    QCOMPARE(field.objectName(), u"FileLineEdit"_s);
    QCOMPARE(field.size(), QSize(230, 22));
    QCOMPARE(field.minimumSize(), QSize(0, 22));
    QCOMPARE(field.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(field.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(field.windowTitle(), u"Form"_s);
    const auto* layout = field.findChild<QHBoxLayout*>(u"horizontalLayout"_s);
    QCOMPARE(layout, field.layout());
    QCOMPARE(layout->spacing(), 5);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), edit(field));
    QCOMPARE(layout->itemAt(1)->widget(), field.findChild<QToolButton*>(u"tbBrowse"_s));
    QVERIFY(edit(field)->isClearButtonEnabled());
    QCOMPARE(edit(field)->text(), QString());
    QCOMPARE(field.findChild<QToolButton*>(u"tbBrowse"_s)->text(), u"..."_s);
}

void TstFileLineEdit::texts_are_translated()
{
    const MarkingTranslator marker("FileLineEdit");
    const FileLineEdit field;
    QCOMPARE(field.windowTitle(), u"<Form>"_s);
    QCOMPARE(field.findChild<QToolButton*>(u"tbBrowse"_s)->text(), u"<...>"_s);
}

void TstFileLineEdit::all_signals_of_the_line_edit_are_handed_on()
{
    FileLineEdit field;
    QVERIFY(show_active(&field));
    edit(field)->setFocus();
    const QSignalSpy moved(&field, &FileLineEdit::cursorPositionChanged);
    const QSignalSpy finished(&field, &FileLineEdit::editingFinished);
    const QSignalSpy returned(&field, &FileLineEdit::returnPressed);
    const QSignalSpy selected(&field, &FileLineEdit::selectionChanged);
    const QSignalSpy changed(&field, &FileLineEdit::textChanged);
    const QSignalSpy edited(&field, &FileLineEdit::textEdited);

    QTest::keyClicks(edit(field), u"ab"_s);
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved[1], QVariantList({1, 2}));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed[1], QVariantList{u"ab"_s});
    QCOMPARE(edited.count(), 2);
    QCOMPARE(edited[1], QVariantList{u"ab"_s});
    QCOMPARE(selected.count(), 0);
    edit(field)->selectAll();
    QCOMPARE(selected.count(), 1);
    QCOMPARE(returned.count() + finished.count(), 0);
    QTest::keyClick(edit(field), Qt::Key_Return);
    QCOMPARE(returned.count(), 1);
    QCOMPARE(finished.count(), 1);
    field.set_filename(u"c"_s);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(edited.count(), 2);
    field.hide();
}

void TstFileLineEdit::signals_have_their_order()
{
    const QMetaObject& meta = FileLineEdit::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << QString::fromUtf8(meta.method(i).methodSignature());
    QCOMPARE(names,
             QStringList({u"cursorPositionChanged(int,int)"_s, u"editingFinished()"_s, u"returnPressed()"_s,
                          u"selectionChanged()"_s, u"textChanged(QString)"_s, u"textEdited(QString)"_s,
                          u"on_tbBrowse_clicked()"_s, u"on_leFilename_textChanged(QString)"_s}));
}

void TstFileLineEdit::tool_tip_is_the_text()
{
    FileLineEdit field;
    QCOMPARE(edit(field)->toolTip(), QString());
    field.set_filename(u"/a/b"_s);
    QCOMPARE(edit(field)->toolTip(), u"/a/b"_s);
    field.set_filename(QString());
    QCOMPARE(edit(field)->toolTip(), QString());
}

void TstFileLineEdit::text_and_placeholder_are_set_and_read()
{
    FileLineEdit field;
    QCOMPARE(field.filename(), QString());
    field.set_filename(u"/not there/клапан #1 & \"more\".mdl "_s);
    QCOMPARE(field.filename(), u"/not there/клапан #1 & \"more\".mdl "_s);
    QCOMPARE(edit(field)->text(), field.filename());
    field.set_placeholder_text(u"a file"_s);
    QCOMPARE(edit(field)->placeholderText(), u"a file"_s);
}

void TstFileLineEdit::dialog_asks_in_each_mode_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("directory");
    QTest::addColumn<int>("accept_mode");
    QTest::addColumn<int>("file_mode");
    QTest::newRow("file to save") << false << false << int(QFileDialog::AcceptSave)
                                  << int(QFileDialog::AnyFile);
    QTest::newRow("file to open") << true << false << int(QFileDialog::AcceptOpen)
                                  << int(QFileDialog::ExistingFile);
    QTest::newRow("directory to save in")
        << false << true << int(QFileDialog::AcceptSave) << int(QFileDialog::Directory);
    QTest::newRow("directory to open")
        << true << true << int(QFileDialog::AcceptOpen) << int(QFileDialog::Directory);
}

void TstFileLineEdit::dialog_asks_in_each_mode()
{
    QFETCH(const bool, open);
    QFETCH(const bool, directory);
    QFETCH(const int, accept_mode);
    QFETCH(const int, file_mode);
    FileLineEdit field;
    // The last word counts.
    field.set_open_dialog(!open);
    field.set_directory_dialog(!directory);
    field.set_open_dialog(open);
    field.set_directory_dialog(directory);
    const FileQuestion asked = asked_by(field);
    QCOMPARE(int(asked.accept_mode), accept_mode);
    QCOMPARE(int(asked.file_mode), file_mode);
    QCOMPARE(asked.directories_only, directory);
    if (!open && !directory) {
        const FileQuestion at_first = asked_by(FileLineEdit());
        QCOMPARE(at_first.accept_mode, QFileDialog::AcceptSave);
        QCOMPARE(at_first.file_mode, QFileDialog::AnyFile);
    }
}

void TstFileLineEdit::dialog_has_no_caption_and_the_field_as_its_parent()
{
    // Qt names a dialog without a caption itself.
    QFileDialog plain(nullptr, QString());
    plain.setAcceptMode(QFileDialog::AcceptSave);
    const FileLineEdit field;
    QString caption;
    const QWidget* parent = nullptr;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        caption = dialog->windowTitle();
        parent = dialog->parentWidget();
        dialog->reject();
    });
    browse(field);
    QVERIFY(driver.finish());
    QCOMPARE(caption, plain.windowTitle());
    QCOMPARE(parent, &field);
    QVERIFY(!field.findChild<QFileDialog*>());
}

void TstFileLineEdit::filters_are_offered_in_their_order()
{
    FileLineEdit field;
    field.add_filter(u"Step files"_s, u".stp"_s);
    field.add_filter(u"All"_s, QString());
    field.add_filter(u"Step files"_s, u".step"_s);
    const FileQuestion asked = asked_by(field);
    QCOMPARE(asked.filters, QStringList({u"Step files (*.stp)"_s, u"All (*)"_s, u"Step files (*.step)"_s}));
    QCOMPARE(asked.selected_filter, u"Step files (*.stp)"_s);
}

void TstFileLineEdit::no_filters_are_an_empty_filter_string()
{
    const QFileDialog plain(nullptr, QString(), QString(), QString());
    const FileLineEdit field;
    QCOMPARE(asked_by(field).filters, plain.nameFilters());
}

void TstFileLineEdit::removed_filter_is_the_first_that_fits_both_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QStringList>("left");
    const QString a = u"A (*.a)"_s;
    const QString b = u"B (*.b)"_s;
    const QString c = u"A (*.c)"_s;
    QTest::newRow("first") << u"A"_s << u".a"_s << QStringList{b, c, b, a};
    QTest::newRow("second of the name has the extension") << u"A"_s << u".c"_s << QStringList{a, b, b, a};
    QTest::newRow("first of two equal ones") << u"B"_s << u".b"_s << QStringList{a, c, b, a};
    QTest::newRow("another extension") << u"A"_s << u".b"_s << QStringList{a, b, c, b, a};
    QTest::newRow("another name") << u"C"_s << u".c"_s << QStringList{a, b, c, b, a};
    QTest::newRow("another case") << u"a"_s << u".a"_s << QStringList{a, b, c, b, a};
    QTest::newRow("nothing") << QString() << QString() << QStringList{a, b, c, b, a};
}

void TstFileLineEdit::removed_filter_is_the_first_that_fits_both()
{
    QFETCH(const QString, name);
    QFETCH(const QString, extension);
    QFETCH(const QStringList, left);
    FileLineEdit field;
    field.remove_filter(name, extension);
    field.add_filter(u"A"_s, u".a"_s);
    field.add_filter(u"B"_s, u".b"_s);
    field.add_filter(u"A"_s, u".c"_s);
    field.add_filter(u"B"_s, u".b"_s);
    field.add_filter(u"A"_s, u".a"_s);
    field.remove_filter(name, extension);
    QCOMPARE(asked_by(field).filters, left);
}

void TstFileLineEdit::dialog_starts_beside_what_exists_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("starts_there");
    QTest::newRow("file") << u"%1/sub/file"_s << true;
    QTest::newRow("directory") << u"%1/sub/inner"_s << true;
    QTest::newRow("missing file in a directory that exists") << u"%1/sub/missing"_s << false;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("relative, from the current directory") << u"sub/file"_s << true;
    QTest::newRow("relative and missing") << u"sub/missing"_s << false;
    QTest::newRow("odd name") << u"%1/sub/a b;#&'\"\u677f"_s << true;
    QTest::newRow("longer than any path") << QString(1 << 16, u'x') << false;
    QTest::newRow("blank") << u" "_s << false;
}

void TstFileLineEdit::dialog_starts_beside_what_exists()
{
    QFETCH(const QString, text);
    QFETCH(const bool, starts_there);
    QVERIFY(QDir().mkpath(path(u"sub/inner"_s)));
    create(path(u"sub/file"_s));
    create(path(u"sub/a b;#&'\"\u677f"_s));
    const QString before = QDir::currentPath();
    const auto back = qScopeGuard([&before] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(mDirectory->path()));
    const QString otherwise = QFileDialog(nullptr, QString(), QString()).directory().absolutePath();
    QVERIFY(otherwise != path(u"sub"_s));
    FileLineEdit field;
    field.set_filename(text.contains(u'%') ? text.arg(mDirectory->path()) : text);
    QCOMPARE(asked_by(field).directory, starts_there ? path(u"sub"_s) : otherwise);
}

void TstFileLineEdit::file_to_open_is_taken()
{
    create(path(u"a b.stp"_s));
    FileLineEdit field;
    field.set_open_dialog(true);
    choose_in(field, path(u"a b.stp"_s));
    QCOMPARE(field.filename(), path(u"a b.stp"_s));
    QCOMPARE(edit(field)->toolTip(), path(u"a b.stp"_s));
}

void TstFileLineEdit::file_to_save_is_taken()
{
    FileLineEdit field;
    field.set_filename(u"before"_s);
    choose_in(field, path(u"new.stp"_s));
    QCOMPARE(field.filename(), path(u"new.stp"_s));
    QVERIFY(!QFile::exists(path(u"new.stp"_s)));
}

void TstFileLineEdit::file_to_save_over_is_asked_for()
{
    create(path(u"old.stp"_s));
    FileLineEdit field;
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) { choose(dialog, path(u"old.stp"_s)); });
    driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Yes));
    browse(field);
    QVERIFY(driver.finish());
    QCOMPARE(field.filename(), path(u"old.stp"_s));
}

void TstFileLineEdit::directory_is_taken_in_both_accept_modes_data()
{
    QTest::addColumn<bool>("open");
    QTest::newRow("save") << false;
    QTest::newRow("open") << true;
}

void TstFileLineEdit::directory_is_taken_in_both_accept_modes()
{
    QFETCH(const bool, open);
    QVERIFY(QDir().mkpath(path(u"sub"_s)));
    FileLineEdit field;
    field.set_open_dialog(open);
    field.set_directory_dialog(true);
    choose_in(field, path(u"sub"_s));
    QCOMPARE(field.filename(), path(u"sub"_s));
}

void TstFileLineEdit::missing_extension_is_appended_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("result");
    QTest::newRow("none") << u"a"_s << u"Step (*.stp)"_s << u"a.stp"_s;
    QTest::newRow("there") << u"a.stp"_s << u"Step (*.stp)"_s << u"a.stp"_s;
    QTest::newRow("capital letters") << u"a.STP"_s << u"Step (*.stp)"_s << u"a.STP.stp"_s;
    QTest::newRow("another") << u"a.stl"_s << u"Step (*.stp)"_s << u"a.stl.stp"_s;
    QTest::newRow("in the middle") << u"a.stp.bak"_s << u"Step (*.stp)"_s << u"a.stp.bak.stp"_s;
    QTest::newRow("that of the second filter") << u"a"_s << u"Mesh (*.msh)"_s << u"a.msh"_s;
    QTest::newRow("filter without one") << u"a"_s << u"All (*)"_s << u"a"_s;
}

void TstFileLineEdit::missing_extension_is_appended()
{
    QFETCH(const QString, name);
    QFETCH(const QString, filter);
    QFETCH(const QString, result);
    FileLineEdit field;
    field.add_filter(u"Step"_s, u".stp"_s);
    field.add_filter(u"Mesh"_s, u".msh"_s);
    field.add_filter(u"All"_s, QString());
    choose_in(field, path(name), filter);
    QCOMPARE(field.filename(), path(result));
}

void TstFileLineEdit::first_of_equal_filters_counts()
{
    FileLineEdit field;
    // Both read "A (*.a (*.b)".
    field.add_filter(u"A"_s, u".a (*.b"_s);
    field.add_filter(u"A (*.a"_s, u".b"_s);
    choose_in(field, path(u"x"_s));
    QCOMPARE(field.filename(), path(u"x.a (*.b"_s));
}

void TstFileLineEdit::cancelled_dialog_leaves_the_text_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << u"as it was"_s;
    QTest::newRow("nothing") << QString();
}

void TstFileLineEdit::cancelled_dialog_leaves_the_text()
{
    QFETCH(const QString, text);
    FileLineEdit field;
    field.add_filter(u"Step"_s, u".stp"_s);
    field.set_filename(text);
    const QSignalSpy changed(&field, &FileLineEdit::textChanged);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path(u"typed"_s));
        press(QDialogButtonBox::Cancel)(dialog);
    });
    browse(field);
    QVERIFY(driver.finish());
    QCOMPARE(field.filename(), text);
    QCOMPARE(changed.count(), 0);
}

void TstFileLineEdit::chosen_name_is_changed_but_not_edited()
{
    FileLineEdit field;
    const QSignalSpy changed(&field, &FileLineEdit::textChanged);
    const QSignalSpy edited(&field, &FileLineEdit::textEdited);
    choose_in(field, path(u"a"_s));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0], QVariantList{path(u"a"_s)});
    QCOMPARE(edited.count(), 0);
}

void TstFileLineEdit::field_may_be_deleted_while_the_dialog_is_open()
{
    auto field = std::make_unique<FileLineEdit>();
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog*) { field.reset(); });
    QVERIFY(QMetaObject::invokeMethod(field.get(), "on_tbBrowse_clicked"));
    QVERIFY(driver.finish());
    QVERIFY(!field);
}

void TstFileLineEdit::filters_may_change_while_the_dialog_is_open()
{
    FileLineEdit field;
    field.add_filter(u"Step"_s, u".stp"_s);
    field.add_filter(u"Mesh"_s, u".msh"_s);
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        field.remove_filter(u"Step"_s, u".stp"_s);
        field.remove_filter(u"Mesh"_s, u".msh"_s);
        field.add_filter(u"Text"_s, u".txt"_s);
        choose(dialog, path(u"a"_s), u"Mesh (*.msh)"_s);
    });
    browse(field);
    QVERIFY(driver.finish());
    // What the dialog has shown counts.
    QCOMPARE(field.filename(), path(u"a.msh"_s));
}

void TstFileLineEdit::focus_goes_to_the_line_edit()
{
    FileLineEdit field;
    QCOMPARE(field.focusProxy(), edit(field));
    field.setFocus();
    QCOMPARE(field.focusWidget(), edit(field));
}

void TstFileLineEdit::button_has_a_name_for_screen_readers()
{
    const MarkingTranslator marker("FileLineEdit");
    const FileLineEdit field;
    QCOMPARE(field.findChild<QToolButton*>(u"tbBrowse"_s)->accessibleName(), u"<Browse>"_s);
}

OSTREL_TEST(TstFileLineEdit)
#include "tst_filelineedit.moc"
