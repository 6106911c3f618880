// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/fennar_python/commands/python_commands.h"

#include "workbench/host/fennar_python/python_tools.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace py = pybind11;
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
    py::dict names;
    names["name"] = to_python(parameter.name.isEmpty() ? u"VALUE"_s : parameter.name);
    names["kind"] = kind_names[std::size_t(parameter.kind)];
    names["what"] = to_python(parameter.what.isEmpty() ? parameter.name : parameter.what);
    names["label"] = label(parameter.label);
    names["tip"] = label(parameter.tip);
    names["unit"] = to_python(parameter.unit);
    names["default"] = to_python(parameter.default_value);
    names["range"] = to_python(number_range(parameter));
    names["choices"] = to_list(parameter.choices);
    names["entity"] = to_python(parameter.entity);
    names["by_number"] = parameter.by_number;
    names["repeated"] = parameter.repeated;
    return names;
}

py::list described(const QList<CommandParameter>& parameters)
{
    py::list list;
    for (const CommandParameter& parameter : parameters)
        list.append(described(parameter));
    return list;
}

py::dict described(const CommandClause& clause)
{
    py::dict names;
    names["keyword"] = to_python(clause.keyword);
    names["parameters"] = described(clause.parameters);
    names["optional"] = clause.optional;
    names["label"] = label(clause.label);
    names["tip"] = label(clause.tip);
    return names;
}

py::dict described(const CommandType& type)
{
    static constexpr const char* kinds[] = {"Nothing", "Number", "WholeNumber", "Text", "List",
                                            "Map",     "Entity", "Record",      "Array"};
    py::dict names;
    names["kind"] = kinds[std::size_t(type.kind)];
    names["entity"] = to_python(type.entity);
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
    py::list forms;
    for (const CommandSyntax& form : command.forms) {
        py::list clauses;
        for (const CommandClause& clause : form.clauses)
            clauses.append(described(clause));
        py::dict names;
        names["clauses"] = clauses;
        forms.append(names);
    }
    py::dict names;
    names["summary"] = to_python(command.summary);
    names["help"] = to_python(command.help);
    names["notes"] = to_python(command.notes());
    names["usage"] = to_python(command.usage());
    names["forms"] = forms;
    names["result"] = described(command.result);
    names["changes_model"] = command.changes_model;
    return names;
}

py::dict described(const EntityProperty& property)
{
    py::dict names;
    names["name"] = to_python(property.name);
    names["summary"] = to_python(property.summary);
    names["unit"] = to_python(property.unit);
    names["type"] = described(property.type);
    names["parameters"] = described(property.parameters);
    return names;
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
        names["call_line"] = py::cpp_function(
            [self, names = py::handle(names)](const py::str& line, const std::string& function, bool quiet) {
                return self->call_line(names, to_qstring(line), function, quiet);
            });
        names["draw"] = py::cpp_function(
            [self, names = py::handle(names)](const py::list& shown, int mesh, int width, int height) {
                return self->draw(names, {texts(shown), PythonPicture::Mesh(mesh), {width, height}});
            });
        names["entity_kinds"] = py::cpp_function([self] {
            const CommandEntities& entities = self->registry().entities();
            QStringList kinds = entities.kinds();
            kinds.removeIf([&](const QString& kind) { return entities.properties(kind).isEmpty(); });
            return to_list(kinds);
        });
        names["entity_properties"] = py::cpp_function([self](const py::str& kind) {
            py::list list;
            for (const EntityProperty& property : self->registry().entities().properties(to_qstring(kind)))
                list.append(described(property));
            return list;
        });
        names["entity_name"] = py::cpp_function([self](const py::str& kind, const py::str& key) {
            return to_python(self->registry().entities().name_of({to_qstring(kind), to_qstring(key)}));
        });
        names["entity_value"] = py::cpp_function(
            [self, names = py::handle(names)](const py::str& kind, const py::str& key,
                                              const py::str& property, const py::list& arguments) {
                return self->entity_value(names, to_qstring(kind), to_qstring(key), to_qstring(property),
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

    py::object call_line(const py::handle& names, const QString& line, const std::string& function,
                         bool quiet) const
    {
        if (mServices.check_caller)
            mServices.check_caller(function.c_str());
        CommandInterpreter::Outcome outcome;
        without_python_lock([&] { outcome = mServices.call(line, quiet); });
        if (mServices.end_call)
            mServices.end_call();
        if (outcome.failure)
            raise(names, *outcome.failure);
        return python_value(names, outcome.value);
    }

    py::bytes draw(const py::handle& names, const PythonPicture& picture) const
    {
        registry(); // checks the caller
        QByteArray file;
        call(names, u"view"_s, [&] {
            if (!mServices.picture)
                throw CommandError(u"there is nothing to see here"_s);
            file = mServices.picture(picture);
        });
        return {file.constData(), std::size_t(file.size())};
    }

    py::object entity_value(const py::handle& names, const QString& kind, const QString& key,
                            const QString& property, const QStringList& arguments) const
    {
        for (const EntityProperty& offered : registry().entities().properties(kind)) {
            if (offered.name != property)
                continue;
            CommandValue value;
            call(names, property, [&] { value = offered.value(key, arguments); });
            return python_value(names, value);
        }
        throw py::attribute_error(property.toStdString());
    }

    /** Calls @p function without Python's lock; its CommandError is raised in the name of @p command. */
    template <typename Function>
    void call(const py::handle& names, const QString& command, const Function& function) const
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
            raise(names, *failure);
    }

    [[noreturn]] static void raise(const py::handle& names, const CommandFailure& failure)
    {
        const py::object type = names["CommandError"];
        const py::object error = type(to_python(failure.message), to_python(failure.command), failure.column,
                                      to_python(failure.remedy));
        PyErr_SetObject(type.ptr(), error.ptr());
        throw py::error_already_set();
    }

    static py::object python_value(const py::handle& names, const CommandValue& value)
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
                result.append(python_value(names, item));
            return result;
        }
        if (const auto* map = std::get_if<CommandValue::Map>(&value.data))
            return python_dictionary(names, *map);
        if (const auto* record = std::get_if<CommandValue::Record>(&value.data))
            return py::object(names["make_record"])(to_python(record->name),
                                                    python_dictionary(names, record->fields));
        if (const auto* array = std::get_if<CommandValue::Array>(&value.data))
            return py::object(names["make_array"])(py::cast(NumberBuffer{*array}));
        if (const auto* entity = std::get_if<CommandValue::EntityReference>(&value.data))
            return py::object(names["make_entity"])(to_python(entity->kind), to_python(entity->key));
        return py::none();
    }

    static py::dict python_dictionary(const py::handle& names, const CommandValue::Map& map)
    {
        py::dict result;
        for (const auto& [key, item] : map)
            result[to_python(key)] = python_value(names, item);
        return result;
    }

    PythonCommandServices mServices;
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
