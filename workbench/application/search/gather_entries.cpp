// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/search/gather_entries.h"

#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("CommandSearch", text);
}

/** Why the entry of a menu cannot be run: what was said of it, or of a menu that it stands in. */
QString refusal_of(const QAction* action, const QList<QPointer<QMenu>>& path)
{
    QList<const QAction*> above = {action};
    for (const QPointer<QMenu>& menu : path)
        above << (menu ? menu->menuAction() : nullptr);
    const auto disabled = std::find_if(above.begin(), above.end(),
                                       [](const QAction* one) { return !one || !one->isEnabled(); });
    if (disabled == above.end())
        return {};
    const QString reason = *disabled ? disabled_reason(*disabled) : QString();
    return reason.isEmpty() ? translated(QT_TRANSLATE_NOOP("CommandSearch", "Not available now.")) : reason;
}

/** What an entry tells besides its text. */
QString tip_of(const QAction* action)
{
    const QString tip = action->statusTip().isEmpty() ? action->toolTip() : action->statusTip();
    // An action without a tool tip has one made of its text.
    const QString of_text = QString(action->text()).remove(u"..."_s).remove(u'&').trimmed();
    const bool has_own = tip != of_text && tip != plain_menu_text(action->text());
    return has_own ? tip : QString();
}

class MenuWalk
{
public:
    explicit MenuWalk(const QList<QAction*>& without) : mSeen(without.begin(), without.end()) {}

    void walk(const QList<QAction*>& actions, const QString& place, const QList<QPointer<QMenu>>& path)
    {
        for (QAction* action : actions) {
            const QString text = plain_menu_text(action->text());
            // One that stands in several menus is found in the first of them, and no menu holds itself.
            if (action->isSeparator() || !action->isVisible() || text.isEmpty() || mSeen.contains(action))
                continue;
            mSeen << action;
            if (QMenu* menu = action->menu()) {
                found.menus << menu;
                walk(menu->actions(), place.isEmpty() ? text : place + u" > "_s + text,
                     path + QList<QPointer<QMenu>>{menu});
            } else {
                add(action, text, place, path);
            }
        }
    }

    MenuEntries found;

private:
    void add(QAction* action, const QString& text, const QString& place, const QList<QPointer<QMenu>>& path)
    {
        found.entries << SearchEntry{.text = text,
                                     .place = place,
                                     .key = action->shortcut().toString(QKeySequence::NativeText),
                                     .tip = tip_of(action),
                                     .refusal = refusal_of(action, path),
                                     .run = [action = QPointer(action), path] {
                                         if (action && refusal_of(action, path).isEmpty())
                                             action->trigger();
                                     }};
    }

    QSet<QAction*> mSeen;
};

} // namespace

QString plain_menu_text(const QString& text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size() && text[i] != u'\t'; ++i) {
        if (text[i] == u'(' && i + 3 < text.size() && text[i + 1] == u'&' && text[i + 3] == u')')
            i += 3; // as in "Open (&O)"
        else if (text[i] != u'&' || ++i < text.size())
            plain += text[i];
    }
    plain = plain.trimmed();
    for (const QStringView dots : {u"...", u"\u2026"}) {
        if (plain.endsWith(dots))
            plain.chop(dots.size());
    }
    return plain.trimmed();
}

MenuEntries gather_menus(const QMenuBar* bar, const QString& above, const QList<QAction*>& without)
{
    MenuWalk menus(without);
    menus.walk(bar->actions(), above, {});
    return menus.found;
}

bool runs_without_arguments(const Command& command)
{
    return std::any_of(command.forms.begin(), command.forms.end(), [](const CommandSyntax& form) {
        return std::all_of(form.clauses.begin(), form.clauses.end(),
                           [](const CommandClause& clause) { return clause.optional; });
    });
}

QList<SearchEntry> gather_commands(const CommandRegistry& registry,
                                   const QHash<QString, QPersistentModelIndex>& panel, const UseName& use)
{
    QList<SearchEntry> entries;
    const QStringList names = registry.names();
    for (const QString& name : names) {
        const auto command = registry.find(name);
        const QPersistentModelIndex entry = panel.value(name);
        const QString title = entry.data().toString();
        const QString tip = entry.data(NavigationRole::Tip).toString();
        entries << SearchEntry{
            .text = title.isEmpty() ? name : title,
            .place = title.isEmpty() ? translated(QT_TRANSLATE_NOOP("CommandSearch", "Command"))
                                     : translated(QT_TRANSLATE_NOOP("CommandSearch", "Command %1")).arg(name),
            .tip = tip.isEmpty() ? command->translated_summary() : tip,
            .words = entry.parent().data().toString(),
            .run = [name, use] { use(name); }};
    }
    return entries;
}

QList<SearchEntry> gather_pages(const QStringList& pages, const UseName& show)
{
    const QString options = translated(QT_TRANSLATE_NOOP("CommandSearch", "Options"));
    QList<SearchEntry> entries;
    for (const QString& page : pages) {
        const bool is_group = std::any_of(
            pages.begin(), pages.end(), [&](const QString& other) { return other.startsWith(page + u'/'); });
        if (is_group)
            continue;
        const QStringList parts = page.split(u'/');
        entries << SearchEntry{.text = parts.last(),
                               .place =
                                   (QStringList(options) + parts.sliced(0, parts.size() - 1)).join(u" > "_s),
                               .run = [page, show] { show(page); }};
    }
    return entries;
}

QList<SearchEntry> gather_recent_files(const QList<std::pair<QString, QAction*>>& files)
{
    QList<SearchEntry> entries;
    for (const auto& [path, action] : files) {
        const QFileInfo file(path);
        entries << SearchEntry{.text = file.fileName(),
                               .place = translated(QT_TRANSLATE_NOOP("CommandSearch", "Recent file in %1"))
                                            .arg(QDir::toNativeSeparators(file.path())),
                               .tip = QDir::toNativeSeparators(path),
                               .refusal = refusal_of(action, {}),
                               .run = [action = QPointer(action)] {
                                   if (action)
                                       action->trigger();
                               }};
    }
    return entries;
}

} // namespace fennar
