# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The commands of the application as functions, and what they work on as objects.

Nothing of a command is kept here but for speed: what it takes is read from its declaration, the command line is written
and checked by the application. It runs this text once and defines beforehand module, which is the module fennar, and
CommandError, and these functions:

generation()                        a number that changes when commands come or go
command_names()                     the names of the commands
declaration(command)                what it declares, as nested dictionaries; None if there is no such command
write_line(command, form, clauses)  the command line; each clause is None or has a list of words for each parameter
quote_word(text)                    the text as one word of a command line
call_line(line, function, quiet)    runs it and returns its value; CommandError if it fails. Quiet is one whose
                                    output nobody has asked for
entity_kinds()                      the kinds of entities that have properties
entity_properties(kind)             these, as dictionaries
entity_name(kind, key)              the entity's name; empty if it is gone
entity_value(kind, key, property, arguments)
draw(names, mesh, width, height)    a picture as the bytes of a PNG file
write_file(path, content)           makes the bytes the content of a file, all or nothing; why it failed, or an empty text
python_source(file)                 another text that lies beside this one
"""

import collections.abc
import difflib
import functools
import inspect
import keyword
import numbers
import os
import re
import sys
import types

Parameter = inspect.Parameter


class ArgumentError(CommandError, TypeError):
    """An argument that the function of a command cannot take. Nothing was run."""


ArgumentError.__module__ = "fennar"


def python_name(text, taken=()):
    """A name for Python, which is neither a keyword nor taken."""
    name = re.sub(r"\W", "_", text, flags=re.ASCII)
    while keyword.iskeyword(name) or name in taken:
        name += "_"
    return name


# --- Entities ----------------------------------------------------------------------------------------------------


class Entity:
    """Something in the application that commands work on. It is told by what it is, not by its name, which may change.

    kind  what it is, as 'solid'
    name  its name now; CommandError if it is gone
    """

    __slots__ = ("_key", "_last_name")
    kind = ""

    def __init__(self):
        raise TypeError("entities are made by commands")

    @property
    def name(self):
        name = entity_name(self.kind, self._key)
        if not name:
            raise CommandError(f'the {self.kind} "{self._last_name}" is gone')
        self._last_name = name
        return name

    def __eq__(self, other):
        if not isinstance(other, Entity):
            return NotImplemented
        return (self.kind, self._key) == (other.kind, other._key)

    def __hash__(self):
        return hash((self.kind, self._key))

    def __repr__(self):
        try:
            return f"<{self.kind} {self.name!r}>"
        except CommandError:
            return f"<{self.kind} {self._last_name!r}, gone>"


Entity.__module__ = "fennar"


def value_of(entity, declared, arguments):
    entity.name  # raises if it is gone
    return entity_value(entity.kind, entity._key, declared["name"], arguments)


def property_text(declared):
    unit = f" ({declared['unit']})" if declared["unit"] else ""
    return declared["summary"] + unit


def make_property(declared):
    """A property of a class of entities, or a method if something must be told to get the value."""
    if not declared["parameters"]:
        return property(lambda entity: value_of(entity, declared, []), doc=property_text(declared))
    slots = [Slot(None, parameter["name"].lower(), [parameter]) for parameter in declared["parameters"]]
    signature = inspect.Signature(
        [Parameter("self", Parameter.POSITIONAL_ONLY)]
        + [Parameter(slot.name, Parameter.POSITIONAL_OR_KEYWORD) for slot in slots]
    )

    def method(*arguments, **keywords):
        given = bind(signature, declared["name"], arguments, keywords)
        words = [slot.words(given[slot.name], declared["name"])[0][0] for slot in slots]
        for slot, word in zip(slots, words):
            choices = slot.parameters[0]["choices"]
            if choices and word not in choices:
                raise wrong_type(slot.name, declared["name"], " or ".join(f'"{choice}"' for choice in choices), word)
        return value_of(given["self"], declared, words)

    method.__name__ = method.__qualname__ = declared["name"]
    method.__doc__ = property_text(declared)
    method.__signature__ = signature
    return method


def class_name(kind):
    return python_name(kind.title().replace(" ", ""))


entity_classes = {}


def entity_class(kind):
    """The class of the entities of a kind."""
    if kind in entity_classes:
        return entity_classes[kind]
    properties = entity_properties(kind)
    members = {declared["name"]: make_property(declared) for declared in properties}
    described = "".join(f"\n{declared['name']}: {property_text(declared)}" for declared in properties)
    members.update(__slots__=(), __module__="fennar", kind=kind, __doc__=f"A {kind}.\n{described}")
    made = type(class_name(kind), (Entity,), members)
    if properties:
        entity_classes[kind] = made
    return made


def make_entity(kind, key):
    """Called by the application for a value that tells an entity."""
    entity = object.__new__(entity_class(kind))
    entity._key = key
    entity._last_name = entity_name(kind, key)
    return entity


@functools.cache
def record_class(name, fields):
    """The class of the records of a name: plain values that are gone with the last look at them."""
    made = collections.namedtuple(class_name(name), fields, module="fennar")
    made.__doc__ = f"A {name}: {', '.join(fields)}."
    return made


def make_record(name, fields):
    """Called by the application for a value with named parts."""
    return record_class(name, tuple(fields))(**fields)


def record_types():
    """The records that properties have and commands return, by the names of their classes."""
    found = {}

    def search(declared):
        if declared["kind"] == "Record":
            found[class_name(declared["entity"])] = declared
        for inner in [declared["of"]] if "of" in declared else declared.get("fields", {}).values():
            search(inner)

    for kind in entity_kinds():
        for declared in entity_properties(kind):
            search(declared["type"])
    for command in command_names():
        search(commands.describe(command).declared["result"])
    return found


def make_array(buffer):
    """Called by the application for many numbers. The array looks at them where they are."""
    try:
        import numpy
    except ImportError as error:
        raise ImportError("nodes and elements are arrays of NumPy, which is not installed (Debian: python3-numpy)",
                          name="numpy") from error
    return numpy.asarray(buffer)


# --- Arguments ---------------------------------------------------------------------------------------------------


def wrong_type(argument, command, expected, found):
    return ArgumentError(f"{argument}: expected {expected}, found {found!r}", command)


def number_word(value):
    return repr(int(value)) if isinstance(value, numbers.Integral) else repr(float(value))


def valid_text(value):
    """Whether a value is a text that a command line can hold."""
    try:
        return isinstance(value, str) and value.encode() is not None
    except UnicodeEncodeError:
        return False


def is_number(value, kind=numbers.Real):
    return isinstance(value, kind) and not isinstance(value, bool)


def word_of(value, parameter, argument, command):
    """A value as a word of a command line, which the application quotes and checks."""
    kind = parameter["kind"]
    if kind in ("Number", "WholeNumber"):
        if not is_number(value, numbers.Real if kind == "Number" else numbers.Integral):
            raise wrong_type(argument, command, parameter["range"], value)
        try:
            return number_word(value)
        except (OverflowError, ValueError):  # too large to be written
            raise wrong_type(argument, command, parameter["range"], type(value)) from None
    if kind in ("Entity", "Words") and isinstance(value, Entity):
        if kind == "Entity" and value.kind != parameter["entity"]:
            raise wrong_type(argument, command, parameter["what"], value)
        value = value.name
    elif kind == "Entity" and parameter["by_number"] and is_number(value, numbers.Integral):
        return number_word(value)
    elif kind == "Words" and is_number(value):
        value = number_word(value)
    elif kind in ("InputFile", "OutputFile") and isinstance(value, os.PathLike):
        value = os.fspath(value)
    if not valid_text(value):
        raise wrong_type(argument, command, "a text" if kind in ("Text", "Words") else parameter["what"], value)
    if kind == "Words":
        return quote_word(value)
    if kind not in ("Text", "InputFile", "OutputFile") and value.startswith("$"):
        # The writer of command lines would take it for a variable.
        raise wrong_type(argument, command, parameter["what"], value)
    return value


def is_group(value):
    """Whether an argument is several values."""
    return not isinstance(value, (str, bytes, os.PathLike, numbers.Number, Entity)) and hasattr(value, "__iter__")


class Slot:
    """One argument of a function: values of one clause of the declaration."""

    def __init__(self, clause, name, parameters):
        self.clause = clause
        self.name = name
        self.parameters = parameters
        self.keyword = bool(clause and clause["keyword"])
        self.optional = bool(clause and clause["optional"])
        self.flag = not parameters
        self.many = any(p["repeated"] or p["kind"] == "Words" for p in parameters)
        self.several = len(parameters) > 1
        self.default = self.declared_default()

    def declared_default(self):
        values = []
        for parameter in self.parameters:
            text = parameter["default"]
            if not text or self.many:
                return None
            kinds = {"Number": float, "WholeNumber": int}
            value = kinds.get(parameter["kind"], str)(text)
            values.append(int(value) if isinstance(value, float) and value.is_integer() else value)
        if self.flag:
            return False
        return tuple(values) if self.several else values[0]

    def words(self, value, command):
        """A list of words for each parameter; None if the clause is to be left out."""
        if self.flag:
            if not isinstance(value, bool):
                raise wrong_type(self.name, command, "True or False", value)
            return [] if value else None
        if not self.several:
            parameter = self.parameters[0]
            values = list(value) if self.many and is_group(value) else [value]
            if not values:
                # A command that gets none would take all there are.
                raise wrong_type(self.name, command, "at least one value", value)
            return [[word_of(one, parameter, self.name, command) for one in values]]
        names = ", ".join(parameter["name"].lower() for parameter in self.parameters)
        in_order = is_group(value) and not isinstance(value, (collections.abc.Mapping, collections.abc.Set))
        values = list(value) if in_order else None
        if values is None or len(values) != len(self.parameters):
            raise wrong_type(self.name, command, f"{len(self.parameters)} values ({names})", value)
        return [[word_of(one, p, self.name, command)] for one, p in zip(values, self.parameters)]


class Form:
    """One way to write a command."""

    def __init__(self, index, declared):
        self.index = index
        self.clauses = declared["clauses"]
        self.slots = []
        taken = set()
        for clause in self.clauses:
            parts = [(p["name"], [p]) for p in clause["parameters"]]
            if clause["keyword"]:
                parts = [(clause["keyword"], clause["parameters"])]
            for name, parameters in parts:
                slot = Slot(clause, python_name(name.lower(), taken), parameters)
                taken.add(slot.name)
                self.slots.append(slot)
        self.names = taken
        self.required = {slot.name for slot in self.slots if not slot.optional}

    def positional(self):
        """The arguments that need no keyword, in their order, and the one that takes all the others."""
        slots = []
        for slot in self.slots:
            if slot.many and not slot.keyword:
                return slots, slot
            if not slot.keyword:
                slots.append(slot)
        return slots, None

    def values(self, given, command):
        """What write_line() takes."""
        result, left_out = [], None
        for clause in self.clauses:
            slots = [slot for slot in self.slots if slot.clause is clause]
            found = [slot for slot in slots if slot.name in given]
            if clause["keyword"]:
                left_out = None
            elif found and left_out:
                raise ArgumentError(f"{found[0].name} needs {left_out}, too", command)
            elif not found and clause["optional"]:
                left_out = slots[0].name
            if not found:
                result.append(None)
                continue
            if len(found) < len(slots):
                missing = next(slot.name for slot in slots if slot.name not in given)
                raise ArgumentError(f"{found[0].name} needs {missing}, too", command)
            parts = [slot.words(given[slot.name], command) for slot in slots]
            result.append(None if None in parts else [words for part in parts for words in part])
        return result


def bind(signature, command, arguments, keywords):
    """The arguments by their names, those that were not given left out."""
    try:
        bound = signature.bind(*arguments, **keywords)
    except TypeError as error:
        known, near, remedy = signature.parameters, [], ""
        for name in keywords:
            if name not in known:
                near = difflib.get_close_matches(name, known, 1)
                break
        if near:
            remedy = f'did you mean "{near[0]}"?'
        elif arguments and known and all(one.kind is Parameter.KEYWORD_ONLY for one in known.values()):
            remedy = f"its arguments have names: {', '.join(known)}"
        raise ArgumentError(f"{error}; {remedy}" if remedy else str(error), command, 0, remedy) from None
    given = {}
    for name, value in bound.arguments.items():
        if signature.parameters[name].kind is Parameter.VAR_POSITIONAL:
            value = [one for group in value for one in (group if is_group(group) else [group])]
        if value is not None:
            given[name] = value
    return given


# --- Commands ----------------------------------------------------------------------------------------------------


class CommandDescription:
    """What the function of a command needs to know of it."""

    def __init__(self, command, declared):
        self.command = command
        self.declared = declared
        self.forms = [Form(index, form) for index, form in enumerate(declared["forms"])]
        self.signature = self.make_signature()

    def slots(self, name):
        return [slot for form in self.forms for slot in form.slots if slot.name == name]

    def make_signature(self):
        """Positional are arguments whose order is the same in all ways to write the command."""
        orders = [form.positional() for form in self.forms]
        longest = max((order for order, _ in orders), key=len)
        names = [slot.name for slot in longest]
        for order, _ in orders:
            here = [slot.name for slot in order]
            if names[: len(here)] != here:
                names = os.path.commonprefix([names, here])
        rest = {slot.name for _, slot in orders if slot}
        parameters, keyword_only, optional = [], [], False
        seen = dict.fromkeys(slot.name for form in self.forms for slot in form.slots)
        variable = next(iter(rest)) if len(rest) == 1 and len(names) == len(longest) else None
        for name in names + [name for name in seen if name not in names]:
            needed = all(name in form.required for form in self.forms)
            default = Parameter.empty if needed else self.slots(name)[0].default
            optional = optional or not needed
            if name == variable:
                continue
            if name in names and not (needed and optional):
                parameters.append(Parameter(name, Parameter.POSITIONAL_OR_KEYWORD, default=default))
            else:
                keyword_only.append(Parameter(name, Parameter.KEYWORD_ONLY, default=default))
        if variable:
            parameters.append(Parameter(variable, Parameter.VAR_POSITIONAL))
        return inspect.Signature(parameters + keyword_only)

    def choose_form(self, given):
        """The way to write the command that takes these arguments."""
        possible = [form for form in self.forms if given.keys() <= form.names]
        if not possible:
            raise ArgumentError(f"{' and '.join(given)} do not go together", self.command)
        complete = [form for form in possible if form.required <= given.keys()]
        # The application says best what is missing.
        return (complete or possible)[0]

    def line(self, arguments, keywords):
        """The command line that stands for a call."""
        given = bind(self.signature, self.command, arguments, keywords)
        form = self.choose_form(given)
        return write_line(self.command, form.index, form.values(given, self.command))

    def is_quiet(self, keywords):
        """Whether a call says enough by what it returns or does. Without a window nothing is printed then."""
        says_by_doing = self.declared["result"]["kind"] != "Nothing" or self.declared["changes_model"]
        return says_by_doing and not keywords.get("verbose")

    def document(self):
        """The text that help() shows."""
        declared = self.declared
        parts = [declared["summary"]]
        parts += [text for text in (declared["notes"], declared["help"]) if text]
        lines = []
        for name in self.signature.parameters:
            slot = self.slots(name)[0]
            lines.append(f"{name}: {slot_text(slot)}")
        if lines:
            parts.append("\n".join(lines))
        if declared["result"]["kind"] != "Nothing":
            parts.append(f"Returns {type_text(declared['result'])}.")
        parts.append(f"Command: {declared['usage']}")
        return "\n\n".join(parts)


def parameter_text(parameter):
    """What a value can be."""
    kind = parameter["kind"]
    if kind in ("Number", "WholeNumber"):
        return parameter["range"] + (f", in {parameter['unit']}" if parameter["unit"] else "")
    if kind == "Choice":
        return " or ".join(f'"{choice}"' for choice in parameter["choices"])
    if kind == "Entity":
        ways = [f"a {parameter['entity']} or its name"] + [f'"{choice}"' for choice in parameter["choices"]]
        return " or ".join(ways)
    texts = {"NewName": "a new name", "Variable": "the name of a variable", "InputFile": "a file to read",
             "OutputFile": "a file to write"}
    return texts.get(kind, "a text")


def slot_text(slot):
    """A line of the documentation of a function."""
    label = slot.clause["label"] or (slot.parameters[0]["label"] if slot.parameters else "")
    tip = slot.clause["tip"] or ("" if slot.several or slot.flag else slot.parameters[0]["tip"])
    if slot.flag:
        values = "True or False"
    elif slot.several:
        names = ", ".join(parameter["name"].lower() for parameter in slot.parameters)
        values = f"({names}), each {parameter_text(slot.parameters[0])}"
    else:
        values = parameter_text(slot.parameters[0]) + ("; any number of them" if slot.many else "")
    text = f"{label} ({values})" if label else values
    return f"{text}. {tip}" if tip else text


def type_text(declared):
    """A declared type in words."""
    kind = declared["kind"]
    if kind == "Entity":
        return f"a {declared['entity']}"
    if kind in ("List", "Map"):
        inner = type_text(declared["of"])
        return f"a list, each {inner}" if kind == "List" else f"a dictionary, each value {inner}"
    if kind == "Record":
        return f"a {declared['entity']}"
    words = {"Number": "a number", "WholeNumber": "a whole number", "Text": "a text", "Array": "an array of NumPy"}
    return words.get(kind, "None")


class Commands:
    """The functions, made when they are asked for, until the commands change."""

    def __init__(self):
        self.seen = None
        self.names = {}
        self.made = {}

    def refresh(self):
        now = generation()
        if now == self.seen:
            return
        names = {}
        for command in command_names():
            names[python_name(command, TAKEN | names.keys())] = command
        self.names, self.made, self.seen = names, {}, now

    def describe(self, command):
        """None if there is no such command any more."""
        self.refresh()
        if command not in self.made:
            declared = declaration(command)
            self.made[command] = CommandDescription(command, declared) if declared else None
        return self.made[command]

    def function(self, name):
        self.refresh()
        command = self.names[name]
        if name not in self.functions():
            self.functions()[name] = make_function(name, command)
        return self.functions()[name]

    def functions(self):
        return self.made.setdefault(None, {})


commands = Commands()


def make_function(name, command):
    def function(*arguments, **keywords):
        described = commands.describe(command)
        # Of a command that is gone the application knows where it could come from.
        line = described.line(arguments, keywords) if described else command
        return call_line(line, f"fennar.{name}()", bool(described) and described.is_quiet(keywords))

    described = commands.describe(command)
    function.__name__ = function.__qualname__ = name
    function.__module__ = "fennar"
    function.__doc__ = described.document()
    function.__signature__ = described.signature
    return function


SWEEPS = ("Row", "Table", "read_records", "sweep")


@functools.cache
def sweep_module():
    """What runs journals in other processes. It is a module of its own since it needs nothing of the application."""
    made = types.ModuleType("fennar.sweep")
    sys.modules[made.__name__] = made
    exec(compile(python_source("sweep.py"), "<fennar.sweep>", "exec"), vars(made))
    return made


def get_attribute(name):
    """What the module has beside its own names."""
    if name in SWEEPS:
        return getattr(sweep_module(), name)
    if not name.startswith("_"):
        commands.refresh()
        if name in commands.names:
            return commands.function(name)
        for kind in entity_kinds():
            if class_name(kind) == name:
                return entity_class(kind)
        declared = record_types().get(name)
        if declared:
            return record_class(declared["entity"], tuple(declared["fields"]))
    near = difflib.get_close_matches(name, list_attributes(), 1) if not name.startswith("_") else []
    remedy = f". Did you mean: '{near[0]}'?" if near else ""
    # The name is told, so that Python itself adds no remedy.
    raise AttributeError(f"module 'fennar' has no attribute '{name}'{remedy}", name=name)


def list_attributes():
    commands.refresh()
    classes = {*map(class_name, entity_kinds()), *record_types()}
    return sorted({*vars(module), *SWEEPS, *commands.names, *classes})


@functools.cache
def stub_maker():
    names = dict(globals())
    exec(compile(python_source("stubs.py"), __file__, "exec"), names)
    return names["stubs"]


def stubs():
    """The text of fennar.pyi: the types of all that the module has now."""
    return stub_maker()()


exec(compile(python_source("view.py"), __file__, "exec"))

module.ArgumentError = ArgumentError
module.Entity = Entity
module.Picture = Picture
module.view = view
TAKEN = frozenset(vars(module)) | frozenset(SWEEPS)
module._stubs = stubs
module.__getattr__ = get_attribute
module.__dir__ = list_attributes
