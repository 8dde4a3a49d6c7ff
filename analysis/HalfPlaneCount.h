// How many points lie on each side of a line, seen from above.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/Vector3.h"

class HalfPlaneCount {
public:
    // Of any points; z does not matter.
    explicit HalfPlaneCount(std::vector<Vector3> points = {});

    struct Sides {
        std::size_t before = 0;  // farther than `beyond` from the line in the normal's direction
        std::size_t behind = 0;  // and in the other one
    };
    // The line goes through `place` at right angles to the level unit vector `normal`.
    Sides Count(const Vector3& place, const Vector3& normal, double beyond) const;

private:
    struct Node {
        Vector3 least, most;
        std::size_t first = 0, end = 0;   // of the points
        std::size_t left = 0, right = 0;  // nodes; 0 for none
    };

    std::size_t Build(std::size_t first, std::size_t end);

    std::vector<Vector3> m_points;
    std::vector<Node> m_nodes;  // the root first
};
