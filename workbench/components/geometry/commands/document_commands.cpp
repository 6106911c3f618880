// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/document_commands.h"

#include "workbench/components/geometry/commands/run_model_command.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

CommandParameter model_file(CommandParameter::Kind kind)
{
    return {
        .name = u"FILE"_s,
        .kind = kind,
        .label = QT_TRANSLATE_NOOP("CommandParameter", "Model"),
        .filters =
            [] {
                return QList<CommandFileFilter>{
                    {QString::fromLatin1(QT_TRANSLATE_NOOP("CommandParameter", "Model Files")), u".mdl"_s}};
            },
        .example = u"part.mdl"_s};
}

QString whole_path(const QString& file)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(file));
}

QString read_file_name(CommandCall& call)
{
    const QString file = call.text(1, u"the name of a file");
    if (file.isEmpty())
        throw call.expected(1, u"the name of a file");
    call.expect_end();
    return whole_path(file);
}

void start_new(CommandCall& call, const DocumentActions& actions)
{
    const bool discard = call.has(1);
    const QStringView what = u"\"discard\" or the end of the line";
    if (discard && call.text(1, what) != "discard"_L1)
        throw call.expected(1, what);
    call.expect_end();
    actions.start_new(discard);
}

void open(CommandCall& call, const DocumentActions& actions)
{
    const QString file = read_file_name(call);
    // Before anybody is asked about unsaved changes.
    if (!QFileInfo::exists(file))
        throw call.error(1, u"there is no file %1"_s.arg(CommandError::shown(file, 300)));
    actions.open(file);
}

void save(CommandCall& call, const DocumentActions& actions)
{
    actions.save(call.has(1) ? read_file_name(call) : QString());
}

} // namespace

bool register_document_commands(CommandRegistry& registry, GeometryModel& model,
                                const DocumentActions& actions)
{
    const QString owner = u"geometry"_s;
    const auto with = [&](auto function) {
        return [&model, actions, function](CommandCall& call) {
            run_model_command(call, model, [&] { function(call, actions); });
        };
    };
    const Command commands[] = {
        {.name = u"new"_s,
         .summary = u"Starts an empty model."_s,
         .help =
             u"As \"New\" in the file menu: with a window the question about unsaved changes comes first, "
             u"unless\n"
             "\"discard\" drops them, and the console is emptied."_s,
         .owner = owner,
         .run = with(&start_new),
         .forms = {{.clauses = {{.keyword = u"discard"_s,
                                 .optional = true,
                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "Drop unsaved changes")}}}},
         .changes_model = true},
        {.name = u"open"_s,
         .summary = u"Opens a model that was saved."_s,
         .help = u"It takes the place of the present model. With a window the question about unsaved changes "
                 u"comes\n"
                 "first. Quote a name with blanks. A relative name is looked up in the current directory."_s,
         .owner = owner,
         .run = with(&open),
         .forms = {{.clauses = {required_value(model_file(CommandParameter::Kind::InputFile))}}},
         .changes_model = true},
        {.name = u"save"_s,
         .summary = u"Saves the model."_s,
         .help = u"Without FILE in the file that it was opened from or saved in last. A file that is there "
                 u"already\n"
                 "is replaced. The name is taken as it is, without an ending of its own."_s,
         .owner = owner,
         .run = with(&save),
         .forms = {{.clauses = {optional_value(model_file(CommandParameter::Kind::OutputFile))}}}},
    };
    QStringList added;
    for (const Command& command : commands) {
        if (registry.add(command) != CommandRegistry::AddResult::Added) {
            for (const QString& name : std::as_const(added))
                registry.remove(name);
            return false;
        }
        added << command.name;
    }
    return true;
}
