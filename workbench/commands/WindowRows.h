// The windows of an analysis as lines of a table: one for each window, and below it the stretches of its day.
#pragma once

#include "analysis/WindowAnalysis.h"

class Output;
struct AnalysisReport;

// False, with a part written, once `goOn` is.
bool PrintWindowRows(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn);
