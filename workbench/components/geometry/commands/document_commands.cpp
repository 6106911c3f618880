// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

CommandParameter model_file(CommandParameter::Kind kind)
{
    return {
        .name = u"FILE"_s,
        .kind = kind,
        .what = u"the name of a file"_s,
        .label = QT_TRANSLATE_NOOP("CommandParameter", "Model"),
        .filters =
            [] {
                return QList<CommandFileFilter>{
                    {QString::fromLatin1(QT_TRANSLATE_NOOP("CommandParameter", "Model Files")), u".mdl"_s}};
            },
        .example = u"part.mdl"_s};
}

QString whole_path(const CommandArguments& arguments)
{
    const QString file = arguments.text("FILE"_L1);
    return file.isEmpty() ? file : QDir::cleanPath(QDir::current().absoluteFilePath(file));
}

void open(const CommandArguments& arguments, const DocumentActions& actions)
{
    const QString file = whole_path(arguments);
    // Before anybody is asked about unsaved changes.
    if (!QFileInfo::exists(file))
        throw arguments.error(arguments.word("FILE"_L1),
                              u"there is no file %1"_s.arg(CommandError::shown(file, 300)));
    actions.open(file);
}

} // namespace

bool register_document_commands(CommandRegistry& registry, const QString& owner,
                                const DocumentActions& actions)
{
    const QList<Command> commands{
        {.name = u"new"_s,
         .summary = u"Starts an empty model."_s,
         .help =
             u"As \"New\" in the file menu: with a window the question about unsaved changes comes first, "
             u"unless\n"
             "\"discard\" drops them, and the console is emptied."_s,
         .perform =
             [actions](CommandCall&, const CommandArguments& arguments) {
                 actions.start_new(arguments.has("discard"_L1));
             },
         .forms = {{.clauses = {{.keyword = u"discard"_s,
                                 .optional = true,
                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "Drop unsaved changes")}}}},
         .changes_model = true},
        {.name = u"open"_s,
         .summary = u"Opens a model that was saved."_s,
         .help = u"It takes the place of the present model. With a window the question about unsaved changes "
                 u"comes\n"
                 "first. Quote a name with blanks. A relative name is looked up in the current directory."_s,
         .perform = [actions](CommandCall&, const CommandArguments& arguments) { open(arguments, actions); },
         .forms = {{.clauses = {required_value(model_file(CommandParameter::Kind::InputFile))}}},
         .changes_model = true,
         .makes = {solid_entity(), item_entity()}},
        {.name = u"save"_s,
         .summary = u"Saves the model."_s,
         .help = u"Without FILE in the file that it was opened from or saved in last. A file that is there "
                 u"already\n"
                 "is replaced. The name is taken as it is, without an ending of its own."_s,
         .perform = [actions](CommandCall&,
                              const CommandArguments& arguments) { actions.save(whole_path(arguments)); },
         .forms = {{.clauses = {optional_value(model_file(CommandParameter::Kind::OutputFile))}}}},
    };
    return registry.add_all(owner, commands);
}

} // namespace fennar::geometry
