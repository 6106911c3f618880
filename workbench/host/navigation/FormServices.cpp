// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/FormServices.h"

namespace {

FormServices& services()
{
    static FormServices services;
    return services;
}

} // namespace

void set_form_services(const FormServices& new_services)
{
    services() = new_services;
}

const FormServices& form_services()
{
    return services();
}
