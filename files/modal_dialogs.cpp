// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/modal_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

struct Question
{
    QWidget* parent;
    QString caption;
    QString path;
    QString filters;
    QFileDialog::AcceptMode accept_mode;
    QFileDialog::FileMode file_mode;
    QFileDialog::Options options;
};

// On the heap: what lies on the stack must not be deleted by its parent.
QStringList ask(const Question& question, QString* filter)
{
    const QPointer<QFileDialog> dialog =
        new QFileDialog(question.parent, question.caption, question.path, question.filters);
    dialog->setAcceptMode(question.accept_mode);
    dialog->setFileMode(question.file_mode);
    dialog->setOptions(question.options);
    dialog->setSupportedSchemes({u"file"_s});
    if (const QFileInfo start(question.path); !question.path.isEmpty() && !start.isDir())
        dialog->selectFile(start.fileName());
    if (filter && !filter->isEmpty())
        dialog->selectNameFilter(*filter);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    const QStringList files = accepted ? dialog->selectedFiles() : QStringList();
    if (accepted && filter)
        *filter = dialog->selectedNameFilter();
    delete dialog.data();
    return files;
}

} // namespace

QString ask_open_file(QWidget* parent, const QString& caption, const QString& path, const QString& filters,
                      QString* filter)
{
    return ask({parent, caption, path, filters, QFileDialog::AcceptOpen, QFileDialog::ExistingFile, {}},
               filter)
        .value(0);
}

QStringList ask_open_files(QWidget* parent, const QString& caption, const QString& path,
                           const QString& filters, QString* filter)
{
    return ask({parent, caption, path, filters, QFileDialog::AcceptOpen, QFileDialog::ExistingFiles, {}},
               filter);
}

QString ask_save_file(QWidget* parent, const QString& caption, const QString& path, const QString& filters,
                      QString* filter)
{
    return ask({parent, caption, path, filters, QFileDialog::AcceptSave, QFileDialog::AnyFile, {}}, filter)
        .value(0);
}

QString ask_directory(QWidget* parent, const QString& caption, const QString& path)
{
    return ask({parent,
                caption,
                path,
                {},
                QFileDialog::AcceptOpen,
                QFileDialog::Directory,
                QFileDialog::ShowDirsOnly},
               nullptr)
        .value(0);
}

QMessageBox::StandardButton show_message(QMessageBox::Icon icon, QWidget* parent, const QString& title,
                                         const QString& text, QMessageBox::StandardButtons buttons)
{
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    // The name of a file may look like markup.
    box->setTextFormat(Qt::PlainText);
    box->exec();
    if (!box)
        return QMessageBox::NoButton;
    const QMessageBox::StandardButton pressed = box->standardButton(box->clickedButton());
    delete box.data();
    return pressed;
}
