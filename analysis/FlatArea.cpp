// Fits a plane to corners, and walks over the rows of a grid in it.
#include "analysis/FlatArea.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/WindowRectangle.h"

namespace {

constexpr double kRoundingOfCells = 1e-6;  // so much of a cell more than a whole number of them is rounding

// Of twice the area's size: Newell's sum. Of an outline that runs as often one way as the other it is nothing.
Vector3 SummedNormal(const std::vector<Vector3>& corners) {
    Vector3 sum;
    for (std::size_t i = 0; i < corners.size(); ++i)
        sum = sum + Cross(corners[i] - corners[0], corners[(i + 1) % corners.size()] - corners[0]);
    return sum;
}

template <class Distance>
Vector3 FarthestBy(const std::vector<Vector3>& corners, const Distance& distance) {
    return *std::max_element(corners.begin(), corners.end(),
                             [&](const Vector3& a, const Vector3& b) { return distance(a) < distance(b); });
}

// At right angles to the plane of the corners, of length 1; of no length where they lie in one line.
Vector3 NormalOf(const std::vector<Vector3>& corners, double extent) {
    constexpr double kSurelyWound = 1e-3;
    Vector3 normal = SummedNormal(corners);
    const Vector3 way = FarthestBy(corners, [&](const Vector3& a) { return Length(a - corners[0]); }) - corners[0];
    const Vector3 side = FarthestBy(corners, [&](const Vector3& a) { return Length(Cross(way, a - corners[0])); });
    const Vector3 widest = Cross(way, side - corners[0]);
    if (Length(normal) < kSurelyWound * Length(widest))
        normal = widest;
    const double length = Length(normal);
    return length > kWindowTolerance * extent ? normal * (1.0 / length) : Vector3();
}

// Corners within a millimetre of a level or an upright plane are in it.
AreaPlane PlaneOf(Vector3& normal, double extent) {
    const double inPlan = std::hypot(normal.x, normal.y);
    if (inPlan * extent <= kWindowTolerance) {
        normal = {0.0, 0.0, 1.0};
        return AreaPlane::Level;
    }
    if (std::fabs(normal.z) * extent <= kWindowTolerance) {
        normal = {normal.x / inPlan, normal.y / inPlan, 0.0};
        return AreaPlane::Upright;
    }
    if (normal.z < 0.0)
        normal = -normal;
    return AreaPlane::Tilted;
}

double ExtentOf(const std::vector<Vector3>& corners) {
    double extent = 0.0;
    for (const Vector3& corner : corners)
        extent = std::max(extent, Length(corner - corners[0]));
    return extent;
}

// In the middle of the largest piece.
FlatPoint PointInside(const std::vector<FlatPoint>& corners, const std::vector<PolygonPiece>& pieces) {
    double largest = -1.0;
    FlatPoint inside;
    for (const PolygonPiece& piece : pieces) {
        std::vector<FlatPoint> outline;
        FlatPoint middle;
        for (int i = 0; i < piece.count; ++i) {
            outline.push_back(corners[piece.corners[i]]);
            middle.x += outline.back().x / piece.count;
            middle.y += outline.back().y / piece.count;
        }
        const double size = std::fabs(TwiceSignedArea(outline));
        if (size > largest) {
            largest = size;
            inside = middle;
        }
    }
    return inside;
}

struct Extent {
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    void Take(double value) {
        least = std::min(least, value);
        most = std::max(most, value);
    }
    double Length() const { return most - least; }
    double Middle() const { return 0.5 * (least + most); }
};

struct Rectangle {
    Extent x;
    Extent y;
};

Rectangle RectangleAround(const FlatArea& area) {
    Rectangle around;
    for (const FlatPoint& corner : area.corners) {
        around.x.Take(corner.x);
        around.y.Take(corner.y);
    }
    return around;
}

double CountCells(const Extent& extent, double spacing) {
    return std::max(1.0, std::ceil(extent.Length() / spacing - kRoundingOfCells));
}

// The middle of the first cell along one axis.
double FirstMiddle(const Extent& extent, double spacing) {
    return extent.Middle() - 0.5 * (CountCells(extent, spacing) - 1.0) * spacing;
}

// The number of the first place at a pitch that is not below a value.
std::int32_t FirstFrom(double value, double first, double pitch) {
    auto i = static_cast<std::int32_t>(std::floor((value - first) / pitch)) - 1;
    while (first + i * pitch < value)
        ++i;
    return i;
}

// The sides of an outline, met by rows from below.
class RowWalk {
public:
    explicit RowWalk(const std::vector<FlatPoint>& corners) {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const FlatPoint& a = corners[i];
            const FlatPoint& b = corners[(i + 1) % corners.size()];
            m_sides.push_back(a.y <= b.y ? Side{a, b} : Side{b, a});
        }
        std::sort(m_sides.begin(), m_sides.end(), [](const Side& a, const Side& b) { return a.low.y < b.low.y; });
    }

    // Where a row at y, not below the one before, enters and leaves the outline. A side has its lower end only.
    const std::vector<double>& Crossings(double y) {
        while (m_next < m_sides.size() && m_sides[m_next].low.y <= y)
            m_met.push_back(m_sides[m_next++]);
        std::erase_if(m_met, [=](const Side& side) { return side.high.y <= y; });
        m_crossings.clear();
        for (const Side& side : m_met)
            m_crossings.push_back(side.low.x +
                                  (side.high.x - side.low.x) * ((y - side.low.y) / (side.high.y - side.low.y)));
        std::sort(m_crossings.begin(), m_crossings.end());
        return m_crossings;
    }

private:
    struct Side {
        FlatPoint low;
        FlatPoint high;
    };
    std::vector<Side> m_sides;
    std::vector<Side> m_met;
    std::size_t m_next = 0;
    std::vector<double> m_crossings;
};

}  // namespace

void FlatArea::Turn() {
    right = -right;
    outward = -outward;
    for (FlatPoint& corner : corners)
        corner.x = -corner.x;
    inside.x = -inside.x;
}

AreaFault FlatAreaOf(const std::vector<Vector3>& corners, FlatArea& area) {
    area = FlatArea();
    const double extent = ExtentOf(corners);
    Vector3 normal = NormalOf(corners, extent);
    if (Length(normal) == 0.0)
        return AreaFault::Empty;
    area.plane = PlaneOf(normal, extent);
    area.origin = corners[0];
    area.outward = normal;
    area.right = {1.0, 0.0, 0.0};
    if (area.plane != AreaPlane::Level) {
        const double inPlan = std::hypot(normal.x, normal.y);
        area.right = {-normal.y / inPlan, normal.x / inPlan, 0.0};
    }
    area.up = Cross(area.outward, area.right);
    for (const Vector3& corner : corners) {
        const Vector3 way = corner - area.origin;
        if (std::fabs(Dot(way, normal)) > kWindowTolerance)
            return AreaFault::NotFlat;
        area.corners.push_back({Dot(way, area.right), Dot(way, area.up)});
    }
    if (corners.size() > kMostPolygonCorners)
        return AreaFault::TooManyCorners;
    std::vector<PolygonPiece> pieces;
    if (!DividePolygon(area.corners, pieces) || pieces.empty())
        return AreaFault::Crossed;
    area.area = 0.5 * std::fabs(TwiceSignedArea(area.corners));
    if (2.0 * area.area <= kWindowTolerance * extent)
        return AreaFault::Empty;
    area.inside = PointInside(area.corners, pieces);
    return AreaFault::None;
}

double CountGridPoints(const FlatArea& area, double spacing) {
    const Rectangle around = RectangleAround(area);
    const double count =
        std::max({area.area / spacing / spacing, CountCells(around.x, spacing), CountCells(around.y, spacing)});
    return std::min(count, std::numeric_limits<double>::max());
}

Lattice GridLattice(const FlatArea& area, double spacing) {
    const Rectangle around = RectangleAround(area);
    return {{FirstMiddle(around.x, spacing), FirstMiddle(around.y, spacing)}, spacing};
}

std::vector<LatticeNode> NodesWithin(const FlatArea& area, const Lattice& lattice) {
    const Rectangle around = RectangleAround(area);
    const FlatPoint& first = lattice.first;
    RowWalk walk(area.corners);
    std::vector<LatticeNode> nodes;
    const std::int32_t last = FirstFrom(around.y.most, first.y, lattice.pitch);
    for (std::int32_t row = FirstFrom(around.y.least, first.y, lattice.pitch); row < last; ++row) {
        const std::vector<double>& crossings = walk.Crossings(first.y + row * lattice.pitch);
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const std::int32_t end = FirstFrom(crossings[i + 1], first.x, lattice.pitch);
            for (std::int32_t column = FirstFrom(crossings[i], first.x, lattice.pitch); column < end; ++column)
                nodes.push_back({column, row});
        }
    }
    return nodes;
}

std::vector<FlatPoint> GridPoints(const FlatArea& area, double spacing) {
    const Lattice lattice = GridLattice(area, spacing);
    std::vector<FlatPoint> points;
    for (const LatticeNode& node : NodesWithin(area, lattice))
        points.push_back(lattice.At(node.x, node.y));
    if (points.empty())
        points.push_back(area.inside);
    return points;
}
