// Turns the sun's direction into the drawing's axes.
#include "workbench/view/ViewSun.h"

#include <array>
#include <cmath>

#include "facts/Angles.h"
#include "facts/SunPosition.h"

bool operator==(const ViewSun& a, const ViewSun& b) {
    const auto values = [](const ViewSun& sun) {
        return std::array{sun.day.declination, sun.day.equationOfTime, sun.day.longitude, sun.day.latitude,
                          sun.north,           sun.trueSolarTime,      sun.shownLater};
    };
    return values(a) == values(b);
}

SceneSun SunInDrawing(const SunDay& day, double north, double trueSolarTime) {
    const SunDirection sun = DirectionOfSun(day, trueSolarTime);
    const double turn = north * kRadiansPerDegree;
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    return {{sun.east * c - sun.north * s, sun.east * s + sun.north * c, sun.up}};
}

std::vector<PathHour> HoursOfPath(const ViewSun& sun) {
    constexpr int kHours = 24;
    std::vector<PathHour> hours;
    // From midnight to midnight of the sun, whatever the clock shows then.
    const int first = static_cast<int>(std::ceil(sun.shownLater));
    for (int hour = first; hour < first + kHours; ++hour)
        if (DirectionOfSun(sun.day, hour - sun.shownLater).up > 0.0)
            hours.push_back({(hour % kHours + kHours) % kHours, hour - sun.shownLater});
    return hours;
}
