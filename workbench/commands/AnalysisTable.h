// The answer of orvo analyse for people: what was asked, each window with its day, and the totals.
#pragma once

#include "analysis/WindowAnalysis.h"

class Output;
struct AnalysisReport;

// For a terminal of a hundred columns. False, with a part written, once `goOn` (told how many windows of how many are
// written) is false.
bool PrintAnalysisTable(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn);
