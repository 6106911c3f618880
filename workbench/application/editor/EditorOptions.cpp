// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/EditorOptions.h"

#include "frame/read_setting.h"
#include "ui_EditorOptions.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

constexpr auto colors_key = "/fennar/editor/colors"_L1;
constexpr auto completes_key = "/fennar/editor/completion"_L1;

} // namespace

EditorOptions::EditorOptions() : mForm(std::make_unique<Ui::QtEditorOptions>())
{
    mForm->setupUi(this);
}

EditorOptions::~EditorOptions() = default;

bool EditorOptions::colors()
{
    return read_setting(QSettings(), colors_key, true);
}

bool EditorOptions::completes()
{
    return read_setting(QSettings(), completes_key, true);
}

void EditorOptions::refresh()
{
    mForm->cbColors->setChecked(colors());
    mForm->cbCompletes->setChecked(completes());
}

void EditorOptions::save()
{
    QSettings settings;
    settings.setValue(colors_key, mForm->cbColors->isChecked());
    settings.setValue(completes_key, mForm->cbCompletes->isChecked());
}

} // namespace fennar
