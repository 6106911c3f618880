// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/FileLineEdit.h"

#include "frame/Alive.h"
#include "ui_FileLineEdit.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;

FileLineEdit::FileLineEdit(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::FileLineEdit>())
{
    ui->setupUi(this);
    setFocusProxy(ui->leFilename);
    connect(ui->leFilename, &QLineEdit::cursorPositionChanged, this, &FileLineEdit::cursorPositionChanged);
    connect(ui->leFilename, &QLineEdit::editingFinished, this, &FileLineEdit::editingFinished);
    connect(ui->leFilename, &QLineEdit::returnPressed, this, &FileLineEdit::returnPressed);
    connect(ui->leFilename, &QLineEdit::selectionChanged, this, &FileLineEdit::selectionChanged);
    connect(ui->leFilename, &QLineEdit::textChanged, this, &FileLineEdit::textChanged);
    connect(ui->leFilename, &QLineEdit::textEdited, this, &FileLineEdit::textEdited);
}

FileLineEdit::~FileLineEdit() = default;

void FileLineEdit::set_open_dialog(bool open)
{
    mOpenDialog = open;
}

void FileLineEdit::set_directory_dialog(bool directory)
{
    mDirectoryDialog = directory;
}

void FileLineEdit::add_filter(const QString& name, const QString& extension)
{
    mFilterNames << name;
    mFilterExtensions << extension;
}

void FileLineEdit::remove_filter(const QString& name, const QString& extension)
{
    for (qsizetype i = 0; i < mFilterNames.size(); ++i) {
        if (mFilterNames[i] == name && mFilterExtensions[i] == extension) {
            mFilterNames.removeAt(i);
            mFilterExtensions.removeAt(i);
            return;
        }
    }
}

QString FileLineEdit::filename() const
{
    return ui->leFilename->text();
}

void FileLineEdit::set_filename(const QString& name)
{
    ui->leFilename->setText(name);
}

void FileLineEdit::set_placeholder_text(const QString& text)
{
    ui->leFilename->setPlaceholderText(text);
}

void FileLineEdit::on_tbBrowse_clicked()
{
    QStringList filters;
    // A copy: the filters may be changed while the dialog waits.
    const QList<QString> extensions = mFilterExtensions;
    for (qsizetype i = 0; i < mFilterNames.size(); ++i)
        filters << mFilterNames[i] + " (*"_L1 + extensions[i] + u')';
    QString directory;
    const QFileInfo present(filename());
    if (present.exists())
        directory = present.absolutePath();

    // The form that this field is in may be deleted while the dialog waits, and the dialog with it.
    const Alive alive(this);
    const QPointer<QFileDialog> dialog = new QFileDialog(this, QString(), directory, filters.join(";;"_L1));
    dialog->setAcceptMode(mOpenDialog ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    if (mDirectoryDialog) {
        dialog->setFileMode(QFileDialog::Directory);
        dialog->setOption(QFileDialog::ShowDirsOnly);
    } else {
        dialog->setFileMode(mOpenDialog ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    }
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    const QStringList files = dialog->selectedFiles();
    const qsizetype filter = filters.indexOf(dialog->selectedNameFilter());
    delete dialog.data();
    if (!accepted || files.isEmpty() || !alive)
        return;

    QString name = files.constFirst();
    if (filter >= 0 && !name.endsWith(extensions[filter]))
        name += extensions[filter];
    set_filename(name);
}

void FileLineEdit::on_leFilename_textChanged(const QString& text)
{
    ui->leFilename->setToolTip(text);
}
