// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/component/shell_parts.h"

#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace fennar::shell_parts {

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

} // namespace fennar::shell_parts
