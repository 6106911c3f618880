// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/windows.h"
#include "workbench/host/navigation/NavigationNode.h"
#include "workbench/host/navigation/navigation_helpers.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The panel of rows of buttons, and the form of a command, which both panels share. */
class TstCommandButtonPanel : public TestCase
{
    Q_OBJECT

private slots:
    void default_button_width_is_36();
    void buttons_have_at_least_the_width_given_when_built();
    void senseless_widths_are_corrected_data();
    void senseless_widths_are_corrected();
    void pictures_grow_with_the_buttons();

    void first_row_shows_the_pages();
    void button_opens_the_next_row();
    void path_is_marked_by_buttons_that_are_down();
    void button_of_the_path_goes_back_to_it();
    void button_of_the_place_stays_down();
    void given_root_is_where_the_rows_begin();
    void null_model_shows_nothing();
    void model_without_entries_says_so();
    void index_of_another_model_is_ignored();
    void root_index_is_the_one_given();

    void entries_added_later_appear();
    void entries_removed_vanish();
    void texts_follow_the_model();
    void sorted_model_reorders_the_buttons();
    void deleted_model_empties_the_panel();
    void click_on_a_removed_entry_does_nothing();
    void hidden_panel_catches_up_when_shown();
    void hidden_panel_builds_nothing();
    void button_keeps_the_keyboard_while_the_model_changes();
    void place_goes_from_panel_to_panel();
    void random_changes_leave_what_the_model_says();

    void title_picture_and_tip_are_on_the_button();
    void tip_is_plain_text();
    void ampersand_is_shown();
    void long_title_is_broken_into_two_lines();
    void button_has_accessible_texts();

    void command_shows_its_form();
    void group_shows_no_form();
    void tip_and_usage_are_left_out_if_empty();
    void line_starts_with_the_command_data();
    void line_starts_with_the_command();
    void apply_sends_the_line();
    void return_sends_the_line();
    void apply_is_off_while_the_line_is_blank();
    void without_sink_nothing_happens();
    void sink_may_delete_the_panel();
    void sink_may_replace_itself();
    void typed_line_survives_changes_of_the_model();
    void typed_line_gives_way_to_another_command();
    void chosen_command_takes_the_keyboard();
    void form_is_scrolled_into_view();

    void arrow_keys_go_from_button_to_button();
    void space_presses_the_button();
    void tab_goes_through_rows_in_order_and_then_to_the_form();

    void nothing_is_wider_than_a_narrow_dock();
    void size_hint_suits_a_dock();

protected:
    void set_up() override;
    void tear_down() override;

private:
    void show(const QString& place = {});
    NavigationModel& model() { return *mModel; }
    CommandButtonPanel& panel() { return *mPanel; }
    QLineEdit* line() { return mPanel->findChild<QLineEdit*>(u"commandLine"_s); }
    QPushButton* apply() { return mPanel->findChild<QPushButton*>(u"applyButton"_s); }
    QString place() { return mPanel->current_index().data().toString(); }

    std::unique_ptr<NavigationModel> mModel;
    std::unique_ptr<CommandButtonPanel> mPanel;
    QStringList mSent;
};

void TstCommandButtonPanel::set_up()
{
    mSent.clear();
    set_command_sink([this](const QString& line) { mSent << line; });
    // Run > (Scripts > (Play, Python), Quit), Ask > Help
    mModel = std::make_unique<NavigationModel>(nullptr);
    QStandardItem* run = add_page(*mModel, u"Run"_s);
    QStandardItem* scripts = add_group(run, u"Scripts"_s);
    add_command(scripts, u"Play"_s, u"play"_s)->setData(u"play FILE"_s, NavigationRole::Usage);
    add_command(scripts, u"Python"_s, u"python"_s);
    add_command(run, u"Quit"_s, u"quit"_s);
    QStandardItem* ask = add_page(*mModel, u"Ask"_s);
    QStandardItem* help = add_command(ask, u"Help"_s, u"help"_s);
    help->setData(u"Lists all commands."_s, NavigationRole::Tip);
    help->setData(u"help [COMMAND]"_s, NavigationRole::Usage);
    mPanel = std::make_unique<CommandButtonPanel>(nullptr);
    mPanel->set_model(mModel.get(), {});
}

void TstCommandButtonPanel::tear_down()
{
    mPanel.reset();
    mModel.reset();
    set_command_sink({});
}

void TstCommandButtonPanel::show(const QString& place)
{
    panel().resize(240, 400);
    QVERIFY(show_active(&panel()));
    if (!place.isEmpty()) {
        const QModelIndex index = entry(model(), place);
        QVERIFY(index.isValid());
        panel().set_current_index(index);
    }
}

void TstCommandButtonPanel::default_button_width_is_36()
{
    QCOMPARE(CommandButtons::mPanelButtonWidth, 36);
}

void TstCommandButtonPanel::buttons_have_at_least_the_width_given_when_built()
{
    const auto reset = qScopeGuard([] { CommandButtons::mPanelButtonWidth = 36; });
    CommandButtons::mPanelButtonWidth = 100;
    mPanel = std::make_unique<CommandButtonPanel>(nullptr);
    CommandButtons::mPanelButtonWidth = 50;
    mPanel->set_model(mModel.get(), {});
    show();
    QVERIFY(!entry_buttons(panel()).isEmpty());
    for (const EntryButton* button : entry_buttons(panel()))
        QTRY_COMPARE(button->width(), 100);
}

void TstCommandButtonPanel::senseless_widths_are_corrected_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("minimum");
    QTest::newRow("negative") << -1 << 28;
    QTest::newRow("zero") << 0 << 28;
    QTest::newRow("largest number") << std::numeric_limits<int>::max() << 160;
}

void TstCommandButtonPanel::senseless_widths_are_corrected()
{
    QFETCH(const int, width);
    QFETCH(const int, minimum);
    const auto reset = qScopeGuard([] { CommandButtons::mPanelButtonWidth = 36; });
    CommandButtons::mPanelButtonWidth = width;
    mPanel = std::make_unique<CommandButtonPanel>(nullptr);
    mPanel->set_model(mModel.get(), {});
    show();
    QCOMPARE(entry_buttons(panel()).size(), 2);
    QCOMPARE(entry_buttons(panel()).first()->minimumWidth(), minimum);
}

void TstCommandButtonPanel::pictures_grow_with_the_buttons()
{
    show();
    QCOMPARE(entry_buttons(panel()).first()->iconSize(), QSize(24, 24));
    const auto reset = qScopeGuard([] { CommandButtons::mPanelButtonWidth = 36; });
    CommandButtons::mPanelButtonWidth = 60;
    mPanel = std::make_unique<CommandButtonPanel>(nullptr);
    mPanel->set_model(mModel.get(), {});
    show();
    QCOMPARE(entry_buttons(panel()).first()->iconSize(), QSize(48, 48));
}

void TstCommandButtonPanel::first_row_shows_the_pages()
{
    show();
    QCOMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s}));
    QCOMPARE(chosen_titles(panel()), QStringList());
    QVERIFY(!panel().current_index().isValid());
}

void TstCommandButtonPanel::button_opens_the_next_row()
{
    show();
    entry_button(panel(), u"Run"_s)->click();
    QCOMPARE(place(), u"Run"_s);
    QCOMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s, u"Scripts"_s, u"Quit"_s}));
    entry_button(panel(), u"Scripts"_s)->click();
    QCOMPARE(place(), u"Scripts"_s);
    QCOMPARE(entry_titles(panel()),
             (QStringList{u"Run"_s, u"Ask"_s, u"Scripts"_s, u"Quit"_s, u"Play"_s, u"Python"_s}));
}

void TstCommandButtonPanel::path_is_marked_by_buttons_that_are_down()
{
    show(u"Python"_s);
    QCOMPARE(chosen_titles(panel()), (QStringList{u"Run"_s, u"Scripts"_s, u"Python"_s}));
    entry_button(panel(), u"Ask"_s)->click();
    QCOMPARE(chosen_titles(panel()), QStringList{u"Ask"_s});
    QCOMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s, u"Help"_s}));
}

void TstCommandButtonPanel::button_of_the_path_goes_back_to_it()
{
    show(u"Python"_s);
    entry_button(panel(), u"Run"_s)->click();
    QCOMPARE(place(), u"Run"_s);
    QCOMPARE(chosen_titles(panel()), QStringList{u"Run"_s});
}

void TstCommandButtonPanel::button_of_the_place_stays_down()
{
    show(u"Run"_s);
    entry_button(panel(), u"Run"_s)->click();
    QCOMPARE(place(), u"Run"_s);
    QCOMPARE(chosen_titles(panel()), QStringList{u"Run"_s});
}

void TstCommandButtonPanel::given_root_is_where_the_rows_begin()
{
    panel().set_model(&model(), entry(model(), u"Run"_s));
    show();
    QCOMPARE(entry_titles(panel()), (QStringList{u"Scripts"_s, u"Quit"_s}));
    panel().set_current_index(entry(model(), u"Play"_s));
    QCOMPARE(chosen_titles(panel()), (QStringList{u"Scripts"_s, u"Play"_s}));
}

void TstCommandButtonPanel::null_model_shows_nothing()
{
    show(u"Help"_s);
    panel().set_model(nullptr, {});
    QCOMPARE(entry_titles(panel()), QStringList());
    QVERIFY(!panel().current_index().isValid());
    QVERIFY(!line()->isVisible());
}

void TstCommandButtonPanel::model_without_entries_says_so()
{
    show();
    auto* nothing = panel().findChild<QLabel*>(u"nothingLabel"_s);
    QVERIFY(!nothing->isVisible());
    model().clear();
    QTRY_VERIFY(nothing->isVisible());
    QCOMPARE(nothing->text(), u"There are no commands."_s);
}

void TstCommandButtonPanel::index_of_another_model_is_ignored()
{
    NavigationModel other(nullptr);
    add_command(add_page(other, u"P"_s), u"C"_s, u"c"_s);
    show(u"Run"_s);
    panel().set_current_index(other.index(0, 0));
    QCOMPARE(place(), u"Run"_s);
}

void TstCommandButtonPanel::root_index_is_the_one_given()
{
    QVERIFY(!panel().root_index().isValid());
    panel().set_model(&model(), entry(model(), u"Run"_s));
    QCOMPARE(panel().root_index(), entry(model(), u"Run"_s));
}

void TstCommandButtonPanel::entries_added_later_appear()
{
    NavigationModel later(nullptr);
    panel().set_model(&later, {});
    show();
    QCOMPARE(entry_titles(panel()), QStringList());
    add_command(add_page(later, u"P"_s), u"C"_s, u"c"_s);
    QTRY_COMPARE(entry_titles(panel()), QStringList{u"P"_s});
}

void TstCommandButtonPanel::entries_removed_vanish()
{
    show(u"Python"_s);
    model().removeRow(0, entry(model(), u"Run"_s));
    QCOMPARE(place(), u"Run"_s);
    QTRY_COMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s, u"Quit"_s}));
    QVERIFY(!line()->isVisible());
}

void TstCommandButtonPanel::texts_follow_the_model()
{
    show(u"Help"_s);
    model().itemFromIndex(entry(model(), u"Help"_s))->setText(u"Assistance"_s);
    QTRY_COMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s, u"Assistance"_s}));
    QCOMPARE(panel().findChild<QLabel*>(u"commandTitle"_s)->text(), u"Assistance"_s);
}

void TstCommandButtonPanel::sorted_model_reorders_the_buttons()
{
    show();
    model().sort(0);
    QTRY_COMPARE(entry_titles(panel()), (QStringList{u"Ask"_s, u"Run"_s}));
    QTRY_VERIFY(entry_button(panel(), u"Ask"_s)->x() < entry_button(panel(), u"Run"_s)->x());
}

void TstCommandButtonPanel::deleted_model_empties_the_panel()
{
    show(u"Help"_s);
    mModel.reset();
    QVERIFY(!panel().current_index().isValid());
    QTRY_COMPARE(entry_titles(panel()), QStringList());
    QVERIFY(!line()->isVisible());
}

void TstCommandButtonPanel::click_on_a_removed_entry_does_nothing()
{
    show(u"Help"_s);
    EntryButton* run = entry_button(panel(), u"Run"_s);
    model().removeRow(0);
    // The button is still there: the panel has had no turn to refresh.
    QVERIFY(run->isVisible());
    run->click();
    QCOMPARE(place(), u"Help"_s);
}

void TstCommandButtonPanel::hidden_panel_catches_up_when_shown()
{
    show(u"Help"_s);
    panel().hide();
    panel().set_current_index(entry(model(), u"Play"_s));
    model().removeRow(1);
    QCOMPARE(place(), u"Play"_s);
    QVERIFY(show_active(&panel()));
    QCOMPARE(chosen_titles(panel()), (QStringList{u"Run"_s, u"Scripts"_s, u"Play"_s}));
    QCOMPARE(entry_titles(panel()).first(), u"Run"_s);
    QVERIFY(!entry_titles(panel()).contains(u"Ask"_s));
}

void TstCommandButtonPanel::hidden_panel_builds_nothing()
{
    panel().set_current_index(entry(model(), u"Play"_s));
    add_page(model(), u"New"_s);
    QCoreApplication::processEvents();
    QVERIFY(panel().findChildren<EntryButton*>().isEmpty());
}

void TstCommandButtonPanel::button_keeps_the_keyboard_while_the_model_changes()
{
    show(u"Run"_s);
    EntryButton* quit = entry_button(panel(), u"Quit"_s);
    quit->setFocus();
    QVERIFY(quit->hasFocus());
    QStandardItem* run = model().item(0);
    run->insertRow(0, new NavigationNode(NavigationKind::Command, u"New"_s));
    run->removeRow(1);
    QTRY_COMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s, u"New"_s, u"Quit"_s}));
    QVERIFY(quit->hasFocus());
    QCOMPARE(entry_button(panel(), u"Quit"_s), quit);
}

void TstCommandButtonPanel::place_goes_from_panel_to_panel()
{
    show(u"Play"_s);
    BreadcrumbsPanel crumbs(nullptr);
    crumbs.set_model(&model(), {});
    crumbs.set_current_index(panel().current_index());
    QCOMPARE(crumbs.current_index(), entry(model(), u"Play"_s));
    CommandButtonPanel rows(nullptr);
    rows.set_model(&model(), {});
    rows.set_current_index(crumbs.current_index());
    QCOMPARE(rows.current_index(), entry(model(), u"Play"_s));
}

namespace {

/** A plain picture of the model, to compare with. */
struct Plain
{
    QString title;
    bool command = false;
    bool enabled = true;
    Plain* parent = nullptr;
    std::vector<std::unique_ptr<Plain>> children;

    bool shown() const
    {
        if (!enabled || command)
            return enabled;
        return std::ranges::any_of(children, [](const auto& child) { return child->shown(); });
    }
    int row() const
    {
        for (size_t at = 0; parent && at < parent->children.size(); ++at)
            if (parent->children[at].get() == this)
                return static_cast<int>(at);
        return -1;
    }
};

QStandardItem* item_of(NavigationModel& model, const Plain* plain)
{
    return plain->parent ? item_of(model, plain->parent)->child(plain->row()) : model.invisibleRootItem();
}

} // namespace

void TstCommandButtonPanel::random_changes_leave_what_the_model_says()
{
    QRandomGenerator random(random_seed());
    NavigationModel changing(nullptr);
    panel().set_model(&changing, {});
    show();

    Plain root;
    Plain* at = &root;
    int number = 0;
    std::vector<Plain*> all = {&root};
    const auto any = [&] { return all[random.bounded(static_cast<quint32>(all.size()))]; };
    for (int step = 0; step < 400; ++step) {
        Plain* chosen = any();
        const quint32 dice = random.bounded(10U);
        if (dice < 5 && !chosen->command) {
            auto added = std::make_unique<Plain>();
            added->title = QString::number(number++);
            added->command = random.bounded(2U) == 1 && chosen != &root;
            added->parent = chosen;
            const auto row = random.bounded(static_cast<quint32>(chosen->children.size()) + 1);
            QStandardItem* parent = item_of(changing, chosen);
            parent->insertRow(
                static_cast<int>(row),
                new NavigationNode(added->command ? NavigationKind::Command : NavigationKind::Group,
                                   added->title));
            all.push_back(added.get());
            chosen->children.insert(chosen->children.begin() + row, std::move(added));
        } else if (dice < 6 && chosen != &root) {
            for (const Plain* above = at; above; above = above->parent)
                if (above == chosen)
                    at = chosen->parent;
            std::erase_if(all, [chosen](const Plain* each) {
                for (; each; each = each->parent)
                    if (each == chosen)
                        return true;
                return false;
            });
            const int row = chosen->row();
            item_of(changing, chosen->parent)->removeRow(row);
            chosen->parent->children.erase(chosen->parent->children.begin() + row);
        } else if (dice < 7 && chosen != &root) {
            item_of(changing, chosen)->setEnabled(!chosen->enabled);
            chosen->enabled = !chosen->enabled;
        } else if (dice >= 7) {
            panel().set_current_index(chosen == &root ? QModelIndex() : item_of(changing, chosen)->index());
            at = chosen;
        }

        QList<Plain*> path;
        for (Plain* above = at; above != &root; above = above->parent)
            path.prepend(above);
        while (std::ranges::any_of(path, [](const Plain* each) { return !each->shown(); }))
            path.removeLast();
        QCOMPARE(place(), path.isEmpty() ? QString() : path.last()->title);

        QStringList titles;
        QStringList down;
        path.prepend(&root);
        for (qsizetype level = 0; level < path.size(); ++level)
            for (const auto& child : path[level]->children)
                if (child->shown()) {
                    titles << child->title;
                    if (path.value(level + 1) == child.get())
                        down << child->title;
                }
        QCoreApplication::processEvents();
        QCOMPARE(entry_titles(panel()), titles);
        QCOMPARE(chosen_titles(panel()), down);
    }
    panel().set_model(nullptr, {});
}

void TstCommandButtonPanel::title_picture_and_tip_are_on_the_button()
{
    QPixmap red(24, 24);
    red.fill(Qt::red);
    model().item(0)->setIcon(red);
    model().item(0)->setData(u"Run things."_s, NavigationRole::Tip);
    show();
    const EntryButton* run = entry_button(panel(), u"Run"_s);
    QCOMPARE(run->text(), u"Run"_s);
    QCOMPARE(run->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QCOMPARE(run->icon().pixmap(24, 24).toImage().pixelColor(12, 12), QColor(Qt::red));
    QCOMPARE(run->toolTip(), u"<qt><b>Run</b><br/>Run things.</qt>"_s);
    QCOMPARE(entry_button(panel(), u"Ask"_s)->toolTip(), u"<qt><b>Ask</b></qt>"_s);
}

void TstCommandButtonPanel::tip_is_plain_text()
{
    model().item(0)->setText(u"a<b"_s);
    model().item(0)->setData(u"<b>&"_s, NavigationRole::Tip);
    show();
    QCOMPARE(entry_button(panel(), u"a<b"_s)->toolTip(), u"<qt><b>a&lt;b</b><br/>&lt;b&gt;&amp;</qt>"_s);
}

void TstCommandButtonPanel::ampersand_is_shown()
{
    model().item(0)->setText(u"A&B"_s);
    show();
    QCOMPARE(entry_button(panel(), u"A&B"_s)->text(), u"A&&B"_s);
}

void TstCommandButtonPanel::long_title_is_broken_into_two_lines()
{
    model().item(0)->setText(u"Import and translate"_s);
    model().item(1)->setText(u"Wordwithoutblank"_s);
    show();
    QCOMPARE(entry_button(panel(), u"Import and translate"_s)->text(), u"Import and\ntranslate"_s);
    QCOMPARE(entry_button(panel(), u"Wordwithoutblank"_s)->text(), u"Wordwithoutblank"_s);
}

void TstCommandButtonPanel::button_has_accessible_texts()
{
    model().item(0)->setText(u"Import and translate"_s);
    model().item(0)->setData(u"tip"_s, NavigationRole::Tip);
    show(u"Help"_s);
    const EntryButton* button = entry_button(panel(), u"Import and translate"_s);
    QVERIFY(button);
    QCOMPARE(button->accessibleDescription(), u"tip"_s);
    QCOMPARE(line()->accessibleName(), u"Command line"_s);
    QCOMPARE(apply()->accessibleName(), u"Apply Help"_s);
}

void TstCommandButtonPanel::command_shows_its_form()
{
    show();
    QVERIFY(!line()->isVisible());
    entry_button(panel(), u"Ask"_s)->click();
    entry_button(panel(), u"Help"_s)->click();
    QCOMPARE(place(), u"Help"_s);
    QVERIFY(line()->isVisible());
    QCOMPARE(panel().findChild<QLabel*>(u"commandTitle"_s)->text(), u"Help"_s);
    QCOMPARE(panel().findChild<QLabel*>(u"commandTip"_s)->text(), u"Lists all commands."_s);
    QCOMPARE(panel().findChild<QLabel*>(u"commandUsage"_s)->text(), u"help [COMMAND]"_s);
    QCOMPARE(apply()->text(), u"Apply"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandButtonPanel::group_shows_no_form()
{
    show(u"Play"_s);
    QVERIFY(line()->isVisible());
    panel().set_current_index(entry(model(), u"Scripts"_s));
    QVERIFY(!line()->isVisible());
    QVERIFY(!apply()->isVisible());
}

void TstCommandButtonPanel::tip_and_usage_are_left_out_if_empty()
{
    show(u"Help"_s);
    QVERIFY(panel().findChild<QLabel*>(u"commandTip"_s)->isVisible());
    QVERIFY(panel().findChild<QLabel*>(u"commandUsage"_s)->isVisible());
    panel().set_current_index(entry(model(), u"Quit"_s));
    QVERIFY(!panel().findChild<QLabel*>(u"commandTip"_s)->isVisible());
    QVERIFY(!panel().findChild<QLabel*>(u"commandUsage"_s)->isVisible());
}

void TstCommandButtonPanel::line_starts_with_the_command_data()
{
    QTest::addColumn<QString>("usage");
    QTest::addColumn<QString>("expected");
    QTest::newRow("usage goes on: ready for more") << u"quit [NOW]"_s << u"quit "_s;
    QTest::newRow("usage is the command") << u"quit"_s << u"quit"_s;
    QTest::newRow("no usage") << QString() << u"quit"_s;
    QTest::newRow("usage of something else") << u"leave [NOW]"_s << u"quit"_s;
}

void TstCommandButtonPanel::line_starts_with_the_command()
{
    QFETCH(const QString, usage);
    QFETCH(const QString, expected);
    model().itemFromIndex(entry(model(), u"Quit"_s))->setData(usage, NavigationRole::Usage);
    show(u"Quit"_s);
    QCOMPARE(line()->text(), expected);
}

void TstCommandButtonPanel::apply_sends_the_line()
{
    show(u"Help"_s);
    line()->setText(u"help echo "_s);
    QTest::mouseClick(apply(), Qt::LeftButton);
    QCOMPARE(mSent, QStringList{u"help echo "_s});
    QCOMPARE(line()->text(), u"help echo "_s);
    QTest::mouseClick(apply(), Qt::LeftButton);
    QCOMPARE(mSent.size(), 2);
}

void TstCommandButtonPanel::return_sends_the_line()
{
    show(u"Quit"_s);
    line()->setFocus();
    QTest::keyClick(&panel(), Qt::Key_Return);
    QVERIFY(mSent.isEmpty()); // the panel itself takes no keys
    QTest::keyClick(line(), Qt::Key_Return);
    QCOMPARE(mSent, QStringList{u"quit"_s});
}

void TstCommandButtonPanel::apply_is_off_while_the_line_is_blank()
{
    show(u"Help"_s);
    QVERIFY(apply()->isEnabled());
    for (const QString& blank : {QString(), u"  "_s}) {
        line()->setText(blank);
        QVERIFY(!apply()->isEnabled());
        QTest::keyClick(line(), Qt::Key_Return);
        QVERIFY(mSent.isEmpty());
    }
    line()->setText(u"x"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandButtonPanel::without_sink_nothing_happens()
{
    set_command_sink({});
    show(u"Help"_s);
    apply()->click();
    QVERIFY(mSent.isEmpty());
    QCOMPARE(place(), u"Help"_s);
}

void TstCommandButtonPanel::sink_may_delete_the_panel()
{
    QString sent;
    set_command_sink([this, &sent](const QString& line) {
        mPanel.reset();
        mModel.reset();
        sent = line;
    });
    show(u"Quit"_s);
    apply()->click();
    QVERIFY(!mPanel);
    QCOMPARE(sent, u"quit"_s);
}

void TstCommandButtonPanel::sink_may_replace_itself()
{
    QStringList sent;
    set_command_sink([&sent, text = std::make_shared<QString>(u"first "_s)](const QString& line) {
        set_command_sink([&sent](const QString& next) { sent << u"second "_s + next; });
        // What the function has captured is still there.
        sent << *text + line;
    });
    show(u"Quit"_s);
    apply()->click();
    apply()->click();
    QCOMPARE(sent, (QStringList{u"first quit"_s, u"second quit"_s}));
}

void TstCommandButtonPanel::typed_line_survives_changes_of_the_model()
{
    show(u"Help"_s);
    line()->setText(u"help me"_s);
    model().itemFromIndex(entry(model(), u"Help"_s))->setText(u"Assistance"_s);
    add_command(model().item(1), u"New"_s, u"new"_s);
    QTRY_VERIFY(entry_button(panel(), u"New"_s));
    QCOMPARE(line()->text(), u"help me"_s);
    model().itemFromIndex(entry(model(), u"Assistance"_s))->setData(u"assist"_s, NavigationRole::Command);
    QTRY_COMPARE(line()->text(), u"assist"_s);
}

void TstCommandButtonPanel::typed_line_gives_way_to_another_command()
{
    show(u"Play"_s);
    line()->setText(u"play x"_s);
    panel().set_current_index(entry(model(), u"Python"_s));
    QCOMPARE(line()->text(), u"python"_s);
}

void TstCommandButtonPanel::chosen_command_takes_the_keyboard()
{
    show(u"Scripts"_s);
    entry_button(panel(), u"Play"_s)->click();
    QVERIFY(line()->hasFocus());
    QCOMPARE(line()->cursorPosition(), 5);
    QVERIFY(!line()->hasSelectedText());
}

void TstCommandButtonPanel::form_is_scrolled_into_view()
{
    show(u"Scripts"_s);
    panel().resize(200, 80);
    const auto* area = panel().findChild<QScrollArea*>();
    QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    entry_button(panel(), u"Play"_s)->click();
    const auto is_in_view = [area](const QWidget* control) {
        const QRect place(control->mapTo(area->viewport(), QPoint()), control->size());
        return area->viewport()->rect().contains(place);
    };
    QTRY_VERIFY(is_in_view(line()) && is_in_view(apply()));
}

void TstCommandButtonPanel::arrow_keys_go_from_button_to_button()
{
    show();
    entry_button(panel(), u"Run"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QVERIFY(entry_button(panel(), u"Ask"_s)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QVERIFY(entry_button(panel(), u"Run"_s)->hasFocus());
}

void TstCommandButtonPanel::space_presses_the_button()
{
    show();
    entry_button(panel(), u"Run"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(place(), u"Run"_s);
    QVERIFY(entry_button(panel(), u"Run"_s)->hasFocus());
}

void TstCommandButtonPanel::tab_goes_through_rows_in_order_and_then_to_the_form()
{
    show(u"Play"_s);
    // A button made late still takes its place in the row.
    model().item(0)->insertRow(0, new NavigationNode(NavigationKind::Command, u"New"_s));
    QTRY_VERIFY(entry_button(panel(), u"New"_s));
    entry_button(panel(), u"Run"_s)->setFocus();
    QStringList visited;
    for (int step = 0; step < 9; ++step) {
        const QWidget* at = QApplication::focusWidget();
        visited << (qobject_cast<const EntryButton*>(at) ? at->accessibleName() : at->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, (QStringList{u"Run"_s, u"Ask"_s, u"New"_s, u"Scripts"_s, u"Quit"_s, u"Play"_s,
                                   u"Python"_s, u"commandLine"_s, u"applyButton"_s}));
}

void TstCommandButtonPanel::nothing_is_wider_than_a_narrow_dock()
{
    QStandardItem* ask = model().item(1);
    ask->setText(u"A title that is much longer than any dock is wide, and then some"_s);
    QStandardItem* command = add_command(ask, QString(80, u'W'), QString(200, u'w'));
    command->setData(QString(90, u'W'), NavigationRole::Usage);
    command->setData(u"word "_s.repeated(50), NavigationRole::Tip);
    show();
    panel().set_current_index(command->index());
    for (const int width : {200, 120}) {
        panel().resize(width, 300);
        QTRY_COMPARE(panel().width(), width);
        const auto* area = panel().findChild<QScrollArea*>();
        QTRY_COMPARE(area->widget()->width(), area->viewport()->width());
        for (const QWidget* widget : area->widget()->findChildren<QWidget*>()) {
            if (!widget->isVisible())
                continue;
            const QRect place(widget->mapTo(area->widget(), QPoint()), widget->size());
            QVERIFY2(place.left() >= 0 && place.right() < area->widget()->width(),
                     widget->metaObject()->className());
        }
    }
}

void TstCommandButtonPanel::size_hint_suits_a_dock()
{
    QCOMPARE(panel().sizeHint(), QSize(240, 400));
    QVERIFY(panel().minimumSizeHint().width() <= 120);
}

OSTREL_TEST(TstCommandButtonPanel)

#include "tst_commandbuttonpanel.moc"
