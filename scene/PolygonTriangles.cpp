// Ear clipping with a list of the corners that are left and the state of each.
//
// Every triangle that is cut off has the outline's sense of rotation. So the number of triangles over any place is the
// number of times that the outline winds around it, and an outline that winds the other way anywhere cannot be used up:
// whether the corners between are looked at closely decides only whether the work comes to an end.
#include "scene/PolygonTriangles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/geometry/Tolerance.h"

namespace {

double Cross(const FlatPoint& a, const FlatPoint& b, const FlatPoint& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double Distance(const FlatPoint& a, const FlatPoint& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Whether a corner's two edges enclose an area: its height over the line between its neighbours is more than g_fZero
// and more than a thousand-millionth of the longest side.
bool EnclosesArea(const FlatPoint& a, const FlatPoint& b, const FlatPoint& c) {
    const double longest = std::max({Distance(a, b), Distance(b, c), Distance(c, a)});
    return std::fabs(Cross(a, b, c)) > LeastTwiceArea(longest);
}

bool IsSamePlace(const FlatPoint& a, const FlatPoint& b) {
    return a.x == b.x && a.y == b.y;
}

struct Edge {
    Edge(const FlatPoint& a, const FlatPoint& b)
        : from(a),
          to(b),
          left(std::min(a.x, b.x)),
          right(std::max(a.x, b.x)),
          low(std::min(a.y, b.y)),
          high(std::max(a.y, b.y)),
          length(Distance(a, b)) {}

    // On which side a point is: 1 left, -1 right, 0 on the line within the tolerance.
    int SideOf(const FlatPoint& point) const {
        const double cross = Cross(from, to, point);
        if (std::fabs(cross) <= g_fZero * length)
            return 0;
        return cross > 0.0 ? 1 : -1;
    }

    FlatPoint from, to;
    double left, right, low, high, length;
};

bool AreCrossing(const Edge& a, const Edge& b) {
    return a.low <= b.high && b.low <= a.high && a.SideOf(b.from) * a.SideOf(b.to) < 0 &&
           b.SideOf(a.from) * b.SideOf(a.to) < 0;
}

// Whether two edges cross within both; touching is no crossing. Edges are compared only where their ranges overlap.
bool CrossesItself(const std::vector<FlatPoint>& outline) {
    std::vector<Edge> edges;
    edges.reserve(outline.size());
    for (std::size_t i = 0; i < outline.size(); ++i)
        edges.emplace_back(outline[i], outline[(i + 1) % outline.size()]);
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.left < b.left; });
    for (std::size_t i = 0; i < edges.size(); ++i)
        for (std::size_t k = i + 1; k < edges.size() && edges[k].left <= edges[i].right; ++k)
            if (AreCrossing(edges[i], edges[k]))
                return true;
    return false;
}

class EarClipper {
public:
    explicit EarClipper(const std::vector<FlatPoint>& outline);
    bool Run(std::vector<PolygonPiece>& pieces);

private:
    enum class Ear : std::uint8_t { Unknown, No, Yes, Flat };
    struct Node {
        std::size_t before, behind;
        Ear ear;
        bool isReflex;
        bool isHidden;  // the edge to the node behind
    };

    bool IsFlat(std::size_t node) const;
    bool IsEar(std::size_t node) const;
    bool IsBlockedBy(std::size_t other, const FlatPoint& a, const FlatPoint& b, const FlatPoint& c) const;
    void Look(std::size_t node);
    void Remove(std::size_t node, bool isHidden);
    void CutOff(std::size_t node, std::vector<PolygonPiece>& pieces);
    std::size_t RemoveFlat();
    void RemoveFlat(std::size_t node);
    Ear Judge(std::size_t node) const;
    bool TakeAway(std::size_t node, std::vector<PolygonPiece>& pieces);

    std::vector<FlatPoint> m_points;  // counter-clockwise
    std::vector<Node> m_nodes;
    std::vector<std::size_t> m_reflex;  // those that were reflex at first; only these can be now
    std::size_t m_left;
    bool m_isTouchingAllowed = false;
};

// Mirrored when it runs clockwise, so that one sense is enough below: the corners' order stays.
EarClipper::EarClipper(const std::vector<FlatPoint>& outline) : m_points(outline), m_left(outline.size()) {
    if (TwiceSignedArea(outline) < 0.0)
        for (FlatPoint& point : m_points)
            point.x = -point.x;
    m_nodes.resize(m_left);
    for (std::size_t i = 0; i < m_left; ++i)
        m_nodes[i] = {(i + m_left - 1) % m_left, (i + 1) % m_left, Ear::Unknown, false, m_points[i].isHidden};
    for (std::size_t i = 0; i < m_left; ++i) {
        m_nodes[i].isReflex = Cross(m_points[m_nodes[i].before], m_points[i], m_points[m_nodes[i].behind]) < 0.0;
        if (m_nodes[i].isReflex)
            m_reflex.push_back(i);
    }
}

// Whether a corner encloses nothing with its neighbours.
bool EarClipper::IsFlat(std::size_t node) const {
    return !EnclosesArea(m_points[m_nodes[node].before], m_points[node], m_points[m_nodes[node].behind]);
}

// Only reflex corners can be in the way, for where anything reaches into an ear one of them does.
bool EarClipper::IsEar(std::size_t node) const {
    if (m_nodes[node].isReflex)
        return false;
    const FlatPoint& a = m_points[m_nodes[node].before];
    const FlatPoint& b = m_points[node];
    const FlatPoint& c = m_points[m_nodes[node].behind];
    return std::none_of(m_reflex.begin(), m_reflex.end(),
                        [&](std::size_t other) { return m_nodes[other].isReflex && IsBlockedBy(other, a, b, c); });
}

bool EarClipper::IsBlockedBy(std::size_t other, const FlatPoint& a, const FlatPoint& b, const FlatPoint& c) const {
    const FlatPoint& point = m_points[other];
    const double ab = Cross(a, b, point);
    const double bc = Cross(b, c, point);
    const double ca = Cross(c, a, point);
    if (m_isTouchingAllowed)
        return ab > 0.0 && bc > 0.0 && ca > 0.0;
    return ab >= 0.0 && bc >= 0.0 && ca >= 0.0 && !IsSamePlace(point, a) && !IsSamePlace(point, b) &&
           !IsSamePlace(point, c);
}

// A corner's state after a neighbour has gone. A reflex corner can become an ordinary one, never the other way round.
void EarClipper::Look(std::size_t node) {
    m_nodes[node].ear = Ear::Unknown;
    if (m_nodes[node].isReflex)
        m_nodes[node].isReflex =
            Cross(m_points[m_nodes[node].before], m_points[node], m_points[m_nodes[node].behind]) < 0.0;
}

void EarClipper::Remove(std::size_t node, bool isHidden) {
    const auto [before, behind] = std::pair(m_nodes[node].before, m_nodes[node].behind);
    m_nodes[before].behind = behind;
    m_nodes[before].isHidden = isHidden;
    m_nodes[behind].before = before;
    m_nodes[node].isReflex = false;
    --m_left;
    Look(before);
    Look(behind);
}

void EarClipper::CutOff(std::size_t node, std::vector<PolygonPiece>& pieces) {
    const Node& tip = m_nodes[node];
    const bool isLast = m_left == 3;
    pieces.push_back({{tip.before, node, tip.behind},
                      {m_nodes[tip.before].isHidden, tip.isHidden, isLast ? m_nodes[tip.behind].isHidden : true},
                      3});
    Remove(node, true);
}

// Corners in one line with their neighbours go first: what is left has no more pieces than it needs. Gives a corner
// that is left.
std::size_t EarClipper::RemoveFlat() {
    std::size_t node = 0;
    for (std::size_t passed = 0; m_left >= 3 && passed < m_left;) {
        if (!IsFlat(node)) {
            node = m_nodes[node].behind;
            ++passed;
            continue;
        }
        // Both neighbours have to be looked at again.
        const std::size_t before = m_nodes[node].before;
        RemoveFlat(node);
        node = before;
        passed = passed > 2 ? passed - 2 : 0;
    }
    return node;
}

void EarClipper::RemoveFlat(std::size_t node) {
    Remove(node, m_nodes[m_nodes[node].before].isHidden && m_nodes[node].isHidden);
}

EarClipper::Ear EarClipper::Judge(std::size_t node) const {
    if (IsFlat(node))
        return Ear::Flat;
    return IsEar(node) ? Ear::Yes : Ear::No;
}

// Takes a corner away if it is an ear or encloses nothing any more.
bool EarClipper::TakeAway(std::size_t node, std::vector<PolygonPiece>& pieces) {
    if (m_nodes[node].ear == Ear::Unknown)
        m_nodes[node].ear = Judge(node);
    if (m_nodes[node].ear == Ear::No)
        return false;
    if (m_nodes[node].ear == Ear::Yes)
        CutOff(node, pieces);
    else
        RemoveFlat(node);
    return true;
}

// Cutting an ear off changes which corners are ears at its two neighbours only: each corner is looked at a few times.
bool EarClipper::Run(std::vector<PolygonPiece>& pieces) {
    std::size_t node = RemoveFlat();
    for (std::size_t passed = 0; m_left >= 3;) {
        const std::size_t behind = m_nodes[node].behind;
        if (TakeAway(node, pieces)) {
            passed = 0;
            // The next but one: fans of thin triangles come of always going on at the neighbour.
            node = m_nodes[behind].behind;
            continue;
        }
        node = behind;
        if (++passed < m_left)
            continue;
        if (m_isTouchingAllowed)
            return false;
        m_isTouchingAllowed = true;
        passed = 0;
        for (Node& each : m_nodes)
            each.ear = Ear::Unknown;
    }
    return true;
}

bool IsConvexQuadrilateral(const std::vector<FlatPoint>& outline) {
    if (outline.size() != 4)
        return false;
    int left = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const FlatPoint& a = outline[i];
        const FlatPoint& b = outline[(i + 1) % 4];
        const FlatPoint& c = outline[(i + 2) % 4];
        if (!EnclosesArea(a, b, c))
            return false;
        left += Cross(a, b, c) > 0.0 ? 1 : 0;
    }
    return left == 0 || left == 4;
}

}  // namespace

double TwiceSignedArea(const std::vector<FlatPoint>& outline) {
    double area = 0.0;
    for (std::size_t i = 1; i + 1 < outline.size(); ++i)
        area += Cross(outline[0], outline[i], outline[i + 1]);
    return area;
}

double LeastTwiceArea(double longest) {
    constexpr double kFlatness = 1e-9;
    return longest * std::max(g_fZero, kFlatness * longest);
}

bool DividePolygon(const std::vector<FlatPoint>& outline, std::vector<PolygonPiece>& pieces) {
    pieces.clear();
    if (outline.size() < 3 || outline.size() > kMostPolygonCorners)
        return false;
    if (IsConvexQuadrilateral(outline)) {
        pieces.push_back(
            {{0, 1, 2, 3}, {outline[0].isHidden, outline[1].isHidden, outline[2].isHidden, outline[3].isHidden}, 4});
        return true;
    }
    if (CrossesItself(outline) || !EarClipper(outline).Run(pieces))
        pieces.clear();
    return !pieces.empty();
}
