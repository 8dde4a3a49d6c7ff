"""Drawings of every version with entities of ours: ezdxf finds each where it belongs, and all else is as it was."""
import os
import re
import shutil
import subprocess
import tempfile
import unittest

import ezdxf
from drawings_test import VERSIONS, is_utf8, make
from ezdxf.addons import r12writer

REDRAWER = os.environ["ORVO_REDRAW_DRAWING"]
TEXT = "日照 3.5 é"
SECOND = "ORVO_RESULT_日照"
# For drawings that do not say in which code page they are.
PLAIN = "ORVO_RESULT_2"
HEAD = b"  9\n$HANDSEED\n  5\n"


def entries(data):
    """A drawing cut before each group 0."""
    return data.split(b"\n  0\n")


def without_seed(data):
    head, seed, tail = data.partition(HEAD)
    return head + seed + tail[tail.index(b"\n"):] if seed else data


class Redraw(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-redraw-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.path = os.path.join(self.folder, "in.dxf")
        self.out = os.path.join(self.folder, "out.dxf")

    def redraw(self, source, target, *text, layer=SECOND):
        process = subprocess.run([REDRAWER, source, target, layer, *text], capture_output=True, timeout=60, check=False)
        self.assertEqual((process.returncode, process.stderr.decode()), (0, ""))
        with open(target, "rb") as file:
            return file.read()

    def read(self, path):
        with open(path, "rb") as file:
            return file.read()

    def complaints(self, path):
        auditor = ezdxf.readfile(path).audit()
        self.assertEqual([error.message for error in auditor.errors], [])
        # What ezdxf itself adds as it reads has the handles behind those of the file.
        return [(fix.code, re.sub("#[0-9A-F]+", "#", fix.message)) for fix in auditor.fixes]

    def results(self, document):
        return [entity for entity in document.modelspace() if entity.dxf.layer.upper().startswith("ORVO_RESULT")]

    def assert_results(self, document, layer=SECOND):
        """The four entities, as the rules of the format place them."""
        line, face, polyline, text = self.results(document)
        version = document.dxfversion
        owner = document.modelspace().layout_key
        self.assertEqual((line.dxftype(), line.dxf.start.xyz, line.dxf.end.xyz),
                         ("LINE", (1, 2, 3), (4, 5.5, -6.25)))
        self.assertEqual(line.dxf.color, 256)
        self.assertEqual((face.dxftype(), [point.xyz for point in face.wcs_vertices()][:3]),
                         ("3DFACE", [(0, 0, 1), (9, 0, 1), (9, 9, 2)]))
        self.assertEqual(face.dxf.color, 1)
        self.assertEqual(face.rgb, (255, 128, 0) if version >= "AC1018" else None)
        if version <= "AC1009":
            self.assertEqual(polyline.dxftype(), "POLYLINE")
            self.assertTrue(polyline.is_2d_polyline and polyline.is_closed)
            points = [point.xyz for point in polyline.points()]  # of a plane like the world's
        else:
            self.assertEqual((polyline.dxftype(), polyline.closed), ("LWPOLYLINE", True))
            points = [point.xyz for point in polyline.vertices_in_wcs()]
        self.assertEqual(points, [(0, 0, 4.5), (10, 0, 4.5), (10, 1e-7, 4.5)])
        self.assertEqual(polyline.dxf.layer, layer)
        self.assertEqual((ezdxf.decode_dxf_unicode(text.dxf.text), text.dxf.height), (TEXT, 2.5))
        # Seen from the south x runs east and y up; z is the distance to the south.
        self.assertEqual(text.ocs().to_wcs(text.get_placement()[1]).xyz, (3, 2, 7))
        self.assertEqual(text.get_align_enum().name, "MIDDLE_CENTER")
        if version > "AC1009":
            self.assertEqual({entity.dxf.owner for entity in self.results(document)}, {owner})

    def test_entities_are_found_where_they_belong(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                make(version, self.path)
                self.redraw(self.path, self.out, TEXT)
                self.assertEqual(self.complaints(self.out), self.complaints(self.path))
                document = ezdxf.readfile(self.out)
                self.assert_results(document)
                layer = document.layers.get("ORVO_RESULT")
                self.assertEqual((layer.color, layer.dxf.linetype.upper()), (3, "CONTINUOUS"))
                if version != "R12":
                    zero = document.layers.get("0")
                    self.assertEqual((layer.dxf.owner, layer.dxf.plotstyle_handle),
                                     (zero.dxf.owner, zero.dxf.plotstyle_handle))
                before = ezdxf.readfile(self.path)
                handles = [int(entity.dxf.handle, 16) for entity in self.results(document)]
                self.assertGreaterEqual(min(handles), int(before.header["$HANDSEED"], 16))

    def test_all_else_stays_as_it_was(self):
        for version in VERSIONS:
            for line_end in (b"\n", b"\r\n"):
                with self.subTest(version=version, line_end=line_end):
                    make(version, self.path)
                    data = self.read(self.path)
                    with open(self.path, "wb") as file:
                        file.write(data.replace(b"\n", line_end))
                    after = self.redraw(self.path, self.out, TEXT)
                    self.assertEqual(after.count(b"\n"), after.count(line_end))
                    old, new = entries(data), entries(after.replace(line_end, b"\n"))
                    # What has changed is the header, for its seed, and the head of the layers, for their number.
                    changed = [entry for entry in old if entry not in set(new)]
                    self.assertEqual(len(changed), 2)
                    self.assertIn(HEAD, changed[0])
                    self.assertTrue(changed[1].startswith(b"TABLE\n  2\nLAYER\n"))
                    self.assertEqual([entry for entry in new if entry in set(old)],
                                     [entry for entry in old if entry in set(new)])
                    # In front of the end of model space, 4 entities: in R12 a polyline is 5.
                    added = [entry for entry in new if entry not in set(old)]
                    self.assertEqual(len(added), 2 + 2 + (8 if version == "R12" else 4))

    def test_results_are_removed_and_made_anew(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                make(version, self.path)
                first = self.redraw(self.path, self.out, TEXT)
                second = self.redraw(self.out, self.out, TEXT)
                self.assertEqual(len(entries(first)), len(entries(second)))
                self.assertEqual(self.complaints(self.out), self.complaints(self.path))
                self.assert_results(ezdxf.readfile(self.out))
                emptied = self.redraw(self.out, self.out)
                self.assertEqual(self.complaints(self.out), self.complaints(self.path))
                self.assertEqual(self.results(ezdxf.readfile(self.out)), [])
                # The seed, the number of layers and the layers are what remains.
                old, new = entries(without_seed(self.read(self.path))), entries(without_seed(emptied))
                added = [entry for entry in new if entry not in set(old)]
                self.assertEqual([entry.split(b"\n")[0] for entry in added], [b"TABLE", b"LAYER", b"LAYER"])
                self.assertEqual(len(new), len(old) + 2)
                self.redraw(self.out, self.out, TEXT)
                self.assertEqual(without_seed(self.redraw(self.out, self.out)), without_seed(emptied))

    def test_texts_are_in_the_code_page(self):
        for version in VERSIONS:
            make(version, self.path)
            data = self.redraw(self.path, self.out, "日照é")
            # é is not in ANSI_936 but as an accented letter of pinyin.
            encoding = "utf-8" if is_utf8(version) else "gbk"
            self.assertIn(b"\n  1\n" + "日照é".encode(encoding) + b"\n", data, version)
            data = self.redraw(self.path, self.out, "ไ")
            self.assertIn(b"\n  1\n" + ("ไ".encode() if is_utf8(version) else b"\\U+0E44") + b"\n", data, version)

    def test_drawings_without_handles_and_tables(self):
        with r12writer(self.path) as drawing:
            drawing.add_line((0, 0), (5, 1), layer="A")
        self.assertNotIn(b"TABLES", self.read(self.path))
        data = self.redraw(self.path, self.out, TEXT, layer=PLAIN)
        self.assertNotIn(b"$HANDSEED", data)
        self.assertEqual(self.complaints(self.out), self.complaints(self.path))
        document = ezdxf.readfile(self.out)
        self.assert_results(document, PLAIN)
        self.assertEqual(len(document.modelspace()), 5)
        self.assertIn("ORVO_RESULT", document.layers)

    def test_drawings_that_hold_next_to_nothing(self):
        header = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n{}\n  0\nENDSEC\n"
        for head in ("", header.format("AC1009"), header.format("AC1015"), header.format("AC1032")):
            with self.subTest(head=head), open(self.path, "w", encoding="ascii") as file:
                file.write(head + "  0\nEOF\n")
            self.redraw(self.path, self.out, TEXT, layer=PLAIN)
            document = ezdxf.readfile(self.out)
            self.assertEqual([error.message for error in document.audit().errors], [])
            self.assert_results(document, PLAIN)


if __name__ == "__main__":
    unittest.main()
