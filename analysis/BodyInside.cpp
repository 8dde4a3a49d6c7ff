// Counts crossings of lines with the faces of bodies.
#include "analysis/BodyInside.h"

#include <algorithm>
#include <limits>

#include "analysis/Boxes.h"

namespace {

// Steep, so that they meet few bodies, and along nothing that anybody draws.
constexpr Vector3 kDirections[] = {{0.2137, 0.1319, 0.9679}, {-0.1733, 0.2671, 0.9480}, {0.0911, -0.2963, -0.9507}};

bool Cut(double from, double way, double least, double most, double& enter, double& leave) {
    const double a = (least - from) / way;
    const double b = (most - from) / way;
    enter = std::max(enter, std::min(a, b));
    leave = std::min(leave, std::max(a, b));
    return enter <= leave;
}

// A line from a point on, without an end. None of its direction's parts is 0.
struct Ray {
    Vector3 from;
    Vector3 way;

    bool Reaches(const Box& box) const {
        double enter = 0.0;
        double leave = std::numeric_limits<double>::infinity();
        return Cut(from.x, way.x, box.least.x, box.most.x, enter, leave) &&
               Cut(from.y, way.y, box.least.y, box.most.y, enter, leave) &&
               Cut(from.z, way.z, box.least.z, box.most.z, enter, leave);
    }
    // The same edge gives the opposite number in a neighbour that runs through it the other way, to the last bit: no
    // line slips through between two faces.
    bool Crosses(const Occluder& face) const {
        bool isLeftOfAll = true;
        bool isRightOfAll = true;
        for (int i = 0; i < face.count; ++i) {
            const Vector3 a = face.corners[i] - from;
            const Vector3 b = face.corners[(i + 1) % face.count] - from;
            const double side = Dot(way, Cross(a, b));
            isLeftOfAll = isLeftOfAll && side > 0.0;
            isRightOfAll = isRightOfAll && side < 0.0;
        }
        const Vector3 normal = face.Normal();
        return (isLeftOfAll || isRightOfAll) && Dot(normal, face.corners[0] - from) / Dot(normal, way) > 0.0;
    }
};

}  // namespace

BodyInside::BodyInside(const OccluderSet& set) : m_set(set) {
    std::vector<Box> boxes;
    std::vector<Box> bodies(static_cast<std::size_t>(set.bodyCount));
    std::vector<bool> isBegun(bodies.size(), false);
    for (std::uint32_t i = 0; i < set.faces.size(); ++i) {
        const std::int32_t body = set.faces[i].body;
        if (body < 0)
            continue;
        const auto index = static_cast<std::size_t>(body);
        const Box box = BoxAround(set.faces[i]);
        m_faces.push_back(i);
        boxes.push_back(box);
        bodies[index] = isBegun[index] ? BoxAround(bodies[index], box) : box;
        isBegun[index] = true;
    }
    m_faceTree = BoxTree(boxes);
    m_bodyTree = BoxTree(bodies);
}

bool BodyInside::IsInside(const Vector3& point, std::int32_t body) const {
    const std::vector<std::int32_t> around = Around(point);
    return std::binary_search(around.begin(), around.end(), body);
}

std::vector<std::int32_t> BodyInside::Around(const Vector3& point) const {
    std::vector<std::int32_t> near;
    const Box here = BoxAround(point);
    m_bodyTree.Walk([&](const Box& box) { return Overlap(box, here); },
                    [&](std::size_t body) { near.push_back(static_cast<std::int32_t>(body)); });
    if (near.empty())
        return near;
    std::sort(near.begin(), near.end());
    std::vector<int> votes(near.size(), 0);
    std::vector<bool> isOdd(near.size());
    for (const Vector3& direction : kDirections) {
        const Ray ray{point, direction};
        isOdd.assign(near.size(), false);
        m_faceTree.Walk([&](const Box& box) { return ray.Reaches(box); },
                        [&](std::size_t index) {
                            const Occluder& face = m_set.faces[m_faces[index]];
                            const auto body = std::lower_bound(near.begin(), near.end(), face.body);
                            if (body == near.end() || *body != face.body || !ray.Crosses(face))
                                return;
                            const auto place = static_cast<std::size_t>(body - near.begin());
                            isOdd[place] = !isOdd[place];
                        });
        for (std::size_t i = 0; i < near.size(); ++i)
            votes[i] += isOdd[i] ? 1 : 0;
    }
    std::vector<std::int32_t> around;
    for (std::size_t i = 0; i < near.size(); ++i)
        if (votes[i] >= 2)
            around.push_back(near[i]);
    return around;
}
