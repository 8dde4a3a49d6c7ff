// Distances in plan and heights over a sill, by the boxes around entities.
#include "analysis/Reach.h"

#include <algorithm>
#include <cmath>

#include "analysis/Boxes.h"

namespace {

// How far a coordinate lies outside a range.
double Outside(double value, double least, double most) {
    return std::max({least - value, value - most, 0.0});
}

}  // namespace

Reach::Reach(const OccluderSet& occluders, const ReachLimits& limits)
    : m_limits(limits), m_boxes(occluders.handles.size()) {
    std::vector<bool> isBegun(m_boxes.size(), false);
    for (const Occluder& face : occluders.faces) {
        Box& box = m_boxes[face.entity];
        box = isBegun[face.entity] ? BoxAround(box, BoxAround(face)) : BoxAround(face);
        isBegun[face.entity] = true;
    }
}

bool Reach::Counts(std::uint32_t entity, const Vector3& sill) const {
    const Box& box = m_boxes[entity];
    const double distance =
        std::hypot(Outside(sill.x, box.least.x, box.most.x), Outside(sill.y, box.least.y, box.most.y));
    const double height = std::clamp(box.most.z - sill.z, 0.0, std::max(m_limits.buildingHeightLimit, 0.0));
    return distance <= m_limits.mainScopeRadius && distance <= m_limits.scopeFactorOfHeight * height;
}
