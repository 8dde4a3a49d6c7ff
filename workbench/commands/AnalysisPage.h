// The report of orvo analyse as a page.
// Why: docs/decisions/workbench.md
#pragma once

#include <string>

#include "analysis/DayRequest.h"

class AcDbDatabase;
struct AnalysisReport;
struct PageRequest;
struct SkyChoice;

// Whole, in the interface's language; empty when the progress says so. Needs what FindStandardOf finds. On any thread,
// while nobody changes drawing and language.
std::string AnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request,
                         const SkyChoice& skies, const AnalysisProgress& progress = nullptr);

// Into the folder that was asked for, with the skies that were. Gives an ExitCode, and has complained unless it is
// success: a sky that was asked for of no window is missing from a page that is written all the same.
int WriteAnalysisPage(const AnalysisReport& report, const AcDbDatabase& drawing, const PageRequest& request,
                      const AnalysisProgress& progress = nullptr);
