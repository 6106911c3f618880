// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/** Far longer than any run takes; a program that hangs is killed then. */
constexpr int patience_ms = 60'000;

/** A line of a journal, with a text as the components' commands take it. */
QByteArray line(const char* command, const QString& text)
{
    return command + QByteArray(" x") + text.toUtf8().toHex() + '\n';
}

} // namespace

/** The program itself, killed and started again. */
class TstFennarRecovery : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void killed_program_offers_its_journals_and_restores_them();
    void restored_journals_survive_the_next_kill();
    void journals_kept_for_later_are_offered_again_data();
    void journals_kept_for_later_are_offered_again();
    void discarded_journals_are_gone();
    void clean_end_leaves_nothing();
    void saved_journal_is_not_offered();
    void living_program_keeps_its_own();
    void journals_are_offered_by_one_program_only();
    void batch_run_leaves_all_alone();
    void killed_program_offers_its_model_and_restores_it();
    void ended_program_offers_its_model();
    void saved_model_survives_a_kill_and_is_not_offered();
    void saved_journal_survives_a_kill_and_is_a_recent_one();

private:
    /** What the program reports. */
    struct Report
    {
        QStringList texts;
        QStringList labels;
        QStringList offer;
        bool all_modified = true;
        bool visible = false;
    };

    QString kept() const { return mDirectory->filePath(u"data/ostrel/fennar/recovery"_s); }
    QStringList folders() const { return QDir(kept()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
    void add_component(const char* file);
    QString journal(const QByteArray& content);
    /** Starts the program with a journal that runs once the components are there. */
    std::unique_ptr<QProcess> start(const QByteArray& lines, const QStringList& arguments = {});
    /** Starts the program and returns it once the lines are done. */
    std::unique_ptr<QProcess> start_and_wait(const QByteArray& lines, Report* report = nullptr);
    /** Runs the program to its end. Returns its exit code. */
    int run(const QByteArray& lines, const QStringList& arguments = {});
    Report run_and_report(const QByteArray& lines);
    Report read_report(const QString& file);
    static void kill(QProcess& process);
    /** Lets a program keep journals, and kills it. */
    void crash_with(const QStringList& texts);

    std::unique_ptr<QTemporaryDir> mDirectory;
    int mFiles = 0;
};

void TstFennarRecovery::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(mDirectory->path()).mkpath(u"components"_s));
    add_component(TREE_COMPONENTS "/recovery.so");
    add_component(TEST_COMPONENTS "/journals.so");
}

void TstFennarRecovery::add_component(const char* file)
{
    const QString path = QString::fromUtf8(file);
    QVERIFY(QFile::link(path, mDirectory->filePath(u"components/"_s + QFileInfo(path).fileName())));
}

QString TstFennarRecovery::journal(const QByteArray& content)
{
    const QString path = mDirectory->filePath(u"%1.jou"_s.arg(++mFiles));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the journal could not be written");
    return path;
}

std::unique_ptr<QProcess> TstFennarRecovery::start(const QByteArray& lines, const QStringList& arguments)
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"FENNAR_COMPONENT_PATH"_s, mDirectory->filePath(u"components"_s));
    variables.insert(u"XDG_DATA_HOME"_s, mDirectory->filePath(u"data"_s));
    variables.insert(u"XDG_CONFIG_HOME"_s, mDirectory->filePath(u"config"_s));
    process->setProcessEnvironment(variables);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start(QStringLiteral(FENNAR), arguments + QStringList{u"--play"_s, journal(lines)});
    return process;
}

std::unique_ptr<QProcess> TstFennarRecovery::start_and_wait(const QByteArray& lines, Report* report)
{
    const QString file = mDirectory->filePath(u"%1.report"_s.arg(++mFiles));
    std::unique_ptr<QProcess> process = start(lines + line("journal-report", file));
    [&] { QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file), patience_ms); }();
    if (process->state() != QProcess::Running)
        qCritical("the program has ended: %s", process->readAll().constData());
    if (report)
        *report = read_report(file);
    return process;
}

int TstFennarRecovery::run(const QByteArray& lines, const QStringList& arguments)
{
    const std::unique_ptr<QProcess> process = start(lines + "quit\n", arguments);
    if (!process->waitForFinished(patience_ms) || process->exitStatus() != QProcess::NormalExit) {
        kill(*process);
        qCritical("the program did not end well: %s", process->readAll().constData());
        return -1;
    }
    if (process->exitCode() != 0)
        qInfo("the program has failed: %s", process->readAll().constData());
    return process->exitCode();
}

TstFennarRecovery::Report TstFennarRecovery::run_and_report(const QByteArray& lines)
{
    const QString file = mDirectory->filePath(u"%1.report"_s.arg(++mFiles));
    if (run(lines + line("journal-report", file) + "journal-no-prompt\n") != 0)
        return {};
    return read_report(file);
}

TstFennarRecovery::Report TstFennarRecovery::read_report(const QString& file)
{
    QFile reader(file);
    if (!reader.open(QIODevice::ReadOnly)) {
        qCritical("there is no report");
        return {};
    }
    const QJsonObject all = QJsonDocument::fromJson(reader.readAll()).object();
    Report report;
    const QJsonArray documents = all.value("documents"_L1).toArray();
    for (const auto& one : documents) {
        report.texts << one["text"_L1].toString().replace(QChar::ParagraphSeparator, u'\n');
        report.labels << one["label"_L1].toString();
        report.all_modified = report.all_modified && one["modified"_L1].toBool();
    }
    report.offer = all.value("offer"_L1).toString().split(u'\n', Qt::SkipEmptyParts).mid(1);
    report.visible = all.value("visible"_L1).toBool();
    return report;
}

void TstFennarRecovery::kill(QProcess& process)
{
    process.kill();
    process.waitForFinished();
}

void TstFennarRecovery::crash_with(const QStringList& texts)
{
    QByteArray lines;
    for (const QString& text : texts)
        lines += line("journal-add", text);
    const auto process = start_and_wait(lines + "journal-keep\n");
    QCOMPARE(process->state(), QProcess::Running);
    kill(*process);
    QCOMPARE(folders().size(), 1);
}

void TstFennarRecovery::killed_program_offers_its_journals_and_restores_them()
{
    const QString part = mDirectory->filePath(u"part.jou"_s);
    QFile file(part);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("mesh\n");
    file.close();
    const QString odd = u"a\0b \u4e2d\u6587\u00a0\U0001f600\n"_s;
    const auto process = start_and_wait(line("journal-open", part) + line("journal-type", u"brick x 1\n"_s) +
                                        line("journal-add", odd) + "journal-keep\n");
    kill(*process);

    Report offered;
    const auto next = start_and_wait({}, &offered);
    QCOMPARE(offered.offer.size(), 2);
    static const QRegularExpression time(u" \\(changed (\\d{4}-\\d\\d-\\d\\d )?\\d\\d:\\d\\d\\)$"_s);
    QVERIFY(offered.offer[0].contains(time) && offered.offer[1].contains(time));
    offered.offer.replaceInStrings(time, {});
    QCOMPARE(offered.offer, (QStringList{u"part.jou"_s, u"Untitled"_s}));
    QCOMPARE(offered.texts, QStringList{QString()});
    QVERIFY(!offered.visible);
    // The offer holds nothing up and takes nothing away.
    kill(*next);

    const Report restored = run_and_report(line("journal-press", u"recoveryRestore"_s));
    QCOMPARE(restored.texts, (QStringList{u"brick x 1\nmesh\n\n"_s, odd}));
    QCOMPARE(restored.labels, (QStringList{u"* Untitled"_s, u"* Untitled"_s}));
    QVERIFY(restored.all_modified && restored.visible);
    QCOMPARE(restored.offer, QStringList());
    // That run has come to its end.
    QCOMPARE(run_and_report({}).offer, QStringList());
    QVERIFY(!QFile::exists(kept()));
}

void TstFennarRecovery::restored_journals_survive_the_next_kill()
{
    crash_with({u"one"_s});
    // No pass has come since.
    const auto process = start_and_wait(line("journal-press", u"recoveryRestore"_s));
    kill(*process);
    QCOMPARE(folders().size(), 1);
    QCOMPARE(run_and_report(line("journal-press", u"recoveryRestore"_s)).texts, QStringList{u"one"_s});
}

void TstFennarRecovery::journals_kept_for_later_are_offered_again_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("button") << line("journal-press", u"recoveryLater"_s);
    QTest::newRow("no answer") << QByteArray();
    QTest::newRow("unloaded without an answer") << QByteArray("unload recovery\nload recovery\n");
}

void TstFennarRecovery::journals_kept_for_later_are_offered_again()
{
    QFETCH(const QByteArray, lines);
    crash_with({u"one"_s});
    QCOMPARE(run(lines), 0);
    QCOMPARE(folders().size(), 1);
    QCOMPARE(run_and_report({}).offer.size(), 1);
    // In the same run, too.
    QCOMPARE(run_and_report(line("journal-press", u"recoveryLater"_s) + "recover\n").offer.size(), 1);
    QCOMPARE(run_and_report(line("journal-press", u"recoveryRestore"_s)).texts, QStringList{u"one"_s});
}

void TstFennarRecovery::discarded_journals_are_gone()
{
    crash_with({u"one"_s, u"two"_s});
    QCOMPARE(run(line("journal-press", u"recoveryDiscard"_s)), 0);
    QCOMPARE(folders(), QStringList());
    const Report next = run_and_report("recover\n");
    QCOMPARE(next.offer, QStringList());
    QCOMPARE(next.texts, QStringList{QString()});
}

void TstFennarRecovery::clean_end_leaves_nothing()
{
    const auto process = start_and_wait(line("journal-add", u"one"_s) + "journal-keep\n");
    QCOMPARE(folders().size(), 1);
    kill(*process);
    QCOMPARE(run(line("journal-press", u"recoveryDiscard"_s) + line("journal-add", u"one"_s) +
                 "journal-keep\njournal-no-prompt\n"),
             0);
    QVERIFY(!QFile::exists(kept()));
}

void TstFennarRecovery::saved_journal_is_not_offered()
{
    const QString part = mDirectory->filePath(u"part.jou"_s);
    QVERIFY(QFile(part).open(QIODevice::WriteOnly));
    const auto process =
        start_and_wait(line("journal-open", part) + line("journal-type", u"mesh"_s) + "journal-keep\n" +
                       "journal-save\n" + line("journal-add", u"one"_s) + "journal-keep\n");
    kill(*process);
    const Report next = run_and_report({});
    QCOMPARE(next.offer.size(), 1);
    QVERIFY(next.offer.first().startsWith("Untitled"_L1));
}

void TstFennarRecovery::living_program_keeps_its_own()
{
    const auto first = start_and_wait(line("journal-add", u"one"_s) + "journal-keep\n");
    const auto second = start_and_wait(line("journal-add", u"two"_s) + "journal-keep\n");
    QCOMPARE(folders().size(), 2);
    QCOMPARE(run_and_report({}).offer, QStringList());
    kill(*first);
    QCOMPARE(run_and_report(line("journal-press", u"recoveryRestore"_s)).texts, QStringList{u"one"_s});
    kill(*second);
    QCOMPARE(run_and_report(line("journal-press", u"recoveryRestore"_s)).texts, QStringList{u"two"_s});
}

void TstFennarRecovery::journals_are_offered_by_one_program_only()
{
    crash_with({u"one"_s});
    Report first;
    Report second;
    const auto one = start_and_wait({}, &first);
    const auto other = start_and_wait({}, &second);
    QCOMPARE(first.offer.size(), 1);
    QCOMPARE(second.offer, QStringList());
    // Both gone, the next one has it.
    kill(*one);
    kill(*other);
    QCOMPARE(run_and_report({}).offer.size(), 1);
}

void TstFennarRecovery::batch_run_leaves_all_alone()
{
    crash_with({u"one"_s});
    const QStringList before = folders();
    const auto process = start("recover\n", {u"--batch"_s});
    QVERIFY(process->waitForFinished(patience_ms));
    QCOMPARE(process->exitCode(), 1);
    const QString errors = QString::fromUtf8(process->readAll());
    QVERIFY2(errors.contains(u"recover: column 1: there is no window to offer it in"), qPrintable(errors));
    // A journal for the window can be checked there.
    QCOMPARE(run("check \"" + journal("recover\n").toUtf8() + "\"\n", {u"--batch"_s}), 0);
    QCOMPARE(run({}, {u"--batch"_s}), 0);
    QCOMPARE(folders(), before);
    QCOMPARE(run_and_report({}).offer.size(), 1);
}

void TstFennarRecovery::killed_program_offers_its_model_and_restores_it()
{
    add_component(TREE_COMPONENTS "/geometry.so");
    const QString part = mDirectory->filePath(u"part.mdl"_s);
    const QByteArray save = "save \"" + part.toUtf8() + "\"\n";
    const auto process =
        start_and_wait("brick 1 2 3 name plate\n" + save + "sphere 4 name ball\njournal-keep\n");
    kill(*process);
    Report offered;
    const auto next = start_and_wait({}, &offered);
    QCOMPARE(offered.offer.size(), 1);
    QVERIFY2(offered.offer[0].startsWith("part.mdl (changed "_L1), qPrintable(offered.offer[0]));
    kill(*next);

    // What comes back counts as unsaved.
    const QByteArray restore = line("journal-press", u"recoveryRestore"_s);
    const auto restored = start_and_wait(restore);
    kill(*restored);
    QCOMPARE(run_and_report({}).offer.size(), 1);
    QCOMPARE(run(restore + "list plate\nlist ball\n" + save), 0);
    QCOMPARE(folders(), QStringList());
    // Saved again, it has both.
    QCOMPARE(run("open \"" + part.toUtf8() + "\"\nlist ball\n"), 0);
}

void TstFennarRecovery::ended_program_offers_its_model()
{
    add_component(TREE_COMPONENTS "/geometry.so");
    const auto process = start_and_wait("brick 1\njournal-keep\n");
    process->terminate();
    QVERIFY(process->waitForFinished(patience_ms));
    QCOMPARE(run_and_report({}).offer.size(), 1);
}

void TstFennarRecovery::saved_model_survives_a_kill_and_is_not_offered()
{
    add_component(TREE_COMPONENTS "/geometry.so");
    const QString part = mDirectory->filePath(u"part.mdl"_s);
    const auto process = start_and_wait("brick 1\njournal-keep\nsave \"" + part.toUtf8() + "\"\n");
    kill(*process);
    QVERIFY(QFile::exists(part));
    QCOMPARE(run_and_report({}).offer, QStringList());
    QFile settings(mDirectory->filePath(u"config/ostrel/fennar.conf"_s));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QVERIFY(settings.readAll().contains(part.toUtf8()));
}

void TstFennarRecovery::saved_journal_survives_a_kill_and_is_a_recent_one()
{
    const QString file = mDirectory->filePath(u"saved.jou"_s);
    QFile journal(file);
    QVERIFY(journal.open(QIODevice::WriteOnly) && journal.write("list") > 0);
    journal.close();
    const auto process = start_and_wait(line("journal-open", file) + line("journal-type", u"more "_s) +
                                        "journal-keep\njournal-save\n");
    kill(*process);
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QCOMPARE(journal.readAll(), QByteArray("more list\n"));
    QCOMPARE(run_and_report({}).offer, QStringList());
    const QSettings settings(mDirectory->filePath(u"config/ostrel/fennar.conf"_s), QSettings::IniFormat);
    QCOMPARE(settings.value(u"ostrelgui/journal/file1"_s).toString(), file);
}

OSTREL_TEST(TstFennarRecovery)
#include "tst_fennar_recovery.moc"
