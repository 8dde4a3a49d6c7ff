// The answer of orvo points as a table for spreadsheets.
#pragma once

#include "analysis/DayRequest.h"

class Output;
struct PointsReport;

// A line of headings and one for each point, with the handle of its outline; as PrintAnalysisAsCsv writes them. False,
// with a part written, once `goOn` is.
bool PrintPointsAsCsv(const PointsReport& report, Output& output, const AnalysisProgress& goOn);
