// The vector of the shadow computations: the platform's vector with a tolerant normalisation.
#pragma once

#include <cmath>

#include "geometry/SideTolerance.h"
#include "platform/base/Api.h"
#include "platform/geometry/QcGeVector3d.h"

// x, y, z; (0, 0, 0) by default. It may stand wherever the platform's points and vectors are taken, and is made from
// either without a word.
class ORVO_API QcGeVector3dEX : public QcGeVector3d {
public:
    // (0, 0, 0).
    constexpr QcGeVector3dEX() = default;
    // From three components, or from a point or vector of the platform's.
    constexpr QcGeVector3dEX(double xValue, double yValue, double zValue) : QcGeVector3d(xValue, yValue, zValue) {}
    constexpr QcGeVector3dEX(const QcGePoint& point) : QcGeVector3d(point) {}

    // Gives the vector unit length. False, with the vector unchanged, when it is shorter than 1e-12. A vector whose
    // length is within 1e-12 of 1 stays as it is, bit for bit. A length that is not a number passes both tests: true,
    // and the components are not numbers afterwards either.
    bool Normalize() {
        const double length = Length3d();
        if (length < kSideTolerance)
            return false;
        if (std::fabs(length - 1.0) <= kSideTolerance)
            return true;
        const double scale = 1.0 / length;
        x *= scale;
        y *= scale;
        z *= scale;
        return true;
    }

    // Turns the vector round: all three components change their sign.
    void reverse() {
        x = -x;
        y = -y;
        z = -z;
    }
};
