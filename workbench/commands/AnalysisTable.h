// The answer of orvo analyse for people: what was asked, each window with its day, and the totals.
#pragma once

#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/commands/AnalysisHead.h"

class Output;
struct AnalysisReport;

// For a terminal of a hundred columns. False, with a part written, once `goOn` (told how many windows of how many are
// written) is false.
bool PrintAnalysisTable(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn);

// Pieces of it, each for a page, too: what its head has of its own, who casts shadows, and how to read the numbers.
std::vector<HeadRow> OwnHeadRows(const AnalysisReport& report);
std::vector<TitledTable> EntityTables(const AnalysisReport& report);
std::vector<CString> ReadingNotes(const AnalysisReport& report);
