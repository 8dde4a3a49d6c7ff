// Gives corners that lie in one place one number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "analysis/Vector3.h"

class CornerWeld {
public:
    // Corners closer than `tolerance` along each axis are one.
    explicit CornerWeld(double tolerance) : m_tolerance(tolerance) {}

    // The number of a corner, counted from 0. A corner near several that are apart gets the first one's.
    std::uint32_t NumberOf(const Vector3& corner);
    // Where the first corner with each number lies.
    const std::vector<Vector3>& Places() const { return m_places; }

private:
    struct Cell {
        double x, y, z;
        bool operator==(const Cell&) const = default;
    };
    struct CellHash {
        std::size_t operator()(const Cell& cell) const;
    };
    static constexpr std::uint32_t kNone = UINT32_MAX;

    Cell CellOf(const Vector3& corner) const;
    bool AreOne(const Vector3& a, const Vector3& b) const;
    std::uint32_t FindIn(const Cell& cell, const Vector3& corner) const;
    std::uint32_t FindNear(const Cell& own, const Vector3& corner) const;

    double m_tolerance;
    std::vector<Vector3> m_places;
    std::vector<std::uint32_t> m_next;  // the corner before in the same cell
    std::unordered_map<Cell, std::uint32_t, CellHash> m_cells;
};
