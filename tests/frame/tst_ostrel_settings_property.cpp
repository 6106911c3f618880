// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "options/ComponentTool.h"
#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/statics.h"

#include <QCheckBox>
#include <QColor>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QLineEdit>
#include <QPoint>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Integer, Flag, Text, Bytes };

struct Key
{
    QString name;
    Kind kind;
};

/** All keys that the shell reads, its options pages among them. */
QList<Key> all_keys()
{
    QList<Key> keys{{u"/ostrelgui/ostrel/x"_s, Kind::Integer},
                    {u"/ostrelgui/ostrel/y"_s, Kind::Integer},
                    {u"/ostrelgui/ostrel/width"_s, Kind::Integer},
                    {u"/ostrelgui/ostrel/height"_s, Kind::Integer},
                    {u"/ostrelgui/ostrel/saved_state"_s, Kind::Bytes},
                    {u"/ostrelgui/ostrel/saveprompt"_s, Kind::Flag},
                    {u"/ostrelgui/ostrel/restoreWorkingDir"_s, Kind::Flag},
                    {u"/ostrelgui/ostrel/workingdir"_s, Kind::Text},
                    {u"/ostrelgui/ostrel/comppath"_s, Kind::Text},
                    {u"/ostrelgui/ostrel/splash"_s, Kind::Flag},
                    {u"/ostrelgui/ostrel/importdir"_s, Kind::Text},
                    {u"/ostrelgui/ostrel/exportdir"_s, Kind::Text},
                    {u"/ostrelgui/ostrel/usepythonpaths"_s, Kind::Flag},
                    {u"/ostrelgui/ostrel/pythonpaths"_s, Kind::Text},
                    {u"/ostrelgui/command/fontfamily"_s, Kind::Text},
                    {u"/ostrelgui/command/fontsize"_s, Kind::Integer},
                    {u"/ostrelgui/command/usetrim"_s, Kind::Flag},
                    {u"/ostrelgui/command/trimlimit"_s, Kind::Integer},
                    {u"/ostrelgui/command/historylimit"_s, Kind::Integer},
                    {u"/ostrelgui/journal/unsavedjournalprompt"_s, Kind::Flag},
                    {u"/ostrelgui/journal/x"_s, Kind::Integer},
                    {u"/ostrelgui/journal/y"_s, Kind::Integer},
                    {u"/ostrelgui/journal/width"_s, Kind::Integer},
                    {u"/ostrelgui/journal/height"_s, Kind::Integer},
                    {u"/fennargui/commandpanel/breadcrumbs"_s, Kind::Flag},
                    {u"/fennargui/commandpanel/classicnavigation"_s, Kind::Flag},
                    {u"/fennargui/tabposition"_s, Kind::Text},
                    {u"geometry"_s, Kind::Bytes}};
    for (const auto& list :
         {u"/ostrelgui/ostrel/file"_s, u"/ostrelgui/ostrel/import"_s, u"/ostrelgui/journal/file"_s})
        for (int number = 1; number <= 5; ++number)
            keys << Key{list + QString::number(number), Kind::Text};
    return keys;
}

/** What a window shows of its settings, and keeps for the next. */
struct State
{
    bool asks = false;
    bool asks_for_journals = false;
    QString component_directory;
    QString family;
    QString journal_family;
    int size = 0;
    int command_lines = 0;
    int other_lines = 0;
    QStringList recent;

    bool operator==(const State&) const = default;
    QString text() const
    {
        return u"%1 %2 \"%3\" \"%4\" \"%5\" %6 %7 %8 (%9)"_s.arg(asks)
            .arg(asks_for_journals)
            .arg(component_directory, family, journal_family)
            .arg(size)
            .arg(command_lines)
            .arg(other_lines)
            .arg(recent.join(u'|'));
    }
};

State state_of(const Ostrel& window)
{
    std::vector<QString> recent;
    window.file_menu()->get_recent_files(recent);
    window.file_menu()->get_recent_imports(recent);
    const CommandWindow* console = window.command_line();
    return {OstrelFileMenu::mDoPrompt,
            JournalEditor::do_save_prompt(),
            ComponentTool::sLastPath,
            console->get_font().family(),
            window.journal_editor()->get_editor_font().family(),
            console->get_font().pointSize(),
            console->get_cmd_max_lines(),
            console->get_other_max_lines(),
            QStringList(recent.cbegin(), recent.cend())};
}

void write_file(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (!QDir().mkpath(QFileInfo(name).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(content) != content.size())
        qFatal("the settings could not be written");
}

QByteArray content_of(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** Makes the settings those of the next start: what the file holds, in a file that is new to Qt. */
void start_anew()
{
    static std::unique_ptr<SettingsSandbox> sandbox;
    QSettings().sync();
    const QByteArray content = content_of(QSettings().fileName());
    sandbox = std::make_unique<SettingsSandbox>();
    write_file(sandbox->file(), content);
}

/** The number in a text, or what an unreadable one stands for. */
int number_or(const QVariant& stored, int fallback)
{
    bool readable = false;
    const int number = stored.toString().toInt(&readable);
    return readable && stored.metaType() == QMetaType::fromType<QString>() ? number : fallback;
}

} // namespace

/** Random values in every key of the shell. The seed is printed; OSTREL_TEST_SEED sets it. */
class TstOstrelSettingsProperty : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void initTestCase();

    void any_values_give_a_window_that_saves_what_it_shows();
    void any_file_gives_a_window_that_saves_what_it_shows();

private:
    int any_number();
    QString any_text();
    QByteArray any_bytes();
    QVariant any_value(Kind kind);
    QVariant garbage();
    void fill();
    void live(int run);

    QRandomGenerator mRandom;
    QString mDirectoryBefore;
    std::unique_ptr<QTemporaryDir> mStart;
    QByteArray mGeometry;
};

void TstOstrelSettingsProperty::initTestCase()
{
    mRandom.seed(random_seed());
}

void TstOstrelSettingsProperty::set_up()
{
    reset_statics();
    HostDouble::instance().reset();
    ComponentTool::sLastPath.clear();
    JournalEditor::set_save_prompt(true);
    mDirectoryBefore = QDir::currentPath();
    mStart = std::make_unique<QTemporaryDir>();
    QVERIFY(mStart->isValid());
    mGeometry = Ostrel().saveGeometry();
}

void TstOstrelSettingsProperty::tear_down()
{
    QVERIFY(QDir::setCurrent(mDirectoryBefore));
    mStart.reset();
}

int TstOstrelSettingsProperty::any_number()
{
    static const QList<int> special{0,
                                    1,
                                    -1,
                                    1200,
                                    1201,
                                    16777215,
                                    16777216,
                                    -16777215,
                                    -16777216,
                                    std::numeric_limits<int>::max(),
                                    std::numeric_limits<int>::max() - 1,
                                    std::numeric_limits<int>::min(),
                                    std::numeric_limits<int>::min() + 1};
    switch (mRandom.bounded(3)) {
    case 0:
        return special[mRandom.bounded(special.size())];
    case 1:
        return static_cast<int>(mRandom.generate());
    default:
        return mRandom.bounded(-50, 2000);
    }
}

QString TstOstrelSettingsProperty::any_text()
{
    static const QStringList special{u"/tmp"_s,
                                     u"."_s,
                                     u"north"_s,
                                     u"false"_s,
                                     u"@Invalid()"_s,
                                     u"@ByteArray(x)"_s,
                                     u"@@"_s,
                                     u"a, b; c=d \"e\" \\ %1 ;"_s,
                                     u"import 'x' 'y' \"z"_s,
                                     u"1e9"_s,
                                     u"0x10"_s,
                                     u"99999999999999999999"_s,
                                     u" 7 "_s,
                                     u"line\nfeed\ttab"_s,
                                     QString(5000, u'w'),
                                     QString(3, QChar::Null),
                                     QString(QChar(0xd800)) + u"half"_s,
                                     u"\U0001f600"_s};
    if (mRandom.bounded(2))
        return special[mRandom.bounded(special.size())];
    QString text;
    for (int left = mRandom.bounded(12); left > 0; --left)
        text += QChar(static_cast<char16_t>(mRandom.bounded(0x20, 0x250)));
    return text;
}

QByteArray TstOstrelSettingsProperty::any_bytes()
{
    QByteArray bytes(mRandom.bounded(80), Qt::Uninitialized);
    // No letters of scripts for which the machine may have no font: Qt warns of that.
    for (char& byte : bytes)
        byte = static_cast<char>(mRandom.bounded(2) ? mRandom.bounded(0x80) : mRandom.bounded(0xf8, 0x100));
    return bytes;
}

/** Something of a kind that belongs there. */
QVariant TstOstrelSettingsProperty::any_value(Kind kind)
{
    switch (kind) {
    case Kind::Integer:
        return any_number();
    case Kind::Flag:
        return mRandom.bounded(2) == 1;
    case Kind::Text:
        return any_text();
    case Kind::Bytes:
        break;
    }
    // A geometry with its numbers changed, so that it is still taken for one.
    QByteArray bytes = mGeometry;
    for (int left = mRandom.bounded(4); left > 0; --left)
        bytes[mRandom.bounded(8, static_cast<int>(bytes.size()))] = static_cast<char>(mRandom.bounded(256));
    return bytes;
}

QVariant TstOstrelSettingsProperty::garbage()
{
    switch (mRandom.bounded(14)) {
    case 0:
        return QStringList{any_text(), any_text()};
    case 1:
        return QVariantList{any_number(), any_text(), QVariantMap{{any_text(), any_number()}}};
    case 2:
        return QVariantMap{{any_text(), any_text()}};
    case 3:
        return QPoint(any_number(), any_number());
    case 4:
        return QSize(any_number(), any_number());
    case 5:
        return QPointF(1e300, -1e300);
    case 6:
        return mRandom.generateDouble() * 1e300;
    case 7:
        return std::numeric_limits<double>::quiet_NaN();
    case 8:
        return static_cast<qlonglong>(mRandom.generate64());
    case 9:
        return QColor(1, 2, 3);
    case 10:
        return QDateTime::fromMSecsSinceEpoch(any_number());
    case 11:
        return QFont(u"DejaVu Sans"_s, 9);
    case 12:
        return QVariant();
    default:
        return any_bytes();
    }
}

void TstOstrelSettingsProperty::fill()
{
    QSettings settings;
    settings.clear();
    for (const Key& key : all_keys()) {
        switch (mRandom.bounded(4)) {
        case 0:
            break;
        case 1:
            settings.setValue(key.name, garbage());
            break;
        case 2:
            settings.setValue(key.name, any_text());
            break;
        default:
            settings.setValue(key.name, any_value(key.kind));
            break;
        }
    }
}

/** Three lives of a window on the settings as they are. */
void TstOstrelSettingsProperty::live(int run)
{
    QVERIFY(QDir::setCurrent(mStart->path()));
    const auto told = [run](const char* what, const State& found, const State& expected) {
        return u"run %1, %2:\n  found    %3\n  expected %4"_s.arg(run).arg(QLatin1StringView(what),
                                                                           found.text(), expected.text());
    };
    const QSettings before;
    const QVariant x = before.value(u"/ostrelgui/ostrel/x"_s);
    const QVariant y = before.value(u"/ostrelgui/ostrel/y"_s);
    const QVariant lines = before.value(u"/ostrelgui/command/historylimit"_s);
    const QVariant paths = before.value(u"/ostrelgui/ostrel/pythonpaths"_s);

    State first;
    {
        MainFrame frame;
        frame.start_splash(nullptr);
        frame.finish_splash();
        Ostrel window;
        first = state_of(window);
        QVERIFY2(first.size > 0, qPrintable(told("no size", first, first)));
        QCOMPARE(first.family, first.journal_family);
        // Numbers that are written as such count; what is none stands for the default.
        QCOMPARE(first.other_lines, number_or(lines, 200));
        if (paths.metaType() == QMetaType::fromType<QString>())
            QVERIFY(!window.options()->findChild<QLineEdit*>(u"lePythonPaths"_s)->text().isNull());
        if (x.isValid() && y.isValid() && !before.contains(u"geometry"_s)) {
            const QPoint stored(number_or(x, 0), number_or(y, 0));
            const bool far_away = stored.x() > 1200 || stored.y() > 1200;
            QCOMPARE(window.pos(),
                     far_away ? QPoint(0, 0)
                              : QPoint(std::max(stored.x(), -16777215), std::max(stored.y(), -16777215)));
        }
        window.options()->refresh_settings();
        window.save_settings();
    }
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(mStart->path()).entryList(everything), QStringList());

    start_anew();
    {
        QVERIFY(QDir::setCurrent(mStart->path()));
        Ostrel window;
        const State second = state_of(window);
        QVERIFY2(second == first, qPrintable(told("second life", second, first)));
        // The options dialog, opened and saved.
        window.options()->refresh_settings();
        emit window.options()->saveSettings();
        window.save_settings();
    }
    start_anew();
    QVERIFY(QDir::setCurrent(mStart->path()));
    const Ostrel window;
    QVERIFY(state_of(window).size > 0);
}

void TstOstrelSettingsProperty::any_values_give_a_window_that_saves_what_it_shows()
{
    constexpr int runs = 60;
    for (int run = 0; run < runs; ++run) {
        fill();
        start_anew();
        live(run);
        if (QTest::currentTestFailed()) {
            qInfo("run %d began with these settings:\n%s", run,
                  content_of(QSettings().fileName()).constData());
            return;
        }
    }
}

void TstOstrelSettingsProperty::any_file_gives_a_window_that_saves_what_it_shows()
{
    constexpr int runs = 40;
    for (int run = 0; run < runs; ++run) {
        QByteArray content = any_bytes();
        if (mRandom.bounded(4)) {
            // A file of settings with some bytes changed, or its end cut off.
            fill();
            QSettings().sync();
            content.clear();
            // Qt itself warns of values of its own types that it cannot read.
            for (const QByteArray& line : content_of(QSettings().fileName()).split('\n'))
                content +=
                    line.contains("@Variant") || line.contains("@DateTime") ? QByteArray() : line + '\n';
            for (int left = mRandom.bounded(1, 12); left > 0 && !content.isEmpty(); --left)
                content[mRandom.bounded(static_cast<int>(content.size()))] =
                    static_cast<char>(mRandom.bounded(256));
            content.truncate(mRandom.bounded(static_cast<int>(content.size()) + 1));
        }
        const SettingsSandbox sandbox;
        write_file(sandbox.file(), content);
        start_anew();
        live(run);
        if (QTest::currentTestFailed()) {
            qInfo("run %d began with this file: %s", run, content.toPercentEncoding().constData());
            return;
        }
    }
}

OSTREL_TEST(TstOstrelSettingsProperty)

#include "tst_ostrel_settings_property.moc"
