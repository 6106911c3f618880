// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/settings/SettingsFormat.h"

#include <QColor>
#include <QFile>
#include <QPoint>
#include <QRandomGenerator>
#include <QRect>
#include <QSize>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstSettingsFormat : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void reader_of_qt_reads_what_is_written_data();
    void reader_of_qt_reads_what_is_written();
    void reader_of_qt_reads_what_is_written_at_random();
    void what_qt_has_written_is_read();
    void programs_share_a_file();
    void values_come_back_in_the_next_life();

private:
    QString path() const { return mDirectory->filePath(u"a.conf"_s); }
    /** What Qt reads in the text of these. */
    QVariantMap read_back(const QSettings::SettingsMap& settings);

    std::unique_ptr<QTemporaryDir> mDirectory;
    int mFiles = 0;
};

void TstSettingsFormat::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

QVariantMap TstSettingsFormat::read_back(const QSettings::SettingsMap& settings)
{
    QFile file(mDirectory->filePath(QString::number(++mFiles)));
    const QByteArray text = ini_text(settings);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("the file could not be written");
    file.close();
    const QSettings reader(file.fileName(), QSettings::IniFormat);
    QVariantMap found;
    const QStringList keys = reader.allKeys();
    for (const QString& key : keys)
        found[key] = reader.value(key);
    if (reader.status() != QSettings::NoError)
        qCritical("not in the format: %s", text.constData());
    return found;
}

void TstSettingsFormat::reader_of_qt_reads_what_is_written_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const QString key = u"group/key"_s;
    QTest::newRow("text") << key << QVariant(u"a text"_s);
    QTest::newRow("empty text") << key << QVariant(u""_s);
    QTest::newRow("blanks around") << key << QVariant(u" a "_s);
    QTest::newRow("what has a meaning") << key << QVariant(u"a;b,c=d\"e\\f%g#h@i[j]"_s);
    QTest::newRow("at sign") << key << QVariant(u"@ByteArray(x)"_s);
    QTest::newRow("control characters") << key << QVariant(u"a\nb\tc\rd\x01\x31\x7f"_s);
    QTest::newRow("nul") << key << QVariant(u"a\0b"_s);
    QTest::newRow("digits behind a number") << key
                                            << QVariant(u"\x01"
                                                        "abcdefg"_s);
    QTest::newRow("other scripts") << key << QVariant(u"gr\u00fcn \u4e2d\u6587 \U0001f600"_s);
    QTest::newRow("half a pair") << key << QVariant(QString(QChar(0xd83d)) + u"1"_s);
    QTest::newRow("no group") << u"key"_s << QVariant(u"x"_s);
    QTest::newRow("group of the name of none") << u"General/key"_s << QVariant(u"x"_s);
    QTest::newRow("deep group") << u"a/b/c/d"_s << QVariant(u"x"_s);
    QTest::newRow("odd key") << u"a b/\u00fc =\u4e2d[]%"_s << QVariant(u"x"_s);
    QTest::newRow("list") << key << QVariant(QStringList{u"a"_s, u""_s, u" b, c"_s});
    QTest::newRow("bytes") << key << QVariant(QByteArray("\x00\x01\xff\x7f)\n", 6));
    QTest::newRow("no bytes") << key << QVariant(QByteArray(""));
    QTest::newRow("size") << key << QVariant(QSize(3, 4));
    QTest::newRow("point") << key << QVariant(QPoint(-3, 4));
    QTest::newRow("rectangle") << key << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("nothing") << key << QVariant();
    QTest::newRow("time") << key << QVariant(QDateTime::fromString(u"2026-05-01T01:02:03Z"_s, Qt::ISODate));
    QTest::newRow("color") << key << QVariant(QColor(1, 2, 3));
    QTest::newRow("list of one, no text") << key << QVariant(QVariantList{QByteArray("a")});
    QTest::newRow("list of others") << key << QVariant(QVariantList{QByteArray("a"), u"b"_s});
}

void TstSettingsFormat::reader_of_qt_reads_what_is_written()
{
    QFETCH(const QString, key);
    QFETCH(const QVariant, value);
    const QVariantMap found = read_back({{key, value}});
    QCOMPARE(found.keys(), QStringList{key});
    QCOMPARE(found.first(), value);
}

void TstSettingsFormat::reader_of_qt_reads_what_is_written_at_random()
{
    const quint32 seed = QRandomGenerator::system()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const auto text = [&random](int longest) {
        static const QString letters = u"ab1F/ \\\"%;,=@()[]#\n\x01\u00fc\u4e2d\U0001f600-_."_s;
        QString result;
        for (quint32 i = random.bounded(quint32(longest)); i > 0; --i)
            result += letters[random.bounded(letters.size())];
        return result;
    };
    for (int i = 0; i < 300; ++i) {
        QSettings::SettingsMap settings;
        for (int keys = 0; keys < 5; ++keys) {
            // Keys are made regular by QSettings before they come here.
            const QString key = text(8).split(u'/', Qt::SkipEmptyParts).join(u'/');
            if (key.isEmpty())
                continue;
            switch (random.bounded(4)) {
            case 0:
                settings[key] = text(12).toUtf8();
                break;
            case 1:
                settings[key] = QStringList{text(5), text(5)};
                break;
            default:
                settings[key] = text(12);
            }
        }
        const QVariantMap found = read_back(settings);
        QVariantMap expected;
        for (auto entry = settings.begin(); entry != settings.end(); ++entry)
            expected[entry.key()] = entry.value();
        QCOMPARE(found, expected);
    }
}

void TstSettingsFormat::what_qt_has_written_is_read()
{
    QSettings own(path(), QSettings::IniFormat);
    own.setValue(u"a/b"_s, QByteArray("x\xff"));
    own.setValue(u"c"_s, QStringList{u"d"_s, u"e, f"_s});
    own.sync();
    const QSettings settings(path(), settings_format());
    QCOMPARE(settings.value(u"a/b"_s), QVariant(QByteArray("x\xff")));
    QCOMPARE(settings.value(u"c"_s), QVariant(QStringList{u"d"_s, u"e, f"_s}));
    QCOMPARE(settings.allKeys().size(), 2);
}

void TstSettingsFormat::programs_share_a_file()
{
    QSettings one(path(), settings_format());
    one.setValue(u"a"_s, 1);
    one.sync();
    {
        QSettings other(path(), QSettings::IniFormat);
        other.setValue(u"b"_s, 2);
    }
    one.setValue(u"c"_s, 3);
    one.sync();
    QCOMPARE(one.allKeys(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(QSettings(path(), QSettings::IniFormat).allKeys().size(), 3);
}

void TstSettingsFormat::values_come_back_in_the_next_life()
{
    for (const bool first : {true, false}) {
        QSettings settings(path(), settings_format());
        if (first)
            settings.setValue(u"window/geometry"_s, QByteArray("\x01\xd9\xd0\xcb", 4));
        QCOMPARE(settings.value(u"window/geometry"_s).toByteArray(), QByteArray("\x01\xd9\xd0\xcb", 4));
        settings.sync();
        QCOMPARE(settings.status(), QSettings::NoError);
    }
}

OSTREL_TEST(TstSettingsFormat)
#include "tst_settingsformat.moc"
