// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

void TestCase::init()
{
    // The offscreen platform warns of three things that it cannot do; they mean nothing to a test.
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s));
    mSettings = std::make_unique<SettingsSandbox>();
    QVERIFY2(mSettings->is_valid(), "no directory for the settings");
}

void TestCase::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        QVERIFY2(!QApplication::activeModalWidget(), "a modal dialog was left open");
        QVERIFY2(!QApplication::activePopupWidget(), "a menu was left open");
        for (const QWidget* window : QApplication::topLevelWidgets())
            QVERIFY2(!window->isVisible(), qPrintable(u"a window was left open: "_s + window->objectName()));
    }
    mSettings.reset();
}

int run_test(int argc, char** argv, QObject* (*make_test)())
{
    const QString home = QDir::homePath();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!home.contains("/sandbox/"_L1) || !config.startsWith(home + u'/')) {
        std::fprintf(stderr, "Tests run in a home of their own: start them through ctest.\n");
        return 2;
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QCoreApplication::setOrganizationName(u"ostrel-tests"_s);
    QCoreApplication::setApplicationName(u"ostrel-tests"_s);
    QApplication application(argc, argv);
    const std::unique_ptr<QObject> test(make_test());
    return QTest::qExec(test.get(), argc, argv);
}
