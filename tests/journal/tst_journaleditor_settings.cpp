// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "editor_helpers.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/windows.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QTabWidget>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

void set(const QString& key, const QVariant& value)
{
    QSettings().setValue(u"/ostrelgui/journal/"_s + key, value);
}

QVariant get(const QString& key)
{
    return QSettings().value(u"/ostrelgui/journal/"_s + key);
}

/** The keys of the editor in the settings. */
QStringList keys()
{
    QSettings settings;
    settings.beginGroup(u"/ostrelgui/journal"_s);
    return settings.allKeys();
}

QStringList recent_entries(const JournalEditor& editor)
{
    QStringList texts;
    for (const QAction* action : menu_of(editor, u"fileMenu"_s)->actions())
        if (action->text().startsWith(u'&') && action->text().at(1).isDigit())
            texts << action->text();
    return texts;
}

} // namespace

/** What the journal editor keeps from run to run, and what the main window does with it. */
class TstJournalEditorSettings : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void fresh_settings_give_the_defaults();
    void position_is_restored_if_it_is_on_the_screen_data();
    void position_is_restored_if_it_is_on_the_screen();
    void half_a_position_counts_for_nothing_data();
    void half_a_position_counts_for_nothing();
    void size_is_restored_from_both_keys_data();
    void size_is_restored_from_both_keys();
    void prompt_flag_is_restored_data();
    void prompt_flag_is_restored();
    void recent_journals_are_restored_in_order();
    void empty_and_missing_recent_journals_are_passed_over();
    void state_is_saved_on_close();
    void stale_recent_journals_are_removed();
    void settings_live_on();
    void constructing_writes_nothing();

    // The main window.
    void main_window_owns_one_editor();
    void editor_dies_with_the_main_window();
    void tools_menu_shows_the_editor();
    void font_of_the_console_goes_to_the_editor();
    void main_window_saves_the_prompt_flag();
    void closing_the_main_window_closes_the_editor();
    void hidden_editor_is_not_asked();
    void refused_close_of_the_editor_keeps_the_main_window();
};

void TstJournalEditorSettings::set_up()
{
    HostDouble::instance().reset();
    JournalEditor::set_save_prompt(true);
}

void TstJournalEditorSettings::fresh_settings_give_the_defaults()
{
    JournalEditor::set_save_prompt(false);
    const JournalEditor editor;
    QCOMPARE(editor.pos(), QPoint(0, 0));
    QCOMPARE(editor.size(), QSize(601, 498));
    QVERIFY(JournalEditor::do_save_prompt());
    QCOMPARE(recent_entries(editor), QStringList());
}

void TstJournalEditorSettings::position_is_restored_if_it_is_on_the_screen_data()
{
    QTest::addColumn<QVariant>("x");
    QTest::addColumn<QVariant>("y");
    QTest::addColumn<QPoint>("position");

    // The screen is that of the test's platform.
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const auto row = [](const char* name, const QVariant& x, const QVariant& y) -> QTestData& {
        return QTest::newRow(name) << x << y;
    };
    row("on the screen", 30, 40) << QPoint(30, 40);
    row("at its first pixels", 1, 1) << QPoint(1, 1);
    row("at its last pixels", screen.width() - 1, screen.height() - 1)
        << QPoint(screen.width() - 1, screen.height() - 1);
    row("x too far", screen.width(), 40) << QPoint(0, 0);
    row("y too far", 30, screen.height()) << QPoint(0, 0);
    row("x of 5000", 5000, 40) << QPoint(0, 0);
    row("x zero, like a missing one", 0, 40) << QPoint(0, 0);
    row("y zero, like a missing one", 30, 0) << QPoint(0, 0);
    row("x negative", -1, 40) << QPoint(0, 0);
    row("y negative", 30, -1) << QPoint(0, 0);
    row("not a number", u"left"_s, 40) << QPoint(0, 0);
    row("extreme", std::numeric_limits<int>::max(), std::numeric_limits<int>::min()) << QPoint(0, 0);
    row("beyond all numbers", u"99999999999999999999"_s, 40) << QPoint(0, 0);
}

void TstJournalEditorSettings::position_is_restored_if_it_is_on_the_screen()
{
    QFETCH(const QVariant, x);
    QFETCH(const QVariant, y);
    QFETCH(const QPoint, position);
    set(u"x"_s, x);
    set(u"y"_s, y);
    const JournalEditor editor;
    QCOMPARE(editor.pos(), position);
    QVERIFY(editor.testAttribute(Qt::WA_Moved));
}

void TstJournalEditorSettings::half_a_position_counts_for_nothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("x alone") << u"x"_s;
    QTest::newRow("y alone") << u"y"_s;
}

void TstJournalEditorSettings::half_a_position_counts_for_nothing()
{
    QFETCH(const QString, key);
    set(key, 30);
    const JournalEditor editor;
    QCOMPARE(editor.pos(), QPoint(0, 0));
}

void TstJournalEditorSettings::size_is_restored_from_both_keys_data()
{
    QTest::addColumn<QVariant>("width");
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<QSize>("size");
    QTest::newRow("both") << QVariant(640) << QVariant(480) << QSize(640, 480);
    QTest::newRow("width alone") << QVariant(640) << QVariant() << QSize(601, 498);
    QTest::newRow("height alone") << QVariant() << QVariant(480) << QSize(601, 498);
    // Nothing guards the size: zero, here from a text that is no number, is taken as it is.
    QTest::newRow("not a number") << QVariant(u"wide"_s) << QVariant(480) << QSize(0, 480);
    QTest::newRow("negative") << QVariant(-5) << QVariant(-5) << QSize(0, 0);
}

void TstJournalEditorSettings::size_is_restored_from_both_keys()
{
    QFETCH(const QVariant, width);
    QFETCH(const QVariant, height);
    QFETCH(const QSize, size);
    if (width.isValid())
        set(u"width"_s, width);
    if (height.isValid())
        set(u"height"_s, height);
    const JournalEditor editor;
    QCOMPARE(editor.size(), size);
}

void TstJournalEditorSettings::prompt_flag_is_restored_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("flag");
    QTest::newRow("off") << QVariant(false) << false;
    QTest::newRow("on") << QVariant(true) << true;
    QTest::newRow("text") << QVariant(u"false"_s) << false;
}

void TstJournalEditorSettings::prompt_flag_is_restored()
{
    QFETCH(const QVariant, stored);
    QFETCH(const bool, flag);
    JournalEditor::set_save_prompt(!flag);
    set(u"unsavedjournalprompt"_s, stored);
    const JournalEditor editor;
    QCOMPARE(JournalEditor::do_save_prompt(), flag);
}

void TstJournalEditorSettings::recent_journals_are_restored_in_order()
{
    // None of these files exists, which nobody asks about yet.
    for (int i = 1; i <= 6; ++i)
        set(u"file%1"_s.arg(i), u"/r/%1.jou"_s.arg(i));
    const JournalEditor editor;
    QCOMPARE(recent_entries(editor), QStringList({u"&1 /r/1.jou"_s, u"&2 /r/2.jou"_s, u"&3 /r/3.jou"_s,
                                                  u"&4 /r/4.jou"_s, u"&5 /r/5.jou"_s}));
}

void TstJournalEditorSettings::empty_and_missing_recent_journals_are_passed_over()
{
    set(u"file1"_s, u"/r/1.jou"_s);
    set(u"file3"_s, QString());
    set(u"file5"_s, u"/r/5.jou"_s);
    const JournalEditor editor;
    QCOMPARE(recent_entries(editor), QStringList({u"&1 /r/1.jou"_s, u"&2 /r/5.jou"_s}));
}

void TstJournalEditorSettings::state_is_saved_on_close()
{
    JournalEditor editor;
    editor.move(33, 44);
    editor.resize(555, 333);
    JournalEditor::set_save_prompt(false);
    QVERIFY(editor.close());
    QSettings settings;
    QCOMPARE(get(u"x"_s).toInt(), editor.x());
    QCOMPARE(get(u"x"_s).toInt(), 33);
    QCOMPARE(get(u"y"_s).toInt(), 44);
    QCOMPARE(get(u"width"_s).toInt(), 555);
    QCOMPARE(get(u"height"_s).toInt(), 333);
    QCOMPARE(get(u"unsavedjournalprompt"_s).toString(), u"false"_s);
    QCOMPARE(keys(), QStringList({u"height"_s, u"unsavedjournalprompt"_s, u"width"_s, u"x"_s, u"y"_s}));
}

void TstJournalEditorSettings::stale_recent_journals_are_removed()
{
    JournalEditor editor;
    for (int i = 1; i <= 6; ++i)
        set(u"file%1"_s.arg(i), u"/r/%1.jou"_s.arg(i));
    QVERIFY(editor.close());
    // Only the five keys are the editor's.
    QCOMPARE(keys().filter(u"file"_s), QStringList(u"file6"_s));
}

void TstJournalEditorSettings::settings_live_on()
{
    {
        for (int i = 1; i <= 3; ++i)
            set(u"file%1"_s.arg(i), u"/r/%1.jou"_s.arg(i));
        JournalEditor editor;
        editor.move(33, 44);
        editor.resize(555, 333);
        JournalEditor::set_save_prompt(false);
        QVERIFY(editor.close());
    }
    JournalEditor::set_save_prompt(true);
    const JournalEditor editor;
    QCOMPARE(editor.pos(), QPoint(33, 44));
    QCOMPARE(editor.size(), QSize(555, 333));
    QVERIFY(!JournalEditor::do_save_prompt());
    QCOMPARE(recent_entries(editor), QStringList({u"&1 /r/1.jou"_s, u"&2 /r/2.jou"_s, u"&3 /r/3.jou"_s}));
}

void TstJournalEditorSettings::constructing_writes_nothing()
{
    {
        const JournalEditor editor;
    }
    QCOMPARE(keys(), QStringList());
}

void TstJournalEditorSettings::main_window_owns_one_editor()
{
    const Ostrel window;
    QVERIFY(window.journal_editor());
    QCOMPARE(window.journal_editor()->parentWidget(), &window);
    QVERIFY(window.journal_editor()->isWindow());
    QVERIFY(window.journal_editor()->isHidden());
    QCOMPARE(window.findChildren<JournalEditor*>().size(), 1);
}

void TstJournalEditorSettings::editor_dies_with_the_main_window()
{
    // It goes before the console, whose pages its import items name.
    auto window = std::make_unique<Ostrel>();
    QStringList order;
    connect(window->journal_editor(), &QObject::destroyed, this, [&order] { order << u"editor"_s; });
    connect(window->command_line(), &QObject::destroyed, this, [&order] { order << u"console"_s; });
    window.reset();
    QCOMPARE(order, QStringList({u"editor"_s, u"console"_s}));
}

void TstJournalEditorSettings::tools_menu_shows_the_editor()
{
    Ostrel window;
    JournalEditor* const editor = window.journal_editor();
    QVERIFY(show_active(&window));
    auto* const action = window.findChild<QAction*>(u"mScriptAction"_s);
    QVERIFY(action);
    action->trigger();
    QVERIFY(editor->isVisible());
    QTRY_VERIFY(editor->isActiveWindow());
    // Another window in front of it, and one that is minimized.
    QVERIFY(show_active(&window));
    action->trigger();
    QTRY_VERIFY(editor->isActiveWindow());
    editor->showMaximized();
    action->trigger();
    QVERIFY(editor->isMaximized());
    editor->showMinimized();
    action->trigger();
    QVERIFY(!editor->isMinimized());
    QVERIFY(editor->isVisible());
    editor->hide();
    window.hide();
}

void TstJournalEditorSettings::font_of_the_console_goes_to_the_editor()
{
    {
        const Ostrel window;
        QCOMPARE(window.journal_editor()->get_editor_font().family(),
                 window.command_line()->get_font().family());
        QCOMPARE(window.journal_editor()->get_editor_font().pointSize(),
                 window.command_line()->get_font().pointSize());
    }
    QSettings().setValue(u"/ostrelgui/command/fontfamily"_s, u"DejaVu Serif"_s);
    QSettings().setValue(u"/ostrelgui/command/fontsize"_s, 17);
    const Ostrel window;
    QCOMPARE(window.journal_editor()->get_editor_font().family(), u"DejaVu Serif"_s);
    QCOMPARE(window.journal_editor()->get_editor_font().pointSize(), 17);
}

void TstJournalEditorSettings::main_window_saves_the_prompt_flag()
{
    Ostrel window;
    JournalEditor::set_save_prompt(false);
    window.save_settings();
    QCOMPARE(get(u"unsavedjournalprompt"_s).toString(), u"false"_s);
    QCOMPARE(keys(), QStringList(u"unsavedjournalprompt"_s));
    JournalEditor::set_save_prompt(true);
    window.save_settings();
    QCOMPARE(get(u"unsavedjournalprompt"_s).toString(), u"true"_s);
}

void TstJournalEditorSettings::closing_the_main_window_closes_the_editor()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    QVERIFY(show_active(window.journal_editor()));
    typed_document(*window.journal_editor(), u"a"_s);
    DialogDriver driver;
    driver.expect(u"QtMessageSettingBox"_s, press(u"mNoButton"_s));
    QVERIFY(window.close());
    QVERIFY(driver.finish());
    QVERIFY(window.journal_editor()->isHidden());
    QVERIFY(keys().contains(u"width"_s));
    QVERIFY(HostDouble::instance().calls.filter(u"request_exit"_s).size() == 1);
}

void TstJournalEditorSettings::hidden_editor_is_not_asked()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    typed_document(*window.journal_editor(), u"a"_s);
    QVERIFY(window.close());
    QVERIFY(document_of(*window.journal_editor(), 0)->document()->isModified());
    QVERIFY(!keys().contains(u"width"_s));
    QVERIFY(HostDouble::instance().calls.filter(u"request_exit"_s).size() == 1);
}

void TstJournalEditorSettings::refused_close_of_the_editor_keeps_the_main_window()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    QVERIFY(show_active(window.journal_editor()));
    typed_document(*window.journal_editor(), u"a"_s);
    DialogDriver driver;
    driver.expect(u"QtMessageSettingBox"_s, press(u"mCancelButton"_s));
    QVERIFY(!window.close());
    QVERIFY(driver.finish());
    QVERIFY(window.isVisible());
    QVERIFY(window.journal_editor()->isVisible());
    // The settings are saved on that path too.
    QVERIFY(QSettings().contains(u"geometry"_s));
    QVERIFY(HostDouble::instance().calls.filter(u"request_exit"_s).isEmpty());
    window.journal_editor()->hide();
    window.hide();
}

OSTREL_TEST(TstJournalEditorSettings)
#include "tst_journaleditor_settings.moc"
