// Finds closed bodies: numbers the corners, counts the faces at each edge, takes away what has an edge of its own.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "analysis/CornerWeld.h"
#include "analysis/JoinedSets.h"
#include "analysis/OccluderSet.h"
#include "analysis/OutsideFaces.h"
#include "analysis/SharedEdges.h"

namespace {

constexpr double kSameCorner = 0.1;  // millimetres
constexpr std::size_t kFewestFaces = 4;

// The corners of a face by number; a triangle repeats the first one.
using Corners = std::array<std::uint32_t, 4>;

class BodyFinder {
public:
    explicit BodyFinder(OccluderSet& set);
    // Looks for bodies among these faces.
    void LookAmong(const std::vector<std::uint32_t>& faces);
    // Numbers the sets of the faces that belong to no body.
    void JoinLooseFaces();

private:
    void ListEdges();
    void TakeAwayFlaps();
    void TakeAway(std::uint32_t face, std::vector<std::size_t>& single);
    void JoinOverEdges();
    void AddBodies(JoinedSets& joined, const std::vector<bool>& isOpen);
    bool HoldsSpace(const std::vector<std::uint32_t>& faces) const;

    OccluderSet& m_set;
    CornerWeld m_weld{kSameCorner};
    std::vector<Corners> m_corners;

    // Of the faces that are looked among, by their place in m_faces.
    std::vector<std::uint32_t> m_faces;
    std::vector<FaceEdge> m_edges;
    std::vector<std::size_t> m_firstOfSame;   // for each edge where those between its corners begin
    std::vector<std::uint32_t> m_atEdge;      // there: how many faces are left
    std::vector<std::size_t> m_edgesOfFaces;  // each face's edges, one face's behind the other's
    std::vector<std::size_t> m_firstOfFace;
    std::vector<bool> m_isLeft;
};

BodyFinder::BodyFinder(OccluderSet& set) : m_set(set) {
    m_corners.reserve(set.faces.size());
    for (const Occluder& face : set.faces) {
        Corners& corners = m_corners.emplace_back();
        for (int i = 0; i < face.count; ++i)
            corners[static_cast<std::size_t>(i)] = m_weld.NumberOf(face.corners[i]);
        if (face.count == 3)
            corners[3] = corners[0];
    }
}

void BodyFinder::LookAmong(const std::vector<std::uint32_t>& faces) {
    if (faces.size() < kFewestFaces)
        return;
    m_faces = faces;
    ListEdges();
    TakeAwayFlaps();
    JoinOverEdges();
}

void BodyFinder::ListEdges() {
    m_edges.clear();
    for (std::uint32_t i = 0; i < m_faces.size(); ++i) {
        const Corners& corners = m_corners[m_faces[i]];
        for (std::size_t k = 0; k < 4; ++k) {
            const std::uint32_t from = corners[k];
            const std::uint32_t to = corners[(k + 1) % 4];
            if (from != to)
                m_edges.push_back({std::min(from, to), std::max(from, to), i});
        }
    }
    SortEdges(m_edges);
    DivideOddEdges(m_edges, m_weld.Places(), kSameCorner);

    m_firstOfSame.resize(m_edges.size());
    m_atEdge.assign(m_edges.size(), 0);
    m_firstOfFace.assign(m_faces.size() + 1, 0);
    for (std::size_t first = 0, end = 0; first < m_edges.size(); first = end) {
        end = EndOfSame(m_edges, first);
        m_atEdge[first] = static_cast<std::uint32_t>(end - first);
        for (std::size_t i = first; i < end; ++i) {
            m_firstOfSame[i] = first;
            ++m_firstOfFace[m_edges[i].face + 1];
        }
    }
    for (std::size_t i = 0; i < m_faces.size(); ++i)
        m_firstOfFace[i + 1] += m_firstOfFace[i];
    m_edgesOfFaces.resize(m_edges.size());
    std::vector<std::size_t> next(m_firstOfFace.begin(), m_firstOfFace.end() - 1);
    for (std::size_t i = 0; i < m_edges.size(); ++i)
        m_edgesOfFaces[next[m_edges[i].face]++] = i;
}

// A face with an edge where no other stands bounds nothing, and once it is gone its neighbours may be such faces too.
void BodyFinder::TakeAwayFlaps() {
    m_isLeft.assign(m_faces.size(), true);
    std::vector<std::size_t> single;
    for (std::size_t i = 0; i < m_edges.size(); ++i)
        if (m_atEdge[i] == 1)
            single.push_back(i);
    while (!single.empty()) {
        const std::size_t first = single.back();
        single.pop_back();
        for (std::size_t i = first; i < m_edges.size() && m_firstOfSame[i] == first; ++i)
            if (m_isLeft[m_edges[i].face])
                TakeAway(m_edges[i].face, single);
    }
}

void BodyFinder::TakeAway(std::uint32_t face, std::vector<std::size_t>& single) {
    m_isLeft[face] = false;
    for (std::size_t i = m_firstOfFace[face]; i < m_firstOfFace[face + 1]; ++i) {
        const std::size_t first = m_firstOfSame[m_edgesOfFaces[i]];
        if (--m_atEdge[first] == 1)
            single.push_back(first);
    }
}

void BodyFinder::JoinOverEdges() {
    JoinedSets joined(m_faces.size());
    std::vector<std::uint32_t> odd;
    for (std::size_t first = 0, end = 0; first < m_edges.size(); first = end) {
        end = EndOfSame(m_edges, first);
        std::uint32_t one = UINT32_MAX;
        for (std::size_t i = first; i < end; ++i) {
            const std::uint32_t face = m_edges[i].face;
            if (!m_isLeft[face])
                continue;
            if (one != UINT32_MAX)
                joined.Join(one, face);
            one = face;
        }
        if (m_atEdge[first] % 2 != 0)
            odd.push_back(one);
    }
    std::vector<bool> isOpen(m_faces.size(), false);
    for (const std::uint32_t face : odd)
        isOpen[joined.Root(face)] = true;
    AddBodies(joined, isOpen);
}

void BodyFinder::AddBodies(JoinedSets& joined, const std::vector<bool>& isOpen) {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> closed;  // the set and the face
    for (std::uint32_t i = 0; i < m_faces.size(); ++i)
        if (m_isLeft[i] && !isOpen[joined.Root(i)])
            closed.emplace_back(joined.Root(i), m_faces[i]);
    std::sort(closed.begin(), closed.end());
    std::vector<std::uint32_t> body;
    for (std::size_t i = 0; i < closed.size(); ++i) {
        body.push_back(closed[i].second);
        if (i + 1 < closed.size() && closed[i + 1].first == closed[i].first)
            continue;
        if (HoldsSpace(body)) {
            for (const std::uint32_t face : body)
                m_set.faces[face].body = m_set.bodyCount;
            ++m_set.bodyCount;
        }
        body.clear();
    }
}

// Whether there is anything between the faces: those that are the same in pairs enclose nothing, and neither do those
// of one plane.
bool BodyFinder::HoldsSpace(const std::vector<std::uint32_t>& faces) const {
    std::vector<std::pair<Corners, std::uint32_t>> rest;
    rest.reserve(faces.size());
    for (const std::uint32_t face : faces) {
        Corners corners = m_corners[face];
        std::sort(corners.begin(), corners.end());
        rest.emplace_back(corners, face);
    }
    std::sort(rest.begin(), rest.end());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < rest.size(); ++i)
        if (i + 1 < rest.size() && rest[i].first == rest[i + 1].first)
            ++i;
        else
            rest[kept++] = rest[i];
    if (kept == 0)
        return false;
    const Occluder& first = m_set.faces[rest[0].second];
    const Vector3 normal = first.Normal();
    const double farthest = kSameCorner * Length(normal);
    for (std::size_t i = 1; i < kept; ++i) {
        const Occluder& face = m_set.faces[rest[i].second];
        for (int k = 0; k < face.count; ++k)
            if (std::fabs(Dot(face.corners[k] - first.corners[0], normal)) > farthest)
                return true;
    }
    return false;
}

void BodyFinder::JoinLooseFaces() {
    JoinedSets joined(m_weld.Places().size());
    for (std::size_t i = 0; i < m_corners.size(); ++i)
        if (m_set.faces[i].body < 0)
            for (const std::uint32_t corner : m_corners[i])
                joined.Join(m_corners[i][0], corner);
    std::vector<std::int32_t> number(m_weld.Places().size(), -1);
    for (std::size_t i = 0; i < m_corners.size(); ++i) {
        if (m_set.faces[i].body >= 0)
            continue;
        std::int32_t& own = number[joined.Root(m_corners[i][0])];
        if (own < 0)
            own = m_set.joinedCount++;
        m_set.faces[i].joined = own;
    }
}

}  // namespace

void FindClosedBodies(OccluderSet& set) {
    BodyFinder finder(set);
    std::vector<std::uint32_t> faces;
    const auto count = static_cast<std::uint32_t>(set.faces.size());
    for (std::uint32_t first = 0, end = 0; first < count; first = end) {
        const std::uint32_t drawn = set.DrawnAs(set.faces[first].entity);
        for (end = first; end < count && set.DrawnAs(set.faces[end].entity) == drawn; ++end)
            faces.push_back(end);
        finder.LookAmong(faces);
        faces.clear();
    }
    for (std::uint32_t i = 0; i < count; ++i)
        if (set.faces[i].body < 0)
            faces.push_back(i);
    finder.LookAmong(faces);
    finder.JoinLooseFaces();
    TellOutsides(set);
}
