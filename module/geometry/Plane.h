// A plane in space with its two sides.
// Why: docs/decisions/geometry.md
#pragma once

#include "geometry/PlaneEquation.h"
#include "geometry/QcGeVector3dEX.h"
#include "geometry/Relation3d.h"
#include "platform/base/Api.h"

// The points where a x + b y + c z + d vanishes. The first three numbers are the normal, which points to the positive
// side. It keeps the length that it was given, and with it the value that GetSide gives for a point, which is the
// distance only for a unit normal. Tolerances are 1e-12 on that value.
//
// The value is formed in double from the coordinates as they are, and for a unit normal is off by up to 1e-15 of these:
// half a millionth of a millimetre at 500 km, which is far more than the tolerance.
class ORVO_API Plane {
public:
    // Begins with no values: lists of planes are filled right after they are made, and zeroes would cost time.
    Plane() = default;
    // From the four numbers as they are.
    Plane(double a, double b, double c, double d) : m_equation{a, b, c, d} {}
    // As SetPlane.
    Plane(const QcGeVector3dEX& normal, const QcGePoint& point) { SetPlane(normal, point); }

    // The four numbers as they are.
    void SetEquation(double a, double b, double c, double d) { m_equation = {a, b, c, d}; }
    // The plane through a point, with the normal as it is.
    void SetPlane(const QcGeVector3dEX& normal, const QcGePoint& point) {
        m_equation = {normal.x, normal.y, normal.z, -normal.x * point.x - normal.y * point.y - normal.z * point.z};
    }
    // Copies the four numbers out.
    void GetEquation(double& a, double& b, double& c, double& d) const;

    // As equations compare: each number within 1e-12, so that the same plane in another scale differs.
    bool operator==(const Plane& other) const { return m_equation == other.m_equation; }
    bool operator!=(const Plane& other) const { return !(*this == other); }

    // The side: a x + b y + c z + d, in the drawing's unit for a unit normal, added from left to right.
    double GetSide(const QcGePoint& point) const {
        return m_equation.a * point.x + m_equation.b * point.y + m_equation.c * point.z + m_equation.d;
    }
    // Whether the side is above 1e-12: on the positive side.
    bool IsUpPlane(const QcGePoint& point) const;
    // Whether the side is below -1e-12: on the negative side.
    bool IsDownPlane(const QcGePoint& point) const;
    // Whether the side is within 1e-12 of 0. A side that is not a number is on neither side, and not in the plane.
    bool IsInPlane(const QcGePoint& point) const;
    // The plane's three relations. A side that is not a number counts as in the plane here.
    RELATION3D GetPointPlaneRelation(const QcGePoint& point) const;

private:
    PlaneEquation m_equation;
};
