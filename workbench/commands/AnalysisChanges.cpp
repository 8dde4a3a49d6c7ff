// Tables of sums before and now, and lists of names.
#include "workbench/commands/AnalysisChanges.h"

#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/commands/AnalysisWords.h"
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

// A table of sums whose lines begin with some cells of their own, only where there is a sum of compared windows.
template <class NameCells>
void AddSums(const CString& title, std::size_t names, Cells headings, const std::vector<WindowTotal>& totals,
             const NameCells& nameCells, std::vector<TitledTable>& tables) {
    std::vector<Align> columns(names, Align::Left);
    columns.resize(names + SumHeadings().size(), Align::Right);
    TextTable table(columns);
    const auto add = [&](Cells cells, const Cells& more) {
        cells.insert(cells.end(), more.begin(), more.end());
        table.Add(std::move(cells));
    };
    add(std::move(headings), SumHeadings());
    for (const WindowTotal& total : totals)
        if (total.compared != 0)
            add(nameCells(total), SumCells(total));
    if (table.Rows().size() > 1)
        tables.push_back({title, std::move(table)});
}

CString NameOrNone(const CString& name) {
    return name.IsEmpty() ? CString(L"-") : Printable(name);
}

CString FlatVerdict(const WindowTotal& flat, std::size_t passing) {
    return VerdictWord(flat.judgedByNeed == 0 ? std::nullopt : std::optional(passing > 0));
}

// All names, as many to a line as a terminal takes.
void PrintNames(const TitledNames& titled, Output& output) {
    constexpr int kTerminal = 100;
    constexpr int kIndent = 2;
    output.Line(L"");
    output.Line(titled.title);
    const std::vector<CString>& names = titled.names;
    if (names.empty())
        return;
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

}  // namespace

std::vector<TitledTable> ChangeTables(const AnalysisReport& report) {
    std::vector<TitledTable> tables;
    if (!IsCompared(report))
        return tables;
    const WindowTotals totals = TotalsOf(report.answer.windows);
    AddSums(
        Say(L"方案前后，按户"), 4, {Say(L"前"), Say(L"后"), Say(L"楼"), Say(L"户")}, totals.flats,
        [](const WindowTotal& flat) {
            return Cells{FlatVerdict(flat, flat.passedBefore), FlatVerdict(flat, flat.passing),
                         NameOrNone(flat.building), Printable(flat.flat)};
        },
        tables);
    AddSums(
        Say(L"方案前后，按楼"), 2, {Say(L"楼"), Say(L"新不达标户")}, totals.buildings,
        [](const WindowTotal& building) {
            return Cells{NameOrNone(building.building),
                         building.judgedByNeed == 0 ? CString(L"-") : CountText(building.flatsFailNow)};
        },
        tables);
    AddSums(
        Say(L"方案前后，按层"), 2, {Say(L"楼"), Say(L"楼层")}, totals.storeys,
        [](const WindowTotal& storey) {
            return Cells{NameOrNone(storey.building), IntToText(*storey.floor)};
        },
        tables);
    return tables;
}

std::vector<TitledNames> WhoFailsNow(const AnalysisReport& report) {
    std::vector<TitledNames> lists;
    if (!IsCompared(report) || report.answer.windows.empty() || !report.request.need)
        return lists;
    std::vector<CString> names;
    for (const WindowResult& window : report.answer.windows)
        if (FailsNow(window))
            names.push_back(WindowLabel(window));
    std::vector<CString> flatNames;
    for (const WindowTotal& flat : TotalsOf(report.answer.windows).flats)
        if (flat.FailsNow())
            flatNames.push_back((flat.building.IsEmpty() ? CString() : Printable(flat.building) + L"-") +
                                Printable(flat.flat));
    const CString windowsTitle = SayFormat(L"因方案不再达标的窗：%s 个", CountText(names.size()));
    const CString flatsTitle = SayFormat(L"因方案不再达标的户：%s 户", CountText(flatNames.size()));
    if (names.empty())
        lists.push_back({Say(L"没有窗因方案不再达标。"), {}});
    else
        lists.push_back({windowsTitle, std::move(names)});
    if (!flatNames.empty())
        lists.push_back({flatsTitle, std::move(flatNames)});
    return lists;
}

void PrintChanges(const AnalysisReport& report, Output& output) {
    for (const TitledTable& each : ChangeTables(report))
        PrintTitled(each, output);
    for (const TitledNames& each : WhoFailsNow(report))
        PrintNames(each, output);
}
