// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAction>
#include <QPointer>
#include <QString>

/** One remembered file in a list of RecentFiles, which makes, shows and owns it. */
class RecentFile
{
public:
    explicit RecentFile(const QString& text);
    virtual ~RecentFile();
    Q_DISABLE_COPY_MOVE(RecentFile)

    /** Whether @p action stands for this entry in the menu. Null stands for one that is in no menu. */
    virtual bool has_action(QAction* action);
    /** Whether @p other stands for the same file; compared exactly. */
    virtual bool matches(const QString& other);
    /** Whether the file exists now. */
    virtual bool exists();
    /** Sets @p text to what the menu shows of this entry, which is at most a good 25 characters long where
     * the name has directories to leave out. */
    virtual void display_text(QString& text);

    /** The full text: a file name, or the command of a RecentImport. */
    QString mText;
    /** The entry in the menu. Not owned; it becomes null if the menu is cleared by others. */
    QPointer<QAction> mAction;
};

/**
 * A file name shortened for a menu.
 *
 * Up to 25 characters stand unchanged. Otherwise the name keeps its first part (a drive, or nothing before
 * the first "/"), and behind a separator and ".." as many of its last parts as make 26 characters. The dots
 * stand there as soon as those 26 are reached, even if no part is left out (docs/surprises.md). A name that
 * has no "/" is taken apart at each "\".
 */
QString short_form(const QString& text);
