// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "Catalog.h"
#include "workbench/application/Translations.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QAction;

/**
 * Opens all windows of the workbench in one language and looks at all that is in them: whether it is
 * translated, has room, has its own keys and can be reached by keyboard.
 *
 * Python can be started once in a process, and so each language has a test executable of its own.
 */
class WindowTest : public WorkbenchTest
{
    Q_OBJECT

public:
    /** @param language  as in the names of translation files; empty for English. */
    explicit WindowTest(const QString& language) : mLanguage(language) {}

protected:
    void prepare(fennar::Workbench& workbench) override;
    void set_up_class() override;
    void tear_down_class() override;
    void after_workbench() override;

private slots:
    void all_windows_were_visited();
    void no_source_text_is_left();
    void no_text_is_clipped();
    void mnemonics_are_unique();
    void all_widgets_have_names();
    void tab_visits_each_field_once();
    void f6_goes_round_the_panes();
    void tool_buttons_have_keys_or_stand_in_menus();
    void console_and_editor_tabs_change_by_keyboard();
    void scripts_name_menus_in_english();
    void escape_cancels_a_running_journal();
    void pause_key_goes_on_with_a_paused_journal();
    void escape_does_nothing_between_commands();

private:
    void visit_all();
    void visit(QWidget* window, const QString& name);
    void visit_main_window();
    void visit_search();
    void visit_panels();
    void visit_editor();
    void visit_dialogs();
    void visit_file_dialogs();
    void visit_geometry();
    void visit_recovery();
    void press_while_a_journal_is_paused(Qt::Key key);
    QAction* action(const QString& name) const;

    const QString mLanguage;
    std::unique_ptr<fennar::Translations> mTranslations;
    std::unique_ptr<Catalog> mCatalog;
    QStringList mVisited;
    qsizetype mTexts = 0;
    QStringList mUntranslated;
    QStringList mClipped;
    QStringList mMnemonics;
    QStringList mNameless;
    QStringList mTabs;
};
