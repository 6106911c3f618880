#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Tests of tools/tidy:  tidy_script.py ROOT

Each test runs a copy of the script in a repository of its own, with stand-ins for clang-tidy and clazy that write down what
they were called for.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.abspath(sys.argv.pop(1))
TREE = {
    "frame/Box.cpp": '#include "frame/Box.h"\n',
    "frame/Box.h": "",
    "frame/lid.h": "",
    "menus/Menu.cpp": '#include "frame/Box.h"\n#include "frame/lid.h"\n',
    "tests/frame/tst_box.cpp": '#include "support/wait.h"\n#include "boxes.h"\n',
    "tests/frame/boxes.h": "",
    "tests/support/wait.h": "",
    "README.md": "",
    "unbuilt.cpp": "",
}
SOURCES = ["frame/Box.cpp", "menus/Menu.cpp", "tests/frame/tst_box.cpp"]


class Tidy(unittest.TestCase):
    repository = None

    def setUp(self):
        self.root = os.path.realpath(tempfile.mkdtemp(prefix="tidy_script."))
        self.addCleanup(shutil.rmtree, self.root)
        os.mkdir(os.path.join(self.root, "tools"))
        shutil.copy(os.path.join(ROOT, "tools/tidy"), os.path.join(self.root, "tools/tidy"))
        for path, text in TREE.items():
            self.write(path, text)
        self.write(".gitignore", "/build*\n/log\n/path\n")
        self.log = self.write("log", "")
        self.stand_in("clang-tidy-14")
        self.stand_in("clazy-standalone")
        build = os.path.join(self.root, "build/release")
        entries = [{"directory": build, "file": file, "command":
                    f"c++ -DA -Werror -std=gnu++20 -Winvalid-pch -include {build}/a/cmake_pch.hxx -fpch-preprocess -c {file}"}
                   for file in [os.path.join(self.root, s) for s in [*SOURCES, SOURCES[0]]] + [build + "/mocs_compilation.cpp"]]
        self.write("build/release/compile_commands.json", json.dumps(entries))
        # What is called python3 may be a script that looks for one among many.
        os.symlink(sys.executable, os.path.join(self.root, "path/python3"))
        self.begin()

    def begin(self):
        """The first commit, made once for all tests."""
        repository = os.path.join(self.root, ".git")
        if Tidy.repository:
            shutil.copytree(Tidy.repository, repository)
            return
        self.git("init", "--template=", "--initial-branch=main")
        self.commit("the beginning")
        Tidy.repository = tempfile.mkdtemp(prefix="tidy_script.")
        self.addClassCleanup(shutil.rmtree, Tidy.repository)
        shutil.copytree(repository, Tidy.repository, dirs_exist_ok=True)

    def write(self, path, text):
        path = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def change(self, *paths):
        for path in paths:
            with open(os.path.join(self.root, path), "a", encoding="utf-8") as file:
                file.write("// changed\n")

    def stand_in(self, name, body="", version="14.0.6"):
        path = self.write("path/" + name, '#!/bin/sh\n[ "$1" != --version ] || { echo "LLVM version ' + version + '"; exit; }\n'
                          f'echo "{name} $*" >>"{self.log}"\n{body}\n')
        os.chmod(path, 0o755)

    def git(self, *arguments):
        environment = {**os.environ, "GIT_CONFIG_GLOBAL": "/dev/null", "GIT_CONFIG_SYSTEM": "/dev/null",
                       **{f"GIT_{role}_{what}": "a" for role in ("AUTHOR", "COMMITTER") for what in ("NAME", "EMAIL")}}
        subprocess.run(["git", "-C", self.root, "-c", "maintenance.auto=false", *arguments], env=environment, check=True, capture_output=True)

    def commit(self, *changes):
        self.change(*[c for c in changes if c in TREE])
        self.git("add", "--all")
        self.git("commit", "--message", " ".join(changes))

    def make_shallow(self, depth):
        """Leaves of the repository what a clone of so many commits has."""
        clone = os.path.join(self.root, "build/clone")
        self.git("clone", f"--depth={depth}", "file://" + self.root, clone)
        shutil.rmtree(os.path.join(self.root, ".git"))
        os.rename(os.path.join(clone, ".git"), os.path.join(self.root, ".git"))
        shutil.rmtree(clone)

    def tidy(self, *arguments, root=None, cwd="/"):
        env = {**os.environ, "PATH": os.path.join(self.root, "path") + ":" + os.environ["PATH"],
               "GIT_CEILING_DIRECTORIES": os.path.dirname(self.root)}
        return subprocess.run([os.path.join(root or self.root, "tools/tidy"), *arguments], env=env, cwd=cwd,
                              capture_output=True, text=True, check=False)

    def looked_at(self, *arguments, cwd="/"):
        """What clang-tidy was called for, which is what clazy was called for."""
        tidy = self.tidy(*arguments, cwd=cwd)
        self.assertEqual(tidy.returncode, 0, tidy.stdout + tidy.stderr)
        calls = {"clang-tidy-14": [], "clazy-standalone": []}
        with open(self.log, encoding="utf-8") as log:
            for line in log:
                words = line.split()
                calls[words[0]].append(os.path.relpath(words[-1], self.root))
        self.assertEqual(sorted(calls["clang-tidy-14"]), sorted(calls["clazy-standalone"]))
        return sorted(calls["clang-tidy-14"])

    # --- What is looked at

    def test_whole_tree_is_every_source_once_and_nothing_generated(self):
        self.assertEqual(self.looked_at("--all"), SOURCES)

    def test_nothing_changed_is_nothing_to_look_at(self):
        self.git("tag", "v1")
        self.assertEqual(self.looked_at(), [])

    def test_branch_counts_from_where_it_left_main(self):
        self.git("checkout", "-b", "work")
        self.commit("frame/Box.cpp")
        self.commit("README.md")
        self.git("checkout", "main")
        self.commit("menus/Menu.cpp")
        self.git("checkout", "work")
        self.assertEqual(self.looked_at(), ["frame/Box.cpp"])

    def test_main_counts_from_the_last_tag(self):
        self.commit("menus/Menu.cpp")
        self.git("tag", "v1")
        self.commit("frame/Box.cpp")
        self.commit("tests/frame/tst_box.cpp")
        self.assertEqual(self.looked_at(), ["frame/Box.cpp", "tests/frame/tst_box.cpp"])

    def test_main_without_a_tag_counts_its_last_commit(self):
        self.commit("menus/Menu.cpp")
        self.commit("frame/Box.cpp")
        self.assertEqual(self.looked_at(), ["frame/Box.cpp"])

    def test_only_commit_is_the_whole_tree(self):
        self.assertEqual(self.looked_at(), SOURCES)

    def test_given_revision_counts_from_the_merge_base_with_it(self):
        self.commit("menus/Menu.cpp")
        self.commit("frame/Box.cpp")
        self.commit("tests/frame/tst_box.cpp")
        self.assertEqual(self.looked_at("HEAD~2"), ["frame/Box.cpp", "tests/frame/tst_box.cpp"])

    def test_what_is_not_committed_counts(self):
        self.git("tag", "v1")
        self.change("frame/Box.cpp")
        os.remove(os.path.join(self.root, "menus/Menu.cpp"))
        self.assertEqual(self.looked_at(), ["frame/Box.cpp"])

    def test_new_file_counts(self):
        os.remove(os.path.join(self.root, "menus/Menu.cpp"))
        self.commit("without")
        self.git("tag", "v1")
        self.write("menus/Menu.cpp", TREE["menus/Menu.cpp"])
        self.assertEqual(self.looked_at(), ["menus/Menu.cpp"])

    def test_header_stands_for_its_source(self):
        self.git("tag", "v1")
        self.change("frame/Box.h")
        self.assertEqual(self.looked_at(), ["frame/Box.cpp"])

    def test_header_without_source_stands_for_one_that_includes_it(self):
        for header, source in (("frame/lid.h", "menus/Menu.cpp"), ("tests/frame/boxes.h", "tests/frame/tst_box.cpp"),
                               ("tests/support/wait.h", "tests/frame/tst_box.cpp")):
            with self.subTest(header):
                self.write("log", "")
                self.commit(header)
                self.assertEqual(self.looked_at(), [source])

    def test_sources_that_are_not_built_are_left_out(self):
        self.git("tag", "v1")
        self.change("unbuilt.cpp")
        self.assertEqual(self.looked_at(), [])

    def test_paths_are_sources_and_headers_and_the_sources_in_folders(self):
        for paths, sources in ((["frame/Box.cpp"], ["frame/Box.cpp"]), (["frame/lid.h", "tests"], SOURCES[1:]),
                               (["frame/", "frame/Box.cpp"], SOURCES[:1]), (["."], SOURCES), (["README.md", "fram"], None)):
            with self.subTest(paths):
                self.write("log", "")
                paths = [os.path.join(self.root, path) for path in paths]
                if sources:
                    self.assertEqual(self.looked_at(*paths), sources)
                else:
                    self.assertEqual(self.tidy(*paths).returncode, 2)

    def test_path_that_exists_is_no_revision(self):
        self.commit("menus/Menu.cpp")
        self.git("branch", "tests", "HEAD~1")
        self.assertEqual(self.looked_at("tests"), ["menus/Menu.cpp"])
        self.write("log", "")
        self.assertEqual(self.looked_at("tests", cwd=self.root), ["tests/frame/tst_box.cpp"])

    def test_of_many_sources_those_that_changed_last_are_looked_at(self):
        self.git("tag", "v1")
        self.commit("tests/frame/tst_box.cpp")
        self.commit("frame/Box.h")
        self.commit("README.md")
        self.commit("menus/Menu.cpp")
        for count, sources in ((1, ["menus/Menu.cpp"]), (2, ["frame/Box.cpp", "menus/Menu.cpp"]), (3, SOURCES), (4, SOURCES)):
            with self.subTest(count):
                self.write("log", "")
                self.assertEqual(self.looked_at("--at-most", str(count)), sources)
        self.assertIn("\n3 sources; only the 2 that changed last are looked at\n", self.tidy("--at-most", "2").stdout)
        self.assertIn("\n3 sources\n", self.tidy("--at-most", "3").stdout)

    def test_what_is_not_committed_changed_last(self):
        self.git("tag", "v1")
        self.commit("frame/Box.cpp")
        self.commit("menus/Menu.cpp")
        self.change("tests/frame/boxes.h")
        self.assertEqual(self.looked_at("--at-most", "1"), ["tests/frame/tst_box.cpp"])

    def test_what_a_merge_brings_changed_with_it(self):
        self.git("tag", "v1")
        self.git("checkout", "-b", "work")
        self.commit("menus/Menu.cpp")
        self.git("checkout", "main")
        self.commit("frame/Box.cpp")
        self.git("merge", "--no-ff", "--message", "merge", "work")
        self.assertEqual(self.looked_at("--at-most", "1"), ["menus/Menu.cpp"])

    def test_branch_counts_from_where_it_left_main_with_a_bound_too(self):
        self.git("checkout", "-b", "work")
        self.commit("frame/Box.cpp")
        self.assertEqual(self.looked_at("--at-most", "2"), ["frame/Box.cpp"])

    def test_revision_may_be_given_with_a_bound(self):
        self.commit("frame/Box.cpp")
        self.commit("menus/Menu.cpp")
        self.assertEqual(self.looked_at("--at-most", "2", "HEAD~1"), ["menus/Menu.cpp"])

    def test_main_without_a_tag_counts_as_much_of_the_tree_as_the_bound_allows(self):
        self.commit("menus/Menu.cpp")
        self.commit("frame/Box.cpp")
        self.git("checkout", "--detach")
        self.assertEqual(self.looked_at("--at-most", "2"), ["frame/Box.cpp", "menus/Menu.cpp"])

    # --- Where it cannot be told what has changed

    def assert_nothing_is_looked_at(self, why, tidy):
        self.assertEqual((tidy.returncode, tidy.stdout),
                         (0, f"tools/tidy: nothing is looked at; {why}; --all looks at the whole tree\n"), tidy.stderr)
        with open(self.log, encoding="utf-8") as log:
            self.assertEqual(log.read(), "")

    def test_folder_that_is_no_repository_is_left_alone(self):
        shutil.rmtree(os.path.join(self.root, ".git"))
        self.assert_nothing_is_looked_at("this is not a git repository", self.tidy())
        self.assertEqual(self.tidy("HEAD").returncode, 2)
        self.assertEqual(self.looked_at("--all"), SOURCES)

    def test_folder_in_the_repository_of_another_is_left_alone(self):
        shutil.rmtree(os.path.join(self.root, ".git"))
        around = tempfile.mkdtemp(prefix="tidy_script.")
        self.addCleanup(shutil.rmtree, around)
        subprocess.run(["git", "init", "--quiet", around], check=True)
        copy = shutil.copytree(self.root, os.path.join(around, "unpacked"))
        self.assert_nothing_is_looked_at("this is not a git repository", self.tidy(root=copy))

    def test_clone_of_the_last_commit_only_is_left_alone(self):
        self.commit("menus/Menu.cpp")
        self.make_shallow(1)
        self.assert_nothing_is_looked_at("what has changed is not known in a clone without the commits before", self.tidy())

    def test_clone_of_the_last_two_commits_counts_the_last(self):
        self.commit("menus/Menu.cpp")
        self.commit("frame/Box.cpp")
        self.make_shallow(2)
        for bound in ((), ("--at-most", "3")):
            with self.subTest(bound):
                self.write("log", "")
                self.assertEqual(self.looked_at(*bound), ["frame/Box.cpp"])

    # --- What comes of it

    def test_finding_of_either_is_shown_and_fails(self):
        for tool in ("clang-tidy-14", "clazy-standalone"):
            with self.subTest(tool):
                self.stand_in(tool, 'case "$*" in *Menu.cpp) echo "/a.cpp:1:1: warning: bad [check]" >&2; '
                                    'echo "12 warnings generated." >&2;; esac')
                tidy = self.tidy("--all")
                self.assertEqual(tidy.returncode, 1)
                self.assertIn("-- menus/Menu.cpp\n/a.cpp:1:1: warning: bad [check]\n1 of 3 ", tidy.stdout)
                self.stand_in(tool)

    def test_tool_that_fails_fails(self):
        self.stand_in("clazy-standalone", "echo broken; exit 3")
        tidy = self.tidy("--all")
        self.assertEqual(tidy.returncode, 1)
        self.assertIn("broken", tidy.stdout)

    def test_noise_of_a_source_that_is_well_is_not_shown(self):
        self.stand_in("clang-tidy-14", "echo 12 warnings generated.")
        self.assertEqual(self.tidy("--all").stdout, "3 sources\n0 of 3 sources with findings\n")

    def test_tools_read_commands_without_what_only_the_compiler_knows(self):
        self.tidy("--all")
        with open(os.path.join(self.root, "build/tidy/compile_commands.json"), encoding="utf-8") as file:
            self.assertEqual([entry["command"] for entry in json.load(file)],
                             [f"c++ -DA -std=gnu++20 -c {self.root}/{source}" for source in SOURCES])

    def test_sources_that_are_compiled_in_one_file_are_looked_at_one_by_one(self):
        joined = self.write("build/release/a.dir/Unity/unity_0_cxx.cxx",
                            "".join(f'#include "{self.root}/{source}"\n\n' for source in SOURCES))
        self.write("build/release/compile_commands.json", json.dumps(
            [{"directory": self.root, "file": joined, "command": f"c++ -o {joined}.o -c {joined}", "output": joined + ".o"}]))
        self.assertEqual(self.tidy("--all").stdout, f"{len(SOURCES)} sources\n0 of {len(SOURCES)} sources with findings\n")
        with open(os.path.join(self.root, "build/tidy/compile_commands.json"), encoding="utf-8") as file:
            for entry, source in zip(json.load(file), SOURCES, strict=True):
                self.assertEqual(entry["file"], os.path.join(self.root, source))
                self.assertTrue(entry["command"].endswith(f" -c {self.root}/{source}"), entry["command"])

    def test_headers_of_the_tree_are_looked_at_and_those_generated_are_not(self):
        self.tidy("--all")
        with open(self.log, encoding="utf-8") as log:
            filters = [re.search(r"--header-filter=(\S+)", line).group(1) for line in log]
        self.assertEqual(len(filters), 6)
        for expression in filters:
            # One of the two knows no more than grep -E.
            found = subprocess.run(["grep", "-E", expression], text=True, capture_output=True, check=False, input="".join(
                f"{self.root}/{path}\n" for path in ("frame/Box.h", "tests/frame/boxes.h", "build/a/ui_Box.h", "frame/a.hpp")))
            self.assertEqual(found.stdout, f"{self.root}/frame/Box.h\n{self.root}/tests/frame/boxes.h\n")

    def test_slots_of_a_test_may_know_its_locals(self):
        self.tidy("--all")
        with open(self.log, encoding="utf-8") as log:
            without = {os.path.relpath(line.split()[-1], self.root): "no-lambda-in-connect" in line
                       for line in log if line.startswith("clazy")}
        self.assertEqual(without, {"frame/Box.cpp": False, "menus/Menu.cpp": False, "tests/frame/tst_box.cpp": True})

    def test_another_version_is_said_and_not_used(self):
        self.stand_in("clang-tidy-14", version="19.1.7")
        tidy = self.tidy("--all")
        self.assertEqual(tidy.returncode, 0)
        self.assertEqual(tidy.stdout, "tools/tidy: nothing is looked at; it takes clang-tidy 14, here is 19.1.7\n")

    def test_without_a_build_or_with_wrong_words_it_cannot_look(self):
        for arguments in (("--everything",), ("main", "HEAD"), ("no-such-revision",), (self.root, "HEAD"), (self.root, "--all"),
                          ("--at-most",), ("--at-most", "0"), ("--at-most", "many"), ("--at-most", "1", "--all"),
                          ("--at-most", "1", self.root)):
            self.assertEqual(self.tidy(*arguments).returncode, 2)
        shutil.rmtree(os.path.join(self.root, "build"))
        self.assertEqual(self.tidy("--all").returncode, 2)


if __name__ == "__main__":
    unittest.main()
