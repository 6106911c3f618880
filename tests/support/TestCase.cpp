// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include "support/KeptIcons.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct TestClass
{
    TestRegistration::Make make;
    TestRegistration::Prepare prepare;
};

/** The registrations run before main(), in an order that nobody knows. */
QMap<QString, TestClass>& test_classes()
{
    static QMap<QString, TestClass> classes;
    return classes;
}

QString running;

} // namespace

TestCase::TestCase() = default;
TestCase::~TestCase() = default;

QString TestCase::temp_directory()
{
    if (!mDirectory)
        mDirectory = std::make_unique<QTemporaryDir>();
    return mDirectory->path();
}

QString TestCase::temp_path(const QString& name)
{
    return temp_directory() + u'/' + name;
}

QString TestCase::write_temp(const QString& name, const QByteArray& content)
{
    QFile file(temp_path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s could not be written", qPrintable(name));
    return file.fileName();
}

void TestCase::keep_open(QWidget* window)
{
    mKeptOpen << QPointer<QObject>(window);
}

void TestCase::arm()
{
    // The offscreen platform warns of three things that it cannot do; they mean nothing to a test.
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s));
    mSettings = std::make_unique<SettingsSandbox>();
    QVERIFY2(mSettings->is_valid(), "no directory for the settings");
}

void TestCase::disarm()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        QVERIFY2(!QApplication::activeModalWidget(), "a modal dialog was left open");
        QVERIFY2(!QApplication::activePopupWidget(), "a menu was left open");
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && !mKeptOpen.contains(QPointer<QObject>(window)))
                QFAIL(qPrintable(u"a window was left open: "_s + window->objectName()));
        }
    }
    mSettings.reset();
    mDirectory.reset();
}

void TestCase::init()
{
    arm();
    if (!QTest::currentTestFailed())
        set_up();
}

void TestCase::cleanup()
{
    tear_down();
    disarm();
}

TestRegistration::TestRegistration(const char* file, Make make, Prepare prepare)
{
    const QString name = QFileInfo(QString::fromUtf8(file)).completeBaseName();
    if (test_classes().contains(name))
        qFatal("two test classes in sources of the name %s", qPrintable(name));
    test_classes().insert(name, {make, prepare});
}

QString running_test()
{
    return running;
}

int run_test(int argc, char** argv)
{
    const auto found = test_classes().constFind(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (found == test_classes().constEnd()) {
        std::fprintf(stderr, "The first argument names the test class:\n%s\n",
                     qPrintable(QStringList(test_classes().keys()).join(u'\n')));
        return 2;
    }
    running = found.key();
    if (found->prepare) {
        if (const int status = found->prepare(); status != -1)
            return status;
    }
    const QString home = QDir::homePath();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (!home.contains("/sandbox/"_L1) || !config.startsWith(home + u'/')) {
        std::fprintf(stderr, "Tests run in a home of their own: start them through ctest.\n");
        return 2;
    }
    // Qt Test sees the arguments without the name.
    for (int i = 1; i < argc; ++i)
        argv[i] = argv[i + 1];
    --argc;

    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QCoreApplication::setOrganizationName(u"ostrel-tests"_s);
    QCoreApplication::setApplicationName(u"ostrel-tests"_s);
    QApplication application(argc, argv);
    QApplication::setStyle(new KeptIcons);
    const std::unique_ptr<QObject> test = found->make();
    return QTest::qExec(test.get(), argc, argv);
}
