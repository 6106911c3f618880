// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "support/TestCase.h"

#include <QCoreApplication>
#include <QProcess>

/** What a test executable printed and returned when it was started once more in the given part. */
struct ChildResult
{
    QString output;
    QString errors;
    int code = -1;
};

/** The part that this process plays; empty for the test itself. */
inline QString child_part()
{
    return qEnvironmentVariable("OSTREL_TEST_PART");
}

/**
 * Runs this executable in @p part. Its standard input stays open and empty, so that reading from it would
 * hang; the run then ends as failed.
 */
inline ChildResult run_part(const QString& part,
                            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
{
    environment.insert(QStringLiteral("OSTREL_TEST_PART"), part);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {running_test()});
    const bool ended = process.waitForFinished(20000);
    ChildResult result;
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors = QString::fromUtf8(process.readAllStandardError());
    if (ended && process.exitStatus() == QProcess::NormalExit)
        result.code = process.exitCode();
    else
        process.kill();
    process.waitForFinished();
    return result;
}
