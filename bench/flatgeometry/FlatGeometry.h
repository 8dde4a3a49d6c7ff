// The peer of the faces: the same arithmetic by hand on plain structs and flat arrays, in a library of its own, so that
// calling it costs what calling the module costs.
#pragma once

#include "platform/base/Api.h"

namespace flat {

struct Vector {
    double x, y, z;
};

struct Equation {
    double a, b, c, d;
};

// Three or four corners and a unit normal.
struct Face {
    Vector corner[4];
    int count;
    Vector normal;
};

// 5 in front, 6 behind, 7 on the face.
ORVO_API int ComparePoint(const Face& face, const Vector& point);
ORVO_API bool IsSunOn(const Face& face, const Vector& light, bool isOn);
ORVO_API Equation PlaneOf(const Face& face);

// The planes of a prism, at most five.
struct Prism {
    Equation planes[5];
    int count;
};
ORVO_API void MakePrism(const Face& face, const Vector& light, Prism& prism);
ORVO_API bool MayReachIn(const Prism& prism, const Face& face);

}  // namespace flat
