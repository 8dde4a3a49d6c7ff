// A line's point at a parameter.
#include "geometry/Line.h"

QcGePoint Line::GetPoint(double t) const {
    return {m_pt.x + t * m_vDirection.x, m_pt.y + t * m_vDirection.y, m_pt.z + t * m_vDirection.z};
}
