// Rays against what the analysis says of a district's windows, at every step mark farther than two seconds from a
// change that it tells.
//
// For the point of a sill both sides have the same answer. For a whole window a stopped ray makes it hidden; where none
// is and the analysis says hidden, the exact outline of a shadow of somebody who is named has to reach into the window.
// Everybody who stops a ray has to be named.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "District.h"
#include "RayScene.h"
#include "analysis/Claim.h"

class DistrictJudge {
public:
    DistrictJudge(const District& district, const RayScene& rays, const AnalysisRequest& request,
                  const SunPeriod& span);

    void Judge(const DistrictWindow& window, const WindowResult& result);

    // How many marks had which answer, and how much else was looked at.
    struct Tally {
        std::size_t none = 0;
        std::size_t sunlit = 0;
        std::size_t hidden = 0;
        std::size_t inVain = 0;
        std::size_t nearChanges = 0;  // marks that were passed over
        std::size_t betweenRays = 0;  // hidden, and no ray is stopped
        std::size_t stoppers = 0;     // that are named
        std::size_t wrong = 0;
    };
    const Tally& Tallied() const { return m_tally; }

private:
    struct Mark {
        double hours = 0.0;
        SlowPoint sun;
        bool isUp = false;
    };
    // A window as it is analysed, with the rays' beginnings.
    struct Case {
        std::uint64_t handle = 0;
        SlowTarget target;
        SlowPoint outward;
        std::vector<SlowPoint> grid;
        std::size_t lastStopped = 0;  // where the next ray is likely to be stopped
    };

    Case CaseOf(const DistrictWindow& window) const;
    bool IsAnyRayStopped(Case& asked, const Mark& mark) const;
    Light FoundAt(Case& asked, const Mark& mark) const;
    bool IsBetweenRays(const Case& asked, const Mark& mark, const HiddenPeriod& hidden) const;
    void Compare(Case& asked, const Mark& mark, Light claimed, const WindowResult& result);
    void CompareNames(const Case& asked, const Mark& mark, const HiddenPeriod& hidden);
    void Tell(const Case& asked, const Mark& mark, const std::string& what);

    const District& m_district;
    const RayScene& m_rays;
    const Standard& m_standard;
    SlowSky m_sky;
    std::vector<Mark> m_marks;
    std::unordered_map<std::uint64_t, std::vector<SlowFace>> m_facesOf;
    Tally m_tally;
};
