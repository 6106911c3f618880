// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QWidgetList>

class QCheckBox;
class QFormLayout;

namespace fennar {

class FormField;

/**
 * What stands in a form for one clause of a command: a field for each of its values, or a check box for a
 * keyword without any.
 */
class ClauseRow : public QObject
{
    Q_OBJECT

public:
    /**
     * Adds the controls to a form, whose widget then owns them, and this object.
     *
     * @param clause  outlives this object.
     */
    ClauseRow(const CommandClause& clause, QFormLayout* form);

    const CommandClause& clause() const { return mClause; }
    /** Whether the user has given anything of it. */
    bool is_given() const;
    /** What the controls hold; none if nothing is given. Values that are missing beside others are those that
     * the command would take. */
    ClauseValues values() const;
    /** Puts values into the controls, or empties them. */
    void fill(const ClauseValues& values);
    /** What is wrong with the values, for the user; empty if nothing is. */
    QString problem() const;
    /** That the first value is missing beside another one. */
    QString missing_too() const;
    /** Offers the present names of these kinds of entities. */
    void refresh(const QSet<QString>& entities);
    /** The controls that take the keyboard, in order. */
    QWidgetList controls() const;

signals:
    void changed();

private:
    void add_check(QFormLayout* form);
    void add_together(QFormLayout* form);
    QWidget* add_field(const CommandParameter& parameter, QWidget* parent);
    void add_labeled(const char* label, QWidget* field, QFormLayout* form) const;

    const CommandClause& mClause;
    QList<FormField*> mFields;
    QCheckBox* mCheck = nullptr;
};

} // namespace fennar
