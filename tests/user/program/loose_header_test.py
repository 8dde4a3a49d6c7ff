"""Drawings with header variables behind the header's end: each subcommand reads them and warns."""
import os

from orvo_program import FAILED, OK, ProgramTest, main

HEADER = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n0\nENDSEC\n9\n$INSUNITS\n70\n6\n"
BODY = ("0\nSECTION\n2\nENTITIES\n"
        "0\n3DFACE\n5\n1A\n8\nWINDOW\n10\n0\n20\n0\n30\n1\n11\n2\n21\n0\n31\n1\n12\n2\n22\n0\n32\n3\n13\n0\n23\n0\n33\n3\n"
        "0\nLWPOLYLINE\n5\n1B\n8\nAREA\n90\n4\n70\n1\n10\n0\n20\n0\n10\n4\n20\n0\n10\n4\n20\n3\n10\n0\n20\n3\n"
        "0\nENDSEC\n0\nEOF\n")
WARNING = "图形文件第 11 行有错：文件头变量在文件头结束（ENDSEC）之后，已照样读取。"


class LooseHeader(ProgramTest):
    def setUp(self):
        super().setUp()
        self.path = os.path.join(self.home, "loose.dxf")
        self.put(HEADER + BODY)

    def put(self, text):
        with open(self.path, "w", encoding="utf-8", newline="") as stream:
            stream.write(text)

    def test_every_subcommand_reads_it_and_warns(self):
        for arguments in (("entity", self.path, "--list", "--json"), ("entity", self.path, "--get", "1A", "8"),
                          ("analyse", self.path, "--facing", "270", "--json"), ("points", self.path, "--areas", "AREA", "--json")):
            with self.subTest(arguments=arguments):
                answer = self.orvo(*arguments)
                self.assertEqual(answer.code, OK, answer)
                self.assertEqual(answer.err.count(WARNING), 1, answer)
                self.assertNotIn("ENDSEC", answer.out)

    def test_the_unit_counts(self):
        answer = self.orvo("analyse", self.path, "--facing", "270", "--json")
        window = answer.json()["windows"][0]
        self.assertEqual((window["width"], window["height"]), (2.0, 2.0), "metres")

    def test_a_change_keeps_every_other_byte(self):
        answer = self.orvo("entity", self.path, "--set", "1A", "8", "WALL")
        self.assertEqual(answer.code, OK, answer)
        with open(self.path, encoding="utf-8", newline="") as stream:
            self.assertEqual(stream.read(), HEADER + BODY.replace("8\nWINDOW\n", "8\nWALL\n"))

    def test_in_english(self):
        answer = self.orvo("entity", self.path, "--language", "en")
        self.assertIn("Line 11 of the drawing's file is wrong: header variables stand behind", answer.err)

    def test_sound_drawings_have_no_warning(self):
        self.put(HEADER.replace("0\nENDSEC\n", "") + "0\nENDSEC\n" + BODY)
        self.assertEqual(self.orvo("entity", self.path).err, "")
        self.put(BODY.replace("0\nEOF\n", "9\n$INSUNITS\n70\n6\n0\nEOF\n"))
        self.assertEqual(self.orvo("entity", self.path).code, FAILED, "behind another section")


if __name__ == "__main__":
    main()
