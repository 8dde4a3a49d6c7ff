// Cells, and lines of them.
#include "workbench/commands/AnalysisAsCsv.h"

#include <cmath>
#include <string>

#include "facts/ClockText.h"
#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/HandleText.h"
#include "platform/host/Output.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"

namespace {

constexpr const char* kHeadings =
    "verdict,name,building,flat,handle,floor,facing,width,height,sill,judged,total,longest,counted,countedBeijing,"
    "sunlit,sunlitBeijing,dropped,droppedBeijing,hidden,hiddenBeijing,partFrom,partWidth,color,notes";
constexpr const char* kComparedHeadings = ",before,lost,from,to,by";

// What spreadsheets begin a formula with. They pass over what stands before it and shows nothing.
bool IsFormula(const CString& text) {
    for (const char32_t character : CodePoints(text)) {
        switch (character) {
            case U'=':
            case U'+':
            case U'-':
            case U'@':
            case U'\t':
            case U'\r':
            case U'\n':
            case U'＝':
            case U'＋':
            case U'－':
            case U'＠':
                return true;
            case U' ':
            case U'\u00A0':
            case U'\u3000':
            case U'\uFEFF':
                break;
            default:
                return false;
        }
    }
    return false;
}

class CsvLine {
public:
    void AddText(const CString& text) { AddCell(IsFormula(text) ? L"'" + text : text); }
    // To six decimals, so that nobody reads 160.99999999999991.
    void AddNumber(double value) {
        constexpr double kDecimals = 1e6;
        AddCell(DoubleToText(std::round(value * kDecimals) / kDecimals + 0.0));
    }
    template <class T>
    void AddNumber(const std::optional<T>& value) {
        if (value)
            AddNumber(static_cast<double>(*value));
        else
            AddCell(CString());
    }
    std::string End() const { return m_text + "\r\n"; }

private:
    void AddCell(const CString& text) {
        if (m_hasCells)
            m_text += ',';
        m_hasCells = true;
        const std::string cell = ToUtf8(text.View());
        if (cell.find_first_of(",\"\r\n") == std::string::npos) {
            m_text += cell;
            return;
        }
        m_text += '"';
        for (const char character : cell)
            m_text += character == '"' ? std::string("\"\"") : std::string(1, character);
        m_text += '"';
    }

    std::string m_text;
    bool m_hasCells = false;
};

CString TimeCell(double hours) {
    constexpr int kHour = 3600;
    const int signedSeconds = static_cast<int>(std::lround(hours * kHour));
    const ClockParts parts = SplitSeconds(std::abs(signedSeconds));
    CString text;
    text.Format(L"%s%02d:%02d:%02d", signedSeconds < 0 ? L"-" : L"", parts.hours, parts.minutes, parts.seconds);
    return text;
}

// Several entries in one cell.
class ListCell {
public:
    void Add(SunPeriod period, double offset, const CString& more = CString()) {
        if (!m_text.IsEmpty())
            m_text += L"; ";
        m_text += TimeCell(period.start + offset) + L"-" + TimeCell(period.end + offset);
        if (!more.IsEmpty())
            m_text += L" " + more;
    }
    const CString& Text() const { return m_text; }

private:
    CString m_text;
};

CString PeriodsCell(const std::vector<SunPeriod>& periods, double offset) {
    ListCell cell;
    for (const SunPeriod& period : periods)
        cell.Add(period, offset);
    return cell.Text();
}

CString DroppedCell(const std::vector<DroppedPeriod>& dropped, double offset) {
    ListCell cell;
    for (const DroppedPeriod& each : dropped)
        cell.Add(each.period, offset, FromUtf8(ReasonKey(each.reason)));
    return cell.Text();
}

CString HiddenCell(const std::vector<HiddenPeriod>& hidden, double offset) {
    ListCell cell;
    for (const HiddenPeriod& each : hidden) {
        CString by(L"by");
        for (const std::uint64_t handle : each.by)
            by += L" " + HandleOrNone(handle);
        cell.Add(each.period, offset, by);
    }
    return cell.Text();
}

CString NotesCell(const WindowResult& window) {
    CString text;
    for (const WindowNote note : window.notes) {
        if (!text.IsEmpty())
            text += L"; ";
        text += FromUtf8(NoteKey(note));
    }
    return text;
}

CString VerdictCell(const std::optional<bool>& passes) {
    return passes ? FromUtf8(VerdictKey(*passes)) : CString();
}

void AddChange(CsvLine& line, const WindowResult& window) {
    const std::optional<WindowHours>& before = window.before;
    line.AddNumber(before ? std::optional(before->judged) : std::nullopt);
    line.AddNumber(before ? std::optional(LostMinutes(window)) : std::nullopt);
    line.AddText(before ? VerdictCell(before->passes) : CString());
    line.AddText(before ? VerdictCell(window.passes) : CString());
    line.AddText(HiddenCell(window.lost, 0.0));
}

std::string LineOf(const WindowResult& window, double beijingOffset, bool isCompared) {
    CsvLine line;
    line.AddText(VerdictCell(window.passes));
    line.AddText(window.name);
    line.AddText(window.building);
    line.AddText(window.flat);
    line.AddText(window.handle == 0 ? CString() : HandleText(window.handle));
    line.AddNumber(window.floor);
    line.AddNumber(window.facing);
    for (const double number : {window.width, window.height, window.sill, window.judged, window.total, window.longest})
        line.AddNumber(number);
    line.AddText(PeriodsCell(window.counted, 0.0));
    line.AddText(PeriodsCell(window.counted, beijingOffset));
    line.AddText(PeriodsCell(window.sunlit, 0.0));
    line.AddText(PeriodsCell(window.sunlit, beijingOffset));
    line.AddText(DroppedCell(window.dropped, 0.0));
    line.AddText(DroppedCell(window.dropped, beijingOffset));
    line.AddText(HiddenCell(window.hidden, 0.0));
    line.AddText(HiddenCell(window.hidden, beijingOffset));
    line.AddNumber(window.part ? std::optional(window.part->from) : std::nullopt);
    line.AddNumber(window.part ? std::optional(window.part->width) : std::nullopt);
    line.AddNumber(window.color);
    line.AddText(NotesCell(window));
    if (isCompared)
        AddChange(line, window);
    return line.End();
}

}  // namespace

bool PrintAnalysisAsCsv(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn) {
    const AnalysisAnswer& answer = report.answer;
    const bool isCompared = IsCompared(report);
    output.Write(std::string(kHeadings) + (isCompared ? kComparedHeadings : "") + "\r\n");
    for (std::size_t i = 0; i < answer.windows.size(); ++i) {
        if (!goOn(i, answer.windows.size()))
            return false;
        output.Write(LineOf(answer.windows[i], answer.beijingOffset, isCompared));
    }
    return true;
}
