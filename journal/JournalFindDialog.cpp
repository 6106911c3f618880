// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalFindDialog.h"

#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "ui_JournalFindDialog.h"

#include <QKeyEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/**
 * Keeps a return pressed in the text field from the dialog, which would press its default button on it. That
 * is "Next" by then, since searching gives it the focus: the search would run twice.
 */
class ReturnFilter : public QObject
{
public:
    ReturnFilter(QLineEdit* field, QDialog* dialog) : QObject(dialog), mField(field)
    {
        field->installEventFilter(this);
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        if (object == mField) {
            mFromField = true;
            return false;
        }
        return std::exchange(mFromField, false);
    }

private:
    QLineEdit* mField;
    bool mFromField = false;
};

} // namespace

JournalFindDialog::JournalFindDialog(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::JournalFindDialog>())
{
    // Connects the two slots to the buttons by their names.
    ui->setupUi(this);
    connect(ui->mFindText, &QLineEdit::returnPressed, this, &JournalFindDialog::on_pbNext_clicked);
    connect(ui->pbClose, &QPushButton::clicked, this, &JournalFindDialog::close);
    new ReturnFilter(ui->mFindText, this);
}

JournalFindDialog::~JournalFindDialog() = default;

void JournalFindDialog::on_pbNext_clicked()
{
    const Alive dialog(this);
    ui->pbNext->setFocus(Qt::OtherFocusReason);
    // Whoever follows the focus may have deleted the dialog.
    if (!dialog)
        return;

    QTextDocument::FindFlags flags;
    // The wrong way round, as users know it: unchecked looks for the exact case, checked for any
    // (docs/surprises.md).
    flags.setFlag(QTextDocument::FindCaseSensitively, !ui->cbCaseSensitive->isChecked());
    flags.setFlag(QTextDocument::FindWholeWords, ui->cbWholeWords->isChecked());
    flags.setFlag(QTextDocument::FindBackward, ui->cbSearchUp->isChecked());

    const QString text = ui->mFindText->text();
    JournalDocument* const document = mDocument;
    if (!document || text.isEmpty())
        return;

    // Whoever follows the caret may delete both, or show the dialog anew for another document.
    const Alive alive(this, document);
    const bool found = document->find(text, flags);
    if (!alive)
        return;
    QTextCursor cursor = document->textCursor();
    if (!found) {
        if (!ui->cbWrapSearch->isChecked())
            return;
        cursor.movePosition(ui->cbSearchUp->isChecked() ? QTextCursor::End : QTextCursor::Start);
        document->setTextCursor(cursor);
        if (!alive || !document->find(text, flags) || !alive)
            return;
    }
    // Marks a hit of the first search only: after wrapping this cursor selects nothing (docs/surprises.md).
    QTextCharFormat mark;
    mark.setBackground(QColor(u"lightgrey"_s));
    cursor.mergeCharFormat(mark);
}

void JournalFindDialog::on_pbClose_clicked()
{
    close();
}

void JournalFindDialog::showEvent(QShowEvent*)
{
    const Ostrel* window = Ostrel::instance();
    const JournalEditor* editor = window ? window->journal_editor() : nullptr;
    mDocument = editor ? editor->returnCurrentDocument() : nullptr;
    if (mDocument && mDocument->textCursor().hasSelection())
        ui->mFindText->setText(mDocument->textCursor().selectedText());
}
