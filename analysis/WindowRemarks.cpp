// Looks at the sizes and at the names of all windows.
#include "analysis/WindowRemarks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "analysis/BoxTree.h"
#include "analysis/Boxes.h"
#include "analysis/WindowRectangle.h"

namespace {

using Kind = AnalysisRemark::Kind;

// No window that sun is asked for is as small, but each one of a drawing in metres that says it were in millimetres.
constexpr double kTinyWindow = 100.0;

// Plans draw a window as a line for each of its panes and faces, one beside the other within the wall.
constexpr double kDepthOfWall = 500.0;
constexpr double kSameDirection = 0.02;  // radians

void AddTiny(const std::vector<DrawnWindow>& windows, std::vector<AnalysisRemark>& remarks) {
    double longest = 0.0;
    for (const DrawnWindow& window : windows)
        longest = std::max({longest, window.width, window.height});
    if (!windows.empty() && longest < kTinyWindow)
        remarks.push_back({Kind::TinyWindows, {}, 0, windows.size(), longest});
}

void AddSameNames(const std::vector<DrawnWindow>& windows, std::vector<AnalysisRemark>& remarks) {
    std::unordered_map<std::wstring_view, std::size_t> counts;
    for (const DrawnWindow& window : windows)
        if (!window.flat.IsEmpty())
            ++counts[window.name.View()];
    AnalysisRemark remark{Kind::SameNames, {}, 0, 0, 0.0};
    for (const DrawnWindow& window : windows)
        if (!window.flat.IsEmpty() && counts[window.name.View()] > 1) {
            if (++remark.count == 1)
                remark.subject = window.name;
        }
    if (remark.count != 0)
        remarks.push_back(remark);
}

// Whether two windows lie along each other: they look the same way or back to back, at the same height, and one has
// part of the other before or behind it.
bool LieInARow(const DrawnWindow& one, const DrawnWindow& other) {
    const Vector3 way = other.lowerLeft - one.lowerLeft;
    const double start = Dot(way, one.right);
    const double end = start + Dot(other.right, one.right) * other.width;
    return std::abs(Dot(one.Outward(), other.right)) < kSameDirection &&
           std::abs(Dot(way, one.Outward())) < kDepthOfWall && std::abs(way.z) < kWindowTolerance &&
           std::min(one.width, std::max(start, end)) - std::max(0.0, std::min(start, end)) > kWindowTolerance;
}

void AddLinesInRows(const std::vector<DrawnWindow>& windows, std::vector<AnalysisRemark>& remarks) {
    std::vector<const DrawnWindow*> lines;
    std::vector<Box> boxes;
    for (const DrawnWindow& window : windows) {
        if (!window.isLine)
            continue;
        lines.push_back(&window);
        boxes.push_back(
            BoxAround(BoxAround(window.lowerLeft), BoxAround(window.lowerLeft + window.right * window.width)));
    }
    const BoxTree tree(boxes);
    AnalysisRemark remark{Kind::LinesInRows, {}, 0, 0, 0.0};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        bool isInARow = false;
        const Box around = Widened(boxes[i], kDepthOfWall);
        tree.Walk([&](const Box& box) { return !isInARow && Overlap(box, around); },
                  [&](std::size_t k) { isInARow = isInARow || (k != i && LieInARow(*lines[i], *lines[k])); });
        if (isInARow && ++remark.count == 1)
            remark.handle = lines[i]->handle;
    }
    if (remark.count != 0)
        remarks.push_back(remark);
}

}  // namespace

std::vector<AnalysisRemark> RemarksOnWindows(const std::vector<DrawnWindow>& windows) {
    std::vector<AnalysisRemark> remarks;
    AddTiny(windows, remarks);
    AddLinesInRows(windows, remarks);
    AddSameNames(windows, remarks);
    return remarks;
}
