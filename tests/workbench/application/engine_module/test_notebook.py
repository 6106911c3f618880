# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Runs notebooks with the kernel of the system's Python:  test_notebook.py NOTEBOOK..."""

import base64
import os
import signal
import sys
import unittest

import nbclient
import nbformat

NOTEBOOKS = sys.argv[1:]
os.environ.pop("FENNAR_COMPONENT_PATH", None)


def run(notebook, **options):
    client = nbclient.NotebookClient(notebook, timeout=120, kernel_name="python3", **options)
    client.execute()
    return [output for cell in notebook.cells if cell.cell_type == "code" for output in cell.outputs]


def cells(*sources):
    return nbformat.v4.new_notebook(cells=[nbformat.v4.new_code_cell(source) for source in sources])


class Notebooks(unittest.TestCase):
    def test_each_runs_from_the_start_to_the_end(self):
        self.assertTrue(NOTEBOOKS)
        for path in NOTEBOOKS:
            notebook = nbformat.read(path, as_version=4)
            nbformat.validate(notebook)
            outputs = run(notebook)
            self.assertEqual([output for output in outputs if output.get("name") == "stderr"], [])
            pictures = [base64.b64decode(output.data["image/png"]) for output in outputs
                        if output.output_type == "execute_result" and "image/png" in output.data]
            views = sum("fennar.view(" in cell.source for cell in notebook.cells)
            self.assertEqual(len(pictures), views, path)
            self.assertEqual({picture[:8] for picture in pictures}, {b"\x89PNG\r\n\x1a\n"})

    def test_each_is_kept_without_what_it_has_put_out(self):
        for path in NOTEBOOKS:
            for cell in nbformat.read(path, as_version=4).cells:
                self.assertEqual((cell.get("outputs", []), cell.get("execution_count")), ([], None), path)

    def test_what_commands_print_is_in_the_cell(self):
        outputs = run(cells("import fennar\nfennar.echo('hello')\nfennar.brick(1)"))
        self.assertEqual([output.get("text") for output in outputs], ["hello\n", None])
        self.assertEqual(outputs[1].data["text/plain"], "<solid 'brick1'>")

    def test_the_button_that_interrupts_cancels_a_mesh(self):
        # The kernel gets the signal that the button sends, once the program that meshes is there.
        outputs = run(cells(
            "import fennar, os, signal, threading, time\n"
            "part = fennar.brick(10)\n"
            "def interrupt():\n"
            "    while b'fennar-mesher' not in b''.join(open(f'/proc/{child}/cmdline', 'rb').read() for child in\n"
            "            open(f'/proc/self/task/{threading.main_thread().native_id}/children').read().split()):\n"
            "        time.sleep(0.01)\n"
            f"    os.kill(os.getpid(), {int(signal.SIGINT)})\n"
            "threading.Thread(target=interrupt, daemon=True).start()\n"
            "try:\n    fennar.mesh(part, size=0.05)\nexcept KeyboardInterrupt:\n    print('interrupted')",
            "fennar.mesh(part, size=5).size"))
        self.assertEqual([output.get("text") for output in outputs], ["interrupted\n", None])
        self.assertEqual(outputs[1].data["text/plain"], "5.0")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
