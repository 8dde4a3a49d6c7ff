// Which windows of a drawing get the sun they must have, when, and what takes it from the others.
// Why: docs/decisions/analysis.md
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "analysis/SunPeriod.h"
#include "facts/DayTerms.h"
#include "facts/Settings.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

class AcDbDatabase;

// What is asked. A plain value.
struct AnalysisRequest {
    Settings settings;             // place, day, rules: the place and the standard must be there
    DayTerms terms;                // of settings.Day()
    double north = 0.0;            // degrees: true north lies that far counter-clockwise of the drawing's y axis
    std::optional<double> need;    // hours of judged sun that a window must have
    std::optional<double> facing;  // degrees from true east, counter-clockwise: for windows whose side cannot be told
    std::vector<CString> windowLayers;  // none: WINDOW and 窗
    // Leave out what the module's parameters of scope, height and altitude (AnalysisParameters.h) leave out.
    bool isScoped = false;
    std::optional<double> leastAltitude;  // degrees: the sun counts from this altitude on
};

// Why sun that reaches a window does not count.
enum class DropReason {
    Facing,           // outside the hours of the Shanghai rule
    Angle,            // too flat along the wall for the standard's least angle
    Short,            // shorter than the shortest period that counts
    NotAmongLongest,  // there are longer ones, and only the longest count
    Threshold,        // does not exceed the threshold, or no period is as long as the longest must be
};

struct DroppedPeriod {
    SunPeriod period;
    DropReason reason = DropReason::Short;
};

struct HiddenPeriod {
    SunPeriod period;
    std::vector<std::uint64_t>
        by;  // handles of all that hide any part of the window then, ascending; 0 for one without
};

enum class WindowNote {
    Cut,       // a face runs through the window: no sun all day
    Inside,    // it lies in a closed body
    NoSide,    // which side is outside cannot be told: no hours, no verdict
    Narrower,  // than the standard's least width
};

// Where a window too wide for the standard was judged.
struct WindowPart {
    double from = 0.0;   // metres from the left end, seen from outside
    double width = 0.0;  // metres
};

// One window. Lengths are metres and points are in the drawing's axes, all of the window as it is drawn.
struct WindowResult {
    std::uint64_t handle = 0;  // 0 where the drawing gives none
    CString name;              // as the drawing says it; where it does not, the handle in capital hexadecimal digits
    std::optional<int> floor;  // 1 for the lowest sill of its building, and so on
    std::optional<double> facing;  // of the outward normal: degrees from true east, counter-clockwise, [0, 360)
    double width = 0.0;
    double height = 0.0;
    double sill = 0.0;                 // z of the lower edge
    std::array<QcGePoint, 4> corners;  // from the lower left one seen from outside, counter-clockwise

    // All lists are in order of time. Where a part was judged they are the part's.
    std::vector<SunPeriod> sunlit;       // exact: lit, and valid by the rule of the sun
    std::vector<SunPeriod> stepped;      // the same by the standard's step
    std::vector<SunPeriod> counted;      // those of `stepped` that the standard counts
    std::vector<DroppedPeriod> dropped;  // Facing and Angle exact, the others by the step
    std::vector<HiddenPeriod> hidden;    // the sun is up, before the window and valid, and does not reach all of it
    double total = 0.0;                  // minutes of `counted`
    double longest = 0.0;                // minutes of the longest of them
    double judged = 0.0;                 // minutes that the standard compares with what is needed
    std::optional<bool> passes;          // none without a need or without a side
    int color = 0;                       // of the judged hours, by the standard's table
    std::optional<WindowPart> part;
    std::vector<WindowNote> notes;  // each at most once, in the order of the enumeration
};

// What somebody should know beside the numbers.
struct AnalysisRemark {
    enum class Kind {
        NoWindows,         // no window on the layers that were asked for
        NoFaces,           // nothing casts a shadow
        LayerMissing,      // `subject` is a layer that was asked for by name and that the drawing does not have
        LayerInvisible,    // `subject` is a layer of windows that is off or frozen: `count` entities were passed over
        NotAWindow,        // the entity `handle` on a layer of windows is no vertical rectangle
        Faulty,            // `count` entities of the drawing could not be read
        WithoutFaces,      // `count` visible entities have no faces and cast no shadow
        SpanUnusable,      // the span is reversed, empty, or none within a day: no minutes
        StepUnusable,      // the step is no time: no minutes
        SunBelowHorizon,   // the sun does not rise in the span
        OutsideTheGlobe,   // not used in answers with windows: the place's position is impossible
        LeftOutByScope,    // `count` times something was too far from a window to be asked
        LeftOutByAltitude  // hours below `amount` degrees of altitude were left out
    };
    Kind kind = Kind::NoWindows;
    CString subject;
    std::uint64_t handle = 0;
    std::size_t count = 0;
    double amount = 0.0;
};

enum class AnalysisFailure {
    None,
    NoPlace,      // settings.place is missing or off the globe
    NoStandard,   // settings.standard is missing
    UnknownUnit,  // the drawing's unit is none that lengths are measured in: `unit`
    Cancelled,    // by the caller
};

struct AnalysisAnswer {
    AnalysisFailure failure = AnalysisFailure::None;  // with any, there are no windows
    CString unit;                                     // of the drawing, by name; only with UnknownUnit
    SunPeriod span;                                   // that was analysed
    double beijingOffset = 0.0;                       // hours to add to true solar time for Beijing's
    std::vector<WindowResult> windows;                // in the drawing's order
    std::vector<AnalysisRemark> remarks;
};

// Whether to go on, told now and then how many of how many windows are done.
using AnalysisProgress = std::function<bool(std::size_t done, std::size_t total)>;

// Everything visible casts shadows, save what lies on the windows' layers; a drawing's lengths are taken by its unit.
// To be called on the module's thread. Throws std::bad_alloc, and nothing else.
ORVO_API AnalysisAnswer AnalyseWindows(const AcDbDatabase& drawing, const AnalysisRequest& request,
                                       const AnalysisProgress& progress = nullptr);
