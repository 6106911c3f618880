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
#include "support/statics.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSettings>
#include <QSplashScreen>
#include <QTest>
#include <QToolBar>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const auto window_group = u"/ostrelgui/ostrel/"_s;
const auto command_group = u"/ostrelgui/command/"_s;
const auto journal_group = u"/ostrelgui/journal/"_s;

/** A key that is read, and what a new window makes of it. */
struct ReadKey
{
    QString key;
    QVariant stored;
    /** Keys without which this one counts for nothing. */
    QVariantMap others;
    std::function<QVariant(const Ostrel&)> observe;
    QVariant fresh;
    QVariant restored;
};

/** A key that is written, and what makes a window write a value of its own. */
struct WrittenKey
{
    QString key;
    std::function<void(Ostrel&)> act;
    std::function<QVariant(const Ostrel&)> expected;
};

QStringList texts(const std::vector<QString>& entries)
{
    return {entries.cbegin(), entries.cend()};
}

QStringList recent_files(const Ostrel& window)
{
    std::vector<QString> entries;
    window.file_menu()->get_recent_files(entries);
    return texts(entries);
}

QStringList recent_imports(const Ostrel& window)
{
    std::vector<QString> entries;
    window.file_menu()->get_recent_imports(entries);
    return texts(entries);
}

bool has_recent_journal(const Ostrel& window, const QString& file)
{
    for (const QMenu* menu : window.journal_editor()->findChildren<QMenu*>()) {
        for (const QAction* action : menu->actions()) {
            if (action->text().contains(file))
                return true;
        }
    }
    return false;
}

template <class Widget>
const Widget* control(const Ostrel& window, const QString& name)
{
    return window.options()->findChild<Widget*>(name);
}

QString import_command(int number)
{
    return u"import%1 '/%1'"_s.arg(number);
}

QList<ReadKey> read_keys()
{
    QList<ReadKey> keys{
        {window_group + u"x"_s,
         33,
         {{window_group + u"y"_s, 44}},
         [](const Ostrel& window) { return QVariant(window.pos().x()); },
         0,
         33},
        {window_group + u"y"_s,
         44,
         {{window_group + u"x"_s, 33}},
         [](const Ostrel& window) { return QVariant(window.pos().y()); },
         0,
         44},
        {window_group + u"width"_s,
         640,
         {{window_group + u"height"_s, 480}},
         [](const Ostrel& window) { return QVariant(window.width()); },
         1016,
         640},
        {window_group + u"height"_s,
         480,
         {{window_group + u"width"_s, 640}},
         [](const Ostrel& window) { return QVariant(window.height()); },
         819,
         480},
        {window_group + u"saveprompt"_s,
         false,
         {},
         [](const Ostrel&) { return QVariant(OstrelFileMenu::mDoPrompt); },
         true,
         false},
        {window_group + u"restoreWorkingDir"_s,
         true,
         {{window_group + u"workingdir"_s, u"/"_s}},
         [](const Ostrel&) { return QVariant(QDir::currentPath() == "/"_L1); },
         false,
         true},
        {window_group + u"workingdir"_s,
         u"/"_s,
         {{window_group + u"restoreWorkingDir"_s, true}},
         [](const Ostrel&) { return QVariant(QDir::currentPath() == "/"_L1); },
         false,
         true},
        {window_group + u"comppath"_s,
         u"/a b"_s,
         {},
         [](const Ostrel&) { return QVariant(ComponentTool::sLastPath); },
         QString(),
         u"/a b"_s},
        {window_group + u"splash"_s,
         false,
         {},
         [](const Ostrel&) {
             MainFrame frame;
             frame.start_splash(nullptr);
             const QWidgetList windows = QApplication::topLevelWidgets();
             return QVariant(std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
                 return qobject_cast<const QSplashScreen*>(window) && window->isVisible();
             }));
         },
         true,
         false},
        {command_group + u"fontfamily"_s,
         u"DejaVu Serif"_s,
         {},
         [](const Ostrel& window) {
             return QVariant(QStringList{window.command_line()->get_font().family(),
                                         window.journal_editor()->get_editor_font().family()});
         },
         QStringList{CommandWindow().get_font().family(), CommandWindow().get_font().family()},
         QStringList{u"DejaVu Serif"_s, u"DejaVu Serif"_s}},
        {command_group + u"fontsize"_s,
         17,
         {},
         [](const Ostrel& window) {
             return QVariant(QVariantList{window.command_line()->get_font().pointSize(),
                                          window.journal_editor()->get_editor_font().pointSize()});
         },
         QVariantList{CommandWindow().get_font().pointSize(), CommandWindow().get_font().pointSize()},
         QVariantList{17, 17}},
        {command_group + u"usetrim"_s,
         false,
         {},
         [](const Ostrel& window) { return QVariant(window.command_line()->get_cmd_max_lines()); },
         1024,
         0},
        {command_group + u"trimlimit"_s,
         500,
         {},
         [](const Ostrel& window) { return QVariant(window.command_line()->get_cmd_max_lines()); },
         1024,
         500},
        {command_group + u"historylimit"_s,
         77,
         {},
         [](const Ostrel& window) { return QVariant(window.command_line()->get_other_max_lines()); },
         200,
         77},
        {u"/fennargui/commandpanel/breadcrumbs"_s,
         true,
         {},
         [](const Ostrel& window) { return QVariant(window.usingButtonRows()); },
         true,
         false},
        {window_group + u"usepythonpaths"_s,
         true,
         {},
         [](const Ostrel& window) {
             return QVariant(control<QCheckBox>(window, u"cbUsePaths"_s)->isChecked());
         },
         false,
         true},
        {window_group + u"pythonpaths"_s,
         u"/a;/b"_s,
         {},
         [](const Ostrel& window) {
             return QVariant(control<QLineEdit>(window, u"lePythonPaths"_s)->text());
         },
         QString(),
         u"/a;/b"_s},
        {journal_group + u"unsavedjournalprompt"_s,
         false,
         {},
         [](const Ostrel&) { return QVariant(JournalEditor::do_save_prompt()); },
         true,
         false},
        {journal_group + u"x"_s,
         33,
         {{journal_group + u"y"_s, 44}},
         [](const Ostrel& window) { return QVariant(window.journal_editor()->pos().x()); },
         0,
         33},
        {journal_group + u"y"_s,
         44,
         {{journal_group + u"x"_s, 33}},
         [](const Ostrel& window) { return QVariant(window.journal_editor()->pos().y()); },
         0,
         44},
        {journal_group + u"width"_s,
         555,
         {{journal_group + u"height"_s, 444}},
         [](const Ostrel& window) { return QVariant(window.journal_editor()->width() == 555); },
         false,
         true},
        {journal_group + u"height"_s,
         444,
         {{journal_group + u"width"_s, 555}},
         [](const Ostrel& window) { return QVariant(window.journal_editor()->height() == 444); },
         false,
         true},
        {u"/fennargui/tabposition"_s,
         u"north"_s,
         {},
         [](const Ostrel& window) {
             window.options()->refresh_settings();
             return QVariant(control<QRadioButton>(window, u"rbTabTop"_s)->isChecked());
         },
         false,
         true},
    };
    for (int number = 1; number <= 5; ++number) {
        const QString file = u"/%1.mdl"_s.arg(number);
        keys << ReadKey{window_group + u"file%1"_s.arg(number),
                        file,
                        {},
                        [](const Ostrel& window) { return QVariant(recent_files(window)); },
                        QStringList(),
                        QStringList{file}};
        keys << ReadKey{window_group + u"import%1"_s.arg(number),
                        import_command(number),
                        {},
                        [](const Ostrel& window) { return QVariant(recent_imports(window)); },
                        QStringList(),
                        QStringList{import_command(number)}};
        const QString journal = u"/odd%1.jou"_s.arg(number);
        keys << ReadKey{
            journal_group + u"file%1"_s.arg(number),
            journal,
            {},
            [journal](const Ostrel& window) { return QVariant(has_recent_journal(window, u"odd"_s)); },
            false,
            true};
    }
    return keys;
}

QList<WrittenKey> written_keys()
{
    QList<WrittenKey> keys{
        {window_group + u"saved_state"_s, [](Ostrel&) {},
         [](const Ostrel& window) { return QVariant(window.saveState(0)); }},
        {window_group + u"saveprompt"_s, [](Ostrel&) { OstrelFileMenu::mDoPrompt = false; },
         [](const Ostrel&) { return QVariant(u"false"_s); }},
        {window_group + u"comppath"_s, [](Ostrel&) { ComponentTool::sLastPath = u"/a, b"_s; },
         [](const Ostrel&) { return QVariant(u"/a, b"_s); }},
        {command_group + u"fontfamily"_s,
         [](Ostrel& window) { window.command_line()->set_font(QFont(u"DejaVu Serif"_s, 17)); },
         [](const Ostrel&) { return QVariant(u"DejaVu Serif"_s); }},
        {command_group + u"fontsize"_s,
         [](Ostrel& window) { window.command_line()->set_font(QFont(u"DejaVu Serif"_s, 17)); },
         [](const Ostrel&) { return QVariant(u"17"_s); }},
        {command_group + u"usetrim"_s, [](Ostrel& window) { window.command_line()->set_cmd_max_lines(0); },
         [](const Ostrel&) { return QVariant(u"false"_s); }},
        {command_group + u"trimlimit"_s, [](Ostrel& window) { window.command_line()->set_cmd_max_lines(33); },
         [](const Ostrel&) { return QVariant(u"33"_s); }},
        {command_group + u"historylimit"_s,
         [](Ostrel& window) { window.command_line()->set_other_max_lines(44); },
         [](const Ostrel&) { return QVariant(u"44"_s); }},
        {journal_group + u"unsavedjournalprompt"_s, [](Ostrel&) { JournalEditor::set_save_prompt(false); },
         [](const Ostrel&) { return QVariant(u"false"_s); }},
        {u"geometry"_s, [](Ostrel& window) { window.resize(600, 450); },
         [](const Ostrel& window) { return QVariant(window.saveGeometry()); }},
    };
    for (int number = 1; number <= 5; ++number) {
        keys << WrittenKey{window_group + u"file%1"_s.arg(number),
                           [](Ostrel& window) {
                               for (int i = 5; i >= 1; --i)
                                   window.file_menu()->recent_file(u"/%1.mdl"_s.arg(i));
                           },
                           [number](const Ostrel&) { return QVariant(u"/%1.mdl"_s.arg(number)); }};
        keys << WrittenKey{window_group + u"import%1"_s.arg(number),
                           [](Ostrel& window) {
                               for (int i = 5; i >= 1; --i)
                                   window.file_menu()->recent_import(import_command(i));
                           },
                           [number](const Ostrel&) { return QVariant(import_command(number)); }};
    }
    return keys;
}

/** Makes the settings those of the next start of the program: what the file holds, in a file that is new. */
std::unique_ptr<SettingsSandbox> next_start()
{
    QString name;
    {
        QSettings settings;
        settings.sync();
        name = settings.fileName();
    }
    QFile before(name);
    const QByteArray content = before.open(QIODevice::ReadOnly) ? before.readAll() : QByteArray();
    auto sandbox = std::make_unique<SettingsSandbox>();
    QFile after(sandbox->file());
    if (!QDir().mkpath(QFileInfo(after.fileName()).path()) || !after.open(QIODevice::WriteOnly) ||
        after.write(content) != content.size())
        qFatal("the settings could not be copied");
    return sandbox;
}

} // namespace

/** Each key by itself: what reads it, what writes it, and what leaves it alone. */
class TstOstrelSettingsKeys : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void key_reaches_a_new_window_data();
    void key_reaches_a_new_window();
    void navigation_key_chooses_the_files();
    void key_is_written_data();
    void key_is_written();
    void fresh_window_writes_these_keys_and_no_other();
    void key_that_nothing_here_writes_stays_data();
    void key_that_nothing_here_writes_stays();
    void saved_state_is_not_read();
    void font_goes_to_the_journal_editor_even_if_it_is_the_consoles_own();
    void geometry_lies_outside_all_groups();
    void settings_that_cannot_be_read_or_stored_do_no_harm_data();
    void settings_that_cannot_be_read_or_stored_do_no_harm();

private:
    QString mDirectoryBefore;
    std::unique_ptr<SettingsSandbox> mNext;
};

void TstOstrelSettingsKeys::set_up()
{
    reset_statics();
    HostDouble::instance().reset();
    ComponentTool::sLastPath.clear();
    JournalEditor::set_save_prompt(true);
    mDirectoryBefore = QDir::currentPath();
}

void TstOstrelSettingsKeys::tear_down()
{
    QVERIFY(QDir::setCurrent(mDirectoryBefore));
    mNext.reset();
}

void TstOstrelSettingsKeys::key_reaches_a_new_window_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<ReadKey> keys = read_keys();
    for (qsizetype i = 0; i < keys.size(); ++i)
        QTest::newRow(qPrintable(keys[i].key)) << i;
}

void TstOstrelSettingsKeys::key_reaches_a_new_window()
{
    QFETCH(const qsizetype, index);
    const ReadKey key = read_keys()[index];
    {
        const Ostrel window;
        QCOMPARE(key.observe(window), key.fresh);
    }
    for (auto other = key.others.begin(); other != key.others.end(); ++other)
        QSettings().setValue(other.key(), other.value());
    QSettings().setValue(key.key, key.stored);
    mNext = next_start();
    const Ostrel window;
    QCOMPARE(key.observe(window), key.restored);
}

void TstOstrelSettingsKeys::navigation_key_chooses_the_files()
{
    for (const bool classic : {false, true}) {
        QSettings().setValue(u"/fennargui/commandpanel/classicnavigation"_s, classic);
        mNext = next_start();
        HostDouble::instance().reset();
        MainFrame frame;
        QVERIFY(frame.load_gui());
        const QString directory = classic ? u"/xml/entity-based-xml\""_s : u"/xml/action-based-xml\""_s;
        QCOMPARE(HostDouble::instance().calls.filter(u"buildNavigation"_s).filter(directory).size(),
                 qsizetype{1});
        Ostrel::instance()->hide();
        frame.unload_gui();
    }
}

void TstOstrelSettingsKeys::key_is_written_data()
{
    QTest::addColumn<qsizetype>("index");
    const QList<WrittenKey> keys = written_keys();
    for (qsizetype i = 0; i < keys.size(); ++i)
        QTest::newRow(qPrintable(keys[i].key)) << i;
}

void TstOstrelSettingsKeys::key_is_written()
{
    QFETCH(const qsizetype, index);
    const WrittenKey key = written_keys()[index];
    QSettings().setValue(key.key, u"of the last life"_s);
    QVariant expected;
    {
        Ostrel window;
        key.act(window);
        QCOMPARE(QSettings().value(key.key), QVariant(u"of the last life"_s));
        window.save_settings();
        expected = key.expected(window);
    }
    mNext = next_start();
    QCOMPARE(QSettings().value(key.key), expected);
}

void TstOstrelSettingsKeys::fresh_window_writes_these_keys_and_no_other()
{
    QCOMPARE(QSettings().allKeys(), QStringList());
    Ostrel window;
    QCOMPARE(QSettings().allKeys(), QStringList());
    window.save_settings();
    QStringList keys = QSettings().allKeys();
    keys.sort();
    QCOMPARE(keys, (QStringList{u"geometry"_s, u"ostrelgui/command/fontfamily"_s,
                                u"ostrelgui/command/fontsize"_s, u"ostrelgui/command/historylimit"_s,
                                u"ostrelgui/command/trimlimit"_s, u"ostrelgui/command/usetrim"_s,
                                u"ostrelgui/journal/unsavedjournalprompt"_s, u"ostrelgui/ostrel/comppath"_s,
                                u"ostrelgui/ostrel/saved_state"_s, u"ostrelgui/ostrel/saveprompt"_s}));
}

void TstOstrelSettingsKeys::key_that_nothing_here_writes_stays_data()
{
    QTest::addColumn<QString>("key");
    QStringList keys{window_group + u"x"_s,
                     window_group + u"y"_s,
                     window_group + u"width"_s,
                     window_group + u"height"_s,
                     window_group + u"restoreWorkingDir"_s,
                     window_group + u"workingdir"_s,
                     window_group + u"splash"_s,
                     u"/fennargui/commandpanel/breadcrumbs"_s,
                     u"/fennargui/commandpanel/classicnavigation"_s,
                     u"/ostrelgui/importdir"_s,
                     window_group + u"importdir"_s,
                     window_group + u"exportdir"_s,
                     window_group + u"usepythonpaths"_s,
                     window_group + u"pythonpaths"_s,
                     journal_group + u"x"_s,
                     journal_group + u"y"_s,
                     journal_group + u"width"_s,
                     journal_group + u"height"_s,
                     u"/fennargui/tabposition"_s,
                     u"/somebody/else"_s};
    for (int number = 1; number <= 5; ++number)
        keys << journal_group + u"file%1"_s.arg(number);
    for (const QString& key : std::as_const(keys))
        QTest::newRow(qPrintable(key)) << key;
}

void TstOstrelSettingsKeys::key_that_nothing_here_writes_stays()
{
    QFETCH(const QString, key);
    {
        Ostrel window;
        window.save_settings();
        QVERIFY(!QSettings().contains(key));
    }
    QSettings().setValue(key, u"0"_s);
    {
        Ostrel window;
        window.save_settings();
    }
    mNext = next_start();
    QCOMPARE(QSettings().value(key), QVariant(u"0"_s));
}

void TstOstrelSettingsKeys::saved_state_is_not_read()
{
    QByteArray fresh;
    {
        Ostrel window;
        fresh = window.saveState(0);
        window.removeToolBar(window.findChild<QToolBar*>(u"FileTools"_s));
        QVERIFY(window.saveState(0) != fresh);
        window.save_settings();
    }
    mNext = next_start();
    QSettings().remove(u"geometry"_s);
    const Ostrel window;
    QCOMPARE(window.saveState(0), fresh);
}

void TstOstrelSettingsKeys::font_goes_to_the_journal_editor_even_if_it_is_the_consoles_own()
{
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font(), CommandWindow().get_font());
    QCOMPARE(window.journal_editor()->get_editor_font(), window.command_line()->get_font());
}

void TstOstrelSettingsKeys::geometry_lies_outside_all_groups()
{
    Ostrel window;
    window.save_settings();
    QVERIFY(QSettings().childKeys().contains("geometry"_L1));
    QCOMPARE(QSettings().allKeys().filter(u"geometry"_s), QStringList{u"geometry"_s});
}

void TstOstrelSettingsKeys::settings_that_cannot_be_read_or_stored_do_no_harm_data()
{
    QTest::addColumn<bool>("directory");
    // Permissions would not hold the system administrator back.
    QTest::newRow("a directory in the place of the file") << true;
    QTest::newRow("a file in the place of the directory") << false;
}

void TstOstrelSettingsKeys::settings_that_cannot_be_read_or_stored_do_no_harm()
{
    QFETCH(const bool, directory);
    const QFileInfo file(settings().file());
    if (directory) {
        QVERIFY(QDir().mkpath(file.filePath()));
    } else {
        QVERIFY(QDir().mkpath(QFileInfo(file.path()).path()));
        QFile obstacle(file.path());
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
    }
    {
        Ostrel window;
        QCOMPARE(window.size(), QSize(1016, 819));
        QCOMPARE(window.command_line()->get_cmd_max_lines(), 1024);
        QVERIFY(OstrelFileMenu::mDoPrompt);
        window.options()->refresh_settings();
        QVERIFY(control<QCheckBox>(window, u"mUsingSplash"_s)->isChecked());
        emit window.options()->saveSettings();
        window.save_settings();
    }
    // They could not be stored indeed.
    QSettings stored;
    stored.setValue(u"key"_s, 1);
    stored.sync();
    QCOMPARE(stored.status(), QSettings::AccessError);
}

OSTREL_TEST(TstOstrelSettingsKeys)

#include "tst_ostrel_settings_keys.moc"
