// Shows one standard: as rows of a table, and as data.
#include "workbench/commands/StandardRules.h"

#include <nlohmann/json.hpp>

#include "facts/DayText.h"
#include "facts/NearestNames.h"
#include "facts/Standard.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"

namespace {

nlohmann::ordered_json ColorsAsJson(const Standard& standard) {
    nlohmann::ordered_json document;
    document["time"] = nlohmann::ordered_json::array();
    for (const TimeColor& color : standard.timeColors)
        document["time"].push_back({{"hours", color.hours}, {"color", color.color}});
    document["types"] = standard.typeColors;
    return document;
}

CString ChangeWords(const Standard& standard, const std::vector<const StandardField*>& changes) {
    std::vector<CString> labels;
    for (const StandardField* field : changes)
        labels.push_back(Say(field->label));
    return SayFormat(L"%s（“orvo standards --reset %s”恢复出厂值）", JoinNames(labels), Printable(standard.name));
}

}  // namespace

TextTable RulesTable(const std::vector<Rule>& rules, const Standard& standard, const StandardChanges& changes) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left});
    for (const Rule& rule : rules)
        table.Add({rule.label, rule.words});
    const bool isChanged = changes && !changes->empty();
    if (isChanged)
        table.Add({Say(L"与出厂值不同"), ChangeWords(standard, *changes)});
    const CString source = SourceOf(standard.name);
    if (!source.IsEmpty())
        table.Add({isChanged ? Say(L"其余出厂值来源") : Say(L"出厂值来源"), source});
    return table;
}

void PrintRules(const Standard& standard, const StandardChanges& changes, Output& output) {
    RulesTable(RulesInWords(standard), standard, changes).PrintTo(output, 2);
}

nlohmann::ordered_json RulesAsJson(const Standard& standard, const StandardChanges& changes) {
    nlohmann::ordered_json document;
    document["name"] = ToUtf8(standard.name.View());
    document["date"] = IsoDay(standard.day);
    document["start"] = standard.start;
    document["end"] = standard.end;
    document["step"] = standard.step;
    document["fullWindow"] = standard.fullWindow;
    document["limitWidth"] = standard.limitWidth;
    document["minWidth"] = standard.minWidth;
    document["maxWidth"] = standard.maxWidth;
    document["maxContinue"] = standard.maxContinue;
    document["beijingTime"] = standard.beijingTime;
    document["allMaxContinueTime"] = standard.allMaxContinueTime;
    document["minContinueTime"] = standard.minContinueTime;
    document["validSunType"] = standard.validSunType;
    document["minValidAngle"] = standard.minValidAngle;
    document["minValidTime"] = standard.minValidTime;
    document["totalTimeType"] = standard.totalTimeType;
    document["minMaxValidTime"] = standard.minMaxValidTime;
    document["colors"] = ColorsAsJson(standard);
    const CString source = SourceOf(standard.name);
    document["source"] =
        source.IsEmpty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(ToUtf8(source.View()));
    document["changedFromShipped"] = nullptr;
    if (changes) {
        document["changedFromShipped"] = nlohmann::ordered_json::array();
        for (const StandardField* field : *changes)
            document["changedFromShipped"].push_back(field->jsonKey);
    }
    return document;
}

nlohmann::ordered_json ListedStandardAsJson(int index, bool isCurrent, const Standard& standard,
                                            const StandardChanges& changes) {
    nlohmann::ordered_json document = {{"index", index}, {"current", isCurrent}};
    document.update(RulesAsJson(standard, changes));
    return document;
}
