// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "journal/JournalEditor.h"
#include "journal/import_items.h"
#include "ui_QtJournalEditor.h"

#include <QList>

/** What the journal editor's window consists of, and what others have added to it. */
struct JournalEditor::Form : Ui::QtJournalEditor
{
    ImportItems mImportItems;
    QList<QAction*> mContextMenuItems;
};
