// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/settings/panel_options.h"

#include "frame/Ostrel.h"
#include "frame/settings_keys.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "host/ostrelfw/Broker.h"
#include "ui_PanelOptions.h"

#include <QCoreApplication>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

const QString size_key = u"/fennar/commandpanel/largeicons"_s;

bool stored(const QString& key)
{
    return QSettings().value(key, false).toBool();
}

/** Fills the model anew from the files of the arrangement. */
void read_navigation(NavigationModel* model, bool by_entity)
{
    NavigationResourcesDelay resources;
    resources.model = model;
    NavigationReader reader;
    reader.setResources(&resources);
    reader.setModel(model, nullptr, nullptr);
    reader.buildNavigation(QCoreApplication::applicationDirPath() + u"/xml"_s +
                               (by_entity ? u"/entity-based-xml"_s : u"/action-based-xml"_s),
                           u".xml"_s);
    for (const QString& message : std::as_const(reader.messages))
        Broker::command << message << u"\n"_s;
}

/** Takes over what the controls say. */
void save(const Ui::QtPanelOptions& form, Ostrel* window)
{
    const bool by_entity = form.rbByEntity->isChecked();
    const bool rearrange = by_entity != stored(settings_keys::classic_navigation);
    QSettings settings;
    settings.setValue(settings_keys::breadcrumbs, form.rbLevels->isChecked());
    settings.setValue(size_key, form.cbLargeIcons->isChecked());
    settings.setValue(settings_keys::classic_navigation, by_entity);
    if (rearrange)
        read_navigation(window->navigation_model(), by_entity);
    window->setUsingButtonRows(form.rbRows->isChecked());
    window->setUsingLargeButtonIcons(form.cbLargeIcons->isChecked());
}

} // namespace

OptionsPage make_panel_options(Ostrel* window)
{
    auto* page = new QWidget;
    const auto form = std::make_shared<Ui::QtPanelOptions>();
    form->setupUi(page);
    // Rows have pictures of one size.
    QObject::connect(form->rbLevels, &QRadioButton::toggled, form->cbLargeIcons, &QWidget::setEnabled);
    return {page,
            [form, window] {
                (window->usingButtonRows() ? form->rbRows : form->rbLevels)->setChecked(true);
                form->cbLargeIcons->setChecked(stored(size_key));
                form->cbLargeIcons->setEnabled(!window->usingButtonRows());
                (stored(settings_keys::classic_navigation) ? form->rbByEntity : form->rbByAction)
                    ->setChecked(true);
            },
            [form, window] { save(*form, window); }};
}

void apply_panel_options(Ostrel* window)
{
    window->setUsingLargeButtonIcons(stored(size_key));
}

} // namespace fennar
