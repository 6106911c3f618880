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
    /** Those that are being put into the menu, and are deleted behind that if they have left the list. */
    QList<const ConsoleImporter*> mComingItems;
    QList<QAction*> mContextMenuItems;
};
