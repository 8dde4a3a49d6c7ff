// The windows of an analysis on their drawing: each in the colour of its result, its hours beside it.
#pragma once

#include "platform/host/DrawingChange.h"

struct AnalysisReport;
class AcDbDatabase;

DrawingChange WindowsOnDrawing(const AnalysisReport& report, const AcDbDatabase& drawing);
