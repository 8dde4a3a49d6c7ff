// Where lines of equal hours cross a fine lattice.
// Why: docs/decisions/analysis.md
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/FlatArea.h"
#include "analysis/IsolineSearch.h"

class AreaBorder;

// Nodes and edges by one number each, in the order of rows from below.
inline constexpr std::int32_t kMostLatticeNumber = 1 << 29;

inline std::uint64_t NodeKey(std::int32_t x, std::int32_t y) {
    constexpr std::int64_t kShift = std::int64_t{2} * kMostLatticeNumber;
    return (static_cast<std::uint64_t>(y + kShift) << 32U) | static_cast<std::uint64_t>(x + kShift);
}
inline LatticeNode NodeOf(std::uint64_t key) {
    constexpr std::int64_t kShift = std::int64_t{2} * kMostLatticeNumber;
    return {static_cast<std::int32_t>(static_cast<std::int64_t>(key & 0xFFFFFFFFU) - kShift),
            static_cast<std::int32_t>(static_cast<std::int64_t>(key >> 32U) - kShift)};
}

// From a node to the next on its right, or upwards.
struct LatticeEdge {
    std::uint64_t node = 0;
    bool isUpward = false;

    auto operator<=>(const LatticeEdge&) const = default;
};

struct CrossedEdge {
    LatticeEdge edge;
    std::uint8_t fromHours = 0;  // whole ones, at its ends; never the same
    std::uint8_t toHours = 0;
    std::size_t firstPlace = 0;  // of CrossedLattice::places: one for each line that crosses it, by hours from below
};

// A square between four nodes that do not have the same hours.
struct CrossedCell {
    std::uint64_t node = 0;               // its lower left one
    std::array<std::uint8_t, 4> hours{};  // counter-clockwise from there
};

// Of one area. The lattice is the grid's, 16 times as fine.
struct CrossedLattice {
    Lattice lattice;
    std::vector<CrossedEdge> edges;  // by edge
    std::vector<FlatPoint> places;
    std::vector<CrossedCell> cells;  // by node
};

inline constexpr std::int32_t kNodesPerSpacing = 16;

// Every square that a line passes which can be come by from the area's edge, or from where the hours of two places at
// half the spacing differ.
IsolineOutcome FindCrossings(const IsolineSearch& search, const AreaBorder& border, std::size_t& cellsLeft,
                             CrossedLattice& found);
