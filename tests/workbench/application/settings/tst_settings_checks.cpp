// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/settings/settings_checks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr QRect screens(0, 0, 1920, 1080);

void write(const QString& path, const QByteArray& content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray content_of(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

/** What the program does before it trusts the settings of the user. */
class TstSettingsChecks : public TestCase
{
    Q_OBJECT

private slots:
    void unreadable_file_is_kept_and_named_data();
    void unreadable_file_is_kept_and_named();
    void kept_file_is_not_replaced_by_the_next();
    void sound_file_is_left_as_it_is();
    void sound_file_is_left_where_nothing_can_be_written();
    void missing_file_is_nothing_to_tell();
    void settings_that_cannot_be_written_are_told_data();
    void settings_that_cannot_be_written_are_told();

    void windows_have_a_usable_size_data();
    void windows_have_a_usable_size();
    void windows_are_on_the_screen_data();
    void windows_are_on_the_screen();
    void font_is_bounded_data();
    void font_is_bounded();
    void empty_settings_stay_empty();
};

void TstSettingsChecks::unreadable_file_is_kept_and_named_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("damaged") << QByteArray("[ostrelgui]\ncommand\\fontsize=11\ncommand\\fontfa");
    QTest::newRow("another kind") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
}

void TstSettingsChecks::unreadable_file_is_kept_and_named()
{
    QFETCH(const QByteArray, content);
    const QString path = settings().file();
    write(path, content);
    const QString told = keep_unreadable_settings();
    const QString kept = path + u".unreadable"_s;
    QCOMPARE(told, u"ERROR: the settings file \"%1\" cannot be read in full. It is kept as \"%2\"\n"_s.arg(
                       path, kept));
    QCOMPARE(content_of(kept), content);
    // What is whole in it holds.
    if (content.contains("fontsize"))
        QCOMPARE(QSettings().value(u"ostrelgui/command/fontsize"_s).toInt(), 11);
    QSettings().setValue(u"ostrelgui/command/usetrim"_s, false);
    QSettings().sync();
    QCOMPARE(content_of(kept), content);
    // The new file is a sound one.
    QCOMPARE(keep_unreadable_settings(), QString());
}

void TstSettingsChecks::kept_file_is_not_replaced_by_the_next()
{
    const QString path = settings().file();
    for (const auto& [name, content] :
         {std::pair(u".unreadable"_s, "first"), std::pair(u".unreadable-2"_s, "second")}) {
        write(path, content);
        QVERIFY(keep_unreadable_settings().contains(name));
        QCOMPARE(content_of(path + name), QByteArray(content));
    }
    QCOMPARE(content_of(path + u".unreadable"_s), QByteArray("first"));
}

void TstSettingsChecks::sound_file_is_left_as_it_is()
{
    const QString path = settings().file();
    const QByteArray content("; mine\n[a]\nb = 1\n");
    write(path, content);
    QCOMPARE(keep_unreadable_settings(), QString());
    QCOMPARE(content_of(path), content);
}

void TstSettingsChecks::sound_file_is_left_where_nothing_can_be_written()
{
    const QString path = settings().file();
    const QByteArray content("[a]\nb=1\n");
    write(path, content);
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(path));
    const QString told = keep_unreadable_settings();
    qputenv("TMPDIR", temporary);
    QCOMPARE(told, QString());
    QCOMPARE(content_of(path), content);
}

void TstSettingsChecks::missing_file_is_nothing_to_tell()
{
    QCOMPARE(keep_unreadable_settings(), QString());
    QVERIFY(!QFileInfo::exists(settings().file()));
}

void TstSettingsChecks::settings_that_cannot_be_written_are_told_data()
{
    QTest::addColumn<int>("levels_up");
    QTest::newRow("place of the file taken") << 0;
    QTest::newRow("place of its folder taken") << 1;
}

void TstSettingsChecks::settings_that_cannot_be_written_are_told()
{
    QFETCH(const int, levels_up);
    QCOMPARE(tell_unwritable_settings(), QString());
    const QString path = settings().file();
    const QString folder = QFileInfo(path).path();
    QVERIFY(QDir(folder).removeRecursively());
    if (levels_up == 0)
        QVERIFY(QDir().mkpath(path));
    else
        write(folder, "no folder");
    QCOMPARE(tell_unwritable_settings(),
             u"ERROR: the settings cannot be written in \"%1\"; changes are lost at the end\n"_s.arg(path));
}

void TstSettingsChecks::windows_have_a_usable_size_data()
{
    QTest::addColumn<QVariant>("width");
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<QVariant>("width_then");
    QTest::addColumn<QVariant>("height_then");
    const QVariant none;
    QTest::newRow("usable") << QVariant(800) << QVariant(600) << QVariant(800) << QVariant(600);
    QTest::newRow("negative width") << QVariant(-5) << QVariant(600) << none << none;
    QTest::newRow("no height") << QVariant(800) << QVariant(0) << none << none;
    QTest::newRow("no number") << QVariant(u"wide"_s) << QVariant(600) << none << none;
    QTest::newRow("huge") << QVariant(2'000'000) << QVariant(600) << QVariant(1920) << QVariant(600);
    QTest::newRow("width alone") << QVariant(-5) << none << QVariant(-5) << none;
}

void TstSettingsChecks::windows_have_a_usable_size()
{
    QFETCH(const QVariant, width);
    QFETCH(const QVariant, height);
    for (const auto& group : {u"ostrelgui/ostrel/"_s, u"ostrelgui/journal/"_s}) {
        QSettings stored;
        stored.setValue(group + u"width"_s, width);
        if (height.isValid())
            stored.setValue(group + u"height"_s, height);
        bound_settings(screens);
        QTEST(stored.value(group + u"width"_s), "width_then");
        QTEST(stored.value(group + u"height"_s), "height_then");
    }
}

void TstSettingsChecks::windows_are_on_the_screen_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<bool>("stays");
    QTest::newRow("on it") << QPoint(100, 100) << true;
    QTest::newRow("a little above") << QPoint(100, -10) << true;
    QTest::newRow("far above") << QPoint(100, -4000) << false;
    QTest::newRow("far to the left") << QPoint(-4000, 100) << false;
    QTest::newRow("far below") << QPoint(100, 40'000) << false;
}

void TstSettingsChecks::windows_are_on_the_screen()
{
    QFETCH(const QPoint, place);
    for (const auto& group : {u"ostrelgui/ostrel/"_s, u"ostrelgui/journal/"_s}) {
        QSettings stored;
        stored.setValue(group + u"x"_s, place.x());
        stored.setValue(group + u"y"_s, place.y());
        bound_settings(screens);
        QTEST(stored.contains(group + u"x"_s), "stays");
        QTEST(stored.contains(group + u"y"_s), "stays");
    }
}

void TstSettingsChecks::font_is_bounded_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("size_then");
    QTest::newRow("usable") << 20 << 20;
    QTest::newRow("largest") << 72 << 72;
    QTest::newRow("900 points") << 900 << 72;
}

void TstSettingsChecks::font_is_bounded()
{
    QFETCH(int, size);
    QSettings stored;
    stored.setValue(u"ostrelgui/command/fontsize"_s, size);
    bound_settings(screens);
    QTEST(stored.value(u"ostrelgui/command/fontsize"_s).toInt(), "size_then");
}

void TstSettingsChecks::empty_settings_stay_empty()
{
    bound_settings(screens);
    QCOMPARE(QSettings().allKeys(), QStringList());
}

OSTREL_TEST(TstSettingsChecks)
#include "tst_settings_checks.moc"
