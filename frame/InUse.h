// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QWidget>

/**
 * Marks a widget of the shell's own while Qt, or the shell, is to go on with it behind a call out of the
 * shell. What is called may delete the window: whoever would delete the widget with that leaves it for later.
 *
 *     const InUse use(button);
 *     emit toggled();
 *
 * To be made on the stack. GUI thread only.
 */
class InUse
{
public:
    explicit InUse(const QWidget* widget) { widgets().append(widget); }
    ~InUse() { widgets().removeLast(); }
    Q_DISABLE_COPY_MOVE(InUse)

    /**
     * To be called before @p widget is deleted, by its parent or the caller. A marked one is taken from its
     * parent and deleted when the event loop runs next.
     *
     * @return whether it was marked; null is not.
     */
    static bool spare(QWidget* widget)
    {
        if (!widgets().contains(widget))
            return false;
        widget->setParent(nullptr);
        widget->deleteLater();
        return true;
    }

private:
    static QList<const QWidget*>& widgets()
    {
        static QList<const QWidget*> marked;
        return marked;
    }
};
