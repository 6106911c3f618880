// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component with one command, and with a record that the build can spoil.

#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#ifndef RECORD_NAME
#define RECORD_NAME "plain"
#endif
#ifndef RECORD_INTERFACE
#define RECORD_INTERFACE FENNAR_COMPONENT_INTERFACE
#endif
#ifndef RECORD_WORKBENCH
#define RECORD_WORKBENCH FENNAR_WORKBENCH_VERSION
#endif
#ifndef RECORD_LOAD
#define RECORD_LOAD &load
#endif

using namespace Qt::StringLiterals;

namespace {

[[maybe_unused]] void load()
{
    Fennar::instance().registry().add({QStringLiteral(RECORD_NAME),
                                       QStringLiteral(RECORD_NAME),
                                       u"Says so."_s,
                                       {},
                                       QStringLiteral(RECORD_NAME),
                                       [](CommandCall& call) { call.print(u"" RECORD_NAME " ran\n"_s); }});
}

void unload()
{
    Fennar::instance().registry().remove_owner(QStringLiteral(RECORD_NAME));
}

constexpr FennarComponent component{RECORD_INTERFACE, RECORD_WORKBENCH, RECORD_NAME, "2.5",
                                    RECORD_LOAD,      &unload};

} // namespace

#ifdef RECORD_NONE
extern "C" Q_DECL_EXPORT const FennarComponent* fennar_component();
const FennarComponent* fennar_component()
{
    static_cast<void>(component);
    return nullptr;
}
#else
FENNAR_EXPORT_COMPONENT(component)
#endif
