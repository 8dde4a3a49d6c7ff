#!/usr/bin/env python3
"""Follows the links of the documents, and those between the headers and the pages with their reasons: that each leads
somewhere, and that each of the latter leads back."""
import os
import re
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))
PAGES = "docs/decisions"
LINK = re.compile(r"\]\(([^)\s]+)\)")
WHY = re.compile(r"^// Why: (.*)$", re.M)
MENTION = re.compile(r"(?<![\w/])docs/[\w/-]+\.md")
# A file or folder in a text, such as `tests/support/` or `facts/DayText.cpp`. Words in capitals stand for any.
PATH = re.compile(r"`([\w-]+)(/[\w./-]*)`")
PLACEHOLDER = re.compile(r"\b(ROOM|NAME|Subject)")


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return file.read()


def source_folders(root):
    """The folders of the tree with sources, whatever rooms there are."""
    return [name for name in sorted(os.listdir(root)) if os.path.isdir(os.path.join(root, name)) and
            not name.startswith((".", "build")) and name not in ("docs", "data")]


def files(root, folders, endings):
    for top in folders:
        for folder, _, names in os.walk(os.path.join(root, top)):
            for name in sorted(names):
                if name.endswith(endings):
                    yield os.path.relpath(os.path.join(folder, name), root)


def prose(text):
    """A document without its examples, in which what looks like a heading or a link is none."""
    return re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)


def anchors(text):
    """The headings of a document as links name them; of those that read alike the later ones have a number behind."""
    found = set()
    for heading in re.findall(r"^#+ (.*)$", prose(text), re.M):
        plain = LINK.sub("", heading).replace("[", "")
        anchor = re.sub(r"[^\w\- ]", "", plain.lower()).replace(" ", "-")
        same = 1
        while (name := anchor if same == 1 else f"{anchor}-{same - 1}") in found:
            same += 1
        found.add(name)
    return found


def documents(root):
    """Every page of the tree, wherever it lies."""
    for folder, within, names in os.walk(root):
        within[:] = sorted(name for name in within if not name.startswith((".", "build")))
        for name in sorted(names):
            if name.endswith(".md"):
                yield os.path.relpath(os.path.join(folder, name), root)


def check_document(root, path):
    """What is wrong with the links of a document, and with the paths that it names."""
    text = prose(read(root, path))
    for link in LINK.findall(text):
        if re.match(r"[a-z]+:", link):
            continue
        target, _, anchor = link.partition("#")
        target = os.path.normpath(os.path.join(os.path.dirname(path), target)) if target else path
        if not os.path.exists(os.path.join(root, target)):
            yield f"{path}: {link} leads nowhere"
        elif anchor and anchor not in anchors(read(root, target)):
            yield f"{path}: {target} has no heading {anchor}"
    for top, rest in PATH.findall(text):
        if top in ["docs", "data", *source_folders(root)] and not PLACEHOLDER.search(rest) and \
                not os.path.exists(os.path.join(root, top + rest)):
            yield f"{path}: there is no {top}{rest}"


def check_pages(root):
    """What is wrong between the pages of reasons and the headers."""
    pages = {}  # page: the headers that it names
    for page in files(root, [PAGES], ".md"):
        if os.path.basename(page) != "README.md":
            links = [os.path.normpath(os.path.join(PAGES, link)) for link in LINK.findall(read(root, page))]
            pages[page] = {link for link in links if link.endswith(".h")}
    index = LINK.findall(read(root, PAGES + "/README.md"))
    for page, headers in pages.items():
        if os.path.basename(page) not in index:
            yield f"{page}: is not in the list of pages"
        if not headers:
            yield f"{page}: names no header"
    named_by = {}  # header: the pages that it names
    for header in files(root, source_folders(root), ".h"):
        named_by[header] = set(WHY.findall(read(root, header)))
        for page in sorted(named_by[header]):
            if header not in pages.get(page, ()):
                yield f"{header}: {page} does not name it"
    for page, headers in pages.items():
        for header in sorted(headers):
            if page not in named_by.get(header, ()):
                yield f"{page}: {header} does not lead back"


def check_tree(root):
    complaints = []
    for path in documents(root):
        complaints += check_document(root, path)
    for path in files(root, source_folders(root), (".h", ".cpp", ".py", ".txt", ".cmake", ".rc")):
        if not path.startswith("tests/layers/"):
            complaints += [f"{path}: there is no {name}" for name in sorted(set(MENTION.findall(read(root, path))))
                           if not os.path.exists(os.path.join(root, name))]
    return complaints + list(check_pages(root))


SOUND = {
    "README.md": "[how](docs/how.md#the-way-on) [out](https://example.org/x) `facts/A.h` `tests/ROOM/SubjectTest.cpp`\n"
                 "```\n[none](gone.md)\n```\n",
    "docs/how.md": "# How\n## The way, on\n![picture](a.png) [above](#how)\n",
    "docs/a.png": "",
    "docs/decisions/README.md": "[facts](facts.md)\n",
    "docs/decisions/facts.md": "[A](../../facts/A.h) because [how](../how.md)\n",
    "facts/A.h": "// A.\n// Why: docs/decisions/facts.md\n#pragma once\n",
    "facts/B.cpp": "// B; docs/how.md says how.\n",
}


class Links(unittest.TestCase):
    maxDiff = None

    def complaints(self, changes):
        with tempfile.TemporaryDirectory() as root:
            for path, text in {**SOUND, **changes}.items():
                path = os.path.join(root, path)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as file:
                    file.write(text)
            return check_tree(root)

    def test_all_of_the_tree_lead_somewhere_and_back(self):
        self.assertGreater(len(list(files(ROOT, [PAGES], ".md"))), 10)
        self.assertEqual(check_tree(ROOT), [])

    def test_a_sound_tree_passes(self):
        self.assertEqual(self.complaints({}), [])

    def test_links_of_documents_are_followed(self):
        for path, text, complaint in [
                ("README.md", "[a](docs/gone.md)", "README.md: docs/gone.md leads nowhere"),
                ("docs/how.md", "# The way on\n![a](b.png)", "docs/how.md: b.png leads nowhere"),
                ("docs/more.md", "[a](../docs/how.md#where)", "docs/more.md: docs/how.md has no heading where"),
                ("docs/more.md", "[a](#here)", "docs/more.md: docs/more.md has no heading here"),
                ("data/SOURCES.md", "[a](docs/how.md)", "data/SOURCES.md: docs/how.md leads nowhere"),
                ("examples/one/README.md", "[a](gone.cpp)", "examples/one/README.md: gone.cpp leads nowhere"),
                ("docs/more.md", "# 两条路\n[a](#两条)", "docs/more.md: docs/more.md has no heading 两条"),
                ("docs/more.md", "# A\n```\n# B\n```\n[b](#b)", "docs/more.md: docs/more.md has no heading b"),
                ("docs/more.md", "# A\n# A\n[a](#a) [a](#a-1) [a](#a-2)", "docs/more.md: docs/more.md has no heading a-2"),
                ("CONTRIBUTING.md", "see `facts/Gone.h`", "CONTRIBUTING.md: there is no facts/Gone.h"),
                ("facts/B.cpp", "// See docs/gone.md.", "facts/B.cpp: there is no docs/gone.md")]:
            with self.subTest(text=text):
                self.assertEqual(self.complaints({path: text}), [complaint])

    def test_pages_and_headers_lead_to_each_other(self):
        page, header = "docs/decisions/facts.md", "facts/A.h"
        for path, text, complaint in [
                (header, "// A.\n", f"{page}: {header} does not lead back"),
                ("facts/C.h", f"// C.\n// Why: {page}\n", f"facts/C.h: {page} does not name it"),
                ("docs/decisions/README.md", "none\n", f"{page}: is not in the list of pages")]:
            with self.subTest(path=path):
                self.assertEqual(self.complaints({path: text}), [complaint])
        self.assertEqual(self.complaints({page: "because\n"}),
                         [f"{page}: names no header", f"{header}: {page} does not name it"])

    def test_a_header_may_not_name_a_page_that_is_not_there(self):
        found = self.complaints({"facts/C.h": "// C.\n// Why: docs/decisions/gone.md\n"})
        self.assertEqual(found, ["facts/C.h: there is no docs/decisions/gone.md",
                                 "facts/C.h: docs/decisions/gone.md does not name it"])


if __name__ == "__main__":
    unittest.main()
