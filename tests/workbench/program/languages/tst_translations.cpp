// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr int patience_ms = 60'000;

/** The menu bar of the program's window when it is started with @p language in LANGUAGE; a null image if it
 * failed. */
QImage menu_bar(const QString& language)
{
    const QTemporaryDir directory;
    QFile journal(directory.filePath(u"picture.jou"_s));
    if (!journal.open(QIODevice::WriteOnly) || journal.write("picture window.png\nquit\n") < 0)
        return {};
    journal.close();
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"LANGUAGE"_s, language);
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(directory.path());
    process.start(QStringLiteral(FENNAR), {u"--play"_s, journal.fileName()});
    if (!process.waitForFinished(patience_ms) || process.exitCode() != 0)
        return {};
    const QImage window(directory.filePath(u"window.png"_s));
    return window.copy(0, 0, window.width(), 18);
}

} // namespace

class TstTranslations : public TestCase
{
    Q_OBJECT

private slots:
    void language_is_the_first_that_there_is_a_translation_for_data();
    void language_is_the_first_that_there_is_a_translation_for();
    void all_texts_are_translated_while_it_lives();
    void files_lie_in_the_tree_as_they_are_installed();
    void program_speaks_the_language_of_the_system();
};

void TstTranslations::language_is_the_first_that_there_is_a_translation_for_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("expected");

    QTest::newRow("German") << QStringList{u"de"_s} << u"de"_s;
    QTest::newRow("German with country") << QStringList{u"de-AT"_s, u"de"_s} << u"de"_s;
    QTest::newRow("name of a locale") << QStringList{u"de_CH.UTF-8"_s} << u"de"_s;
    QTest::newRow("Chinese of the mainland") << QStringList{u"zh-CN"_s, u"zh"_s} << u"zh_CN"_s;
    QTest::newRow("Chinese with script") << QStringList{u"zh-Hans-CN"_s} << u"zh_CN"_s;
    QTest::newRow("Chinese of Singapore") << QStringList{u"zh-SG"_s} << u"zh_CN"_s;
    QTest::newRow("traditional Chinese") << QStringList{u"zh-TW"_s, u"zh-Hant-TW"_s} << QString();
    QTest::newRow("first that is there") << QStringList{u"fr-FR"_s, u"fr"_s, u"de"_s, u"zh-CN"_s} << u"de"_s;
    QTest::newRow("English before German") << QStringList{u"en-GB"_s, u"de"_s} << QString();
    QTest::newRow("none that is there") << QStringList{u"fr"_s} << QString();
    QTest::newRow("no language of people") << QStringList{u"C"_s} << QString();
    QTest::newRow("nonsense") << QStringList{QString(), u"../../etc/passwd"_s, u"?"_s} << QString();
    QTest::newRow("empty") << QStringList() << QString();
}

void TstTranslations::language_is_the_first_that_there_is_a_translation_for()
{
    QFETCH(const QStringList, languages);
    QFETCH(const QString, expected);
    const Translations translations(languages);
    QCOMPARE(translations.language(), expected);
    QCOMPARE(translations.missing(), QStringList());
}

void TstTranslations::all_texts_are_translated_while_it_lives()
{
    const auto texts = [] {
        return QStringList{QCoreApplication::translate("QPlatformTheme", "Cancel"),
                           QCoreApplication::translate("OstrelFileMenu", "&Open..."),
                           QCoreApplication::translate("CommandParameter", "Width"),
                           QCoreApplication::translate("Navigation", "Play Journal")};
    };
    const QStringList english{u"Cancel"_s, u"&Open..."_s, u"Width"_s, u"Play Journal"_s};
    QCOMPARE(texts(), english);
    {
        const Translations translations({u"de"_s});
        QCOMPARE(texts(),
                 QStringList({u"Abbrechen"_s, u"Ö&ffnen..."_s, u"Breite"_s, u"Journal abspielen"_s}));
    }
    QCOMPARE(texts(), english);
    {
        const Translations translations({u"zh-CN"_s});
        QCOMPARE(texts(), QStringList({u"取消"_s, u"打开(&O)..."_s, u"宽度"_s, u"播放日志脚本"_s}));
    }
    QCOMPARE(texts(), english);
}

void TstTranslations::files_lie_in_the_tree_as_they_are_installed()
{
    for (const QString& language : {u"de"_s, u"zh_CN"_s}) {
        const QString shell = Translations::shell_directory() + u"/ostrelgui_%1.qm"_s.arg(language);
        const QString workbench = Translations::workbench_directory() + u"/fennar_%1.qm"_s.arg(language);
        QVERIFY2(QFile::exists(shell), qPrintable(shell));
        QVERIFY2(QFile::exists(workbench), qPrintable(workbench));
        QVERIFY(shell.endsWith(u"/share/ostrelgui/translations/ostrelgui_%1.qm"_s.arg(language)));
        QVERIFY(workbench.endsWith(u"/share/fennar/translations/fennar_%1.qm"_s.arg(language)));
    }
}

void TstTranslations::program_speaks_the_language_of_the_system()
{
    const QImage english = menu_bar(u"en"_s);
    QVERIFY(!english.isNull());
    // The picture of a menu bar is the same at each start, or else differences would mean nothing.
    QCOMPARE(menu_bar(u"fr"_s), english);
    const QImage german = menu_bar(u"de"_s);
    QVERIFY(!german.isNull());
    QVERIFY(german != english);
    QCOMPARE(menu_bar(u"fr:de_AT:en"_s), german);
    const QImage chinese = menu_bar(u"zh_CN"_s);
    QVERIFY(!chinese.isNull());
    QVERIFY(chinese != english);
    QVERIFY(chinese != german);
}

OSTREL_TEST(TstTranslations)

#include "tst_translations.moc"
