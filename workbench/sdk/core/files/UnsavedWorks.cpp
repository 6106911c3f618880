// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/files/UnsavedWorks.h"

#include <algorithm>

namespace fennar {

UnsavedWorks& UnsavedWorks::instance()
{
    // Never deleted: components may still say goodbye when static objects go.
    static auto* const works = new UnsavedWorks;
    return *works;
}

bool UnsavedWorks::add(const UnsavedWork& work)
{
    if (work.kind.isEmpty() || work.owner.isEmpty() || !work.state || !work.file || !work.take ||
        !work.restore || find(work.kind))
        return false;
    mWorks.append(work);
    return true;
}

void UnsavedWorks::remove_owner(const QString& owner)
{
    QStringList gone;
    mWorks.removeIf([&](const UnsavedWork& work) {
        const bool own = work.owner == owner;
        if (own)
            gone << work.kind;
        return own;
    });
    for (const QString& kind : std::as_const(gone))
        emit settled(kind);
}

std::optional<UnsavedWork> UnsavedWorks::find(const QString& kind) const
{
    const auto found = std::find_if(mWorks.begin(), mWorks.end(),
                                    [&kind](const UnsavedWork& work) { return work.kind == kind; });
    return found == mWorks.end() ? std::nullopt : std::optional(*found);
}

} // namespace fennar
