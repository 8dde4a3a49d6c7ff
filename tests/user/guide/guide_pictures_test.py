"""The pictures of the guide: what the tool makes of the program's answers, each of them shown, and none told wrong."""
import os
import re
import subprocess
import sys
import tempfile

from guide import GUIDE, LOCALES, ROOT, page, pages, read
from orvo_program import PROGRAM, WITHOUT_LEAKS, ProgramTest, main

SCRIPT = os.path.join(ROOT, "tools", "make-guide-pictures")
PICTURES = os.path.join(ROOT, "docs", "pictures", "guide")
TO_MAKE_THEM = "to make them: tools/make-guide-pictures build/release/installed/bin/orvo docs/pictures/guide"


def pixels(path):
    """The size of a picture, and its bytes: red, green and blue of each pixel."""
    size = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "stream=width,height", "-of", "csv=p=0", path],
                          capture_output=True, check=True, timeout=60, encoding="ascii").stdout.strip()
    raw = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "rawvideo", "-pix_fmt", "rgb24", "-"],
                         capture_output=True, check=True, timeout=60).stdout
    return size, raw


class GuidePicturesTest(ProgramTest):
    @classmethod
    def setUpClass(cls):
        cls.made = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.made.cleanup)
        environment = dict(os.environ, PYTHONDONTWRITEBYTECODE="1", LC_ALL="C", ASAN_OPTIONS=WITHOUT_LEAKS)
        subprocess.run([sys.executable, SCRIPT, PROGRAM, cls.made.name], check=True, env=environment, timeout=300)

    def test_the_same_ones_are_made(self):
        for language in LOCALES:
            made, kept = (sorted(os.listdir(os.path.join(folder, language))) for folder in (self.made.name, PICTURES))
            self.assertEqual(made, kept, TO_MAKE_THEM)
            for name in made:
                if name.endswith(".svg"):
                    self.assertEqual(read(os.path.join(self.made.name, language, name)),
                                     read(os.path.join(PICTURES, language, name)), f"{name}; {TO_MAKE_THEM}")

    def test_the_film_looks_the_same(self):
        for language in LOCALES:
            (size, made), (kept_size, kept) = (pixels(os.path.join(folder, language, "film.png"))
                                               for folder in (self.made.name, PICTURES))
            self.assertEqual(size, kept_size, TO_MAKE_THEM)
            # Another renderer may round otherwise, and shift an edge by a part of a pixel.
            different = sum(1 for one, other in zip(made, kept) if abs(one - other) > 8)
            self.assertLess(different, len(kept) // 200, f"{language}; {TO_MAKE_THEM}")

    def test_each_is_shown(self):
        for language in LOCALES:
            shown = re.findall(rf"\.\./\.\./pictures/guide/{language}/([\w.-]+)\)",
                               "".join(page(language, name) for name in pages(language)))
            self.assertEqual(sorted(shown), sorted(os.listdir(os.path.join(PICTURES, language))))

    def test_every_picture_of_the_guide_is_one_that_a_tool_makes(self):
        """Those of the standards, the precision, the dialogs and the window have tools of their own."""
        tested = r"\.\./\.\./pictures/(((guide|standards|precision)/)?(en|zh)/[\w-]+|window(\.zh)?)\.(svg|png)"
        for language in LOCALES:
            for name in pages(language):
                for path in re.findall(r"!\[[^\]]+\]\(([^)]+)\)", page(language, name)):
                    self.assertRegex(path, rf"^{tested}$", f"{language}/{name}")
                    self.assertTrue(os.path.exists(os.path.join(GUIDE, language, path)), path)

    def test_the_shadow_of_a_house_is_as_long_as_the_programs_sun_makes_it(self):
        for language, unit in (("en", "m"), ("zh", "米")):
            picture = read(os.path.join(ROOT, "docs", "pictures", "standards", language, "day.svg"))
            for date in ("2025-12-22", "2025-01-20"):
                times = self.ok("sun", "--place", "北京", "--date", date, "--json").json()["times"]
                noon, = [each for each in times if each["event"] == "noon"]
                self.assertIn(f">{18 * noon['shadow']:.1f} {unit}<", picture)

    def test_a_wrong_call_is_told_how(self):
        result = subprocess.run([sys.executable, SCRIPT, PROGRAM], capture_output=True, encoding="utf-8", check=False)
        self.assertEqual(result.returncode, 1)
        self.assertIn("usage: tools/make-guide-pictures PROGRAM FOLDER", result.stderr)


if __name__ == "__main__":
    main()
