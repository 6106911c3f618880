// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/ostrelfw/LineFolder.h"

#include <QPlainTextEdit>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class QTextBlock;

namespace fennar {

/** A line of a journal, in a file or in a document of the editor that may have none. */
struct JournalPlace
{
    /** An absolute path; empty for a document without a file. */
    QString file;
    /** The document that was played; null if none was, or if it is gone. */
    QPointer<QPlainTextEdit> document;
    /** From 1. */
    int line = 1;
};

/**
 * The page of the console that keeps the errors.
 *
 * Where an error names a line of a journal, the name is underlined, and a double click, Enter or the context
 * menu on the error asks for that line. Lines that are too long are cut as on the page of the commands, which
 * keeps them whole. GUI thread only.
 */
class ErrorPage : public QPlainTextEdit
{
    Q_OBJECT

public:
    /**
     * Finds what an error calls @p name; nothing if it is no journal. The line is not looked at.
     *
     * Asked as the error comes in, when names still mean what they did for whoever wrote it.
     */
    using Finder = std::function<std::optional<JournalPlace>(const QString& name)>;

    explicit ErrorPage(QWidget* parent = nullptr);

    /** Without one only absolute paths of files are found. */
    void set_finder(Finder finder) { mFinder = std::move(finder); }

    /**
     * Adds @p text at the end. It may be a part of a line, which the next text goes on with.
     *
     * @param context  a line that tells what led to it, above it; with one, a new error begins.
     */
    void add(const QString& text, const QString& context = {});

    /** What is added next belongs to another error. */
    void end_error();

    /** The place that the error at @p block leads to: its own, or else the nearest of the same error. */
    std::optional<JournalPlace> place_at(const QTextBlock& block) const;

signals:
    /** The user wants to see the line. */
    void place_activated(const fennar::JournalPlace& place);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void link(QTextBlock block);
    bool activate(const QTextBlock& block);

    Finder mFinder;
    LineFolder mFolder{false};
    /** Tells the lines of one error from those of the next. */
    int mError = 0;
};

} // namespace fennar
