// Showing one standard.
#include "workbench/commands/StandardRules.h"

#include <nlohmann/json.hpp>

#include "facts/ClockText.h"
#include "facts/NearestNames.h"
#include "facts/StandardWords.h"
#include "platform/base/PlainText.h"
#include "settings/OrvoStdSet.h"
#include "workbench/Texts.h"
#include "workbench/terminal/Output.h"
#include "workbench/terminal/TextTable.h"

namespace {

nlohmann::ordered_json ColorsAsJson(const OrvoColorTable& colors) {
    nlohmann::ordered_json document;
    document["time"] = nlohmann::ordered_json::array();
    for (int i = 0; i < colors.GetLength(); ++i) {
        const OrvoColorMap* const* row = colors.GetAt(i);
        if (row && *row)
            document["time"].push_back({{"hours", (*row)->m_dValue}, {"color", (*row)->m_nColor}});
    }
    document["types"] = nlohmann::ordered_json::array();
    for (int i = 0; i < colors.m_listType.GetLength(); ++i)
        document["types"].push_back(colors.GetTypeColor(i));
    return document;
}

CString ChangeWords(const OrvoStdSet& standard, const std::vector<const StandardField*>& changes) {
    std::vector<CString> labels;
    for (const StandardField* field : changes)
        labels.push_back(Say(field->label));
    return SayFormat(L"%s（“orvo standards --reset %s”恢复出厂值）", JoinNames(labels), Printable(standard.m_strName));
}

}  // namespace

void PrintRules(const OrvoStdSet& standard, const StandardChanges& changes, Output& output) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left});
    for (const Rule& rule : RulesInWords(standard))
        table.Add({rule.label, rule.words});
    const bool isChanged = changes && !changes->empty();
    if (isChanged)
        table.Add({Say(L"与出厂值不同"), ChangeWords(standard, *changes)});
    const CString source = SourceOf(standard.m_strName);
    if (!source.IsEmpty())
        table.Add({isChanged ? Say(L"其余出厂值来源") : Say(L"出厂值来源"), source});
    table.PrintTo(output, 2);
}

nlohmann::ordered_json RulesAsJson(const OrvoStdSet& standard, const StandardChanges& changes) {
    nlohmann::ordered_json document;
    document["name"] = ToUtf8(standard.m_strName.View());
    document["date"] = IsoDay(standard.m_date);
    document["start"] = standard.m_dgStartTime.getDegree();
    document["end"] = standard.m_dgEndTime.getDegree();
    document["step"] = standard.m_dSpace;
    document["fullWindow"] = standard.m_nFullWin;
    document["limitWidth"] = standard.m_nLimitWidth;
    document["minWidth"] = standard.m_dMinWidth;
    document["maxWidth"] = standard.m_dMaxWidth;
    document["maxContinue"] = standard.m_nMaxContinue;
    document["beijingTime"] = standard.m_nBJTime;
    document["allMaxContinueTime"] = standard.m_nAllMaxContinueTime;
    document["minContinueTime"] = standard.m_nMinContinueTime;
    document["validSunType"] = standard.m_nValidSunType;
    document["minValidAngle"] = standard.m_nMinValidAngle;
    document["minValidTime"] = standard.m_nMinValidTime;
    document["totalTimeType"] = standard.m_nTotalTimeType;
    document["minMaxValidTime"] = standard.m_nMinMaxValidTime;
    document["colors"] = ColorsAsJson(standard.m_colors);
    const CString source = SourceOf(standard.m_strName);
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
