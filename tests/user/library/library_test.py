#!/usr/bin/env python3
"""Finds the installed libraries by CMake and by pkg-config, links programs with them, and runs these."""
import os
import shlex
import shutil
import unittest

from stranger import LIBRARIES, PREFIX, PROGRAM, VERSION, Stranger, listed_headers


class InstalledLibrary(Stranger):
    def test_every_package_gives_a_target(self):
        sources = {"OrvoPlatform": ("platform/base/CString.h", "CString text(L\"a\")"),
                   "OrvoDataBase": ("OrvoDataBase.h", "OrvoDate date"),
                   "OrvoFacts": ("facts/Settings.h", "const Settings settings = CurrentSettings()"),
                   "OrvoScene": ("scene/Scene.h", "AcDbDatabase drawing; const Scene scene = BuildScene(drawing)"),
                   "OrvoAnalysis": ("analysis/WindowAnalysis.h",
                                    "AcDbDatabase drawing; const AnalysisAnswer answer = AnalyseWindows(drawing, {})")}
        lines = ["cmake_minimum_required(VERSION 3.25)", "project(somebody LANGUAGES CXX)"]
        for name in LIBRARIES:
            header, statement = sources[name]
            self.write(f"project/{name}.cpp", f'#include "{header}"\n#include "platform/host/AcDbDatabase.h"\n'
                                              f"int main() {{ {statement}; }}\n")
            lines += [f"find_package({name} {VERSION} REQUIRED)", f"add_executable({name} {name}.cpp)",
                      f"target_link_libraries({name} PRIVATE Orvo::{name})"]
        self.write("project/CMakeLists.txt", "\n".join(lines) + "\n")
        self.build(self.path("project"), self.path("build"))
        for name in LIBRARIES:
            self.run_tool(self.path("build", name))

    def test_the_answer_is_the_librarys(self):
        self.build_and_run_a_project()

    def test_another_version_is_refused(self):
        first, second, third = (int(part) for part in VERSION.split("."))
        older = [f"{first}.{second - 1}"] if second else []
        for wanted in (f"{first + 1}.0", f"{first}.{second + 1}", f"{first}.{second}.{third + 1}", *older):
            with self.subTest(wanted=wanted):
                shutil.rmtree(self.path("build"), ignore_errors=True)
                said = self.configure(self.project(f"OrvoFacts {wanted}", "Orvo::OrvoFacts"), self.path("build"), fails=True)
                self.assertIn("OrvoFactsConfig.cmake, version: " + VERSION, said)

    def test_says_where_plug_ins_and_data_lie(self):
        self.write("project/CMakeLists.txt", """cmake_minimum_required(VERSION 3.25)
project(somebody LANGUAGES NONE)
find_package(OrvoPlatform REQUIRED)
file(WRITE ${CMAKE_BINARY_DIR}/said "${ORVO_PLUGIN_DIR}\\n${ORVO_DATA_DIR}\\n")
""")
        self.configure(self.path("project"), self.path("build"))
        with open(self.path("build", "said"), encoding="utf-8") as stream:
            plug_ins, data = stream.read().splitlines()
        self.assertEqual(os.path.normpath(plug_ins), os.path.join(PREFIX, "lib", "orvo", "plugins"))
        self.assertTrue(os.path.exists(os.path.join(data, "zone.xml")), data)
        self.assertEqual(os.path.normpath(self.run_tool("pkg-config", "--variable=plugindir", "OrvoFacts").strip()),
                         os.path.join(PREFIX, "lib", "orvo", "plugins"))

    def test_pkg_config_is_enough(self):
        source = self.write("theirs.cpp", PROGRAM)
        for compiler in ("g++", "clang++"):
            with self.subTest(compiler=compiler):
                flags = shlex.split(self.run_tool("pkg-config", "--cflags", "--libs", f"OrvoFacts = {VERSION}"))
                self.run_tool(compiler, "-std=c++20", source, "-o", self.path("theirs"), *flags,
                              f"-Wl,-rpath,{PREFIX}/lib")
                self.assertEqual(self.run_tool(self.path("theirs")).strip(), "-23.45")

    def test_pkg_config_knows_every_library(self):
        for name in LIBRARIES:
            self.assertEqual(self.run_tool("pkg-config", "--modversion", name).strip(), VERSION)
            self.run_tool("pkg-config", "--validate", name)
            self.run_tool("pkg-config", "--cflags", "--libs", name)

    def test_names_carry_the_number_of_the_interface(self):
        for name in ("libOrvoPlatform", "OrvoDataBase", "libOrvoFacts", "libOrvoAnalysis"):
            with self.subTest(library=name):
                link = os.path.join(PREFIX, "lib", f"{name}.so")
                soname = self.soname(link)
                self.assertRegex(soname, rf"^{name}\.so\.\d+$")
                whole = os.path.join(PREFIX, "lib", f"{name}.so.{VERSION}")
                self.assertFalse(os.path.islink(whole))
                for path in (link, os.path.join(PREFIX, "lib", soname)):
                    self.assertEqual(os.path.realpath(path), os.path.realpath(whole))

    def test_the_plug_in_is_the_library(self):
        plug_in = os.path.join(PREFIX, "lib", "orvo", "OrvoDataBase.so")
        self.assertTrue(os.path.samefile(plug_in, os.path.join(PREFIX, "lib", "OrvoDataBase.so")))
        # Where only what runs is installed, the names for linking are missing.
        self.assertEqual(os.path.basename(os.readlink(plug_in)), self.soname(plug_in))

    def test_a_moved_installation_is_found_where_it_is(self):
        self.prefix = shutil.copytree(PREFIX, self.path("elsewhere"), symlinks=True)
        self.build_and_run_a_project()
        needed = self.run_tool("ldd", self.path("build", "theirs"))
        self.assertIn(self.path("elsewhere", "lib", "libOrvoFacts.so"), needed)
        self.assertNotIn(PREFIX + "/", needed)
        self.assertIn("elsewhere", self.run_tool("pkg-config", "--cflags", "OrvoFacts"))
        self.assertIn("orvo " + VERSION, self.run_tool(self.path("elsewhere", "bin", "orvo"), "--version"))

    def test_the_headers_are_those_of_the_list(self):
        top = os.path.join(PREFIX, "include", "orvo")
        found = sorted(os.path.relpath(os.path.join(folder, name), top)
                       for folder, _, names in os.walk(top) for name in names)
        self.assertEqual(found, sorted([*listed_headers(), "platform/host/BuildStamp.h"]))  # the build makes that one

    def test_nothing_tells_where_it_was_built(self):
        checkout = os.path.join(os.path.dirname(os.path.dirname(os.path.dirname(PREFIX))), "")
        for folder in ("cmake", "pkgconfig"):
            for place, _, names in os.walk(os.path.join(PREFIX, "lib", folder)):
                for name in names:
                    with open(os.path.join(place, name), encoding="utf-8") as stream:
                        self.assertNotIn(checkout, stream.read(), name)


if __name__ == "__main__":
    unittest.main(verbosity=2)
