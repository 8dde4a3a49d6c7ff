// The sun's axes, and the rectangle in them that casters and what is seen have in common.
#include "workbench/view/SunFrame.h"

#include <algorithm>
#include <cmath>

#include "geometry/DotProduct.h"

namespace {

struct Range {
    double least = INFINITY;
    double most = -INFINITY;
    void Take(double value) {
        least = std::min(least, value);
        most = std::max(most, value);
    }
};

QcGeVector3d AsVector(const QcGePoint& point) {
    return {point.x, point.y, point.z};
}

// The level direction at right angles to the sun's; any where it stands in the zenith.
QcGeVector3d LevelOf(const QcGeVector3d& toSun) {
    const double length = std::hypot(toSun.x, toSun.y);
    return length < 1e-9 ? QcGeVector3d(1.0, 0.0, 0.0) : QcGeVector3d(-toSun.y / length, toSun.x / length, 0.0);
}

}  // namespace

std::array<double, 16> SunFrame::GetMatrix(const QcGePoint& origin) const {
    std::array<double, 16> matrix{};
    const auto setRow = [&](std::size_t row, const QcGeVector3d& axis, double zero, double one) {
        const double scale = 1.0 / (one - zero);
        matrix[row] = axis.x * scale;
        matrix[4 + row] = axis.y * scale;
        matrix[8 + row] = axis.z * scale;
        matrix[12 + row] = (Dot(axis, AsVector(origin)) - zero) * scale;
    };
    setRow(0, right, leastRight, mostRight);
    setRow(1, up, leastUp, mostUp);
    setRow(2, toSun, mostToSun, leastToSun);
    matrix[15] = 1.0;
    return matrix;
}

std::optional<SunFrame> FrameSun(const QcGeVector3d& toSun, const ViewBox& casters,
                                 const std::vector<QcGePoint>& seen) {
    SunFrame frame;
    frame.toSun = toSun;
    frame.right = LevelOf(toSun);
    frame.up = toSun * frame.right;
    Range right[2];
    Range up[2];
    Range depth;
    for (unsigned i = 0; i < 8; ++i) {
        const QcGeVector3d corner((i & 1U) ? casters.most.x : casters.least.x,
                                  (i & 2U) ? casters.most.y : casters.least.y,
                                  (i & 4U) ? casters.most.z : casters.least.z);
        right[0].Take(Dot(corner, frame.right));
        up[0].Take(Dot(corner, frame.up));
        depth.Take(Dot(corner, toSun));
    }
    for (const QcGePoint& point : seen) {
        right[1].Take(Dot(AsVector(point), frame.right));
        up[1].Take(Dot(AsVector(point), frame.up));
    }
    frame.leastRight = std::max(right[0].least, right[1].least);
    frame.mostRight = std::min(right[0].most, right[1].most);
    frame.leastUp = std::max(up[0].least, up[1].least);
    frame.mostUp = std::min(up[0].most, up[1].most);
    if (!(frame.leastRight <= frame.mostRight) || !(frame.leastUp <= frame.mostUp))
        return std::nullopt;
    // Some room on all sides: a map of no size shows nothing, and what lies on its edge is to be within.
    constexpr double kRoom = 0.005;
    const double size = std::max(
        {frame.mostRight - frame.leastRight, frame.mostUp - frame.leastUp, (depth.most - depth.least) * 1e-3, 1e-6});
    frame.leastRight -= size * kRoom;
    frame.mostRight += size * kRoom;
    frame.leastUp -= size * kRoom;
    frame.mostUp += size * kRoom;
    const double deep = std::max(depth.most - depth.least, size * 1e-3);
    frame.leastToSun = depth.least - deep * kRoom;
    frame.mostToSun = depth.most + deep * kRoom;
    return frame;
}
