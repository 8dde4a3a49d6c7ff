#!/usr/bin/env python3
"""Takes the pictures of the dialogs as tools/screenshots does: all of them come, in both languages, the same at each
run; nothing in them is cut off or overlaps; and a layout in which something is cut off would be found."""
import os
import re
import shutil
import struct
import subprocess
import tempfile
import unittest
import zlib

from png import png_parts

PROGRAM = os.environ["ORVO_SCREENSHOTS"]
SOURCE = os.environ["ORVO_SOURCE_DIR"]
DOCS = os.path.join(SOURCE, "docs")

# The least that there must be: each dialog, what opens over it, and the boxes.
NAMES = {"places", "places-position", "places-menu-city", "places-menu-province", "place", "standards",
         "standards-terms", "standard-new", "standard-rename", "settings", "glare-settings", "message-imported",
         "message-no-xml", "message-no-places", "message-unknown-place", "message-no-database", "message-name-used",
         "message-no-name", "message-last-standard", "message-range", "message-number", "message-time"}


def read_png(path):
    """Width, height and the set of the colours' bytes of a picture, whose parts are all checked."""
    parts = png_parts(path)
    width, height = struct.unpack(">II", parts[b"IHDR"][:8])
    assert list(parts)[-1] == b"IEND", path
    return width, height, set(zlib.decompress(parts[b"IDAT"]))


def bytes_of(folder):
    content = {}
    for name in sorted(os.listdir(folder)):
        with open(os.path.join(folder, name), "rb") as file:
            content[name] = file.read()
    return content


class Screenshots(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="orvo-screenshots-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.runs = {language: cls.take(language, language) for language in ("zh", "en")}

    @classmethod
    def take(cls, language, to, **variables):
        environment = {"PATH": os.environ["PATH"], "HOME": cls.folder, "TMPDIR": cls.folder, **variables}
        for name in ("LSAN_OPTIONS", "ASAN_OPTIONS", "LD_LIBRARY_PATH"):
            if name in os.environ:
                environment[name] = os.environ[name]
        return subprocess.run([PROGRAM, language, os.path.join(cls.folder, to)], capture_output=True, timeout=400,
                              env=environment, check=False)

    def pictures(self, language):
        return bytes_of(os.path.join(self.folder, language))

    def test_nothing_is_cut_off_or_overlaps(self):
        for language, run in self.runs.items():
            with self.subTest(language=language):
                self.assertEqual((run.returncode, run.stderr.decode()), (0, ""))

    def test_every_dialog_comes(self):
        for language in self.runs:
            with self.subTest(language=language):
                self.assertEqual(NAMES - {name.removesuffix(".png") for name in self.pictures(language)}, set())
        self.assertEqual(self.pictures("zh").keys(), self.pictures("en").keys())

    def test_pictures_are_of_a_dialogs_size_and_not_blank(self):
        for language in self.runs:
            for name in self.pictures(language):
                with self.subTest(language=language, name=name):
                    width, height, colours = read_png(os.path.join(self.folder, language, name))
                    self.assertTrue(100 <= width <= 1000 and 80 <= height <= 800, (width, height))
                    self.assertGreater(len(colours), 10)

    def test_the_languages_differ(self):
        english = self.pictures("en")
        for name, chinese in self.pictures("zh").items():
            self.assertNotEqual(chinese, english[name], name)

    def test_no_two_pictures_are_the_same(self):
        for language in self.runs:
            pictures = self.pictures(language)
            self.assertEqual(len(set(pictures.values())), len(pictures))

    def test_each_run_gives_the_same_bytes(self):
        again = self.take("en", "again", LANG="zh_CN.GBK", QT_SCALE_FACTOR="2", TZ="Pacific/Auckland")
        self.assertEqual(again.returncode, 0)
        self.assertEqual(self.pictures("again"), self.pictures("en"))

    def test_a_text_without_room_is_found(self):
        """Titles of columns get no wider with their texts: a translation that is too long must be complained about."""
        folder = os.path.join(self.folder, "support", "languages")
        os.makedirs(folder)
        with open(os.path.join(SOURCE, "data", "languages", "en.xml"), encoding="utf-8") as file:
            table = file.read()
        self.assertIn(">Latitude<", table)
        long_title = "Latitude of the place that is meant, to the north of the equator"
        with open(os.path.join(folder, "wordy.xml"), "w", encoding="utf-8") as file:
            file.write(table.replace(">Latitude<", f">{long_title}<"))
        run = self.take("wordy", "wordy", ORVO_SUPPORT_PATH=os.path.dirname(folder))
        self.assertEqual(run.returncode, 1)
        self.assertRegex(run.stderr.decode(), rf'wordy: places: .*"{long_title}" needs \d+ pixels and has \d+')

    def test_what_cannot_be_done_is_said(self):
        self.assertEqual(self.take("no-such-language", "none").returncode, 1)
        usage = subprocess.run([PROGRAM], capture_output=True, timeout=60, check=False)
        self.assertEqual((usage.returncode, usage.stderr), (1, b"usage: screenshots LANGUAGE FOLDER\n"))

    def test_those_of_the_documents_are_what_is_taken_now(self):
        """With the same fonts each run gives the same bytes, so that whatever differs is stale."""
        for language in self.runs:
            kept = bytes_of(os.path.join(DOCS, "pictures", language))
            stale = [name for name, content in self.pictures(language).items() if kept.get(name) != content]
            self.assertEqual(stale, [], f"{language}: run tools/screenshots")

    def test_the_manual_shows_pictures_that_there_are(self):
        with open(os.path.join(DOCS, "dialogs.md"), encoding="utf-8") as file:
            shown = re.findall(r"!\[[^\]]+\]\(pictures/en/([^)]+)\)", file.read())
        self.assertGreater(len(shown), 8)
        for language in self.runs:
            self.assertEqual(set(os.listdir(os.path.join(DOCS, "pictures", language))),
                             set(self.pictures(language)), "run tools/screenshots")
        self.assertEqual(set(shown) - set(self.pictures("en")), set())


if __name__ == "__main__":
    unittest.main()
