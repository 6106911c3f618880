// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/CLOptions.h"
#include "support/TestCase.h"
#include "workbench/host/ostrelfw/CommandLine.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstCommandLine : public TestCase
{
    Q_OBJECT

private slots:
    void no_words_start_the_window_with_nothing_to_play();
    void words_are_read_data();
    void words_are_read();
    void components_are_loaded_unless_left_out();
    void settings_file_is_read();
    void journal_to_check_is_read();
    void values_for_parameters_are_read();
    void mistakes_are_named_data();
    void mistakes_are_named();
    void graphics_state_is_kept();
    void application_has_one_command_line();
};

void TstCommandLine::no_words_start_the_window_with_nothing_to_play()
{
    CommandLine line{QStringList()};
    QCOMPARE(line.error(), QString());
    QVERIFY(!line.batch_mode());
    QVERIFY(!line.help());
    QVERIFY(!line.version());
    QCOMPARE(line.journal(), QString());
}

void TstCommandLine::words_are_read_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<bool>("batch");
    QTest::addColumn<QString>("journal");
    QTest::addColumn<QString>("file");
    QTest::newRow("journal") << QStringList{u"--play"_s, u"a b.jou"_s} << false << u"a b.jou"_s << QString();
    QTest::newRow("batch before the journal")
        << QStringList{u"--batch"_s, u"--play"_s, u"a.jou"_s} << true << u"a.jou"_s << QString();
    QTest::newRow("batch behind the journal")
        << QStringList{u"--play"_s, u"a.jou"_s, u"--batch"_s} << true << u"a.jou"_s << QString();
    QTest::newRow("journal named like an argument")
        << QStringList{u"--play"_s, u"--batch"_s} << false << u"--batch"_s << QString();
    QTest::newRow("standard input") << QStringList{u"--batch"_s, u"--play"_s, u"-"_s} << true << u"-"_s
                                    << QString();
    QTest::newRow("model") << QStringList{u"a b.mdl"_s} << false << QString() << u"a b.mdl"_s;
    QTest::newRow("model before a journal")
        << QStringList{u"a.mdl"_s, u"--play"_s, u"a.jou"_s} << false << u"a.jou"_s << u"a.mdl"_s;
    QTest::newRow("model behind a journal")
        << QStringList{u"--batch"_s, u"--play"_s, u"a.jou"_s, u"a.mdl"_s} << true << u"a.jou"_s << u"a.mdl"_s;
    QTest::newRow("model named like an argument")
        << QStringList{u"--"_s, u"--batch"_s} << false << QString() << u"--batch"_s;
}

void TstCommandLine::words_are_read()
{
    QFETCH(QStringList, words);
    CommandLine line(words);
    QCOMPARE(line.error(), QString());
    QTEST(line.batch_mode(), "batch");
    QTEST(line.journal(), "journal");
    QTEST(line.file(), "file");
}

void TstCommandLine::components_are_loaded_unless_left_out()
{
    QVERIFY(CommandLine{QStringList()}.components());
    CommandLine without(QStringList{u"--no-components"_s, u"--play"_s, u"a.jou"_s});
    QCOMPARE(without.error(), QString());
    QVERIFY(!without.components());
    QCOMPARE(without.journal(), u"a.jou"_s);
}

void TstCommandLine::settings_file_is_read()
{
    QCOMPARE(CommandLine{QStringList()}.settings(), QString());
    CommandLine line(QStringList{u"--settings"_s, u"a b.ini"_s, u"--play"_s, u"a.jou"_s});
    QCOMPARE(line.error(), QString());
    QCOMPARE(line.settings(), u"a b.ini"_s);
    QCOMPARE(line.journal(), u"a.jou"_s);
}

void TstCommandLine::journal_to_check_is_read()
{
    QCOMPARE(CommandLine{QStringList()}.check(), QString());
    CommandLine line(QStringList{u"--no-components"_s, u"--check"_s, u"a b.jou"_s});
    QCOMPARE(line.error(), QString());
    QCOMPARE(line.check(), u"a b.jou"_s);
    QCOMPARE(line.journal(), QString());
    // It needs no window.
    QVERIFY(line.batch_mode());
}

void TstCommandLine::values_for_parameters_are_read()
{
    CommandLine line(QStringList{u"--batch"_s, u"--set"_s, u"size=2"_s, u"--play"_s, u"a.jou"_s, u"--set"_s,
                                 u"label=a = b"_s, u"--json"_s, u"-"_s});
    QCOMPARE(line.error(), QString());
    QStringList read;
    for (const auto& [name, value] : line.parameters())
        read << name << value;
    QCOMPARE(read, (QStringList{u"size"_s, u"2"_s, u"label"_s, u"a = b"_s}));
    QCOMPARE(line.record(), u"-"_s);
    QCOMPARE(CommandLine{QStringList()}.record(), QString());
}

void TstCommandLine::mistakes_are_named_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown argument") << QStringList{u"--fast"_s} << u"unknown argument \"--fast\""_s;
    QTest::newRow("journal without a name")
        << QStringList{u"--play"_s} << u"--play needs the name of a journal"_s;
    QTest::newRow("settings without a name")
        << QStringList{u"--settings"_s} << u"--settings needs the name of a file"_s;
    QTest::newRow("settings with an empty name")
        << QStringList{u"--settings"_s, QString()} << u"--settings needs the name of a file"_s;
    QTest::newRow("two models") << QStringList{u"a.mdl"_s, u"b.mdl"_s}
                                << u"only one model can be opened, and \"b.mdl\" is the second"_s;
    QTest::newRow("two journals") << QStringList{u"--play"_s, u"a.jou"_s, u"--play"_s, u"b.jou"_s}
                                  << u"--play is given twice, for \"a.jou\" and \"b.jou\""_s;
    QTest::newRow("model without a name") << QStringList{QString()} << u"the name of a model file is empty"_s;
    QTest::newRow("batch without a journal")
        << QStringList{u"--batch"_s} << u"--batch needs a journal: add --play FILE"_s;
    QTest::newRow("check without a name")
        << QStringList{u"--check"_s} << u"--check needs the name of a journal"_s;
    const QString alone = u"--check cannot be combined with --batch, --play, --set, --json or a model"_s;
    QTest::newRow("check and batch") << QStringList{u"--batch"_s, u"--check"_s, u"a.jou"_s} << alone;
    QTest::newRow("check and play") << QStringList{u"--check"_s, u"a.jou"_s, u"--play"_s, u"b.jou"_s}
                                    << alone;
    QTest::newRow("check and set") << QStringList{u"--check"_s, u"a.jou"_s, u"--set"_s, u"size=2"_s} << alone;
    QTest::newRow("check and record")
        << QStringList{u"--check"_s, u"a.jou"_s, u"--json"_s, u"a.json"_s} << alone;
    QTest::newRow("check and a model") << QStringList{u"--check"_s, u"a.jou"_s, u"b.mdl"_s} << alone;
    const QString setting = u"--set needs the name of a parameter and its value, as size=2"_s;
    QTest::newRow("set at the end") << QStringList{u"--play"_s, u"a.jou"_s, u"--set"_s} << setting;
    QTest::newRow("set without a value")
        << QStringList{u"--set"_s, u"size"_s, u"--play"_s, u"a.jou"_s} << setting;
    QTest::newRow("set without a name")
        << QStringList{u"--set"_s, u"=2"_s, u"--play"_s, u"a.jou"_s} << setting;
    QTest::newRow("set twice") << QStringList{u"--set"_s, u"size=2"_s, u"--play"_s,
                                              u"a.jou"_s, u"--set"_s,  u"size=3"_s}
                               << u"--set gives a value for \"size\" twice"_s;
    QTest::newRow("set without a journal")
        << QStringList{u"--set"_s, u"size=2"_s} << u"--set needs a journal: add --play FILE"_s;
    QTest::newRow("record with a window")
        << QStringList{u"--play"_s, u"a.jou"_s, u"--json"_s, u"a.json"_s} << u"--json needs --batch"_s;
    QTest::newRow("record without a name") << QStringList{u"--batch"_s, u"--play"_s, u"a.jou"_s, u"--json"_s}
                                           << u"--json needs the name of a file"_s;
    QTest::newRow("standard input with a window")
        << QStringList{u"--play"_s, u"-"_s}
        << u"--play - reads the journal from standard input, which needs --batch"_s;
}

void TstCommandLine::mistakes_are_named()
{
    QFETCH(QStringList, words);
    QTEST(CommandLine(words).error(), "error");
}

void TstCommandLine::graphics_state_is_kept()
{
    CommandLine line{QStringList()};
    QCOMPARE(line.graphics_state(), 0);
    line.set_graphics_state(2);
    QCOMPARE(line.graphics_state(), 2);
}

void TstCommandLine::application_has_one_command_line()
{
    QCOMPARE(CLOptions::instance(), &CommandLine::of_application());
}

OSTREL_TEST(TstCommandLine)
#include "tst_commandline.moc"
