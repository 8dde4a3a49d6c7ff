// Looks at the sizes and at the names of all windows.
#include "analysis/WindowRemarks.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace {

using Kind = AnalysisRemark::Kind;

// No window that sun is asked for is as small, but each one of a drawing in metres that says it were in millimetres.
constexpr double kTinyWindow = 100.0;

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

}  // namespace

std::vector<AnalysisRemark> RemarksOnWindows(const std::vector<DrawnWindow>& windows) {
    std::vector<AnalysisRemark> remarks;
    AddTiny(windows, remarks);
    AddSameNames(windows, remarks);
    return remarks;
}
