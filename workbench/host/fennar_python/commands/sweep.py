# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Runs a journal for all combinations of values of its parameters, each in a process of its own.

It needs Python 3.11 and the program fennar, not the module of that name: each case is a batch run of the program, which
leaves a record in JSON. With a client of Dask the cases run on its workers, without one on this machine.
"""

from __future__ import annotations

import dataclasses
import importlib
import itertools
import json
import math
import numbers
import operator
import os
import re
import sys
from collections.abc import Callable, Iterable, Iterator, Mapping, Sequence
from typing import TYPE_CHECKING, Any, overload

# What takes long to load is imported where it is used: the module fennar loads this file, and few of its users sweep.
if TYPE_CHECKING:
    import concurrent.futures
    import pathlib
    import queue
    import subprocess

__all__ = ["Row", "Table", "read_records", "sweep"]

Value = int | float | str
Record = dict[str, Any]

# What is final: such a case is not run again when the sweep goes on.
ENDED = ("done", "failed", "refused")
PROMPT = "Fennar>"
# In seconds.
LONGEST_WAIT = 0.05


# --- The table ---------------------------------------------------------------------------------------------------


@dataclasses.dataclass(frozen=True)
class Row:
    """One case of a sweep."""

    parameters: dict[str, Value]
    """All parameters that the journal declares, with their values; those that were given, if it did not begin."""
    status: str
    """"done", "failed", "refused" (a value was wrong), "cancelled", or "crashed" (the program or its machine died)."""
    results: dict[str, Any]
    """What the commands returned that return something, by their names; of several calls of a command the last."""
    seconds: float
    """How long the journal took; 0 if it crashed."""
    message: str | None
    """Why the case failed."""
    file: str | None
    """The journal with the line that failed."""
    line: int | None
    """The number of that line."""
    text: str | None
    """What stands in that line."""
    attempts: int
    """How often the case was run: more than once if a run died."""
    record: Record = dataclasses.field(repr=False, compare=False)
    """All that the program has told of the run, see docs/batch.md."""


class Table(Sequence[Row]):
    """The rows of a sweep, in the order of its cases."""

    def __init__(self, rows: Iterable[Row]) -> None:
        self._rows = tuple(rows)

    def __len__(self) -> int:
        return len(self._rows)

    @overload
    def __getitem__(self, index: int) -> Row: ...
    @overload
    def __getitem__(self, index: slice) -> Table: ...
    def __getitem__(self, index: int | slice) -> Row | Table:
        return Table(self._rows[index]) if isinstance(index, slice) else self._rows[index]

    @property
    def failed(self) -> Table:
        """The rows of the cases that did not come to their end."""
        return Table(row for row in self if row.status != "done")

    def records(self) -> list[dict[str, Any]]:
        """A dictionary for each row with plain values: parameters, status, results as "quality.ICN.min", and the failure."""
        return [
            {
                **row.parameters,
                "status": row.status,
                "seconds": row.seconds,
                **flat(row.results),
                "failure.message": row.message,
                "failure.file": row.file,
                "failure.line": row.line,
                "failure.text": row.text,
            }
            for row in self
        ]

    def to_pandas(self) -> Any:
        """records() as a DataFrame. ImportError if there is no pandas."""
        pandas: Any = importlib.import_module("pandas")
        return pandas.DataFrame(self.records())

    def __repr__(self) -> str:
        lines = [f"{len(self)} case{'' if len(self) == 1 else 's'}, {len(self.failed)} not done"]
        for row in self:
            values = " ".join(f"{name}={value}" for name, value in row.parameters.items())
            place = f" at {row.file}:{row.line}: {row.text}" if row.line else ""
            lines.append(f"{values}: {row.status}" + (f"{place}: {row.message}" if row.message else ""))
        return "\n".join(lines)


def flat(values: Any, name: str = "") -> dict[str, Any]:
    """Nested dictionaries as one, and lists of them by number."""
    items: Iterable[tuple[Any, Any]] = ()
    if isinstance(values, dict):
        items = values.items()
    elif isinstance(values, list) and any(isinstance(one, dict) for one in values):
        items = enumerate(values)
    else:
        return {name: values}
    result = {}
    for key, value in items:
        result.update(flat(value, f"{name}.{key}" if name else str(key)))
    return result


def row_of(record: Record) -> Row:
    failure = record.get("failure") or {}
    results = {
        command["command"]: command["result"]
        for command in record.get("commands", ())
        if command.get("result") is not None
    }
    status = "crashed" if record["status"] == "running" else record["status"]
    return Row(
        parameters=record["parameters"],
        status=status,
        results=results,
        seconds=0 if status == "crashed" else record["seconds"],
        message=failure.get("message"),
        file=failure.get("file"),
        line=failure.get("line"),
        text=failure.get("text"),
        attempts=record.get("attempts", 1),
        record=record,
    )


Path = str | os.PathLike[str]


def paths_of(paths: Path | Iterable[Path]) -> list[Path]:
    return [paths] if isinstance(paths, (str, os.PathLike)) else list(paths)


def read_records(paths: Path | Iterable[Path]) -> Table:
    """The table of runs that "fennar --batch --json FILE" has recorded in these files, in their order."""
    import pathlib

    return Table(row_of(json.loads(pathlib.Path(path).read_text(encoding="utf-8"))) for path in paths_of(paths))


# --- Cases -------------------------------------------------------------------------------------------------------


@dataclasses.dataclass(frozen=True)
class Case:
    """All that a worker needs to run a case, but for the program."""

    journal: str
    """The name of the file."""
    files: dict[str, bytes]
    """The journal, and what it reads, by their paths in the folder where it runs."""
    parameters: dict[str, Value]
    program: str | None
    """As the caller has named it."""
    beside: str | None
    """The one that the caller has beside this module, which may be there for the worker, too."""
    attempts: int

    def key(self) -> str:
        """The same for cases that would do the same, however the sweep is written."""
        import hashlib

        digest = hashlib.sha256(json.dumps([self.journal, sorted(self.parameters.items())]).encode())
        for name, content in sorted(self.files.items()):
            digest.update(f"\0{name}\0{len(content)}\0".encode() + content)
        return digest.hexdigest()[:40]


def program_beside() -> str | None:
    """Where the program is that this file came with, if it came as a file; or the one that runs this Python itself."""
    import pathlib

    file = globals().get("__file__")
    folders = list(pathlib.Path(file).resolve().parents)[:6] if file else []
    found = [folder / "bin" / "fennar" for folder in folders] + [pathlib.Path("/proc/self/exe").resolve()]
    return next((str(path) for path in found if path.name == "fennar" and os.access(path, os.X_OK)), None)


def find_program(program: str | None, beside: str | None) -> str:
    """The program's path: as given, as the environment says, beside this file, or as the shell would find it."""
    import shutil

    found = program or os.environ.get("FENNAR_PROGRAM")
    path = shutil.which(found or beside or "fennar") or (None if found else shutil.which("fennar"))
    if not path:
        what = f'the program "{found}"' if found else "the program fennar"
        raise FileNotFoundError(f"{what} was not found; set program=, or FENNAR_PROGRAM in the environment")
    return os.path.abspath(path)  # the cases run elsewhere


def word(value: Value) -> str:
    return repr(value) if isinstance(value, float) else str(value)


def why_ended(status: int, errors: str) -> str:
    told = errors.strip().splitlines()
    why = f"the program was ended by signal {-status}" if status < 0 else f"the program ended with status {status}"
    return f"{why}: {told[-1]}" if told else why


def crashed(case: Case, message: str, output: str) -> Record:
    """The record of a run that has not written it. The line that ran is the last that was printed."""
    lines = [line for line in output.splitlines() if line.startswith(PROMPT)]
    text = lines[-1].removeprefix(PROMPT) if lines else None
    journal = case.files[case.journal].decode(errors="replace").splitlines()
    line = journal.index(text) + 1 if text is not None and journal.count(text) == 1 else None
    failure = {"message": message, "file": case.journal if line else None, "line": line, "text": text}
    return {
        "format": "fennar-run",
        "version": 1,
        "journal": case.journal,
        "status": "crashed",
        "parameters": case.parameters,
        "seconds": 0,
        "commands": [],
        "failure": failure,
    }


Started = Callable[["subprocess.Popen[str]"], None]


def run_once(case: Case, program: str, started: Started | None) -> Record:
    import pathlib
    import subprocess
    import tempfile

    # In a folder of its own, so that cases do not write over each other's files.
    with tempfile.TemporaryDirectory(prefix="fennar-sweep-", ignore_cleanup_errors=True) as name:
        folder = pathlib.Path(name)
        for path, content in case.files.items():
            (folder / "run" / path).parent.mkdir(parents=True, exist_ok=True)
            (folder / "run" / path).write_bytes(content)
        sets = [text for name, value in case.parameters.items() for text in ("--set", f"{name}={word(value)}")]
        process = subprocess.Popen(
            [program, "--batch", *sets, "--json", str(folder / "record.json"), "--play", case.journal],
            cwd=folder / "run",
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            encoding="utf-8",
            errors="replace",
        )
        with process:
            if started:
                started(process)
            try:
                output, errors = process.communicate()
            except BaseException:
                process.kill()
                raise
        try:
            record: Record = json.loads((folder / "record.json").read_text(encoding="utf-8"))
        except (OSError, ValueError):
            record = {"status": "running"}
    if record["status"] == "running":
        return crashed(case, why_ended(process.returncode, errors), output)
    # As they were given: JSON has one kind of numbers, and no order. A journal that was refused tells none.
    record["parameters"] = case.parameters | {
        name: value for name, value in record["parameters"].items() if name not in case.parameters
    }
    return record


def run_case(case: Case, started: Started | None = None) -> Record:
    """Runs a case, and again if the program dies. It depends on nothing but its argument and the program."""
    program = find_program(case.program, case.beside)
    for attempt in itertools.count(1):
        record = run_once(case, program, started)
        record["attempts"] = attempt
        if record["status"] != "crashed" or attempt >= case.attempts:
            break
    return record


def run_values(values: dict[str, Any]) -> Record:
    """A case by its values, for a worker elsewhere."""
    return run_case(Case(**values))


def plain(name: str, value: Any) -> Value:
    """A value that was given, without NumPy. TypeError or ValueError if a journal cannot have it."""
    if type(value).__module__ == "numpy" and hasattr(value, "item"):
        value = value.item()
    if isinstance(value, str):
        if "\0" in value:
            raise ValueError(f"{name}: a text with a NUL character")
        value.encode()  # raises for what is no text
        return value
    if isinstance(value, bool) or not isinstance(value, numbers.Real):
        raise TypeError(f"{name}: expected a number or a text, found {value!r}")
    if isinstance(value, numbers.Integral):
        return int(value)
    if not math.isfinite(value):
        raise ValueError(f"{name}: expected a number that is finite, found {value!r}")
    return float(value)


def at_least(least: int, name: str, value: Any) -> int:
    """A count that was given. TypeError or ValueError if it is none."""
    if not hasattr(value, "__index__"):
        raise TypeError(f"{name}: expected a whole number from {least} on, found {value!r}")
    if value < least:
        raise ValueError(f"{name}: expected a whole number from {least} on, found {value!r}")
    return operator.index(value)


def declared_names(journal: str) -> list[str]:
    """The names of the parameters at the beginning of a journal, as far as they are written plainly."""
    names = []
    for line in journal.removeprefix("\ufeff").replace("\\\r\n", "").replace("\\\n", "").split("\n"):
        words = line.split()
        if not words or words[0].startswith("#"):
            continue
        if words[0].strip("'\"") != "parameter":
            break
        names += [re.sub("['\"]", "", one) for one in words[1:2]]
    return names


def combinations(journal: str, text: str, lists: Mapping[str, Any]) -> list[dict[str, Value]]:
    declared = [] if journal.endswith(".py") else declared_names(text)
    values: dict[str, list[Value]] = {}
    for name, given in lists.items():
        if name not in declared:
            known = f"it has: {', '.join(declared)}" if declared else "it declares none"
            raise ValueError(f'"{journal}" has no parameter "{name}"; {known}')
        several = not isinstance(given, (str, bytes, numbers.Number)) and hasattr(given, "__iter__")
        values[name] = [plain(name, value) for value in (given if several else [given])]
    return [dict(zip(values, combined)) for combined in itertools.product(*values.values())]


# --- Workers -----------------------------------------------------------------------------------------------------


def run_here(cases: list[Case], workers: int | None) -> Iterator[tuple[int, Record]]:
    """The records of the cases, as they end. A thread waits for each process."""
    import concurrent.futures
    import queue
    import threading

    running: set[subprocess.Popen[str]] = set()
    lock = threading.Lock()
    stopped = False

    def started(process: subprocess.Popen[str]) -> None:
        with lock:
            running.add(process)
            if stopped:
                process.kill()

    pool = concurrent.futures.ThreadPoolExecutor(workers or os.cpu_count() or 1)
    ended: queue.SimpleQueue[concurrent.futures.Future[Record]] = queue.SimpleQueue()
    try:
        indices = {}
        for index, case in enumerate(cases):
            future = pool.submit(run_case, case, started)
            indices[future] = index
            future.add_done_callback(ended.put)
        while indices:
            # Not without an end: between two waits the window has its turn, and the user can cancel.
            try:
                future = ended.get(timeout=LONGEST_WAIT)
            except queue.Empty:
                continue
            yield indices.pop(future), future.result()
    finally:
        # A user may press Cancel more than once; no program stays behind for that.
        while True:
            try:
                with lock:
                    stopped = True
                    for process in running:
                        if process.poll() is None:
                            process.kill()
                pool.shutdown(cancel_futures=True)
                break
            except KeyboardInterrupt:
                continue


def run_on(client: Any, cases: list[Case]) -> Iterator[tuple[int, Record]]:
    """The records of the cases, as they end on the workers of a Dask cluster."""
    import uuid

    cloudpickle: Any = importlib.import_module("cloudpickle")
    distributed: Any = importlib.import_module("distributed")
    # The workers need not have this module: its functions are sent as what they do.
    module = sys.modules[__name__]
    cloudpickle.register_pickle_by_value(module)
    sweep_id = uuid.uuid4().hex[:8]
    indices: dict[str, int] = {}
    tries = [0] * len(cases)
    suspects: dict[int, str] = {}

    def submit(index: int) -> Any:
        tries[index] += 1
        key = f"fennar-{sweep_id}-{index}-{tries[index]}"
        indices[key] = index
        return client.submit(run_values, dataclasses.asdict(cases[index]), pure=False, key=key)

    futures = {index: submit(index) for index in range(len(cases))}
    try:
        ended = distributed.as_completed(list(futures.values()))
        for future in ended:
            index = indices[future.key]
            if future.status == "finished":
                yield index, future.result()
                del futures[index]  # the cluster may forget the record
                continue
            error = None if future.cancelled() else future.exception()
            if error is not None and not isinstance(error, distributed.KilledWorker):
                raise error
            # Dask has given the case to several workers already, and all of them died.
            if tries[index] < cases[index].attempts:
                futures[index] = submit(index)
                ended.add(futures[index])
            else:
                suspects[index] = f"the worker died: {error or 'the task was cancelled'}"
        for index, message in suspects.items():
            # A worker that dies takes all cases along that it has been given: alone, each shows what it does.
            if len(suspects) > 1:
                futures[index] = submit(index)
                distributed.wait(futures[index])
                if futures[index].status == "finished":
                    yield index, futures[index].result()
                    continue
            yield index, crashed(cases[index], message, "")
    finally:
        client.cancel(list(futures.values()))
        cloudpickle.unregister_pickle_by_value(module)


# --- The sweep ---------------------------------------------------------------------------------------------------


def read_files(journal: pathlib.Path, files: Path | Iterable[Path]) -> dict[str, bytes]:
    import pathlib

    content = {journal.name: journal.read_bytes()}
    for name in paths_of(files):
        path = pathlib.PurePath(name)
        if path.is_absolute() or ".." in path.parts:
            raise ValueError(f"{name}: expected a path below the journal's folder")
        content[path.as_posix()] = (journal.parent / path).read_bytes()
    return content


def text_of(journal: pathlib.Path, content: bytes) -> str:
    try:
        return content.decode("utf-8-sig")
    except UnicodeDecodeError:
        raise ValueError(f'"{journal}" is not UTF-8') from None


def kept_record(path: pathlib.Path) -> Record | None:
    """The record of a case that has ended before; None if it has not, or if it cannot be read."""
    try:
        record: Record = json.loads(path.read_text(encoding="utf-8"))
        return record if record["status"] in ENDED else None
    except (OSError, ValueError, KeyError, TypeError):
        return None


def keep_record(path: pathlib.Path, record: Record) -> None:
    beside = path.with_name(f".{path.name}.{os.getpid()}")
    beside.write_text(json.dumps(record, indent=1), encoding="utf-8")
    beside.replace(path)


def sweep(
    journal: Path,
    /,
    *,
    client: Any = None,
    workers: int | None = None,
    folder: Path | None = None,
    files: Path | Iterable[Path] = (),
    program: Path | None = None,
    retries: int = 1,
    **parameters: Any,
) -> Table:
    """Plays a journal for all combinations of values of its parameters, each in a process of its own.

    table = fennar.sweep("part.jou", size=[1, 2, 4], radius=numpy.linspace(2, 3, 5))

    client      a Client of Dask, whose workers run the cases; None for this machine
    workers     how many cases run at a time on this machine; None for one on each core
    folder      where the record of each case is kept. A sweep that was interrupted goes on with the cases that have not ended
    files       what the journal reads, by paths below its folder; sent to the workers with it
    program     the program fennar; None for FENNAR_PROGRAM of the environment, the one beside this module, or that in PATH
    retries     how often a case is run again whose program or worker dies
    parameters  a value or several for each

    Each case runs in an empty folder with copies of the journal and the files. A case that fails, or crashes the program,
    costs that case only: its row tells why. An unknown parameter, and a value that none can have, raise before any case
    begins. TypeError, ValueError, OSError.
    """
    import pathlib

    path = pathlib.Path(journal)
    content = read_files(path, files)
    if workers is not None:
        workers = at_least(1, "workers", workers)
    attempts = at_least(0, "retries", retries) + 1
    given = None if program is None else os.fspath(program)
    beside = program_beside()
    if client is None:
        find_program(given, beside)  # raises if there is none
    cases = [
        Case(path.name, content, values, given, beside, attempts)
        for values in combinations(path.name, text_of(path, content[path.name]), parameters)
    ]
    records: dict[int, Record] = {}
    keys = [case.key() for case in cases]
    kept = None if folder is None else pathlib.Path(folder)
    if kept is not None:
        kept.mkdir(parents=True, exist_ok=True)
        for index, key in enumerate(keys):
            record = kept_record(kept / f"{key}.json")
            if record is not None:
                records[index] = record
    due = [index for index in range(len(cases)) if index not in records]
    chosen = [cases[index] for index in due]
    for number, record in run_on(client, chosen) if client is not None else run_here(chosen, workers):
        records[due[number]] = record
        if kept is not None:
            keep_record(kept / f"{keys[due[number]]}.json", record)
    return Table(row_of(records[index]) for index in range(len(cases)))
