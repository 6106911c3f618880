// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/settings/PanelOptions.h"

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

} // namespace

PanelOptions::PanelOptions(Ostrel* window) : mForm(std::make_unique<Ui::QtPanelOptions>()), mWindow(window)
{
    mForm->setupUi(this);
    // Rows have pictures of one size.
    connect(mForm->rbLevels, &QRadioButton::toggled, mForm->cbLargeIcons, &QWidget::setEnabled);
}

PanelOptions::~PanelOptions() = default;

void PanelOptions::apply_stored_size()
{
    mWindow->setUsingLargeButtonIcons(stored(size_key));
}

void PanelOptions::refresh()
{
    (mWindow->usingButtonRows() ? mForm->rbRows : mForm->rbLevels)->setChecked(true);
    mForm->cbLargeIcons->setChecked(stored(size_key));
    mForm->cbLargeIcons->setEnabled(!mWindow->usingButtonRows());
    (stored(settings_keys::classic_navigation) ? mForm->rbByEntity : mForm->rbByAction)->setChecked(true);
}

void PanelOptions::save()
{
    const bool by_entity = mForm->rbByEntity->isChecked();
    const bool rearrange = by_entity != stored(settings_keys::classic_navigation);
    QSettings settings;
    settings.setValue(settings_keys::breadcrumbs, mForm->rbLevels->isChecked());
    settings.setValue(size_key, mForm->cbLargeIcons->isChecked());
    settings.setValue(settings_keys::classic_navigation, by_entity);
    if (rearrange)
        read_navigation(by_entity);
    mWindow->setUsingButtonRows(mForm->rbRows->isChecked());
    mWindow->setUsingLargeButtonIcons(mForm->cbLargeIcons->isChecked());
}

/** Fills the model anew from the files of the arrangement. */
void PanelOptions::read_navigation(bool by_entity)
{
    NavigationResourcesDelay resources;
    resources.model = mWindow->navigation_model();
    NavigationReader reader;
    reader.setResources(&resources);
    reader.setModel(mWindow->navigation_model(), nullptr, nullptr);
    reader.buildNavigation(QCoreApplication::applicationDirPath() + u"/xml"_s +
                               (by_entity ? u"/entity-based-xml"_s : u"/action-based-xml"_s),
                           u".xml"_s);
    for (const QString& message : std::as_const(reader.messages))
        Broker::command << message << u"\n"_s;
}

} // namespace fennar
