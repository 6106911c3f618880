// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/LineCompletion.h"

#include <QCompleter>
#include <QObject>
#include <QStringListModel>

#include <functional>

class QPlainTextEdit;
class QTextCursor;

namespace fennar {

/**
 * Completes on Tab what is typed ahead of the caret of a document, as the console does.
 *
 * What all candidates have in common goes into the line at once. If that is nothing new they are listed below
 * the caret, where Return or Tab takes one, Escape none, and typing narrows them. Where nothing fits Tab does
 * what it does without this object, and a hint is shown if there is one. GUI thread only.
 */
class EditorCompletion : public QObject
{
    Q_OBJECT

public:
    /** Tells what could stand at the caret; the indices are those of its line. */
    using Complete = std::function<LineCompletion(const QTextCursor& caret)>;

    /** @param page  owns this object, which may go earlier. */
    EditorCompletion(QPlainTextEdit* page, const Complete& complete);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool complete();
    bool key_in_list(int key);
    void list(const LineCompletion& completion);
    void narrow();
    void choose(int row);

    QPlainTextEdit* mPage;
    Complete mComplete;
    LineCompletion mListed;
    QStringListModel mNames;
    QCompleter mList;
};

} // namespace fennar
