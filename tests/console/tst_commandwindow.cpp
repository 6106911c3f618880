// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "hostdouble/HostDouble.h"
#include "resources/load_icon.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTranslator>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/** Opens what derived classes see, and notes each change of the current tab. */
class OpenWindow : public CommandWindow
{
    Q_OBJECT

public:
    using CommandWindow::command_widget;
    using CommandWindow::CommandWindow;

    void tabPageChanged(int index) override
    {
        changes << index;
        CommandWindow::tabPageChanged(index);
    }

    QList<int> changes;
};

/** Notes the reason of each focus that a widget gets. */
class FocusSpy : public QObject
{
    Q_OBJECT

public:
    explicit FocusSpy(QWidget* watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            reasons << static_cast<QFocusEvent*>(event)->reason();
        return QObject::eventFilter(watched, event);
    }

    QList<Qt::FocusReason> reasons;
};

/** A catalog that has a translation for every text, and notes what it was asked for. */
class Catalog : public QTranslator
{
    Q_OBJECT

public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        asked << QString::fromUtf8(context) + u'/' + QString::fromUtf8(text);
        return u"translated"_s;
    }
    bool isEmpty() const override { return false; }

    mutable QStringList asked;
};

/** A console in a window, with a field outside of it that has the focus. */
struct ShownConsole
{
    ShownConsole()
    {
        auto* layout = new QVBoxLayout(&frame);
        layout->addWidget(window);
        layout->addWidget(outside);
    }
    /** Shows everything with the focus outside of the console. */
    [[nodiscard]] bool show()
    {
        if (!show_active(&frame))
            return false;
        outside->setFocus();
        return outside->hasFocus();
    }

    QWidget frame;
    OpenWindow* window = new OpenWindow;
    QLineEdit* outside = new QLineEdit;
};

QTabWidget* tabs(const CommandWindow& window)
{
    return window.findChild<QTabWidget*>(u"mCommandTab"_s);
}
QPushButton* fennar_button(const CommandWindow& window)
{
    return window.findChild<QPushButton*>(u"mFennarButton"_s);
}
QPushButton* python_button(const CommandWindow& window)
{
    return window.findChild<QPushButton*>(u"mPythonButton"_s);
}

QImage picture(const QIcon& icon)
{
    return icon.pixmap(16, 16).toImage();
}

/** The indexes of the tabs that show an icon. */
QList<int> marked_tabs(const CommandWindow& window)
{
    QList<int> marked;
    for (int index = 0; index < tabs(window)->count(); ++index) {
        if (!tabs(window)->tabIcon(index).isNull())
            marked << index;
    }
    return marked;
}

template <class Page>
Page* add(CommandWindow& window, const QString& title)
{
    auto* page = new Page;
    window.add_command_tab(title, page);
    return page;
}

int limit(const QPlainTextEdit* page)
{
    return page->document()->maximumBlockCount();
}

/** The page that the console works on, found by what append_command() reaches; null if there is none. */
CommandWidget* working_page(CommandWindow& window)
{
    const QString probe = u"probe"_s;
    window.append_command(probe);
    CommandWidget* found = nullptr;
    for (int index = 0; index < tabs(window)->count(); ++index) {
        auto* page = qobject_cast<CommandWidget*>(tabs(window)->widget(index));
        if (page && page->toPlainText().endsWith(probe)) {
            found = page;
            QTextCursor end(page->document());
            end.movePosition(QTextCursor::End);
            end.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, int(probe.size()));
            end.removeSelectedText();
        }
    }
    return found;
}

QWidget* const no_widget = nullptr;

} // namespace

class TstCommandWindow : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // Construction
    void widget_layout_and_tabs_carry_their_names();
    void layout_has_margins_of_two_and_no_spacing();
    void tabs_hang_below_in_triangular_shape_and_take_focus_by_click();
    void mode_buttons_have_icon_tool_tip_and_state_data();
    void mode_buttons_have_icon_tool_tip_and_state();
    void mode_buttons_stand_in_the_bottom_left_corner();
    void shortcut_actions_belong_to_the_window();
    void size_is_603_by_238();
    void size_grows_to_the_minimum_hint();
    void title_is_translated_and_tool_tips_are_not();
    void title_is_the_command_line_workspace();
    void settings_start_at_their_defaults();
    void starts_without_a_page_and_asks_the_host_nothing();
    void parent_is_taken();
    void metacast_answers_to_both_bases();
    void signals_and_slots_stand_in_their_order();
    void string_signals_pass_by_value();

    // Pages
    void any_widget_becomes_a_tab_behind_the_others();
    void adding_null_does_nothing();
    void titles_stay_as_given_data();
    void titles_stay_as_given();
    void text_page_gets_the_other_limit_data();
    void text_page_gets_the_other_limit();
    void command_page_gets_the_command_limit();
    void command_page_added_without_command_limit_keeps_the_other_limit();
    void command_page_gets_the_font_and_others_keep_theirs();
    void command_page_becomes_current_and_others_do_not();
    void command_page_becomes_current_even_if_tab_changes_are_ignored();
    void command_page_added_late_does_not_follow_the_cursor();
    void page_of_a_derived_class_counts_as_command_page();
    void command_widget_casts();
    void page_added_again_moves_to_the_end();
    void removed_page_stays_alive();
    void removing_the_current_page_leaves_none();
    void removing_the_current_page_hands_over_to_a_selected_command_page();
    void removing_another_page_keeps_the_current_one();
    void removing_null_or_a_stranger_does_nothing();
    void page_is_current_again_after_it_is_added_again();
    void pages_go_with_the_window();
    void removed_page_goes_with_the_window_unless_it_got_another_parent();
    void deleted_page_leaves_the_console();
    void deleted_page_hands_over_to_a_selected_command_page();
    void page_moved_elsewhere_is_no_longer_written_to();
    void current_page_half_destroyed_is_not_written_to();

    // The current tab
    void switch_tab_selects_and_focuses();
    void switch_tab_focuses_the_page_that_is_current_already();
    void switch_tab_to_null_or_a_stranger_does_nothing();
    void selecting_a_tab_focuses_its_page_and_clears_its_warning();
    void clicked_tab_focuses_its_page();
    void selecting_another_kind_of_tab_keeps_the_working_page();
    void selecting_a_command_tab_makes_it_the_working_page();
    void tab_page_changed_works_on_the_current_page_whatever_the_index_data();
    void tab_page_changed_works_on_the_current_page_whatever_the_index();
    void tab_page_changed_without_page_does_nothing_data();
    void tab_page_changed_without_page_does_nothing();
    void tab_page_changed_is_virtual();

    // Warnings
    void warning_shows_the_warning_icon_data();
    void warning_shows_the_warning_icon();
    void cleared_warning_shows_no_icon_data();
    void cleared_warning_shows_no_icon();
    void warning_of_nothing_does_nothing_data();
    void warning_of_nothing_does_nothing();
    void title_form_takes_the_first_of_equal_titles();
    void title_form_compares_the_whole_text_data();
    void title_form_compares_the_whole_text();
    void warning_on_the_current_tab_stays_until_it_is_selected_again();

    // Settings
    void command_limit_reaches_command_pages_only();
    void other_limit_reaches_other_text_pages_only();
    void zero_command_limit_lifts_the_limit_of_present_pages();
    void limit_drops_the_oldest_lines();
    void negative_limit_is_kept_and_means_none();
    void font_reaches_command_pages_only();
    void focus_follows_cursor_reaches_all_command_pages();
    void follow_flag_reaches_late_pages_when_set_again();
    void settings_work_without_pages();

    // Commands
    void clear_contents_leaves_a_prompt_on_each_command_page();
    void set_focus_focuses_the_working_page();
    void set_focus_without_working_page_does_nothing();
    void command_and_index_come_from_the_working_page();

    // Modes
    void click_asks_for_a_mode_data();
    void click_asks_for_a_mode();
    void shortcut_clicks_the_button_data();
    void shortcut_clicks_the_button();
    void shortcut_works_while_a_page_has_the_focus();
    void mode_slot_runs_on_a_toggle_in_either_direction_data();
    void mode_slot_runs_on_a_toggle_in_either_direction();
    void mode_slot_called_directly_unchecks_the_other_button_only_data();
    void mode_slot_called_directly_unchecks_the_other_button_only();
    void other_button_is_unchecked_before_the_signal();
    void mode_slot_selects_the_first_command_tab_data();
    void mode_slot_selects_the_first_command_tab();
    void mode_slot_without_command_tab_keeps_the_tab();
    void python_mode_sets_all_prompts_and_both_buttons();
    void python_mode_sets_the_continuation_prompt_too();
    void python_mode_runs_no_slot_and_emits_nothing();
    void python_mode_twice_changes_the_prompts_once();
    void first_call_with_command_mode_leaves_the_prompts();
    void mode_change_loses_the_half_typed_command();
    void mode_round_trip_with_an_owner();
    void unchecked_buttons_stay_so_until_the_mode_really_changes();
};

void TstCommandWindow::set_up()
{
    HostDouble::instance().reset();
}

// Construction

void TstCommandWindow::widget_layout_and_tabs_carry_their_names()
{
    const CommandWindow window;
    QCOMPARE(window.objectName(), u"QtCommand"_s);
    auto* layout = qobject_cast<QVBoxLayout*>(window.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), u"QtCommandLayout"_s);
    QCOMPARE(layout->count(), 1);
    auto* tab = qobject_cast<QTabWidget*>(layout->itemAt(0)->widget());
    QVERIFY(tab);
    QCOMPARE(tab->objectName(), u"mCommandTab"_s);
    QCOMPARE(tab->parentWidget(), &window);
}

void TstCommandWindow::layout_has_margins_of_two_and_no_spacing()
{
    const CommandWindow window;
    QCOMPARE(window.layout()->contentsMargins(), QMargins(2, 2, 2, 2));
    QCOMPARE(window.layout()->spacing(), 0);
}

void TstCommandWindow::tabs_hang_below_in_triangular_shape_and_take_focus_by_click()
{
    const CommandWindow window;
    QCOMPARE(tabs(window)->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(tabs(window)->tabPosition(), QTabWidget::South);
    QCOMPARE(tabs(window)->tabShape(), QTabWidget::Triangular);
}

void TstCommandWindow::mode_buttons_have_icon_tool_tip_and_state_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("icon");
    QTest::addColumn<QString>("tool_tip");
    QTest::addColumn<bool>("checked");
    QTest::newRow("command mode") << u"mFennarButton"_s << "halvane_fennar.svg"_ba
                                  << u"Switch to Fennar command mode (Alt+C)"_s << true;
    QTest::newRow("python mode") << u"mPythonButton"_s << "python.svg"_ba
                                 << u"Switch to Python statement mode (Alt+P)"_s << false;
}

void TstCommandWindow::mode_buttons_have_icon_tool_tip_and_state()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, icon);
    QFETCH(const QString, tool_tip);
    QFETCH(const bool, checked);
    const CommandWindow window;
    const auto* button = window.findChild<QPushButton*>(name);
    QVERIFY(button);
    QVERIFY(!picture(load_icon(icon.constData())).isNull());
    QCOMPARE(picture(button->icon()), picture(load_icon(icon.constData())));
    QCOMPARE(button->toolTip(), tool_tip);
    QVERIFY(button->text().isEmpty());
    QVERIFY(button->isCheckable());
    QCOMPARE(button->isChecked(), checked);
}

void TstCommandWindow::mode_buttons_stand_in_the_bottom_left_corner()
{
    const CommandWindow window;
    const QWidget* corner = tabs(window)->cornerWidget(Qt::BottomLeftCorner);
    QVERIFY(corner);
    QCOMPARE(corner->metaObject(), &QWidget::staticMetaObject);
    auto* layout = qobject_cast<QHBoxLayout*>(corner->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), fennar_button(window));
    QCOMPARE(layout->itemAt(1)->widget(), python_button(window));
    QVERIFY(!tabs(window)->cornerWidget(Qt::BottomRightCorner));
}

void TstCommandWindow::shortcut_actions_belong_to_the_window()
{
    const CommandWindow window;
    const QList<QAction*> actions = window.actions();
    QCOMPARE(actions.size(), 2);
    QCOMPARE(actions[0]->objectName(), u"mFennarAction"_s);
    QCOMPARE(actions[0]->shortcuts(), QList{QKeySequence(u"Alt+C"_s)});
    QCOMPARE(actions[0]->parent(), &window);
    QCOMPARE(actions[1]->objectName(), u"mPythonAction"_s);
    QCOMPARE(actions[1]->shortcuts(), QList{QKeySequence(u"Alt+P"_s)});
    QCOMPARE(actions[1]->parent(), &window);
}

void TstCommandWindow::size_is_603_by_238()
{
    const CommandWindow window;
    QVERIFY(window.minimumSizeHint().width() < 603);
    QVERIFY(window.minimumSizeHint().height() < 238);
    QCOMPARE(window.size(), QSize(603, 238));
}

void TstCommandWindow::size_grows_to_the_minimum_hint()
{
    const auto restore = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    qApp->setStyleSheet(u"QTabWidget { min-height: 400px }"_s);
    const CommandWindow high;
    QVERIFY(high.minimumSizeHint().height() >= 400);
    QCOMPARE(high.size(), QSize(603, high.minimumSizeHint().height()));

    qApp->setStyleSheet(u"QTabWidget { min-width: 700px }"_s);
    const CommandWindow wide;
    QVERIFY(wide.minimumSizeHint().width() >= 700);
    QCOMPARE(wide.size(), QSize(wide.minimumSizeHint().width(), 238));
}

void TstCommandWindow::title_is_the_command_line_workspace()
{
    const CommandWindow window;
    QCOMPARE(window.windowTitle(), u"Command Line Workspace"_s);
}

void TstCommandWindow::title_is_translated_and_tool_tips_are_not()
{
    Catalog catalog;
    QVERIFY(QCoreApplication::installTranslator(&catalog));
    catalog.asked.clear();
    const CommandWindow window;
    QCoreApplication::removeTranslator(&catalog);
    QStringList asked = catalog.asked.filter(u"CommandWindow/"_s);
    asked.sort();
    QCOMPARE(asked, QStringList({u"CommandWindow/Command Line Workspace"_s, u"CommandWindow/Command Mode"_s,
                                 u"CommandWindow/Python Mode"_s}));
    QCOMPARE(window.windowTitle(), u"translated"_s);
    QCOMPARE(fennar_button(window)->toolTip(), u"Switch to Fennar command mode (Alt+C)"_s);
    QCOMPARE(python_button(window)->toolTip(), u"Switch to Python statement mode (Alt+P)"_s);
    // What a screen reader says is.
    QCOMPARE(fennar_button(window)->accessibleName(), u"translated"_s);
    QCOMPARE(python_button(window)->accessibleName(), u"translated"_s);
}

void TstCommandWindow::settings_start_at_their_defaults()
{
    const CommandWindow window;
    QCOMPARE(window.get_cmd_max_lines(), 0);
    QCOMPARE(window.get_other_max_lines(), 0);
    QCOMPARE(window.get_font(), QFont());
    QCOMPARE(window.get_focus_follows_cursor(), false);
}

void TstCommandWindow::starts_without_a_page_and_asks_the_host_nothing()
{
    const CommandWindow window;
    QCOMPARE(tabs(window)->count(), 0);
    QCOMPARE(HostDouble::instance().take_calls(), QStringList());
}

void TstCommandWindow::parent_is_taken()
{
    QWidget parent;
    auto* window = new CommandWindow(&parent);
    QCOMPARE(window->parentWidget(), &parent);
    QVERIFY(!CommandWindow().parentWidget());
}

void TstCommandWindow::metacast_answers_to_both_bases()
{
    CommandWindow window;
    QCOMPARE(window.qt_metacast("CommandWindow"), static_cast<void*>(&window));
    QCOMPARE(window.qt_metacast("OutputHandler"), static_cast<void*>(static_cast<OutputHandler*>(&window)));
    QVERIFY(window.qt_metacast("OutputHandler") != window.qt_metacast("CommandWindow"));
    QCOMPARE(window.qt_metacast("QWidget"), static_cast<void*>(static_cast<QWidget*>(&window)));
    QVERIFY(!window.qt_metacast("CommandWidget"));
}

void TstCommandWindow::signals_and_slots_stand_in_their_order()
{
    const QMetaObject& meta = CommandWindow::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        methods << QLatin1StringView(method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") +
                       QString::fromLatin1(method.methodSignature());
    }
    QCOMPARE(methods,
             (QStringList{u"signal readOnlyChanged(bool)"_s, u"signal readyForPrompt(bool,const char*)"_s,
                          u"signal dataToPrint(QString)"_s, u"signal commandToPrint(QString)"_s,
                          u"signal commandModeChanged(bool)"_s, u"slot tabPageChanged(int)"_s,
                          u"slot fennar_mode_pushed()"_s, u"slot python_mode_pushed()"_s}));
}

void TstCommandWindow::string_signals_pass_by_value()
{
    const auto by_value = [](auto member) {
        return std::is_same_v<decltype(member), void (CommandWindow::*)(QString)>;
    };
    QVERIFY(by_value(&CommandWindow::dataToPrint));
    QVERIFY(by_value(&CommandWindow::commandToPrint));
}

// Pages

void TstCommandWindow::any_widget_becomes_a_tab_behind_the_others()
{
    CommandWindow window;
    const auto* first = add<QWidget>(window, u"first"_s);
    const auto* second = add<QPlainTextEdit>(window, u"second"_s);
    const auto* third = add<CommandWidget>(window, u"third"_s);
    QCOMPARE(tabs(window)->count(), 3);
    QCOMPARE(tabs(window)->widget(0), first);
    QCOMPARE(tabs(window)->widget(1), second);
    QCOMPARE(tabs(window)->widget(2), third);
    QCOMPARE(tabs(window)->tabText(0), u"first"_s);
    QCOMPARE(tabs(window)->tabText(1), u"second"_s);
    QCOMPARE(tabs(window)->tabText(2), u"third"_s);
    QCOMPARE(marked_tabs(window), QList<int>());
}

void TstCommandWindow::adding_null_does_nothing()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    window.add_command_tab(u"nothing"_s, nullptr);
    QCOMPARE(tabs(window)->count(), 1);
    QCOMPARE(working_page(window), page);
}

void TstCommandWindow::titles_stay_as_given_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("ampersand in front") << u"&Output"_s;
    QTest::newRow("two ampersands") << u"R && D"_s;
    QTest::newRow("ampersand at the end") << u"tail&"_s;
    QTest::newRow("line break") << u"two\nlines"_s;
    QTest::newRow("markup") << u"<b>bold</b>"_s;
    QTest::newRow("beyond the basic plane") << u"\U0001F600 \u00e9"_s;
    QTest::newRow("very long") << QString(20000, u'x');
}

void TstCommandWindow::titles_stay_as_given()
{
    QFETCH(const QString, title);
    CommandWindow window;
    add<QWidget>(window, u"other"_s);
    add<QWidget>(window, title);
    QCOMPARE(tabs(window)->tabText(1), title);
    window.set_tab_warning(title);
    QCOMPARE(marked_tabs(window), QList{1});
    window.clear_tab_warning(title);
    QCOMPARE(marked_tabs(window), QList<int>());
}

void TstCommandWindow::text_page_gets_the_other_limit_data()
{
    QTest::addColumn<int>("other");
    QTest::newRow("a limit") << 200;
    QTest::newRow("no limit takes the page's own away") << 0;
}

void TstCommandWindow::text_page_gets_the_other_limit()
{
    QFETCH(const int, other);
    CommandWindow window;
    window.set_other_max_lines(other);
    window.set_cmd_max_lines(50);
    QPlainTextEdit page;
    page.setMaximumBlockCount(7);
    window.add_command_tab(u"log"_s, &page);
    QCOMPARE(limit(&page), other);
    window.remove_command_tab(&page);
    page.setParent(nullptr);
}

void TstCommandWindow::command_page_gets_the_command_limit()
{
    CommandWindow window;
    window.set_other_max_lines(200);
    window.set_cmd_max_lines(1024);
    QCOMPARE(limit(add<CommandWidget>(window, u"page"_s)), 1024);
}

void TstCommandWindow::command_page_added_without_command_limit_keeps_the_other_limit()
{
    CommandWindow window;
    window.set_other_max_lines(200);
    const auto* early = add<CommandWidget>(window, u"early"_s);
    window.set_cmd_max_lines(0);
    const auto* late = add<CommandWidget>(window, u"late"_s);
    QCOMPARE(limit(early), 0);
    QCOMPARE(limit(late), 200);
}

void TstCommandWindow::command_page_gets_the_font_and_others_keep_theirs()
{
    CommandWindow window;
    QFont font(u"Monospace"_s, 17);
    font.setItalic(true);
    window.set_font(font);
    QCOMPARE(add<CommandWidget>(window, u"commands"_s)->font(), font);
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    QVERIFY(log->font() != font);
    QVERIFY(!log->testAttribute(Qt::WA_SetFont));
    auto* plain = add<QWidget>(window, u"plain"_s);
    QVERIFY(!plain->testAttribute(Qt::WA_SetFont));
}

void TstCommandWindow::command_page_becomes_current_and_others_do_not()
{
    CommandWindow window;
    const auto* log = add<QPlainTextEdit>(window, u"log"_s);
    QCOMPARE(tabs(window)->currentWidget(), log);
    auto* one = add<CommandWidget>(window, u"one"_s);
    QCOMPARE(tabs(window)->currentWidget(), one);
    QCOMPARE(working_page(window), one);
    add<QPlainTextEdit>(window, u"second log"_s);
    add<QWidget>(window, u"plain"_s);
    QCOMPARE(tabs(window)->currentWidget(), one);
    QCOMPARE(working_page(window), one);
    auto* two = add<CommandWidget>(window, u"two"_s);
    QCOMPARE(tabs(window)->currentWidget(), two);
    QCOMPARE(working_page(window), two);
}

void TstCommandWindow::command_page_becomes_current_even_if_tab_changes_are_ignored()
{
    class DeafWindow : public CommandWindow
    {
    public:
        void tabPageChanged(int) override {}
    } window;
    add<CommandWidget>(window, u"one"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    QCOMPARE(working_page(window), two);
}

void TstCommandWindow::command_page_added_late_does_not_follow_the_cursor()
{
    CommandWindow window;
    window.set_focus_follows_cursor(true);
    QCOMPARE(add<CommandWidget>(window, u"late"_s)->focusFollowsCursor(), false);
}

void TstCommandWindow::page_of_a_derived_class_counts_as_command_page()
{
    class DerivedPage : public CommandWidget
    {};
    CommandWindow window;
    window.set_cmd_max_lines(12);
    auto* page = add<DerivedPage>(window, u"derived"_s);
    QCOMPARE(limit(page), 12);
    QCOMPARE(working_page(window), page);
}

void TstCommandWindow::command_widget_casts()
{
    const OpenWindow window;
    CommandWidget command_page;
    QPlainTextEdit log;
    QCOMPARE(window.command_widget(&command_page), &command_page);
    QVERIFY(!window.command_widget(&log));
    QVERIFY(!window.command_widget(nullptr));
}

void TstCommandWindow::page_added_again_moves_to_the_end()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"old title"_s);
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    window.add_command_tab(u"new title"_s, page);
    QCOMPARE(tabs(window)->count(), 2);
    QCOMPARE(tabs(window)->widget(0), log);
    QCOMPARE(tabs(window)->widget(1), page);
    QCOMPARE(tabs(window)->tabText(1), u"new title"_s);
    QCOMPARE(tabs(window)->currentWidget(), page);
    QCOMPARE(working_page(window), page);
}

void TstCommandWindow::removed_page_stays_alive()
{
    CommandWindow window;
    const QPointer<QWidget> log = add<QPlainTextEdit>(window, u"log"_s);
    const QPointer<CommandWidget> page = add<CommandWidget>(window, u"page"_s);
    window.remove_command_tab(log);
    window.remove_command_tab(page);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(log);
    QVERIFY(page);
    QCOMPARE(tabs(window)->count(), 0);
}

void TstCommandWindow::removing_the_current_page_leaves_none()
{
    ShownConsole console;
    CommandWindow& window = *console.window;
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    auto* page = add<CommandWidget>(window, u"page"_s);
    QVERIFY(console.show());
    window.remove_command_tab(page);
    QCOMPARE(tabs(window)->currentWidget(), log);
    window.append_command(u"lost"_s);
    window.insert_command(u"lost"_s);
    QCOMPARE(page->toPlainText(), QString());
    console.outside->setFocus();
    window.set_focus();
    QVERIFY(console.outside->hasFocus());

    // A tab of another kind does not end this, a page that is added does.
    add<QPlainTextEdit>(window, u"second log"_s);
    tabs(window)->setCurrentIndex(1);
    QVERIFY(!working_page(window));
    auto* next = add<CommandWidget>(window, u"next"_s);
    QCOMPARE(working_page(window), next);
}

void TstCommandWindow::removing_the_current_page_hands_over_to_a_selected_command_page()
{
    CommandWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    add<QPlainTextEdit>(window, u"log"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    // The log is selected now, which is no command page.
    window.remove_command_tab(two);
    QCOMPARE(tabs(window)->currentIndex(), 1);
    QVERIFY(!working_page(window));
    tabs(window)->setCurrentIndex(0);
    QCOMPARE(working_page(window), one);

    auto* three = add<CommandWidget>(window, u"three"_s);
    window.remove_command_tab(tabs(window)->widget(1));
    // Its neighbor is a command page, and the removal selects it.
    window.remove_command_tab(three);
    QCOMPARE(tabs(window)->currentWidget(), one);
    QCOMPARE(working_page(window), one);
}

void TstCommandWindow::removing_another_page_keeps_the_current_one()
{
    CommandWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    window.remove_command_tab(one);
    QCOMPARE(working_page(window), two);
    window.remove_command_tab(log);
    QCOMPARE(working_page(window), two);
    QCOMPARE(tabs(window)->count(), 1);
}

void TstCommandWindow::removing_null_or_a_stranger_does_nothing()
{
    CommandWindow window;
    window.remove_command_tab(nullptr);
    auto* page = add<CommandWidget>(window, u"page"_s);
    CommandWidget stranger;
    window.remove_command_tab(&stranger);
    window.remove_command_tab(nullptr);
    QCOMPARE(tabs(window)->count(), 1);
    QCOMPARE(working_page(window), page);
}

void TstCommandWindow::page_is_current_again_after_it_is_added_again()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    window.remove_command_tab(page);
    QVERIFY(!working_page(window));
    window.add_command_tab(u"again"_s, page);
    QCOMPARE(working_page(window), page);
    QCOMPARE(tabs(window)->tabText(0), u"again"_s);
}

void TstCommandWindow::pages_go_with_the_window()
{
    auto window = std::make_unique<OpenWindow>();
    const QList<QPointer<QWidget>> pages{add<CommandWidget>(*window, u"one"_s),
                                         add<QWidget>(*window, u"two"_s),
                                         add<CommandWidget>(*window, u"three"_s)};
    QVERIFY(show_active(window.get()));
    window.reset();
    for (const auto& page : pages)
        QVERIFY(!page);
}

void TstCommandWindow::removed_page_goes_with_the_window_unless_it_got_another_parent()
{
    auto window = std::make_unique<OpenWindow>();
    const QPointer<CommandWidget> left = add<CommandWidget>(*window, u"left"_s);
    QWidget other_parent;
    const QPointer<CommandWidget> moved = add<CommandWidget>(*window, u"moved"_s);
    QVERIFY(show_active(window.get()));
    window->remove_command_tab(left);
    window->remove_command_tab(moved);
    QVERIFY(left->isHidden());
    QVERIFY(window->isAncestorOf(left));
    moved->setParent(&other_parent);
    window.reset();
    QVERIFY(!left);
    QVERIFY(moved);
}

void TstCommandWindow::deleted_page_leaves_the_console()
{
    ShownConsole console;
    CommandWindow& window = *console.window;
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    auto* page = add<CommandWidget>(window, u"page"_s);
    QVERIFY(console.show());
    delete page;
    QCOMPARE(tabs(window)->count(), 1);
    QCOMPARE(tabs(window)->currentWidget(), log);
    console.outside->setFocus();
    window.append_command(u"lost"_s);
    window.insert_command(u"lost"_s);
    window.set_focus();
    window.set_font(QFont(u"Monospace"_s));
    window.set_cmd_max_lines(3);
    window.set_focus_follows_cursor(true);
    window.set_python_mode(true);
    window.clear_contents();
    window.fennar_mode_pushed();
    QVERIFY(console.outside->hasFocus());
    QCOMPARE(log->toPlainText(), QString());
    auto* next = add<CommandWidget>(window, u"next"_s);
    QCOMPARE(working_page(window), next);
}

void TstCommandWindow::deleted_page_hands_over_to_a_selected_command_page()
{
    CommandWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    delete two;
    QCOMPARE(tabs(window)->currentWidget(), one);
    QCOMPARE(working_page(window), one);
}

void TstCommandWindow::page_moved_elsewhere_is_no_longer_written_to()
{
    CommandWindow window;
    CommandWidget page;
    window.add_command_tab(u"page"_s, &page);
    page.setParent(nullptr);
    QCOMPARE(tabs(window)->count(), 0);
    window.append_command(u"lost"_s);
    window.insert_command(u"lost"_s);
    QCOMPARE(page.toPlainText(), QString());
}

void TstCommandWindow::current_page_half_destroyed_is_not_written_to()
{
    CommandWindow window;
    add<QPlainTextEdit>(window, u"log"_s);
    auto* page = add<CommandWidget>(window, u"page"_s);
    int tabs_seen = 0;
    connect(page, &QObject::destroyed, &window, [&] {
        tabs_seen = tabs(window)->count();
        window.append_command(u"lost"_s);
        window.insert_command(u"lost"_s);
        window.set_focus();
    });
    delete page;
    QCOMPARE(tabs_seen, 2);
    QCOMPARE(tabs(window)->count(), 1);
}

// The current tab

void TstCommandWindow::switch_tab_selects_and_focuses()
{
    ShownConsole console;
    CommandWindow& window = *console.window;
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    auto* page = add<CommandWidget>(window, u"page"_s);
    QVERIFY(console.show());
    const FocusSpy spy(log);
    window.switchTab(log);
    QCOMPARE(tabs(window)->currentWidget(), log);
    QVERIFY(log->hasFocus());
    QCOMPARE(spy.reasons, QList{Qt::OtherFocusReason});
    QCOMPARE(working_page(window), page);
}

void TstCommandWindow::switch_tab_focuses_the_page_that_is_current_already()
{
    ShownConsole console;
    auto* page = add<CommandWidget>(*console.window, u"page"_s);
    QVERIFY(console.show());
    const FocusSpy spy(page);
    console.window->switchTab(page);
    QVERIFY(page->hasFocus());
    QCOMPARE(spy.reasons, QList{Qt::OtherFocusReason});
}

void TstCommandWindow::switch_tab_to_null_or_a_stranger_does_nothing()
{
    ShownConsole console;
    auto* page = add<CommandWidget>(*console.window, u"page"_s);
    auto* stranger = new QPlainTextEdit(&console.frame);
    QVERIFY(console.show());
    console.window->switchTab(nullptr);
    console.window->switchTab(stranger);
    QCOMPARE(tabs(*console.window)->currentWidget(), page);
    QVERIFY(console.outside->hasFocus());
}

void TstCommandWindow::selecting_a_tab_focuses_its_page_and_clears_its_warning()
{
    ShownConsole console;
    CommandWindow& window = *console.window;
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    add<QPlainTextEdit>(window, u"second log"_s);
    add<CommandWidget>(window, u"page"_s);
    QVERIFY(console.show());
    window.set_tab_warning(0);
    window.set_tab_warning(1);
    const FocusSpy spy(log);
    tabs(window)->setCurrentIndex(0);
    QVERIFY(log->hasFocus());
    QCOMPARE(spy.reasons, QList{Qt::OtherFocusReason});
    QCOMPARE(marked_tabs(window), QList{1});
}

void TstCommandWindow::clicked_tab_focuses_its_page()
{
    ShownConsole console;
    CommandWindow& window = *console.window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    add<CommandWidget>(window, u"two"_s);
    QVERIFY(console.show());
    window.set_tab_warning(one);
    const QTabBar* bar = tabs(window)->tabBar();
    QTest::mouseClick(tabs(window)->tabBar(), Qt::LeftButton, {}, bar->tabRect(0).center());
    QCOMPARE(tabs(window)->currentWidget(), one);
    QVERIFY(one->hasFocus());
    QCOMPARE(marked_tabs(window), QList<int>());
    QCOMPARE(working_page(window), one);
}

void TstCommandWindow::selecting_another_kind_of_tab_keeps_the_working_page()
{
    CommandWindow window;
    add<QPlainTextEdit>(window, u"log"_s);
    add<QWidget>(window, u"plain"_s);
    auto* page = add<CommandWidget>(window, u"page"_s);
    for (const int index : {0, 1}) {
        tabs(window)->setCurrentIndex(index);
        QCOMPARE(working_page(window), page);
    }
}

void TstCommandWindow::selecting_a_command_tab_makes_it_the_working_page()
{
    CommandWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    tabs(window)->setCurrentIndex(0);
    QCOMPARE(working_page(window), one);
    tabs(window)->setCurrentIndex(1);
    QCOMPARE(working_page(window), two);
}

void TstCommandWindow::tab_page_changed_works_on_the_current_page_whatever_the_index_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("still_marked");
    QTest::newRow("the current tab") << 1 << QList{0};
    QTest::newRow("another tab") << 0 << QList{1};
    QTest::newRow("behind the last tab") << 99 << QList{0, 1};
    QTest::newRow("below minus one") << -2 << QList{0, 1};
}

void TstCommandWindow::tab_page_changed_works_on_the_current_page_whatever_the_index()
{
    QFETCH(const int, index);
    QFETCH(const QList<int>, still_marked);
    ShownConsole console;
    CommandWindow& window = *console.window;
    add<CommandWidget>(window, u"one"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    QVERIFY(console.show());
    window.set_tab_warning(0);
    window.set_tab_warning(1);
    window.tabPageChanged(index);
    QCOMPARE(marked_tabs(window), still_marked);
    QVERIFY(two->hasFocus());
    QCOMPARE(working_page(window), two);
}

void TstCommandWindow::tab_page_changed_without_page_does_nothing_data()
{
    QTest::addColumn<bool>("with_page");
    QTest::addColumn<int>("index");
    QTest::newRow("minus one, no tab") << false << -1;
    QTest::newRow("minus one, a tab") << true << -1;
    QTest::newRow("zero, no tab") << false << 0;
    QTest::newRow("ninety-nine, no tab") << false << 99;
}

void TstCommandWindow::tab_page_changed_without_page_does_nothing()
{
    QFETCH(const bool, with_page);
    QFETCH(const int, index);
    ShownConsole console;
    auto* page = add<CommandWidget>(*console.window, u"page"_s);
    if (!with_page)
        console.window->remove_command_tab(page);
    QVERIFY(console.show());
    console.window->set_tab_warning(0);
    console.window->tabPageChanged(index);
    QVERIFY(console.outside->hasFocus());
    QCOMPARE(marked_tabs(*console.window), with_page ? QList{0} : QList<int>());
    QCOMPARE(working_page(*console.window), with_page ? page : nullptr);
}

void TstCommandWindow::tab_page_changed_is_virtual()
{
    OpenWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    add<QWidget>(window, u"two"_s);
    auto* three = add<CommandWidget>(window, u"three"_s);
    window.remove_command_tab(one);
    tabs(window)->setCurrentIndex(0);
    window.remove_command_tab(three);
    window.remove_command_tab(tabs(window)->widget(0));
    // The removals: of a tab before the current one, of one behind it, of the last.
    QCOMPARE(window.changes, (QList{0, 2, 1, 0, -1}));
}

// Warnings

void TstCommandWindow::warning_shows_the_warning_icon_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("by page") << 0;
    QTest::newRow("by index") << 1;
    QTest::newRow("by title") << 2;
}

void TstCommandWindow::warning_shows_the_warning_icon()
{
    QFETCH(const int, form);
    CommandWindow window;
    add<CommandWidget>(window, u"one"_s);
    auto* two = add<QWidget>(window, u"two"_s);
    add<CommandWidget>(window, u"three"_s);
    if (form == 0)
        window.set_tab_warning(two);
    else if (form == 1)
        window.set_tab_warning(1);
    else
        window.set_tab_warning(u"two"_s);
    QCOMPARE(marked_tabs(window), QList{1});
    QVERIFY(!picture(load_icon("warning.svg")).isNull());
    QCOMPARE(picture(tabs(window)->tabIcon(1)), picture(load_icon("warning.svg")));
}

void TstCommandWindow::cleared_warning_shows_no_icon_data()
{
    warning_shows_the_warning_icon_data();
}

void TstCommandWindow::cleared_warning_shows_no_icon()
{
    QFETCH(const int, form);
    CommandWindow window;
    add<CommandWidget>(window, u"one"_s);
    auto* two = add<QWidget>(window, u"two"_s);
    add<CommandWidget>(window, u"three"_s);
    for (const int index : {0, 1, 2})
        window.set_tab_warning(index);
    if (form == 0)
        window.clear_tab_warning(two);
    else if (form == 1)
        window.clear_tab_warning(1);
    else
        window.clear_tab_warning(u"two"_s);
    QCOMPARE(marked_tabs(window), (QList{0, 2}));
}

void TstCommandWindow::warning_of_nothing_does_nothing_data()
{
    QTest::addColumn<int>("tab_count");
    QTest::newRow("no tab") << 0;
    QTest::newRow("two tabs") << 2;
}

void TstCommandWindow::warning_of_nothing_does_nothing()
{
    QFETCH(const int, tab_count);
    CommandWindow window;
    QList<int> all;
    for (int index = 0; index < tab_count; ++index) {
        add<QWidget>(window, u"page"_s);
        all << index;
    }
    QWidget stranger;
    const auto for_nothing = [&](auto act) {
        act(no_widget);
        act(&stranger);
        for (const int index : {-1, -2, tab_count, 99, INT_MAX, INT_MIN})
            act(index);
        for (const QString& title : {u"unknown"_s, u""_s, QString(), u"PAGE"_s, u"pag"_s})
            act(title);
    };
    for_nothing([&](const auto& what) { window.set_tab_warning(what); });
    QCOMPARE(marked_tabs(window), QList<int>());
    for (const int index : all)
        window.set_tab_warning(index);
    for_nothing([&](const auto& what) { window.clear_tab_warning(what); });
    QCOMPARE(marked_tabs(window), all);
}

void TstCommandWindow::title_form_takes_the_first_of_equal_titles()
{
    CommandWindow window;
    for (const QString& title : {u"one"_s, u"twice"_s, u"twice"_s})
        add<QWidget>(window, title);
    window.set_tab_warning(u"twice"_s);
    QCOMPARE(marked_tabs(window), QList{1});
    window.set_tab_warning(2);
    window.clear_tab_warning(u"twice"_s);
    QCOMPARE(marked_tabs(window), QList{2});
}

void TstCommandWindow::title_form_compares_the_whole_text_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("found");
    QTest::newRow("the text") << u"&Output log"_s << true;
    QTest::newRow("without its mnemonic") << u"Output log"_s << false;
    QTest::newRow("other case") << u"&output log"_s << false;
    QTest::newRow("its beginning") << u"&Output"_s << false;
    QTest::newRow("blank behind") << u"&Output log "_s << false;
}

void TstCommandWindow::title_form_compares_the_whole_text()
{
    QFETCH(const QString, title);
    QFETCH(const bool, found);
    CommandWindow window;
    add<QWidget>(window, u"&Output log"_s);
    window.set_tab_warning(title);
    QCOMPARE(!marked_tabs(window).isEmpty(), found);
}

void TstCommandWindow::warning_on_the_current_tab_stays_until_it_is_selected_again()
{
    CommandWindow window;
    add<CommandWidget>(window, u"one"_s);
    add<CommandWidget>(window, u"two"_s);
    window.set_tab_warning(1);
    QCOMPARE(marked_tabs(window), QList{1});
    tabs(window)->setCurrentIndex(1);
    QCOMPARE(marked_tabs(window), QList{1});
    tabs(window)->setCurrentIndex(0);
    QCOMPARE(marked_tabs(window), QList{1});
    tabs(window)->setCurrentIndex(1);
    QCOMPARE(marked_tabs(window), QList<int>());
}

// Settings

void TstCommandWindow::command_limit_reaches_command_pages_only()
{
    CommandWindow window;
    const auto* one = add<CommandWidget>(window, u"one"_s);
    const auto* log = add<QPlainTextEdit>(window, u"log"_s);
    add<QWidget>(window, u"plain"_s);
    auto* rich = add<QTextEdit>(window, u"rich"_s);
    const auto* two = add<CommandWidget>(window, u"two"_s);
    window.set_other_max_lines(5);
    window.set_cmd_max_lines(1024);
    QCOMPARE(window.get_cmd_max_lines(), 1024);
    QCOMPARE(window.get_other_max_lines(), 5);
    QCOMPARE(limit(one), 1024);
    QCOMPARE(limit(two), 1024);
    QCOMPARE(limit(log), 5);
    QCOMPARE(rich->document()->maximumBlockCount(), 0);
}

void TstCommandWindow::other_limit_reaches_other_text_pages_only()
{
    CommandWindow window;
    window.set_cmd_max_lines(1024);
    const auto* log = add<QPlainTextEdit>(window, u"log"_s);
    add<QWidget>(window, u"plain"_s);
    auto* rich = add<QTextEdit>(window, u"rich"_s);
    const auto* page = add<CommandWidget>(window, u"page"_s);
    const auto* second_log = add<QPlainTextEdit>(window, u"second log"_s);
    window.set_other_max_lines(200);
    QCOMPARE(window.get_other_max_lines(), 200);
    QCOMPARE(window.get_cmd_max_lines(), 1024);
    QCOMPARE(limit(log), 200);
    QCOMPARE(limit(second_log), 200);
    QCOMPARE(limit(page), 1024);
    QCOMPARE(rich->document()->maximumBlockCount(), 0);
}

void TstCommandWindow::zero_command_limit_lifts_the_limit_of_present_pages()
{
    CommandWindow window;
    window.set_cmd_max_lines(1024);
    const auto* page = add<CommandWidget>(window, u"page"_s);
    window.set_cmd_max_lines(0);
    QCOMPARE(limit(page), 0);
}

void TstCommandWindow::limit_drops_the_oldest_lines()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    page->setPlainText(u"1\n2\n3\n4"_s);
    window.set_cmd_max_lines(2);
    QCOMPARE(page->toPlainText(), u"3\n4"_s);
}

void TstCommandWindow::negative_limit_is_kept_and_means_none()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    window.set_cmd_max_lines(-3);
    window.set_other_max_lines(-4);
    QCOMPARE(window.get_cmd_max_lines(), -3);
    QCOMPARE(window.get_other_max_lines(), -4);
    for (QPlainTextEdit* edit : {static_cast<QPlainTextEdit*>(page), log}) {
        edit->setPlainText(QString(5000, u'\n'));
        QCOMPARE(edit->blockCount(), 5001);
    }
}

void TstCommandWindow::font_reaches_command_pages_only()
{
    CommandWindow window;
    const auto* one = add<CommandWidget>(window, u"one"_s);
    const auto* log = add<QPlainTextEdit>(window, u"log"_s);
    const auto* two = add<CommandWidget>(window, u"two"_s);
    const QFont log_font = log->font();
    const QFont font(u"Monospace"_s, 19);
    QVERIFY(font != log_font);
    window.set_font(font);
    QCOMPARE(window.get_font(), font);
    QCOMPARE(one->font(), font);
    QCOMPARE(two->font(), font);
    QCOMPARE(log->font(), log_font);
}

void TstCommandWindow::focus_follows_cursor_reaches_all_command_pages()
{
    CommandWindow window;
    const auto* one = add<CommandWidget>(window, u"one"_s);
    add<QPlainTextEdit>(window, u"log"_s);
    const auto* two = add<CommandWidget>(window, u"two"_s);
    for (const bool follows : {true, false}) {
        window.set_focus_follows_cursor(follows);
        QCOMPARE(window.get_focus_follows_cursor(), follows);
        QCOMPARE(one->focusFollowsCursor(), follows);
        QCOMPARE(two->focusFollowsCursor(), follows);
    }
}

void TstCommandWindow::follow_flag_reaches_late_pages_when_set_again()
{
    CommandWindow window;
    window.set_focus_follows_cursor(true);
    const auto* page = add<CommandWidget>(window, u"late"_s);
    QCOMPARE(page->focusFollowsCursor(), false);
    window.set_focus_follows_cursor(true);
    QCOMPARE(page->focusFollowsCursor(), true);
}

void TstCommandWindow::settings_work_without_pages()
{
    CommandWindow window;
    const QFont font(u"Monospace"_s, 21);
    window.set_cmd_max_lines(11);
    window.set_other_max_lines(12);
    window.set_font(font);
    window.set_focus_follows_cursor(true);
    window.clear_contents();
    window.set_python_mode(true);
    QCOMPARE(window.get_cmd_max_lines(), 11);
    QCOMPARE(window.get_other_max_lines(), 12);
    QCOMPARE(window.get_font(), font);
    QCOMPARE(window.get_focus_follows_cursor(), true);
    QVERIFY(python_button(window)->isChecked());
}

// Commands

void TstCommandWindow::clear_contents_leaves_a_prompt_on_each_command_page()
{
    CommandWindow window;
    auto* one = add<CommandWidget>(window, u"one"_s);
    auto* log = add<QPlainTextEdit>(window, u"log"_s);
    auto* two = add<CommandWidget>(window, u"two"_s);
    one->setPrompt(u"a>"_s, QString());
    two->setPrompt(u"b>"_s, QString());
    for (QPlainTextEdit* page : {static_cast<QPlainTextEdit*>(one), log, static_cast<QPlainTextEdit*>(two)})
        page->setPlainText(u"text"_s);
    const QSignalSpy first(one, &CommandWidget::contentsCleared);
    const QSignalSpy second(two, &CommandWidget::contentsCleared);
    window.clear_contents();
    QCOMPARE(one->toPlainText(), u"a>"_s);
    QCOMPARE(two->toPlainText(), u"b>"_s);
    QCOMPARE(log->toPlainText(), u"text"_s);
    QCOMPARE(first.size(), 1);
    QCOMPARE(second.size(), 1);
}

void TstCommandWindow::set_focus_focuses_the_working_page()
{
    ShownConsole console;
    auto* page = add<CommandWidget>(*console.window, u"page"_s);
    QVERIFY(console.show());
    const FocusSpy spy(page);
    console.window->set_focus();
    QVERIFY(page->hasFocus());
    QCOMPARE(spy.reasons, QList{Qt::OtherFocusReason});
}

void TstCommandWindow::set_focus_without_working_page_does_nothing()
{
    ShownConsole console;
    add<QPlainTextEdit>(*console.window, u"log"_s);
    QVERIFY(console.show());
    console.window->set_focus();
    QVERIFY(console.outside->hasFocus());
}

void TstCommandWindow::command_and_index_come_from_the_working_page()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    add<QPlainTextEdit>(window, u"log"_s);
    page->printPrompt();
    page->setCurrentCommand(u"brick x 10"_s);
    QTextCursor caret = page->textCursor();
    caret.setPosition(int(page->prompt().size()) + 5);
    page->setTextCursor(caret);
    tabs(window)->setCurrentIndex(1);
    QString command = u"before"_s;
    int index = -7;
    window.current_command_and_index(command, index);
    QCOMPARE(command, u"brick x 10"_s);
    QCOMPARE(index, 5);
}

// Modes

void TstCommandWindow::click_asks_for_a_mode_data()
{
    QTest::addColumn<bool>("python_mode");
    QTest::addColumn<bool>("click_python");
    QTest::addColumn<QList<bool>>("asked");
    QTest::addColumn<bool>("fennar_checked");
    QTest::addColumn<bool>("python_checked");
    QTest::newRow("from command to python mode") << false << true << QList{true} << false << true;
    QTest::newRow("from python to command mode") << true << false << QList{false} << true << false;
    QTest::newRow("command mode again leaves none checked")
        << false << false << QList<bool>() << false << false;
    QTest::newRow("python mode again leaves none checked") << true << true << QList<bool>() << false << false;
}

void TstCommandWindow::click_asks_for_a_mode()
{
    QFETCH(const bool, python_mode);
    QFETCH(const bool, click_python);
    QFETCH(const QList<bool>, asked);
    QFETCH(const bool, fennar_checked);
    QFETCH(const bool, python_checked);
    CommandWindow window;
    HostDouble::instance().python_mode = python_mode;
    window.set_python_mode(python_mode);
    QList<bool> requests;
    connect(&window, &CommandWindow::commandModeChanged, this, [&](bool python) { requests << python; });
    QPushButton* clicked = click_python ? python_button(window) : fennar_button(window);
    QTest::mouseClick(clicked, Qt::LeftButton);
    QCOMPARE(requests, asked);
    QCOMPARE(fennar_button(window)->isChecked(), fennar_checked);
    QCOMPARE(python_button(window)->isChecked(), python_checked);
    // One slot ran, once: the other button changed in silence.
    QCOMPARE(HostDouble::instance().take_calls(),
             QStringList{u"FennarInterface::command_is_python_mode()"_s});
}

void TstCommandWindow::shortcut_clicks_the_button_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("python_mode");
    QTest::addColumn<QList<bool>>("asked");
    QTest::newRow("Alt+P in command mode") << int(Qt::Key_P) << false << QList{true};
    QTest::newRow("Alt+C in python mode") << int(Qt::Key_C) << true << QList{false};
    QTest::newRow("Alt+C in command mode") << int(Qt::Key_C) << false << QList<bool>();
    QTest::newRow("Alt+P in python mode") << int(Qt::Key_P) << true << QList<bool>();
}

void TstCommandWindow::shortcut_clicks_the_button()
{
    QFETCH(const int, key);
    QFETCH(const bool, python_mode);
    QFETCH(const QList<bool>, asked);
    ShownConsole console;
    HostDouble::instance().python_mode = python_mode;
    console.window->set_python_mode(python_mode);
    QVERIFY(console.show());
    const QSignalSpy fennar(fennar_button(*console.window), &QPushButton::clicked);
    const QSignalSpy python(python_button(*console.window), &QPushButton::clicked);
    QList<bool> requests;
    connect(console.window, &CommandWindow::commandModeChanged, this,
            [&](bool is_python) { requests << is_python; });
    QTest::keyClick(console.outside, Qt::Key(key), Qt::AltModifier);
    QCOMPARE(fennar.size(), key == Qt::Key_C ? 1 : 0);
    QCOMPARE(python.size(), key == Qt::Key_P ? 1 : 0);
    QCOMPARE(requests, asked);
}

void TstCommandWindow::shortcut_works_while_a_page_has_the_focus()
{
    ShownConsole console;
    auto* page = add<CommandWidget>(*console.window, u"page"_s);
    QVERIFY(console.show());
    page->setFocus();
    QVERIFY(page->hasFocus());
    const QSignalSpy python(python_button(*console.window), &QPushButton::clicked);
    QTest::keyClick(page, Qt::Key_P, Qt::AltModifier);
    QCOMPARE(python.size(), 1);
    QCOMPARE(page->toPlainText(), QString());
}

void TstCommandWindow::mode_slot_runs_on_a_toggle_in_either_direction_data()
{
    QTest::addColumn<bool>("python_button_toggled");
    QTest::addColumn<bool>("checked_before");
    QTest::newRow("command button checked") << false << false;
    QTest::newRow("command button unchecked") << false << true;
    QTest::newRow("python button checked") << true << false;
    QTest::newRow("python button unchecked") << true << true;
}

void TstCommandWindow::mode_slot_runs_on_a_toggle_in_either_direction()
{
    QFETCH(const bool, python_button_toggled);
    QFETCH(const bool, checked_before);
    CommandWindow window;
    // The host is in the other mode each time, so a run of the slot shows in the signal.
    HostDouble::instance().python_mode = !python_button_toggled;
    QPushButton* button = python_button_toggled ? python_button(window) : fennar_button(window);
    {
        const QSignalBlocker blocker(button);
        button->setChecked(checked_before);
    }
    const QSignalSpy asked(&window, &CommandWindow::commandModeChanged);
    button->setChecked(!checked_before);
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked[0][0].toBool(), python_button_toggled);
}

void TstCommandWindow::mode_slot_called_directly_unchecks_the_other_button_only_data()
{
    QTest::addColumn<bool>("ask_python");
    QTest::addColumn<bool>("host_python");
    QTest::newRow("command mode asked in python mode") << false << true;
    QTest::newRow("command mode asked in command mode") << false << false;
    QTest::newRow("python mode asked in command mode") << true << false;
    QTest::newRow("python mode asked in python mode") << true << true;
}

void TstCommandWindow::mode_slot_called_directly_unchecks_the_other_button_only()
{
    QFETCH(const bool, ask_python);
    QFETCH(const bool, host_python);
    CommandWindow window;
    HostDouble::instance().python_mode = host_python;
    for (QPushButton* button : {fennar_button(window), python_button(window)}) {
        const QSignalBlocker blocker(button);
        button->setChecked(true);
    }
    const QSignalSpy asked(&window, &CommandWindow::commandModeChanged);
    const QSignalSpy fennar_toggled(fennar_button(window), &QPushButton::toggled);
    const QSignalSpy python_toggled(python_button(window), &QPushButton::toggled);
    if (ask_python)
        window.python_mode_pushed();
    else
        window.fennar_mode_pushed();
    const bool change = ask_python != host_python;
    QCOMPARE(asked.size(), change ? 1 : 0);
    QCOMPARE(fennar_button(window)->isChecked(), !(change && ask_python));
    QCOMPARE(python_button(window)->isChecked(), !(change && !ask_python));
    QCOMPARE(fennar_toggled.size() + python_toggled.size(), 0);
}

void TstCommandWindow::other_button_is_unchecked_before_the_signal()
{
    CommandWindow window;
    QList<bool> seen;
    connect(&window, &CommandWindow::commandModeChanged, this,
            [&] { seen << fennar_button(window)->isChecked() << python_button(window)->isChecked(); });
    python_button(window)->click();
    QCOMPARE(seen, (QList{false, true}));
    seen.clear();
    HostDouble::instance().python_mode = true;
    fennar_button(window)->click();
    QCOMPARE(seen, (QList{true, false}));
}

void TstCommandWindow::mode_slot_selects_the_first_command_tab_data()
{
    QTest::addColumn<bool>("ask_python");
    QTest::addColumn<bool>("host_python");
    QTest::newRow("command mode, a change") << false << true;
    QTest::newRow("command mode, no change") << false << false;
    QTest::newRow("python mode, a change") << true << false;
    QTest::newRow("python mode, no change") << true << true;
}

void TstCommandWindow::mode_slot_selects_the_first_command_tab()
{
    QFETCH(const bool, ask_python);
    QFETCH(const bool, host_python);
    HostDouble::instance().python_mode = host_python;
    CommandWindow window;
    add<QPlainTextEdit>(window, u"log"_s);
    auto* first = add<CommandWidget>(window, u"first"_s);
    add<CommandWidget>(window, u"second"_s);
    add<QWidget>(window, u"plain"_s);
    QWidget* current_at_signal = nullptr;
    connect(&window, &CommandWindow::commandModeChanged, this,
            [&] { current_at_signal = tabs(window)->currentWidget(); });
    for (const int index : {0, 2, 3}) {
        tabs(window)->setCurrentIndex(index);
        if (ask_python)
            window.python_mode_pushed();
        else
            window.fennar_mode_pushed();
        QCOMPARE(tabs(window)->currentWidget(), first);
        QCOMPARE(working_page(window), first);
    }
    QCOMPARE(current_at_signal, ask_python != host_python ? first : nullptr);
}

void TstCommandWindow::mode_slot_without_command_tab_keeps_the_tab()
{
    CommandWindow window;
    const QSignalSpy asked(&window, &CommandWindow::commandModeChanged);
    window.python_mode_pushed();
    add<QPlainTextEdit>(window, u"log"_s);
    auto* plain = add<QWidget>(window, u"plain"_s);
    tabs(window)->setCurrentWidget(plain);
    window.python_mode_pushed();
    HostDouble::instance().python_mode = true;
    window.fennar_mode_pushed();
    QCOMPARE(tabs(window)->currentWidget(), plain);
    QCOMPARE(asked.size(), 3);
}

void TstCommandWindow::python_mode_sets_all_prompts_and_both_buttons()
{
    CommandWindow window;
    const auto* one = add<CommandWidget>(window, u"one"_s);
    add<QPlainTextEdit>(window, u"log"_s);
    const auto* two = add<CommandWidget>(window, u"two"_s);
    window.set_python_mode(true);
    QCOMPARE(one->prompt(), u">>>"_s);
    QCOMPARE(two->prompt(), u">>>"_s);
    QVERIFY(!fennar_button(window)->isChecked());
    QVERIFY(python_button(window)->isChecked());
    window.set_python_mode(false);
    QCOMPARE(one->prompt(), u"Fennar>"_s);
    QCOMPARE(two->prompt(), u"Fennar>"_s);
    QVERIFY(fennar_button(window)->isChecked());
    QVERIFY(!python_button(window)->isChecked());
}

void TstCommandWindow::python_mode_sets_the_continuation_prompt_too()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    page->setPrompt(u"a>"_s, u"more>"_s);
    window.set_python_mode(true);
    page->printPrompt(true);
    QCOMPARE(page->toPlainText(), u">>>"_s);
}

void TstCommandWindow::python_mode_runs_no_slot_and_emits_nothing()
{
    CommandWindow window;
    add<QPlainTextEdit>(window, u"log"_s);
    add<CommandWidget>(window, u"page"_s);
    tabs(window)->setCurrentIndex(0);
    const QSignalSpy asked(&window, &CommandWindow::commandModeChanged);
    const QSignalSpy fennar(fennar_button(window), &QPushButton::toggled);
    const QSignalSpy python(python_button(window), &QPushButton::toggled);
    window.set_python_mode(true);
    window.set_python_mode(false);
    QCOMPARE(asked.size() + fennar.size() + python.size(), 0);
    QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    QCOMPARE(tabs(window)->currentIndex(), 0);
    QVERIFY(!fennar_button(window)->signalsBlocked());
    QVERIFY(!python_button(window)->signalsBlocked());
}

void TstCommandWindow::python_mode_twice_changes_the_prompts_once()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    window.set_python_mode(true);
    page->setPrompt(u"own>"_s);
    window.set_python_mode(true);
    QCOMPARE(page->prompt(), u"own>"_s);
}

void TstCommandWindow::first_call_with_command_mode_leaves_the_prompts()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    page->setPrompt(u"own>"_s);
    window.set_python_mode(false);
    QCOMPARE(page->prompt(), u"own>"_s);
}

void TstCommandWindow::mode_change_loses_the_half_typed_command()
{
    CommandWindow window;
    auto* page = add<CommandWidget>(window, u"page"_s);
    page->printPrompt();
    page->setCurrentCommand(u"half a comm"_s);
    window.set_python_mode(true);
    QCOMPARE(page->toPlainText(), u">>>"_s);
    QCOMPARE(page->currentCommand(), QString());
}

void TstCommandWindow::mode_round_trip_with_an_owner()
{
    CommandWindow window;
    const auto* page = add<CommandWidget>(window, u"page"_s);
    connect(&window, &CommandWindow::commandModeChanged, this, [&](bool python) {
        HostDouble::instance().python_mode = python;
        window.set_python_mode(python);
    });
    python_button(window)->click();
    QCOMPARE(page->prompt(), u">>>"_s);
    QVERIFY(!fennar_button(window)->isChecked());
    QVERIFY(python_button(window)->isChecked());
    fennar_button(window)->click();
    QCOMPARE(page->prompt(), u"Fennar>"_s);
    QVERIFY(fennar_button(window)->isChecked());
    QVERIFY(!python_button(window)->isChecked());
}

void TstCommandWindow::unchecked_buttons_stay_so_until_the_mode_really_changes()
{
    CommandWindow window;
    fennar_button(window)->click();
    window.set_python_mode(false);
    QVERIFY(!fennar_button(window)->isChecked());
    QVERIFY(!python_button(window)->isChecked());
    window.set_python_mode(true);
    QVERIFY(!fennar_button(window)->isChecked());
    QVERIFY(python_button(window)->isChecked());
}

OSTREL_TEST(TstCommandWindow)
#include "tst_commandwindow.moc"
