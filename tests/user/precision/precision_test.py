"""docs/precision.md: its pictures and tables are what the script makes of the program's answers; the script's sun is
the almanac's, and its hours are those of a sun that is moved by seconds."""
import csv
import datetime
import importlib.machinery
import importlib.util
import math
import os
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", ".."))
PROGRAM = os.path.join(os.environ["ORVO_PREFIX"], "bin", "orvo")
SCRIPT = os.path.join(ROOT, "tools", "make-precision-pictures")
PICTURES = os.path.join(ROOT, "docs", "pictures", "precision")
TABLES = ("tests/user/program/terms-2024-2025.csv", "tests/calendar/data/terms-2001.csv")
sys.path[:0] = [os.path.join(ROOT, "tools"), os.path.join(ROOT, "tests", "user", "program")]

import almanac_sun  # noqa: E402
import solar_rules  # noqa: E402


def read(*path):
    with open(os.path.join(ROOT, *path), encoding="utf-8", newline="") as file:
        return file.read()


def contents(folder):
    """The pictures below a folder, by their paths in it."""
    paths = [os.path.join(within, name) for within, _, names in os.walk(folder) for name in names]
    return {os.path.relpath(path, folder): read(path) for path in sorted(paths)}


def script():
    loader = importlib.machinery.SourceFileLoader("make_precision_pictures", SCRIPT)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


def sun_stands(latitude, declination, hours_after_noon):
    """West, south and up: what a rod that points to the sun measures along each."""
    p, d, h = (math.radians(angle) for angle in (latitude, declination, 15.0 * hours_after_noon))
    towards_equator, towards_pole = math.cos(d) * math.cos(h), math.sin(d)
    return (math.cos(d) * math.sin(h), towards_equator * math.sin(p) - towards_pole * math.cos(p),
            towards_equator * math.cos(p) + towards_pole * math.sin(p))


class AlmanacTest(unittest.TestCase):
    def test_the_scripts_sun_is_the_almanacs(self):
        """To within 0.01 degrees of longitude, in one of which the declination moves by up to 0.4 and the sun's hour
        angle by up to 1.09 degrees; and the rounding of the instants to seconds."""
        rows = [row for table in TABLES for row in csv.DictReader(read(table).splitlines())]
        self.assertEqual(len(rows), 72)
        for row in rows:
            instant = datetime.datetime.fromisoformat(row["instant_beijing"])
            for when, ending in ((instant, ""), (instant.replace(hour=12, minute=0, second=0), "_at_1200_beijing")):
                with self.subTest(row["instant_beijing"], when=when):
                    declination, equation = almanac_sun.sun_at(when)
                    self.assertAlmostEqual(declination, float(row["declination_deg" + ending]), delta=0.004)
                    self.assertAlmostEqual(equation, float(row["eot_hours" + ending]), delta=0.0109 / 15.0)

    def test_hours_are_those_of_a_sun_that_is_moved_by_seconds(self):
        for latitude in (25.0, 40.0, 50.0):
            for declination in (-23.45, -20.0, -3.0, 0.1, 12.0, 23.45):
                for angle in (0.0, 15.0, 25.0):
                    seconds = 0
                    for second in range(-43200, 43200, 10):
                        _, south, up = sun_stands(latitude, declination, second / 3600.0)
                        seconds += 10 if south > 0 and up > south * math.tan(math.radians(angle)) else 0
                    found = almanac_sun.hours_over_parapet(latitude, declination, angle)
                    self.assertAlmostEqual(found * 3600.0, seconds, delta=20.0,
                                           msg=f"{latitude} {declination} {angle}")

    def test_the_angle_of_some_hours_gives_these_hours(self):
        for hours in (0.5, 2.0, 5.0):
            angle = almanac_sun.angle_with_hours(40.0, -20.0, hours)
            self.assertAlmostEqual(almanac_sun.hours_over_parapet(40.0, -20.0, angle), hours, 9)

    def test_the_sun_stands_over_the_edge_at_the_hour_told(self):
        for latitude in (25.0, 40.0, 50.0):
            for declination in (-23.45, -5.0, 0.0, 12.0, 23.45):
                for azimuth in (0.0, 10.0, 45.0, 80.0):
                    hours = almanac_sun.hours_to_edge(latitude, declination, azimuth)
                    west, south, _ = sun_stands(latitude, declination, hours)
                    self.assertAlmostEqual(math.degrees(math.atan2(west, south)), azimuth, 9)


class PageTest(unittest.TestCase):
    def test_pictures_and_tables_are_what_the_script_makes(self):
        page = read("docs", "precision.md").splitlines()
        headings = {page[number - 1] for number, line in enumerate(page) if line.startswith("| ---")}
        rows = [line for line in page if re.match(r"\| (?!---)", line) and line not in headings]
        for seed in ("0", "1"):
            with tempfile.TemporaryDirectory() as folder:
                made = os.path.join(folder, "new", "pictures")
                environment = dict(os.environ, PYTHONHASHSEED=seed, PYTHONDONTWRITEBYTECODE="1",
                                   PYTHONIOENCODING="utf-8", LC_ALL="C")
                told = subprocess.run([sys.executable, SCRIPT, PROGRAM, made], env=environment, check=True,
                                      capture_output=True, encoding="utf-8").stdout
                self.assertEqual(contents(made), contents(PICTURES), "to make them: tools/make-precision-pictures "
                                                                     "build/release/bin/orvo docs/pictures/precision")
                self.assertEqual(rows, [line for line in told.splitlines() if line])

    def test_the_page_shows_each_picture_once(self):
        shown = re.findall(r"!\[[^\]]+\]\(pictures/precision/en/([^)]+)\)", read("docs", "precision.md"))
        for language in ("en", "zh"):
            self.assertEqual(sorted(shown), sorted(os.listdir(os.path.join(PICTURES, language))))

    def test_days_are_those_of_the_rule(self):
        days = script().days_by(PROGRAM)
        self.assertEqual([str(day.date) for day in days[:2] + days[-1:]], ["2024-01-01", "2024-01-02", "2025-12-31"])
        self.assertEqual(len(days), 366 + 365)
        for day in days:
            parts = (day.date.year, day.date.month, day.date.day)
            self.assertAlmostEqual(day.declination, solar_rules.declination(*parts), 12)
            self.assertAlmostEqual(day.equation, solar_rules.equation_of_time(*parts), 12)

    def test_its_words_hold(self):
        for year in range(2001, 2041):
            for month, number in ((1, 20), (12, 22)):
                real, _ = almanac_sun.sun_at(datetime.datetime(year, month, number, 12))
                self.assertLess(solar_rules.declination(year, month, number), real, "never higher")
                self.assertEqual(solar_rules.term_in_force(year, month, number)[1], year % 4 != 0, "the term's own day")
            december = [(solar_rules.declination(year, 12, number), number) for number in range(22, 32)]
            self.assertAlmostEqual(min(december)[0], -23.75, 3)
            self.assertIn(min(december)[1], (26, 27, 28))
            for months, sign in (((1, 2), -1), ((5, 6), 1)):
                for month in months:
                    for number in range(1, 29):
                        if not solar_rules.term_in_force(year, month, number)[1]:
                            real, _ = almanac_sun.sun_at(datetime.datetime(year, month, number, 12))
                            self.assertGreater(sign * (solar_rules.declination(year, month, number) - real), 0,
                                               f"{year}-{month}-{number}")

    def test_a_wrong_call_is_told_how(self):
        for arguments in ([], [PROGRAM]):
            result = subprocess.run([sys.executable, SCRIPT, *arguments], capture_output=True, encoding="utf-8",
                                    check=False)
            self.assertEqual(result.returncode, 1)
            self.assertIn("usage: tools/make-precision-pictures PROGRAM FOLDER", result.stderr)


if __name__ == "__main__":
    unittest.main()
