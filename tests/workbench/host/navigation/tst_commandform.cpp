// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/NavigationModel.h"
#include "navigation_helpers.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/windows.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/FormField.h"
#include "workbench/host/navigation/FormServices.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QScrollArea>
#include <QStandardItem>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

CommandParameter length(const QString& name, const char* label)
{
    return {.name = name, .kind = Kind::Number, .label = label, .unit = u"mm"_s, .least = 0.5, .most = 100};
}

CommandClause vector(const QString& keyword, const char* label, const QString& fallback, bool not_zero)
{
    CommandClause clause{.keyword = keyword, .optional = true, .label = label, .not_zero = not_zero};
    for (const char* const axis : {"X", "Y", "Z"})
        clause.parameters.append({.name = QString::fromLatin1(axis),
                                  .kind = Kind::Number,
                                  .label = axis,
                                  .unit = u"mm"_s,
                                  .default_value = fallback});
    return clause;
}

/** The pieces of the line that the user reads and types. */
QString plain(const CommandForm& form)
{
    return form.findChild<QLineEdit*>(u"commandLine"_s)->text();
}

} // namespace

/** The form as its user sees it, with commands of every kind of value. */
class TstCommandForm : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void title_is_bold_and_the_line_of_fixed_width();
    void fields_are_those_of_the_description();
    void units_and_defaults_are_shown();
    void optional_fields_are_told();
    void line_follows_the_fields();
    void line_is_sent_as_it_stands();
    void long_line_is_sent_whole();
    void apply_is_off_while_something_is_wrong_data();
    void apply_is_off_while_something_is_wrong();
    void all_of_too_few_are_refused();
    void missing_coordinates_are_the_defaults();
    void direction_of_zeros_is_refused();
    void values_of_a_clause_need_each_other();
    void value_needs_the_one_in_front_of_it();
    void variables_stand_for_values();
    void ways_can_be_chosen();
    void keyword_alone_is_a_check_box();
    void several_entities_are_added_from_a_menu();
    void entities_follow_the_model();
    void typed_name_survives_a_change_of_the_model();
    void beginning_of_a_name_stays_what_it_is();
    void new_name_must_be_new();
    void file_fields_take_what_the_application_makes();
    void file_names_are_quoted();
    void file_must_be_there();
    void entry_can_hold_values();
    void choice_that_is_not_given_shows_its_default();
    void line_that_is_no_form_is_left_to_the_user();
    void command_that_is_not_there_has_its_line();
    void line_can_be_edited_and_is_read_back();
    void line_looks_like_a_field_only_while_it_can_be_edited();
    void edited_line_that_does_not_fit_is_given_up();
    void command_that_comes_and_goes_changes_the_form();
    void return_applies_from_any_field();
    void return_applies_nothing_that_is_wrong();
    void escape_goes_back_to_the_entry_data();
    void escape_goes_back_to_the_entry();
    void first_field_has_the_keyboard();
    void tab_goes_through_all_fields();
    void tab_goes_round_every_form();
    void everything_has_a_name_to_be_read_out();
    void form_may_go_while_it_applies();
    void nothing_is_clipped_in_a_narrow_dock();
    void labels_are_translated();
    void values_of_the_last_time_are_there_again();
    void names_are_those_that_are_selected();
    void what_the_form_applies_the_interpreter_takes();

private:
    void add(const QString& name, const QList<CommandSyntax>& forms);
    void show(const QString& line);
    template <typename Widget>
    Widget* find(const QString& name)
    {
        auto* found = mForm->findChild<Widget*>(name);
        if (!found)
            qFatal("no %s", qPrintable(name));
        return found;
    }
    void give(const QString& parameter, const QString& value)
    {
        if (auto* combo = mForm->findChild<QComboBox*>(u"value"_s + parameter))
            combo->setCurrentText(value);
        else
            find<QLineEdit>(u"value"_s + parameter)->setText(value);
    }
    QPushButton* apply() { return find<QPushButton>(u"applyButton"_s); }
    QString message() { return find<QLabel>(u"commandMessage"_s)->text(); }
    QString line() { return plain(*mForm); }

    std::unique_ptr<CommandRegistry> mRegistry;
    CommandVariables mVariables;
    QStringList mSolids;
    std::unique_ptr<NavigationModel> mModel;
    std::unique_ptr<CommandForm> mForm;
    QStringList mSent;
    QTemporaryDir mDirectory;
};

void TstCommandForm::set_up()
{
    mSent.clear();
    mSolids = {u"plate"_s, u"pin"_s};
    mVariables = {};
    mRegistry = std::make_unique<CommandRegistry>();
    mRegistry->entities().offer(
        u"solid"_s, u"test"_s, [this] { return mSolids; },
        [this](const QString& word) { return mSolids.value(word.toInt() - 1); });
    set_command_sink([this](const QString& line) { mSent << line; });
    set_form_services({mRegistry.get(), &mVariables, {}});
    mModel = std::make_unique<NavigationModel>(nullptr);

    const CommandParameter solid{
        .name = u"SOLID"_s, .kind = Kind::Entity, .label = "Solid", .entity = u"solid"_s, .by_number = true};
    CommandParameter solids = solid;
    solids.label = "Solids";
    solids.choices = {u"all"_s};
    solids.all = u"all"_s;
    solids.repeated = true;
    CommandParameter any_solids = solids;
    solids.distinct = true;
    const CommandParameter name{.name = u"NAME"_s,
                                .kind = Kind::NewName,
                                .label = "Name",
                                .entity = u"solid"_s,
                                .reserved = {u"at"_s}};
    add(u"brick"_s,
        {{{required_value(length(u"WIDTH"_s, "Width")),
           {.parameters = {length(u"DEPTH"_s, "Depth"), length(u"HEIGHT"_s, "Height")}, .optional = true},
           vector(u"at"_s, "Center", u"0"_s, false),
           vector(u"along"_s, "Axis", u"0"_s, true),
           {.keyword = u"name"_s, .parameters = {name}, .optional = true}}}});
    add(u"join"_s, {{{required_value([&] {
            CommandParameter two = solids;
            two.at_least = 2;
            return two;
        }())}}});
    add(u"delete"_s,
        {{{required_value(solids), {.keyword = u"quick"_s, .optional = true, .label = "Quickly"}}}});
    add(u"turn_all"_s, {{{required_value(any_solids)}}});
    add(u"rename"_s, {{{required_value(solid), required_value(name)}}});
    add(u"view"_s, {{{required_value({.name = u"SIDE"_s,
                                      .kind = Kind::Choice,
                                      .label = "Side",
                                      .choices = {u"front"_s, u"top"_s}})}}});
    add(u"measure"_s, {{{optional_value({.name = u"WHAT"_s,
                                         .kind = Kind::Choice,
                                         .label = "What",
                                         .choices = {u"area"_s, u"volume"_s}})}}});
    add(u"mesh"_s, {{{optional_value({.name = u"METHOD"_s,
                                      .kind = Kind::Choice,
                                      .label = "Method",
                                      .default_value = u"fine"_s,
                                      .choices = {u"coarse"_s, u"fine"_s}})}}});
    add(u"set"_s,
        {{{optional_value(
               {.name = u"NAME"_s, .kind = Kind::Variable, .label = "Variable", .entity = u"variable"_s}),
           optional_value({.name = u"VALUE"_s, .kind = Kind::Words, .label = "Value"})}}});
    add(u"say"_s, {{{required_value({.name = u"TEXT"_s, .kind = Kind::Text, .label = "Text"})}}});
    add(u"count"_s, {{{required_value({.name = u"COUNT"_s,
                                       .kind = Kind::WholeNumber,
                                       .label = "Count",
                                       .default_value = u"3"_s,
                                       .least = 1})}}});
    add(u"cut"_s,
        {{{required_value({.name = u"COUNT"_s, .kind = Kind::WholeNumber, .label = "Count", .most = 9})}}});
    add(u"turn"_s, {{{required_value({.name = u"ANGLE"_s, .kind = Kind::Number, .label = "Angle"})}}});
    add(u"open"_s,
        {{{required_value({.name = u"FILE"_s, .kind = Kind::InputFile, .label = "File", .filters = [] {
                               return QList<CommandFileFilter>{{u"Journals"_s, u".jou"_s}};
                           }})}}});
    add(u"save"_s, {{{required_value({.name = u"FILE"_s, .kind = Kind::OutputFile, .label = "File"})}}});
    add(u"load"_s,
        {{.clauses = {required_value(solid)}, .title = "By name"},
         {.clauses = {required_value({.name = u"COUNT"_s, .kind = Kind::WholeNumber, .label = "Count"}),
                      {.keyword = u"now"_s}},
          .title = "By number"}});
    add(u"fit"_s, {{}});
}

void TstCommandForm::tear_down()
{
    mForm.reset();
    mModel.reset();
    set_form_services({});
    set_command_sink({});
    mRegistry.reset();
}

void TstCommandForm::add(const QString& name, const QList<CommandSyntax>& forms)
{
    QCOMPARE(mRegistry->add({.name = name,
                             .owner = u"test"_s,
                             .perform = [](CommandCall&, const CommandArguments&) {},
                             .forms = forms}),
             CommandRegistry::AddResult::Added);
}

void TstCommandForm::show(const QString& line)
{
    QStandardItem* entry = add_command(add_page(*mModel, u"Page "_s + line), u"Entry"_s, line);
    if (!mForm)
        mForm = std::make_unique<CommandForm>(nullptr);
    mForm->set_entry(entry->index());
    QVERIFY(show_active(mForm.get()));
}

void TstCommandForm::title_is_bold_and_the_line_of_fixed_width()
{
    show(u"brick"_s);
    QFont bold = QApplication::font("QLabel");
    bold.setBold(true);
    const QString fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    for ([[maybe_unused]] const int time : {1, 2}) {
        QCOMPARE(find<QLabel>(u"commandTitle"_s)->font(), bold);
        QCOMPARE(find<QLineEdit>(u"commandLine"_s)->font().family(), fixed);
        QCOMPARE(find<QLabel>(u"commandUsage"_s)->font().family(), fixed);
        QVERIFY(fixed != bold.family());
        // The same form for another entry.
        show(u"delete"_s);
    }
}

void TstCommandForm::fields_are_those_of_the_description()
{
    show(u"brick"_s);
    QStringList labels;
    for (const FormField* field : mForm->findChildren<FormField*>())
        labels << field->label();
    QCOMPARE(labels, QStringList({u"Width"_s, u"Depth"_s, u"Height"_s, u"Center X"_s, u"Center Y"_s,
                                  u"Center Z"_s, u"Axis X"_s, u"Axis Y"_s, u"Axis Z"_s, u"Name"_s}));
    for (const FormField* field : mForm->findChildren<FormField*>())
        QVERIFY(field->isVisible());
    QVERIFY(find<QLineEdit>(u"commandLine"_s)->isReadOnly());
    QVERIFY(!find<QLabel>(u"commandUsage"_s)->isVisible());
}

void TstCommandForm::units_and_defaults_are_shown()
{
    show(u"brick"_s);
    int units = 0;
    for (const QLabel* label : mForm->findChildren<QLabel*>())
        units += label->isVisible() && label->text() == "mm"_L1;
    QCOMPARE(units, 5); // one for all coordinates of a point
    QCOMPARE(find<QLineEdit>(u"valueatX"_s)->placeholderText(), u"0"_s);
    QCOMPARE(find<QLineEdit>(u"valueWIDTH"_s)->placeholderText(), QString());
    QCOMPARE(find<QLineEdit>(u"valueatX"_s)->text(), QString());
}

void TstCommandForm::optional_fields_are_told()
{
    show(u"brick"_s);
    QStringList labels;
    for (const QLabel* label : mForm->findChildren<QLabel*>()) {
        if (label->buddy() && label->text().endsWith(u':'))
            labels << label->text();
    }
    QCOMPARE(labels, QStringList({u"Width:"_s, u"Depth (optional):"_s, u"Height (optional):"_s,
                                  u"Center (optional):"_s, u"Axis (optional):"_s, u"Name (optional):"_s}));
}

void TstCommandForm::line_follows_the_fields()
{
    show(u"brick"_s);
    QCOMPARE(line(), u"brick"_s);
    QTest::keyClicks(find<QLineEdit>(u"valueWIDTH"_s), u"10"_s);
    QCOMPARE(line(), u"brick 10"_s);
    give(u"NAME"_s, u"base"_s);
    QCOMPARE(line(), u"brick 10 name base"_s);
    give(u"DEPTH"_s, u"5"_s);
    give(u"HEIGHT"_s, u"2.5"_s);
    give(u"atX"_s, u"1"_s);
    give(u"atY"_s, u"2"_s);
    give(u"atZ"_s, u"-3"_s);
    QCOMPARE(line(), u"brick 10 5 2.5 at 1 2 -3 name base"_s);
    give(u"NAME"_s, u" "_s);
    QCOMPARE(line(), u"brick 10 5 2.5 at 1 2 -3"_s);
    QCOMPARE(message(), QString());
}

void TstCommandForm::line_is_sent_as_it_stands()
{
    show(u"say"_s);
    give(u"TEXT"_s, u"it's \"$5\""_s);
    const QString shown = line();
    QTest::mouseClick(apply(), Qt::LeftButton);
    QCOMPARE(mSent, QStringList(shown));
    QCOMPARE(line(), shown); // ready for the next one
    CommandInterpreter interpreter(*mRegistry);
    QCOMPARE(interpreter.run(shown), CommandInterpreter::Result::Done);
    QCOMPARE(tokenize(shown).words.value(1).text, u"it's \"$5\""_s);
}

void TstCommandForm::long_line_is_sent_whole()
{
    show(u"say"_s);
    // As much as a field takes, and twice as much on the line.
    const QString text(find<QLineEdit>(u"valueTEXT"_s)->maxLength(), u'"');
    give(u"TEXT"_s, text);
    QTest::mouseClick(apply(), Qt::LeftButton);
    QCOMPARE(mSent.size(), 1);
    QCOMPARE(tokenize(mSent[0]).words.value(1).text, text);
}

void TstCommandForm::apply_is_off_while_something_is_wrong_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QString& command, const QString& field, const QString& value,
                        const QString& message = {}) {
        QTest::newRow(name) << command << field << value << message;
    };
    const QString range = u"Width: a number from 0.5 to 100."_s;
    row("nothing", u"brick"_s, u"WIDTH"_s, {}, u"Width must be filled in."_s);
    row("blanks", u"brick"_s, u"WIDTH"_s, u"  "_s, u"Width must be filled in."_s);
    row("number", u"brick"_s, u"WIDTH"_s, u"0.5"_s);
    row("exponent", u"brick"_s, u"WIDTH"_s, u"+1e1"_s);
    row("too small", u"brick"_s, u"WIDTH"_s, u"0.49"_s, range);
    row("too great", u"brick"_s, u"WIDTH"_s, u"100.1"_s, range);
    row("comma", u"brick"_s, u"WIDTH"_s, u"1,5"_s, range);
    row("word", u"brick"_s, u"WIDTH"_s, u"ten"_s, range);
    row("two words", u"brick"_s, u"WIDTH"_s, u"1 2"_s, range);
    row("nan", u"brick"_s, u"WIDTH"_s, u"nan"_s, range);
    row("any number", u"turn"_s, u"ANGLE"_s, u"-720"_s);
    row("no number", u"turn"_s, u"ANGLE"_s, u"x"_s, u"Angle: a number."_s);
    row("whole", u"count"_s, u"COUNT"_s, u"7"_s);
    row("not whole", u"count"_s, u"COUNT"_s, u"7.5"_s, u"Count: a whole number from 1 on."_s);
    row("more than a whole number can be", u"count"_s, u"COUNT"_s, u"99999999999"_s,
        u"Count: a whole number from 1 to 2147483647."_s);
    row("below", u"count"_s, u"COUNT"_s, u"0"_s, u"Count: a whole number from 1 on."_s);
    row("too many", u"cut"_s, u"COUNT"_s, u"10"_s, u"Count: a whole number up to 9."_s);
    row("name that is there", u"load"_s, u"SOLID"_s, u"pin"_s);
    row("number of a solid", u"load"_s, u"SOLID"_s, u"1"_s);
    row("number of none", u"load"_s, u"SOLID"_s, u"12"_s, u"Solid: there is no \"12\"."_s);
    row("name that is not there", u"load"_s, u"SOLID"_s, u"pen"_s, u"Solid: there is no \"pen\"."_s);
    row("names", u"delete"_s, u"SOLID"_s, u"pin plate"_s);
    row("all", u"delete"_s, u"SOLID"_s, u"all"_s);
    row("all and more", u"delete"_s, u"SOLID"_s, u"all pin"_s, u"Solids: \"all\" stands alone."_s);
    row("twice", u"delete"_s, u"SOLID"_s, u"pin pin"_s, u"Solids: each one only once."_s);
    row("twice, by its number too", u"delete"_s, u"SOLID"_s, u"pin plate 1"_s,
        u"Solids: each one only once."_s);
    row("twice where that may be", u"turn_all"_s, u"SOLID"_s, u"pin pin"_s);
    row("one wrong", u"delete"_s, u"SOLID"_s, u"pin x"_s, u"Solids: there is no \"x\"."_s);
    row("open quote", u"delete"_s, u"SOLID"_s, u"'pin"_s,
        u"Solids: a quote is not closed, or a variable is not set."_s);
    row("comment", u"delete"_s, u"SOLID"_s, u"pin #2"_s, u"Solids: there is no \"#2\"."_s);
    row("too few", u"join"_s, u"SOLID"_s, u"pin"_s, u"Solids: at least 2."_s);
    row("enough", u"join"_s, u"SOLID"_s, u"pin plate"_s);
    row("all are enough", u"join"_s, u"SOLID"_s, u"all"_s);
    row("text", u"say"_s, u"TEXT"_s, u"'\"\\"_s);
    row("variable's name", u"set"_s, u"NAME"_s, u"radius_2"_s);
    row("no variable's name", u"set"_s, u"NAME"_s, u"2r"_s,
        u"Variable: a letter, then letters, digits and \"_\"."_s);
    row("folder that is not there", u"save"_s, u"FILE"_s, u"/no/such/file"_s,
        u"File: there is no folder /no/such."_s);
    row("folder", u"save"_s, u"FILE"_s, u"/"_s, u"File: / is a folder."_s);
    row("no file", u"open"_s, u"FILE"_s, u"/no/file"_s, u"File: there is no file /no/file."_s);
}

void TstCommandForm::all_of_too_few_are_refused()
{
    mSolids = {u"pin"_s};
    show(u"join"_s);
    give(u"SOLID"_s, u"all"_s);
    QCOMPARE(message(), u"Solids: at least 2."_s);
    mSolids.clear();
    show(u"delete"_s);
    give(u"SOLID"_s, u"all"_s);
    QCOMPARE(message(), u"Solids: at least 1."_s);
    mSolids = {u"pin"_s};
    mRegistry->entities().tell_changed(u"solid"_s);
    QTRY_COMPARE(message(), QString());
}

void TstCommandForm::apply_is_off_while_something_is_wrong()
{
    QFETCH(const QString, command);
    QFETCH(const QString, field);
    QFETCH(const QString, value);
    show(command);
    give(field, value);
    QTEST(message(), "message");
    QCOMPARE(apply()->isEnabled(), message().isEmpty());
    QCOMPARE(find<QLabel>(u"commandMessage"_s)->isVisible(), !message().isEmpty());
    QCOMPARE(apply()->accessibleDescription(), message());
    apply()->click();
    QCOMPARE(mSent.size(), message().isEmpty() ? 1 : 0);
}

void TstCommandForm::missing_coordinates_are_the_defaults()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"10"_s);
    give(u"atZ"_s, u"5"_s);
    QCOMPARE(line(), u"brick 10 at 0 0 5"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandForm::direction_of_zeros_is_refused()
{
    show(u"brick along 0 0 0"_s);
    give(u"WIDTH"_s, u"10"_s);
    QCOMPARE(message(), u"Axis: the numbers must not all be 0."_s);
    QVERIFY(!apply()->isEnabled());
    give(u"alongY"_s, u"1"_s);
    QCOMPARE(message(), QString());
    give(u"atX"_s, u"0"_s); // a point may
    QCOMPARE(message(), QString());
}

void TstCommandForm::values_of_a_clause_need_each_other()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"10"_s);
    give(u"HEIGHT"_s, u"10"_s);
    QCOMPARE(message(), u"Depth must be filled in, too."_s);
    give(u"DEPTH"_s, u"10"_s);
    QCOMPARE(message(), QString());
    give(u"HEIGHT"_s, {});
    QCOMPARE(message(), u"Height must be filled in, too."_s);
    QVERIFY(!apply()->isEnabled());
}

void TstCommandForm::value_needs_the_one_in_front_of_it()
{
    show(u"set"_s);
    QVERIFY(apply()->isEnabled());
    give(u"VALUE"_s, u"5"_s);
    QCOMPARE(message(), u"Variable must be filled in, too."_s);
    QVERIFY(!apply()->isEnabled());
    give(u"NAME"_s, u"radius"_s);
    QCOMPARE(line(), u"set radius 5"_s);
    QVERIFY(apply()->isEnabled());
    give(u"VALUE"_s, u"5\\"_s); // would be continued on the next line
    QVERIFY(!apply()->isEnabled());
    give(u"VALUE"_s, u"5\\ "_s); // the blank is not sent
    QVERIFY(!apply()->isEnabled());
    give(u"VALUE"_s, u"'a  b' $x"_s);
    QVERIFY(!apply()->isEnabled());
    mVariables.set(u"x"_s, u"1"_s);
    give(u"VALUE"_s, u"'a  b' ${x}"_s);
    QCOMPARE(line(), u"set radius 'a  b' ${x}"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandForm::variables_stand_for_values()
{
    mVariables.set(u"size"_s, u"20"_s);
    mVariables.set(u"big"_s, u"2000"_s);
    mVariables.set(u"part"_s, u"pin"_s);
    show(u"brick"_s);
    give(u"WIDTH"_s, u"$size"_s);
    QCOMPARE(line(), u"brick $size"_s);
    QVERIFY(apply()->isEnabled());
    give(u"WIDTH"_s, u"${big}"_s);
    QCOMPARE(message(), u"Width: a number from 0.5 to 100."_s);
    give(u"WIDTH"_s, u"$none"_s);
    QCOMPARE(message(), u"Width: there is no variable $none."_s);
    show(u"delete"_s);
    give(u"SOLID"_s, u"$part plate"_s);
    QCOMPARE(message(), QString());
    QCOMPARE(line(), u"delete ${part} plate"_s);
}

void TstCommandForm::ways_can_be_chosen()
{
    show(u"load"_s);
    auto* ways = find<QComboBox>(u"commandWays"_s);
    QVERIFY(ways->isVisible());
    QCOMPARE(ways->currentText(), u"By name"_s);
    QVERIFY(find<QComboBox>(u"valueSOLID"_s)->isVisible());
    ways->setFocus();
    QTest::keyClick(ways, Qt::Key_Down);
    QCOMPARE(ways->currentText(), u"By number"_s);
    QVERIFY(!mForm->findChild<QWidget*>(u"valueSOLID"_s));
    give(u"COUNT"_s, u"4"_s);
    QCOMPARE(line(), u"load 4 now"_s);
    QVERIFY(!find<QCheckBox>(u"valuenow"_s)->isVisible()); // nothing to decide
    show(u"fit"_s);
    QVERIFY(!ways->isVisible());
    QCOMPARE(line(), u"fit"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandForm::keyword_alone_is_a_check_box()
{
    show(u"delete"_s);
    give(u"SOLID"_s, u"pin"_s);
    auto* quick = find<QCheckBox>(u"valuequick"_s);
    QCOMPARE(quick->text(), u"Quickly"_s);
    QVERIFY(!quick->isChecked());
    QTest::keyClick(quick, Qt::Key_Space);
    QCOMPARE(line(), u"delete pin quick"_s);
    QTest::keyClick(quick, Qt::Key_Space);
    QCOMPARE(line(), u"delete pin"_s);
}

void TstCommandForm::several_entities_are_added_from_a_menu()
{
    show(u"join"_s);
    QMenu* menu = find<QToolButton>(u"addSOLID"_s)->menu();
    emit menu->aboutToShow();
    QStringList names;
    for (const QAction* action : menu->actions())
        names << action->text();
    QCOMPARE(names, QStringList({u"plate"_s, u"pin"_s, u"all"_s}));
    menu->actions().at(1)->trigger();
    QCOMPARE(line(), u"join pin"_s);
    menu->actions().at(0)->trigger();
    QCOMPARE(line(), u"join pin plate"_s);
    menu->actions().at(2)->trigger();
    QCOMPARE(line(), u"join all"_s);
    menu->actions().at(0)->trigger();
    QCOMPARE(line(), u"join plate"_s);
}

void TstCommandForm::entities_follow_the_model()
{
    show(u"load"_s);
    const auto* combo = find<QComboBox>(u"valueSOLID"_s);
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QString());
    mSolids << u"bolt"_s;
    mRegistry->entities().tell_changed(u"solid"_s);
    QTRY_COMPARE(combo->count(), 3);
    QCOMPARE(combo->itemText(2), u"bolt"_s);
    QCOMPARE(combo->currentText(), QString());
}

void TstCommandForm::typed_name_survives_a_change_of_the_model()
{
    show(u"load"_s);
    give(u"SOLID"_s, u"bolt"_s);
    QVERIFY(!apply()->isEnabled());
    mSolids = {u"bolt"_s};
    mRegistry->entities().tell_changed(u"solid"_s);
    QTRY_VERIFY(apply()->isEnabled());
    QCOMPARE(line(), u"load bolt"_s);
    mSolids.clear();
    mRegistry->entities().tell_changed(u"solid"_s);
    QTRY_VERIFY(!apply()->isEnabled());
    QCOMPARE(line(), u"load bolt"_s);
}

void TstCommandForm::beginning_of_a_name_stays_what_it_is()
{
    mSolids = {u"pin 10"_s, u"pin"_s};
    show(u"load"_s);
    auto* combo = find<QComboBox>(u"valueSOLID"_s);
    combo->setFocus();
    QTest::keyClicks(combo->lineEdit(), u"pin"_s);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Tab);
    QVERIFY(!combo->hasFocus());
    QCOMPARE(combo->currentText(), u"pin"_s);
    QCOMPARE(line(), u"load pin"_s);
}

void TstCommandForm::new_name_must_be_new()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"10"_s);
    give(u"NAME"_s, u"plate"_s);
    QCOMPARE(message(), u"Name: there is a \"plate\" already."_s);
    give(u"NAME"_s, u"at"_s);
    QCOMPARE(message(), u"Name: \"at\" has a meaning of its own."_s);
    give(u"NAME"_s, u"a b"_s);
    QCOMPARE(message(), u"Name: a letter, then letters, digits, \"_\", \"-\" and \".\"."_s);
    give(u"NAME"_s, u"plate2"_s);
    QCOMPARE(message(), QString());
    // What was applied is there then.
    mSolids << u"plate2"_s;
    mRegistry->entities().tell_changed(u"solid"_s);
    QTRY_COMPARE(message(), u"Name: there is a \"plate2\" already."_s);
}

void TstCommandForm::file_fields_take_what_the_application_makes()
{
    QStringList asked;
    set_form_services({mRegistry.get(), &mVariables,
                       [&](QWidget* parent, bool open, const QList<CommandFileFilter>& filters) {
                           for (const CommandFileFilter& filter : filters)
                               asked << filter.name + filter.extension;
                           asked << (open ? u"open"_s : u"save"_s);
                           auto* field = new QWidget(parent);
                           new QLineEdit(field);
                           new QToolButton(field);
                           return field;
                       }});
    show(u"open"_s);
    QCOMPARE(asked, QStringList({u"Journals.jou"_s, u"open"_s}));
    const FormField* field = mForm->findChild<FormField*>();
    QCOMPARE(field->controls().size(), 2);
    QCOMPARE(field->controls().at(1)->accessibleName(), u"Choose File"_s);
    give(u"FILE"_s, u"/dev/null/x"_s);
    QCOMPARE(line(), u"open /dev/null/x"_s);
    show(u"save"_s);
    QCOMPARE(asked.last(), u"save"_s);
}

void TstCommandForm::file_names_are_quoted()
{
    show(u"save"_s);
    for (const QString& name : {u"my part.mdl"_s, u"it's.mdl"_s, u"a\"b.mdl"_s, u"$x.mdl"_s, u"#1"_s}) {
        const QString path = mDirectory.filePath(name);
        give(u"FILE"_s, path);
        QVERIFY(apply()->isEnabled());
        QCOMPARE(tokenize(line()).words.value(1).text, path);
        QCOMPARE(tokenize(line()).words.size(), 2);
    }
}

void TstCommandForm::file_must_be_there()
{
    show(u"open"_s);
    give(u"FILE"_s, mDirectory.path());
    QVERIFY(!apply()->isEnabled()); // a folder
    QFile file(mDirectory.filePath(u"there.jou"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    give(u"FILE"_s, file.fileName());
    QVERIFY(apply()->isEnabled());
}

void TstCommandForm::entry_can_hold_values()
{
    show(u"view top"_s);
    QCOMPARE(find<QComboBox>(u"valueSIDE"_s)->currentText(), u"top"_s);
    QCOMPARE(line(), u"view top"_s);
    show(u"brick 10 at 1 2 3"_s);
    QCOMPARE(find<QLineEdit>(u"valueatZ"_s)->text(), u"3"_s);
    QCOMPARE(find<QLineEdit>(u"valueDEPTH"_s)->text(), QString());
    QCOMPARE(line(), u"brick 10 at 1 2 3"_s);
    show(u"load 7 now"_s);
    QCOMPARE(find<QComboBox>(u"commandWays"_s)->currentText(), u"By number"_s);
    QCOMPARE(line(), u"load 7 now"_s);
    show(u"measure"_s);
    QCOMPARE(find<QComboBox>(u"valueWHAT"_s)->currentText(), u"not given"_s);
    QCOMPARE(line(), u"measure"_s);
    find<QComboBox>(u"valueWHAT"_s)->setCurrentIndex(2);
    QCOMPARE(line(), u"measure volume"_s);
}

void TstCommandForm::choice_that_is_not_given_shows_its_default()
{
    show(u"mesh"_s);
    auto* const method = find<QComboBox>(u"valueMETHOD"_s);
    QCOMPARE(method->placeholderText(), u"fine"_s);
    QCOMPARE(method->currentIndex(), -1);
    QCOMPARE(method->count(), 2);
    QCOMPARE(line(), u"mesh"_s);
    method->setCurrentIndex(0);
    QCOMPARE(line(), u"mesh coarse"_s);
    show(u"mesh fine"_s);
    QCOMPARE(find<QComboBox>(u"valueMETHOD"_s)->currentText(), u"fine"_s);
    QCOMPARE(line(), u"mesh fine"_s);
}

void TstCommandForm::line_that_is_no_form_is_left_to_the_user()
{
    show(u"view sideways"_s);
    QVERIFY(!find<QLineEdit>(u"commandLine"_s)->isReadOnly());
    QVERIFY(!find<QCheckBox>(u"editLine"_s)->isVisible());
    QVERIFY(mForm->findChildren<FormField*>().isEmpty());
    QCOMPARE(line(), u"view sideways"_s);
    QVERIFY(apply()->isEnabled());
}

void TstCommandForm::command_that_is_not_there_has_its_line()
{
    show(u"unknown"_s);
    QCOMPARE(line(), u"unknown"_s);
    QVERIFY(!find<QLineEdit>(u"commandLine"_s)->isReadOnly());
    mForm->focus_first();
    QTest::keyClicks(QApplication::focusWidget(), u" and more"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(mSent, QStringList(u"unknown and more"_s));
}

void TstCommandForm::line_can_be_edited_and_is_read_back()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"10"_s);
    auto* edit = find<QCheckBox>(u"editLine"_s);
    auto* text = find<QLineEdit>(u"commandLine"_s);
    QTest::keyClick(edit, Qt::Key_Space);
    QVERIFY(text->hasFocus() && !text->isReadOnly());
    QVERIFY(!find<QLineEdit>(u"valueWIDTH"_s)->isEnabled());
    QTest::keyClicks(text, u" name base"_s);
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(mSent, QStringList(u"brick 10 name base"_s));
    text->clear();
    QVERIFY(!apply()->isEnabled());
    text->setText(u"brick 7 2 3 at $x 1 2"_s);
    QTest::keyClick(edit, Qt::Key_Space);
    QVERIFY(text->isReadOnly());
    QCOMPARE(find<QLineEdit>(u"valueWIDTH"_s)->text(), u"7"_s);
    QCOMPARE(find<QLineEdit>(u"valueatX"_s)->text(), u"${x}"_s);
    QCOMPARE(line(), u"brick 7 2 3 at ${x} 1 2"_s);
    QCOMPARE(message(), u"Center X: there is no variable ${x}."_s);
}

void TstCommandForm::line_looks_like_a_field_only_while_it_can_be_edited()
{
    show(u"brick"_s);
    const auto* text = find<QLineEdit>(u"commandLine"_s);
    const auto* field = find<QLineEdit>(u"valueWIDTH"_s);
    const auto base = [](const QWidget* widget) { return widget->palette().color(QPalette::Base); };
    QCOMPARE(base(text), mForm->palette().color(QPalette::Window));
    QVERIFY(base(text) != base(field));
    QTest::keyClick(find<QCheckBox>(u"editLine"_s), Qt::Key_Space);
    QCOMPARE(base(text), QApplication::palette().color(QPalette::Base));
    QTest::keyClick(find<QCheckBox>(u"editLine"_s), Qt::Key_Space);
    // Colors may change while the form is shown.
    const QPalette before = QApplication::palette();
    QPalette dark(Qt::darkGray, Qt::black);
    dark.setColor(QPalette::Base, Qt::darkBlue);
    const auto restore = qScopeGuard([before] { QApplication::setPalette(before); });
    QApplication::setPalette(dark);
    QTRY_COMPARE(base(text), QColor(Qt::black));
    show(u"unknown"_s);
    QCOMPARE(base(text), QColor(Qt::darkBlue));
}

void TstCommandForm::edited_line_that_does_not_fit_is_given_up()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"10"_s);
    auto* edit = find<QCheckBox>(u"editLine"_s);
    for (const QString& other : {u"set x 5"_s, u"brick 5 6 7 8 9"_s, u"brick 'x"_s, u"brick '$x'"_s,
                                 u"brick \\$x"_s, u"brick 1$x"_s, QString()}) {
        edit->setChecked(true);
        find<QLineEdit>(u"commandLine"_s)->setText(other);
        edit->setChecked(false);
        QCOMPARE(line(), u"brick 10"_s);
        QVERIFY(apply()->isEnabled());
    }
}

void TstCommandForm::command_that_comes_and_goes_changes_the_form()
{
    show(u"late"_s);
    QVERIFY(mForm->findChildren<FormField*>().isEmpty());
    add(u"late"_s, {{{required_value(length(u"SIZE"_s, "Size"))}}});
    QTRY_COMPARE(mForm->findChildren<FormField*>().size(), 1);
    give(u"SIZE"_s, u"5"_s);
    // What others do is no reason to forget what was given.
    add(u"other"_s, {{}});
    QTRY_COMPARE(line(), u"late 5"_s);
    QCoreApplication::processEvents();
    QCOMPARE(line(), u"late 5"_s);
    mRegistry->remove(u"late"_s);
    QTRY_VERIFY(mForm->findChildren<FormField*>().isEmpty());
    QCOMPARE(line(), u"late"_s);
}

void TstCommandForm::return_applies_from_any_field()
{
    show(u"brick 10 name base"_s);
    QWidgetList controls = mForm->controls();
    QVERIFY(controls.size() > 10);
    for (QWidget* control : controls) {
        mSent.clear();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        QVERIFY2(mSent == QStringList(u"brick 10 name base"_s), qPrintable(control->objectName()));
    }
    show(u"load pin"_s);
    mSent.clear();
    QTest::keyClick(find<QComboBox>(u"valueSOLID"_s)->lineEdit(), Qt::Key_Enter);
    QCOMPARE(mSent, QStringList(u"load pin"_s));
    show(u"view top"_s);
    mSent.clear();
    QTest::keyClick(find<QComboBox>(u"valueSIDE"_s), Qt::Key_Return);
    QCOMPARE(mSent, QStringList(u"view top"_s));
}

void TstCommandForm::return_applies_nothing_that_is_wrong()
{
    show(u"brick"_s);
    give(u"WIDTH"_s, u"x"_s);
    QTest::keyClick(find<QLineEdit>(u"valueWIDTH"_s), Qt::Key_Return);
    QVERIFY(mSent.isEmpty());
}

void TstCommandForm::escape_goes_back_to_the_entry_data()
{
    QTest::addColumn<bool>("breadcrumbs");
    QTest::newRow("rows") << false;
    QTest::newRow("breadcrumbs") << true;
}

void TstCommandForm::escape_goes_back_to_the_entry()
{
    QFETCH(const bool, breadcrumbs);
    QStandardItem* page = add_page(*mModel, u"Make"_s);
    add_command(page, u"Fit"_s, u"fit"_s);
    const QStandardItem* brick = add_command(page, u"Brick"_s, u"brick"_s);
    std::unique_ptr<QWidget> panel;
    const auto current = [&] {
        return breadcrumbs ? static_cast<BreadcrumbsPanel*>(panel.get())->current_index()
                           : static_cast<CommandButtonPanel*>(panel.get())->current_index();
    };
    if (breadcrumbs) {
        auto made = std::make_unique<BreadcrumbsPanel>(nullptr);
        made->set_model(mModel.get(), {});
        made->set_current_index(page->index());
        panel = std::move(made);
    } else {
        auto made = std::make_unique<CommandButtonPanel>(nullptr);
        made->set_model(mModel.get(), {});
        made->set_current_index(page->index());
        panel = std::move(made);
    }
    QVERIFY(show_active(panel.get()));
    EntryButton* button = entry_button(*panel, u"Brick"_s);
    QVERIFY(button);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(current(), brick->index());
    const auto* form = panel->findChild<CommandForm*>();
    QVERIFY(form->isVisible());
    QCOMPARE(QApplication::focusWidget()->objectName(), u"valueWIDTH"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"12"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(current(), page->index());
    QVERIFY(!form->isVisible());
    button = entry_button(*panel, u"Brick"_s);
    QVERIFY(button && button->hasFocus());
}

void TstCommandForm::first_field_has_the_keyboard()
{
    show(u"brick"_s);
    mForm->focus_first();
    QVERIFY(find<QLineEdit>(u"valueWIDTH"_s)->hasFocus());
    show(u"fit"_s);
    mForm->focus_first();
    QVERIFY(apply()->hasFocus());
    show(u"load"_s);
    mForm->focus_first();
    QVERIFY(find<QComboBox>(u"commandWays"_s)->hasFocus());
    show(u"unknown"_s);
    mForm->focus_first();
    QVERIFY(find<QLineEdit>(u"commandLine"_s)->hasFocus());
}

void TstCommandForm::tab_goes_through_all_fields()
{
    QStandardItem* page = add_page(*mModel, u"Make"_s);
    const QStandardItem* entry = add_command(page, u"Delete"_s, u"delete pin"_s);
    CommandButtonPanel panel(nullptr);
    panel.set_model(mModel.get(), {});
    panel.set_current_index(entry->index());
    QVERIFY(show_active(&panel));
    panel.findChild<QLineEdit*>(u"valueSOLID"_s)->setFocus();
    QStringList visited;
    for (int step = 0; step < 6; ++step) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited, QStringList({u"valueSOLID"_s, u"addSOLID"_s, u"valuequick"_s, u"commandLine"_s,
                                   u"editLine"_s, u"applyButton"_s}));
}

void TstCommandForm::tab_goes_round_every_form()
{
    QStandardItem* page = add_page(*mModel, u"Make"_s);
    CommandButtonPanel panel(nullptr);
    panel.set_model(mModel.get(), {});
    QVERIFY(show_active(&panel));
    for (const QString& name : mRegistry->names()) {
        panel.set_current_index(add_command(page, name, name)->index());
        const auto* form = panel.findChild<CommandForm*>();
        QWidgetList controls;
        for (QWidget* control : form->controls()) {
            if (control->isVisibleTo(form) && control->isEnabled())
                controls << control;
        }
        QVERIFY(!controls.isEmpty());
        controls.first()->setFocus();
        QWidgetList missed = controls;
        for (int step = 0; step < 60 && !missed.isEmpty(); ++step) {
            for (QWidget* focus = QApplication::focusWidget(); focus; focus = focus->parentWidget())
                missed.removeOne(focus);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QVERIFY2(missed.isEmpty(),
                 qPrintable(name + u": "_s + (missed.isEmpty() ? QString() : missed.first()->objectName())));
    }
}

void TstCommandForm::everything_has_a_name_to_be_read_out()
{
    for (const QString& name : {u"brick"_s, u"join"_s, u"load"_s, u"delete"_s, u"view"_s, u"open"_s}) {
        show(name);
        for (QWidget* control : mForm->controls()) {
            const auto* button = qobject_cast<const QAbstractButton*>(control);
            const bool spoken = button && button->text().size() > 1;
            QVERIFY2(spoken || !control->accessibleName().isEmpty(), qPrintable(control->objectName()));
        }
    }
    show(u"brick"_s);
    QCOMPARE(find<QLineEdit>(u"valueWIDTH"_s)->accessibleName(), u"Width in mm"_s);
    QCOMPARE(find<QLineEdit>(u"valueatX"_s)->accessibleName(), u"Center X"_s);
}

void TstCommandForm::form_may_go_while_it_applies()
{
    show(u"brick 10"_s);
    set_command_sink([this](const QString& line) {
        mForm.reset();
        mSent << line;
    });
    apply()->click();
    QVERIFY(!mForm);
    QCOMPARE(mSent, QStringList(u"brick 10"_s));
    // And another command may come into the form from within a key of a field.
    set_command_sink([this](const QString&) { show(u"fit"_s); });
    show(u"brick 11"_s);
    QTest::keyClick(find<QLineEdit>(u"valueWIDTH"_s), Qt::Key_Return);
    QCOMPARE(line(), u"fit"_s);
}

void TstCommandForm::nothing_is_clipped_in_a_narrow_dock()
{
    QStandardItem* page = add_page(*mModel, u"Make"_s);
    CommandButtonPanel panel(nullptr);
    panel.set_model(mModel.get(), {});
    QVERIFY(show_active(&panel));
    for (const QString& command : {u"brick"_s, u"join"_s, u"load"_s, u"delete"_s, u"open"_s, u"count"_s}) {
        panel.set_current_index(add_command(page, command, command)->index());
        for (const int width : {240, 200}) {
            panel.resize(width, 700);
            QTRY_COMPARE(panel.width(), width);
            const auto* area = panel.findChild<QScrollArea*>();
            QTRY_COMPARE(area->widget()->width(), area->viewport()->width());
            const auto* form = panel.findChild<CommandForm*>();
            QVERIFY(form->isVisible());
            for (const QWidget* widget : form->findChildren<QWidget*>()) {
                if (!widget->isVisible())
                    continue;
                const QRect place(widget->mapTo(area->widget(), QPoint()), widget->size());
                const QString what = u"%1 %2 at %3: %4 to %5"_s.arg(
                    command, widget->objectName(), QString::number(width), QString::number(place.left()),
                    QString::number(place.right()));
                QVERIFY2(place.left() >= 0 && place.right() < area->widget()->width(), qPrintable(what));
                const auto* label = qobject_cast<const QLabel*>(widget);
                if (label && !label->wordWrap())
                    QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(what + label->text()));
                if (qobject_cast<const QLineEdit*>(widget))
                    QVERIFY2(widget->width() >= 24, qPrintable(what));
            }
        }
    }
}

void TstCommandForm::labels_are_translated()
{
    const MarkingTranslator marker("CommandParameter");
    show(u"load"_s);
    QCOMPARE(find<QComboBox>(u"commandWays"_s)->currentText(), u"<By name>"_s);
    QCOMPARE(mForm->findChild<FormField*>()->label(), u"<Solid>"_s);
    show(u"brick"_s);
    QCOMPARE(find<QLineEdit>(u"valueatX"_s)->accessibleName(), u"<Center> <X>"_s);
    show(u"delete"_s);
    QCOMPARE(find<QCheckBox>(u"valuequick"_s)->text(), u"<Quickly>"_s);
}

void TstCommandForm::values_of_the_last_time_are_there_again()
{
    show(u"brick 10 at 1 2 3 name base"_s);
    // What was not applied is not kept.
    show(u"brick"_s);
    QCOMPARE(line(), u"brick"_s);
    show(u"brick 10 at 1 2 3 name base"_s);
    apply()->click();
    show(u"fit"_s);
    show(u"brick"_s);
    QCOMPARE(line(), u"brick 10 at 1 2 3"_s); // that name is taken
    show(u"brick 20"_s);
    QCOMPARE(line(), u"brick 20"_s);
    show(u"load 7 now"_s);
    apply()->click();
    show(u"load"_s);
    QCOMPARE(line(), u"load 7 now"_s);
    // It may be another command by now.
    mRegistry->remove(u"load"_s);
    add(u"load"_s, {{}});
    show(u"load"_s);
    QCOMPARE(line(), u"load"_s);
}

void TstCommandForm::names_are_those_that_are_selected()
{
    mRegistry->entities().offer_selection(u"solid"_s, [this] { return mSolids; });
    show(u"join"_s);
    QCOMPARE(line(), u"join plate pin"_s);
    show(u"rename"_s);
    QCOMPARE(line(), u"rename plate"_s);
    show(u"delete pin"_s);
    QCOMPARE(line(), u"delete pin"_s);
    mSolids = {u"pin"_s, u"two words"_s};
    apply()->click();
    show(u"delete"_s);
    QCOMPARE(line(), u"delete pin \"two words\""_s);
    QVERIFY(apply()->isEnabled());
}

/** And the other way round, but for what only a form can tell. */
void TstCommandForm::what_the_form_applies_the_interpreter_takes()
{
    const QStringList pieces{u"0"_s,    u"0.5"_s,   u"7"_s,     u"1e2"_s, u"100.5"_s, u"-1"_s,  u"2.5"_s,
                             u"pin"_s,  u"plate"_s, u"PIN"_s,   u"all"_s, u"1"_s,     u"3"_s,   u"at"_s,
                             u"name"_s, u"$size"_s, u"$none"_s, u"a b"_s, u"new"_s,   u"top"_s, QString()};
    QRandomGenerator random(random_seed());
    CommandInterpreter interpreter(*mRegistry);
    interpreter.variables().set(u"size"_s, u"20"_s);
    mVariables = interpreter.variables();
    int taken = 0;
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        const QStringList commands{u"brick"_s, u"join"_s, u"delete"_s, u"turn_all"_s, u"rename"_s,
                                   u"count"_s, u"turn"_s, u"load"_s,   u"view"_s,     u"set"_s};
        show(commands[random.bounded(commands.size())]);
        const QList<FormField*> fields = mForm->findChildren<FormField*>();
        for (FormField* field : fields) {
            if (random.bounded(2))
                field->set_words(QStringList(pieces[random.bounded(pieces.size())]));
        }
        emit fields.first()->changed();
        const bool right = interpreter.run(line()) == CommandInterpreter::Result::Done;
        const bool about_place = message().contains(u" must be filled in"_s);
        QVERIFY2(right == apply()->isEnabled() || (right && about_place), qPrintable(line() + message()));
        (right ? taken : refused) += 1;
    }
    QVERIFY(taken > 30 && refused > 30);
}

OSTREL_TEST(TstCommandForm)
#include "tst_commandform.moc"
