// The general tolerance of lengths in drawings.
#pragma once

// Lengths below this count as nothing.
inline constexpr double g_fZero = 1e-6;
