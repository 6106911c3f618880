// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/NavigationModel.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/host/navigation/NavigationNode.h"
#include "workbench/host/navigation/navigation_helpers.h"
#include "workbench/sdk/core/commands/CommandSink.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The panel of one level and the way that led there. */
class TstBreadcrumbsPanel : public TestCase
{
    Q_OBJECT

private slots:
    void starts_at_the_root_with_small_icons();
    void entry_opens_its_level();
    void command_shows_its_form_instead_of_a_level();
    void crumbs_show_the_way();
    void crumb_goes_back();
    void last_crumb_stays_where_it_is();
    void crumb_of_the_given_root_has_its_title();
    void crumb_of_a_removed_entry_does_nothing();
    void long_crumb_is_shortened();
    void ampersand_in_a_crumb_is_shown();
    void large_icons_stand_above_their_titles();
    void icon_size_changes_at_once();
    void icon_size_can_be_set_before_the_model();
    void null_model_shows_nothing();
    void index_of_another_model_is_ignored();
    void root_index_is_the_one_given();
    void entries_added_later_appear();
    void removed_place_gives_way();
    void deleted_model_empties_the_panel();
    void hidden_panel_catches_up_when_shown();
    void line_is_applied();
    void keyboard_moves_into_the_level_it_opens();
    void mouse_leaves_the_keyboard_alone();
    void alt_left_goes_up();
    void tab_goes_from_crumbs_to_entries();
    void arrow_marks_what_leads_further();
    void nothing_is_wider_than_a_narrow_dock();
    void size_hint_suits_a_dock();

protected:
    void set_up() override;
    void tear_down() override;

private:
    void show(const QString& place = {});
    NavigationModel& model() { return *mModel; }
    BreadcrumbsPanel& panel() { return *mPanel; }
    QList<QToolButton*> crumbs();
    QStringList crumb_titles();
    QString place() { return mPanel->current_index().data().toString(); }
    QLineEdit* line() { return mPanel->findChild<QLineEdit*>(u"commandLine"_s); }

    std::unique_ptr<NavigationModel> mModel;
    std::unique_ptr<BreadcrumbsPanel> mPanel;
};

void TstBreadcrumbsPanel::set_up()
{
    // Run > (Scripts > (Play, Python), Quit), Ask > Help
    mModel = std::make_unique<NavigationModel>(nullptr);
    QStandardItem* run = add_page(*mModel, u"Run"_s);
    QStandardItem* scripts = add_group(run, u"Scripts"_s);
    add_command(scripts, u"Play"_s, u"play"_s);
    add_command(scripts, u"Python"_s, u"python"_s);
    add_command(run, u"Quit"_s, u"quit"_s);
    add_command(add_page(*mModel, u"Ask"_s), u"Help"_s, u"help"_s);
    mPanel = std::make_unique<BreadcrumbsPanel>(nullptr);
    mPanel->set_model(mModel.get(), {});
}

void TstBreadcrumbsPanel::tear_down()
{
    mPanel.reset();
    mModel.reset();
    set_command_sink({});
}

void TstBreadcrumbsPanel::show(const QString& place)
{
    panel().resize(240, 400);
    QVERIFY(show_active(&panel()));
    if (!place.isEmpty()) {
        const QModelIndex index = entry(model(), place);
        QVERIFY(index.isValid());
        panel().set_current_index(index);
    }
}

QList<QToolButton*> TstBreadcrumbsPanel::crumbs()
{
    QList<QToolButton*> buttons;
    for (QToolButton* button : panel().findChild<QWidget*>(u"breadcrumbs"_s)->findChildren<QToolButton*>())
        if (button->isVisible())
            buttons << button;
    return buttons;
}

QStringList TstBreadcrumbsPanel::crumb_titles()
{
    QStringList titles;
    for (const QToolButton* button : crumbs())
        titles << button->accessibleName();
    return titles;
}

void TstBreadcrumbsPanel::starts_at_the_root_with_small_icons()
{
    show();
    QVERIFY(!panel().usingLargeIcons);
    QVERIFY(!panel().current_index().isValid());
    QCOMPARE(crumb_titles(), QStringList{u"Commands"_s});
    QCOMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s}));
    const EntryButton* run = entry_button(panel(), u"Run"_s);
    QCOMPARE(run->iconSize(), QSize(22, 22));
    QCOMPARE(run->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QTRY_VERIFY(run->width() > 200);
}

void TstBreadcrumbsPanel::entry_opens_its_level()
{
    show();
    entry_button(panel(), u"Run"_s)->click();
    QCOMPARE(place(), u"Run"_s);
    QCOMPARE(entry_titles(panel()), (QStringList{u"Scripts"_s, u"Quit"_s}));
    entry_button(panel(), u"Scripts"_s)->click();
    QCOMPARE(entry_titles(panel()), (QStringList{u"Play"_s, u"Python"_s}));
}

void TstBreadcrumbsPanel::command_shows_its_form_instead_of_a_level()
{
    show(u"Scripts"_s);
    QVERIFY(!line()->isVisible());
    entry_button(panel(), u"Play"_s)->click();
    QCOMPARE(place(), u"Play"_s);
    QCOMPARE(entry_titles(panel()), QStringList());
    QVERIFY(line()->isVisible());
    QVERIFY(line()->hasFocus());
    QCOMPARE(line()->text(), u"play"_s);
}

void TstBreadcrumbsPanel::crumbs_show_the_way()
{
    show(u"Play"_s);
    QCOMPARE(crumb_titles(), (QStringList{u"Commands"_s, u"Run"_s, u"Scripts"_s, u"Play"_s}));
    QStringList down;
    for (const QToolButton* crumb : crumbs()) {
        QVERIFY(crumb->autoRaise());
        QCOMPARE(crumb->toolTip(), u"Go to "_s + crumb->accessibleName());
        if (crumb->isChecked())
            down << crumb->text();
    }
    QCOMPARE(down, QStringList{u"Play"_s});
}

void TstBreadcrumbsPanel::crumb_goes_back()
{
    show(u"Play"_s);
    crumbs()[1]->click();
    QCOMPARE(place(), u"Run"_s);
    QCOMPARE(crumb_titles(), (QStringList{u"Commands"_s, u"Run"_s}));
    QCOMPARE(entry_titles(panel()), (QStringList{u"Scripts"_s, u"Quit"_s}));
    crumbs()[0]->click();
    QVERIFY(!panel().current_index().isValid());
    QCOMPARE(entry_titles(panel()), (QStringList{u"Run"_s, u"Ask"_s}));
}

void TstBreadcrumbsPanel::last_crumb_stays_where_it_is()
{
    show(u"Scripts"_s);
    crumbs().last()->click();
    QCOMPARE(place(), u"Scripts"_s);
    QVERIFY(crumbs().last()->isChecked());
}

void TstBreadcrumbsPanel::crumb_of_the_given_root_has_its_title()
{
    panel().set_model(&model(), entry(model(), u"Run"_s));
    show(u"Play"_s);
    QCOMPARE(crumb_titles(), (QStringList{u"Run"_s, u"Scripts"_s, u"Play"_s}));
    crumbs()[0]->click();
    QVERIFY(!panel().current_index().isValid());
    QCOMPARE(entry_titles(panel()), (QStringList{u"Scripts"_s, u"Quit"_s}));
}

void TstBreadcrumbsPanel::crumb_of_a_removed_entry_does_nothing()
{
    show(u"Play"_s);
    QToolButton* scripts = crumbs()[2];
    model().removeRow(0, entry(model(), u"Run"_s));
    QVERIFY(scripts->isVisible());
    scripts->click();
    QCOMPARE(place(), u"Run"_s);
}

void TstBreadcrumbsPanel::long_crumb_is_shortened()
{
    model().item(0)->setText(u"A title that is much longer than any step of the way"_s);
    show();
    panel().set_current_index(model().index(0, 0));
    const QToolButton* crumb = crumbs()[1];
    QVERIFY(crumb->text().contains(u'\u2026'));
    QVERIFY(crumb->text().size() < 30);
    QCOMPARE(crumb->toolTip(), u"Go to A title that is much longer than any step of the way"_s);
}

void TstBreadcrumbsPanel::ampersand_in_a_crumb_is_shown()
{
    model().item(0)->setText(u"A&B"_s);
    show(u"A&B"_s);
    QCOMPARE(crumbs()[1]->text(), u"A&&B"_s);
}

void TstBreadcrumbsPanel::large_icons_stand_above_their_titles()
{
    show();
    panel().setUsingLargeIcons(true);
    QVERIFY(panel().usingLargeIcons);
    const EntryButton* run = entry_button(panel(), u"Run"_s);
    const EntryButton* ask = entry_button(panel(), u"Ask"_s);
    QCOMPARE(run->iconSize(), QSize(36, 36));
    QCOMPARE(run->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QTRY_COMPARE(run->y(), ask->y());
    QVERIFY(run->x() < ask->x());
}

void TstBreadcrumbsPanel::icon_size_changes_at_once()
{
    show();
    EntryButton* run = entry_button(panel(), u"Run"_s);
    panel().setUsingLargeIcons(true);
    QCOMPARE(run->iconSize(), QSize(36, 36));
    panel().setUsingLargeIcons(false);
    QVERIFY(!panel().usingLargeIcons);
    QCOMPARE(run->iconSize(), QSize(22, 22));
    QCOMPARE(run->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

void TstBreadcrumbsPanel::icon_size_can_be_set_before_the_model()
{
    mPanel = std::make_unique<BreadcrumbsPanel>(nullptr);
    panel().setUsingLargeIcons(true);
    panel().set_model(&model(), {});
    show();
    QCOMPARE(entry_button(panel(), u"Run"_s)->iconSize(), QSize(36, 36));
}

void TstBreadcrumbsPanel::null_model_shows_nothing()
{
    show(u"Play"_s);
    panel().set_model(nullptr, {});
    QCOMPARE(entry_titles(panel()), QStringList());
    QCOMPARE(crumb_titles(), QStringList{u"Commands"_s});
    QVERIFY(!line()->isVisible());
}

void TstBreadcrumbsPanel::index_of_another_model_is_ignored()
{
    NavigationModel other(nullptr);
    add_command(add_page(other, u"P"_s), u"C"_s, u"c"_s);
    show(u"Run"_s);
    panel().set_current_index(other.index(0, 0));
    QCOMPARE(place(), u"Run"_s);
}

void TstBreadcrumbsPanel::root_index_is_the_one_given()
{
    QVERIFY(!panel().root_index().isValid());
    panel().set_model(&model(), entry(model(), u"Run"_s));
    QCOMPARE(panel().root_index(), entry(model(), u"Run"_s));
}

void TstBreadcrumbsPanel::entries_added_later_appear()
{
    show(u"Ask"_s);
    add_command(model().item(1), u"History"_s, u"history"_s);
    QTRY_COMPARE(entry_titles(panel()), (QStringList{u"Help"_s, u"History"_s}));
}

void TstBreadcrumbsPanel::removed_place_gives_way()
{
    show(u"Play"_s);
    model().removeRow(0);
    QVERIFY(!panel().current_index().isValid());
    QTRY_COMPARE(entry_titles(panel()), QStringList{u"Ask"_s});
    QCOMPARE(crumb_titles(), QStringList{u"Commands"_s});
    QVERIFY(!line()->isVisible());
}

void TstBreadcrumbsPanel::deleted_model_empties_the_panel()
{
    show(u"Scripts"_s);
    mModel.reset();
    QVERIFY(!panel().current_index().isValid());
    QTRY_COMPARE(entry_titles(panel()), QStringList());
}

void TstBreadcrumbsPanel::hidden_panel_catches_up_when_shown()
{
    show();
    panel().hide();
    panel().set_current_index(entry(model(), u"Scripts"_s));
    QCOMPARE(place(), u"Scripts"_s);
    QVERIFY(show_active(&panel()));
    QCOMPARE(entry_titles(panel()), (QStringList{u"Play"_s, u"Python"_s}));
}

void TstBreadcrumbsPanel::line_is_applied()
{
    QStringList sent;
    set_command_sink([&sent](const QString& text) { sent << text; });
    show(u"Help"_s);
    line()->setText(u"help set"_s);
    QTest::mouseClick(panel().findChild<QPushButton*>(u"applyButton"_s), Qt::LeftButton);
    QCOMPARE(sent, QStringList{u"help set"_s});
}

void TstBreadcrumbsPanel::keyboard_moves_into_the_level_it_opens()
{
    show();
    entry_button(panel(), u"Run"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(QApplication::focusWidget(), entry_button(panel(), u"Scripts"_s));
    crumbs()[0]->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(QApplication::focusWidget(), entry_button(panel(), u"Run"_s));
}

void TstBreadcrumbsPanel::mouse_leaves_the_keyboard_alone()
{
    QWidget window;
    auto* console = new QLineEdit(&window);
    mPanel->setParent(&window);
    mPanel->move(0, 40);
    mPanel->resize(240, 300);
    window.resize(240, 400);
    QVERIFY(show_active(&window));
    console->setFocus();
    QVERIFY(console->hasFocus());
    QTest::mouseClick(entry_button(panel(), u"Run"_s), Qt::LeftButton);
    QCOMPARE(place(), u"Run"_s);
    QVERIFY(console->hasFocus());
    QTest::mouseClick(crumbs()[0], Qt::LeftButton);
    QVERIFY(console->hasFocus());
    mPanel.reset();
}

void TstBreadcrumbsPanel::alt_left_goes_up()
{
    show(u"Play"_s);
    line()->setFocus();
    for (const QString& above : {u"Scripts"_s, u"Run"_s, QString(), QString()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(place(), above);
        QVERIFY(panel().isAncestorOf(QApplication::focusWidget()));
    }
}

void TstBreadcrumbsPanel::tab_goes_from_crumbs_to_entries()
{
    show(u"Run"_s);
    crumbs()[0]->setFocus();
    QStringList visited;
    for (int step = 0; step < 4; ++step) {
        visited << QApplication::focusWidget()->accessibleName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, (QStringList{u"Commands"_s, u"Run"_s, u"Scripts"_s, u"Quit"_s}));
}

void TstBreadcrumbsPanel::arrow_marks_what_leads_further()
{
    show(u"Run"_s);
    const auto ink_at_the_right = [this](const QString& title) {
        EntryButton* button = entry_button(panel(), title);
        const QImage picture = button->grab().toImage();
        int dark = 0;
        for (int x = button->width() - 20; x < button->width() - 2; ++x)
            for (int y = 2; y < button->height() - 2; ++y)
                dark += picture.pixelColor(x, y).lightness() < 128;
        return dark;
    };
    QTRY_VERIFY(entry_button(panel(), u"Scripts"_s)->width() > 200);
    QVERIFY(ink_at_the_right(u"Scripts"_s) > 0);
    QCOMPARE(ink_at_the_right(u"Quit"_s), 0);
}

void TstBreadcrumbsPanel::nothing_is_wider_than_a_narrow_dock()
{
    model().item(0)->setText(QString(80, u'W'));
    model().item(0)->child(0)->setText(u"A title that is much longer than any dock is wide"_s);
    show();
    panel().set_current_index(model().item(0)->child(0)->index());
    for (const bool large : {false, true}) {
        panel().setUsingLargeIcons(large);
        panel().resize(200, 300);
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

void TstBreadcrumbsPanel::size_hint_suits_a_dock()
{
    QCOMPARE(panel().sizeHint(), QSize(240, 400));
}

OSTREL_TEST(TstBreadcrumbsPanel)

#include "tst_breadcrumbspanel.moc"
