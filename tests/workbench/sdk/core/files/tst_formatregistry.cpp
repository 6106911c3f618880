// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The meeting place of components that know formats. */
class TstFormatRegistry : public TestCase
{
    Q_OBJECT

private slots:
    void formats_are_kept_in_their_order();
    void incomplete_formats_are_refused_data();
    void incomplete_formats_are_refused();
    void names_and_endings_are_unique_data();
    void names_and_endings_are_unique();
    void one_function_is_enough();
    void owner_takes_all_its_formats_along();
    void format_in_use_stays_valid();
    void filter_lists_all_endings();

private:
    static FileFormat format(const QString& name, const QStringList& endings,
                             const QString& owner = u"test"_s)
    {
        return {name, endings, owner, [](const QByteArray&) { return Surface(); },
                [](const Surface&) { return QByteArray(); }};
    }
    static QStringList names(const FormatRegistry& registry)
    {
        QStringList result;
        for (const auto& format : registry.formats())
            result << format->name;
        return result;
    }
};

void TstFormatRegistry::formats_are_kept_in_their_order()
{
    FormatRegistry registry;
    const QSignalSpy changed(&registry, &FormatRegistry::changed);
    QVERIFY(registry.add(format(u"ZZ"_s, {u"zz"_s})));
    QVERIFY(registry.add(format(u"A1"_s, {u"a1"_s})));
    QCOMPARE(names(registry), QStringList({u"ZZ"_s, u"A1"_s}));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(&FormatRegistry::instance(), &FormatRegistry::instance());
}

void TstFormatRegistry::incomplete_formats_are_refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("endings");
    QTest::addColumn<QString>("owner");
    QTest::newRow("no name") << QString() << QStringList(u"a"_s) << u"test"_s;
    QTest::newRow("small name") << u"obj"_s << QStringList(u"a"_s) << u"test"_s;
    QTest::newRow("name with more") << u"OBJ\n"_s << QStringList(u"a"_s) << u"test"_s;
    QTest::newRow("no ending") << u"OBJ"_s << QStringList() << u"test"_s;
    QTest::newRow("empty ending") << u"OBJ"_s << QStringList({u"a"_s, QString()}) << u"test"_s;
    QTest::newRow("ending with a dot") << u"OBJ"_s << QStringList(u".obj"_s) << u"test"_s;
    QTest::newRow("large ending") << u"OBJ"_s << QStringList(u"OBJ"_s) << u"test"_s;
    QTest::newRow("no owner") << u"OBJ"_s << QStringList(u"a"_s) << QString();
}

void TstFormatRegistry::incomplete_formats_are_refused()
{
    QFETCH(const QString, name);
    QFETCH(const QStringList, endings);
    QFETCH(const QString, owner);
    FormatRegistry registry;
    const QSignalSpy changed(&registry, &FormatRegistry::changed);
    QVERIFY(!registry.add(format(name, endings, owner)));
    QVERIFY(!registry.add({u"OBJ"_s, {u"obj"_s}, u"test"_s, {}, {}}));
    QVERIFY(changed.isEmpty() && registry.formats().isEmpty());
}

void TstFormatRegistry::names_and_endings_are_unique_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("endings");
    QTest::addColumn<bool>("added");
    QTest::newRow("same name") << u"OBJ"_s << QStringList(u"x"_s) << false;
    QTest::newRow("same ending") << u"X"_s << QStringList({u"x"_s, u"ob"_s}) << false;
    QTest::newRow("neither") << u"X"_s << QStringList({u"x"_s, u"o"_s}) << true;
}

void TstFormatRegistry::names_and_endings_are_unique()
{
    QFETCH(const QString, name);
    QFETCH(const QStringList, endings);
    FormatRegistry registry;
    QVERIFY(registry.add(format(u"OBJ"_s, {u"obj"_s, u"ob"_s})));
    QTEST(registry.add(format(name, endings, u"other"_s)), "added");
}

void TstFormatRegistry::one_function_is_enough()
{
    FormatRegistry registry;
    FileFormat reader = format(u"IN"_s, {u"in"_s});
    reader.write = nullptr;
    FileFormat writer = format(u"OUT"_s, {u"out"_s});
    writer.read = nullptr;
    QVERIFY(registry.add(reader) && registry.add(writer));
}

void TstFormatRegistry::owner_takes_all_its_formats_along()
{
    FormatRegistry registry;
    QVERIFY(registry.add(format(u"A"_s, {u"a"_s}, u"one"_s)));
    QVERIFY(registry.add(format(u"B"_s, {u"b"_s}, u"two"_s)));
    QVERIFY(registry.add(format(u"C"_s, {u"c"_s}, u"one"_s)));
    const QSignalSpy changed(&registry, &FormatRegistry::changed);
    registry.remove_owner(u"three"_s);
    QCOMPARE(changed.size(), 0);
    registry.remove_owner(u"one"_s);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(names(registry), QStringList(u"B"_s));
    QVERIFY(registry.add(format(u"A"_s, {u"a"_s}, u"four"_s)));
}

void TstFormatRegistry::format_in_use_stays_valid()
{
    FormatRegistry registry;
    QVERIFY(registry.add(format(u"A"_s, {u"a"_s})));
    const auto used = registry.formats().first();
    registry.remove_owner(u"test"_s);
    QCOMPARE(used->name, u"A"_s);
    QVERIFY(used->read(QByteArray()).triangles.empty());
}

void TstFormatRegistry::filter_lists_all_endings()
{
    QCOMPARE(file_filter(u"STEP"_s, {u"step"_s, u"stp"_s}), u"STEP (*.step *.stp)"_s);
}

OSTREL_TEST(TstFormatRegistry)

#include "tst_formatregistry.moc"
