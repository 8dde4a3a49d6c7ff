// Looking at every mark.
#include "DistrictJudge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;
constexpr double kSecond = 1.0 / 3600.0;
constexpr double kNearChange = 2.0 * kSecond;
constexpr double kGridStep = 450.0;    // millimetres
constexpr std::size_t kNamesEach = 7;  // marks from one at which the names are asked to the next
constexpr std::size_t kMostTold = 10;  // disagreements
constexpr double kMinutesPerHour = 60.0;

// The one that holds the moment.
const HiddenPeriod* HiddenAt(const WindowResult& result, double hours) {
    const auto found = std::find_if(result.hidden.begin(), result.hidden.end(), [&](const HiddenPeriod& hidden) {
        return hidden.period.start <= hours && hours <= hidden.period.end;
    });
    return found == result.hidden.end() ? nullptr : &*found;
}

}  // namespace

DistrictJudge::DistrictJudge(const District& district, const RayScene& rays, const AnalysisRequest& request,
                             const SunPeriod& span)
    : m_district(district),
      m_rays(rays),
      m_standard(*request.settings.standard),
      m_sky{request.settings.place->latitude, request.terms.declination, request.north} {
    const SlowCaster sky({}, m_sky, {}, kGridStep);
    const int last = static_cast<int>(std::floor((span.end - span.start) * kMinutesPerHour / m_standard.step));
    for (int i = 0; i <= last; ++i) {
        const double hours = span.start + i * m_standard.step / kMinutesPerHour;
        m_marks.push_back({hours, sky.SunAt(hours), sky.IsUp(hours)});
    }
    for (const SlowFace& triangle : m_district.triangles)
        m_facesOf[triangle.handle].push_back(triangle);
}

DistrictJudge::Case DistrictJudge::CaseOf(const DistrictWindow& window) const {
    Case made;
    made.handle = window.handle;
    const bool isWhole = m_standard.fullWindow != 0;
    made.target = isWhole ? PartOfWindow(window.drawn, 0.0, window.drawn.width) : SillOfWindow(window.drawn);
    made.outward = {std::cos(made.target.facing * kRadians), std::sin(made.target.facing * kRadians), 0.0};
    made.grid = GridOn(made.target, kGridStep);
    return made;
}

void DistrictJudge::Judge(const DistrictWindow& window, const WindowResult& result) {
    Case asked = CaseOf(window);
    const Claim claim(result);
    for (const Mark& mark : m_marks)
        if (claim.IsNearChange(mark.hours, kNearChange))
            ++m_tally.nearChanges;
        else
            Compare(asked, mark, claim.At(mark.hours), result);
}

bool DistrictJudge::IsAnyRayStopped(Case& asked, const Mark& mark) const {
    for (std::size_t i = 0; i < asked.grid.size(); ++i) {
        const std::size_t next = (asked.lastStopped + i) % asked.grid.size();
        if (m_rays.IsStopped(asked.grid[next], mark.sun)) {
            asked.lastStopped = next;
            return true;
        }
    }
    return false;
}

Light DistrictJudge::FoundAt(Case& asked, const Mark& mark) const {
    const double outwards = mark.sun.x * asked.outward.x + mark.sun.y * asked.outward.y;
    if (!mark.isUp || outwards <= 0.0)
        return Light::None;
    const double along = mark.sun.y * asked.outward.x - mark.sun.x * asked.outward.y;
    const double angle = std::atan2(outwards, std::fabs(along)) / kRadians;
    const bool isValid = m_standard.minValidAngle <= 0 || angle >= m_standard.minValidAngle;
    if (IsAnyRayStopped(asked, mark))
        return isValid ? Light::Hidden : Light::None;
    return isValid ? Light::Sunlit : Light::InVain;
}

bool DistrictJudge::IsBetweenRays(const Case& asked, const Mark& mark, const HiddenPeriod& hidden) const {
    std::vector<SlowFace> faces;
    for (const std::uint64_t handle : hidden.by)
        if (const auto of = m_facesOf.find(handle); of != m_facesOf.end())
            faces.insert(faces.end(), of->second.begin(), of->second.end());
    return SlowCaster(std::move(faces), m_sky, asked.target, kGridStep).ShadeAt(mark.hours) != Shade::None;
}

void DistrictJudge::Compare(Case& asked, const Mark& mark, Light claimed, const WindowResult& result) {
    const Light found = FoundAt(asked, mark);
    const HiddenPeriod* hidden = claimed == Light::Hidden ? HiddenAt(result, mark.hours) : nullptr;
    const bool isWhole = m_standard.fullWindow != 0;
    if (hidden && found == Light::Sunlit && isWhole && IsBetweenRays(asked, mark, *hidden)) {
        ++m_tally.betweenRays;
    } else if (found != claimed) {
        std::ostringstream what;
        what << "claimed " << static_cast<int>(claimed) << ", found " << static_cast<int>(found)
             << " (0 none, 1 sunlit, 2 hidden, 3 in vain)";
        Tell(asked, mark, what.str());
        return;
    }
    m_tally.none += claimed == Light::None ? 1 : 0;
    m_tally.sunlit += claimed == Light::Sunlit ? 1 : 0;
    m_tally.hidden += claimed == Light::Hidden ? 1 : 0;
    m_tally.inVain += claimed == Light::InVain ? 1 : 0;
    if (hidden && m_tally.hidden % kNamesEach == 0)
        CompareNames(asked, mark, *hidden);
}

void DistrictJudge::CompareNames(const Case& asked, const Mark& mark, const HiddenPeriod& hidden) {
    std::set<std::uint64_t> stoppers;
    for (const SlowPoint& point : asked.grid)
        m_rays.AddStoppers(point, mark.sun, stoppers);
    for (const std::uint64_t handle : stoppers) {
        if (std::binary_search(hidden.by.begin(), hidden.by.end(), handle)) {
            ++m_tally.stoppers;
            continue;
        }
        std::ostringstream what;
        what << "not named: " << std::hex << handle;
        Tell(asked, mark, what.str());
    }
}

void DistrictJudge::Tell(const Case& asked, const Mark& mark, const std::string& what) {
    if (++m_tally.wrong <= kMostTold)
        ADD_FAILURE() << "window " << std::hex << asked.handle << std::dec << " at " << mark.hours << ": " << what;
}
