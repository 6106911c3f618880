#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Batch runs as another program starts them: values for parameters, the record in JSON, exit statuses.

batch_runs.py PROGRAM
"""

import json
import os
import pathlib
import signal
import stat
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
PATIENCE = 120

PART = """\
# A part.
parameter size number 4 min 0.1 max 10 unit mm about 'Length of an edge'
parameter count whole 2 min 1
parameter label text 'gear wheel'
echo begun
brick 10 name plate
list plate
mesh plate size $size
quality
echo $label $count
"""


class BatchRuns(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        environment = dict(os.environ)
        environment.pop("FENNAR_COMPONENT_PATH", None)
        self.environment = environment

    def write(self, name, text):
        (self.folder / name).write_text(text, encoding="utf-8")
        return name

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], cwd=self.folder, env=self.environment, timeout=PATIENCE,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)

    def record(self, name="run.json"):
        return json.loads((self.folder / name).read_text(encoding="utf-8"))

    def test_values_take_the_place_of_defaults(self):
        self.write("part.jou", PART)
        run = self.run_program("--batch", "--set", "count=7", "--set", "label=it's $size", "--play", "part.jou")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn("\nit's $size 7\n", run.stdout)

    def test_wrong_values_end_with_status_2_before_any_line_runs(self):
        self.write("part.jou", PART)
        self.write("part.py", "print('begun')\n")
        for journal, value, message in [
                ("part.jou", "size=big", 'size: expected size (a number from 0.1 to 10), found "big"'),
                ("part.jou", "size=11", 'size: expected size (a number from 0.1 to 10), found "11"'),
                ("part.jou", "count=1.5", 'count: expected count (a whole number from 1 on), found "1.5"'),
                ("part.jou", "sise=2", '"part.jou" has no parameter "sise"; did you mean "size"?'),
                ("part.py", "size=2", '"part.py" is a Python script, which has no parameters')]:
            with self.subTest(value=value):
                run = self.run_program("--batch", "--set", value, "--play", journal, "--json", "run.json")
                self.assertEqual(run.returncode, 2)
                self.assertIn(message, run.stderr)
                self.assertNotIn("begun", run.stdout)
                record = self.record()
                self.assertEqual((record["status"], record["commands"]), ("refused", []))
                self.assertIn(message, record["failure"]["message"])

    def test_wrong_arguments_end_with_status_2(self):
        self.write("part.jou", PART)
        for arguments in (["--set", "size=1", "--set", "size=1"], ["--set", "size"], ["--json"]):
            with self.subTest(arguments=arguments):
                run = self.run_program("--batch", "--play", "part.jou", *arguments)
                self.assertEqual(run.returncode, 2)
                self.assertIn("Usage: fennar", run.stderr)

    def test_record_tells_what_each_command_returned(self):
        self.write("part.jou", PART)
        run = self.run_program("--batch", "--json", "run.json", "--play", "part.jou", "--set", "size=5")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        record = self.record()
        self.assertEqual(set(record), {"format", "version", "program", "journal", "status", "parameters", "seconds",
                                       "commands", "failure"})
        self.assertEqual((record["format"], record["version"], record["status"]), ("fennar-run", 1, "done"))
        self.assertEqual(record["parameters"], {"size": 5, "count": 2, "label": "gear wheel"})
        self.assertIsNone(record["failure"])
        commands = record["commands"]
        self.assertEqual([(one["line"], one["command"]) for one in commands],
                         [(2, "parameter"), (3, "parameter"), (4, "parameter"), (5, "echo"), (6, "brick"), (7, "list"),
                          (8, "mesh"), (9, "quality"), (10, "echo")])
        for one in commands:
            self.assertEqual(set(one), {"command", "text", "file", "line", "depth", "seconds", "failed", "result"})
            self.assertEqual((one["file"], one["depth"], one["failed"]), ("part.jou", 0, False))
        brick, listed, mesh, quality = (one["result"] for one in commands[4:8])
        self.assertEqual((brick["kind"], brick["name"], brick["id"]), ("solid", "plate", 1))
        self.assertAlmostEqual(brick["volume"], 1000)
        self.assertEqual(listed, [brick])
        self.assertEqual((mesh["kind"], mesh["size"], mesh["node_count"]), ("mesh", 5, mesh["counts"]["nodes"]))
        self.assertLess(0, quality["ICN"]["min"])
        self.assertLess(commands[6]["seconds"], record["seconds"])
        self.assertIsNone(commands[3]["result"])

    def test_record_tells_commands_of_inner_journals_and_of_python(self):
        self.write("inner.jou", "parameter edge number 1\nbrick $edge\n")
        self.write("outer.jou", "play inner.jou with edge=2\npython \"fennar.brick(3)\"\n")
        run = self.run_program("--batch", "--json", "run.json", "--play", "outer.jou")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        told = [(one["depth"], one["file"], one["line"], one["command"]) for one in self.record()["commands"]]
        self.assertEqual(told, [(0, "outer.jou", 1, "play"), (1, "inner.jou", 1, "parameter"), (1, "inner.jou", 2, "brick"),
                                (0, "outer.jou", 2, "python"), (1, None, None, "brick")])

    def test_failure_has_line_column_and_text(self):
        self.write("inner.jou", "brick 1\n\nbrick \\\n  -1\n")
        self.write("outer.jou", "echo one\nplay inner.jou\necho never\n")
        run = self.run_program("--batch", "--json", "run.json", "--play", "outer.jou")
        self.assertEqual(run.returncode, 1)
        record = self.record()
        self.assertEqual(record["status"], "failed")
        failure = record["failure"]
        self.assertEqual({key: failure[key] for key in ("file", "line", "column", "command", "text")},
                         {"file": "inner.jou", "line": 4, "column": 3, "command": "brick", "text": "brick   -1"})
        self.assertIn("expected", failure["message"])
        self.assertEqual([one["failed"] for one in record["commands"]], [False, True, False, True])
        self.assertIn("ERROR: inner.jou:4", run.stderr)

    def test_failure_of_a_script_has_its_line(self):
        brick = "width: expected a number from 1e-05 to 1e+06, found 'x'"
        self.write("helper.py", "def fail():\n    raise ValueError('wrong')\n")
        self.write("inner.jou", "echo one\nbrick 0\n")
        self.write("inner.py", "\n\n1 / 0\n")
        start = "import fennar, sys\nsys.path.append('.')\nimport helper\n"
        for script, message, command, file, line, text in [
                ("try:\n    fennar.brick(-1)\nexcept fennar.CommandError:\n    pass\nraise ValueError('wrong')", "ValueError: wrong",
                 None, "bad.py", 8, "raise ValueError('wrong')"),
                ("def f():\n    helper.fail()\nf()", "ValueError: wrong", None, "bad.py", 5, "helper.fail()"),
                ("fennar.brick(1)\nfennar.brick(0)", "expected a width", "brick", "bad.py", 5, "fennar.brick(0)"),
                ("fennar.cmd('brick 0')", "expected a width", "brick", "bad.py", 4, "fennar.cmd('brick 0')"),
                ("fennar.brick('x')", brick, "brick", "bad.py", 4, "fennar.brick('x')"),
                ("try:\n    fennar.brick(0)\nfinally:\n    fennar.echo('end')", "expected a width", "brick", "bad.py", 5,
                 "fennar.brick(0)"),
                ("x = = 1", "SyntaxError: invalid syntax", None, "bad.py", 4, "x = = 1"),
                ("sys.exit(3)", "SystemExit: 3", None, "bad.py", 4, "sys.exit(3)"),
                ("raise ValueError('two\\nlines')", "ValueError: two lines", None, "bad.py", 4, "raise ValueError('two\\nlines')"),
                ("fennar.play('inner.jou')", "expected a width", "brick", "inner.jou", 2, "brick 0"),
                ("fennar.play('inner.py')", "ZeroDivisionError: division by zero", None, "inner.py", 3, "1 / 0"),
                ("try:\n    fennar.play('inner.jou')\nexcept fennar.CommandError:\n    fennar.brick('x')", brick, "brick", "bad.py",
                 7, "fennar.brick('x')")]:
            with self.subTest(script=script):
                self.write("bad.py", start + script + "\n")
                run = self.run_program("--batch", "--json", "run.json", "--play", "bad.py")
                self.assertEqual(run.returncode, 1)
                record = self.record()
                failure = record["failure"]
                self.assertEqual(record["status"], "failed")
                self.assertTrue(failure["message"].startswith(message), failure)
                self.assertEqual((failure["command"], failure["file"], failure["line"], failure["text"]), (command, file, line, text))

    def test_failure_of_a_script_that_a_journal_plays_has_its_line(self):
        self.write("bad.py", "\nfennar.brick(0)\n")
        for line, file, number, text in [("play bad.py", "bad.py", 2, "fennar.brick(0)"),
                                         ("python 'fennar.brick(0)'", "outer.jou", 2, "python 'fennar.brick(0)'")]:
            with self.subTest(line=line):
                self.write("outer.jou", f"echo one\n{line}\n")
                self.assertEqual(self.run_program("--batch", "--json", "run.json", "--play", "outer.jou").returncode, 1)
                failure = self.record()["failure"]
                self.assertEqual((failure["command"], failure["file"], failure["line"], failure["text"]), ("brick", file, number, text))

    def test_failure_of_a_statement_has_pythons_reason(self):
        for statement, reason in [("1 / 0", "ZeroDivisionError: division by zero"),
                                  ("1 +", "SyntaxError: invalid syntax")]:
            with self.subTest(statement=statement):
                self.write("part.jou", f'python "{statement}"\n')
                self.assertEqual(self.run_program("--batch", "--json", "run.json", "--play", "part.jou").returncode, 1)
                self.assertEqual(self.record()["failure"]["message"], f"the Python statement failed: {reason}")

    def test_faces_of_solids_are_told(self):
        self.write("part.jou", "brick 1 2 3\n")
        self.run_program("--batch", "--json", "run.json", "--play", "part.jou")
        faces = self.record()["commands"][0]["result"]["faces"]
        self.assertEqual([face["number"] for face in faces], [1, 2, 3, 4, 5, 6])
        self.assertEqual(sorted(round(face["area"], 9) for face in faces), [2, 2, 3, 3, 6, 6])
        self.assertTrue(all(len(face["center"]) == 3 for face in faces))

    def test_missing_journal_and_model_are_told(self):
        for arguments in (["--play", "none.jou"], ["--play", "none.jou", "none.mdl"]):
            run = self.run_program("--batch", "--json", "run.json", *arguments)
            self.assertEqual(run.returncode, 1)
            record = self.record()
            self.assertEqual(record["status"], "failed")
            self.assertIn("does not exist" if len(arguments) == 2 else "none.mdl", record["failure"]["message"])

    def test_quit_is_a_regular_end(self):
        self.write("quit.jou", "echo one\nquit\necho never\n")
        run = self.run_program("--batch", "--json", "run.json", "--play", "quit.jou")
        self.assertEqual(run.returncode, 0)
        record = self.record()
        self.assertEqual((record["status"], record["failure"], len(record["commands"])), ("done", None, 2))

    def test_failure_behind_quit_is_one(self):
        self.write("quit.py", "fennar.quit()\n1 / 0\n")
        self.assertEqual(self.run_program("--batch", "--json", "run.json", "--play", "quit.py").returncode, 1)
        record = self.record()
        self.assertEqual(record["status"], "failed")
        self.assertEqual(record["failure"]["message"], "ZeroDivisionError: division by zero")

    def test_record_on_standard_output_is_alone_there(self):
        self.write("part.jou", PART)
        run = self.run_program("--batch", "--json", "-", "--play", "part.jou")
        self.assertEqual(run.returncode, 0)
        self.assertEqual(json.loads(run.stdout)["status"], "done")
        self.assertIn("gear wheel 2\n", run.stderr)

    def test_record_that_cannot_be_written_ends_the_run_before_it_begins(self):
        self.write("part.jou", PART)
        run = self.run_program("--batch", "--json", "none/run.json", "--play", "part.jou")
        self.assertEqual(run.returncode, 1)
        self.assertIn("could not be written", run.stderr)
        self.assertNotIn("begun", run.stdout)

    def test_record_that_would_write_over_what_is_read_is_refused(self):
        self.write("part.jou", PART)
        (self.folder / "link.jou").symlink_to("part.jou")
        for record in ("part.jou", "link.jou", "./part.jou"):
            run = self.run_program("--batch", "--json", record, "--play", "part.jou")
            self.assertEqual(run.returncode, 2)
            self.assertIn("would write over", run.stderr)
        self.assertEqual((self.folder / "part.jou").read_text(encoding="utf-8"), PART)

    def test_record_is_not_written_over_the_settings(self):
        self.write("part.jou", PART)
        self.write("own.conf", "[fennar]\nscheme=dark\n")
        run = self.run_program("--batch", "--settings", "own.conf", "--json", "own.conf", "--play", "part.jou")
        self.assertEqual(run.returncode, 2)
        self.assertIn('would write over "own.conf"', run.stderr)
        self.assertIn("scheme=dark", (self.folder / "own.conf").read_text(encoding="utf-8"))

    def test_record_takes_the_place_of_an_older_one_as_a_whole(self):
        self.write("part.jou", "python \"print('inside', open('run.json').read())\"\n")
        self.write("run.json", "old")
        (self.folder / "run.json").chmod(0o640)
        run = self.run_program("--batch", "--json", "run.json", "--play", "part.jou")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        inside = json.loads(run.stdout.split("\ninside ")[1])
        self.assertEqual((inside["status"], inside["commands"]), ("running", []))
        self.assertEqual(self.record()["status"], "done")
        self.assertEqual(stat.S_IMODE((self.folder / "run.json").stat().st_mode), 0o640)
        self.assertEqual(sorted(os.listdir(self.folder)), ["part.jou", "run.json"])

    def cancel(self, name, text, until, signal_number):
        """Runs a journal until it prints the line "until", then sends the signal; the process when it has ended."""
        self.write(name, text)
        process = subprocess.Popen([PROGRAM, "--batch", "--json", "run.json", "--play", name], cwd=self.folder,
                                   env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        for line in process.stdout:
            if line == until:
                break
        process.send_signal(signal_number)
        process.communicate(timeout=PATIENCE)
        return process

    def test_signal_cancels_and_the_record_is_written(self):
        self.write("loop.py", "print('begun')\nwhile True: pass\n")
        for name, text, until, signal_number, line in [
                ("mesh.jou", "brick 10\nmesh size 0.05\n", "Fennar>mesh size 0.05\n", signal.SIGTERM, 2),
                ("script.jou", "echo one\nplay loop.py\n", "begun\n", signal.SIGINT, 2),
                ("loop.py", (self.folder / "loop.py").read_text(), "begun\n", signal.SIGINT, None)]:
            with self.subTest(name=name):
                process = self.cancel(name, text, until, signal_number)
                self.assertEqual(process.returncode, -signal_number)
                record = self.record()
                self.assertEqual(record["status"], "cancelled")
                if line:
                    self.assertEqual(record["commands"][-1]["line"], line)
                    self.assertTrue(record["commands"][-1]["failed"])
                else:
                    self.assertEqual((record["failure"]["message"], record["failure"]["line"]), ("KeyboardInterrupt", 2))

    def test_crash_leaves_a_record_that_says_it_did_not_end(self):
        self.write("crash.jou", "echo one\npython 'import os; os.abort()'\n")
        run = self.run_program("--batch", "--json", "run.json", "--play", "crash.jou")
        self.assertEqual(run.returncode, -signal.SIGABRT)
        self.assertEqual(self.record()["status"], "running")


if __name__ == "__main__":
    unittest.main()
