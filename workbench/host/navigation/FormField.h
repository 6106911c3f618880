// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QToolButton;

namespace fennar {

/** The field for one value of a command, of the kind that the value needs; its unit stands behind it. */
class FormField : public QWidget
{
    Q_OBJECT

public:
    /**
     * @param label     names the field in messages and for screen readers.
     * @param id        ends the object names, as "valueWIDTH"; one of its own in a form.
     * @param optional  whether it may stay empty.
     */
    FormField(const CommandParameter& parameter, const QString& label, const QString& id, bool optional,
              QWidget* parent);

    const CommandParameter& parameter() const { return mParameter; }
    const QString& label() const { return mLabel; }

    /** What the user has given, as command_line() takes it; none while the field is empty. */
    QStringList words() const;
    /** Does not tell changed(). */
    void set_words(const QStringList& words);
    /** What is wrong with what was given, as a sentence; empty if nothing is, and for an empty field. */
    QString problem() const;
    /** Offers the present names of entities; what was given stays. */
    void refresh();
    /** What takes the keyboard, in order. */
    QWidgetList controls() const;

signals:
    void changed();

private:
    void make_choice();
    void make_combo();
    void make_editable_combo();
    void make_list();
    void make_file();
    void make_line();
    void use_line(QLineEdit* line);
    void show_names();
    void append_name(const QString& name);
    QString text() const;
    bool is_raw() const;
    bool is_right(const QStringList& words, int at_least) const;
    QString word_problem(const QString& word) const;
    QString file_problem(const QString& name) const;
    QString number_problem(const QString& given) const;
    QString list_problem(const QStringList& given) const;

    const CommandParameter mParameter;
    const QString mLabel;
    const QString mId;
    const bool mOptional;
    /** The field itself, one of these; a combo box that can be edited has both. */
    QLineEdit* mLine = nullptr;
    QComboBox* mCombo = nullptr;
    /** Beside the line, if there is one. */
    QToolButton* mButton = nullptr;
    QStringList mNames;
};

} // namespace fennar
