"""orvo shadow: the plane of a face, the light on it, and the projection along that light, against exact arithmetic."""
import math
import random
import re
import struct
from fractions import Fraction

from orvo_program import FAILED, USAGE, ProgramTest, main
from prompt_test import Terminal

FLOOR = "0,0,0;4,0,0;4,3,0;0,3,0"
FACES = {
    FLOOR: 4,
    "0,0,3;4,0,3;4,3,3": 3,
    "0,0,0;6,0,0;6,0,3;0,0,3": 4,
    "0,0,0;0,3,0;4,3,0": 3,
    "1,2,3;4,-1,2;0.5,7,-2": 3,
    "-100.5,20.25,3;-90,20.25,3;-90,31,9.5;-100.5,31,9.5": 4,
    "1e-3,0,0;0,1e-3,0;0,0,1e-3": 3,
    "1e6,2e6,0;1000006,2e6,1;1e6,2000009,2": 3,
}
LIGHTS = ["0,0,-1", "1,0,-2", "-1,2,3", "0.3,-0.7,-0.2", "1e3,5,-1e2", "-.5,.25,1"]


def numbers(text):
    return [Fraction(number) for number in text.split(",")]


def cross(u, v):
    return [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]]


def minus(u, v):
    return [a - b for a, b in zip(u, v, strict=True)]


def dot(u, v):
    return sum(a * b for a, b in zip(u, v, strict=True))


def root(value):
    """The square root of a fraction, however large or small, to about 30 digits."""
    shift = 10 ** 60
    return Fraction(math.isqrt(value.numerator * shift // value.denominator), 10 ** 30)


def exact_normal(corners):
    """Of any length: the projection does not depend on it."""
    return cross(minus(corners[1], corners[0]), minus(corners[2], corners[0]))


def exact_matrix(corners, light):
    """P' = P - L (n P + d) / (L n), one row for each component of P'."""
    normal = exact_normal(corners)
    coefficients = [*normal, -dot(normal, corners[0])]
    along = dot(light, normal)
    rows = [[(row == column) - light[row] * coefficients[column] / along for column in range(4)] for row in range(3)]
    return [*rows, [0, 0, 0, 1]]


def cases():
    """Each face with each light that does not run along it."""
    for face in FACES:
        normal = exact_normal([numbers(corner) for corner in face.split(";")])
        yield from ((face, light) for light in LIGHTS if dot(normal, numbers(light)) != 0)


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def shortest_single(value):
    """The fewest digits that read back to the same number of single precision."""
    digits = next(digits for digits in range(1, 10) if single(float(f"{value:.{digits}g}")) == single(value))
    return float(f"{value:.{digits}g}")


class ShadowTest(ProgramTest):
    def shadow(self, face, light, *more):
        return self.ok("shadow", "--face", face, "--light", light, *more)

    def json(self, face, light):
        return self.shadow(face, light, "--json").json()


class Numbers(ShadowTest):
    def check(self, face, light):
        answer = self.json(face, light)
        self.assertEqual(list(answer), ["corners", "normal", "plane", "lit", "shadowMatrix"])
        corners = [numbers(corner) for corner in face.split(";")]
        direction = numbers(light)
        self.assertEqual(answer["corners"], [[float(x) for x in corner] for corner in corners])
        normal = exact_normal(corners)
        length = root(dot(normal, normal))
        for got, exact in zip(answer["normal"], normal, strict=True):
            self.assertAlmostEqual(got, float(exact / length), delta=1e-9)
        self.assertEqual(answer["plane"][:3], answer["normal"])
        size = float(max(abs(x) for x in corners[0]))
        self.assertAlmostEqual(answer["plane"][3], float(-dot(normal, corners[0]) / length), delta=1e-9 * (1 + size))
        self.assertEqual(answer["lit"], dot(normal, direction) < 0)
        for got, exact in zip(answer["shadowMatrix"], exact_matrix(corners, direction), strict=True):
            for number, value in zip(got, exact, strict=True):
                self.assertAlmostEqual(number, float(value), delta=1e-6 * (1 + abs(float(value))))
                self.assertEqual(number, shortest_single(number))
        return answer

    def test_normal_plane_light_and_matrix_are_those_of_exact_arithmetic(self):
        lit = set()
        for face, light in cases():
            with self.subTest(face=face, light=light):
                lit.add(self.check(face, light)["lit"])
        self.assertEqual(lit, {True, False})

    def test_random_triangles(self):
        chance = random.Random(20251222)
        for _ in range(40):
            face = ";".join(",".join(str(chance.randint(-500, 500) / 10) for _ in range(3)) for _ in range(3))
            light = ",".join(str(chance.randint(-99, 99) / 8) for _ in range(3))
            corners = [numbers(corner) for corner in face.split(";")]
            if abs(dot(exact_normal(corners), numbers(light))) > 100:  # neither a sliver nor light along the face
                with self.subTest(face=face, light=light):
                    self.check(face, light)

    def test_rows_multiply_columns_and_land_on_the_plane(self):
        """The shadow of a point lies on the plane and on the point's ray; the transposed matrix would give neither."""
        for face in FACES:
            if "e6" in face:
                continue  # too far away for matrices of single precision
            answer = self.json(face, "1,2.5,-2")
            for point in ([3.0, -2.0, 7.0], [0.5, 0.25, -9.0]):
                image = [dot(row, [*point, 1.0]) for row in answer["shadowMatrix"]]
                self.assertEqual(image[3], 1.0)
                scale = 1e-5 * (1 + max(abs(x) for x in image))
                self.assertAlmostEqual(dot(answer["plane"], image), 0.0, delta=scale)
                for component in cross(minus(image[:3], point), [1.0, 2.5, -2.0]):
                    self.assertAlmostEqual(component, 0.0, delta=10 * scale)

    def test_a_longer_light_casts_the_same_shadow(self):
        self.assertEqual(self.json(FLOOR, "4,0,-8"), self.json(FLOOR, "1,0,-2"))

    def test_corners_the_other_way_round_turn_the_face(self):
        front = self.json("0,0,3;4,0,3;4,3,3", "1,0,-2")
        back = self.json("4,3,3;4,0,3;0,0,3", "1,0,-2")
        self.assertEqual((front["normal"], front["plane"], front["lit"]), ([0, 0, 1], [0, 0, 1, -3], True))
        self.assertEqual((back["normal"], back["plane"], back["lit"]), ([0, 0, -1], [0, 0, -1, 3], False))
        self.assertEqual(front["shadowMatrix"], back["shadowMatrix"])

    def test_no_zero_has_a_sign(self):
        for arguments in (["--json"], []):
            for face in ("0,0,0;4,0,0;4,0,3", "-0,-0.0,0;0,3,0;4,3,-0"):
                self.assertNotRegex(self.shadow(face, "0,1,-1", *arguments).out, r"-0(\.0)?(?![.\d])")


class Texts(ShadowTest):
    def matrix_rows(self, text):
        return [line.split() for line in text.splitlines() if re.fullmatch(r"(  +\S+){4}", line)]

    def test_text_shows_what_json_has(self):
        for face, light in cases():
            text = self.shadow(face, light).out
            answer = self.json(face, light)
            self.assertEqual([[float(cell) for cell in row] for row in self.matrix_rows(text)],
                             answer["shadowMatrix"])
            shown = [[float(x) for x in triple.split(",")] for triple in re.findall(r"^\S.*  \((.*)\)$", text, re.M)]
            self.assertEqual(shown, [*answer["corners"], answer["normal"], [float(x) for x in light.split(",")]])
            self.assertEqual([float(x) for x in re.findall(r"^ +[abcd] = (\S+)$", text, re.M)], answer["plane"])
            self.assertIn("四边形，4 个角点" if FACES[face] == 4 else "三角形，3 个角点", text)
            self.assertEqual(bool(re.search(r"^正面 +受光$", text, re.M)), answer["lit"])
            self.assertEqual("不受光：光线从背面照来" in text, not answer["lit"])

    def test_the_way_to_read_the_matrix_is_said(self):
        text = self.shadow(FLOOR, "1,0,-2").out
        for words in ("乘列向量 (x, y, z, 1)", "P' = P - L (ax + by + cz + d) / (L·n)", "m[列][行]", "转置"):
            self.assertIn(words, text)

    def test_numbers_have_no_more_digits_than_they_need(self):
        text = self.shadow("0.1,0.2,0.3;4,0.2,0.3;4,3,0.3", "1,0,-10").out
        for words in ("(0.1, 0.2, 0.3)", "(4, 0.2, 0.3)", "d = -0.3", "0.1  -0.03"):
            self.assertIn(words, text)

    def test_english(self):
        chinese = "[\u3000-\u303f\u4e00-\u9fff\uff00-\uffef]"
        text = self.shadow("0,0,0;4,0,0;4,3,0;0,3,1", "1,0,-2", "--language", "en").out
        for words in ("quadrilateral, 4 corners", "Unit normal", "lit", "Shadow matrix (to be multiplied by the column",
                      "Note: the four corners are not in one plane", "corner 4 is 1 off it", "m[column][row]"):
            self.assertIn(words, text)
        self.assertNotRegex(text, chinese)
        for face, light, words in (("0,0,0;4,0,0;4,3,0", "1,0,0", "the light runs along the face's plane"),
                                   ("0,0,0;4,0,0;4,3,0", "1,0,1", "the light comes from behind"),
                                   ("0,0,0;4,0,0;4,3,0", "0,0,-1e-13", "too short"),
                                   ("0,0,0;4,0,0;0,0,0", "1,0,1", "(0, 0, 1) stands in"),
                                   ("0,0,0;0,0,0;4,3,0;0,3,0", "1,0,1", "corners 1, 4 and 3"),
                                   ("0,0,1e300;4,0,1e300;4,3,1e300", "1,0,-1", "not finite")):
            text = self.shadow(face, light, "--language", "en").out
            self.assertIn(words, text)
            self.assertNotRegex(text, chinese)
        for arguments, words in (([], "--face is missing"), (["--face", FLOOR], "--light is missing"),
                                 (["--face", "1,2", "--light", "1,0,1"], "corner 1 is not three numbers"),
                                 (["--face", "1,2,3", "--light", "1,0,1"], "number of corners 1"),
                                 (["--face", FLOOR, "--light", "1,2"], "not three numbers dx,dy,dz"),
                                 (["--face", FLOOR, "--light", "0,0,0"], "a zero vector has no direction")):
            message = self.refused(USAGE, "shadow", *arguments, "--language", "en").err
            self.assertIn(words, message)
            self.assertNotRegex(message, chinese)

    def test_json_is_the_same_in_every_language(self):
        self.assertEqual(self.shadow(FLOOR, "1,0,-2", "--json").out,
                         self.shadow(FLOOR, "1,0,-2", "--json", "--language", "en").out)


class OddFaces(ShadowTest):
    def test_light_along_the_plane_projects_nothing(self):
        slanted = "0,0,0;1,0,0.3;0,1,0.7"  # z = 0.3 x + 0.7 y, which no double holds exactly
        for face, light in ((FLOOR, "1,0,0"), (FLOOR, "-3,7,0"), (slanted, "1,0,0.3"), (slanted, "0.1,0.2,0.17"),
                            ("0,0,0;4,0,0;4,0,3", "1,0,-1"), (FLOOR, "1e300,0,0"), (FLOOR, "1e-300,0,0")):
            with self.subTest(face=face, light=light):
                answer = self.json(face, light)
                self.assertEqual((answer["lit"], answer["shadowMatrix"]), (False, None))
                text = self.shadow(face, light).out
                self.assertIn("投影矩阵：没有", text)
                self.assertIn("不受光：光线与面平行", text)
                self.assertNotRegex(text, "inf|nan")

    def test_grazing_light_still_projects(self):
        answer = self.json(FLOOR, "1,0,-1e-9")
        self.assertTrue(answer["lit"])
        self.assertEqual(answer["shadowMatrix"][0], [1, 0, 1e9, 0])

    def test_a_short_light_projects_but_lights_nothing(self):
        answer = self.json(FLOOR, "1e-13,0,-1e-13")
        self.assertEqual((answer["lit"], answer["shadowMatrix"][0]), (False, [1, 0, 1, 0]))
        self.assertIn("太短", self.shadow(FLOOR, "1e-13,0,-1e-13").out)
        self.assertTrue(self.json(FLOOR, "0,0,-2e-12")["lit"])

    def test_corners_in_one_line_have_no_plane(self):
        for face in ("0,0,0;1,1,1;2,2,2", "0,0,0;1,0,0;3,0,0;2,0,0", "0.1,0.2,0.3;0.2,0.4,0.6;0.3,0.6,0.9",
                     "0,0,0;1,2,3;1,2,3", "0,0,0;1,0,0;-1,0,0", "0,0,0;0,0,0;1,2,3;2,4,6", "1000.1,1000.2,0;1000.2,1000.4,0;1000.3,1000.6,0"):
            with self.subTest(face=face):
                message = self.refused(FAILED, "shadow", "--face", face, "--light", "0,0,-1").err
                self.assertIn("角点都在一条直线上", message)
                self.assertIn("法向不是有限数", message)
                as_json = self.refused(FAILED, "shadow", "--face", face, "--light", "0,0,-1", "--json")
                self.assertEqual(as_json.err, message)

    def test_first_corners_in_one_line_ask_for_another_beginning(self):
        message = self.refused(FAILED, "shadow", "--face", "0,0,0;1,0,0;2,0,0;0,3,1", "--light", "0,0,-1").err
        self.assertIn("换一个角点开头", message)
        self.assertNotIn("都在一条直线上", message)
        self.json("2,0,0;0,3,1;0,0,0;1,0,0", "0,0,-1")

    def test_slim_faces_are_faces(self):
        self.assertEqual(self.json("0,0,0;1000000,0,0;1000000,0.001,0", "0,0,-1")["normal"], [0, 0, 1])
        self.assertEqual(self.json("1e15,0,0;1000000000000001,0,0;1e15,1,0", "0,0,-1")["normal"], [0, 0, 1])

    def test_coinciding_corners_take_the_substitute_normal(self):
        for face in ("0,0,0;0,0,0;4,0,3", "0,0,0;4,0,3;0,0,0", "0,0,0;4,0,3;0,0,0;7,0,0", "1,1,1;1,1,1;1,1,1",
                     "0,0,0;0,0,0;4,0,3;0,0,0", "0,0,0;9e-7,0,0;4,0,3", "2,2,2;2,2,2;2,2,2;2,2,2"):
            with self.subTest(face=face):
                answer = self.json(face, "1,0,-1")
                height = float(face.split(";")[0].split(",")[2])
                self.assertEqual((answer["normal"], answer["plane"], answer["lit"]), ([0, 0, 1], [0, 0, 1, -height], True))
                self.assertEqual(answer["shadowMatrix"][2], [0, 0, 0, height])
                self.assertIn("以 (0, 0, 1) 代替", self.shadow(face, "1,0,-1").out)
        for face in ("0,0,0;1.1e-6,0,0;4,0,3", FLOOR, "0,0,0;4,0,0;4,3,0;4,3,0"):
            self.assertNotIn("代替", self.shadow(face, "1,3,-1").out)

    def test_the_fourth_corner_stands_in_for_a_second_one_at_the_first(self):
        face = "0,0,0;0,0,0;4,3,0;0,3,0"
        self.assertEqual(self.json(face, "0,0,-1")["normal"], [0, 0, -1])  # (0,3,0) x (4,3,0)
        self.assertIn("第 1、4、3 个角点", self.shadow(face, "0,0,-1").out)
        self.assertNotIn("第 1、4、3 个角点", self.shadow(FLOOR, "0,0,-1").out)

    def test_four_corners_that_are_not_in_one_plane(self):
        text = self.shadow("0,0,0;4,0,0;4,3,0;0,3,-0.25", "1,0,-2").out
        self.assertIn("四个角点不共面", text)
        self.assertIn("第 4 个角点离它 0.25。", text)
        self.assertEqual(self.json("0,0,0;4,0,0;4,3,0;0,3,-0.25", "1,0,-2")["normal"], [0, 0, 1])
        for flat in (FLOOR, "0.1,0.1,0.1;0.4,0.1,0.2;0.4,0.5,0.7;0.1,0.5,0.6",
                     "1e5,0,0;100004,0,0.1;100004,3,0.4;1e5,3,0.3"):
            self.assertNotIn("不共面", self.shadow(flat, "1,0,-2").out)

    def test_coordinates_that_are_too_large(self):
        for face in ("0,0,0;1e200,0,0;0,1e200,0", "-1.7e308,0,0;1.7e308,0,0;0,1,0"):
            self.assertIn("坐标太大", self.refused(FAILED, "shadow", "--face", face, "--light", "0,0,-1").err)
        answer = self.json("0,0,1e300;4,0,1e300;4,3,1e300", "1,0,-1")
        self.assertEqual(answer["plane"], [0, 0, 1, -1e300])
        self.assertEqual(answer["shadowMatrix"], [[1, 0, 1, None], [0, 1, 0, 0], [0, 0, 0, None], [0, 0, 0, 1]])
        text = self.shadow("0,0,1e300;4,0,1e300;4,3,1e300", "1,0,-1").out
        self.assertEqual(text.count("非有限数"), 2)
        self.assertIn("不是有限数", text)
        self.assertNotRegex(text, "inf|nan")


class Values(ShadowTest):
    def test_blanks_and_wide_separators(self):
        plain = self.shadow(FLOOR, "1,0,-2", "--json").out
        for face in ("0，0，0；4，0，0；4，3，0；0，3，0", " 0 , 0,0 ;\t4,0,0; 4,3,0 ;0,3,0 ", "0,0,0；4,0，0;4,3,0;　0,3,0"):
            self.assertEqual(self.shadow(face, " 1， 0 ,-2 ", "--json").out, plain)

    def test_forms_of_numbers(self):
        plain = self.shadow(FLOOR, "1,0,-2", "--json").out
        for face, light in (("0.,.0,-0;+4,0e5,0;4.0,30e-1,0;0,0.3E+1,1e-400", "+1,0,-2.0"), (FLOOR, "1e0,000,-.2e1")):
            self.assertEqual(self.shadow(face, light, "--json").out, plain)

    def test_options_in_any_order_and_with_equals(self):
        plain = self.shadow(FLOOR, "-1,0,-2").out
        self.assertEqual(self.ok("shadow", "--light=-1,0,-2", f"--face={FLOOR}").out, plain)
        self.assertEqual(self.ok("--language", "zh", "shadow", "--light", "-1,0,-2", "--face", FLOOR).out, plain)

    def test_what_is_no_number_is_refused_with_the_accepted_form(self):
        for bad in ("", " ", "x", "1x", "x1", "inf", "-inf", "nan", "infinity", "0x10", "1e", "1e+", ".", "-", "+-1", "--1",
                    "1 2", "1.2.3", "1e999", "-1e309", "1_000", "１", "1d5", "1'0", "1%", "(1", "−1"):
            with self.subTest(bad=bad):
                for face in (f"{bad},0,0;4,0,0;4,3,0", f"0,0,0;4,{bad},0;4,3,0", f"0,0,0;4,0,0;4,3,0;0,3,{bad}"):
                    corner = next(i for i, text in enumerate(face.split(";"), 1) if bad in text.split(","))
                    message = self.refused(USAGE, "shadow", f"--face={face}", "--light", "1,0,-2").err
                    self.assertIn(f"“{face}”", message)
                    self.assertIn(f"第 {corner} 个角点", message)
                    self.assertIn('--face "0,0,0;4,0,0;4,3,0"', message)
                message = self.refused(USAGE, "shadow", "--face", FLOOR, "--light", f"0,1,{bad}").err
                self.assertIn(f"“0,1,{bad}”", message)
                self.assertIn("--light 1,0,-2", message)

    def test_wrong_counts_are_refused(self):
        for face, words in (("1,2,3", "有 1 个角点"), ("0,0,0;1,0,0", "有 2 个角点"), (FLOOR + ";1,1,1", "有 5 个角点"),
                            (FLOOR + ";", "第 5 个角点"), ("0,0,0;1,0,0;", "第 3 个角点"), (";0,0,0;1,0,0;1,1,0", "第 1 个角点"),
                            ("0,0,0;1,0,0;1,1", "第 3 个角点"), ("0,0,0;1,0,0,0;1,1,1", "第 2 个角点"), ("", "第 1 个角点"),
                            ("0 0 0;1 0 0;1 1 0", "第 1 个角点"), ("0,0,0:1,0,0:1,1,0", "第 1 个角点"),
                            ("1,2,3;" * 5000 + "1,2,3", "有 5001 个角点")):
            with self.subTest(face=face[:40]):
                message = self.refused(USAGE, "shadow", "--face", face, "--light", "1,0,-2").err
                self.assertIn(words, message)
                self.assertIn(f"“{face}”", message)
                self.assertIn('--face "0,0,0;4,0,0;4,3,0"', message)
        for light in ("", "1", "1,2", "1,2,3,4", "1;2;3", "1,2,3,", "1,2,3;4,5,6"):
            message = self.refused(USAGE, "shadow", "--face", FLOOR, "--light", light).err
            self.assertIn(f"“{light}”", message)
            self.assertIn("--light 1,0,-2", message)

    def test_a_zero_light_is_refused(self):
        for light in ("0,0,0", "-0,0.0,0e7", "1e-400,0,0"):
            message = self.refused(USAGE, "shadow", "--face", FLOOR, "--light", light).err
            self.assertIn("零向量没有方向", message)
            self.assertIn(f"“{light}”", message)

    def test_lights_that_begin_like_options_are_values(self):
        for light in ("-1,0,-2", "-.5,0,-2"):
            self.assertTrue(self.json(FLOOR, light)["lit"])
        self.assertIn("“-inf,0,0”", self.refused(USAGE, "shadow", "--face", FLOOR, "--light", "-inf,0,0").err)

    def test_missing_options(self):
        for arguments in ([], ["--light", "1,0,-2"], ["--json"]):
            message = self.refused(USAGE, "shadow", *arguments).err
            self.assertIn("没有给出 --face：", message)
            self.assertIn('"0,0,0;4,0,0;4,3,0"', message)
        for arguments in ([], ["--json"]):
            message = self.refused(USAGE, "shadow", "--face", FLOOR, *arguments).err
            self.assertIn("没有给出 --light：", message)
            self.assertIn("例如 1,0,-2", message)
        self.refused(USAGE, "shadow", "--face", FLOOR, "--light")
        self.assertIn("--light", self.refused(USAGE, "shadow", "--face", FLOOR, "--light", "--json").err)
        self.refused(USAGE, "shadow", FLOOR, "1,0,-2")
        self.refused(USAGE, "shadow", "--face", FLOOR, "--face", FLOOR, "--light", "1,0,-2")

    def test_arguments_that_are_no_text(self):
        for bad in (b"\xff\xfe", b"\x1b[31mred\x07", b"1,2,3\n", "1,2\u202e,3".encode(), b"x" * 100000):
            for arguments in ([b"--face", bad, b"--light", b"1,2,3"], [b"--face", FLOOR.encode(), b"--light", bad + b","]):
                answer = self.refused(USAGE, b"shadow", *arguments)
                self.assertNotRegex(answer.err, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]")


class Surroundings(ShadowTest):
    def test_help_shows_options_and_examples_that_run(self):
        text = self.ok("shadow", "--help").out
        for words in ('--face "x,y,z;x,y,z;x,y,z[;x,y,z]"', "--light dx,dy,dz", "--json"):
            self.assertIn(words, text)
        examples = re.findall(r"^  orvo (shadow .*)$", text, re.M)
        self.assertEqual(len(examples), 2)
        for example in examples:
            self.ok(text=example + "\n")
        self.assertIn("shadow", self.ok("--help").out)

    def test_same_at_the_prompt(self):
        self.assertEqual(self.ok(text=f"shadow --face {FLOOR} --light 1,0,-2\n").out, self.shadow(FLOOR, "1,0,-2").out)

    def test_completion(self):
        terminal = Terminal(self)
        terminal.wait_for("orvo> ")
        terminal.type("sh\t")
        terminal.wait_for("adow ")
        terminal.type("--f\t")
        terminal.wait_for("ace ")
        terminal.type("0,0,0;4,0,0;4,3,0 --li\t")
        terminal.wait_for("ght ")
        terminal.type("1,0,-2 --j\t")
        terminal.wait_for("son ")
        terminal.type("\n")
        terminal.wait_for('"shadowMatrix"')
        terminal.wait_for("orvo> ")
        terminal.type("quit\n")
        self.assertEqual(terminal.finish(), 0)


if __name__ == "__main__":
    main()
