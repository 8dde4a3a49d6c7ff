// The path of a flat polyline with its arcs divided into chords.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <vector>

// A vertex as the drawing has it, in object coordinates. The bulge is the tangent of a quarter of the angle of the arc
// to the next vertex, positive for one that runs counter-clockwise, 0 for a straight segment.
struct OutlineVertex {
    double x = 0.0;
    double y = 0.0;
    double bulge = 0.0;
};

struct OutlinePoint {
    double x = 0.0;
    double y = 0.0;
    bool isInArc = false;  // between two chords of one arc
};

struct Outline {
    std::vector<OutlinePoint> points;
    bool isClosed = false;  // the last point joins the first
};

// How finely arcs are divided: for all the arcs of one drawing.
struct ArcDivision {
    double sagitta = 50.0;              // the farthest that a chord may be from its arc
    std::size_t spareChords = 250'000;  // beyond kLeastChords for an arc: a bound on what a small file can ask for
    std::size_t arcs = 0;               // that have been divided
};
inline constexpr std::size_t kLeastChords = 4;
inline constexpr std::size_t kMostChords = 64;

// The chords of an arc with this bulge between ends at this distance.
std::size_t CountChords(double bulge, double distance, double sagitta);

// Whether a path of two points or more ends where it began, or is closed anyhow; points closer than g_fZero are one.
bool ComesBack(const std::vector<OutlineVertex>& vertices, bool isClosed);

// The outline through the vertices. Points closer than g_fZero to the one before are dropped, and a path that comes
// back to its first point is closed without that point. An arc that rises less than four times g_fZero over its chord
// is straight. False when fewer than two points are left, or one lies beyond kFarthest.
bool MakeOutline(const std::vector<OutlineVertex>& vertices, bool isClosed, ArcDivision& division, Outline& outline);
