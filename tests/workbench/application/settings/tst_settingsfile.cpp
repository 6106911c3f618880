// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/settings/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

QByteArray content_of(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

/** The file that the user has chosen for all settings. */
class TstSettingsFile : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void settings_go_to_the_file_and_come_back();
    void settings_of_the_user_are_neither_read_nor_written();
    void file_is_made_only_when_something_is_stored();
    void relative_name_is_resolved_at_once();
    void name_need_not_end_like_one_of_settings();
    void change_by_somebody_else_is_seen();
    void link_is_followed();
    void nothing_but_the_file_is_left();
    void data_lie_beside_the_file();
    void file_of_another_kind_is_left_alone_data();
    void file_of_another_kind_is_left_alone();
    void damaged_settings_are_kept_beside_the_new_ones();
    void directory_is_no_file();
    void missing_directory_is_told();
    void settings_last_until_the_end_if_there_is_no_file();
    void file_that_cannot_be_written_is_still_read();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QString write(const QString& name, const QByteArray& content) const;

    std::unique_ptr<QTemporaryDir> mDirectory;
    QString mDirectoryBefore;
};

void TstSettingsFile::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
    mDirectoryBefore = QDir::currentPath();
}

void TstSettingsFile::tear_down()
{
    QVERIFY(QDir::setCurrent(mDirectoryBefore));
    mDirectory.reset();
}

QString TstSettingsFile::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the file could not be written");
    return file.fileName();
}

void TstSettingsFile::settings_go_to_the_file_and_come_back()
{
    {
        const SettingsFile file(path(u"my.ini"_s));
        QCOMPARE(file.error(), QString());
        QSettings().setValue(u"/group/key"_s, u"a; b"_s);
        QCOMPARE(QSettings().value(u"/group/key"_s), QVariant(u"a; b"_s));
    }
    QCOMPARE(QSettings(path(u"my.ini"_s), QSettings::IniFormat).value(u"group/key"_s), QVariant(u"a; b"_s));
    const SettingsFile file(path(u"my.ini"_s));
    QCOMPARE(QSettings().value(u"/group/key"_s), QVariant(u"a; b"_s));
}

void TstSettingsFile::settings_of_the_user_are_neither_read_nor_written()
{
    QSettings().setValue(u"key"_s, u"of the user"_s);
    QSettings(QSettings::IniFormat, QSettings::SystemScope, QCoreApplication::organizationName())
        .setValue(u"key"_s, u"of all users"_s);
    const QString users = settings().file();
    const QByteArray before = content_of(users);
    {
        const SettingsFile file(path(u"my.ini"_s));
        QVERIFY(!QSettings().contains(u"key"_s));
        QSettings().setValue(u"key"_s, u"another"_s);
        QVERIFY(QSettings().fileName() != users);
    }
    QCOMPARE(content_of(users), before);
}

void TstSettingsFile::file_is_made_only_when_something_is_stored()
{
    const SettingsFile file(path(u"my.ini"_s));
    QVERIFY(!QSettings().contains(u"key"_s));
    QVERIFY(QDir(mDirectory->path()).isEmpty());
}

void TstSettingsFile::relative_name_is_resolved_at_once()
{
    QVERIFY(QDir::setCurrent(mDirectory->path()));
    const SettingsFile file(u"my.ini"_s);
    QVERIFY(QDir::setCurrent(mDirectoryBefore));
    QSettings().setValue(u"key"_s, 7);
    QVERIFY(QFileInfo::exists(path(u"my.ini"_s)));
    QCOMPARE(QDir(file.data_directory()), QDir(path(u"my.ini.data"_s)));
}

void TstSettingsFile::name_need_not_end_like_one_of_settings()
{
    const SettingsFile file(path(u"a b.\u677f"_s));
    QCOMPARE(file.error(), QString());
    QSettings().setValue(u"key"_s, 7);
    QVERIFY(content_of(path(u"a b.\u677f"_s)).contains("key=7"));
}

void TstSettingsFile::change_by_somebody_else_is_seen()
{
    const SettingsFile file(path(u"my.ini"_s));
    QSettings().setValue(u"ours"_s, 1);
    {
        QSettings other(path(u"my.ini"_s), QSettings::IniFormat);
        other.setValue(u"theirs"_s, 2);
    }
    QSettings both;
    both.sync();
    QCOMPARE(both.value(u"theirs"_s).toInt(), 2);
    both.setValue(u"ours"_s, 3);
    both.sync();
    QCOMPARE(content_of(path(u"my.ini"_s)), QByteArray("[General]\nours=3\ntheirs=2\n"));
}

void TstSettingsFile::link_is_followed()
{
    const QString target = write(u"target.ini"_s, "[General]\nkey=1\n");
    QVERIFY(QFile::link(u"target.ini"_s, path(u"link.ini"_s)));
    const SettingsFile file(path(u"link.ini"_s));
    QCOMPARE(QSettings().value(u"key"_s).toInt(), 1);
    QSettings().setValue(u"key"_s, 2);
    QCOMPARE(content_of(target), QByteArray("[General]\nkey=2\n"));
    QVERIFY(QFileInfo(path(u"link.ini"_s)).isSymLink());
}

void TstSettingsFile::nothing_but_the_file_is_left()
{
    const QStringList before = QDir::temp().entryList(QDir::AllEntries | QDir::Hidden);
    {
        const SettingsFile file(path(u"my.ini"_s));
        QSettings().setValue(u"key"_s, 7);
        QVERIFY(QDir::temp().entryList(QDir::AllEntries | QDir::Hidden) != before);
    }
    QCOMPARE(QDir::temp().entryList(QDir::AllEntries | QDir::Hidden), before);
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{u"my.ini"_s});
}

void TstSettingsFile::data_lie_beside_the_file()
{
    const SettingsFile file(path(u"my.ini"_s));
    QCOMPARE(file.data_directory(), path(u"my.ini.data"_s));
}

void TstSettingsFile::file_of_another_kind_is_left_alone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("prose") << QByteArray("Dear reader,\nthese are no settings.\n");
    QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    QTest::newRow("journal") << QByteArray("brick x 1\nmesh volume all\n");
}

void TstSettingsFile::file_of_another_kind_is_left_alone()
{
    QFETCH(const QByteArray, content);
    const QString name = write(u"letter"_s, content);
    const SettingsFile file(name);
    QCOMPARE(file.error(),
             u"ERROR: \"%1\" holds something else than settings, and is left as it is. The program runs with "
             "default settings, and what is set is lost at its end.\n"_s.arg(name));
    QSettings().setValue(u"key"_s, 7);
    QCOMPARE(content_of(name), content);
    QVERIFY(!file.data_directory().startsWith(mDirectory->path()));
}

void TstSettingsFile::damaged_settings_are_kept_beside_the_new_ones()
{
    const QByteArray content("[ostrelgui]\ncommand\\fontsize=11\ncommand\\fontfa");
    const QString name = write(u"my.ini"_s, content);
    {
        const SettingsFile file(name);
        QCOMPARE(file.error(), u"ERROR: the settings file \"%1\" cannot be read in full. It is kept as "
                               "\"%1.unreadable\"\n"_s.arg(name));
        QCOMPARE(file.data_directory(), name + u".data"_s);
        QCOMPARE(QSettings().value(u"ostrelgui/command/fontsize"_s).toInt(), 11);
        QSettings().setValue(u"key"_s, 7);
    }
    QCOMPARE(content_of(name + u".unreadable"_s), content);
    const SettingsFile file(name);
    QCOMPARE(file.error(), QString());
    QCOMPARE(QSettings().value(u"key"_s).toInt(), 7);
}

void TstSettingsFile::directory_is_no_file()
{
    const SettingsFile file(mDirectory->path());
    QVERIFY2(file.error().startsWith(u"ERROR: \"%1\" is no file for settings. "_s.arg(mDirectory->path())),
             qPrintable(file.error()));
}

void TstSettingsFile::missing_directory_is_told()
{
    const SettingsFile file(path(u"no/my.ini"_s));
    QVERIFY2(file.error().startsWith(
                 u"ERROR: the settings file \"%1\" cannot be written: "_s.arg(path(u"no/my.ini"_s))),
             qPrintable(file.error()));
    QVERIFY(QDir(mDirectory->path()).isEmpty());
}

void TstSettingsFile::settings_last_until_the_end_if_there_is_no_file()
{
    QSettings().setValue(u"key"_s, u"of the user"_s);
    const QByteArray before = content_of(settings().file());
    const QString users = settings().file();
    {
        const SettingsFile file(path(u"no/my.ini"_s));
        QVERIFY(!QSettings().contains(u"key"_s));
        QSettings().setValue(u"key"_s, 7);
        QCOMPARE(QSettings().value(u"key"_s).toInt(), 7);
    }
    QVERIFY(QDir(mDirectory->path()).isEmpty());
    QCOMPARE(content_of(users), before);
}

void TstSettingsFile::file_that_cannot_be_written_is_still_read()
{
    // Permissions would not hold the system administrator back; nobody can make files in /proc, and what is
    // in this one, "NAME=value" and more, can be read as settings.
    const QString name = u"/proc/self/environ"_s;
    const QByteArray before = content_of(name);
    const QString key = QString::fromLatin1(before.left(before.indexOf('=')));
    QVERIFY(!key.isEmpty());
    const SettingsFile file(name);
    QVERIFY2(file.error().startsWith(u"ERROR: the settings file \"%1\" cannot be written: "_s.arg(name)),
             qPrintable(file.error()));
    QVERIFY2(file.error().endsWith(". Its settings hold, but changes are lost at the end.\n"_L1),
             qPrintable(file.error()));
    QCOMPARE(QSettings().allKeys(), QStringList{key});
    QSettings().setValue(key, u"another"_s);
    QCOMPARE(QSettings().value(key), QVariant(u"another"_s));
    QCOMPARE(content_of(name), before);
    QVERIFY(!file.data_directory().startsWith("/proc"_L1));
}

OSTREL_TEST(TstSettingsFile)
#include "tst_settingsfile.moc"
