// Cancels sides that run both ways, and chains what is left.
#include "workbench/report/PaperOutline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <tuple>
#include <utility>

namespace {

// The work of dividing sides grows with the square of their number.
constexpr std::size_t kMostDividedSides = 600;

bool IsBefore(PaperPoint a, PaperPoint b) {
    return std::tie(a.x, a.y) < std::tie(b.x, b.y);
}

struct Before {
    bool operator()(PaperPoint a, PaperPoint b) const { return IsBefore(a, b); }
};

std::int64_t Turn(PaperPoint a, PaperPoint b, PaperPoint c) {
    return std::int64_t{b.x - a.x} * (c.y - a.y) - std::int64_t{b.y - a.y} * (c.x - a.x);
}

double Distance(PaperPoint a, PaperPoint b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

std::int64_t TwiceArea(const PaperLoop& loop) {
    std::int64_t area = 0;
    for (std::size_t i = 2; i < loop.size(); ++i)
        area += Turn(loop[0], loop[i - 1], loop[i]);
    return area;
}

// Whether a point lies on the way between two others, as far as rounding to the paper's units lets it.
bool IsBetween(PaperPoint point, PaperPoint from, PaperPoint to) {
    if (point == from || point == to)
        return false;
    const double length = Distance(from, to);
    const double along =
        (double{1} * (point.x - from.x) * (to.x - from.x) + double{1} * (point.y - from.y) * (to.y - from.y)) / length;
    return along > 0.0 && along < length && std::abs(static_cast<double>(Turn(from, to, point))) <= length;
}

// Without the corners that lie on the line through those beside them.
PaperLoop Straightened(const PaperLoop& loop) {
    constexpr double kOffLine = 0.7;
    PaperLoop kept;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const PaperPoint before = kept.empty() ? loop.back() : kept.back();
        const PaperPoint after = loop[(i + 1) % loop.size()];
        const double off = std::abs(static_cast<double>(Turn(before, loop[i], after)));
        if (loop[i] != before && (before == after || off > kOffLine * Distance(before, after)))
            kept.push_back(loop[i]);
    }
    return kept;
}

int WindingAround(const std::vector<PaperLoop>& loops, PaperPoint point) {
    int winding = 0;
    for (const PaperLoop& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const PaperPoint a = loop[i];
            const PaperPoint b = loop[(i + 1) % loop.size()];
            if (a.y <= point.y && b.y > point.y && Turn(a, b, point) > 0)
                ++winding;
            if (a.y > point.y && b.y <= point.y && Turn(a, b, point) < 0)
                --winding;
        }
    return winding;
}

bool AreOnBothSides(PaperPoint a, PaperPoint b, const PaperBox& box) {
    const std::array corners = {PaperPoint{box.left, box.top}, PaperPoint{box.right, box.top},
                                PaperPoint{box.right, box.bottom}, PaperPoint{box.left, box.bottom}};
    const auto isLeft = [&](PaperPoint corner) { return Turn(a, b, corner) > 0; };
    const auto isRight = [&](PaperPoint corner) { return Turn(a, b, corner) < 0; };
    return std::any_of(corners.begin(), corners.end(), isLeft) && std::any_of(corners.begin(), corners.end(), isRight);
}

void AppendWay(std::string& path, PaperPoint from, PaperPoint to) {
    if (from.y == to.y) {
        path += 'h';
        path += std::to_string(to.x - from.x);
    } else if (from.x == to.x) {
        path += 'v';
        path += std::to_string(to.y - from.y);
    } else {
        path += 'l';
        path += std::to_string(to.x - from.x);
        if (to.y >= from.y)
            path += ' ';
        path += std::to_string(to.y - from.y);
    }
}

void AppendStart(std::string& path, PaperPoint point) {
    path += 'M';
    path += std::to_string(point.x);
    if (point.y >= 0)
        path += ' ';
    path += std::to_string(point.y);
}

}  // namespace

PaperBox BoxAround(const std::vector<PaperLoop>& loops) {
    PaperBox box = {loops[0][0].x, loops[0][0].y, loops[0][0].x, loops[0][0].y};
    for (const PaperLoop& loop : loops)
        for (const PaperPoint point : loop)
            box = {std::min(box.left, point.x), std::min(box.top, point.y), std::max(box.right, point.x),
                   std::max(box.bottom, point.y)};
    return box;
}

void PaperUnion::Add(const PaperLoop& polygon) {
    const std::int64_t area = TwiceArea(polygon);
    if (area == 0)
        return;
    for (std::size_t i = 0; i < polygon.size(); ++i)
        AddSide(polygon[i], polygon[(i + 1) % polygon.size()], area > 0 ? 1 : -1);
}

void PaperUnion::AddSide(PaperPoint from, PaperPoint to, int count) {
    if (IsBefore(from, to))
        m_sides.push_back({from, to, count});
    else if (from != to)
        m_sides.push_back({to, from, -count});
}

// The same sides become one, and those that run as often one way as the other none.
void PaperUnion::SumUp() {
    std::sort(m_sides.begin(), m_sides.end(), [](const Side& a, const Side& b) {
        return a.from != b.from ? IsBefore(a.from, b.from) : IsBefore(a.to, b.to);
    });
    std::vector<Side> summed;
    for (const Side& side : m_sides)
        if (!summed.empty() && summed.back().from == side.from && summed.back().to == side.to)
            summed.back().count += side.count;
        else
            summed.push_back(side);
    std::erase_if(summed, [](const Side& side) { return side.count == 0; });
    m_sides.swap(summed);
}

// A long side meets the two short ones that end on it.
void PaperUnion::DivideAtCorners() {
    if (m_sides.size() > kMostDividedSides)
        return;
    std::vector<Side> whole;
    whole.swap(m_sides);
    for (const Side& side : whole) {
        PaperLoop stops;
        for (const Side& other : whole)
            for (const PaperPoint corner : {other.from, other.to})
                if (IsBetween(corner, side.from, side.to))
                    stops.push_back(corner);
        std::sort(stops.begin(), stops.end(), [&](PaperPoint a, PaperPoint b) {
            return std::pair(Distance(side.from, a), a.y) < std::pair(Distance(side.from, b), b.y);
        });
        stops.push_back(side.to);
        PaperPoint from = side.from;
        for (const PaperPoint stop : stops) {
            AddSide(from, stop, side.count);
            from = stop;
        }
    }
    SumUp();
}

std::vector<PaperLoop> PaperUnion::TakeLoops() {
    SumUp();
    DivideAtCorners();
    std::map<PaperPoint, PaperLoop, Before> ways;
    for (const Side& side : m_sides)
        for (int i = 0; i < std::abs(side.count); ++i) {
            const bool isForward = side.count > 0;
            ways[isForward ? side.from : side.to].push_back(isForward ? side.to : side.from);
        }
    m_sides.clear();
    std::vector<PaperLoop> loops;
    // As many sides lead to a corner as away from it, so that every walk comes back.
    for (auto& [start, away] : ways)
        while (!away.empty()) {
            PaperLoop loop;
            PaperPoint at = start;
            do {
                loop.push_back(at);
                PaperLoop& onward = ways[at];
                at = onward.back();
                onward.pop_back();
            } while (at != start);
            loop = Straightened(loop);
            if (loop.size() > 2)
                loops.push_back(std::move(loop));
        }
    return loops;
}

bool Cover(const std::vector<PaperLoop>& loops, const PaperBox& box) {
    for (const PaperLoop& loop : loops)
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const PaperPoint a = loop[i];
            const PaperPoint b = loop[(i + 1) % loop.size()];
            const PaperBox side = {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x) + 1,
                                   std::max(a.y, b.y) + 1};
            if (side.Meets(box) && AreOnBothSides(a, b, box))
                return false;
        }
    return WindingAround(loops, {box.left + box.Width() / 2, box.top + box.Height() / 2}) != 0;
}

void AppendLine(std::string& path, const PaperLoop& line) {
    AppendStart(path, line[0]);
    for (std::size_t i = 1; i < line.size(); ++i)
        AppendWay(path, line[i - 1], line[i]);
}

void AppendLoop(std::string& path, const PaperLoop& loop) {
    AppendLine(path, loop);
    path += 'z';
}
