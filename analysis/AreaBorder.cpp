// Sides by the rows and by the tiles that they pass.
#include "analysis/AreaBorder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

std::uint64_t KeyOf(std::int64_t x, std::int64_t y) {
    return (static_cast<std::uint64_t>(y) << 32U) ^ static_cast<std::uint32_t>(x);
}

FlatPoint Between(const FlatPoint& a, const FlatPoint& b, double part) {
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

}  // namespace

AreaBorder::AreaBorder(const std::vector<FlatPoint>& corners, double tile, double reach)
    : m_tile(tile), m_sense(TwiceSignedArea(corners) < 0.0 ? -1.0 : 1.0), m_lowest(corners[0].y) {
    for (const FlatPoint& corner : corners)
        m_lowest = std::min(m_lowest, corner.y);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Side side{corners[i], corners[(i + 1) % corners.size()]};
        if (side.from.x == side.to.x && side.from.y == side.to.y)
            continue;
        m_sides.push_back(side);
        AddToRows(static_cast<std::uint32_t>(m_sides.size() - 1));
        AddToTiles(static_cast<std::uint32_t>(m_sides.size() - 1), reach);
    }
}

void AreaBorder::AddToRows(std::uint32_t index) {
    const Side& side = m_sides[index];
    const auto [low, high] = std::minmax(side.from.y, side.to.y);
    const auto first = static_cast<std::size_t>(std::floor((low - m_lowest) / m_tile));
    const auto last = static_cast<std::size_t>(std::floor((high - m_lowest) / m_tile));
    if (m_rows.size() <= last)
        m_rows.resize(last + 1);
    for (std::size_t row = first; row <= last; ++row)
        m_rows[row].push_back(index);
}

std::int64_t AreaBorder::TileOf(double value) const {
    return static_cast<std::int64_t>(std::floor(value / m_tile));
}

// Row by row, those tiles that the side widened by the reach passes.
void AreaBorder::AddToTiles(std::uint32_t index, double reach) {
    const Side& side = m_sides[index];
    const auto& [low, high] = side.from.y <= side.to.y ? std::pair(side.from, side.to) : std::pair(side.to, side.from);
    for (std::int64_t row = TileOf(low.y - reach); row <= TileOf(high.y + reach); ++row) {
        const double bottom = static_cast<double>(row) * m_tile - reach;
        const double top = bottom + m_tile + 2.0 * reach;
        double from = 0.0;
        double to = 1.0;
        if (high.y > low.y) {
            from = std::clamp((bottom - low.y) / (high.y - low.y), 0.0, 1.0);
            to = std::clamp((top - low.y) / (high.y - low.y), 0.0, 1.0);
        }
        const double ends[] = {Between(low, high, from).x, Between(low, high, to).x};
        const auto [left, right] = std::minmax(ends[0], ends[1]);
        for (std::int64_t column = TileOf(left - reach); column <= TileOf(right + reach); ++column)
            m_tiles[KeyOf(column, row)].push_back(index);
    }
}

const AreaBorder::Sides* AreaBorder::SidesNear(const FlatPoint& place) const {
    const auto found = m_tiles.find(KeyOf(TileOf(place.x), TileOf(place.y)));
    return found == m_tiles.end() ? nullptr : &found->second;
}

bool AreaBorder::IsInside(const FlatPoint& place) const {
    const double row = std::floor((place.y - m_lowest) / m_tile);
    if (!(row >= 0.0) || row >= static_cast<double>(m_rows.size()))
        return false;
    bool isInside = false;
    for (const std::uint32_t index : m_rows[static_cast<std::size_t>(row)]) {
        const Side& side = m_sides[index];
        const auto& [low, high] =
            side.from.y <= side.to.y ? std::pair(side.from, side.to) : std::pair(side.to, side.from);
        if (low.y <= place.y && place.y < high.y)
            isInside ^= low.x + (high.x - low.x) * ((place.y - low.y) / (high.y - low.y)) <= place.x;
    }
    return isInside;
}

FlatPoint AreaBorder::NearestOn(const Sides& sides, const FlatPoint& place, double& distance, std::size_t& side) const {
    FlatPoint nearest = place;
    distance = std::numeric_limits<double>::infinity();
    for (const std::uint32_t index : sides) {
        const auto& [from, to] = m_sides[index];
        const FlatPoint way{to.x - from.x, to.y - from.y};
        const double part = ((place.x - from.x) * way.x + (place.y - from.y) * way.y) / (way.x * way.x + way.y * way.y);
        const FlatPoint on = Between(from, to, std::clamp(part, 0.0, 1.0));
        const double far = std::hypot(place.x - on.x, place.y - on.y);
        if (far < distance) {
            distance = far;
            nearest = on;
            side = index;
        }
    }
    return nearest;
}

double AreaBorder::DistanceTo(const FlatPoint& place) const {
    double distance = std::numeric_limits<double>::infinity();
    std::size_t side = 0;
    if (const Sides* const sides = SidesNear(place))
        NearestOn(*sides, place, distance, side);
    return distance;
}

// What is moved away from one side may come to lie on the next, at a corner, and is moved away from that.
FlatPoint AreaBorder::MovedWithin(const FlatPoint& place, double inset) const {
    constexpr int kSidesOfCorner = 4;
    FlatPoint moved = place;
    FlatPoint onBorder = place;
    for (int i = 0; i < kSidesOfCorner; ++i) {
        const Sides* const sides = SidesNear(moved);
        if (!sides)
            return moved;
        double distance = 0.0;
        std::size_t index = 0;
        const FlatPoint nearest = NearestOn(*sides, moved, distance, index);
        const bool isInside = IsInside(moved);
        if (isInside && distance >= 0.5 * inset && (i > 0 || distance >= inset))
            return moved;
        if (i == 0)
            onBorder = nearest;
        const Side& side = m_sides[index];
        FlatPoint way{m_sense * (side.from.y - side.to.y), m_sense * (side.to.x - side.from.x)};
        if (distance > 1e-3 * inset) {
            way = {moved.x - nearest.x, moved.y - nearest.y};
            if (!isInside)
                way = {-way.x, -way.y};
        }
        const double scale = inset / std::hypot(way.x, way.y);
        moved = {nearest.x + way.x * scale, nearest.y + way.y * scale};
    }
    return IsInside(moved) ? moved : onBorder;
}

std::vector<std::pair<double, double>> AreaBorder::PartsInside(const FlatPoint& from, const FlatPoint& to) const {
    constexpr double kShortestPart = 1e-9;
    std::vector<double> ends{0.0, 1.0};
    const FlatPoint way{to.x - from.x, to.y - from.y};
    if (const Sides* const sides = SidesNear(from))
        for (const std::uint32_t index : *sides) {
            const Side& side = m_sides[index];
            const FlatPoint along{side.to.x - side.from.x, side.to.y - side.from.y};
            const FlatPoint apart{side.from.x - from.x, side.from.y - from.y};
            const double turn = way.x * along.y - way.y * along.x;
            const double part = (apart.x * along.y - apart.y * along.x) / turn;
            const double onSide = (apart.x * way.y - apart.y * way.x) / turn;
            if (turn != 0.0 && part > 0.0 && part < 1.0 && onSide >= 0.0 && onSide <= 1.0)
                ends.push_back(part);
        }
    std::sort(ends.begin(), ends.end());
    std::vector<std::pair<double, double>> parts;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        if (ends[i + 1] - ends[i] < kShortestPart || !IsInside(Between(from, to, 0.5 * (ends[i] + ends[i + 1]))))
            continue;
        // A slit is no gap.
        if (!parts.empty() && ends[i] - parts.back().second < kShortestPart)
            parts.back().second = ends[i + 1];
        else
            parts.emplace_back(ends[i], ends[i + 1]);
    }
    return parts;
}
