// Joins the crossings of a lattice to lines, and cuts them off at the area's edge.
#include "analysis/Isolines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/AreaBorder.h"
#include "analysis/CrossedLattice.h"

namespace {

constexpr double kAllowedOff = 0.01;  // of the spacing, that a line may lie off its crossings to be of fewer points

// The sides of a square counter-clockwise, each from the corner of its number.
LatticeEdge SideOf(std::uint64_t cell, std::size_t side) {
    const auto [x, y] = NodeOf(cell);
    switch (side) {
        case 0:
            return {cell, false};
        case 1:
            return {NodeKey(x + 1, y), true};
        case 2:
            return {NodeKey(x, y + 1), false};
        default:
            return {cell, true};
    }
}

class LinesOfHours {
public:
    LinesOfHours(const CrossedLattice& crossed, int hours);
    // Each with its last point unlike its first, also where it is closed.
    std::vector<FlatIsoline> Join();

private:
    struct Piece {
        LatticeEdge from;
        LatticeEdge to;
        bool isTaken = false;
    };

    void AddPieces(const CrossedCell& cell);
    Piece* From(const LatticeEdge& edge);
    FlatPoint PlaceOn(const LatticeEdge& edge) const;
    FlatIsoline Follow(Piece& first);

    const CrossedLattice& m_crossed;
    int m_hours;
    std::vector<Piece> m_pieces;  // by `from`, of which each is there once
};

LinesOfHours::LinesOfHours(const CrossedLattice& crossed, int hours) : m_crossed(crossed), m_hours(hours) {
    for (const CrossedCell& cell : crossed.cells)
        AddPieces(cell);
    std::sort(m_pieces.begin(), m_pieces.end(), [](const Piece& a, const Piece& b) { return a.from < b.from; });
}

// From each side where more hours end to the next one where they begin: where corners across from each other have more,
// these are joined. So lines of different hours do not cross.
void LinesOfHours::AddPieces(const CrossedCell& cell) {
    const auto hasMore = [&](std::size_t corner) { return cell.hours[corner % 4] >= m_hours; };
    for (std::size_t from = 0; from < 4; ++from) {
        if (!hasMore(from) || hasMore(from + 1))
            continue;
        std::size_t to = from + 1;
        while (!hasMore(to + 1))
            ++to;
        m_pieces.push_back({SideOf(cell.node, from), SideOf(cell.node, to % 4)});
    }
}

LinesOfHours::Piece* LinesOfHours::From(const LatticeEdge& edge) {
    const auto found = std::lower_bound(m_pieces.begin(), m_pieces.end(), edge,
                                        [](const Piece& piece, const LatticeEdge& key) { return piece.from < key; });
    return found == m_pieces.end() || found->from != edge ? nullptr : &*found;
}

FlatPoint LinesOfHours::PlaceOn(const LatticeEdge& edge) const {
    const auto found =
        std::lower_bound(m_crossed.edges.begin(), m_crossed.edges.end(), edge,
                         [](const CrossedEdge& each, const LatticeEdge& key) { return each.edge < key; });
    const int least = std::min(found->fromHours, found->toHours);
    return m_crossed.places[found->firstPlace + static_cast<std::size_t>(m_hours - least - 1)];
}

FlatIsoline LinesOfHours::Follow(Piece& first) {
    FlatIsoline line;
    line.hours = m_hours;
    line.points.push_back(PlaceOn(first.from));
    Piece* piece = &first;
    while (piece && !piece->isTaken) {
        piece->isTaken = true;
        line.points.push_back(PlaceOn(piece->to));
        line.isClosed = piece->to == first.from;
        piece = From(piece->to);
    }
    if (line.isClosed)
        line.points.pop_back();
    return line;
}

// First those that begin somewhere.
std::vector<FlatIsoline> LinesOfHours::Join() {
    std::vector<LatticeEdge> ends;
    for (const Piece& piece : m_pieces)
        ends.push_back(piece.to);
    std::sort(ends.begin(), ends.end());
    std::vector<FlatIsoline> lines;
    for (Piece& piece : m_pieces)
        if (!std::binary_search(ends.begin(), ends.end(), piece.from))
            lines.push_back(Follow(piece));
    for (Piece& piece : m_pieces)
        if (!piece.isTaken)
            lines.push_back(Follow(piece));
    return lines;
}

// What of a line lies in the area.
std::vector<FlatIsoline> CutOff(const FlatIsoline& line, const AreaBorder& border) {
    std::vector<FlatIsoline> parts;
    bool goesOn = false;
    const std::size_t count = line.isClosed ? line.points.size() : line.points.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const FlatPoint& a = line.points[i];
        const FlatPoint& b = line.points[(i + 1) % line.points.size()];
        const auto at = [&](double part) { return FlatPoint{a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}; };
        if (!border.IsNear(a) && !border.IsInside(a)) {
            goesOn = false;
            continue;
        }
        double end = 0.0;
        for (const auto& [from, to] : border.PartsInside(a, b)) {
            if (!goesOn || from > 0.0)
                parts.push_back({line.hours, false, {at(from)}});
            parts.back().points.push_back(to < 1.0 ? at(to) : b);
            goesOn = true;
            end = to;
        }
        goesOn = end == 1.0;
    }
    if (!line.isClosed || parts.empty() || !goesOn)
        return parts;
    const FlatPoint& first = parts.front().points.front();
    if (first.x != line.points[0].x || first.y != line.points[0].y)
        return parts;
    FlatIsoline last = std::move(parts.back());
    last.points.pop_back();
    parts.pop_back();
    if (parts.empty())
        last.isClosed = true;
    else
        last.points.insert(last.points.end(), parts.front().points.begin(), parts.front().points.end());
    (parts.empty() ? parts.emplace_back() : parts.front()) = std::move(last);
    return parts;
}

// The directions from a point in which all that is passed over lies near enough.
class Sight {
public:
    Sight(const FlatPoint& from, double allowed) : m_from(from), m_allowed(allowed) {}
    // Whether a way to this place passes close by all places before; it is one of them from then on.
    bool Reaches(const FlatPoint& place) {
        const FlatPoint way{place.x - m_from.x, place.y - m_from.y};
        const double far = std::hypot(way.x, way.y);
        if (far < m_farthest)
            return false;
        m_farthest = far;
        if (far <= m_allowed)
            return m_isOpen;
        if (m_isOpen)
            m_middle = {way.x / far, way.y / far};
        const double turn =
            std::atan2(m_middle.x * way.y - m_middle.y * way.x, m_middle.x * way.x + m_middle.y * way.y);
        const bool isSeen = m_isOpen || (turn >= m_least && turn <= m_most);
        const double half = std::asin(m_allowed / far);
        m_least = m_isOpen ? turn - half : std::max(m_least, turn - half);
        m_most = m_isOpen ? turn + half : std::min(m_most, turn + half);
        m_isOpen = false;
        return isSeen;
    }

private:
    FlatPoint m_from;
    double m_allowed;
    double m_farthest = 0.0;
    bool m_isOpen = true;
    FlatPoint m_middle;
    double m_least = 0.0;
    double m_most = 0.0;
};

// Of fewer points. Those that stay are some of the line's, its ends among them.
void Simplify(FlatIsoline& line, double allowed) {
    std::vector<FlatPoint> all = line.points;
    if (line.isClosed)
        all.push_back(all.front());
    std::vector<FlatPoint> kept{all.front()};
    Sight sight(all.front(), allowed);
    for (std::size_t i = 1; i < all.size(); ++i)
        if (!sight.Reaches(all[i])) {
            kept.push_back(all[i - 1]);
            sight = Sight(all[i - 1], allowed);
            sight.Reaches(all[i]);
        }
    if (!line.isClosed)
        kept.push_back(all.back());
    if (!line.isClosed || kept.size() >= 3)
        line.points = std::move(kept);
}

double LengthOf(const std::vector<FlatPoint>& points) {
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    return length;
}

}  // namespace

IsolineOutcome FindIsolines(const IsolineSearch& search, std::size_t& cellsLeft, std::vector<FlatIsoline>& lines) {
    lines.clear();
    if (search.mostHours < 1)
        return IsolineOutcome::Done;
    const double pitch = search.spacing / kNodesPerSpacing;
    std::vector<FlatPoint> round = search.area.corners;
    round.push_back(round.front());
    if (LengthOf(round) / pitch > static_cast<double>(cellsLeft))
        return IsolineOutcome::TooMany;
    const AreaBorder border(search.area.corners, search.spacing, 2.0 * pitch);
    CrossedLattice crossed;
    const IsolineOutcome outcome = FindCrossings(search, border, cellsLeft, crossed);
    if (outcome != IsolineOutcome::Done)
        return outcome;
    for (int hours = 1; hours <= search.mostHours; ++hours)
        for (const FlatIsoline& line : LinesOfHours(crossed, hours).Join())
            for (FlatIsoline& part : CutOff(line, border)) {
                Simplify(part, kAllowedOff * search.spacing);
                if (LengthOf(part.points) > 0.0)
                    lines.push_back(std::move(part));
            }
    return IsolineOutcome::Done;
}
