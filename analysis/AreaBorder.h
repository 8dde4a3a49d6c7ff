// The border of an area, asked at many places near it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "scene/PolygonTriangles.h"

// Nothing is changed after it is made: several threads may ask. Takes memory by the border's length over the tile.
class AreaBorder {
public:
    // Who asks how far the border is asks no farther than `reach`; a tile is what of it is looked up together.
    AreaBorder(const std::vector<FlatPoint>& corners, double tile, double reach);

    // As the rows of a grid go: sides have their lower and left ends.
    bool IsInside(const FlatPoint& place) const;
    // Whether a side may be within reach.
    bool IsNear(const FlatPoint& place) const { return SidesNear(place) != nullptr; }
    // To the nearest side; infinity beyond the reach, and maybe somewhat before.
    double DistanceTo(const FlatPoint& place) const;
    // The place itself where it is in the area and so far from the border; else one about so far within, next to where
    // the border is nearest. What lies beyond the reach stays. Where the area is narrower, a place on the border.
    FlatPoint MovedWithin(const FlatPoint& place, double inset) const;
    // What of a way no longer than the reach lies in the area: from and to, as parts of it.
    std::vector<std::pair<double, double>> PartsInside(const FlatPoint& from, const FlatPoint& to) const;

private:
    struct Side {
        FlatPoint from;
        FlatPoint to;
    };
    using Sides = std::vector<std::uint32_t>;

    void AddToRows(std::uint32_t index);
    void AddToTiles(std::uint32_t index, double reach);
    std::int64_t TileOf(double value) const;
    const Sides* SidesNear(const FlatPoint& place) const;
    FlatPoint NearestOn(const Sides& sides, const FlatPoint& place, double& distance, std::size_t& side) const;

    double m_tile;
    double m_sense;  // 1 for corners that run counter-clockwise, else -1
    double m_lowest;
    std::vector<Side> m_sides;
    std::vector<Sides> m_rows;
    std::unordered_map<std::uint64_t, Sides> m_tiles;
};
