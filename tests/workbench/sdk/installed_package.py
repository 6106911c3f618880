#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Installs a build and builds components against what was installed:  installed_package.py CMAKE BUILD_DIR COMPONENTS_DIR

The demo component is copied out of the tree, built and installed with its own CMake file, and run in the installed
program. Another component includes all installed headers, and says in German what it is translated to. The other components are built by installed_components.py.
"""

import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile

SPEAKER_PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(speaker LANGUAGES CXX)
find_package(FennarSdk 0.2 REQUIRED)
fennar_add_component(speaker VERSION 1 SOURCES speaker.cpp TRANSLATIONS speaker_de.ts)
if(NOT EXISTS "${OstrelGui_TRANSLATIONS_DIR}/ostrelgui_de.qm")
    message(FATAL_ERROR "no translations in ${OstrelGui_TRANSLATIONS_DIR}")
endif()
"""

SPEAKER = """
#include <QCoreApplication>
#include <cstdio>

void fennar::load_component(fennar::ComponentContext&)
{
    std::puts(qPrintable(QCoreApplication::translate("Speaker", "It is English that is spoken here.")));
    std::fflush(stdout);
}
"""

SPEAKER_DE = """<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Speaker</name>
    <message>
        <source>It is English that is spoken here.</source>
        <translation>Hier wird Deutsch gesprochen.</translation>
    </message>
</context>
</TS>
"""


def run(*command, **options):
    result = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(command)}\nended with {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result.stdout


def check(condition, message):
    if not condition:
        sys.exit(message)


def main():
    cmake, build, sources = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        first = os.path.join(folder, "first")
        run(cmake, "--install", build, "--prefix", first)
        # It must work wherever it is moved to.
        prefix = os.path.join(folder, "moved prefix")
        os.rename(first, prefix)

        component = glob.glob(os.path.join(prefix, "lib*", "**", "fennar", "components", "demo.so"), recursive=True)
        check(len(component) == 1, f"the demo component is installed as {component}")
        os.remove(component[0])
        translations = os.path.join(prefix, "share", "fennar", "translations")
        for language in ("de", "zh_CN"):
            os.remove(os.path.join(translations, f"demo_{language}.qm"))
        environment = dict(os.environ)
        environment.pop("FENNAR_COMPONENT_PATH", None)
        program = os.path.join(prefix, "bin", "fennar")
        journal = os.path.join(folder, "demo.jou")
        with open(journal, "w", encoding="utf-8") as file:
            file.write("components\ndemo 3\n")
        without = subprocess.run([program, "--batch", "--play", journal], env=environment, capture_output=True, text=True,
                                 check=False)
        check(without.returncode == 1 and "found \"demo\"" in without.stderr,
              f"the demo is there before it is built:\n{without.stdout}\n{without.stderr}")

        def configure(name, *options):
            out = os.path.join(folder, name + "-build")
            run(cmake, "-G", "Ninja", "-S", os.path.join(folder, name), "-B", out, f"-DCMAKE_PREFIX_PATH={prefix}",
                "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-g0", "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror", *options)
            run(cmake, "--build", out)
            return out

        shutil.copytree(os.path.join(sources, "demo"), os.path.join(folder, "demo"))
        out = configure("demo")
        run(cmake, "--install", out, "--prefix", prefix)
        check(os.path.isfile(component[0]), "the demo component was installed elsewhere")
        output = run(program, "--batch", "--play", journal, env=environment)
        check("The demo counts to 3.\n" in output and component[0] in output, output)

        # With a window: the demo's menu is in the picture's program, and nothing is left at the end.
        picture = os.path.join(folder, "window.png")
        with open(journal, "w", encoding="utf-8") as file:
            file.write(f"demo 3\nunload demo\nload demo\npicture '{picture}'\nquit\n")
        run(program, "--play", journal, env=environment)
        check(os.path.getsize(picture) > 0, "no picture")

        # The translations are found where they have been moved to.
        for part, name in (("ostrelgui", "ostrelgui"), ("fennar", "fennar"), ("fennar", "demo")):
            for language in ("de", "zh_CN"):
                check(os.path.isfile(os.path.join(prefix, "share", part, "translations", f"{name}_{language}.qm")),
                      f"{name} is not translated to {language}")
        pictures = []
        for language in ("en", "de", "zh_CN"):
            run(program, "--play", journal, env=environment | {"LANGUAGE": language})
            with open(picture, "rb") as file:
                pictures.append(file.read())
        check(len(set(pictures)) == 3, "the installed program speaks one language only")

        include = os.path.join(prefix, "include", "ostrel")
        headers = sorted(os.path.relpath(path, include)
                         for path in glob.glob(os.path.join(include, "**", "*.h"), recursive=True))
        check({"frame/Ostrel.h", "frame/MainFrame.h", "console/CommandWindow.h", "host/ostrelfw/Mediator.h",
               "workbench/sdk/component/ComponentContext.h", "workbench/sdk/core/commands/CommandRegistry.h"} <= set(headers), str(headers))
        own = re.compile(r'^#include "([^"]+/[^"]+)"', re.M)
        for header in headers:
            with open(os.path.join(include, header), encoding="utf-8") as file:
                missing = [name for name in own.findall(file.read()) if name not in headers]
            check(not missing, f"{header} includes what is not installed: {missing}")
        os.mkdir(os.path.join(folder, "speaker"))
        for name, text in (("CMakeLists.txt", SPEAKER_PROJECT), ("speaker_de.ts", SPEAKER_DE),
                           ("speaker.cpp", "".join(f'#include "{header}"\n' for header in headers) + SPEAKER)):
            with open(os.path.join(folder, "speaker", name), "w", encoding="utf-8") as file:
                file.write(text)
        run(cmake, "--install", configure("speaker"), "--prefix", prefix)
        with open(journal, "w", encoding="utf-8") as file:
            file.write("quit\n")

        def spoken(language):
            return run(program, "--play", journal, env=environment | {"LANGUAGE": language})

        english = "It is English that is spoken here.\n"
        check(spoken("en") == english, "the component says something else in English")
        check(spoken("de") == "Hier wird Deutsch gesprochen.\n", "the component's own translation is not found")
        with open(os.path.join(translations, "speaker_de.qm"), "wb") as file:
            file.write(b"no translations")
        check(spoken("de") == english, "a component's broken translation does harm")


if __name__ == "__main__":
    main()
