// Which way a path through three points of a plane turns, without rounding.
#pragma once

struct PlanePoint {
    double x = 0.0;
    double y = 0.0;
};

// Whether the way from a to b to c turns to the left; not where the three lie in one line. The numbers count as they
// are, however much larger some are than the others: a hull is whole only when all of its turns come of the same
// points. They and the products of two of them are finite, and no such product other than 0 is below 1e-250.
bool TurnsLeft(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c);
