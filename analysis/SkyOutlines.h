// What stands in the sky over a place: faces as outlines in directions and altitudes.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/OccluderSet.h"
#include "analysis/Vector3.h"
#include "platform/base/Api.h"

// Degrees. The direction counts from straight out of the wall, to the right for who looks out, within [-90, 90]; the
// altitude from the horizon.
struct SkyPoint {
    double direction = 0.0;  // to the right of straight out
    double altitude = 0.0;   // above the horizon, [-90, 90]
};

// Who looks, in millimetres and the drawing's axes.
struct SkyEye {
    Vector3 place;           // where the eye is
    Vector3 outward;         // level, of length 1
    double precision = 0.0;  // a face whose plane is closer, in millimetres, is seen from its edge, and hides nothing
};

// What is seen of a face: above the horizon and before the plane of the wall.
struct SkyOutline {
    std::uint32_t entity = 0;       // of OccluderSet::handles
    double distance = 0.0;          // of its nearest corner, millimetres
    std::vector<SkyPoint> corners;  // the last joins the first
};

// Of closed bodies the sides that look away are left out, unless the eye is in them.
//
// Straight sides are curves in the sky: they are divided until what is left of the bend is a hundredth of a degree. The
// same side of two faces is divided at the same points, whichever way it runs.
ORVO_API std::vector<SkyOutline> FindSkyOutlines(const OccluderSet& set, const SkyEye& eye, bool withProject = true);

// Where a direction of the drawing, of any length but 0, is in this sky; also behind the wall, within (-180, 180].
ORVO_API SkyPoint SkyPointOf(const SkyEye& eye, const Vector3& way);
