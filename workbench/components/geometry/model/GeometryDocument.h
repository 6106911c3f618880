// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryModel.h"

#include <QByteArrayList>
#include <QString>

namespace fennar::geometry {

/**
 * The model as a document: the file it belongs to, and whether it has changed since it was read or written.
 *
 * What fails throws a GeometryError that names the file and the reason, and leaves the model, the file and
 * what is known of them as they were. It tells UnsavedWorks when nothing is unsaved any more. GUI thread
 * only.
 */
class GeometryDocument
{
public:
    /** @param model  outlives the document. An empty one counts as unmodified. */
    explicit GeometryDocument(GeometryModel& model);

    /** The file that was opened or saved last; empty if there is none, as after clear(). */
    QString file() const { return mFile; }
    /** Whether the model is another one than after clear(), open() or save(). An undo may make it the same
     * again. */
    bool is_modified() const { return mModel.state() != mSavedState; }
    /** A number for what the model is, see GeometryModel::state(). */
    qint64 changes() const { return mModel.state(); }
    /** Makes the document count as modified, whatever is undone. */
    void touch() { mSavedState = -1; }

    /** Starts an empty document. */
    void clear();
    void open(const QString& file);
    /** @param file  empty for the document's own; an error if it has none. */
    void save(const QString& file = {});
    /** All of the model, as save() writes it. */
    QByteArrayList contents() const;
    /**
     * Opens what contents() has returned. It has no file then and counts as modified.
     *
     * @param file  the file that it belonged to, for earlier_file().
     */
    void recover(const QByteArray& contents, const QString& file);
    /** The file that a recovered model belonged to, until it is saved; empty for another model. */
    QString earlier_file() const { return mEarlierFile; }

private:
    void set_unmodified(const QString& file);

    GeometryModel& mModel;
    QString mFile;
    QString mEarlierFile;
    /** GeometryModel::state() when nothing was unsaved; -1 if that will not come back. */
    qint64 mSavedState;
};

} // namespace fennar::geometry
