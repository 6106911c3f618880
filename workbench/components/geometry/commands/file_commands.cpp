// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/LongWork.h"
#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/exchange/exchange_files.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/files/FormatRegistry.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** What a format must be able to do. */
using Direction = bool Format::*;
constexpr Direction importing = &Format::reads;
constexpr Direction exporting = &Format::writes;

QList<Format> formats_for(Direction direction)
{
    QList<Format> result = formats();
    result.removeIf([direction](const Format& format) { return !(format.*direction); });
    return result;
}

QStringList format_names(Direction direction)
{
    QStringList names;
    for (const Format& format : formats_for(direction))
        names << format.name;
    return names;
}

QList<CommandFileFilter> file_filters(Direction direction)
{
    QList<CommandFileFilter> filters;
    for (const Format& format : formats_for(direction))
        filters.append({format.name, u'.' + format.endings.value(0)});
    return filters;
}

QString format_entity(Direction direction)
{
    return direction == importing ? u"import format"_s : u"export format"_s;
}

/** "FILE [as FORMAT]" */
QList<CommandClause> file_clauses(Direction direction)
{
    return {required_value({.name = u"FILE"_s,
                            .kind = direction == importing ? CommandParameter::Kind::InputFile
                                                           : CommandParameter::Kind::OutputFile,
                            .what = u"the name of a file"_s,
                            .label = QT_TRANSLATE_NOOP("CommandParameter", "File"),
                            .filters = [direction] { return file_filters(direction); },
                            .example = u"part.stl"_s}),
            {.keyword = u"as"_s,
             .parameters = {{.name = u"FORMAT"_s,
                             .kind = CommandParameter::Kind::Entity,
                             .what = u"a format"_s,
                             .label = QT_TRANSLATE_NOOP("CommandParameter", "Format"),
                             .tip = QT_TRANSLATE_NOOP(
                                 "CommandParameter",
                                 "Needed only where the ending of the file does not tell it."),
                             .entity = format_entity(direction),
                             .example = u"STL"_s}},
             .optional = true}};
}

/** What "as" tells, or the ending of the file; nothing if that is no format. */
std::optional<Format> told_format(const CommandArguments& arguments)
{
    return arguments.has("as"_L1) ? find_format(arguments.text("as"_L1))
                                  : format_of_file(arguments.text("FILE"_L1));
}

void verify_format(const CommandArguments& arguments, const CommandEntities& entities, Direction direction)
{
    // Behind what may load a component, the format may be one of that.
    if (!entities.has(format_entity(direction)))
        return;
    const std::optional<Format> format = told_format(arguments);
    const qsizetype word = arguments.word(arguments.has("as"_L1) ? "as"_L1 : "FILE"_L1);
    if (!format)
        throw arguments.error(
            word,
            {QT_TRANSLATE_NOOP("CommandError",
                               "the ending of the file tells no format; say which one with \"as\" (%1)"),
             {format_names(direction).join(u", "_s)}});
    if (!((*format).*direction))
        throw arguments.error(
            word, {direction == importing
                       ? QT_TRANSLATE_NOOP("CommandError", "files of the format %1 cannot be read")
                       : QT_TRANSLATE_NOOP("CommandError", "files of the format %1 cannot be written"),
                   {format->name}});
}

void verify_export(const CommandArguments& arguments, const CommandEntities& entities)
{
    verify_format(arguments, entities, exporting);
    const std::optional<Format> format = told_format(arguments);
    const bool named = arguments.has("SOLID"_L1);
    const bool sized = arguments.has("size"_L1);
    const bool mesh = arguments.has("mesh"_L1);
    if (format && format->content == Format::Content::Mesh && (named || sized))
        throw arguments.words().expected(
            named ? arguments.word("SOLID"_L1) : arguments.word("size"_L1) - 1,
            {QT_TRANSLATE_NOOP("CommandError", "the end of the line (%1 files hold the last mesh)"),
             {format->name}});
    if (format && format->content == Format::Content::Solids && (mesh || sized))
        throw arguments.words().expected(
            mesh ? arguments.word("mesh"_L1) : arguments.word("size"_L1) - 1,
            {QT_TRANSLATE_NOOP("CommandError", "the end of the line (%1 files hold solids)"),
             {format->name}});
}

QString absolute_path(const CommandArguments& arguments)
{
    return QFileInfo(arguments.text("FILE"_L1)).absoluteFilePath();
}

QString described(const GeometryModel& model, const Imported& imported)
{
    QString text;
    for (const int id : imported.solids)
        text += u"%1: volume %2\n"_s.arg(model.solid(id)->name, shown_number(model.measures(id).volume));
    if (imported.mesh) {
        QStringList parts{u"%1 nodes"_s.arg(imported.mesh->nodes)};
        for (const Mesh::Elements& elements : imported.mesh->elements) {
            if (elements.dimension >= 2)
                parts << u"%1 x %2"_s.arg(elements.count).arg(elements.kind);
        }
        if (imported.closed)
            parts << (*imported.closed ? u"closed, volume "_s + shown_number(imported.volume)
                                       : u"not closed"_s);
        text += u"Mesh: "_s + parts.join(u", "_s) + u'\n';
    }
    return text;
}

void run_import(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const QString file = absolute_path(arguments);
    bool done = false;
    const auto tell = qScopeGuard([&] {
        if (context.imported)
            context.imported(file, done);
    });
    const Format format = told_format(arguments).value();
    std::optional<Imported> imported;
    {
        LongWork work(call, context.services, "Import");
        imported = import_file(file, format, context.model, context.programs, work.listener());
    }
    if (!imported)
        throw CommandError(u"cancelled; nothing has changed"_s);
    call.print(described(context.model, *imported));
    call.set_result(solids_value(context.model, imported->solids));
    done = true;
}

/** What goes into a file of the format. */
ExportSource source_of(const CommandArguments& arguments, const Format& format, const GeometryModel& model)
{
    ExportSource source;
    source.mesh = arguments.has("mesh"_L1) || format.content == Format::Content::Mesh;
    if (source.mesh)
        return source;
    if (arguments.has("SOLID"_L1))
        source.solids = solids(arguments, model);
    else if (format.content == Format::Content::Surface) // what an imported surface is for
        source.mesh = model.ids().isEmpty() && model.mesh();
    if (arguments.has("size"_L1))
        source.size = arguments.number("size"_L1);
    return source;
}

void run_export(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const QString file = absolute_path(arguments);
    const Format format = told_format(arguments).value();
    const ExportSource source = source_of(arguments, format, context.model);
    bool done = false;
    {
        LongWork work(call, context.services, "Export");
        done = export_file(file, format, source, context.model, context.programs, work.listener());
    }
    if (!done)
        throw CommandError(u"cancelled; no file was written"_s);
    if (source.mesh && context.model.is_mesh_old())
        call.print(u"The model has changed since the mesh was made.\n"_s);
}

QString with_format(const QString& words, const QString& file, const QString& format)
{
    const std::optional<Format> told = format_of_file(file);
    return told && told->name == format ? words : words + u" as "_s + format;
}

/** Whether tokenize() reads @p text, between double quotes, as it stands. */
bool stands_in_double_quotes(const QString& text)
{
    const CommandWords words = tokenize(QString(u'"' + text + u'"'));
    return !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r') && !words.error &&
           words.words.size() == 1 && words.words[0].text == text;
}

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

QList<Command> file_commands(const CommandContext& context)
{
    return {
        {.name = u"import"_s,
         .summary = u"Reads solids or a mesh from a file."_s,
         .help =
             u"The ending of FILE tells the format unless \"as\" does. STEP, IGES and BREP files add their\n"
             u"solids, named after the file. STL, MSH and VTK files, and those of formats that other "
             u"components\nbring, hold a mesh, which takes the place of the last one. Lengths become "
             u"millimeters."_s,
         .perform = performing(&run_import, context),
         .forms = {{.clauses = file_clauses(importing),
                    .verify =
                        [](const CommandArguments& arguments, const CommandEntities& offered) {
                            verify_format(arguments, offered, importing);
                        }}},
         .changes_model = true,
         .makes = {solid_entity()},
         .long_running = true,
         .result = list_type(entity_type(solid_entity()))},
        {.name = u"export"_s,
         .summary = u"Writes solids or the mesh to a file."_s,
         .help =
             u"The ending of FILE tells the format unless \"as\" does. STEP and BREP files hold solids, all "
             u"of\nthem if none is named. MSH and VTK files hold the last mesh. STL files, and those of "
             u"formats that\nother components bring, hold the surface of solids, in triangles of SIZE at "
             u"most, or with \"mesh\"\nthat of the last mesh. A file that exists is replaced."_s,
         .perform = performing(&run_export, context),
         .forms = {{.clauses = file_clauses(exporting) +
                               QList{optional_value(solids_parameter()),
                                     CommandClause{
                                         .keyword = u"size"_s,
                                         .parameters = {length_parameter(
                                             u"SIZE"_s, u"a size of the triangles"_s,
                                             QT_TRANSLATE_NOOP("CommandParameter", "Size of the triangles"))},
                                         .optional = true}},
                    .title = QT_TRANSLATE_NOOP("CommandParameter", "Solids"),
                    .verify = &verify_export},
                   {.clauses = file_clauses(exporting) + QList{CommandClause{.keyword = u"mesh"_s}},
                    .title = QT_TRANSLATE_NOOP("CommandParameter", "Mesh"),
                    .verify = &verify_export}},
         .long_running = true},
    };
}

void offer_formats(CommandEntities& entities, const QString& owner)
{
    // The formats are there longer than these commands: the connection goes with the offers.
    const auto watcher = std::make_shared<QObject>();
    for (const Direction direction : {importing, exporting}) {
        entities.offer(
            format_entity(direction), owner, [direction, watcher] { return format_names(direction); },
            [](const QString& word) { return find_format(word).value_or(Format()).name; });
        QObject::connect(&FormatRegistry::instance(), &FormatRegistry::changed, watcher.get(),
                         [&entities, direction] { entities.tell_changed(format_entity(direction)); });
    }
}

QString import_command(const QString& file, const QString& format)
{
    return with_format(u"import "_s + quote_word(file), file, format);
}

QString export_command(const QString& file, const QString& format)
{
    return with_format(u"export "_s + quote_word(file), file, format);
}

QString recent_import_command(const QString& file, const QString& format)
{
    QString words;
    if (stands_in_double_quotes(file)) {
        words = u"\"%1\""_s.arg(file);
    } else if (!file.contains(u'"') && !file.contains(u'\'') && !file.contains(u'\n') &&
               !file.contains(u'\r')) {
        words = u"'%1'"_s.arg(file);
    } else {
        // Parts that touch are one word. The root stands for itself in any quotes.
        qsizetype end = 1;
        for (qsizetype slash = 1; slash > 0 && stands_in_double_quotes(file.left(slash));
             slash = file.indexOf(u'/', slash) + 1)
            end = slash;
        words = u"\"%1\""_s.arg(file.left(end)) + quote_word(file.sliced(end));
    }
    return with_format(u"import "_s + words, file, format);
}

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
