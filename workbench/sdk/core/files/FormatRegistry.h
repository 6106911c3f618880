// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"
#include "workbench/sdk/core/files/FileFormat.h"

#include <QList>
#include <QObject>

#include <memory>

namespace fennar {

/**
 * The file formats that components bring, for the component that has the model.
 *
 * Either may come first and go first: a format that is here while there is no model waits, and one that goes
 * is gone for the model, too. One object for the whole process, since the components are shared objects of
 * their own. GUI thread only.
 */
class FENNAR_CORE_EXPORT FormatRegistry : public QObject
{
    Q_OBJECT

public:
    /** The one object; made at the first call. */
    static FormatRegistry& instance();

    /**
     * Adds a format.
     *
     * @return false, with nothing changed, if it lacks an owner, a valid name or ending, or both functions,
     * or if another format has its name or one of its endings.
     */
    bool add(const FileFormat& format);
    /** Removes all formats of a component. Those that are just in use stay valid for their users. */
    void remove_owner(const QString& owner);
    /** All formats, the oldest first. */
    QList<std::shared_ptr<const FileFormat>> formats() const { return mFormats; }

signals:
    /** A format has come, or has gone. */
    void changed();

private:
    QList<std::shared_ptr<const FileFormat>> mFormats;
};

} // namespace fennar
