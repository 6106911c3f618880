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

class Face(_NamedTuple):
    """A face."""
    number: int
    area: float
    center: _builtins.list[float]

class Mesh(Entity):
    @property
    def size(self) -> float:
        """The length of the elements that was asked for; 0 if it was imported (mm)"""
    @property
    def solids(self) -> _builtins.list[str]:
        """The names of the solids when they were meshed"""
    @property
    def node_count(self) -> int:
        """How many nodes it has"""
    @property
    def counts(self) -> _builtins.dict[str, int]:
        """How many nodes and elements of each kind it has"""
    @property
    def nodes(self) -> _Array[_numpy.float64]:
        """Its nodes, a row with x, y and z for each; an array that cannot be written to (mm)"""
    @property
    def elements(self) -> _builtins.dict[str, _Array[_numpy.int64]]:
        """Its elements by their kinds, a row for each with the rows of its nodes, from 0; arrays that cannot be written to"""
    def quality(self, measure: _Literal['ICN', 'IGE']) -> _builtins.dict[str, float]:
        """A measure of its volume elements: min, mean and max"""

class Solid(Entity):
    @property
    def id(self) -> int:
        """Its number, which is never used again"""
    @property
    def volume(self) -> float:
        """Its volume (mm³)"""
    @property
    def area(self) -> float:
        """The area of its surface (mm²)"""
    @property
    def center(self) -> _builtins.list[float]:
        """Its center of mass, as x, y and z (mm)"""
    @property
    def bounding_box(self) -> _builtins.list[_builtins.list[float]]:
        """The least and the greatest corner of the box around it (mm)"""
    @property
    def faces(self) -> _builtins.list[Face]:
        """Its faces, with number (from 1), area (mm²) and center (mm) of each"""
    @property
    def pieces(self) -> int:
        """How many volumes that do not hang together it consists of"""

def brick(width: float, depth: float | None = None, height: float | None = None, *, at: _Iterable[float] | None = (0, 0, 0), name: str | None = None) -> Solid:
    """Makes a brick, or a cube.

    It changes the model.

    The solid lies around its center, which is the origin unless "at" tells another. Without a
    name it is named after its kind and id.

    width: Width (a number from 1e-05 to 1e+06, in mm)
    depth: Depth (a number from 1e-05 to 1e+06, in mm). Without depth and height it is a cube.
    height: Height (a number from 1e-05 to 1e+06, in mm). Without depth and height it is a cube.
    at: Center ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: brick WIDTH [DEPTH HEIGHT] [at X Y Z] [name NAME]
    """

def check(file: str | _os.PathLike[str]) -> None:
    """Looks for errors in a journal without running it.

    Found are commands that do not exist, words that do not fit them, and names that nothing has, be it
    now or by a line ahead. Behind a line that may give names which it does not tell, as an import
    does, names are not looked up.

    file: Journal (a file to read)

    Command: check FILE
    """

def components() -> None:
    """Lists the components.

    Each with its state, version and file; below it, why it is not loaded, and what it would bring.
        loaded    it works
        unloaded  it has been found since the start
        off       unloaded by the user; it stays so at the next start
        refused   it could not be loaded
        left out  the program ended while it was being loaded

    Command: components
    """

def cone(radius: float, height: float, top_radius: float | None = None, *, at: _Iterable[float] | None = (0, 0, 0), along: _Iterable[float] | None = (0, 0, 1), name: str | None = None) -> Solid:
    """Makes a cone, or a part of one.

    It changes the model.

    The solid lies around its center, which is the origin unless "at" tells another. Its axis is
    the z axis unless "along" tells another direction. Without a name it is named after its kind
    and id.

    radius: Radius (a number from 1e-05 to 1e+06, in mm)
    height: Height (a number from 1e-05 to 1e+06, in mm)
    top_radius: Radius of the top (a number from 1e-05 to 1e+06, in mm). Without it the cone ends in a point.
    at: Center ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    along: Axis ((x, y, z), each a number from -1e+07 to 1e+07). The direction; its length does not matter.
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: cone RADIUS HEIGHT [TOP_RADIUS] [at X Y Z] [along X Y Z] [name NAME]
    """

def copy(solid: Solid | str | int, *, by: _Iterable[float] | None = (0, 0, 0), name: str | None = None) -> Solid:
    """Copies a solid.

    It changes the model.

    solid: Solid (a solid or its name)
    by: Offset ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: copy SOLID [by X Y Z] [name NAME]
    """

def cylinder(radius: float, height: float, *, at: _Iterable[float] | None = (0, 0, 0), along: _Iterable[float] | None = (0, 0, 1), name: str | None = None) -> Solid:
    """Makes a cylinder.

    It changes the model.

    The solid lies around its center, which is the origin unless "at" tells another. Its axis is
    the z axis unless "along" tells another direction. Without a name it is named after its kind
    and id.

    radius: Radius (a number from 1e-05 to 1e+06, in mm)
    height: Height (a number from 1e-05 to 1e+06, in mm)
    at: Center ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    along: Axis ((x, y, z), each a number from -1e+07 to 1e+07). The direction; its length does not matter.
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: cylinder RADIUS HEIGHT [at X Y Z] [along X Y Z] [name NAME]
    """

def delete(*solid: Solid | str | int | _Iterable[Solid | str | int]) -> None:
    """Deletes solids.

    It changes the model.

    "all" stands for all solids.

    solid: Solids (a solid or its name or "all"; any number of them)

    Command: delete SOLID...
    """

def demo(number: int | None = None) -> None:
    """Counts.

    NUMBER is a whole number from 1 to 100. Without it the number of the options page
    "Plugins", "Demo" holds.

    number: Number (a whole number from 1 to 100)

    Command: demo [NUMBER]
    """

def display(what: _Literal['shaded', 'wireframe', 'mesh', 'opengl'] | None = None, state: _Literal['on', 'off'] | None = None) -> None:
    """Tells or sets what the graphics view shows.

    shaded     surfaces; without them all edges are seen, and some lines on what is curved
    wireframe  edges
    mesh       the mesh in place of the surfaces, where there is one
    opengl     draw by OpenGL, where there is one; the pictures are the same

    what: What ("shaded" or "wireframe" or "mesh" or "opengl")
    state: State ("on" or "off")

    Command: display [shaded|wireframe|mesh|opengl on|off]
    """

def echo(*word: str | float | Entity | _Iterable[str | float | Entity]) -> None:
    """Prints its words.

    The words are printed with one blank in between; "echo 'a  b'" keeps the blanks in quotes.

    word: Words (a text; any number of them). Quotes keep blanks; $NAME is a variable.

    Command: echo [WORD...]
    """

def edit(file: str | _os.PathLike[str] | None = None, *, line: int | None = None) -> None:
    """Opens a journal or a Python script in the journal editor.

    A line that is too long for the console is folded there, and has a number in its mark.
    The newest ten are kept.

    file: Journal (a file to read)
    line: Line number (a whole number from 1 on)

    Command: edit FILE | edit line NUMBER
    """

def export(file: str | _os.PathLike[str], *solid: Solid | str | int | _Iterable[Solid | str | int], as_: Entity | str | None = None, size: float | None = None, mesh: bool = False) -> None:
    """Writes solids or the mesh to a file.

    It may take long, and can be cancelled.

    The ending of FILE tells the format unless "as" does. STEP and BREP files hold solids, all of
    them if none is named. MSH and VTK files hold the last mesh. STL files, and those of formats that
    other components bring, hold the surface of solids, in triangles of SIZE at most, or with "mesh"
    that of the last mesh. A file that exists is replaced.

    file: File (a file to write)
    solid: Solids (a solid or its name or "all"; any number of them)
    as_: Format (a export format or its name). Needed only where the ending of the file does not tell it.
    size: Size of the triangles (a number from 1e-05 to 1e+06, in mm)
    mesh: True or False

    Command: export FILE [as FORMAT] [SOLID...] [size SIZE] | export FILE [as FORMAT] mesh
    """

def fit() -> None:
    """Shows all solids, from the same side.

    Command: fit
    """

def form(command: Entity | str) -> None:
    """Shows a command in the command panel.

    command: Command (a command or its name)

    Command: form COMMAND
    """

def help(command: Entity | str | None = None) -> None:
    """Lists all commands, or explains one.

    command: Command (a command or its name)

    Command: help [COMMAND]
    """

def hide(window: _Literal['editor', 'options', 'plugins', 'about']) -> None:
    """Closes a window other than the main window.

    The names are those of "show". What is not saved in the options is dropped.

    window: Window ("editor" or "options" or "plugins" or "about")

    Command: hide editor|options|plugins|about
    """

def history(count: int | None = None, *, steps: bool = False) -> None:
    """Lists the lines typed so far, or the steps that can be undone and redone.

    With COUNT, the last lines of that number. The oldest is the first. Steps that take more memory than the
    options allow are forgotten.

    count: Lines (a whole number from 1 on)
    steps: Steps of the model (True or False)

    Command: history [COUNT] | history steps
    """

def import_(file: str | _os.PathLike[str], *, as_: Entity | str | None = None) -> _builtins.list[Solid]:
    """Reads solids or a mesh from a file.

    It changes the model. It may take long, and can be cancelled.

    The ending of FILE tells the format unless "as" does. STEP, IGES and BREP files add their
    solids, named after the file. STL, MSH and VTK files, and those of formats that other components
    bring, hold a mesh, which takes the place of the last one. Lengths become millimeters.

    file: File (a file to read)
    as_: Format (a import format or its name). Needed only where the ending of the file does not tell it.

    Returns a list, each a solid.

    Command: import FILE [as FORMAT]
    """

def intersect(*solid: Solid | str | int | _Iterable[Solid | str | int]) -> Solid:
    """Keeps what several solids have in common.

    It changes the model. It may take long, and can be cancelled.

    The result has the name and id of the first solid; the others are gone. It may have several pieces.

    solid: Solids (a solid or its name or "all"; any number of them)

    Returns a solid.

    Command: intersect SOLID SOLID...
    """

def list(*solid: Solid | str | int | _Iterable[Solid | str | int]) -> _builtins.list[Solid]:
    """Lists solids with their measures.

    Solids can be named by name or by id. The box around a solid is exact to six digits.

    solid: Solids (a solid or its name or "all"; any number of them)

    Returns a list, each a solid.

    Command: list [SOLID...]
    """

def load(*, name: Entity | str | None = None, file: str | _os.PathLike[str] | None = None) -> None:
    """Loads a component, now and at each start.

    NAME is looked up in the component path. FILE has a "/" or ends in .so; a file outside the
    component path is not found again at the next start. Components that it needs are loaded first.

    name: Component (a unloaded component or its name)
    file: Component (a file to read)

    Command: load NAME | load FILE
    """

def mesh(*solid: Solid | str | int | _Iterable[Solid | str | int], size: float, algorithm: _Literal['delaunay', 'hxt'] | None = 'delaunay', threads: int | None = 1, verbose: bool = False) -> Mesh:
    """Fills solids with tetrahedra.

    It changes the model. It may take long, and can be cancelled.

    Without solids all of them are meshed. SIZE is the length of the elements. The mesh takes the place of
    the last one. "hxt" is a quick algorithm that works in several threads, "delaunay" the usual one;
    with more than one thread a mesh may differ a little from time to time. "verbose" shows all that
    the mesher has to say.

    solid: Solids (a solid or its name or "all"; any number of them)
    size: Size of the elements (a number from 1e-05 to 1e+06, in mm)
    algorithm: Algorithm ("delaunay" or "hxt")
    threads: Threads (a whole number from 1 to 256)
    verbose: Show all messages of the mesher (True or False)

    Returns a mesh.

    Command: mesh [SOLID...] size SIZE [algorithm delaunay|hxt] [threads COUNT] [verbose]
    """

def move(*solid: Solid | str | int | _Iterable[Solid | str | int], by: _Iterable[float]) -> None:
    """Moves solids.

    It changes the model.

    "all" stands for all solids.

    solid: Solids (a solid or its name or "all"; any number of them)
    by: Offset ((x, y, z), each a number from -1e+07 to 1e+07, in mm)

    Command: move SOLID... by X Y Z
    """

def new(*, discard: bool = False) -> None:
    """Starts an empty model.

    It changes the model.

    As "New" in the file menu: with a window the question about unsaved changes comes first, unless
    "discard" drops them, and the console is emptied.

    discard: Drop unsaved changes (True or False)

    Command: new [discard]
    """

def open(file: str | _os.PathLike[str]) -> None:
    """Opens a model that was saved.

    It changes the model.

    It takes the place of the present model. With a window the question about unsaved changes comes
    first. Quote a name with blanks. A relative name is looked up in the current directory.

    file: Model (a file to read)

    Command: open FILE
    """

def parameter(name: str, type: _Literal['number'] | _Literal['whole'] | _Literal['text'] | _Literal['choice'], default: float | int | str, *, min: float | int | None = None, max: float | int | None = None, unit: str | None = None, about: str | None = None, of: str | None = None) -> None:
    """Declares a variable that whoever plays the journal may set.

    Declarations stand at the beginning of a journal, ahead of all other commands. $NAME is DEFAULT
    unless another value was given, as by "play FILE with NAME=VALUE" or "fennar --set NAME=VALUE".

    name: Parameter (the name of a variable)
    type: Type ("number")
    default: Default (a number)
    min: Minimum (a number)
    max: Maximum (a number)
    unit: Unit (a text)
    about: Description (a text)
    of: Choices (a text). Parted by blanks

    Command: parameter NAME number DEFAULT [min LEAST] [max MOST] [unit UNIT] [about TEXT] | parameter NAME whole DEFAULT [min LEAST] [max MOST] [unit UNIT] [about TEXT] | parameter NAME text DEFAULT [about TEXT] | parameter NAME choice DEFAULT of CHOICES [about TEXT]
    """

def picture(file: str | _os.PathLike[str], *, of: _Literal['main', 'editor', 'options', 'plugins', 'about', 'active'] | None = 'main', after: float | None = None) -> None:
    """Writes a picture of a window.

    The ending of FILE selects the format, as .png or .jpg. Without "of" it is the main window;
    the other names are those of "show", and "active" is the window that has the keyboard.
    The command waits until shapes that are still being made are in sight.
    With "after" it does not wait: the picture is taken so many seconds later, even if
    another command is running or a dialog is open then.

    file: Picture (a file to write)
    of: Window ("main" or "editor" or "options" or "plugins" or "about" or "active")
    after: Delay (a number from 0 to 3600, in s)

    Command: picture FILE [of main|editor|options|plugins|about|active] [after SECONDS]
    """

def play(file: str | _os.PathLike[str], line: int | None = 1, *, with_: str | _Iterable[str] | None = None) -> None:
    """Plays a journal or a Python script.

    It may take long, and can be cancelled.

    A relative name is looked up in the current directory. The first error ends the playback.
    With LINE, a journal is played from that line on. With SETTING, as size=2, a parameter that it
    declares has that value and not its default.
    Files named *.py, and files whose first line is #!python, are run as Python.

    file: Journal or script (a file to read)
    line: From line (a whole number from 1 on)
    with_: Parameters (a text; any number of them). As size=2, parted by blanks

    Command: play FILE [LINE] [with SETTING...]
    """

def python(*statement: str | _Iterable[str]) -> None:
    """Runs a Python statement.

    It may take long, and can be cancelled.

    The words are joined with blanks. Quote the statement if it has quotes of its own, as
        python 'print("done")'

    statement: Statement (a text; any number of them)

    Command: python STATEMENT...
    """

def quality(measure: _Literal['ICN', 'IGE'] | None = None) -> _builtins.dict[str, _builtins.dict[str, float]]:
    """Measures the volume elements of the mesh.

    It may take long, and can be cancelled.

    ICN is the inverse condition number, IGE the inverse gradient error. 1 is the best value, and elements
    of 0 or less are useless.

    measure: Measure ("ICN" or "IGE")

    Returns a dictionary, each value a dictionary, each value a number.

    Command: quality [ICN|IGE]
    """

def quit() -> None:
    """Ends the application.

    A journal in play is stopped.

    Command: quit
    """

def recover() -> None:
    """Offers the unsaved work that was kept for later.

    It changes the model.

    These are the journals and the model that were unsaved when a run of the program ended
    unexpectedly.

    Command: recover
    """

def redo(*, step: bool = False) -> None:
    """Makes again what was undone last.

    It changes the model.

    A journal is made again as a whole; with "step", its next command alone. The first change after an undo
    ends it.

    step: One step of a journal (True or False)

    Command: redo [step]
    """

def rename(solid: Solid | str | int, name: str) -> None:
    """Gives a solid another name.

    It changes the model.

    solid: Solid (a solid or its name)
    name: New name (a new name)

    Command: rename SOLID NAME
    """

def rotate(*solid: Solid | str | int | _Iterable[Solid | str | int], by: float, about: _Iterable[float] | None = (0, 0, 0), along: _Iterable[float] | None = (0, 0, 1)) -> None:
    """Turns solids.

    It changes the model.

    The axis goes through the origin unless "about" tells another point, in the direction of the z axis
    unless "along" tells another. "all" stands for all solids.

    solid: Solids (a solid or its name or "all"; any number of them)
    by: Angle (a number, in °)
    about: Point on the axis ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    along: Axis ((x, y, z), each a number from -1e+07 to 1e+07). The direction; its length does not matter.

    Command: rotate SOLID... by DEGREES [about X Y Z] [along X Y Z]
    """

def save(file: str | _os.PathLike[str] | None = None) -> None:
    """Saves the model.

    Without FILE in the file that it was opened from or saved in last. A file that is there already
    is replaced. The name is taken as it is, without an ending of its own.

    file: Model (a file to write)

    Command: save [FILE]
    """

def scheme(scheme: _Literal['system', 'light', 'dark'] | None = None, time: _Literal['once'] | None = None) -> None:
    """Tells or sets the colors of the windows.

    system  those of the desktop
    light   dark text on a light ground
    dark    light text on a dark ground
    The choice is kept for the next start, unless "once" stands behind it.

    scheme: Colors ("system" or "light" or "dark")
    time: For how long ("once")

    Command: scheme [system|light|dark [once]]
    """

def select(*name: Entity | str | _Iterable[Entity | str]) -> None:
    """Selects what is named, and nothing else.

    "all" stands for all items, "none" for none. Without an argument it tells what is selected. A click in the graphics view or in the model tree does the same.

    name: Items (a item or its name or "all" or "none"; any number of them)

    Command: select [NAME...]
    """

def set(name: str | None = None, *value: str | float | Entity | _Iterable[str | float | Entity]) -> None:
    """Sets a variable, shows one, or lists all.

    $NAME and ${NAME} stand for the value in later commands, except in single quotes.
    Several values are joined with one blank in between.

    name: Variable (the name of a variable)
    value: Value (a text; any number of them). Quotes keep blanks; $NAME is a variable.

    Command: set [NAME [VALUE...]]
    """

def show(window: _Literal['main', 'editor', 'options', 'plugins', 'about'] | None = None, *, options: Entity | str | int | None = None) -> None:
    """Shows a window, or a page of the options.

    main     the main window
    editor   the journal editor
    options  the options; PAGE is a name from their list, or its number in the list
    plugins  the plugin tool
    about    the version of the program

    window: Window ("main" or "editor" or "options" or "plugins" or "about")
    options: Page (a options page or its name)

    Command: show main|editor|options|plugins|about | show options PAGE
    """

def sphere(radius: float, *, at: _Iterable[float] | None = (0, 0, 0), name: str | None = None) -> Solid:
    """Makes a sphere.

    It changes the model.

    The solid lies around its center, which is the origin unless "at" tells another. Without a
    name it is named after its kind and id.

    radius: Radius (a number from 1e-05 to 1e+06, in mm)
    at: Center ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: sphere RADIUS [at X Y Z] [name NAME]
    """

def statistics() -> _builtins.dict[str, int]:
    """Counts the nodes and elements of the mesh.

    Returns a dictionary, each value a whole number.

    Command: statistics
    """

def subtract(*tool: Solid | str | int | _Iterable[Solid | str | int], from_: Solid | str | int) -> Solid:
    """Takes the tools away from a solid.

    It changes the model. It may take long, and can be cancelled.

    The tools are gone then. The solid may fall into several pieces, which stay one solid.

    tool: Tools (a solid or its name; any number of them)
    from_: Solid (a solid or its name)

    Returns a solid.

    Command: subtract TOOL... from SOLID
    """

def torus(radius: float, tube_radius: float, *, at: _Iterable[float] | None = (0, 0, 0), along: _Iterable[float] | None = (0, 0, 1), name: str | None = None) -> Solid:
    """Makes a torus.

    It changes the model.

    The solid lies around its center, which is the origin unless "at" tells another. Its axis is
    the z axis unless "along" tells another direction. Without a name it is named after its kind
    and id.

    radius: Radius (a number from 1e-05 to 1e+06, in mm)
    tube_radius: Radius of the tube (a number from 1e-05 to 1e+06, in mm)
    at: Center ((x, y, z), each a number from -1e+07 to 1e+07, in mm)
    along: Axis ((x, y, z), each a number from -1e+07 to 1e+07). The direction; its length does not matter.
    name: Name (a new name). Without one the solid is named after its kind and number.

    Returns a solid.

    Command: torus RADIUS TUBE_RADIUS [at X Y Z] [along X Y Z] [name NAME]
    """

def undo(*, step: bool = False) -> None:
    """Takes back the last command that has changed the model.

    It changes the model.

    A journal that was played is taken back as a whole; with "step", its last command alone. What starts
    another model, as "new" and "open" do, cannot be taken back.

    step: One step of a journal (True or False)

    Command: undo [step]
    """

def unite(*solid: Solid | str | int | _Iterable[Solid | str | int]) -> Solid:
    """Makes one solid of several.

    It changes the model. It may take long, and can be cancelled.

    The result has the name and id of the first solid; the others are gone. It may have several pieces.

    solid: Solids (a solid or its name or "all"; any number of them)

    Returns a solid.

    Command: unite SOLID SOLID...
    """

def unload(name: Entity | str) -> None:
    """Unloads a component, now and at each start.

    "load NAME" turns it on again. In a run without a window neither is remembered. A component
    that others need stays until they are unloaded.

    name: Component (a loaded component or its name)

    Command: unload NAME
    """

def view_(side: _Literal['front', 'back', 'left', 'right', 'top', 'bottom', 'iso']) -> None:
    """Looks at the solids from that side, and shows all of them.

    Front looks along y, right against x, top against z; iso looks from the right, front and above.

    side: Side ("front" or "back" or "left" or "right" or "top" or "bottom" or "iso")

    Command: view front|back|left|right|top|bottom|iso
    """
