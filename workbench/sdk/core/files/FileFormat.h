// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/Surface.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace fennar {

/**
 * A file format for surfaces of triangles.
 *
 * The functions tell what is wrong by an exception derived from std::exception, whose text is one line of
 * UTF-8. They may be called from within a command, on the GUI thread.
 */
struct FileFormat
{
    /** What users call it: a capital letter, then capital letters and digits, as "OBJ". */
    QString name;
    /** The endings of its files in small letters and without a dot, the usual one first. At least one. */
    QStringList endings;
    /** The name of the component that brings it; a component's context sets it. */
    QString owner = {};
    /** Makes triangles of a file's content; null if files of this format cannot be read. */
    std::function<Surface(const QByteArray&)> read;
    /** Makes a file's content of triangles; null if files of this format cannot be written. */
    std::function<QByteArray(const Surface&)> write;
};

/** The entry of a file dialog for such files, as "STEP (*.step *.stp)". */
inline QString file_filter(const QString& name, const QStringList& endings)
{
    return QStringLiteral("%1 (*.%2)").arg(name, endings.join(QStringLiteral(" *.")));
}

} // namespace fennar
