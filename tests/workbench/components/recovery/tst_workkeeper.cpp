// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/recovery/WorkKeeper.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace fennar;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TstWorkKeeper : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void unsaved_work_is_kept_with_its_file();
    void only_a_new_state_is_written_again();
    void copy_goes_data();
    void copy_goes();
    void work_that_becomes_unsaved_again_is_kept_again();
    void end_leaves_nothing();
    void timer_keeps_the_work();
    void failing_write_is_told_once_and_tried_again();
    void work_that_cannot_be_taken_is_told_and_tried_again();
    void folder_that_others_have_removed_is_made_again();
    void kinds_do_not_mix();

private:
    UnsavedWork work(const QString& kind);
    QString root() const { return mDirectory->filePath(u"data/recovery"_s); }
    /** Runs a pass to its end. */
    bool pass()
    {
        mKeeper->keep();
        return mKeeper->finish();
    }
    /** All copies, as "kind file data". */
    QStringList copies() const;

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<WorkKeeper> mKeeper;
    std::optional<qint64> mState;
    QByteArrayList mContents;
    bool mBroken = false;
    int mTaken = 0;
    QStringList mReports;
};

void TstWorkKeeper::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mReports.clear();
    mKeeper = std::make_unique<WorkKeeper>(root(), 0ms, [this](const QString& text) { mReports << text; });
    mState = 1;
    mContents = {"on", "e"};
    mBroken = false;
    mTaken = 0;
    QVERIFY(UnsavedWorks::instance().add(work(u"model"_s)));
}

void TstWorkKeeper::tear_down()
{
    UnsavedWorks::instance().remove_owner(u"test"_s);
    mKeeper.reset();
}

UnsavedWork TstWorkKeeper::work(const QString& kind)
{
    return {.kind = kind,
            .owner = u"test"_s,
            .state = [this] { return mState; },
            .file = [] { return u"/a/part.mdl"_s; },
            .take =
                [this] {
                    ++mTaken;
                    if (mBroken)
                        throw std::runtime_error("it is broken");
                    return mContents;
                },
            .restore = [](const QByteArray&, const QString&) { return QString(); }};
}

QStringList TstWorkKeeper::copies() const
{
    QStringList result;
    const QStringList folders = QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& folder : folders) {
        const QDir copies(root() + u'/' + folder);
        const QStringList files = copies.entryList(QDir::Files | QDir::Hidden);
        for (const QString& name : files) {
            if (name == "lock"_L1)
                continue;
            QFile file(copies.filePath(name));
            if (!file.open(QIODevice::ReadOnly))
                qFatal("a copy cannot be read");
            const KeptDocument kept = KeptDocument::decode(file.readAll());
            result << kept.kind + u' ' + kept.file + u' ' + QString::fromUtf8(kept.data.join());
        }
    }
    return result;
}

void TstWorkKeeper::unsaved_work_is_kept_with_its_file()
{
    QCOMPARE(copies(), QStringList());
    QVERIFY(pass());
    QCOMPARE(copies(), QStringList{u"model /a/part.mdl one"_s});
}

void TstWorkKeeper::only_a_new_state_is_written_again()
{
    QVERIFY(pass());
    QVERIFY(pass());
    QCOMPARE(mTaken, 1);
    mState = 2;
    mContents = {"two"};
    QVERIFY(pass());
    QCOMPARE(mTaken, 2);
    QCOMPARE(copies(), QStringList{u"model /a/part.mdl two"_s});
}

void TstWorkKeeper::copy_goes_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("saved") << u"saved"_s;
    QTest::newRow("saved without a word") << u"silent"_s;
    QTest::newRow("component gone") << u"gone"_s;
    QTest::newRow("saved while it is written") << u"at once"_s;
}

void TstWorkKeeper::copy_goes()
{
    QFETCH(const QString, how);
    mKeeper->keep();
    if (how != "at once"_L1) {
        QVERIFY(mKeeper->finish());
        QCOMPARE(copies().size(), 1);
    }
    mState.reset();
    if (how == "silent"_L1)
        mKeeper->keep();
    else if (how == "gone"_L1)
        UnsavedWorks::instance().remove_owner(u"test"_s);
    else
        UnsavedWorks::instance().tell_settled(u"model"_s);
    QVERIFY(mKeeper->finish());
    QCOMPARE(copies(), QStringList());
}

void TstWorkKeeper::work_that_becomes_unsaved_again_is_kept_again()
{
    QVERIFY(pass());
    UnsavedWorks::instance().tell_settled(u"model"_s);
    QVERIFY(pass());
    QCOMPARE(copies().size(), 1);
}

void TstWorkKeeper::end_leaves_nothing()
{
    mKeeper->keep();
    mKeeper.reset();
    QVERIFY(!QFile::exists(root()));
}

void TstWorkKeeper::timer_keeps_the_work()
{
    mKeeper = std::make_unique<WorkKeeper>(root(), 10s, nullptr);
    const auto timers = mKeeper->findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first()->interval(), 10000);
    timers.first()->start(0);
    QTRY_COMPARE(copies().size(), 1);
}

void TstWorkKeeper::failing_write_is_told_once_and_tried_again()
{
    QFile file(mDirectory->filePath(u"data"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!pass());
    QVERIFY(!pass());
    QCOMPARE(mReports, QStringList{u"Unsaved work cannot be kept for a recovery: no folder can be made in "
                                   "\"%1\". It will be tried again."_s.arg(root())});
    QVERIFY(file.remove());
    QVERIFY(pass());
    QCOMPARE(copies().size(), 1);
    QCOMPARE(mReports.size(), 1);
}

void TstWorkKeeper::work_that_cannot_be_taken_is_told_and_tried_again()
{
    mBroken = true;
    QVERIFY(!pass());
    QCOMPARE(
        mReports,
        QStringList{u"Unsaved work cannot be kept for a recovery: it is broken. It will be tried again."_s});
    mBroken = false;
    QVERIFY(pass());
    QCOMPARE(copies().size(), 1);
    // After a success it is news again.
    mBroken = true;
    mState = 2;
    QVERIFY(!pass());
    QCOMPARE(mReports.size(), 2);
    QCOMPARE(copies().size(), 1);
}

void TstWorkKeeper::folder_that_others_have_removed_is_made_again()
{
    QVERIFY(UnsavedWorks::instance().add(work(u"other"_s)));
    QVERIFY(pass());
    QVERIFY(QDir(root()).removeRecursively());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Could not remove our own lock file"_s));
    mState = 2;
    QVERIFY(pass());
    QCOMPARE(copies().size(), 2);
}

void TstWorkKeeper::kinds_do_not_mix()
{
    QVERIFY(!UnsavedWorks::instance().add(work(u"model"_s)));
    QVERIFY(!UnsavedWorks::instance().add({}));
    QVERIFY(UnsavedWorks::instance().add(work(u"other"_s)));
    QVERIFY(pass());
    QCOMPARE(copies().size(), 2);
    UnsavedWorks::instance().tell_settled(u"other"_s);
    QVERIFY(mKeeper->finish());
    QCOMPARE(copies(), QStringList{u"model /a/part.mdl one"_s});
}

OSTREL_TEST(TstWorkKeeper)
#include "tst_workkeeper.moc"
