// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"

#include "frame/Alive.h"

#include <QAction>
#include <QMenu>
#include <QScopeGuard>
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
    if (!menu)
        return;
    QObject::connect(menu, &QObject::destroyed, &mLife, [this, filled_menu] {
        if (menu == filled_menu)
            set_menu(nullptr, nullptr);
    });
}

void MenuSections::set_toolbar(QToolBar* filled_toolbar)
{
    toolbar = filled_toolbar;
    if (!toolbar)
        return;
    QObject::connect(toolbar, &QObject::destroyed, &mLife, [this, filled_toolbar] {
        if (toolbar == filled_toolbar)
            toolbar = nullptr;
    });
}

QWidget* MenuSections::widget() const
{
    // Of a widget that is being destroyed little is left but a QWidget, and what is in it may call here.
    if (toolbar)
        return qobject_cast<QToolBar*>(static_cast<QObject*>(toolbar));
    return qobject_cast<QMenu*>(static_cast<QObject*>(menu));
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
    if (!mChanging)
        mRemovedFrom = false;
    int run = 0;
    MenuSection* const target = find_section(section, -1, &run, nullptr);
    if (!component || !widget() || actions.empty())
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
            mSteps.push_back({Step::Kind::Clear, nullptr});
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
    change_widget();
}

void MenuSections::remove_items(const char* component)
{
    if (!component || !widget())
        return;

    mRemovedFrom = mChanging;
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
    // What is left is not put back; see the header.
    if (lost_toolbar_separator)
        mSteps.push_back({Step::Kind::Clear, nullptr});
    change_widget();
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
    if (entry.action) {
        mSteps.push_back({Step::Kind::Remove, entry.shown});
        return;
    }
    // Separators are this class's own. Deleting one removes it from its widget.
    mSteps.push_back({Step::Kind::Delete, entry.shown});
    entry.shown = nullptr;
    entry.separator = nullptr;
}

void MenuSections::put_in(MenuEntry& entry)
{
    if (!entry.action) {
        auto* separator = new QAction(&mLife);
        separator->setSeparator(true);
        entry.shown = separator;
        entry.separator = toolbar ? nullptr : separator;
    }
    mSteps.push_back({Step::Kind::Add, entry.shown});
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

void MenuSections::change_widget()
{
    // The call that is under way does these steps, too.
    if (mChanging)
        return;
    mChanging = true;
    const Alive alive(&mLife);
    const auto done = qScopeGuard([&] {
        if (alive)
            mChanging = false;
    });
    while (alive && !mSteps.empty()) {
        const Step step = mSteps.front();
        mSteps.pop_front();
        do_step(step);
    }
}

// At most one call out, at its end.
void MenuSections::do_step(const Step& step)
{
    QWidget* const changed = widget();
    if (!changed || (!step.action && step.kind != Step::Kind::Clear))
        return;
    switch (step.kind) {
    case Step::Kind::Add:
        if (step.action->parent() == &mLife) {
            // Belongs to its widget, as one of QMenu's own does; the widget tells of that as well.
            mSteps.push_front(step);
            step.action->setParent(changed);
        } else {
            changed->addAction(step.action);
        }
        break;
    case Step::Kind::Remove:
        changed->removeAction(step.action);
        break;
    case Step::Kind::Delete:
        delete step.action;
        break;
    case Step::Kind::Clear: {
        QList<QAction*> shown = changed->actions();
        while (!shown.isEmpty())
            mSteps.push_front({Step::Kind::Remove, shown.takeLast()});
        break;
    }
    }
}
