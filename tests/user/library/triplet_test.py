#!/usr/bin/env python3
"""The project installed where a distribution puts it, with the libraries in a folder for the machine's kind, and staged."""
import os
import shutil
import unittest

from stranger import SOURCE, VERSION, Stranger

TRIPLET = "lib/x86_64-linux-gnu"
# As deep in the checkout as the builds of the presets: the compiler's cache then knows the objects.
FOLDER = os.path.join(SOURCE, "build", "triplet")


class Triplet(Stranger):
    prefix = os.path.join(FOLDER, "stage", "usr")
    library_folder = TRIPLET

    def environment(self):
        # The compilers' cache is the account's, wherever its home is just now.
        return dict(super().environment(), CCACHE_DIR=os.environ.get("CCACHE_DIR", os.path.expanduser("~/.cache/ccache")),
                    DESTDIR=os.path.join(FOLDER, "stage"))

    def test_is_found_and_works_where_a_distribution_puts_it(self):
        shutil.rmtree(FOLDER, ignore_errors=True)
        self.run_tool("cmake", "-S", SOURCE, "-B", FOLDER, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                      "-DORVO_TESTS=OFF", "-DORVO_BENCH=OFF", "-DCMAKE_INSTALL_PREFIX=/usr",
                      f"-DCMAKE_INSTALL_LIBDIR={TRIPLET}")
        self.run_tool("cmake", "--build", FOLDER)
        for installed in (False, True):
            with self.subTest(installed=installed):
                if installed:
                    self.run_tool("cmake", "--install", FOLDER)
                program = os.path.join(self.prefix if installed else FOLDER, "bin", "orvo")
                self.assertIn("orvo " + VERSION, self.run_tool(program, "--version"))
                # A place, which the program can only know from the data.
                self.assertIn("39.905", self.run_tool(program, "info", "--place", "北京"))
        for made in ("libOrvoFacts.so", "orvo/OrvoDataBase.so", "cmake/OrvoFacts/OrvoFactsConfig.cmake",
                     "pkgconfig/OrvoFacts.pc"):
            self.assertTrue(os.path.exists(os.path.join(self.prefix, TRIPLET, made)), made)
        self.assertEqual(os.listdir(os.path.join(self.prefix, "lib")), ["x86_64-linux-gnu"])
        self.build_and_run_a_project()
        flags = self.run_tool("pkg-config", "--libs", "--cflags", "OrvoFacts").split()
        for flag in flags:
            if flag[:2] in ("-I", "-L"):
                self.assertTrue(os.path.isdir(flag[2:]), flag)
                self.assertTrue(os.path.realpath(flag[2:]).startswith(os.path.realpath(self.prefix)), flag)


if __name__ == "__main__":
    unittest.main(verbosity=2)
