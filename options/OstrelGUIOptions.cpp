// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/OstrelGUIOptions.h"

#include "frame/Ostrel.h"
#include "options/GeneralOptions.h"
#include "options/LayoutOptions.h"
#include "options/OptionsPanel.h"

namespace {

OptionsPanel* options_panel()
{
    return Ostrel::instance() ? Ostrel::instance()->options() : nullptr;
}

template <class Page>
Page* add_page(OptionsPanel* panel, const QString& name)
{
    auto* page = new Page(panel);
    panel->add_panel(name, page);
    QObject::connect(panel, &OptionsPanel::saveSettings, page, &Page::saveClicked);
    QObject::connect(panel, &OptionsPanel::refreshSettings, page, &Page::refreshClicked);
    return page;
}

} // namespace

OstrelGUIOptions::OstrelGUIOptions(QObject* parent) : QObject(parent)
{
    OptionsPanel* const panel = options_panel();
    if (!panel)
        return;
    mLayoutOptions = add_page<LayoutOptions>(panel, tr("Layout"));
    mGeneralOptions = add_page<GeneralOptions>(panel, tr("General"));
}

OstrelGUIOptions::~OstrelGUIOptions()
{
    // Without the panel the pages have gone with it.
    OptionsPanel* const panel = options_panel();
    if (!panel)
        return;
    panel->remove_panel(tr("Layout"));
    delete mLayoutOptions;
    panel->remove_panel(tr("General"));
    delete mGeneralOptions;
}
