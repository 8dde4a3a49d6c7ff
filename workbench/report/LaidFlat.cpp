// Turns an upright plane into the paper's.
#include "workbench/report/LaidFlat.h"

#include <cmath>

#include "workbench/report/PlanAreas.h"

namespace {

class Turn {
public:
    explicit Turn(const QcGePoint& outward) {
        const double length = std::hypot(outward.x, outward.y);
        m_x = length > 0.0 ? -outward.y / length : 1.0;
        m_y = length > 0.0 ? outward.x / length : 0.0;
    }
    QcGePoint operator()(const QcGePoint& place) const {
        return QcGePoint(place.x * m_x + place.y * m_y, place.z, 0.0);
    }

private:
    double m_x;
    double m_y;
};

}  // namespace

std::vector<std::size_t> UprightOutlines(const PointAnswer& answer) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < answer.outlines.size(); ++i)
        if (answer.outlines[i].pointCount > 0 && IsUpright(answer.outlines[i].outward))
            found.push_back(i);
    return found;
}

PointAnswer LaidFlat(const PointAnswer& answer, std::size_t outline) {
    PointAnswer flat;
    OutlineResult turned = answer.outlines[outline];
    const Turn turn(turned.outward);
    for (QcGePoint& corner : turned.corners)
        corner = turn(corner);
    for (std::size_t i = 0; i < turned.pointCount; ++i) {
        const PointResult& point = answer.points[turned.firstPoint + i];
        flat.points.push_back({turn(point.place), 0, {}, point.total});
    }
    for (const Isoline& each : answer.isolines)
        if (each.outline == outline) {
            Isoline line = {each.hours, 0, each.isClosed, {}};
            for (const QcGePoint& place : each.points)
                line.points.push_back(turn(place));
            flat.isolines.push_back(std::move(line));
        }
    turned.firstPoint = 0;
    turned.outward = QcGePoint(0.0, 0.0, 1.0);
    flat.outlines.push_back(std::move(turned));
    return flat;
}
