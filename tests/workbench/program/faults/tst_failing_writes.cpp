// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "support/TestCase.h"
#include "support/failing_calls.h"
#include "sweep.h"
#include "workbench/application/console/CommandHistory.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/ErrorPage.h"
#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/application/settings/settings_checks.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/recovery/RecoveryFolder.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace fennar::geometry;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;

/** Each call of the system that could fail while something is written does. */
class TstFailingWrites : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void whole_file_is_replaced_or_left();
    void sweep_finds_a_file_that_is_cut();
    void saved_model_is_the_old_or_the_new_one();
    void history_has_whole_lines();
    void line_entered_at_the_console_is_in_the_history_or_told();
    void history_is_shortened_or_left();
    void settings_are_the_old_or_the_new_ones();
    void settings_that_cannot_be_read_are_kept_whole_data();
    void settings_that_cannot_be_read_are_kept_whole();
    void recovery_copy_is_the_old_or_the_new_one_data();
    void recovery_copy_is_the_old_or_the_new_one();

private:
    /** The path of a file that is there already. */
    QString make(const QString& name, const QByteArray& bytes) const;

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstFailingWrites::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

QString TstFailingWrites::make(const QString& name, const QByteArray& bytes) const
{
    const QString path = mDirectory->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file could not be written");
    return path;
}

void TstFailingWrites::whole_file_is_replaced_or_left()
{
    const QString file = make(u"a"_s, "old");
    const auto write = [&file] { return write_whole_file(file, {QByteArray(100'000, 'x'), {}, "y"}); };
    QCOMPARE(sweep({.file = file, .write = write, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::sweep_finds_a_file_that_is_cut()
{
    const QString path = make(u"a"_s, "old");
    const auto write = [&path] {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write("new") == 3 ? QString() : u"cannot"_s;
    };
    const QString found = sweep({.file = path, .write = write, .folder = mDirectory->path()});
    QVERIFY2(found.contains("not told"_L1), qPrintable(found));
}

void TstFailingWrites::saved_model_is_the_old_or_the_new_one()
{
    const QString file = make(u"part.mdl"_s, "old");
    const auto save = [&file]() -> QString {
        // Anew each time, or the shapes that were written once are known.
        GeometryModel model;
        GeometryDocument document(model);
        model.brick({1, 2, 3});
        model.sphere(4);
        try {
            document.save(file);
            return document.is_modified() ? u"modified"_s : QString();
        } catch (const GeometryError& error) {
            return document.is_modified() ? error.message() : QString();
        }
    };
    QCOMPARE(sweep({.file = file, .write = save, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::history_has_whole_lines()
{
    const QString file = make(u"history"_s, "brick 1\n");
    const auto add = [&file] {
        CommandHistory history(file);
        return history.add(u"sphere 2 at 1 2 3"_s) ? QString() : u"it cannot be written"_s;
    };
    QCOMPARE(sweep({.file = file, .write = add, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::line_entered_at_the_console_is_in_the_history_or_told()
{
    const QString file = make(u"history"_s, "brick 1\n");
    CommandWindow window(nullptr);
    const auto enter = [&]() -> QString {
        ConsoleOwner console(&window, file);
        console.prompt();
        QTest::keyClicks(console.command_page(), u"sphere 2 at 1 2 3"_s);
        QTest::keyClick(console.command_page(), Qt::Key_Return);
        return console.error_page()->toPlainText();
    };
    QCOMPARE(sweep({.file = file, .write = enter, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::history_is_shortened_or_left()
{
    QByteArray lines;
    for (int i = 0; i < 2 * CommandHistory::limit + 100; ++i)
        lines += "echo " + QByteArray::number(i) + '\n';
    const QString file = make(u"history"_s, lines);
    // Nobody need be told that a file stays long.
    const auto shorten = [&] {
        const CommandHistory history(file);
        QFile written(file);
        return written.size() < lines.size() ? QString() : u"it is as long as before"_s;
    };
    QCOMPARE(sweep({.file = file, .write = shorten, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::settings_are_the_old_or_the_new_ones()
{
    const QString file = make(u"a.conf"_s, "[General]\nold=1\n");
    const auto write = [&file] {
        QSettings settings(file, settings_format());
        settings.setValue(u"window/geometry"_s, QByteArray(500, 'x'));
        settings.sync();
        return settings.status() == QSettings::NoError ? QString() : u"they cannot be written"_s;
    };
    QCOMPARE(sweep({.file = file, .write = write, .folder = mDirectory->path()}), QString());
}

void TstFailingWrites::settings_that_cannot_be_read_are_kept_whole_data()
{
    QTest::addColumn<bool>("lasting");
    QTest::newRow("one call fails") << false;
    QTest::newRow("all calls behind it fail, too") << true;
}

void TstFailingWrites::settings_that_cannot_be_read_are_kept_whole()
{
    QFETCH(const bool, lasting);
    const QByteArray damaged("[a]\nb=1\nc");
    const auto content = [](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    int calls = 0;
    int number = 0;
    do {
        const QString folder = mDirectory->filePath(QString::number(++number));
        QVERIFY(QDir().mkpath(folder));
        const QString path = make(QString::number(number) + u"/a.conf"_s, damaged);
        begin_failing({QFileInfo(folder).canonicalFilePath().toStdString(), number, lasting});
        const bool is_readable = are_readable_settings(path);
        const auto told = keep_unreadable_settings(path);
        calls = end_failing();
        QVERIFY(!is_readable);
        QCOMPARE(content(told ? path + u".unreadable"_s : path), damaged);
    } while (number <= calls);
    QVERIFY(number > 2);
}

void TstFailingWrites::recovery_copy_is_the_old_or_the_new_one_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("journal") << QString();
    QTest::newRow("model") << u"model"_s;
}

void TstFailingWrites::recovery_copy_is_the_old_or_the_new_one()
{
    QFETCH(const QString, kind);
    const auto folder = RecoveryFolder::make(mDirectory->filePath(u"recovery"_s));
    QVERIFY(folder);
    KeptDocument document{u"/a/part"_s, QDateTime::currentDateTimeUtc(), u"old"_s, kind, {"old"}};
    QCOMPARE(folder->write(1, document), QString());
    document.text = QString(100'000, u'x');
    document.data = {QByteArray(100'000, 'x'), "y"};
    QCOMPARE(sweep({.file = folder->path() + u'/' + RecoveryFolder::name_of(1, kind),
                    .write = [&] { return folder->write(1, document); },
                    .folder = folder->path()}),
             QString());
}

OSTREL_TEST(TstFailingWrites)
#include "tst_failing_writes.moc"
