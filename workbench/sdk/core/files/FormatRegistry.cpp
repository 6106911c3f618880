// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

bool is_complete(const FileFormat& format)
{
    static const QRegularExpression name(u"^[A-Z][A-Z0-9]*\\z"_s);
    static const QRegularExpression ending(u"^[a-z0-9]+\\z"_s);
    return !format.owner.isEmpty() && name.match(format.name).hasMatch() && !format.endings.isEmpty() &&
           std::all_of(format.endings.begin(), format.endings.end(),
                       [](const QString& text) { return ending.match(text).hasMatch(); }) &&
           (format.read || format.write);
}

bool share(const FileFormat& a, const FileFormat& b)
{
    return a.name == b.name || std::any_of(a.endings.begin(), a.endings.end(), [&b](const QString& ending) {
               return b.endings.contains(ending);
           });
}

} // namespace

FormatRegistry& FormatRegistry::instance()
{
    // Never deleted: components may still say goodbye when static objects go.
    static auto* const registry = new FormatRegistry;
    return *registry;
}

bool FormatRegistry::add(const FileFormat& format)
{
    if (!is_complete(format) || std::any_of(mFormats.cbegin(), mFormats.cend(),
                                            [&format](const auto& other) { return share(*other, format); }))
        return false;
    mFormats.append(std::make_shared<const FileFormat>(format));
    emit changed();
    return true;
}

void FormatRegistry::remove_owner(const QString& owner)
{
    if (mFormats.removeIf([&owner](const auto& format) { return format->owner == owner; }) > 0)
        emit changed();
}

} // namespace fennar
