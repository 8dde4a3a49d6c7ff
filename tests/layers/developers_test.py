#!/usr/bin/env python3
"""Whether the pages for developers speak of what there is: the names in them stand in the sources that they give, the
floors are those of the house, and the table of the framework is complete."""
import os
import re
import sys
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
sys.path.insert(0, os.path.join(ROOT, "tools"))

from framework_names import LIST, declared_names  # noqa: E402
from rooms import COMPONENTS, FLOORS, sources  # noqa: E402

PAGES = os.path.join("docs", "developers")
CODE = re.compile(r"`([^`\n]+)`")
NAME = re.compile(r"[A-Za-z_]\w*(::~?\w+)*(\(\.*\))?$")
# Words in code type that are no names of the tree's, nor of its own tongue.
FOREIGN = {"INSTALL_RPATH", "RPATH", "PREFIX"}
ANYWHERE = ("examples", "tools", "cmake", "data", "tests")  # where names may stand beside the rooms


def read(path, root=ROOT):
    with open(os.path.join(root, path), encoding="utf-8") as stream:
        return stream.read()


def pages():
    return [os.path.join(PAGES, name) for name in sorted(os.listdir(os.path.join(ROOT, PAGES)))
            if name.endswith(".md")]


def without_blocks(text):
    return re.sub(r"^```.*?^```$", "", text, flags=re.MULTILINE | re.DOTALL)


def rows(text):
    """The rows of all tables, each a list of its cells; heads and lines between are left out."""
    for line in without_blocks(text).splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("| ") and not set(line) <= set("|- "):
            yield cells


def shown_files(text):
    """The names of the files that a page shows itself, and their words."""
    names = re.findall(r"^\*\*`([^`\n]+)`\*\*$", text, re.MULTILINE)
    return set(names), words_of("".join(re.findall(r"^```cpp\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)))


def words_of(text):
    return set(re.findall(r"\w+", text))


def faults_of_tables(text, root=ROOT):
    """Functions that do not stand in the source of their row."""
    for cells in rows(text):
        paths = CODE.findall(cells[-1])
        names = CODE.findall(cells[1])
        if len(cells) != 3 or len(paths) != 1 or not paths[0].endswith((".cpp", ".h")) or not all(map(NAME.match, names)):
            continue
        try:
            known = words_of(read(paths[0], root))
        except FileNotFoundError:
            yield f"there is no {paths[0]}"
            continue
        for name in names:
            if name not in known:
                yield f"{paths[0]} has no {name}"


def faults_of_names(text, known):
    """Names in code type that stand nowhere in the tree."""
    for code in CODE.findall(without_blocks(text)):
        if NAME.match(code) and re.search(r"[a-z][A-Z]|[A-Z]_|^[A-Z][a-z]|\(", code):
            for word in re.findall(r"\w+", code):
                if word not in known and word not in FOREIGN:
                    yield code


def sections(listing):
    """The names of the framework, by the headers that declare them."""
    found = {}
    for line in re.sub(r"#.*", "", listing).splitlines():
        head = re.match(r"\[(.*)\]", line)
        if head:
            names = found.setdefault(head.group(1), set())
        elif line.strip():
            names.update(line.split())
    return found


class Developers(unittest.TestCase):
    def test_functions_stand_in_their_sources(self):
        count = 0
        for page in pages():
            count += sum(len(CODE.findall(cells[1])) for cells in rows(read(page)) if len(cells) == 3)
            self.assertEqual(list(faults_of_tables(read(page))), [], page)
        self.assertGreater(count, 60)

    def test_names_stand_in_the_tree(self):
        known = set()
        for path in sources(ROOT, (*COMPONENTS, *ANYWHERE), (".h", ".cpp", ".py", ".txt", ".cmake", ".rc", ".xml", ".dxf")):
            known |= words_of(read(path)) | words_of(os.path.basename(path))
        for page in pages():
            self.assertEqual(list(faults_of_names(read(page), known | shown_files(read(page))[1])), [], page)

    def test_headers_that_are_named_are_there(self):
        known = {os.path.basename(path) for path in sources(ROOT, COMPONENTS, (".h",))}
        for page in pages():
            if page.endswith("platform.md"):
                continue  # its other half names those of the framework
            named = {os.path.basename(code) for code in CODE.findall(without_blocks(read(page))) if code.endswith(".h")}
            self.assertEqual(sorted(named - known - shown_files(read(page))[0]), [], page)

    def test_tests_that_are_named_are_there(self):
        known = set(re.findall(r"NAME ([\w.-]+)", read("tests/CMakeLists.txt")))
        for folder, _, names in os.walk(os.path.join(ROOT, "tests", "user")):
            known.update("user." + name[:-len("_test.py")] for name in names if name.endswith("_test.py"))
        for page in pages():
            named = re.findall(r"`((?:user|languages|layers)\.[\w-]+)`", read(page))
            self.assertEqual(sorted(set(named) - known), [], page)

    def test_mistakes_are_seen(self):
        with tempfile.TemporaryDirectory() as root:
            with open(os.path.join(root, "A.cpp"), "w", encoding="utf-8") as stream:
                stream.write("void Here();\n")
            page = "| what | function | source |\n| --- | --- | --- |\n| a | `Here`, `Gone` | `A.cpp` |\n| b | `Here` | `B.cpp` |\n"
            self.assertEqual(list(faults_of_tables(page, root)), ["A.cpp has no Gone", "there is no B.cpp"])
        self.assertEqual(list(faults_of_names("`Here`, `Gone::There`, `word`, `close()`", {"Here", "Gone"})),
                         ["Gone::There", "close()"])

    def test_floors_are_those_of_the_house(self):
        (drawing, *_) = re.findall(r"^```text\n(.*?)^```$", read(os.path.join(PAGES, "architecture.md")), re.M | re.S)
        # Columns are two blanks apart; a word in one that is no folder's says what the others are for.
        lines = [re.split(r" {2,}", line.strip()) for line in drawing.splitlines() if not line.startswith("-")]
        folders = {room.folder for rooms in FLOORS for room in rooms}
        at = {}
        for number, line in enumerate(lines):
            for word in line:
                if word in folders:
                    self.assertNotIn(word, at)
                    at[word] = number
        self.assertEqual(set(at), folders)
        for lower, higher in zip(FLOORS, FLOORS[1:]):
            for room in lower:
                for other in higher:
                    self.assertGreater(at[room.folder], at[other.folder], f"{other.folder} stands above {room.folder}")


class Framework(unittest.TestCase):
    def setUp(self):
        self.rows = {CODE.findall(cells[0])[0]: cells[1] for cells in rows(read(os.path.join(PAGES, "platform.md")))
                     if len(cells) == 2 and cells[0].startswith("`platform/")}
        self.included = set()
        for path in sources(ROOT, ("module",)):
            self.included.update(re.findall(r'#include "(platform/[^"]+)"', read(path)))

    def test_has_every_public_header_and_all_that_the_module_includes(self):
        public = {path for path in read(os.path.join("api", "headers.txt")).split() if path.startswith("platform/")}
        self.assertEqual(set(self.rows), public | self.included)

    def test_what_has_nothing_in_its_place_is_not_the_modules(self):
        own = {path for path, place in self.rows.items() if place.startswith("`nothing`: ")}
        self.assertEqual(own & self.included, set())
        with_it = {path for path, place in self.rows.items() if place.startswith("goes with the module: ")}
        self.assertEqual(len(with_it), 2)
        for path in set(self.rows) - own - with_it:
            self.assertRegex(self.rows[path], r"^`[\w.]+`(, `[\w.]+`)*$", path)

    def test_every_name_is_found_where_the_table_says(self):
        framework = sections(read(LIST))
        self.assertGreater(len(framework), 25)
        declared = {path: declared_names(read(path)) for path in self.rows}
        named = {place for cell in self.rows.values() for place in CODE.findall(cell)} - {"nothing"}
        there = {place for place in named if place.endswith(".h") or place.startswith("Tesk")}
        self.assertEqual(sorted(there - set(framework)), [])
        for place, names in framework.items():
            if place in ("the containers", "platform/base/Abandon.h"):
                continue  # no header of the framework's
            with self.subTest(place=place):
                found = [path for path, cell in self.rows.items() if f"`{place}`" in cell]
                self.assertEqual(names - set().union(*(declared[path] for path in found)), set())
                for path in found:
                    self.assertTrue(names & declared[path], f"{path} has nothing of {place}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
