"""orvo analyse: the answer in its three forms, what is said beside it, and requests that cannot be met."""
import csv
import io
import math
import os
import re
import shutil
import unicodedata

from orvo_program import FAILED, OK, SHIPPED, USAGE, ProgramTest, main
from prompt_test import Terminal

COURTYARD = os.path.join(SHIPPED, "samples", "courtyard.dxf")
STANDARD = "国标大寒日"
METRES = 6

DOCUMENT = ["note", "place", "date", "standard", "north", "need", "span", "beijingOffset", "windows"]
WINDOW = ["handle", "name", "floor", "facing", "width", "height", "sill", "corners", "sunlit", "stepped", "counted", "dropped",
          "hidden", "total", "longest", "judged", "verdict", "color", "part", "notes"]
REASONS = ["facing", "angle", "short", "not among the longest", "threshold"]
NOTES = ["cut", "inside", "no side", "narrower"]
HEADINGS = ["verdict", "name", "building", "flat", "handle", "floor", "facing", "width", "height", "sill", "judged", "total",
            "longest", "counted", "countedBeijing", "sunlit", "sunlitBeijing", "dropped", "droppedBeijing", "hidden",
            "hiddenBeijing", "partFrom", "partWidth", "color", "notes"]


def groups(*pairs):
    return "".join(f"{code}\n{value}\n" for code, value in pairs)


def face(handle, layer, corners):
    points = [(code + 10 * axis, value) for code, corner in zip((10, 11, 12, 13), corners) for axis, value in enumerate(corner)]
    return groups((0, "3DFACE"), (5, handle), (8, layer), *points)


def box(handle, layer, left, front, right, back, height, bottom=0):
    points = [pair for x, y in ((left, front), (right, front), (right, back), (left, back)) for pair in ((10, x), (20, y))]
    return groups((0, "LWPOLYLINE"), (5, handle), (8, layer), (90, 4), (70, 1), (38, bottom), (39, height), *points)


def text(handle, layer, words, x, y, z):
    return groups((0, "TEXT"), (5, handle), (8, layer), (10, x), (20, y), (30, z), (40, 0.2), (1, words))


def south_window(handle, layer="WINDOW", left=4.0, right=5.5, y=0.0, sill=1.0, top=2.5, scale=1.0):
    corners = [(left, y, sill), (right, y, sill), (right, y, top), (left, y, top)]
    return face(handle, layer, [tuple(c * scale for c in corner) for corner in corners])


def drawing(*entities, units=METRES, layers=(), blocks=()):
    """Layers are pairs of a name and a colour, which is negative for one that is off; blocks of a name and entities."""
    records = "".join(groups((0, "LAYER"), (2, name), (70, 0), (62, color), (6, "CONTINUOUS")) for name, color in layers)
    return (groups((0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1021"), (9, "$INSUNITS"), (70, units), (0, "ENDSEC"),
                   (0, "SECTION"), (2, "TABLES"), (0, "TABLE"), (2, "LAYER"), (70, len(layers))) + records +
            groups((0, "ENDTAB"), (0, "ENDSEC"), (0, "SECTION"), (2, "BLOCKS")) +
            "".join(groups((0, "BLOCK"), (2, name)) + content + groups((0, "ENDBLK")) for name, content in blocks) +
            groups((0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")) + "".join(entities) +
            groups((0, "ENDSEC"), (0, "EOF")))


def columns(line):
    return sum(2 if unicodedata.east_asian_width(character) in "WF" else 1 for character in line)


class AnalyseTest(ProgramTest):
    def put(self, content, name="a.dxf"):
        with open(os.path.join(self.home, name), "w", encoding="utf-8") as stream:
            stream.write(content)
        return name

    def document(self, *arguments, code=OK):
        answer = self.orvo("analyse", *arguments, "--json")
        self.assertEqual(answer.code, code, answer)
        return answer.json()

    def one_window(self, *arguments, **more):
        windows = self.document(*arguments, **more)["windows"]
        self.assertEqual(len(windows), 1)
        return windows[0]


# A house with one window to the south, and nothing before it.
HOUSE = [box("A1", "建筑", 0, 0, 10, 8, 6), south_window("B1")]
NAMED = [*HOUSE, text("B2", "WINDOW", "3-402-1", 4.7, 0, 1.7)]


class OneWindow(AnalyseTest):
    def test_a_window_with_nothing_before_it_is_lit_all_day(self):
        document = self.document(self.put(drawing(*NAMED)), "--standard", STANDARD, "--need", "8")
        window = document["windows"][0]
        self.assertEqual((window["handle"], window["name"], window["floor"], window["facing"]), ("B1", "3-402-1", 1, 270))
        for member, value in (("width", 1.5), ("height", 1.5), ("sill", 1.0)):
            self.assertAlmostEqual(window[member], value, 9)
        for corner, expected in zip(window["corners"], [(4, 0, 1), (5.5, 0, 1), (5.5, 0, 2.5), (4, 0, 2.5)]):
            for number, wanted in zip(corner, expected):
                self.assertAlmostEqual(number, wanted, 9)
        # The standard's span; in January the sun is south of the east-west line as long as it is up.
        for member in ("sunlit", "stepped", "counted"):
            self.assertEqual([(round(period["start"], 9), round(period["end"], 9), round(period["minutes"], 7))
                              for period in window[member]], [(8, 16, 480)], member)
        self.assertEqual((window["dropped"], window["hidden"], window["notes"]), ([], [], []))
        for member in ("total", "longest", "judged"):
            self.assertAlmostEqual(window[member], 480, 6)
        self.assertEqual(window["verdict"], "pass")
        self.assertNotIn("part", window)

    def test_the_head_agrees_with_the_other_subcommands(self):
        name = self.put(drawing(*NAMED))
        asked = ("--place", "上海", "--date", "2025-2-3", "--standard", STANDARD)
        document = self.document(name, *asked)
        info = self.ok("info", *asked, "--json").json()
        for member in ("note", "place", "date"):
            self.assertEqual(document[member], info[member], member)
        self.assertAlmostEqual(document["beijingOffset"], info["sun"]["noon"] - 12, 12)
        self.assertEqual(document["span"], {"start": 8, "end": 16})
        self.assertEqual((document["north"], document["need"]), (0, None))
        listed = [each for each in self.ok("standards", "--json").json()["standards"] if each["name"] == STANDARD]
        self.assertEqual(self.document(name, "--standard", STANDARD)["standard"], listed[0])
        current = [each for each in self.ok("standards", "--json").json()["standards"] if each["current"]]
        self.assertEqual(self.document(name)["standard"], current[0])

    def test_what_is_needed_decides(self):
        name = self.put(drawing(*NAMED))
        for need, verdict in (("8", "pass"), ("8.001", "fail"), ("24", "fail"), ("0.5", "pass"), (" 2 ", "pass")):
            document = self.document(name, "--standard", STANDARD, "--need", need)
            self.assertEqual(document["windows"][0]["verdict"], verdict, need)
            self.assertEqual(document["need"], float(need))
        self.assertIsNone(self.one_window(name, "--standard", STANDARD)["verdict"])

    def test_layers_by_name(self):
        name = self.put(drawing(box("A1", "建筑", 0, 0, 10, 8, 6), south_window("B1", "外窗"),
                                south_window("B2", "Balcony", left=7, right=8.5)))
        self.assertEqual(len(self.document(name, "--windows", "外窗", "--windows", "BALCONY")["windows"]), 2)
        self.assertEqual(self.one_window(name, "--windows", "外窗")["handle"], "B1")
        missing = self.orvo("analyse", name, "--windows", "外窗", "--windows", "没有")
        self.assertEqual(missing.code, OK)
        self.assertIn("“没有”", missing.err)

    def test_north_turns_the_sun(self):
        # With north 90 degrees counter-clockwise of the y axis the y axis points east, and the window's -y is west.
        window = self.one_window(self.put(drawing(*HOUSE)), "--standard", STANDARD, "--north", "90")
        self.assertAlmostEqual(window["facing"], 180, 9)
        self.assertGreaterEqual(window["sunlit"][0]["start"], 12 - 1e-9)
        self.assertEqual(self.document("a.dxf", "--north", "-7.5")["north"], -7.5)
        self.assertEqual(self.document("a.dxf", "--north", "375")["north"], 15)

    def test_a_plan_with_heights_is_a_site_with_bodies(self):
        """The same site twice: with thicknesses, and as a plan whose layers are given heights."""
        def site(thick):
            return drawing(south_window("B1"), box("A1", "OWN", 0, 0, 10, 8, 6), box("C1", "A=B", 3, -12, 7, -9, 9 * thick),
                           box("C2", "Tower", -20, -30, -12, -25, 40 * thick, bottom=0.5), units=METRES)
        thick = self.one_window(self.put(site(1)))
        plan = self.put(site(0))
        answer = self.orvo("analyse", plan, "--height", "A=B=9", "--height", " TOWER =40.0", "--json")
        self.assertEqual(answer.json()["windows"], [thick])
        self.assertEqual(answer.err, "")
        self.assertTrue({"C1", "C2"} <= {by for each in thick["hidden"] for by in each["by"]}, thick["hidden"])
        low = self.one_window(plan, "--height", "A=B=9")
        self.assertNotIn("C2", str(low["hidden"]))
        self.assertGreater(low["total"], thick["total"])

    def test_a_house_in_a_block_is_as_high_as_its_layer(self):
        """Drawn in centimetres as a block, mirrored, flattened, and put in place in metres."""
        outline = box("D1", "0", 300, -1200, 700, -900, 0)
        insert = groups((0, "INSERT"), (5, "C1"), (8, "HOUSES"), (2, "H"), (10, 10), (20, 0), (41, -0.01), (42, 0.01), (43, -0.5))
        name = self.put(drawing(south_window("B1"), box("A1", "OWN", 0, 0, 10, 8, 6), insert, blocks=[("H", outline)]))
        plain = self.put(drawing(south_window("B1"), box("A1", "OWN", 0, 0, 10, 8, 6), box("C1", "HOUSES", 3, -12, 7, -9, 9)),
                         "b.dxf")
        blocked, expected = self.one_window(name, "--height", "HOUSES=9"), self.one_window(plain)
        self.assertIn("C1", str(expected["hidden"]))
        for key in ("sunlit", "hidden"):
            self.assertEqual(len(blocked[key]), len(expected[key]), key)
            for one, other in zip(blocked[key], expected[key]):
                self.assertAlmostEqual(one["start"], other["start"], places=6)
                self.assertAlmostEqual(one["end"], other["end"], places=6)
                self.assertEqual(one.get("by"), other.get("by"))

    def test_inches_are_converted(self):
        inch = 0.0254
        name = self.put(drawing(box("A1", "建筑", 0, 0, 10 / inch, 8 / inch, 6 / inch), south_window("B1", scale=1 / inch), units=1))
        window = self.one_window(name)
        self.assertAlmostEqual(window["width"], 1.5, 6)
        self.assertAlmostEqual(window["sill"], 1.0, 6)

    def test_facing_helps_where_the_side_cannot_be_told(self):
        name = self.put(drawing(south_window("B1"), text("B2", "WINDOW", "1-101-1", 4.7, 0, 1.7)))
        answer = self.orvo("analyse", name, "--standard", STANDARD, "--need", "2", "--json")
        self.assertEqual(answer.code, FAILED)
        window = answer.json()["windows"][0]
        self.assertEqual((window["facing"], window["verdict"], window["notes"]), (None, None, ["no side"]))
        none = next(row["color"] for row in answer.json()["standard"]["colors"]["time"] if row["hours"] == 0)
        self.assertEqual((window["judged"], window["color"]), (0, none))
        self.assertEqual([window[member] for member in ("sunlit", "stepped", "counted", "dropped", "hidden")], [[]] * 5)
        self.assertIn("窗 1-101-1 (B1)：分不清哪一侧是室外", answer.err)
        for facing in ("270", "-90", "630"):
            window = self.one_window(name, "--standard", STANDARD, "--need", "2", "--facing", facing)
            self.assertAlmostEqual(window["facing"], 270, 9)
            self.assertEqual((window["verdict"], window["notes"]), ("pass", []))

    def test_what_is_left_out_on_request_is_told(self):
        name = self.put(drawing(*HOUSE))
        self.assertNotIn("leftOut", self.document(name))
        document = self.document(name, "--standard", STANDARD, "--least-altitude", "20", "--scope")
        self.assertEqual(list(document), [*DOCUMENT, "leftOut"])
        self.assertEqual(document["leftOut"]["belowAltitude"], 20)
        self.assertIsInstance(document["leftOut"]["scope"], int)
        # At 8 o'clock on this day the sun over Beijing is some 8 degrees high.
        self.assertGreater(document["windows"][0]["sunlit"][0]["start"], 8.5)
        answer = self.orvo("analyse", name, "--standard", STANDARD, "--least-altitude", "20")
        self.assertEqual(answer.code, OK)
        for stream in (answer.out, answer.err):
            self.assertIn("太阳高度角低于 20 度", stream)


class Courtyard(AnalyseTest):
    def setUp(self):
        super().setUp()
        shutil.copy(COURTYARD, self.home)
        self.asked = ("courtyard.dxf", "--standard", STANDARD, "--need", "2")

    def test_every_member_is_there(self):
        answer = self.ok("analyse", *self.asked, "--json")
        document = answer.json()
        self.assertEqual(list(document), DOCUMENT)
        entities = {entity["handle"] for entity in self.ok("entity", "courtyard.dxf", "--json").json()}
        span = document["span"]
        self.assertEqual(len(document["windows"]), 14)
        for window in document["windows"]:
            self.assertEqual(list(window), [member for member in WINDOW if member != "part" or "part" in window])
            self.assertIn(window["handle"], entities)
            self.assertIn(window["verdict"], ("pass", "fail"))
            self.assertEqual(window["verdict"] == "pass", window["judged"] >= 120 - 1e-6)
            self.assertEqual([len(corner) for corner in window["corners"]], [3] * 4)
            self.assertTrue(set(window["notes"]) <= set(NOTES))
            for member in ("sunlit", "stepped", "counted", "dropped"):
                for period in window[member]:
                    self.assertEqual(list(period), ["start", "end", "minutes"] + ["reason"] * (member == "dropped"))
                    self.assertAlmostEqual(period["minutes"], (period["end"] - period["start"]) * 60, 6)
                    self.assertIn(period.get("reason", "facing"), REASONS)
            for period in window["hidden"]:
                self.assertEqual(list(period), ["start", "end", "by"])
                self.assertTrue(period["by"] and set(period["by"]) <= entities, period)
            for member in ("sunlit", "stepped", "counted", "dropped", "hidden"):
                starts = [period["start"] for period in window[member]]
                self.assertEqual(starts, sorted(starts))
                for period in window[member]:
                    self.assertTrue(span["start"] - 1e-9 <= period["start"] < period["end"] <= span["end"] + 1e-9)
            self.assertAlmostEqual(window["total"], sum(period["minutes"] for period in window["counted"]), 6)
            self.assertAlmostEqual(window["longest"], max([0, *(period["minutes"] for period in window["counted"])]), 6)

    def test_most_windows_pass_and_one_fails_for_reasons_that_are_told(self):
        windows = {window["name"]: window for window in self.document(*self.asked)["windows"]}
        self.assertEqual(sorted(name for name, window in windows.items() if window["verdict"] == "fail"), ["1-102-2"])
        entities = {entity["handle"]: entity["layer"] for entity in self.ok("entity", "courtyard.dxf", "--json").json()}
        hiders = {handle for period in windows["1-102-2"]["hidden"] for handle in period["by"]}
        # The east wing in the morning, the tower at noon, the bay of its own flat in the afternoon.
        self.assertIn("凸窗", {entities[handle] for handle in hiders})
        self.assertGreaterEqual(sum(entities[handle] == "建筑" for handle in hiders), 2)
        # The bays' windows are 2.4 m wide, the standard judges 1.8 m.
        self.assertEqual({name for name, window in windows.items() if "part" in window},
                         {name for name in windows if name.startswith("1-") and name.endswith("-1")})
        for window in windows.values():
            self.assertAlmostEqual(window.get("part", {"width": 1.8})["width"], 1.8, 9)
        self.assertEqual({name: window["floor"] for name, window in windows.items()},
                         {name: int(name[2]) for name in windows})

    def test_a_slow_caster_agrees(self):
        """Boxes against rays from points of each window, each minute: within two minutes for each change of the light."""
        info = self.ok("info", "--standard", STANDARD, "--json").json()
        suns = [sun_at(8 + minute / 60, info["place"]["latitude"], info["sun"]["declination"]) for minute in range(481)]
        boxes = boxes_of(COURTYARD)
        self.assertEqual(len(boxes), 10)
        for window in self.document(*self.asked)["windows"]:
            lit = [minute for minute, sun in enumerate(suns) if is_lit(window, sun, boxes)]
            runs = [run for run in runs_of(lit) if run[1] - run[0] >= 5]
            slow = sum(end - start for start, end in runs)
            self.assertLess(abs(slow - window["judged"]), 2 + 2 * len(runs), window["name"])

    def test_the_table_is_for_people(self):
        answer = self.ok("analyse", *self.asked)
        lines = answer.out.splitlines()
        for words in ("不达标", "达标", "1-102-2 (", "被 ", "按户合计", "按楼合计", "按层合计", "遮挡日照的实体", "建筑", "凸窗",
                      "真太阳时 08:00:00-16:00:00", "2:00:00（时:分:秒）", "使用前须与现行有效的文本核对"):
            self.assertIn(words, answer.out)
        start = next(i for i, line in enumerate(lines) if line.startswith("结论"))
        for line in lines[start:]:
            self.assertLessEqual(columns(line), 100, line)
            self.assertEqual(line, line.rstrip())
        self.assertEqual(self.ok("analyze", *self.asked).out, answer.out)
        self.assertNotRegex(self.ok("analyse", *self.asked, "--language", "en").out.replace(STANDARD, ""),
                            "达标|句柄|合计|真太阳时")

    def test_csv_is_what_spreadsheets_read(self):
        answer = self.ok("analyse", *self.asked, "--csv")
        self.assertEqual(answer.out.count("\r\n"), answer.out.count("\n"))
        rows = list(csv.DictReader(io.StringIO(answer.out, newline="")))
        self.assertEqual(list(rows[0]), HEADINGS)
        windows = self.document(*self.asked)["windows"]
        self.assertEqual(len(rows), len(windows))
        for row, window in zip(rows, windows):
            self.assertEqual((row["verdict"], row["name"], row["handle"]), (window["verdict"], window["name"], window["handle"]))
            self.assertAlmostEqual(float(row["judged"]), window["judged"], 6)
            self.assertEqual(f"{row['building']}-{row['flat']}-{window['name'][-1]}", window["name"])
            self.assertEqual(len(row["counted"].split("; ")), len(window["counted"]))
            self.assertRegex(row["counted"], r"^\d\d:\d\d:\d\d-\d\d:\d\d:\d\d(; |$)")
        self.assertEqual(self.ok("analyse", *self.asked, "--csv", "--language", "en").out, answer.out)

    def test_the_examples_of_the_help_run(self):
        examples = re.findall(r"^  orvo (analyse .*)$", self.ok("analyse", "--help").out, re.M)
        self.assertEqual(len(examples), 4)
        for example in examples[:3]:  # the film has a test of its own
            self.ok(*example.split())
            self.ok(text=example + "\n")
        self.assertIn("--need", self.ok("analyze", "--help").out)

    def test_numbers_are_the_same_in_every_language(self):
        english = self.ok("analyse", *self.asked, "--json", "--language", "en").json()
        chinese = self.document(*self.asked)
        for document in (english, chinese):
            del document["note"]
            del document["standard"]["source"]
        self.assertEqual(english, chinese)

    def test_completion(self):
        terminal = Terminal(self)
        terminal.wait_for("orvo> ")
        terminal.type("analys\t")
        terminal.wait_for("e ")
        terminal.type("courtyard.dxf --le\t")
        terminal.wait_for("ast-altitude ")
        terminal.type("5 --standard 国标大\t")
        terminal.wait_for("寒日 ")
        terminal.type("--nee\t")
        terminal.wait_for("d ")
        terminal.type("2\n")
        terminal.wait_for("1-102-2")
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        terminal.finish()


def sun_at(time, latitude, declination):
    """To the sun, x east, y north, z up."""
    hour, p, d = math.radians((time - 12) * 15), math.radians(latitude), math.radians(declination)
    return (-math.cos(d) * math.sin(hour), math.cos(p) * math.sin(d) - math.sin(p) * math.cos(d) * math.cos(hour),
            math.sin(p) * math.sin(d) + math.cos(p) * math.cos(d) * math.cos(hour))


def boxes_of(path):
    """The extruded rectangles of a drawing in millimetres, in metres: three least and three most coordinates each."""
    with open(path, encoding="utf-8") as stream:
        lines = [line.strip() for line in stream]
    boxes, entity = [], None
    for code, value in zip(lines[::2], lines[1::2]):
        if code == "0":
            if entity:
                boxes.append(entity)
            entity = {"10": [], "20": [], "38": [0.0], "39": [0.0]} if value == "LWPOLYLINE" else None
        elif entity and code in entity:
            entity[code].append(float(value) / 1000)
    return [(min(e["10"]), min(e["20"]), e["38"][-1], max(e["10"]), max(e["20"]), e["38"][-1] + e["39"][-1]) for e in boxes]


def meets(point, sun, box_of):
    enter, leave = 0.0, math.inf
    for axis in range(3):
        near, far = box_of[axis] - point[axis], box_of[axis + 3] - point[axis]
        if abs(sun[axis]) < 1e-12:
            if near > 0 or far < 0:
                return False
            continue
        near, far = sorted((near / sun[axis], far / sun[axis]))
        enter, leave = max(enter, near), min(leave, far)
    return leave > enter + 1e-9


def points_of(window):
    """A grid on the judged part up to a hair from its edges, a centimetre before it."""
    left, right, _, top = window["corners"]
    along = [(b - a) / window["width"] for a, b in zip(left, right)]
    outward = (along[1], -along[0])
    part = window.get("part", {"from": 0.0, "width": window["width"]})
    for share in (0.001, 0.25, 0.5, 0.75, 0.999):
        at = part["from"] + share * part["width"]
        for height in (0.001, 0.5, 0.999):
            yield (left[0] + along[0] * at + outward[0] * 0.011, left[1] + along[1] * at + outward[1] * 0.011,
                   left[2] + height * (top[2] - left[2]))


def is_lit(window, sun, boxes):
    facing = math.radians(window["facing"])
    if sun[2] <= 0 or sun[0] * math.cos(facing) + sun[1] * math.sin(facing) <= 0:
        return False
    return not any(meets(point, sun, box_of) for point in points_of(window) for box_of in boxes)


def runs_of(minutes):
    runs = []
    for minute in minutes:
        if runs and runs[-1][1] == minute - 1:
            runs[-1][1] = minute
        else:
            runs.append([minute, minute])
    return runs


class WhatCannotBe(AnalyseTest):
    def test_bad_options_are_refused(self):
        name = self.put(drawing(*NAMED))
        for option, values in (("--north", ("x", "", "inf", "nan", "1e999", "１", "15°")), ("--facing", ("south", "", "1,5")),
                               ("--need", ("0", "-1", "24.001", "x", "", "2h", "nan")),
                               ("--least-altitude", ("0", "90", "-5", "100", "", "x"))):
            for value in values:
                with self.subTest(option=option, value=value):
                    message = self.refused(USAGE, "analyse", name, f"{option}={value}" if value else option, *([] if value else [""]))
                    self.assertIn(option, message.err)
                    self.assertIn(f"“{value}”", message.err)
        self.assertIn("--windows", self.refused(USAGE, "analyse", name, "--windows", "").err)
        for value in ("", "A", "A=", "=3", " =3", "A=0", "A=-1", "A=10000.1", "A=nan", "A=3m", "A=3,5", "A= ", "A=3=", "A=1e999"):
            with self.subTest(height=value):
                message = self.refused(USAGE, "analyse", name, "--height", value)
                self.assertIn(f"--height 的值“{value}”", message.err)
                self.assertIn("--height HOUSES=18.5", message.err)
        twice = self.refused(USAGE, "analyse", name, "--height", "Haus=3", "--height", " HAUS =4")
        self.assertIn("图层“HAUS”两个高度", twice.err)
        self.assertIn("--csv 和 --json", self.refused(USAGE, "analyse", name, "--csv", "--json").err)
        self.assertIn("FILE", self.refused(USAGE, "analyse").err)
        self.refused(USAGE, "analyse", name, "b.dxf")
        self.refused(USAGE, "analyse", name, "--need", "1", "--need", "2")
        self.assertIn("--date", self.refused(USAGE, "analyse", name, "--dat", "2025-1-1").err)
        self.refused(USAGE, "analyse", name, "--date", "2025-2-30")
        self.refused(FAILED, "analyse", name, "--place", "没有这里")
        self.refused(FAILED, "analyse", name, "--standard", "没有这个")

    def test_english_messages(self):
        name = self.put(drawing(*NAMED))
        for arguments, words in ((["--need", "0"], "hours that are needed"), (["--north", "x"], "write degrees"),
                                 (["--least-altitude", "90"], "below 90"), (["--csv", "--json"], "only one of")):
            message = self.refused(USAGE, "analyse", name, *arguments, "--language", "en").err
            self.assertIn(words, message)
            self.assertNotRegex(message, "[\u4e00-\u9fff]")

    def test_drawings_that_cannot_be_read(self):
        self.assertIn("none.dxf", self.refused(FAILED, "analyse", "none.dxf").err)
        self.refused(FAILED, "analyse", self.put("no drawing"))
        self.refused(FAILED, "analyse", self.home, "--json")

    def test_settings_without_a_standard_or_a_known_place(self):
        name = self.put(drawing(*NAMED))
        self.write("SunSet.xml", "<ORVO><CUR_SUNSETDATA><CUR_CITY>上海</CUR_CITY></CUR_SUNSETDATA></ORVO>")
        self.assertIn("没有选定标准", self.refused(FAILED, "analyse", name).err)
        self.write("SunSet.xml", "<ORVO><CUR_SUNSETDATA><CUR_CITY>乌有乡</CUR_CITY></CUR_SUNSETDATA></ORVO>")
        self.assertIn("乌有乡", self.refused(FAILED, "analyse", name).err)

    def test_a_unit_that_nobody_builds_in_is_refused_by_name(self):
        for arguments in ([], ["--json"], ["--csv"]):
            self.assertIn("“秒差距”", self.refused(FAILED, "analyse", self.put(drawing(*NAMED, units=20)), *arguments).err)
        self.assertIn("“$INSUNITS 99”", self.refused(FAILED, "analyse", self.put(drawing(*NAMED, units=99))).err)

    def test_no_windows(self):
        name = self.put(drawing(box("A1", "建筑", 0, 0, 10, 8, 6)))
        for arguments in ([], ["--csv"], ["--json"]):
            answer = self.orvo("analyse", name, *arguments)
            self.assertEqual(answer.code, FAILED, answer)
            self.assertIn("没有窗可以分析", answer.err)
            self.assertIn("WINDOW", answer.err)
        self.assertEqual(self.document(name, code=FAILED)["windows"], [])
        self.assertIn("外窗", self.orvo("analyse", name, "--windows", "外窗").err)

    def test_a_layer_that_is_off(self):
        name = self.put(drawing(*NAMED, layers=[("WINDOW", -4)]))
        answer = self.orvo("analyse", name, "--json")
        self.assertEqual((answer.code, answer.json()["windows"]), (FAILED, []))
        self.assertIn("图层“WINDOW”关闭或冻结", answer.err)

    def test_nothing_that_casts_a_shadow(self):
        answer = self.orvo("analyse", self.put(drawing(south_window("B1"))), "--facing", "270", "--json")
        self.assertEqual(answer.code, OK, answer)
        self.assertIn("没有投影子的面", answer.err)
        self.assertEqual(answer.json()["windows"][0]["hidden"], [])
        lines = [groups((0, "LINE"), (8, "0"), (10, n), (20, 0), (11, n), (21, 5)) for n in range(3)]
        inserts = [groups((0, "INSERT"), (2, "A"), (10, 0), (20, 0))] * 2
        answer = self.orvo("analyse", self.put(drawing(south_window("B1"), *lines, *inserts, blocks=[("A", "")])),
                           "--facing", "270")
        self.assertIn("3 LINE, 2 INSERT：都没有高度", answer.err)

    def test_heights_that_come_to_nothing_are_told(self):
        open_outline = groups((0, "LWPOLYLINE"), (5, "C1"), (8, "PLAN"), (90, 2), (10, 0), (20, -9), (10, 9), (20, -9))
        plan = box("C2", "OTHER", 0, -9, 9, -5, 0)
        name = self.put(drawing(south_window("B1"), open_outline, plan))
        answer = self.orvo("analyse", name, "--facing", "270", "--height", "PLAN=10000", "--height", "NOWHERE=1")
        self.assertEqual(answer.code, OK, answer)
        self.assertIn("没有图层“NOWHERE”（--height）", answer.err)
        self.assertIn("图层“PLAN”上没有可见、闭合而没有厚度的轮廓，--height 没有用上；其上有 1 个不闭合", answer.err)
        self.assertIn("2 LWPOLYLINE：都没有高度；其中 1 个是闭合的轮廓：用 --height", answer.err)
        raised = self.orvo("analyse", name, "--facing", "270", "--height", "other=1")
        self.assertNotIn("没有投影子的面", raised.err)

    def test_a_block_casts_the_shadow_of_what_it_holds(self):
        """The same building drawn as it is, and as a block of half its size, mirrored and turned round."""
        window = south_window("B1", left=0, right=1.5, y=0)
        insert = groups((0, "INSERT"), (5, "C9"), (8, "建筑"), (2, "house"), (10, 0), (20, -20), (41, -2), (42, 2), (43, 2),
                        (50, 180))
        plain = drawing(window, box("C9", "建筑", 6, -40, 12, -24, 30))
        block = drawing(window, insert, blocks=[("House", box("D1", "0", 3, 2, 6, 10, 15))])
        answers = [self.orvo("analyse", self.put(each), "--facing", "270", "--json") for each in (plain, block)]
        windows = [answer.json()["windows"] for answer in answers]
        self.assertIn("C9", str(windows[0][0]["hidden"]))
        self.assertEqual(windows[0], windows[1])

    def test_a_block_with_too_many_faces_is_named(self):
        insert = groups((0, "INSERT"), (5, "C9"), (2, "A"), (10, 0), (20, 0), (70, 1000000), (71, 1000000), (44, 1), (45, 1))
        solid = groups((0, "3DSOLID"), (5, "CA"), (8, "0"))
        answer = self.orvo("analyse", self.put(drawing(south_window("B1"), insert, solid,
                                                       blocks=[("A", box("D1", "0", 0, 5, 1, 6, 1))])), "--facing", "270")
        self.assertIn("块参照 C9 的面太多", answer.err)
        self.assertIn("1 个不能读的体（1 3DSOLID）", answer.err)

    def test_notes_stand_on_the_error_stream_too(self):
        within = south_window("D1", left=2, right=3.5, y=4)
        across = face("E1", "建筑", [(4.75, -1, 0), (4.75, 1, 0), (4.75, 1, 6), (4.75, -1, 6)])
        for entities, handle, note, words in (((HOUSE[0], within), "D1", "inside", "在闭合的体内"),
                                              ((*HOUSE, across), "B1", "cut", "有面穿过"),
                                              ((HOUSE[0], south_window("F1", right=4.8)), "F1", "narrower", "比标准的最小窗宽窄")):
            answer = self.orvo("analyse", self.put(drawing(*entities)), "--standard", STANDARD, "--facing", "270", "--json")
            self.assertEqual(answer.code, OK, answer)
            self.assertIn(note, answer.json()["windows"][0]["notes"])
            self.assertRegex(answer.err, f"orvo: 窗 {handle}：.*{words}")

    def test_what_is_no_rectangle_is_named(self):
        name = self.put(drawing(*HOUSE, face("C1", "WINDOW", [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)])))
        answer = self.orvo("analyse", name, "--json")
        self.assertEqual((answer.code, len(answer.json()["windows"])), (OK, 1))
        self.assertRegex(answer.err, r"\bC1\b.*没有当作窗，也不投影子")

    def test_polar_night(self):
        self.write("zone.xml", '<ORVO_ZONEDATA><某省 type="PROVINCE"><北地 type="CITY" longitude="20" latitude="80"/></某省>'
                               '</ORVO_ZONEDATA>')
        answer = self.orvo("analyse", self.put(drawing(*HOUSE)), "--place", "北地", "--date", "2025-12-22", "--need", "1", "--json")
        self.assertEqual(answer.code, OK, answer)
        window = answer.json()["windows"][0]
        self.assertEqual((window["sunlit"], window["hidden"], window["judged"], window["verdict"]), ([], [], 0, "fail"))
        self.assertIn("太阳不升起", answer.err)

    def test_polar_day(self):
        # 80 degrees north at the June solstice: the sun goes round 13 degrees and more above the horizon.
        self.write("zone.xml", '<ORVO_ZONEDATA><某省 type="PROVINCE"><北地 type="CITY" longitude="20" latitude="80"/></某省>'
                               '</ORVO_ZONEDATA>')
        name = self.put(drawing(*HOUSE))
        answer = self.orvo("analyse", name, "--place", "北地", "--date", "2025-06-21", "--json")
        self.assertEqual(answer.code, OK, answer)
        self.assertEqual(answer.json()["windows"][0]["hidden"], [])
        self.assertIn("太阳不落", answer.err)
        self.assertNotIn("太阳不落", self.orvo("analyse", name, "--place", "北地", "--date", "2025-03-21", "--json").err)

    def test_odd_names(self):
        names = ['=HYPERLINK("x")-1-2', "a\"b,c", "\u202e红"]
        windows = []
        for i, name in enumerate(names):
            windows += [south_window(f"B{i}", left=1 + 3 * i, right=2.5 + 3 * i), text(f"C{i}", "WINDOW", name, 2 + 3 * i, 0, 1.7)]
        path = self.put(drawing(box("A1", "建筑", 0, 0, 10, 8, 6), *windows))
        self.assertEqual([window["name"] for window in self.document(path)["windows"]], names)
        rows = list(csv.DictReader(io.StringIO(self.ok("analyse", path, "--csv").out, newline="")))
        self.assertEqual([row["name"] for row in rows], ["'" + names[0], *names[1:]])
        self.assertEqual(rows[0]["building"], "'=HYPERLINK(\"x\")")
        self.assertNotIn("\u202e", self.ok("analyse", path).out)


if __name__ == "__main__":
    main()
