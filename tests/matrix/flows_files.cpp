// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"
#include "files/FileLineEdit.h"
#include "files/OstrelFileMenu.h"
#include "flows.h"
#include "frame/Ostrel.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

void with_menu(Stage& stage, void (*use)(OstrelFileMenu&))
{
    if (OstrelFileMenu* const menu = stage.file_menu())
        use(*menu);
}

void with_editor(Stage& stage, void (*use)(JournalEditor&))
{
    if (JournalEditor* const editor = stage.editor())
        use(*editor);
}

// Makes @p name a file that exists, and the one that the user chooses.
void choose_existing(Stage& stage, const QString& name)
{
    stage.file = stage.place(name);
    QFile file(stage.file);
    if (!file.open(QIODevice::WriteOnly) || file.write("one\ntwo\n") < 0)
        qFatal("no file");
}

void choose_new(Stage& stage, const QString& name)
{
    stage.file = stage.place(name);
    QFile::remove(stage.file);
}

void type_in_journal(Stage& stage)
{
    if (stage.journal) {
        stage.journal->insertPlainText(u"typed\n"_s);
        stage.journal->selectAll();
    }
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
             choose_existing(stage, u"a.mdl"_s);
             stage.button = u"mNoButton"_s;
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_open(); });
         }},
        {"save",
         [](Stage& stage) {
             OstrelFileMenu::mFileName = stage.place(u"known.mdl"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_save(); });
         }},
        {"save as",
         [](Stage& stage) {
             choose_new(stage, u"b.mdl"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_save_as(); });
         }},
        {"import",
         [](Stage& stage) {
             choose_existing(stage, u"a.own"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_import(); });
         }},
        {"import of one kind",
         [](Stage& stage) {
             choose_existing(stage, u"a.gen"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_import_exodus_only(); });
         }},
        {"export",
         [](Stage& stage) {
             choose_new(stage, u"b.own"_s);
             with_menu(stage, [](OstrelFileMenu& menu) { menu.file_export(); });
         }},
        {"directory",
         [](Stage& stage) { with_menu(stage, [](OstrelFileMenu& menu) { menu.file_directory(); }); }},
        {"recent file",
         [](Stage& stage) {
             choose_existing(stage, u"a.mdl"_s);
             stage.button = u"mNoButton"_s;
             if (stage.file_menu())
                 stage.file_menu()->open_recent_file(stage.file);
         }},
        {"recent file that is gone",
         [](Stage& stage) {
             choose_new(stage, u"gone.mdl"_s);
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
        {"field for a file",
         [](Stage& stage) {
             if (!stage.field)
                 return;
             choose_existing(stage, u"a.mdl"_s);
             auto* const line = stage.field->findChild<QLineEdit*>();
             QTest::keyClicks(line, u"ab"_s);
             QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
             QTest::keyClick(line, Qt::Key_Return);
             stage.field->findChild<QToolButton*>()->click();
         }},
        {"journal opened",
         [](Stage& stage) {
             choose_existing(stage, u"a.jou"_s);
             with_editor(stage, [](JournalEditor& editor) { editor.fileOpen(); });
         }},
        {"journal that is gone",
         [](Stage& stage) {
             choose_existing(stage, u"gone.jou"_s);
             stage.after_choice = [file = stage.file] { QFile::remove(file); };
             with_editor(stage, [](JournalEditor& editor) { editor.fileOpen(); });
         }},
        {"journal closed, saved",
         [](Stage& stage) {
             choose_new(stage, u"b.jou"_s);
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.fileClose(); });
         }},
        {"journal closed, dropped",
         [](Stage& stage) {
             stage.button = u"mNoButton"_s;
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.fileClose(); });
         }},
        {"journals saved",
         [](Stage& stage) {
             choose_new(stage, u"b.jou"_s);
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.fileSaveAll(); });
         }},
        {"journal saved as a file that exists",
         [](Stage& stage) {
             choose_existing(stage, u"b.jou"_s);
             // The dialog is given the name without its ending, which the editor adds.
             stage.file = stage.place(u"b"_s);
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.fileSaveAs(); });
         }},
        {"journal that cannot be saved",
         [](Stage& stage) {
             stage.file = stage.place(u"no such folder/b.jou"_s);
             type_in_journal(stage);
             if (stage.journal) {
                 stage.journal->set_file_name(stage.file);
                 stage.editor()->fileSave();
             }
         }},
        {"journal played",
         [](Stage& stage) {
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.playFile(); });
             with_editor(stage, [](JournalEditor& editor) { editor.playSelected(); });
         }},
        {"find", [](Stage& stage) { with_editor(stage, [](JournalEditor& editor) { editor.editFind(); }); }},
        {"context menu of a journal",
         [](Stage& stage) {
             if (!stage.journal)
                 return;
             QWidget* const viewport = stage.journal->viewport();
             QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                     viewport->mapToGlobal(QPoint(5, 5)));
             QCoreApplication::sendEvent(viewport, &event);
         }},
    };
    return flows;
}
