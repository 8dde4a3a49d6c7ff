// The group codes that entities of several types have in common.
#pragma once

inline constexpr int kLayer = 8;
inline constexpr int kX = 10;  // of a point or a vertex, its first code
inline constexpr int kY = 20;
inline constexpr int kZ = 30;
inline constexpr int kThickness = 39;
inline constexpr int kBulge = 42;
inline constexpr int kFlags = 70;
