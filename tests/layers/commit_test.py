#!/usr/bin/env python3
"""Which commit a build names: that of a checkout, and none where there is none."""
import os
import subprocess
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))


class Commit(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = os.path.realpath(folder.name)
        self.source = os.path.join(self.folder, "source")
        os.makedirs(os.path.join(self.source, "inner"))
        self.output = os.path.join(self.folder, "Commit.cpp")
        self.write("file", "one")

    def write(self, name, text):
        with open(os.path.join(self.source, name), "w", encoding="ascii") as stream:
            stream.write(text)

    def git(self, *arguments):
        return subprocess.run(["git", "-c", "user.name=n", "-c", "user.email=e", "-C", self.source, *arguments], check=True,
                              capture_output=True, text=True).stdout.strip()

    def make_checkout(self):
        self.git("init", "--quiet")
        self.git("add", "file")
        self.git("commit", "--quiet", "--message", "one")
        self.git("tag", "--annotate", "--message", "one", "v1.0")
        return self.git("rev-parse", "HEAD")[:12]

    def commit(self, folder="", named=""):
        subprocess.run(["cmake", f"-DSOURCE={os.path.join(self.source, folder)}", f"-DNAMED={named}",
                        f"-DOUTPUT={self.output}", "-P", os.path.join(ROOT, "cmake", "Commit.cmake")], check=True)
        with open(self.output, encoding="ascii") as stream:
            return stream.read().split('"')[1]

    def test_that_of_a_checkout(self):
        commit = self.make_checkout()
        self.assertEqual(self.commit(), commit)
        self.write("file", "two")
        self.assertEqual(self.commit(), commit + "+")

    def test_none_where_there_is_none(self):
        self.assertEqual(self.commit(), "")
        self.make_checkout()
        self.assertEqual(self.commit("inner"), "", "the commit is another project's")

    def test_the_one_that_was_named(self):
        self.make_checkout()
        self.assertEqual(self.commit(named="abc"), "abc")

    def test_what_is_so_already_is_left_alone(self):
        self.make_checkout()
        self.commit()
        os.utime(self.output, (1, 1))
        self.commit()
        self.assertEqual(os.stat(self.output).st_mtime, 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
