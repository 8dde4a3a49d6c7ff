// A window under analysis: two points that define it, and a number.
#pragma once

#include "platform/base/Api.h"
#include "platform/geometry/QcGePoint.h"

// A value class. What the number says is up to the analysis that keeps the record.
class ORVO_API SunWinData {
public:
    // Both points at the origin, the number 0.0.
    SunWinData() = default;
    // With these values, unchecked.
    SunWinData(const QcGePoint& pt1, const QcGePoint& pt2, double value);
    SunWinData(const SunWinData& other) = default;
    SunWinData& operator=(const SunWinData& other) = default;

    // Equal: the numbers exactly, and both pairs of points as QcGePoint compares them.
    bool operator==(const SunWinData& other) const;
    bool operator!=(const SunWinData& other) const;
    // The order is that of the first points alone (QcGePoint's): records may be unequal and neither less nor greater.
    bool operator<(const SunWinData& other) const;
    bool operator>(const SunWinData& other) const;

    QcGePoint m_pt1;        // the drawing's units and axes, like the other
    QcGePoint m_pt2;        // whatever it is of the window
    double m_dValue = 0.0;  // in the unit of the analysis that keeps it
};
