// The report of orvo points as a page.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

class AcDbDatabase;
struct PageRequest;
struct PointsReport;

// Whole, in the interface's language. Needs what FindStandardOf finds. On any thread, while nobody
// changes drawing and language.
std::string PointsPage(const PointsReport& report, const AcDbDatabase& drawing, const PageRequest& request);

// Into the folder that was asked for. Gives an ExitCode, and has complained unless it is success.
int WritePointsPage(const PointsReport& report, const AcDbDatabase& drawing, const PageRequest& request);
