// Keeps the corners in cells much larger than the tolerance, so that few look into a neighbour's.
#include "analysis/CornerWeld.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr double kTolerancesInACell = 16.0;

}  // namespace

std::size_t CornerWeld::CellHash::operator()(const Cell& cell) const {
    const std::hash<double> hash;
    return (hash(cell.x) * 31 + hash(cell.y)) * 31 + hash(cell.z);
}

// Numbers of cells stay doubles: they may be larger than any integer.
CornerWeld::Cell CornerWeld::CellOf(const Vector3& corner) const {
    const double size = m_tolerance * kTolerancesInACell;
    return {std::floor(corner.x / size), std::floor(corner.y / size), std::floor(corner.z / size)};
}

bool CornerWeld::AreOne(const Vector3& a, const Vector3& b) const {
    return std::fabs(a.x - b.x) <= m_tolerance && std::fabs(a.y - b.y) <= m_tolerance &&
           std::fabs(a.z - b.z) <= m_tolerance;
}

std::uint32_t CornerWeld::FindIn(const Cell& cell, const Vector3& corner) const {
    std::uint32_t found = kNone;
    const auto first = m_cells.find(cell);
    for (std::uint32_t each = first == m_cells.end() ? kNone : first->second; each != kNone; each = m_next[each])
        if (AreOne(m_places[each], corner))
            found = each;
    return found;
}

std::uint32_t CornerWeld::FindNear(const Cell& own, const Vector3& corner) const {
    const Vector3 reach{m_tolerance, m_tolerance, m_tolerance};
    const Cell least = CellOf(corner - reach);
    const Cell most = CellOf(corner + reach);
    if (least == own && most == own)
        return FindIn(own, corner);
    std::uint32_t found = kNone;
    for (const double x : {least.x, most.x})
        for (const double y : {least.y, most.y})
            for (const double z : {least.z, most.z})
                found = std::min(found, FindIn({x, y, z}, corner));
    return found;
}

std::uint32_t CornerWeld::NumberOf(const Vector3& corner) {
    const Cell own = CellOf(corner);
    const std::uint32_t found = FindNear(own, corner);
    if (found != kNone)
        return found;
    const auto number = static_cast<std::uint32_t>(m_places.size());
    const auto [head, isNew] = m_cells.try_emplace(own, number);
    m_places.push_back(corner);
    m_next.push_back(isNew ? kNone : head->second);
    head->second = number;
    return number;
}
