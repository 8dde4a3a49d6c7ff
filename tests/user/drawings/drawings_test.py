"""Drawings of every version by ezdxf: they come back byte for byte, and one change changes one thing."""
import os
import shutil
import subprocess
import tempfile
import unittest

import ezdxf
from ezdxf.addons import r12writer
from ezdxf.lldxf import tagger

EDITOR = os.environ["ORVO_EDIT_DRAWING"]
VERSIONS = ("R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018")
UTF8_FROM = "R2007"


def is_utf8(version):
    return VERSIONS.index(version) >= VERSIONS.index(UTF8_FROM)


def add_block(document):
    block = document.blocks.new("窗户")
    block.add_line((0, 0), (1, 0), dxfattribs={"layer": "墙体"})
    block.add_attdef("编号", (0, 1), "C-1", dxfattribs={"height": 0.5})
    for number in range(3):
        insert = document.modelspace().add_blockref("窗户", (5 * number, 0), dxfattribs={"layer": "墙体"})
        insert.add_auto_attribs({"编号": f"窗 {number}"})


def make(version, path):
    document = ezdxf.new(version, setup=True)
    if not is_utf8(version):
        document.header["$DWGCODEPAGE"] = "ANSI_936"
        document.encoding = "gbk"
    document.header["$INSUNITS"] = 6
    document.appids.add("ORVO")
    for name in ("墙体", "楼板", "WALL"):
        document.layers.add(name, color=3)
    space = document.modelspace()
    space.add_text("北京：誠 ° ± ∅", dxfattribs={"layer": "墙体", "height": 2.5})
    space.add_line((0, 0, 0), (1.25, -3.5, 1e-7), dxfattribs={"layer": "墙体"})
    space.add_polyline3d([(0, 0, 0), (1, 0, 1), (1, 1, 2)], dxfattribs={"layer": "楼板"})
    mesh = space.add_polyface(dxfattribs={"layer": "楼板"})
    mesh.append_faces([[(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)], [(0, 0, 0), (1, 0, 0), (0, 0, 1)]])
    mesh.optimize()
    space.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)])
    add_block(document)
    if version != "R12":
        space.add_lwpolyline([(0, 0), (10, 0), (10, 10)], dxfattribs={"layer": "墙体"})
        space.add_mtext("第一行\\P第二行 " + "很长" * 200, dxfattribs={"layer": "WALL"})
        with space.add_mesh().edit_data() as data:
            data.vertices = [(0, 0, 0), (1, 0, 0), (1, 1, 0)]
            data.faces = [(0, 1, 2)]
        space.add_hatch(color=2).paths.add_polyline_path([(0, 0), (1, 0), (1, 1)], is_closed=True)
        space.add_linear_dim(base=(0, 2), p1=(0, 0), p2=(3, 0)).render()
    document.saveas(path)
    return document


def content(path):
    """Everything that ezdxf finds in a drawing, by handle."""
    document = ezdxf.readfile(path)
    found = {}
    for entity in document.entitydb.values():
        attributes = {key: str(value) for key, value in entity.dxfattribs().items()}
        more = {}
        if entity.dxftype() == "LWPOLYLINE":
            more["points"] = [tuple(point) for point in entity.get_points()]
        if entity.dxftype() == "MTEXT":
            more["text"] = entity.text
        if entity.dxftype() == "MESH":
            more["mesh"] = (str(entity.vertices), [tuple(face) for face in entity.faces])
        if entity.dxftype() == "HATCH":
            more["paths"] = str([path.vertices for path in entity.paths])
        xdata = {}
        if entity.xdata:
            # The name of the application may stand before its data or not; it is the key anyway.
            for appid, tags in entity.xdata.data.items():
                xdata[appid] = [tuple(tag) for tag in tags if tag.code != 1001]
        found[entity.dxf.handle] = (entity.dxftype(), attributes, more, xdata)
    # These ezdxf makes up as it reads.
    header = {name: str(document.header[name]) for name in document.header.varnames()
              if not name.startswith("$TD") and not name.endswith("GUID")}
    return found, header


class Drawings(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="orvo-drawings-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.path = os.path.join(self.folder, "in.dxf")
        self.out = os.path.join(self.folder, "out.dxf")

    def edit(self, *changes):
        process = subprocess.run([EDITOR, self.path, self.out, *map(str, changes)], capture_output=True, timeout=60,
                                 check=False)
        self.assertEqual((process.returncode, process.stderr.decode()), (0, ""))
        return process.stdout.decode()

    def bytes_of(self, path):
        with open(path, "rb") as file:
            return file.read()

    def audit(self):
        """The drawing that we saved: no errors, and nothing to be fixed but what the one before had too."""
        self.assertEqual(self.complaints(self.out), self.complaints(self.path))
        return ezdxf.readfile(self.out)

    def complaints(self, path):
        auditor = ezdxf.readfile(path).audit()
        self.assertEqual([error.message for error in auditor.errors], [])
        return [(fix.code, fix.message) for fix in auditor.fixes]

    def first(self, document, kind):
        return document.modelspace().query(kind).first

    def assert_only(self, handle, change):
        """Between the two files only one object differs, and in it only what `change` does to it."""
        before, header_before = content(self.path)
        after, header_after = content(self.out)
        self.assertEqual(header_before, header_after)
        change(before[handle])
        self.assertEqual(before.keys(), after.keys())
        self.assertEqual([(before[key], after[key]) for key in before if before[key] != after[key]], [])

    def assert_one_line(self, old, new):
        before = self.bytes_of(self.path).split(b"\n")
        after = self.bytes_of(self.out).split(b"\n")
        self.assertEqual(len(before), len(after))
        self.assertEqual([(a, b) for a, b in zip(before, after) if a != b], [(old, new)])

    def test_every_byte_comes_back(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                document = make(version, self.path)
                self.assertGreater(len(document.modelspace()), 5)
                # $INSUNITS came with R2000; ezdxf leaves it out of older drawings.
                units = self.edit()
                self.assertEqual(", metres" in units, version != "R12")
                self.assertEqual(self.bytes_of(self.out), self.bytes_of(self.path))

    def test_a_layer_is_changed_and_nothing_else(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                line = self.first(make(version, self.path), "LINE")
                self.edit(line.dxf.handle, 8, "楼板")
                encoding = "utf-8" if is_utf8(version) else "gbk"
                self.assert_one_line("墙体".encode(encoding), "楼板".encode(encoding))
                self.assertEqual(self.first(self.audit(), "LINE").dxf.layer, "楼板")
                self.assert_only(line.dxf.handle, lambda entity: entity[1].update(layer="楼板"))

    def test_a_text_is_changed_to_one_that_the_code_page_lacks(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                text = self.first(make(version, self.path), "TEXT")
                new = "太阳 é ไทย"
                self.edit(text.dxf.handle, 1, new)
                written = self.first(self.audit(), "TEXT").dxf.text
                # ezdxf resolves the escapes of older drawings only when it is asked to.
                self.assertEqual(ezdxf.decode_dxf_unicode(written), new)
                self.assertEqual(written == new, is_utf8(version))
                self.assert_only(text.dxf.handle, lambda entity: entity[1].update(text=written))

    def test_a_coordinate_a_vertex_and_an_attribute_are_changed(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                document = make(version, self.path)
                polyline = next(line for line in document.modelspace().query("POLYLINE") if line.is_3d_polyline)
                attribute = self.first(document, "INSERT").attribs[0]
                self.edit(polyline.vertices[1].dxf.handle, 10, "77.5", attribute.dxf.handle, 1, "北窗",
                          self.first(document, "LINE").dxf.handle, 30, "-8")
                changed = self.audit()
                self.assertEqual(self.first(changed, "LINE").dxf.start.z, -8)
                polyline = next(line for line in changed.modelspace().query("POLYLINE") if line.is_3d_polyline)
                self.assertEqual(polyline.vertices[1].dxf.location.x, 77.5)
                self.assertEqual(self.first(changed, "INSERT").attribs[0].dxf.text, "北窗")

    def test_extended_data_is_added(self):
        for version in VERSIONS:
            with self.subTest(version=version):
                line = self.first(make(version, self.path), "LINE")
                self.edit(line.dxf.handle, 1001, "ORVO", line.dxf.handle, 1000, "日照")
                tags = self.first(self.audit(), "LINE").get_xdata("ORVO")
                self.assertEqual([tuple(tag) for tag in tags], [(1000, "日照")])
                self.assert_only(line.dxf.handle, lambda entity: entity[3].update(ORVO=[(1000, "日照")]))

    def test_points_are_added_with_their_z(self):
        line = self.first(make("R2010", self.path), "LINE")
        point = {code: (float(code), -2.5, 3.0) for code in range(12, 19)}
        changes = [(line.dxf.handle, code, ",".join(map(str, value))) for code, value in point.items()]
        self.edit(*(word for change in changes for word in change))
        with open(self.out, encoding="utf-8") as stream:
            tags = list(tagger.tag_compiler(tagger.ascii_tags_loader(stream)))
        start = tags.index((5, line.dxf.handle))
        end = next(index for index in range(start, len(tags)) if tags[index].code == 0)
        found = [(tag.code, tag.value) for tag in tags[start:end] if tag.code in point or tag.code == 38]
        self.assertEqual(found, list(point.items()))

    def test_records_and_block_entities_are_changed(self):
        for version in VERSIONS[1:]:
            with self.subTest(version=version):
                document = make(version, self.path)
                layer = document.layers.get("楼板")
                inner = document.blocks.get("窗户").query("LINE").first
                self.edit(layer.dxf.handle, 62, 5, inner.dxf.handle, 8, "WALL")
                changed = self.audit()
                self.assertEqual(changed.layers.get("楼板").color, 5)
                self.assertEqual(changed.blocks.get("窗户").query("LINE").first.dxf.layer, "WALL")

    def test_line_ends_of_the_other_kind_stay(self):
        line = self.first(make("R2010", self.path), "LINE")
        with open(self.path, "rb") as file:
            data = file.read().replace(b"\n", b"\r\n")
        with open(self.path, "wb") as file:
            file.write(data)
        self.edit(line.dxf.handle, 8, "楼板", line.dxf.handle, 1001, "ORVO")
        out = self.bytes_of(self.out)
        self.assertEqual(out.count(b"\n"), out.count(b"\r\n"))
        self.assertEqual(self.first(self.audit(), "LINE").dxf.layer, "楼板")

    def test_drawings_without_handles(self):
        with r12writer(self.path) as drawing:
            for number in range(10):
                drawing.add_line((0, number), (5, number), layer="A")
            drawing.add_polyline([(0, 0), (1, 1), (2, 0)])
        # A polyline of three vertices is five entities: its head, the vertices and the end of their sequence.
        self.assertEqual(self.edit(), "15 entities\n")
        self.assertEqual(self.bytes_of(self.out), self.bytes_of(self.path))

    def test_binary_drawings_are_refused(self):
        ezdxf.new("R2010").saveas(self.path, fmt="bin")
        process = subprocess.run([EDITOR, self.path, self.out], capture_output=True, timeout=60, check=False)
        self.assertEqual(process.returncode, 1)
        self.assertIn("二进制 DXF", process.stderr.decode())
        self.assertFalse(os.path.exists(self.out))


if __name__ == "__main__":
    unittest.main()
