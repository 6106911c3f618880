// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <functional>

class CommandRegistry;
class CommandVariables;
class QWidget;

/** What the forms of the command panels are made from. Nothing is owned. */
struct FormServices
{
    /** The commands that can be described; null leaves every form with nothing but the command's line. */
    CommandRegistry* registry = nullptr;
    /** What a value may refer to, as "$radius". May be null. */
    const CommandVariables* variables = nullptr;
    /**
     * Makes a field for the name of a file with a way to choose one: a child of @p parent that holds a
     * QLineEdit. Null makes plain lines.
     *
     * @param open  whether the file must be there.
     */
    std::function<QWidget*(QWidget* parent, bool open, const QList<CommandFileFilter>& filters)> file_field;
};

/** Sets the services of all forms; those that are made from then on use them. */
void set_form_services(const FormServices& services);

/** The services set last. */
const FormServices& form_services();
