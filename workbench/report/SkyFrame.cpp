// Finds which part of the sky is shown, and who looks.
#include "workbench/report/SkyFrame.h"

#include <algorithm>
#include <cmath>

#include "analysis/DayRequest.h"
#include "analysis/WindowResult.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "settings/AnalysisParameters.h"
#include "workbench/report/SkyContent.h"

namespace {

constexpr double kMillimetres = 1000.0;  // in a metre

Vector3 VectorOf(const QcGePoint& point) {
    return {point.x, point.y, point.z};
}

}  // namespace

double HalfTurn(double degrees) {
    const double turned = std::remainder(degrees, 360.0);
    return turned > -180.0 ? turned : 180.0;
}

double SkyFrame::FromMiddle(double compass) const {
    return HalfTurn(compass - middle);
}

double FromMiddle(const SkyFrame& frame, const SunPosition& sun) {
    constexpr double kZenith = 89.99;
    return sun.altitude > kZenith ? 0.0 : frame.FromMiddle(sun.azimuth);
}

PaperPoint SkyFrame::Point(double fromMiddle, double altitude) const {
    const double x = frame.left + 0.5 * frame.Width() + fromMiddle * unitsPerDegree;
    return {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(frame.bottom - altitude * unitsPerDegree))};
}

double OutwardOf(const SkyPicture& picture) {
    return HalfTurn(90.0 - *picture.window.facing);
}

SkyFrame LayOutSky(const SkyPicture& picture, const SunDay& sun) {
    constexpr int kLeft = 900;  // hundredths of a millimetre, for the altitudes
    constexpr int kTop = 100;
    constexpr double kBeside = 12.0;  // degrees beside and above the sun
    constexpr double kStep = 0.1;     // hours
    SkyFrame frame;
    frame.middle = sun.latitude >= sun.declination ? 180.0 : 0.0;
    frame.outward = OutwardOf(picture);
    double highest = 0.0;
    double widest = 0.0;
    for (double hours = 0.0; hours <= 24.0; hours += kStep) {
        const SunPosition position = PositionOfSun(sun, hours);
        if (position.altitude < 0.0)
            continue;
        highest = std::max(highest, position.altitude);
        widest = std::max(widest, std::abs(FromMiddle(frame, position)));
    }
    frame.half = std::clamp(widest + kBeside, 100.0, 180.0);
    frame.top = std::clamp(highest + kBeside, 45.0, 90.0);
    const auto width = static_cast<int>(picture.width * kPaperUnits);
    frame.unitsPerDegree = std::max(width - kLeft, kLeft) / (2.0 * frame.half);
    frame.frame = {kLeft, kTop, std::max(width, 2 * kLeft),
                   kTop + static_cast<int>(std::lround(frame.top * frame.unitsPerDegree))};
    return frame;
}

SkyEye EyeOf(const SkyPicture& picture) {
    const WindowResult& window = picture.window;
    const Vector3 corner = VectorOf(window.corners[0]);
    const Vector3 along = VectorOf(window.corners[1]) - corner;
    const Vector3 upwards = VectorOf(window.corners[3]) - corner;
    const double length = std::hypot(along.x, along.y);
    SkyEye eye;
    if (!(length > 0.0))
        return eye;
    eye.outward = {along.y / length, -along.x / length, 0.0};
    eye.precision = g_nSunDistPrec;
    const bool isSill = picture.request.settings.standard->fullWindow == 0;
    const double from = picture.hours.part ? picture.hours.part->from + 0.5 * picture.hours.part->width : 0.5 * length;
    const Vector3 place = corner + along * ((isSill ? 0.5 * length : from) / length) + upwards * (isSill ? 0.0 : 0.5);
    eye.place = place * kMillimetres + eye.outward * g_nSunWinOffset + Vector3{0.0, 0.0, isSill ? g_nSunDistPrec : 0.0};
    return eye;
}
