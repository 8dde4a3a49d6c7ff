// Answers of analyses as the view shows them.
#pragma once

#include <memory>

#include "workbench/view/ViewResults.h"

struct AnalysisReport;
struct PointsReport;

// Windows in the colours of their hours, those that fail with a red edge; and isolines in those of theirs. Either may
// be null. Without the project windows have the hours that they had before it, and those on it are left out. A unit of
// the drawing has so many millimetres.
std::shared_ptr<const ViewResults> ShapesOf(const AnalysisReport* windows, const PointsReport* points,
                                            bool isWithProject, double millimetres);
