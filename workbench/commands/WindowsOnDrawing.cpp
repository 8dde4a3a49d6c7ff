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
    return IsAnalysed(window) ? window.color : kColorByLayer;
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

struct Foot {
    QcGePoint middle;  // of the lower edge
    QcGePoint outward;
    QcGePoint along;
};

Foot FootOf(const WindowResult& window) {
    const QcGePoint& left = window.corners[0];
    const QcGePoint& right = window.corners[1];
    const double length = std::hypot(right.x - left.x, right.y - left.y);
    const QcGePoint along((right.x - left.x) / length, (right.y - left.y) / length, 0.0);
    return {{0.5 * (left.x + right.x), 0.5 * (left.y + right.y), left.z}, {along.y, -along.x, 0.0}, along};
}

// Windows above each other: what has about the same place in plan as the first of them, and looks the same way. No two
// drawing programs round alike, so that places next to each other belong together on whichever side of a mark they are.
class Stacks {
public:
    using Windows = std::vector<const WindowResult*>;

    void Add(const WindowResult& window) {
        const Foot foot = FootOf(window);
        Stack* stack = Find(foot);
        if (!stack) {
            m_numbers[SquareOf(foot.middle)].push_back(m_stacks.size());
            stack = &m_stacks.emplace_back(Stack{foot, {}});
        }
        stack->windows.push_back(&window);
    }

    // In the order of their first windows, each from below.
    std::vector<Windows> FromBelow() const {
        std::vector<Windows> all;
        for (const Stack& stack : m_stacks) {
            Windows& windows = all.emplace_back(stack.windows);
            std::stable_sort(windows.begin(), windows.end(),
                             [](const WindowResult* a, const WindowResult* b) { return a->sill < b->sill; });
        }
        return all;
    }

private:
    static constexpr double kSamePlace = 0.1;  // metres
    static constexpr double kSameWay = 0.99;   // the cosine of some degrees
    using Square = std::array<long long, 2>;

    struct Stack {
        Foot first;
        Windows windows;
    };

    static Square SquareOf(const QcGePoint& place) {
        return {std::llround(place.x / kSamePlace), std::llround(place.y / kSamePlace)};
    }

    Stack* Find(const Foot& foot) {
        const auto [column, row] = SquareOf(foot.middle);
        for (long long x = column - 1; x <= column + 1; ++x)
            for (long long y = row - 1; y <= row + 1; ++y)
                if (const auto found = m_numbers.find({x, y}); found != m_numbers.end())
                    for (const std::size_t number : found->second)
                        if (IsSame(m_stacks[number].first, foot))
                            return &m_stacks[number];
        return nullptr;
    }

    static bool IsSame(const Foot& a, const Foot& b) {
        return std::hypot(b.middle.x - a.middle.x, b.middle.y - a.middle.y) < kSamePlace &&
               a.outward.x * b.outward.x + a.outward.y * b.outward.y > kSameWay;
    }

    std::vector<Stack> m_stacks;
    std::map<Square, std::vector<std::size_t>> m_numbers;  // of stacks, by the square that the first window is in
};

class Layout {
public:
    Layout(const AnalysisReport& report, const AcDbDatabase& drawing)
        : m_report(report), m_sheet(drawing, {kResultWindows, kResultHours}) {}

    DrawingChange Run() {
        Stacks stacks;
        for (const WindowResult& window : m_report.answer.windows) {
            m_sheet.AddFace(kResultWindows, {window.corners.begin(), window.corners.end()}, ColorOf(window));
            stacks.Add(window);
        }
        for (const Stacks::Windows& windows : stacks.FromBelow())
            AddStack(windows);
        return m_sheet.Change();
    }

private:
    // One text before the other, that of the lowest window next to the wall.
    void AddStack(const Stacks::Windows& windows) {
        constexpr double kLeast = 0.15;
        constexpr double kMost = 0.3;
        constexpr double kOfWidth = 0.25;
        constexpr double kLine = 1.6;  // of the height, from one text to the next
        double far = 0.0;
        for (const WindowResult* const window : windows) {
            const auto [middle, outward, along] = FootOf(*window);
            ResultSheet::Text text;
            text.text = IsAnalysed(*window) ? ShortDurationText(window->judged) : CString(L"-");
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
