// Cells, and lines of them.
#include "workbench/commands/AnalysisAsCsv.h"

#include <string>

#include "platform/base/PlainText.h"
#include "platform/host/HandleText.h"
#include "platform/host/Output.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/CsvCells.h"

namespace {

constexpr const char* kHeadings =
    "verdict,name,building,flat,handle,floor,facing,width,height,sill,judged,total,longest,counted,countedBeijing,"
    "sunlit,sunlitBeijing,dropped,droppedBeijing,hidden,hiddenBeijing,partFrom,partWidth,color,notes";
constexpr const char* kComparedHeadings = ",before,lost,from,to,by";

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
