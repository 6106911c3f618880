// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelViewMenu.h"
#include "options/LayoutOptions.h"
#include "options/LayoutOptionsModel.h"
#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QMetaMethod>
#include <QRadioButton>
#include <QSettings>
#include <QStyle>
#include <QTest>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto tab_key = u"/fennargui/tabposition"_s;

/** A page of its own and its controls. */
struct Page
{
    LayoutOptions page{nullptr};
    QComboBox* family = page.findChild<QComboBox*>(u"mFontFamily"_s);
    QComboBox* size = page.findChild<QComboBox*>(u"mFontSize"_s);
    QLabel* sample = page.findChild<QLabel*>(u"mSampleText"_s);
    QListView* list = page.findChild<QListView*>(u"mToolDockList"_s);
    QRadioButton* bottom = page.findChild<QRadioButton*>(u"rbTabBottom"_s);
    QRadioButton* top = page.findChild<QRadioButton*>(u"rbTabTop"_s);
    QRadioButton* left = page.findChild<QRadioButton*>(u"rbTabLeft"_s);
    QRadioButton* right = page.findChild<QRadioButton*>(u"rbTabRight"_s);

    QLabel* label(const QString& name) const { return page.findChild<QLabel*>(name); }
    QStringList rows() const
    {
        QStringList rows;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            rows << list->model()->index(row, 0).data().toString();
        return rows;
    }
    QModelIndex row(const QString& text) const
    {
        return list->model()->index(static_cast<int>(rows().indexOf(text)), 0);
    }
    QString checked() const
    {
        for (const QRadioButton* button : {bottom, top, left, right})
            if (button->isChecked())
                return button->objectName();
        return {};
    }
};

QStringList sizes(const QComboBox* box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

QStringList sizes_of(const QString& family)
{
    QStringList texts;
    for (const int points : QFontDatabase::pointSizes(family, QString()))
        texts << QString::number(points);
    return texts;
}

/** Two families of fonts-dejavu-core, which can be scaled to all sizes. */
const QStringList families{u"DejaVu Sans"_s, u"DejaVu Sans Mono"_s};

} // namespace

class TstLayoutOptions : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void form_has_its_name_and_title();
    void controls_have_their_texts();
    void controls_have_their_places();
    void help_texts_are_attached();
    void tab_order_begins_with_the_font();
    void slots_stand_in_order();

    void boxes_are_filled_at_construction();
    void labels_on_buttons_cannot_be_reached();
    void family_changes_the_sample();
    void size_changes_the_sample();
    void new_family_keeps_the_next_larger_size();
    void new_family_without_such_a_size_takes_its_first();
    void empty_size_leaves_the_sample();

    void refresh_shows_the_font_of_the_console();
    void refresh_shows_the_size_below_one_that_is_missing();
    void refresh_of_a_huge_size_takes_what_is_there();
    void refresh_unchecks_the_hidden_box();
    void font_acts_on_save();
    void font_is_not_stored_by_the_page();

    void list_shows_toolbars_and_docks_sorted();
    void tick_hides_and_shows_at_once();
    void list_follows_new_docks_at_the_next_refresh();

    void tab_position_is_shown_from_the_settings();
    void tab_position_is_shown_from_the_settings_data();
    void tab_position_acts_at_once();
    void tab_position_acts_at_once_data();
    void tab_position_is_stored_on_save_only();
    void unknown_tab_position_survives_a_save();
    void tab_position_is_not_applied_at_start();
    void page_works_without_a_window();
    void panel_drives_the_page();

private:
    std::unique_ptr<Ostrel> mWindow;
};

void TstLayoutOptions::set_up()
{
    HostDouble::instance().reset();
}

void TstLayoutOptions::tear_down()
{
    mWindow.reset();
}

void TstLayoutOptions::form_has_its_name_and_title()
{
    const Page p;
    QCOMPARE(p.page.objectName(), u"QtLayoutOptions"_s);
    QCOMPARE(p.page.windowTitle(), u"Layout"_s);
    QCOMPARE(p.page.size(), QSize(303, 588));
    auto* grid = p.page.findChild<QGridLayout*>(u"gridLayout_2"_s);
    QCOMPARE(p.page.layout(), grid);
    QCOMPARE(grid->spacing(), 5);
    QCOMPARE(grid->contentsMargins(), QMargins(5, 5, 5, 5));
}

void TstLayoutOptions::controls_have_their_texts()
{
    const Page p;
    const QMap<QString, QString> headings{
        {u"textLabel1"_s, u"Command Line and Journal Font"_s},
        {u"textLabel1_2"_s, u"Toolbars and Docking Windows"_s},
        {u"tlUseLabels"_s, u"Look and Feel"_s},
    };
    for (auto heading = headings.begin(); heading != headings.end(); ++heading) {
        QCOMPARE(p.label(heading.key())->text(), heading.value());
        QCOMPARE(p.label(heading.key())->font().weight(), 700);
    }
    QCOMPARE(p.label(u"textLabel3"_s)->text(), u"Font Family"_s);
    QCOMPARE(p.label(u"textLabel4"_s)->text(), u"Font Size"_s);
    QCOMPARE(p.family->insertPolicy(), QComboBox::NoInsert);
    QCOMPARE(p.size->insertPolicy(), QComboBox::NoInsert);
    QCOMPARE(p.sample->text(), u"Sample Text"_s);
    QCOMPARE(p.sample->minimumHeight(), 40);
    QCOMPARE(p.sample->frameShape(), QFrame::Box);
    QCOMPARE(p.sample->alignment(), Qt::AlignCenter);
    QVERIFY(!p.sample->wordWrap());
    QCOMPARE(p.page.findChild<QCheckBox*>(u"mUseLabels"_s)->text(), u"Use Labels on Buttons"_s);
    QCOMPARE(p.page.findChild<QGroupBox*>(u"groupBox"_s)->title(), u"Window Tab Position"_s);
    QCOMPARE(p.bottom->text(), u"Bottom"_s);
    QCOMPARE(p.top->text(), u"Top"_s);
    QCOMPARE(p.left->text(), u"Left"_s);
    QCOMPARE(p.right->text(), u"Right"_s);
    QVERIFY(p.bottom->isChecked());
}

void TstLayoutOptions::controls_have_their_places()
{
    const Page p;
    auto* outer = p.page.findChild<QGridLayout*>(u"gridLayout_2"_s);
    auto* inner = p.page.findChild<QGridLayout*>(u"gridLayout"_s);
    const auto place = [&](const QGridLayout* grid, const QString& name) {
        QList<int> at{-1, -1, -1, -1};
        const int index = grid->indexOf(p.page.findChild<QWidget*>(name));
        if (index >= 0)
            grid->getItemPosition(index, &at[0], &at[1], &at[2], &at[3]);
        return at;
    };
    QCOMPARE(place(outer, u"textLabel1"_s), (QList<int>{0, 0, 1, 3}));
    QCOMPARE(place(outer, u"textLabel3"_s), (QList<int>{1, 1, 1, 1}));
    QCOMPARE(place(outer, u"mFontFamily"_s), (QList<int>{1, 2, 1, 1}));
    QCOMPARE(place(outer, u"textLabel4"_s), (QList<int>{2, 1, 1, 1}));
    QCOMPARE(place(outer, u"mFontSize"_s), (QList<int>{2, 2, 1, 1}));
    QCOMPARE(place(outer, u"mSampleText"_s), (QList<int>{3, 1, 1, 3}));
    QCOMPARE(place(outer, u"textLabel1_2"_s), (QList<int>{4, 0, 1, 4}));
    QCOMPARE(place(outer, u"mToolDockList"_s), (QList<int>{5, 1, 1, 3}));
    QCOMPARE(place(outer, u"tlUseLabels"_s), (QList<int>{6, 0, 1, 4}));
    QCOMPARE(place(outer, u"mUseLabels"_s), (QList<int>{7, 1, 1, 3}));
    QCOMPARE(place(outer, u"groupBox"_s), (QList<int>{8, 1, 1, 3}));
    QVERIFY(outer->itemAtPosition(9, 0)->spacerItem());
    QCOMPARE(place(inner, u"rbTabBottom"_s), (QList<int>{0, 0, 1, 1}));
    QCOMPARE(place(inner, u"rbTabTop"_s), (QList<int>{0, 1, 1, 1}));
    QCOMPARE(place(inner, u"rbTabLeft"_s), (QList<int>{0, 2, 1, 1}));
    QCOMPARE(place(inner, u"rbTabRight"_s), (QList<int>{0, 3, 1, 1}));
}

void TstLayoutOptions::help_texts_are_attached()
{
    const Page p;
    QCOMPARE(p.sample->whatsThis(), u"This displays some sample text in the selected font and size."_s);
    QCOMPARE(p.list->whatsThis(),
             u"Checking the box next to the toolbar or docking window will display it. Unchecking the box "
             "will hide that toolbar or docking window."_s);
    QCOMPARE(p.page.findChild<QGroupBox*>(u"groupBox"_s)->toolTip(),
             u"Handles the positioning of tabs that appear\nwhen docking windows are stacked."_s);
}

void TstLayoutOptions::tab_order_begins_with_the_font()
{
    const Page p;
    QCOMPARE(next_tab_stop(p.family), p.size);
}

void TstLayoutOptions::slots_stand_in_order()
{
    QStringList names;
    const QMetaObject& type = LayoutOptions::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names << QString::fromLatin1(type.method(i).methodSignature());
    QCOMPARE(names, (QStringList{u"saveClicked()"_s, u"refreshClicked()"_s, u"changeFontFamily(QString)"_s,
                                 u"changeFontSize(QString)"_s, u"on_rbTabBottom_clicked()"_s,
                                 u"on_rbTabTop_clicked()"_s, u"on_rbTabLeft_clicked()"_s,
                                 u"on_rbTabRight_clicked()"_s}));
}

void TstLayoutOptions::boxes_are_filled_at_construction()
{
    const Page p;
    QCOMPARE(sizes(p.family), QFontDatabase::families());
    QVERIFY(p.size->count() > 0);
    QCOMPARE(sizes(p.size), sizes_of(p.family->currentText()));
    for (int i = 0; i < p.size->count(); ++i)
        QCOMPARE(p.size->itemData(i), QVariant(p.size->itemText(i).toInt()));
}

void TstLayoutOptions::labels_on_buttons_cannot_be_reached()
{
    Page p;
    p.page.show();
    QVERIFY(p.label(u"tlUseLabels"_s)->isVisible());
    QVERIFY(!p.page.findChild<QCheckBox*>(u"mUseLabels"_s)->isVisible());
}

void TstLayoutOptions::family_changes_the_sample()
{
    const Page p;
    for (const QString& family : families) {
        p.family->setCurrentText(family);
        QCOMPARE(p.sample->font().family(), family);
        QCOMPARE(sizes(p.size), sizes_of(family));
    }
}

void TstLayoutOptions::size_changes_the_sample()
{
    const Page p;
    p.size->setCurrentText(u"18"_s);
    QCOMPARE(p.sample->font().pointSize(), 18);
    p.size->setCurrentText(u"9"_s);
    QCOMPARE(p.sample->font().pointSize(), 9);
}

void TstLayoutOptions::new_family_keeps_the_next_larger_size()
{
    const Page p;
    p.family->setCurrentText(families[0]);
    QVERIFY(sizes_of(families[1]).contains(u"14"_s));
    QVERIFY(!sizes_of(families[1]).contains(u"13"_s));
    p.size->addItem(u"13"_s, 13);
    p.size->setCurrentText(u"13"_s);
    p.family->setCurrentText(families[1]);
    QCOMPARE(p.size->currentText(), u"14"_s);
    QCOMPARE(p.sample->font().pointSize(), 14);
    p.family->setCurrentText(families[0]);
    QCOMPARE(p.size->currentText(), u"14"_s);
}

void TstLayoutOptions::new_family_without_such_a_size_takes_its_first()
{
    const Page p;
    p.family->setCurrentText(families[0]);
    p.size->addItem(u"5000"_s, 5000);
    p.size->setCurrentText(u"5000"_s);
    p.family->setCurrentText(families[1]);
    QCOMPARE(p.size->currentIndex(), 0);
    QCOMPARE(p.sample->font().pointSize(), sizes_of(families[1]).first().toInt());
}

void TstLayoutOptions::empty_size_leaves_the_sample()
{
    Page p;
    p.size->setCurrentText(u"18"_s);
    p.page.changeFontSize(QString());
    p.page.changeFontSize(u"large"_s);
    p.page.changeFontSize(u"-3"_s);
    QCOMPARE(p.sample->font().pointSize(), 18);
}

void TstLayoutOptions::refresh_shows_the_font_of_the_console()
{
    mWindow = std::make_unique<Ostrel>();
    Page p;
    for (const QString& family : families) {
        mWindow->command_line()->set_font(QFont(family, 11));
        p.page.refreshClicked();
        QCOMPARE(p.family->currentText(), family);
        QCOMPARE(p.size->currentText(), u"11"_s);
        QCOMPARE(p.sample->font().family(), family);
        QCOMPARE(p.sample->font().pointSize(), 11);
    }
}

void TstLayoutOptions::refresh_shows_the_size_below_one_that_is_missing()
{
    const QString& family = families.first();
    mWindow = std::make_unique<Ostrel>();
    Page p;
    mWindow->command_line()->set_font(QFont(family, 13));
    p.page.refreshClicked();
    QVERIFY(!sizes_of(family).contains(u"13"_s));
    QCOMPARE(p.size->currentText(), u"12"_s);
    // Smaller than all: the first.
    mWindow->command_line()->set_font(QFont(family, 1));
    p.page.refreshClicked();
    QCOMPARE(p.size->currentIndex(), 0);
}

void TstLayoutOptions::refresh_of_a_huge_size_takes_what_is_there()
{
    const QString& family = families.first();
    mWindow = std::make_unique<Ostrel>();
    Page p;
    mWindow->command_line()->set_font(QFont(family, 11));
    p.page.refreshClicked();
    mWindow->command_line()->set_font(QFont(family, 500));
    p.page.refreshClicked();
    QCOMPARE(p.size->currentText(), u"11"_s);
}

void TstLayoutOptions::refresh_unchecks_the_hidden_box()
{
    Page p;
    auto* box = p.page.findChild<QCheckBox*>(u"mUseLabels"_s);
    box->setChecked(true);
    p.page.refreshClicked();
    QVERIFY(!box->isChecked());
}

void TstLayoutOptions::font_acts_on_save()
{
    mWindow = std::make_unique<Ostrel>();
    mWindow->command_line()->set_font(QFont(families[0], 11));
    Page p;
    p.page.refreshClicked();
    p.family->setCurrentText(families[1]);
    p.size->setCurrentText(u"16"_s);
    QCOMPARE(mWindow->command_line()->get_font().family(), families[0]);
    p.page.saveClicked();
    QCOMPARE(mWindow->command_line()->get_font().family(), families[1]);
    QCOMPARE(mWindow->command_line()->get_font().pointSize(), 16);
    QCOMPARE(mWindow->journal_editor()->get_editor_font().family(), families[1]);
    QCOMPARE(mWindow->journal_editor()->get_editor_font().pointSize(), 16);
}

void TstLayoutOptions::font_is_not_stored_by_the_page()
{
    mWindow = std::make_unique<Ostrel>();
    Page p;
    p.page.refreshClicked();
    p.size->setCurrentText(u"16"_s);
    QSettings().clear();
    p.page.saveClicked();
    QCOMPARE(QSettings().allKeys(), QStringList{u"fennargui/tabposition"_s});
}

void TstLayoutOptions::list_shows_toolbars_and_docks_sorted()
{
    mWindow = std::make_unique<Ostrel>();
    std::vector<QAction*> actions{new QAction(mWindow.get())};
    mWindow->add_to_toolbar("alpha", u"alpha"_s, actions, "c", Qt::TopToolBarArea);
    Page p;
    QCOMPARE(p.rows(), QStringList());
    p.page.refreshClicked();
    QCOMPARE(p.rows(), (QStringList{u"Command Line"_s, u"Command Panel"_s, u"File Tools"_s, u"alpha"_s}));
}

void TstLayoutOptions::tick_hides_and_shows_at_once()
{
    mWindow = std::make_unique<Ostrel>();
    mWindow->show();
    auto* dock = mWindow->findChild<QDockWidget*>(u"FennarCommandPanel"_s);
    auto* toolbar = mWindow->findChild<QToolBar*>(u"FileTools"_s);
    QVERIFY(dock->isVisible());
    QVERIFY(toolbar->isVisible());
    Page p;
    p.page.refreshClicked();
    p.page.show();
    const auto click_box = [&](const QString& text) {
        p.list->scrollTo(p.row(text));
        const QRect row = p.list->visualRect(p.row(text));
        const int box = p.list->style()->pixelMetric(QStyle::PM_IndicatorWidth);
        QTest::mouseClick(p.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(row.left() + box / 2 + 2, row.center().y()));
    };
    click_box(u"Command Panel"_s);
    QVERIFY(dock->isHidden());
    QCOMPARE(p.row(u"Command Panel"_s).data(Qt::CheckStateRole).toInt(), 0);
    click_box(u"File Tools"_s);
    QVERIFY(toolbar->isHidden());
    click_box(u"Command Panel"_s);
    QVERIFY(dock->isVisible());
    QCOMPARE(p.row(u"Command Panel"_s).data(Qt::CheckStateRole).toInt(), 2);
}

void TstLayoutOptions::list_follows_new_docks_at_the_next_refresh()
{
    mWindow = std::make_unique<Ostrel>();
    Page p;
    p.page.refreshClicked();
    p.page.show();
    const qsizetype before = p.rows().size();
    auto* dock = new QDockWidget(u"Model"_s);
    dock->setObjectName(u"ModelDock"_s);
    QVERIFY(mWindow->add_dock_window(dock, "c", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
    QCOMPARE(p.rows().size(), before);
    p.page.refreshClicked();
    QCOMPARE(p.rows().size(), before + 1);
    // The list shows the row as well, although its model says nothing of new ones.
    QVERIFY(p.list->visualRect(p.row(u"Model"_s)).isValid());
    QVERIFY(p.list->visualRect(p.row(u"Model"_s)).height() > 0);
}

void TstLayoutOptions::tab_position_is_shown_from_the_settings_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("button");
    QTest::newRow("nothing") << QVariant() << u"rbTabBottom"_s;
    QTest::newRow("south") << QVariant(u"south"_s) << u"rbTabBottom"_s;
    QTest::newRow("north") << QVariant(u"north"_s) << u"rbTabTop"_s;
    QTest::newRow("west") << QVariant(u"west"_s) << u"rbTabLeft"_s;
    QTest::newRow("east") << QVariant(u"east"_s) << u"rbTabRight"_s;
    QTest::newRow("another case") << QVariant(u"North"_s) << u"rbTabBottom"_s;
    QTest::newRow("unknown") << QVariant(u"up"_s) << u"rbTabBottom"_s;
    QTest::newRow("empty") << QVariant(QString()) << u"rbTabBottom"_s;
    QTest::newRow("no text") << QVariant(QVariantMap{{u"a"_s, 1}}) << u"rbTabBottom"_s;
}

void TstLayoutOptions::tab_position_is_shown_from_the_settings()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, button);
    if (stored.isValid())
        QSettings().setValue(tab_key, stored);
    Page p;
    p.right->setChecked(true);
    p.page.refreshClicked();
    QCOMPARE(p.checked(), button);
}

void TstLayoutOptions::tab_position_acts_at_once_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("word");
    QTest::newRow("bottom") << u"rbTabBottom"_s << int(QTabWidget::South) << u"south"_s;
    QTest::newRow("top") << u"rbTabTop"_s << int(QTabWidget::North) << u"north"_s;
    QTest::newRow("left") << u"rbTabLeft"_s << int(QTabWidget::West) << u"west"_s;
    QTest::newRow("right") << u"rbTabRight"_s << int(QTabWidget::East) << u"east"_s;
}

void TstLayoutOptions::tab_position_acts_at_once()
{
    QFETCH(QString, button);
    QFETCH(int, position);
    QFETCH(QString, word);
    mWindow = std::make_unique<Ostrel>();
    const auto other = position == QTabWidget::North ? QTabWidget::South : QTabWidget::North;
    mWindow->setTabPosition(Qt::AllDockWidgetAreas, other);
    Page p;
    p.page.refreshClicked();
    p.page.findChild<QRadioButton*>(button)->click();
    for (const auto area :
         {Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea, Qt::TopDockWidgetArea, Qt::BottomDockWidgetArea})
        QCOMPARE(int(mWindow->tabPosition(area)), position);
    p.page.saveClicked();
    QCOMPARE(QSettings().value(tab_key).toString(), word);
}

void TstLayoutOptions::tab_position_is_stored_on_save_only()
{
    Page p;
    p.page.refreshClicked();
    p.left->click();
    QVERIFY(!QSettings().contains(tab_key));
    p.page.refreshClicked();
    QCOMPARE(p.checked(), u"rbTabBottom"_s);
}

void TstLayoutOptions::unknown_tab_position_survives_a_save()
{
    QSettings().setValue(tab_key, u"up"_s);
    Page p;
    p.page.refreshClicked();
    p.page.saveClicked();
    QCOMPARE(QSettings().value(tab_key).toString(), u"up"_s);
}

void TstLayoutOptions::tab_position_is_not_applied_at_start()
{
    QSettings().setValue(tab_key, u"north"_s);
    mWindow = std::make_unique<Ostrel>();
    Page p;
    p.page.refreshClicked();
    QCOMPARE(p.checked(), u"rbTabTop"_s);
    QCOMPARE(mWindow->tabPosition(Qt::BottomDockWidgetArea), QTabWidget::South);
}

void TstLayoutOptions::page_works_without_a_window()
{
    QCOMPARE(Ostrel::instance(), nullptr);
    Page p;
    p.size->setCurrentText(u"18"_s);
    p.page.refreshClicked();
    QCOMPARE(p.size->currentText(), u"18"_s);
    QCOMPARE(p.rows(), QStringList());
    p.top->click();
    p.page.saveClicked();
    QCOMPARE(QSettings().value(tab_key).toString(), u"north"_s);
}

void TstLayoutOptions::panel_drives_the_page()
{
    QSettings().setValue(tab_key, u"east"_s);
    mWindow = std::make_unique<Ostrel>();
    auto* page = mWindow->options()->findChild<LayoutOptions*>();
    QVERIFY(page);
    mWindow->options()->refresh_settings();
    QVERIFY(page->findChild<QRadioButton*>(u"rbTabRight"_s)->isChecked());
    page->findChild<QRadioButton*>(u"rbTabLeft"_s)->click();
    emit mWindow->options()->saveSettings();
    QCOMPARE(QSettings().value(tab_key).toString(), u"west"_s);
}

OSTREL_TEST(TstLayoutOptions)
#include "tst_layoutoptions.moc"
