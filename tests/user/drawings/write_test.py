"""orvo analyse and orvo points with --write: ezdxf finds every face, text and line where the answer says that it belongs."""
import json
import math
import os
import re
import signal
import sys

import ezdxf

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "program"))
from orvo_program import FAILED, OK, USAGE, ProgramTest, main  # noqa: E402
from prompt_test import Terminal  # noqa: E402

STANDARD = ("--standard", "国标大寒日")
VERSIONS = ("R12", "R2000", "R2004", "R2007", "R2018")
WINDOWS = ["ORVO_RESULT_HOURS", "ORVO_RESULT_WINDOWS"]
AREAS = ["ORVO_RESULT_ISOLINES", "ORVO_RESULT_LABELS", "ORVO_RESULT_SHARES"]
METRES, MILLIMETRES, FEET = 6, 4, 2
SIZE = {METRES: 1.0, MILLIMETRES: 1000.0, FEET: 1 / 0.3048}
GREEN, RED, BY_LAYER = 3, 1, 256


def box(space, scale, left, front, right, back, height):
    corners = [(x * scale, y * scale) for x, y in ((left, front), (right, front), (right, back), (left, back))]
    add = space.add_polyline2d if space.doc.dxfversion <= "AC1009" else space.add_lwpolyline
    add(corners, close=True, dxfattribs={"layer": "WALL", "thickness": height * scale})


def window(space, scale, left, y, sill, width=1.8):
    corners = [(left, y, sill), (left + width, y, sill), (left + width, y, sill + 1.5), (left, y, sill + 1.5)]
    space.add_3dface([[scale * value for value in corner] for corner in corners], dxfattribs={"layer": "WINDOW"})


def area(space, scale, corners, layer="GREEN"):
    points = [[scale * value for value in corner] for corner in corners]
    space.add_polyline3d(points, close=True, dxfattribs={"layer": layer})


def make(path, version="R2007", units=METRES, more=lambda document: None):
    """A house with windows above each other behind another one, the ground between them, a tilted and an upright area."""
    document = ezdxf.new(version)
    document.header["$INSUNITS"] = units
    scale = SIZE[units]
    space = document.modelspace()
    box(space, scale, 0, 0, 30, 10, 15)
    box(space, scale, 3, 30, 20, 40, 20)
    for floor in range(3):
        window(space, scale, 5, 30, 1 + 3 * floor)
        window(space, scale, 12, 30, 1 + 3 * floor, width=0.6)
    area(space, scale, [(-5, 11, 0), (30, 11, 0), (30, 29, 0), (-5, 29, 0)])
    area(space, scale, [(3, 30, 20), (20, 30, 20), (20, 40, 26), (3, 40, 26)], "ROOF")
    area(space, scale, [(8, 30, 1), (18, 30, 1), (18, 30, 19), (8, 30, 19)], "FRONT")
    more(document)
    document.saveas(path)


def entities(document, *layers):
    return [entity for entity in document.modelspace() if entity.dxf.layer in layers]


def points_of(line):
    """In the world."""
    if line.dxftype() == "LWPOLYLINE":
        return list(line.vertices_in_wcs())
    return list(line.ocs().points_to_wcs(vertex.dxf.location for vertex in line.vertices))


def is_closed(line):
    return line.closed if line.dxftype() == "LWPOLYLINE" else line.is_closed


def place_of(text):
    return text.ocs().to_wcs(text.get_placement()[1])


def distance_to(line, place):
    points = points_of(line)
    if is_closed(line):
        points.append(points[0])
    least = math.inf
    for a, b in zip(points, points[1:]):
        way = b - a
        part = min(max((place - a).dot(way) / way.dot(way), 0), 1)
        least = min(least, (place - a - way * part).magnitude)
    return least


class WriteTest(ProgramTest):
    def path(self, name):
        return os.path.join(self.home, name)

    def bytes_of(self, name):
        with open(self.path(name), "rb") as stream:
            return stream.read()

    def run_write(self, command, source, target, *more):
        answer = self.orvo(command, source, *STANDARD, *more, "--write", target, "--json")
        self.assertEqual(answer.code, OK, answer)
        auditor = ezdxf.readfile(self.path(target)).audit()
        self.assertEqual(([error.message for error in auditor.errors], [fix.message for fix in auditor.fixes]), ([], []))
        return answer.json()

    def read(self, name):
        return ezdxf.readfile(self.path(name))

    def assert_near(self, place, expected, off):
        self.assertLess(math.dist(place, expected), off, (place, expected))


class Windows(WriteTest):
    def assert_window(self, answer, face, text, rank, scale):
        corners = [[scale * value for value in corner] for corner in answer["corners"]]
        for got, wanted in zip(face.wcs_vertices(), corners):
            self.assert_near(got, wanted, 1e-6 * scale)
        hours, minutes = divmod(answer["judged"], 60)
        self.assertEqual(text.dxf.text, f"{hours:.0f}:{minutes:02.0f}")
        # Flat, outside of the middle of the sill, one row farther out for each window below.
        height = min(max(0.25 * answer["width"], 0.15), 0.3)
        middle = [0.5 * (a + b) for a, b in zip(corners[0], corners[1])]
        self.assertAlmostEqual(text.dxf.height, height * scale, 6)
        self.assert_near(place_of(text), (middle[0], middle[1] - (rank + 0.5) * 1.6 * height * scale, middle[2]), 1e-6 * scale)
        self.assertAlmostEqual(text.dxf.rotation, 0, 9)
        self.assertEqual(text.get_align_enum().name, "MIDDLE_CENTER")

    def test_each_is_where_it_was_with_its_hours_beside_it(self):
        for version in VERSIONS:
            # ezdxf names no unit in R12, which then is a millimetre.
            units_of = {"R12": (MILLIMETRES,), "R2007": (METRES, MILLIMETRES, FEET)}
            for units in units_of.get(version, (METRES,)):
                with self.subTest(version=version, units=units):
                    make(self.path("in.dxf"), version, units)
                    document = self.run_write("analyse", "in.dxf", "out.dxf")
                    out = self.read("out.dxf")
                    faces = entities(out, WINDOWS[1])
                    texts = entities(out, WINDOWS[0])
                    self.assertEqual((len(faces), len(texts)), (6, 6))
                    for answer, face in zip(document["windows"], faces):
                        rank = sum(other["sill"] < answer["sill"] - 1e-6 and
                                   abs(other["corners"][0][0] - answer["corners"][0][0]) < 1e-6 for other in document["windows"])
                        text = min(texts, key=lambda text: math.dist(
                            place_of(text), [0.5 * (a + b) for a, b in zip(face.wcs_vertices()[0], face.wcs_vertices()[1])]))
                        self.assert_window(answer, face, text, rank, SIZE[units])
                        self.assertEqual((face.dxf.color, text.dxf.color), (answer["color"], answer["color"]))

    def test_a_need_colours_the_hours_by_the_verdict_and_no_window(self):
        make(self.path("in.dxf"))
        document = self.run_write("analyse", "in.dxf", "out.dxf", "--need", "5")
        verdicts = [answer["verdict"] for answer in document["windows"]]
        self.assertEqual(set(verdicts), {"pass", "fail"})
        out = self.read("out.dxf")
        self.assertEqual([face.dxf.color for face in entities(out, WINDOWS[1])],
                         [answer["color"] for answer in document["windows"]])
        self.assertEqual(sorted(text.dxf.color for text in entities(out, WINDOWS[0])),
                         sorted(GREEN if verdict == "pass" else RED for verdict in verdicts))

    def test_a_window_without_a_side_has_no_colour_of_its_own(self):
        make(self.path("in.dxf"), more=lambda document: window(document.modelspace(), 1, 60, 60, 1))
        document = self.orvo("analyse", "in.dxf", *STANDARD, "--write", "out.dxf", "--json").json()
        self.assertIsNone(document["windows"][-1]["facing"])
        out = self.read("out.dxf")
        self.assertEqual(entities(out, WINDOWS[1])[-1].dxf.color, BY_LAYER)
        self.assertEqual([text.dxf.text for text in entities(out, WINDOWS[0]) if text.dxf.color == BY_LAYER], ["-"])


class Areas(WriteTest):
    def test_lines_and_labels_are_where_they_belong(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                make(self.path("in.dxf"), version, MILLIMETRES)
                document = self.run_write("points", "in.dxf", "out.dxf", "--areas", "GREEN", "--need", "3")
                self.assert_lines(self.read("out.dxf"), document)

    def assert_lines(self, out, document):
        lines = entities(out, AREAS[0])
        labels = entities(out, AREAS[1])
        self.assertGreater(len(lines), 5)
        colours = {}
        for label in labels:
            hours = int(re.fullmatch("([0-9]+) h", label.dxf.text).group(1))
            colours[label.dxf.color] = hours
            self.assertAlmostEqual(label.dxf.height, 500, 6)
            self.assertTrue(-90 < label.dxf.rotation <= 90.001, label.dxf.rotation)
            near = [line for line in lines if line.dxf.color == label.dxf.color and distance_to(line, place_of(label)) < 1]
            self.assertNotEqual(near, [])
        for line in lines:
            self.assertTrue(any(label.dxf.color == line.dxf.color and distance_to(line, place_of(label)) < 1 for label in labels))
            for point in points_of(line):
                self.assertTrue(-5010 < point.x < 30010 and 10990 < point.y < 29010 and abs(point.z) < 1e-6, point)
        # Every two neighbours of the grid with other hours have a line between them.
        totals = {(round(point["x"], 3), round(point["y"], 3)): point["total"] for point in document["points"]}
        looked = 0
        for (x, y), total in totals.items():
            next_total = totals.get((round(x + 1, 3), y))
            if next_total is None or looked > 60:
                continue
            for hours in range(1, 8):
                if (total >= 60 * hours) != (next_total >= 60 * hours):
                    looked += 1
                    color = [color for color, of in colours.items() if of == hours]
                    middle = ezdxf.math.Vec3(1000 * (x + 0.5), 1000 * y, 0)
                    self.assertTrue(any(line.dxf.color in color and distance_to(line, middle) <= 600 for line in lines), (x, y))
        self.assertGreater(looked, 30)
        share, = entities(out, AREAS[2])
        self.assertEqual(share.dxf.text, f"{100 * document['outlines'][0]['share']:.1f}%")
        self.assert_near(place_of(share), (12500, 20000, 0), 1000)

    def test_lines_lie_in_tilted_and_upright_planes(self):
        for layer, is_in in (("ROOF", lambda p: abs(p.z - 20 - 0.6 * (p.y - 30)) < 1e-6), ("FRONT", lambda p: abs(p.y - 30) < 1e-6)):
            with self.subTest(layer=layer):
                make(self.path("in.dxf"), more=lambda document: box(document.modelspace(), 1, 8, 26, 12, 29, 45))
                self.run_write("points", "in.dxf", "out.dxf", "--areas", layer)
                out = self.read("out.dxf")
                self.assertGreater(len(entities(out, AREAS[0])), 0)
                for line in entities(out, AREAS[0]):
                    self.assertTrue(all(map(is_in, points_of(line))), points_of(line)[0])
                for label in entities(out, AREAS[1]):
                    self.assertTrue(is_in(place_of(label)))
                self.assertEqual(entities(out, AREAS[2]), [])

    def test_slips_of_the_spacing_are_refused_before_anything_is_written(self):
        make(self.path("in.dxf"), units=MILLIMETRES, more=lambda document: area(
            document.modelspace(), 1000, [(0, 0, 0), (1000, 0, 0), (1000, 1000, 0), (0, 1000, 0)], "FIELD"))
        self.refused(USAGE, "points", "in.dxf", "--areas", "FIELD", "--spacing", "0", "--write", "out.dxf")
        answer = self.refused(FAILED, "points", "in.dxf", "--areas", "FIELD", "--spacing", "0.000001", "--write", "out.dxf")
        self.assertIn("1.00e+18", answer.err)
        self.assertEqual(os.path.exists(self.path("out.dxf")), False)

    def test_following_lines_is_told_and_can_be_interrupted(self):
        make(self.path("in.dxf"), more=lambda document: area(
            document.modelspace(), 1, [(-150, -150, 0), (150, -150, 0), (150, 150, 0), (-150, 150, 0)], "FIELD"))
        terminal = Terminal(self, "points", "in.dxf", *STANDARD, "--areas", "FIELD", "--spacing", "0.4", "--write", "out.dxf")
        terminal.wait_for("等时线")
        os.kill(terminal.process.pid, signal.SIGINT)
        self.assertEqual(terminal.finish(), FAILED)
        self.assertNotIn("轮廓 ", terminal.seen)
        self.assertEqual(sorted(name for name in os.listdir(self.home) if "out" in name), [])

    def test_outlines_that_cross_themselves_or_are_not_flat_have_no_lines(self):
        def add(document):
            space = document.modelspace()
            area(space, 1, [(0, 12, 0), (9, 20, 0), (9, 12, 0), (0, 20, 0)], "BAD")
            area(space, 1, [(10, 12, 0), (19, 12, 0), (19, 20, 3), (10, 20, 0)], "BAD")
        make(self.path("in.dxf"), more=add)
        answer = self.orvo("points", "in.dxf", *STANDARD, "--areas", "BAD", "--areas", "GREEN", "--write", "out.dxf", "--json")
        self.assertEqual((answer.code, answer.err.count("orvo: ")), (OK, 2), answer)
        self.assertEqual([outline["points"] for outline in answer.json()["outlines"]], [630])
        self.assertGreater(len(entities(self.read("out.dxf"), AREAS[0])), 0)


class Drawings(WriteTest):
    def test_the_answer_is_that_of_the_source(self):
        make(self.path("in.dxf"))
        self.run_write("analyse", "in.dxf", "once.dxf")
        self.run_write("points", "once.dxf", "out.dxf", "--areas", "GREEN", "--areas", "FRONT", "--need", "2")
        self.assertEqual({entity.dxf.layer for entity in self.read("out.dxf").modelspace()
                          if entity.dxf.layer.startswith("ORVO")}, {*WINDOWS, *AREAS})
        for command in (["analyse"], ["points", "--areas", "GREEN", "--areas", "FRONT"]):
            for height in ([], ["--height", "0=3"]):
                answers = [self.orvo(command[0], name, *command[1:], *STANDARD, *height, "--json") for name in ("in.dxf", "out.dxf")]
                self.assertEqual(answers[0].code, OK)
                self.assertEqual(answers[0].out, answers[1].out)
                self.assertEqual(answers[0].err, answers[1].err)

    def test_what_a_source_says_without_shadows_stays_the_same(self):
        document = ezdxf.new("R2007")
        document.header["$INSUNITS"] = METRES
        area(document.modelspace(), 1, [(0, 0, 0), (9, 0, 0), (9, 9, 0), (0, 9, 0)])
        window(document.modelspace(), 1, 3, -2, 1)
        document.saveas(self.path("in.dxf"))
        self.run_write("analyse", "in.dxf", "once.dxf", "--facing", "270")
        self.run_write("points", "once.dxf", "out.dxf", "--areas", "GREEN", "--need", "1")
        answers = [self.orvo("points", name, *STANDARD, "--areas", "GREEN") for name in ("in.dxf", "out.dxf")]
        self.assertEqual(answers[0].err, answers[1].err)
        self.assertIn("orvo: ", answers[0].err)

    def test_the_next_run_makes_them_anew(self):
        make(self.path("in.dxf"))
        self.run_write("analyse", "in.dxf", "both.dxf")
        self.run_write("points", "both.dxf", "all.dxf", "--areas", "GREEN", "--need", "3")
        before = self.read("all.dxf")
        self.run_write("analyse", "all.dxf", "again.dxf", "--need", "5")
        again = self.read("again.dxf")
        for layer in (*WINDOWS, *AREAS):
            self.assertEqual(len(entities(again, layer)), len(entities(before, layer)), layer)
        # What the other subcommand wrote stays, to the handle.
        self.assertEqual([entity.dxf.handle for entity in entities(again, *AREAS)],
                         [entity.dxf.handle for entity in entities(before, *AREAS)])
        self.assertEqual({text.dxf.color for text in entities(again, WINDOWS[0])}, {GREEN, RED})

    def test_a_file_from_before_is_kept_as_a_backup(self):
        make(self.path("in.dxf"))
        source = self.bytes_of("in.dxf")
        self.run_write("analyse", "in.dxf", "out.dxf")
        first = self.bytes_of("out.dxf")
        self.run_write("analyse", "in.dxf", "out.dxf", "--need", "5")
        self.assertNotEqual(self.bytes_of("out.dxf"), first)
        self.assertEqual(self.bytes_of("out.dxf.bak"), first)
        self.assertEqual(self.bytes_of("in.dxf"), source)
        self.assertEqual(len(entities(self.read("out.dxf"), WINDOWS[1])), 6)

    def test_all_else_comes_back_byte_for_byte(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                make(self.path("in.dxf"), version)
                self.run_write("analyse", "in.dxf", "out.dxf")
                before = self.bytes_of("in.dxf").split(b"\n  0\n")
                after = self.bytes_of("out.dxf").split(b"\n  0\n")
                kept = [entry for entry in after if b"ORVO_RESULT" not in entry]
                differing = [pair for pair in zip(before, kept) if pair[0] != pair[1]]
                self.assertEqual(len(before), len(kept))
                # The next handle in the header, and how many layers there are.
                self.assertLessEqual(len(differing), 2, differing)
                for old, _ in differing:
                    self.assertTrue(b"$HANDSEED" in old or b"LAYER" in old, old)

    def test_layers_that_are_there_stay_as_their_user_made_them(self):
        def add(document):
            document.layers.add("orvo_result_Windows", color=5).off()
            document.layers.add("ORVO_RESULT_HOURS", color=6).freeze()
            document.modelspace().add_line((0, 0), (1, 1), dxfattribs={"layer": "orvo_result_Windows"})
        make(self.path("in.dxf"), more=add)
        self.run_write("analyse", "in.dxf", "out.dxf")
        out = self.read("out.dxf")
        self.assertTrue(out.layers.get("ORVO_RESULT_WINDOWS").is_off())
        self.assertTrue(out.layers.get("ORVO_RESULT_HOURS").is_frozen())
        self.assertEqual([layer.dxf.name.upper() for layer in out.layers].count("ORVO_RESULT_WINDOWS"), 1)
        of_layer = [entity.dxftype() for entity in out.modelspace() if entity.dxf.layer.upper() == "ORVO_RESULT_WINDOWS"]
        self.assertEqual(of_layer, ["3DFACE"] * 6)


class Refusals(WriteTest):
    def setUp(self):
        super().setUp()
        make(self.path("in.dxf"))
        self.source = self.bytes_of("in.dxf")
        self.command = ("analyse", "in.dxf", *STANDARD)

    def assert_nothing_changed(self, *names):
        self.assertEqual(self.bytes_of("in.dxf"), self.source)
        self.assertEqual(sorted(name for name in os.listdir(self.home) if not name.startswith(".")), sorted(["in.dxf", *names]))

    def test_the_source_is_never_written(self):
        os.symlink("in.dxf", self.path("link.dxf"))
        os.link(self.path("in.dxf"), self.path("hard.dxf"))
        for target in ("in.dxf", "./in.dxf", self.path("in.dxf"), "link.dxf", "hard.dxf"):
            for command in (self.command, ("points", "in.dxf", *STANDARD, "--areas", "GREEN")):
                answer = self.refused(USAGE, *command, "--write", target)
                self.assertIn(target, answer.err)
        self.assert_nothing_changed("link.dxf", "hard.dxf")

    def test_nor_is_it_lost_as_a_backup(self):
        os.rename(self.path("in.dxf"), self.path("plan.dxf.bak"))
        with open(self.path("plan.dxf"), "w", encoding="ascii") as stream:
            stream.write("what was here")
        self.refused(USAGE, "analyse", "plan.dxf.bak", *STANDARD, "--write", "plan.dxf")
        self.assertEqual(self.bytes_of("plan.dxf.bak"), self.source)

    def test_places_that_cannot_be_written(self):
        os.mkdir(self.path("folder"))
        self.refused(USAGE, *self.command, "--write", "")
        self.assertIn("nowhere", self.refused(FAILED, *self.command, "--write", "nowhere/out.dxf").err)
        self.assertIn("folder", self.refused(FAILED, *self.command, "--write", "folder").err)
        self.assert_nothing_changed("folder")

    def test_an_answer_outlives_a_failure_to_write(self):
        os.mkdir(self.path("closed"))
        self.become_ordinary_user()
        os.chmod(self.path("closed"), 0o500)
        expected = self.orvo(*self.command, "--json")
        for target, more in (("closed/out.dxf", {}), ("out.dxf", {"largest_file": len(self.source) // 2})):
            answer = self.orvo(*self.command, "--json", "--write", target, **more)
            self.assertEqual((answer.code, answer.out), (FAILED, expected.out), answer)
            self.assertTrue(answer.err.startswith("orvo: ") and "out.dxf" in answer.err, answer)
        self.assertEqual(os.listdir(self.path("closed")), [])
        self.assert_nothing_changed("closed")

    def test_a_full_disk_leaves_the_file_from_before(self):
        self.run_write("analyse", "in.dxf", "out.dxf")
        before = self.bytes_of("out.dxf")
        answer = self.orvo(*self.command, "--need", "5", "--write", "out.dxf", largest_file=len(self.source) // 2)
        self.assertEqual(answer.code, FAILED, answer)
        self.assertEqual(self.bytes_of("out.dxf"), before)

    def test_layers_of_results_are_no_input(self):
        self.run_write("analyse", "in.dxf", "out.dxf")
        for command in (("analyse", "out.dxf", "--windows", "ORVO_RESULT_WINDOWS"),
                        ("analyse", "out.dxf", "--windows", "WINDOW", "--windows", " orvo_result_hours"),
                        ("analyse", "out.dxf", "--proposed", "ORVO_RESULT_WINDOWS"),
                        ("points", "out.dxf", "--areas", "ORVO_RESULT_ISOLINES")):
            answer = self.refused(USAGE, *command, *STANDARD)
            self.assertIn(command[-1].strip(), answer.err)

    def test_a_backup_that_holds_results_is_a_drawing_like_any_other(self):
        self.run_write("analyse", "in.dxf", "out.dxf")
        answer = self.orvo("analyse", "out.dxf", *STANDARD, "--write", "more.dxf", "--json", LANG="en_US.UTF-8")
        self.assertEqual(answer.code, OK, answer)
        self.assertEqual(json.loads(answer.out)["windows"], json.loads(self.orvo(*self.command, "--json").out)["windows"])


if __name__ == "__main__":
    main()
