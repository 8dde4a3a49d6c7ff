// The answer of orvo shadow: a face, its plane, the light on it, and the two ways of telling it.
#pragma once

#include <optional>

#include "geometry/QcGeFace3dEX.h"
#include "platform/base/CString.h"
#include "workbench/commands/FacePlane.h"

class Output;

// How light in a direction falls on a face: the sign of its cosine to the normal.
enum class LightSide { Front, Back, Along };

struct ShadowAnswer {
    // The matrix as it is printed: row by row, to be multiplied by the column (x, y, z, 1).
    struct Matrix {
        double rows[4][4];
    };

    // Asks the face. The light must not be zero.
    ShadowAnswer(const QcGeFace3dEX& face, const QcGeVector3dEX& light);

    bool HasPlane() const { return ::HasPlane(source); }
    // What is wrong with a face that has no plane.
    CString WhyNoPlane() const;

    // For a face that has a plane.
    void PrintAsText(Output& output) const;
    void PrintAsJson(Output& output) const;

    QcGeFace3dEX face;
    QcGeVector3dEX light;
    PlaneSource source;
    PlaneEquation plane;  // not numbers when there is no plane
    double offPlane;      // of the fourth corner
    LightSide side;
    bool isLit;                    // as the module says, which does not look at the light's length
    std::optional<Matrix> matrix;  // none when there is no plane, or no projection onto it

private:
    void AskTheFace();
};
