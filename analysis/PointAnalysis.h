// How long the sun reaches the points of areas: of the ground, of roofs, of facades.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "analysis/AreaRemark.h"
#include "analysis/DayRequest.h"
#include "analysis/Isolines.h"
#include "analysis/SunPeriod.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

class AcDbDatabase;

// The most points: beyond this the answer alone takes more memory than most computers have.
inline constexpr std::size_t kMostPoints = 5'000'000;

// What is asked. A plain value.
struct PointRequest : DayRequest {
    std::vector<CString> areaLayers;  // one or more
    double spacing = 1.0;             // metres from one point to the next, above 0
    std::optional<double> level;      // metres: every outline in plan, at this height; none: each in its own plane
    bool isolines = false;            // whether lines of whole hours are asked for
};

// A closed outline on the layers of areas.
struct OutlineResult {
    std::uint64_t handle = 0;        // 0 where the drawing gives none
    std::vector<QcGePoint> corners;  // metres, the drawing's axes; the last joins the first, arcs are chords
    double area = 0.0;               // square metres
    QcGePoint outward;               // a direction of length 1, at right angles to the plane
    std::size_t firstPoint = 0;      // of PointAnswer::points
    std::size_t pointCount = 0;      // 0 only for an upright one whose outside cannot be told
    double least = 0.0;              // minutes of the point with the fewest
    double mean = 0.0;               // minutes
    double most = 0.0;               // minutes
    std::optional<double> share;     // of its points, those with at least the hours that are needed: 0 to 1; none
                                     // without a need and without points
};

// One point, and its sun.
struct PointResult {
    QcGePoint place;                // metres, the drawing's axes; in the outline's plane
    std::uint32_t outline = 0;      // of PointAnswer::outlines
    std::vector<SunPeriod> sunlit;  // exact: lit, and valid by the rule of the sun; in order of time
    double total = 0.0;             // minutes that the standard counts
};

// What is answered. A plain value, which keeps nothing of the drawing.
struct PointAnswer : DayAnswer {
    std::vector<OutlineResult> outlines;  // in the drawing's order; none with a failure
    std::vector<PointResult> points;      // those of one outline together, in rows from below, each from the left
    std::vector<Isoline> isolines;        // by outline, then by hours
    std::vector<AreaRemark> areaRemarks;  // what there is to know of the outlines
    double pointCount = 0.0;              // that it would be, about; with TooManyPoints
};

// The areas' own layers, and the usual ones of windows: what lies there casts no shadow.
std::vector<CString> LayersWithoutShadow(const PointRequest& request);

// What casts shadows, and what else holds of every analysis, is as for AnalyseWindows; the outlines of areas cast none,
// nor does what lies on the usual layers of windows.
//
// A point stands g_nSunWinOffset before its plane: above a level or a tilted one (below it where a body lies above it
// and none below), and outside an upright one, as for a window. In an upright plane the standard's rule of valid sun
// holds as for a window there, in others every sun before the plane is valid.
//
// Isolines come after the points, and take some four times as long: `lines` is then told how much of them is done, from
// 0 to 1; without it the progress is told that all points are, for as long as it takes.
//
// To be called on any thread, while nobody changes the drawing. Throws std::bad_alloc, and nothing else.
ORVO_API PointAnswer AnalysePoints(const AcDbDatabase& drawing, const PointRequest& request,
                                   const AnalysisProgress& progress = nullptr,
                                   const std::function<bool(double share)>& lines = nullptr);
