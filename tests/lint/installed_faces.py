#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Checks that what the installed headers hand out can be used:  installed_faces.py ROOT LIST

LIST is a file with the names of the installed headers, one a line. Each class that a function in them returns must be defined in one of
them, or be Qt's: a pointer to a class that is only named somewhere is of no use.
"""

import os
import re
import sys

COMMENT = re.compile(r"/\*.*?\*/|//[^\n]*", re.S)
CLASS = re.compile(r"\b(class|struct)\s+(?:[A-Z_]+_EXPORT\s+)?(\w+)\b[^;{()]*\{")
RETURNED = re.compile(r"^\s*(?:static |virtual |const |inline )*(\w+)(?:\s*[*&]+\s*|\s+)\w+\([^;{]*\)[^;{]*[;{]", re.M)
# Neither a type nor a class of the tree.
OTHERS = re.compile(r"Q[A-Z]\w*$|(?:void|bool|int|double|char|auto|return|explicit|u?int\d+_t|size_t|qreal|q\w+)$")


def public_part(text):
    """The header without comments and without what is private."""
    text = COMMENT.sub("", text)
    return re.sub(r"\n(?:private|private slots):.*?(?=\n(?:public|protected|signals|public slots)\b[^\n]*:|\n\};)", "", text,
                  flags=re.S)


def faults_of(headers):
    """For a dictionary from the headers' names to their texts."""
    parts = {name: public_part(text) for name, text in headers.items()}
    defined = {m.group(2) for part in parts.values() for m in CLASS.finditer(part)}
    named = {m.group(2) for text in headers.values()
             for m in re.finditer(r"^(class|struct) (\w+);", COMMENT.sub("", text), re.M)}
    faults, handed_out = [], 0
    for name, part in sorted(parts.items()):
        for m in RETURNED.finditer(part):
            kind = m.group(1)
            if OTHERS.match(kind) or kind not in defined | named:
                continue
            handed_out += 1
            if kind not in defined:
                faults.append(f"{name}: hands out {kind}, which no installed header defines")
    return faults, handed_out


def prove():
    """What is wrong with faults_of() itself."""
    good = {"a.h": "class B;\nclass X_EXPORT A : public Q\n{\npublic:\n    B* b() const;\n    /** C* */\n    int c();\n"
                   "private:\n    D* d();\n};\nclass D;\n",
            "b.h": "struct B\n{\n};\n"}
    bad = {"a.h": "class B;\nclass A\n{\npublic:\n    static B* b();\n};\n"}
    late = {"a.h": "class B;\nclass A\n{\nprivate:\n    int a();\n\npublic slots:\n    const B& b() const { return *p; }\n};\n"}
    results = [faults_of(good), faults_of(bad), faults_of(late)]
    return [] if [(len(f), n) for f, n in results] == [(0, 1), (1, 1), (1, 1)] else [f"misjudged: {results}"]


def main():
    root, listed = sys.argv[1:]
    with open(listed, encoding="utf-8") as file:
        names = file.read().split()
    headers = {}
    for name in names:
        with open(os.path.join(root, name), encoding="utf-8") as file:
            headers[name] = file.read()
    faults, handed_out = faults_of(headers)
    faults += prove()
    if len(headers) < 20 or handed_out < 20:
        faults.append("too little was looked at")
    for fault in faults:
        print(fault)
    print(f"{len(headers)} headers, {handed_out} functions: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
