// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/LayoutOptions.h"

#include "console/CommandWindow.h"
#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelViewMenu.h"
#include "options/LayoutOptionsModel.h"
#include "ui_QtLayoutOptions.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QSettings>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

void add_size(QComboBox* box, int points)
{
    box->addItem(QString::number(points), points);
}

} // namespace

LayoutOptions::LayoutOptions(QWidget* parent)
    : QWidget(parent), mForm(std::make_unique<Ui::QtLayoutOptions>())
{
    mForm->setupUi(this);
    mModel = new LayoutOptionsModel(this);
    mForm->mFontFamily->insertItems(0, QFontDatabase::families());
    for (const int points : QFontDatabase::pointSizes(mForm->mFontFamily->currentText(), QString()))
        add_size(mForm->mFontSize, points);
    mForm->mToolDockList->setModel(mModel);
    mForm->tlUseLabels->show();
    mForm->mUseLabels->hide();
    connect(mForm->mFontFamily, &QComboBox::currentTextChanged, this, &LayoutOptions::changeFontFamily);
    connect(mForm->mFontSize, &QComboBox::currentTextChanged, this, &LayoutOptions::changeFontSize);
}

LayoutOptions::~LayoutOptions() = default;

void LayoutOptions::saveClicked()
{
    // Stored at the end, even if the page does not live that long: a change of the font reaches others.
    const QString tab_position = mTabPosition;
    if (Ostrel* window = Ostrel::instance()) {
        const Alive alive(window);
        const QFont font = mForm->mSampleText->font();
        if (window->command_line())
            window->command_line()->set_font(font);
        if (alive && window->journal_editor())
            window->journal_editor()->set_editor_font(font);
    }
    QSettings().setValue(settings_keys::tab_position, tab_position);
}

void LayoutOptions::refreshClicked()
{
    if (const Ostrel* window = Ostrel::instance()) {
        if (window->command_line()) {
            const QFont font = window->command_line()->get_font();
            mForm->mSampleText->setFont(font);
            const QFontInfo info(font);
            select_family(info.family());
            update_font_sizes(mForm->mFontFamily->currentText());
            select_size(info.pointSize());
        }
        update_tool_dock_list();
    }
    mForm->mUseLabels->setChecked(false);

    mTabPosition = read_setting(QSettings(), settings_keys::tab_position, u"south"_s);
    if (mTabPosition.isEmpty())
        mTabPosition = u"south"_s;
    if (mTabPosition == "north"_L1)
        mForm->rbTabTop->setChecked(true);
    else if (mTabPosition == "west"_L1)
        mForm->rbTabLeft->setChecked(true);
    else if (mTabPosition == "east"_L1)
        mForm->rbTabRight->setChecked(true);
    else
        mForm->rbTabBottom->setChecked(true);
}

void LayoutOptions::changeFontFamily(const QString& family)
{
    update_font_sizes(family);
    QFont font = mForm->mSampleText->font();
    font.setFamily(family);
    mForm->mSampleText->setFont(font);
}

void LayoutOptions::changeFontSize(const QString& size)
{
    // Qt complains of a size below 1 and keeps the old one.
    const int points = size.toInt();
    if (points < 1)
        return;
    QFont font = mForm->mSampleText->font();
    font.setPointSize(points);
    mForm->mSampleText->setFont(font);
}

void LayoutOptions::on_rbTabBottom_clicked()
{
    set_tab_position(QTabWidget::South, u"south"_s);
}

void LayoutOptions::on_rbTabTop_clicked()
{
    set_tab_position(QTabWidget::North, u"north"_s);
}

void LayoutOptions::on_rbTabLeft_clicked()
{
    set_tab_position(QTabWidget::West, u"west"_s);
}

void LayoutOptions::on_rbTabRight_clicked()
{
    set_tab_position(QTabWidget::East, u"east"_s);
}

/** Offers the sizes of @p family and selects the first that is not below the present one. */
void LayoutOptions::update_font_sizes(const QString& family)
{
    QComboBox* const box = mForm->mFontSize;
    const int wanted = box->currentText().toInt();
    {
        const QSignalBlocker blocker(box);
        box->clear();
    }
    bool selected = false;
    for (const int points : QFontDatabase::pointSizes(family, QString())) {
        add_size(box, points);
        if (!selected && points >= wanted) {
            box->setCurrentIndex(box->count() - 1);
            selected = true;
        }
    }
}

void LayoutOptions::update_tool_dock_list()
{
    const Ostrel* const window = Ostrel::instance();
    if (!window || !window->view_menu())
        return;
    std::vector<QAction*> actions;
    window->view_menu()->get_toolbar_items(actions);
    window->view_menu()->get_dock_items(actions);
    mModel->set_actions(actions);
    // The model tells nobody of its new rows.
    mForm->mToolDockList->reset();
}

void LayoutOptions::select_family(const QString& family)
{
    const int index = mForm->mFontFamily->findText(family, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        mForm->mFontFamily->setCurrentIndex(index);
}

/** Selects the largest size that is not above @p points, or the first; leaves the box if all are below. */
void LayoutOptions::select_size(int points)
{
    QComboBox* const box = mForm->mFontSize;
    for (int i = 0; i < box->count(); ++i) {
        const int size = box->itemData(i).toInt();
        if (size < points)
            continue;
        box->setCurrentIndex(size == points ? i : std::max(i - 1, 0));
        return;
    }
}

void LayoutOptions::set_tab_position(QTabWidget::TabPosition position, const QString& word)
{
    mTabPosition = word;
    if (Ostrel* window = Ostrel::instance())
        window->setTabPosition(Qt::AllDockWidgetAreas, position);
}
