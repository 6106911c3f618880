// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MenuTestCase.h"
#include "menus/OstrelToolsMenu.h"
#include "support/MarkingTranslator.h"
#include "support/own_methods.h"
#include "support/windows.h"

#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QStringList pause_calls{u"FennarInterface::pause_playback()"_s};
const QStringList resume_calls{u"FennarInterface::resume_playback()"_s,
                               u"FennarInterface::is_playback_paused()"_s};

} // namespace

class TstOstrelToolsMenu : public MenuTestCase
{
    Q_OBJECT

private:
    OstrelToolsMenu* tools() const { return window()->tools_menu(); }
    QMenu* menu() const { return bar_menu(u"&Tools"_s); }
    QAction* action(const QString& name) const { return tools()->findChild<QAction*>(name); }
    QToolBar* toolbar() const { return window()->findChild<QToolBar*>(u"FileTools"_s); }
    static QStringList take_calls() { return HostDouble::instance().take_calls(); }

private slots:
    void object_and_menu_have_their_names_and_parents()
    {
        QCOMPARE(tools()->objectName(), u"OstrelToolsMenu"_s);
        QCOMPARE(tools()->parent(), window());
        QVERIFY(menu());
        QCOMPARE(menu()->objectName(), u"Tools"_s);
        QCOMPARE(menu()->title(), u"&Tools"_s);
        QCOMPARE(menu()->parent(), window());
    }

    void slots_stand_in_their_order_and_there_are_no_signals()
    {
        QCOMPARE(own_methods(OstrelToolsMenu::staticMetaObject),
                 QStringList({u"slot show_journal_editor()"_s, u"slot pause_playback(bool)"_s,
                              u"slot show_component_tool()"_s, u"slot run_options()"_s}));
    }

    void actions_are_made_in_their_order()
    {
        QStringList names;
        for (const QObject* child : tools()->children())
            names << child->objectName();
        QCOMPARE(names, QStringList({u"mScriptAction"_s, u"mPlayAction"_s, u"mPlayFennarAction"_s,
                                     u"mPauseAction"_s, u"mComponentAction"_s, u"mOptionsAction"_s}));
    }

    void actions_look_as_they_should_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<bool>("checkable");
        QTest::addColumn<QString>("keys");
        QTest::newRow("journal editor") << u"mScriptAction"_s << u"&Journal Editor"_s << u"Journal Editor"_s
                                        << u"script.svg"_s << true << false << QString();
        QTest::newRow("play") << u"mPlayAction"_s << u"&Play Journal File"_s << u"Play Journal File"_s
                              << u"scriptplay_ot.svg"_s << true << false << QString();
        QTest::newRow("play ID-less")
            << u"mPlayFennarAction"_s << u"Play ID-less Fennar Journal File"_s << QString()
            << u"scriptplayfennar_ot.svg"_s << false << false << QString();
        QTest::newRow("pause") << u"mPauseAction"_s << u"Pause Script"_s
                               << u"Pause Script Playback (Ctrl+I)"_s << u"pause_ot.svg"_s << true << true
                               << u"Ctrl+I"_s;
        QTest::newRow("plugins") << u"mComponentAction"_s << u"Plu&gins..."_s << u"Plugin Tool"_s << QString()
                                 << true << false << QString();
        QTest::newRow("options") << u"mOptionsAction"_s << u"&Options..."_s << u"Set program options"_s
                                 << QString() << true << false << QString();
    }
    void actions_look_as_they_should()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        QFETCH(const QString, tip);
        QFETCH(const QString, icon);
        QFETCH(const bool, visible);
        QFETCH(const bool, checkable);
        QFETCH(const QString, keys);
        QAction* const shown = action(name);
        QVERIFY(shown);
        QCOMPARE(shown->text(), text);
        // A tip follows the text as long as none is set.
        shown->setText(u"other text"_s);
        QCOMPARE(shown->toolTip(), tip.isEmpty() ? u"other text"_s : tip);
        QCOMPARE(shown->icon().isNull(), icon.isEmpty());
        if (!icon.isEmpty()) {
            const QIcon expected(u":/ostrelgui/images/light/"_s + icon);
            QVERIFY(!picture(expected).isNull());
            QCOMPARE(picture(shown->icon()), picture(expected));
        }
        QCOMPARE(shown->isVisible(), visible);
        // What is hidden counts as disabled.
        QCOMPARE(shown->isEnabled(), visible);
        QCOMPARE(shown->isCheckable(), checkable);
        QVERIFY(!shown->isChecked());
        QCOMPARE(shown->shortcut().toString(QKeySequence::PortableText), keys);
    }

    void texts_are_translated_but_the_shortcut_is_not()
    {
        const MarkingTranslator marker("OstrelToolsMenu");
        const OstrelToolsMenu second(window());
        QCOMPARE(bar().last(), u"<&Tools>"_s);
        QStringList translated;
        for (const QAction* made : second.findChildren<QAction*>())
            translated << made->text() << made->toolTip();
        QCOMPARE(translated,
                 QStringList({u"<&Journal Editor>"_s, u"<Journal Editor>"_s, u"<&Play Journal File>"_s,
                              u"<Play Journal File>"_s, u"<Play ID-less Fennar Journal File>"_s,
                              u"<Play ID-less Fennar Journal File>"_s, u"<Pause Script>"_s,
                              u"<Pause Script Playback (Ctrl+I)>"_s, u"<Plu&gins...>"_s, u"<Plugin Tool>"_s,
                              u"<&Options...>"_s, u"<Set program options>"_s}));
        QCOMPARE(second.findChild<QAction*>(u"mPauseAction"_s)->shortcut(), QKeySequence(u"Ctrl+I"_s));
    }

    void menu_shows_two_pairs_at_the_start()
    {
        QCOMPARE(rows(menu()), QStringList({u"&Journal Editor"_s, u"&Play Journal File"_s, u"---"_s,
                                            u"Plu&gins..."_s, u"&Options..."_s}));
    }

    void menu_stands_between_view_and_help()
    {
        const QStringList titles = bar();
        QCOMPARE(titles.mid(titles.size() - 3), QStringList({u"&View"_s, u"&Tools"_s, u"&Help"_s}));
    }

    void items_for_the_toolbar_are_appended()
    {
        QAction own;
        std::vector<QAction*> items{&own};
        tools()->get_items_for_toolbar(items);
        QCOMPARE(items, std::vector<QAction*>({&own, action(u"mScriptAction"_s), action(u"mPlayAction"_s),
                                               action(u"mPlayFennarAction"_s), action(u"mPauseAction"_s)}));
    }

    void play_without_ids_has_a_button_that_is_hidden_until_the_action_is_shown()
    {
        QVERIFY(show_active(window()));
        const QWidget* const button = toolbar()->widgetForAction(action(u"mPlayFennarAction"_s));
        QVERIFY(button);
        QVERIFY(!button->isVisible());
        QVERIFY(toolbar()->widgetForAction(action(u"mPlayAction"_s))->isVisible());
        action(u"mPlayFennarAction"_s)->setVisible(true);
        QTRY_VERIFY(button->isVisible());
    }

    void accessors_return_the_actions()
    {
        QCOMPARE(tools()->play_action(), action(u"mPlayAction"_s));
        QCOMPARE(tools()->pause_action(), action(u"mPauseAction"_s));
    }

    void play_actions_reach_nobody_by_themselves()
    {
        const QWidgetList before = QApplication::topLevelWidgets();
        action(u"mPlayAction"_s)->trigger();
        action(u"mPlayFennarAction"_s)->trigger();
        QCOMPARE(take_calls(), QStringList());
        QCOMPARE(QApplication::topLevelWidgets(), before);
    }

    void items_of_components_stand_between_the_pairs()
    {
        QAction one(u"one"_s);
        QAction two(u"two"_s);
        QAction three(u"three"_s);
        tools()->add_item(&one, "first");
        std::vector<QAction*> list{nullptr, &two, &three};
        tools()->add_items(list, "second");
        QCOMPARE(rows(menu()),
                 QStringList({u"&Journal Editor"_s, u"&Play Journal File"_s, u"one"_s, u"---"_s, u"two"_s,
                              u"three"_s, u"---"_s, u"Plu&gins..."_s, u"&Options..."_s}));
        tools()->remove_component_items("First");
        tools()->remove_component_items("second");
        QCOMPARE(rows(menu()), QStringList({u"&Journal Editor"_s, u"&Play Journal File"_s, u"one"_s, u"---"_s,
                                            u"Plu&gins..."_s, u"&Options..."_s}));
        tools()->remove_component_items("first");
        QCOMPARE(rows(menu()), QStringList({u"&Journal Editor"_s, u"&Play Journal File"_s, u"---"_s,
                                            u"Plu&gins..."_s, u"&Options..."_s}));
    }

    void own_entries_belong_to_their_sections()
    {
        tools()->remove_component_items("toolsSpecial");
        QCOMPARE(rows(menu()), QStringList({u"&Journal Editor"_s, u"&Play Journal File"_s, u"---"_s}));
        tools()->remove_component_items("toolsGeneral");
        QCOMPARE(rows(menu()), QStringList());
    }

    void null_component_adds_and_removes_nothing()
    {
        const QStringList before = rows(menu());
        QAction one(u"one"_s);
        std::vector<QAction*> list{&one};
        tools()->add_item(&one, nullptr);
        tools()->add_items(list, nullptr);
        QCOMPARE(rows(menu()), before);
        tools()->remove_component_items(nullptr);
        QCOMPARE(rows(menu()), before);
    }

    void checking_pauses_and_asks_nothing()
    {
        tools()->pause_action()->setChecked(true);
        QCOMPARE(take_calls(), pause_calls);
        // What the host says of itself is not read back.
        QVERIFY(tools()->pause_action()->isChecked());
    }

    void pause_that_fails_leaves_the_action_checked()
    {
        tools()->pause_action()->setChecked(true);
        HostDouble::instance().playback_paused = false;
        QVERIFY(tools()->pause_action()->isChecked());
        QCOMPARE(take_calls(), pause_calls);
    }

    void unchecking_resumes_and_reads_the_state_back()
    {
        tools()->pause_action()->setChecked(true);
        take_calls();
        tools()->pause_action()->setChecked(false);
        QCOMPARE(take_calls(), resume_calls);
        QVERIFY(!tools()->pause_action()->isChecked());
    }

    void refused_resume_checks_the_action_again_and_pauses_once_more()
    {
        HostDouble::instance().resume_refused = true;
        tools()->pause_action()->setChecked(true);
        take_calls();
        tools()->pause_action()->setChecked(false);
        QVERIFY(tools()->pause_action()->isChecked());
        QCOMPARE(take_calls(), resume_calls + pause_calls);
    }

    void resume_sets_the_action_of_the_main_window()
    {
        OstrelToolsMenu second(window());
        HostDouble::instance().resume_refused = true;
        HostDouble::instance().playback_paused = true;
        second.pause_playback(false);
        QVERIFY(tools()->pause_action()->isChecked());
        QVERIFY(!second.pause_action()->isChecked());
        QCOMPARE(take_calls(), resume_calls + pause_calls);
    }

    void slot_called_directly_does_not_check_the_action()
    {
        tools()->pause_playback(true);
        QCOMPARE(take_calls(), pause_calls);
        QVERIFY(!tools()->pause_action()->isChecked());
    }

    void keys_toggle_the_action_as_a_click_does()
    {
        QVERIFY(show_active(window()));
        take_calls();
        QTest::keyClick(window(), Qt::Key_I, Qt::ControlModifier);
        QVERIFY(tools()->pause_action()->isChecked());
        QCOMPARE(take_calls(), pause_calls);
        QTest::keyClick(window(), Qt::Key_I, Qt::ControlModifier);
        QVERIFY(!tools()->pause_action()->isChecked());
        QCOMPARE(take_calls(), resume_calls);
        QTest::mouseClick(toolbar()->widgetForAction(tools()->pause_action()), Qt::LeftButton);
        QVERIFY(tools()->pause_action()->isChecked());
        QCOMPARE(take_calls(), pause_calls);
    }

    void keys_reach_the_action_while_the_console_has_the_focus()
    {
        QVERIFY(show_active(window()));
        window()->set_focus_to_command_window();
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_I, Qt::ControlModifier);
        QVERIFY(tools()->pause_action()->isChecked());
    }

    void stopped_playback_leaves_the_action_checked()
    {
        tools()->pause_action()->setChecked(true);
        window()->cancel_progress();
        QVERIFY(take_calls().contains(u"FennarInterface::stop_playback()"_s));
        QVERIFY(tools()->pause_action()->isChecked());
    }

    void end_takes_the_menu_and_the_actions_but_not_those_of_components()
    {
        const QMenu* const first_menu = menu();
        auto* second = new OstrelToolsMenu(window());
        QAction one(u"one"_s);
        second->add_item(&one, "first");
        const QPointer<QMenu> second_menu = window()->menuBar()->actions().last()->menu();
        QVERIFY(second_menu && second_menu != first_menu);
        const QPointer<QAction> pause = second->pause_action();
        const qsizetype count = bar().size();
        delete second;
        QVERIFY(!second_menu);
        QVERIFY(!pause);
        QCOMPARE(bar().size(), count - 1);
        QCOMPARE(one.text(), u"one"_s);
    }
};

OSTREL_TEST(TstOstrelToolsMenu)
#include "tst_ostreltoolsmenu.moc"
