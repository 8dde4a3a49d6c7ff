#!/usr/bin/env python3
"""Lets tools/check-portable compile small trees: what compiles here, and not for the framework's own system, is found."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parent.parent.parent / "tools" / "check-portable"
GOOD = '#include "room/Good.h"\nlong long Good(long n) { return n; }\n'


class CheckPortable(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.root = pathlib.Path(temporary.name)
        self.write("cmake/Flags.cmake", "target_compile_options(flags INTERFACE\n  -Wall -Wconversion -Werror  # all\n)\n")
        self.write("module/room/Good.h", '#include "platform/Type.h"\nlong long Good(long n);\n')
        self.write("platform/Type.h", "#include <string>\n")
        self.write("module/room/Good.cpp", GOOD)

    def write(self, file, text):
        path = self.root / file
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_tool(self, *sources, **environment):
        environment = {**os.environ, "CCACHE_DIR": str(self.root / "cache"), **environment}
        done = subprocess.run([sys.executable, TOOL, "--root", self.root, *sources], capture_output=True, text=True,
                              env=environment)
        return done.returncode, done.stdout + done.stderr

    def refuses(self, text, *words):
        """The source compiles here with the same warnings, and is refused in its place and by its name alone."""
        self.write("module/deep/er/Other.cpp", text)
        subprocess.run(["g++", "-std=c++20", "-Wall", "-Wconversion", "-Werror", "-fsyntax-only",
                        self.root / "module/deep/er/Other.cpp"], check=True)
        for sources, count in (((), 2), (("module/deep/er/Other.cpp",), 1)):
            code, output = self.run_tool(*sources)
            self.assertEqual(code, 1, output)
            self.assertIn("check-portable: module/deep/er/Other.cpp\n", output)
            self.assertNotIn("Good.cpp", output)
            self.assertIn(f"portable: {count} sources compiled", output)
            self.assertIn("1 of them with complaints", output)
            for word in words:
                self.assertIn(word, output)
        self.assertEqual(self.run_tool("module/room/Good.cpp")[0], 0)

    def test_what_compiles_there_passes_and_is_counted(self):
        for _ in range(2):  # the second time from the cache
            code, output = self.run_tool()
            self.assertEqual(code, 0, output)
            self.assertIn("portable: 1 sources compiled", output)
            self.assertIn("0 of them with complaints", output)

    def test_a_function_that_is_not_there_is_refused(self):
        self.refuses("#include <cstdlib>\nvoid* Make() { return std::aligned_alloc(64, 64); }\n", "aligned_alloc")

    def test_a_number_that_does_not_fit_a_long_is_refused(self):
        self.refuses("long Shorten(long long n) { return n; }\n", "-Werror=conversion")

    def test_a_character_that_does_not_fit_a_wchar_t_is_refused(self):
        self.refuses("static_assert(static_cast<wchar_t>(0x1F600) == 0x1F600);\n", "static assertion failed")

    def test_what_only_a_users_instance_shows_is_refused(self):
        self.refuses("template <class T> T Shorten(long long n) { return n; }\nlong Use() { return Shorten<long>(7); }\n",
                     "-Werror=conversion")

    def test_a_changed_header_is_read_again(self):
        self.assertEqual(self.run_tool()[0], 0)
        self.write("platform/Type.h", "#include <sys/mman.h>\n")
        code, output = self.run_tool()
        self.assertEqual(code, 1)
        self.assertIn("sys/mman.h", output)

    def test_a_tree_without_sources_is_no_success(self):
        (self.root / "module/room/Good.cpp").unlink()
        code, output = self.run_tool()
        self.assertEqual(code, 1)
        self.assertIn("there are no sources in", output)

    def test_a_missing_compiler_is_named_with_its_package(self):
        code, output = self.run_tool(PATH=str(self.root))
        self.assertEqual(code, 1)
        self.assertIn("the Debian package g++-mingw-w64-x86-64-posix brings it", output)


if __name__ == "__main__":
    unittest.main()
