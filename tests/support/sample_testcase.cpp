// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"

#include <QDialog>
#include <QEventLoop>
#include <QMenu>
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

    void hangs() { QEventLoop().exec(); }
};

OSTREL_TEST_MAIN(SampleTestCase)
#include "sample_testcase.moc"
