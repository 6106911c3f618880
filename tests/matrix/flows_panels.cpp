// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"
#include "files/FileLineEdit.h"
#include "flows.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "options/ComponentTool.h"
#include "options/GeneralOptions.h"
#include "options/OptionsPanel.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QPointer<ComponentTool> shown_tool(Stage& stage)
{
    if (stage.window())
        stage.window()->tools_menu()->show_component_tool();
    return stage.window() ? stage.window()->findChild<ComponentTool*>() : nullptr;
}

void click(QWidget* parent, const QString& button)
{
    if (auto* const found = parent->findChild<QAbstractButton*>(button))
        found->click();
}

} // namespace

std::span<const Flow> panel_flows()
{
    static const Flow flows[] = {
        {"options saved",
         [](Stage& stage) {
             stage.button = u"mSaveButton"_s;
             if (stage.window())
                 stage.window()->tools_menu()->run_options();
         }},
        {"own options",
         [](Stage& stage) {
             stage.button = u"mCancelButton"_s;
             if (stage.window())
                 stage.window()->options()->show_panel(u"Own/Page"_s);
         }},
        {"command panel of another kind",
         [](Stage& stage) {
             for (const bool rows : {true, false, true}) {
                 if (stage.window())
                     stage.window()->setUsingButtonRows(rows);
                 if (stage.window())
                     stage.window()->setUsingLargeButtonIcons(rows);
             }
         }},
        {"options refreshed",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->options()->refresh_settings();
         }},
        {"legacy behavior",
         // The shell has it for hosts to emit.
         [](Stage& stage) {
             if (stage.window())
                 emit stage.window()->options()->legacyBehaviorChanged(true);
         }},
        {"folder of the options",
         [](Stage& stage) {
             if (!stage.window())
                 return;
             if (auto* const general = stage.window()->options()->findChild<GeneralOptions*>())
                 click(general, u"tbPythonPaths"_s);
         }},
        {"plugin tool",
         [](Stage& stage) {
             HostDouble::instance().components = {{u"own"_s, {}, {}, u"loaded"_s}};
             const QPointer<ComponentTool> tool = shown_tool(stage);
             if (tool)
                 click(tool, u"mAddButton"_s);
             stage.announce(&ComponentTracker::component_loaded);
             if (tool)
                 tool->close();
         }},
        {"about",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->help_menu()->help_about();
         }},
        {"tip of the day",
         [](Stage& stage) {
             if (stage.window())
                 stage.window()->help_menu()->help_tip_of_day();
         }},
    };
    return flows;
}

std::span<const Flow> field_flows()
{
    static const Flow flows[] = {
        {"field for a file",
         [](Stage& stage) {
             if (!stage.field)
                 return;
             stage.choose_existing(u"a.mdl"_s);
             auto* const line = stage.field->findChild<QLineEdit*>();
             QTest::keyClicks(line, u"ab"_s);
             QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
             QTest::keyClick(line, Qt::Key_Return);
             stage.field->findChild<QToolButton*>()->click();
         }},
    };
    return flows;
}
