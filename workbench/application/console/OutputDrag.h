// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QPoint>
#include <QTextCursor>

class CommandWidget;

namespace fennar {

/**
 * Lets output be dragged out of a console page as a copy only.
 *
 * The page offers what is selected to be moved, as each text that can be edited does, and takes away what
 * another window has moved to itself. That is right for a command, but output would be lost. GUI thread only.
 */
class OutputDrag : public QObject
{
    Q_OBJECT

public:
    /** @param page  must outlive this object, which belongs to the caller. */
    explicit OutputDrag(CommandWidget* page);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool output_is_selected() const;
    void drag();

    CommandWidget* mPage;
    /** What was selected, output in it, when the mouse was pressed on the page, and where; null if a drag is
     * not for this object. */
    QTextCursor mSelected;
    QPoint mPressed;
};

} // namespace fennar
