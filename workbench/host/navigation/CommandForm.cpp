// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/CommandForm.h"

#include "workbench/host/navigation/ClauseRow.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

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

void set_text_or_hide(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

/** The words of a line, its variables as they are written. */
QStringList split(const QString& line)
{
    const CommandWords found = tokenize(line, &keep_reference);
    QStringList words;
    for (const CommandWord& word : found.words)
        words << word.text;
    return found.error ? QStringList() : words;
}

QStringList sorted(QStringList words)
{
    words.sort();
    return words;
}

/** The way to write the command that a run takes the line for; -1 if it takes it for none. */
int right_way(const Command& command, const QString& line)
{
    const CommandEntities& entities = form_services().registry->entities();
    try {
        return int(CommandArguments(tokenize(line, &form_variable), command.forms, &entities).form());
    } catch (const CommandError&) {
        return -1;
    }
}

/** The variables that a line uses, each as often as it does. */
QStringList variables_of(const QString& line)
{
    QStringList names;
    tokenize(line, [&names](QStringView name) {
        names << name.toString();
        return std::optional(QString());
    });
    names.sort();
    return names;
}

} // namespace

CommandForm::CommandForm(QWidget* parent, QDialogButtonBox* buttons)
    : QWidget(parent),
      mTitle(new_label(u"commandTitle"_s, this)),
      mTip(new_label(u"commandTip"_s, this)),
      mUsage(new_label(u"commandUsage"_s, this)),
      mWays(new QComboBox(this)),
      mMessage(new_label(u"commandMessage"_s, this)),
      mLine(new QLineEdit(this)),
      mEdit(new QCheckBox(tr("Edit the line"), this)),
      mApply(buttons ? buttons->button(QDialogButtonBox::Ok) : new QPushButton(tr("Apply"), this))
{
    setObjectName(u"commandForm"_s);
    mWays->setObjectName(u"commandWays"_s);
    mWays->setAccessibleName(tr("Way to use the command"));
    mWays->setMinimumContentsLength(4);
    mWays->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    mLine->setObjectName(u"commandLine"_s);
    mLine->setAccessibleName(tr("Command line"));
    mLine->setMinimumWidth(1);
    // A line that is cut off would be another command.
    mLine->setMaxLength(std::numeric_limits<int>::max());
    mEdit->setObjectName(u"editLine"_s);
    mEdit->setToolTip(tr("Write the command line yourself"));
    mApply->setObjectName(u"applyButton"_s);
    mApply->setToolTip(tr("Run the command line"));
    if (buttons) {
        mTitle->hide();
        // A dialog keeps its size, and its buttons their place.
        QSizePolicy keeps = mMessage->sizePolicy();
        keeps.setRetainSizeWhenHidden(true);
        mMessage->setSizePolicy(keeps);
        mMessage->setMinimumHeight(mMessage->fontMetrics().height());
    } else {
        mApply->setAutoDefault(false);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* widget : std::initializer_list<QWidget*>{mTitle, mTip, mUsage, mWays, mMessage, mLine})
        layout->addWidget(widget);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(mEdit);
    bottom->addStretch();
    bottom->addWidget(buttons ? static_cast<QWidget*>(buttons) : mApply);
    layout->addLayout(bottom);

    connect(mLine, &QLineEdit::textChanged, this, [this] {
        if (!is_described())
            update_line();
    });
    connect(mWays, &QComboBox::activated, this, [this](int way) {
        show_way(way);
        update_line();
        emit controls_changed();
    });
    connect(mEdit, &QCheckBox::toggled, this, &CommandForm::set_editing);
    connect(mApply, &QPushButton::clicked, this, &CommandForm::apply);
    // Any number of changes in one turn are one for the form.
    mRefresh.setSingleShot(true);
    connect(&mRefresh, &QTimer::timeout, this, &CommandForm::refresh);
    if (const CommandRegistry* registry = form_services().registry)
        connect(&registry->entities(), &CommandEntities::changed, this, [this](const QString& kind) {
            mChangedEntities.insert(kind);
            mRefresh.start();
        });
    update_line();
    hide();
}

void CommandForm::set_fonts()
{
    QFont bold = mTitle->font();
    bold.setBold(true);
    mTitle->setFont(bold);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    mUsage->setFont(fixed);
    mLine->setFont(fixed);
}

const CommandSyntax& CommandForm::form() const
{
    return mCommand->forms[mWay];
}

void CommandForm::set_entry(const QModelIndex& entry)
{
    const QString title = entry.data(Qt::DisplayRole).toString();
    const QString usage = entry.data(NavigationRole::Usage).toString();
    const QString line = entry.data(NavigationRole::Command).toString();
    // Finding fonts takes time, which the start of the program, where no form is shown, does not have.
    if (entry.isValid() && !std::exchange(mHasFonts, true))
        set_fonts();
    mTitle->setText(title);
    set_text_or_hide(mTip, entry.data(NavigationRole::Tip).toString());
    mApply->setAccessibleName(tr("Apply %1").arg(title));
    if (mEntry != entry || mEntryLine != line || mEntryUsage != usage) {
        mEntry = entry;
        mEntryLine = line;
        mEntryUsage = usage;
        start(line, usage);
    }
    setVisible(entry.isValid());
}

void CommandForm::set_command(const QString& name)
{
    set_fonts();
    start(name, {});
    set_text_or_hide(mTip, mRegistered ? mRegistered->translated_summary() : QString());
    show();
}

/** Shows the command of @p line, with fields if it is described in a way that @p line fits. */
void CommandForm::start(const QString& line, const QString& usage)
{
    mCommand.reset();
    mEditing = false;
    {
        const QSignalBlocker blocker(mEdit);
        mEdit->setChecked(false);
    }
    const CommandRegistry* registry = form_services().registry;
    const QStringList words = split(line);
    const QString name = words.value(0);
    mRegistered = registry ? registry->find(name) : nullptr;
    mCommand = mRegistered;
    mWays->clear();
    if (mCommand) {
        for (const CommandSyntax& way : mCommand->forms)
            mWays->addItem(translated_parameter(way.title));
        const bool is_bare = words.size() == 1;
        if (!(is_bare && read_line(applied_lines().value(name))) && !read_line(line))
            mCommand.reset();
        else if (is_bare)
            take_selection();
    }
    if (!mCommand)
        show_way(-1);
    mWays->setVisible(mCommand && mCommand->forms.size() > 1);
    mEdit->setVisible(mCommand != nullptr);
    mLine->setReadOnly(mCommand != nullptr);
    color_line();
    set_text_or_hide(mUsage, mCommand ? QString() : usage);
    mLine->setAccessibleDescription(mCommand ? mCommand->usage() : usage);
    mLine->setToolTip(mCommand ? mCommand->usage() : QString());
    // A blank follows a command that can go on, so that the user just types.
    if (!mCommand)
        mLine->setText(usage.size() > line.size() && usage.startsWith(line) ? line + u' ' : line);
    update_line();
    emit controls_changed();
}

/** Puts what @p line holds into the fields; false if it is no line of this command. */
bool CommandForm::read_line(const QString& line)
{
    QStringList words = split(line);
    if (words.value(0) != mCommand->name)
        return false;
    words.removeFirst();
    QList<int> ways;
    for (int way = 0; way < mCommand->forms.size(); ++way)
        ways << way;
    const int right = right_way(*mCommand, line);
    if (right > 0)
        ways.move(right, 0);
    for (const int way : ways) {
        const CommandSyntax& form = mCommand->forms[way];
        const auto values = read_values(form, words);
        // A field cannot tell "$x" in single quotes from a variable, nor hold a variable in the middle of a
        // text.
        if (values && variables_of(command_line(mCommand->name, form, *values)) == variables_of(line)) {
            show_way(way);
            for (qsizetype i = 0; i < mRows.size(); ++i)
                mRows[i]->fill(values->value(i));
            // Nor can it hold an empty text, so that a line may come out as another one.
            return right < 0 || sorted(split(command_line(mCommand->name, form, this->values()))) ==
                                    sorted(QStringList(mCommand->name) + words);
        }
    }
    return false;
}

/** Puts what is selected in the place of the names in the fields. */
void CommandForm::take_selection()
{
    const QList<ClauseValues> selected = selected_values(form(), form_services().registry->entities());
    for (qsizetype i = 0; i < mRows.size(); ++i) {
        const QList<CommandParameter>& parameters = mRows[i]->clause().parameters;
        if (std::any_of(parameters.begin(), parameters.end(),
                        [](const CommandParameter& parameter) { return !parameter.entity.isEmpty(); }))
            mRows[i]->fill(selected[i]);
    }
}

/** Makes the fields of one way to write the command; none if @p way is negative. */
void CommandForm::show_way(int way)
{
    // A field may be what has led here, by the key that applies the line.
    if (mFields) {
        mFields->hide();
        mFields->setParent(nullptr);
        mFields->deleteLater();
    }
    mFields = nullptr;
    mRows.clear();
    mWay = std::max(0, way);
    if (way < 0)
        return;
    mWays->setCurrentIndex(way);
    mFields = new QWidget(this);
    auto* fields = new QFormLayout(mFields);
    fields->setContentsMargins(0, 0, 0, 0);
    fields->setRowWrapPolicy(QFormLayout::WrapLongRows);
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const CommandClause& clause : form().clauses) {
        mRows << new ClauseRow(clause, fields);
        connect(mRows.last(), &ClauseRow::changed, this, &CommandForm::update_line);
    }
    auto* all = static_cast<QVBoxLayout*>(layout());
    all->insertWidget(all->indexOf(mMessage), mFields);
    mFields->setVisible(fields->rowCount() > 0);
    QWidgetList controls;
    for (const ClauseRow* row : std::as_const(mRows))
        controls << row->controls();
    if (controls.isEmpty())
        return;
    // The fields stay in the order in which they were made. The buttons of a dialog come behind all others.
    setTabOrder(controls.last(), mLine);
    setTabOrder(mLine, mEdit);
}

/** What the fields hold. */
QList<ClauseValues> CommandForm::values() const
{
    QList<ClauseValues> result;
    for (const ClauseRow* row : mRows)
        result << row->values();
    return result;
}

QString CommandForm::problem() const
{
    const ClauseRow* before = nullptr;
    for (const ClauseRow* row : mRows) {
        if (const QString problem = row->problem(); !problem.isEmpty())
            return problem;
        // Without a keyword only the place tells what a value is.
        if (before && row->is_given() && !before->is_given() && before->clause().optional &&
            row->clause().keyword.isEmpty() && before->clause().keyword.isEmpty())
            return before->missing_too();
        before = row;
    }
    const auto fault = find_fault(mCommand->forms, values(), mWay);
    return fault ? fault->translated() : QString();
}

void CommandForm::update_line()
{
    QString message;
    if (is_described()) {
        message = problem();
        mLine->setText(command_line(mCommand->name, form(), values()));
        mLine->setCursorPosition(0);
    }
    // In a panel an empty message takes no room.
    mMessage->setText(message);
    mMessage->setVisible(!message.isEmpty());
    mApply->setEnabled(message.isEmpty() && !mLine->text().trimmed().isEmpty());
    mApply->setAccessibleDescription(message);
}

void CommandForm::set_editing(bool on)
{
    // What was written goes into the fields if they can hold it; otherwise they are as they were.
    if (!on)
        read_line(mLine->text());
    mEditing = on;
    mLine->setReadOnly(!on);
    color_line();
    mFields->setEnabled(!on);
    mWays->setEnabled(!on);
    update_line();
    emit controls_changed();
    if (on) {
        mLine->setFocus(Qt::OtherFocusReason);
        mLine->end(false);
    }
}

/** A line that only shows what will run has the color of the panel, not that of a field to write in. */
void CommandForm::color_line()
{
    QPalette colors;
    if (mLine->isReadOnly()) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            colors.setBrush(group, QPalette::Base, palette().brush(group, QPalette::Window));
    }
    mLine->setPalette(colors);
}

void CommandForm::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        color_line();
}

void CommandForm::refresh()
{
    const QSet<QString> changed = std::exchange(mChangedEntities, {});
    const CommandRegistry* registry = form_services().registry;
    // The command has come, has gone, or is another one.
    if (changed.contains(u"command"_s) && registry && mEntry.isValid() &&
        registry->find(split(mEntryLine).value(0)) != mRegistered) {
        start(mEntryLine, mEntryUsage);
        return;
    }
    for (ClauseRow* row : std::as_const(mRows))
        row->refresh(changed);
    update_line();
}

void CommandForm::focus_first()
{
    QWidget* first = controls().value(0);
    if (first != mLine && first != mApply) {
        first->setFocus(Qt::TabFocusReason);
    } else if (first == mApply || mLine->isReadOnly()) {
        mApply->setFocus(Qt::TabFocusReason);
    } else {
        mLine->setFocus(Qt::OtherFocusReason);
        mLine->end(false);
    }
}

QWidgetList CommandForm::controls() const
{
    QWidgetList result;
    if (!mWays->isHidden())
        result << mWays;
    for (const ClauseRow* row : mRows)
        result << row->controls();
    result << mLine;
    if (!mEdit->isHidden())
        result << mEdit;
    result << mApply;
    return result;
}

void CommandForm::keyPressEvent(QKeyEvent* event)
{
    // The fields leave these keys to whom they are in.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        mApply->click();
    else if (event->key() == Qt::Key_Escape)
        emit left();
    else
        QWidget::keyPressEvent(event);
}

void CommandForm::apply()
{
    const QString line = mLine->text();
    if (mCommand)
        applied_lines().insert(mCommand->name, line);
    emit applying();
    // Nothing may follow: the receiver is free to delete the panel.
    send_command(line);
}

QDialog* new_command_dialog(const QString& command, const QString& title, QWidget* parent)
{
    auto* const dialog = new QDialog(parent);
    dialog->setObjectName(u"commandDialog_"_s + command);
    dialog->setWindowTitle(title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    auto* form = new CommandForm(dialog, buttons);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(form);
    layout->addStretch();
    QObject::connect(form, &CommandForm::applying, dialog, &QDialog::accept);
    QObject::connect(form, &CommandForm::left, dialog, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    form->set_command(command);
    form->focus_first();
    return dialog;
}

} // namespace fennar
