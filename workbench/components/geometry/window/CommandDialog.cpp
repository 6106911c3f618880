// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/CommandDialog.h"

#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/** The words of a field, written as the command language wants them; empty if they are not what they should
 * be.
 */
QStringList words_of(const CommandField& field, const QString& text)
{
    QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    if (field.count > 0 && words.size() != field.count)
        return {};
    if (field.kind == CommandField::Kind::Numbers &&
        !std::all_of(words.begin(), words.end(), [](const QString& word) { return parse_number(word); }))
        return {};
    std::transform(words.begin(), words.end(), words.begin(),
                   [](const QString& word) { return quote_word(word); });
    return words;
}

} // namespace

CommandDialog::CommandDialog(const QString& title, const QString& command, const QList<CommandField>& fields,
                             QWidget* parent)
    : QDialog(parent),
      mCommand(command),
      mFields(fields),
      mPreview(new QLabel(this)),
      mButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(u"GeometryDialog_"_s + command);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QFormLayout(this);
    for (const CommandField& field : fields) {
        auto* edit = new QLineEdit(field.value, this);
        edit->setObjectName(field.name);
        layout->addRow(field.label, edit);
        connect(edit, &QLineEdit::textChanged, this, &CommandDialog::update_command);
        mEdits << edit;
    }
    mPreview->setObjectName(u"preview"_s);
    mPreview->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mPreview->setTextFormat(Qt::PlainText);
    layout->addRow(mPreview);
    layout->addRow(mButtons);
    connect(mButtons, &QDialogButtonBox::accepted, this, &CommandDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &CommandDialog::reject);
    update_command();
}

QString CommandDialog::command_line() const
{
    QStringList words{mCommand};
    for (qsizetype i = 0; i < mFields.size(); ++i) {
        const CommandField& field = mFields[i];
        if (field.optional && mEdits[i]->text().simplified().isEmpty())
            continue;
        const QStringList values = words_of(field, mEdits[i]->text());
        if (values.isEmpty())
            return {};
        if (!field.keyword.isEmpty())
            words << field.keyword;
        words << values;
    }
    return words.join(u' ');
}

void CommandDialog::accept()
{
    const QString line = command_line();
    if (line.isEmpty())
        return;
    QDialog::accept();
    send_command(line);
}

void CommandDialog::update_command()
{
    const QString line = command_line();
    mPreview->setText(line.isEmpty() ? tr("Fill in all fields; numbers have a decimal point.") : line);
    mButtons->button(QDialogButtonBox::Ok)->setEnabled(!line.isEmpty());
}
