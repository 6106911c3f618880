// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelMessageBox.h"
#include "support/TestCase.h"
#include "support/dialogs.h"

#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Ask = int (*)(QWidget*, const QString&, const QString&, bool&, int, int, int, const QString&);

/** What a box shows when it opens. */
struct Shown
{
    QString title;
    QString message;
    QImage icon;
    QString prompt_text;
    bool prompt_visible = false;
    bool ticked = false;
    QStringList buttons;
    const QWidget* parent = nullptr;
    QSize size;
    QSize fixed_size;
    QPointer<QWidget> box;
};

Shown read(QWidget* box)
{
    Shown shown;
    shown.title = box->windowTitle();
    shown.message = box->findChild<QLabel*>(u"mMessage"_s)->text();
    shown.icon = box->findChild<QLabel*>(u"mIcon"_s)->pixmap(Qt::ReturnByValue).toImage();
    const auto* prompt = box->findChild<QCheckBox*>(u"mPrompt"_s);
    shown.prompt_text = prompt->text();
    shown.prompt_visible = prompt->isVisible();
    shown.ticked = prompt->isChecked();
    for (const QPushButton* button : box->findChildren<QPushButton*>()) {
        if (button->isVisible())
            shown.buttons << button->text();
    }
    shown.parent = box->parentWidget();
    shown.size = box->size();
    shown.fixed_size = box->minimumSizeHint() + QSize(0, 20);
    shown.box = box;
    return shown;
}

} // namespace

class TstOstrelMessageBox : public TestCase
{
    Q_OBJECT

private slots:
    void each_kind_shows_its_picture_data();
    void each_kind_shows_its_picture();
    void box_shows_what_it_was_given();
    void code_of_the_pressed_button_comes_back_data();
    void code_of_the_pressed_button_comes_back();
    void tick_goes_in_and_comes_out_with_a_text_data();
    void tick_goes_in_and_comes_out_with_a_text();
    void wish_to_be_asked_comes_out_without_a_text_data();
    void wish_to_be_asked_comes_out_without_a_text();
    void box_is_gone_when_the_call_returns();
    void box_goes_with_its_parent();
};

void TstOstrelMessageBox::each_kind_shows_its_picture_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<int>("icon");
    QTest::newRow("information") << &OstrelMessageBox::information << int(QMessageBox::Information);
    QTest::newRow("question") << &OstrelMessageBox::question << int(QMessageBox::Question);
    QTest::newRow("warning") << &OstrelMessageBox::warning << int(QMessageBox::Warning);
    QTest::newRow("critical") << &OstrelMessageBox::critical << int(QMessageBox::Critical);
}

void TstOstrelMessageBox::each_kind_shows_its_picture()
{
    QFETCH(const Ask, ask);
    QFETCH(const int, icon);
    QMessageBox model;
    model.setIcon(QMessageBox::Icon(icon));
    QVERIFY(!model.iconPixmap().isNull());

    Shown shown;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        shown = read(box);
        box->close();
    });
    bool prompt = false;
    ask(nullptr, u"Title"_s, u"Text"_s, prompt, QMessageBox::Ok, 0, 0, u"Never"_s);
    QVERIFY(driver.finish());
    QCOMPARE(shown.icon, model.iconPixmap().toImage());
}

void TstOstrelMessageBox::box_shows_what_it_was_given()
{
    QWidget parent;
    Shown shown;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        shown = read(box);
        box->close();
    });
    bool prompt = true;
    OstrelMessageBox::warning(&parent, u"Title"_s, u"One\ntwo lines"_s, prompt, QMessageBox::Retry,
                              QMessageBox::Retry, QMessageBox::Ignore, u"Never"_s);
    QVERIFY(driver.finish());
    QCOMPARE(shown.title, u"Title"_s);
    QCOMPARE(shown.message, u"One\ntwo lines"_s);
    QCOMPARE(shown.prompt_text, u"Never"_s);
    QVERIFY(shown.prompt_visible);
    QVERIFY(shown.ticked);
    QCOMPARE(shown.buttons, QStringList({u"&Retry"_s, u"&Ignore"_s}));
    QCOMPARE(shown.parent, &parent);
    QCOMPARE(shown.size, shown.fixed_size);
}

void TstOstrelMessageBox::code_of_the_pressed_button_comes_back_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("code");
    QTest::newRow("first button") << 0 << 16384;
    QTest::newRow("second button") << 1 << 65536;
    QTest::newRow("third button") << 2 << 4194304;
    QTest::newRow("bare key") << 3 << 65536;
    QTest::newRow("escape") << 4 << 0;
    QTest::newRow("close box") << 5 << 0;
}

void TstOstrelMessageBox::code_of_the_pressed_button_comes_back()
{
    QFETCH(const int, answer);
    QFETCH(const int, code);
    const QList<DialogDriver::Act> answers{press(u"mYesButton"_s),    press(u"mNoButton"_s),
                                           press(u"mCancelButton"_s), press_key(Qt::Key_N),
                                           press_key(Qt::Key_Escape), press_close_box()};
    for (const QString& text : {QString(), u"Never"_s}) {
        DialogDriver driver;
        driver.expect(u"OstrelMessageBox"_s, answers[answer]);
        bool prompt = false;
        QCOMPARE(OstrelMessageBox::question(nullptr, u"Title"_s, u"Text"_s, prompt, QMessageBox::Yes,
                                            QMessageBox::No, QMessageBox::Cancel, text),
                 code);
        QVERIFY(driver.finish());
    }
}

void TstOstrelMessageBox::tick_goes_in_and_comes_out_with_a_text_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("clicked");
    QTest::addColumn<QString>("button");
    for (const bool before : {false, true}) {
        for (const bool clicked : {false, true}) {
            for (const auto* button : {"mYesButton", "mNoButton", "mCancelButton", ""}) {
                QTest::addRow("%s, %s, %s", before ? "ticked" : "not ticked",
                              clicked ? "clicked" : "left alone", *button ? button : "closed")
                    << before << clicked << QString::fromUtf8(button);
            }
        }
    }
}

void TstOstrelMessageBox::tick_goes_in_and_comes_out_with_a_text()
{
    QFETCH(const bool, before);
    QFETCH(const bool, clicked);
    QFETCH(const QString, button);
    Shown shown;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        shown = read(box);
        if (clicked)
            box->findChild<QCheckBox*>(u"mPrompt"_s)->click();
        if (button.isEmpty())
            box->close();
        else
            press(button)(box);
    });
    bool prompt = before;
    OstrelMessageBox::warning(nullptr, u"Title"_s, u"Text"_s, prompt, QMessageBox::Yes, QMessageBox::No,
                              QMessageBox::Cancel, u"Never"_s);
    QVERIFY(driver.finish());
    QCOMPARE(shown.ticked, before);
    QCOMPARE(prompt, before != clicked);
}

void TstOstrelMessageBox::wish_to_be_asked_comes_out_without_a_text_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("clicked");
    QTest::addColumn<bool>("after");
    QTest::newRow("false, left alone") << false << false << true;
    QTest::newRow("true, left alone") << true << false << true;
    QTest::newRow("false, clicked") << false << true << false;
    QTest::newRow("true, clicked") << true << true << false;
}

void TstOstrelMessageBox::wish_to_be_asked_comes_out_without_a_text()
{
    QFETCH(const bool, before);
    QFETCH(const bool, clicked);
    QFETCH(const bool, after);
    Shown shown;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        shown = read(box);
        if (clicked)
            box->findChild<QCheckBox*>(u"mPrompt"_s)->click();
        press(u"mCancelButton"_s)(box);
    });
    bool prompt = before;
    OstrelMessageBox::warning(nullptr, u"Title"_s, u"Text"_s, prompt, QMessageBox::Yes, QMessageBox::No,
                              QMessageBox::Cancel, QString());
    QVERIFY(driver.finish());
    QCOMPARE(shown.prompt_text, u"Don't ask me this again."_s);
    QVERIFY(shown.prompt_visible);
    QVERIFY(!shown.ticked);
    QCOMPARE(prompt, after);
}

void TstOstrelMessageBox::box_is_gone_when_the_call_returns()
{
    QWidget parent;
    Shown shown;
    DialogDriver driver;
    driver.expect<OstrelMessageBox>([&](OstrelMessageBox* box) {
        shown = read(box);
        box->close();
    });
    bool prompt = false;
    OstrelMessageBox::information(&parent, u"Title"_s, u"Text"_s, prompt, QMessageBox::Ok, 0, 0, QString());
    QVERIFY(driver.finish());
    QCOMPARE(shown.parent, &parent);
    QVERIFY(!shown.box);
    QVERIFY(parent.children().isEmpty());
}

void TstOstrelMessageBox::box_goes_with_its_parent()
{
    auto parent = std::make_unique<QWidget>();
    DialogDriver driver;
    driver.expect(u"OstrelMessageBox"_s, [&](QWidget*) { parent.reset(); });
    bool prompt = true;
    QCOMPARE(OstrelMessageBox::question(parent.get(), u"Title"_s, u"Text"_s, prompt, QMessageBox::Yes, 0, 0,
                                        u"Never"_s),
             0);
    QVERIFY(driver.finish());
    QVERIFY(prompt);
}

OSTREL_TEST(TstOstrelMessageBox)
#include "tst_ostrelmessagebox.moc"
