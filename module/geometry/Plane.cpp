// A plane's equation, and on which side of the plane a point lies.
#include "geometry/Plane.h"

#include "geometry/SideTolerance.h"

void Plane::GetEquation(double& a, double& b, double& c, double& d) const {
    a = m_equation.a;
    b = m_equation.b;
    c = m_equation.c;
    d = m_equation.d;
}

bool Plane::IsUpPlane(const QcGePoint& point) const {
    return GetSide(point) > kSideTolerance;
}

bool Plane::IsDownPlane(const QcGePoint& point) const {
    return GetSide(point) < -kSideTolerance;
}

bool Plane::IsInPlane(const QcGePoint& point) const {
    const double side = GetSide(point);
    return -kSideTolerance <= side && side <= kSideTolerance;
}

RELATION3D Plane::GetPointPlaneRelation(const QcGePoint& point) const {
    const double side = GetSide(point);
    if (side > kSideTolerance)
        return RELATION3D_UPPLANE;
    if (side < -kSideTolerance)
        return RELATION3D_DOWNPLANE;
    return RELATION3D_ONPLANE;
}
