// Of a small convex body: by the side of each face on which all of it lies. Else by asking for a point on each side.
#include "analysis/OutsideFaces.h"

#include <cmath>
#include <vector>

#include "analysis/BodyInside.h"
#include "analysis/OccluderSet.h"

namespace {

using Outside = Occluder::Outside;

constexpr std::size_t kFewFaces = 64;
constexpr double kBeside = 0.01;   // millimetres
constexpr double kInPlane = 1e-3;  // millimetres

// The faces of one body.
using Body = std::vector<std::uint32_t>;

bool IsOneEntity(const OccluderSet& set, const Body& body) {
    for (const std::uint32_t index : body)
        if (set.faces[index].entity != set.faces[body.front()].entity)
            return false;
    return true;
}

// On which side of one of its faces none of a body lies.
Outside FreeSide(const OccluderSet& set, const Body& body, const Occluder& face) {
    const Vector3 normal = face.Normal();
    const double inPlane = kInPlane * Length(normal);
    bool isBefore = false;
    bool isBehind = false;
    for (const std::uint32_t index : body) {
        const Occluder& other = set.faces[index];
        for (int i = 0; i < other.count; ++i) {
            const double depth = Dot(normal, other.corners[i] - face.corners[0]);
            isBefore = isBefore || depth > inPlane;
            isBehind = isBehind || depth < -inPlane;
        }
    }
    if (isBefore == isBehind)
        return Outside::Unknown;
    return isBehind ? Outside::Before : Outside::Behind;
}

// False where it is not convex: then a face with all of the body on one side may still be no border of it.
bool TellOfConvex(OccluderSet& set, const Body& body) {
    if (body.size() > kFewFaces)
        return false;
    std::vector<Outside> sides;
    for (const std::uint32_t index : body) {
        sides.push_back(FreeSide(set, body, set.faces[index]));
        if (sides.back() == Outside::Unknown)
            return false;
    }
    for (std::size_t i = 0; i < body.size(); ++i)
        set.faces[body[i]].outside = sides[i];
    return true;
}

Outside OutsideByAsking(const BodyInside& inside, const Occluder& face) {
    const Vector3 normal = face.Normal();
    const Vector3 way = normal * (kBeside / Length(normal));
    const bool isBeforeInside = inside.IsInside(face.Middle() + way, face.body);
    const bool isBehindInside = inside.IsInside(face.Middle() - way, face.body);
    if (isBeforeInside == isBehindInside)
        return Outside::Unknown;
    return isBehindInside ? Outside::Before : Outside::Behind;
}

}  // namespace

void TellOutsides(OccluderSet& set) {
    const BodyInside inside(set);
    std::vector<Body> bodies(static_cast<std::size_t>(set.bodyCount));
    for (std::uint32_t i = 0; i < set.faces.size(); ++i)
        if (set.faces[i].body >= 0)
            bodies[static_cast<std::size_t>(set.faces[i].body)].push_back(i);
    for (const Body& body : bodies) {
        if (body.empty() || !IsOneEntity(set, body) || TellOfConvex(set, body))
            continue;
        for (const std::uint32_t index : body)
            set.faces[index].outside = OutsideByAsking(inside, set.faces[index]);
    }
}
