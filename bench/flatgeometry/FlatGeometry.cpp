// Straight from the formulas, with nothing kept and nothing shared.
#include "flatgeometry/FlatGeometry.h"

#include <cmath>

namespace flat {

namespace {

constexpr double kTolerance = 1e-12;

double Dot(const Vector& left, const Vector& right) {
    return left.x * right.x + left.y * right.y + left.z * right.z;
}

bool Normalize(Vector& v) {
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length < kTolerance)
        return false;
    if (std::fabs(length - 1.0) <= kTolerance)
        return true;
    const double scale = 1.0 / length;
    v.x *= scale;
    v.y *= scale;
    v.z *= scale;
    return true;
}

Equation Through(const Vector& normal, const Vector& point) {
    return {normal.x, normal.y, normal.z, -normal.x * point.x - normal.y * point.y - normal.z * point.z};
}

}  // namespace

int ComparePoint(const Face& face, const Vector& point) {
    const Vector& corner = face.corner[0];
    Vector way = {corner.x - point.x, corner.y - point.y, corner.z - point.z};
    if (!Normalize(way))
        return 7;
    const double cosine = Dot(way, face.normal);
    if (cosine < -kTolerance)
        return 5;
    return cosine > kTolerance ? 6 : 7;
}

bool IsSunOn(const Face& face, const Vector& light, bool isOn) {
    return isOn && Dot(face.normal, light) < -kTolerance;
}

Equation PlaneOf(const Face& face) {
    return {face.normal.x, face.normal.y, face.normal.z, -Dot(face.normal, face.corner[0])};
}

void MakePrism(const Face& face, const Vector& light, Prism& prism) {
    prism.planes[0] = Through(face.normal, face.corner[0]);
    for (int i = 0; i < face.count; ++i) {
        const Vector& from = face.corner[i];
        const Vector& to = face.corner[(i + 1) % face.count];
        Vector edge = {to.x - from.x, to.y - from.y, to.z - from.z};
        Normalize(edge);
        const Vector across = {edge.y * light.z - edge.z * light.y, edge.z * light.x - edge.x * light.z,
                               edge.x * light.y - edge.y * light.x};
        prism.planes[i + 1] = Through(across, from);
    }
    prism.count = face.count + 1;
}

bool MayReachIn(const Prism& prism, const Face& face) {
    for (int i = 0; i < prism.count; ++i) {
        const Equation& plane = prism.planes[i];
        int corner = 0;
        while (corner < face.count) {
            const Vector& p = face.corner[corner];
            if (!(plane.a * p.x + plane.b * p.y + plane.c * p.z + plane.d <= kTolerance))
                break;
            ++corner;
        }
        if (corner == face.count)
            return false;
    }
    return true;
}

}  // namespace flat
