// A place on the globe.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A plain value. The numbers are those of the place database, which nobody checks.
struct ORVO_API Place {
    CString province;        // empty for a place without one
    CString city;            // the place's own name
    double longitude = 0.0;  // decimal degrees, east positive
    double latitude = 0.0;   // decimal degrees, north positive

    // "PROVINCE/CITY"; of a place without a province the name alone.
    CString FullName() const;
    // Whether the position is one on the globe: latitude within [-90, 90], longitude within [-180, 180].
    bool IsOnTheGlobe() const;
};
