// A flat area: an outline in a plane of its own, and the grid of points in it.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/Vector3.h"
#include "scene/PolygonTriangles.h"

// Why an outline encloses no flat area.
enum class AreaFault {
    None,           // it does
    Empty,          // it encloses nothing, or as little as a strip of a millimetre
    NotFlat,        // a corner lies off the plane of the others by more than a millimetre
    Crossed,        // it crosses itself
    TooManyCorners  // more than kMostPolygonCorners
};

// How the plane of an area lies.
enum class AreaPlane {
    Level,    // flat like the ground
    Tilted,   // neither
    Upright,  // like a wall
};

// Lengths are millimetres.
struct FlatArea {
    AreaPlane plane = AreaPlane::Level;  // how it lies
    Vector3 origin;                      // a point of the plane, in the drawing's axes
    Vector3 right;                       // unit, level; the drawing's x axis for a level plane
    Vector3 up;                          // unit
    Vector3 outward;                     // unit; right x up; upwards unless the plane is upright
    std::vector<FlatPoint> corners;      // along right and up from the origin
    FlatPoint inside;                    // some point well within
    double area = 0.0;                   // square millimetres; of the corners, whatever arcs they stand for

    // The place in space of a point of the plane.
    Vector3 At(const FlatPoint& point) const { return origin + right * point.x + up * point.y; }
    // Looks to the other side; up stays.
    void Turn();
};

// The area within an outline of at least one corner, whose last joins its first.
AreaFault FlatAreaOf(const std::vector<Vector3>& corners, FlatArea& area);

// How many points a grid of square cells of this size has in an area, about; at least as many as it has rows and
// columns. Any finite number, however large.
double CountGridPoints(const FlatArea& area, double spacing);

// The middles of the cells that lie in the area, along its right and up: row by row from below, each from the left,
// `spacing` millimetres apart. The grid has its middle in that of the rectangle around the outline. Where no cell has
// its middle in the area, `inside`.
std::vector<FlatPoint> GridPoints(const FlatArea& area, double spacing);

// Points at a pitch from a first one, by their number in each direction.
struct Lattice {
    FlatPoint first;     // the one of number 0 in both
    double pitch = 0.0;  // millimetres from one to the next

    // The point of a number.
    FlatPoint At(std::int32_t x, std::int32_t y) const { return {first.x + x * pitch, first.y + y * pitch}; }
};

// A point of a lattice, by its number in each direction, below 0 too.
struct LatticeNode {
    std::int32_t x = 0;  // along right
    std::int32_t y = 0;  // along up
};

// That of the grid: its first point is the middle of the first cell of the first row, in the area or not.
Lattice GridLattice(const FlatArea& area, double spacing);

// Those that lie in the area, in the order of GridPoints.
std::vector<LatticeNode> NodesWithin(const FlatArea& area, const Lattice& lattice);
