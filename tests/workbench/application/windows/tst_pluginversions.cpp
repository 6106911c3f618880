// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/OstrelToolsMenu.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/host/ostrelfw/HostMediator.h"
#include "workbench/sdk/component/shell_access.h"

#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QListWidget>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Knows what it is given. */
class Source : public ComponentSource
{
public:
    std::vector<ComponentRecord> component_records() override { return records; }
    QString component_path() const override { return {}; }
    void set_component_path(const QString&) override {}
    QString component_directory() const override { return {}; }

    std::vector<ComponentRecord> records;
};

/** A delegate with its protected half open. */
class OpenDelegate : public QStyledItemDelegate
{
public:
    static QString text(const QAbstractItemDelegate* delegate, const QModelIndex& index)
    {
        const auto* const styled = qobject_cast<const QStyledItemDelegate*>(delegate);
        QStyleOptionViewItem option;
        (styled->*&OpenDelegate::initStyleOption)(&option, index);
        return option.text;
    }
};

} // namespace

class TstPluginVersions : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override { workbench.leave_components_out(); }
    void set_up() override { HostMediator::instance().set_component_source(&mSource); }
    void tear_down() override
    {
        if (QDialog* tool = plugin_tool(&window()))
            tool->hide();
        HostMediator::instance().set_component_source(&workbench().components());
    }

private slots:
    void versions_stand_behind_the_names();
    void tool_tip_tells_more();
    void states_are_still_found_by_name();

private:
    /** The plugin tool, opened by the user's menu entry. */
    QListWidget* open()
    {
        window().tools_menu()->show_component_tool();
        return plugin_list(plugin_tool(&window()));
    }
    static QStringList shown(const QListWidget* list)
    {
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts << OpenDelegate::text(list->itemDelegate(), list->model()->index(row, 0));
        return texts;
    }

    Source mSource;
};

void TstPluginVersions::versions_stand_behind_the_names()
{
    mSource.records = {{u"geometry"_s, u"2.1"_s, {}, u"loaded"_s},
                       {u"plain"_s, {}, {}, u"unloaded"_s},
                       {u"geometry"_s, u"1.9"_s, {}, u"unloaded"_s}};
    QListWidget* const list = open();
    QVERIFY(list);
    QCOMPARE(shown(list), (QStringList{u"geometry 2.1"_s, u"plain"_s, u"geometry 1.9"_s}));
    plugin_tool(&window())->hide();
    mSource.records = {{u"plain"_s, u"3"_s, {}, u"unloaded"_s}};
    QCOMPARE(shown(open()), QStringList{u"plain 3"_s});
}

void TstPluginVersions::tool_tip_tells_more()
{
    mSource.records = {{u"plain"_s, u"3"_s, u"/lib/plain.so\nCommands: plain"_s, u"unloaded"_s}};
    QListWidget* const list = open();
    const QPoint place = list->visualItemRect(list->item(0)).center();
    QHelpEvent help(QEvent::ToolTip, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &help);
    QCOMPARE(QToolTip::text(), u"/lib/plain.so\nCommands: plain"_s);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TstPluginVersions::states_are_still_found_by_name()
{
    mSource.records = {{u"plain"_s, u"3"_s, {}, u"unloaded"_s}};
    const QListWidget* const list = open();
    QVERIFY(list->item(0)->icon().isNull());
    HostMediator::instance().tell_trackers(&ComponentTracker::component_loaded, u"plain"_s);
    QVERIFY(!list->item(0)->icon().isNull());
}

OSTREL_TEST(TstPluginVersions)
#include "tst_pluginversions.moc"
