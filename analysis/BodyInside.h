// Which closed bodies hold a point.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/BoxTree.h"
#include "analysis/OccluderSet.h"

// Counts how often a straight line from the point crosses a body's faces, so that it does not matter how these are
// oriented; of three lines in directions that no wall has, two decide. A point on a face, or closer to it than the
// rounding of its coordinates, may be on either side. Several threads may ask.
class BodyInside {
public:
    // Keeps a reference.
    explicit BodyInside(const OccluderSet& set);

    bool IsInside(const Vector3& point) const { return !Around(point).empty(); }
    bool IsInside(const Vector3& point, std::int32_t body) const;
    // All bodies that hold the point, ascending.
    std::vector<std::int32_t> Around(const Vector3& point) const;

private:
    const OccluderSet& m_set;
    std::vector<std::uint32_t> m_faces;  // of bodies
    BoxTree m_faceTree;
    BoxTree m_bodyTree;
};
