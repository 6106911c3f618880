// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/LineCompletion.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class CommandWidget;
class QPlainTextEdit;

namespace fennar {

/**
 * Completes on Tab what is typed ahead of the caret.
 *
 * What all candidates have in common goes into the line at once. A second Tab with nothing new to insert
 * lists them above the prompt, which stays with what is typed. A single candidate is followed by a blank at
 * the end of the line. GUI thread only.
 */
class CompletionKey : public QObject
{
    Q_OBJECT

public:
    using Complete = std::function<LineCompletion(const QString& line, qsizetype caret)>;

    /** The most candidates that are listed. */
    static constexpr qsizetype list_limit = 200;

    /**
     * @param page      must outlive this object, which belongs to the caller.
     * @param complete  tells what could stand at the caret.
     */
    CompletionKey(CommandWidget* page, Complete complete);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void complete();
    void list(const LineCompletion& completion);

    CommandWidget* mPage;
    Complete mComplete;
    /** The line and the caret as the last Tab has left them, if that had nothing to insert. */
    QString mLine;
    qsizetype mCaret = -1;
};

/** What a completion key puts in the place of the part typed: the only candidate, or what all have in common;
 * nothing if that is nothing new. */
std::optional<QString> completed_text(const LineCompletion& completion, const QString& line, qsizetype caret);

/** Puts @p text in the place of what stands between @p start and the caret, as one step of undo. */
void replace_typed(QPlainTextEdit* page, qsizetype start, qsizetype caret, const QString& text);

/** @p names in columns, down the first one and on in the next, in lines of at most @p width characters. */
QString in_columns(const QStringList& names, qsizetype width);

} // namespace fennar
