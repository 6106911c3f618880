// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "samples.h"

#include "describe_program.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "hostdouble/HostDouble.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>

using namespace fennar;
using namespace Qt::StringLiterals;

Command command(const QString& name)
{
    return plain_command(name, {}, [](CommandCall&) {});
}

FileFormat format(const QString& name)
{
    return {name, {name.toLower()}, {}, {}, [](const Surface&) { return QByteArray(); }};
}

UnsavedWork work(const QString& kind)
{
    return {kind,
            {},
            [] { return std::nullopt; },
            [] { return QString(); },
            [] { return QByteArrayList(); },
            [](const QByteArray&, const QString&) { return QString(); }};
}

namespace {

std::vector<QAction*> four_actions(ComponentContext& context)
{
    std::vector<QAction*> actions;
    for (const QString& text : {u"One"_s, u"Two"_s, u"Three"_s, u"Four"_s})
        actions.push_back(context.make_action(text, nullptr));
    return actions;
}

Files files;
ComponentTracker tracker;

const std::vector<Addition> all_additions = {
    {"command",
     [](ComponentContext& context) -> QObject* {
         context.add_command(command(u"sample-command"_s));
         return nullptr;
     },
     false, false},
    {"commands",
     [](ComponentContext& context) -> QObject* {
         context.add_commands([](CommandRegistry& registry, const QString& mark) {
             registry.entities().offer(u"sample thing"_s, mark, [] { return QStringList(); });
             return registry.add_all(mark, {command(u"sample-one"_s)});
         });
         return nullptr;
     },
     false, false},
    {"entities",
     [](ComponentContext& context) -> QObject* {
         context.offer_entities(u"sample"_s, [] { return QStringList{u"a"_s}; });
         return nullptr;
     },
     false, false},
    {"undo",
     [](ComponentContext& context) -> QObject* {
         context.add_undo([] { return std::unique_ptr<UndoSteps::Change>(); });
         return nullptr;
     },
     false, false},
    {"format",
     [](ComponentContext& context) -> QObject* {
         context.add_format(format(u"SAMPLE"_s));
         return nullptr;
     },
     false, false},
    {"unsaved work",
     [](ComponentContext& context) -> QObject* {
         context.add_unsaved_work(work(u"sample"_s));
         return nullptr;
     },
     false, false},
    {"tracker",
     [](ComponentContext& context) -> QObject* {
         context.add_tracker(tracker);
         return nullptr;
     },
     false, false},
    {"import",
     [](ComponentContext& context) -> QObject* {
         context.add_import(std::make_unique<Handler>(u"Sample (*.sample)"_s));
         return nullptr;
     },
     true, false},
    {"export",
     [](ComponentContext& context) -> QObject* {
         context.add_export(std::make_unique<Handler>(u"Sample (*.sample)"_s));
         return nullptr;
     },
     true, false},
    {"open/save handler",
     [](ComponentContext& context) -> QObject* {
         context.set_open_save_handler(files);
         return nullptr;
     },
     true, false},
    {"own menu",
     [](ComponentContext& context) -> QObject* {
         return context.add_menu_entry(u"Sample"_s, u"Entry"_s, nullptr);
     }},
    {"view menu",
     [](ComponentContext& context) -> QObject* {
         return context.add_menu_entry(FixedMenu::View, u"Entry"_s, nullptr);
     }},
    {"tools menu",
     [](ComponentContext& context) -> QObject* {
         return context.add_menu_entry(FixedMenu::Tools, u"Entry"_s, nullptr);
     }},
    {"help menu",
     [](ComponentContext& context) -> QObject* {
         return context.add_menu_entry(FixedMenu::Help, u"Entry"_s, nullptr);
     }},
    {"manual",
     [](ComponentContext& context) -> QObject* {
         return context.add_menu_entry(FixedMenu::Manuals, u"Entry"_s, nullptr);
     }},
    {"own toolbar",
     [](ComponentContext& context) -> QObject* {
         std::vector<QAction*> actions = four_actions(context);
         actions.insert(actions.begin() + 2, nullptr);
         context.add_to_toolbar("SampleTools", u"Sample Tools"_s, actions);
         return actions.front();
     }},
    {"toolbar of others",
     [](ComponentContext& context) -> QObject* {
         const std::vector<QAction*> actions = four_actions(context);
         context.add_to_toolbar("FileTools", {}, actions);
         return actions.front();
     }},
    {"dock",
     [](ComponentContext& context) -> QObject* {
         return context.add_dock(
             u"SampleDock"_s, u"Sample"_s, [] { return new QLabel(u"sample"_s); }, Qt::LeftDockWidgetArea);
     }},
    {"graphics widget",
     [](ComponentContext& context) -> QObject* {
         QWidget* const widget = context.window() ? new QLabel : nullptr;
         context.set_graphics_widget(widget);
         return widget;
     }},
    {"options page",
     [](ComponentContext& context) -> QObject* {
         QWidget* page = nullptr;
         context.add_options_page(u"Sample"_s, [&page] { return OptionsPage{page = new QLabel}; });
         return page;
     }},
    {"options page in a group",
     [](ComponentContext& context) -> QObject* {
         context.add_options_page(u"Samples/One"_s, [] { return OptionsPage{new QLabel}; });
         QWidget* page = nullptr;
         context.add_options_page(u"Samples/Two"_s, [&page] { return OptionsPage{page = new QLabel}; });
         return page;
     }},
    {"about text", [](ComponentContext& context) -> QObject* { return context.add_about_text(u"Sample"_s); }},
    {"console page",
     [](ComponentContext& context) -> QObject* {
         QWidget* const page = context.window() ? new QPlainTextEdit : nullptr;
         context.add_console_page(u"Sample"_s, page);
         return page;
     }},
    {"entry of the editor",
     [](ComponentContext& context) -> QObject* {
         QAction* const action = context.make_action(u"Sample"_s, nullptr);
         context.add_editor_entry(action);
         return action;
     }},
    {"entry of the editor's import menu",
     [](ComponentContext& context) -> QObject* {
         QAction* const action = context.make_action(u"Sample"_s, nullptr);
         context.add_editor_import(action);
         return action;
     }},
    {"page in the editor's import menu",
     [](ComponentContext& context) -> QObject* {
         if (!context.window())
             return nullptr;
         auto& page = context.make<QPlainTextEdit>();
         context.add_editor_import(u"Sample"_s, &page);
         return &page;
     }},
    {"object that input reaches",
     [](ComponentContext& context) -> QObject* {
         if (!context.window())
             return nullptr;
         auto& button = context.make<QPushButton>(context.window());
         context.allow_input(&button);
         return &button;
     }},
    {"shortcut",
     [](ComponentContext& context) -> QObject* {
         return context.add_shortcut(QKeySequence(u"Ctrl+Shift+L"_s), nullptr);
     }},
};

} // namespace

QStringList describe()
{
    QStringList rows = describe_program();
    rows << u"trackers %1"_s.arg(HostDouble::instance().trackers.size());
    return rows;
}

const std::vector<Addition>& additions()
{
    return all_additions;
}
