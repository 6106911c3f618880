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

void delete_page(OptionsPanel* panel, const QString& name, const QPointer<QWidget>& page)
{
    // A page that found its place taken, by that of another window, has stayed outside the stack of pages.
    const bool is_other_page = page && page->parentWidget() == panel;
    if (panel && !is_other_page)
        panel->remove_panel(name);
    delete page.data();
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
    const QPointer<OptionsPanel> panel = options_panel();
    if (!panel)
        return;
    delete_page(panel, tr("Layout"), mLayoutOptions.data());
    delete_page(panel, tr("General"), mGeneralOptions.data());
}
