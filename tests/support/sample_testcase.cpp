// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QDialog>
#include <QEventLoop>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

/** What tst_testcase runs as a child process, one function at a time. Half of the functions break a rule. */
class SampleTestCase : public TestCase
{
    Q_OBJECT

private slots:
    void passes() {}
    void breaks_a_verification() { QVERIFY(false); }

    void warns() { qWarning("out of the blue"); }
    void warns_as_announced()
    {
        QTest::ignoreMessage(QtWarningMsg, "foreseen");
        qWarning("foreseen");
    }
    void announces_and_does_not_warn() { QTest::ignoreMessage(QtWarningMsg, "foreseen"); }
    void announces_another_text()
    {
        QTest::ignoreMessage(QtWarningMsg, "foreseen");
        qWarning("foreseen, but different");
    }
    void warns_as_the_platform_does() { qWarning("This plugin does not support raise()"); }
    void warns_with_the_platforms_words_inside() { qWarning("Why? This plugin does not support raise()"); }
    void warns_of_a_connection_by_a_wrong_name()
    {
        QTest::ignoreMessage(QtDebugMsg, "only to have one of another kind");
        qDebug("only to have one of another kind");
        QVERIFY(!connect(this, SIGNAL(missing()), this, SLOT(passes())));
    }

    void leaves_a_window_open()
    {
        auto* window = new QWidget;
        window->setObjectName(u"left over"_s);
        window->show();
    }
    void leaves_a_hidden_window() { new QWidget; }
    void leaves_a_dialog_open() { (new QDialog)->open(); }
    void leaves_a_menu_open()
    {
        auto* menu = new QMenu;
        menu->addAction(u"entry"_s);
        menu->popup({});
    }
    void leaves_a_window_to_be_deleted_later()
    {
        auto* window = new QWidget;
        window->show();
        window->deleteLater();
    }

    void writes_a_setting() { QSettings().setValue(u"key"_s, 1); }
    void finds_no_setting()
    {
        QVERIFY(!QSettings().contains(u"key"_s));
        QCOMPARE(QSettings().fileName(), settings().file());
    }

    void tells_of_the_application()
    {
        QVERIFY(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs));
        QVERIFY(QCoreApplication::testAttribute(Qt::AA_DontUseNativeMenuBar));
        QCOMPARE(QCoreApplication::organizationName(), u"ostrel-tests"_s);
        QCOMPARE(QCoreApplication::applicationName(), u"ostrel-tests"_s);
    }

    void misses_an_expected_dialog()
    {
        DialogDriver driver;
        driver.expect(u"QFileDialog"_s, press_close_box());
    }
    void misses_an_expected_dialog_and_says_when()
    {
        DialogDriver driver;
        driver.expect(u"QFileDialog"_s, press_close_box());
        QVERIFY(!driver.finish());
    }
    void shows_an_unexpected_dialog()
    {
        const DialogDriver driver;
        QMessageBox::information(nullptr, u"Title"_s, u"Surprise"_s);
    }
    void shows_another_dialog_than_expected()
    {
        DialogDriver driver;
        driver.expect(u"QFileDialog"_s, press_close_box());
        QMessageBox::information(nullptr, u"Title"_s, u"Surprise"_s);
    }
    void shows_an_unexpected_dialog_that_blocks_nobody()
    {
        QDialog dialog;
        dialog.setWindowTitle(u"Title"_s);
        DialogDriver driver;
        dialog.open();
        QVERIFY(!driver.finish());
        QVERIFY(!dialog.isVisible());
    }
    void shows_a_dialog_that_refuses_to_close()
    {
        class Refusing : public QDialog
        {
            void reject() override {}
        };
        Refusing dialog;
        dialog.setWindowTitle(u"Title"_s);
        const DialogDriver driver;
        dialog.exec();
    }
    void shows_a_dialog_that_asks_before_it_closes()
    {
        class Asking : public QDialog
        {
            void reject() override { QMessageBox::question(this, u"Close"_s, u"Really?"_s); }
        };
        Asking dialog;
        const DialogDriver driver;
        dialog.exec();
    }
    void shows_a_modal_window_that_is_no_dialog()
    {
        QWidget window;
        window.setWindowModality(Qt::ApplicationModal);
        window.setWindowTitle(u"Title"_s);
        const DialogDriver driver;
        window.show();
        QTRY_VERIFY(!window.isVisible());
    }
    void leaves_an_expected_dialog_open()
    {
        DialogDriver driver;
        driver.expect(u"QMessageBox"_s, [](QWidget*) {});
        QMessageBox::information(nullptr, u"Title"_s, u"Lasting"_s);
    }
    void presses_a_missing_standard_button()
    {
        DialogDriver driver;
        driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Abort));
        QMessageBox::information(nullptr, u"Title"_s, u"Text"_s);
    }
    void presses_a_missing_button()
    {
        QDialog dialog;
        DialogDriver driver;
        driver.expect(u"QDialog"_s, press(u"go"_s));
        dialog.exec();
    }
    void presses_a_disabled_button()
    {
        QDialog dialog;
        QPushButton button(&dialog);
        button.setObjectName(u"go"_s);
        button.setEnabled(false);
        DialogDriver driver;
        driver.expect(u"QDialog"_s, press(u"go"_s));
        dialog.exec();
    }
    void chooses_a_filter_that_is_not_offered()
    {
        DialogDriver driver;
        driver.expect<QFileDialog>([](QFileDialog* dialog) { choose(dialog, u"/a"_s, u"None (*)"_s); });
        QFileDialog::getOpenFileName(nullptr, QString(), QString(), u"All (*)"_s);
    }

    void hangs() { QEventLoop().exec(); }
};

OSTREL_TEST(SampleTestCase)
#include "sample_testcase.moc"
