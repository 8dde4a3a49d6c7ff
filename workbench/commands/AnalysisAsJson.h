// The answer of orvo analyse as a document.
#pragma once

#include "analysis/WindowAnalysis.h"

class Output;
struct AnalysisReport;

// False, with a part of the document written, once `goOn` (told how many windows of how many are written) is false.
bool PrintAnalysisAsJson(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn);
