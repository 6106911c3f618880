# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The types of the module fennar as a stub file, made from the declarations. Runs with the names of commands.py."""

HEAD = '''\
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The commands of the workbench with all its components, as functions of Python.

This file is made from the declarations of the commands. After a change of commands write it anew:

    build/release/bin/command_reference workbench/host/fennar_python/commands/fennar.pyi
"""

import builtins as _builtins
import os as _os
from collections.abc import Iterable as _Iterable
from collections.abc import Sequence as _Sequence
from typing import Any as _Any
from typing import Literal as _Literal
from typing import NamedTuple as _NamedTuple
from typing import overload as _overload

import numpy as _numpy
from numpy.typing import NDArray as _Array

__version__: str

class CommandError(Exception):
    """A command of the application failed."""
    message: str
    command: str
    column: int
    remedy: str
    def __init__(self, message: str, command: str = "", column: int = 0, remedy: str = "") -> None: ...

class ArgumentError(CommandError, TypeError):
    """An argument that the function of a command cannot take. Nothing was run."""

class Entity:
    """Something in the application that commands work on."""
    kind: str
    @property
    def name(self) -> str: ...

class Picture:
    """A picture, which a notebook shows."""
    png: bytes
    size: tuple[int, int]
    def __init__(self, png: bytes, size: tuple[int, int]) -> None: ...
    def save(self, path: str | _os.PathLike[str]) -> None: ...
    def _repr_png_(self) -> bytes: ...

class PyAction:
    """An entry for add_to_menu(). Raises RuntimeError while there is no main window."""
    def setText(self, text: str) -> None: ...
    def setMenuText(self, text: str) -> None: ...
    def setToolTip(self, text: str) -> None: ...
    def setStatusTip(self, text: str) -> None: ...
    def setWhatsThis(self, text: str) -> None: ...
    def getText(self) -> str: ...
    def getMenuText(self) -> str: ...
    def getToolTip(self) -> str: ...
    def getStatusTip(self) -> str: ...
    def getWhatsThis(self) -> str: ...
    def setToggleAction(self, on: bool) -> None: ...
    def setOn(self, on: bool) -> None: ...
    def setEnabled(self, on: bool) -> None: ...
    def setVisible(self, on: bool) -> None: ...
    def hasToggleAction(self) -> bool: ...
    def isOn(self) -> bool: ...
    def isEnabled(self) -> bool: ...
    def isVisible(self) -> bool: ...
    def setActivateMethod(self, method: str) -> None: ...
    def setToggleMethod(self, method: str) -> None: ...

class Row:
    """One case of a sweep."""
    parameters: _builtins.dict[str, int | float | str]
    status: str
    results: _builtins.dict[str, _Any]
    seconds: float
    message: str | None
    file: str | None
    line: int | None
    text: str | None
    attempts: int
    record: _builtins.dict[str, _Any]

class Table(_Sequence[Row]):
    """The rows of a sweep, in the order of its cases."""
    def __len__(self) -> int: ...
    @_overload
    def __getitem__(self, index: int) -> Row: ...
    @_overload
    def __getitem__(self, index: slice) -> Table: ...
    @property
    def failed(self) -> Table: ...
    def records(self) -> _builtins.list[_builtins.dict[str, _Any]]: ...
    def to_pandas(self) -> _Any: ...

def read_records(paths: str | _os.PathLike[str] | _Iterable[str | _os.PathLike[str]]) -> Table:
    """The table of runs that "fennar --batch --json FILE" has recorded in these files, in their order."""

def sweep(journal: str | _os.PathLike[str], /, *, client: _Any = None, workers: int | None = None, folder: str | _os.PathLike[str] | None = None, files: str | _os.PathLike[str] | _Iterable[str | _os.PathLike[str]] = (), program: str | _os.PathLike[str] | None = None, retries: int = 1, **parameters: _Any) -> Table:
    """Plays a journal for all combinations of values of its parameters, each in a process of its own."""

def cmd(text: str) -> None:
    """Runs a command line as though it had been typed, and returns when it is done."""

def view(
    shown: Solid | Mesh | str | _Iterable[Solid | str] | None = None, size: _Iterable[int] = (640, 480)
) -> Picture:
    """Draws a picture of solids or of the mesh, or of all there is."""

def is_loaded() -> bool:
    """Whether there is a main window."""

def add_to_menu(menu: str, actions: _Iterable[PyAction], component: str) -> None:
    """Adds the actions, in order, to the menu with that title."""

def remove_menu_items(component: str) -> None:
    """Removes what was added under that name."""
'''


def class_of(kind):
    """The class of entities of a kind as an annotation."""
    return class_name(kind) if kind in entity_kinds() else "Entity"


def parameter_type(parameter):
    """The type of one value."""
    kind = parameter["kind"]
    if kind == "Choice":
        return f"_Literal[{', '.join(repr(choice) for choice in parameter['choices'])}]"
    if kind == "Entity":
        return f"{class_of(parameter['entity'])} | str" + (" | int" if parameter["by_number"] else "")
    types = {"Number": "float", "WholeNumber": "int", "InputFile": "str | _os.PathLike[str]",
             "OutputFile": "str | _os.PathLike[str]", "Words": "str | float | Entity"}
    return types.get(kind, "str")


def slot_type(slot):
    """The type of an argument, which may be left out or not."""
    if slot.flag:
        return "bool"
    kinds = " | ".join(dict.fromkeys(parameter_type(parameter) for parameter in slot.parameters))
    if slot.several:
        return f"_Iterable[{kinds}]"
    return f"{kinds} | _Iterable[{kinds}]" if slot.many else kinds


def value_type(declared):
    """The type of what a command returns or a property is."""
    kind = declared["kind"]
    if kind == "Entity":
        return class_of(declared["entity"])
    if kind == "List":
        return f"_builtins.list[{value_type(declared['of'])}]"
    if kind == "Map":
        return f"_builtins.dict[str, {value_type(declared['of'])}]"
    if kind == "Record":
        return class_name(declared["entity"])
    if kind == "Array":
        return f"_Array[_numpy.{'float64' if declared['of']['kind'] == 'Number' else 'int64'}]"
    return {"Number": "float", "WholeNumber": "int", "Text": "str"}.get(kind, "None")


def record_lines(name, declared):
    lines = [f"class {name}(_NamedTuple):", f'    """A {declared["entity"]}."""']
    return lines + [f"    {field}: {value_type(inner)}" for field, inner in declared["fields"].items()]


def text_lines(text, indent):
    """A documentation of one or more lines."""
    text = text.replace("\\", "\\\\").replace('"""', '\\"\\"\\"')
    lines = text.splitlines()
    if len(lines) == 1 and not text.endswith('"'):
        return [f'{indent}"""{text}"""']
    return [f'{indent}"""{lines[0]}', *(f"{indent}{line}" if line else "" for line in lines[1:]), f'{indent}"""']


def function_lines(name, described):
    parameters, star = [], False
    for parameter in described.signature.parameters.values():
        kinds = dict.fromkeys(slot_type(slot) for slot in described.slots(parameter.name))
        annotation = " | ".join(kinds)
        if parameter.kind is Parameter.VAR_POSITIONAL:
            parameters.append(f"*{parameter.name}: {annotation}")
            star = True
            continue
        if parameter.kind is Parameter.KEYWORD_ONLY and not star:
            parameters.append("*")
            star = True
        if parameter.default is Parameter.empty:
            parameters.append(f"{parameter.name}: {annotation}")
        else:
            absent = "" if annotation == "bool" else " | None"
            parameters.append(f"{parameter.name}: {annotation}{absent} = {parameter.default!r}")
    result = value_type(described.declared["result"])
    return [f"def {name}({', '.join(parameters)}) -> {result}:", *text_lines(described.document(), "    ")]


def class_lines(kind):
    lines = [f"class {class_name(kind)}(Entity):"]
    for declared in entity_properties(kind):
        result = value_type(declared["type"])
        if declared["parameters"]:
            parameters = [f"{parameter['name'].lower()}: {parameter_type(parameter)}"
                          for parameter in declared["parameters"]]
            lines.append(f"    def {declared['name']}(self, {', '.join(parameters)}) -> {result}:")
        else:
            lines += ["    @property", f"    def {declared['name']}(self) -> {result}:"]
        lines += text_lines(property_text(declared), "        ")
    return lines


def stubs():
    commands.refresh()
    lines = []
    for name, declared in sorted(record_types().items()):
        lines += ["", *record_lines(name, declared)]
    for kind in entity_kinds():
        lines += ["", *class_lines(kind)]
    for name, command in sorted(commands.names.items()):
        lines += ["", *function_lines(name, commands.describe(command))]
    return HEAD + "\n".join(lines) + "\n"
