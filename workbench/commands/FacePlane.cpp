// Finds which corners of a face make its plane, and what is wrong with a face that has none.
#include "workbench/commands/FacePlane.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/DotProduct.h"
#include "platform/geometry/Tolerance.h"

namespace {

constexpr double kRounding = 1e-9;

double Greatest(const QcGePoint& point) {
    return std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
}

QcGeVector3d Scaled(const QcGeVector3d& vector, double factor) {
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

QcGeVector3d Edge(const QcGeFace3dEX& face, int corner) {
    return face.m_pt[corner] - face.m_pt[0];
}

bool IsShort(const QcGeVector3d& edge) {
    return edge.Length() < g_fZero;
}

// The sine of the angle between two edges that the rounding of the corners alone can make of a right line. Far from the
// origin it grows; it stays small enough to let every face pass that is one.
double RoundedSine(const QcGeFace3dEX& face, double firstLength, double secondLength) {
    constexpr double kMost = 1e-9;
    constexpr double kRoundings = 4.0 * std::numeric_limits<double>::epsilon();
    double farthest = 0.0;
    for (int i = 0; i < face.GetCornerCount(); ++i)
        farthest = std::max(farthest, Greatest(face.m_pt[i]));
    return std::min(kMost, kRoundings * (farthest / firstLength + farthest / secondLength));
}

// Whether two edges point the same way or against each other. False for edges that are not finite.
bool AreParallel(const QcGeFace3dEX& face, const QcGeVector3d& first, const QcGeVector3d& second) {
    const QcGeVector3d one = Scaled(first, 1.0 / Greatest(first));
    const QcGeVector3d other = Scaled(second, 1.0 / Greatest(second));
    const QcGeVector3d normal = one * other;
    return normal.Length() <= RoundedSine(face, first.Length(), second.Length()) * one.Length() * other.Length();
}

bool IsUnit(const QcGeVector3d& normal) {
    return std::fabs(normal.Length() - 1.0) < kRounding;
}

}  // namespace

PlaneSource SourceOfPlane(QcGeFace3dEX& face) {
    const bool isSecondMissing = IsShort(Edge(face, 1));
    if (IsShort(Edge(face, 2)) || (isSecondMissing && IsShort(Edge(face, 3))))
        return PlaneSource::Substitute;
    if (AreParallel(face, Edge(face, isSecondMissing ? 3 : 1), Edge(face, 2)))
        return PlaneSource::Line;
    if (!IsUnit(face.GetNormal()))
        return PlaneSource::TooLarge;
    return isSecondMissing ? PlaneSource::WithoutSecond : PlaneSource::FirstThree;
}

bool AreCornersInLine(const QcGeFace3dEX& face) {
    int longest = 1;
    for (int i = 2; i < face.GetCornerCount(); ++i)
        if (Edge(face, i).Length() > Edge(face, longest).Length())
            longest = i;
    for (int i = 1; i < face.GetCornerCount(); ++i)
        if (!IsShort(Edge(face, i)) && !AreParallel(face, Edge(face, i), Edge(face, longest)))
            return false;
    return true;
}

double FourthCornerOffPlane(QcGeFace3dEX& face) {
    if (face.IsTriangle())
        return 0.0;
    const QcGeVector3d normal = face.GetNormal();
    const QcGeVector3d edge = Edge(face, 3);
    const double distance = std::fabs(Dot(normal, edge));
    double size = 0.0;
    for (int i = 1; i < face.GetCornerCount(); ++i)
        size = std::max(size, Edge(face, i).Length());
    return distance > kRounding * size ? distance : 0.0;
}
