// The Shanghai rule, computed in bands of whole degrees.
#include "calendar/ShanghaiValidTime.h"

#include <numbers>

#include "platform/geometry/GetStdAngle.h"

namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2.0;
constexpr double kFirstHour = 9.0;
constexpr double kLastHour = 15.0;

// What the period loses at one end, in hours, when the window faces `degrees` (0 to 90) off the full period.
double HoursLost(int degrees) {
    if (degrees < 16)
        return 0.0;
    if (degrees < 31)
        return 0.5;
    if (degrees < 46)
        return 1.5;
    if (degrees < 61)
        return 2.5;
    return degrees > 75 ? 4.5 : 3.5;
}

}  // namespace

QcGePoint GetShanghaiValidTime(double direction) {
    const double angle = GetStdAngle(direction + kQuarterTurn) * 180.0 / std::numbers::pi;
    const int degrees = static_cast<int>(angle < 0.0 ? angle - 0.5 : angle + 0.5);
    if (degrees > 90 && degrees < 270)
        return QcGePoint();
    if (degrees <= 90)
        return QcGePoint(kFirstHour, kLastHour - HoursLost(degrees), 0.0);
    return QcGePoint(kFirstHour + HoursLost(360 - degrees), kLastHour, 0.0);
}
