#!/usr/bin/env python3
"""Changes a file in a small tree, and asks tools/changed-rooms whose tests have something new to say."""
import os
import subprocess
import tempfile
import unittest

TOOL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "changed-rooms")
FILES = ["CMakeLists.txt", "data/zone.xml", "docs/orvo.md", "platform/base/CString.h", "platform/window/CWnd.h",
         "module/calendar/OrvoDate.h", "module/records/SunWinData.h", "module/zone/OrvoCity.h",
         "module/frame/Resources.cpp", "module/OrvoDataBase.h", "module/CMakeLists.txt", "platform/CMakeLists.txt",
         "tests/base/A.cpp", "tests/window/A.cpp", "tests/calendar/A.cpp", "tests/records/A.cpp", "tests/zone/A.cpp", "tests/user/a.py",
         "tests/support/A.h"]
ALL = ["base", "window", "calendar", "records", "zone", "user"]


class ChangedRooms(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.root = os.path.join(temporary.name, "tree")
        self.stamps = os.path.join(temporary.name, "stamps")
        for file in FILES:
            self.write(file, "as it was")
        subprocess.run(["git", "init", "-q", self.root], check=True)

    def write(self, file, text):
        path = os.path.join(self.root, file)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)

    def tool(self, *words):
        done = subprocess.run([TOOL, self.stamps, "--root", self.root, *words], capture_output=True, text=True)
        return done.returncode, done.stdout.split()

    def changed_after(self, file):
        self.assertEqual(self.tool("--passed", *ALL)[0], 0)
        self.assertEqual(self.tool()[1], [])
        self.write(file, "otherwise")
        return self.tool()[1]

    def test_at_first_all_are_to_be_tested(self):
        self.assertEqual(self.tool()[1], ALL)

    def test_a_source_concerns_its_room_and_those_above(self):
        self.assertEqual(self.changed_after("platform/base/CString.h"), ALL)
        self.assertEqual(self.changed_after("platform/window/CWnd.h"), ALL[1:])
        self.assertEqual(self.changed_after("module/calendar/OrvoDate.h"), ["calendar", "zone", "user"])
        self.assertEqual(self.changed_after("module/zone/OrvoCity.h"), ["zone", "user"])

    def test_what_all_of_the_module_include_concerns_all_of_the_module(self):
        for file in ("module/frame/Resources.cpp", "module/CMakeLists.txt"):
            self.assertEqual(self.changed_after(file), ["calendar", "records", "zone", "user"], file)

    def test_a_file_beside_the_rooms_concerns_those_above(self):
        self.assertEqual(self.changed_after("module/OrvoDataBase.h"), ["user"])
        self.assertEqual(self.changed_after("platform/CMakeLists.txt"), ALL)

    def test_a_test_concerns_its_room_and_the_whole(self):
        self.assertEqual(self.changed_after("tests/records/A.cpp"), ["records", "user"])
        self.assertEqual(self.changed_after("tests/user/a.py"), ["user"])

    def test_a_page_of_the_manual_concerns_the_tests_of_the_program(self):
        self.assertEqual(self.changed_after("docs/orvo.md"), ["user"])

    def test_what_all_stand_on_concerns_all(self):
        for file in ("CMakeLists.txt", "data/zone.xml", "tests/support/A.h"):
            self.assertEqual(self.changed_after(file), ALL, file)

    def test_a_new_file_and_a_removed_one_are_changes(self):
        self.assertEqual(self.changed_after("module/zone/New.h"), ["zone", "user"])
        self.tool("--passed", *ALL)
        os.remove(os.path.join(self.root, "module/zone/New.h"))
        self.assertEqual(self.tool()[1], ["zone", "user"])

    def test_what_failed_stays_to_be_tested(self):
        self.tool("--passed", *ALL)
        self.write("module/calendar/OrvoDate.h", "otherwise")
        self.tool("--passed", "calendar")
        self.assertEqual(self.tool()[1], ["zone", "user"])

    def test_a_room_that_is_not_there_is_refused(self):
        self.assertNotEqual(self.tool("--passed", "attic")[0], 0)


if __name__ == "__main__":
    unittest.main()
