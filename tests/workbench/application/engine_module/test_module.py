# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The module fennar in the system's Python. Each test runs a script in a process of its own:  test_module.py"""

import importlib.util
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import textwrap
import unittest

PACKAGE = os.path.join(os.environ["PYTHONPATH"], "fennar")

# Calls a function once the process has a child, which is the program that meshes.
WHEN_MESHING = textwrap.dedent("""\
    import os, threading, time
    def children():
        with open(f"/proc/self/task/{threading.main_thread().native_id}/children") as file:
            return file.read().split()
    def when_meshing(act):
        def wait():
            while not children():
                time.sleep(0.01)
            act()
        threading.Thread(target=wait, daemon=True).start()
    """)


class Run:
    def __init__(self, script, **options):
        self.process = subprocess.run([sys.executable, "-c", textwrap.dedent(script)], stdin=subprocess.DEVNULL,
                                      capture_output=True, text=True, check=False, timeout=100, **options)
        self.status, self.output, self.errors = self.process.returncode, self.process.stdout, self.process.stderr


class Module(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        self.temporary = os.path.join(self.folder, "tmp")
        os.mkdir(self.temporary)
        # No display, no platform of Qt's, the components that lie with the program.
        gone = ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "FENNAR_COMPONENT_PATH")
        self.environment = {key: value for key, value in os.environ.items() if key not in gone}
        self.environment["TMPDIR"] = self.temporary

    def run_script(self, script, **environment):
        run = Run(script, env={**self.environment, **environment}, cwd=self.folder)
        self.assertEqual(os.listdir(self.temporary), [])
        return run

    def check(self, script, output="", **environment):
        """The script succeeds and prints this, and nothing else."""
        run = self.run_script(script, **environment)
        self.assertEqual((run.errors, run.output, run.status), ("", textwrap.dedent(output), 0))

    def copy_package(self):
        place = os.path.join(self.folder, "copy")
        # The folder of the program is found from the package.
        os.makedirs(place)
        copy = shutil.copytree(PACKAGE, os.path.join(place, "fennar"), ignore=shutil.ignore_patterns("__pycache__"))
        return place, copy

    # --- what the functions do

    def test_functions_return_values_and_print_nothing(self):
        self.check("""
            import fennar
            part = fennar.brick(10, 20, 5, at=(0, 0, 0), name="base")
            mesh = fennar.mesh(part, size=2)
            fennar.move(part, by=(1, 0, 0))
            fennar.set("size", 2)
            assert abs(part.volume - 1000) < 1e-6, part.volume
            assert part.bounding_box[1] == [6, 10, 2.5], part.bounding_box
            assert mesh.node_count > 100
            fennar.undo()
            fennar.delete(part)
            assert fennar.list() == []
            """)

    def test_what_is_asked_for_is_printed_where_python_prints(self):
        self.check("""
            import contextlib, io, fennar
            fennar.echo("to the terminal")
            with contextlib.redirect_stdout(io.StringIO()) as text:
                fennar.cmd("echo by a command line")
                fennar.echo("hel", "lo")
            print(text.getvalue(), end="")
            fennar.brick(1)
            fennar.cmd("brick 2")
            fennar.history()
            """, """\
            to the terminal
            by a command line
            hel lo
            brick2: volume 8
            1  echo "to the terminal"
            2  echo by a command line
            3  echo hel lo
            4  brick 1
            5  brick 2
            """)

    def test_history_is_a_journal_of_what_has_run(self):
        for name, text in (("part.jou", "brick 2\npython 'fennar.brick(3)'\n"), ("script.py", "fennar.brick(4)\nfennar.cmd('brick 5')\n")):
            with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
                file.write(text)
        self.check("""
            import contextlib, fennar, io
            printed = io.StringIO()
            with contextlib.redirect_stdout(printed):
                fennar.play("part.jou")
                fennar.play("script.py")
                exec(open("script.py").read())
                try:
                    fennar.brick(0)
                except fennar.CommandError:
                    pass
            fennar.history()
            """, """\
            1  play part.jou
            2  play script.py
            3  brick 4
            4  brick 5
            """)

    def test_a_mesh_tells_more_if_asked_to(self):
        run = self.run_script("""
            import fennar
            fennar.mesh(fennar.brick(1), size=1, verbose=True)
            """)
        self.assertEqual((run.errors, run.status), ("", 0))
        self.assertIn("mesh", run.output)

    def test_the_classes_and_errors_are_those_of_the_program(self):
        self.check("""
            import fennar
            part = fennar.brick(1)
            assert isinstance(part, fennar.Solid) and issubclass(fennar.Solid, fennar.Entity)
            try:
                fennar.subtract("brik1", from_=part)
            except fennar.CommandError as error:
                print(error.command, error.column, error.remedy)
            print(fennar.is_loaded())
            try:
                fennar.PyAction()
            except RuntimeError as error:
                print(type(error).__name__)
            """, """\
            subtract 10 did you mean "brick1"?
            False
            RuntimeError
            """)

    def test_a_wrong_type_unit_or_name_raises_before_anything_changes(self):
        self.check("""
            import fennar
            part = fennar.brick(1, name="part")
            calls = [lambda: fennar.brick("1"), lambda: fennar.brick(-1), lambda: fennar.brick(1, nam="x"), lambda: fennar.brick(),
                     lambda: fennar.brick(1, at=(1, 2)), lambda: fennar.brick(1, name="part"), lambda: fennar.sphere([1]),
                     lambda: fennar.move("prt", by=(1, 0, 0)), lambda: fennar.brick("1 mm"), lambda: fennar.mesh(part, size="2 inch"),
                     lambda: fennar.subtract(part, from_=fennar), lambda: fennar.brick(float("nan"))]
            for number, call in enumerate(calls):
                try:
                    call()
                except fennar.CommandError:
                    pass
                else:
                    print("no error", number)
                assert fennar.list() == [part] and max(map(abs, part.center)) < 1e-9, number
            """)

    def test_a_command_line_that_fails_tells_it_where_python_tells_errors(self):
        run = self.run_script("""
            import fennar
            try:
                fennar.cmd("brick x")
            except fennar.CommandError as error:
                print(error.column)
            """)
        self.assertEqual((run.output, run.status), ("7\n", 0))
        self.assertTrue(run.errors.startswith("ERROR: brick: column 7: "), run.errors)

    def test_journals_and_scripts_share_the_interpreter(self):
        for name, text in (("part.jou", "brick 2\npython 'seen = part'\nplay script.py\n"),
                           ("script.py", "import fennar\nprint(seen, __file__)\nfennar.cylinder(1, 2, name='of_script')\n")):
            with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
                file.write(text)
        run = self.run_script("""
            import fennar
            __file__ = "mine"
            part = "the one of the script"
            fennar.play("part.jou")
            print(fennar.list()[1].name, __file__)
            """)
        self.assertEqual((run.errors, run.status), ("", 0))
        self.assertIn("the one of the script script.py\n", run.output.replace(self.folder + "/", ""))
        self.assertTrue(run.output.endswith("of_script mine\n"), run.output)

    def test_help_and_names_are_there(self):
        self.check("""
            import fennar, inspect, io
            assert "brick" in dir(fennar) and "Solid" in dir(fennar)
            assert "in mm" in fennar.brick.__doc__
            print(inspect.signature(fennar.brick))
            print(fennar.__version__.count("."))
            try:
                fennar.brik
            except AttributeError as error:
                print(error)
            """, """\
            (width, depth=None, height=None, *, at=(0, 0, 0), name=None)
            2
            module 'fennar' has no attribute 'brik'. Did you mean: 'brick'?
            """)

    @unittest.skipUnless(importlib.util.find_spec("numpy"), "NumPy is missing: Debian's python3-numpy")
    def test_nodes_and_elements_are_views_that_outlive_their_mesh(self):
        self.check("""
            import fennar, numpy
            part = fennar.brick(1, 2, 4)
            mesh = fennar.mesh(part, size=1)
            nodes, elements = mesh.nodes, mesh.elements
            assert nodes.shape == (mesh.node_count, 3) and nodes.dtype == numpy.float64
            assert {kind: len(rows) for kind, rows in elements.items()} == {
                kind: count for kind, count in mesh.counts.items() if kind != "nodes"}
            def volume():
                a, b, c, d = (nodes[elements["Tetrahedron 4"][:, i]] for i in range(4))
                return round((numpy.cross(b - a, c - a) * (d - a)).sum() / 6, 9)
            assert volume() == 8
            assert not nodes.flags.writeable and not nodes.flags.owndata
            assert mesh.nodes.__array_interface__["data"] == nodes.__array_interface__["data"]
            try:
                nodes[0, 0] = 1
            except ValueError as error:
                print(error)
            fennar.mesh(part, size=0.5)
            fennar.new(discard=True)
            assert volume() == 8
            try:
                mesh.nodes
            except fennar.CommandError as error:
                print(error)
            """, """\
            assignment destination is read-only
            the mesh "mesh" is gone
            """)

    def test_numpy_is_needed_for_arrays_alone(self):
        self.check("""
            import sys
            sys.modules["numpy"] = None
            import fennar
            mesh = fennar.mesh(fennar.brick(1), size=1)
            print(mesh.size, len(fennar.list()[0].faces))
            try:
                mesh.nodes
            except ImportError as error:
                print(error)
            """, """\
            1.0 6
            nodes and elements are arrays of NumPy, which is not installed (Debian: python3-numpy)
            """)

    # --- pictures

    def test_a_view_is_a_picture_as_large_as_asked_for(self):
        self.check("""
            import fennar, struct
            part = fennar.brick(10, 20, 5, name="part")
            def check(picture, *size):
                png = picture._repr_png_()
                assert png == picture.png and picture.size == size
                assert png[:8] == b"\\x89PNG\\r\\n\\x1a\\n" and struct.unpack(">II", png[16:24]) == size
            check(fennar.view(), 640, 480)
            check(fennar.view(part, size=(64, 48)), 64, 48)
            check(fennar.view("part", size=[1, 1]), 1, 1)
            picture = fennar.view([part], (64, 48))
            print(picture)
            picture.save("part.png")
            with open("part.png", "rb") as file:
                assert file.read() == picture.png == fennar.view(part, size=(64, 48)).png
            """, "<picture of 64 x 48 pixels>\n")

    def test_a_picture_that_cannot_be_saved_leaves_the_file_as_it_was(self):
        self.check("""
            import fennar, os, resource, signal
            picture = fennar.view()
            with open("old.png", "wb") as file:
                file.write(b"old")
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (64, resource.RLIM_INFINITY))
            for path in ("old.png", "new.png", "none/new.png", "/dev/full"):
                try:
                    picture.save(path)
                except OSError as error:
                    assert f"'{path}' cannot be written: " in str(error), error
                else:
                    print("saved", path)
            with open("old.png", "rb") as file:
                assert file.read() == b"old"
            print(os.path.exists("new.png"))
            """, "False\n")

    def test_a_view_shows_what_is_asked_for_as_it_is_now(self):
        self.check("""
            import fennar
            empty = fennar.view().png
            part = fennar.brick(10)
            one = fennar.view(part).png
            other = fennar.sphere(8, at=(20, 0, 0))
            assert fennar.view(part).png == one != empty
            both = fennar.view().png
            assert both == fennar.view([part, other]).png and both not in (one, empty)
            mesh = fennar.mesh(part, size=5)
            assert fennar.view(part).png == one
            meshed = fennar.view(mesh).png
            assert meshed not in (one, both) and fennar.view().png not in (meshed, both)
            fennar.move(part, by=(0, 0, 30))
            assert fennar.view([part, other]).png != both
            try:
                fennar.view(mesh)
            except fennar.CommandError as error:
                print(error)
            """, "view: there is nothing to see of the mesh: the solids that it was made of have changed\n")

    def test_a_view_of_what_is_not_there_is_an_error(self):
        self.check("""
            import fennar
            part = fennar.brick(10, name="part")
            gone = fennar.brick(1)
            fennar.delete(gone)
            for what, size in (("prt", (9, 9)), (gone, (9, 9)), (5, (9, 9)), ([], (9, 9)), (b"part", (9, 9)), (part, 9), (part, (9,)),
                               (part, (9, 0)), (part, (9, 4001)), (part, (9, 9.5)), (part, (True, 9)), (part, "99")):
                try:
                    fennar.view(what, size)
                except fennar.CommandError as error:
                    print(type(error).__name__, error)
            fennar.unload("graphics")
            try:
                fennar.view()
            except fennar.CommandError as error:
                print(error)
            """, """\
            CommandError view: expected a solid, found "prt"; did you mean "part"?
            CommandError the solid "brick2" is gone
            ArgumentError view: shown: expected solids or a mesh, found 5
            ArgumentError view: shown: expected solids or a mesh, found []
            ArgumentError view: shown: expected solids or a mesh, found b'part'
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found 9
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found (9,)
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found (9, 0)
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found (9, 4001)
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found (9, 9.5)
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found (True, 9)
            ArgumentError view: size: expected two whole numbers from 1 to 4000, found '99'
            The component "graphics" is unloaded.
            view: there is no component that draws pictures
            """)

    def test_the_program_draws_the_same_picture(self):
        script = "import fennar\npart = fennar.brick(10, 20, 5)\nfennar.view(part).save('{}.png')\n"
        with open(os.path.join(self.folder, "script.py"), "w", encoding="utf-8") as file:
            file.write(script.format("program"))
        program = os.path.join(PACKAGE, "..", "..", "bin", "fennar")
        subprocess.run([program, "--batch", "--play", "script.py"], cwd=self.folder, check=True, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, env=self.environment)
        self.check(script.format("module"))
        pictures = []
        for name in ("program.png", "module.png"):
            with open(os.path.join(self.folder, name), "rb") as file:
                pictures.append(file.read())
        self.assertEqual(*pictures)

    # --- the process

    def test_to_import_it_starts_nothing(self):
        self.check("""
            import sys, threading
            before = set(sys.modules), threading.active_count()
            import fennar
            assert fennar.__name__ == "fennar" and fennar.__doc__
            with open("/proc/self/maps") as file:
                assert "geometry.so" not in file.read()
            """)

    def test_no_graphical_application_is_made(self):
        self.check("""
            import ctypes, fennar
            fennar.brick(1)
            core = ctypes.CDLL("libQt6Core.so.6")
            instance = ctypes.c_void_p.in_dll(core, "_ZN16QCoreApplication4selfE")
            class_of = core._ZNK16QCoreApplication10metaObjectEv
            class_of.restype = ctypes.c_void_p
            class_of.argtypes = [ctypes.c_void_p]
            name = core._ZNK11QMetaObject9classNameEv
            name.restype = ctypes.c_char_p
            name.argtypes = [ctypes.c_void_p]
            print(name(class_of(instance)).decode())
            """, "QCoreApplication\n")

    def test_an_application_that_is_there_is_used_and_stays(self):
        self.check("""
            import atexit, ctypes
            core = ctypes.CDLL("libQt6Core.so.6")
            words = (ctypes.c_char_p * 2)(b"other", None)
            count = ctypes.c_int(1)
            space = ctypes.create_string_buffer(256)
            make = core._ZN16QCoreApplicationC1ERiPPci
            make.argtypes = [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_int]
            for lasting in (space, count, words):  # Qt looks at them until the very end of the process
                ctypes.pythonapi.Py_IncRef(ctypes.py_object(lasting))
            make(space, ctypes.byref(count), words, 0x60400)
            def check():
                assert ctypes.c_void_p.in_dll(core, "_ZN16QCoreApplication4selfE").value == ctypes.addressof(space)
            atexit.register(check)
            import fennar
            fennar.brick(1)
            check()
            print("here")
            """, "here\n")

    def test_the_locale_and_the_signals_of_python_stay(self):
        self.check("""
            import locale, signal
            locale.setlocale(locale.LC_TIME, "de_DE.UTF-8")
            before = locale.setlocale(locale.LC_ALL), signal.getsignal(signal.SIGINT)
            import fennar
            fennar.brick(1.5)
            assert (locale.setlocale(locale.LC_ALL), signal.getsignal(signal.SIGINT)) == before
            """, LC_ALL="", LANG="de_DE.UTF-8")

    def test_it_is_used_in_the_main_thread_of_the_process_alone(self):
        self.check("""
            import fennar, os, threading, warnings
            def use(function):
                try:
                    function()
                except RuntimeError as error:
                    print(error, flush=True)
            def in_thread(function):
                thread = threading.Thread(target=use, args=[function])
                thread.start()
                thread.join()
            in_thread(lambda: fennar.brick(1))
            part = fennar.brick(1)
            in_thread(lambda: fennar.brick(1))
            warnings.simplefilter("ignore", DeprecationWarning)  # later Pythons warn of a fork where there are threads
            child = os.fork()
            if child == 0:
                use(lambda: fennar.brick(1))
                raise SystemExit
            os.waitpid(child, 0)
            print(round(part.volume))
            """, """\
            fennar can only be used in the main thread
            the commands of fennar can only be called in the main thread of the application
            the commands of fennar cannot be called in another process than the application's
            1
            """)

    def test_a_process_forked_before_the_first_use_has_an_engine_of_its_own(self):
        self.check("""
            import fennar, multiprocessing
            def volume(size):
                return round(fennar.brick(size).volume)
            with multiprocessing.get_context("fork").Pool(2) as pool:
                print(pool.map(volume, [1, 2, 3]))
            """, "[1, 8, 27]\n")

    def test_a_module_loaded_again_has_the_same_engine(self):
        self.check("""
            import fennar, importlib, sys
            part = fennar.brick(1)
            importlib.reload(fennar)
            print(fennar.list() == [part])
            del sys.modules["fennar"]
            import fennar as again
            print(again is fennar, again.brick(2) in fennar.list())
            """, "True\nTrue True\n")

    def test_other_threads_go_on_while_a_command_runs(self):
        self.check(WHEN_MESHING + textwrap.dedent("""
            import fennar
            part = fennar.brick(10)
            seen = []
            when_meshing(lambda: seen.append(1))
            fennar.mesh(part, size=0.5)
            print(seen)
            """), "[1]\n")

    def test_ctrl_c_cancels_a_mesh_and_the_engine_goes_on(self):
        self.check(WHEN_MESHING + textwrap.dedent("""
            import fennar, signal
            part = fennar.brick(10)
            first = fennar.mesh(part, size=5)
            when_meshing(lambda: os.kill(os.getpid(), signal.SIGINT))
            try:
                fennar.mesh(part, size=0.05)
            except KeyboardInterrupt:
                print("interrupted")
            print(children(), os.listdir(os.environ["TMPDIR"]))
            print(round(part.volume), first.size)
            print(fennar.mesh(part, size=4).size)
            """), "interrupted\n[] []\n1000 5.0\n4.0\n")

    def test_ctrl_c_ends_a_script_that_is_played(self):
        with open(os.path.join(self.folder, "script.py"), "w", encoding="utf-8") as file:
            file.write("import os, signal\nos.kill(os.getpid(), signal.SIGINT)\nwhile True: pass\n")
        self.check("""
            import fennar
            try:
                fennar.play("script.py")
            except KeyboardInterrupt:
                print("interrupted")
            print(round(fennar.brick(1).volume))
            """, "interrupted\n1\n")

    def test_a_handler_of_the_users_decides_what_a_signal_does(self):
        self.check(WHEN_MESHING + textwrap.dedent("""
            import fennar, signal
            signal.signal(signal.SIGUSR1, lambda *_: print("seen", flush=True))
            when_meshing(lambda: os.kill(os.getpid(), signal.SIGUSR1))
            print(fennar.mesh(fennar.brick(10), size=0.4).size)
            """), "seen\n0.4\n")

    def test_a_signal_that_ends_the_process_leaves_no_temporary_files(self):
        run = self.run_script(WHEN_MESHING + textwrap.dedent("""
            import fennar, signal
            when_meshing(lambda: os.kill(os.getpid(), signal.SIGTERM))
            fennar.mesh(fennar.brick(10), size=0.05)
            """))
        self.assertEqual((run.errors, run.output, run.status), ("", "", -signal.SIGTERM))

    def test_a_stream_that_fails_raises_its_own_exception(self):
        self.check("""
            import contextlib, fennar
            class Full:
                def write(self, text):
                    raise OSError("no room")
            with contextlib.redirect_stdout(Full()):
                try:
                    fennar.echo("hello")
                except OSError as error:
                    message = str(error)
            print(message)
            print(round(fennar.brick(1).volume))
            """, "no room\n1\n")

    def test_the_process_ends_with_the_status_it_chose(self):
        run = self.run_script("""
            import fennar
            fennar.brick(1)
            raise SystemExit(3)
            """)
        self.assertEqual((run.errors, run.output, run.status), ("", "", 3))

    # --- what cannot be loaded

    def check_import_error(self, place, *words):
        run = Run("""
            try:
                import fennar
            except ImportError as error:
                print(error)
            """, env={**self.environment, "PYTHONPATH": place})
        self.assertEqual((run.errors, run.status), ("", 0))
        for word in words:
            self.assertIn(word, run.output)

    def test_a_module_of_another_version_than_the_engine_says_so(self):
        place, copy = self.copy_package()
        build = os.path.join(copy, "_build.py")
        with open(build, encoding="utf-8") as file:
            text = file.read()
        version = text.split('VERSION = "')[1].split('"')[0]
        with open(build, "w", encoding="utf-8") as file:
            file.write(text.replace(version, "9.8.7"))
        self.check_import_error(place, "9.8.7", version, "one version")

    def test_a_native_library_that_is_missing_is_named(self):
        place, copy = self.copy_package()
        for name in os.listdir(copy):
            if name.endswith(".so"):
                os.remove(os.path.join(copy, name))
        self.check_import_error(place, "the native library", copy, "Python 3.")

    def test_a_program_that_is_missing_is_named(self):
        place, _ = self.copy_package()
        self.check_import_error(place, "the program's folder", "is missing")


if __name__ == "__main__":
    unittest.main()
