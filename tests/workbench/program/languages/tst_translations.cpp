// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Catalog.h"
#include "support/TestCase.h"
#include "workbench/application/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
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

/** Puts the translations of the tree in @p file into @p directory, under the name @p copy. */
bool copy_translations(const QString& file, const QTemporaryDir& directory, const QString& copy)
{
    return QFile::copy(Translations::workbench_directory() + u'/' + file, directory.filePath(copy));
}

/** A text of the workbench's own, and one each of two components. */
QStringList texts_of_all()
{
    return {QCoreApplication::translate("Navigation", "Play Journal"),
            QCoreApplication::translate("Command", "Counts."),
            QCoreApplication::translate("Command", "Copies a solid.")};
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
    void file_that_cannot_be_read_leaves_its_component_in_english_data();
    void file_that_cannot_be_read_leaves_its_component_in_english();
    void texts_of_the_workbench_win_over_those_of_components();
    void components_are_asked_in_the_order_of_their_names();
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
                           // Of components: none of them is loaded here.
                           QCoreApplication::translate("CommandParameter", "Width"),
                           QCoreApplication::translate("Command", "Counts."),
                           QCoreApplication::translate("Navigation", "Play Journal")};
    };
    const QStringList english{u"Cancel"_s, u"&Open..."_s, u"Width"_s, u"Counts."_s, u"Play Journal"_s};
    QCOMPARE(texts(), english);
    {
        const Translations translations({u"de"_s});
        QCOMPARE(texts(), QStringList({u"Abbrechen"_s, u"Ö&ffnen..."_s, u"Breite"_s, u"Zählt."_s,
                                       u"Journal abspielen"_s}));
    }
    QCOMPARE(texts(), english);
    {
        const Translations translations({u"zh-CN"_s});
        QCOMPARE(texts(),
                 QStringList({u"取消"_s, u"打开(&O)..."_s, u"宽度"_s, u"计数。"_s, u"播放日志脚本"_s}));
    }
    QCOMPARE(texts(), english);
}

void TstTranslations::files_lie_in_the_tree_as_they_are_installed()
{
    for (const QString& language : {u"de"_s, u"zh_CN"_s}) {
        QStringList sources = catalog_files(language);
        // The template is there to be copied, and is not built.
        sources.removeIf([](const QString& source) { return source.contains(u"/template/"_s); });
        QVERIFY(sources.size() > 5);
        for (const QString& source : sources) {
            const QString name = QFileInfo(source).completeBaseName();
            const bool of_shell = name.startsWith(u"ostrelgui"_s);
            const QString file =
                (of_shell ? Translations::shell_directory() : Translations::workbench_directory()) +
                u"/%1.qm"_s.arg(name);
            QVERIFY2(QFile::exists(file), qPrintable(file));
        }
    }
    QVERIFY(Translations::shell_directory().endsWith(u"/share/ostrelgui/translations"_s));
    QVERIFY(Translations::workbench_directory().endsWith(u"/share/fennar/translations"_s));
}

void TstTranslations::file_that_cannot_be_read_leaves_its_component_in_english_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QFile file(Translations::workbench_directory() + u"/geometry_de.qm"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    QTest::newRow("something else") << QByteArray("<TS version=\"2.1\"></TS>\n");
    QTest::newRow("cut short") << whole.first(whole.size() / 2);
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("none") << QByteArray();
}

void TstTranslations::file_that_cannot_be_read_leaves_its_component_in_english()
{
    QFETCH(const QByteArray, bytes);
    const QTemporaryDir directory;
    for (const QString& name : {u"fennar_de.qm"_s, u"demo_de.qm"_s})
        QVERIFY(copy_translations(name, directory, name));
    QFile file(directory.filePath(u"geometry_de.qm"_s));
    if (!bytes.isNull()) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();
    }
    const Translations translations({u"de"_s}, directory.path());
    QCOMPARE(translations.language(), u"de"_s);
    // Of one that is not there nobody knows that it could be.
    QCOMPARE(translations.missing(), bytes.isNull() ? QStringList() : QStringList{file.fileName()});
    QCOMPARE(texts_of_all(), QStringList({u"Journal abspielen"_s, u"Zählt."_s, u"Copies a solid."_s}));
}

void TstTranslations::texts_of_the_workbench_win_over_those_of_components()
{
    const QTemporaryDir directory;
    QVERIFY(copy_translations(u"fennar_de.qm"_s, directory, u"fennar_de.qm"_s));
    for (const QString& name : {u"a_de.qm"_s, u"z_de.qm"_s})
        QVERIFY(copy_translations(u"fennar_zh_CN.qm"_s, directory, name));
    const Translations translations({u"de"_s}, directory.path());
    QCOMPARE(translations.missing(), QStringList());
    QCOMPARE(texts_of_all().first(), u"Journal abspielen"_s);
}

void TstTranslations::components_are_asked_in_the_order_of_their_names()
{
    for (const bool german_first : {true, false}) {
        const QTemporaryDir directory;
        QVERIFY(copy_translations(u"fennar_de.qm"_s, directory, u"fennar_de.qm"_s));
        QVERIFY(copy_translations(u"demo_de.qm"_s, directory, german_first ? u"a_de.qm"_s : u"z_de.qm"_s));
        QVERIFY(copy_translations(u"demo_zh_CN.qm"_s, directory, german_first ? u"z_de.qm"_s : u"a_de.qm"_s));
        const Translations translations({u"de"_s}, directory.path());
        QCOMPARE(texts_of_all().at(1), german_first ? u"Zählt."_s : u"计数。"_s);
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
