// Finds by a tree of boxes which corners lie on which edges.
#include "analysis/SharedEdges.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "analysis/BoxTree.h"

namespace {

// Beyond as many parts for each edge, and so many at all, the corners are not those of a building.
constexpr std::size_t kMostPartsOfAnEdge = 16;
constexpr std::size_t kAlwaysAllowedParts = 65536;

// A line from one corner to another, widened by a tolerance.
class Segment {
public:
    Segment(const Vector3& from, const Vector3& to, double tolerance)
        : m_from(from), m_way(to - from), m_length(Length(m_way)), m_tolerance(tolerance) {}

    bool Reaches(const Box& box) const {
        double enter = 0.0;
        double leave = 1.0;
        return Cut(m_from.x, m_way.x, box.least.x, box.most.x, enter, leave) &&
               Cut(m_from.y, m_way.y, box.least.y, box.most.y, enter, leave) &&
               Cut(m_from.z, m_way.z, box.least.z, box.most.z, enter, leave);
    }
    // How far along it a place lies that is on it, its ends aside; else a negative number.
    double PlaceOf(const Vector3& place) const {
        const Vector3 to = place - m_from;
        const double along = Dot(to, m_way) / m_length;
        const bool isWithin = along > m_tolerance && along < m_length - m_tolerance;
        return isWithin && Length(to - m_way * (along / m_length)) <= m_tolerance ? along : -1.0;
    }

private:
    bool Cut(double from, double way, double least, double most, double& enter, double& leave) const {
        least -= m_tolerance;
        most += m_tolerance;
        if (std::fabs(way) <= m_tolerance)
            return std::max(from, from + way) >= least && std::min(from, from + way) <= most;
        const double a = (least - from) / way;
        const double b = (most - from) / way;
        enter = std::max(enter, std::min(a, b));
        leave = std::min(leave, std::max(a, b));
        return enter <= leave;
    }

    Vector3 m_from;
    Vector3 m_way;
    double m_length;
    double m_tolerance;
};

// The corners of edges of which an odd number is the same.
std::vector<std::uint32_t> OddCorners(const std::vector<FaceEdge>& edges) {
    std::vector<std::uint32_t> corners;
    for (std::size_t first = 0, end = 0; first < edges.size(); first = end) {
        end = EndOfSame(edges, first);
        if ((end - first) % 2 != 0) {
            corners.push_back(edges[first].from);
            corners.push_back(edges[first].to);
        }
    }
    std::sort(corners.begin(), corners.end());
    corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
    return corners;
}

class EdgeDivider {
public:
    EdgeDivider(const std::vector<std::uint32_t>& corners, const std::vector<Vector3>& places, double tolerance)
        : m_corners(corners), m_places(places), m_tolerance(tolerance) {
        std::vector<Box> boxes;
        boxes.reserve(corners.size());
        for (const std::uint32_t corner : corners)
            boxes.push_back({places[corner], places[corner]});
        m_tree = BoxTree(boxes);
    }

    // The corners from one end of the edge to the other.
    const std::vector<std::uint32_t>& Along(const FaceEdge& edge) {
        const Segment segment(m_places[edge.from], m_places[edge.to], m_tolerance);
        m_found.clear();
        m_tree.Walk([&](const Box& box) { return segment.Reaches(box); },
                    [&](std::size_t index) {
                        const std::uint32_t corner = m_corners[index];
                        const double along = segment.PlaceOf(m_places[corner]);
                        if (along > 0.0 && corner != edge.from && corner != edge.to)
                            m_found.emplace_back(along, corner);
                    });
        std::sort(m_found.begin(), m_found.end());
        m_along.assign(1, edge.from);
        for (const auto& [place, corner] : m_found)
            m_along.push_back(corner);
        m_along.push_back(edge.to);
        return m_along;
    }

private:
    const std::vector<std::uint32_t>& m_corners;
    const std::vector<Vector3>& m_places;
    double m_tolerance;
    BoxTree m_tree;
    std::vector<std::pair<double, std::uint32_t>> m_found;
    std::vector<std::uint32_t> m_along;
};

}  // namespace

void SortEdges(std::vector<FaceEdge>& edges) {
    std::sort(edges.begin(), edges.end(), [](const FaceEdge& a, const FaceEdge& b) {
        return std::tie(a.from, a.to, a.face) < std::tie(b.from, b.to, b.face);
    });
}

std::size_t EndOfSame(const std::vector<FaceEdge>& edges, std::size_t first) {
    std::size_t end = first + 1;
    while (end < edges.size() && edges[end].IsSameAs(edges[first]))
        ++end;
    return end;
}

void DivideOddEdges(std::vector<FaceEdge>& edges, const std::vector<Vector3>& places, double tolerance) {
    const std::vector<std::uint32_t> corners = OddCorners(edges);
    if (corners.empty())
        return;
    const std::size_t most = edges.size() * kMostPartsOfAnEdge + kAlwaysAllowedParts;
    EdgeDivider divider(corners, places, tolerance);
    std::vector<FaceEdge> parts;
    parts.reserve(edges.size());
    for (std::size_t first = 0, end = 0; first < edges.size(); first = end) {
        end = EndOfSame(edges, first);
        if ((end - first) % 2 == 0) {
            parts.insert(parts.end(), edges.begin() + static_cast<std::ptrdiff_t>(first),
                         edges.begin() + static_cast<std::ptrdiff_t>(end));
            continue;
        }
        const std::vector<std::uint32_t>& along = divider.Along(edges[first]);
        if (parts.size() + (along.size() - 1) * (end - first) > most)
            return;
        for (std::size_t i = first; i < end; ++i)
            for (std::size_t k = 0; k + 1 < along.size(); ++k)
                parts.push_back({std::min(along[k], along[k + 1]), std::max(along[k], along[k + 1]), edges[i].face});
    }
    edges.swap(parts);
    SortEdges(edges);
}
