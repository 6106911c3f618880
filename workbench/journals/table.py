# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause
"""Runs commands from Python: a loop, the answer to a failure, and a variable of the command language."""

# It is there already in a script that is played; this tells type checkers and other readers.
import fennar

for teeth in range(12, 37, 12):
    fennar.cmd(f"set teeth {teeth}")
    fennar.cmd('echo "$teeth teeth: module ${teeth}/4"')


def is_command(text: str) -> bool:
    """Whether a command line runs without an error."""
    try:
        fennar.cmd(text)
    except fennar.CommandError:
        return False
    return True


assert is_command("echo commands may fail, and a script can go on:")
print("That was table.py.")
