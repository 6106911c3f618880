// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "support/SettingsSandbox.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

class QTemporaryDir;
class QWidget;

/**
 * The base of all test classes: gives each test function fresh settings and fails it on any warning of Qt's
 * that is not announced with QTest::ignoreMessage(), and on any dialog, menu or window that it leaves behind.
 *
 * A class that has something of its own to do before or after each function overrides set_up() and
 * tear_down(). Qt's init() and cleanup() are final, so that no class loses the checks.
 */
class TestCase : public QObject
{
    Q_OBJECT

public:
    TestCase();
    ~TestCase() override;

protected:
    /** The settings of the running test function. */
    SettingsSandbox& settings() { return *mSettings; }

    /** A directory that is the running function's own. */
    QString temp_directory();
    /** The path of a file of that name in there. */
    QString temp_path(const QString& name);
    /** Writes such a file and returns its path. */
    QString write_temp(const QString& name, const QByteArray& content);

    /** Called before each function, once the checks are armed. Does nothing here. */
    virtual void set_up() {}
    /** Called after each function, before the checks for what it left. Does nothing here. */
    virtual void tear_down() {}

    /** Lets @p window be open at the end of each function: one that serves all of them. */
    void keep_open(QWidget* window);

    /** What is done before each function, for what a class does before the first of them. */
    void arm();
    /** Fails on any dialog, menu or window that is open and not kept so, and gives the settings back. */
    void disarm();

protected slots:
    virtual void init() final;
    virtual void cleanup() final;

private:
    std::unique_ptr<SettingsSandbox> mSettings;
    std::unique_ptr<QTemporaryDir> mDirectory;
    QList<QPointer<QObject>> mKeptOpen;
};

/** The test classes of an executable, by the names of their source files. One is made for each OSTREL_TEST.
 */
class TestRegistration
{
public:
    using Make = std::unique_ptr<QObject> (*)();
    /** What a class does in place of its functions when it runs itself as a child process: an exit status, or
     * -1 to run the functions. */
    using Prepare = int (*)();

    /** @param file  the path of the source; its name without the suffix becomes the name of the test. */
    TestRegistration(const char* file, Make make, Prepare prepare = nullptr);
};

/** The name of the class that this process runs; a child process that is to run it gets it as an argument. */
QString running_test();

/**
 * The main function of every test executable. The first argument names the class to be run; those after it
 * are Qt's. Refuses to start if there is no such class, and outside a test's own home.
 */
int run_test(int argc, char** argv);

/**
 * Makes a class known to the executable. Stands at the end of its source file, once in each.
 *
 * A function without arguments may follow: it is called before there is an application object, and either
 * returns -1 to go on or the exit status of the process.
 */
#define OSTREL_TEST(Class, ...)                                                                              \
    static const TestRegistration test_registration(__FILE__, []() -> std::unique_ptr<QObject> {             \
        return std::make_unique<Class>();                                                                    \
    } __VA_OPT__(, ) __VA_ARGS__);
