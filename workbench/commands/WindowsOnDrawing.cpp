// Lays the hours of windows out in plan.
#include "workbench/commands/WindowsOnDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/ResultSheet.h"

namespace {

constexpr int kRed = 1;
constexpr int kGreen = 3;

// By the standard's table; the layer's where the sun could not be told.
int ColorOf(const WindowResult& window) {
    return IsAnalysed(window) && window.color >= 1 ? window.color : kColorByLayer;
}

// Of a need by whether it is met, else the window's.
int TextColorOf(const WindowResult& window) {
    if (window.passes)
        return *window.passes ? kGreen : kRed;
    return ColorOf(window);
}

QcGePoint Moved(const QcGePoint& place, const QcGePoint& way, double far) {
    return {place.x + way.x * far, place.y + way.y * far, place.z + way.z * far};
}

// Where a window stands in plan, and which way it looks.
using PlaceInPlan = std::array<long long, 4>;

class Layout {
public:
    Layout(const AnalysisReport& report, const AcDbDatabase& drawing)
        : m_report(report), m_sheet(drawing, {kResultWindows, kResultHours}) {}

    DrawingChange Run() {
        std::map<PlaceInPlan, std::vector<const WindowResult*>> stacks;
        for (const WindowResult& window : m_report.answer.windows) {
            m_sheet.AddFace(kResultWindows, {window.corners.begin(), window.corners.end()}, ColorOf(window));
            const auto [middle, outward, along] = FootOf(window);
            // Windows above each other have the same place in plan, to a tenth of a metre.
            const auto round = [](double value) { return std::llround(10.0 * value); };
            stacks[{round(middle.x), round(middle.y), round(outward.x), round(outward.y)}].push_back(&window);
        }
        for (auto& [place, windows] : stacks)
            AddStack(windows);
        return m_sheet.Change();
    }

private:
    struct Foot {
        QcGePoint middle;  // of the lower edge
        QcGePoint outward;
        QcGePoint along;
    };

    static Foot FootOf(const WindowResult& window) {
        const QcGePoint& left = window.corners[0];
        const QcGePoint& right = window.corners[1];
        const double length = std::hypot(right.x - left.x, right.y - left.y);
        const QcGePoint along((right.x - left.x) / length, (right.y - left.y) / length, 0.0);
        return {{0.5 * (left.x + right.x), 0.5 * (left.y + right.y), left.z}, {along.y, -along.x, 0.0}, along};
    }

    // One text before the other, that of the lowest window next to the wall.
    void AddStack(std::vector<const WindowResult*>& windows) {
        constexpr double kLeast = 0.15;
        constexpr double kMost = 0.3;
        constexpr double kOfWidth = 0.25;
        constexpr double kLine = 1.6;  // of the height, from one text to the next
        std::stable_sort(windows.begin(), windows.end(),
                         [](const WindowResult* a, const WindowResult* b) { return a->sill < b->sill; });
        double far = 0.0;
        for (const WindowResult* const window : windows) {
            const auto [middle, outward, along] = FootOf(*window);
            ResultSheet::Text text;
            text.text = IsAnalysed(*window) ? DurationText(window->judged) : CString(L"-");
            text.height = std::clamp(kOfWidth * window->width, kLeast, kMost);
            text.middle = Moved(middle, outward, far + 0.5 * kLine * text.height);
            text.along = along;
            text.outward = QcGePoint(0.0, 0.0, 1.0);
            text.color = TextColorOf(*window);
            m_sheet.AddText(kResultHours, text);
            far += kLine * text.height;
        }
    }

    const AnalysisReport& m_report;
    ResultSheet m_sheet;
};

}  // namespace

DrawingChange WindowsOnDrawing(const AnalysisReport& report, const AcDbDatabase& drawing) {
    return Layout(report, drawing).Run();
}
