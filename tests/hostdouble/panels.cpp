// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "hostdouble/HostDouble.h"

#include <QPersistentModelIndex>

using namespace Qt::StringLiterals;

namespace {

void record(const char* panel, const QString& call)
{
    HostDouble::instance().record(QString::fromLatin1(panel) + u"::"_s + call);
}

QString text(const QModelIndex& index)
{
    return index.isValid() ? u"row %1"_s.arg(index.row()) : u"invalid"_s;
}

} // namespace

int CommandButtons::mPanelButtonWidth = 0;

NavigationModel::NavigationModel(QObject* parent) : QStandardItemModel(parent) {}
NavigationModel::~NavigationModel() = default;

TaskPanel::TaskPanel(QWidget* parent) : QWidget(parent) {}
TaskPanel::~TaskPanel() = default;

struct CommandButtonPanel::Private
{
    QPersistentModelIndex root;
    QPersistentModelIndex current;
};

CommandButtonPanel::CommandButtonPanel(QWidget* parent)
    : TaskPanel(parent), mPrivate(std::make_unique<Private>())
{
    record("CommandButtonPanel", u"CommandButtonPanel"_s);
}

CommandButtonPanel::~CommandButtonPanel() = default;

void CommandButtonPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->root = root;
    record("CommandButtonPanel", u"set_model(%1, %2)"_s.arg(model ? u"set"_s : u"null"_s, text(root)));
}

QModelIndex CommandButtonPanel::root_index() const
{
    return mPrivate->root;
}
QModelIndex CommandButtonPanel::current_index() const
{
    return mPrivate->current;
}

void CommandButtonPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->current = index;
    record("CommandButtonPanel", u"set_current_index(%1)"_s.arg(text(index)));
}

struct BreadcrumbsPanel::Private
{
    QPersistentModelIndex root;
    QPersistentModelIndex current;
};

BreadcrumbsPanel::BreadcrumbsPanel(QWidget* parent) : TaskPanel(parent), mPrivate(std::make_unique<Private>())
{
    record("BreadcrumbsPanel", u"BreadcrumbsPanel"_s);
}

BreadcrumbsPanel::~BreadcrumbsPanel() = default;

void BreadcrumbsPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->root = root;
    record("BreadcrumbsPanel", u"set_model(%1, %2)"_s.arg(model ? u"set"_s : u"null"_s, text(root)));
}

QModelIndex BreadcrumbsPanel::root_index() const
{
    return mPrivate->root;
}
QModelIndex BreadcrumbsPanel::current_index() const
{
    return mPrivate->current;
}

void BreadcrumbsPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->current = index;
    record("BreadcrumbsPanel", u"set_current_index(%1)"_s.arg(text(index)));
}

void BreadcrumbsPanel::setUsingLargeIcons(bool large)
{
    usingLargeIcons = large;
    record("BreadcrumbsPanel", u"setUsingLargeIcons(%1)"_s.arg(large ? u"true"_s : u"false"_s));
}
