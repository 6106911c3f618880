// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/commands/python_commands.h"

#include "workbench/host/fennar_python/python_tools.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/tokenize.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QFile>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace py = pybind11;
using namespace py::literals;
using namespace Qt::StringLiterals;

// Nothing else would link the resources of a static library. Not in a namespace, as Qt demands.
static void init_resources()
{
    Q_INIT_RESOURCE(python_commands);
}

namespace fennar {

namespace {

py::list to_list(const QStringList& texts)
{
    py::list list;
    for (const QString& text : texts)
        list.append(to_python(text));
    return list;
}

/** The text of a label or the like; empty if there is none. */
py::str label(const char* text)
{
    return py::str(text ? text : "");
}

/** The names of the kinds, in the order of the enumeration. */
constexpr const char* kind_names[] = {"Number",   "WholeNumber", "Choice",     "Entity", "NewName",
                                      "Variable", "InputFile",   "OutputFile", "Text",   "Words"};

py::dict described(const CommandParameter& parameter)
{
    return py::dict("name"_a = to_python(parameter.name.isEmpty() ? u"VALUE"_s : parameter.name),
                    "kind"_a = kind_names[std::size_t(parameter.kind)],
                    "what"_a = to_python(parameter.what.isEmpty() ? parameter.name : parameter.what),
                    "label"_a = label(parameter.label), "tip"_a = label(parameter.tip),
                    "unit"_a = to_python(parameter.unit), "default"_a = to_python(parameter.default_value),
                    "range"_a = to_python(number_range(parameter).english),
                    "choices"_a = to_list(parameter.choices), "entity"_a = to_python(parameter.entity),
                    "by_number"_a = parameter.by_number, "repeated"_a = parameter.repeated);
}

py::dict described(const CommandClause& clause);
py::dict described(const CommandSyntax& form);
py::dict described(const EntityProperty& property);

template <typename Items>
py::list described_all(const Items& items)
{
    py::list list;
    for (const auto& item : items)
        list.append(described(item));
    return list;
}

py::dict described(const CommandClause& clause)
{
    return py::dict("keyword"_a = to_python(clause.keyword),
                    "parameters"_a = described_all(clause.parameters), "optional"_a = clause.optional,
                    "label"_a = label(clause.label), "tip"_a = label(clause.tip));
}

py::dict described(const CommandSyntax& form)
{
    return py::dict("clauses"_a = described_all(form.clauses));
}

py::dict described(const CommandType& type)
{
    static constexpr const char* kinds[] = {"Nothing", "Number", "WholeNumber", "Text", "List",
                                            "Map",     "Entity", "Record",      "Array"};
    py::dict names("kind"_a = kinds[std::size_t(type.kind)], "entity"_a = to_python(type.entity));
    if (type.kind == CommandType::Kind::Record) {
        py::dict fields;
        for (qsizetype i = 0; i < type.of.size(); ++i)
            fields[to_python(type.names[i])] = described(type.of[i]);
        names["fields"] = fields;
    } else if (!type.of.isEmpty()) {
        names["of"] = described(type.of.first());
    }
    return names;
}

py::dict described(const Command& command)
{
    return py::dict("summary"_a = to_python(command.summary), "help"_a = to_python(command.help),
                    "notes"_a = to_python(command.notes()), "usage"_a = to_python(command.usage()),
                    "forms"_a = described_all(command.forms), "result"_a = described(command.result),
                    "changes_model"_a = command.changes_model);
}

py::dict described(const EntityProperty& property)
{
    return py::dict("name"_a = to_python(property.name), "summary"_a = to_python(property.summary),
                    "unit"_a = to_python(property.unit), "type"_a = described(property.type),
                    "parameters"_a = described_all(property.parameters));
}

QStringList texts(const py::handle& list)
{
    QStringList result;
    for (const py::handle text : list)
        result << to_qstring(text.cast<py::str>());
    return result;
}

/** The values of clauses as commands.py has them. */
QList<ClauseValues> clause_values(const py::list& clauses)
{
    QList<ClauseValues> result;
    for (const py::handle clause : clauses) {
        if (clause.is_none()) {
            result << std::nullopt;
            continue;
        }
        QList<QStringList> values;
        for (const py::handle words : clause)
            values << texts(words);
        result << values;
    }
    return result;
}

/** Numbers that Python reads where they are, for as long as it looks at them. */
struct NumberBuffer
{
    CommandValue::Array array;

    py::buffer_info info() const
    {
        return std::visit(
            [this](const auto& numbers) {
                using Number = typename std::decay_t<decltype(*numbers)>::value_type;
                constexpr auto size = py::ssize_t(sizeof(Number));
                const auto columns = py::ssize_t(array.columns);
                // Python's own types want pointers to what they could write to.
                return py::buffer_info(
                    const_cast<Number*>(numbers->data()), size, py::format_descriptor<Number>::format(), 2,
                    {py::ssize_t(numbers->size()) / columns, columns}, {columns * size, size}, true);
            },
            array.numbers);
    }
    static void add_to(const py::handle& scope)
    {
        py::class_<NumberBuffer>(scope, "_NumberBuffer", py::buffer_protocol(), py::module_local())
            .def_buffer([](NumberBuffer& buffer) { return buffer.info(); });
    }
};

QByteArray to_bytes(const py::bytes& bytes)
{
    const std::string_view view(bytes);
    return {view.data(), qsizetype(view.size())};
}

/** The functions that commands.py is given. Its dictionary owns them, the module fennar that one. */
class Access : public std::enable_shared_from_this<Access>
{
public:
    explicit Access(const PythonCommandServices& services) : mServices(services)
    {
        CommandEntities& entities = mServices.registry->entities();
        mConnection = QObject::connect(&entities, &CommandEntities::changed, &entities,
                                       [generation = mGeneration](const QString& kind) {
                                           if (kind == u"command")
                                               ++*generation;
                                       });
    }
    ~Access() { QObject::disconnect(mConnection); }
    Access(const Access&) = delete;
    Access& operator=(const Access&) = delete;

    void add_to(const py::dict& names)
    {
        mNames = names;
        const auto self = shared_from_this();
        names["generation"] = py::cpp_function([self] { return *self->mGeneration; });
        names["command_names"] = py::cpp_function([self] { return to_list(self->registry().names()); });
        names["declaration"] = py::cpp_function([self](const py::str& name) -> py::object {
            const auto command = self->registry().find(to_qstring(name));
            return command ? py::object(described(*command)) : py::none();
        });
        names["write_line"] =
            py::cpp_function([self](const py::str& name, int form, const py::list& clauses) {
                return self->write_line(to_qstring(name), form, clause_values(clauses));
            });
        names["quote_word"] =
            py::cpp_function([](const py::str& text) { return to_python(quote_word(to_qstring(text))); });
        names["call_line"] =
            py::cpp_function([self](const py::str& line, const std::string& function, bool quiet) {
                return self->call_line(to_qstring(line), function, quiet);
            });
        names["draw"] = py::cpp_function([self](const py::list& shown, int mesh, int width, int height) {
            return self->draw({texts(shown), PythonPicture::Mesh(mesh), {width, height}});
        });
        names["write_file"] = py::cpp_function([](const py::bytes& path, const py::bytes& content) {
            return to_python(write_whole_file(QFile::decodeName(to_bytes(path)), {to_bytes(content)}));
        });
        names["entity_kinds"] = py::cpp_function([self] {
            const CommandEntities& entities = self->registry().entities();
            QStringList kinds = entities.kinds();
            kinds.removeIf([&](const QString& kind) { return entities.properties(kind).isEmpty(); });
            return to_list(kinds);
        });
        names["entity_properties"] = py::cpp_function([self](const py::str& kind) {
            return described_all(self->registry().entities().properties(to_qstring(kind)));
        });
        names["entity_name"] = py::cpp_function([self](const py::str& kind, const py::str& key) {
            return to_python(self->registry().entities().name_of({to_qstring(kind), to_qstring(key)}));
        });
        names["entity_value"] = py::cpp_function([self](const py::str& kind, const py::str& key,
                                                        const py::str& property, const py::list& arguments) {
            return self->entity_value(to_qstring(kind), to_qstring(key), to_qstring(property),
                                      texts(arguments));
        });
    }

private:
    /** The registry, for a caller that may look at it. */
    CommandRegistry& registry() const
    {
        if (mServices.check_caller)
            mServices.check_caller("the commands of fennar");
        return *mServices.registry;
    }

    py::str write_line(const QString& name, int form, const QList<ClauseValues>& values) const
    {
        const auto command = registry().find(name);
        if (!command || form < 0 || form >= command->forms.size())
            throw std::runtime_error("no such command");
        return to_python(command_line(name, command->forms[form], values));
    }

    py::object call_line(const QString& line, const std::string& function, bool quiet) const
    {
        if (mServices.check_caller)
            mServices.check_caller(function.c_str());
        CommandInterpreter::Outcome outcome;
        without_python_lock([&] { outcome = mServices.call(line, quiet); });
        if (mServices.end_call)
            mServices.end_call();
        if (outcome.failure)
            raise(*outcome.failure);
        return python_value(outcome.value);
    }

    py::bytes draw(const PythonPicture& picture) const
    {
        registry(); // checks the caller
        QByteArray file;
        call(u"view"_s, [&] {
            if (!mServices.picture)
                throw CommandError(u"there is nothing to see here"_s);
            file = mServices.picture(picture);
        });
        return {file.constData(), std::size_t(file.size())};
    }

    py::object entity_value(const QString& kind, const QString& key, const QString& property,
                            const QStringList& arguments) const
    {
        for (const EntityProperty& offered : registry().entities().properties(kind)) {
            if (offered.name != property)
                continue;
            CommandValue value;
            call(property, [&] { value = offered.value(key, arguments); });
            return python_value(value);
        }
        throw py::attribute_error(property.toStdString());
    }

    /** Calls @p function without Python's lock; its CommandError is raised in the name of @p command. */
    template <typename Function>
    void call(const QString& command, const Function& function) const
    {
        std::optional<CommandFailure> failure;
        without_python_lock([&] {
            try {
                function();
            } catch (const CommandError& error) {
                failure = {error.message(), command, 0, error.remedy()};
            }
        });
        if (mServices.end_call)
            mServices.end_call();
        if (failure)
            raise(*failure);
    }

    [[noreturn]] void raise(const CommandFailure& failure) const
    {
        const py::object type = mNames["CommandError"];
        const py::object error = type(to_python(failure.message), to_python(failure.command), failure.column,
                                      to_python(failure.remedy));
        PyErr_SetObject(type.ptr(), error.ptr());
        throw py::error_already_set();
    }

    py::object python_value(const CommandValue& value) const
    {
        if (const auto* number = std::get_if<double>(&value.data))
            return py::float_(*number);
        if (const auto* whole = std::get_if<qint64>(&value.data))
            return py::int_(*whole);
        if (const auto* text = std::get_if<QString>(&value.data))
            return to_python(*text);
        if (const auto* list = std::get_if<CommandValue::List>(&value.data)) {
            py::list result;
            for (const CommandValue& item : *list)
                result.append(python_value(item));
            return result;
        }
        if (const auto* map = std::get_if<CommandValue::Map>(&value.data))
            return python_dictionary(*map);
        if (const auto* record = std::get_if<CommandValue::Record>(&value.data))
            return py::object(mNames["make_record"])(to_python(record->name),
                                                     python_dictionary(record->fields));
        if (const auto* array = std::get_if<CommandValue::Array>(&value.data))
            return py::object(mNames["make_array"])(py::cast(NumberBuffer{*array}));
        if (const auto* entity = std::get_if<CommandValue::EntityReference>(&value.data))
            return py::object(mNames["make_entity"])(to_python(entity->kind), to_python(entity->key));
        return py::none();
    }

    py::dict python_dictionary(const CommandValue::Map& map) const
    {
        py::dict result;
        for (const auto& [key, item] : map)
            result[to_python(key)] = python_value(item);
        return result;
    }

    PythonCommandServices mServices;
    /** The dictionary that owns this. */
    py::handle mNames;
    std::shared_ptr<int> mGeneration = std::make_shared<int>(0);
    QMetaObject::Connection mConnection;
};

} // namespace

void add_python_commands(PyObject* module, const PythonCommandServices& services)
{
    init_resources();
    const auto fennar = py::reinterpret_borrow<py::module_>(module);
    py::dict names;
    names["__name__"] = "fennar_commands";
    names["module"] = fennar;
    names["CommandError"] = fennar.attr("CommandError");
    names["python_source"] = py::cpp_function(
        [](const py::str& name) { return resource_text(u":/python_commands/"_s + to_qstring(name)); });
    NumberBuffer::add_to(fennar);
    std::make_shared<Access>(services)->add_to(names);
    run_resource(u":/python_commands/commands.py"_s, names);
}

} // namespace fennar
