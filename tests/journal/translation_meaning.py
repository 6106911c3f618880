#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Checks what translated journals mean to Python:  translation_meaning.py PROGRAM CASES

PROGRAM translates texts (see translate_texts.cpp), CASES holds journals in NAME.before. Python's own parser reads the
translation of each journal that is sound: the calls must be fennar.cmd() with one string each, and the strings the
commands of the journal. So must those of many random journals.

The environment variable OSTREL_TEST_SEED repeats a run.
"""

import ast
import glob
import os
import random
import re
import subprocess
import sys

RANDOM_JOURNALS = 20000
# At least so many of them must be sound, and so many of the cases, or the check looks at too little.
LEAST_SOUND, LEAST_SOUND_CASES = 5000, 15

LINE_END = "\r\n|\r|\n"


def commands_of(journal):
    """The commands of a journal, or None if its translation need not be sound."""
    if journal.startswith("'"):
        return None  # the known oddity of a text that begins with an apostrophe
    parts = re.split(f"({LINE_END})", journal)
    lines = parts[::2]
    commands, pending = [], None
    for line in lines:
        quotes = [m.start() for m in re.finditer("[\"']", line)]
        command, string = line, ""
        if len(quotes) == 1 and not line.startswith("#"):
            string, command = line[quotes[0]:], line + line[quotes[0]]
            outside = line[:quotes[0]]
        elif len(quotes) >= 2:
            string = line[quotes[0]:quotes[-1]]
            outside = line[:quotes[0]] + line[quotes[-1]:]
        else:
            outside = line
        continued = outside.endswith("\\") and not (string and command != line)
        if continued:
            command, outside = command[:-1], outside[:-1]
        if "\\" in outside:
            return None  # Python takes it for an escape
        if pending is None:
            if not command.strip(" \t"):
                if continued:
                    return None  # no call is begun
                continue
            pending = ""
        elif ")" in pending and not continued:
            return None  # taken for a closed call
        elif not line:
            return None  # an empty line does not end a command, but it ends Python's string
        pending += command
        if not continued:
            commands.append(pending)
            pending = None
    return None if pending is not None else commands


def calls_of(script):
    """The arguments of the calls in a Python script; raises if there is anything else in it."""
    arguments = []
    for statement in ast.parse(script).body:
        call = statement.value
        if ast.unparse(call.func) != "fennar.cmd" or call.keywords:
            raise ValueError(f"not a call of fennar.cmd: {ast.unparse(statement)}")
        (argument,) = call.args
        if not isinstance(argument.value, str):
            raise ValueError(f"not a string: {ast.unparse(argument)}")
        arguments.append(argument.value)
    return arguments


def random_journal(rng):
    pieces = ["run step", "mesh", "C:\\dir\\new", "\\", "'", '"', '"a b"', "'c\\td'", "# ", "#", " ", "\t", "(1)", ")", "\u00e9",
              "\u6f22", "\U0001f600", "fennar.cmd", "0.5", "it's"]
    ends = ["\n"] * 6 + ["\r\n", "\r", "\n\n", "\\\n", "\\\r\n"]
    return "".join(rng.choice(ends) if rng.random() < 0.25 else rng.choice(pieces)
                   for _ in range(rng.randrange(1, 25)))


def translate(program, journals):
    run = subprocess.run([program], input="\0".join(journals).encode(), capture_output=True, check=True)
    scripts = run.stdout.decode().split("\0")
    assert len(scripts) == len(journals)
    return scripts


def check(program, journals):
    """How many of the journals are sound, and the complaints about them."""
    sound, faults = 0, []
    for journal, script in zip(journals, translate(program, journals)):
        commands = commands_of(journal)
        if commands is None:
            continue
        sound += 1
        try:
            found = calls_of(script)
        except (SyntaxError, ValueError, AttributeError, TypeError) as error:
            found = error
        if found != commands:
            faults.append(f"journal  {journal!r}\nscript   {script!r}\ncommands {commands!r}\nfound    {found!r}")
    return sound, faults


def main():
    program, folder = sys.argv[1:]
    seed = int(os.environ.get("OSTREL_TEST_SEED") or random.randrange(2**31))
    print(f"OSTREL_TEST_SEED={seed}")
    cases = []
    for path in sorted(glob.glob(os.path.join(glob.escape(folder), "*.before"))):
        with open(path, encoding="utf-8", newline="") as file:
            cases.append(file.read())
    sound_cases, faults = check(program, [case.split("\0")[0] for case in cases])
    rng = random.Random(seed)
    sound, more = check(program, [random_journal(rng) for _ in range(RANDOM_JOURNALS)])
    faults += more
    if sound_cases < LEAST_SOUND_CASES or sound < LEAST_SOUND:
        faults.append("too few journals are sound")
    for fault in faults[:10]:
        print(fault)
    print(f"{sound_cases} of {len(cases)} cases and {sound} of {RANDOM_JOURNALS} random journals are sound: "
          f"{len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
