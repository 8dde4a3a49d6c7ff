#!/usr/bin/env python3
"""The lists of exported names are those of the libraries, and the tools that keep and compare them see what they should.

usage: exported_names_test.py [LIBRARY...]      of small libraries; and of these, which are the project's
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
LIBRARIES = []

HEAD = """#include <string>
#include <vector>
#define SHOWN __attribute__((visibility("default")))
"""
SUN = HEAD + """struct SHOWN Sun { double altitude; double Shadow() const; };
double Sun::Shadow() const { return altitude; }
SHOWN double Rise(const Sun& sun) { return sun.altitude; }
SHOWN int g_risen = 0;
int Hidden() { return std::vector<std::string>(static_cast<unsigned>(g_risen)).size() > 3; }
"""
NAMES = ["Rise(Sun const&)", "Sun::Shadow() const", "g_risen"]
MORE = SUN + "SHOWN int Added() { return 1; }\n"
LESS = SUN.replace("SHOWN double Rise", "static double Rise").replace("int Hidden", "double g = Rise(Sun());\nint Hidden")
LARGER = SUN.replace("double altitude;", "double altitude; double azimuth;")


class Tool(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-exports-")
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)

    def library(self, name, source, soname="libOrvoSun.so.0"):
        self.write("source.cpp", source)
        library = self.path(name)
        os.makedirs(os.path.dirname(library), exist_ok=True)
        subprocess.run(["g++", "-g", "-shared", "-fPIC", "-fvisibility=hidden", "-std=c++20", f"-Wl,-soname,{soname}",
                        self.path("source.cpp"), "-o", library], check=True)
        return library

    def ask(self, tool, *arguments, **environment):
        return subprocess.run([os.path.join(ROOT, "tools", tool), *arguments], capture_output=True, text=True, check=False,
                              env=dict(os.environ, **environment))


class Exports(Tool):
    def exports(self, *arguments):
        return self.ask("exports", "--lists", self.folder, *arguments)

    def test_the_lists_are_the_projects(self):
        if not LIBRARIES:
            self.skipTest("no libraries named")
        done = self.ask("exports", *LIBRARIES)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_lists_what_is_shown_and_nothing_of_the_standard_library(self):
        library = self.library("libOrvoSun.so", SUN + "SHOWN std::string Name(int i) { return std::to_string(i); }\n")
        self.assertEqual(self.exports("--update", library).returncode, 0)
        with open(self.path("OrvoSun.exports"), encoding="utf-8") as stream:
            lines = stream.read().splitlines()
        self.assertEqual(lines, ["Name[abi:cxx11](int)", *NAMES])
        done = self.exports(library)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_says_what_came_and_went(self):
        self.exports("--update", self.library("libOrvoSun.so", SUN))
        done = self.exports(self.library("libOrvoSun.so", MORE))
        self.assertEqual(done.returncode, 1)
        self.assertIn("Added() is exported and not listed", done.stdout)
        self.assertIn("tools/exports --update", done.stdout)
        done = self.exports(self.library("libOrvoSun.so", LESS))
        self.assertEqual(done.returncode, 1)
        self.assertIn("Rise(Sun const&) is listed and no longer exported", done.stdout)

    def test_says_when_the_list_is_out_of_order_or_missing(self):
        library = self.library("libOrvoSun.so", SUN)
        self.assertIn("g_risen is exported and not listed", self.exports(library).stdout)
        self.write("OrvoSun.exports", "\n".join(reversed(NAMES)) + "\n")
        done = self.exports(library)
        self.assertEqual(done.returncode, 1)
        self.assertIn("not sorted", done.stdout)

    def test_says_what_it_cannot_read(self):
        self.write("text.so", "no library")
        for library, words in ((self.path("none.so"), "build it first"), (self.path("text.so"), "text.so")):
            done = self.exports(library)
            self.assertEqual((done.returncode, done.stdout), (2, ""))
            self.assertIn(words, done.stderr)


class CompareAbi(Tool):
    def setUp(self):
        super().setUp()
        self.old = self.library("old/libOrvoSun.so", SUN)

    def compare(self, source, **more):
        return self.ask("compare-abi", self.old, self.library("new/libOrvoSun.so", source, **more))

    def test_the_same_and_more_pass(self):
        for source in (SUN, MORE):
            done = self.compare(source)
            self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
            self.assertIn("nothing was taken away or changed", done.stdout)

    def test_less_and_larger_are_told(self):
        for source, words in ((LESS, "Rise"), (LARGER, "azimuth")):
            done = self.compare(source)
            self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
            self.assertIn(words, done.stdout)
            self.assertIn("raise ORVO_ABI", done.stdout)

    def test_another_number_makes_it_another_library(self):
        done = self.compare(LARGER, soname="libOrvoSun.so.1")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertIn("libOrvoSun.so.0 became libOrvoSun.so.1", done.stdout)

    def test_says_what_it_cannot_compare(self):
        self.write("text.so", "no library")
        for library, words in (("none.so", "is not there"), ("text.so", "abidiff could not compare")):
            done = self.ask("compare-abi", self.old, self.path(library))
            self.assertEqual(done.returncode, 2, done.stdout)
            self.assertIn(words, done.stderr)
        self.assertEqual(self.ask("compare-abi", self.old).returncode, 2)
        os.makedirs(self.path("bin"))
        for name in ("env", "python3"):
            os.symlink(shutil.which(name), self.path(f"bin/{name}"))
        done = self.ask("compare-abi", self.old, self.old, PATH=self.path("bin"))
        self.assertEqual(done.returncode, 2)
        self.assertIn("abigail-tools", done.stderr)


class CompareWithRelease(Tool):
    """A project of a few lines, with releases."""

    def setUp(self):
        super().setUp()
        self.root = self.path("project")
        self.write("project/CMakeLists.txt", """cmake_minimum_required(VERSION 3.25)
project(small LANGUAGES CXX)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
add_library(OrvoSun SHARED sun.cpp)
set_target_properties(OrvoSun PROPERTIES VERSION 0.1.0 SOVERSION 0)
""")
        self.write("project/sun.cpp", SUN)
        self.git("init", "--quiet")
        self.commit()

    def git(self, *arguments):
        subprocess.run(["git", "-c", "user.name=n", "-c", "user.email=e", *arguments], cwd=self.root, check=True)

    def commit(self):
        self.git("add", "CMakeLists.txt", "sun.cpp")
        self.git("commit", "--quiet", "--message", "change")

    def compare(self):
        return self.ask("compare-abi", "--root", self.root)

    def test_says_that_there_is_none(self):
        self.git("tag", "other")
        done = self.compare()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("No release is tagged yet", done.stdout)

    def test_compares_the_tree_with_the_last_one(self):
        self.git("tag", "v0.1.0")
        self.write("project/sun.cpp", LARGER)
        self.commit()
        done = self.compare()
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertIn("azimuth", done.stdout)
        self.git("tag", "v0.2.0")
        done = self.compare()
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_says_when_a_library_went(self):
        self.git("tag", "v0.1.0")
        path = self.path("project/CMakeLists.txt")
        with open(path, encoding="utf-8") as stream:
            text = stream.read()
        self.write("project/CMakeLists.txt", text.replace("OrvoSun", "OrvoMoon"))
        done = self.compare()
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertIn("libOrvoSun.so of v0.1.0 is there no more", done.stdout)


if __name__ == "__main__":
    LIBRARIES[:] = sys.argv[1:]
    unittest.main(argv=sys.argv[:1], verbosity=2)
