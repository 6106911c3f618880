// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/component/ComponentContext.h"

#include "console/CommandWindow.h"
#include "files/ImportExportHandler.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "options/OptionsPanel.h"
#include "workbench/sdk/component/Component.h"
#include "workbench/sdk/component/shell_access.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QToolBar>
#include <QTreeWidget>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** An owner mark of its own for each addition, so that each step takes away its own and nothing else. */
QString make_owner(const QString& name)
{
    static int count = 0;
    return name + u'#' + QString::number(++count);
}

QByteArray make_mark(const QString& name)
{
    return make_owner(name).toUtf8();
}

[[noreturn]] void refuse(const QString& reason)
{
    throw std::runtime_error(reason.toStdString());
}

/** Why a command was not added. */
QString reason(CommandRegistry::AddResult result, const Command& command)
{
    const QString& name = command.name;
    switch (result) {
    case CommandRegistry::AddResult::NameTaken:
        return u"there is a command \"%1\" already"_s.arg(name);
    case CommandRegistry::AddResult::BadName:
        return u"\"%1\" is not a valid command name"_s.arg(name);
    case CommandRegistry::AddResult::NothingToRun:
        return u"the command \"%1\" has no function to run"_s.arg(name);
    case CommandRegistry::AddResult::BadForms:
        return u"the command \"%1\" declares what cannot be: %2"_s.arg(name,
                                                                       declaration_fault(command.forms));
    case CommandRegistry::AddResult::Added:
        break;
    }
    return {};
}

/** The window, unless it is gone or about to go. */
Ostrel* present(const QPointer<Ostrel>& window)
{
    return window && window == Ostrel::instance() ? window.data() : nullptr;
}

} // namespace

Component::~Component() = default;

ComponentContext::ComponentContext(const QString& name, const std::function<void(const QString&)>& report)
    : mName(name), mReport(report), mWindow(Ostrel::instance())
{}

ComponentContext::~ComponentContext()
{
    end();
}

Ostrel* ComponentContext::window() const
{
    return present(mWindow);
}

void ComponentContext::on_end(const Step& step)
{
    if (step)
        mSteps.push_back(step);
}

void ComponentContext::end()
{
    while (!mSteps.empty()) {
        const Step step = std::move(mSteps.back());
        mSteps.pop_back();
        QString failure;
        try {
            step();
            continue;
        } catch (const std::exception& error) {
            failure = QString::fromUtf8(error.what()).simplified();
        } catch (...) {
            failure = u"an exception of an unknown kind"_s;
        }
        failure = u"something could not be taken away: "_s + failure;
        if (mReport)
            mReport(failure);
        else
            qWarning("%s: %s", qUtf8Printable(mName), qUtf8Printable(failure));
    }
}

void ComponentContext::on_end_in_window(const std::function<void(Ostrel& window)>& step)
{
    on_end([main = mWindow, step] {
        if (Ostrel* const window = present(main))
            step(*window);
    });
}

void ComponentContext::add_command(Command command)
{
    CommandRegistry& registry = Fennar::instance().registry();
    command.owner = mName;
    const CommandRegistry::AddResult result = registry.add(command);
    if (result != CommandRegistry::AddResult::Added)
        refuse(reason(result, command));
    const std::weak_ptr<const Command> added = registry.find(command.name);
    on_end([&registry, added, name = command.name] {
        if (const auto found = registry.find(name); found && found == added.lock())
            registry.remove(name);
    });
}

void ComponentContext::add_commands(
    const std::function<bool(CommandRegistry& registry, const QString& owner)>& add)
{
    CommandRegistry& registry = Fennar::instance().registry();
    on_end([&registry, name = mName] { registry.remove_owner(name); });
    if (!add(registry, mName))
        refuse(u"one of its commands is there already"_s);
}

void ComponentContext::offer_entities(const QString& kind, const CommandEntities::Names& names,
                                      const CommandEntities::Meaning& meaning)
{
    CommandEntities& entities = Fennar::instance().registry().entities();
    const QString mark = make_owner(mName);
    on_end([&entities, mark] { entities.withdraw(mark); });
    entities.offer(kind, mark, names, meaning);
}

void ComponentContext::add_undo(const UndoSteps::Source& take)
{
    UndoSteps& steps = Fennar::instance().registry().steps();
    const QString mark = make_owner(mName);
    on_end([&steps, mark] { steps.remove_owner(mark); });
    steps.add_source(mark, take);
}

void ComponentContext::add_format(FileFormat format)
{
    format.owner = make_owner(mName);
    if (!FormatRegistry::instance().add(format))
        refuse(
            u"the format \"%1\", or one of its endings, is there already or not allowed"_s.arg(format.name));
    on_end([mark = format.owner] { FormatRegistry::instance().remove_owner(mark); });
}

void ComponentContext::add_unsaved_work(UnsavedWork work)
{
    work.owner = make_owner(mName);
    if (!UnsavedWorks::instance().add(work))
        refuse(u"unsaved work of the kind \"%1\" is there already, or lacks something"_s.arg(work.kind));
    on_end([mark = work.owner] { UnsavedWorks::instance().remove_owner(mark); });
}

bool ComponentContext::add_handler(std::unique_ptr<ImportExportHandler> handler,
                                   bool (OstrelFileMenu::*add)(ImportExportHandler*))
{
    Ostrel* const main = window();
    if (!main || !handler || !(main->file_menu()->*add)(handler.get()))
        return false;
    ImportExportHandler* const added = handler.release();
    added->mComponent = make_owner(mName);
    on_end_in_window([mark = added->mComponent.toUtf8(), added](Ostrel& window) {
        // The menu has deleted it if it went first.
        if (OstrelFileMenu* const menu = window.file_menu()) {
            menu->remove_component_items(mark.constData());
            delete added;
        }
    });
    return true;
}

bool ComponentContext::add_import(std::unique_ptr<ImportExportHandler> handler)
{
    return add_handler(std::move(handler), &OstrelFileMenu::add_import);
}

bool ComponentContext::add_export(std::unique_ptr<ImportExportHandler> handler)
{
    return add_handler(std::move(handler), &OstrelFileMenu::add_export);
}

void ComponentContext::set_open_save_handler(OpenSaveHandler& handler)
{
    Ostrel* const main = window();
    if (!main)
        return;
    on_end_in_window([this, set = &handler](Ostrel& window) {
        if (mOpenSaveHandler == set)
            mOpenSaveHandler = nullptr;
        if (window.file_menu()->get_open_save_handler() != set)
            return;
        window.file_menu()->set_open_save_handler(nullptr);
        OstrelFileMenu::set_file_name({});
        window.update_title();
    });
    mOpenSaveHandler = &handler;
    main->file_menu()->set_open_save_handler(&handler);
}

OpenSaveHandler* ComponentContext::open_save_handler() const
{
    const Ostrel* const main = window();
    const bool plugged_in = main && main->file_menu()->get_open_save_handler() == mOpenSaveHandler;
    return plugged_in ? mOpenSaveHandler : nullptr;
}

QAction* ComponentContext::make_action(const QString& text, const Step& run)
{
    if (!window())
        return nullptr;
    QAction& action = make<QAction>(text);
    if (run)
        QObject::connect(&action, &QAction::triggered, &action, [run] { run(); });
    return &action;
}

QAction* ComponentContext::make_command_action(const QString& text, const QString& command, CommandUse use)
{
    if (!window())
        return nullptr;
    const std::shared_ptr<const Command> declared = Fennar::instance().registry().find(command);
    if (!declared)
        refuse(u"there is no command \"%1\""_s.arg(command));
    const auto dialog = std::make_shared<QPointer<QWidget>>();
    QAction* const action = make_action(text, [=] {
        const auto& open_form = Fennar::instance().application().open_form;
        if (use == CommandUse::Run)
            send_command(Fennar::instance().registry().line_for_selection(command));
        else if (*dialog && (*dialog)->isVisible())
            (*dialog)->activateWindow();
        else if (open_form)
            *dialog = open_form(command, text);
    });
    action->setStatusTip(declared->translated_summary());
    on_end([dialog] { delete *dialog; });
    return action;
}

void ComponentContext::add_to_menu(const MenuPlace& place, const std::vector<QAction*>& actions)
{
    Ostrel* const main = window();
    if (!main)
        return;
    const QByteArray mark = make_mark(mName);
    on_end_in_window([mark](Ostrel& window) { window.remove_menu_items(mark.constData()); });
    std::vector<QAction*> entries = actions;
    if (const auto* title = std::get_if<QString>(&place)) {
        main->add_to_menu(*title, entries, mark.constData());
    } else if (place == MenuPlace(FixedMenu::View)) {
        main->view_menu()->add_items(entries, mark.constData());
    } else if (place == MenuPlace(FixedMenu::Tools)) {
        main->tools_menu()->add_items(entries, mark.constData());
    } else if (place == MenuPlace(FixedMenu::Help)) {
        main->help_menu()->add_items(entries, mark.constData());
    } else {
        for (QAction* entry : entries)
            main->help_menu()->add_manual(entry, mark.constData());
    }
}

QAction* ComponentContext::add_menu_entry(const MenuPlace& place, const QString& text, const Step& run)
{
    QAction* const action = make_action(text, run);
    if (action)
        add_to_menu(place, {action});
    return action;
}

void ComponentContext::add_to_toolbar(const char* toolbar, const QString& title,
                                      const std::vector<QAction*>& actions, Qt::ToolBarArea area)
{
    Ostrel* const main = window();
    if (!main)
        return;
    const QByteArray mark = make_mark(mName);
    const auto bar = std::make_shared<QPointer<QToolBar>>();
    on_end_in_window([mark, bar](Ostrel& window) {
        const QPointer<Ostrel> alive = &window;
        window.remove_toolbar_items(mark.constData());
        if (!*bar || !(*bar)->actions().isEmpty())
            return;
        delete_waiting_buttons(**bar);
        if (alive)
            window.remove_toolbar_items(mark.constData());
    });
    std::vector<QAction*> buttons = actions;
    std::erase(buttons, nullptr);
    main->add_to_toolbar(toolbar, title, buttons, mark.constData(), area);
    if (window())
        *bar = main->findChild<QToolBar*>(QString::fromUtf8(toolbar));
}

void ComponentContext::add_dock(QDockWidget* dock, Qt::DockWidgetArea area, Qt::DockWidgetAreas allowed)
{
    if (!dock)
        return;
    const QByteArray mark = make_mark(mName);
    // The window forgets the entry in its view menu; the dock itself is for the component to delete.
    const QPointer<QDockWidget> own = delete_at_end(dock);
    on_end_in_window([mark, own](Ostrel& window) {
        window.remove_dock_window(mark.constData());
        if (own)
            window.removeDockWidget(own);
    });
    if (Ostrel* const main = window(); main && !main->add_dock_window(dock, mark.constData(), area, allowed))
        refuse(u"the main window does not take the dock \"%1\""_s.arg(own ? own->objectName() : QString()));
}

QDockWidget* ComponentContext::add_dock(const QString& object_name, const QString& title,
                                        const std::function<QWidget*()>& make_content,
                                        Qt::DockWidgetArea area, Qt::DockWidgetAreas allowed)
{
    Ostrel* const main = window();
    if (!main)
        return nullptr;
    auto* const dock = new QDockWidget(title, main);
    dock->setObjectName(object_name);
    dock->setWidget(make_content());
    add_dock(dock, area, allowed);
    return dock;
}

void ComponentContext::set_graphics_widget(QWidget* widget)
{
    if (!widget)
        return;
    const QPointer<QWidget> own = delete_at_end(widget);
    on_end_in_window([own](Ostrel& window) {
        if (own && window.graphics_widget() == own)
            window.set_graphics_widget(nullptr);
    });
    if (Ostrel* const main = window())
        main->set_graphics_widget(widget);
}

void ComponentContext::add_options_page(const QString& path, const std::function<OptionsPage()>& make_page)
{
    Ostrel* const main = window();
    if (!main)
        return;
    OptionsPanel* const panel = main->options();
    if (options_entry(*panel, path))
        refuse(u"there is a page \"%1\" of options already"_s.arg(path));
    const QString group = path.section(u'/', 0, -2);
    if (!group.isEmpty() && !options_entry(*panel, group)) {
        on_end_in_window([group](Ostrel& window) {
            // Others may have joined it.
            const QTreeWidgetItem* entry = options_entry(*window.options(), group);
            if (entry && entry->childCount() == 0)
                window.options()->remove_panel(group);
        });
    }
    const OptionsPage page = make_page();
    if (!page.widget)
        return;
    delete_at_end(page.widget);
    on_end_in_window([path](Ostrel& window) { window.options()->remove_panel(path); });
    panel->add_panel(path, page.widget);
    if (page.refresh)
        QObject::connect(panel, &OptionsPanel::refreshSettings, page.widget, page.refresh);
    if (page.save)
        QObject::connect(panel, &OptionsPanel::saveSettings, page.widget, page.save);
}

QLabel* ComponentContext::add_about_text(const QString& text)
{
    Ostrel* const main = window();
    if (!main)
        return nullptr;
    QLabel& label = make<QLabel>(text);
    label.setAlignment(Qt::AlignCenter); // as the dialog's own texts
    on_end_in_window([own = QPointer<QLabel>(&label)](Ostrel& window) {
        if (own)
            window.help_menu()->remove_about(own);
    });
    main->help_menu()->add_about(&label);
    return &label;
}

void ComponentContext::add_console_page(const QString& title, QWidget* page)
{
    if (!page)
        return;
    const QPointer<QWidget> own = delete_at_end(page);
    on_end_in_window([own](Ostrel& window) { window.command_line()->remove_command_tab(own); });
    if (Ostrel* const main = window())
        main->command_line()->add_command_tab(title, page);
}

void ComponentContext::add_editor_entry(QAction* action)
{
    JournalEditor* const editor = window() ? window()->journal_editor() : nullptr;
    if (!editor || !action)
        return;
    on_end([own = QPointer<QAction>(action), from = QPointer<JournalEditor>(editor)] {
        if (!own || !from)
            return;
        from->removeAction(own);
        from->remove_context_menu_items(own);
    });
    editor->add_context_menu_item(action);
    editor->addAction(action);
}

void ComponentContext::add_editor_import(QAction* action)
{
    JournalEditor* const editor = window() ? window()->journal_editor() : nullptr;
    if (!editor || !action)
        return;
    on_end([own = QPointer<QAction>(action), menu = QPointer<QMenu>(import_menu(*editor))] {
        if (own && menu)
            menu->removeAction(own);
    });
    editor->add_action_to_import_menu(action);
}

void ComponentContext::add_editor_import(const QString& label, QPlainTextEdit* page)
{
    JournalEditor* const editor = window() ? window()->journal_editor() : nullptr;
    if (!editor || !page)
        return;
    const QByteArray mark = make_mark(mName);
    on_end([mark, from = QPointer<JournalEditor>(editor)] {
        if (from)
            from->remove_import_items(mark.constData());
    });
    editor->add_import(mark.constData(), label, page);
}

void ComponentContext::allow_input(QObject* object)
{
    Ostrel* const main = window();
    if (!main || !object)
        return;
    on_end_in_window([own = QPointer<QObject>(object)](Ostrel& window) {
        if (own)
            window.event_filter()->removeObject(own);
    });
    main->event_filter()->addObject(object);
}

QShortcut* ComponentContext::add_shortcut(const QKeySequence& key, const Step& run)
{
    Ostrel* const main = window();
    if (!main)
        return nullptr;
    QShortcut& shortcut = make<QShortcut>(key, main);
    if (run)
        QObject::connect(&shortcut, &QShortcut::activated, &shortcut, [run] { run(); });
    return &shortcut;
}

void ComponentContext::add_tracker(ComponentTracker& tracker)
{
    on_end([added = &tracker] { Broker::instance()->remove_component_tracker(added); });
    Broker::instance()->add_component_tracker(&tracker);
}

} // namespace fennar
