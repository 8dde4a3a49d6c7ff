// Puts faces together that lie in one plane, and brings them to paper.
#include "workbench/report/PlanRoofs.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <unordered_map>

#include "analysis/JoinedSets.h"
#include "analysis/OccluderSet.h"
#include "workbench/report/PlanSheet.h"

namespace {

constexpr double kMillimetres = 1000.0;
constexpr double kSteep = 0.01;      // the cosine of a slope that is a wall from above
constexpr double kOnePlane = 0.985;  // the cosine of ten degrees: what bends less is one roof
constexpr double kOneLevel = 10.0;   // millimetres between roofs that are one
constexpr int kSmallest = 10;        // hundredths of a millimetre

// What is seen of a face from above.
struct SeenFace {
    std::uint32_t face = 0;
    Vector3 normal;  // upwards, of length 1
    double low = 0.0;
    double high = 0.0;
    int building = 0;
    bool isProposed = false;
    bool isLevel = false;
    PaperLoop polygon;
};

// The part of a polygon on one side of a line: where a x + b y >= c.
std::vector<Vector3> Clipped(const std::vector<Vector3>& polygon, double a, double b, double c) {
    std::vector<Vector3> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vector3& from = polygon[i];
        const Vector3& to = polygon[(i + 1) % polygon.size()];
        const double before = a * from.x + b * from.y - c;
        const double after = a * to.x + b * to.y - c;
        if (before >= 0.0)
            kept.push_back(from);
        if ((before >= 0.0) != (after >= 0.0))
            kept.push_back(from + (to - from) * (before / (before - after)));
    }
    return kept;
}

// On paper; what lies far outside of the frame is cut off a little outside of it. Empty where nothing is seen.
PaperLoop PolygonOnPaper(const Occluder& face, const PlanSheet& sheet) {
    constexpr double kBeside = 2000.0;
    std::vector<Vector3> places;
    bool isFar = false;
    for (int i = 0; i < face.count; ++i) {
        const Vector3 place = sheet.Place(face.corners[i].x / kMillimetres, face.corners[i].y / kMillimetres);
        if (!std::isfinite(place.x) || !std::isfinite(place.y) || !std::isfinite(face.corners[i].z))
            return {};
        isFar = isFar || sheet.IsFarOutside(place);
        places.push_back(place);
    }
    if (isFar) {
        places = Clipped(places, 1.0, 0.0, sheet.frame.left - kBeside);
        places = Clipped(places, -1.0, 0.0, -sheet.frame.right - kBeside);
        places = Clipped(places, 0.0, 1.0, sheet.frame.top - kBeside);
        places = Clipped(places, 0.0, -1.0, -sheet.frame.bottom - kBeside);
    }
    PaperLoop polygon;
    for (const Vector3& place : places)
        polygon.push_back({static_cast<int>(std::lround(place.x)), static_cast<int>(std::lround(place.y))});
    if (polygon.size() < 3 || !BoxAround({polygon}).Meets(sheet.frame))
        polygon.clear();
    return polygon;
}

bool IsUnderside(const Occluder& face, const Vector3& normal) {
    return (face.outside == Occluder::Outside::Before && normal.z < 0.0) ||
           (face.outside == Occluder::Outside::Behind && normal.z > 0.0);
}

int BuildingOf(const OccluderSet& set, const Occluder& face) {
    return face.body >= 0 ? face.body : set.bodyCount + face.joined;
}

// Where each building stands: how low its faces reach, millimetres.
std::unordered_map<int, double> FeetOf(const OccluderSet& set) {
    std::unordered_map<int, double> feet;
    for (const Occluder& face : set.faces)
        for (int i = 0; i < face.count; ++i) {
            const double z = face.corners[i].z;
            if (!std::isfinite(z))
                continue;
            double& foot = feet.try_emplace(BuildingOf(set, face), z).first->second;
            foot = std::min(foot, z);
        }
    return feet;
}

std::vector<SeenFace> SeenFrom(const OccluderSet& set, const PlanSheet& sheet, bool withProject) {
    std::vector<SeenFace> seen;
    for (std::uint32_t i = 0; i < set.faces.size(); ++i) {
        const Occluder& face = set.faces[i];
        SeenFace each;
        each.isProposed = set.IsProposed(face.entity);
        const Vector3 normal = face.Normal();
        const double length = Length(normal);
        if ((each.isProposed && !withProject) || !(std::abs(normal.z) > kSteep * length) || IsUnderside(face, normal))
            continue;
        each.polygon = PolygonOnPaper(face, sheet);
        if (each.polygon.empty())
            continue;
        each.face = i;
        each.normal = normal * ((normal.z < 0.0 ? -1.0 : 1.0) / length);
        const auto [low, high] = std::minmax_element(face.corners, face.corners + face.count,
                                                     [](const Vector3& a, const Vector3& b) { return a.z < b.z; });
        each.low = low->z;
        each.high = high->z;
        each.isLevel = each.high - each.low < kOneLevel;
        each.building = BuildingOf(set, face);
        seen.push_back(std::move(each));
    }
    return seen;
}

// Those of one building at one height.
void JoinLevelOnes(const std::vector<SeenFace>& seen, JoinedSets& sets) {
    std::vector<std::uint32_t> level;
    for (std::uint32_t i = 0; i < seen.size(); ++i)
        if (seen[i].isLevel)
            level.push_back(i);
    const auto key = [&](std::uint32_t i) { return std::tie(seen[i].building, seen[i].isProposed, seen[i].low); };
    std::sort(level.begin(), level.end(), [&](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
    for (std::size_t i = 1; i < level.size(); ++i) {
        const SeenFace& before = seen[level[i - 1]];
        const SeenFace& each = seen[level[i]];
        if (each.building == before.building && each.isProposed == before.isProposed &&
            each.low - before.low < kOneLevel)
            sets.Join(level[i - 1], level[i]);
    }
}

// Those that share a side where they hardly bend. A side is known by its ends on paper, and by their heights.
void JoinTiltedOnes(const OccluderSet& set, const std::vector<SeenFace>& seen, JoinedSets& sets) {
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> sides;
    const auto hash = [](const Vector3& corner) {
        std::uint64_t mixed = 0;
        for (const double part : {corner.x, corner.y, corner.z})
            mixed = (mixed ^ static_cast<std::uint64_t>(std::llround(std::clamp(part, -1e15, 1e15)))) *
                    0x9E3779B97F4A7C15ULL;
        return mixed ^ mixed >> 31;
    };
    for (std::uint32_t i = 0; i < seen.size(); ++i) {
        const Occluder& face = set.faces[seen[i].face];
        for (int k = 0; !seen[i].isLevel && k < face.count; ++k) {
            std::vector<std::uint32_t>& beside =
                sides[hash(face.corners[k]) + hash(face.corners[(k + 1) % face.count])];
            for (const std::uint32_t other : beside)
                if (seen[other].building == seen[i].building && seen[other].isProposed == seen[i].isProposed &&
                    Dot(seen[other].normal, seen[i].normal) > kOnePlane)
                    sets.Join(other, i);
            // More than two at a side are no roof.
            if (beside.size() < 2)
                beside.push_back(i);
        }
    }
}

}  // namespace

std::vector<PlanRoof> FindRoofs(const OccluderSet& set, const PlanSheet& sheet, bool withProject) {
    const std::vector<SeenFace> seen = SeenFrom(set, sheet, withProject);
    JoinedSets sets(seen.size());
    JoinLevelOnes(seen, sets);
    JoinTiltedOnes(set, seen, sets);
    std::vector<std::vector<std::uint32_t>> groups(seen.size());
    for (std::uint32_t i = 0; i < seen.size(); ++i)
        groups[sets.Root(i)].push_back(i);
    const std::unordered_map<int, double> feet = FeetOf(set);
    std::vector<PlanRoof> roofs;
    for (const std::vector<std::uint32_t>& group : groups) {
        if (group.empty())
            continue;
        const SeenFace& first = seen[group[0]];
        PlanRoof roof{{}, {}, first.low, first.high, feet.at(first.building), first.building, first.isProposed};
        PaperUnion covered;
        for (const std::uint32_t index : group) {
            covered.Add(seen[index].polygon);
            roof.low = std::min(roof.low, seen[index].low);
            roof.high = std::max(roof.high, seen[index].high);
        }
        roof.loops = covered.TakeLoops();
        roof.low /= kMillimetres;
        roof.high /= kMillimetres;
        roof.foot /= kMillimetres;
        if (roof.loops.empty())
            continue;
        roof.box = BoxAround(roof.loops);
        if (std::max(roof.box.Width(), roof.box.Height()) >= kSmallest)
            roofs.push_back(std::move(roof));
    }
    std::stable_sort(roofs.begin(), roofs.end(),
                     [](const PlanRoof& a, const PlanRoof& b) { return a.low + a.high < b.low + b.high; });
    return roofs;
}
