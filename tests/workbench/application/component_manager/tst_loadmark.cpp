// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/component_manager/LoadMark.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

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
    void note_of_a_program_that_was_killed_is_a_crash();
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
    QCOMPARE(files().size(), 1);
    mark.end();
    QVERIFY(notes().isEmpty());
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
}

void TstLoadMark::end_of_the_program_leaves_nothing()
{
    {
        LoadMark mark(directory());
        QVERIFY(mark.begin(u"/a.so"_s));
        QCOMPARE(files().size(), 1);
    }
    QCOMPARE(files(), QStringList());
}

void TstLoadMark::note_of_a_program_that_was_killed_is_a_crash()
{
    const pid_t child = fork();
    if (child == 0) {
        LoadMark mark(directory());
        _exit(mark.begin(u"/a.so"_s) ? 1 : 2);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QCOMPARE(WEXITSTATUS(status), 1);
    QCOMPARE(notes().size(), 1);
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList{u"/a.so"_s});
    QCOMPARE(files(), QStringList());
}

void TstLoadMark::load_that_goes_on_is_no_crash()
{
    LoadMark mark(directory());
    QVERIFY(mark.begin(u"/a.so"_s));
    QCOMPARE(LoadMark(directory()).take_crashed(), QStringList());
    QCOMPARE(files().size(), 1);
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
