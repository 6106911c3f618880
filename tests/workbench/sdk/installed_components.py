#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Builds all components of the tree outside of it:  installed_components.py CMAKE BUILD_DIR COMPONENTS_DIR

The workbench is installed from BUILD_DIR, without a single component. Each folder of COMPONENTS_DIR is then built by its own CMake
file against what was installed, and added to it. The program must find them all, and work with them.
"""

import glob
import os
import shutil
import subprocess
import sys
import tempfile

# Their sources name their own headers from the root of the tree.
PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(components LANGUAGES CXX)
include_directories(${CMAKE_SOURCE_DIR})
"""

JOURNAL = """components
brick 1 2 3 name part
mesh part size 1
save part.mdl
export part.stl
export part.obj
demo 2
"""


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(command)}\nended with {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result.stdout


def main():
    cmake, build, sources = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        prefix = os.path.join(folder, "prefix")
        run(cmake, "--install", build, "--prefix", prefix)
        place = os.path.dirname(glob.glob(os.path.join(prefix, "lib*", "**", "components", "demo.so"), recursive=True)[0])
        installed = {os.path.basename(path) for path in glob.glob(os.path.join(place, "*.so"))}
        shutil.rmtree(place)
        translations = os.path.join(prefix, "share", "fennar", "translations")
        translated = set(os.listdir(translations))
        for name in translated:
            if not name.startswith("fennar_"):
                os.remove(os.path.join(translations, name))

        copy = os.path.join(folder, "tree", "workbench", "components")
        shutil.copytree(sources, copy)
        names = sorted(os.path.basename(os.path.dirname(path)) for path in glob.glob(os.path.join(copy, "*", "CMakeLists.txt")))
        with open(os.path.join(folder, "tree", "CMakeLists.txt"), "w", encoding="utf-8") as file:
            file.write(PROJECT + "".join(f"add_subdirectory(workbench/components/{name})\n" for name in names))
        out = os.path.join(folder, "build")
        run(cmake, "-G", "Ninja", "-S", os.path.join(folder, "tree"), "-B", out, f"-DCMAKE_PREFIX_PATH={prefix}",
            "-DCMAKE_CXX_FLAGS=-O0 -Wall -Wextra -Werror")
        run(cmake, "--build", out)
        run(cmake, "--install", out, "--prefix", prefix)
        built = {os.path.basename(path) for path in glob.glob(os.path.join(place, "*.so"))}
        # The template is there to be built, but not as a component of the program.
        if built != installed | {"hello.so"} or len(built) < 7:
            sys.exit(f"installed were {sorted(installed)}, built are {sorted(built)}")

        found = set(os.listdir(translations))
        if found != translated | {"hello_de.qm", "hello_zh_CN.qm"} or len(found) < 10:
            sys.exit(f"translations were {sorted(translated)}, and are {sorted(found)}")

        journal = os.path.join(folder, "all.jou")
        with open(journal, "w", encoding="utf-8") as file:
            file.write(JOURNAL)
        environment = dict(os.environ)
        environment.pop("FENNAR_COMPONENT_PATH", None)
        output = run(os.path.join(prefix, "bin", "fennar"), "--batch", "--play", journal, env=environment, cwd=folder)
        missing = [name for name in built if os.path.join(place, name) not in output]
        if missing:
            sys.exit(f"not found by the program: {missing}\n{output}")
        for name in ("part.mdl", "part.stl", "part.obj"):
            if os.path.getsize(os.path.join(folder, name)) == 0:
                sys.exit(f"{name} is empty")


if __name__ == "__main__":
    main()
