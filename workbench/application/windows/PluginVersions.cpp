// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/PluginVersions.h"

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/Mediator.h"
#include "workbench/sdk/component/shell_parts.h"

#include <QChildEvent>
#include <QDialog>
#include <QHelpEvent>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** The items themselves keep their text: the tool finds components by it. */
class VersionDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void update()
    {
        mComponents.clear();
        Broker::instance()->get_components(mComponents);
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        const auto row = std::size_t(index.row());
        if (event->type() != QEvent::ToolTip || !index.isValid() || row >= mComponents.size())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), mComponents[row].text3, view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto row = std::size_t(index.row());
        if (row < mComponents.size() && mComponents[row].name == option->text)
            option->text = u"%1 %2"_s.arg(option->text, mComponents[row].text2).trimmed();
    }

private:
    /** As the tool lists them; the second text is the version, the third tells more. */
    std::vector<ComponentRecord> mComponents;
};

} // namespace

PluginVersions::PluginVersions(Ostrel* window) : mWindow(window)
{
    window->installEventFilter(this);
}

bool PluginVersions::eventFilter(QObject* object, QEvent* event)
{
    QDialog* const tool = plugin_tool(mWindow);
    QListWidget* const list = plugin_list(tool);
    // The tool is made when it is shown for the first time.
    if (list && object == mWindow && event->type() == QEvent::ChildPolished &&
        static_cast<QChildEvent*>(event)->child() == tool) {
        list->setItemDelegate(new VersionDelegate(list));
        tool->installEventFilter(this);
    }
    // Just before it fills its list.
    if (list && object == tool && event->type() == QEvent::Show)
        static_cast<VersionDelegate*>(list->itemDelegate())->update();
    return QObject::eventFilter(object, event);
}
