// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

class GeometryModel;

/**
 * The model as a document: the file it belongs to, and whether it has changed since it was read or written.
 *
 * What fails throws a GeometryError that names the file and the reason, and leaves the model, the file and
 * what is known of them as they were. GUI thread only.
 */
class GeometryDocument : public QObject
{
    Q_OBJECT

public:
    /** @param model  outlives the document. An empty one counts as unmodified. */
    explicit GeometryDocument(GeometryModel& model);

    GeometryModel& model() const { return mModel; }

    /** The file that was opened or saved last; empty if there is none, as after clear(). */
    QString file() const { return mFile; }
    /** Whether the model has changed since clear(), open() or save(). */
    bool is_modified() const { return mChanges != mSavedChanges; }
    /** How many changes there have been; each command that changes something counts, even if another undoes
     * it. */
    qint64 changes() const { return mChanges; }
    /** Makes the document count as modified. */
    void touch() { ++mChanges; }

    /** Starts an empty document. */
    void clear();
    void open(const QString& file);
    /** @param file  empty for the document's own; an error if it has none. */
    void save(const QString& file = {});

private:
    void set_unmodified(const QString& file);

    GeometryModel& mModel;
    QString mFile;
    qint64 mChanges = 0;
    qint64 mSavedChanges = 0;
};
