// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto section_separator = u"ot_section_separator"_s;

MenuEntry* make_entry(const QString& owner, QAction* action)
{
    auto entry = std::make_unique<MenuEntry>();
    entry->owner = owner;
    entry->action = action;
    entry->shown = action;
    return entry.release();
}

void delete_and_clear(MenuEntry*& entry)
{
    delete entry;
    entry = nullptr;
}

} // namespace

MenuSection::~MenuSection()
{
    qDeleteAll(entries);
}

MenuSections::~MenuSections()
{
    qDeleteAll(sections);
}

void MenuSections::set_menu(QMenu* filled_menu, QAction* bar_action)
{
    menu = filled_menu;
    menu_action = bar_action;
}

MenuSection* MenuSections::find_section(const char* section, int position, int* run, int* total)
{
    int actions_in_a_row = 0;
    int entry_count = 0;
    MenuSection* found = nullptr;
    const QString wanted = QString::fromUtf8(section);
    for (MenuSection* candidate : sections) {
        for (const MenuEntry* entry : candidate->entries)
            actions_in_a_row = entry->action ? actions_in_a_row + 1 : 0;
        entry_count += static_cast<int>(candidate->entries.size());
        if (!section || candidate->name == wanted) {
            found = candidate;
            // Without a name the walk goes on to the last one.
            if (section)
                break;
        }
    }
    if (run)
        *run = actions_in_a_row;
    if (total)
        *total = entry_count;
    if (found)
        return found;

    auto* made = new MenuSection(section ? wanted : name + u"_section"_s);
    const bool inside = position >= 0 && position < static_cast<int>(sections.size());
    sections.insert(inside ? sections.begin() + position : sections.end(), made);
    return made;
}

void MenuSections::add_section(const char* section, int position)
{
    if (section)
        find_section(section, position, nullptr, nullptr);
}

void MenuSections::add_item(QAction* action, const char* component, const char* section)
{
    std::vector<QAction*> actions{action};
    add_items(actions, component, section);
}

void MenuSections::add_items(std::vector<QAction*>& actions, const char* component, const char* section)
{
    int run = 0;
    MenuSection* const target = find_section(section, -1, &run, nullptr);
    if (!component || (!menu && !toolbar) || actions.empty())
        return;

    // Widgets only append here: what stands behind the target is taken out and put in again.
    const auto later = std::find(sections.begin(), sections.end(), target) + 1;
    if (later != sections.end()) {
        // A toolbar is cleared altogether, which brings back what an earlier removal has emptied it of.
        const auto first = toolbar ? sections.begin() : later;
        for (auto it = first; it != sections.end(); ++it)
            for (MenuEntry* entry : (*it)->entries)
                take_out(*entry);
        if (toolbar)
            toolbar->clear();
        for (auto it = first; it != later; ++it)
            for (MenuEntry* entry : (*it)->entries)
                put_in(*entry);
    }

    const auto append = [&](QAction* action, const QString& owner) {
        target->entries.push_back(make_entry(owner, action));
        put_in(*target->entries.back());
        run = action ? run + 1 : 0;
    };
    if (run >= 1 && target->entries.empty() && actions.front())
        append(nullptr, section_separator);
    const QString owner = QString::fromUtf8(component);
    for (QAction* action : actions)
        if (action || run >= 1)
            append(action, owner);

    for (auto behind = later; behind != sections.end(); ++behind)
        put_in_again(**behind, run);
}

void MenuSections::remove_items(const char* component)
{
    if (!component || (!menu && !toolbar))
        return;

    const QString owner = QString::fromUtf8(component);
    // Counted over the whole list: a separator that stays does not start the count anew.
    int kept = 0;
    bool lost_toolbar_separator = false;
    for (MenuSection* section : sections) {
        for (MenuEntry*& entry : section->entries) {
            const bool leads = !entry->action && kept == 0;
            if (entry->owner != owner && !leads) {
                if (entry->action)
                    ++kept;
                continue;
            }
            if (toolbar && !entry->action)
                lost_toolbar_separator = true;
            take_out(*entry);
            delete_and_clear(entry);
        }
        std::erase(section->entries, nullptr);
    }
    // What is left is not put back, which is intended; see the header.
    if (lost_toolbar_separator)
        toolbar->clear();
}

void MenuSections::get_items(std::vector<QAction*>& out, const char* section) const
{
    const QString wanted = QString::fromUtf8(section);
    for (const MenuSection* candidate : sections) {
        if (section && candidate->name != wanted)
            continue;
        for (const MenuEntry* entry : candidate->entries)
            if (entry->action && entry->shown)
                out.push_back(entry->action);
        return;
    }
}

void MenuSections::take_out(MenuEntry& entry)
{
    if (!entry.action) {
        // Separators are this class's own. Deleting one removes it from its widget.
        delete entry.shown;
        entry.separator = nullptr;
        return;
    }
    if (!entry.shown)
        return;
    if (toolbar)
        toolbar->removeAction(entry.action);
    else
        menu->removeAction(entry.action);
}

void MenuSections::put_in(MenuEntry& entry)
{
    if (!entry.action) {
        entry.shown = toolbar ? toolbar->addSeparator() : menu->addSeparator();
        entry.separator = toolbar ? nullptr : entry.shown.data();
        return;
    }
    if (!entry.shown)
        return;
    if (toolbar)
        toolbar->addAction(entry.action);
    else
        menu->addAction(entry.action);
}

void MenuSections::put_in_again(MenuSection& section, int& run)
{
    if (run > 0 && !section.entries.empty() && section.entries.front()->action)
        section.entries.insert(section.entries.begin(), make_entry(section_separator, nullptr));
    for (MenuEntry*& entry : section.entries) {
        if (!entry->action && run < 1) {
            delete_and_clear(entry);
            continue;
        }
        run = entry->action ? run + 1 : 0;
        put_in(*entry);
    }
    std::erase(section.entries, nullptr);
}
