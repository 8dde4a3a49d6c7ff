#!/usr/bin/env python3
"""Makes small trees with one mistake each, and asks whether tools/check-layers finds it."""
import os
import subprocess
import tempfile
import unittest

CHECK = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools", "check-layers")

SOUND = {
    "platform/base/CString.h": "// Text.\n#include <string>\n",
    "platform/base/Reader.cpp": '// Reads.\n#include <libxml/xmlreader.h>\n#include "platform/base/CString.h"\n',
    "module/frame/Resources.h": '// Texts.\n#include "platform/base/CString.h"\n',
    "module/containers/QcList.h": "// List.\n#include <cstddef>\n",
    "module/calendar/OrvoDate.h": '// Date.\n#include "containers/QcList.h"\n',
    "module/calendar/OrvoDate.cpp": '// Date.\n#include "calendar/OrvoDate.h"\n#include "frame/Resources.h"\n',
    "workbench/host/Main.cpp": '// Main.\n#include "platform/base/CString.h"\n',
}


def check(changes):
    with tempfile.TemporaryDirectory() as root:
        for path, text in {**SOUND, **changes}.items():
            path = os.path.join(root, path)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        done = subprocess.run([CHECK, "--root", root], capture_output=True, text=True)
        return done.returncode, done.stdout


class CheckLayers(unittest.TestCase):
    def refuses(self, changes, words):
        code, text = check(changes)
        self.assertEqual(code, 1, text)
        self.assertIn(words, text)
        self.assertIn("1 complaints", text)

    def test_a_sound_tree_passes(self):
        self.assertEqual(check({})[0], 0)

    def test_an_empty_tree_does_not_pass(self):
        with tempfile.TemporaryDirectory() as root:
            self.assertEqual(subprocess.run([CHECK, "--root", root], capture_output=True).returncode, 1)

    def test_the_platform_may_not_include_the_module(self):
        self.refuses({"platform/base/X.cpp": '// X.\n#include "module/frame/Resources.h"\n'}, "the platform includes")

    def test_a_room_may_not_reach_up(self):
        self.refuses({"module/containers/X.h": '// X.\n#include "calendar/OrvoDate.h"\n'}, "lower floor")

    def test_a_room_may_not_reach_sideways(self):
        self.refuses({"module/records/X.h": '// X.\n#include "calendar/OrvoDate.h"\n'}, "lower floor")

    def test_the_ground_may_not_include_the_module(self):
        self.refuses({"module/frame/Resources.h": '// T.\n#include "containers/QcList.h"\n'}, "the frame's ground")

    def test_only_the_ground_of_the_frame_is_for_all(self):
        self.refuses({"module/frame/Entry.h": "// E.\n",
                      "module/calendar/X.h": '// X.\n#include "frame/Entry.h"\n'}, "lower floor")

    def test_the_program_may_not_include_the_module(self):
        self.refuses({"workbench/host/X.cpp": '// X.\n#include "calendar/OrvoDate.h"\n'}, "the program includes")

    def test_a_circle_of_headers_is_found(self):
        self.refuses({"module/calendar/A.h": '// A.\n#include "calendar/B.h"\n',
                      "module/calendar/B.h": '// B.\n#include "calendar/A.h"\n'}, "in a circle")

    def test_a_library_stays_in_its_rooms(self):
        for room, include in [("platform/host", "libxml/tree.h"), ("module/calendar", "QString"),
                              ("platform/base", "QtCore/QString"), ("platform/host", "fmt/printf.h"),
                              ("module/containers", "GL/gl.h"), ("platform/base", "CLI/CLI.hpp")]:
            with self.subTest(include=include):
                self.refuses({f"{room}/X.cpp": f"// X.\n#include <{include}>\n"}, "is not for")

    def test_a_window_header_may_not_show_qt(self):
        self.refuses({"platform/window/X.h": "// X.\n#include <QWidget>\n"}, "shows Qt")

    def test_the_module_may_not_speak_to_the_system(self):
        self.refuses({"module/calendar/X.cpp": "// X.\n#include <unistd.h>\n"}, "operating system")

    def test_a_file_says_what_it_is_for(self):
        self.refuses({"module/calendar/X.cpp": "#include <string>\n"}, "what it is for")

    def test_an_unknown_file_is_noticed(self):
        self.refuses({"module/calendar/X.cpp": '// X.\n#include "Gone.h"\n'}, "not a file of the project")


if __name__ == "__main__":
    unittest.main()
