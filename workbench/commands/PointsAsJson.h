// The answer of orvo points as a document.
#pragma once

#include "analysis/DayRequest.h"

class Output;
struct PointsReport;

// False, with a part of the document written, once `goOn` (told how many points of how many are written) is false.
bool PrintPointsAsJson(const PointsReport& report, Output& output, const AnalysisProgress& goOn);
