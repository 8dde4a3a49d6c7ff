// The one tolerance of sides, lengths of directions and equations of planes.
#pragma once

// Absolute, in the unit of what is compared: the side value of a plane whose normal is no unit vector grows with that
// normal's length, and so does what this tolerance means there. Lengths in drawings have another one, g_fZero.
inline constexpr double kSideTolerance = 1e-12;
