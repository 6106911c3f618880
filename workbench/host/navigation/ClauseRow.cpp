// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/ClauseRow.h"

#include "workbench/host/navigation/FormField.h"
#include "workbench/host/navigation/FormServices.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar {

ClauseRow::ClauseRow(const CommandClause& clause, QFormLayout* form)
    : QObject(form->parentWidget()), mClause(clause)
{
    if (clause.parameters.isEmpty()) {
        add_check(form);
    } else if (clause.label && clause.parameters.size() > 1) {
        add_together(form);
    } else {
        for (const CommandParameter& parameter : clause.parameters)
            add_labeled(parameter.label, add_field(parameter, form->parentWidget()), form);
    }
}

void ClauseRow::add_check(QFormLayout* form)
{
    const QString label = mClause.label ? translated_parameter(mClause.label) : mClause.keyword;
    mCheck = new QCheckBox(label, form->parentWidget());
    mCheck->setObjectName(u"value"_s + mClause.keyword);
    mCheck->setToolTip(translated_parameter(mClause.tip));
    // Without it the line would be another one.
    mCheck->setChecked(!mClause.optional);
    mCheck->setVisible(mClause.optional);
    connect(mCheck, &QCheckBox::toggled, this, &ClauseRow::changed);
    if (mClause.optional)
        form->addRow(mCheck);
}

/** The fields stand side by side. */
void ClauseRow::add_together(QFormLayout* form)
{
    auto* together = new QWidget(form->parentWidget());
    auto* beside = new QHBoxLayout(together);
    beside->setContentsMargins(0, 0, 0, 0);
    beside->setSpacing(3);
    for (const CommandParameter& parameter : mClause.parameters) {
        auto* name = new QLabel(translated_parameter(parameter.label), together);
        beside->addWidget(name);
        CommandParameter unitless = parameter; // one unit behind the last is enough
        unitless.unit.clear();
        QWidget* field = add_field(unitless, together);
        name->setBuddy(field->focusProxy());
        beside->addWidget(field, 1);
    }
    if (const QString& unit = mClause.parameters.last().unit; !unit.isEmpty())
        beside->addWidget(new QLabel(unit, together));
    together->setFocusProxy(mFields.first());
    add_labeled(mClause.label, together, form);
}

QWidget* ClauseRow::add_field(const CommandParameter& parameter, QWidget* parent)
{
    CommandParameter described = parameter;
    if (!described.tip)
        described.tip = mClause.tip;
    const QString name = translated_parameter(parameter.label);
    const QString label = mClause.label && mClause.parameters.size() > 1
                              ? tr("%1 %2").arg(translated_parameter(mClause.label), name)
                              : name;
    // Two clauses may have values of the same names, as coordinates.
    const QString id = mClause.parameters.size() > 1 ? mClause.keyword + parameter.name : parameter.name;
    auto* field = new FormField(described, label, id, mClause.optional, parent);
    connect(field, &FormField::changed, this, &ClauseRow::changed);
    mFields << field;
    return field;
}

void ClauseRow::add_labeled(const char* label, QWidget* field, QFormLayout* form) const
{
    form->addRow((mClause.optional ? tr("%1 (optional):") : tr("%1:")).arg(translated_parameter(label)),
                 field);
}

bool ClauseRow::is_given() const
{
    return mCheck ? mCheck->isChecked()
                  : std::any_of(mFields.begin(), mFields.end(),
                                [](const FormField* field) { return !field->words().isEmpty(); });
}

ClauseValues ClauseRow::values() const
{
    if (!is_given())
        return std::nullopt;
    QList<QStringList> values;
    for (const FormField* field : mFields) {
        const QString& fallback = field->parameter().default_value;
        const QStringList given = field->words();
        values << (given.isEmpty() && !fallback.isNull() ? QStringList(fallback) : given);
    }
    return values;
}

void ClauseRow::fill(const ClauseValues& values)
{
    if (mCheck) {
        const QSignalBlocker blocker(mCheck);
        mCheck->setChecked(values || !mClause.optional);
    }
    for (qsizetype i = 0; i < mFields.size(); ++i)
        mFields[i]->set_words(values ? values->value(i) : QStringList());
}

QString ClauseRow::problem() const
{
    if (!is_given()) {
        return mClause.optional || mFields.isEmpty()
                   ? QString()
                   : tr("%1 must be filled in.").arg(mFields.first()->label());
    }
    for (const FormField* field : mFields) {
        if (field->words().isEmpty() && field->parameter().default_value.isNull())
            return tr("%1 must be filled in, too.").arg(field->label());
        if (const QString problem = field->problem(); !problem.isEmpty())
            return problem;
    }
    // Each number is right by itself.
    if (mClause.not_zero && find_fault({{.clauses = {mClause}}}, {values()}))
        return tr("%1: the numbers must not all be 0.").arg(translated_parameter(mClause.label));
    return {};
}

QString ClauseRow::missing_too() const
{
    return tr("%1 must be filled in, too.").arg(mFields.first()->label());
}

void ClauseRow::refresh(const QSet<QString>& entities)
{
    for (FormField* field : std::as_const(mFields)) {
        if (entities.contains(field->parameter().entity))
            field->refresh();
    }
}

QWidgetList ClauseRow::controls() const
{
    QWidgetList result;
    if (mCheck && !mCheck->isHidden())
        result << mCheck;
    for (const FormField* field : mFields)
        result << field->controls();
    return result;
}

} // namespace fennar
