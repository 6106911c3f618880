// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>

namespace fennar::geometry {

/** Why an operation on the model or a mesh has failed, in one line. Nothing has changed. */
class GeometryError : public std::runtime_error
{
public:
    explicit GeometryError(const QString& message)
        : std::runtime_error(message.toUtf8().toStdString()), mMessage(message)
    {}

    const QString& message() const { return mMessage; }

private:
    QString mMessage;
};

} // namespace fennar::geometry
