// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The smallest component that does something: one command, and one menu entry that runs it. It is meant to be
// copied.

#include "frame/Ostrel.h"
#include "workbench/sdk/component/component.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QAction>
#include <QCoreApplication>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/** The component's name, the owner mark of all that it adds. */
constexpr auto owner = "hello";

/** "hello [NAME]" */
void run_hello(CommandCall& call)
{
    const QString name = call.optional(1).value_or(u"world"_s);
    call.expect_end();
    call.print(u"Hello, %1!\n"_s.arg(name));
}

/** The menu entry. Exists from load() to unload(), if there is a window. */
std::unique_ptr<QAction> entry;

void load()
{
    Fennar& fennar = Fennar::instance();
    // What the command takes: for the command panel, for completion, and for the usage that "help" prints.
    const CommandParameter name{.name = u"NAME"_s,
                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Whom to greet"),
                                .default_value = u"world"_s};
    fennar.registry().add({
        .name = u"hello"_s,
        .summary = u"Greets."_s,
        .owner = QString::fromLatin1(owner),
        .run = &run_hello,
        .forms = {{.clauses = {optional_value(name)}}},
    });

    Ostrel* window = Ostrel::instance();
    if (!window)
        return;
    entry = std::make_unique<QAction>(QCoreApplication::translate("Hello", "&Greet the World"));
    QObject::connect(entry.get(), &QAction::triggered, entry.get(),
                     [&fennar] { fennar.interpreter().run(u"hello"_s); });
    std::vector<QAction*> entries{entry.get()};
    window->add_to_menu(QCoreApplication::translate("Hello", "&Hello"), entries, owner);
}

// Takes away what load() has added, in the reverse order.
void unload()
{
    if (entry)
        Ostrel::instance()->remove_menu_items(owner);
    entry.reset();
    Fennar::instance().registry().remove_owner(QString::fromLatin1(owner));
}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, owner, "1.0", &load, &unload,
};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
