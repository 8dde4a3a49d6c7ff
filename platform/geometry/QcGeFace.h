// A flat face of three or four corners.
#pragma once

#include "platform/base/Api.h"
#include "platform/geometry/QcGePoint.h"

// Four corner slots, all (0, 0, 0) by default, and one flag byte for each, 0 by default, whose meaning belongs to
// whoever draws the face. In a triangle the last slot repeats the first corner.
class ORVO_API QcGeFace {
public:
    // All corners at the origin: a triangle without an area.
    QcGeFace() = default;
    QcGeFace(const QcGeFace&) = default;
    QcGeFace& operator=(const QcGeFace&) = default;
    virtual ~QcGeFace();

    // Whether the last slot equals the first exactly.
    bool IsTriangle() const { return m_pt[3] == m_pt[0]; }

    QcGePoint m_pt[4];                       // in the unit of whoever made the face
    unsigned char m_flag[4] = {0, 0, 0, 0};  // m_flag[i] belongs to corner i and the edge that begins there
};
