// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/FullDisk.h"
#include "support/TestCase.h"
#include "workbench/application/console/CommandHistory.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstCommandHistory : public TestCase
{
    Q_OBJECT

private slots:
    void up_and_down_walk_the_entries_and_stop_at_the_oldest();
    void half_typed_line_comes_back_behind_the_newest_entry();
    void changed_entry_is_not_kept();
    void down_on_the_newest_position_leaves_the_line();
    void up_in_an_empty_history_leaves_the_line();
    void reset_returns_to_the_newest_position_and_forgets_the_line();
    void adding_returns_to_the_newest_position();
    void blank_commands_are_not_added();
    void adjacent_duplicates_are_not_added_but_later_ones_are();
    void line_ends_in_an_entry_become_blanks();
    void only_the_newest_thousand_are_kept_in_memory();
    void entries_are_in_the_file_as_soon_as_they_are_added();
    void entries_survive_into_the_next_life();
    void only_the_newest_thousand_are_read();
    void long_file_is_shortened_when_read();
    void long_file_that_cannot_be_shortened_stays_whole();
    void line_that_was_cut_off_stays_apart_from_the_next();
    void file_without_an_end_counts_as_empty();
    void two_programs_share_one_file();
    void missing_directory_is_made();
    void unwritable_file_is_told_and_the_entry_kept();
    void binary_file_is_read_without_harm();
    void line_ends_of_others_in_the_file_become_blanks();

private:
    QString path() const
    {
        return mDirectory.filePath(u"history-%1"_s.arg(QLatin1String(QTest::currentTestFunction())));
    }

    QTemporaryDir mDirectory;
};

void TstCommandHistory::up_and_down_walk_the_entries_and_stop_at_the_oldest()
{
    CommandHistory history;
    history.add(u"one"_s);
    history.add(u"two"_s);
    QCOMPARE(history.previous({}), u"two"_s);
    QCOMPARE(history.previous(u"two"_s), u"one"_s);
    QCOMPARE(history.previous(u"one"_s), u"one"_s);
    QCOMPARE(history.next(u"one"_s), u"two"_s);
}

void TstCommandHistory::half_typed_line_comes_back_behind_the_newest_entry()
{
    CommandHistory history;
    history.add(u"one"_s);
    history.add(u"two"_s);
    history.previous(u"half ty"_s);
    history.previous(u"two"_s);
    history.next(u"one"_s);
    QCOMPARE(history.next(u"two"_s), u"half ty"_s);
}

void TstCommandHistory::changed_entry_is_not_kept()
{
    CommandHistory history;
    history.add(u"one"_s);
    history.add(u"two"_s);
    history.previous({});
    history.previous(u"two, changed"_s);
    QCOMPARE(history.next(u"one"_s), u"two"_s);
}

void TstCommandHistory::down_on_the_newest_position_leaves_the_line()
{
    CommandHistory history;
    history.add(u"one"_s);
    QCOMPARE(history.next(u"half ty"_s), u"half ty"_s);
}

void TstCommandHistory::up_in_an_empty_history_leaves_the_line()
{
    CommandHistory history;
    QCOMPARE(history.previous(u"half ty"_s), u"half ty"_s);
}

void TstCommandHistory::reset_returns_to_the_newest_position_and_forgets_the_line()
{
    CommandHistory history;
    history.add(u"one"_s);
    history.add(u"two"_s);
    history.previous(u"half ty"_s);
    history.previous(u"two"_s);
    history.reset_position();
    QCOMPARE(history.next(u"other"_s), u"other"_s);
    QCOMPARE(history.previous(u"other"_s), u"two"_s);
}

void TstCommandHistory::adding_returns_to_the_newest_position()
{
    CommandHistory history;
    history.add(u"one"_s);
    history.add(u"two"_s);
    history.previous({});
    history.previous({});
    history.add(u"three"_s);
    QCOMPARE(history.previous({}), u"three"_s);
}

void TstCommandHistory::blank_commands_are_not_added()
{
    CommandHistory history;
    history.add({});
    history.add(u"  \t"_s);
    QCOMPARE(history.entries(), QStringList());
}

void TstCommandHistory::adjacent_duplicates_are_not_added_but_later_ones_are()
{
    CommandHistory history(path());
    for (const QString& command : {u"one"_s, u"one"_s, u"two"_s, u"one"_s})
        history.add(command);
    const QStringList expected{u"one"_s, u"two"_s, u"one"_s};
    QCOMPARE(history.entries(), expected);
    QCOMPARE(CommandHistory(path()).entries(), expected);
}

void TstCommandHistory::line_ends_in_an_entry_become_blanks()
{
    CommandHistory history(path());
    history.add(u"a\nb\r\u2029c"_s);
    QCOMPARE(history.entries(), QStringList{u"a b  c"_s});
    QCOMPARE(CommandHistory(path()).entries(), QStringList{u"a b  c"_s});
}

void TstCommandHistory::only_the_newest_thousand_are_kept_in_memory()
{
    CommandHistory history;
    for (int i = 0; i < 1005; ++i)
        history.add(QString::number(i));
    QCOMPARE(history.entries().size(), 1000);
    QCOMPARE(history.entries().constFirst(), u"5"_s);
    QCOMPARE(history.entries().constLast(), u"1004"_s);
}

void TstCommandHistory::entries_are_in_the_file_as_soon_as_they_are_added()
{
    CommandHistory history(path());
    history.add(u"größe 5"_s);
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), u"größe 5\n"_s);
}

void TstCommandHistory::entries_survive_into_the_next_life()
{
    {
        CommandHistory history(path());
        history.add(u"one"_s);
        history.add(u"two"_s);
    }
    CommandHistory history(path());
    QCOMPARE(history.previous({}), u"two"_s);
}

void TstCommandHistory::only_the_newest_thousand_are_read()
{
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 1500; ++i)
            file.write(QByteArray::number(i) + '\n');
    }
    const CommandHistory history(path());
    QCOMPARE(history.entries().size(), 1000);
    QCOMPARE(history.entries().constFirst(), u"500"_s);
}

void TstCommandHistory::long_file_is_shortened_when_read()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < 5000; ++i)
        file.write(QByteArray::number(i) + '\n');
    file.close();
    const CommandHistory history(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArrayList lines = file.readAll().split('\n');
    QCOMPARE(lines.size(), 1001);
    QCOMPARE(lines.constFirst(), "4000");
    QCOMPARE(lines[999], "4999");
}

void TstCommandHistory::long_file_that_cannot_be_shortened_stays_whole()
{
    QByteArray lines;
    for (int i = 0; i < 5000; ++i)
        lines += QByteArray::number(i) + '\n';
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size());
    file.close();
    const auto full = std::make_unique<FullDisk>(100);
    CommandHistory history(path());
    QCOMPARE(history.entries().size(), 1000);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), lines);
    QVERIFY(!history.add(u"told then"_s));
}

void TstCommandHistory::line_that_was_cut_off_stays_apart_from_the_next()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("one\ntw");
    file.close();
    CommandHistory history(path());
    QVERIFY(history.add(u"three"_s));
    QVERIFY(history.add(u"four"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "one\ntw\nthree\nfour\n");
}

void TstCommandHistory::file_without_an_end_counts_as_empty()
{
    QCOMPARE(mkfifo(qPrintable(path()), 0600), 0);
    QCOMPARE(CommandHistory(path()).entries(), QStringList());
    const QString device = mDirectory.filePath(u"device"_s);
    QVERIFY(QFile::link(u"/dev/full"_s, device));
    CommandHistory history(device);
    QCOMPARE(history.entries(), QStringList());
    QVERIFY(!history.add(u"one"_s));
}

void TstCommandHistory::two_programs_share_one_file()
{
    CommandHistory first(path());
    CommandHistory second(path());
    first.add(u"one"_s);
    second.add(u"two"_s);
    first.add(u"three"_s);
    QCOMPARE(CommandHistory(path()).entries(), QStringList({u"one"_s, u"two"_s, u"three"_s}));
}

void TstCommandHistory::missing_directory_is_made()
{
    const QString file = mDirectory.filePath(u"a/b/history"_s);
    QVERIFY(CommandHistory(file).add(u"one"_s));
    QCOMPARE(CommandHistory(file).entries(), QStringList{u"one"_s});
}

void TstCommandHistory::unwritable_file_is_told_and_the_entry_kept()
{
    CommandHistory history(mDirectory.path());
    QVERIFY(!history.add(u"one"_s));
    QCOMPARE(history.entries(), QStringList{u"one"_s});
}

void TstCommandHistory::binary_file_is_read_without_harm()
{
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("\xff\xfe\0one\n\n\ntwo", 12));
    }
    const CommandHistory history(path());
    QCOMPARE(history.entries().size(), 2);
    QCOMPARE(history.entries().constLast(), u"two"_s);
}

void TstCommandHistory::line_ends_of_others_in_the_file_become_blanks()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("one\r\ntwo\rthree\nfour\xe2\x80\xa9"
               "five\n");
    file.close();
    // On the console each of them would begin a line.
    QCOMPARE(CommandHistory(path()).entries(), (QStringList{u"one "_s, u"two three"_s, u"four five"_s}));
}

OSTREL_TEST(TstCommandHistory)
#include "tst_commandhistory.moc"
