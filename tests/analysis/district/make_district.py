#!/usr/bin/python3
"""Makes a drawing of a district: 200 buildings and 5,000 windows in millimetres, the same at each run; and beside it,
as plain text, the triangles and the windows that were meant, for those who judge without reading the drawing.

Debian's package of ezdxf is there for Debian's interpreter, whichever else comes first on the PATH.

usage: make_district.py FOLDER NAME...     FOLDER/NAME.dxf and FOLDER/NAME.txt for names of VARIATIONS
"""
import math
import os
import random
import sys
from dataclasses import dataclass

import ezdxf
from ezdxf.math import OCS

M = 1000.0  # millimetres
COLUMNS, ROWS = 20, 10
PITCH_X, PITCH_Y = 58.0, 54.0  # metres from one building to the next
WINDOWS_EACH = 25
STOREY = 3.0
BAY = 3.6
BUILDINGS = "建筑"
WINDOWS = "WINDOW"


@dataclass(frozen=True)
class Variation:
    """The same district elsewhere in the drawing, or drawn otherwise."""
    is_mirrored: bool = False  # east and west change places
    turn: float = 0.0          # degrees, counter-clockwise
    move: tuple = (0.0, 0.0)   # millimetres
    in_pieces: bool = False    # every face is cut, and each piece an entity


VARIATIONS = {
    "plain": Variation(),
    "turned": Variation(turn=37.3),
    "turned-far": Variation(turn=-141.0),
    "moved": Variation(move=(5e8, -3e8)),
    "mirrored": Variation(is_mirrored=True),
    "pieces": Variation(in_pieces=True),
}


class Dice:
    """Of Python's generator only what is the same in all of its versions."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def within(self, least, most):
        return least + (most - least) * self.random.random()

    def number(self, count):
        return int(self.random.random() * count)

    def one_of(self, values):
        return values[self.number(len(values))]

    def some_of(self, values, count):
        """In the order in which they stand."""
        keyed = sorted((self.random.random(), i) for i in range(len(values)))
        return [values[i] for _, i in sorted(keyed[:count], key=lambda pair: pair[1])]


@dataclass(frozen=True)
class Site:
    """A building's own axes, in metres."""
    x: float
    y: float
    degrees: float

    def __call__(self, x, y, z):
        s, c = math.sin(math.radians(self.degrees)), math.cos(math.radians(self.degrees))
        return ((self.x + c * x - s * y) * M, (self.y + s * x + c * y) * M, z * M)


@dataclass(frozen=True)
class Facade:
    """A wall over a line in plan, outside to the right of whoever walks along it."""
    x1: float
    y1: float
    x2: float
    y2: float
    low: float
    high: float

    def length(self):
        return math.hypot(self.x2 - self.x1, self.y2 - self.y1)

    def at(self, along, out):
        """A point in plan, so far along the wall and before it."""
        dx, dy = (self.x2 - self.x1) / self.length(), (self.y2 - self.y1) / self.length()
        return (self.x1 + dx * along + dy * out, self.y1 + dy * along - dx * out)


def facades_of(outline, low, high):
    """Of an outline that runs counter-clockwise."""
    return [Facade(*a, *b, low, high) for a, b in zip(outline, outline[1:] + outline[:1])]


def rectangle(x1, y1, x2, y2):
    return [(x1, y1), (x2, y1), (x2, y2), (x1, y2)]


def lifted(outline, z):
    return [(x, y, z) for x, y in outline]


def walls(outline, low, high):
    pairs = zip(outline, outline[1:] + outline[:1])
    return [[(*a, low), (*b, low), (*b, high), (*a, high)] for a, b in pairs]


def box(x1, y1, x2, y2, low, high):
    outline = rectangle(x1, y1, x2, y2)
    return walls(outline, low, high) + [lifted(outline[::-1], low), lifted(outline, high)]


def triangles_of(polygon):
    return [(polygon[0], polygon[i], polygon[i + 1]) for i in range(1, len(polygon) - 1)]


def between(a, b, part):
    return tuple(p + (q - p) * part for p, q in zip(a, b))


def middle(a, b):
    """The same from both ends, so that neighbours are cut in the same place."""
    return tuple((p + q) / 2 for p, q in zip(a, b))


def quarters(a, b, c):
    ab, bc, ca = middle(a, b), middle(b, c), middle(c, a)
    return [(a, ab, ca), (ab, b, bc), (ca, bc, c), (ab, bc, ca)]


def strips(a, b, c):
    """Three of them along the side from b to c; a neighbour is cut in other places."""
    p, q = between(a, b, 0.3), between(a, c, 0.3)
    r, s = between(a, b, 0.65), between(a, c, 0.65)
    return [(a, p, q), (p, r, s, q), (r, b, c, s)]


class District:
    def __init__(self, variation):
        ezdxf.options.write_fixed_meta_data_for_testing = True
        self.variation = variation
        self.document = ezdxf.new("R2013")
        self.document.header["$INSUNITS"] = 4
        self.document.layers.add(BUILDINGS, color=9)
        self.document.layers.add(WINDOWS, color=4)
        self.space = self.document.modelspace()
        self.truth = []
        self.window_count = 0
        self.triangle_count = 0

    def placed(self, point):
        x, y, z = point
        if self.variation.is_mirrored:
            x = -x
        s, c = math.sin(math.radians(self.variation.turn)), math.cos(math.radians(self.variation.turn))
        return (c * x - s * y + self.variation.move[0], s * x + c * y + self.variation.move[1], z)

    def meant(self, word, entity, numbers):
        self.truth.append(" ".join([word, entity.dxf.handle, *(repr(float(number)) for number in numbers)]))

    def meant_polygon(self, entity, polygon):
        for triangle in triangles_of(polygon):
            self.meant("triangle", entity, [number for corner in triangle for number in corner])

    # Each of these draws convex polygons of a building's axes as one kind of entity.

    def cut_up(self, polygons):
        for polygon in polygons:
            for triangle in triangles_of(polygon):
                self.triangle_count += 1
                for piece in (quarters if self.triangle_count % 2 else strips)(*triangle):
                    face = self.space.add_3dface(piece, dxfattribs={"layer": BUILDINGS})
                    self.meant_polygon(face, piece)

    def draw(self, site, polygons, add):
        polygons = [[self.placed(site(*corner)) for corner in polygon] for polygon in polygons]
        if self.variation.in_pieces:
            self.cut_up(polygons)
            return
        entity = add(polygons)
        for polygon in polygons:
            self.meant_polygon(entity, polygon)

    def mesh(self, site, polygons):
        def add(placed):
            mesh = self.space.add_mesh(dxfattribs={"layer": BUILDINGS})
            corners = list(dict.fromkeys(corner for polygon in placed for corner in polygon))
            number = {corner: i for i, corner in enumerate(corners)}
            with mesh.edit_data() as data:
                data.vertices = corners
                data.faces = [[number[corner] for corner in polygon] for polygon in placed]
            return mesh
        self.draw(site, polygons, add)

    def polyface(self, site, polygons):
        def add(placed):
            polyface = self.space.add_polyface(dxfattribs={"layer": BUILDINGS})
            polyface.append_faces(placed)
            polyface.optimize(precision=9)
            return polyface
        self.draw(site, polygons, add)

    def faces(self, site, polygons):
        for polygon in polygons:
            self.draw(site, [polygon],
                      lambda placed: self.space.add_3dface(placed[0], dxfattribs={"layer": BUILDINGS}))

    def extruded(self, site, outline, low, high, parts=None):
        """`parts` are convex pieces of the outline's inside, unless it is convex itself."""
        polygons = walls(outline, low, high)
        for part in parts or [outline]:
            polygons += [lifted(part, low), lifted(part, high)]
        points = [self.placed(site(x, y, 0))[:2] for x, y in outline]
        self.draw(site, polygons, lambda placed: self.space.add_lwpolyline(
            points, format="xy", close=True,
            dxfattribs={"layer": BUILDINGS, "elevation": low * M, "thickness": (high - low) * M}))

    def window(self, site, left, right, sill, height):
        """Between two points of a plan, seen from outside; as a face or as its outline."""
        a, b = self.placed(site(*left, sill)), self.placed(site(*right, sill))
        if self.variation.is_mirrored:
            a, b = b, a
        corners = [a, b, (b[0], b[1], b[2] + height * M), (a[0], a[1], a[2] + height * M)]
        width = math.hypot(b[0] - a[0], b[1] - a[1])
        outward = ((b[1] - a[1]) / width, (a[0] - b[0]) / width, 0.0)
        attributes = {"layer": WINDOWS}
        self.window_count += 1
        if self.window_count % 3 == 0:
            entity = self.space.add_3dface(corners, dxfattribs=attributes)
        elif self.window_count % 3 == 1:
            entity = self.space.add_polyline3d(corners, close=True, dxfattribs=attributes)
        else:
            normal = outward if self.window_count % 2 else tuple(-number for number in outward)
            flat = [OCS(normal).from_wcs(corner) for corner in corners]
            entity = self.space.add_lwpolyline(
                [(x, y) for x, y, _ in flat], close=True,
                dxfattribs={**attributes, "elevation": flat[0][2], "extrusion": normal})
        facing = math.degrees(math.atan2(outward[1], outward[0]))
        self.meant("window", entity, [*a, facing, width, height * M])

    def save(self, folder, name):
        # Those that are missing would be added in the order of a set, another one at each run.
        for missing in ("ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "LAYOUT", "MATERIAL", "MLEADERSTYLE", "SCALE", "SUN",
                        "VISUALSTYLE"):
            self.document.classes.add_class(missing)
        self.document.saveas(os.path.join(folder, f"{name}.dxf"))
        with open(os.path.join(folder, f"{name}.txt"), "w", encoding="utf-8") as stream:
            stream.write("\n".join(self.truth) + "\n")


# Buildings, each around the origin of its site. They return the walls that take windows.


def tower(district, site, dice):
    half, high = dice.within(9, 12), STOREY * (20 + dice.number(13))
    n = 3.0  # notches at the corners: a cross
    outline = [(-half + n, -half), (half - n, -half), (half - n, -half + n), (half, -half + n), (half, half - n),
               (half - n, half - n), (half - n, half), (-half + n, half), (-half + n, half - n), (-half, half - n),
               (-half, -half + n), (-half + n, -half + n)]
    parts = [rectangle(-half + n, -half, half - n, half), rectangle(-half, -half + n, -half + n, half - n),
             rectangle(half - n, -half + n, half, half - n)]
    district.extruded(site, outline, 0, high, parts)
    return facades_of(outline, 0, high)


def slab(district, site, dice):
    half, deep, high = dice.within(18, 24), dice.within(5, 7), STOREY * (6 + dice.number(13))
    district.faces(site, box(-half, -deep, half, deep, 0, high))
    return facades_of(rectangle(-half, -deep, half, deep), 0, high)


def court(district, site, dice):
    """A ring whose roof is of four trapezoids."""
    o, i, high = dice.within(16, 19), dice.within(6, 9), STOREY * (4 + dice.number(5))
    outer, inner = rectangle(-o, -o, o, o), rectangle(-i, -i, i, i)
    polygons = walls(outer, 0, high) + walls(inner[::-1], 0, high)
    for k in range(4):
        n = (k + 1) % 4
        for z in (0, high):
            polygons.append([(*outer[k], z), (*outer[n], z), (*inner[n], z), (*inner[k], z)])
    district.mesh(site, polygons)
    return facades_of(outer, 0, high) + facades_of(inner[::-1], 0, high)


def l_shape(district, site, dice):
    a, w, high = dice.within(14, 18), dice.within(9, 12), STOREY * (5 + dice.number(10))
    outline = [(-a, -a), (a, -a), (a, -a + w), (-a + w, -a + w), (-a + w, a), (-a, a)]
    parts = [rectangle(-a, -a, a, -a + w), rectangle(-a, -a + w, -a + w, a)]
    district.extruded(site, outline, 0, high, parts)
    return facades_of(outline, 0, high)


def podium(district, site, dice):
    """A tower of a polyface on a base of a mesh."""
    base, half, low, high = dice.within(15, 18), dice.within(7, 10), 2 * STOREY, STOREY * (12 + dice.number(16))
    district.mesh(site, box(-base, -base, base, base, 0, low))
    district.polyface(site, box(-half, -half, half, half, low, high))
    return facades_of(rectangle(-base, -base, base, base), 0, low) + facades_of(
        rectangle(-half, -half, half, half), low, high)


def pitched(district, site, dice):
    """Under a gabled roof with eaves."""
    half, deep, high = dice.within(12, 18), dice.within(5, 7), STOREY * (3 + dice.number(3))
    district.extruded(site, rectangle(-half, -deep, half, deep), 0, high)
    x, y, ridge = half + 0.6, deep + 0.7, high + dice.within(2.5, 5)
    a, b, c, d = [(-x, -y, high), (x, -y, high), (x, y, high), (-x, y, high)]
    e, f = (-x, 0, ridge), (x, 0, ridge)
    district.polyface(site, [[a, d, c, b], [a, b, f, e], [c, d, e, f], [b, c, f], [d, a, e]])
    return facades_of(rectangle(-half, -deep, half, deep), 0, high)


def add_around(district, site, facade, along, width, sill, height, dice):
    """A balcony or a board over the window, or a fin at its jamb."""
    def plan(x, out):
        return facade.at(along + x, out)
    kind = dice.number(6)
    deep = dice.within(0.5, 1.5)
    if kind == 0:
        outline = [plan(-0.4, deep), plan(width + 0.4, deep), plan(width + 0.4, 0), plan(-0.4, 0)]
        floor = sill - 0.9
        district.extruded(site, outline, floor - 0.1, floor)
        district.faces(site, walls(outline, floor, floor + 1)[:1])
    elif kind == 1:
        outline = [plan(-0.3, deep), plan(width + 0.3, deep), plan(width + 0.3, 0), plan(-0.3, 0)]
        district.mesh(site, walls(outline, sill + height, sill + height + 0.12) +
                      [lifted(outline[::-1], sill + height), lifted(outline, sill + height + 0.12)])
    elif kind == 2:
        x = dice.one_of([0.0, width, width + 0.2])
        district.faces(site, [[(*plan(x, 0), sill - 0.2), (*plan(x, deep), sill - 0.2),
                               (*plan(x, deep), sill + height + 0.4), (*plan(x, 0), sill + height + 0.4)]])


def add_windows(district, site, facades, dice):
    places = []
    for facade in facades:
        bays = int(facade.length() / BAY)
        margin = (facade.length() - bays * BAY) / 2
        for storey in range(int((facade.high - facade.low) / STOREY)):
            places += [(facade, margin + bay * BAY, facade.low + storey * STOREY) for bay in range(bays)]
    assert len(places) >= WINDOWS_EACH
    for facade, along, floor in dice.some_of(places, WINDOWS_EACH):
        width, height = dice.one_of([0.9, 1.2, 1.8, 2.4]), dice.one_of([1.2, 1.5])
        along += (BAY - width) / 2
        sill = floor + 1.0
        district.window(site, facade.at(along, 0), facade.at(along + width, 0), sill, height)
        add_around(district, site, facade, along, width, sill, height, dice)


KINDS = (tower, slab, court, l_shape, podium, pitched, slab)
STREETS = (0.0, 0.0, 14.0, -18.0)  # degrees: half of the district lies square to its axes


def make(variation, rows=ROWS):
    district = District(variation)
    dice = Dice(20)
    for row in range(rows):
        for column in range(COLUMNS):
            x, y = (column - COLUMNS / 2) * PITCH_X, (row - ROWS / 2) * PITCH_Y
            site = Site(x, y, STREETS[column * len(STREETS) // COLUMNS])
            facades = KINDS[(row * COLUMNS + column) % len(KINDS)](district, site, dice)
            add_windows(district, site, facades, dice)
    assert district.window_count == rows * COLUMNS * WINDOWS_EACH
    return district


if __name__ == "__main__":
    for each in sys.argv[2:]:
        make(VARIATIONS[each]).save(sys.argv[1], each)
