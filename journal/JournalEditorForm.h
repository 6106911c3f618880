// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "journal/JournalEditor.h"
#include "ui_QtJournalEditor.h"

#include <QList>

class ConsoleImporter;

/** What the journal editor's window consists of, and what others have added to it. */
struct JournalEditor::Form : Ui::QtJournalEditor
{
    QList<ConsoleImporter*> mImportItems;
    QList<QAction*> mContextMenuItems;
    /** Those that are being added to the import menu, and are deleted afterwards if they have left the list.
     */
    QList<const ConsoleImporter*> mComingItems;
};
