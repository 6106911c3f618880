#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Installs a build, moves what was installed, and uses it there:  installed_program.py CMAKE BUILD_DIR

Needs a display. The tests of the package as a component's author meets it are in installed_package.py.
"""

import glob
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

CMAKE, BUILD = sys.argv[1:3]
HERE = os.path.dirname(os.path.abspath(__file__))
COMPONENTS = ["demo", "geometry", "graphics", "insert_command", "obj_format", "recovery"]


def run(*command, **options):
    result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(command)}\nended with {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result.stdout


def find_windows(*what):
    """The windows that are shown. xdotool ends with an error if one that it looks at goes at that moment."""
    for _ in range(5):
        search = ["timeout", "60", "xdotool", "search", "--sync", "--onlyvisible", *what]
        result = subprocess.run(search, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        if "BadWindow" not in result.stderr:
            break
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(search)}\nended with {result.returncode}\n{result.stderr}")
    return result.stdout.split()


def setUpModule():
    global folder, prefix, libraries
    folder = tempfile.mkdtemp(prefix="installed_program.")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    stage = os.path.join(folder, "stage")
    run(CMAKE, "--install", BUILD, "--prefix", "/opt/ostrel", env={**os.environ, "DESTDIR": stage})
    # From here on nothing lies where it was installed to.
    prefix = os.path.join(folder, "moved prefix")
    os.rename(os.path.join(stage, "opt", "ostrel"), prefix)
    libraries = os.path.dirname(glob.glob(os.path.join(prefix, "lib*", "**", "libostrelgui.so"), recursive=True)[0])


class InstalledProgram(unittest.TestCase):
    def path(self, *parts):
        return os.path.join(prefix, *parts)

    def journal(self, text):
        work = tempfile.mkdtemp(dir=folder)
        with open(os.path.join(work, "test.jou"), "w", encoding="utf-8") as file:
            file.write(text)
        return work

    def play(self, work, *options, program=None, environment=()):
        env = {k: v for k, v in os.environ.items() if k != "FENNAR_COMPONENT_PATH"}
        env.update(environment)
        return run(program or self.path("bin", "fennar"), *options, "--play", "test.jou", cwd=work, env=env)

    def build(self, name):
        """Builds a project of this folder against the CMake package, and tells where."""
        out = os.path.join(folder, name + "-build")
        if not os.path.exists(out):
            source = shutil.copytree(os.path.join(HERE, name), os.path.join(folder, name))
            run(CMAKE, "-G", "Ninja", "-S", source, "-B", out, f"-DCMAKE_PREFIX_PATH={prefix}",
                "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror")
            run(CMAKE, "--build", out)
        return out

    # --- where the files are

    def test_nothing_is_installed_beside_the_prefix(self):
        stage = os.path.join(folder, "stage")
        self.assertEqual([os.path.join(at, name) for at, folders, files in os.walk(stage) for name in folders + files],
                         [os.path.join(stage, "opt")])

    def test_the_directory_of_commands_holds_the_command_and_nothing_else(self):
        self.assertEqual(os.listdir(self.path("bin")), ["fennar"])

    def test_no_file_names_the_tree_it_was_built_in(self):
        tree = os.fsencode(os.path.abspath(BUILD))
        seen = 0
        for at, _, names in os.walk(prefix):
            for name in names:
                with open(os.path.join(at, name), "rb") as file:
                    seen += 1
                    self.assertNotIn(tree, file.read(), name)
        self.assertGreater(seen, 100)

    def test_programs_and_libraries_look_for_others_beside_themselves_only(self):
        files = [self.path(libraries, "fennar", "fennar"), *glob.glob(os.path.join(libraries, "*.so")),
                 *glob.glob(os.path.join(libraries, "fennar", "components", "*.so")),
                 *glob.glob(os.path.join(libraries, "fennar", "components", "libexec", "*")),
                 *glob.glob(self.path("lib*", "**", "fennar", "_engine*.so"), recursive=True)]
        self.assertGreater(len(files), 15)
        for file in files:
            for where in re.findall(r"R(?:UN)?PATH\).*\[(.*)\]", run("readelf", "-d", file)):
                self.assertRegex(where, r"^\$ORIGIN(/\.\.)*$", file)

    def test_the_name_of_each_library_has_the_version_of_its_interface(self):
        shell = run(self.path("bin", "fennar"), "--version").split()[1]
        with open(os.path.join(libraries, "cmake", "FennarSdk", "FennarSdkConfigVersion.cmake"), encoding="utf-8") as file:
            kit = re.search(r'PACKAGE_VERSION "([^"]+)"', file.read()).group(1)
        files = glob.glob(os.path.join(libraries, "*.so"))
        self.assertEqual({os.path.basename(file) for file in files},
                         {"libostrelgui.so", "libostrelfw.so", "libfennar_component.so", "libfennar_core.so",
                          "libfennar_navigation.so", "libfennar_python.so",
                          "libfennar_util.so", "libfennari19.so"})
        for file in files:
            name = os.path.basename(file)
            version = kit if name in ("libfennar_component.so", "libfennar_core.so") else shell
            interface = ".".join(version.split(".")[:2])
            self.assertIn(f"soname: [{name}.{interface}]", run("readelf", "-d", file))

    # --- the program

    def test_a_batch_run_makes_meshes_and_exports_with_the_components(self):
        work = self.journal("components\nbrick 1 2 3\nmesh brick1 size 0.5\nsave part.mdl\n"
                            "export part.step\nexport part.obj\nexport part.msh\n"
                            "python import json, sys\npython print(json.dumps([1, 2]))\n")
        output = self.play(work, "--batch")
        loaded = re.findall(r"^(\w+) +loaded +\S+ +(.*)$", output, re.M)
        self.assertEqual([name for name, _ in loaded], COMPONENTS)
        for name, file in loaded:
            self.assertEqual(file, os.path.join(libraries, "fennar", "components", name + ".so"))
        self.assertIn("[1, 2]", output)
        for name, start in (("part.mdl", "fennar model 1\n"), ("part.step", "ISO-10303-21;"), ("part.obj", ""),
                            ("part.msh", "$MeshFormat\n")):
            with open(os.path.join(work, name), encoding="utf-8", errors="replace") as file:
                text = file.read()
            self.assertTrue(text.startswith(start) and len(text) > 500, f"{name}: {text[:80]}")

    def test_the_module_works_in_the_systems_python(self):
        place = os.path.dirname(os.path.dirname(glob.glob(self.path("lib*", "**", "fennar", "__init__.py"), recursive=True)[0]))
        env = {k: v for k, v in os.environ.items() if k not in ("FENNAR_COMPONENT_PATH", "DISPLAY", "QT_QPA_PLATFORM")}
        script = ("import fennar, os; part = fennar.brick(1, 2, 3); mesh = fennar.mesh(part, size=0.5); "
                  "fennar.export('part.step'); print(round(part.volume), mesh.size, os.path.getsize('part.step') > 500, "
                  "fennar.__version__)")
        output = run("/usr/bin/python3", "-c", script, cwd=self.journal(""), env={**env, "PYTHONPATH": place})
        self.assertEqual(output, f"6 0.5 True {run(self.path('bin', 'fennar'), '--version').split()[1]}\n")

    def test_the_program_starts_by_a_link_from_elsewhere(self):
        link = os.path.join(folder, "link")
        os.symlink(self.path("bin", "fennar"), link)
        self.assertIn("geometry        loaded", self.play(self.journal("components\n"), "--batch", program=link))

    def test_the_window_shows_navigation_files_icons_and_the_picture_of_the_model(self):
        out = self.build("probe")
        # Types of files are known to the desktop once its database has been brought up to date.
        run("update-mime-database", self.path("share", "mime"))
        work = self.journal(f"load '{out}/lib/components/probe.so'\nbrick 1 2 3\nmesh brick1 size 0.5\nsave part.mdl\n"
                            "picture window.png\nprobe report.txt part.mdl\nquit\n")
        self.play(work, environment={"XDG_DATA_DIRS": self.path("share") + ":/usr/share"})
        with open(os.path.join(work, "report.txt"), encoding="utf-8") as file:
            report = file.read().splitlines()
        pages = []
        for file in sorted(glob.glob(os.path.join(libraries, "fennar", "xml", "action-based-xml", "*.xml"))):
            for page in xml.etree.ElementTree.parse(file).getroot().iter("page"):
                if page.get("title") not in pages:
                    pages.append(page.get("title"))
        self.assertTrue(pages)
        self.assertEqual([line for line in report if line.startswith("page ")], [f"page {title}" for title in pages])
        self.assertIn("window icon yes", report)
        buttons = [line for line in report if line.startswith("button ")]
        self.assertGreater(len(buttons), 5)
        self.assertEqual([line for line in buttons if not line.endswith(" yes")], [])
        self.assertIn("type application/x-fennar-model", report)
        with open(os.path.join(work, "window.png"), "rb") as file:
            self.assertTrue(file.read(8) == b"\x89PNG\r\n\x1a\n")

    def test_the_manual_page_tells_of_all_options(self):
        page = run("gzip", "-dc", self.path("share", "man", "man1", "fennar.1.gz")).replace("\\-", "-")
        options = set(re.findall(r"--[a-z-]+", run(self.path("bin", "fennar"), "--help")))
        self.assertGreater(len(options), 4)
        self.assertEqual({option for option in options if option not in page}, set())
        self.assertNotIn("\n\n", page)

    # --- the desktop

    def entry(self):
        with open(self.path("share", "applications", "fennar.desktop"), encoding="utf-8") as file:
            return dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)

    def test_the_desktop_file_is_valid_and_starts_the_program(self):
        file = self.path("share", "applications", "fennar.desktop")
        self.assertEqual(run("desktop-file-validate", file), "")
        self.assertTrue(os.access(self.path("bin", shlex.split(self.entry()["Exec"])[0]), os.X_OK))

    def test_the_icon_is_there_in_the_sizes_that_its_folders_name(self):
        icons = self.path("share", "icons", "hicolor")
        name = self.entry()["Icon"]
        root = xml.etree.ElementTree.parse(os.path.join(icons, "scalable", "apps", name + ".svg")).getroot()
        self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
        pictures = glob.glob(os.path.join(icons, "*x*", "apps", name + ".png"))
        self.assertTrue(pictures)
        for picture in pictures:
            with open(picture, "rb") as file:
                head = file.read(24)
            size = picture.split(os.sep)[-3]
            self.assertEqual(f"{int.from_bytes(head[16:20], 'big')}x{int.from_bytes(head[20:24], 'big')}", size)

    def test_the_types_of_files_that_the_program_opens_are_described(self):
        run("update-mime-database", self.path("share", "mime"))
        with open(self.path("share", "mime", "globs2"), encoding="utf-8") as file:
            globs = file.read()
        for kind in filter(None, self.entry()["MimeType"].split(";")):
            self.assertRegex(globs, rf"(?m)^\d+:{re.escape(kind)}:\*\.\w+$")
        self.assertRegex(globs, r"(?m)^\d+:text/x-fennar-journal:\*\.jou$")

    def check_window(self, command, title, program_class=None, environment=()):
        """The program opens one window with the title, and ends well when that is closed."""
        program = subprocess.Popen(command, env={**os.environ, **dict(environment)}, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        try:
            window = find_windows("--name", f"^{title}$")
            self.assertEqual(len(window), 1)
            if program_class:
                self.assertIn(window[0], find_windows("--classname", f"^{program_class}$"))
            run("xdotool", "windowactivate", "--sync", window[0], "key", "--clearmodifiers", "alt+F4")
            output, _ = program.communicate(timeout=60)
        finally:
            program.kill()
            program.wait()
        self.assertEqual((program.returncode, output), (0, ""))

    def test_the_desktop_tells_by_its_entry_whose_the_window_is(self):
        self.check_window([self.path("bin", "fennar"), "--settings", os.path.join(folder, "settings.ini"), "--no-components"],
                          self.entry()["Name"], self.entry()["StartupWMClass"])

    # --- hosts

    def test_a_host_builds_and_opens_its_window_with_the_cmake_package(self):
        self.check_window([os.path.join(self.build("host"), "host"), "By CMake"], "By CMake")

    def test_a_host_builds_and_opens_its_window_with_pkg_config(self):
        env = {**os.environ, "PKG_CONFIG_PATH": os.path.join(libraries, "pkgconfig")}
        flags = run("pkg-config", "--print-errors", "--cflags", "--libs", "ostrelgui", env=env)
        program = os.path.join(folder, "host-by-hand")
        run("g++", "-std=c++20", os.path.join(HERE, "host", "main.cpp"), "-o", program, *shlex.split(flags))
        self.assertEqual(run("pkg-config", "--modversion", "ostrelgui", env=env).strip(),
                         run(self.path("bin", "fennar"), "--version").split()[1])
        self.check_window([program, "By hand"], "By hand", environment={"LD_LIBRARY_PATH": libraries})

    def test_a_package_of_another_interface_is_not_taken(self):
        for package, version, taken in (("OstrelGui", "0.1", True), ("OstrelGui", "0.2", False), ("OstrelGui", "0.0", False),
                                        ("FennarSdk", "0.2", True), ("FennarSdk", "0.1", False)):
            found = subprocess.run([CMAKE, f"-DPACKAGE={libraries}/cmake/{package}/{package}", f"-DVERSION={version}", "-P",
                                    os.path.join(HERE, "find_version.cmake")], capture_output=True, text=True, check=False)
            self.assertEqual(found.returncode == 0, taken, f"{package} {version}: {found.stdout}{found.stderr}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
