// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/describe_window.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

class Description
{
public:
    explicit Description(const QMainWindow& window) : mWindow(window) {}

    QStringList write()
    {
        write_menu_bar();
        write_toolbars();
        write_docks();
        write_shortcuts();
        write_loose_menus();
        write_loose_actions();
        return mLines;
    }

private:
    void write_line(int depth, const QString& line) { mLines << QString(qsizetype(2) * depth, u' ') + line; }

    static QString named(const QString& kind, const QString& name, const QString& text)
    {
        return u"%1 %2 \"%3\""_s.arg(kind, name.isEmpty() ? u"-"_s : name, text);
    }

    template <typename Enum>
    static QString enum_name(Enum value)
    {
        return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(static_cast<int>(value)));
    }

    static QString details(const QAction& action)
    {
        QString text;
        if (!action.shortcut().isEmpty())
            text += u" [%1]"_s.arg(action.shortcut().toString(QKeySequence::PortableText));
        if (action.isCheckable())
            text += action.isChecked() ? u" checked"_s : u" unchecked"_s;
        // A hidden action is disabled too.
        if (!action.isVisible())
            text += u" hidden"_s;
        else if (!action.isEnabled())
            text += u" disabled"_s;
        return text;
    }

    void write_action(int depth, const QAction& action)
    {
        mSeen.insert(&action);
        if (action.isSeparator()) {
            write_line(depth, u"---"_s);
            return;
        }
        const auto* menu = action.menu<QMenu*>();
        const QString name = menu ? menu->objectName() : action.objectName();
        write_line(depth, named(menu ? u"menu"_s : u"action"_s, name, action.text()) + details(action));
        // A menu may hang in several places; what is in it is told at the first.
        if (menu && mSeen.insert(menu).second)
            write_actions(depth + 1, menu->actions());
    }

    void write_actions(int depth, const QList<QAction*>& actions)
    {
        for (const QAction* action : actions)
            write_action(depth, *action);
    }

    void write_menu_bar()
    {
        write_line(0, u"menu bar"_s);
        // Asking the window for its bar would make one.
        if (const auto* bar = qobject_cast<QMenuBar*>(mWindow.menuWidget()))
            write_actions(1, bar->actions());
    }

    void write_toolbars()
    {
        for (const QToolBar* bar : mWindow.findChildren<QToolBar*>()) {
            const QString area = enum_name(mWindow.toolBarArea(bar));
            write_line(0, named(u"toolbar"_s, bar->objectName(), bar->windowTitle()) + u" in "_s + area +
                              (bar->isHidden() ? u" hidden"_s : QString()));
            write_actions(1, bar->actions());
            mSeen.insert(bar->toggleViewAction());
        }
    }

    void write_docks()
    {
        for (QDockWidget* dock : mWindow.findChildren<QDockWidget*>()) {
            const QString area = enum_name(mWindow.dockWidgetArea(dock));
            write_line(0, named(u"dock"_s, dock->objectName(), dock->windowTitle()) + u" in "_s + area +
                              (dock->isHidden() ? u" hidden"_s : QString()));
            mSeen.insert(dock->toggleViewAction());
        }
    }

    void write_shortcuts()
    {
        for (const QShortcut* shortcut : mWindow.findChildren<QShortcut*>()) {
            const QObject* const place = shortcut->parent();
            write_line(0, u"shortcut %1 of %2"_s.arg(shortcut->key().toString(QKeySequence::PortableText),
                                                     place->objectName()) +
                              (shortcut->isEnabled() ? QString() : u" disabled"_s));
        }
    }

    void write_loose_menus()
    {
        // The menu of a button hangs there, such as that of what a toolbar has no room for.
        for (const QToolButton* button : mWindow.findChildren<QToolButton*>())
            mSeen.insert(button->menu());
        for (const QMenu* menu : mWindow.findChildren<QMenu*>()) {
            if (mSeen.contains(menu))
                continue;
            write_line(0, named(u"loose menu"_s, menu->objectName(), menu->title()));
            mSeen.insert(menu);
            mSeen.insert(menu->menuAction());
            write_actions(1, menu->actions());
        }
    }

    void write_loose_actions()
    {
        for (const QAction* action : mWindow.findChildren<QAction*>()) {
            if (!mSeen.contains(action) && !belongs_to_other_widget(*action))
                write_line(0, u"loose "_s + (action->isSeparator()
                                                 ? u"---"_s
                                                 : named(u"action"_s, action->objectName(), action->text()) +
                                                       details(*action)));
        }
    }

    // Text fields, tab bars and the like have actions of their own, which are no rows of the window.
    static bool belongs_to_other_widget(const QAction& action)
    {
        const QList<QObject*> holders = action.associatedObjects();
        return std::any_of(holders.begin(), holders.end(), [](const QObject* holder) {
            return !qobject_cast<const QMenu*>(holder) && !qobject_cast<const QMenuBar*>(holder) &&
                   !qobject_cast<const QToolBar*>(holder) && !qobject_cast<const QMainWindow*>(holder);
        });
    }

    const QMainWindow& mWindow;
    QStringList mLines;
    std::set<const QObject*> mSeen;
};

} // namespace

QStringList describe_window(const QMainWindow& window)
{
    return Description(window).write();
}
