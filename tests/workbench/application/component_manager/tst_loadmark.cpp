// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/component_manager/LoadMark.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstLoadMark : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void load_that_ended_leaves_nothing();
    void end_of_the_program_leaves_nothing();
    void lock_left_behind_is_cleared();
    void load_that_goes_on_is_no_crash();
    void note_whose_lock_is_free_is_a_crash_told_once();
    void note_under_way_is_replaced_by_the_next();
    void file_names_of_all_kinds_are_kept();
    void directory_that_cannot_be_made_is_reported();
    void missing_directory_holds_no_crash();

private:
    QString directory() const { return mDirectory->filePath(u"loading"_s); }
    QStringList files() const { return QDir(directory()).entryList(QDir::Files); }

    QStringList notes() const { return files().filter(u".loading"_s); }

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstLoadMark::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

void TstLoadMark::load_that_ended_leaves_nothing()
{
    LoadMark mark(directory());
    QVERIFY(mark.begin(u"/a.so"_s));
    QCOMPARE(files().size(), 2);
    mark.end();
    QVERIFY(notes().isEmpty());
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
}

void TstLoadMark::end_of_the_program_leaves_nothing()
{
    {
        LoadMark mark(directory());
        QVERIFY(mark.begin(u"/a.so"_s));
        QCOMPARE(files().size(), 2);
    }
    QCOMPARE(files(), QStringList());
}

void TstLoadMark::lock_left_behind_is_cleared()
{
    QVERIFY(QDir().mkpath(directory()));
    QFile lock(directory() + u"/1.lock"_s);
    QVERIFY(lock.open(QIODevice::WriteOnly));
    // As QLockFile writes it: process, program, machine. There is no such process.
    lock.write("999999999\nfennar\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    lock.close();
    LoadMark running(directory());
    QVERIFY(running.begin(u"/a.so"_s));
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
    QVERIFY(!files().contains(u"1.lock"_s));
    QCOMPARE(files().size(), 2);
}

void TstLoadMark::load_that_goes_on_is_no_crash()
{
    LoadMark mark(directory());
    QVERIFY(mark.begin(u"/a.so"_s));
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
    QCOMPARE(files().size(), 2);
    mark.end();
}

void TstLoadMark::note_whose_lock_is_free_is_a_crash_told_once()
{
    QVERIFY(QDir().mkpath(directory()));
    QFile note(directory() + u"/1.loading"_s);
    QVERIFY(note.open(QIODevice::WriteOnly));
    note.write("/a.so");
    note.close();
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList{u"/a.so"_s});
    QCOMPARE(files(), QStringList());
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
}

void TstLoadMark::note_under_way_is_replaced_by_the_next()
{
    LoadMark mark(directory());
    QVERIFY(mark.begin(u"/a.so"_s));
    QVERIFY(mark.begin(u"/b.so"_s));
    QCOMPARE(notes().size(), 1);
    mark.end();
    QVERIFY(notes().isEmpty());
}

void TstLoadMark::file_names_of_all_kinds_are_kept()
{
    const QString file = u"/a b\n\u00e4;,.so"_s;
    LoadMark mark(directory());
    QVERIFY(mark.begin(file));
    QCOMPARE(notes().size(), 1);
    const QString copy = directory() + u"/copy.loading"_s;
    QVERIFY(QFile::copy(directory() + u'/' + notes().first(), copy));
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList{file});
}

void TstLoadMark::directory_that_cannot_be_made_is_reported()
{
    QVERIFY(!LoadMark(u"/proc/no/such"_s).begin(u"/a.so"_s));
}

void TstLoadMark::missing_directory_holds_no_crash()
{
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
    QVERIFY(!QFile::exists(directory()));
}

OSTREL_TEST(TstLoadMark)
#include "tst_loadmark.moc"
