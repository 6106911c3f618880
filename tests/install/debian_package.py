#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Makes the Debian packages of a build and looks into them:  debian_package.py CMAKE BUILD_DIR

That they install and start on a system of their own is checked by tools/check-package.
"""

import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD = sys.argv[1:3]


def run(*command, **options):
    result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(command)}\nended with {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result.stdout


class Package:
    def __init__(self, file):
        self.file = file
        # Mode, owner, size, path and, for a link, where it leads.
        self.files = {}
        for line in run("dpkg-deb", "--contents", file).splitlines():
            mode, owner, _, _, _, path = line.split(None, 5)
            path, _, target = path.partition(" -> ")
            self.files[path[1:]] = (mode, owner, target)
        self.names = sorted(path for path, (mode, _, _) in self.files.items() if not mode.startswith("d"))

    def field(self, name):
        return run("dpkg-deb", "--field", self.file, name).strip()

    def alternatives(self, name):
        """Each package named in the field, without versions."""
        return re.split(r"[,|] *", re.sub(r" *\([^)]*\)", "", self.field(name)))


def setUpModule():
    global folder, version, program, development, module
    folder = tempfile.mkdtemp(prefix="debian_package.")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    run(CMAKE.replace("cmake", "cpack"), "--config", os.path.join(BUILD, "CPackConfig.cmake"), "-B", folder, cwd=folder)
    version = run(os.path.join(BUILD, "bin", "fennar"), "--version").split()[1]
    files = sorted(glob.glob(os.path.join(folder, "*.deb")))
    architecture = run("dpkg", "--print-architecture").strip()
    if [os.path.basename(file) for file in files] != [f"fennar_{version}-1_{architecture}.deb",
                                                      f"libostrelgui-dev_{version}-1_{architecture}.deb",
                                                      f"python3-fennar_{version}-1_{architecture}.deb"]:
        raise AssertionError(f"the packages are {files}")
    program, development, module = map(Package, files)


class DebianPackage(unittest.TestCase):
    def test_each_package_says_what_it_is(self):
        for package, name, section in ((program, "fennar", "science"), (development, "libostrelgui-dev", "libdevel"),
                                       (module, "python3-fennar", "python")):
            self.assertEqual(package.field("Package"), name)
            self.assertEqual(package.field("Version"), version + "-1")
            self.assertEqual(package.field("Maintainer"), "The Ostrel developers")
            self.assertEqual(package.field("Section"), section)
            self.assertEqual(package.field("Priority"), "optional")
            self.assertGreater(int(package.field("Installed-Size")), 100)
            # A line that says what it is, then a paragraph that is no longer than a terminal is wide.
            summary, *text = package.field("Description").splitlines()
            self.assertLessEqual(len(summary), 80)
            self.assertGreater(len(text), 2)
            self.assertEqual([line for line in text if not re.fullmatch(r" \S.{0,78}", line) and line != " ."], [])

    def test_the_program_asks_for_what_it_uses(self):
        needs = program.alternatives("Depends")
        for pattern in (r"libc6", r"libqt6widgets6(t64)?", r"libpython3\.\d+(t64)?", r"libgmsh\d.*",
                        r"libocct-modeling-algorithms-.*", r"libocct-data-exchange-.*", r"libstdc\+\+6",
                        # No library of the program asks for this one: Qt loads it when it meets the first icon.
                        r"libqt6svg6|qt6-svg-plugins"):
            self.assertTrue(any(re.fullmatch(pattern, name) for name in needs), f"{pattern} in {needs}")
        self.assertIn("libgl1-mesa-dri", program.alternatives("Recommends"))

    def test_the_package_of_the_icons_is_one_that_has_them(self):
        owner = run("dpkg-query", "--search", "*/plugins/imageformats/libqsvg.so").split(":")[0]
        self.assertIn(owner, program.alternatives("Depends"))

    def test_the_program_does_not_ask_for_what_builds_use(self):
        self.assertEqual([name for name in program.alternatives("Depends") if name.endswith("-dev") or "asan" in name], [])

    def test_what_builds_use_goes_with_this_very_program(self):
        needs = development.field("Depends")
        self.assertIn(f"fennar (= {version}-1)", needs)
        self.assertIn("qt6-base-dev", needs)
        # Components compile their translations.
        self.assertLessEqual({"qt6-tools-dev", "qt6-l10n-tools"}, set(development.alternatives("Recommends")))

    def test_each_component_brings_its_translations(self):
        tree = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "workbench")
        sources = [os.path.splitext(os.path.basename(path))[0]
                   for path in glob.glob(os.path.join(tree, "**", "translations", "*.ts"), recursive=True)
                   if "/template/" not in path]
        self.assertGreater(len(sources), 10)
        self.assertEqual([os.path.basename(path) for path in program.names if "/fennar/translations/" in path],
                         [name + ".qm" for name in sorted(sources)])

    def test_the_module_goes_with_this_very_program_and_its_own_python(self):
        needs = module.field("Depends")
        self.assertIn(f"fennar (= {version}-1)", needs)
        self.assertRegex(needs, r"python3 \(>= 3\.\d+\), python3 \(<< 3\.\d+\)")
        self.assertIn("python3-numpy", module.alternatives("Recommends"))

    def test_the_module_is_a_package_with_one_shared_object_and_types(self):
        self.assertEqual({re.sub(r"^/usr/lib/python3[.\d]*/[a-z]+-packages/|\.cpython-.*(?=\.so)", "", path)
                          for path in module.names if "/doc/" not in path},
                         {"fennar/" + name
                          for name in ("__init__.py", "__init__.pyi", "_build.py", "_engine.so", "py.typed", "sweep.py")})

    def test_what_python_compiles_goes_with_the_package(self):
        out = tempfile.mkdtemp(dir=folder)
        run("dpkg-deb", "--control", module.file, out)
        for name, act in (("postinst", "py3compile"), ("prerm", "py3clean")):
            with open(os.path.join(out, name), encoding="utf-8") as file:
                self.assertIn(f"{act} -p python3-fennar", file.read())
            self.assertEqual(run("sh", "-n", os.path.join(out, name)), "")

    def test_all_files_are_roots_and_can_be_read_by_everybody(self):
        for package in (program, development, module):
            for path, (mode, owner, _) in package.files.items():
                self.assertEqual(owner, "root/root", path)
                self.assertRegex(mode, r"^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x|lrwxrwxrwx)$", path)

    def test_all_files_are_where_packages_may_put_them(self):
        for package in (program, development, module):
            self.assertEqual([path for path in package.names if not re.match("/usr/(bin|include|lib|share)/", path)], [])
        self.assertEqual([path for path in program.names if path.startswith("/usr/bin/")], ["/usr/bin/fennar"])
        for one, other in ((program, development), (program, module), (development, module)):
            self.assertEqual(set(one.names) & set(other.names), set())

    def test_headers_and_links_for_the_linker_are_with_what_builds_use(self):
        def belongs_to_builds(path):
            return bool(re.search(r"\.h$|/cmake/|/pkgconfig/|/lib[^/]*\.so$", path))

        self.assertEqual([path for path in program.names if belongs_to_builds(path)], [])
        self.assertEqual([path for path in development.names
                          if not belongs_to_builds(path) and "/doc/" not in path], [])
        for ending in ("/ostrelgui.pc", "/OstrelGuiConfig.cmake", "/FennarSdkConfig.cmake", "/frame/MainFrame.h", "/libostrelgui.so"):
            self.assertTrue(any(path.endswith(ending) for path in development.names), ending)

    def test_links_lead_to_files_of_the_two_packages(self):
        names = set(program.names) | set(development.names)
        links = [(path, target) for package in (program, development)
                 for path, (mode, _, target) in package.files.items() if mode.startswith("l")]
        self.assertGreater(len(links), 10)
        for path, target in links:
            self.assertIn(os.path.normpath(os.path.join(os.path.dirname(path), target)), names, path)

    def test_licenses_and_changes_are_told(self):
        for package in (program, development, module):
            out = tempfile.mkdtemp(dir=folder)
            run("dpkg-deb", "--extract", package.file, out)
            documents = os.path.join(out, "usr", "share", "doc", package.field("Package"))
            with open(os.path.join(documents, "copyright"), encoding="utf-8") as file:
                copyright_file = file.read()
            for text in ("License: BSD-3-Clause\n BSD 3-Clause License\n .\n", "THIS SOFTWARE IS PROVIDED",
                         "Copyright: 2006 The Inconsolata Project Authors", "SIL OPEN FONT LICENSE Version 1.1"):
                self.assertIn(text, copyright_file)
            # In this format an empty line ends a paragraph.
            self.assertNotIn("\n\n ", copyright_file)
            with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "CHANGELOG.md"),
                      encoding="utf-8") as file:
                self.assertEqual(run("gzip", "-dc", os.path.join(documents, "changelog.gz")), file.read())
            with open(os.path.join(out, "changelog"), "w", encoding="utf-8") as file:
                file.write(run("gzip", "-dc", os.path.join(documents, "changelog.Debian.gz")))
            self.assertEqual(run("dpkg-parsechangelog", "--all", "-l", file.name, "--show-field", "Version").split(),
                             [version + "-1"])

    def test_the_cache_of_libraries_is_renewed_by_a_trigger(self):
        out = tempfile.mkdtemp(dir=folder)
        run("dpkg-deb", "--control", program.file, out)
        # CPack adds scripts that call ldconfig, too.
        self.assertLessEqual(set(os.listdir(out)), {"control", "md5sums", "shlibs", "triggers", "postinst", "postrm"})
        with open(os.path.join(out, "triggers"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "activate-noawait ldconfig\n")

    def test_packages_that_link_the_libraries_are_bound_to_this_version(self):
        out = tempfile.mkdtemp(dir=folder)
        run("dpkg-deb", "--control", program.file, out)
        interface = ".".join(version.split(".")[:2])
        with open(os.path.join(out, "shlibs"), encoding="utf-8") as file:
            self.assertIn(f"libostrelgui {interface} fennar (= {version}-1)\n", file.read())

    def test_programs_and_libraries_are_stripped(self):
        out = tempfile.mkdtemp(dir=folder)
        for package in (program, module):
            run("dpkg-deb", "--extract", package.file, out)
        files = [os.path.join(at, name) for at, _, names in os.walk(os.path.join(out, "usr", "lib")) for name in names]
        kinds = [line for line in run("file", *files).splitlines() if " ELF " in line]
        self.assertGreater(len(kinds), 15)
        self.assertEqual([line for line in kinds if not line.endswith(", stripped")], [])

    def test_what_is_unpacked_runs(self):
        out = tempfile.mkdtemp(dir=folder)
        run("dpkg-deb", "--extract", program.file, out)
        with open(os.path.join(out, "test.jou"), "w", encoding="utf-8") as file:
            file.write("brick 1 2 3\nmesh brick1 size 0.5\n")
        environment = {k: v for k, v in os.environ.items() if k != "FENNAR_COMPONENT_PATH"}
        libraries = os.path.dirname(glob.glob(os.path.join(out, "usr", "lib", "**", "libostrelgui.so.*"),
                                              recursive=True)[0])
        output = run(os.path.join(out, "usr", "bin", "fennar"), "--batch", "--play", "test.jou", cwd=out,
                     env={**environment, "LD_LIBRARY_PATH": libraries})
        self.assertIn("brick1: volume 6", output)

    def test_the_module_that_is_unpacked_runs(self):
        out = tempfile.mkdtemp(dir=folder)
        for package in (program, module):
            run("dpkg-deb", "--extract", package.file, out)
        environment = {k: v for k, v in os.environ.items() if k not in ("FENNAR_COMPONENT_PATH", "DISPLAY", "QT_QPA_PLATFORM")}
        place = os.path.dirname(os.path.dirname(glob.glob(os.path.join(out, "usr", "lib", "**", "fennar", "__init__.py"),
                                                          recursive=True)[0]))
        libraries = os.path.dirname(glob.glob(os.path.join(out, "usr", "lib", "**", "libostrelgui.so.*"), recursive=True)[0])
        output = run("/usr/bin/python3", "-c", "import fennar; print(fennar.mesh(fennar.brick(1), size=0.5).size)", cwd=out,
                     env={**environment, "LD_LIBRARY_PATH": libraries, "PYTHONPATH": place})
        self.assertEqual(output, "0.5\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
