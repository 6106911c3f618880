#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""How long a sweep of 200 small cases takes on two workers. The yardstick starts the program for one case after another."""

import pathlib
import subprocess
import sys
import tempfile
import time

BUILD = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(BUILD / "python" / "fennar"))
from sweep import sweep  # noqa: E402

PROGRAM = BUILD / "bin" / "fennar"
# In turns: a machine that slows down slows both.
TURNS = 4
CASES = 50
WORKERS = 2
AIM = 1 / 1.7

JOURNAL = """\
parameter radius number 1 min 0.1 max 5
brick 20 20 10 name part
cylinder $radius 20 name hole
subtract hole from part
list part
"""


def seconds(work):
    start = time.perf_counter()
    work()
    return time.perf_counter() - start


def one_after_another(journal, radii):
    for radius in radii:
        subprocess.run([PROGRAM, "--batch", "--set", f"radius={radius!r}", "--json", journal.with_suffix(".json"),
                        "--play", journal], stdout=subprocess.DEVNULL, check=True)


def on_workers(journal, radii):
    table = sweep(journal, radius=radii, workers=WORKERS, program=PROGRAM)
    if len(table) != len(radii) or table.failed:
        sys.exit(str(table))


def main():
    with tempfile.TemporaryDirectory() as folder:
        journal = pathlib.Path(folder) / "part.jou"
        journal.write_text(JOURNAL)
        one_after_another(journal, [1.0])
        yardstick = subject = 0.0
        for turn in range(TURNS):
            radii = [0.5 + 0.01 * (turn * CASES + case) for case in range(CASES)]
            yardstick += seconds(lambda: one_after_another(journal, radii))
            subject += seconds(lambda: on_workers(journal, radii))
    ratio = subject / yardstick
    print(f"sweep, {TURNS * CASES} cases on two workers\t{subject:.1f} s\t{yardstick:.1f} s\t{ratio:.2f} x\t{AIM:.2f} x")
    sys.exit(ratio > AIM)


if __name__ == "__main__":
    main()
