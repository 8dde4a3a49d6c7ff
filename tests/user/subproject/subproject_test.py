#!/usr/bin/env python3
"""Builds the libraries within a project of somebody else's, links a program of theirs, and runs it."""
import os
import shutil
import subprocess
import unittest

SOURCE = os.environ["ORVO_SOURCE_DIR"]
# As deep in the checkout as the builds of the presets: the compiler's cache then knows the objects.
FOLDER = os.path.join(SOURCE, "build", "subproject")

PROJECT = """cmake_minimum_required(VERSION 3.25)
project(somebody LANGUAGES CXX)
add_subdirectory("%s" orvo)
add_executable(theirs theirs.cpp)
target_compile_features(theirs PRIVATE cxx_std_20)
target_link_libraries(theirs PRIVATE OrvoDataBase)
""" % SOURCE

# The longest night of a common year: the first term, and the obliquity of the tables.
PROGRAM = """#include <cstdio>
#include "OrvoDataBase.h"
int main() {
    OrvoDate date;
    date.SetYear(2025);
    date.SetMonth(12);
    date.SetDay(22);
    std::printf("%.2f\\n", date.GetDgLat());
}
"""


class Subproject(unittest.TestCase):
    def run_tool(self, *command):
        done = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stdout[-4000:] + done.stderr[-4000:])
        return done.stdout

    def test_a_program_of_another_project_uses_the_module(self):
        source = os.path.join(FOLDER, "source")
        shutil.rmtree(FOLDER, ignore_errors=True)
        os.makedirs(source)
        for name, text in (("CMakeLists.txt", PROJECT), ("theirs.cpp", PROGRAM)):
            with open(os.path.join(source, name), "w", encoding="utf-8") as file:
                file.write(text)
        self.run_tool("cmake", "-S", source, "-B", FOLDER, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release")
        self.run_tool("cmake", "--build", FOLDER, "--target", "theirs")
        self.assertEqual(self.run_tool(os.path.join(FOLDER, "theirs")).strip(), "-23.45")
        for made in ("orvo/lib/OrvoDataBase.so", "orvo/lib/orvo/OrvoDataBase.so", "orvo/share/orvo/SunTerm.xml"):
            self.assertTrue(os.path.exists(os.path.join(FOLDER, made)), f"{made} is not in the project's own part")
        self.assertFalse(os.path.exists(os.path.join(FOLDER, "lib")), "something lies in the other project's part")


if __name__ == "__main__":
    unittest.main()
