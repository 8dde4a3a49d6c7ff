// Bits of the flags of a POLYLINE (group 70).
#pragma once

inline constexpr int kClosedPolyline = 1;
inline constexpr int kThreeDimensional = 8;
inline constexpr int kPolygonMesh = 16;
inline constexpr int kPolyface = 64;
