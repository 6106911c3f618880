// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <memory>

namespace Ui {
class FileLineEdit;
}

/**
 * A field for the name of a file or directory, with a button that lets the user choose one.
 *
 * For the forms of components, which own it through its parent; it hands on all signals of the line edit
 * inside it, and its focus. The button opens a dialog for saving a file unless set_open_dialog() or
 * set_directory_dialog() says otherwise. As with a line edit, a slot of its signals may delete the field with
 * deleteLater() only. GUI thread only.
 */
class OSTRELGUI_EXPORT FileLineEdit : public QWidget
{
    Q_OBJECT

public:
    /** Makes an empty field. @p parent owns it; may be null. */
    explicit FileLineEdit(QWidget* parent = nullptr);
    ~FileLineEdit() override;

    /** Whether the dialog is for opening, and asks for something that exists, instead of for saving. */
    void set_open_dialog(bool open);
    /** Whether the dialog asks for a directory. It is still one for opening or for saving. */
    void set_directory_dialog(bool directory);
    /**
     * Offers a kind of files in the dialog, behind those added before. Without any the dialog shows all
     * files.
     *
     * @param extension  with its dot; it is appended to a chosen name that does not end in it, in exactly
     *                   these letters.
     */
    void add_filter(const QString& name, const QString& extension);
    /** Takes back the first filter added with this name and this extension; none is no error. */
    void remove_filter(const QString& name, const QString& extension);

    /** What stands in the field; nothing is tested. */
    QString filename() const;
    /** Replaces what stands in the field. */
    void set_filename(const QString& name);
    /** Sets the text shown while the field is empty. */
    void set_placeholder_text(const QString& text);

signals:
    /** The caret has moved. */
    void cursorPositionChanged(int from, int to);
    /** Return was pressed in the field, or the field has lost the focus. */
    void editingFinished();
    /** Return was pressed in the field. */
    void returnPressed();
    /** Other text is selected. */
    void selectionChanged();
    /** The text has changed, by whatever means. */
    void textChanged(const QString& text);
    /** The user has typed; not sent for a name chosen in the dialog. */
    void textEdited(const QString& text);

private slots:
    void on_tbBrowse_clicked();
    void on_leFilename_textChanged(const QString& text);

private:
    std::unique_ptr<Ui::FileLineEdit> ui;
    bool mOpenDialog = false;
    bool mDirectoryDialog = false;
    QList<QString> mFilterNames;
    QList<QString> mFilterExtensions;
};
