// How a face comes by its plane: which corners make it, and whether they make one at all.
#pragma once

#include "geometry/QcGeFace3dEX.h"

enum class PlaneSource {
    FirstThree,     // corners 1, 2, 3, as usual
    WithoutSecond,  // corner 2 is at corner 1, and corner 4 stands in for it
    Substitute,     // corners coincide; the normal (0, 0, 1) stands in
    Line,           // the corners that should make it lie in one line: there is no plane
    TooLarge,       // the coordinates are beyond what the normal can be computed from: there is no plane
};
PlaneSource SourceOfPlane(QcGeFace3dEX& face);

inline bool HasPlane(PlaneSource source) {
    return source != PlaneSource::Line && source != PlaneSource::TooLarge;
}

// Whether all of a face's corners lie in one line, within the rounding of their coordinates.
bool AreCornersInLine(const QcGeFace3dEX& face);

// How far the fourth corner is off the plane of the first three; 0 for a triangle, and when it is no more than rounding
// (1e-9 of the face's size). Only for a face whose plane they make.
double FourthCornerOffPlane(QcGeFace3dEX& face);
