// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAction>
#include <QList>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <QWidgetAction>

/**
 * A menu or a toolbar that what is in it may remove: a click on one of its own entries, for one.
 *
 * To be deleted with remove() by whoever does not know what has led to the call.
 */
template <class Base>
class RemovableWidget : public Base
{
public:
    using Base::Base;

    /** Puts remove() off while it lives: for whoever has more to do with the widget behind a call. */
    class Use
    {
    public:
        explicit Use(RemovableWidget* widget) : mWidget(widget) { ++mWidget->mUses; }
        ~Use()
        {
            if (mWidget && --mWidget->mUses == 0 && mWidget->mRemoved)
                mWidget->remove();
        }
        Q_DISABLE_COPY_MOVE(Use)

    private:
        QPointer<RemovableWidget> mWidget;
    };

    /**
     * Takes the widget off the screen and deletes it: at once if no event loop runs and no event of its own
     * is being handled, otherwise when these have returned.
     *
     * What is in it, such as a button that has been clicked, is not deleted before that either. The caller
     * has taken the widget out of all lists; what is in it may look there.
     */
    void remove()
    {
        mRemoved = true;
        if (mUses > 0)
            return;
        const QPointer<RemovableWidget> self(this);
        this->hide();
        if (!self)
            return;
        if (mEvents > 0 || this->thread()->loopLevel() > 0) {
            this->deleteLater();
            // Not to be found any more meanwhile. A menu is a window, and looked for nowhere.
            if (!this->isWindow())
                this->setParent(nullptr);
            return;
        }
        empty();
        delete self;
    }

protected:
    bool event(QEvent* e) override
    {
        const QPointer<RemovableWidget> self(this);
        ++mEvents;
        const bool taken = Base::event(e);
        // It may have been the event that deletes the widget.
        if (self)
            --mEvents;
        return taken;
    }

private:
    static void remove_actions(const QPointer<QWidget>& widget)
    {
        const QList<QAction*> shown = widget->actions();
        const QList<QPointer<QAction>> actions(shown.begin(), shown.end());
        for (const QPointer<QAction>& action : actions) {
            if (widget && action)
                widget->removeAction(action);
        }
    }

    void empty()
    {
        const QPointer<QWidget> self(this);
        remove_actions(self);
        if (!self)
            return;
        const QObjectList inside = this->children();
        const QList<QPointer<QObject>> children(inside.begin(), inside.end());
        for (const QPointer<QObject>& child : children) {
            if (!self || !child || child->parent() != self)
                continue;
            if (const QPointer<QWidget> widget = qobject_cast<QWidget*>(child)) {
                remove_actions(widget);
                if (widget)
                    widget->setParent(nullptr);
                // Last: whoever is told of the rest may run an event loop, which deletes what waits for it.
                if (widget)
                    widget->deleteLater();
            } else if (qobject_cast<QWidgetAction*>(child)) {
                // It takes its widget with it.
                child->setParent(nullptr);
                if (child)
                    child->deleteLater();
            }
        }
    }

    int mEvents = 0;
    int mUses = 0;
    bool mRemoved = false;
};
