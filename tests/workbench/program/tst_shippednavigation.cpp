// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "support/TestCase.h"
#include "workbench/host/navigation/NavigationEntries.h"

#include <QRegularExpression>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The navigation files that come with the workbench, read from where the executable looks for them. */
class TstShippedNavigation : public TestCase
{
    Q_OBJECT

private slots:
    void files_are_read_without_message_data() { add_directories(); }
    void files_are_read_without_message();
    void every_entry_is_complete_data() { add_directories(); }
    void every_entry_is_complete();
    void both_arrangements_hold_the_same_commands();

private:
    static void add_directories();
    static void read(const QString& directory, NavigationModel& model, QStringList& messages);
};

namespace {

QModelIndexList all_entries(const QAbstractItemModel& model)
{
    return model.match(model.index(0, 0), Qt::DisplayRole, u"*"_s, -1,
                       Qt::MatchWildcard | Qt::MatchRecursive);
}

QStringList command_words(const QAbstractItemModel& model)
{
    QStringList words;
    for (const QModelIndex& entry : all_entries(model))
        if (entry.data(NavigationRole::Kind).toInt() == static_cast<int>(NavigationKind::Command))
            words << entry.data(NavigationRole::Command).toString().section(u' ', 0, 0);
    words.sort();
    return words;
}

} // namespace

void TstShippedNavigation::add_directories()
{
    QTest::addColumn<QString>("directory");
    QTest::newRow("by action") << u"/xml/action-based-xml"_s;
    QTest::newRow("by entity") << u"/xml/entity-based-xml"_s;
}

void TstShippedNavigation::read(const QString& directory, NavigationModel& model, QStringList& messages)
{
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(QCoreApplication::applicationDirPath() + directory, u".xml"_s);
    messages = reader.messages;
}

void TstShippedNavigation::files_are_read_without_message()
{
    QFETCH(const QString, directory);
    NavigationModel model(nullptr);
    QStringList messages;
    read(directory, model, messages);
    QCOMPARE(messages, QStringList());
    QVERIFY(model.rowCount() > 0);
}

void TstShippedNavigation::every_entry_is_complete()
{
    QFETCH(const QString, directory);
    NavigationModel model(nullptr);
    QStringList messages;
    read(directory, model, messages);
    const QModelIndexList entries = all_entries(model);
    QVERIFY(!entries.isEmpty());
    static const QRegularExpression image(u"\\A(\\.\\./images/[a-z]+/)?[A-Za-z0-9_]+\\.svg\\z"_s);
    for (const QModelIndex& entry : entries) {
        const QByteArray title = entry.data().toString().toUtf8();
        QVERIFY2(image.match(entry.data(NavigationRole::IconName).toString()).hasMatch(), title.constData());
        const bool command =
            entry.data(NavigationRole::Kind).toInt() == static_cast<int>(NavigationKind::Command);
        QCOMPARE(model.hasChildren(entry), !command);
        // A command tells by itself what it does.
        QVERIFY2(entry.data(NavigationRole::Tip).toString().isEmpty() == command, title.constData());
        if (!command)
            continue;
        const QString line = entry.data(NavigationRole::Command).toString();
        QVERIFY2(!line.isEmpty(), title.constData());
        // Told by the command itself.
        QVERIFY2(entry.data(NavigationRole::Usage).toString().isEmpty(), title.constData());
    }
}

void TstShippedNavigation::both_arrangements_hold_the_same_commands()
{
    QList<QStringList> words;
    for (const QString& directory : {u"/xml/action-based-xml"_s, u"/xml/entity-based-xml"_s}) {
        NavigationModel model(nullptr);
        QStringList messages;
        read(directory, model, messages);
        words << command_words(model);
    }
    QVERIFY(words[0].size() >= 35);
    QCOMPARE(words[0], words[1]);
    QCOMPARE(words[0].removeDuplicates(), 0);
}

OSTREL_TEST(TstShippedNavigation)

#include "tst_shippednavigation.moc"
