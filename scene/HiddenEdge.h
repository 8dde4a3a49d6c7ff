// The mark of an edge that is not to be drawn.
#pragma once

// m_flag[i] of a scene's face when the edge from corner i to the next corner is not to be drawn: one that the drawing
// makes invisible, or that only divides a face or an arc. 0 for an edge that is drawn.
inline constexpr unsigned char kHiddenEdge = 1;
