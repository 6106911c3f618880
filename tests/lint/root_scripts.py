#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Tests of the scripts at the root:  root_scripts.py ROOT

Each test runs a copy of a script in a folder of its own, with stand-ins for the compiler, CTest and the workbench that
write down how they were called.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.abspath(sys.argv.pop(1))


class Scripts(unittest.TestCase):
    def setUp(self):
        self.root = tempfile.mkdtemp(prefix="root_scripts.")
        self.addCleanup(shutil.rmtree, self.root)
        for script in ("run", "check", "bench", ".ci/run"):
            target = os.path.join(self.root, script)
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(os.path.join(ROOT, script), target)
        self.log = os.path.join(self.root, "log")
        open(self.log, "w").close()
        self.stand_in("tools/packages")
        self.stand_in("path/cmake")
        self.stand_in("tests/support/with-display", '"$@"')
        self.stand_in("build/release/bin/fennar", "echo 1 >first.png")
        # A version that is not checked for, so that no formatting is.
        self.stand_in("path/clang-format", "echo version 99.0")
        self.stand_in("path/clang-format-14", "echo version 99.0")
        self.write("tests/lint/house_rules.py", "")
        self.write("workbench/journals/tour.jou", "# a comment\necho hello\npicture first.png\nquit\n")

    def write(self, path, text):
        path = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def stand_in(self, path, body=""):
        """A script that logs its name and arguments, then does what `body` says."""
        name = os.path.basename(path)
        os.chmod(self.write(path, f'#!/bin/sh\necho "{name} $*" >>"{self.log}"\n{body}\n'), 0o755)

    def call(self, *command, **environment):
        env = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        env["PATH"] = os.path.join(self.root, "path") + ":" + env["PATH"]
        env.update(environment)
        return subprocess.run([os.path.join(self.root, command[0]), *command[1:]], env=env, cwd="/",
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)

    def calls(self, name):
        with open(self.log, encoding="utf-8") as file:
            return [line.rstrip("\n") for line in file if line.split(" ")[0] == name]

    # --- run

    def test_run_with_a_display_hands_the_arguments_on_and_plays_nothing(self):
        self.assertEqual(self.call("run", "--play", "a b.jou", DISPLAY=":9").returncode, 0)
        self.assertEqual(self.calls("fennar"), ["fennar --play a b.jou"])
        self.assertEqual(self.calls("with-display"), [])

    def test_run_builds_the_workbench_only(self):
        self.call("run", DISPLAY=":9")
        self.assertEqual([c.split("--target")[1] for c in self.calls("cmake") if "--target" in c], [" fennar"])

    def test_run_configures_a_tree_once(self):
        self.call("run", DISPLAY=":9")
        self.assertEqual(len([c for c in self.calls("cmake") if "--preset release" in c]), 1)
        self.write("build/release/build.ninja", "")
        self.call("run", DISPLAY=":9")
        self.assertEqual(len([c for c in self.calls("cmake") if "--preset release" in c]), 1)

    def test_run_without_display_plays_the_tour_and_names_its_pictures(self):
        run = self.call("run")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(self.calls("fennar"), ["fennar --play tour.jou"])
        with open(os.path.join(self.root, "build/pictures/tour.jou"), encoding="utf-8") as journal:
            self.assertIn("echo hello", journal.read())
        self.assertEqual(len(self.calls("with-display")), 1)
        self.assertTrue(os.path.exists(os.path.join(self.root, "build/pictures/first.png")) and
                        run.stdout.endswith("build/pictures/first.png\n"))

    def test_run_fails_if_the_tour_leaves_no_picture(self):
        self.stand_in("build/release/bin/fennar")
        self.assertEqual(self.call("run").returncode, 1)

    def test_run_takes_an_empty_picture_for_none(self):
        self.stand_in("build/release/bin/fennar", ": >first.png")
        self.assertEqual(self.call("run").returncode, 1)

    def test_run_does_not_take_an_old_picture_for_a_new_one(self):
        self.write("build/pictures/first.png", "old")
        self.stand_in("build/release/bin/fennar")
        self.assertEqual(self.call("run").returncode, 1)

    def test_run_fails_as_the_workbench_does(self):
        self.stand_in("build/release/bin/fennar", "echo picture >first.png; exit 7")
        self.assertEqual(self.call("run").returncode, 7)

    def test_run_keeps_the_tour_away_from_the_settings_of_the_user(self):
        self.stand_in("build/release/bin/fennar", f'echo "at $HOME $XDG_CONFIG_HOME" >>"{self.log}"; echo 1 >first.png')
        self.assertEqual(self.call("run", HOME="/somewhere", XDG_CONFIG_HOME="/somewhere").returncode, 0)
        self.assertEqual(self.calls("at"), [f"at {self.root}/build/tour-home {self.root}/build/tour-home/config"])

    def test_a_batch_run_needs_no_display(self):
        self.assertEqual(self.call("run", "--batch", "--play", "x.jou").returncode, 0)
        self.assertEqual(self.calls("with-display"), [])
        self.assertEqual(self.calls("fennar"), ["fennar --batch --play x.jou"])

    def test_run_without_display_but_with_arguments_hands_them_on(self):
        self.assertEqual(self.call("run", "--play", "x.jou").returncode, 0)
        self.assertEqual(self.calls("fennar"), ["fennar --play x.jou"])
        self.assertEqual(len(self.calls("with-display")), 1)

    # --- check

    SUMMARY = "100% tests passed, 0 tests failed out of 3"

    def ctest(self, fails_in=None):
        """A CTest that writes a summary where it is told to, and fails in the build named."""
        self.stand_in("path/ctest", 'while [ $# -gt 0 ]; do case $1 in --preset) p=$2;; --output-log) l=$2;; esac; shift; done\n'
                      f'mkdir -p "$(dirname "$l")"; echo "1/3 Test #1\n\n{self.SUMMARY}\nTime $p" | tee "$l"\n'
                      f'[ "$p" != "{fails_in}" ]')

    def test_check_checks_format_and_release(self):
        self.ctest()
        self.write("tests/lint/house_rules.py", f"open({self.log!r}, 'a').write('house_rules .\\n')")
        check = self.call("check")
        self.assertEqual(check.returncode, 0, check.stderr)
        self.assertEqual([c.split()[2] for c in self.calls("ctest")], ["release"])
        self.assertEqual(len(self.calls("house_rules")), 1)

    def test_check_ends_with_the_summaries_of_all_stages(self):
        self.ctest()
        check = self.call("check", "release", "asan")
        self.assertEqual(check.returncode, 0, check.stderr)
        self.assertEqual([c.split()[2] for c in self.calls("ctest")], ["release", "asan"])
        self.assertTrue(check.stdout.endswith(
            f"\n== release\n{self.SUMMARY}\nTime release\n\n== asan\n{self.SUMMARY}\nTime asan\n"), check.stdout)

    def test_check_makes_warnings_errors_in_every_build_with_proven_versions_only_but_in_ci(self):
        for ci, wanted in (("", "PROVEN"), ("true", "ON"), ("1", "ON")):
            with self.subTest(ci):
                self.ctest()
                open(self.log, "w").close()
                self.call("check", "release", "asan", CI=ci)
                configured = [c for c in self.calls("cmake") if "--build" not in c]
                self.assertEqual(len(configured), 2)
                for call in configured:
                    self.assertTrue(call.endswith(f"-DOSTREL_WARNINGS_AS_ERRORS={wanted}"), call)

    def test_check_fails_with_the_first_stage_that_fails(self):
        self.ctest(fails_in="release")
        check = self.call("check", "release", "asan")
        self.assertNotEqual(check.returncode, 0)
        self.assertEqual(len(self.calls("ctest")), 1)
        self.assertTrue(check.stdout.endswith(f"{self.SUMMARY}\nTime release\n"))

    def test_check_ends_with_what_failed(self):
        self.stand_in("path/ctest", 'while [ $# -gt 0 ]; do case $1 in --output-log) l=$2;; esac; shift; done\n'
                      'mkdir -p "$(dirname "$l")"; printf "FAIL!  : one\\n   Loc: here\\nPASS   : two\\n" >"$l"; exit 8')
        check = self.call("check", "release")
        self.assertEqual(check.returncode, 8)
        self.assertTrue(check.stdout.endswith("\n== release: what failed\nFAIL!  : one\n   Loc: here\nPASS   : two\n"), check.stdout)

    def test_check_fails_with_the_last_stage_too(self):
        self.ctest(fails_in="asan")
        self.assertNotEqual(self.call("check", "release", "asan").returncode, 0)

    def test_check_fails_when_the_build_fails(self):
        self.ctest()
        self.stand_in("path/cmake", '[ "$1" != --build ]')
        self.assertNotEqual(self.call("check").returncode, 0)
        self.assertEqual(self.calls("ctest"), [])

    def test_check_fails_on_a_broken_house_rule(self):
        self.ctest()
        self.write("tests/lint/house_rules.py", "import sys; sys.exit(1)")
        self.assertNotEqual(self.call("check").returncode, 0)
        self.assertEqual(self.calls("ctest"), [])

    def test_check_fails_on_bad_formatting(self):
        self.ctest()
        self.write("frame/a.cpp", "")
        for name in ("clang-format", "clang-format-14"):
            self.stand_in("path/" + name, 'echo version 14.0; [ "$1" = --version ]')
        self.assertNotEqual(self.call("check", "format").returncode, 0)
        self.assertIn("./frame/a.cpp", " ".join(self.calls("clang-format") + self.calls("clang-format-14")))

    def test_check_tidies_what_is_built(self):
        self.ctest()
        self.stand_in("tools/tidy")
        check = self.call("check", "tidy", CI="")
        self.assertEqual(check.returncode, 0, check.stderr)
        self.assertEqual(self.calls("tidy"), ["tidy "])
        self.assertEqual(len([c for c in self.calls("cmake") if "--preset release" in c]), 2)
        self.assertEqual(self.calls("ctest"), [])
        self.assertEqual(self.calls("packages"), ["packages build display check tidy"])

    def test_check_builds_components_outside_of_the_tree(self):
        self.ctest()
        check = self.call("check", "kit")
        self.assertEqual(check.returncode, 0, check.stderr)
        self.assertEqual(len([c for c in self.calls("cmake") if "--preset release" in c]), 2)
        self.assertEqual(self.calls("ctest"),
                         ["ctest --preset release -C kit -R ^installed_components$ --no-tests=error"])
        self.ctest(fails_in="release")
        self.assertNotEqual(self.call("check", "kit").returncode, 0)

    def test_check_fails_on_a_finding_of_tidy(self):
        self.stand_in("tools/tidy", "exit 1")
        self.assertNotEqual(self.call("check", "tidy").returncode, 0)

    def test_check_fetches_what_compiles_with_sanitizers(self):
        self.ctest()
        self.call("check", "asan", CI="")
        self.assertEqual(self.calls("packages"), ["packages build display check asan"])

    def test_check_fetches_what_tidies_only_for_that(self):
        self.ctest()
        self.call("check", CI="")
        self.assertEqual(self.calls("packages"), ["packages build display check"])

    def test_check_fetches_clusters_in_ci(self):
        self.ctest()
        self.call("check", "release", CI="true")
        self.assertEqual(self.calls("packages"), ["packages build display check sweep"])

    def test_check_runs_the_stages_named(self):
        self.ctest()
        self.assertEqual(self.call("check", "asan").returncode, 0)
        self.assertEqual([c.split()[2] for c in self.calls("ctest")], ["asan"])

    def test_check_refuses_a_stage_that_there_is_not(self):
        self.assertEqual(self.call("check", "release", "no-such").returncode, 2)
        self.assertEqual(self.calls("cmake"), [])

    def test_ci_calls_check_with_every_stage(self):
        self.ctest()
        self.stand_in("tools/tidy")
        ci = self.call(".ci/run", CI="")
        self.assertEqual(ci.returncode, 0)
        self.assertEqual(re.findall("^== (.*)", ci.stdout, re.M)[:5], ["format", "release", "kit", "asan", "tidy"])
        self.assertEqual([c.split()[2] for c in self.calls("ctest")], ["release", "release", "asan"])
        configured = [c for c in self.calls("cmake") if "--build" not in c]
        self.assertEqual([c for c in configured if not c.endswith("-DOSTREL_WARNINGS_AS_ERRORS=ON")], [])

    def test_ci_bounds_how_much_is_tidied(self):
        self.ctest()
        self.stand_in("tools/tidy")
        self.call(".ci/run")
        self.assertEqual(self.calls("tidy"), ["tidy --at-most=60"])

    def test_ci_fails_on_a_finding_of_tidy(self):
        self.ctest()
        self.stand_in("tools/tidy", "exit 1")
        self.assertNotEqual(self.call(".ci/run").returncode, 0)

    # --- bench

    def test_bench_prints_the_rows_of_all_benchmarks_as_one_table(self):
        self.stand_in("build/release/bin/bench_a", r"printf 'a b\t1 ms\t2 ms\t0.5 x\t1.1 x\nnote\n'")
        self.stand_in("build/release/bin/bench_b", r"printf 'cdefg\t240 ns\t\t240 ns\t300 ns\n'")
        bench = self.call("bench", "--strict")
        self.assertEqual(bench.returncode, 0, bench.stderr)
        self.assertEqual(bench.stdout, "work   measured  yardstick  figure     aim  result\n"
                                       "a b        1 ms       2 ms   0.5 x   1.1 x  met\n"
                                       "cdefg    240 ns             240 ns  300 ns  met\n"
                                       "note\n")

    def test_only_a_strict_bench_fails_over_the_aim(self):
        self.stand_in("build/release/bin/bench_a", r"printf 'a\t1 ms\t2 ms\t10.5 x\t9 x\n'")
        self.assertEqual(self.call("bench").returncode, 0)
        strict = self.call("bench", "--strict")
        self.assertEqual(strict.returncode, 1)
        self.assertIn("over\n", strict.stdout)

    def test_bench_fails_when_a_benchmark_crashes_and_runs_the_others(self):
        self.stand_in("build/release/bin/bench_a", "kill -SEGV $$")
        self.stand_in("build/release/bin/bench_b", r"printf 'b\t1 ms\t2 ms\t0.5 x\t1.1 x\n'")
        bench = self.call("bench")
        self.assertEqual(bench.returncode, 3)
        self.assertIn("bench_a", bench.stderr)
        self.assertRegex(bench.stdout, re.compile("^b ", re.M))

    def test_bench_runs_the_benchmarks_named(self):
        self.stand_in("build/release/bin/bench_a")
        self.stand_in("build/release/bin/bench_b")
        self.assertEqual(self.call("bench", "b").returncode, 0)
        self.assertEqual((self.calls("bench_a"), len(self.calls("bench_b"))), ([], 1))

    def test_bench_without_benchmarks_fails(self):
        self.assertEqual(self.call("bench").returncode, 2)

    # --- tools/packages

    def packages(self, *groups):
        """tools/packages with nothing but the stand-ins within its reach."""
        return subprocess.run(["/bin/sh", os.path.join(ROOT, "tools/packages"), *groups],
                              env={"PATH": os.path.join(self.root, "path")}, capture_output=True, text=True, check=False)

    def empty_path(self):
        shutil.rmtree(os.path.join(self.root, "path"))
        os.mkdir(os.path.join(self.root, "path"))
        open(self.log, "w").close()

    def apt(self, installed, known, uid=0, provides=""):
        """A package manager that has some packages installed, of which one provides others, and knows some."""
        for tool in ("grep", "env"):
            os.symlink(shutil.which(tool), os.path.join(self.root, "path", tool))
        self.stand_in("path/apt-get")
        self.stand_in("path/apt-cache", f'case " {known} " in *" $2 "*) echo "$2";; esac')
        self.stand_in("path/dpkg-query", f'case " {installed} " in *" $4 "*) echo installed;; *) [ $# = 3 ] || exit 1;'
                      f'echo "installed {provides},"; echo "deinstalled libgmsh-dev (= 1),";; esac')
        self.stand_in("path/id", f"echo {uid}")

    ALL = ("g++ cmake ninja-build mold ccache qt6-base-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n "
           "libgl-dev libqt6opengl6-dev pybind11-dev python3-dev fonts-dejavu-core libgmsh-dev "
           "libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev libocct-data-exchange-dev libocct-visualization-dev")

    def test_packages_without_apt_names_them_all_and_fails(self):
        packages = self.packages("build", "display")
        self.assertEqual(packages.returncode, 1)
        for name in self.ALL.split() + ["qt6-svg-plugins", "xvfb", "openbox"]:
            self.assertIn(f"    {name}\n", packages.stderr)
        self.assertNotIn("locales", packages.stderr)

    def test_packages_with_everything_there_asks_nothing_of_apt(self):
        self.apt(installed=self.ALL + " libqt6svg6", known="", uid=1000)
        self.assertEqual(self.packages("build").returncode, 0)
        self.assertEqual(self.calls("apt-get"), [])

    def test_packages_installs_what_is_missing_and_only_that(self):
        self.apt(installed=self.ALL.replace("cmake ", "") + " qt6-svg-plugins", known="cmake")
        self.assertEqual(self.packages("build").returncode, 0)
        self.assertEqual(self.calls("apt-get"), ["apt-get -q update",
                                                 "apt-get -q install -y --no-install-recommends cmake"])

    def test_packages_takes_what_another_package_provides(self):
        without = self.ALL.replace(" libqt6opengl6-dev", "") + " libqt6svg6"
        for provides in ("libqt6opengl6-dev (= 6.8.2)", "other (= 1), libqt6opengl6-dev", "a, libqt6opengl6-dev (= 6), b"):
            with self.subTest(provides):
                self.empty_path()
                self.apt(installed=without, known="", provides=provides)
                self.assertEqual(self.packages("build").returncode, 0)
                self.assertEqual(self.calls("apt-get"), [])
        self.empty_path()
        self.apt(installed=without.replace(" libgmsh-dev", ""), known="", provides="not-libqt6opengl6-dev-either (= 1)")
        self.packages("build")
        self.assertEqual(self.calls("apt-get")[1:],
                         ["apt-get -q install -y --no-install-recommends libqt6opengl6-dev libgmsh-dev"])

    def test_packages_takes_the_svg_plugins_that_the_release_knows(self):
        for known in ("libqt6svg6", "qt6-svg-plugins"):
            with self.subTest(known):
                self.empty_path()
                self.apt(installed=self.ALL, known=known)
                self.assertEqual(self.packages("build").returncode, 0)
                self.assertEqual(self.calls("apt-get")[1:],
                                 [f"apt-get -q install -y --no-install-recommends {known}"])

    def test_packages_goes_through_sudo_when_not_root(self):
        self.apt(installed=self.ALL, known="libqt6svg6", uid=1000)
        self.stand_in("path/sudo", '"$@"')
        self.assertEqual(self.packages("build").returncode, 0)
        self.assertEqual(len(self.calls("sudo")), 2)
        self.assertEqual(len(self.calls("apt-get")), 2)

    def test_packages_without_root_and_sudo_names_what_is_missing(self):
        self.apt(installed=self.ALL.replace("cmake ", "") + " libqt6svg6", known="", uid=1000)
        packages = self.packages("build")
        self.assertEqual(packages.returncode, 1)
        self.assertTrue(packages.stderr.endswith(": cmake\n"), packages.stderr)

    def locked_apt(self, held, command="update"):
        """A package manager whose `command` meets another one's lock `held` times, and a clock that stands still."""
        self.apt(installed=self.ALL, known="libqt6svg6")
        held_file = self.write("path/apt-get.held", "held\n" * held)
        self.stand_in("path/apt-get", f'[ "$2" = {command} ] || exit 0; read -r line <{held_file} || exit 0\n'
                      'echo "E: Could not get lock /var/lib/l. It is held by process 7 (apt)" >&2\n'
                      f'{shutil.which("sed")} -i 1d {held_file}; exit 100')
        self.stand_in("path/sleep")

    def test_packages_waits_for_the_lock_of_another_package_manager(self):
        for command in ("update", "install"):
            with self.subTest(command):
                self.empty_path()
                self.locked_apt(held=3, command=command)
                packages = self.packages("build")
                self.assertEqual(packages.returncode, 0, packages.stderr)
                self.assertEqual(len([c for c in self.calls("apt-get") if command in c]), 4)
                self.assertEqual(len(self.calls("sleep")), 3)
                self.assertEqual(packages.stderr.count("waiting"), 1)
                self.assertIn("process 7 (apt)", packages.stderr)

    def test_packages_does_not_wait_for_a_lock_forever(self):
        self.locked_apt(held=10000)
        packages = self.packages("build")
        self.assertNotEqual(packages.returncode, 0)
        waited = sum(int(c.split()[1]) for c in self.calls("sleep"))
        self.assertTrue(120 <= waited <= 900, waited)
        self.assertTrue(packages.stderr.endswith("held by process 7 (apt)\n"), packages.stderr)
        self.assertEqual([c for c in self.calls("apt-get") if "install" in c], [])

    def test_packages_waits_for_nothing_but_a_lock(self):
        self.locked_apt(held=0)
        self.stand_in("path/apt-get", "echo 'E: no network' >&2; exit 100")
        packages = self.packages("build")
        self.assertNotEqual(packages.returncode, 0)
        self.assertEqual(packages.stderr, "E: no network\n")
        self.assertEqual((len(self.calls("apt-get")), self.calls("sleep")), (1, []))

    def test_packages_hands_warnings_of_apt_on(self):
        self.apt(installed=self.ALL, known="libqt6svg6")
        self.stand_in("path/apt-get", "echo out; echo W: something >&2")
        packages = self.packages("build")
        self.assertEqual((packages.returncode, packages.stderr), (0, "W: something\n" * 2))
        self.assertEqual(packages.stdout.count("out\n"), 2)

    def test_packages_fails_when_apt_does(self):
        self.apt(installed=self.ALL, known="libqt6svg6")
        self.stand_in("path/apt-get", '[ "$2" != install ]')
        self.assertNotEqual(self.packages("build").returncode, 0)


if __name__ == "__main__":
    unittest.main()
