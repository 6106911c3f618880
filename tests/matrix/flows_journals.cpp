// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Stage.h"
#include "flows.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

void with_editor(Stage& stage, void (*use)(JournalEditor&))
{
    if (JournalEditor* const editor = stage.editor())
        use(*editor);
}

void type_in_journal(Stage& stage)
{
    if (stage.journal) {
        stage.journal->insertPlainText(u"typed\n"_s);
        stage.journal->selectAll();
    }
}

} // namespace

std::span<const Flow> journal_flows()
{
    static const Flow flows[] = {
        {"journal opened",
         [](Stage& stage) {
             stage.choose_existing(u"a.jou"_s);
             with_editor(stage, [](JournalEditor& editor) { editor.fileOpen(); });
         }},
        {"journal that is gone",
         [](Stage& stage) {
             stage.choose_existing(u"gone.jou"_s);
             stage.after_choice = [file = stage.file] { QFile::remove(file); };
             with_editor(stage, [](JournalEditor& editor) { editor.fileOpen(); });
         }},
        {"journal closed, saved",
         [](Stage& stage) {
             stage.choose_new(u"b.jou"_s);
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
             stage.choose_new(u"b.jou"_s);
             type_in_journal(stage);
             with_editor(stage, [](JournalEditor& editor) { editor.fileSaveAll(); });
         }},
        {"journal saved as a file that exists",
         [](Stage& stage) {
             stage.choose_existing(u"b.jou"_s);
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
        {"find",
         [](Stage& stage) {
             if (stage.journal)
                 QObject::connect(stage.journal, &QPlainTextEdit::cursorPositionChanged, &stage,
                                  [&stage] { stage.moment(u"QPlainTextEdit::cursorPositionChanged"_s); });
             with_editor(stage, [](JournalEditor& editor) { editor.editFind(); });
         }},
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
