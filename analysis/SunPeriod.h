// A stretch of the day.
#pragma once

// From `start` to `end`, both included, in decimal hours of true solar time, not rounded. Times before 0 or from 24 on
// lie on the day before or after.
struct SunPeriod {
    double start = 0.0;  // hours
    double end = 0.0;    // hours, not before the start

    // How long it is, in minutes.
    double Minutes() const { return (end - start) * 60.0; }
};
