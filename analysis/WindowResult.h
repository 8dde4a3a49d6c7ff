// What an analysis finds out about one window.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/SunPeriod.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

// Why sun that reaches a window does not count.
enum class DropReason {
    Facing,           // outside the hours of the Shanghai rule
    Angle,            // too flat along the wall for the standard's least angle
    Short,            // shorter than the shortest period that counts
    NotAmongLongest,  // there are longer ones, and only the longest count
    Threshold,        // does not exceed the threshold, or no period is as long as the longest must be
};

// Sun that reaches a window and does not count.
struct DroppedPeriod {
    SunPeriod period;                       // true solar time
    DropReason reason = DropReason::Short;  // why not
};

// Sun that something takes from a window.
struct HiddenPeriod {
    SunPeriod period;  // true solar time
    std::vector<std::uint64_t>
        by;  // handles of all that hide any part of the window then, ascending; 0 for one without
};

// What is special about a window.
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

// What depends on what stands around a window. All lists are in order of time; where a part was judged they are the
// part's.
struct WindowHours {
    std::vector<SunPeriod> sunlit;       // exact: lit, and valid by the rule of the sun
    std::vector<SunPeriod> stepped;      // the same by the standard's step
    std::vector<SunPeriod> counted;      // those of `stepped` that the standard counts
    std::vector<DroppedPeriod> dropped;  // Facing and Angle exact, the others by the step
    std::vector<HiddenPeriod> hidden;    // the sun is up, before the window and valid, and does not reach all of it
    double total = 0.0;                  // minutes of `counted`
    double longest = 0.0;                // minutes of the longest of them
    double judged = 0.0;                 // minutes that are compared with what is needed; today always `total`
    std::optional<bool> passes;          // none without a need or without a side
    int color = 0;                       // of the judged hours, by the standard's table
    std::optional<WindowPart> part;      // that was judged, of a window too wide for the standard; none: all of it
    std::vector<WindowNote> notes;       // each at most once, in the order of the enumeration
};

// One window, with the hours that it has as everything is drawn. Lengths are metres and points are in the drawing's
// axes, all of the window as it is drawn.
struct WindowResult : WindowHours {
    std::uint64_t handle = 0;  // 0 where the drawing gives none
    CString name;              // as the drawing says it; where it does not, the handle in capital hexadecimal digits
    CString building;          // empty for none, like the flat
    CString flat;              // where a plan was repeated, with the storey before it
    std::optional<int> floor;  // 1 for the lowest sill of its building, and so on
    std::optional<double> facing;      // of the outward normal: degrees from true east, counter-clockwise, [0, 360)
    double width = 0.0;                // along the sill
    double height = 0.0;               // upwards
    double sill = 0.0;                 // z of the lower edge
    std::array<QcGePoint, 4> corners;  // from the lower left one seen from outside, counter-clockwise

    // Only where a project was asked for (AnalysisRequest::proposedLayers):
    std::optional<WindowHours> before;  // without the project; none for a window that would not be there without it
    std::vector<HiddenPeriod> lost;     // of before->sunlit: what the project hides, by which of its entities
};
