// Boxes around things, and what is done with them.
#pragma once

#include <algorithm>
#include <vector>

#include "analysis/BoxTree.h"
#include "analysis/OccluderSet.h"

inline Box BoxAround(const Vector3& point) {
    return {point, point};
}
inline Box BoxAround(const Box& a, const Box& b) {
    return {{std::min(a.least.x, b.least.x), std::min(a.least.y, b.least.y), std::min(a.least.z, b.least.z)},
            {std::max(a.most.x, b.most.x), std::max(a.most.y, b.most.y), std::max(a.most.z, b.most.z)}};
}
inline Box BoxAround(const Occluder& face) {
    Box box = BoxAround(face.corners[0]);
    for (int i = 1; i < face.count; ++i)
        box = BoxAround(box, BoxAround(face.corners[i]));
    return box;
}

inline std::vector<Box> BoxesAround(const std::vector<Occluder>& faces) {
    std::vector<Box> boxes;
    boxes.reserve(faces.size());
    for (const Occluder& face : faces)
        boxes.push_back(BoxAround(face));
    return boxes;
}

// Wider by this on each side.
inline Box Widened(const Box& box, double by) {
    const Vector3 each{by, by, by};
    return {box.least - each, box.most + each};
}

// Boxes that touch overlap.
inline bool Overlap(const Box& a, const Box& b) {
    return a.least.x <= b.most.x && b.least.x <= a.most.x && a.least.y <= b.most.y && b.least.y <= a.most.y &&
           a.least.z <= b.most.z && b.least.z <= a.most.z;
}
