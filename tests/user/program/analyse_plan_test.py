"""orvo analyse with plans: windows that are drawn as lines, with the sills, heights and storeys that options tell."""
import csv
import io

from analyse_test import STANDARD, AnalyseTest, box, drawing, face, groups, text
from orvo_program import FAILED, OK, USAGE, main

TOWER = box("A1", "建筑", 0, 0, 10, 8, 30)
NEIGHBOUR = box("A2", "建筑", 2, -30, 6, -20, 20)


def line(handle, left=4.0, right=5.5, level=None, thickness=None, layer="WINDOW"):
    z = [] if level is None else [(30, level), (31, level)]
    return groups((0, "LINE"), (5, handle), (8, layer), (10, left), (20, 0), (11, right), (21, 0), *z,
                  *([] if thickness is None else [(39, thickness)]))


def path(handle, vertices, *more):
    """Vertices are x, y and the bulge of what follows."""
    return groups((0, "LWPOLYLINE"), (5, handle), (8, "WINDOW"), (90, len(vertices)), *more,
                  *[pair for x, y, bulge in vertices for pair in ((10, x), (20, y), (42, bulge))])


def rectangle(handle, sill, height, left=4.0, right=5.5):
    top = sill + height
    return face(handle, "WINDOW", [(left, 0, sill), (right, 0, sill), (right, 0, top), (left, 0, top)])


class PlanTest(AnalyseTest):
    def windows(self, *entities, options=(), code=OK):
        name = self.put(drawing(TOWER, NEIGHBOUR, *entities))
        return self.document(name, "--standard", STANDARD, "--need", "2", *options, code=code)["windows"]

    def said(self, *entities, options=(), code=OK):
        name = self.put(drawing(TOWER, *entities))
        answer = self.orvo("analyse", name, "--standard", STANDARD, *options)
        self.assertEqual(answer.code, code, answer)
        return answer.err

    def assert_same(self, windows, others, *but):
        self.assertEqual(len(windows), len(others))
        for window, other in zip(windows, others):
            for member in window:
                if member not in but:
                    self.assertAgree(window[member], other[member], member)

    def assertAgree(self, value, other, member):
        if isinstance(value, float) or isinstance(other, float):
            self.assertAlmostEqual(value, other, 6, member)
        elif isinstance(value, list):
            self.assertEqual(len(value), len(other), member)
            for one, another in zip(value, other):
                self.assertAgree(one, another, member)
        elif isinstance(value, dict):
            for key in value:
                self.assertAgree(value[key], other[key], f"{member}.{key}")
        else:
            self.assertEqual(value, other, member)


class Lines(PlanTest):
    def test_a_line_is_the_window_that_a_rectangle_is(self):
        """The hidden hours, too: the neighbour hides the lower windows."""
        for sill in (0.9, 5.9, 21.0):
            wanted = self.windows(rectangle("B1", sill, 1.5))
            self.assertEqual(len(wanted), 1)
            self.assertEqual(wanted[0]["hidden"] == [], sill > 20, sill)
            for drawn, options in ((line("B1", level=sill, thickness=1.5), ()),
                                   (line("B1", level=sill + 1.5, thickness=-1.5), ()),
                                   (line("B1"), ("--sill", str(sill), "--window-height", "1.5")),
                                   (line("B1", level=sill), ("--sill", "3", "--window-height", "1.5")),
                                   (line("B1", thickness=1.5), (f"--sill={sill}", "--window-height=0.5")),
                                   (path("B1", [(4, 0, 0), (5.5, 0, 0)], (38, sill), (39, 1.5)), ())):
                with self.subTest(sill=sill, options=options):
                    self.assert_same(self.windows(drawn, options=options), wanted)

    def test_segments_are_windows_of_one_handle(self):
        windows = self.windows(path("B1", [(1, 0, 0), (2.5, 0, 1), (4, 0, 0), (6, 0, 0)], (38, 1), (39, 1.5)))
        self.assertEqual([(each["handle"], each["name"], round(each["width"], 9)) for each in windows],
                         [("B1", "B1", 1.5), ("B1", "B1", 2)])
        self.assertIn("实体 B1 不是或不全是", self.said(path("B1", [(1, 0, 0), (2.5, 0, 1), (4, 0, 0)], (39, 1.5))))
        self.assertIn("实体 B1 不是或不全是", self.said(path("B1", [(1, 0, 0), (4, 0, 0), (4, 0.1, 0)], (39, 1.5), (70, 1)),
                                                code=FAILED))

    def test_lines_without_a_height_are_counted_and_told(self):
        said = self.said(line("B1"), line("B2", 6, 7), rectangle("B3", 1, 1.5, 8, 9), options=("--sill", "0.9"))
        self.assertIn("有 2 条直线没有厚度", said)
        self.assertIn("--window-height 1.5", said)
        self.assertNotIn("没有厚度", self.said(line("B1"), options=("--sill", "0.9", "--window-height", "1.5")))
        english = self.orvo("analyse", self.put(drawing(TOWER, line("B1"))), "--language", "en")
        self.assertEqual(english.code, FAILED)
        self.assertIn("have no thickness", english.err)
        self.assertNotRegex(english.err.replace("窗", ""), "[\u4e00-\u9fff]")

    def test_a_name_stands_beside_its_line_at_any_level(self):
        texts = [text("C1", "WINDOW", "3-402-1", 4.7, -0.19, 0), text("C2", "WINDOW", "3-402-2", 7, 0.3, 1.7)]
        windows = self.windows(line("B1", level=1, thickness=1.5), line("B2", 6.5, 8, level=1, thickness=1.5), *texts)
        self.assertEqual([each["name"] for each in windows], ["3-402-1", "B2"])


class Storeys(PlanTest):
    PLAN = [line("B1"), text("C1", "WINDOW", "3-402-1", 4.7, 0, 0), line("B2", 6.5, 8)]
    OPTIONS = ("--sill", "0.9", "--window-height", "1.5", "--storeys", "3=2.9")

    def test_each_storey_has_the_windows_of_the_plan(self):
        windows = self.windows(*self.PLAN, options=self.OPTIONS)
        self.assertEqual([each["name"] for each in windows],
                         ["1-3-402-1", "1-B2", "2-3-402-1", "2-B2", "3-3-402-1", "3-B2"])
        self.assertEqual([round(each["sill"], 9) for each in windows], [0.9, 0.9, 3.8, 3.8, 6.7, 6.7])
        self.assertEqual([each["floor"] for each in windows], [1, 1, 2, 2, 3, 3])
        wanted = self.windows(*[rectangle(handle, sill, 1.5, left, right) for sill in (0.9, 3.8, 6.7)
                                for handle, left, right in (("B1", 4, 5.5), ("B2", 6.5, 8))])
        self.assert_same(windows, wanted, "name")

    def test_flats_have_their_storey_and_buildings_all_of_them(self):
        name = self.put(drawing(TOWER, NEIGHBOUR, *self.PLAN))
        asked = ("analyse", name, "--standard", STANDARD, "--need", "2", *self.OPTIONS)
        rows = list(csv.DictReader(io.StringIO(self.orvo(*asked, "--csv").out)))
        self.assertEqual([(row["building"], row["flat"], row["floor"]) for row in rows],
                         [("3", "1-402", "1"), ("", "", "1"), ("3", "2-402", "2"), ("", "", "2"), ("3", "3-402", "3"),
                          ("", "", "3")])
        table = self.orvo(*asked, "--language", "en").out
        for cells in (["3", "1-402", "1", "1"], ["3", "3-402", "1", "1"]):
            self.assertTrue(any(each.split()[1:5] == cells for each in table.splitlines()), cells)
        building = table[table.index("By building"):].splitlines()[2].split()
        self.assertEqual((building[0], building[1], building[3]), ("3", "3", "3"))

    def test_storeys_without_a_line_are_told(self):
        self.assertIn("--storeys 没有窗可以重复", self.said(rectangle("B1", 1, 1.5), options=("--storeys", "3=3")))

    def test_too_many_windows_are_refused(self):
        name = self.put(drawing(TOWER, *[line(f"{n:X}", thickness=1.5) for n in range(0x100, 0x100 + 5001)]))
        for form in ([], ["--json"], ["--csv"]):
            message = self.refused(FAILED, "analyse", name, "--storeys", "1000=3", *form).err
            self.assertIn("窗太多（超过 5000000 个", message)


class Options(PlanTest):
    def test_bad_ones_are_refused(self):
        name = self.put(drawing(TOWER, line("B1")))
        bad = (("--sill", ("x", "", "inf", "nan", "10000.1", "-10001", "1,5", "0.9m", "１")),
               ("--window-height", ("0", "-1", "", "x", "inf", "1000.5", "1.5 m")),
               ("--storeys", ("", "6", "6=", "=3", "0=3", "1001=3", "-1=3", "2.5=3", "6=0", "6=-3", "6=100.1", "6=x", "6=inf",
                              "6=3=3", "6:3", "n=3", "6 = 3")))
        for option, values in bad:
            for value in values:
                with self.subTest(option=option, value=value):
                    message = self.refused(USAGE, "analyse", name, option + "=" + value if value else option,
                                           *([] if value else [""])).err
                    self.assertIn(f"{option} 的值“{value}”", message)
                    self.assertIn("例如", message)
                    english = self.refused(USAGE, "analyse", name, option + "=" + value if value else option,
                                           *([] if value else [""]), "--language", "en").err
                    self.assertIn("such as", english)

    def test_the_ends_of_what_is_allowed(self):
        for options, sill, height, count in ((("--sill=10000", "--window-height=1000"), 10000, 1000, 1),
                                             (("--sill=-10000", "--window-height=0.01"), -10000, 0.01, 1),
                                             (("--sill=-2.4", "--window-height=1", "--storeys=1=100"), -2.4, 1, 1),
                                             (("--window-height=1", "--storeys=1000=0.5"), 0, 1, 1000)):
            windows = self.windows(line("B1"), options=("--facing=270", *options))
            self.assertEqual(len(windows), count, options)
            self.assertAlmostEqual(windows[0]["sill"], sill, 9, options)
            self.assertAlmostEqual(windows[0]["height"], height, 9, options)


if __name__ == "__main__":
    main()
