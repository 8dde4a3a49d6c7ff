// A line in space, by a point and a direction.
#pragma once

#include "geometry/QcGeVector3dEX.h"
#include "platform/base/Api.h"

// The points `point + t * direction`. The direction keeps the length it was given, so that t counts in directions, not
// in drawing units. Both are zero by default.
class ORVO_API Line {
public:
    Line() = default;
    // Through a point, both as they are.
    Line(const QcGeVector3dEX& direction, const QcGePoint& point) : m_vDirection(direction), m_pt(point) {}

    // The point for t = 0, in the drawing's units, and the direction.
    void SetPoint(const QcGePoint& point) { m_pt = point; }
    void SetVector(const QcGeVector3dEX& direction) { m_vDirection = direction; }

    // The point at t: the line's own at 0, one direction further at 1.
    QcGePoint GetPoint(double t) const;

private:
    QcGeVector3dEX m_vDirection;
    QcGePoint m_pt;
};
