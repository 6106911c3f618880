// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/recovery/KeptDocument.h"

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace fennar::recovery {

/**
 * A folder of kept documents that belongs to one program, this one: as long as the object lives, no other
 * can have it.
 *
 * Every program that keeps documents makes a folder of its own below one root. That of a program that is
 * gone can be claimed, by one program only. Folders of a program on another machine are left alone, since
 * nobody can tell here whether it is gone.
 *
 * Any thread, one at a time.
 */
class RecoveryFolder
{
public:
    /**
     * Makes a new folder below @p root, which is made as well. Only the user may look into it.
     *
     * @return null if it cannot be made.
     */
    static std::unique_ptr<RecoveryFolder> make(const QString& root);
    /** Claims the folders below @p root whose programs are gone, and removes those that hold nothing. */
    static std::vector<std::unique_ptr<RecoveryFolder>> claim_left(const QString& root);

    /** Gives the folder up. What is in it stays, to be claimed again. */
    ~RecoveryFolder();
    Q_DISABLE_COPY_MOVE(RecoveryFolder)

    const QString& path() const { return mPath; }
    /** Whether it is still there: others may have cleared the user's data away. */
    bool exists() const;

    /** The names of the documents in it, in the order of their numbers. */
    QStringList names() const;
    /** A document without its text, for which little of it is read; an empty one if it cannot be. */
    KeptDocument read_head(const QString& name) const;
    /** Null if it cannot be read. */
    std::optional<KeptDocument> read(const QString& name) const;
    /**
     * Writes the document @p number, which replaces the one with this number wholly or not at all.
     *
     * @return what is wrong, for people to read; empty if it is written.
     */
    QString write(int number, const KeptDocument& document);
    /** Removes a document. Returns whether it is gone, which one that was not there is. */
    bool remove(const QString& name);
    /** The name of the document @p number. No two have one number, whatever their kinds. */
    static QString name_of(int number, const QString& kind = {});

    /** Removes the folder with all that is in it; the object then is of no more use. */
    void remove_all();
    /** As remove_all() if no document is left in it. Returns whether it was done. */
    bool remove_if_empty();

private:
    RecoveryFolder(const QString& path, std::unique_ptr<QLockFile> lock);

    QString mPath;
    /** Null once the folder is removed. */
    std::unique_ptr<QLockFile> mLock;
};

} // namespace fennar::recovery
