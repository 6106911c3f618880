// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstCommandDialog : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void it_says_what_the_command_does();
    void ok_sends_the_line_and_closes();
    void return_is_ok();
    void nothing_is_sent_while_something_is_wrong();
    void escape_and_cancel_send_nothing_data();
    void escape_and_cancel_send_nothing();
    void tab_goes_through_fields_and_buttons();
    void tab_goes_on_behind_names_that_can_be_chosen();
    void receiver_may_delete_it();

private:
    QLineEdit* width() const { return mDialog->findChild<QLineEdit*>(u"valueWIDTH"_s); }
    QPushButton* button(QDialogButtonBox::StandardButton which) const
    {
        return mDialog->findChild<QDialogButtonBox*>()->button(which);
    }

    CommandRegistry mRegistry;
    QStringList mSent;
    QPointer<QDialog> mDialog;
};

void TstCommandDialog::set_up()
{
    mRegistry.add({.name = u"brick"_s,
                   .summary = u"Makes a brick."_s,
                   .perform = [](CommandCall&, const CommandArguments&) {},
                   .forms = {{{required_value(
                       {.name = u"WIDTH"_s, .kind = CommandParameter::Kind::Number, .label = "Width"})}}}});
    set_form_services({&mRegistry, nullptr, {}});
    mSent.clear();
    set_command_sink([this](const QString& line) { mSent << line; });
    mDialog = new_command_dialog(u"brick"_s, u"Brick"_s, nullptr);
    QVERIFY(show_active(mDialog));
}

void TstCommandDialog::tear_down()
{
    delete mDialog;
    set_command_sink({});
    set_form_services({});
}

void TstCommandDialog::it_says_what_the_command_does()
{
    QCOMPARE(mDialog->windowTitle(), u"Brick"_s);
    QCOMPARE(mDialog->objectName(), u"commandDialog_brick"_s);
    QCOMPARE(mDialog->findChild<QLabel*>(u"commandTip"_s)->text(), u"Makes a brick."_s);
    QVERIFY(mDialog->findChild<QLabel*>(u"commandTip"_s)->isVisible());
    QVERIFY(!mDialog->findChild<QLabel*>(u"commandTitle"_s)->isVisible());
}

void TstCommandDialog::ok_sends_the_line_and_closes()
{
    QVERIFY(width()->hasFocus());
    QTest::keyClicks(width(), u"5"_s);
    QTest::mouseClick(button(QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(mSent, QStringList(u"brick 5"_s));
    QVERIFY(!mDialog->isVisible());
    QTRY_VERIFY(!mDialog);
}

void TstCommandDialog::return_is_ok()
{
    QVERIFY(button(QDialogButtonBox::Ok)->isDefault());
    QTest::keyClicks(width(), u"5"_s);
    QTest::keyClick(width(), Qt::Key_Return);
    QCOMPARE(mSent, QStringList(u"brick 5"_s));
    QVERIFY(!mDialog->isVisible());
}

void TstCommandDialog::nothing_is_sent_while_something_is_wrong()
{
    QTest::keyClicks(width(), u"x"_s);
    QVERIFY(!button(QDialogButtonBox::Ok)->isEnabled());
    QTest::keyClick(width(), Qt::Key_Return);
    QVERIFY(mSent.isEmpty() && mDialog->isVisible());
}

void TstCommandDialog::escape_and_cancel_send_nothing_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("escape") << true;
    QTest::newRow("cancel") << false;
}

void TstCommandDialog::escape_and_cancel_send_nothing()
{
    QFETCH(const bool, escape);
    QTest::keyClicks(width(), u"5"_s);
    if (escape)
        QTest::keyClick(width(), Qt::Key_Escape);
    else
        QTest::mouseClick(button(QDialogButtonBox::Cancel), Qt::LeftButton);
    QVERIFY(mSent.isEmpty() && !mDialog->isVisible());
}

void TstCommandDialog::tab_goes_through_fields_and_buttons()
{
    QTest::keyClicks(width(), u"5"_s);
    QWidgetList visited;
    for (int step = 0; step < 6; ++step) {
        visited << QApplication::focusWidget();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, QWidgetList({width(), mDialog->findChild<QWidget*>(u"commandLine"_s),
                                   mDialog->findChild<QWidget*>(u"editLine"_s), button(QDialogButtonBox::Ok),
                                   button(QDialogButtonBox::Cancel), width()}));
}

void TstCommandDialog::tab_goes_on_behind_names_that_can_be_chosen()
{
    const CommandParameter solid{
        .name = u"SOLID"_s, .kind = CommandParameter::Kind::Entity, .label = "Solid", .entity = u"solid"_s};
    CommandParameter name = solid;
    name.name = u"NAME"_s;
    name.kind = CommandParameter::Kind::NewName;
    mRegistry.add({.name = u"rename"_s,
                   .perform = [](CommandCall&, const CommandArguments&) {},
                   .forms = {{{required_value(solid), required_value(name)}}}});
    delete mDialog;
    mDialog = new_command_dialog(u"rename"_s, u"Rename"_s, nullptr);
    QVERIFY(show_active(mDialog));
    QStringList visited;
    for (int step = 0; step < 6; ++step) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, QStringList({u"valueSOLID"_s, u"valueNAME"_s, u"commandLine"_s, u"editLine"_s,
                                   QString(), u"valueSOLID"_s}));
}

void TstCommandDialog::receiver_may_delete_it()
{
    set_command_sink([this](const QString& line) {
        delete mDialog;
        mSent << line;
    });
    QTest::keyClicks(width(), u"5"_s);
    button(QDialogButtonBox::Ok)->click();
    QCOMPARE(mSent, QStringList(u"brick 5"_s));
    QVERIFY(!mDialog);
}

OSTREL_TEST(TstCommandDialog)
#include "tst_commanddialog.moc"
