// The hours of areas on their drawing: lines of whole hours with labels, and the share of each outline.
#pragma once

#include "platform/host/DrawingChange.h"

struct PointsReport;
class AcDbDatabase;

DrawingChange PointsOnDrawing(const PointsReport& report, const AcDbDatabase& drawing);
