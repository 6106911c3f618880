# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The part of the embedded Python that is easiest said in Python: streams, tracebacks, the console's rules.

The application runs this text once at the start and calls its functions. It defines __file__ and executable
beforehand, the latter being a Python for scripts to start, and write_output and write_error, which take a
string to where the application shows it, and become_child, which a process that was forked off calls first.
"""

import builtins
import codecs
import codeop
import functools
import io
import keyword
import linecache
import os
import re
import sys
import tokenize
import traceback
import types


class Output(io.TextIOBase):
    """A text stream that ends in a function of the application. Nothing closes it."""

    encoding = "utf-8"
    errors = "replace"
    mode = "w"

    def __init__(self, name, write):
        self.name = name
        # The function itself and not a method that calls it: a traceback then shows nothing of this text.
        self.write = write
        self.buffer = OutputBytes(write)

    def writable(self):
        return True

    def reconfigure(self, **_settings):
        """Accepted and ignored: there is no encoding and no buffer to change."""

    def close(self):
        pass


class OutputBytes(io.BufferedIOBase):
    """The bytes side of an Output: takes UTF-8 and replaces what is not."""

    def __init__(self, write):
        self._write = write
        self._decode = codecs.getincrementaldecoder("utf-8")("replace").decode

    def writable(self):
        return True

    def write(self, data):
        size = memoryview(data).nbytes
        self._write(self._decode(bytes(data)))
        return size

    def close(self):
        pass


class Input(io.TextIOWrapper):
    """An input stream at its end, so that nothing waits for a terminal that may not be there."""

    def __init__(self):
        super().__init__(io.BytesIO(), encoding="utf-8")

    def close(self):
        """Not closed: exit() tries to, and goes on in this application."""


def show_exception(value, trace):
    """Prints an exception as Python does, without the steps inside this text."""
    shown = traceback.TracebackException(type(value), value, trace)
    pending, seen = [shown], set()
    while pending:
        part = pending.pop()
        if part is None or id(part) in seen:
            continue
        seen.add(id(part))
        if part.stack is not None:
            part.stack[:] = [frame for frame in part.stack if frame.filename != __file__]
        pending += [part.__cause__, part.__context__, *(part.exceptions or ())]
    print("".join(shown.format()), end="", file=sys.stderr)


def report(value, trace):
    """Tells of an exception that nobody has caught. SystemExit is told of like any other."""
    if isinstance(value, SystemExit):
        print("SystemExit" if value.code is None else f"SystemExit: {value.code}", file=sys.stderr)
        return
    sys.last_type, sys.last_value, sys.last_traceback = type(value), value, trace
    sys.last_exc = value
    if sys.excepthook is not sys.__excepthook__:
        try:
            sys.excepthook(type(value), value, trace)
            return
        except BaseException as error:
            print("Error in sys.excepthook:", file=sys.stderr)
            show_exception(error, error.__traceback__)
            print("\nOriginal exception was:", file=sys.stderr)
    show_exception(value, trace)


def tell_failure(value, trace, file):
    """What a program is told of an exception that has ended a script: message, command, remedy, line, and its text."""
    lines = [line for frame, line in traceback.walk_tb(trace) if frame.f_code.co_filename == file]
    if isinstance(value, SyntaxError) and value.filename == file:
        lines.append(value.lineno)
    line = lines[-1] or 0 if lines else 0
    text = linecache.getline(file, line).strip()
    if isinstance(value, sys.modules["fennar"].CommandError):
        message, command, remedy = value.message, value.command, value.remedy
    else:
        message, command, remedy = traceback.format_exception_only(value)[0], "", ""
        if isinstance(value, SyntaxError):
            message = f"{type(value).__name__}: {value.msg}"
    return " ".join(str(message).strip().splitlines()), str(command), str(remedy), line, text


def remember_source(file, text):
    """Makes tracebacks show the lines of a script as it was run, which need not be those on the disk."""
    linecache.cache[file] = (len(text), None, text.splitlines(keepends=True), file)


def without_indentation(file, source):
    """A piece of a script, moved to the left as far as its first statement stands from there.

    Only blanks ahead of lines go, none within a string. SyntaxError if a later statement begins further left.
    """
    lines = source.splitlines(keepends=True)
    prefix, within, strings, first = None, set(), [], {}
    begins = True
    try:
        for token in tokenize.generate_tokens(io.StringIO(source).readline):
            if token.type in (tokenize.INDENT, tokenize.DEDENT, tokenize.NL, tokenize.COMMENT, tokenize.ENDMARKER):
                continue
            row = token.start[0]
            if begins:
                first[row] = token.start[1]
                if prefix is None:
                    prefix = lines[row - 1][: token.start[1]]
            begins = token.type == tokenize.NEWLINE
            if token.type == tokenize.STRING:
                within.update(range(row + 1, token.end[0] + 1))
            elif token.type == getattr(tokenize, "FSTRING_START", None):
                strings.append(row)
            elif token.type == getattr(tokenize, "FSTRING_END", None):
                within.update(range(strings.pop() + 1, token.end[0] + 1))
    except tokenize.TokenError:
        pass  # it has no end, which is told better when it is compiled
    except IndentationError as error:
        first[error.lineno] = -1
    if not prefix:
        return source
    for row, line in enumerate(lines, 1):
        if row in within:
            continue
        if line.startswith(prefix):
            lines[row - 1] = line[len(prefix) :]
        elif row in first:
            message = "the lines played cannot be moved to the left: this one begins further left than the first"
            raise IndentationError(message, (file, row, 1, line))
        else:
            lines[row - 1] = line.lstrip(" \t")
    return "".join(lines)


def compile_statement(source, flags):
    """The code of a statement typed so far, None if it goes on, and the flags for the next statement."""
    compiler = codeop.CommandCompiler()
    compiler.compiler.flags |= flags
    before, _, last = source.rpartition("\n")
    if before and last and not last.strip():
        source = before + "\n"
    return compiler(source, "<console>", "single"), compiler.compiler.flags


TYPED = re.compile(r"(?<![\w.])((?:[^\W\d]\w*\.)*)((?:[^\W\d]\w*)?)$")


# What stands for a value that only code can tell.
COMPUTED = (property, functools.cached_property, types.GetSetDescriptorType, types.MemberDescriptorType)


def own_dictionary(value):
    """The dictionary of an object, without any code of its class."""
    for base in type.__dict__["__mro__"].__get__(type(value)):
        slot = type.__dict__["__dict__"].__get__(base).get("__dict__")
        if type(slot) in (types.GetSetDescriptorType, types.MemberDescriptorType):
            found = slot.__get__(value)
            return found if type(found) is dict else {}
    return {}


def static_names(value):
    """The attributes of an object that can be told without running code: name -> what is kept under it."""
    names = {}
    kind = type(value)  # isinstance() would ask the object, too
    if issubclass(kind, type):
        for base in reversed(type.__dict__["__mro__"].__get__(value)):
            names.update(type.__dict__["__dict__"].__get__(base))
        return names
    if not issubclass(kind, types.ModuleType):
        for base in reversed(type.__dict__["__mro__"].__get__(kind)):
            names.update(type.__dict__["__dict__"].__get__(base))
    names.update(own_dictionary(value))
    listed = names.get("__dir__")
    if value is sys.modules.get("fennar") and getattr(listed, "__module__", "") == "fennar_commands":
        names.update(dict.fromkeys(name for name in listed() if name not in names))  # the application's own code
    return names


def in_text(source):
    """Whether the end of the source lies within a string or a comment."""
    try:
        for token in tokenize.generate_tokens(io.StringIO(source).readline):
            if token.type == tokenize.ERRORTOKEN and token.string[:1] in "\"'":
                return True
            if token.type == tokenize.COMMENT and token.end[0] == source.count("\n") + 1:
                return True
    except tokenize.TokenError as error:
        return "string" in str(error)
    except SyntaxError:
        pass
    return False


NOTHING = object()


def look_up(names, path):
    """What a dotted name stands for, NOTHING if only code can tell, and whether it is a function of an object's class."""
    known, value, of_class = {**vars(builtins), **names}, NOTHING, False
    for part in path:
        if part not in known:
            return NOTHING, False
        owner, value = value, known[part]
        of_class = not (owner is NOTHING or issubclass(type(owner), (type, types.ModuleType)) or part in own_dictionary(owner))
        if value is None and owner is sys.modules.get("fennar"):
            value = getattr(owner, part)  # the application's own code, as in static_names()
        if issubclass(type(value), COMPUTED):
            return NOTHING, False
        known = static_names(value)
    return value, of_class


def open_call(source):
    """The dotted name of the function whose arguments the end of the source is among, as a list; empty if there is none."""
    tokens, brackets = [], []
    try:
        for token in tokenize.generate_tokens(io.StringIO(source).readline):
            if token.type not in (tokenize.NL, tokenize.NEWLINE, tokenize.COMMENT, tokenize.INDENT, tokenize.DEDENT):
                tokens.append(token)
    except (tokenize.TokenError, SyntaxError):
        pass  # it has no end yet
    for index, token in enumerate(tokens):
        if token.type == tokenize.OP and token.string in "([{":
            brackets.append(index)
        elif token.type == tokenize.OP and token.string in ")]}" and brackets:
            brackets.pop()
    if not brackets or tokens[brackets[-1]].string != "(":
        return []
    path, index = [], brackets[-1] - 1
    while index >= 0 and tokens[index].type == tokenize.NAME:
        path.insert(0, tokens[index].string)
        before = tokens[index - 1].string if index > 0 else ""
        if before != ".":
            return [] if before in ("def", "class") else path
        index -= 2
    return []


class Shown:
    """A default as it is shown, without any code of its class."""

    def __init__(self, value):
        plain = (type(None), bool, int, float, str, bytes)
        known = type(value) in plain or type(value) is tuple and all(type(one) in plain for one in value)
        self.text = repr(value) if known else "..."

    def __repr__(self):
        return self.text


def signature_of(function, of_class):
    """The signature of a function, without types; None for what is none, or has none that is known."""
    import inspect

    if type(function) not in (types.FunctionType, types.BuiltinFunctionType):
        return None
    try:
        signature = inspect.Signature.from_callable(function, follow_wrapped=False)
    except Exception:
        return None
    parameters = [
        one.replace(annotation=one.empty, default=one.default if one.default is one.empty else Shown(one.default))
        for one in signature.parameters.values()
    ]
    return inspect.Signature(parameters[1:] if of_class else parameters)


def complete(names, line, pending):
    """What is typed of a name at the end of a line, the names that begin so, what these have in common, and a hint.

    The hint tells what the function takes among whose arguments nothing is typed yet.
    """
    if not line.strip() and not in_text(pending):
        blanks = " " * (4 - len(line) % 4)
        return "", [blanks], blanks, ""
    match = TYPED.search(line)
    source = pending + "\n" + line if pending else line
    if not match or in_text(source):
        return "", [], "", ""
    path, typed = match.groups()
    signature = None
    if path:
        value, _ = look_up(names, path[:-1].split("."))
        known = {} if value is NOTHING else static_names(value)
    else:
        called = open_call(source)
        if called:
            signature = signature_of(*look_up(names, called))
        if not typed:
            return "", [], "", f"{called[-1]}{signature}" if signature else ""
        known = {**vars(builtins), **names, **dict.fromkeys(keyword.kwlist)}
    if signature:
        parameters = signature.parameters.values()
        known.update(dict.fromkeys(f"{one.name}=" for one in parameters
                                   if one.kind in (one.POSITIONAL_OR_KEYWORD, one.KEYWORD_ONLY)))
    # Underscores only for those who ask for them.
    found = sorted(
        name for name in known
        if type(name) is str and name.startswith(typed) and (typed or not name.startswith("_"))
    )
    return typed, found, os.path.commonprefix(found), ""


LEAVING = {"return", "pass", "break", "continue", "raise"}


def leaves_block(line):
    """Whether nothing can follow a logical line, given as its tokens, in the same block."""
    depth = start = 0
    for index, token in enumerate(line):
        if token.type != tokenize.OP:
            continue
        if token.string in "([{":
            depth += 1
        elif token.string in ")]}":
            depth -= 1
        elif token.string == ":" and depth == 0 and line[start].string not in LEAVING:
            return False  # the header of a block in one line: what leaves is only that one
        elif token.string == ";" and depth == 0:
            start = index + 1
    return start < len(line) and line[start].string in LEAVING


def next_indent(source):
    """The blanks that the next line of an unfinished statement most likely begins with."""
    last = source.rpartition("\n")[2]
    white = last[: len(last) - len(last.lstrip())]
    rows = source.count("\n") + 1
    levels = [""]
    line, ended = [], []
    try:
        for token in tokenize.generate_tokens(io.StringIO(source + "\n").readline):
            if token.start[0] > rows:
                break  # the end dedents everything, but the statement goes on
            if token.type == tokenize.INDENT:
                levels.append(token.string)
            elif token.type == tokenize.DEDENT:
                levels.pop()
            elif token.type == tokenize.NEWLINE:
                line, ended = [], line
            elif token.type not in (tokenize.COMMENT, tokenize.NL):
                line.append(token)
    except (tokenize.TokenError, SyntaxError) as error:
        return "" if "string" in str(error) else white  # blanks would become part of the string
    if line or not ended or ended[-1].end[0] < rows:
        return white
    if ended[-1].string == ":":
        return levels[-1] + "    "
    if leaves_block(ended) and len(levels) > 1:
        return levels[-2]
    return levels[-1]


def take_streams():
    """Makes this Python the application's."""
    # Even an isolated Python takes this from the environment.
    sys.executable = sys._base_executable = executable
    sys.stdin = sys.__stdin__ = Input()
    sys.stdout = sys.__stdout__ = Output("<stdout>", write_output)
    sys.stderr = sys.__stderr__ = Output("<stderr>", write_error)


os.register_at_fork(after_in_child=become_child)
