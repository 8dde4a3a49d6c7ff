"""The pictures of the standards' rules: the script makes them byte for byte, each is sound, and the page shows them all.
So it is with the picture of the analysis's speed, of what was measured. Those of the day's precision, which need the
program to be made, are sound as well."""
import os
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", ".."))
SCRIPT = os.path.join(ROOT, "tools", "make-standard-pictures")
GROWTH = os.path.join(ROOT, "tools", "make-speed-picture")
PICTURES = os.path.join(ROOT, "docs", "pictures", "standards")
PERFORMANCE = os.path.join(ROOT, "docs", "pictures", "performance")
PRECISION = os.path.join(ROOT, "docs", "pictures", "precision")
NAME = "{http://www.w3.org/2000/svg}"


def contents(folder):
    """The pictures below a folder, by their paths in it."""
    paths = [os.path.join(within, name) for within, _, names in os.walk(folder) for name in names]
    return {os.path.relpath(path, folder): open_text(path) for path in sorted(paths)}


def open_text(path):
    with open(path, encoding="utf-8", newline="") as file:
        return file.read()


class PicturesTest(unittest.TestCase):
    def test_the_script_makes_them(self):
        for seed in range(2):
            with tempfile.TemporaryDirectory() as folder:
                made = os.path.join(folder, "new", "pictures")
                environment = dict(os.environ, PYTHONHASHSEED=str(seed), PYTHONDONTWRITEBYTECODE="1", LC_ALL="C")
                subprocess.run([sys.executable, SCRIPT, made], env=environment, check=True)
                self.assertEqual(contents(made), contents(PICTURES), "to make them: tools/make-standard-pictures "
                                                                     "docs/pictures/standards")

    def test_the_page_shows_each_once(self):
        page = open_text(os.path.join(ROOT, "docs", "standards.md"))
        shown = re.findall(r"!\[[^\]]+\]\(pictures/standards/en/([^)]+)\)", page)
        self.assertEqual(sorted(shown), sorted(os.listdir(os.path.join(PICTURES, "en"))))

    def test_both_languages_have_the_same_pictures_in_other_words(self):
        drawn = contents(PICTURES)
        names = {name.removeprefix("en/") for name in drawn if name.startswith("en/")}
        self.assertEqual(set(drawn), {f"{language}/{name}" for language in ("en", "zh") for name in names})
        for name in names:
            told = {language: [each.text for each in xml.fromstring(drawn[f"{language}/{name}"]).iter(NAME + "text")]
                    for language in ("en", "zh")}
            self.assertEqual(len(told["en"]), len(told["zh"]), name)
            for english, chinese in zip(told["en"], told["zh"]):
                if re.search(r"[A-Za-z]", english):
                    self.assertNotRegex(chinese, r"[A-Za-z]", name)
                    self.assertRegex(chinese, r"[\u4e00-\u9fff\uff5e]", name)
                else:
                    self.assertEqual(chinese, english, name)

    def test_no_word_is_translated_that_no_picture_has(self):
        sys.path.insert(0, os.path.join(ROOT, "tools"))
        words = __import__("standard_picture_words")
        told = {each.text for name, text in contents(PICTURES).items() if name.startswith("en/")
                for each in xml.fromstring(text).iter(NAME + "text")}
        self.assertEqual(set(words.CHINESE) - told, set())

    def test_words_lie_within_the_picture(self):
        growth = open_text(os.path.join(PERFORMANCE, "growth.svg"))
        for name, text in [*contents(PICTURES).items(), *contents(PRECISION).items(), ("growth.svg", growth)]:
            picture = xml.fromstring(text)
            words = picture.findall(NAME + "text")
            self.assertTrue(words, name)
            for each in words:
                # A letter is about half as wide as it is high, a Chinese character as wide.
                letters = sum(0.5 if ord(letter) < 0x2000 else 1.0 for letter in each.text)
                width = float(each.get("font-size")) * letters
                left = float(each.get("x")) - {"start": 0.0, "middle": 0.5, "end": 1.0}[each.get("text-anchor")] * width
                self.assertGreaterEqual(left, 0, f"{name}: {each.text}")
                self.assertLessEqual(left + width, float(picture.get("width")), f"{name}: {each.text}")
                self.assertTrue(0 < float(each.get("y")) < float(picture.get("height")), f"{name}: {each.text}")

    def test_the_growth_is_that_of_the_table_beside_it(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, GROWTH, os.path.join(PERFORMANCE, "growth.csv"), folder], check=True)
            self.assertEqual(open_text(os.path.join(folder, "growth.svg")),
                             open_text(os.path.join(PERFORMANCE, "growth.svg")),
                             "to make it: tools/make-speed-picture docs/pictures/performance/growth.csv "
                             "docs/pictures/performance")

    def test_the_growth_needs_a_table(self):
        with tempfile.TemporaryDirectory() as folder:
            table = os.path.join(folder, "table.csv")
            for text in ["", "faces,point\n1,2\n3,4\n", "faces,point,window\n1,2,x\n1,2,3\n"]:
                with open(table, "w", encoding="utf-8") as file:
                    file.write(text)
                result = subprocess.run([sys.executable, GROWTH, table, folder], capture_output=True, text=True)
                self.assertEqual(result.returncode, 1, text)
                self.assertIn("no table of SunBench", result.stderr)

    def test_without_a_folder_it_tells_its_usage(self):
        result = subprocess.run([sys.executable, SCRIPT], capture_output=True, text=True)
        self.assertEqual(result.returncode, 1)
        self.assertIn("usage: tools/make-standard-pictures FOLDER", result.stderr)


if __name__ == "__main__":
    unittest.main()
