// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "support/SettingsSandbox.h"

#include <QObject>

#include <memory>

/**
 * The base of all test classes: gives each test function fresh settings and fails it on any warning of Qt's
 * that is not announced with QTest::ignoreMessage(), and on any dialog, menu or window that it leaves behind.
 *
 * A class with an init() or cleanup() of its own calls those of the base first and last.
 */
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /** The settings of the running test function. */
    SettingsSandbox& settings() { return *mSettings; }

protected slots:
    void init();
    void cleanup();

private:
    std::unique_ptr<SettingsSandbox> mSettings;
};

/** Runs all functions of @p test in an application made for tests; refuses to start outside a test's own
 * home. */
int run_test(int argc, char** argv, QObject* (*make_test)());

/** The main function of a test executable. */
#define OSTREL_TEST_MAIN(Class)                                                                              \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        return run_test(argc, argv, []() -> QObject* { return new Class; });                                 \
    }
