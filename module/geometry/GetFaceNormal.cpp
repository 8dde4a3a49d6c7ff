// The cross product of two edges, and what stands in for edges that are too short.
#include "geometry/GetFaceNormal.h"

#include "platform/geometry/Tolerance.h"

QcGeVector3d GetFaceNormal(const QcGeFace& face) {
    const QcGeVector3d up(0.0, 0.0, 1.0);
    QcGeVector3d first = face.m_pt[1] - face.m_pt[0];
    const QcGeVector3d second = face.m_pt[2] - face.m_pt[0];
    if (second.Length() < g_fZero)
        return up;
    if (first.Length() < g_fZero) {
        first = face.m_pt[3] - face.m_pt[0];
        if (first.Length() < g_fZero)
            return up;
    }
    const QcGeVector3d normal = first * second;
    const double length = normal.Length();
    return {normal.x / length, normal.y / length, normal.z / length};
}
