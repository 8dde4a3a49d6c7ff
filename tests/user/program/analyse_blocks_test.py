"""orvo analyse with windows in blocks: where another program puts them, with their names, and what is said of the others."""
import os
import sys

from analyse_test import STANDARD, AnalyseTest, box, drawing, face, groups, south_window, text
from orvo_program import FAILED, OK, main

try:
    import ezdxf
except ImportError:  # Debian's package serves Debian's own Python
    sys.path.append("/usr/lib/python3/dist-packages")
    import ezdxf

METRES = 6
SOUTH = (0, -1, 0)


def house_drawing(version):
    """A house with windows of each kind, as a block in which windows are blocks themselves, and texts beside them."""
    document = ezdxf.new(version, setup=True)
    document.units = METRES
    for name in ("WALL", "WINDOW", "FRAME"):
        document.layers.add(name)
    pane = document.blocks.new("PANE", base_point=(1, 0, 0))
    pane.add_3dface([(1, 0, 0), (2.5, 0, 0), (2.5, 0, 1.2), (1, 0, 1.2)])
    pane.add_3dface([(1, 0, -0.1), (2.5, 0, -0.1), (2.5, -0.2, -0.1), (1, -0.2, -0.1)], dxfattribs={"layer": "FRAME"})
    pane.add_attdef("NAME", (1.2, 0, 0.2))
    house = document.blocks.new("HOUSE", base_point=(5, 4, 0))
    house.add_lwpolyline([(0, 0), (10, 0), (10, 8), (0, 8)], close=True, dxfattribs={"layer": "WALL", "thickness": 9})
    for number, (point, rotation) in enumerate([((1, 0, 1), 0), ((4, 0, 1), 0), ((10, 2, 1), 90), ((7, 8, 4), 180)], 1):
        insert = house.add_blockref("PANE", point, dxfattribs={"layer": "WINDOW", "rotation": rotation})
        insert.add_auto_attribs({"NAME": f"40{number}-1"})
        for attribute in insert.attribs:
            attribute.dxf.layer = "WINDOW" if number % 2 else "0"
    house.add_lwpolyline([(7, 1), (8.5, 1), (8.5, 2.5), (7, 2.5)], close=True,
                         dxfattribs={"layer": "WINDOW", "extrusion": SOUTH, "elevation": 0})
    house.add_text("501-1", dxfattribs={"layer": "WINDOW", "insert": (7.5, 0, 1.5)})
    house.add_line((2, 0, 5), (4, 0, 5), dxfattribs={"layer": "WINDOW", "thickness": 1.4})
    house.add_mtext("601-1", dxfattribs={"layer": "WINDOW", "insert": (3, 0.1, 0)})
    return document


def parts_of(insert, layer):
    """Everything an INSERT shows, with the layer that it lies on, as ezdxf takes it apart."""
    for one in insert.multi_insert() if insert.mcount > 1 else [insert]:
        for attribute in one.attribs:
            yield attribute, layer if attribute.dxf.layer == "0" else attribute.dxf.layer
        for entity in one.virtual_entities():
            own = layer if entity.dxf.layer == "0" else entity.dxf.layer
            if entity.dxftype() == "INSERT":
                yield from parts_of(entity, own)
            else:
                yield entity, own


def corners_of(entity):
    if entity.dxftype() == "3DFACE":
        return list(entity.wcs_vertices())
    if entity.dxftype() == "LWPOLYLINE":
        return list(entity.vertices_in_wcs())
    start, end = entity.dxf.start, entity.dxf.end
    up = ezdxf.math.Vec3(entity.dxf.extrusion) * entity.dxf.thickness
    return [start, end, end + up, start + up]


def rounded(corners):
    return sorted(tuple(round(number, 5) + 0.0 for number in corner) for corner in corners)


class HousesOfBlocks(AnalyseTest):
    def expected(self, document):
        """Names and corners: a name belongs to the window that it stands in, seen from above."""
        windows, texts = [], []
        for insert in document.modelspace().query("INSERT"):
            for entity, layer in parts_of(insert, insert.dxf.layer):
                if layer == "WINDOW" and entity.dxftype() in ("TEXT", "MTEXT", "ATTRIB"):
                    if entity.dxftype() == "MTEXT":
                        texts.append((entity.text, ezdxf.math.Vec3(entity.dxf.insert)))
                    else:
                        texts.append((entity.dxf.text, entity.ocs().to_wcs(ezdxf.math.Vec3(entity.dxf.insert))))
                elif layer == "WINDOW":
                    windows.append(corners_of(entity))
        found = []
        for corners in windows:
            middle = ezdxf.math.Vec3.sum(corners) / 4
            names = [words for words, place in texts if (middle - place).vec2.magnitude < 0.76]
            self.assertEqual(len(names), 1, names)
            found.append((names[0], rounded(corners)))
        return sorted(found)

    def check(self, document, count, name="house.dxf"):
        document.saveas(os.path.join(self.home, name))
        windows = self.document(name, "--standard", STANDARD, "--need", "1")["windows"]
        self.assertEqual(len(windows), count)
        self.assertEqual(sorted((window["name"], rounded(window["corners"])) for window in windows),
                         self.expected(document))
        return windows

    def test_they_stand_where_another_program_puts_them(self):
        for version in ("R2000", "R2007", "R2018"):
            document = house_drawing(version)
            model = document.modelspace()
            placed = [model.add_blockref("HOUSE", (20, 30, 0)),
                      model.add_blockref("HOUSE", (60, 30, 3), dxfattribs={"rotation": 33}),
                      model.add_blockref("HOUSE", (100, 30, 0), dxfattribs={"xscale": -1, "rotation": 10}),
                      model.add_blockref("HOUSE", (140, 30, 0), dxfattribs={"xscale": -1, "yscale": -1}),
                      model.add_blockref("HOUSE", (20, 90, 0), dxfattribs={"column_count": 3, "row_count": 2,
                                                                           "column_spacing": 25, "row_spacing": 40})]
            windows = self.check(document, 6 * (4 + 6))
            self.assertEqual({window["handle"] for window in windows}, {insert.dxf.handle for insert in placed})
            self.assertEqual([window["notes"] for window in windows], [[]] * len(windows))

    def test_a_town_turned_in_a_block_of_its_own(self):
        document = house_drawing("R2018")
        town = document.blocks.new("TOWN")
        town.add_blockref("HOUSE", (0, 0, 0), dxfattribs={"rotation": 45})
        town.add_blockref("HOUSE", (0, 40, 0), dxfattribs={"yscale": -1})
        document.modelspace().add_blockref("TOWN", (500, -200, 7), dxfattribs={"rotation": -20, "xscale": -1})
        self.check(document, 12)

    def test_a_house_in_a_block_has_the_sun_of_one_that_is_drawn_outright(self):
        before = box("A2", "WALL", 2, -30, 12, -20, 20)
        pane = face("B1", "0", [(0, 0, 0), (1.5, 0, 0), (1.5, 0, 1.5), (0, 0, 1.5)])
        house = box("A1", "WALL", 0, 0, 10, 8, 6)
        inner = groups((0, "INSERT"), (5, "B2"), (8, "WINDOW"), (2, "PANE"), (10, 4), (20, 0), (30, 1))
        outer = groups((0, "INSERT"), (5, "C1"), (8, "0"), (2, "HOUSE"), (10, 0), (20, 0))
        blocks = [("PANE", pane), ("HOUSE", house + inner)]
        one = self.one_window(self.put(drawing(before, outer, blocks=blocks)), "--standard", STANDARD)
        other = self.one_window(self.put(drawing(before, house, south_window("B1"))), "--standard", STANDARD)
        self.assertEqual((one["handle"], one["name"], other["handle"]), ("C1", "C1", "B1"))
        self.assertGreater(len(one["hidden"]), 0)
        for member in ("facing", "judged", "total", "corners", "sunlit", "counted", "hidden"):
            self.assertEqual(one[member], other[member], member)


class WhatIsNoWindow(AnalyseTest):
    INSERT = groups((0, "INSERT"), (5, "C1"), (8, "WINDOW"), (2, "PANE"), (10, 0), (20, 0))

    def said(self, block, *entities, code=OK):
        answer = self.orvo("analyse", self.put(drawing(box("A1", "WALL", 0, 0, 10, 8, 6), *entities,
                                                       blocks=[("PANE", block)])))
        self.assertEqual(answer.code, code, answer)
        return answer.err

    def test_an_insert_that_gives_none_is_named(self):
        err = self.said(box("B1", "WALL", 0, 0, 1, 1, 1), self.INSERT, code=FAILED)
        self.assertIn("块参照 C1（块“PANE”）：窗图层上有 1 个实体（或块参照本身）不是", err)
        err = self.said(groups((0, "SOLID"), (8, "0")) * 3 + south_window("B1", "0"), self.INSERT)
        self.assertIn("块参照 C1（块“PANE”）：窗图层上有 3 个实体", err)
        self.assertNotIn("块参照", self.said(south_window("B1", "0"), self.INSERT))

    def test_an_array_of_too_many_is_named_and_the_others_are_there(self):
        array = groups((0, "INSERT"), (5, "C2"), (8, "WINDOW"), (2, "PANE"), (10, 0), (20, 0), (70, 2000000000), (71, 3))
        name = self.put(drawing(box("A1", "WALL", 0, 0, 10, 8, 6), array, self.INSERT,
                                text("B3", "WINDOW", "1-101-1", 4.7, 0, 1.7), blocks=[("PANE", south_window("B1", "0"))]))
        answer = self.orvo("analyse", name, "--json")
        self.assertEqual([window["name"] for window in answer.json()["windows"]], ["1-101-1"])
        self.assertIn("块参照 C2 的窗太多（图形一共超过 5000000 个窗）", answer.err)


if __name__ == "__main__":
    main()
