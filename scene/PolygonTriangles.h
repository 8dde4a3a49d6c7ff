// Divides a flat polygon, convex or not, into triangles by cutting off ears.
#pragma once

#include <cstddef>
#include <vector>

struct FlatPoint {
    double x = 0.0;         // in the unit of whoever made the polygon
    double y = 0.0;         // likewise
    bool isHidden = false;  // whether the edge to the next point is not to be drawn
};

// Three or four corners by their indices in the polygon, in its own sense of rotation.
struct PolygonPiece {
    std::size_t corners[4] = {0, 0, 0, 0};            // the first `count` count
    bool isHidden[4] = {false, false, false, false};  // of the edge from each corner to the next
    int count = 3;                                    // 3 or 4
};

// With more corners a polygon is not divided: the work grows with the square of their number.
inline constexpr std::size_t kMostPolygonCorners = 4096;

// Twice the area within an outline, positive when it runs counter-clockwise.
double TwiceSignedArea(const std::vector<FlatPoint>& outline);

// What twice the area of a triangle has to exceed, by its longest side, for the triangle to have any.
double LeastTwiceArea(double longest);

// The pieces of an outline, whose last point joins its first, that runs in either sense: one of four corners for a
// convex quadrilateral, else triangles. They cover what the outline encloses, and each part of it once. Corners in one
// line with their neighbours, and points on top of each other, make no pieces. The outline may touch itself, as it does
// around a courtyard that is joined to it by a slit. False, and no pieces: it crosses itself, encloses nothing, or has
// too many corners.
bool DividePolygon(const std::vector<FlatPoint>& outline, std::vector<PolygonPiece>& pieces);
