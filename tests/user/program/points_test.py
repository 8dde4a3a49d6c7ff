"""orvo points: the answer in its three forms, what is said beside it, and requests that cannot be met."""
import csv
import io
import math
import os
import re
import shutil
import signal

from analyse_test import STANDARD, box, columns, drawing, face, groups
from orvo_program import FAILED, OK, SHIPPED, USAGE, ProgramTest, main
from prompt_test import Terminal

DOCUMENT = ["note", "place", "date", "standard", "north", "need", "span", "beijingOffset", "spacing", "level", "outlines",
            "points"]
OUTLINE = ["handle", "area", "share", "points", "least", "mean", "most"]
POINT = ["outline", "x", "y", "z", "sunlit", "total"]


def area(handle, corners, layer="GREEN", closed=1, level=0):
    points = [pair for x, y in corners for pair in ((10, x), (20, y))]
    return groups((0, "LWPOLYLINE"), (5, handle), (8, layer), (90, len(corners)), (70, closed), (38, level), *points)


def rectangle(left, front, right, back):
    return [(left, front), (right, front), (right, back), (left, back)]


# A wall 12 m high whose north side is y = 0, and a strip north of it.
WALL = box("A1", "建筑", -100000, -1, 100000, 0, 12)
SITE = [WALL, area("B1", rectangle(0, 0, 3, 40))]


class PointsTest(ProgramTest):
    def put(self, content, name="a.dxf"):
        with open(os.path.join(self.home, name), "w", encoding="utf-8") as stream:
            stream.write(content)
        return name

    def document(self, *arguments, code=OK):
        answer = self.orvo("points", *arguments, "--json")
        self.assertEqual(answer.code, code, answer)
        return answer.json()

    def hours_behind_the_wall(self, distance, document):
        """True solar times of the sun over the wall's edge, or none: the sun's slope seen from the south is the edge's,
        sin p sin d + cos p cos d cos H = slope (sin p cos d cos H - cos p sin d)."""
        slope = (12 - 0.005) / distance
        latitude = math.radians(document["place"]["latitude"])
        info = self.ok("info", "--standard", STANDARD, "--json").json()
        declination = math.radians(info["sun"]["declination"])
        cosine = (math.tan(declination) * (math.sin(latitude) + slope * math.cos(latitude)) /
                  (slope * math.sin(latitude) - math.cos(latitude)))
        if slope * math.sin(latitude) >= math.cos(latitude) or cosine >= 1:
            return None
        half = math.degrees(math.acos(cosine)) / 15
        return max(8, 12 - half), min(16, 12 + half)


class Answers(PointsTest):
    def test_points_behind_a_wall(self):
        document = self.document(self.put(drawing(*SITE)), "--areas", "GREEN", "--standard", STANDARD, "--need", "3")
        self.assertEqual(list(document), DOCUMENT)
        self.assertEqual((document["spacing"], document["level"], document["need"]), (1, None, 3))
        self.assertEqual(len(document["points"]), 120)
        self.assertEqual([list(outline) for outline in document["outlines"]], [OUTLINE])
        enough = 0
        for i, point in enumerate(document["points"]):
            self.assertEqual(list(point), POINT)
            x, y = i % 3 + 0.5, i // 3 + 0.5
            self.assertEqual(point["outline"], 0)
            for member, value in (("x", x), ("y", y), ("z", 0)):
                self.assertAlmostEqual(point[member], value, 9)
            if i % 3 == 0:
                expected = self.hours_behind_the_wall(y, document)
            if expected is None:
                self.assertEqual((point["sunlit"], point["total"]), ([], 0))
                continue
            (period,) = point["sunlit"]
            self.assertAlmostEqual(period["start"], expected[0], 4)
            self.assertAlmostEqual(period["end"], expected[1], 4)
            self.assertAlmostEqual(period["minutes"], (expected[1] - expected[0]) * 60, 2)
            self.assertLessEqual(abs(point["total"] - period["minutes"]), 2)  # steps of a minute
            enough += point["total"] >= 180
        outline = document["outlines"][0]
        self.assertEqual((outline["handle"], outline["points"], outline["least"]), ("B1", 120, 0))
        self.assertAlmostEqual(outline["area"], 120, 9)
        self.assertAlmostEqual(outline["share"], enough / 120, 12)
        self.assertTrue(0 < enough < 120)
        self.assertAlmostEqual(outline["mean"], sum(point["total"] for point in document["points"]) / 120, 9)
        self.assertEqual(outline["most"], max(point["total"] for point in document["points"]))
        self.assertIsNone(self.document("a.dxf", "--areas", "GREEN")["outlines"][0]["share"])

    def test_the_head_is_that_of_analyse(self):
        name = self.put(drawing(*SITE))
        asked = ("--place", "上海", "--date", "2025-2-3", "--standard", STANDARD, "--north", "375", "--height", "A=3", "--need", "2")
        document = self.document(name, "--areas", "GREEN", *asked)
        other = self.orvo("analyse", name, *asked, "--json").json()
        for member in other:
            if member != "windows":
                self.assertEqual(document[member], other[member], member)

    def test_a_level_and_a_spacing(self):
        name = self.put(drawing(WALL, area("B1", rectangle(0, 10, 4, 14), level=7)))
        document = self.document(name, "--areas", "green", "--level", "-1.5", "--spacing", "2")
        self.assertEqual([(point["x"], point["y"], point["z"]) for point in document["points"]],
                         [(1, 11, -1.5), (3, 11, -1.5), (1, 13, -1.5), (3, 13, -1.5)])
        self.assertEqual({point["z"] for point in self.document(name, "--areas", "GREEN")["points"]}, {7})

    def test_facades_and_roofs(self):
        house = box("A1", "建筑", 0, 0, 10, 8, 6)
        south = face("B1", "SKIN", [(2, 0, 1), (4, 0, 1), (4, 0, 3), (2, 0, 3)])
        north = face("B2", "SKIN", [(2, 8, 1), (4, 8, 1), (4, 8, 3), (2, 8, 3)])
        roof = area("B3", rectangle(0, 0, 10, 8), "SKIN", level=6)
        document = self.document(self.put(drawing(house, south, north, roof)), "--areas", "SKIN", "--standard", STANDARD)
        self.assertEqual([outline["points"] for outline in document["outlines"]], [4, 4, 80])
        for point in document["points"]:
            # In January the sun is south of the east-west line as long as it is up.
            expected = 0 if point["outline"] == 1 else 480
            self.assertAlmostEqual(point["total"], expected, 6, point)

    def test_the_table_is_for_people(self):
        name = self.put(drawing(*SITE))
        table = self.ok("points", name, "--areas", "GREEN", "--standard", STANDARD, "--need", "3", "--spacing", "0.5").out
        document = self.document(name, "--areas", "GREEN", "--standard", STANDARD, "--need", "3", "--spacing", "0.5")
        row = re.search(r"^ *B1 +120\.00 +480 +0:00:00 +([\d:]+) +([\d:]+) +([\d.]+)%$", table, re.M)
        self.assertIsNotNone(row, table)
        share = document["outlines"][0]["share"]
        self.assertAlmostEqual(float(row.group(3)), share * 100, delta=0.05)
        for line in table.splitlines():
            if not line.startswith("当前标准"):
                self.assertLessEqual(columns(line), 120, line)
        self.assertIn("点距 0.5 米", table)
        english = self.ok("--language", "en", "points", name, "--areas", "GREEN").out
        self.assertIn("Outlines: 1; points: 120.", english)

    def test_csv_is_what_spreadsheets_read(self):
        name = self.put(drawing(*SITE))
        rows = list(csv.DictReader(io.StringIO(self.ok("points", name, "--areas", "GREEN", "--csv").out)))
        points = self.document(name, "--areas", "GREEN")["points"]
        self.assertEqual(len(rows), 120)
        self.assertEqual(list(rows[0]), ["outline", "handle", "x", "y", "z", "total", "sunlit", "sunlitBeijing"])
        for row, point in zip(rows, points):
            self.assertEqual((row["outline"], row["handle"]), ("0", "B1"))
            for member in ("x", "y", "z", "total"):
                self.assertAlmostEqual(float(row[member]), point[member], 5)
            self.assertEqual(len([each for each in row["sunlit"].split("; ") if each]), len(point["sunlit"]))

    def test_the_examples_of_the_help_run(self):
        shutil.copy(os.path.join(SHIPPED, "samples", "courtyard.dxf"), self.home)
        examples = re.findall(r"^  orvo (points .*)$", self.ok("points", "--help").out, re.M)
        self.assertEqual(len(examples), 2)
        for example in examples:
            self.assertEqual(self.orvo(*example.split()).code, OK)
            self.assertEqual(self.orvo(text=example + "\n").code, OK)


class Requests(PointsTest):
    def refused(self, code, *arguments):
        answer = self.orvo("points", *arguments)
        self.assertEqual((answer.code, answer.out), (code, ""), answer)
        return answer.err

    def test_bad_options_are_refused(self):
        name = self.put(drawing(*SITE))
        asked = (name, "--areas", "GREEN")
        for option, values in (("--spacing", ("0", "-1", "x", "1000.1", "nan", "1e999", "0,5", "1m")),
                               ("--level", ("x", "10000.1", "-10000.1", "nan", "3m")), ("--need", ("0", "25")),
                               ("--north", ("x",)), ("--facing", ("x",)), ("--least-altitude", ("90",))):
            for value in values:
                with self.subTest(option=option, value=value):
                    message = self.refused(USAGE, *asked, f"{option}={value}")
                    self.assertIn(f"{option} 的值“{value}”", message)
        self.assertIn("--areas", self.refused(USAGE, name))
        self.assertIn("--areas", self.refused(USAGE, name, "--areas", " "))
        self.assertIn("--csv 和 --json", self.refused(USAGE, *asked, "--csv", "--json"))
        self.assertIn("orvo points", self.refused(USAGE, "--areas", "GREEN"))
        self.refused(FAILED, *asked, "--place", "没有这里")
        self.refused(FAILED, "none.dxf", "--areas", "GREEN")
        english = self.refused(USAGE, *asked, "--spacing", "0", "--language", "en")
        self.assertIn("metres between points", english)
        self.assertNotRegex(english, "[\u4e00-\u9fff]")

    def test_too_many_points_are_refused_with_their_number(self):
        name = self.put(drawing(WALL, area("B1", rectangle(0, 0, 1000, 1000))))
        for spacing, number in (("0.000001", "1.00e+18"), ("0.1", "100000000"), ("1e-300", "+308")):
            message = self.refused(FAILED, name, "--areas", "GREEN", "--spacing", spacing)
            self.assertIn(number, message)
            self.assertIn("--spacing", message)

    def test_what_is_no_area_is_told_by_its_handle(self):
        name = self.put(drawing(
            WALL, area("B1", [(0, 0), (1, 1), (1, 0), (0, 1)]), area("B2", rectangle(0, 0, 5, 5), closed=0),
            face("B3", "GREEN", [(0, 0, 0), (4, 0, 0), (4, 4, 3), (0, 4, 0)]), area("B4", [(0, 0), (5, 0), (9, 0)]),
            groups((0, "LINE"), (5, "B5"), (8, "GREEN"), (10, 0), (20, 0), (11, 5), (21, 5)),
            face("B6", "GREEN", [(0, 50, 0), (4, 50, 0), (4, 50, 3), (0, 50, 3)])))
        answer = self.orvo("points", name, "--areas", "GREEN", "--json")
        self.assertEqual(answer.code, FAILED)
        self.assertEqual(answer.json()["points"], [])
        self.assertEqual([(outline["handle"], outline["points"], outline["share"], outline["least"])
                          for outline in answer.json()["outlines"]], [("B6", 0, None, None)])
        for handle, words in (("B1", "与自己相交"), ("B2", "不闭合"), ("B3", "不在一个平面上"), ("B4", "没有面积"),
                              ("B5", "不是轮廓"), ("B6", "--facing")):
            self.assertRegex(answer.err, f"{handle}.*{words}")
        self.assertEqual(len(self.document(name, "--areas", "GREEN", "--facing", "270")["points"]), 12)
        self.assertEqual(len(self.document(name, "--areas", "GREEN", "--level", "0")["points"]), 16)

    def test_no_area_at_all(self):
        name = self.put(drawing(*SITE, layers=[("GREEN", 3), ("OFF", -3)]))
        for layer, words in (("NONE", "没有图层“NONE”"), ("OFF", "图层 OFF 上没有")):
            answer = self.orvo("points", name, "--areas", layer, "--json")
            self.assertEqual(answer.code, FAILED)
            self.assertIn(words, answer.err)
            self.assertEqual((answer.json()["outlines"], answer.json()["points"]), ([], []))
        nothing = self.orvo("points", self.put(drawing(area("B1", rectangle(0, 0, 2, 2)))), "--areas", "GREEN")
        self.assertEqual(nothing.code, OK)
        self.assertIn("所有的点都没有遮挡", nothing.err)

    def test_many_of_one_kind_are_told_together(self):
        outlines = [area(f"C{i:02d}", rectangle(0, 0, 5, 5), closed=0) for i in range(20)]
        lines = self.orvo("points", self.put(drawing(WALL, *outlines)), "--areas", "GREEN").err.splitlines()
        self.assertEqual(len([line for line in lines if "不闭合" in line]), 11)
        self.assertTrue(any("C19" in line and "C10" in line for line in lines))

    def test_points_in_buildings_are_told(self):
        name = self.put(drawing(box("A1", "建筑", 0, 0, 4, 4, 6), area("B1", rectangle(-4, 0, 4, 4))))
        answer = self.orvo("points", name, "--areas", "GREEN", "--json")
        self.assertEqual(answer.code, OK)
        self.assertRegex(answer.err, "B1 有 16 个点在闭合的体内")
        self.assertEqual({point["total"] for point in answer.json()["points"] if point["x"] > 0}, {0})

    def test_signals_leave_nothing_half_written(self):
        fence = [box(f"{0x1000 + i:X}", "建筑", i, 0, i + 0.5, 0.5, 30) for i in range(300)]
        name = self.put(drawing(*fence, area("B1", rectangle(0, 1, 300, 301))))
        for number in (signal.SIGINT, signal.SIGTERM):
            for arguments in ([], ["--json"], ["--csv"]):
                terminal = Terminal(self, "points", name, "--areas", "GREEN", "--spacing", "0.15", *arguments)
                terminal.wait_for("正在分析")
                os.kill(terminal.process.pid, number)
                self.assertEqual(terminal.finish(), FAILED, arguments)
                self.assertNotRegex(terminal.seen, '"points"|outline,handle|轮廓 ')


if __name__ == "__main__":
    main()
