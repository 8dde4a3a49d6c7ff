// Summing up, and the tables of the sums.
#include "workbench/commands/AnalysisTotals.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/base/PlainText.h"
#include "platform/base/TextNumber.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"

namespace {

using Align = TextTable::Align;

void Compare(WindowTotal& total, const WindowResult& window) {
    ++total.compared;
    if (window.before->passes.value_or(false))
        ++total.passedBefore;
    if (window.passes.value_or(false))
        ++total.passNow;
    if (FailsNow(window))
        ++total.failNow;
    if (!IsAnalysed(window))
        return;
    const bool isFirst = total.comparedAnalysed++ == 0;
    total.leastBefore = isFirst ? window.before->judged : std::min(total.leastBefore, window.before->judged);
    total.leastNow = isFirst ? window.judged : std::min(total.leastNow, window.judged);
    total.mostLost = isFirst ? LostMinutes(window) : std::max(total.mostLost, LostMinutes(window));
}

void Count(WindowTotal& total, const WindowResult& window) {
    ++total.windows;
    if (window.passes)
        ++total.judgedByNeed;
    if (window.passes.value_or(false))
        ++total.passing;
    if (window.before)
        Compare(total, window);
    if (!IsAnalysed(window))
        return;
    total.least = total.analysed == 0 ? window.judged : std::min(total.least, window.judged);
    total.most = std::max(total.most, window.judged);
    ++total.analysed;
}

// What a total is called: its building, and its flat or its floor.
template <class Part>
struct Key {
    CString building;
    Part part;
    // By hand: as the standard library compares parts in a pair, texts are pointers.
    bool operator<(const Key& other) const {
        return building != other.building ? building < other.building : part < other.part;
    }
};

// Totals by what they are called, in the order in which they are first met.
template <class Name>
class TotalList {
public:
    WindowTotal& At(const Name& name, const WindowTotal& empty) {
        const auto [row, isNew] = m_rows.try_emplace(name, m_totals.size());
        if (isNew)
            m_totals.push_back(empty);
        return m_totals[row->second];
    }
    std::size_t IndexOf(const Name& name) const { return m_rows.at(name); }
    std::vector<WindowTotal> Take() { return std::move(m_totals); }

private:
    std::map<Name, std::size_t> m_rows;
    std::vector<WindowTotal> m_totals;
};

CString NameOrNone(const CString& name) {
    return name.IsEmpty() ? CString(L"-") : Printable(name);
}

CString Passing(const WindowTotal& total) {
    return total.judgedByNeed == 0 ? CString(L"-") : CountText(total.passing);
}

CString Least(const WindowTotal& total) {
    return total.analysed == 0 ? CString(L"-") : DurationText(total.least);
}

CString Most(const WindowTotal& total) {
    return total.analysed == 0 ? CString(L"-") : DurationText(total.most);
}

CString FlatVerdict(const WindowTotal& total) {
    return VerdictWord(total.judgedByNeed == 0 ? std::nullopt : std::optional(total.passing > 0));
}

TitledTable FlatTable(const std::vector<WindowTotal>& flats) {
    TextTable table(
        {Align::Left, Align::Left, Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right});
    table.Add({Say(L"结论"), Say(L"楼"), Say(L"户"), Say(L"窗数"), Say(L"已分析"), Say(L"达标窗"), Say(L"最少"),
               Say(L"最多")});
    for (const WindowTotal& flat : flats)
        table.Add({FlatVerdict(flat), NameOrNone(flat.building), Printable(flat.flat), CountText(flat.windows),
                   CountText(flat.analysed), Passing(flat), Least(flat), Most(flat)});
    return {Say(L"按户合计（一户有一个窗达标即达标）"), std::move(table)};
}

TitledTable BuildingTable(const std::vector<WindowTotal>& buildings) {
    TextTable table({Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right,
                     Align::Right});
    table.Add({Say(L"楼"), Say(L"户数"), Say(L"达标户"), Say(L"窗数"), Say(L"已分析"), Say(L"达标窗"), Say(L"最少"),
               Say(L"最多")});
    for (const WindowTotal& building : buildings)
        table.Add({NameOrNone(building.building), CountText(building.flats),
                   building.judgedByNeed == 0 ? CString(L"-") : CountText(building.passingFlats),
                   CountText(building.windows), CountText(building.analysed), Passing(building), Least(building),
                   Most(building)});
    return {Say(L"按楼合计"), std::move(table)};
}

TitledTable StoreyTable(const std::vector<WindowTotal>& storeys) {
    TextTable table({Align::Left, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right});
    table.Add({Say(L"楼"), Say(L"楼层"), Say(L"窗数"), Say(L"已分析"), Say(L"达标窗"), Say(L"最少"), Say(L"最多")});
    for (const WindowTotal& storey : storeys)
        table.Add({NameOrNone(storey.building), IntToText(*storey.floor), CountText(storey.windows),
                   CountText(storey.analysed), Passing(storey), Least(storey), Most(storey)});
    return {Say(L"按层合计"), std::move(table)};
}

}  // namespace

WindowTotals TotalsOf(const std::vector<WindowResult>& windows) {
    TotalList<CString> buildings;
    TotalList<Key<CString>> flats;
    TotalList<Key<int>> storeys;
    for (const WindowResult& window : windows) {
        const CString& building = window.building;
        const CString& flat = window.flat;
        WindowTotal empty;
        empty.building = building;
        Count(buildings.At(building, empty), window);
        if (window.floor) {
            empty.floor = window.floor;
            Count(storeys.At({building, *window.floor}, empty), window);
            empty.floor.reset();
        }
        if (!flat.IsEmpty()) {
            empty.flat = flat;
            Count(flats.At({building, flat}, empty), window);
        }
    }
    WindowTotals totals = {flats.Take(), {}, storeys.Take()};
    for (const WindowTotal& flat : totals.flats) {
        WindowTotal& building = buildings.At(flat.building, {});
        ++building.flats;
        if (flat.passing > 0)
            ++building.passingFlats;
        if (flat.FailsNow())
            ++building.flatsFailNow;
    }
    std::stable_sort(totals.storeys.begin(), totals.storeys.end(),
                     [&buildings](const WindowTotal& left, const WindowTotal& right) {
                         const std::size_t first = buildings.IndexOf(left.building);
                         const std::size_t second = buildings.IndexOf(right.building);
                         return first != second ? first < second : *left.floor < *right.floor;
                     });
    totals.buildings = buildings.Take();
    return totals;
}

std::vector<TitledTable> TotalTables(const std::vector<WindowResult>& windows) {
    const WindowTotals totals = TotalsOf(windows);
    std::vector<TitledTable> tables;
    if (!totals.flats.empty())
        tables.push_back(FlatTable(totals.flats));
    if (!totals.buildings.empty())
        tables.push_back(BuildingTable(totals.buildings));
    if (!totals.storeys.empty())
        tables.push_back(StoreyTable(totals.storeys));
    return tables;
}

void PrintTotals(const std::vector<WindowResult>& windows, Output& output) {
    for (const TitledTable& each : TotalTables(windows))
        PrintTitled(each, output);
}

std::vector<CString> SummaryLines(const std::vector<WindowResult>& windows) {
    constexpr std::size_t kNamed = 10;
    WindowTotal all;
    CString failing;
    for (const WindowResult& window : windows) {
        Count(all, window);
        const std::size_t failed = all.judgedByNeed - all.passing;
        if (window.passes.value_or(true) || failed > kNamed + 1)
            continue;
        failing += failing.IsEmpty() ? L"" : L", ";
        failing += failed > kNamed ? CString(L"...") : WindowLabel(window);
    }
    std::vector<CString> lines = {
        all.judgedByNeed == 0
            ? SayFormat(L"共 %s 个窗，已分析 %s 个。", CountText(all.windows), CountText(all.analysed))
            : SayFormat(L"共 %s 个窗，已分析 %s 个：达标 %s 个，不达标 %s 个。", CountText(all.windows),
                        CountText(all.analysed), CountText(all.passing), CountText(all.judgedByNeed - all.passing))};
    if (!failing.IsEmpty())
        lines.push_back(SayFormat(L"不达标的窗：%s", failing));
    return lines;
}

void PrintSummary(const std::vector<WindowResult>& windows, Output& output) {
    for (const CString& line : SummaryLines(windows))
        output.Line(line);
}
