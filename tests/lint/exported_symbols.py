#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Checks that a library exports its public classes and nothing else:  exported_symbols.py ROOT LIBRARY

The library is that of the shell, or one of the kit of components. The classes, and namespaces of functions, are those below; in the kit's
core, which has many, the ones that its headers mark. They must be the ones that the headers mark, and each must be in the library. The type
information of the host's classes must not be there, but asked of the host.
"""

import glob
import os
import re
import subprocess
import sys

PUBLIC = {
    "MainFrame", "Ostrel", "OstrelEventFilter",
    "CommandWindow", "CommandWidget",
    "OstrelFileMenu", "OpenSaveHandler", "ImportExportHandler",
    "FileLineEdit", "MessageSettingBox", "OstrelMessageBox",
    "JournalEditor",
    "OstrelViewMenu", "OstrelToolsMenu", "OstrelHelpMenu", "HelpAboutOstrel", "PyAction", "PyOstrel",
    "OptionsPanel",
}

# The same of the kit, in its namespace.
KIT_PUBLIC = {"Component", "ComponentContext", "modal_dialogs"}
KIT_NAMESPACE = "fennar::"

# Classes of the host that the shell derives from. A library of the host owns their type information.
OF_THE_HOST = {"ComponentTracker", "OstrelGUI", "OutputHandler"}

SHELL = ("frame", "console", "files", "journal", "menus", "options", "resources")
KIT = ("workbench/sdk/component",)
CORE = ("workbench/sdk/core/*",)

# What the compiler makes for a class beside its members.
MADE_FOR = r"(?:(?:vtable|VTT|typeinfo|typeinfo name|guard variable) for|(?:non-virtual|virtual) thunk to) "
# Symbols of the compiler's own, as the sanitizers and the linker add them.
TOOLS_OWN = re.compile(r"_init$|_fini$|_edata$|_end$|__")
# Templates of other libraries that were instantiated here: weak, and visible because their library says so.
FOREIGN_TEMPLATE = re.compile(rf"(?:{MADE_FOR})?(?:[\w:<>,&* ()]+ )?(?:std|__gnu_cxx|QtPrivate)::")

# The same of Qt's classes, where the sanitizers look at types.
FOREIGN_TYPE = re.compile(r"typeinfo (?:name )?for Q[A-Z]\w*$")

# What std::function keeps of the type of a function, weak and visible as its library's templates.
FUNCTION_TYPE = re.compile(r"typeinfo (?:name )?for [\w:]+ (?:\(\*\))?\(")


def owner(name):
    """The class that a demangled symbol belongs to, or None."""
    m = re.match(rf"(?:{MADE_FOR})?(\w+)(::|$)", name)
    if m and (m.group(2) or name != m.group(1)):
        return m.group(1)
    return None


def judge_core(lines, classes, functions):
    """The same as judge() of the kit's core, which exports functions, too."""
    seen, strays = judge(lines, classes, KIT_NAMESPACE)
    called = {name: re.match(rf"{KIT_NAMESPACE}(\w+)\(", name) for name in strays}
    called = {name: found.group(1) for name, found in called.items() if found and found.group(1) in functions}
    return seen | set(called.values()), [name for name in strays if not FUNCTION_TYPE.match(name) and name not in called]


def judge(lines, public=frozenset(PUBLIC), namespace=""):
    """For lines as nm -DC prints them: the public classes seen, and the symbols that should not be there. The public classes may lie in a
    namespace, "name::"."""
    seen, strays = set(), []
    for line in lines:
        m = re.match(r"[0-9a-f]+ ([A-Za-z]) (.+)$", line)
        if not m:
            continue
        kind, name = m.groups()
        name = name.split("@")[0]
        own = re.sub(rf"^({MADE_FOR}|){namespace}", r"\1", name)
        if owner(own) in public and (own != name or not namespace):
            seen.add(owner(own))
        elif TOOLS_OWN.match(name):
            continue
        elif kind in "WVuvw" and (FOREIGN_TEMPLATE.match(name) or FOREIGN_TYPE.match(name)):
            continue
        else:
            strays.append(name)
    return seen, strays


def prove():
    """What is wrong with judge() itself."""
    fine = ["0000000000001000 T Ostrel::instance()", "0000000000001000 V vtable for MainFrame",
            "0000000000001000 T non-virtual thunk to CommandWindow::print_data(QString const&)",
            "0000000000001000 D CommandWidget::staticMetaObject",
            "0000000000001000 W void std::vector<int>::_M_realloc_insert<int>(int&&)",
            "0000000000001000 V typeinfo for QObjectData", "0000000000001000 V typeinfo name for QObjectData",
            "0000000000001000 B __bss_start", "0000000000001000 V typeinfo name for OstrelEventFilter"]
    stray = ["0000000000001000 T load_icon(char const*)", "0000000000001000 T OstrelSplitter::OstrelSplitter()",
             "0000000000001000 V vtable for EventCatcher", "0000000000001000 T OstrelSplitterToo::f(Ostrel::A)",
             "0000000000001000 W ProgressControl::text() const", "0000000000001000 B counter",
             "0000000000001000 V typeinfo for NotQt", "0000000000001000 D typeinfo for QtImpostor",
             "0000000000001000 T qInitResources_ostrelgui()", "0000000000001000 T std::make(Ostrel)"]
    faults = []
    seen, strays = judge(fine)
    if seen != {"CommandWidget", "CommandWindow", "MainFrame", "Ostrel", "OstrelEventFilter"} or strays:
        faults.append(f"misjudged what is fine: {seen}, {strays}")
    faults += [f"missed: {line}" for line in stray if len(judge([line])[1]) != 1]
    fine = ["0000000000001000 T fennar::Component::~Component()", "0000000000001000 V vtable for fennar::ComponentContext",
            "0000000000001000 T fennar::modal_dialogs::show_message(QMessageBox::Icon)"]
    stray = ["0000000000001000 T fennar::helper()", "0000000000001000 T fennar::Other::f()", "0000000000001000 T Component::f()",
             "0000000000001000 V typeinfo for fennar::Other", "0000000000001000 T other::Component::f()"]
    core = ["0000000000001000 T fennar::tokenize(QStringView)", "0000000000001000 T fennar::Scene::items() const"]
    stray_core = ["fennar::untold(QString)", "fennar::Scenery::f()", "Scene::f()", "tokenize(QStringView)", "counter"]
    judged = judge_core(core + ["0000000000001000 T " + name for name in stray_core], {"Scene"}, {"tokenize"})
    if judged != ({"Scene", "tokenize"}, stray_core):
        faults.append("misjudged the kit's core")
    seen, strays = judge(fine, KIT_PUBLIC, KIT_NAMESPACE)
    if seen != KIT_PUBLIC or strays:
        faults.append(f"misjudged what is fine in the kit: {seen}, {strays}")
    faults += [f"missed in the kit: {line}" for line in stray if len(judge([line], KIT_PUBLIC, KIT_NAMESPACE)[1]) != 1]
    return faults


def marked_classes(root, folders, mark):
    """The classes that the headers in the folders mark for export, and the namespaces with marked functions."""
    marked = set()
    for folder in folders:
        for path in glob.glob(os.path.join(root, folder, "*.h")):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            marked |= set(re.findall(rf"^(?:class|struct) {mark} (\w+)", text, re.M))
            if re.search(rf"^{mark} ", text, re.M):
                marked |= set(re.findall(r"^namespace (?:fennar::)?(?!fennar )(\w+) \{", text, re.M))
    return marked


def marked_names(root, folders, mark):
    """The classes that the headers mark, or have members that they mark, and the functions."""
    classes, functions = set(), set()
    for folder in folders:
        for path in glob.glob(os.path.join(root, folder, "*.h")):
            within = None
            with open(path, encoding="utf-8") as file:
                text = file.read()
            for m in re.finditer(rf"^(?:class|struct) (?:({mark}) )?(\w+)[^;\n]*$|^( *)(?:\[\[nodiscard\]\] )?{mark} [^;(]*?(\w+)\(", text, re.M):
                if m.group(2):
                    within = m.group(2)
                    classes |= {within} if m.group(1) else set()
                elif m.group(3):
                    classes.add(within)
                else:
                    functions.add(m.group(4))
    return classes, functions


def check_core(root, lines):
    """What is wrong with the library of the kit's core."""
    classes, functions = marked_names(root, CORE, "FENNAR_CORE_EXPORT")
    seen, strays = judge_core(lines, classes, functions)
    # A class may have nothing but what its header defines.
    return ([f"marked for export, but not in the library: {name}" for name in sorted(functions - seen)] +
            [f"exported without a mark: {name}" for name in strays])


def main():
    root, library = sys.argv[1:]
    faults = prove()
    if os.path.basename(library).startswith("libfennar_core."):
        lines = subprocess.run(["nm", "-DC", "--defined-only", library], capture_output=True, text=True, check=True).stdout.splitlines()
        faults += check_core(root, lines)
        print(*faults, f"{len(lines)} symbols: {len(faults)} faults", sep="\n")
        sys.exit(1 if faults else 0)
    is_kit = os.path.basename(library).startswith("libfennar_component.")
    public = KIT_PUBLIC if is_kit else PUBLIC
    marked = marked_classes(root, KIT, "FENNAR_COMPONENT_EXPORT") if is_kit else marked_classes(root, SHELL, "OSTRELGUI_EXPORT")
    faults += [f"marked for export, but not one of the public classes: {c}" for c in sorted(marked - public)]
    faults += [f"a public class that no header marks for export: {c}" for c in sorted(public - marked)]
    lines = subprocess.run(["nm", "-DC", "--defined-only", library], capture_output=True, text=True,
                           check=True).stdout.splitlines()
    seen, strays = judge(lines, public, KIT_NAMESPACE if is_kit else "")
    faults += [f"not in the library: {c}" for c in sorted(public - seen)]
    faults += [f"exported beyond the public classes: {name}" for name in strays]
    asked = subprocess.run(["nm", "-DC", "--undefined-only", library], capture_output=True, text=True,
                           check=True).stdout
    faults += [f"the type information is not the host's: {c}" for c in sorted(OF_THE_HOST)
               if not is_kit and not re.search(rf" typeinfo for {c}(@|$)", asked, re.M)]
    for fault in faults:
        print(fault)
    print(f"{len(lines)} symbols, {len(seen)} classes: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
