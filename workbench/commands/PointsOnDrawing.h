// The hours of areas on their drawing: lines of whole hours with labels, and the share of each outline.
// Why: docs/decisions/workbench.md
#pragma once

#include "platform/host/DrawingChange.h"

struct PointsReport;
class AcDbDatabase;

DrawingChange PointsOnDrawing(const PointsReport& report, const AcDbDatabase& drawing);
