#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Follows the documents to the letter:  guides.py CMAKE BUILD_DIR ROOT

The workbench is installed from BUILD_DIR. Then

- the blocks "sh" in the section of docs/component-guide.md about the template run, one after the other in one shell, in
  an empty home. What a block "text" shows must be what the block before it prints, or the end of it. A block with a
  comment "not run" above it is left out;
- the program in README.md is built with what was installed.
"""

import os
import re
import subprocess
import sys
import tempfile

SECTION = re.compile(r"^## From the template to an installed component\n(.*?)^## ", re.M | re.S)
BLOCK = re.compile(r"^(?:<!-- (not run)[^\n]*-->\n)?```(sh|text)\n(.*?)^```$", re.M | re.S)
PROGRAM = re.compile(r"^```cpp\n(#include (?:(?!^```).)*^int main\(.*?)^```$", re.M | re.S)
MARK = "---- end of block ----"

HOST_PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(host LANGUAGES CXX)
find_package(OstrelGui REQUIRED)
add_executable(host host.cpp)
target_compile_features(host PRIVATE cxx_std_20)
target_link_libraries(host PRIVATE OstrelGui::ostrelgui)
"""


def run(command, **options):
    result = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if result.returncode != 0:
        sys.exit(f"{command[-1]}\nended with {result.returncode}\n{result.stdout}")
    return result.stdout


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def follow_component_guide(guide, home, environment):
    blocks = [match.groups() for match in BLOCK.finditer(SECTION.search(guide).group(1))]
    commands = []
    expected = {}
    for skipped, kind, text in blocks:
        if kind == "text":
            expected[len(commands) - 1] = text
        elif not skipped:
            commands.append(text)
    if len(commands) < 4 or len(expected) < 2:
        sys.exit(f"the guide has only {len(commands)} blocks of commands, and {len(expected)} of what they print")
    output = run(["bash", "-e", "-c", f"\necho '{MARK}'\n".join(commands)], env=environment, cwd=home)
    outputs = output.split(MARK + "\n")
    for i, text in expected.items():
        if not outputs[i].endswith(text):
            sys.exit(f"{commands[i]}\nprints\n{outputs[i]}\nand at its end not\n{text}")


def build_readme_host(readme, home, cmake, environment):
    folder = os.path.join(home, "host")
    os.mkdir(folder)
    for name, text in (("CMakeLists.txt", HOST_PROJECT), ("host.cpp", PROGRAM.search(readme).group(1))):
        with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
            file.write(text)
    run([cmake, "-S", folder, "-B", folder, f"-DCMAKE_PREFIX_PATH={environment['PREFIX']}"], env=environment)
    run([cmake, "--build", folder], env=environment)


def main():
    cmake, build, root = sys.argv[1:]
    with tempfile.TemporaryDirectory() as home:
        prefix = os.path.join(home, "fennar")
        run([cmake, "--install", build, "--prefix", prefix])
        environment = {**os.environ, "HOME": home, "PREFIX": prefix, "CMAKE_GENERATOR": "Ninja",
                       "CXXFLAGS": "-Wall -Wextra -Werror"}
        environment.pop("FENNAR_COMPONENT_PATH", None)
        follow_component_guide(read(root, "docs", "component-guide.md"), home, environment)
        build_readme_host(read(root, "README.md"), home, cmake, environment)


if __name__ == "__main__":
    main()
