// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/FormField.h"

#include "workbench/host/navigation/FormServices.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace fennar {

using Kind = CommandParameter::Kind;

namespace {

/** In characters: what a field needs at least. Where that is too much beside its label it stands below it. */
constexpr int least_width = 4;
constexpr int least_width_of_text = 14;

/** What the word stands for; empty if it is a variable that is not set. */
std::optional<QString> resolved(const QString& word)
{
    if (!is_variable_reference(word))
        return word;
    QString name = word.sliced(1);
    name.remove(u'{').remove(u'}');
    return form_variable(name);
}

} // namespace

FormField::FormField(const CommandParameter& parameter, const QString& label, const QString& id,
                     bool optional, QWidget* parent)
    : QWidget(parent), mParameter(parameter), mLabel(label), mId(id), mOptional(optional)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (mParameter.kind == Kind::Choice)
        make_choice();
    else if (mParameter.is_file())
        make_file();
    else if (mParameter.kind == Kind::Entity && mParameter.repeated)
        make_list();
    else if (mParameter.kind == Kind::Entity || mParameter.kind == Kind::Variable)
        make_editable_combo();
    else
        make_line();
    if (!mParameter.unit.isEmpty())
        layout->addWidget(new QLabel(mParameter.unit, this));
    const QString tip = translated_parameter(mParameter.tip);
    const QWidgetList widgets = controls();
    for (QWidget* control : widgets) {
        control->setToolTip(tip);
        control->setAccessibleDescription(tip);
    }
    QWidget* first = widgets.first();
    first->setObjectName(u"value"_s + mId);
    first->setAccessibleName(mParameter.unit.isEmpty() ? mLabel
                                                       : tr("%1 in %2").arg(mLabel, mParameter.unit));
    setFocusProxy(first);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    refresh();
}

void FormField::make_combo()
{
    mCombo = new QComboBox(this);
    mCombo->setMinimumContentsLength(least_width);
    mCombo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    layout()->addWidget(mCombo);
}

void FormField::make_choice()
{
    make_combo();
    // What is not given shows the default, as an empty line does.
    if (mOptional)
        mCombo->setPlaceholderText(mParameter.default_value);
    if (mOptional && mParameter.default_value.isEmpty())
        mCombo->addItem(tr("not given"), QString());
    for (const QString& choice : mParameter.choices)
        mCombo->addItem(choice, choice);
    connect(mCombo, &QComboBox::currentIndexChanged, this, &FormField::changed);
}

void FormField::make_editable_combo()
{
    make_combo();
    mCombo->setEditable(true);
    mCombo->setInsertPolicy(QComboBox::NoInsert);
    // What is typed stays as it is: it may be the beginning of a longer name.
    mCombo->setCompleter(nullptr);
    use_line(mCombo->lineEdit());
}

void FormField::make_list()
{
    make_line();
    mButton = new QToolButton(this);
    mButton->setObjectName(u"add"_s + mId);
    mButton->setText(u"+"_s);
    mButton->setAccessibleName(tr("Add to %1").arg(mLabel));
    mButton->setPopupMode(QToolButton::InstantPopup);
    mButton->setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(mButton);
    menu->setObjectName(u"names"_s + mId);
    connect(menu, &QMenu::aboutToShow, this, &FormField::show_names);
    mButton->setMenu(menu);
    layout()->addWidget(mButton);
}

void FormField::make_file()
{
    if (!form_services().file_field) {
        make_line();
        return;
    }
    QList<CommandFileFilter> filters = mParameter.filters ? mParameter.filters() : QList<CommandFileFilter>();
    for (CommandFileFilter& filter : filters)
        filter.name = translated_parameter(filter.name.toUtf8().constData());
    QWidget* field = form_services().file_field(this, mParameter.kind == Kind::InputFile, filters);
    layout()->addWidget(field);
    use_line(field->findChild<QLineEdit*>());
    mButton = field->findChild<QToolButton*>();
    if (mButton)
        mButton->setAccessibleName(tr("Choose %1").arg(mLabel));
}

void FormField::make_line()
{
    use_line(new QLineEdit(this));
    layout()->addWidget(mLine);
}

void FormField::use_line(QLineEdit* line)
{
    mLine = line;
    // The rest is for the layout to give.
    const int characters = mParameter.is_number() || mCombo ? least_width + 2 : least_width_of_text;
    mLine->setMinimumWidth(mLine->fontMetrics().averageCharWidth() * characters);
    mLine->setPlaceholderText(mParameter.default_value);
    connect(mLine, &QLineEdit::textChanged, this, &FormField::changed);
}

QString FormField::text() const
{
    return mLine ? mLine->text() : mCombo->currentData().toString();
}

/** Whether the text is words of the command language, and not one value. */
bool FormField::is_raw() const
{
    return mParameter.kind == Kind::Words || mParameter.repeated;
}

QStringList FormField::words() const
{
    const QString given = mParameter.is_file() ? text() : text().trimmed();
    if (given.isEmpty())
        return {};
    if (mParameter.kind == Kind::Words || !is_raw())
        return {given};
    QStringList result;
    const CommandWords split = tokenize(given, &keep_reference);
    for (const CommandWord& word : split.words)
        result << word.text;
    // A quote that is open must not pass for an empty field.
    return result.isEmpty() ? QStringList(given) : result;
}

void FormField::set_words(const QStringList& words)
{
    const QSignalBlocker blocker(this);
    if (!mLine) {
        const int nothing = mCombo->placeholderText().isEmpty() ? 0 : -1;
        mCombo->setCurrentIndex(std::max(nothing, mCombo->findData(words.value(0))));
        return;
    }
    QStringList quoted = words;
    if (mParameter.repeated) {
        for (QString& word : quoted) {
            if (!is_variable_reference(word))
                word = quote_word(word);
        }
    }
    mLine->setText(quoted.join(u' '));
}

void FormField::refresh()
{
    const CommandRegistry* registry = form_services().registry;
    if (mParameter.entity.isEmpty() || !registry)
        return;
    mNames = registry->entities().names(mParameter.entity);
    if (!mCombo)
        return;
    const QSignalBlocker combo_blocker(mCombo);
    const QString given = mLine->text();
    const int cursor = mLine->cursorPosition();
    const QSignalBlocker line_blocker(mLine);
    mCombo->clear();
    mCombo->addItems(mNames + mParameter.choices);
    mCombo->setCurrentIndex(-1);
    mLine->setText(given);
    mLine->setCursorPosition(cursor);
}

void FormField::show_names()
{
    QMenu* menu = mButton->menu();
    menu->clear();
    const QStringList names = mNames + mParameter.choices;
    for (const QString& name : names) {
        // "&" is no mnemonic here.
        connect(menu->addAction(QString(name).replace(u'&', u"&&"_s)), &QAction::triggered, this,
                [this, name] { append_name(name); });
    }
    if (names.isEmpty())
        menu->addAction(tr("There is nothing to choose."))->setEnabled(false);
}

void FormField::append_name(const QString& name)
{
    QString given = mLine->text().trimmed();
    if (mParameter.choices.contains(name) || mParameter.choices.contains(given))
        given.clear(); // it stands for itself
    mLine->setText(given + (given.isEmpty() ? QString() : u" "_s) + quote_word(name));
}

QWidgetList FormField::controls() const
{
    QWidgetList result{mCombo ? static_cast<QWidget*>(mCombo) : mLine};
    if (mButton)
        result << mButton;
    return result;
}

QString FormField::problem() const
{
    const QStringList given = words();
    if (given.isEmpty())
        return {};
    if (is_raw()) {
        const CommandWords split = tokenize(text(), &form_variable);
        // A backslash would continue the line.
        if (split.error || text().trimmed().endsWith(u'\\'))
            return tr("%1: a quote is not closed, or a variable is not set.").arg(mLabel);
        if (mParameter.kind == Kind::Words)
            return {};
        // A comment would be dropped.
        if (const QString rest = text().sliced(split.end_column - 1).trimmed(); !rest.isEmpty())
            return tr("%1: there is no \"%2\".").arg(mLabel, rest);
    }
    for (const QString& word : given) {
        if (const QString problem = word_problem(word); !problem.isEmpty())
            return problem;
    }
    return is_right(given, mParameter.at_least) ? QString() : list_problem(given);
}

/** Whether a command could take these words as its value. */
bool FormField::is_right(const QStringList& words, int at_least) const
{
    CommandParameter parameter = mParameter;
    parameter.at_least = at_least;
    return !find_fault({{.clauses = {required_value(parameter)}}}, {QList<QStringList>{words}});
}

/** What is wrong with one of the words. */
QString FormField::word_problem(const QString& word) const
{
    const bool literal = mParameter.is_file() || mParameter.kind == Kind::Text;
    const std::optional<QString> value = literal ? word : resolved(word);
    if (!value)
        return tr("%1: there is no variable %2.").arg(mLabel, word);
    if (mParameter.is_file())
        return file_problem(*value);
    if (is_right({word}, 1))
        return {};
    if (!word.isEmpty() && word == mParameter.all)
        return list_problem({word});
    switch (mParameter.kind) {
    case Kind::Number:
    case Kind::WholeNumber:
        return number_problem(*value);
    case Kind::NewName:
        if (!CommandRegistry::is_name(*value))
            return tr("%1: a letter, then letters, digits, \"_\", \"-\" and \".\".").arg(mLabel);
        if (mParameter.reserved.contains(*value))
            return tr("%1: \"%2\" has a meaning of its own.").arg(mLabel, *value);
        return tr("%1: there is a \"%2\" already.").arg(mLabel, *value);
    case Kind::Variable:
        return tr("%1: a letter, then letters, digits and \"_\".").arg(mLabel);
    default:
        return tr("%1: there is no \"%2\".").arg(mLabel, *value);
    }
}

/** Commands find out by themselves only when they run. */
QString FormField::file_problem(const QString& name) const
{
    const QFileInfo file(name);
    if (mParameter.kind == Kind::InputFile)
        return file.isFile() ? QString() : tr("%1: there is no file %2.").arg(mLabel, name);
    if (!file.absoluteDir().exists())
        return tr("%1: there is no folder %2.").arg(mLabel, file.absolutePath());
    return file.isDir() ? tr("%1: %2 is a folder.").arg(mLabel, name) : QString();
}

/** What the number must be; @p given is wrong. */
QString FormField::number_problem(const QString& given) const
{
    return tr("%1: %2.").arg(mLabel, number_range(mParameter, given).translated);
}

/** What is wrong with words each of which would be right. */
QString FormField::list_problem(const QStringList& given) const
{
    for (const QString& word : given) {
        if (given.size() > 1 && mParameter.choices.contains(word))
            return tr("%1: \"%2\" stands alone.").arg(mLabel, word);
    }
    // What stands for all may be too few.
    if (given.size() < mParameter.at_least || given.value(0) == mParameter.all)
        return tr("%1: at least %n.", nullptr, mParameter.at_least).arg(mLabel);
    return tr("%1: each one only once.").arg(mLabel);
}

} // namespace fennar
