#!/usr/bin/env python3
"""Compares the list of rooms with the tree: its folders, its tests, and what is built of them."""
import os
import re
import subprocess
import sys
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
TOOL = os.path.join(ROOT, "tools", "rooms.py")
sys.path.insert(0, os.path.dirname(TOOL))
from rooms import ANNEXES, COMPONENTS, ROOMS, TABLES, TESTS_OF_ALL, TESTS_SUPPORT, room_of  # noqa: E402


def folders_of_tests():
    """The folders under tests/, each with whether tests lie in it itself."""
    tests = os.path.join(ROOT, "tests")
    names = [name for name in os.listdir(tests) if os.path.isdir(os.path.join(tests, name))]
    return {name: any(file.endswith("Test.cpp") for file in os.listdir(os.path.join(tests, name))) for name in names}


class Rooms(unittest.TestCase):
    def test_a_folder_of_tests_is_a_rooms_or_concerns_all(self):
        known = {room.tests for room in ROOMS.values()} | set(TESTS_OF_ALL)
        self.assertEqual(sorted(set(folders_of_tests()) - known - {TESTS_SUPPORT}), [])
        self.assertEqual(sorted(set(TESTS_OF_ALL) - set(folders_of_tests())), [])

    def test_every_folder_with_tests_is_built_and_nothing_else(self):
        with open(os.path.join(ROOT, "tests", "CMakeLists.txt"), encoding="utf-8") as file:
            built = re.findall(r"^orvo_test\((\w+)", file.read(), re.M)
        self.assertEqual(sorted(built), sorted(name for name, has_tests in folders_of_tests().items() if has_tests))

    def test_every_room_that_is_there_is_tested(self):
        untested = [room.folder for room in ROOMS.values()
                    if os.path.isdir(os.path.join(ROOT, room.folder)) and not folders_of_tests().get(room.tests)]
        self.assertEqual(untested, ["module"])  # one header, which includes all others

    def test_every_component_that_is_there_is_built(self):
        with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
            built = re.findall(r"^add_subdirectory\((\w+)\)", file.read(), re.M)
        there = [name for name in COMPONENTS if os.path.isdir(os.path.join(ROOT, name))]
        self.assertEqual([name for name in built if name in COMPONENTS], there,
                         "the rooms' lines add_subdirectory(...) of CMakeLists.txt stand in the order of the floors")

    def test_every_folder_of_a_room_is_built_and_no_other(self):
        for component in COMPONENTS:
            top = os.path.join(ROOT, component)
            with open(os.path.join(top, "CMakeLists.txt"), encoding="utf-8") as file:
                lists = re.findall(r"^orvo_room_sources\(\w+ ([^)]*)\)", file.read(), re.M)
            built = [os.path.normpath(os.path.join(component, name)) for names in lists for name in names.split()]
            there = [os.path.relpath(folder, ROOT) for folder, _, files in os.walk(top)
                     if any(name.endswith(".cpp") for name in files)]
            with self.subTest(component=component):
                self.assertEqual(sorted(built), sorted(there), f"{component}/CMakeLists.txt, and the tree")
                self.assertEqual([folder for folder in built if not room_of(folder + "/A.cpp")], [])
                rooms = [room.folder for room in ROOMS.values() if room.component == component]
                self.assertEqual([folder for folder in rooms if not os.path.isdir(os.path.join(ROOT, folder))], [])

    def test_a_room_knows_only_what_there_is(self):
        for room in ROOMS.values():
            for neighbour in room.neighbours:
                self.assertIn(neighbour, ROOMS, room.folder)
            self.assertEqual(set(room.lower) - set(COMPONENTS) - set(ROOMS), set(), room.folder)
        self.assertEqual(set(TABLES) - set(COMPONENTS), set())

    def test_a_file_lies_in_the_innermost_room(self):
        for path, folder in (("platform/base/CString.h", "platform/base"), ("facts/SunDay.h", "facts"),
                             ("platform/window/shelf/A.h", "platform/window"), ("module/OrvoDataBase.h", "module"),
                             ("workbench/Texts.h", "workbench"), ("workbench/view/A.h", "workbench/view")):
            self.assertEqual(room_of(path).folder, folder)
        for path in ("workbench/attic/A.h", "module/attic/A.h", "platform/A.h", "bench/A.cpp", "A.cpp"):
            self.assertIsNone(room_of(path), path)

    def test_shell_scripts_get_every_source(self):
        said = subprocess.run([TOOL, "--sources"], capture_output=True, text=True, check=True).stdout.split()
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "--cached", "--others", "--exclude-standard", "*.h",
                                 "*.cpp"], capture_output=True, text=True, check=True).stdout.split()
        there = [path for path in listed if os.path.exists(os.path.join(ROOT, path))]
        self.assertEqual(sorted(said), sorted(there))
        self.assertEqual({path.split("/")[0] for path in said} - set(COMPONENTS) - set(ANNEXES), set())


if __name__ == "__main__":
    unittest.main()
