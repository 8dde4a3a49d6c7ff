// Which boxes the sun can stand behind, seen from a target, in some hours.
#pragma once

#include <vector>

#include "analysis/BoxTree.h"
#include "analysis/HourSpans.h"
#include "analysis/ShadowHull.h"

// In the axes of a part of the day (ShadowCaster): the sun's path there is
//
//     z/x = tan d * sqrt(1 + (y/x)^2)
//
// which rises or falls with |y/x|, so that its least and greatest z/x over the y/x of a box are found at once.
class SkyWindow {
public:
    // `middle` is the hour angle that x points to; the wanted hours lie within a sixth of a turn around it.
    SkyWindow(const SunTarget& target, double sinDeclination, double cosDeclination, double middle);

    // The hours that are still asked about.
    void Want(const HourSpans& wanted);
    // Whether the sun may be seen through the box in any wanted hour. Never false when it can.
    bool Reaches(const Box& box) const;

private:
    struct Range {
        double least;
        double most;
    };

    SunTarget m_target;
    Vector3 m_reach;  // how far the target extends from its middle along the axes
    double m_tangent;
    double m_middle;
    std::vector<Range> m_wanted;  // of y/x
};
