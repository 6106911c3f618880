// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/navigation_helpers.h"

#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "workbench/host/navigation/EntryButtons.h"
#include "workbench/host/navigation/NavigationNode.h"

#include <QFile>
#include <QTest>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

void append_tree(QStringList& lines, const QAbstractItemModel& model, const QModelIndex& parent, int depth)
{
    constexpr QLatin1StringView kinds[] = {"page"_L1, "group"_L1, "command"_L1};
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        QString line = QString(2 * qsizetype{depth}, u' ') + kinds[index.data(NavigationRole::Kind).toInt()] +
                       u' ' + index.data().toString();
        if (const QVariant command = index.data(NavigationRole::Command); command.isValid())
            line += u" ["_s + command.toString() + u']';
        lines << line;
        append_tree(lines, model, index, depth + 1);
    }
}

QStandardItem* new_node(NavigationKind kind, const QString& title)
{
    return new NavigationNode(kind, title);
}

} // namespace

void NavigationFolder::write(const QString& name, const QByteArray& contents)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

QString NavigationFolder::path(const QString& name) const
{
    return name.isEmpty() ? mDirectory.path() : mDirectory.filePath(name);
}

QStringList NavigationFolder::read(NavigationModel* model) const
{
    NavigationReader reader;
    reader.setModel(model, nullptr, nullptr);
    reader.buildNavigation(path(), u".xml"_s);
    return reader.messages.replaceInStrings(path() + u'/', QString());
}

QByteArray navigation(const QByteArray& pages)
{
    return "<navigation version=\"1\">" + pages + "</navigation>";
}

QStringList tree(const QAbstractItemModel& model)
{
    QStringList lines;
    append_tree(lines, model, {}, 0);
    return lines;
}

QModelIndex entry(const QAbstractItemModel& model, const QString& title)
{
    const QModelIndexList found =
        model.match(model.index(0, 0), Qt::DisplayRole, title, 2, Qt::MatchExactly | Qt::MatchRecursive);
    return found.size() == 1 ? found.first() : QModelIndex();
}

QStandardItem* add_page(NavigationModel& model, const QString& title)
{
    QStandardItem* page = new_node(NavigationKind::Page, title);
    model.appendRow(page);
    return page;
}

QStandardItem* add_group(QStandardItem* parent, const QString& title)
{
    QStandardItem* group = new_node(NavigationKind::Group, title);
    parent->appendRow(group);
    return group;
}

QStandardItem* add_command(QStandardItem* parent, const QString& title, const QString& command)
{
    QStandardItem* node = new_node(NavigationKind::Command, title);
    node->setData(command, NavigationRole::Command);
    parent->appendRow(node);
    return node;
}

QList<EntryButton*> entry_buttons(const QWidget& panel)
{
    QList<EntryButton*> buttons;
    for (const EntryButtons* row : panel.findChildren<EntryButtons*>())
        for (QWidget* button : row->buttons())
            if (button->isVisible())
                buttons << qobject_cast<EntryButton*>(button);
    return buttons;
}

QStringList entry_titles(const QWidget& panel)
{
    QStringList titles;
    for (const EntryButton* button : entry_buttons(panel))
        titles << button->accessibleName();
    return titles;
}

QStringList chosen_titles(const QWidget& panel)
{
    QStringList titles;
    for (const EntryButton* button : entry_buttons(panel))
        if (button->isChecked())
            titles << button->accessibleName();
    return titles;
}

EntryButton* entry_button(const QWidget& panel, const QString& title)
{
    const QList<EntryButton*> buttons = entry_buttons(panel);
    const auto found = std::ranges::find(buttons, title, &EntryButton::accessibleName);
    return found == buttons.end() ? nullptr : *found;
}
