// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a component adds behind the window's face: option pages, documents, formats, journals, graphics.

#include "acts.h"
#include "component_helpers.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/OstrelSplitter.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

// --- Options and help

void adds_an_option_page(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    Component& owner = monkey.component();
    if (!window || owner.option_pages.size() > 3)
        return;
    const QString path =
        QString::fromUtf8(owner.name) + (monkey.one_in(3) ? QString() : u'/' + monkey.fresh_text());
    if (owner.option_pages.value(path))
        return;
    window->options()->remove_panel(path);
    const QPointer<QWidget> page = new Own<QWidget>;
    if (Ostrel* const same = monkey.window(); same && !owner.option_pages.value(path)) {
        owner.option_pages.insert(path, page);
        same->options()->add_panel(path, page);
    } else {
        Busy::let_go(page);
    }
}

void takes_an_option_page_out(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    Component& owner = monkey.component();
    const QString path = monkey.one_of(owner.option_pages.keys());
    const QPointer<QWidget> page = owner.option_pages.take(path);
    if (window)
        window->options()->remove_panel(path);
    Busy::let_go(page);
}

void deletes_an_option_page(Monkey& monkey)
{
    Component& owner = monkey.component();
    Busy::let_go(owner.option_pages.value(monkey.one_of(owner.option_pages.keys())));
}

void shows_an_option_page(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->options()->show_panel(monkey.one_of(monkey.component().option_pages.keys()));
}

void tells_about_itself(Monkey& monkey)
{
    auto* const about = new Own<QWidget>;
    monkey.component().abouts << about;
    if (Ostrel* const window = monkey.window())
        window->help_menu()->add_about(about);
}

void tells_about_itself_no_more(Monkey& monkey)
{
    const QPointer<QWidget> about = take_any(monkey, monkey.component().abouts);
    if (Ostrel* const window = monkey.window(); window && monkey.one_in(2))
        window->help_menu()->remove_about(about);
    Busy::let_go(about);
}

// --- Dialogs

void opens_a_dialog(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    switch (monkey.below(8)) {
    case 0:
        window->tools_menu()->run_options();
        break;
    case 1:
        window->help_menu()->help_about();
        break;
    case 2:
        window->file_menu()->file_import();
        break;
    case 3:
        window->file_menu()->file_export();
        break;
    case 4:
        window->file_menu()->file_open();
        break;
    case 5:
        window->file_menu()->file_save_as();
        break;
    case 6:
        window->journal_editor()->editFind();
        break;
    default:
        window->file_menu()->check_modified();
        break;
    }
}

// --- Documents and formats

void plugs_its_documents_in(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    if (!owner.documents)
        owner.documents = std::make_unique<Documents>();
    owner.documents->modified = monkey.one_in(2);
    monkey.world().plugged = owner.documents.get();
    window->file_menu()->set_open_save_handler(owner.documents.get());
}

void deletes_its_documents(Monkey& monkey)
{
    monkey.world().delete_documents(monkey.component());
}

void changes_its_documents(Monkey& monkey)
{
    if (const auto& documents = monkey.component().documents)
        documents->modified = true;
}

void works_on_documents(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    switch (monkey.below(5)) {
    case 0:
        window->file_menu()->file_new();
        break;
    case 1:
        window->file_menu()->file_save();
        break;
    case 2:
        window->file_menu()->open_recent_file(monkey.file_name());
        break;
    case 3:
        window->file_menu()->import_recent_file(u"import \""_s + monkey.file_name() + u'"');
        break;
    default:
        window->file_menu()->file_directory();
        break;
    }
}

void adds_a_format(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    const QString name = monkey.fresh_text();
    auto* const format = new Format(QString::fromUtf8(owner.name), name + u" (*.x)"_s);
    owner.formats << format;
    if (monkey.one_in(2)) {
        monkey.world().imports << format;
        window->file_menu()->add_import(format);
    } else {
        monkey.world().exports << format;
        window->file_menu()->add_export(format);
    }
}

void deletes_its_formats(Monkey& monkey)
{
    monkey.world().delete_formats(monkey.component());
}

void imports_or_exports(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    QString filters;
    window->file_menu()->get_import_filters(filters);
    window->file_menu()->execute_import(monkey.file_name(), filters.section(u";;"_s, 0, 0));
    if (monkey.window() != window)
        return;
    filters.clear();
    window->file_menu()->get_export_filters(filters);
    window->file_menu()->execute_export(monkey.file_name(), filters.section(u";;"_s, -1));
}

// --- Journals and graphics

void adds_to_the_journal_editor(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    JournalEditor* const editor = window->journal_editor();
    switch (monkey.below(4)) {
    case 0:
        editor->add_document(monkey.fresh_text());
        break;
    case 1:
        editor->add_import(owner.name, monkey.fresh_text(),
                           qobject_cast<QPlainTextEdit*>(monkey.one_of(owner.console_pages)));
        break;
    case 2:
        editor->add_action_to_import_menu(make_action(monkey, owner));
        break;
    default:
        editor->add_context_menu_item(make_action(monkey, owner));
        break;
    }
}

void takes_out_of_the_journal_editor(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    if (monkey.one_in(2))
        window->journal_editor()->remove_import_items(owner.name);
    else
        window->journal_editor()->remove_context_menu_items(monkey.one_of(owner.actions));
}

void opens_a_journal(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->journal_editor()->open_file(monkey.file_name());
}

void shows_graphics(Monkey& monkey)
{
    Component& owner = monkey.component();
    if (owner.canvases.size() < 2)
        owner.canvases << new Own<QWidget>;
    QWidget* const canvas = monkey.one_in(4) ? nullptr : monkey.one_of(owner.canvases).data();
    Ostrel* const window = monkey.window();
    if (!window || Busy::with(canvas) || Busy::with(window->graphics_area()))
        return;
    monkey.world().graphics = canvas;
    window->set_graphics_widget(canvas);
}

void deletes_a_canvas(Monkey& monkey)
{
    Busy::let_go(take_any(monkey, monkey.component().canvases));
}

void leaves(Monkey& monkey)
{
    monkey.world().leave(monkey.component());
}

} // namespace

const std::vector<Act>& component_content_acts()
{
    static const std::vector<Act> acts{
        {"adds an option page", adds_an_option_page},
        {"takes an option page out", takes_an_option_page_out},
        {"deletes an option page", deletes_an_option_page},
        {"shows an option page", shows_an_option_page, true},
        {"tells about itself", tells_about_itself},
        {"tells about itself no more", tells_about_itself_no_more},
        {"opens a dialog", opens_a_dialog, true},
        {"plugs its documents in", plugs_its_documents_in},
        {"deletes its documents", deletes_its_documents},
        {"changes its documents", changes_its_documents},
        {"works on documents", works_on_documents, true},
        {"adds a format", adds_a_format},
        {"deletes its formats", deletes_its_formats},
        {"imports or exports", imports_or_exports, true},
        {"adds to the journal editor", adds_to_the_journal_editor},
        {"takes out of the journal editor", takes_out_of_the_journal_editor},
        {"opens a journal", opens_a_journal, true},
        {"shows graphics", shows_graphics},
        {"deletes a canvas", deletes_a_canvas},
        {"leaves", leaves},
    };
    return acts;
}
