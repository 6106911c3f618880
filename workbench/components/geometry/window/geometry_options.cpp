// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/geometry_options.h"

#include "ui_GeometryOptions.h"
#include "workbench/components/geometry/model/ModelSteps.h"
#include "workbench/sdk/component/ComponentContext.h"

#include <QCoreApplication>
#include <QSettings>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const auto memory_key = u"geometry/undo_memory"_s;
constexpr int most_memory = 65536; // as the form has it
constexpr double mebibyte = 1 << 20;

void set_limit(ModelSteps& steps)
{
    const QVariant chosen = QSettings().value(memory_key);
    bool ok = false;
    const int memory = chosen.toInt(&ok);
    steps.set_limit(ok && memory >= 0 && memory <= most_memory ? qint64(memory) << 20
                                                               : ModelSteps::usual_limit);
}

fennar::OptionsPage make_page(ModelSteps& steps)
{
    auto* page = new QWidget;
    const auto form = std::make_shared<Ui::GeometryOptions>();
    form->setupUi(page);
    return {page,
            [form, &steps] {
                form->memory->setValue(int(steps.limit() >> 20));
                form->used->setText(QCoreApplication::translate("GeometryOptions", "%1 MiB, steps: %2")
                                        .arg(double(steps.memory()) / mebibyte, 0, 'f', 1)
                                        .arg(steps.steps().size()));
            },
            [form, &steps] {
                QSettings().setValue(memory_key, form->memory->value());
                set_limit(steps);
            }};
}

} // namespace

void add_geometry_options(fennar::ComponentContext& context, ModelSteps& steps)
{
    set_limit(steps);
    context.add_options_page(QCoreApplication::translate("Workbench", "Plugins") + u'/' +
                                 QCoreApplication::translate("GeometryOptions", "Geometry"),
                             [&steps] { return make_page(steps); });
}
