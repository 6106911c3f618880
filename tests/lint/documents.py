#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Checks that the documents say what is so:  documents.py ROOT

Links lead somewhere, paths exist, quoted code is that of the file it is from, and the guide for hosts leaves no call
out. A block of code is a quotation if the line above it is

    <!-- from workbench/main.cpp -->

Its lines must stand in that file, indentation aside; a line "// ..." leaves some out.

As with house_rules.py, each rule is proved on samples first.
"""

import os
import re
import sys

from house_rules import read_tree

GUIDE = "docs/embedding.md"
# A plain count of what the tree must have at least, so that a listing gone wrong does not pass for a good one.
LEAST_DOCUMENTS = 15

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.M | re.S)
CODE_SPAN = re.compile(r"(?<!`)`([^`\n]+)`(?!`)")
LINK = re.compile(r"!?\[[^\]]*\]\(([^()\s]*)\)")


# --- Reading documents ---------------------------------------------------------------------------------------------

def documents(tree):
    return [path for path in tree if path.endswith(".md")]


def blanked(text, match):
    return re.sub(r"[^\n]", " ", match.group(0))


def without_blocks(text):
    """The document without blocks of code, fenced or indented; the lines stay where they are."""
    text = FENCE.sub(lambda m: blanked(text, m), text)
    return re.sub(r"(?:(?<=\n\n)|\A)(?: {4,}[^\n]*\n|\n)+", lambda m: blanked(text, m), text)


def without_code(text):
    return CODE_SPAN.sub(lambda m: blanked(text, m), without_blocks(text))


def line_of(text, match):
    return text.count("\n", 0, match.start()) + 1


def anchors(text):
    """The names by which the headings of a document are linked to."""
    names = []
    for match in re.finditer(r"^#{1,6} +(.+?) *$", without_blocks(text), re.M):
        heading = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", match.group(1))
        name = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        taken = names.count(name)
        names.append(f"{name}-{taken}" if taken else name)
    return names


# --- The rules: each takes the tree and yields the files it looked at and its complaints -----------------------------

def links_lead_somewhere(tree):
    """What a link names is in the tree, and so is the heading behind "#"."""
    folders = {os.path.dirname(path) for path in tree}
    folders |= {folder[:i] for folder in folders for i, c in enumerate(folder) if c == "/"}
    bad = []
    for path in documents(tree):
        text = without_code(tree[path])
        for match in LINK.finditer(text):
            target, _, anchor = match.group(1).partition("#")
            if re.match(r"https?://[\w.-]+/", target):
                continue
            full = os.path.normpath(os.path.join(os.path.dirname(path), target)) if target else path
            if full not in tree and full not in folders and full not in tree.pictures:
                bad.append((path, line_of(text, match), f"no such file: {target}"))
            elif anchor and anchor not in anchors(tree.get(full, "")):
                bad.append((path, line_of(text, match), f"no such heading in {full}: {anchor}"))
        for match in re.finditer(r"^ {0,3}\[[^\]]+\]:|\[[^\]]*\]\[[^\]]*\]", text, re.M):
            bad.append((path, line_of(text, match), "a link that this test does not follow; write [text](target)"))
    return documents(tree), bad


def paths_exist(tree):
    """A code span that begins with a folder of the tree names a file or folder in it, unless it has a NAME to be filled in."""
    tops = {path.split("/")[0] for path in tree if "/" in path}
    bad = []
    for path in documents(tree):
        text = without_blocks(tree[path])
        for match in CODE_SPAN.finditer(text):
            named = match.group(1)
            # Words with a slash may be settings, options or commands; those of a folder of the tree are meant.
            if not re.fullmatch(r"[\w.-]+/[\w./-]*", named) or named.split("/")[0] not in tops or "NAME" in named:
                continue
            if not any(other == named or other.startswith(named.rstrip("/") + "/") for other in tree):
                bad.append((path, line_of(text, match), f"no such path: {named}"))
    return documents(tree), bad


def index_is_complete(tree):
    """docs/index.md links to every document of its folder."""
    index = tree.get("docs/index.md", "")
    linked = {os.path.normpath(os.path.join("docs", match.group(1).partition("#")[0])) for match in LINK.finditer(index)}
    seen = [path for path in documents(tree) if path.startswith("docs/") and path != "docs/index.md"]
    return seen, [(path, 1, "docs/index.md does not link to it") for path in seen if path not in linked]


def readme_lists_folders(tree):
    """The README's tables of folders have each folder of the tree, of the workbench and of its components, and no other."""
    readme = tree.get("README.md", "")
    listed = set()
    for row in re.findall(r"^\| (`[^|]*) \|", readme, re.M):
        listed |= {name.rstrip("/") for name in CODE_SPAN.findall(row)}
    there = {found.group(1) for path in tree
             for pattern in (r"([^./][^/]*)/", r"(workbench/[^/]+)/", r"(workbench/components/[^/]+)/")
             for found in [re.match(pattern, path)] if found}
    bad = [("README.md", 1, f"the table of folders lacks {name}/") for name in sorted(there - listed)]
    bad += [("README.md", 1, f"the table of folders has {name}/, which is not there") for name in sorted(listed - there)]
    return ["README.md"] if readme else [], bad


def contains(lines, chunk, start):
    """Where the lines of a chunk end among the lines of a file; -1 if they are not there."""
    for i in range(start, len(lines) - len(chunk) + 1):
        if lines[i:i + len(chunk)] == chunk:
            return i + len(chunk)
    return -1


def quotations_are_exact(tree):
    """Quoted code stands in the file it is from. In the guide for hosts all C++ is quoted."""
    bad = []
    seen = []
    for path in documents(tree):
        text = tree[path]
        for match in FENCE.finditer(text):
            above = text[:match.start()].rstrip("\n").rpartition("\n")[2]
            source = re.fullmatch(r"<!-- from (\S+) -->", above)
            if not source:
                if path == GUIDE and match.group(1) == "cpp":
                    bad.append((path, line_of(text, match), "code that names no file it is from"))
                continue
            seen.append(path)
            if source.group(1) not in tree:
                bad.append((path, line_of(text, match), f"no such file: {source.group(1)}"))
                continue
            lines = [line.strip() for line in tree[source.group(1)].split("\n")]
            place = 0
            for chunk in re.split(r"^[ \t]*// \.\.\.\n", match.group(2), flags=re.M):
                wanted = [line.strip() for line in chunk.strip("\n").split("\n")]
                place = contains(lines, wanted, place)
                if place < 0:
                    bad.append((path, line_of(text, match), f"not in {source.group(1)}, or not in this order:\n{chunk}"))
                    break
    return seen, bad


def without_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", "", text, flags=re.S)


def public_members(text, only=None):
    """The names of the public functions and data in a header: pairs of class (or namespace) and name."""
    text = without_comments(text)
    text = re.sub(r"^#.*$", "", text, flags=re.M)
    members = []
    for match in re.finditer(r"^(class|struct|namespace) (?:\w+_EXPORT )?(\w+)[^;{]*\{\n(.*?)^\}", text, re.M | re.S):
        kind, name, body = match.groups()
        if only and name != only:
            continue
        public = kind != "class"
        for statement in re.split(r"[;{}]|(?<=[a-z]):(?=\s)", body):
            access = re.search(r"\b(public|private|protected|signals)\s*$", statement)
            plain = re.sub(r"\b(Q_OBJECT|Q_DISABLE_COPY_MOVE\(\w+\))", "", statement).strip()
            if public and not access and plain:
                function = re.search(r"([~\w]+|operator\S+)\s*\(", plain)
                word = function.group(1) if function else None
                if not function and not re.match(r"(class|struct|enum|using|friend|explicit)\b", plain):
                    data = re.search(r"(\w+)\s*(?:=[^=]*)?$", plain)
                    word = data.group(1) if data and " " in plain else None
                if word and word.lstrip("~") != name:
                    members.append((name, word))
            if access:
                public = access.group(1) == "public"
    return members


def guide_covers_host(tree):
    """The guide for hosts mentions every public function of MainFrame, and every member of the classes in host/."""
    guide = tree.get(GUIDE, "")
    code = " ".join([m.group(2) for m in FENCE.finditer(guide)] + CODE_SPAN.findall(guide))
    wanted = public_members(tree.get("frame/MainFrame.h", ""), "MainFrame")
    for path in tree:
        if path.startswith("host/") and path.endswith(".h"):
            wanted += public_members(tree[path])
    bad = [(GUIDE, 1, f"{owner}::{name} is not mentioned") for owner, name in wanted
           if not re.search(rf"(?<!\w){re.escape(name)}(?!\w)", code)]
    return [owner for owner, _ in wanted], bad


# --- The samples ---------------------------------------------------------------------------------------------------

class Tree(dict):
    """path -> text; the pictures are known by their paths alone."""

    pictures = frozenset()


GOOD = {
    "README.md": "# A shell\n\n[guide](docs/embedding.md#all-the-calls-in-order), [more](docs/index.md), ![p](p.png)\n\n"
                 "`[not](a-link.md)` `host/a/Lid.h` `frame/` `frame/NAME.h`\n\n    [not](a-link.md)\n\n"
                 "| folder | what |\n| --- | --- |\n| `docs/`, `host/` | a |\n| `frame/` | b |\n",
    "docs/index.md": "# Docs\n\n[Guide](embedding.md)\n",
    "docs/embedding.md": "# Guide\n\n## All the *calls*, in order\n\n`open()`, `close()`, `lid`, `text`, `run`\n\n"
                         "<!-- from frame/main.cpp -->\n```cpp\nint a;\n// ...\nif (a) {\n    b();\n```\n\n```sh\nls\n```\n",
    "frame/main.cpp": "    int a;\n    int c;\n    if (a) {\n        b();\n    }\n",
    "frame/MainFrame.h": "class Other;\nclass X_EXPORT MainFrame : public A\n{\n    Q_OBJECT\n\npublic:\n    MainFrame();\n"
                         "    /** Opens. */\n    bool open() override;\n\nprotected:\n    void hidden();\n\nprivate:\n    int mB;\n};\n",
    "host/a/Lid.h": "class Lid\n{\npublic:\n    virtual ~Lid() = default;\n    virtual void close(int a) = 0;\n"
                    "    static int lid;\n\nprivate:\n    struct P;\n    void own();\n};\n\n"
                    "struct R\n{\n    QString text;\n};\n\nnamespace N {\n\nvoid run();\n\n} // namespace N\n",
}

BAD = {
    links_lead_somewhere: [
        {"docs/index.md": "[Guide](embeding.md)\n"},
        {"README.md": "[guide](docs/embedding.md#all-the-calls)\n"},
        {"README.md": "[here](#nowhere)\n"},
        {"README.md": "![p](q.png)\n"},
        {"README.md": "[a][b]\n"},
        {"README.md": "[a]\n\n[a]: docs/nowhere.md\n"},
        {"README.md": "[p](file:///etc)\n"},
    ],
    paths_exist: [{"README.md": "see `frame/Box.h`\n"}, {"README.md": "see `host/b/`\n"}],
    index_is_complete: [{"docs/more.md": "# More\n"}],
    readme_lists_folders: [{"tools/a": ""}, {"workbench/x/a.cpp": ""}, {"workbench/components/x/a.cpp": ""}, {"README.md": "| `docs/`, `host/`, `frame/`, `gone/` | a |\n"}],
    quotations_are_exact: [
        {"frame/main.cpp": "int a;\n"},
        {"frame/main.cpp": "if (a) {\nb();\nint a;\n"},
        {"frame/main.cpp": "int a;\nif (a) {\n\nb();\n"},
        {"docs/embedding.md": "```cpp\nint a;\n```\n"},
        {"docs/index.md": "<!-- from frame/gone.cpp -->\n```cpp\nint a;\n```\n"},
    ],
    guide_covers_host: [
        {"docs/embedding.md": f"# Guide\n\n{names} close open lid text run\n"}
        for names in ("`close` `lid` `text` `run`", "`open` `lid` `text` `run`", "`open` `close` `text` `run`",
                      "`open` `close` `lid` `run`", "`open` `close` `lid` `text`",
                      "`reopen()` `close` `lid` `text` `run`")],
}


def sample(changes=()):
    tree = Tree({**GOOD, **dict(changes)})
    tree.pictures = frozenset({"p.png"})
    return tree


def prove():
    """What is wrong with the rules themselves."""
    faults = []
    for rule, samples in BAD.items():
        seen, complaints = rule(sample())
        if complaints:
            faults.append(f"{rule.__name__} complains about the good sample: {complaints}")
        if not seen:
            faults.append(f"{rule.__name__} looks at nothing in the good sample")
        for changes in samples:
            if not rule(sample(changes))[1]:
                faults.append(f"{rule.__name__} misses its bad sample {changes}")
    expected = [("MainFrame", "open"), ("Lid", "close"), ("Lid", "lid"), ("R", "text"), ("N", "run")]
    found = public_members(GOOD["frame/MainFrame.h"]) + public_members(GOOD["host/a/Lid.h"])
    if found != expected:
        faults.append(f"public_members finds {found}")
    return faults


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    faults = prove()
    tree = Tree(read_tree(root))
    tree.pictures = frozenset(os.path.relpath(os.path.join(folder, name), root)
                              for folder, _, names in os.walk(os.path.join(root, "docs"))
                              for name in names if name.endswith(".png"))
    if len(documents(tree)) < LEAST_DOCUMENTS:
        faults.append(f"only {len(documents(tree))} documents found in {root}, expected {LEAST_DOCUMENTS} or more")
    for rule in BAD:
        seen, complaints = rule(tree)
        if not seen:
            faults.append(f"{rule.__name__} finds nothing to look at in {root}")
        faults += [f"{path}:{line}: {text}  [{rule.__name__}]" for path, line, text in complaints]
    for fault in faults:
        print(fault)
    print(f"{len(BAD)} rules, {len(documents(tree))} documents: {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
