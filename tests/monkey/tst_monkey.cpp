// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Monkey.h"
#include "checks.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "journal/JournalFindDialog.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/statics.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/**
 * Plays random acts of user, host and components one after the other and inside each other: for 200 seeds
 * under the sanitizers, which see most, and for 60 otherwise.
 *
 * The name of a row is its seed. OSTREL_TEST_SEED gives the first one, OSTREL_TEST_SEEDS how many there are.
 * With OSTREL_TEST_TRACE each act is printed before it is played, which tells the last one before a crash.
 */
class TstMonkey : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void shell_bears_acts_inside_acts_data();
    void shell_bears_acts_inside_acts();
    void one_seed_leads_to_the_same_acts();

private:
    void tear_down() override { reset_statics(); }
};

namespace {

constexpr int steps = 120;

#ifdef OSTREL_SANITIZED
constexpr quint32 usual_seeds = 200;
#else
constexpr quint32 usual_seeds = 60;
#endif

quint32 number_of_seeds()
{
    bool is_number = false;
    const int number = qEnvironmentVariableIntValue("OSTREL_TEST_SEEDS", &is_number);
    return is_number ? static_cast<quint32>(number) : usual_seeds;
}

void fail(const Monkey& monkey, const QString& wrong)
{
    QFAIL(qPrintable(wrong + u"\nafter\n"_s + monkey.trail().join(u'\n')));
}

/** Returns the acts played. */
QStringList play(quint32 seed)
{
    // Nothing is left of another run.
    reset_statics();
    QSettings().clear();
    QGuiApplication::clipboard()->clear();
    // The same path each time, since entries of recent files are told by theirs.
    static const QTemporaryDir folders;
    QDir folder(folders.filePath(u"files"_s));
    folder.removeRecursively();
    folder.mkpath(u"."_s);
    Monkey monkey(seed, folder.path());
    for (int step = 0; step < steps; ++step) {
        monkey.step();
        if (const QString wrong = monkey.wrong(); !wrong.isEmpty()) {
            fail(monkey, wrong);
            break;
        }
    }
    monkey.leave();
    const QString left = monkey.window() ? left_in(*monkey.window()) : QString();
    if (!left.isEmpty() && !QTest::currentTestFailed())
        fail(monkey, left);
    monkey.world().unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The dialogs of all searches are left, as the editor promises.
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (qobject_cast<JournalFindDialog*>(window))
            delete window;
    return monkey.trail();
}

} // namespace

// What goes by the clock would differ from run to run.
void TstMonkey::initTestCase()
{
    QApplication::setCursorFlashTime(0);
}

void TstMonkey::shell_bears_acts_inside_acts_data()
{
    QTest::addColumn<quint32>("seed");
    const quint32 first = random_seed();
    for (quint32 number = 0; number < number_of_seeds(); ++number)
        QTest::addRow("%u", first + number) << first + number;
}

void TstMonkey::shell_bears_acts_inside_acts()
{
    QFETCH(const quint32, seed);
    QVERIFY(!play(seed).isEmpty());
}

void TstMonkey::one_seed_leads_to_the_same_acts()
{
    const quint32 seed = random_seed();
    const QStringList first = play(seed);
    QCOMPARE(play(seed), first);
    QVERIFY2(!first.filter(u" -> "_s).isEmpty(), "no act has been played from inside a call");
}

OSTREL_TEST(TstMonkey)

#include "tst_monkey.moc"
