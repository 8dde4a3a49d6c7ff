"""orvo entity: listing entities, showing and changing one group, and drawings that are never damaged."""
import json
import os
import re
import sys

from orvo_program import FAILED, USAGE, ProgramTest, main

try:
    import ezdxf
except ImportError:  # Debian's package serves Debian's own Python
    sys.path.append("/usr/lib/python3/dist-packages")
    import ezdxf

ENGLISH = {"LANG": "en_US.UTF-8"}

# Groups as (code, bytes); every line end and blank counts.
LINE = [(0, b"LINE"), (5, b"A1"), (8, b"\xc7\xbd"), (62, b"     3"), (10, b"1.50"), (20, b"2.0"), (30, b"0.0"),
        (11, b"4.0"), (21, b"5.0"), (31, b"0.0"), (39, b"2.500")]
OUTLINE = [(0, b"LWPOLYLINE"), (5, b"A2"), (8, b"0"), (90, b"2"), (70, b"0"), (10, b"0.0"), (20, b"0.0"),
           (10, b"7.0"), (20, b"0.0"), (290, b"1"), (330, b"A1"), (320, b"A1"), (160, b"5"), (310, b"00FF")]
NAMELESS = [(0, b"POINT"), (8, b"0"), (10, b"0.0"), (20, b"0.0")]
LAYER = [(0, b"LAYER"), (5, b"10"), (2, b"\xc7\xbd"), (70, b"0"), (62, b"7"), (6, b"CONTINUOUS")]


def drawing(*entities):
    groups = [(0, b"SECTION"), (2, b"HEADER"), (9, b"$ACADVER"), (1, b"AC1015"), (9, b"$DWGCODEPAGE"), (3, b"ANSI_936"),
              (0, b"ENDSEC"), (0, b"SECTION"), (2, b"TABLES"), (0, b"TABLE"), (2, b"LAYER"), (5, b"2"), (70, b"1"),
              *LAYER, (0, b"ENDTAB"), (0, b"ENDSEC"), (0, b"SECTION"), (2, b"ENTITIES"),
              *(group for entity in entities for group in entity), (0, b"ENDSEC"), (0, b"EOF")]
    return b"".join(b"%3d\r\n%s\r\n" % group for group in groups)


class Entity(ProgramTest):
    def setUp(self):
        super().setUp()
        self.put("a.dxf", drawing(LINE, OUTLINE, NAMELESS))

    def path(self, name):
        return os.path.join(self.home, name)

    def put(self, name, data):
        with open(self.path(name), "wb") as stream:
            stream.write(data)

    def bytes_of(self, name):
        with open(self.path(name), "rb") as stream:
            return stream.read()

    def get(self, *arguments):
        return self.ok("entity", "a.dxf", "--get", *arguments).out.removesuffix("\n")

    def untouched(self, before=None):
        """The drawing is as it was, and nothing lies beside it."""
        self.assertEqual(self.bytes_of("a.dxf"), before or drawing(LINE, OUTLINE, NAMELESS))
        self.assertEqual([name for name in os.listdir(self.home) if not name.startswith(".")], ["a.dxf"])

    def test_lists_handle_type_and_layer(self):
        answer = self.ok("entity", "a.dxf", "--list", **ENGLISH)
        rows = [line.split() for line in answer.out.splitlines()]
        self.assertEqual(rows, [["Handle", "Type", "Layer"], ["A1", "LINE", "墙"], ["A2", "LWPOLYLINE", "0"],
                                ["-", "POINT", "0"], ["Entities:", "3"]])
        self.assertEqual(self.ok("entity", "a.dxf", **ENGLISH).out, answer.out)
        self.untouched()

    def test_lists_as_json(self):
        expected = [{"handle": "A1", "type": "LINE", "layer": "墙"}, {"handle": "A2", "type": "LWPOLYLINE", "layer": "0"},
                    {"handle": None, "type": "POINT", "layer": "0"}]
        self.assertEqual(self.ok("entity", "a.dxf", "--json").json(), expected)
        self.assertEqual(self.ok("entity", "--list", "--json", "a.dxf").json(), expected)

    def test_lists_nothing(self):
        self.put("a.dxf", drawing())
        self.assertEqual(self.ok("entity", "a.dxf", "--json").json(), [])
        self.assertIn("Entities: 0", self.ok("entity", "a.dxf", **ENGLISH).out)

    def test_shows_every_type_of_value(self):
        for handle, code, text, value in (
                ("A1", 0, "LINE", "LINE"), ("A1", 5, "A1", "A1"), ("A1", 8, "墙", "墙"), ("A1", 62, "3", 3),
                ("A1", 10, "1.5,2,0", [1.5, 2.0, 0.0]), ("A1", 39, "2.5", 2.5), ("A2", 90, "2", 2),
                ("A2", 10, "0,0", [0.0, 0.0]), ("A2", 290, "1", 1), ("A2", 330, "A1", "A1"), ("A2", 320, "A1", "A1"),
                ("10", 2, "墙", "墙"), ("A1", -1, "A1", "A1")):
            with self.subTest(handle=handle, code=code):
                self.assertEqual(self.get(handle, str(code)), text)
                document = self.ok("entity", "a.dxf", "--get", handle, str(code), "--json").json()
                self.assertEqual((document["handle"], document["code"], document["value"]), (handle, code, value))
        self.untouched()

    def test_handles_are_read_in_either_case_and_with_zeros(self):
        for handle in ("a1", "00A1"):
            self.assertEqual(self.get(handle, "62"), "3")

    def test_shows_a_long_text_whole(self):
        text = "窗" * 100000
        self.put("a.dxf", drawing([(0, b"TEXT"), (5, b"A1"), (1, text.encode("gbk"))]))
        self.assertEqual(self.get("A1", "1"), text)

    def test_changes_one_value_and_no_other_byte(self):
        before = self.bytes_of("a.dxf")
        for handle, code, value, old, new in (
                ("A1", 62, "256", b" 62\r\n     3", b" 62\r\n256"),
                ("A1", 62, "-32768", b" 62\r\n     3", b" 62\r\n-32768"),
                ("A1", 39, "0.1", b" 39\r\n2.500", b" 39\r\n0.1"),
                ("A1", 39, "-1e-3", b" 39\r\n2.500", b" 39\r\n-0.001"),
                ("A1", 10, "1.5,-7.25,0", b"1.50\r\n 20\r\n2.0\r\n", b"1.50\r\n 20\r\n-7.25\r\n"),
                ("A1", 11, "4，5，6", b" 31\r\n0.0", b" 31\r\n6"),
                ("A1", 8, "窗 W-1", b"LINE\r\n  5\r\nA1\r\n  8\r\n\xc7\xbd", b"LINE\r\n  5\r\nA1\r\n  8\r\n\xb4\xb0 W-1"),
                ("A1", 8, "--json", b"LINE\r\n  5\r\nA1\r\n  8\r\n\xc7\xbd", b"LINE\r\n  5\r\nA1\r\n  8\r\n--json"),
                ("A1", 8, "", b"LINE\r\n  5\r\nA1\r\n  8\r\n\xc7\xbd", b"LINE\r\n  5\r\nA1\r\n  8\r\n"),
                ("A2", 10, "-1,2", b" 10\r\n0.0\r\n 20\r\n0.0\r\n 10\r\n7.0", b" 10\r\n-1\r\n 20\r\n2\r\n 10\r\n7.0"),
                ("A2", 90, "-2147483648", b" 90\r\n2", b" 90\r\n-2147483648"),
                ("A2", 290, "0", b"290\r\n1", b"290\r\n0"),
                ("A2", 330, "10", b"330\r\nA1", b"330\r\n10"),
                ("A2", 330, "0", b"330\r\nA1", b"330\r\n0"),
                ("A2", 320, "beef", b"320\r\nA1", b"320\r\nbeef"),
                ("10", 62, "1", b" 62\r\n7", b" 62\r\n1")):
            with self.subTest(handle=handle, code=code, value=value):
                self.put("a.dxf", before)
                self.assertEqual(before.count(old), 1)
                self.ok("entity", "a.dxf", "--set", handle, str(code), value)
                self.assertEqual(self.bytes_of("a.dxf"), before.replace(old, new))
                self.assertEqual(self.bytes_of("a.dxf.bak"), before)

    def test_tells_what_it_did(self):
        answer = self.ok("entity", "a.dxf", "--set", "A1", "62", "5", **ENGLISH)
        self.assertEqual(answer.out, 'group 62: "3" changed to "5"\nSaved to a.dxf; the file before is a.dxf.bak\n')
        answer = self.ok("entity", "a.dxf", "--set", "A1", "62", "6", "--json")
        self.assertEqual(answer.json(), {"handle": "A1", "type": "LINE", "code": 62, "value": 6, "changed": True})

    def test_names_the_backup_that_lies_beside_what_a_link_leads_to(self):
        os.mkdir(self.path("kept"))
        before = drawing(LINE)
        self.put("kept/house.dxf", before)
        for name, target in (("link.dxf", "kept/house.dxf"), ("whole.dxf", self.path("kept/house.dxf")),
                             ("second.dxf", "link.dxf")):
            with self.subTest(name=name):
                self.put("kept/house.dxf", before)
                os.symlink(target, self.path(name))
                answer = self.ok("entity", name, "--set", "A1", "62", "5", **ENGLISH)
                saved, backup = re.fullmatch("Saved to (.*); the file before is (.*)", answer.out.splitlines()[1]).groups()
                self.assertEqual(saved, name)
                self.assertTrue(os.path.samefile(self.path(backup), self.path("kept/house.dxf.bak")))
                self.assertEqual(self.bytes_of(backup), before)
                os.remove(self.path("kept/house.dxf.bak"))

    def test_a_point_18_has_its_z(self):
        point = [(18, b"1.0"), (28, b"2.0"), (38, b"3.0")]
        self.put("a.dxf", drawing([(0, b"X"), (5, b"A1"), *point], [(0, b"X"), (5, b"A2"), *point, (38, b"4.0")]))
        self.assertEqual(self.get("A1", "18"), "1,2,3")
        self.refused(FAILED, "entity", "a.dxf", "--get", "A1", "38")
        self.assertEqual(self.get("A2", "38"), "4")
        self.ok("entity", "a.dxf", "--set", "A2", "18", "5,6,7")
        self.assertEqual(self.get("A2", "18"), "5,6,7")
        self.assertEqual(self.get("A2", "38"), "4")
        with open(self.path("a.dxf"), encoding="gbk") as stream:
            tags = [tag for tag in ezdxf.lldxf.tagger.tag_compiler(ezdxf.lldxf.tagger.ascii_tags_loader(stream))
                    if tag.code in (18, 28, 38)]
        self.assertEqual([(tag.code, tag.value) for tag in tags], [(18, (1, 2, 3)), (18, (5, 6, 7)), (38, 4)])

    def test_a_character_that_the_code_page_lacks(self):
        self.ok("entity", "a.dxf", "--set", "A1", "8", "𠮷é")
        self.assertEqual(self.get("A1", "8"), "𠮷é")
        self.assertIn(b"\\U+", self.bytes_of("a.dxf"))

    def test_writes_nothing_without_a_change(self):
        for code, value in (("62", "3"), ("62", "+3"), ("39", "2.5"), ("10", "1.5,2,0"), ("8", "墙")):
            with self.subTest(code=code, value=value):
                answer = self.ok("entity", "a.dxf", "--set", "A1", code, value, **ENGLISH)
                self.assertIn("was not touched", answer.out)
                document = self.ok("entity", "a.dxf", "--set", "A1", code, value, "--json").json()
                self.assertIs(document["changed"], False)
                self.untouched()

    def test_refuses_what_is_not_in_the_drawing(self):
        for arguments, part in ((["--get", "FF", "8"], "FF"), (["--set", "FF", "8", "0"], "FF"),
                                (["--get", "A1", "40"], "40"), (["--set", "A1", "40", "1"], "40"),
                                (["--get", "A1", "999"], "999"), (["--set", "A1", "-2", "A2"], "-2")):
            with self.subTest(arguments=arguments):
                self.assertIn(part, self.refused(FAILED, "entity", "a.dxf", *arguments).err)
                self.untouched()

    def test_refuses_codes_without_a_type(self):
        for code in ("160", "310", "80", "-3", "1072", "5003"):
            with self.subTest(code=code):
                self.assertIn(code, self.refused(USAGE, "entity", "a.dxf", "--get", "A2", code).err)
                self.assertIn(code, self.refused(USAGE, "entity", "a.dxf", "--set", "A2", code, "1").err)
        for code, point in (("20", "10"), ("30", "10"), ("31", "11"), ("1030", "1010")):
            self.assertEqual(self.refused(USAGE, "entity", "a.dxf", "--get", "A1", code, **ENGLISH).err,
                             f"orvo: group {code} is one coordinate of a point: use group {point} for the whole point\n")
        self.untouched()

    def test_refuses_values_that_do_not_fit(self):
        for handle, code, values in (
                ("A1", "62", ("", "x", "1.5", "1 ", "32768", "-32769", "99999999999999999999", "--5", "0x10")),
                ("A2", "90", ("x", "2147483648", "-2147483649")),
                ("A2", "290", ("2", "-1", "true")),
                ("A1", "39", ("", "x", "1,5", "inf", "nan", "1e999", "-1e999")),
                ("A1", "10", ("", "1", "1,2", "1,2,3,4", "1,2,x", "1,2,", "1,2,nan", "1,2,1e999")),
                ("A2", "10", ("1", "1,2,3", "1,2,0")),
                ("A1", "8", ("two\nlines", "two\rlines")),
                ("A2", "330", ("", "x", "FF", "A1 ", "11111111111111111")),
                ("A2", "320", ("", "x", "11111111111111111"))):
            for value in values:
                with self.subTest(code=code, value=value):
                    self.assertIn(code, self.refused(USAGE, "entity", "a.dxf", "--set", handle, code, value).err)
                    self.untouched()

    def test_refuses_to_change_what_an_object_is(self):
        for handle, code, value in (("A1", "0", "ARC"), ("A1", "5", "A9"), ("A1", "-1", "A2"), ("10", "5", "A9")):
            with self.subTest(code=code):
                self.assertIn(code, self.refused(USAGE, "entity", "a.dxf", "--set", handle, code, value).err)
                self.untouched()

    def test_wrong_usage(self):
        for arguments in ([], [""], ["a.dxf", "--get"], ["a.dxf", "--get", "A1"], ["a.dxf", "--set", "A1", "62"],
                          ["a.dxf", "--list", "--get", "A1", "8"], ["a.dxf", "--get", "A1", "8", "--set", "A1", "8", "0"],
                          ["a.dxf", "--get", "x", "8"], ["a.dxf", "--get", "0", "8"], ["a.dxf", "--get", "-A1", "8"],
                          ["a.dxf", "--get", "11111111111111111", "8"], ["a.dxf", "--get", "A1", "x"],
                          ["a.dxf", "--get", "A1", "8.0"], ["a.dxf", "--get", "A1", "99999999999"],
                          ["a.dxf", "--get", "A1", "8", "--get", "A2", "8"], ["a.dxf", "b.dxf"]):
            with self.subTest(arguments=arguments):
                self.refused(USAGE, "entity", *arguments)
                self.untouched()

    def test_drawings_that_cannot_be_read(self):
        whole = self.bytes_of("a.dxf")
        os.mkdir(self.path("folder.dxf"))
        for name, data in (("missing.dxf", None), ("folder.dxf", None), ("empty.dxf", b""), ("text.dxf", b"no drawing\n"),
                           ("short.dxf", whole[:len(whole) // 2])):
            if data is not None:
                self.put(name, data)
            for arguments in ([], ["--get", "A1", "8"], ["--set", "A1", "8", "0"]):
                with self.subTest(name=name, arguments=arguments):
                    self.assertIn(name, self.refused(FAILED, "entity", name, *arguments).err)

    def test_a_full_disk_leaves_what_was_there(self):
        before = self.bytes_of("a.dxf")
        answer = self.orvo("entity", "a.dxf", "--set", "A1", "62", "5", largest_file=100)
        self.assertEqual((answer.code, answer.out), (FAILED, ""), answer)
        self.assertIn("a.dxf", answer.err)
        self.assertEqual(self.bytes_of("a.dxf"), before)

    def test_a_closed_folder_leaves_what_was_there(self):
        before = self.bytes_of("a.dxf")
        os.mkdir(self.path("closed"))
        self.put("closed/a.dxf", before)
        self.become_ordinary_user()
        os.chmod(self.path("closed"), 0o500)
        self.assertIn("a.dxf", self.refused(FAILED, "entity", "closed/a.dxf", "--set", "A1", "62", "5").err)
        self.assertEqual(self.bytes_of("closed/a.dxf"), before)

    def test_works_at_the_prompt(self):
        answer = self.ok(text='entity a.dxf --set A1 8 "new layer"\nentity a.dxf --get A1 8\n', **ENGLISH)
        self.assertEqual(answer.out.splitlines()[-1], "new layer")


class Judge(ProgramTest):
    """Drawings that another library makes, and reads again after a change."""

    VERSIONS = ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018")

    def make(self, version):
        document = ezdxf.new(version, setup=True)
        document.encoding = "gbk"  # up to R2004; later drawings are in UTF-8
        document.layers.add("墙")
        space = document.modelspace()
        entities = {
            "line": space.add_line((1.5, 2, 0), (4, 5, 6), dxfattribs={"layer": "墙", "color": 3}),
            "text": space.add_text("北窗", dxfattribs={"height": 2.5, "rotation": 45}),
            "circle": space.add_circle((1, 2), 3.25),
        }
        if version != "R12":
            entities["outline"] = space.add_lwpolyline([(0, 0), (7, 0), (7, 4)])
        path = os.path.join(self.home, f"{version}.dxf")
        document.saveas(path)
        return path, {name: entity.dxf.handle for name, entity in entities.items()}

    def reread(self, path):
        document = ezdxf.readfile(path)
        self.assertEqual(document.audit().errors, [])
        return document

    def test_what_was_set_is_what_others_read(self):
        for version in self.VERSIONS:
            with self.subTest(version=version):
                path, handles = self.make(version)
                for name, code, value in (("line", "62", "5"), ("line", "11", "-1,2.5,1e3"), ("line", "8", "0"),
                                          ("text", "1", "南窗 é"), ("text", "50", "30"), ("circle", "40", "0.1")):
                    self.ok("entity", path, "--set", handles[name], code, value)
                entity = self.reread(path).entitydb
                line, text, circle = (entity[handles[name]] for name in ("line", "text", "circle"))
                self.assertEqual((line.dxf.color, line.dxf.layer), (5, "0"))
                self.assertEqual(tuple(line.dxf.end), (-1, 2.5, 1000))
                self.assertEqual(tuple(line.dxf.start), (1.5, 2, 0))
                self.assertEqual((text.dxf.text, text.dxf.rotation, text.dxf.height), ("南窗 é", 30, 2.5))
                self.assertEqual(circle.dxf.radius, 0.1)

    def test_lists_what_others_put_in(self):
        for version in self.VERSIONS:
            with self.subTest(version=version):
                path, _ = self.make(version)
                expected = [{"handle": entity.dxf.handle, "type": entity.dxftype(), "layer": entity.dxf.layer}
                            for entity in ezdxf.readfile(path).modelspace()]
                self.assertEqual(json.loads(self.ok("entity", path, "--json").out), expected)

    def test_shows_what_others_read(self):
        for version in self.VERSIONS[1:]:
            with self.subTest(version=version):
                path, handles = self.make(version)
                for name, code, text in (("text", "1", "北窗"), ("text", "50", "45"), ("line", "10", "1.5,2,0"),
                                         ("outline", "90", "3"), ("line", "8", "墙")):
                    self.assertEqual(self.ok("entity", path, "--get", handles[name], code).out, text + "\n")


if __name__ == "__main__":
    main()
