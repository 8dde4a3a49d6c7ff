// What orvo analyse has to tell: what was asked, what came out, and what the drawing says of those that cast shadows.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/commands/DayReport.h"
#include "workbench/commands/ShadingEntities.h"

class AcDbDatabase;

// A plain value; the place and the standard of the request are there.
struct AnalysisReport : DayReport {
    AnalysisRequest request;
    AnalysisAnswer answer;
    std::vector<ShadingEntity> shading;
    std::vector<ShadingEntity> taking;  // those of the project that take sun away
};

// Whether windows were asked for with a project and without it.
inline bool IsCompared(const AnalysisReport& report) {
    return !report.request.proposedLayers.empty();
}

// Fills in what the drawing says of those that cast shadows.
void TellEntities(const AcDbDatabase& drawing, AnalysisReport& report);

// The judged minutes that the project takes from a window with a before.
inline double LostMinutes(const WindowResult& window) {
    return window.before->judged - window.judged;
}

// Whether a window passed before and does not now.
inline bool FailsNow(const WindowResult& window) {
    return window.before && window.before->passes.value_or(false) && !window.passes.value_or(false);
}

// Whether the sun of this window could be told at all.
inline bool IsAnalysed(const WindowResult& window) {
    return window.facing.has_value();
}

// What was left out because the request asked for it; nothing where it did not.
struct LeftOut {
    std::optional<std::size_t> entities;  // too far from some window, or too low or too high, to be asked
    std::optional<double> belowAltitude;  // degrees: hours with the sun below it
};
LeftOut LeftOutOf(const AnalysisReport& report);
