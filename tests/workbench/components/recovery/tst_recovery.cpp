// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "support/FullDisk.h"
#include "support/TestCase.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/components/recovery/KeptDocument.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/ostrelfw/FrameworkInterpreters.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace fennar;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;

/** The component, loaded into the main window. */
class TstRecovery : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void initTestCase();
    void cleanupTestCase();

    void component_keeps_every_15_seconds();
    void unload_leaves_nothing_and_can_be_repeated();
    void journals_stay_open_when_the_component_goes();
    void command_says_when_there_is_nothing();
    void restored_journals_are_kept_before_the_old_copies_go();
    void old_copies_stay_if_new_ones_cannot_be_written();
    void copy_that_cannot_be_read_stays_and_is_told();
    void work_goes_back_to_its_component();
    void work_changed_last_comes_back_and_the_rest_stays();
    void work_that_cannot_go_back_stays_data();
    void work_that_cannot_go_back_stays();

private:
    static QString root()
    {
        return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/recovery"_s;
    }
    static QStringList folders() { return QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
    static QObject* keeper() { return Ostrel::instance()->findChild<QObject*>(u"documentKeeper"_s); }
    static QMessageBox* offer() { return Ostrel::instance()->findChild<QMessageBox*>(u"recoveryOffer"_s); }
    static QTabWidget* tabs()
    {
        return Ostrel::instance()->journal_editor()->findChild<QTabWidget*>(u"mDocTab"_s);
    }
    static QStringList texts();
    static bool keep();
    static void press(const QString& button);
    /** Leaves a copy as a program that is gone does. Returns its path. */
    static QString leave(const QString& folder, const QByteArray& text);
    /** Leaves work of the kind "model" in the same way. */
    static QString leave_work(const QString& folder, const QByteArray& data, int minute);
    /** Brings a component's work, which is unsaved in that state; nothing else is. */
    void add_work(std::optional<qint64> state, const QString& refusal = {});
    void load() { QCOMPARE(mManager->load(u"recovery"_s), QString()); }
    void unload() { QCOMPARE(mManager->unload(u"recovery"_s), QString()); }

    std::unique_ptr<MainFrame> mFrame;
    std::unique_ptr<ComponentManager> mManager;
    std::unique_ptr<QTemporaryDir> mDirectory;
    QString mReports;
    QString mOutput;
    /** What the console's page of errors gets, too. */
    QString mErrors;
    std::optional<qint64> mState;
    /** What went back, as "file data". */
    QStringList mRestored;
};

void TstRecovery::initTestCase()
{
    PythonRuntime::start({});
    set_framework_interpreters(make_python_interpreter(PythonRuntime::framework_namespace()), nullptr);
}

void TstRecovery::cleanupTestCase()
{
    PythonRuntime::stop();
}

void TstRecovery::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mReports.clear();
    mOutput.clear();
    mErrors.clear();
    Fennar::instance().interpreter().set_error_output([this](const QString& text) { mErrors += text; });
    mRestored.clear();
    QDir(root()).removeRecursively();
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    mFrame = std::make_unique<MainFrame>();
    QVERIFY(mFrame->load_gui());
    connect(Ostrel::instance()->command_line(), &CommandWindow::dataToPrint, this,
            [this](const QString& text) { mOutput += text; });
    mManager = std::make_unique<ComponentManager>(Fennar::instance().interpreter(),
                                                  mDirectory->filePath(u"loading"_s));
    mManager->set_report([this](const QString& text) { mReports += text; });
}

void TstRecovery::tear_down()
{
    mManager->unload_all();
    mManager.reset();
    UnsavedWorks::instance().remove_owner(u"test"_s);
    mFrame->unload_gui();
    mFrame.reset();
    Fennar::instance().interpreter().set_error_output({});
    QCOMPARE(mReports, QString());
}

QStringList TstRecovery::texts()
{
    QStringList texts;
    for (int i = 0; i < tabs()->count(); ++i)
        texts << qobject_cast<QPlainTextEdit*>(tabs()->widget(i))->toPlainText();
    return texts;
}

bool TstRecovery::keep()
{
    bool done = false;
    return QMetaObject::invokeMethod(keeper(), "keep") &&
           QMetaObject::invokeMethod(keeper(), "finish", Q_RETURN_ARG(bool, done)) && done;
}

void TstRecovery::press(const QString& button)
{
    auto* found = offer() ? offer()->findChild<QPushButton*>(button) : nullptr;
    QVERIFY(found);
    found->click();
}

QString TstRecovery::leave(const QString& folder, const QByteArray& text)
{
    const QString path = root() + u'/' + folder;
    QDir().mkpath(path);
    QFile file(path + u"/1.journal"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("the copy cannot be written");
    return file.fileName();
}

QString TstRecovery::leave_work(const QString& folder, const QByteArray& data, int minute)
{
    const QDateTime changed = QDateTime::fromString(u"2026-05-01T12:0%1:00Z"_s.arg(minute), Qt::ISODate);
    const QString path =
        leave(folder, KeptDocument{u"/a/part.mdl"_s, changed, {}, u"model"_s, {data}}.encode().join());
    const QString name = path.chopped(8) + u".work"_s;
    if (!QFile::rename(path, name))
        qFatal("the copy cannot be named");
    return name;
}

void TstRecovery::add_work(std::optional<qint64> state, const QString& refusal)
{
    mState = state;
    QVERIFY(UnsavedWorks::instance().add(
        {.kind = u"model"_s,
         .owner = u"test"_s,
         .state = [this] { return mState; },
         .file = [] { return QString(); },
         .take = [this] { return QByteArrayList{mRestored.join(u',').toUtf8()}; },
         .restore =
             [this, refusal](const QByteArray& bytes, const QString& file) {
                 if (refusal.isEmpty()) {
                     mRestored << file + u' ' + QString::fromUtf8(bytes);
                     mState = 1;
                 }
                 return refusal;
             }}));
}

void TstRecovery::work_goes_back_to_its_component()
{
    const QString copy = leave_work(u"left"_s, "one", 1);
    leave(u"other"_s, "text");
    add_work({});
    load();
    QVERIFY2(offer()->text().contains("part.mdl"_L1), qPrintable(offer()->text()));
    press(u"recoveryRestore"_s);
    QCOMPARE(mRestored, QStringList{u"/a/part.mdl one"_s});
    QCOMPARE(texts(), QStringList{u"text"_s});
    // Another kill would not lose it.
    QVERIFY(!QFile::exists(copy));
    QCOMPARE(folders().size(), 2);
    QCOMPARE(mOutput, QString());
}

void TstRecovery::work_changed_last_comes_back_and_the_rest_stays()
{
    const QString older = leave_work(u"older"_s, "older", 1);
    const QString newer = leave_work(u"newer"_s, "newer", 2);
    add_work({});
    load();
    press(u"recoveryRestore"_s);
    QCOMPARE(mRestored, QStringList{u"/a/part.mdl newer"_s});
    QVERIFY(QFile::exists(older));
    QVERIFY(!QFile::exists(newer));
    QVERIFY2(mOutput.startsWith("part.mdl (changed "_L1) && mOutput.contains(" stays kept"_L1),
             qPrintable(mOutput));
    // The present one is saved.
    mState.reset();
    Fennar::instance().interpreter().run(u"recover"_s);
    press(u"recoveryRestore"_s);
    QCOMPARE(mRestored.size(), 2);
    QVERIFY(!QFile::exists(older));
}

void TstRecovery::work_that_cannot_go_back_stays_data()
{
    QTest::addColumn<QString>("why");
    QTest::newRow("other work is unsaved") << u"unsaved"_s;
    QTest::newRow("no component") << u"none"_s;
    QTest::newRow("refused") << u"refused"_s;
}

void TstRecovery::work_that_cannot_go_back_stays()
{
    QFETCH(const QString, why);
    const QString copy = leave_work(u"left"_s, "one", 1);
    if (why != "none"_L1)
        add_work(why == "unsaved"_L1 ? std::optional<qint64>(7) : std::nullopt,
                 why == "refused"_L1 ? u"it is damaged"_s : QString());
    load();
    press(u"recoveryRestore"_s);
    QCOMPARE(mRestored, QStringList());
    QVERIFY(QFile::exists(copy));
    QVERIFY(mOutput.contains(" stays kept"_L1));
    QCOMPARE(mErrors.contains("ERROR: it is damaged\n"_L1), why == "refused"_L1);
}

void TstRecovery::component_keeps_every_15_seconds()
{
    load();
    const auto timers = keeper()->findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.first()->isActive());
    QCOMPARE(timers.first()->interval(), 15000);
    // Its turn comes, whatever the clock says.
    Ostrel::instance()->journal_editor()->add_document(u"one"_s);
    timers.first()->start(0);
    QTRY_COMPARE(folders().size(), 1);
    auto* works = Ostrel::instance()->findChild<QObject*>(u"workKeeper"_s);
    QCOMPARE(works->findChildren<QTimer*>().value(0)->interval(), 15000);
}

void TstRecovery::unload_leaves_nothing_and_can_be_repeated()
{
    leave(u"left"_s, "left");
    JournalEditor* editor = Ostrel::instance()->journal_editor();
    editor->add_document(u"one"_s);
    const QTextDocument* document = qobject_cast<QPlainTextEdit*>(tabs()->widget(0))->document();
    const auto trace = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QList<qsizetype>{Ostrel::instance()->findChildren<QObject*>().size(),
                                QApplication::topLevelWidgets().size(), document->children().size(),
                                folders().size(), QDir(u"/proc/self/task"_s).entryList(QDir::Dirs).size()};
    };
    // A hundred writings of the settings would take longer than all the rest.
    mManager->set_remembering(false);
    load();
    unload();
    const QList<qsizetype> before = trace();
    for (int cycle = 0; cycle < 100; ++cycle) {
        load();
        QVERIFY(offer() && offer()->isVisible());
        // To write each time would take most of the test's time.
        if (cycle % 20 == 0) {
            QVERIFY(keep());
            QCOMPARE(folders().size(), 2);
        }
        unload();
        QVERIFY(!keeper() && !offer());
        QCOMPARE(folders(), QStringList{u"left"_s});
    }
    QCOMPARE(trace(), before);
    QVERIFY(!QFile::exists(root() + u"/left/lock"_s));
    // Nobody listens to the document any more.
    qobject_cast<QPlainTextEdit*>(tabs()->widget(0))->insertPlainText(u"!"_s);
    QCoreApplication::processEvents();
    QCOMPARE(folders(), QStringList{u"left"_s});
}

void TstRecovery::journals_stay_open_when_the_component_goes()
{
    leave(u"left"_s, "left");
    load();
    press(u"recoveryRestore"_s);
    unload();
    QCOMPARE(texts(), QStringList{u"left"_s});
    QVERIFY(qobject_cast<QPlainTextEdit*>(tabs()->widget(0))->document()->isModified());
}

void TstRecovery::command_says_when_there_is_nothing()
{
    load();
    QVERIFY(!offer());
    QString printed;
    CommandInterpreter& interpreter = Fennar::instance().interpreter();
    interpreter.set_output([&](const QString& text) { printed += text; });
    interpreter.run(u"recover"_s);
    interpreter.set_output(nullptr);
    QCOMPARE(printed, u"There is nothing to recover.\n"_s);
    QVERIFY(!offer());
}

void TstRecovery::restored_journals_are_kept_before_the_old_copies_go()
{
    leave(u"left"_s, "left");
    leave(u"other"_s, "other");
    load();
    press(u"recoveryRestore"_s);
    QVERIFY(!folders().contains(u"left"_s) && !folders().contains(u"other"_s));
    QCOMPARE(folders().size(), 1);
    QCOMPARE(QDir(root() + u'/' + folders().first()).entryList({u"*.journal"_s}).size(), 2);
    QCOMPARE(texts(), (QStringList{u"left"_s, u"other"_s}));
}

void TstRecovery::old_copies_stay_if_new_ones_cannot_be_written()
{
    const QString copy = leave(u"left"_s, QByteArray(10'000, 'x'));
    load();
    {
        const FullDisk full(1000);
        press(u"recoveryRestore"_s);
    }
    QCOMPARE(texts(), QStringList{QString(10'000, u'x')});
    QVERIFY(QFile::exists(copy));
    QVERIFY2(mErrors.startsWith("ERROR: Unsaved journals cannot be kept for a recovery: "_L1),
             qPrintable(mErrors));
    QCOMPARE(mErrors.count(u"ERROR"_s), 1);
}

void TstRecovery::copy_that_cannot_be_read_stays_and_is_told()
{
    const QString copy = leave(u"left"_s, "left");
    const QString other = leave(u"other"_s, "other");
    load();
    // It has gone since it was offered.
    QVERIFY(QFile::remove(copy));
    press(u"recoveryRestore"_s);
    QCOMPARE(texts(), QStringList{u"other"_s});
    QVERIFY(!QFile::exists(other));
    QCOMPARE(mErrors, u"ERROR: Not all that was kept could be read. It stays in %1.\n"_s.arg(root()));
}

OSTREL_TEST(TstRecovery)
#include "tst_recovery.moc"
