// Lines by hand and not by TextTable, which would hold all lines of a million windows before it prints the first.
#include "workbench/commands/WindowRows.h"

#include <algorithm>

#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/WindowWords.h"
#include "workbench/terminal/TextWidth.h"

namespace {

constexpr int kTerminal = 100;  // columns
constexpr int kBetween = 2;
constexpr int kIndent = 4;
constexpr int kMostLabel = 40;  // one that is longer pushes its own line aside, and no other

// The columns of the windows' own lines, and of the stretches' below them.
struct Widths {
    int verdict = 0;
    int label = 0;
    int floor = 0;
    int facing = 0;
    int judged = 0;
    int before = 0;  // this and the next: 0 unless windows are compared
    int lost = 0;
    int kind = 0;
};

CString Between() {
    return CString(L' ', kBetween);
}

int WidthOf(std::initializer_list<CString> texts) {
    int width = 0;
    for (const CString& text : texts)
        width = std::max(width, DisplayWidth(text));
    return width;
}

Widths WidthsOf(const AnalysisReport& report) {
    Widths widths;
    if (IsCompared(report)) {
        widths.before = WidthOf({Say(L"方案前")});
        widths.lost = WidthOf({Say(L"失去")});
    }
    widths.verdict = WidthOf({Say(L"结论"), VerdictWord(true), VerdictWord(false)});
    widths.label = WidthOf({Say(L"窗（句柄）")});
    widths.floor = WidthOf({Say(L"楼层")});
    widths.facing = WidthOf({Say(L"朝向（自东，度）")});
    widths.judged = WidthOf({Say(L"判定时数")});
    widths.kind = WidthOf({KindWord(StretchKind::Sunlit), KindWord(StretchKind::Counted),
                           KindWord(StretchKind::Dropped), KindWord(StretchKind::Hidden), KindWord(StretchKind::Lost)});
    for (const WindowResult& window : report.answer.windows) {
        widths.label = std::max(widths.label, std::min(DisplayWidth(WindowLabel(window)), kMostLabel));
        widths.floor = std::max(widths.floor, DisplayWidth(FloorText(window)));
        widths.facing = std::max(widths.facing, DisplayWidth(FacingText(window)));
        widths.judged = std::max(widths.judged, DisplayWidth(JudgedText(window)));
        if (!IsCompared(report))
            continue;
        widths.before = std::max(widths.before, DisplayWidth(BeforeText(window)));
        widths.lost = std::max(widths.lost, DisplayWidth(LostText(window)));
    }
    return widths;
}

CString WithoutBlanksAtEnd(const CString& line) {
    int length = line.GetLength();
    while (length > 0 && line.GetAt(length - 1) == L' ')
        --length;
    return line.Left(length);
}

// The cells of a window's own line.
struct WindowCells {
    CString verdict;
    CString label;
    CString floor;
    CString facing;
    CString judged;
    CString before;
    CString lost;
    CString more;
};

CString WindowLine(const Widths& widths, const WindowCells& cells) {
    CString line = PadRight(cells.verdict, widths.verdict) + Between() + PadRight(cells.label, widths.label) +
                   Between() + PadLeft(cells.floor, widths.floor) + Between() + PadLeft(cells.facing, widths.facing) +
                   Between() + PadLeft(cells.judged, widths.judged) + Between();
    if (widths.before != 0)
        line += PadLeft(cells.before, widths.before) + Between() + PadLeft(cells.lost, widths.lost) + Between();
    return WithoutBlanksAtEnd(line + cells.more);
}

// What does not fit behind the cells stands below them.
void PrintWindowLine(const Widths& widths, WindowCells cells, Output& output) {
    const CString line = WindowLine(widths, cells);
    if (cells.more.IsEmpty() || DisplayWidth(line) <= kTerminal) {
        output.Line(line);
        return;
    }
    const CString below = CString(L' ', kIndent) + cells.more;
    cells.more.Empty();
    output.Line(WindowLine(widths, cells));
    output.Line(below);
}

// A stretch of the day in both times. `words` go on below where the line is full.
class StretchLines {
public:
    StretchLines(const Widths& widths, double offset, Output& output)
        : m_widths(widths), m_offset(offset), m_output(output) {}

    void Print(const Stretch& stretch) {
        constexpr int kDuration = 7;
        CString line = CString(L' ', kIndent) + PadRight(KindWord(stretch.kind), m_widths.kind) + Between() +
                       PeriodText(stretch.period, 0.0) + Between() + PeriodText(stretch.period, m_offset) + Between() +
                       PadLeft(DurationText(stretch.period.Minutes()), kDuration) + Between();
        const int start = DisplayWidth(line);
        const std::vector<CString>& words = stretch.words;
        line += stretch.before;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const CString word = i + 1 < words.size() ? words[i] + L"," : words[i];
            const bool isFirst = DisplayWidth(line) == start;
            if (!isFirst && DisplayWidth(line) + 1 + DisplayWidth(word) > kTerminal) {
                m_output.Line(WithoutBlanksAtEnd(line));
                line = CString(L' ', start) + word;
            } else {
                line += isFirst ? word : L" " + word;
            }
        }
        m_output.Line(WithoutBlanksAtEnd(line));
    }

private:
    const Widths& m_widths;
    double m_offset;
    Output& m_output;
};

WindowCells Headings() {
    return {Say(L"结论"),     Say(L"窗（句柄）"), Say(L"楼层"), Say(L"朝向（自东，度）"),
            Say(L"判定时数"), Say(L"方案前"),     Say(L"失去"), CString()};
}

WindowCells CellsOf(const AnalysisReport& report, const WindowResult& window) {
    return {VerdictWord(window.passes), WindowLabel(window), FloorText(window), FacingText(window),
            JudgedText(window),         BeforeText(window),  LostText(window),  SpecialsText(report, window)};
}

}  // namespace

bool PrintWindowRows(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    const std::vector<WindowResult>& windows = report.answer.windows;
    const Widths widths = WidthsOf(report);
    StretchLines lines(widths, report.answer.beijingOffset, output);
    output.Line(WindowLine(widths, Headings()));
    output.Line(CString(L' ', kIndent) + PadRight(CString(), widths.kind) + Between() + PadRight(Say(L"真太阳时"), 17) +
                Between() + PadRight(Say(L"北京时间"), 17) + Between() + Say(L"时:分:秒"));
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!goOn(i, windows.size()))
            return false;
        const WindowResult& window = windows[i];
        PrintWindowLine(widths, CellsOf(report, window), output);
        for (const WindowNote note : window.notes)
            output.Line(CString(L' ', kIndent) + NoteWord(note));
        for (const Stretch& stretch : StretchesOf(window))
            lines.Print(stretch);
    }
    return true;
}
