// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/absent_command.h"

#include "workbench/sdk/core/commands/Callback.h"

namespace fennar {

namespace {

Callback<QString(const QString&)>& told_by()
{
    static Callback<QString(const QString&)> hint;
    return hint;
}

} // namespace

void set_absent_command_hint(const AbsentCommandHint& hint)
{
    told_by() = hint;
}

QString absent_command_hint(const QString& name)
{
    return told_by()(name);
}

} // namespace fennar
