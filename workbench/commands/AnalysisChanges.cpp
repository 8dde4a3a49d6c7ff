// Tables of sums before and now, and lists of names.
#include "workbench/commands/AnalysisChanges.h"

#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/terminal/TextTable.h"
#include "workbench/terminal/TextWidth.h"

namespace {

using Align = TextTable::Align;
using Cells = std::vector<CString>;

// The columns that every sum has, behind those of its name.
Cells SumHeadings() {
    return {Say(L"窗数"),   Say(L"前达标"), Say(L"后达标"),  Say(L"新不达标"),
            Say(L"前最少"), Say(L"后最少"), Say(L"最多失去")};
}

Cells SumCells(const WindowTotal& total) {
    const auto counted = [&](std::size_t count) { return total.judgedByNeed == 0 ? CString(L"-") : CountText(count); };
    const auto duration = [&](double minutes) {
        return total.comparedAnalysed == 0 ? CString(L"-") : DurationText(minutes);
    };
    return {CountText(total.compared),   counted(total.passedBefore), counted(total.passNow),  counted(total.failNow),
            duration(total.leastBefore), duration(total.leastNow),    duration(total.mostLost)};
}

// A table of sums whose lines begin with some cells of their own; nothing without a sum of compared windows.
template <class NameCells>
void PrintSums(const CString& heading, std::size_t names, Cells headings, const std::vector<WindowTotal>& totals,
               const NameCells& nameCells, Output& output) {
    std::vector<Align> columns(names, Align::Left);
    columns.resize(names + SumHeadings().size(), Align::Right);
    TextTable table(columns);
    const auto add = [&](Cells cells, const Cells& more) {
        cells.insert(cells.end(), more.begin(), more.end());
        table.Add(std::move(cells));
    };
    add(std::move(headings), SumHeadings());
    bool isAny = false;
    for (const WindowTotal& total : totals) {
        if (total.compared == 0)
            continue;
        add(nameCells(total), SumCells(total));
        isAny = true;
    }
    if (!isAny)
        return;
    output.Line(L"");
    output.Line(heading);
    table.PrintTo(output, 2);
}

CString NameOrNone(const CString& name) {
    return name.IsEmpty() ? CString(L"-") : Printable(name);
}

CString FlatVerdict(const WindowTotal& flat, std::size_t passing) {
    return VerdictWord(flat.judgedByNeed == 0 ? std::nullopt : std::optional(passing > 0));
}

// All names, as many to a line as a terminal takes.
void PrintNames(const CString& heading, const std::vector<CString>& names, Output& output) {
    constexpr int kTerminal = 100;
    constexpr int kIndent = 2;
    if (names.empty())
        return;
    output.Line(L"");
    output.Line(heading);
    CString line;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const CString name = i + 1 < names.size() ? names[i] + L"," : names[i];
        if (!line.IsEmpty() && kIndent + DisplayWidth(line) + 1 + DisplayWidth(name) > kTerminal) {
            output.Line(CString(L' ', kIndent) + line);
            line.Empty();
        }
        line += line.IsEmpty() ? name : L" " + name;
    }
    output.Line(CString(L' ', kIndent) + line);
}

void PrintWhoFailsNow(const AnalysisReport& report, const std::vector<WindowTotal>& flats, Output& output) {
    if (!report.request.need)
        return;
    std::vector<CString> names;
    for (const WindowResult& window : report.answer.windows)
        if (FailsNow(window))
            names.push_back(WindowLabel(window));
    std::vector<CString> flatNames;
    for (const WindowTotal& flat : flats)
        if (flat.FailsNow())
            flatNames.push_back((flat.building.IsEmpty() ? CString() : Printable(flat.building) + L"-") +
                                Printable(flat.flat));
    PrintNames(SayFormat(L"因方案不再达标的窗：%s 个", CountText(names.size())), names, output);
    PrintNames(SayFormat(L"因方案不再达标的户：%s 户", CountText(flatNames.size())), flatNames, output);
    if (!names.empty())
        return;
    output.Line(L"");
    output.Line(Say(L"没有窗因方案不再达标。"));
}

}  // namespace

void PrintChanges(const AnalysisReport& report, Output& output) {
    if (!IsCompared(report) || report.answer.windows.empty())
        return;
    const WindowTotals totals = TotalsOf(report.answer.windows);
    PrintSums(
        Say(L"方案前后，按户"), 4, {Say(L"前"), Say(L"后"), Say(L"楼"), Say(L"户")}, totals.flats,
        [](const WindowTotal& flat) {
            return Cells{FlatVerdict(flat, flat.passedBefore), FlatVerdict(flat, flat.passing),
                         NameOrNone(flat.building), Printable(flat.flat)};
        },
        output);
    PrintSums(
        Say(L"方案前后，按楼"), 2, {Say(L"楼"), Say(L"新不达标户")}, totals.buildings,
        [](const WindowTotal& building) {
            return Cells{NameOrNone(building.building),
                         building.judgedByNeed == 0 ? CString(L"-") : CountText(building.flatsFailNow)};
        },
        output);
    PrintSums(
        Say(L"方案前后，按层"), 2, {Say(L"楼"), Say(L"楼层")}, totals.storeys,
        [](const WindowTotal& storey) {
            return Cells{NameOrNone(storey.building), IntToText(*storey.floor)};
        },
        output);
    PrintWhoFailsNow(report, totals.flats, output);
}
