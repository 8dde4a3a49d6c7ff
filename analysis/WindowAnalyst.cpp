// One window: what is drawn, its hours, and those that it would have without the project.
#include "analysis/WindowAnalyst.h"

#include <algorithm>
#include <unordered_map>

#include "analysis/Tolerances.h"

namespace {

// The window as it is drawn, in metres.
WindowResult ResultOf(const DrawnWindow& window, double north) {
    WindowResult result;
    result.handle = window.handle;
    result.name = window.name;
    result.building = window.building;
    result.flat = window.flat;
    result.floor = window.floor;
    if (window.hasSide)
        result.facing = FacingOf(window, north);
    result.width = window.width / kMillimetresPerMetre;
    result.height = window.height / kMillimetresPerMetre;
    result.sill = window.lowerLeft.z / kMillimetresPerMetre;
    const Vector3 across = window.right * window.width;
    const Vector3 up = {0.0, 0.0, window.height};
    const Vector3 corners[] = {window.lowerLeft, window.lowerLeft + across, window.lowerLeft + across + up,
                               window.lowerLeft + up};
    for (std::size_t i = 0; i < result.corners.size(); ++i) {
        const Vector3 corner = corners[i] * (1.0 / kMillimetresPerMetre);
        result.corners[i] = QcGePoint(corner.x, corner.y, corner.z);
    }
    return result;
}

std::vector<WindowNote> NotesOf(const Standard& standard, const DrawnWindow& window, bool isInside) {
    std::vector<WindowNote> notes;
    if (isInside)
        notes.push_back(WindowNote::Inside);
    if (!window.hasSide)
        notes.push_back(WindowNote::NoSide);
    if (IsTooNarrow(standard, window))
        notes.push_back(WindowNote::Narrower);
    return notes;
}

void TellHours(const DayOfAnalysis& day, const WindowQuestion& question, const EntityFilter& counts,
               WindowHours& hours) {
    if (question.window.hasSide)
        AnalyseDay(day, question, counts, hours);
    else
        hours.color = ColorOf(day.standard, hours.judged);
    std::sort(hours.notes.begin(), hours.notes.end());
}

}  // namespace

WindowAnalyst::WindowAnalyst(const DayOfAnalysis& day, const std::optional<ReachLimits>& limits, bool hasProject)
    : m_day(day), m_hasProject(hasProject) {
    if (!limits)
        return;
    m_reach.emplace(day.occluders, *limits);
    if (!day.occluders.proposed.empty())
        m_reachBefore.emplace(day.occluders, *limits, false);
    m_leftOut = std::vector<std::atomic<bool>>(day.occluders.handles.size());
}

std::size_t WindowAnalyst::CountLeftOut() const {
    return static_cast<std::size_t>(std::count(m_leftOut.begin(), m_leftOut.end(), true));
}

EntityFilter WindowAnalyst::FilterFor(Who who, const DrawnWindow& window) const {
    const OccluderSet& set = m_day.occluders;
    EntityFilter counts;
    if (who != Who::All && !set.proposed.empty())
        counts = [&set, isProject = who == Who::Project](std::uint32_t entity) {
            return set.proposed[entity] == isProject;
        };
    if (!m_reach)
        return counts;
    const Reach& reach = who == Who::Standing && m_reachBefore ? *m_reachBefore : *m_reach;
    const Vector3 sill = window.lowerLeft + window.right * (0.5 * window.width);
    const bool isTold = who == Who::All;
    return [this, &reach, sill, counts, isTold,
            known = std::unordered_map<std::uint32_t, bool>()](std::uint32_t entity) mutable {
        if (counts && !counts(entity))
            return false;
        const auto [each, isNew] = known.try_emplace(m_day.occluders.DrawnAs(entity), false);
        if (isNew) {
            each->second = reach.Counts(entity, sill);
            if (isTold && !each->second)
                m_leftOut[each->first].store(true, std::memory_order_relaxed);
        }
        return each->second;
    };
}

WindowHours WindowAnalyst::HoursBefore(const WindowQuestion& question, const WindowResult& now) const {
    const DrawnWindow& window = question.window;
    // Within limits something may count for what the project adds to it alone.
    const bool mayDiffer = window.hasSide && !m_day.occluders.proposed.empty() &&
                           (m_reach || MayMatter(m_day, question, FilterFor(Who::Project, window)));
    WindowHours before;
    if (mayDiffer) {
        before.notes = NotesOf(m_day.standard, window, window.isInsideBefore);
        TellHours(m_day, question, FilterFor(Who::Standing, window), before);
    } else {
        before = now;
        if (!window.isInsideBefore)
            std::erase(before.notes, WindowNote::Inside);
    }
    return before;
}

WindowResult WindowAnalyst::Analyse(const WindowQuestion& question) const {
    const DrawnWindow& window = question.window;
    WindowResult result = ResultOf(window, m_day.north);
    result.notes = NotesOf(m_day.standard, window, window.isInside);
    TellHours(m_day, question, FilterFor(Who::All, window), result);
    if (!m_hasProject || window.isProposed)
        return result;
    result.before = HoursBefore(question, result);
    if (window.hasSide && !m_day.occluders.proposed.empty() && !result.before->sunlit.empty())
        result.lost = TellLost(m_day, window, *result.before, FilterFor(Who::Project, window));
    return result;
}
