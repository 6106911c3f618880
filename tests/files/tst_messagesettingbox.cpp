// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/MessageSettingBox.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int unknown_code = 2048;

QPushButton* button(const QWidget& box, const QString& name)
{
    return box.findChild<QPushButton*>(name);
}

QLabel* message(const QWidget& box)
{
    return box.findChild<QLabel*>(u"mMessage"_s);
}

QCheckBox* prompt(const QWidget& box)
{
    return box.findChild<QCheckBox*>(u"mPrompt"_s);
}

/** What the three buttons read, from left to right; "-" for a hidden one. */
QStringList buttons(const QWidget& box)
{
    QStringList texts;
    for (const auto& name : {u"mYesButton"_s, u"mNoButton"_s, u"mCancelButton"_s})
        texts << (button(box, name)->isHidden() ? u"-"_s : button(box, name)->text());
    return texts;
}

/** The margins in the order left, top, right, bottom, then the spacing. */
QList<int> measures(const QLayout* layout)
{
    const QMargins margins = layout->contentsMargins();
    return {margins.left(), margins.top(), margins.right(), margins.bottom(), layout->spacing()};
}

/** Row, column, and the rows and columns spanned by an item of a grid. */
QList<int> place(const QGridLayout* grid, int index)
{
    QList<int> place(4);
    grid->getItemPosition(index, &place[0], &place[1], &place[2], &place[3]);
    return place;
}

struct Outcome
{
    int result;
    int accepted;
    int rejected;
};

/** Runs @p act on a box that is shown and active, and tells how the box was closed. */
template <class Act>
Outcome outcome(MessageSettingBox& box, Act act)
{
    const QSignalSpy accepted(&box, &QDialog::accepted);
    const QSignalSpy rejected(&box, &QDialog::rejected);
    if (!show_active(&box))
        return {-1, -1, -1};
    act();
    return {box.get_result(), static_cast<int>(accepted.count()), static_cast<int>(rejected.count())};
}

} // namespace

#define COMPARE_OUTCOME(actual, code, accepts)                                                               \
    do {                                                                                                     \
        const Outcome seen = (actual);                                                                       \
        QCOMPARE(seen.result, code);                                                                         \
        QCOMPARE(seen.accepted, (accepts) ? 1 : 0);                                                          \
        QCOMPARE(seen.rejected, (accepts) ? 0 : 1);                                                          \
    } while (false)

#define COMPARE_STILL_OPEN(actual, box)                                                                      \
    do {                                                                                                     \
        const Outcome seen = (actual);                                                                       \
        QCOMPARE(seen.result, 0);                                                                            \
        QCOMPARE(seen.accepted + seen.rejected, 0);                                                          \
        QVERIFY((box).isVisible());                                                                          \
        (box).hide();                                                                                        \
    } while (false)

class TstMessageSettingBox : public TestCase
{
    Q_OBJECT

private slots:
    void form_has_the_names_texts_and_measures();
    void widgets_have_their_places_in_the_grid();
    void texts_are_translated();
    void first_button_is_the_default_one();

    void three_buttons_have_their_codes_at_the_start_data();
    void three_buttons_have_their_codes_at_the_start();
    void code_gives_a_button_its_text_and_its_way_to_close_data();
    void code_gives_a_button_its_text_and_its_way_to_close();
    void unknown_code_leaves_the_button_as_it_is_and_rejects_data();
    void unknown_code_leaves_the_button_as_it_is_and_rejects();
    void double_code_hides_the_later_button_data();
    void double_code_hides_the_later_button();
    void hidden_button_stays_hidden_when_it_gets_a_code_again();
    void closing_without_a_button_gives_no_code();
    void result_is_known_when_the_box_tells_that_it_closes();

    void shortcuts_are_bare_keys_of_the_dialog_and_what_it_holds();
    void key_of_an_offered_button_presses_it_data();
    void key_of_an_offered_button_presses_it();
    void key_of_no_offered_button_does_nothing_data();
    void key_of_no_offered_button_does_nothing();
    void key_works_wherever_the_focus_is_data();
    void key_works_wherever_the_focus_is();
    void key_with_a_modifier_is_no_shortcut_of_the_box();
    void alt_key_presses_the_button_of_that_letter();
    void ambiguous_key_presses_as_well();
    void shortcut_of_others_is_ignored();
    void call_from_no_shortcut_is_ignored();

    void check_box_says_the_opposite_of_asking_again();
    void icon_and_texts_are_set();

    void size_fits_the_widest_line_and_counts_all_lines_data();
    void size_fits_the_widest_line_and_counts_all_lines();
    void empty_message_sets_no_minimum_size_but_fixes_the_dialogs();
    void message_of_empty_lines_sets_no_minimum_size();
    void size_follows_the_labels_font();
    void hidden_buttons_take_no_room();
};

void TstMessageSettingBox::form_has_the_names_texts_and_measures()
{
    const MessageSettingBox box;
    QCOMPARE(box.objectName(), u"QtMessageSettingBox"_s);
    QCOMPARE(box.windowTitle(), u"Warning"_s);
    QCOMPARE(box.size(), QSize(294, 125));
    QCOMPARE(box.sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));

    const auto* icon = box.findChild<QLabel*>(u"mIcon"_s);
    QCOMPARE(icon->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(icon->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(icon->alignment(), Qt::AlignCenter);
    QVERIFY(!icon->wordWrap());
    const QPixmap warning(u":/ostrelgui/images/light/warning.svg"_s);
    QVERIFY(!warning.isNull());
    QCOMPARE(icon->pixmap(Qt::ReturnByValue).toImage(), warning.toImage());

    QCOMPARE(message(box)->text(), u"Warning Message"_s);
    QCOMPARE(message(box)->alignment(), Qt::AlignVCenter);
    QVERIFY(message(box)->wordWrap());

    QCOMPARE(prompt(box)->text(), u"Don't ask me this again."_s);
    QCOMPARE(prompt(box)->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(prompt(box)->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(!prompt(box)->isChecked());

    QCOMPARE(buttons(box), QStringList({u"&Yes"_s, u"&No"_s, u"&Cancel"_s}));
    QCOMPARE(button(box, u"mYesButton"_s)->shortcut(), QKeySequence(u"Alt+Y"_s));
    QCOMPARE(button(box, u"mNoButton"_s)->shortcut(), QKeySequence(u"Alt+N"_s));
    QCOMPARE(button(box, u"mCancelButton"_s)->shortcut(), QKeySequence(u"Alt+C"_s));
}

void TstMessageSettingBox::widgets_have_their_places_in_the_grid()
{
    const MessageSettingBox box;
    const auto* grid = box.findChild<QGridLayout*>(u"gridLayout"_s);
    QCOMPARE(grid, box.layout());
    QCOMPARE(measures(grid), QList<int>({10, 10, 10, 10, 6}));
    QCOMPARE(grid->count(), 5);
    QCOMPARE(place(grid, grid->indexOf(box.findChild<QLabel*>(u"mIcon"_s))), QList<int>({0, 0, 1, 1}));
    QCOMPARE(place(grid, grid->indexOf(message(box))), QList<int>({0, 1, 1, 1}));
    QCOMPARE(place(grid, grid->indexOf(prompt(box))), QList<int>({2, 1, 1, 1}));

    const QSpacerItem* gap = grid->itemAtPosition(1, 1)->spacerItem();
    QVERIFY(gap);
    QCOMPARE(gap->sizeHint(), QSize(20, 20));
    QCOMPARE(gap->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed));

    const auto* row = box.findChild<QHBoxLayout*>(u"hboxLayout"_s);
    QCOMPARE(grid->itemAtPosition(3, 0)->layout(), row);
    QCOMPARE(grid->itemAtPosition(3, 1)->layout(), row);
    QCOMPARE(measures(row), QList<int>({0, 0, 0, 0, 6}));
    QCOMPARE(row->count(), 5);
    for (const int index : {0, 4}) {
        const QSpacerItem* spacer = row->itemAt(index)->spacerItem();
        QVERIFY(spacer);
        QCOMPARE(spacer->sizeHint(), QSize(0, 20));
        QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    }
    QCOMPARE(row->itemAt(1)->widget(), button(box, u"mYesButton"_s));
    QCOMPARE(row->itemAt(2)->widget(), button(box, u"mNoButton"_s));
    QCOMPARE(row->itemAt(3)->widget(), button(box, u"mCancelButton"_s));
}

void TstMessageSettingBox::texts_are_translated()
{
    {
        const MarkingTranslator marked("QtMessageSettingBox");
        const MessageSettingBox box;
        QCOMPARE(box.windowTitle(), u"<Warning>"_s);
        QCOMPARE(message(box)->text(), u"<Warning Message>"_s);
        QCOMPARE(prompt(box)->text(), u"<Don't ask me this again.>"_s);
        QCOMPARE(buttons(box), QStringList({u"<&Yes>"_s, u"<&No>"_s, u"<&Cancel>"_s}));
        // "<Alt+Y>" names no key.
        QVERIFY(button(box, u"mYesButton"_s)->shortcut() != QKeySequence(u"Alt+Y"_s));
    }
    const MarkingTranslator marked("MessageSettingBox");
    MessageSettingBox box;
    box.set_buttons(QMessageBox::YesToAll, QMessageBox::Abort, QMessageBox::Retry);
    QCOMPARE(buttons(box), QStringList({u"<&Yes to All>"_s, u"<&Abort>"_s, u"<&Retry>"_s}));
}

void TstMessageSettingBox::first_button_is_the_default_one()
{
    MessageSettingBox box;
    QVERIFY(button(box, u"mYesButton"_s)->isDefault());
    COMPARE_OUTCOME(outcome(box,
                            [&] {
                                prompt(box)->setFocus();
                                QTest::keyClick(prompt(box), Qt::Key_Return);
                            }),
                    16384, true);
}

void TstMessageSettingBox::three_buttons_have_their_codes_at_the_start_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("accepts");
    QTest::newRow("yes") << u"mYesButton"_s << 16384 << true;
    QTest::newRow("no") << u"mNoButton"_s << 65536 << false;
    QTest::newRow("cancel") << u"mCancelButton"_s << 4194304 << false;
}

void TstMessageSettingBox::three_buttons_have_their_codes_at_the_start()
{
    QFETCH(const QString, name);
    QFETCH(const int, code);
    QFETCH(const bool, accepts);
    MessageSettingBox box;
    QCOMPARE(box.get_result(), 0);
    COMPARE_OUTCOME(outcome(box, [&] { button(box, name)->click(); }), code, accepts);
}

void TstMessageSettingBox::code_gives_a_button_its_text_and_its_way_to_close_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepts");
    QTest::newRow("ok") << 1024 << u"&OK"_s << true;
    QTest::newRow("yes") << 16384 << u"&Yes"_s << true;
    QTest::newRow("yes to all") << 32768 << u"&Yes to All"_s << true;
    QTest::newRow("no") << 65536 << u"&No"_s << false;
    QTest::newRow("no to all") << 131072 << u"&No to All"_s << false;
    QTest::newRow("abort") << 262144 << u"&Abort"_s << false;
    QTest::newRow("retry") << 524288 << u"&Retry"_s << true;
    QTest::newRow("ignore") << 1048576 << u"&Ignore"_s << false;
    QTest::newRow("cancel") << 4194304 << u"&Cancel"_s << false;
}

void TstMessageSettingBox::code_gives_a_button_its_text_and_its_way_to_close()
{
    QFETCH(const int, code);
    QFETCH(const QString, text);
    QFETCH(const bool, accepts);
    const QList<QString> names{u"mYesButton"_s, u"mNoButton"_s, u"mCancelButton"_s};
    for (int place = 0; place < 3; ++place) {
        MessageSettingBox box;
        box.set_buttons(place == 0 ? code : 1, place == 1 ? code : 2, place == 2 ? code : 3);
        QCOMPARE(buttons(box)[place], text);
        COMPARE_OUTCOME(outcome(box, [&] { button(box, names[place])->click(); }), code, accepts);
    }
}

void TstMessageSettingBox::unknown_code_leaves_the_button_as_it_is_and_rejects_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("standard button without a place here") << unknown_code;
    QTest::newRow("next to a known one") << 16385;
    QTest::newRow("smallest") << 1;
    QTest::newRow("negative") << -1;
}

void TstMessageSettingBox::unknown_code_leaves_the_button_as_it_is_and_rejects()
{
    QFETCH(const int, code);
    MessageSettingBox box;
    box.set_buttons(QMessageBox::Retry, QMessageBox::No, QMessageBox::Cancel);
    box.set_buttons(code, QMessageBox::No, QMessageBox::Cancel);
    QCOMPARE(buttons(box), QStringList({u"&Retry"_s, u"&No"_s, u"&Cancel"_s}));
    COMPARE_OUTCOME(outcome(box, [&] { button(box, u"mYesButton"_s)->click(); }), code, false);
}

void TstMessageSettingBox::double_code_hides_the_later_button_data()
{
    QTest::addColumn<QList<int>>("codes");
    QTest::addColumn<QStringList>("shown");
    const int yes = QMessageBox::Yes;
    const int no = QMessageBox::No;
    const int cancel = QMessageBox::Cancel;
    QTest::newRow("none twice") << QList<int>{yes, no, cancel}
                                << QStringList{u"&Yes"_s, u"&No"_s, u"&Cancel"_s};
    QTest::newRow("first two") << QList<int>{yes, yes, cancel}
                               << QStringList{u"&Yes"_s, u"-"_s, u"&Cancel"_s};
    QTest::newRow("last two") << QList<int>{yes, no, no} << QStringList{u"&Yes"_s, u"&No"_s, u"-"_s};
    QTest::newRow("first and last") << QList<int>{yes, no, yes} << QStringList{u"&Yes"_s, u"&No"_s, u"-"_s};
    QTest::newRow("all three") << QList<int>{yes, yes, yes} << QStringList{u"&Yes"_s, u"-"_s, u"-"_s};
    QTest::newRow("no code for the first")
        << QList<int>{0, no, cancel} << QStringList{u"-"_s, u"&No"_s, u"&Cancel"_s};
    QTest::newRow("no code for the second")
        << QList<int>{yes, 0, cancel} << QStringList{u"&Yes"_s, u"-"_s, u"&Cancel"_s};
    QTest::newRow("a code for the second alone")
        << QList<int>{0, no, 0} << QStringList{u"-"_s, u"&No"_s, u"-"_s};
    QTest::newRow("no codes") << QList<int>{0, 0, 0} << QStringList{u"-"_s, u"-"_s, u"-"_s};
}

void TstMessageSettingBox::double_code_hides_the_later_button()
{
    QFETCH(const QList<int>, codes);
    QFETCH(const QStringList, shown);
    MessageSettingBox box;
    box.set_buttons(codes[0], codes[1], codes[2]);
    QCOMPARE(buttons(box), shown);
}

void TstMessageSettingBox::hidden_button_stays_hidden_when_it_gets_a_code_again()
{
    MessageSettingBox box;
    box.set_buttons(QMessageBox::Yes, 0, QMessageBox::Cancel);
    box.set_buttons(QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel);
    QCOMPARE(buttons(box), QStringList({u"&Yes"_s, u"-"_s, u"&Cancel"_s}));
}

void TstMessageSettingBox::closing_without_a_button_gives_no_code()
{
    MessageSettingBox escaped;
    COMPARE_OUTCOME(outcome(escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); }), 0, false);
    MessageSettingBox closed;
    COMPARE_OUTCOME(outcome(closed, [&] { closed.close(); }), 0, false);
}

void TstMessageSettingBox::result_is_known_when_the_box_tells_that_it_closes()
{
    MessageSettingBox box;
    QList<int> results;
    connect(&box, &QDialog::finished, &box, [&] { results << box.get_result(); });
    QVERIFY(show_active(&box));
    button(box, u"mNoButton"_s)->click();
    QVERIFY(show_active(&box));
    QTest::keyClick(&box, Qt::Key_Y);
    QCOMPARE(results, QList<int>({65536, 16384}));
}

void TstMessageSettingBox::shortcuts_are_bare_keys_of_the_dialog_and_what_it_holds()
{
    const MessageSettingBox box;
    QStringList keys;
    for (const QShortcut* shortcut : box.findChildren<QShortcut*>()) {
        QCOMPARE(shortcut->parent(), &box);
        QCOMPARE(shortcut->context(), Qt::WidgetWithChildrenShortcut);
        keys << shortcut->key().toString(QKeySequence::PortableText);
    }
    QCOMPARE(keys, QStringList({u"O"_s, u"C"_s, u"Y"_s, u"N"_s, u"A"_s, u"R"_s, u"I"_s}));
}

void TstMessageSettingBox::key_of_an_offered_button_presses_it_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("accepts");
    QTest::newRow("O") << int(Qt::Key_O) << 1024 << true;
    QTest::newRow("C") << int(Qt::Key_C) << 4194304 << false;
    QTest::newRow("Y") << int(Qt::Key_Y) << 16384 << true;
    QTest::newRow("N") << int(Qt::Key_N) << 65536 << false;
    QTest::newRow("A") << int(Qt::Key_A) << 262144 << false;
    QTest::newRow("R") << int(Qt::Key_R) << 524288 << true;
    QTest::newRow("I") << int(Qt::Key_I) << 1048576 << false;
}

void TstMessageSettingBox::key_of_an_offered_button_presses_it()
{
    QFETCH(const int, key);
    QFETCH(const int, code);
    QFETCH(const bool, accepts);
    for (int place = 0; place < 3; ++place) {
        MessageSettingBox box;
        box.set_buttons(place == 0 ? code : 1, place == 1 ? code : 2, place == 2 ? code : 3);
        COMPARE_OUTCOME(outcome(box, [&] { QTest::keyClick(&box, Qt::Key(key)); }), code, accepts);
    }
}

void TstMessageSettingBox::key_of_no_offered_button_does_nothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<int>>("codes");
    const QList<int> usual{QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    QTest::newRow("retry is not offered") << int(Qt::Key_R) << usual;
    QTest::newRow("ok is not offered") << int(Qt::Key_O) << usual;
    QTest::newRow("letter of no button") << int(Qt::Key_X) << usual;
    QTest::newRow("yes to all has no key") << int(Qt::Key_Y) << QList<int>{QMessageBox::YesToAll, 0, 0};
    QTest::newRow("no to all has no key") << int(Qt::Key_N) << QList<int>{0, QMessageBox::NoToAll, 0};
    QTest::newRow("nothing is offered") << int(Qt::Key_Y) << QList<int>{0, 0, 0};
}

void TstMessageSettingBox::key_of_no_offered_button_does_nothing()
{
    QFETCH(const int, key);
    QFETCH(const QList<int>, codes);
    MessageSettingBox box;
    box.set_buttons(codes[0], codes[1], codes[2]);
    COMPARE_STILL_OPEN(outcome(box, [&] { QTest::keyClick(&box, Qt::Key(key)); }), box);
}

void TstMessageSettingBox::key_works_wherever_the_focus_is_data()
{
    QTest::addColumn<QString>("focus");
    QTest::newRow("check box") << u"mPrompt"_s;
    QTest::newRow("first button") << u"mYesButton"_s;
    QTest::newRow("last button") << u"mCancelButton"_s;
}

void TstMessageSettingBox::key_works_wherever_the_focus_is()
{
    QFETCH(const QString, focus);
    MessageSettingBox box;
    COMPARE_OUTCOME(outcome(box,
                            [&] {
                                auto* widget = box.findChild<QWidget*>(focus);
                                widget->setFocus();
                                QTest::keyClick(widget, Qt::Key_N);
                            }),
                    65536, false);
}

void TstMessageSettingBox::key_with_a_modifier_is_no_shortcut_of_the_box()
{
    MessageSettingBox box;
    COMPARE_STILL_OPEN(outcome(box, [&] { QTest::keyClick(&box, Qt::Key_N, Qt::ControlModifier); }), box);
}

void TstMessageSettingBox::alt_key_presses_the_button_of_that_letter()
{
    MessageSettingBox box;
    box.set_buttons(QMessageBox::Yes, QMessageBox::NoToAll, QMessageBox::Cancel);
    // The button shows itself pressed for a moment.
    COMPARE_OUTCOME(outcome(box,
                            [&] {
                                QTest::keyClick(&box, Qt::Key_N, Qt::AltModifier);
                                QTRY_VERIFY(!box.isVisible());
                            }),
                    131072, false);
}

void TstMessageSettingBox::ambiguous_key_presses_as_well()
{
    MessageSettingBox box;
    const QShortcut other(QKeySequence(Qt::Key_N), &box);
    COMPARE_OUTCOME(outcome(box,
                            [&] {
                                // Qt gives each press of an ambiguous key to the next of those who want it.
                                for (int i = 0; i < 2 && box.isVisible(); ++i)
                                    QTest::keyClick(&box, Qt::Key_N);
                            }),
                    65536, false);
}

void TstMessageSettingBox::shortcut_of_others_is_ignored()
{
    MessageSettingBox box;
    QShortcut other(QKeySequence(Qt::Key_F5), &box);
    QVERIFY(connect(&other, SIGNAL(activated()), &box, SLOT(handle_shortcut())));
    COMPARE_STILL_OPEN(outcome(box, [&] { QTest::keyClick(&box, Qt::Key_F5); }), box);
}

void TstMessageSettingBox::call_from_no_shortcut_is_ignored()
{
    MessageSettingBox box;
    QVERIFY(connect(prompt(box), SIGNAL(clicked()), &box, SLOT(handle_shortcut())));
    COMPARE_STILL_OPEN(outcome(box,
                               [&] {
                                   prompt(box)->click();
                                   QMetaObject::invokeMethod(&box, "handle_shortcut");
                               }),
                       box);
}

void TstMessageSettingBox::check_box_says_the_opposite_of_asking_again()
{
    MessageSettingBox box;
    QVERIFY(box.do_prompt_again());
    box.set_prompt_again(true);
    QVERIFY(prompt(box)->isChecked());
    QVERIFY(!box.do_prompt_again());
    box.set_prompt_again(false);
    QVERIFY(!prompt(box)->isChecked());
    QVERIFY(box.do_prompt_again());
    prompt(box)->click();
    QVERIFY(!box.do_prompt_again());
}

void TstMessageSettingBox::icon_and_texts_are_set()
{
    MessageSettingBox box;
    QPixmap icon(20, 10);
    icon.fill(Qt::red);
    box.set_icon(icon);
    box.set_message(u"What\nnow?"_s);
    box.set_prompt_text(u"Enough"_s);
    QCOMPARE(box.findChild<QLabel*>(u"mIcon"_s)->pixmap(Qt::ReturnByValue).toImage(), icon.toImage());
    QCOMPARE(message(box)->text(), u"What\nnow?"_s);
    QCOMPARE(prompt(box)->text(), u"Enough"_s);
    box.set_icon(QPixmap());
    QVERIFY(box.findChild<QLabel*>(u"mIcon"_s)->pixmap(Qt::ReturnByValue).isNull());
}

void TstMessageSettingBox::size_fits_the_widest_line_and_counts_all_lines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("widest");
    QTest::addColumn<int>("lines");
    QTest::newRow("one line") << u"Really?"_s << u"Really?"_s << 1;
    QTest::newRow("second line empty") << u"Really?\n"_s << u"Really?"_s << 2;
    QTest::newRow("first line empty") << u"\nReally?"_s << u"Really?"_s << 2;
    QTest::newRow("line between empty") << u"One\n\nthree of them"_s << u"three of them"_s << 3;
    QTest::newRow("widest line in front") << u"One that is wider\ntwo"_s << u"One that is wider"_s << 2;
    QTest::newRow("long line") << QString(300, u'm') << QString(300, u'm') << 1;
    QTest::newRow("other letters") << u"Данные изменены\nсохранить?"_s << u"Данные изменены"_s << 2;
}

void TstMessageSettingBox::size_fits_the_widest_line_and_counts_all_lines()
{
    QFETCH(const QString, text);
    QFETCH(const QString, widest);
    QFETCH(const int, lines);
    MessageSettingBox box;
    box.set_message(text);
    box.adjust_size();
    const QFontMetrics metrics(message(box)->font());
    QCOMPARE(message(box)->minimumSize(),
             QSize(metrics.horizontalAdvance(widest) + 10, metrics.height() * lines));
    QCOMPARE(box.minimumSize(), box.minimumSizeHint() + QSize(0, 20));
    QCOMPARE(box.maximumSize(), box.minimumSize());
    QCOMPARE(box.size(), box.minimumSize());
    QVERIFY(box.width() > message(box)->minimumWidth());
    QVERIFY(box.height() > message(box)->minimumHeight());
}

void TstMessageSettingBox::empty_message_sets_no_minimum_size_but_fixes_the_dialogs()
{
    MessageSettingBox box;
    box.set_message(QString());
    box.adjust_size();
    QCOMPARE(message(box)->minimumSize(), QSize(0, 0));
    QCOMPARE(box.minimumSize(), box.minimumSizeHint() + QSize(0, 20));
    QCOMPARE(box.maximumSize(), box.minimumSize());
}

void TstMessageSettingBox::message_of_empty_lines_sets_no_minimum_size()
{
    MessageSettingBox box;
    box.set_message(u"\n\n"_s);
    box.adjust_size();
    QCOMPARE(message(box)->minimumSize(), QSize(0, 0));
}

void TstMessageSettingBox::size_follows_the_labels_font()
{
    MessageSettingBox box;
    box.set_message(u"Really?"_s);
    box.adjust_size();
    const QSize before = box.size();
    QFont font = message(box)->font();
    font.setPointSize(font.pointSize() * 4);
    message(box)->setFont(font);
    box.adjust_size();
    QCOMPARE(message(box)->minimumWidth(), QFontMetrics(font).horizontalAdvance(u"Really?"_s) + 10);
    QVERIFY(box.height() > before.height());
}

void TstMessageSettingBox::hidden_buttons_take_no_room()
{
    MessageSettingBox three;
    three.set_message(QString());
    three.adjust_size();
    MessageSettingBox one;
    one.set_message(QString());
    one.set_buttons(QMessageBox::Ok, 0, 0);
    one.adjust_size();
    QVERIFY(one.width() < three.width());
}

OSTREL_TEST(TstMessageSettingBox)
#include "tst_messagesettingbox.moc"
