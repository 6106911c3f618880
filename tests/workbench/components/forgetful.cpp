// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that adds one of each and takes nothing away; made for several names and ways to go.

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "host/ostrelfw/Mediator.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "workbench/components/component.h"
#include "workbench/fennari19/CommandCall.h"
#include "workbench/fennari19/CommandRegistry.h"
#include "workbench/fennari19/Fennar.h"

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

using namespace Qt::StringLiterals;

namespace {

constexpr auto owner = RECORD_NAME;

/** Of a class that only this component knows. */
class OwnLabel : public QLabel
{
public:
    using QLabel::QLabel;
    ~OwnLabel() override { setObjectName({}); }
};

class OwnTracker : public ComponentTracker
{};

OwnTracker tracker;
QList<QPointer<QObject>> additions;

QAction* action(const QString& text)
{
    auto* made = new QAction(text, Ostrel::instance());
    made->setObjectName(text);
    additions << made;
    return made;
}

void add_to_window(Ostrel* window)
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
#ifndef RECORD_LATER
    auto* graphics = new QWidget;
    graphics->setObjectName(u"leftGraphics"_s);
    window->set_graphics_widget(graphics);
    auto* free_window = new OwnLabel(u"left"_s);
    free_window->setObjectName(u"leftWindow"_s);
    free_window->show();
#endif
}

void load()
{
    Fennar::instance().registry().add({QStringLiteral(RECORD_NAME) + u"-command"_s,
                                       u"left"_s,
                                       {},
                                       {},
                                       QStringLiteral(RECORD_NAME),
                                       [](CommandCall&) {}});
    Fennar::instance().registry().add(
        {QStringLiteral(RECORD_NAME) + u"-other"_s, u"left"_s, {}, {}, u"nobody"_s, [](CommandCall&) {}});
    Broker::instance()->add_component_tracker(&tracker);
    if (Ostrel* window = Ostrel::instance())
        add_to_window(window);
#ifdef RECORD_THROWS
    throw RECORD_THROWS;
#endif
}

void unload()
{
#ifdef RECORD_LATER
    // All of it is taken away, but some of it not yet.
    Broker::instance()->remove_component_tracker(&tracker);
    Fennar::instance().registry().remove(QStringLiteral(RECORD_NAME) + u"-other"_s);
    Fennar::instance().registry().remove_owner(QStringLiteral(RECORD_NAME));
    if (Ostrel* window = Ostrel::instance()) {
        window->remove_menu_items(owner);
        window->remove_toolbar_items(owner);
        window->remove_dock_window(owner);
    }
    for (const QPointer<QObject>& addition : std::as_const(additions)) {
        if (addition)
            addition->deleteLater();
    }
#endif
    additions.clear();
#ifdef RECORD_UNLOAD_THROWS
    throw std::runtime_error("no way out");
#endif
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, RECORD_NAME, "1", &load, &unload};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
