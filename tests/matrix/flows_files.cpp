// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"
#include "files/OstrelFileMenu.h"
#include "flows.h"
#include "frame/Ostrel.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace {

void with_menu(Stage& stage, void (*use)(OstrelFileMenu&))
{
    if (OstrelFileMenu* const menu = stage.file_menu())
        use(*menu);
}

// So that nothing is asked about them.
void save_documents(Stage& stage)
{
    if (stage.documents)
        stage.documents->modified = false;
}

} // namespace

std::span<const Flow> file_flows()
{
    static const Flow flows[] = {
        {"new",
         [](Stage& stage) {
             OstrelFileMenu::mFileName = stage.place(u"known.mdl"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_new(); });
         }},
        {"new, nothing saved",
         [](Stage& stage) {
             stage.button = u"mNoButton"_s;
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_new(); });
         }},
        {"open",
         [](Stage& stage) {
             stage.choose_existing(u"a.mdl"_s);
             save_documents(stage);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_open(); });
         }},
        {"save",
         [](Stage& stage) {
             OstrelFileMenu::mFileName = stage.place(u"known.mdl"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_save(); });
         }},
        {"save as",
         [](Stage& stage) {
             stage.choose_new(u"b.mdl"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_save_as(); });
         }},
        {"import",
         [](Stage& stage) {
             stage.choose_existing(u"a.own"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_import(); });
         }},
        {"import of one kind",
         [](Stage& stage) {
             stage.choose_existing(u"a.gen"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_import_exodus_only(); });
         }},
        {"export",
         [](Stage& stage) {
             stage.choose_new(u"b.own"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_export(); });
         }},
        {"directory",
         [](Stage& stage) { with_menu(stage, [](OstrelFileMenu& menu) { menu.file_directory(); }); }},
        {"recent file",
         [](Stage& stage) {
             stage.choose_existing(u"a.mdl"_s);
             save_documents(stage);
             if (stage.file_menu())
                 stage.file_menu()->open_recent_file(stage.file);
         }},
        {"recent file that is gone",
         [](Stage& stage) {
             stage.choose_new(u"gone.mdl"_s);
             if (!stage.file_menu())
                 return;
             stage.file_menu()->recent_file(stage.file);
             const QList<QAction*> actions = stage.window()->findChildren<QAction*>();
             for (QAction* action : actions) {
                 if (action->text().endsWith(u"gone.mdl"_s)) {
                     action->trigger();
                     return;
                 }
             }
         }},
        {"recent import",
         [](Stage& stage) {
             with_menu(stage, [](OstrelFileMenu& menu) { menu.import_recent_file(u"import 'a'"_s); });
         }},
    };
    return flows;
}
