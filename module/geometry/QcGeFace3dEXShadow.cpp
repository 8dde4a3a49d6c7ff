// The light on a face, its shadow, and how points and other faces lie to it.
#include <cmath>

#include "geometry/Cylinder.h"
#include "geometry/DotProduct.h"
#include "geometry/QcGeFace3dEX.h"
#include "geometry/SideTolerance.h"

RELATION3D QcGeFace3dEX::CompareWithPoint(const QcGePoint& point) {
    QcGeVector3dEX way = m_pt[0] - point;
    if (!way.Normalize())
        return RELATION3D_ONFACE;
    const double cosine = Dot(way, GetNormal());
    if (cosine < -kSideTolerance)
        return RELATION3D_UPFACE;
    if (cosine > kSideTolerance)
        return RELATION3D_DOWNFACE;
    return RELATION3D_ONFACE;
}

bool QcGeFace3dEX::IsPosLightOn(const QcGePoint& lightPos) {
    QcGeVector3dEX way = lightPos - m_pt[0];
    return way.Normalize() && std::fabs(Dot(way, GetNormal())) >= kSideTolerance;
}

bool QcGeFace3dEX::IsSunLightOn(const QcGeVector3dEX& lightDir, bool bOn) {
    return bOn && Dot(GetNormal(), lightDir) < -kSideTolerance;
}

void QcGeFace3dEX::CreateShadowMatrix(float m[4][4], const QcGeVector3dEX& lightDir, bool bOn) {
    if (!bOn)
        return;
    const PlaneEquation plane = GetPlaneEquation();
    const double k = Dot(lightDir, GetNormal());
    const double coefficient[] = {plane.a, plane.b, plane.c, plane.d};
    const double light[] = {lightDir.x, lightDir.y, lightDir.z};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 3; ++j) {
            const double shift = -light[j] * coefficient[i] / k;
            m[i][j] = static_cast<float>(i == j ? shift + 1.0 : shift);
        }
        m[i][3] = i == 3 ? 1.0F : 0.0F;
    }
}

void QcGeFace3dEX::ContructLightHalfCylinder(Cylinder& cylinder, const QcGeVector3dEX& lightDir) {
    cylinder.Reset();
    cylinder.Append(GetPlane());
    const int count = GetCornerCount();
    for (int i = 0; i < count; ++i) {
        QcGeVector3dEX edge = m_pt[(i + 1) % count] - m_pt[i];
        edge.Normalize();  // an edge without length stays as it is, and so bounds nothing
        cylinder.Append(Plane(edge * lightDir, m_pt[i]));
    }
}

bool QcGeFace3dEX::IsDownFace(QcGeFace3dEX& other) {
    for (int i = 0; i < GetCornerCount(); ++i)
        if (other.CompareWithPoint(m_pt[i]) == RELATION3D_UPFACE)
            return false;
    return true;
}

bool QcGeFace3dEX::IsUpFace(QcGeFace3dEX& other) {
    for (int i = 0; i < GetCornerCount(); ++i)
        if (other.CompareWithPoint(m_pt[i]) == RELATION3D_DOWNFACE)
            return false;
    return true;
}

// Where the other face's corners lie to this face; those in its plane have no say.
RELATION3D QcGeFace3dEX::ClassifyFace(const QcGeFace3dEX& other) {
    bool isSomeUp = false;
    bool isSomeDown = false;
    for (int i = 0; i < other.GetCornerCount(); ++i) {
        const RELATION3D side = CompareWithPoint(other.m_pt[i]);
        isSomeUp = isSomeUp || side == RELATION3D_UPFACE;
        isSomeDown = isSomeDown || side == RELATION3D_DOWNFACE;
    }
    if (isSomeUp && isSomeDown)
        return RELATION3D_CROSSFACE;
    if (isSomeUp)
        return RELATION3D_UPFACE;
    return isSomeDown ? RELATION3D_DOWNFACE : RELATION3D_ONFACE;
}

RELATION3D QcGeFace3dEX::GetShadowRelation(QcGeFace3dEX& other) {
    const RELATION3D otherToThis = ClassifyFace(other);
    if (otherToThis == RELATION3D_UPFACE || otherToThis == RELATION3D_ONFACE)
        return RELATION3D_DOWNFACE;
    const RELATION3D thisToOther = other.ClassifyFace(*this);
    if (thisToOther == RELATION3D_DOWNFACE)
        return RELATION3D_DOWNFACE;
    if (otherToThis == RELATION3D_CROSSFACE && thisToOther == RELATION3D_CROSSFACE)
        return RELATION3D_CROSSFACE;
    return RELATION3D_UPFACE;
}
