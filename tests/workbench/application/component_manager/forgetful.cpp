// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that adds one of each by itself, round its context, and takes nothing away; made for several
// names and ways to go.

#include "console/CommandWindow.h"
#include "files/ImportExportHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "options/OptionsPanel.h"
#include "support/IdleDocuments.h"
#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"
#include "workbench/sdk/core/files/FormatRegistry.h"
#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>

#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Of a class that only this component knows. */
class OwnLabel : public QLabel
{
public:
    using QLabel::QLabel;
    ~OwnLabel() override { setObjectName({}); }
};

class OwnTracker : public ComponentTracker
{};

class OwnFiles : public IdleDocuments
{};

class OwnFormat : public ImportExportHandler
{
public:
    explicit OwnFormat(const QString& filters) : ImportExportHandler({}) { mFilters = filters; }
    void execute(const QString&, const QString&) override {}
};

OwnTracker tracker;
OwnFiles files;
// The file menu would delete them if it still had them when it goes.
OwnFormat import_format(u"Left (*.left)"_s);
OwnFormat export_format(u"Left Out (*.lft)"_s);
QList<QPointer<QObject>> additions;

QAction* action(const QString& text)
{
    auto* made = new QAction(text, Ostrel::instance());
    made->setObjectName(text);
    additions << made;
    return made;
}

void add_to_window(Ostrel* window, const char* owner)
{
    std::vector<QAction*> entries{action(u"left entry"_s), nullptr, action(u"left second"_s)};
    window->add_to_menu(u"Left"_s, entries, owner);
    window->view_menu()->add_item(action(u"left view"_s), owner);
    window->tools_menu()->add_item(action(u"left tool"_s), owner);
    window->help_menu()->add_item(action(u"left help"_s), owner);
    window->menuBar()->addAction(action(u"left in the bar"_s));
    std::vector<QAction*> joined{action(u"left button"_s)};
    window->add_to_toolbar("FileTools", {}, joined, owner, Qt::TopToolBarArea);
    std::vector<QAction*> own;
    own.reserve(6);
    for (int i = 0; i < 6; ++i)
        own.push_back(action(u"left button %1"_s.arg(i)));
    window->add_to_toolbar("LeftTools", u"Left Tools"_s, own, owner, Qt::TopToolBarArea);

    auto* dock = new QDockWidget(u"Left Dock"_s, window);
    dock->setObjectName(u"LeftDock"_s);
    dock->setWidget(new OwnLabel);
    window->add_dock_window(dock, owner, Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
    additions << dock;
    auto* page = new QPlainTextEdit;
    page->setObjectName(u"leftPage"_s);
    window->command_line()->add_command_tab(u"Left"_s, page);
    additions << page;
    auto* shortcut = new QShortcut(QKeySequence(u"Ctrl+Shift+L"_s), window);
    additions << shortcut;
    auto* label = new OwnLabel(u"left"_s, window->statusBar());
    label->setObjectName(u"leftLabel"_s);
    additions << label;
    auto* about = new OwnLabel(u"left"_s);
    about->setObjectName(u"leftAbout"_s);
    window->help_menu()->add_about(about);
    additions << about;
    auto* option_page = new OwnLabel(u"left"_s);
    option_page->setObjectName(u"leftOptions"_s);
    window->options()->add_panel(u"Left Group/Left Page"_s, option_page);
    additions << option_page;
    window->journal_editor()->add_import(owner, u"left import"_s, page);
#ifndef RECORD_LATER
    window->options()->add_panel(u"Left Top"_s, nullptr);
    window->file_menu()->set_open_save_handler(&files);
    OstrelFileMenu::set_file_name(u"left.file"_s);
    window->update_title();
    window->file_menu()->add_import(&import_format);
    window->file_menu()->add_export(&export_format);
    auto* graphics = new QWidget;
    graphics->setObjectName(u"leftGraphics"_s);
    window->set_graphics_widget(graphics);
    auto* free_window = new OwnLabel(u"left"_s);
    free_window->setObjectName(u"leftWindow"_s);
    free_window->show();
#endif
}

#ifdef RECORD_LATER
/** All of it is taken away, but some of it not yet. */
void take_away(const QString& name)
{
    FormatRegistry::instance().remove_owner(name);
    UnsavedWorks::instance().remove_owner(name);
    Broker::instance()->remove_component_tracker(&tracker);
    Fennar::instance().registry().remove(name + u"-other"_s);
    Fennar::instance().registry().remove_owner(name);
    if (Ostrel* window = Ostrel::instance()) {
        const QByteArray owner = name.toUtf8();
        window->remove_menu_items(owner.constData());
        window->remove_toolbar_items(owner.constData());
        window->remove_dock_window(owner.constData());
        window->journal_editor()->remove_import_items(owner.constData());
        window->options()->remove_panel(u"Left Group/Left Page"_s);
        window->options()->remove_panel(u"Left Group"_s);
    }
    for (const QPointer<QObject>& addition : std::as_const(additions)) {
        if (addition)
            addition->deleteLater();
    }
}
#endif

} // namespace

void fennar::load_component(ComponentContext& context)
{
    const QString name = context.name();
    CommandRegistry& registry = Fennar::instance().registry();
    context.on_end([] { additions.clear(); });
#ifdef RECORD_LATER
    context.on_end([name] { take_away(name); });
#endif
#ifdef RECORD_UNLOAD_THROWS
    context.add_command(plain_command(name + u"-told"_s, {}, [](CommandCall&) {}));
    context.on_end([] { throw std::runtime_error("no way out"); });
#endif
#ifdef RECORD_THROWS
    context.add_command(plain_command(name + u"-told"_s, {}, [](CommandCall&) {}));
    context.add_menu_entry(u"Told"_s, u"told"_s, nullptr);
    context.add_format({u"TOLD"_s, {u"told"_s}, {}, {}, [](const Surface&) { return ""; }});
    throw RECORD_THROWS;
#endif
    registry.add(plain_command(name + u"-command"_s, name, [](CommandCall&) {}));
    registry.add(plain_command(name + u"-other"_s, u"nobody"_s, [](CommandCall&) {}));
    FormatRegistry::instance().add({u"LEFT"_s, {u"left"_s}, name, {}, [](const Surface&) { return ""; }});
    UnsavedWorks::instance().add({u"left"_s, name, [] { return std::nullopt; }, [] { return QString(); },
                                  [] { return QByteArrayList(); },
                                  [](const QByteArray&, const QString&) { return QString(); }});
    Broker::instance()->add_component_tracker(&tracker);
    import_format.mComponent = name;
    export_format.mComponent = name;
    if (Ostrel* window = context.window())
        add_to_window(window, name.toUtf8().constData());
}
