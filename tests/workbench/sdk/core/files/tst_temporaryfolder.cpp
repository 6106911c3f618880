// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstTemporaryFolder : public TestCase
{
    Q_OBJECT

private slots:
    void folder_goes_with_the_object();
    void folder_is_made_with_those_on_the_way();
    void signal_removes_it_while_the_program_makes_folders();
};

void TstTemporaryFolder::folder_goes_with_the_object()
{
    QString path;
    {
        const TemporaryFolder folder;
        QVERIFY2(folder.is_valid(), qPrintable(folder.error()));
        path = folder.path();
        QVERIFY(QFileInfo(path).isDir());
    }
    QVERIFY(!QFileInfo::exists(path));
}

void TstTemporaryFolder::folder_is_made_with_those_on_the_way()
{
    const TemporaryFolder folder;
    QVERIFY(folder.make_folder(u"a/b"_s));
    QVERIFY(QFileInfo(folder.path(u"a/b"_s)).isDir());
    QVERIFY(folder.make_folder(u"a/b"_s));
}

void TstTemporaryFolder::signal_removes_it_while_the_program_makes_folders()
{
    for (int i = 0; i < 10; ++i) {
        const QTemporaryDir all;
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            std::signal(SIGINT, SIG_DFL); // Qt Test has a handler of its own
            qputenv("TMPDIR", QFile::encodeName(all.path()));
            TemporaryFolder::remove_on_signals();
            const TemporaryFolder folder;
            const auto make_folders = [&folder] {
                while (true)
                    folder.make_folder(u"a/b"_s);
            };
            for (int j = 0; j < 3; ++j)
                std::thread(make_folders).detach();
            make_folders();
        }
        QVERIFY(child > 0);
        QTRY_VERIFY(!QDir(all.path()).isEmpty());
        QCOMPARE(kill(child, SIGINT), 0);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGINT);
        QVERIFY(QDir(all.path()).isEmpty());
    }
}

OSTREL_TEST(TstTemporaryFolder)
#include "tst_temporaryfolder.moc"
