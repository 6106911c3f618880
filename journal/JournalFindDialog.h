// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDialog>
#include <QPointer>

#include <memory>

class JournalDocument;

namespace Ui {
class JournalFindDialog;
}

/**
 * The modal dialog that searches the current document of the journal editor.
 *
 * Each hit is selected and gets a gray background that stays in the document, which thereby counts as
 * modified; a hit found after wrapping around is selected only. A text that is not found is not reported.
 *
 * JournalEditor::editFind() makes one for each call.
 */
class JournalFindDialog : public QDialog
{
    Q_OBJECT

public:
    explicit JournalFindDialog(QWidget* parent = nullptr);
    ~JournalFindDialog() override;

private slots:
    /** Searches on from the document's caret. */
    void on_pbNext_clicked();
    void on_pbClose_clicked();
    /** Takes the current document of the main window's journal editor, and its selection as the text to
     * find. */
    void showEvent(QShowEvent* e) override;

private:
    std::unique_ptr<Ui::JournalFindDialog> ui;
    QPointer<JournalDocument> mDocument;
};
