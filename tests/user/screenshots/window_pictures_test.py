#!/usr/bin/env python3
"""Takes pictures of the window as tools/screenshots does: no text in it is cut off, whatever the language, the colours,
the size and the scale; each look has colours of its own; and the picture that the manual shows is that of today."""
import os
import shutil
import struct
import subprocess
import tempfile
import unittest
import zlib

from png import png_parts

PROGRAM = os.environ["ORVO_WINDOW_PICTURE"]
SOURCE = os.environ["ORVO_SOURCE_DIR"]
SHOWN = {"en": "window.png", "zh": "window.zh.png"}  # in the manual

FRAME = 1    # around the picture of a window, in its pixels
TITLE = 30


def read_png(path):
    """Width, height, and the rows of a picture of three or four bytes a pixel, as bytes of three."""
    parts = png_parts(path)
    width, height, depth, colours = struct.unpack(">IIBB", parts[b"IHDR"][:10])
    assert depth == 8 and colours in (2, 6), path
    size = 3 if colours == 2 else 4
    return width, height, rows_of(zlib.decompress(parts[b"IDAT"]), width * size, size)


def rows_of(packed, length, size):
    """Undoes the filter of each row."""
    rows = []
    before = bytearray(length)
    for start in range(0, len(packed), length + 1):
        kind, row = packed[start], bytearray(packed[start + 1:start + 1 + length])
        for i in range(length if kind else 0):
            left = row[i - size] if i >= size else 0
            corner = before[i - size] if i >= size else 0
            if kind == 1:
                guess = left
            elif kind == 2:
                guess = before[i]
            elif kind == 3:
                guess = (left + before[i]) // 2
            else:
                guess = min((left, before[i], corner), key=lambda each: abs(left + before[i] - corner - each))
            row[i] = (row[i] + guess) & 255
        rows.append(bytes(row))
        before = row
    return rows


class WindowPictures(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="orvo-window-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)

    def take(self, scene, language="en", palette="light", size="800x600", scale="1", **variables):
        """The path of a picture in which nothing is wrong."""
        path = os.path.join(self.folder, "-".join((scene, language, palette, size, scale)) + ".png")
        environment = {"PATH": os.environ["PATH"], "HOME": self.folder, "TMPDIR": self.folder, **variables}
        for name in ("LSAN_OPTIONS", "ASAN_OPTIONS", "LD_LIBRARY_PATH"):
            if name in os.environ:
                environment[name] = os.environ[name]
        run = subprocess.run([PROGRAM, scene, language, palette, size, scale, path], capture_output=True, timeout=300,
                             env=environment, check=False)
        self.assertEqual((run.returncode, run.stderr.decode()), (0, ""), path)
        return path

    def test_nothing_is_cut_off_in_any_look(self):
        for language in ("zh", "en"):
            for palette, size, scale in (("light", "800x600", "1"), ("dark", "800x600", "2"), ("dark", "1280x800", "1")):
                for scene in ("empty", "analysed"):
                    with self.subTest(language=language, palette=palette, size=size, scale=scale, scene=scene):
                        width, height, _ = read_png(self.take(scene, language, palette, size, scale))
                        sides = [int(side) for side in size.split("x")]
                        self.assertEqual((width, height), ((sides[0] + 2 * FRAME) * int(scale),
                                                           (sides[1] + 2 * FRAME + TITLE) * int(scale)))

    def test_nothing_is_cut_off_in_what_the_menu_of_help_shows(self):
        for language in ("zh", "en"):
            for scene in ("keys", "about"):
                with self.subTest(language=language, scene=scene):
                    width, height, _ = read_png(self.take(scene, language))
                    self.assertLessEqual(width, 800, "it fits a small screen")
                    self.assertLessEqual(height, 600, "it fits a small screen")

    def test_dark_colours_are_dark_where_nothing_is_to_be_seen(self):
        """The panel's lower left corner has no text, and neither has the view of no drawing near its edges."""
        for palette, is_right in (("light", lambda value: value > 150), ("dark", lambda value: value < 80)):
            width, height, rows = read_png(self.take("empty", "en", palette, "1280x800"))
            size = len(rows[0]) // width
            for x, y in ((4, height - 45), (width // 2, TITLE + FRAME + 40)):
                self.assertTrue(is_right(max(rows[y][x * size:x * size + 3])), (palette, x, y))

    def test_each_run_gives_the_same_bytes(self):
        with open(self.take("analysed"), "rb") as file:
            once = file.read()
        with open(self.take("analysed", LANG="zh_CN.GBK", QT_SCALE_FACTOR="2", TZ="Pacific/Auckland"), "rb") as file:
            self.assertEqual(file.read(), once)

    def test_the_manual_shows_the_window_as_it_is(self):
        """Other versions of fonts and graphics move edges by a pixel; another layout moves more."""
        for language, name in SHOWN.items():
            with self.subTest(name):
                self.is_that_of_today(language, os.path.join(SOURCE, "docs", "pictures", name))

    def is_that_of_today(self, language, path):
        far = 64
        most = 0.02
        width, height, rows = read_png(path)
        new_width, new_height, new_rows = read_png(self.take("analysed", language, size="1280x800"))
        self.assertEqual((width, height), (new_width, new_height), "run tools/screenshots")
        sizes = len(rows[0]) // width, len(new_rows[0]) // width
        different = 0
        for row, new_row in zip(rows, new_rows):
            greens = row[1::sizes[0]], new_row[1::sizes[1]]
            different += sum(abs(a - b) > far for a, b in zip(*greens)) if greens[0] != greens[1] else 0
        self.assertLess(different / (width * height), most, "run tools/screenshots")

    def test_what_cannot_be_done_is_said(self):
        for arguments in ([], ["nothing", "en", "light", "800x600", "1", "x.png"],
                          ["empty", "en", "light", "800", "1", "x.png"], ["empty", "en", "pale", "8x8", "1", "x.png"]):
            run = subprocess.run([PROGRAM, *arguments], capture_output=True, timeout=60, check=False, cwd=self.folder)
            self.assertEqual(run.returncode, 1, arguments)
            self.assertIn(b"usage: window-picture", run.stderr)


if __name__ == "__main__":
    unittest.main()
