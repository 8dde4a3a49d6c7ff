#!/usr/bin/env python3
"""The list of public headers is that of the tree, and the tool that keeps it sees what it should."""
import os
import subprocess
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
TOOL = os.path.join(ROOT, "tools", "public-headers")


class PublicHeaders(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        self.write("api/headers.txt", "")

    def write(self, name, text):
        path = os.path.join(self.root, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)

    def ask(self, *options, root=None):
        return subprocess.run([TOOL, "--root", root or self.root, *options], capture_output=True, text=True, check=False)

    def listed(self):
        self.assertEqual(self.ask("--update").returncode, 0)
        self.assertEqual(self.ask().stdout, "")
        with open(os.path.join(self.root, "api/headers.txt"), encoding="utf-8") as stream:
            return stream.read().split()

    def test_the_tree_has_the_list_it_should(self):
        done = self.ask(root=ROOT)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_what_is_exported_is_public_with_all_that_it_includes(self):
        self.write("facts/Sun.h", '#include "calendar/Day.h"\nORVO_API void Shine();\n')
        self.write("module/calendar/Day.h", '#include "platform/base/Number.h"\n')
        self.write("platform/base/Number.h", "")
        self.write("facts/Inner.h", '#include "facts/Sun.h"\n')
        self.assertEqual(self.listed(), ["facts/Sun.h", "module/calendar/Day.h", "platform/base/Number.h"])

    def test_a_folder_within_a_room_and_the_program_are_private(self):
        self.write("platform/window/grid/Cell.h", "ORVO_API void Show();\n")
        self.write("workbench/commands/Command.h", "ORVO_API void Run();\n")
        self.write("platform/window/Grid.h", "ORVO_API void Fill();\n")
        self.assertEqual(self.listed(), ["platform/window/Grid.h"])

    def test_says_what_the_list_has_wrong(self):
        self.write("facts/Sun.h", "ORVO_API void Shine();\n")
        self.write("facts/Moon.h", "ORVO_API void Rise();\n")
        self.write("api/headers.txt", "facts/Sun.h\nfacts/Mars.h\n")
        done = self.ask()
        self.assertEqual(done.returncode, 1)
        self.assertIn("facts/Moon.h is public and not listed", done.stdout)
        self.assertIn("facts/Mars.h is listed and not public", done.stdout)
        self.assertIn("tools/public-headers --update", done.stdout)
        self.write("api/headers.txt", "facts/Sun.h\nfacts/Moon.h\n")
        self.assertIn("not sorted", self.ask().stdout)


if __name__ == "__main__":
    unittest.main(verbosity=2)
