// The test whether a face reaches into a cylinder: each bounding plane is asked whether it keeps the face out.
#include "geometry/Cylinder.h"

#include "geometry/QcGeFace3dEX.h"
#include "geometry/SideTolerance.h"

namespace {

bool KeepsOut(const Plane& plane, const QcGeFace3dEX& face) {
    const int count = face.GetCornerCount();
    for (int i = 0; i < count; ++i) {
        // Written so that a side that is not a number does not keep the face out.
        if (!(plane.GetSide(face.m_pt[i]) <= kSideTolerance))
            return false;
    }
    return true;
}

}  // namespace

Cylinder::Cylinder() : QcList<Plane>(0) {}

Cylinder::~Cylinder() = default;

bool Cylinder::IsSomeFacePointIn(const QcGeFace3dEX& face) {
    for (MoveToFirst(); !IsOut(); MoveToNext())
        if (KeepsOut(GetCurData(), face))
            return false;
    return true;
}
