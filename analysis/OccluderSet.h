// What casts shadows: the faces of a drawing in millimetres, and the closed bodies among them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/Vector3.h"

struct Scene;
class AcDbDatabase;

// A flat convex polygon of three or four corners.
struct Occluder {
    Vector3 corners[4];
    int count = 3;
    std::uint32_t entity = 0;  // which of OccluderSet::handles
    std::int32_t body = -1;    // the closed body that it bounds; -1 for a loose face
};

struct OccluderSet {
    std::vector<Occluder> faces;
    std::vector<std::uint64_t> handles;  // of the entities
    int bodyCount = 0;
};
