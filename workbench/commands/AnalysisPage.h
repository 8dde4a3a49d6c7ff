// The report of orvo analyse as a page.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

class AcDbDatabase;
struct AnalysisReport;
struct PageRequest;

// Whole, in the interface's language. Needs what FindStandardOf finds; on the module's thread.
std::string AnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request);

// Into the folder that was asked for. Gives an ExitCode, and has complained unless it is success.
int WriteAnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request);
