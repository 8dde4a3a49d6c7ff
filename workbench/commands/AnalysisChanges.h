// What a project takes from the windows of an analysis: the sums, and who fails now that passed.
// Why: docs/decisions/workbench.md
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/TextTable.h"

class Output;
struct AnalysisReport;

// Names under a line that says what they have in common; without names the line says that there are none.
struct TitledNames {
    CString title;
    std::vector<CString> names;
};

// By flat, by building and by storey, before and now, of the windows that have a before. Nothing unless windows are
// compared.
std::vector<TitledTable> ChangeTables(const AnalysisReport& report);
// The windows and the flats that fail now and passed before. Nothing without a need.
std::vector<TitledNames> WhoFailsNow(const AnalysisReport& report);

// The tables, then the names.
void PrintChanges(const AnalysisReport& report, Output& output);
