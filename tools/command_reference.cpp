// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Writes docs/command-reference.md from the registry of commands, with all components of the workbench
// loaded.
//
//   command_reference FILE           writes the file; one named *.pyi is the stub file of the commands in
//   Python command_reference --check FILE   fails if the file is not what would be written
//
// It needs no display, and leaves the user's settings alone.

#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/ComponentRecord.h"
#include "host/ostrelfw/Framework.h"
#include "host/ostrelfw/Mediator.h"
#include "workbench/application/Workbench.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** The command that takes the registry down while it runs. It removes itself first. */
const auto own_command = u"write_command_reference"_s;

/** @p text where a table or a paragraph would see marks in it. */
QString escaped(QString text)
{
    for (const QChar mark : QStringView(u"\\`*_[]<>|"))
        text.replace(mark, u'\\' + QString(mark));
    return text;
}

/** Who brings a command, as a sentence. */
QString origin(const Command& command)
{
    const bool always = command.owner == u"fennari19"_s || command.owner == u"workbench"_s;
    return always ? u"Always there."_s : u"Comes with the component `%1`."_s.arg(command.owner);
}

QString indented(const QString& text)
{
    QString block;
    for (const QString& line : text.split(u'\n'))
        block += line.isEmpty() ? u"\n"_s : u"    "_s + line + u'\n';
    return block;
}

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QStringList coded(const QStringList& words)
{
    QStringList code;
    for (const QString& word : words)
        code << u'`' + word + u'`';
    return code;
}

QString range(const CommandParameter& parameter)
{
    const bool from = std::isfinite(parameter.least);
    // The largest of the numbers that are counted with is no limit to speak of.
    const bool to = std::isfinite(parameter.most) && parameter.most != std::numeric_limits<int>::max();
    const QString unit = parameter.unit.isEmpty() ? QString() : u' ' + parameter.unit;
    if (from && to)
        return u" from %1 to %2%3"_s.arg(number(parameter.least), number(parameter.most), unit);
    if (from)
        return u", at least %1%2"_s.arg(number(parameter.least), unit);
    if (to)
        return u", at most %1%2"_s.arg(number(parameter.most), unit);
    return unit.isEmpty() ? QString() : u", in%1"_s.arg(unit);
}

/** With the article that it takes. */
QString one(const QString& noun)
{
    return (noun.contains(QRegularExpression(u"^[aeiou]"_s)) ? u"an "_s : u"a "_s) + noun;
}

QString files(const CommandParameter& parameter)
{
    QStringList extensions;
    if (parameter.filters) {
        for (const CommandFileFilter& filter : parameter.filters())
            extensions << filter.extension;
    }
    extensions.removeDuplicates();
    return extensions.isEmpty() ? QString() : u": "_s + coded(extensions).join(u", "_s);
}

/** What a parameter can be. */
QString values(const CommandParameter& parameter)
{
    using Kind = CommandParameter::Kind;
    switch (parameter.kind) {
    case Kind::Number:
        return u"a number"_s + range(parameter);
    case Kind::WholeNumber:
        return u"a whole number"_s + range(parameter);
    case Kind::Choice:
        return u"one of "_s + coded(parameter.choices).join(u", "_s);
    case Kind::Entity: {
        QString text = u"the name of "_s + one(parameter.entity);
        if (parameter.by_number)
            text += u", or its number"_s;
        if (!parameter.choices.isEmpty())
            text += u", or "_s + coded(parameter.choices).join(u", "_s);
        return text;
    }
    case Kind::NewName:
        return u"a name that no %1 has"_s.arg(parameter.entity);
    case Kind::Variable:
        return u"the name of a variable"_s;
    case Kind::InputFile:
        return u"a file to read"_s + files(parameter);
    case Kind::OutputFile:
        return u"a file to write"_s + files(parameter);
    case Kind::Text:
        return u"a text"_s;
    case Kind::Words:
        return u"all words to the end of the line"_s;
    }
    return {};
}

QString row(const CommandClause& clause, qsizetype i)
{
    const QString keyword = i == 0 && !clause.keyword.isEmpty() ? u'`' + clause.keyword + u'`' : QString();
    const QString needed = clause.optional ? u"may be left out"_s : u"needed"_s;
    if (clause.parameters.isEmpty())
        return u"| %1 | | %2 | | %3 |\n"_s.arg(keyword, escaped(QString::fromUtf8(clause.label)), needed);
    const CommandParameter& parameter = clause.parameters[i];
    QString meaning = escaped(QString::fromUtf8(parameter.label));
    if (parameter.tip)
        meaning += u": "_s + escaped(QString::fromUtf8(parameter.tip));
    QString value = values(parameter);
    if (parameter.repeated)
        value += u"; %1 or more of them"_s.arg(number(parameter.at_least));
    const QString fallback =
        parameter.default_value.isEmpty() ? needed : u"`%1` if left out"_s.arg(parameter.default_value);
    return u"| %1 | %2 | %3 | %4 | %5 |\n"_s.arg(
        keyword, parameter.kind == CommandParameter::Kind::Choice ? QString() : parameter.name, meaning,
        value, fallback);
}

/** A table of what the command takes in one way to write it; empty if that is nothing. */
QString table(const CommandSyntax& form)
{
    if (form.clauses.isEmpty())
        return {};
    QString text = u"\n"_s;
    if (form.title)
        text += u"%1:\n\n"_s.arg(escaped(QString::fromUtf8(form.title)));
    text += u"| keyword | value | meaning | what it can be | |\n| --- | --- | --- | --- | --- |\n"_s;
    for (const CommandClause& clause : form.clauses)
        for (qsizetype i = 0; i < std::max<qsizetype>(clause.parameters.size(), 1); ++i)
            text += row(clause, i);
    return text;
}

QString section(const Command& command)
{
    QString text = u"\n## %1\n\n%2\n%3 %4\n"_s.arg(command.name, indented(command.usage()),
                                                   escaped(command.summary), origin(command));
    if (const QString notes = command.notes(); !notes.isEmpty())
        text += notes + u'\n';
    if (!command.help.isEmpty())
        text += u'\n' + indented(command.help);
    for (const CommandSyntax& form : command.forms)
        text += table(form);
    return text;
}

QString reference(const CommandRegistry& registry)
{
    QString table;
    QString sections;
    for (const QString& name : registry.names()) {
        const std::shared_ptr<const Command> command = registry.find(name);
        table += u"| [%1](#%1) | %2 | %3 |\n"_s.arg(name, escaped(command->summary), command->owner);
        sections += section(*command);
    }
    return u"# Command reference\n"
           "\n"
           "All commands of the workbench with all its components, as `help` explains them. How a command is "
           "written is told in\n"
           "[The command language](command-language.md).\n"
           "\n"
           "This page is made by `tools/command_reference.cpp`. After a change of commands write it anew:\n"
           "\n"
           "    build/release/bin/command_reference docs/command-reference.md\n"
           "\n"
           "| command | what it does | from |\n"
           "| --- | --- | --- |\n"_s +
           table + sections;
}

/** The types of the commands as functions of Python; empty if that failed. @p file is for Python to write to.
 */
QString python_stubs(const QString& file)
{
    QFile stubs(file);
    FennarPythonInterpreter* const python = Framework::user_python_interpreter();
    const QByteArray write =
        "with open('" + file.toUtf8() + "', 'w') as file:\n    file.write(fennar._stubs())";
    if (!python || python->Run_SimpleString(write.constData()) != 0 || !stubs.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(stubs.readAll());
}

/** The names of components that are not loaded, with their states. */
QStringList missing_components()
{
    std::vector<ComponentRecord> components;
    Broker::instance()->get_components(components);
    QStringList missing;
    for (const ComponentRecord& component : components)
        if (component.state != u"loaded"_s)
            missing << component.name + u": "_s + component.state;
    if (components.empty())
        missing << u"there are no components at all"_s;
    return missing;
}

int fail(const QString& text)
{
    std::fprintf(stderr, "command_reference: %s\n", qPrintable(text));
    return 1;
}

int check(const QString& file, const QString& text)
{
    QFile in(file);
    const QString found = in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()) : QString();
    if (found == text)
        return 0;
    const QStringList is = found.split(u'\n');
    const QStringList should = text.split(u'\n');
    qsizetype line = 0;
    while (is.value(line) == should.value(line) && line < std::max(is.size(), should.size()))
        ++line;
    return fail(
        u"%1 is not what the commands tell; line %2 is\n    %3\nand should be\n    %4\nWrite it anew with %5 %1"_s
            .arg(file, QString::number(line + 1), is.value(line), should.value(line),
                 QCoreApplication::applicationFilePath()));
}

int write(const QString& file, const QString& text)
{
    QFile out(file);
    const QByteArray bytes = text.toUtf8();
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.flush())
        return fail(u"%1 cannot be written: %2"_s.arg(file, out.errorString()));
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // Some commands are there only while there is a window.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("FENNAR_COMPONENT_PATH");
    // Settings and data of its own.
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                                 "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, home.path().toUtf8());
    QCoreApplication::setOrganizationName(u"ostrel"_s);
    QCoreApplication::setApplicationName(u"command_reference"_s);
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool checking = arguments.value(0) == u"--check"_s;
    if (arguments.size() != (checking ? 2 : 1))
        return fail(u"usage: command_reference [--check] FILE"_s);

    QFile journal(home.filePath(u"journal.jou"_s));
    if (!journal.open(QIODevice::WriteOnly) ||
        journal.write(QString(own_command + u"\nquit\n"_s).toUtf8()) < 0)
        return fail(journal.errorString());
    journal.close();

    QString text;
    QStringList missing{u"the command was not run"_s};
    Workbench workbench(home.filePath(u"data"_s));
    CommandRegistry& registry = Fennar::instance().registry();
    Command command;
    command.name = own_command;
    command.perform = [&](CommandCall&, const CommandArguments&) {
        registry.remove(own_command);
        text = arguments.last().endsWith(u".pyi"_s) ? python_stubs(home.filePath(u"fennar.pyi"_s))
                                                    : reference(registry);
        missing = missing_components();
    };
    registry.add(command);
    if (!workbench.load())
        return fail(u"there is no window"_s);
    workbench.start_later({}, journal.fileName());
    workbench.run();
    workbench.unload();

    if (!missing.isEmpty())
        return fail(u"not all components are loaded: "_s + missing.join(u", "_s));
    if (text.isEmpty())
        return fail(u"the file cannot be made"_s);
    return checking ? check(arguments[1], text) : write(arguments[0], text);
}
