// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "describe_program.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "journal/JournalEditor.h"
#include "options/OptionsPanel.h"
#include "support/describe_window.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/FormatRegistry.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDockWidget>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

void describe_options(const QTreeWidgetItem* item, const QString& above, QStringList& rows)
{
    for (int i = 0; i < item->childCount(); ++i) {
        rows << u"options "_s + above + item->child(i)->text(0);
        describe_options(item->child(i), above + item->child(i)->text(0) + u'/', rows);
    }
}

void describe_registries(QStringList& rows)
{
    const CommandRegistry& registry = Fennar::instance().registry();
    for (const QString& name : registry.names())
        rows << u"command "_s + name;
    for (const QString& kind : registry.entities().kinds())
        rows << u"entities "_s + kind;
    for (const QString& owner : registry.steps().owners())
        rows << u"undo "_s + owner;
    for (const auto& format : FormatRegistry::instance().formats())
        rows << u"format "_s + format->name;
    for (const UnsavedWork& work : UnsavedWorks::instance().works())
        rows << u"unsaved work "_s + work.kind;
}

void describe_files(const OstrelFileMenu& menu, QStringList& rows)
{
    QString imports;
    QString exports;
    menu.get_import_filters(imports);
    menu.get_export_filters(exports);
    rows << u"imports "_s + imports << u"exports "_s + exports << u"file "_s + OstrelFileMenu::mFileName;
    rows << (menu.get_open_save_handler() ? u"open/save handler"_s : u"no open/save handler"_s);
}

/** Widgets that no description above names: labels, pages, views. */
void describe_widgets(const QWidget& window, QStringList& rows)
{
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (qobject_cast<const QLabel*>(widget) || qobject_cast<const QPlainTextEdit*>(widget))
            rows << u"widget "_s + QString::fromUtf8(widget->metaObject()->className()) + u' ' +
                        widget->objectName();
    }
}

/** Whose input goes through while a command runs. */
void describe_input(const Ostrel& window, QStringList& rows)
{
    QObject* const filter = window.event_filter();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        QEvent click(QEvent::MouseButtonPress);
        if (!filter->eventFilter(widget, &click))
            rows << u"input to "_s + QString::fromUtf8(widget->metaObject()->className()) + u' ' +
                        widget->objectName();
    }
}

void describe_main_window(const Ostrel& window, QStringList& rows)
{
    rows += describe_window(window) + describe_window(*window.journal_editor());
    for (const QAction* action : window.journal_editor()->actions())
        rows << u"editor "_s + action->text();
    describe_options(window.options()->findChild<QTreeWidget*>(u"mOptionList"_s)->invisibleRootItem(), {},
                     rows);
    const auto* tabs = window.findChild<QTabWidget*>(u"mCommandTab"_s);
    for (int i = 0; i < tabs->count(); ++i)
        rows << u"console page "_s + tabs->tabText(i);
    rows << (window.graphics_widget() ? u"graphics widget"_s : u"no graphics widget"_s);
    describe_files(*window.file_menu(), rows);
    describe_widgets(window, rows);
    describe_input(window, rows);
}

} // namespace

QStringList describe_program()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList rows;
    describe_registries(rows);
    if (const Ostrel* window = Ostrel::instance())
        describe_main_window(*window, rows);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (!window->parent() && !window->isHidden() && window != Ostrel::instance())
            rows << u"window "_s + window->objectName();
    }
    rows.removeIf([](const QString& row) { return row.trimmed() == "---"_L1; });
    return rows;
}

QStringList added_lines(const QStringList& before, QStringList after)
{
    for (const QString& line : before)
        after.removeOne(line);
    return after;
}
