// The boxes are widened by the target, so that its middle can stand for all of it.
#include "analysis/SkyWindow.h"

#include <algorithm>
#include <cmath>

#include "analysis/SunPath.h"

namespace {

// A box is clipped to what lies this far (millimetres) before the target on x, where quotients by x make sense.
constexpr double kLeastX = 1e-6;
// Quotients and paths are rounded outwards by this much of themselves.
constexpr double kRounding = 1e-12;

double Outwards(double value) {
    return kRounding * (1.0 + std::abs(value));
}

}  // namespace

SkyWindow::SkyWindow(const SunTarget& target, double sinDeclination, double cosDeclination, double middle)
    : m_target(target), m_tangent(sinDeclination / cosDeclination), m_middle(middle) {
    const auto reach = [&](double Vector3::*axis) {
        return std::abs(target.right.*axis) * target.halfWidth + std::abs(target.up.*axis) * target.halfHeight;
    };
    m_reach = {reach(&Vector3::x), reach(&Vector3::y), reach(&Vector3::z)};
}

void SkyWindow::Want(const HourSpans& wanted) {
    m_wanted.clear();
    for (const SunPeriod& each : wanted.All())
        m_wanted.push_back({std::tan(HourAngleOf(each.start) - m_middle), std::tan(HourAngleOf(each.end) - m_middle)});
}

bool SkyWindow::Reaches(const Box& box) const {
    const Vector3 least = box.least - m_target.middle - m_reach;
    const Vector3 most = box.most - m_target.middle + m_reach;
    if (most.x <= kLeastX)
        return false;
    // Whether any corner is before the target's plane.
    const Vector3& outward = m_target.outward;
    const double depth = std::max(least.x * outward.x, most.x * outward.x) +
                         std::max(least.y * outward.y, most.y * outward.y) +
                         std::max(least.z * outward.z, most.z * outward.z);
    if (depth <= 0.0)
        return false;
    const double near = std::max(least.x, kLeastX);
    const double far = most.x;
    const auto leastQuotient = [&](double value) { return value / (value < 0.0 ? near : far); };
    const auto mostQuotient = [&](double value) { return value / (value < 0.0 ? far : near); };
    const double leastZ = leastQuotient(least.z);
    const double mostZ = mostQuotient(most.z);
    const double leastY = leastQuotient(least.y) - Outwards(leastQuotient(least.y));
    const double mostY = mostQuotient(most.y) + Outwards(mostQuotient(most.y));
    return std::any_of(m_wanted.begin(), m_wanted.end(), [&](const Range& wanted) {
        const double left = std::max(leastY, wanted.least);
        const double right = std::min(mostY, wanted.most);
        if (left > right)
            return false;
        const double steepest = std::max(std::abs(left), std::abs(right));
        const double flattest = left <= 0.0 && right >= 0.0 ? 0.0 : std::min(std::abs(left), std::abs(right));
        const double one = m_tangent * std::sqrt(1.0 + flattest * flattest);
        const double other = m_tangent * std::sqrt(1.0 + steepest * steepest);
        return std::max(one, other) + Outwards(other) >= leastZ - Outwards(leastZ) &&
               std::min(one, other) - Outwards(other) <= mostZ + Outwards(mostZ);
    });
}
