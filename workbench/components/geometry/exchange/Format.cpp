// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/exchange/Format.h"

#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

QList<Format> engine_formats()
{
    using Content = Format::Content;
    return {
        {u"STEP"_s, {u"step"_s, u"stp"_s}, Content::Solids, true, true, {}},
        // The engine has no writer for it.
        {u"IGES"_s, {u"iges"_s, u"igs"_s}, Content::Solids, true, false, {}},
        {u"BREP"_s, {u"brep"_s}, Content::Solids, true, true, {}},
        {u"STL"_s, {u"stl"_s}, Content::Surface, true, true, {}},
        {u"MSH"_s, {u"msh"_s}, Content::Mesh, true, true, {}},
        {u"VTK"_s, {u"vtk"_s}, Content::Mesh, true, true, {}},
    };
}

/** Triangles of 50 bytes each behind a head of 84, which ends with their number. */
bool is_binary_stl(const QByteArray& content, qint64 size)
{
    return content.size() >= 84 &&
           size == 84 + 50 * qint64(qFromLittleEndian<quint32>(content.constData() + 80));
}

bool looks_right(const Format& format, const QByteArray& content, qint64 size)
{
    const QByteArray begin = content.trimmed();
    if (format.name == u"STEP")
        return content.left(1000).contains("ISO-10303-21");
    if (format.name == u"IGES") // lines of 80 characters, of which the 73rd tells the section
        return content.size() >= 80 && QByteArray("SBC").contains(content[72]) && !content.contains('\0');
    if (format.name == u"BREP")
        return content.left(200).contains("CASCADE Topology");
    if (format.name == u"STL")
        return is_binary_stl(content, size) || begin.left(5).toLower() == "solid";
    if (format.name == u"MSH")
        return begin.startsWith('$');
    if (format.name == u"VTK")
        return begin.left(14).toLower() == "# vtk datafile";
    return true;
}

} // namespace

QList<Format> formats()
{
    QList<Format> result = engine_formats();
    const QList<Format> own = result;
    const auto foreign = FormatRegistry::instance().formats();
    for (const auto& format : foreign) {
        const bool taken = std::any_of(own.begin(), own.end(), [&format](const Format& other) {
            return other.name == format->name ||
                   std::ranges::find_first_of(other.endings, format->endings) != other.endings.end();
        });
        if (!taken)
            result.append({format->name, format->endings, Format::Content::Surface, bool(format->read),
                           bool(format->write), format});
    }
    return result;
}

std::optional<Format> find_format(const QString& name)
{
    for (const Format& format : formats()) {
        if (format.name.compare(name, Qt::CaseInsensitive) == 0)
            return format;
    }
    return std::nullopt;
}

std::optional<Format> format_of_file(const QString& file)
{
    const QString name = file.section(u'/', -1);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return std::nullopt;
    const QString ending = name.sliced(dot + 1).toLower();
    for (const Format& format : formats()) {
        if (format.endings.contains(ending))
            return format;
    }
    return std::nullopt;
}

QString mismatch(const Format& format, const QByteArray& begin, const QByteArray& end, qint64 size)
{
    if (size == 0)
        return u"it is empty"_s;
    if (!format.foreign && !looks_right(format, begin, size))
        return u"its content is not of the format %1"_s.arg(format.name);
    // The CAD kernel looks for ever for what is missing behind the end.
    if (format.name == u"BREP" && !end.simplified().endsWith(" 0"))
        return u"its end is missing"_s;
    return {};
}

bool is_whole(const Format& format, const QByteArray& content)
{
    if (format.name == u"STEP")
        return content.right(64).trimmed().endsWith("END-ISO-10303-21;");
    if (format.name == u"STL")
        return is_binary_stl(content, content.size());
    return !content.isEmpty();
}

bool ends_brep(const QByteArray& end)
{
    static const QRegularExpression last_line(u"\\n\\n[-+][0-9]+ [0-9]+ \\n?$"_s);
    return last_line.match(QString::fromLatin1(end)).hasMatch();
}

} // namespace fennar::geometry
