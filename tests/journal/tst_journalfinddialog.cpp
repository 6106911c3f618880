// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "editor_helpers.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/JournalFindDialog.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>

#include <memory>

using namespace Qt::StringLiterals;

class TstJournalFindDialog : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    // The form.
    void form_has_names_texts_and_places();
    void parent_is_kept();
    void slots_keep_their_order();
    void find_opens_a_fresh_dialog_each_time_data();
    void find_opens_a_fresh_dialog_each_time();
    void both_buttons_and_return_work();
    void close_hides();

    // Showing.
    void selection_becomes_the_text_to_find();
    void no_selection_leaves_the_text();
    void document_is_fixed_when_shown();
    void without_a_document_nothing_happens();
    void without_a_main_window_nothing_happens();

    // Searching.
    void hit_is_found_data();
    void hit_is_found();
    void search_goes_on_from_the_caret();
    void wrapping_starts_from_the_other_end_data();
    void wrapping_starts_from_the_other_end();
    void nothing_found_without_wrapping_leaves_the_caret();
    void nothing_found_with_wrapping_moves_the_caret_data();
    void nothing_found_with_wrapping_moves_the_caret();
    void empty_text_does_nothing_at_all();
    void return_searches_once_and_next_takes_the_focus_data();
    void return_searches_once_and_next_takes_the_focus();
    void return_elsewhere_presses_the_default_button();
    void next_takes_the_focus_for_another_reason();
    void document_that_is_closed_meanwhile_is_not_searched();
    void follower_of_the_caret_may_end_the_search_data();
    void follower_of_the_caret_may_end_the_search();
    void document_that_is_searched_is_the_one_that_is_marked();

    // Marking.
    void hit_turns_gray_and_the_document_is_modified();
    void gray_stays_when_the_search_goes_on();
    void hit_after_wrapping_stays_white();
    void gray_is_not_saved_with_the_text();

private:
    JournalEditor& editor() { return *mWindow->journal_editor(); }
    JournalDocument* doc() { return document_of(editor(), 0); }
    template <class Widget>
    Widget* child(const char* name) const
    {
        return mDialog->findChild<Widget*>(QString::fromLatin1(name));
    }
    void check(const char* name, bool on = true) const { child<QCheckBox>(name)->setChecked(on); }
    /** Shows the dialog for the document, which gets @p text, with @p find in its field. */
    void show(const QString& text, const QString& find)
    {
        doc()->setPlainText(text);
        mDialog->show();
        child<QLineEdit>("mFindText")->setText(find);
    }
    void next() const { child<QPushButton>("pbNext")->click(); }
    void put_caret(int position)
    {
        QTextCursor cursor = doc()->textCursor();
        cursor.setPosition(position);
        doc()->setTextCursor(cursor);
    }
    /** Where the selection starts and its length. */
    QPoint selection()
    {
        const QTextCursor cursor = doc()->textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }
    /** The positions of the characters with a gray background. */
    QList<int> gray()
    {
        QList<int> positions;
        for (int i = 0; i < doc()->document()->characterCount() - 1; ++i) {
            QTextCursor cursor(doc()->document());
            cursor.setPosition(i + 1);
            const QBrush brush = cursor.charFormat().background();
            if (brush.style() == Qt::SolidPattern && brush.color() == QColor(211, 211, 211))
                positions << i;
        }
        return positions;
    }

    std::unique_ptr<Ostrel> mWindow;
    std::unique_ptr<JournalFindDialog> mDialog;
};

void TstJournalFindDialog::set_up()
{
    HostDouble::instance().reset();
    mWindow = std::make_unique<Ostrel>();
    mDialog = std::make_unique<JournalFindDialog>();
}

void TstJournalFindDialog::tear_down()
{
    mDialog.reset();
    mWindow.reset();
}

void TstJournalFindDialog::form_has_names_texts_and_places()
{
    QCOMPARE(mDialog->objectName(), u"JournalFindDialog"_s);
    QCOMPARE(mDialog->size(), QSize(214, 168));
    QCOMPARE(mDialog->windowTitle(), u"Find in Journal File"_s);
    QVERIFY(mDialog->isModal());
    QVERIFY(!mDialog->parentWidget());

    auto* outer = qobject_cast<QGridLayout*>(mDialog->layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), u"gridLayout_2"_s);
    QCOMPARE(outer->rowCount(), 3);
    auto* grid = qobject_cast<QGridLayout*>(outer->itemAtPosition(0, 0)->layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), u"gridLayout"_s);
    QCOMPARE(grid->rowCount(), 5);
    const auto* top = qobject_cast<QHBoxLayout*>(grid->itemAtPosition(0, 0)->layout());
    QVERIFY(top);
    QCOMPARE(top->objectName(), u"horizontalLayout"_s);
    const auto* label = child<QLabel>("label");
    QCOMPARE(label->text(), u"Find What:"_s);
    QCOMPARE(top->itemAt(0)->widget(), label);
    QCOMPARE(top->itemAt(1)->widget(), child<QLineEdit>("mFindText"));
    QCOMPARE(child<QLineEdit>("mFindText")->text(), QString());

    struct Box
    {
        const char* name;
        QString text;
        bool checked;
    };
    const Box boxes[] = {{"cbCaseSensitive", u"Case Sensitive"_s, false},
                         {"cbWholeWords", u"Search for Whole Words"_s, false},
                         {"cbSearchUp", u"Search Up"_s, false},
                         {"cbWrapSearch", u"Wrap Search"_s, true}};
    int row = 0;
    for (const Box& box : boxes) {
        const auto* widget = child<QCheckBox>(box.name);
        QVERIFY2(widget, box.name);
        QCOMPARE(grid->itemAtPosition(++row, 0)->widget(), widget);
        QCOMPARE(widget->text(), box.text);
        QCOMPARE(widget->isChecked(), box.checked);
    }

    const auto* bottom = qobject_cast<QHBoxLayout*>(outer->itemAtPosition(1, 0)->layout());
    QVERIFY(bottom);
    QCOMPARE(bottom->objectName(), u"horizontalLayout_2"_s);
    QCOMPARE(bottom->itemAt(0)->widget(), child<QPushButton>("pbClose"));
    QCOMPARE(bottom->itemAt(1)->widget(), child<QPushButton>("pbNext"));
    QCOMPARE(child<QPushButton>("pbClose")->text(), u"C&lose"_s);
    QCOMPARE(child<QPushButton>("pbNext")->text(), u"&Next"_s);

    const QSpacerItem* const spacer = outer->itemAtPosition(2, 0)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(20, 0));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
}

void TstJournalFindDialog::parent_is_kept()
{
    const JournalFindDialog second(mWindow.get());
    QCOMPARE(second.objectName(), u"JournalFindDialog"_s);
    QCOMPARE(second.parentWidget(), mWindow.get());
}

void TstJournalFindDialog::slots_keep_their_order()
{
    const QMetaObject& meta = JournalFindDialog::staticMetaObject;
    QByteArrayList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        methods << meta.method(i).methodSignature();
    }
    QCOMPARE(methods,
             QByteArrayList({"on_pbNext_clicked()", "on_pbClose_clicked()", "showEvent(QShowEvent*)"}));
}

void TstJournalFindDialog::find_opens_a_fresh_dialog_each_time_data()
{
    QTest::addColumn<bool>("by_action");
    QTest::newRow("edit menu") << true;
    QTest::newRow("slot") << false;
}

void TstJournalFindDialog::find_opens_a_fresh_dialog_each_time()
{
    QFETCH(const bool, by_action);
    mDialog.reset();
    const auto dialogs = [] {
        QList<JournalFindDialog*> found;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* dialog = qobject_cast<JournalFindDialog*>(widget))
                found << dialog;
        return found;
    };
    QStringList texts;
    QList<bool> ticked;
    QList<const QWidget*> parents;
    DialogDriver driver;
    for (int i = 0; i < 2; ++i) {
        driver.expect<JournalFindDialog>([&](JournalFindDialog* dialog) {
            auto* field = dialog->findChild<QLineEdit*>(u"mFindText"_s);
            auto* box = dialog->findChild<QCheckBox*>(u"cbSearchUp"_s);
            texts << field->text();
            ticked << box->isChecked();
            parents << dialog->parentWidget();
            field->setText(u"something"_s);
            box->setChecked(true);
            press(u"pbClose"_s)(dialog);
        });
    }
    for (int i = 0; i < 2; ++i) {
        if (by_action)
            action_of(editor(), u"editFindAction"_s)->trigger();
        else
            editor().findText();
    }
    QVERIFY(driver.finish());
    QCOMPARE(texts, QStringList({QString(), QString()}));
    QCOMPARE(ticked, QList<bool>({false, false}));
    QCOMPARE(parents, QList<const QWidget*>({nullptr, nullptr}));
    // None is deleted.
    QCOMPARE(dialogs().size(), 2);
    qDeleteAll(dialogs());
}

void TstJournalFindDialog::both_buttons_and_return_work()
{
    show(u"one two one two"_s, u"two"_s);
    next();
    QCOMPARE(selection(), QPoint(4, 3));
    emit child<QLineEdit>("mFindText")->returnPressed();
    QCOMPARE(selection(), QPoint(12, 3));
    child<QPushButton>("pbClose")->click();
    QVERIFY(mDialog->isHidden());
}

void TstJournalFindDialog::close_hides()
{
    show(u"one"_s, u"one"_s);
    QTest::mouseClick(child<QPushButton>("pbClose"), Qt::LeftButton);
    QVERIFY(mDialog->isHidden());
    QCOMPARE(selection(), QPoint(0, 0));
}

void TstJournalFindDialog::selection_becomes_the_text_to_find()
{
    doc()->setPlainText(u"one two"_s);
    put_caret(4);
    doc()->find(u"two"_s);
    child<QLineEdit>("mFindText")->setText(u"old"_s);
    mDialog->show();
    QCOMPARE(child<QLineEdit>("mFindText")->text(), u"two"_s);
}

void TstJournalFindDialog::no_selection_leaves_the_text()
{
    doc()->setPlainText(u"one two"_s);
    child<QLineEdit>("mFindText")->setText(u"old"_s);
    mDialog->show();
    QCOMPARE(child<QLineEdit>("mFindText")->text(), u"old"_s);
}

void TstJournalFindDialog::document_is_fixed_when_shown()
{
    typed_document(editor(), u"one"_s);
    typed_document(editor(), u"one"_s);
    QCOMPARE(tabs_of(editor())->currentIndex(), 1);
    put_caret(0);
    tabs_of(editor())->setCurrentIndex(0);
    child<QLineEdit>("mFindText")->setText(u"one"_s);
    // Before it is shown there is none.
    next();
    QCOMPARE(selection(), QPoint(0, 0));
    mDialog->show();
    tabs_of(editor())->setCurrentIndex(1);
    next();
    QCOMPARE(selection(), QPoint(0, 3));
    QVERIFY(!document_of(editor(), 1)->textCursor().hasSelection());
}

void TstJournalFindDialog::without_a_document_nothing_happens()
{
    typed_document(editor(), u"one"_s);
    tabs_of(editor())->addTab(new QPlainTextEdit(u"one"_s), u"no document"_s);
    tabs_of(editor())->setCurrentIndex(1);
    put_caret(0);
    mDialog->show();
    child<QLineEdit>("mFindText")->setText(u"one"_s);
    next();
    QCOMPARE(selection(), QPoint(0, 0));
}

void TstJournalFindDialog::without_a_main_window_nothing_happens()
{
    mWindow.reset();
    mDialog->show();
    child<QLineEdit>("mFindText")->setText(u"one"_s);
    next();
    QCOMPARE(child<QLineEdit>("mFindText")->text(), u"one"_s);
    QVERIFY(mDialog->isVisible());
}

void TstJournalFindDialog::hit_is_found_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("find");
    QTest::addColumn<QString>("boxes");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QPoint>("hit");

    const QPoint nothing(-1, 0);
    const auto row = [](const char* name, const QString& text, const QString& find, const QString& boxes,
                        int caret = 0) -> QTestData& {
        return QTest::newRow(name) << text << find << boxes << caret;
    };
    // The box for case works the wrong way round.
    row("exact case", u"abc Abc"_s, u"Abc"_s, u""_s) << QPoint(4, 3);
    row("other case, box unchecked", u"abc"_s, u"Abc"_s, u""_s) << nothing;
    row("other case, box checked", u"abc"_s, u"Abc"_s, u"cbCaseSensitive"_s) << QPoint(0, 3);
    row("part of a word", u"plates plate"_s, u"plate"_s, u""_s) << QPoint(0, 5);
    row("whole word", u"plates plate"_s, u"plate"_s, u"cbWholeWords"_s) << QPoint(7, 5);
    row("up", u"one two one two"_s, u"one"_s, u"cbSearchUp"_s, 15) << QPoint(8, 3);
    row("down from the caret", u"one two one two"_s, u"one"_s, u""_s, 1) << QPoint(8, 3);
    row("up, whole word, any case", u"One ones"_s, u"one"_s, u"cbSearchUp cbWholeWords cbCaseSensitive"_s, 8)
        << QPoint(0, 3);
    row("in a later line", u"a\nb\nneedle"_s, u"needle"_s, u""_s) << QPoint(4, 6);
    row("not a pattern", u"axb a.b"_s, u"a.b"_s, u""_s) << QPoint(4, 3);
    row("not Latin", u"Журнал 日誌"_s, u"日誌"_s, u""_s) << QPoint(7, 2);
}

void TstJournalFindDialog::hit_is_found()
{
    QFETCH(const QString, text);
    QFETCH(const QString, find);
    QFETCH(const QString, boxes);
    QFETCH(const int, caret);
    QFETCH(const QPoint, hit);
    show(text, find);
    put_caret(caret);
    check("cbWrapSearch", false);
    for (const QString& box : boxes.split(u' ', Qt::SkipEmptyParts))
        check(box.toLatin1().constData());
    next();
    if (hit.x() < 0)
        QCOMPARE(selection(), QPoint(caret, 0));
    else
        QCOMPARE(selection(), hit);
}

void TstJournalFindDialog::search_goes_on_from_the_caret()
{
    show(u"one one one"_s, u"one"_s);
    next();
    QCOMPARE(selection(), QPoint(0, 3));
    next();
    QCOMPARE(selection(), QPoint(4, 3));
    check("cbSearchUp");
    next();
    QCOMPARE(selection(), QPoint(0, 3));
}

void TstJournalFindDialog::wrapping_starts_from_the_other_end_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QPoint>("hit");
    QTest::newRow("down") << u"one and two"_s << false << QPoint(0, 3);
    QTest::newRow("up") << u"two and one"_s << true << QPoint(8, 3);
}

void TstJournalFindDialog::wrapping_starts_from_the_other_end()
{
    QFETCH(const QString, text);
    QFETCH(const bool, up);
    QFETCH(const QPoint, hit);
    show(text, u"one"_s);
    put_caret(5);
    check("cbSearchUp", up);
    check("cbWrapSearch", false);
    next();
    QCOMPARE(selection(), QPoint(5, 0));
    check("cbWrapSearch", true);
    next();
    QCOMPARE(selection(), hit);
}

void TstJournalFindDialog::nothing_found_without_wrapping_leaves_the_caret()
{
    show(u"one two"_s, u"three"_s);
    put_caret(3);
    check("cbWrapSearch", false);
    const DialogDriver nothing_comes;
    next();
    QCOMPARE(selection(), QPoint(3, 0));
    QVERIFY(!doc()->document()->isModified());
    QCOMPARE(child<QLineEdit>("mFindText")->text(), u"three"_s);
    QVERIFY(mDialog->isVisible());
    mDialog->hide();
}

void TstJournalFindDialog::nothing_found_with_wrapping_moves_the_caret_data()
{
    QTest::addColumn<bool>("up");
    QTest::addColumn<int>("position");
    QTest::newRow("down") << false << 0;
    QTest::newRow("up") << true << 7;
}

void TstJournalFindDialog::nothing_found_with_wrapping_moves_the_caret()
{
    QFETCH(const bool, up);
    QFETCH(const int, position);
    show(u"one two"_s, u"three"_s);
    put_caret(3);
    check("cbSearchUp", up);
    next();
    QCOMPARE(selection(), QPoint(position, 0));
    QVERIFY(!doc()->document()->isModified());
}

void TstJournalFindDialog::empty_text_does_nothing_at_all()
{
    show(u"one two"_s, u""_s);
    put_caret(3);
    next();
    QCOMPARE(selection(), QPoint(3, 0));
    QVERIFY(!doc()->document()->isModified());
    // Except that the button has the focus.
    QCOMPARE(mDialog->focusWidget(), child<QPushButton>("pbNext"));
}

void TstJournalFindDialog::return_searches_once_and_next_takes_the_focus_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
}

void TstJournalFindDialog::return_searches_once_and_next_takes_the_focus()
{
    // The dialog itself would press its default button as well, so the hits are counted.
    QFETCH(const Qt::Key, key);
    show(u"two two two two"_s, u"two"_s);
    QVERIFY(show_active(mDialog.get()));
    child<QLineEdit>("mFindText")->setFocus();
    QTest::keyClick(mDialog->windowHandle(), key);
    QCOMPARE(mDialog->focusWidget(), child<QPushButton>("pbNext"));
    QCOMPARE(selection(), QPoint(0, 3));
    // From the button on it goes on.
    QTest::keyClick(mDialog->windowHandle(), key);
    QCOMPARE(selection(), QPoint(4, 3));
    child<QLineEdit>("mFindText")->setFocus();
    QTest::keyClick(mDialog->windowHandle(), key);
    QCOMPARE(selection(), QPoint(8, 3));
    QVERIFY(mDialog->isVisible());
}

void TstJournalFindDialog::return_elsewhere_presses_the_default_button()
{
    show(u"two two two two"_s, u"two"_s);
    QVERIFY(show_active(mDialog.get()));
    child<QPushButton>("pbNext")->setDefault(true);
    child<QLineEdit>("mFindText")->setFocus();
    QTest::keyClick(mDialog->windowHandle(), Qt::Key_Return);
    child<QCheckBox>("cbWholeWords")->setFocus();
    QTest::keyClick(mDialog->windowHandle(), Qt::Key_Return);
    QCOMPARE(selection(), QPoint(4, 3));
    child<QCheckBox>("cbWholeWords")->setFocus();
    QTest::keyClick(mDialog->windowHandle(), Qt::Key_Escape);
    QVERIFY(mDialog->isHidden());
}

namespace {

/** Remembers why a widget got the focus. */
class FocusWatch : public QObject
{
public:
    explicit FocusWatch(QWidget* widget) { widget->installEventFilter(this); }
    QList<Qt::FocusReason> reasons;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            reasons << static_cast<QFocusEvent*>(event)->reason();
        return false;
    }
};

} // namespace

void TstJournalFindDialog::next_takes_the_focus_for_another_reason()
{
    show(u"one"_s, u"one"_s);
    QVERIFY(show_active(mDialog.get()));
    child<QLineEdit>("mFindText")->setFocus();
    const FocusWatch watch(child<QPushButton>("pbNext"));
    next();
    QCOMPARE(watch.reasons, QList<Qt::FocusReason>{Qt::OtherFocusReason});
    mDialog->hide();
}

/** The user cannot do that while the dialog is open, but a script can. */
void TstJournalFindDialog::document_that_is_closed_meanwhile_is_not_searched()
{
    doc()->setPlainText(u"one"_s);
    editor().add_document(u"one"_s);
    editor().returnCurrentDocument()->document()->setModified(false);
    mDialog->show();
    child<QLineEdit>("mFindText")->setText(u"one"_s);
    editor().fileClose();
    QCOMPARE(tabs_of(editor())->count(), 1);
    next();
    QCOMPARE(selection(), QPoint(0, 0));
    QVERIFY(mDialog->isVisible());
}

void TstJournalFindDialog::follower_of_the_caret_may_end_the_search_data()
{
    QTest::addColumn<QString>("ended");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("moves");
    for (const QString& ended : {u"document"_s, u"window"_s, u"dialog"_s}) {
        QTest::addRow("%s, hit", qPrintable(ended)) << ended << 0 << 1;
        QTest::addRow("%s, on the way to the other end", qPrintable(ended)) << ended << 5 << 1;
        QTest::addRow("%s, hit behind the other end", qPrintable(ended)) << ended << 5 << 2;
    }
}

void TstJournalFindDialog::follower_of_the_caret_may_end_the_search()
{
    QFETCH(const QString, ended);
    QFETCH(const int, caret);
    QFETCH(const int, moves);
    show(u"one two"_s, u"one"_s);
    put_caret(caret);
    int moved = 0;
    connect(doc(), &QPlainTextEdit::cursorPositionChanged, this, [&] {
        if (++moved != moves)
            return;
        if (ended == u"document"_s)
            delete doc();
        else if (ended == u"window"_s)
            mWindow.reset();
        else
            // Not by its button, which would go on with itself.
            mDialog.reset();
    });
    emit child<QLineEdit>("mFindText")->returnPressed();
    QCOMPARE(moved, moves);
}

void TstJournalFindDialog::document_that_is_searched_is_the_one_that_is_marked()
{
    typed_document(editor(), u"one two"_s);
    const JournalDocument* const other = typed_document(editor(), u"one two"_s);
    QCOMPARE(tabs_of(editor())->count(), 2);
    tabs_of(editor())->setCurrentIndex(0);
    show(u"one two"_s, u"two"_s);
    int moved = 0;
    connect(doc(), &QPlainTextEdit::cursorPositionChanged, this, [&] {
        if (++moved > 1)
            return;
        tabs_of(editor())->setCurrentIndex(1);
        mDialog->hide();
        mDialog->show();
    });
    next();
    QVERIFY(moved > 0);
    QCOMPARE(gray(), QList<int>({4, 5, 6}));
    QVERIFY(!other->textCursor().hasSelection());
}

void TstJournalFindDialog::hit_turns_gray_and_the_document_is_modified()
{
    show(u"one two"_s, u"two"_s);
    QVERIFY(!doc()->document()->isModified());
    next();
    QCOMPARE(gray(), QList<int>({4, 5, 6}));
    QVERIFY(doc()->document()->isModified());
    QCOMPARE(tab_texts(editor()), QStringList(u"* Untitled"_s));
    QCOMPARE(doc()->toPlainText(), u"one two"_s);
}

void TstJournalFindDialog::gray_stays_when_the_search_goes_on()
{
    show(u"one two two"_s, u"two"_s);
    next();
    next();
    QCOMPARE(gray(), QList<int>({4, 5, 6, 8, 9, 10}));
    put_caret(0);
    mDialog->close();
    QCOMPARE(gray(), QList<int>({4, 5, 6, 8, 9, 10}));
}

void TstJournalFindDialog::hit_after_wrapping_stays_white()
{
    show(u"one two"_s, u"one"_s);
    put_caret(5);
    next();
    QCOMPARE(selection(), QPoint(0, 3));
    QCOMPARE(gray(), QList<int>());
    QVERIFY(!doc()->document()->isModified());
}

void TstJournalFindDialog::gray_is_not_saved_with_the_text()
{
    QTemporaryDir directory;
    show(u"one two"_s, u"two"_s);
    next();
    doc()->set_file_name(directory.filePath(u"a.jou"_s));
    editor().fileSave();
    QFile file(directory.filePath(u"a.jou"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "one two");
}

OSTREL_TEST(TstJournalFindDialog)
#include "tst_journalfinddialog.moc"
