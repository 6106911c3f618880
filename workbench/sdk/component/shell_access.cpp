// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/component/shell_access.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <vector>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

void collect_pages(const QTreeWidgetItem* item, const QString& above, QStringList& pages)
{
    for (int i = 0; i < item->childCount(); ++i) {
        const QString page = above + item->child(i)->text(0);
        pages << page;
        collect_pages(item->child(i), page + u'/', pages);
    }
}

} // namespace

QAbstractButton* cancel_button(const Ostrel* window)
{
    return window ? window->findChild<QToolButton*>(u"mCancel"_s) : nullptr;
}

QDialog* plugin_tool(const Ostrel* window)
{
    if (!window)
        return nullptr;
    const auto dialogs = window->findChildren<QDialog*>(Qt::FindDirectChildrenOnly);
    for (QDialog* dialog : dialogs) {
        if (dialog->inherits("ComponentTool"))
            return dialog;
    }
    return nullptr;
}

QListWidget* plugin_list(const QDialog* tool)
{
    return tool ? tool->findChild<QListWidget*>(u"mCompList"_s) : nullptr;
}

QAction* close_journal_action(const JournalEditor* editor)
{
    return editor ? editor->findChild<QAction*>(u"fileCloseAction"_s) : nullptr;
}

QStringList option_pages(const OptionsPanel* panel)
{
    const auto* list = panel ? panel->findChild<QTreeWidget*>(u"mOptionList"_s) : nullptr;
    QStringList pages;
    if (list)
        collect_pages(list->invisibleRootItem(), {}, pages);
    return pages;
}

QTreeWidgetItem* options_entry(const OptionsPanel& panel, const QString& path)
{
    const auto* tree = panel.findChild<QTreeWidget*>(u"mOptionList"_s);
    QTreeWidgetItem* entry = tree ? tree->invisibleRootItem() : nullptr;
    for (const QString& label : path.split(u'/')) {
        QTreeWidgetItem* below = nullptr;
        for (int i = 0; entry && i < entry->childCount() && !below; ++i)
            below = entry->child(i)->text(0) == label ? entry->child(i) : nullptr;
        entry = below;
    }
    return entry;
}

QMenu* import_menu(const JournalEditor& editor)
{
    return editor.findChild<QMenu*>(u"fileImportMenu"_s);
}

void delete_waiting_buttons(const QToolBar& bar)
{
    const QList<QToolButton*> found = bar.findChildren<QToolButton*>();
    const QList<QPointer<QToolButton>> buttons(found.begin(), found.end());
    for (const QPointer<QToolButton>& button : buttons) {
        if (button)
            QCoreApplication::sendPostedEvents(button, QEvent::DeferredDelete);
    }
}

QList<std::pair<QString, QAction*>> recent_file_actions(const Ostrel* window)
{
    QList<std::pair<QString, QAction*>> found;
    if (!window || !window->file_menu())
        return found;
    std::vector<QString> files;
    window->file_menu()->get_recent_files(files);
    const QList<QAction*> menus = window->menuBar()->actions();
    for (const QAction* bar_action : menus) {
        if (bar_action->text() != main_menu_title("&File") || !bar_action->menu())
            continue;
        // They are numbered, and nothing else in this menu is.
        const QList<QAction*> actions = bar_action->menu()->actions();
        for (QAction* action : actions) {
            const std::size_t index = std::size_t(found.size());
            if (index < files.size() && action->text().startsWith(u"&%1 "_s.arg(index + 1)))
                found.append({files[index], action});
        }
    }
    return found;
}

QList<QAction*> file_actions(const Ostrel* window)
{
    QList<QAction*> found;
    for (const QString& name : {u"mFileNewAction"_s, u"mFileOpenAction"_s, u"mFileSaveAction"_s,
                                u"mFileSaveAsAction"_s, u"mFileImportAction"_s, u"mFileExportAction"_s}) {
        if (QAction* action = window ? window->findChild<QAction*>(name) : nullptr)
            found << action;
    }
    return found;
}

QString main_menu_title(const char* english)
{
    return QCoreApplication::translate("Ostrel", english);
}

} // namespace fennar
