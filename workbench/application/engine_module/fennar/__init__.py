# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The workbench as a module: every command is a function, and needs no window and no display.

    import fennar
    part = fennar.brick(10, 20, 5, name="base")
    print(part.volume)

Each process has one engine with one model. It starts when a function is first asked for, on the main thread, which alone
may use it, and ends with the process. help(fennar.brick) tells of a command, dir(fennar) lists all of them.
"""

import os as _os
import sys as _sys
import threading as _threading

from fennar import _build
from fennar.sweep import Row, Table, read_records, sweep


def _load_engine():
    """The shared object, if it is there, of this version and with its program."""
    folder = _os.path.dirname(_os.path.abspath(__file__))
    try:
        from fennar import _engine
    except ImportError as error:
        python = f"{_sys.version_info.major}.{_sys.version_info.minor}"
        raise ImportError(
            f"fennar: the native library of the module cannot be loaded from {folder} by Python {python}: {error}",
            name="fennar._engine", path=folder) from error
    if _engine.version != _build.VERSION:
        raise ImportError(
            f"fennar: the module has version {_build.VERSION}, its engine {_engine.version}; install both in one version",
            name="fennar._engine", path=_engine.__file__)
    program = _os.path.normpath(_os.path.join(folder, _build.PROGRAM))
    if not _os.path.isdir(program):
        raise ImportError(f"fennar: the program's folder {program} is missing", name="fennar", path=folder)
    return _engine, program


_engine, _program = _load_engine()
__version__ = _build.VERSION


def _start():
    """Starts the engine, which gives the module its functions, and others in the place of these two here."""
    if _threading.current_thread() is not _threading.main_thread():
        raise RuntimeError("fennar can only be used in the main thread")
    _engine.start(_program)
    _engine.module = _sys.modules[__name__]
    return _engine.module


if _engine.has_started():  # the module is loaded once more: the one before has the functions
    _sys.modules[__name__] = _engine.module
else:

    def __getattr__(name):
        if name.startswith("_"):
            raise AttributeError(f"module 'fennar' has no attribute '{name}'", name=name)
        return getattr(_start(), name)

    def __dir__():
        return dir(_start())
