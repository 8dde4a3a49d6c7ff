// Computes the axes of an entity's plane from its extrusion direction.
#include "scene/ObjectCoordinates.h"

#include <cmath>

#include "scene/EntityGroups.h"

namespace {

constexpr int kExtrusion = 210;
constexpr double kShortest = 1e-12;
constexpr double kNearZAxis = 1.0 / 64.0;

QcGeVector3d UnitOf(const QcGeVector3d& vector) {
    const double length = vector.Length();
    return {vector.x / length, vector.y / length, vector.z / length};
}

}  // namespace

bool ObjectCoordinates::SetExtrusion(const QcGeVector3d& extrusion) {
    if (!(extrusion.Length() > kShortest))
        return false;
    m_zAxis = UnitOf(extrusion);
    const bool isNearZAxis = std::fabs(m_zAxis.x) < kNearZAxis && std::fabs(m_zAxis.y) < kNearZAxis;
    const QcGeVector3d world = isNearZAxis ? QcGeVector3d(0.0, 1.0, 0.0) : QcGeVector3d(0.0, 0.0, 1.0);
    m_xAxis = UnitOf(world * m_zAxis);
    m_yAxis = UnitOf(m_zAxis * m_xAxis);
    return true;
}

QcGePoint ObjectCoordinates::ToWorld(const QcGePoint& point) const {
    return {point.x * m_xAxis.x + point.y * m_yAxis.x + point.z * m_zAxis.x,
            point.x * m_xAxis.y + point.y * m_yAxis.y + point.z * m_zAxis.y,
            point.x * m_xAxis.z + point.y * m_yAxis.z + point.z * m_zAxis.z};
}

QcGePoint ObjectCoordinates::FromWorld(const QcGePoint& point) const {
    const auto along = [&](const QcGeVector3d& axis) { return point.x * axis.x + point.y * axis.y + point.z * axis.z; };
    return {along(m_xAxis), along(m_yAxis), along(m_zAxis)};
}

bool ReadExtrusion(const EntityGroups& entity, ObjectCoordinates& axes) {
    QcGePoint direction(0.0, 0.0, 1.0);
    if (!entity.Real(kExtrusion, direction.x) || !entity.Real(kExtrusion + 10, direction.y) ||
        !entity.Real(kExtrusion + 20, direction.z))
        return false;
    // The world's own axis leaves the coordinates as they are.
    return direction == QcGePoint(0.0, 0.0, 1.0) || axes.SetExtrusion(QcGeVector3d(direction));
}
