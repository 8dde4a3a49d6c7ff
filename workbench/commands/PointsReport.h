// What orvo points has to tell: what was asked, and what came out.
#pragma once

#include "analysis/PointAnalysis.h"
#include "workbench/commands/DayReport.h"

// A plain value; the place and the standard of the request are there.
struct PointsReport : DayReport {
    PointRequest request;
    PointAnswer answer;
};
