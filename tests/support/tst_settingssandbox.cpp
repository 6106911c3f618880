// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/SettingsSandbox.h"
#include "support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

class TstSettingsSandbox : public TestCase
{
    Q_OBJECT

private slots:
    void settings_are_ini_files_of_the_sandbox();
    void settings_of_every_format_and_scope_lie_in_the_sandbox_data();
    void settings_of_every_format_and_scope_lie_in_the_sandbox();
    void values_survive_from_object_to_object();
    void each_sandbox_is_fresh();
    void system_wide_settings_do_not_shine_through();
    void directory_goes_with_the_sandbox();
    void sandbox_without_directory_says_so();
};

void TstSettingsSandbox::settings_are_ini_files_of_the_sandbox()
{
    const SettingsSandbox sandbox;
    QVERIFY(sandbox.is_valid());
    QSettings settings;
    QCOMPARE(settings.format(), QSettings::IniFormat);
    QCOMPARE(settings.fileName(), sandbox.file());
    QVERIFY(!QFile::exists(sandbox.file()));
    settings.setValue(u"group/key"_s, u"value"_s);
    settings.sync();
    QFile file(sandbox.file());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "[group]\nkey=value\n"_ba);
}

void TstSettingsSandbox::settings_of_every_format_and_scope_lie_in_the_sandbox_data()
{
    QTest::addColumn<QSettings::Format>("format");
    QTest::addColumn<QSettings::Scope>("scope");
    QTest::newRow("INI, user") << QSettings::IniFormat << QSettings::UserScope;
    QTest::newRow("INI, system") << QSettings::IniFormat << QSettings::SystemScope;
    QTest::newRow("native, user") << QSettings::NativeFormat << QSettings::UserScope;
    QTest::newRow("native, system") << QSettings::NativeFormat << QSettings::SystemScope;
}

void TstSettingsSandbox::settings_of_every_format_and_scope_lie_in_the_sandbox()
{
    QFETCH(const QSettings::Format, format);
    QFETCH(const QSettings::Scope, scope);
    const SettingsSandbox sandbox;
    // The file is .../user/organization/application.ini.
    const QString root = QFileInfo(QFileInfo(QFileInfo(sandbox.file()).path()).path()).path();
    QVERIFY(QFileInfo(root).isDir());
    const QSettings settings(format, scope, u"organization"_s, u"application"_s);
    QVERIFY2(settings.fileName().startsWith(root + u'/'), qPrintable(settings.fileName()));
}

void TstSettingsSandbox::values_survive_from_object_to_object()
{
    const SettingsSandbox sandbox;
    QSettings().setValue(u"key"_s, 7);
    QCOMPARE(QSettings().value(u"key"_s).toInt(), 7);
}

void TstSettingsSandbox::each_sandbox_is_fresh()
{
    QString first_file;
    {
        const SettingsSandbox first;
        first_file = first.file();
        QSettings().setValue(u"key"_s, 1);
    }
    const SettingsSandbox second;
    QVERIFY(second.file() != first_file);
    QVERIFY(!QSettings().contains(u"key"_s));
}

void TstSettingsSandbox::system_wide_settings_do_not_shine_through()
{
    // What another program has set for all users is read from XDG_CONFIG_DIRS.
    const QString directory = qEnvironmentVariable("XDG_CONFIG_DIRS");
    QVERIFY(!directory.isEmpty());
    const QString organization = directory + u"/ostrel-tests"_s;
    QVERIFY(QDir().mkpath(organization));
    for (const QString& name : {u"/ostrel-tests.ini"_s, u"/ostrel-tests.conf"_s}) {
        QFile file(organization + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nkey=foreign\n");
    }
    const SettingsSandbox sandbox;
    const bool found = QSettings().contains(u"key"_s);
    QVERIFY(QDir(organization).removeRecursively());
    QVERIFY(!found);
}

void TstSettingsSandbox::directory_goes_with_the_sandbox()
{
    QString root;
    {
        const SettingsSandbox sandbox;
        QSettings().setValue(u"key"_s, 1);
        root = QFileInfo(QFileInfo(QFileInfo(sandbox.file()).path()).path()).path();
        QVERIFY(QFileInfo(root).isDir());
    }
    QVERIFY(!QFileInfo::exists(root));
}

void TstSettingsSandbox::sandbox_without_directory_says_so()
{
    // A file stands where the directory should be.
    const SettingsSandbox sandbox(QCoreApplication::applicationFilePath());
    QVERIFY(!sandbox.is_valid());
}

OSTREL_TEST(TstSettingsSandbox)
#include "tst_settingssandbox.moc"
