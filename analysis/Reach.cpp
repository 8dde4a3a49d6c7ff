// Distances in plan and heights over a sill, by the boxes around entities, then by their faces.
#include "analysis/Reach.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/Boxes.h"

namespace {

// How far a coordinate lies outside a range.
double Outside(double value, double least, double most) {
    return std::max({least - value, value - most, 0.0});
}

// From a point to a face, both seen from above: 0 within it.
double DistanceInPlan(const Occluder& face, const Vector3& point) {
    double nearest = std::numeric_limits<double>::infinity();
    bool isLeftOfAll = true;
    bool isRightOfAll = true;
    for (int i = 0; i < face.count; ++i) {
        const Vector3& corner = face.corners[i];
        const Vector3& next = face.corners[(i + 1) % face.count];
        const double wayX = next.x - corner.x;
        const double wayY = next.y - corner.y;
        const double x = point.x - corner.x;
        const double y = point.y - corner.y;
        const double square = wayX * wayX + wayY * wayY;
        const double part = square > 0.0 ? std::clamp((x * wayX + y * wayY) / square, 0.0, 1.0) : 0.0;
        nearest = std::min(nearest, std::hypot(x - part * wayX, y - part * wayY));
        const double side = wayX * y - wayY * x;
        isLeftOfAll = isLeftOfAll && side >= 0.0;
        isRightOfAll = isRightOfAll && side <= 0.0;
    }
    return isLeftOfAll != isRightOfAll ? 0.0 : nearest;  // both: of an upright face, in line with it
}

}  // namespace

Reach::Reach(const OccluderSet& occluders, const ReachLimits& limits, bool isWithProject)
    : m_occluders(occluders), m_limits(limits), m_entities(occluders.handles.size()) {
    for (std::size_t i = 0; i < occluders.faces.size(); ++i) {
        const Occluder& face = occluders.faces[i];
        if (!isWithProject && occluders.IsProposed(face.entity))
            continue;
        Entity& entity = m_entities[occluders.DrawnAs(face.entity)];
        entity.box = entity.faceCount == 0 ? BoxAround(face) : BoxAround(entity.box, BoxAround(face));
        entity.firstFace = entity.faceCount == 0 ? i : entity.firstFace;
        ++entity.faceCount;
    }
}

bool Reach::Counts(std::uint32_t number, const Vector3& sill) const {
    const Entity& entity = m_entities[m_occluders.DrawnAs(number)];
    const double height = std::clamp(entity.box.most.z - sill.z, 0.0, std::max(m_limits.buildingHeightLimit, 0.0));
    const double reach = std::min(m_limits.mainScopeRadius, m_limits.scopeFactorOfHeight * height);
    // The box may come nearer than what it is around, and that hangs on how the drawing is turned.
    if (std::hypot(Outside(sill.x, entity.box.least.x, entity.box.most.x),
                   Outside(sill.y, entity.box.least.y, entity.box.most.y)) > reach)
        return false;
    const auto first = m_occluders.faces.begin() + static_cast<std::ptrdiff_t>(entity.firstFace);
    return std::any_of(first, first + static_cast<std::ptrdiff_t>(entity.faceCount),
                       [&](const Occluder& face) { return DistanceInPlan(face, sill) <= reach; });
}
