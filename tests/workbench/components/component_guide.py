#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Follows the guide for authors of components to the letter:  component_guide.py CMAKE BUILD_DIR GUIDE

The workbench is installed from BUILD_DIR. Then the blocks "sh" in the guide's section about the template run, one after
the other in one shell, in an empty home. What a block "text" shows must be what the block before it prints, or the
end of it. A block with a comment "not run" above it is left out.
"""

import os
import re
import subprocess
import sys
import tempfile

SECTION = re.compile(r"^## From the template to an installed component\n(.*?)^## ", re.M | re.S)
BLOCK = re.compile(r"^(?:<!-- (not run)[^\n]*-->\n)?```(sh|text)\n(.*?)^```$", re.M | re.S)
MARK = "---- end of block ----"


def run(command, **options):
    result = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if result.returncode != 0:
        sys.exit(f"ended with {result.returncode}\n{result.stdout}")
    return result.stdout


def main():
    cmake, build, guide = sys.argv[1:]
    with open(guide, encoding="utf-8") as file:
        blocks = [match.groups() for match in BLOCK.finditer(SECTION.search(file.read()).group(1))]
    commands = [text for skipped, kind, text in blocks if kind == "sh" and not skipped]
    expected = {}
    for skipped, kind, text in blocks:
        if kind == "sh" and not skipped:
            last = len(expected)
            expected[last] = None
        elif kind == "text":
            expected[last] = text
    if len(commands) < 4 or sum(text is not None for text in expected.values()) < 2:
        sys.exit(f"the guide has only {len(commands)} blocks of commands")

    with tempfile.TemporaryDirectory() as home:
        prefix = os.path.join(home, "fennar")
        run([cmake, "--install", build, "--prefix", prefix])
        environment = {**os.environ, "HOME": home, "PREFIX": prefix, "CMAKE_GENERATOR": "Ninja",
                       "CXXFLAGS": "-Wall -Wextra -Werror"}
        environment.pop("FENNAR_COMPONENT_PATH", None)
        script = f"\necho '{MARK}'\n".join(commands)
        output = run(["bash", "-e", "-c", script], env=environment, cwd=home)
        outputs = (output + "\n").split(MARK + "\n")
        for i, text in expected.items():
            if text is not None and not outputs[i].rstrip("\n").endswith(text.rstrip("\n")):
                sys.exit(f"{commands[i]}\nprints\n{outputs[i]}\nand not at its end\n{text}")
    print(f"{len(commands)} blocks of commands")


if __name__ == "__main__":
    main()
