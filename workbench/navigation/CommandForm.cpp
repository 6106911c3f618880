// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/navigation/CommandForm.h"

#include "workbench/navigation/CommandSink.h"
#include "workbench/navigation/NavigationRoles.h"

#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel* new_label(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // One long word must not push the form out of a narrow dock.
    label->setMinimumWidth(1);
    return label;
}

/** What the line starts with. A blank follows a command that can go on, so that the user just types. */
QString first_line(const QString& command, const QString& usage)
{
    const bool goes_on = usage.size() > command.size() && usage.startsWith(command);
    return goes_on ? command + u' ' : command;
}

void set_text_or_hide(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

} // namespace

CommandForm::CommandForm(QWidget* parent)
    : QWidget(parent),
      mTitle(new_label(u"commandTitle"_s, this)),
      mTip(new_label(u"commandTip"_s, this)),
      mUsage(new_label(u"commandUsage"_s, this)),
      mLine(new QLineEdit(this)),
      mApply(new QPushButton(tr("Apply"), this))
{
    setObjectName(u"commandForm"_s);
    QFont bold = mTitle->font();
    bold.setBold(true);
    mTitle->setFont(bold);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    mUsage->setFont(fixed);
    mLine->setFont(fixed);
    mLine->setObjectName(u"commandLine"_s);
    mLine->setAccessibleName(tr("Command line"));
    mLine->setMinimumWidth(1);
    mApply->setObjectName(u"applyButton"_s);
    mApply->setToolTip(tr("Run the command line"));
    mApply->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : {static_cast<QWidget*>(mTitle), static_cast<QWidget*>(mTip),
                            static_cast<QWidget*>(mUsage), static_cast<QWidget*>(mLine)})
        layout->addWidget(widget);
    layout->addWidget(mApply, 0, Qt::AlignRight);

    const auto enable_apply = [this](const QString& line) { mApply->setEnabled(!line.trimmed().isEmpty()); };
    connect(mLine, &QLineEdit::textChanged, mApply, enable_apply);
    connect(mLine, &QLineEdit::returnPressed, mApply, &QPushButton::click);
    connect(mApply, &QPushButton::clicked, this, &CommandForm::apply);
    enable_apply({});
    hide();
}

void CommandForm::set_entry(const QModelIndex& entry)
{
    const QString title = entry.data(Qt::DisplayRole).toString();
    const QString tip = entry.data(NavigationRole::Tip).toString();
    const QString usage = entry.data(NavigationRole::Usage).toString();
    const QString command = entry.data(NavigationRole::Command).toString();
    mTitle->setText(title);
    set_text_or_hide(mTip, tip);
    set_text_or_hide(mUsage, usage);
    mLine->setAccessibleDescription(usage);
    mApply->setAccessibleName(tr("Apply %1").arg(title));
    if (mEntry != entry || mCommand != command) {
        mEntry = entry;
        mCommand = command;
        mLine->setText(first_line(command, usage));
    }
    setVisible(entry.isValid());
}

void CommandForm::focus_line()
{
    mLine->setFocus(Qt::OtherFocusReason);
    mLine->end(false);
}

QWidgetList CommandForm::controls() const
{
    return {mLine, mApply};
}

void CommandForm::apply()
{
    // Nothing may follow: the receiver is free to delete the panel.
    send_command(mLine->text());
}
