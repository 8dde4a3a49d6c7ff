// Finds out everything about one window after another, with a project and without it.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/Reach.h"
#include "analysis/WindowDay.h"
#include "analysis/WindowResult.h"

// Several threads may ask at once: what they share they only read, save for one mark an entity.
class WindowAnalyst {
public:
    // Keeps the day's references. With limits what lies beyond them is left out; the project is what `day.occluders`
    // says, and `hasProject` whether one was asked for.
    WindowAnalyst(const DayOfAnalysis& day, const std::optional<ReachLimits>& limits, bool hasProject);

    WindowResult Analyse(const WindowQuestion& question) const;
    // How many entities of the drawing stood before some window and were left out.
    std::size_t CountLeftOut() const;

private:
    enum class Who { All, Standing, Project };

    EntityFilter FilterFor(Who who, const DrawnWindow& window) const;
    WindowHours HoursBefore(const WindowQuestion& question, const WindowResult& now) const;

    DayOfAnalysis m_day;
    bool m_hasProject;
    std::optional<Reach> m_reach;
    std::optional<Reach> m_reachBefore;  // without the project
    mutable std::vector<std::atomic<bool>> m_leftOut;
};
