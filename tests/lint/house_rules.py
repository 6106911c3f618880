#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Checks the rules of the house that no compiler checks:  house_rules.py ROOT

Each rule is proved on samples of its own first: one that stops to catch what it is there for fails the run, and so
does one that finds no file to look at.
"""

import os
import re
import shutil
import subprocess
import sys

# What a plain count of the tree must reach, so that a listing gone wrong does not pass for a clean tree.
LEAST_FILES = {".h": 25, ".cpp": 8, "CMakeLists.txt": 12, "script": 5}

SHELL = ("frame", "console", "files", "journal", "menus", "options", "resources")
OWN_FOLDERS = SHELL + ("host", "workbench", "tests", "benchmarks", "tools")

# Who may include from whom: for each part of the tree those that it uses beside itself. Tests of a part use what the part
# uses; tests of components, which run in the program, use the program. A name that ends in "/" is all below it.
PART = re.compile(r"host(?=/)|benchmarks(?=/)|tools(?=/)|tests/(?:support|hostdouble|fuzz|install/host|install/probe)(?=/)"
                  r"|workbench/main\.cpp$|tests/workbench/program(?=/)"
                  r"|(?:tests/)?workbench/(?:sdk/core|sdk/component|host|application|components/[\w-]+)(?=/)")
PROGRAM = ("host", "shell", "workbench/sdk/core", "workbench/sdk/component", "workbench/host")
USES = {
    "host": (),
    "shell": ("host",),
    "workbench/sdk/core": (),
    "workbench/host": ("host", "workbench/sdk/core"),
    "workbench/sdk/component": ("host", "shell", "workbench/sdk/core"),
    "workbench/components": ("host", "shell", "workbench/sdk/core", "workbench/sdk/component"),
    "workbench/application": PROGRAM,
    "workbench/main.cpp": PROGRAM + ("workbench/application",),
    "tools": PROGRAM + ("workbench/application",),
    "benchmarks": PROGRAM + ("workbench/application", "workbench/components/", "tests/hostdouble"),
    "tests": ("host", "shell", "tests/support", "tests/hostdouble"),
    "tests/support": ("host", "shell", "tests/hostdouble"),
    "tests/hostdouble": ("host", "tests/support"),
    "tests/fuzz": ("shell", "tests", "workbench/"),
    "tests/workbench/program": PROGRAM + ("workbench/", "tests/workbench/", "tests/support"),
    "tests/install/host": ("host", "shell", "workbench/host"),
    "tests/install/probe": ("host", "shell", "workbench/sdk/core", "workbench/sdk/component"),
}
# What goes against that: a source and a header, with the reason.
EXCEPTIONS = {
    ("workbench/sdk/component/modal_dialogs.cpp", "files/modal_dialogs.h"):
        "the shell does not export how it asks for files; the kit offers it with a copy of its own",
    ("tests/workbench/components/geometry/commands/tst_filecommands.cpp", "workbench/components/obj_format/obj_text.h"):
        "a format that another component brings",
}


# --- The files -------------------------------------------------------------------------------------------------

def read_tree(root):
    """The text files of the tree: path -> text. Binary files are left out."""
    listed = None
    if shutil.which("git"):
        listed = subprocess.run(
            ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            capture_output=True, check=False)
    if listed and listed.returncode == 0:
        paths = sorted(set(listed.stdout.decode().split("\0")) - {""})
    else:  # an unpacked archive
        paths = []
        for folder, folders, names in os.walk(root):
            here = os.path.relpath(folder, root)
            folders[:] = [f for f in folders if f not in (".git", ".cache", "__pycache__")
                          and not (here == "." and re.match("build(-|$)", f))]
            paths += [os.path.normpath(os.path.join(here, name)) for name in names]
        paths.sort()
    tree = {}
    for path in paths:
        full = os.path.join(root, path)
        if os.path.islink(full) or not os.path.isfile(full):
            continue
        with open(full, "rb") as file:
            content = file.read()
        if b"\0" in content:
            continue
        try:
            tree[path] = content.decode("utf-8")
        except UnicodeDecodeError:
            continue
    return tree


def is_code(path):
    return path.endswith((".h", ".cpp"))


def is_script(path, text):
    return text.startswith("#!") or path.endswith((".py", ".sh"))


def is_license(path):
    return os.path.basename(path) in ("LICENSE", "OFL.txt")


def folder_of(path):
    return path.split("/")[0] if "/" in path else ""


def matches(pattern, path, text, complaint):
    """A complaint for each place in the text that the pattern matches."""
    return [(path, text.count("\n", 0, m.start()) + 1, f"{complaint}: {m.group(0).strip()}")
            for m in re.finditer(pattern, text)]


def without_strings(text):
    """C++ text with blanks in place of its string and character literals; the lines stay where they are."""
    literal = r'R"(\w*)\((?:.|\n)*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\''
    return re.sub(literal, lambda m: re.sub(r"[^\n]", " ", m.group(0)), text)


# --- The rules: each takes the tree and yields the files it looked at and its complaints -----------------------------

def spdx_lines(tree):
    """Every source file names holder and license in its first lines."""
    seen = [p for p, t in tree.items()
            if is_code(p) or is_script(p, t) or os.path.basename(p) == "CMakeLists.txt"
            or p.endswith((".cmake", ".ui", ".svg"))]
    bad = []
    for path in seen:
        head = "\n".join(tree[path].split("\n")[:5])
        # Put together here, so that tools which look for such lines do not take these for this file's own.
        for tag, value in (("FileCopyrightText", r"\d{4} The Ostrel developers"),
                           ("License-Identifier", "BSD-3-Clause")):
            if not re.search(f"SPDX-{tag}: {value}", head):
                bad.append((path, 1, f"no line SPDX-{tag}"))
    return seen, bad


def no_bare_waits(tree):
    """A test waits for what it wants to see, not for time to pass, and does not skip. What it runs may sleep."""
    seen = [p for p in tree if is_code(p) and folder_of(p) == "tests"]
    pattern = (r"\bqSleep\b|\bqWait\s*\(|\bu?m?sleep\s*\(|\bsleep_(for|until)\s*\(|\bnanosleep\s*\(|\bQSKIP\s*\("
               r"|\bsingleShot\s*\(\s*(?!0\b)[\d.]")
    return seen, [b for p in seen for b in matches(pattern, p, without_strings(tree[p]), "waits by the clock, or skips")]


def no_clocks(tree):
    """A test does not ask how long something took, nor is it busy for a while: a slow machine is not a fault. What
    takes long is measured by ./bench. Processor time may be compared with processor time, and deadlines that have
    passed or never come may be handed to what is tested."""
    seen = [p for p in tree if is_code(p) and folder_of(p) == "tests" and p != "tests/support/patience.h"]
    # One look for the beginning of a word, not one for each of them: this is half the time of all rules.
    pattern = (r"\b(?:QElapsedTimer\b|(?:steady|system|high_resolution|file)_clock::now\b|QDeadlineTimer::current\b"
               r"|QDeadlineTimer\b(\s+\w+)?\s*[({](?!\s*(0|QDeadlineTimer::Forever)\s*[)}])"
               r"|currentM?SecsSinceEpoch\b|QTime::currentTime\b|n?m?secsElapsed\b"
               r"|clock_gettime\b|gettimeofday\b|time\s*\(\s*(nullptr|NULL|0)\s*\))|[.>]elapsed\s*\(")
    return seen, [b for p in seen for b in matches(pattern, p, without_strings(tree[p]), "asks the clock")]


def no_promises(tree):
    """Nothing in the tree puts work off to later."""
    seen = [p for p in tree if not is_license(p)]
    # In pieces, so that this file passes its own rule.
    words = r"\b(TO" + "DO|FIX" + "ME|X" + r"XX|HA" + r"CK)\b"
    return seen, [b for p in seen for b in matches(words, p, tree[p], "a promise of later work")]


def includes_by_folder(tree):
    """Own headers are included with their folder, in quotes, and exist; those of a test alone lie beside it."""
    seen = [p for p in tree if is_code(p)]
    bad = []
    for path in seen:
        roots = ["", "tests/"] if folder_of(path) in ("tests", "benchmarks") else [""]
        for m in re.finditer(r'^[ \t]*#[ \t]*include[ \t]*(["<])([^">]+)[">]', tree[path], re.M):
            line = tree[path].count("\n", 0, m.start()) + 1
            quote, name = m.groups()
            base = os.path.basename(name)
            if quote == "<":
                if folder_of(name) in OWN_FOLDERS:
                    bad.append((path, line, f"own header in angle brackets: {name}"))
            elif base.startswith("ui_") or base.endswith(".moc") or base.startswith("moc_"):
                continue  # made by the build
            elif len(roots) > 1 and "/" not in name and os.path.join(os.path.dirname(path), name) in tree:
                continue
            elif "/" not in name or ".." in name:
                bad.append((path, line, f"include without its folder: {name}"))
            elif not any(root + name in tree for root in roots):
                bad.append((path, line, f"no such header: {name}"))
    return seen, bad


def no_string_connections(tree):
    """Connections are checked by the compiler; only tests may try out whether names fit."""
    seen = [p for p in tree if is_code(p) and folder_of(p) != "tests"]
    pattern = r"\bconnect\s*\([^;]*?\b(SIGNAL|SLOT)\s*\("
    return seen, [b for p in seen for b in matches(pattern, p, tree[p], "connection by string")]


def headers_guarded_once(tree):
    """Headers are guarded by #pragma once, and by nothing else."""
    seen = [p for p in tree if p.endswith(".h")]
    bad = []
    for path in seen:
        if len(re.findall(r"^#pragma once$", tree[path], re.M)) != 1:
            bad.append((path, 1, "not exactly one #pragma once"))
        bad += matches(r"^#ifndef +\w+_(H|HPP|H_|INCLUDED)_*\n#define", path, tree[path], "guard by macro")
        bad += matches(r"(?m)^#ifndef +\w+_H_*$", path, tree[path], "guard by macro")
    return seen, bad


def part_of(path):
    """The part of the tree that a source belongs to, as the matrix names it; none for what is no part."""
    if folder_of(path) in SHELL:
        return "shell"
    found = PART.match(path)
    if found:
        return found.group(0)
    return "tests" if folder_of(path) == "tests" and not path.startswith("tests/workbench/") else None


def used_parts(part):
    """The parts that one may include from, itself among them."""
    if part in USES:
        return {part, *USES[part]}
    if part.startswith("workbench/components/"):
        return {part, *USES["workbench/components"]}
    # Tests use what they test, what that uses, and the helpers of the tests of both.
    tested = part.removeprefix("tests/")
    used = used_parts(tested)
    if tested.startswith("workbench/components/"):
        used |= used_parts("workbench/application")
    return used | {"tests" if one == "shell" else "tests/" + one for one in used} | {"tests/support", "tests/hostdouble"}


def may_include(part, other):
    """Whether sources of one part may include headers of another."""
    return any(other == used or used.endswith("/") and (other or "").startswith(used) for used in used_parts(part))


def included_by(tree, path):
    """The line and the path of each header of the tree that a source includes."""
    for m in re.finditer(r'^[ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">]', tree[path], re.M):
        name = m.group(1)
        beside = os.path.join(os.path.dirname(path), name)
        if "/" not in name:
            name = beside if beside in tree else None
        elif name not in tree and ("tests/" + name in tree or folder_of(name) in ("support", "hostdouble")):
            name = "tests/" + name
        if name and folder_of(name) in OWN_FOLDERS:
            yield tree[path].count("\n", 0, m.start()) + 1, name


def installed_headers(tree):
    """The headers of the shell, and of what its host provides, that hosts and components get."""
    named = re.search(r"ostrel_public_headers\(ostrelgui([^)]*)\)", tree.get("CMakeLists.txt", ""))
    return set(named.group(1).split() if named else [])


def installed_headers_are_whole(tree):
    """Headers with exported classes are installed, the host's too, and what an installed one includes."""
    exported = r"(?m)^(?:(?:class|struct) OSTRELGUI_EXPORT |OSTRELGUI_EXPORT )"
    seen = [p for p in tree if p.endswith(".h") and folder_of(p) in SHELL + ("host",)]
    installed = installed_headers(tree)
    bad = [("CMakeLists.txt", 1, f"installs {p}, which is no header of the shell or its host") for p in installed - set(seen)]
    for path in seen:
        if path in installed:
            bad += [(path, line, f"includes {name}, which is not installed") for line, name in included_by(tree, path)
                    if name not in installed]
        elif folder_of(path) == "host" or re.search(exported, tree[path]):
            bad.append((path, 1, "is not installed, see ostrel_public_headers(ostrelgui) in CMakeLists.txt"))
    return seen, bad


def matrix_of_includes(tree):
    """Who may include from whom; see USES. Components, and what they link, get no header of the shell that is not installed.
    An exception that nothing needs any longer is a fault, too."""
    seen = [p for p in tree if is_code(p) and folder_of(p) in OWN_FOLDERS]
    installed = installed_headers(tree)
    bad = []
    used_exceptions = set()
    for path in seen:
        part = part_of(path)
        if part is None:
            bad.append((path, 1, "lies in no part of the tree that the matrix of includes knows"))
            continue
        guest = part.startswith(("workbench/components/", "workbench/sdk/"))
        for line, name in included_by(tree, path):
            allowed = may_include(part, part_of(name))
            if allowed and not (guest and part_of(name) == "shell" and name not in installed):
                continue
            if (path, name) in EXCEPTIONS:
                used_exceptions.add((path, name))
            else:
                bad.append((path, line, f"{part} must not include {name}" + (", which is not installed" if allowed else "")))
    bad += [(path, 1, f"needs no exception for {name}") for path, name in EXCEPTIONS
            if path in tree and (path, name) not in used_exceptions]
    return seen, bad


# The one place in which the workbench reaches what the shell does not export.
SHELL_ACCESS = "workbench/sdk/component/"


def shell_is_reached_in_one_place(tree):
    """What the shell does not export, widgets by the names of its members and classes by theirs, is reached in SHELL_ACCESS
    only."""
    pattern = r'findChild(?:ren)?<[^>]*>\(\s*(?:u|QStringLiteral\()?"(?:m[A-Z]\w*|\w+Action)"|->inherits\("'
    seen = [p for p in tree if is_code(p) and p.startswith("workbench/") and not p.startswith(SHELL_ACCESS)]
    return seen, [(p, tree[p].count("\n", 0, m.start()) + 1, "reaches into the shell: " + m.group(0))
                  for p in seen for m in re.finditer(pattern, tree[p])]


def workbench_has_a_namespace(tree):
    """What the workbench's headers declare is in the namespace fennar, a component's in one of its own in that; classes that a
    face of the host names are in none."""
    named_by_host = {name for p in tree if folder_of(p) == "host" for name in re.findall(r"(?m)^(?:class|struct) (\w+);", tree[p])}
    seen = [p for p in tree if p.startswith("workbench/") and p.endswith(".h")]
    bad = []
    for path in seen:
        component = re.match(r"workbench/components/(\w+)/", path)
        own = "fennar::" + component.group(1) if component else r"fennar(?:::\w+)?"
        outside = re.sub(rf"(?ms)^namespace ({own}) \{{\n.*?^\}} // namespace \1$", lambda m: "\n" * m.group(0).count("\n"), tree[path])
        for m in re.finditer(r"(?m)^(?:class|struct|enum|enum class) (?:[A-Z_]+_EXPORT )?(\w+)(?: final)?(?: :.*)?(?:\n\{| \{)", outside):
            if m.group(1) not in named_by_host:
                bad.append((path, outside.count("\n", 0, m.start()) + 1, f"{m.group(1)} is not in the namespace {own.split('(')[0]}"))
    return seen, bad


def sources_are_built(tree):
    """Every source is named in the CMakeLists.txt of its folder or of one above it; a test that is not never runs."""
    seen = [p for p in tree if p.endswith(".cpp")]
    bad = []
    for path in seen:
        stem = os.path.splitext(os.path.basename(path))[0]
        folder = os.path.dirname(path)
        lists = []
        while True:
            lists.append(tree.get(os.path.join(folder, "CMakeLists.txt"), ""))
            if not folder:
                break
            folder = os.path.dirname(folder)
        if not any(re.search(rf"(?<![\w.]){re.escape(stem)}\b", text) for text in lists):
            bad.append((path, 1, "named in no CMakeLists.txt"))
    return seen, bad


def scripts_parse(tree):
    """Shell scripts are read by sh without complaint."""
    seen = [p for p, t in tree.items() if re.match(r"#! ?(/usr)?/bin/(env )?(ba)?sh\b", t)]
    bad = []
    for path in seen:
        run = subprocess.run(["bash" if "bash" in tree[path].split("\n")[0] else "sh", "-n"],
                             input=tree[path].encode(), capture_output=True, check=False)
        if run.returncode != 0:
            bad.append((path, 1, run.stderr.decode().strip()))
    return seen, bad


def plain_lines(tree):
    """Lines end in one line feed and nothing before it; the last one too."""
    seen = [p for p, t in tree.items()
            if is_code(p) or is_script(p, t) or p.endswith((".md", ".cmake", "CMakeLists.txt", ".ui", ".svg", ".qrc"))]
    bad = []
    for path in seen:
        bad += matches(r"(?m)[ \t\r]+$", path, tree[path], "blanks at the end of the line")
        if tree[path] and not tree[path].endswith("\n"):
            bad.append((path, tree[path].count("\n") + 1, "no line feed at the end"))
    return seen, bad


def settings_keys_stand_once(tree):
    """The keys of the shell's settings stand in one header. Tests spell them out."""
    seen = [p for p in tree
            if is_code(p) and folder_of(p) in SHELL + ("workbench",) and p != "frame/settings_keys.h"]
    pattern = (r'"/?(ostrelgui|fennargui)/(ostrel|command|journal|commandpanel|tabposition)\b'
               r'|\bbeginGroup\(u?"/?(ostrelgui|fennargui)\b')
    return seen, [b for p in seen for b in matches(pattern, p, tree[p], "a key that frame/settings_keys.h has")]


# How many lines a source of the workbench, and a function in it, may have at most. Those of the shell follow another split:
# one class, one pair of files.
MOST_LINES_OF_FILE = 500
MOST_LINES_OF_FUNCTION = 60


def long_functions(text, most):
    """The line in which each function begins whose braces have more than so many lines between them, and their number. As the
    layout of the tree has it: both braces of a function stand in lines of their own, as far in as its head."""
    lines = text.split("\n")
    opened = []
    for number, line in enumerate(lines, 1):
        brace = re.fullmatch(r"( *)([{}])(?:[;,)].*)?", line)
        if not brace:
            continue
        if brace.group(2) == "{":
            opened.append((len(brace.group(1)), number))
        elif opened and opened[-1][0] == len(brace.group(1)):
            start = opened.pop()[1]
            is_class = line.strip() == "};"
            if number - start - 1 > most and not is_class:
                yield start, number - start - 1


def sizes(tree):
    """Sources of the workbench, and functions in them, can be taken in at a glance; tables are parted by subject."""
    seen = [p for p in tree if is_code(p) and p.startswith("workbench/")]
    bad = []
    for path in seen:
        lines = tree[path].count("\n")
        if lines > MOST_LINES_OF_FILE:
            bad.append((path, lines, f"has {lines} lines, more than {MOST_LINES_OF_FILE}"))
        bad += [(path, line, f"a function of {count} lines, more than {MOST_LINES_OF_FUNCTION}")
                for line, count in long_functions(without_strings(tree[path]), MOST_LINES_OF_FUNCTION)]
    return seen, bad


# --- The samples ---------------------------------------------------------------------------------------------------

SPDX = "// SPDX-FileCopyrightText: 2026 The Ostrel developers\n// SPDX-License-Identifier: BSD-3-Clause\n"
HASH_SPDX = SPDX.replace("//", "#")

GOOD = {
    "CMakeLists.txt": HASH_SPDX + "ostrel_public_headers(ostrelgui\n    frame/Box.h host/a/Lid.h)\n",
    "frame/CMakeLists.txt": HASH_SPDX + "target_sources(a PRIVATE Box.h Box.cpp)\n",
    "frame/Box.h": SPDX + '#pragma once\n\n#include "host/a/Lid.h"\n\n#include <QObject>\n\nclass OSTRELGUI_EXPORT Box\n{\n};\n',
    "frame/Hidden.h": SPDX + "#pragma once\n\nclass Hidden\n{\n};\n",
    "frame/Box.cpp": SPDX + '#include "frame/Box.h"\n\nvoid f() { connect(a, &A::b, c, &C::d); }\n',
    "host/a/Lid.h": SPDX + "#pragma once\n\nclass Hinge;\n",
    "tests/frame/boxes.h": SPDX + "#pragma once\n",
    "tests/support/wait.h": SPDX + "#pragma once\n",
    "tests/frame/CMakeLists.txt": HASH_SPDX + "ostrel_add_test(tst_box)\n",
    "tests/frame/tst_box.cpp": SPDX + '#include "frame/Box.h"\n#include "support/wait.h"\n#include "boxes.h"\n'
                                      'void t() { connect(a, SIGNAL(b()), c, SLOT(d())); }\n'
                                      'void s() { run("time.sleep(1)"); run(R"(\n" sleep(1))"); }\n'
                                      'void u() { QTRY_VERIFY(a); QVERIFY(QTest::qWaitFor(b)); }\n'
                                      'void v() { QTimer::singleShot(0, this, f); const QDeadlineTimer past(0); }\n'
                                      'void w(QDeadlineTimer d) { go(QDeadlineTimer(QDeadlineTimer::Forever)); }\n'
                                      'void x() { shell_clock::now(); entry.time(); std::clock(); const TestClock clock; }\n'
                                      '#include "tst_box.moc"\n',
    "workbench/CMakeLists.txt": HASH_SPDX + "add_executable(fennar main.cpp)\n",
    "workbench/main.cpp": SPDX + '#include "frame/Box.h"\n#include "workbench/application/Main.h"\n',
    "workbench/sdk/core/words/Word.h": SPDX + "#pragma once\n\nnamespace fennar {\n\nclass Word\n{\n};\n\n} // namespace fennar\n",
    "workbench/sdk/component/Context.h": SPDX + '#pragma once\n\n#include "frame/Box.h"\n#include "workbench/sdk/core/words/Word.h"\n',
    "workbench/host/a/Bolt.h": SPDX + '#pragma once\n\n#include "host/a/Lid.h"\n#include "workbench/sdk/core/words/Word.h"\n'
                                        "\nclass Hinge\n{\n};\n",
    "workbench/application/Main.h": SPDX + '#pragma once\n\n#include "frame/Hidden.h"\n#include "workbench/host/a/Bolt.h"\n'
                                           '#include "workbench/sdk/component/Context.h"\n',
    "workbench/components/one/one.h": SPDX + '#pragma once\n\n#include "frame/Box.h"\n#include "workbench/sdk/component/Context.h"\n'
                                             '#include "workbench/sdk/core/words/Word.h"\n',
    "workbench/components/two/two.h": SPDX + "#pragma once\n\nclass QWidget;\n\nnamespace fennar {\nclass Word;\n}\n\nnamespace fennar::two {\n\n"
                                             "struct Two\n{\n};\n\n} // namespace fennar::two\n",
    "workbench/components/two/two.cpp": SPDX + "class Two\n{\n" + "    int f();\n" * 80 + "};\n\nint f()\n{\n" + "    g();\n" * 57
                                        + "    {\n        h();\n    }\n}\n\nnamespace {\n" + "int i;\n" * 200 + "} // namespace\n",
    "workbench/components/two/CMakeLists.txt": HASH_SPDX + "fennar_component(two two.cpp)\n",
    "tests/workbench/sdk/core/word_helpers.h": SPDX + '#pragma once\n\n#include "workbench/sdk/core/words/Word.h"\n',
    "tests/workbench/application/boot.h": SPDX + '#pragma once\n\n#include "support/wait.h"\n#include "workbench/application/Main.h"\n',
    "tests/workbench/components/one/helpers.h": SPDX + '#pragma once\n\n#include "workbench/application/Main.h"\n'
                                                '#include "workbench/application/boot.h"\n#include "workbench/components/one/one.h"\n'
                                                '#include "workbench/sdk/core/word_helpers.h"\n#include "frame/boxes.h"\n',
    "tests/workbench/program/all.h": SPDX + '#pragma once\n\n#include "workbench/application/boot.h"\n'
                                            '#include "workbench/components/one/one.h"\n#include "workbench/components/two/two.h"\n',
    "run": "#!/bin/sh\n" + HASH_SPDX + "if true; then echo; fi\n",
    "README.md": "A shell, and its parts.\n",
}

# For each rule, trees that differ from the good one in the files given; the rule must complain about each.
BAD = {
    spdx_lines: [
        {"frame/Box.h": "#pragma once\n"},
        {"frame/Box.cpp": SPDX.split("\n", 1)[1]},
        {"frame/Box.cpp": SPDX.split("\n", 1)[0] + "\n"},
        {"frame/CMakeLists.txt": "# Box.h Box.cpp\n"},
        {"cmake/a.cmake": "set(a b)\n"},
        {"run": "#!/bin/sh\necho\n"},
        {"frame/box.ui": "<ui/>\n"},
        {"resources/a.svg": "<svg/>\n"},
    ],
    no_bare_waits: [{"tests/frame/tst_box.cpp": SPDX + f"void t() {{ {call} }}\n"} for call in (
        "QTest::qSleep(5);", "QTest::qWait(100);", "QThread::msleep(5);", "QThread::usleep (5);", "sleep(1);",
        "std::this_thread::sleep_for(1s);", "QTimer::singleShot(100, this, f);", "QTimer::singleShot(10ms, f);", 'QSKIP("why");', 'f("a", \'"\'); sleep(1); f("b");',
        'f(R"(a\n")"); sleep(1); f("b");')],
    no_clocks: [{"tests/frame/tst_box.cpp": SPDX + line + "\n"} for line in (
        "#include <QElapsedTimer>", "QElapsedTimer since;", "QVERIFY(since.elapsed() < 500);", "since->nsecsElapsed();",
        "const QDeadlineTimer busy(510);", "QDeadlineTimer busy{500ms};", "while (!QDeadlineTimer(patience).hasExpired())",
        "auto a = std::chrono::steady_clock::now();", "auto a = system_clock::now();", "QDeadlineTimer::current();",
        "QDateTime::currentMSecsSinceEpoch();", "QTime::currentTime();", "clock_gettime(CLOCK_MONOTONIC, &t);",
        "long a = std::time(nullptr);")],
    no_promises: [{"README.md": text + "\n"} for text in (
        "// TO" + "DO: more", "FIX" + "ME", "/* X" + "XX */", "a HA" + "CK")],
    includes_by_folder: [{"frame/Box.cpp": SPDX + line + "\n"} for line in (
        '#include "Box.h"', '#include "../frame/Box.h"', '#include "frame/Bax.h"', "#include <frame/Box.h>",
        '#include "support/wait.h"')] + [{"tests/frame/tst_box.cpp": SPDX + '#include "box.h"\n'}],
    no_string_connections: [{"frame/Box.cpp": SPDX + text + "\n"} for text in (
        "void f() { connect(a, SIGNAL(b()), c, SLOT(d())); }",
        "void f() { QObject::connect(a,\n &A::b, c,\n SLOT(d())); }")],
    headers_guarded_once: [
        {"frame/Box.h": SPDX},
        {"frame/Box.h": SPDX + "#ifndef BOX_H\n#define BOX_H\n#endif\n"},
        {"frame/Box.h": SPDX + "#pragma once\n#ifndef FRAME_BOX_H_\n#define FRAME_BOX_H_\n#endif\n"},
        {"frame/Box.h": SPDX + "#pragma once\n#pragma once\n"},
    ],
    installed_headers_are_whole: [
        {"CMakeLists.txt": HASH_SPDX + "ostrel_public_headers(ostrelgui frame/Box.h)\n"},
        {"CMakeLists.txt": HASH_SPDX + "ostrel_public_headers(ostrelgui host/a/Lid.h)\n"},
        {"CMakeLists.txt": HASH_SPDX + "ostrel_public_headers(ostrelgui frame/Box.h frame/Lid.h host/a/Lid.h)\n"},
        {"CMakeLists.txt": HASH_SPDX},
        {"frame/Hidden.h": SPDX + "#pragma once\n\nclass OSTRELGUI_EXPORT Hidden\n{\n};\n"},
        {"frame/Box.h": SPDX + '#pragma once\n\n#include "frame/Hidden.h"\n'},
    ],
    matrix_of_includes: [
        {path: SPDX + f'#include "{name}"\n'} for path, name in (
            ("frame/Box.cpp", "workbench/sdk/core/words/Word.h"),
            ("frame/Box.cpp", "tests/support/wait.h"),
            ("frame/Box.cpp", "support/wait.h"),
            ("resources/a.cpp", "workbench/sdk/core/words/Word.h"),
            ("host/a/Lid.h", "frame/Box.h"),
            ("workbench/sdk/core/words/Word.cpp", "host/a/Lid.h"),
            ("workbench/sdk/core/words/Word.cpp", "frame/Box.h"),
            ("workbench/host/a/Lid.cpp", "frame/Box.h"),
            ("workbench/host/a/Lid.cpp", "workbench/application/Main.h"),
            ("workbench/sdk/component/Context.h", "workbench/host/a/Bolt.h"),
            ("workbench/sdk/component/Context.h", "frame/Hidden.h"),
            ("workbench/components/one/one.cpp", "workbench/components/two/two.h"),
            ("workbench/components/one/one.cpp", "workbench/host/a/Bolt.h"),
            ("workbench/components/one/one.cpp", "workbench/application/Main.h"),
            ("workbench/components/one/one.cpp", "frame/Hidden.h"),
            ("workbench/application/Main.cpp", "workbench/components/two/two.h"),
            ("workbench/application/Main.cpp", "hostdouble/HostDouble.h"),
            ("workbench/main.cpp", "workbench/components/two/two.h"),
            ("workbench/loose/Loose.cpp", "frame/Box.h"),
            ("workbench/Loose.cpp", "frame/Box.h"),
            ("tests/frame/tst_box.cpp", "workbench/sdk/core/words/Word.h"),
            ("tests/support/wait.h", "workbench/sdk/core/words/Word.h"),
            ("tests/workbench/tst_loose.cpp", "frame/Box.h"),
            ("tests/workbench/sdk/core/tst_word.cpp", "workbench/application/Main.h"),
            ("tests/workbench/sdk/core/tst_word.cpp", "frame/Box.h"),
            ("tests/workbench/host/tst_lid.cpp", "workbench/application/boot.h"),
            ("tests/workbench/application/tst_main.cpp", "workbench/components/two/two.h"),
            ("tests/workbench/components/one/tst_one.cpp", "workbench/components/two/two.h"),
            ("tests/install/probe/probe.cpp", "workbench/application/Main.h"),
            ("tools/tool.cpp", "support/wait.h"),
        )] + [{path: SPDX} for path, _ in EXCEPTIONS],
    shell_is_reached_in_one_place: [{"workbench/application/Main.cpp": SPDX + line + "\n"} for line in (
        'editor->findChild<QTabWidget*>(u"mDocTab"_s);', 'window->findChildren<QToolButton*>("mCancel");',
        'editor->findChild<QAction*>(u"fileCloseAction"_s);', 'dialog->inherits("ComponentTool");')],
    sizes: [{"workbench/application/Main.cpp": SPDX + text} for text in (
        "int i;\n" * 499, "int f()\n{\n" + "    g();\n" * 61 + "}\n",
        "int f()\n{\n" + "    g();\n" * 30 + "    {\n        h();\n    }\n" + "    g();\n" * 28 + "}\n",
        "class Two\n{\n    int f()\n    {\n" + "        g();\n" * 61 + "    }\n};\n",
        "int f()\n{\n    g(R\"(\n}\n)\");\n" + "    g();\n" * 58 + "}\n",
        "Two::Two()\n    : mOne(1)\n{\n" + "    const Table one{\n        1,\n    };\n" * 21 + "}\n")],
    workbench_has_a_namespace: [{path: SPDX + "#pragma once\n\n" + text + "\n"} for path, text in (
        ("workbench/sdk/core/words/Word.h", "class Word\n{\n};"),
        ("workbench/sdk/core/words/Word.h", "struct CORE_EXPORT Word final : public QObject\n{\n};"),
        ("workbench/application/Main.h", "enum class Kind { One };"),
        ("workbench/application/Main.h", "namespace fennar {\n\nclass Word;\n\n} // namespace fennar\n\nclass Word\n{\n};"),
        ("workbench/components/two/two.h", "namespace fennar {\n\nclass Word\n{\n};\n\n} // namespace fennar"))],
    sources_are_built: [
        {"tests/frame/tst_lid.cpp": SPDX},
        {"tests/frame/CMakeLists.txt": HASH_SPDX + "ostrel_add_test(tst_boxes)\n"},
        {"frame/x.cpp": SPDX, "console/CMakeLists.txt": HASH_SPDX + "# x.cpp\n"},
    ],
    settings_keys_stand_once: [{"frame/Box.cpp": SPDX + f"void f() {{ {text} }}\n"} for text in (
        'settings.value(u"/ostrelgui/ostrel/x"_s);', 'settings.beginGroup("fennargui/commandpanel");',
        'settings.beginGroup(u"/ostrelgui"_s);', 'a("fennargui/tabposition"_L1);')],
    scripts_parse: [{"run": "#!/bin/sh\n" + HASH_SPDX + "if true; then echo\n"}],
    plain_lines: [
        {"README.md": "one \ntwo\n"}, {"README.md": "one\r\n"}, {"README.md": "one"}, {"frame/Box.h": "int a;\t\n"}],
}


def prove():
    """What is wrong with the rules themselves."""
    faults = []
    for rule, samples in BAD.items():
        seen, complaints = rule(GOOD)
        if complaints:
            faults.append(f"{rule.__name__} complains about the good sample: {complaints}")
        if not seen:
            faults.append(f"{rule.__name__} looks at no file of the good sample")
        if not samples:
            faults.append(f"{rule.__name__} has no bad sample")
        for sample in samples:
            if not rule({**GOOD, **sample})[1]:
                faults.append(f"{rule.__name__} misses its bad sample {sample}")
    return faults


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    faults = prove()
    tree = read_tree(root)
    counts = {kind: sum(path.endswith(kind) for path in tree) for kind in LEAST_FILES if kind != "script"}
    counts["script"] = sum(is_script(path, text) for path, text in tree.items())
    for kind, least in LEAST_FILES.items():
        if counts[kind] < least:
            faults.append(f"only {counts[kind]} files of kind {kind} found in {root}, expected {least} or more")
    for rule in BAD:
        seen, complaints = rule(tree)
        if not seen:
            faults.append(f"{rule.__name__} finds no file to look at in {root}")
        faults += [f"{path}:{line}: {text}  [{rule.__name__}]" for path, line, text in complaints]
    for fault in faults:
        print(fault)
    samples = sum(len(s) for s in BAD.values())
    print(f"{len(BAD)} rules, {samples} bad samples, {len(tree)} files: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
