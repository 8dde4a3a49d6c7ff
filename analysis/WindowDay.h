// The day of one window: when the sun reaches it, when it counts, and what takes it away.
#pragma once

#include "analysis/BoxTree.h"
#include "analysis/DaysSun.h"
#include "analysis/DrawnWindow.h"
#include "analysis/HourSpans.h"
#include "analysis/ShadowCaster.h"
#include "analysis/SunCount.h"
#include "analysis/WindowResult.h"

// What every window of one analysis has in common.
struct DayOfAnalysis {
    const Standard& standard;
    const OccluderSet& occluders;
    const BoxTree& faceTree;  // over the faces, in the drawing's axes
    const ShadowCaster& caster;
    const SunPath& path;
    SunPeriod span = {};  // true solar time; without a length when nothing is to be counted
    HourSpans up = {};    // the hours of the span with the sun up
    double north = 0.0;   // degrees
    std::optional<double> need = {};
    double offset = 0.0;     // g_nSunWinOffset, millimetres
    double precision = 0.0;  // g_nSunDistPrec, millimetres
};

// The day that a request asks for, which has a standard. What it refers to is the caller's, and has to live as long.
DayOfAnalysis DayOf(const DayRequest& request, const DaysSun& sun, const OccluderSet& occluders,
                    const BoxTree& faceTree, const ShadowCaster& caster);

// What must be lit of a window as it is drawn, or of a part of it: moved outward by the offset, less the precision on
// each side; of a standard that asks for the sill's middle, that point, raised by the precision. `from` and `width` are
// millimetres from the left end.
SunTarget TargetOf(const DayOfAnalysis& day, const DrawnWindow& window, double from, double width);

// The facing of a window that has a side: degrees from true east, counter-clockwise, [0, 360).
double FacingOf(const DrawnWindow& window, double north);

// Whether a window is narrower than a standard that limits widths allows.
bool IsTooNarrow(const Standard& standard, const DrawnWindow& window);

// The hours whose sun is valid for a window by the standard's rule.
HourSpans ValidHours(const DayOfAnalysis& day, const DrawnWindow& window);

// What is asked about one window; like the days, only read, so that several threads may ask at once.
struct WindowQuestion {
    const DrawnWindow& window;
    const HourSpans& valid;  // ValidHours
};

// Everything about the hours of a window, behind the notes that `hours` has; `counts` says which entities are asked.
void AnalyseDay(const DayOfAnalysis& day, const WindowQuestion& question, const EntityFilter& counts,
                WindowHours& hours);

// The same of any target, in whatever plane, with these valid hours: without a verdict of width or of what cuts it.
void AnalyseTarget(const DayOfAnalysis& day, const SunTarget& target, const HourSpans& valid,
                   const EntityFilter& counts, WindowHours& hours);

// Whether the hours of a window are others with these entities than without them. It may say so where they are not.
bool MayMatter(const DayOfAnalysis& day, const WindowQuestion& question, const EntityFilter& entities);

// What these entities hide of the sunlit hours of `before`, which was found without them, and which of them.
std::vector<HiddenPeriod> TellLost(const DayOfAnalysis& day, const DrawnWindow& window, const WindowHours& before,
                                   const EntityFilter& entities);
