#!/usr/bin/env python3
"""Whether NOTICES.md and docs/dependencies.md name every library that the binaries need directly, and no other, and
whether CHANGELOG.md tells of the version that is built.

usage: notices_test.py VERSION BINARY...
"""
import os
import re
import subprocess
import sys
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
VERSION, BINARIES = "", []
# A library in a table, as `libxml2`.
NAMED = re.compile(r"`(lib\w[\w+]*)`")


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as stream:
        return stream.read()


def libraries_named(text):
    """Those in the rows of the tables of a text."""
    return {name for row in re.findall(r"^\| .*$", text, re.M) for name in NAMED.findall(row)}


def needed_by(binary):
    """The foreign libraries that a binary needs, without their numbers. The loader (ld-linux) is the C library's."""
    table = subprocess.run(["readelf", "-d", binary], capture_output=True, text=True, check=True).stdout
    names = {name.split(".so")[0] for name in re.findall(r"NEEDED.*\[(.*)\]", table)}
    return {name for name in names if name.startswith("lib") and "Orvo" not in name}


class Notices(unittest.TestCase):
    def test_every_library_is_named(self):
        needed = set().union(*map(needed_by, BINARIES))
        self.assertIn("libc", needed)
        self.assertEqual(libraries_named(read("NOTICES.md")), needed)
        self.assertEqual(libraries_named(read("docs/dependencies.md")), needed)

    def test_what_is_compiled_in_comes_with_its_terms(self):
        text = read("NOTICES.md")
        for library in re.findall(r"^\| ([^|]*?) \|[^|]*\| its headers \|", read("docs/dependencies.md"), re.M):
            section = re.search(rf"^### {re.escape(library)}\n(.*?)(?=^##)", text, re.M | re.S)
            self.assertTrue(section, library)
            self.assertRegex(section.group(1), r"Copyright \d{4}")
            self.assertRegex(section.group(1), "IMPLIED WARRANTIES|WARRANTY OF ANY KIND")

    def test_there_is_no_licence_but_the_owners_to_choose(self):
        for path in ("README.md", "NOTICES.md", "cmake/debian/copyright"):
            text = " ".join(read(path).split())
            self.assertTrue(re.search("no licence yet: which one (Orvo|it) gets is for its owner to choose", text), path)
        self.assertEqual([name for name in os.listdir(ROOT) if re.match("(?i)licen[cs]e|copying", name)], [])


class Changes(unittest.TestCase):
    def test_the_newest_version_is_the_one_that_is_built(self):
        headings = re.findall(r"^## \[(.*?)\] - (.*)$", read("CHANGELOG.md"), re.M)
        self.assertEqual(headings[0][0], VERSION)
        for version, day in headings:
            self.assertRegex(version, r"^\d+\.\d+\.\d+$")
            self.assertRegex(day, r"^(\d{4}-\d\d-\d\d|unreleased)$")
        self.assertEqual([day for _, day in headings[1:] if day == "unreleased"], [])


if __name__ == "__main__":
    VERSION, *BINARIES = sys.argv[1:]
    unittest.main(argv=sys.argv[:1], verbosity=2)
