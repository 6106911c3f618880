// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/search/SearchTest.h"

#include "console/CommandWidget.h"
#include "menus/OstrelToolsMenu.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/search/SearchModel.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

void SearchTest::prepare(Workbench& workbench)
{
    workbench.leave_components_out();
}

void SearchTest::set_up()
{
    QVERIFY(show_active(&window()));
    window().set_focus_to_command_window();
    page()->clearToPrompt();
    mRuns = 0;
    mZebra = std::make_unique<QAction>(u"&Zebra..."_s);
    connect(mZebra.get(), &QAction::triggered, this, [this] { ++mRuns; });
    window().tools_menu()->add_item(mZebra.get(), "test");
}

void SearchTest::tear_down()
{
    window().tools_menu()->remove_component_items("test");
    delete_zebra();
    if (search())
        QTest::keyClick(field(), Qt::Key_Escape);
    flush();
}

void SearchTest::delete_zebra()
{
    mZebra.reset();
}

CommandSearch* SearchTest::search()
{
    const QWidgetList widgets = QApplication::allWidgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->isVisible() && qobject_cast<const CommandSearch*>(widget);
    });
    return found == widgets.end() ? nullptr : qobject_cast<CommandSearch*>(*found);
}

QLineEdit* SearchTest::field()
{
    return search()->findChild<QLineEdit*>();
}

QTreeView* SearchTest::list()
{
    return search()->findChild<QTreeView*>();
}

void SearchTest::look_for(const QString& words)
{
    // A dialog may just have closed. The window manager need not give the focus back if it came and went at
    // once.
    if (!QApplication::activeWindow())
        QVERIFY(show_active(&window()));
    QTest::keyClick(QApplication::activeWindow(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(search());
    QCOMPARE(QApplication::focusWidget(), field());
    QTest::keyClicks(field(), words);
}

void SearchTest::choose(const QString& words)
{
    look_for(words);
    QTest::keyClick(field(), Qt::Key_Return);
    flush();
}

QStringList SearchTest::rows()
{
    const QAbstractItemModel* model = list()->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < SearchModel::ColumnCount; ++column)
            texts << model->index(row, column).data().toString();
        const bool enabled = model->index(row, 0).data(SearchModel::EnabledRole).toBool();
        rows << (enabled ? QString() : QString(u'-')) + texts.join(u'|');
    }
    return rows;
}

int SearchTest::current_row()
{
    return list()->currentIndex().row();
}

QString SearchTest::hint()
{
    return search()->findChild<QLabel*>()->text();
}
