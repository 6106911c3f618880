// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/editor_options.h"

#include "frame/read_setting.h"
#include "ui_EditorOptions.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

static constexpr auto colors_key = "/fennar/editor/colors"_L1;
static constexpr auto completes_key = "/fennar/editor/completion"_L1;

bool editor_colors()
{
    return read_setting(QSettings(), colors_key, true);
}

bool editor_completes()
{
    return read_setting(QSettings(), completes_key, true);
}

OptionsPage make_editor_options(const std::function<void()>& saved)
{
    auto* page = new QWidget;
    const auto form = std::make_shared<Ui::QtEditorOptions>();
    form->setupUi(page);
    return {page,
            [form] {
                form->cbColors->setChecked(editor_colors());
                form->cbCompletes->setChecked(editor_completes());
            },
            [form, saved] {
                QSettings settings;
                settings.setValue(colors_key, form->cbColors->isChecked());
                settings.setValue(completes_key, form->cbCompletes->isChecked());
                saved();
            }};
}

} // namespace fennar
