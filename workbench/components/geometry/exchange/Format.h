// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/FileFormat.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace fennar::geometry {

/** A file format that can be imported or exported now. */
struct Format
{
    enum class Content {
        /** Exact solids. */
        Solids,
        /** Triangles. */
        Surface,
        /** Elements of all kinds. */
        Mesh,
    };

    QString name;
    /** The endings of its files, without a dot; the first is also the engine's name of the format. */
    QStringList endings;
    Content content = Content::Solids;
    bool reads = false;
    bool writes = false;
    /** What another component has brought; null for the engine's own formats. */
    std::shared_ptr<const FileFormat> foreign;

    /** The entry of a file dialog. */
    QString filter() const { return file_filter(name, endings); }
};

/** The engine's formats, and behind them those that components have brought. */
QList<Format> formats();

/** The format of that name, in whatever case. */
std::optional<Format> find_format(const QString& name);

/** The format that the ending of a file's name tells, in whatever case. */
std::optional<Format> format_of_file(const QString& file);

/**
 * Why a file cannot be of the format; empty if it could.
 *
 * @param begin  up to 4096 bytes of the file's beginning, and @p end up to 64 bytes of its end.
 */
QString mismatch(const Format& format, const QByteArray& begin, const QByteArray& end, qint64 size);

/**
 * Whether @p content, which the engine has written as a file of the format, has its end: the engine does not
 * tell of each file that it could not write to the end.
 *
 * STL files must be binary. Of files of other components' formats only empty ones are not whole.
 */
bool is_whole(const Format& format, const QByteArray& content);

/** Whether a BREP file could end with these bytes, up to 64: an empty line, then one where the shape itself
 * begins. */
bool ends_brep(const QByteArray& end);

} // namespace fennar::geometry
