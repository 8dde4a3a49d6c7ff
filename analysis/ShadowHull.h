// The cone of directions in which a face stands before some point of a target.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/PlaneTurn.h"
#include "analysis/Vector3.h"

// What must be lit: an upright rectangle, or with both halves 0 a point.
struct SunTarget {
    Vector3 middle;
    Vector3 right;    // unit; level
    Vector3 up;       // unit
    Vector3 outward;  // unit; right x up
    double halfWidth = 0.0;
    double halfHeight = 0.0;

    bool IsPoint() const { return halfWidth == 0.0 && halfHeight == 0.0; }
};

// The planes through the origin that bound the cone, one for each side of its outline. Its buffers are kept from one
// face to the next.
//
// Some point of the target lies in the shadow of the face exactly while the direction to the sun is in the cone of all
// differences between their points (the Minkowski difference of the two). Only the part of the face before the target's
// plane counts: behind it the sun is behind the target, too.
class ShadowHull {
public:
    // `precision`: a face that rises less than this before the target's plane, and one whose plane holds a target that
    // is a point to within this, hides nothing. False, and no planes, when the face hides nothing.
    bool Build(const SunTarget& target, const Vector3* corners, int count, double precision);

    // Normals in the axes of target and face: a direction is in the cone when its products with all of them are 0 or
    // more.
    const std::vector<Vector3>& Planes() const { return m_planes; }

private:
    struct Difference {
        Vector3 way;      // along right, up, outward
        PlanePoint seen;  // right and up by outward: where it pierces the plane one unit before the target
    };

    void Clip(const std::vector<Vector3>& polygon);
    void AddDifferences(const SunTarget& target);
    bool MakeOutline();

    std::vector<Vector3> m_polygon;
    std::vector<Vector3> m_before;
    std::vector<Difference> m_differences;
    std::vector<Difference> m_outline;
    std::vector<Vector3> m_planes;
};

// Whether a face runs through the inside of a target that is no point: it has corners on both sides of the target's
// plane and meets the rectangle there.
bool CutsTarget(const SunTarget& target, const Vector3* corners, int count);
