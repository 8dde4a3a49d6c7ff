// Divides the arcs of an outline into chords.
#include "scene/Outline.h"

#include <algorithm>
#include <cmath>

#include "platform/geometry/Tolerance.h"
#include "scene/EntityGroups.h"

namespace {

double Distance(const OutlineVertex& a, const OutlineVertex& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// A vertex on top of the one before gives that one its own bulge: the segment between them is gone.
std::vector<OutlineVertex> WithoutRepeated(const std::vector<OutlineVertex>& vertices, bool& isClosed) {
    std::vector<OutlineVertex> kept;
    kept.reserve(vertices.size());
    for (const OutlineVertex& vertex : vertices)
        if (!kept.empty() && Distance(kept.back(), vertex) < g_fZero)
            kept.back().bulge = vertex.bulge;
        else
            kept.push_back(vertex);
    while (kept.size() > 1 && Distance(kept.back(), kept.front()) < g_fZero) {
        isClosed = true;
        kept.pop_back();
    }
    return kept;
}

// The points of an arc between its ends. A point at the angle `passed` from the start lies in the chord's direction
// turned by half of what is left to go; this needs no centre, which a flat arc has far away.
void AddArc(const OutlineVertex& from, const OutlineVertex& to, std::size_t chords, std::vector<OutlinePoint>& points) {
    const double bulge = from.bulge;
    const double angle = 4.0 * std::atan(bulge);
    const double sineOfHalf = 2.0 * bulge / (1.0 + bulge * bulge);
    for (std::size_t i = 1; i < chords; ++i) {
        const double passed = angle * static_cast<double>(i) / static_cast<double>(chords);
        const double turn = (passed - angle) / 2.0;
        const double scale = std::sin(passed / 2.0) / sineOfHalf;
        const double dx = (to.x - from.x) * scale;
        const double dy = (to.y - from.y) * scale;
        points.push_back({from.x + dx * std::cos(turn) - dy * std::sin(turn),
                          from.y + dx * std::sin(turn) + dy * std::cos(turn), true});
    }
}

bool IsArc(double bulge, double distance) {
    return std::fabs(bulge) * distance / 2.0 >= 4.0 * g_fZero;
}

}  // namespace

std::size_t CountChords(double bulge, double distance, double sagitta) {
    const double size = std::fabs(bulge);
    const double radius = distance * (1.0 + size * size) / (4.0 * size);
    // A chord over the angle a rises by radius * (1 - cos(a / 2)) = 2 * radius * sin(a / 4)^2.
    const double sine = std::sqrt(std::min(1.0, sagitta / (2.0 * radius)));
    const double chords = std::ceil(std::atan(size) / std::asin(sine) * (1.0 - 1e-12));
    if (!(chords < static_cast<double>(kMostChords)))
        return kMostChords;
    return std::max(kLeastChords, static_cast<std::size_t>(chords));
}

bool ComesBack(const std::vector<OutlineVertex>& vertices, bool isClosed) {
    return WithoutRepeated(vertices, isClosed).size() > 1 && isClosed;
}

bool MakeOutline(const std::vector<OutlineVertex>& vertices, bool isClosed, ArcDivision& division, Outline& outline) {
    outline = Outline{{}, isClosed};
    const std::vector<OutlineVertex> kept = WithoutRepeated(vertices, outline.isClosed);
    if (kept.size() < 2)
        return false;
    for (std::size_t i = 0; i < kept.size(); ++i) {
        outline.points.push_back({kept[i].x, kept[i].y, false});
        if (i + 1 == kept.size() && !outline.isClosed)
            break;
        const OutlineVertex& to = kept[(i + 1) % kept.size()];
        const double distance = Distance(kept[i], to);
        if (!IsArc(kept[i].bulge, distance))
            continue;
        ++division.arcs;
        std::size_t chords = CountChords(kept[i].bulge, distance, division.sagitta);
        chords = kLeastChords + std::min(chords - kLeastChords, division.spareChords);
        division.spareChords -= chords - kLeastChords;
        AddArc(kept[i], to, chords, outline.points);
    }
    return std::all_of(outline.points.begin(), outline.points.end(), [](const OutlinePoint& point) {
        return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest;
    });
}
