// The windows of an analysis summed up by flat, by building and by storey.
// Why: docs/decisions/workbench.md
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/WindowAnalysis.h"
#include "workbench/terminal/TextTable.h"

class Output;

// A flat, a building, or a storey of a building.
struct WindowTotal {
    CString building;          // empty for windows whose names tell none
    CString flat;              // of flats only
    std::optional<int> floor;  // of storeys only
    std::size_t windows = 0;
    std::size_t analysed = 0;  // whose outside could be told
    std::size_t passing = 0;
    std::size_t judgedByNeed = 0;  // that have a verdict
    double least = 0.0;            // judged minutes, of those analysed
    double most = 0.0;
    std::size_t flats = 0;         // of buildings only
    std::size_t passingFlats = 0;  // with one window or more that passes

    // Of the windows that have a before:
    std::size_t compared = 0;
    std::size_t comparedAnalysed = 0;
    std::size_t passedBefore = 0;
    std::size_t passNow = 0;
    std::size_t failNow = 0;   // that passed before
    double leastBefore = 0.0;  // judged minutes, of those analysed
    double leastNow = 0.0;
    double mostLost = 0.0;
    std::size_t flatsFailNow = 0;  // of buildings only

    // A flat with a window that passed, and none that passes, those that have no before among them.
    bool FailsNow() const { return passedBefore > 0 && passing == 0; }
};

struct WindowTotals {
    std::vector<WindowTotal> flats;      // of windows whose names tell a flat; in the drawing's order
    std::vector<WindowTotal> buildings;  // of all windows; in the drawing's order
    std::vector<WindowTotal> storeys;    // of all with a floor; by building, from below
};

WindowTotals TotalsOf(const std::vector<WindowResult>& windows);

// By flat, building and storey; those without a row are left out.
std::vector<TitledTable> TotalTables(const std::vector<WindowResult>& windows);
void PrintTotals(const std::vector<WindowResult>& windows, Output& output);

// In two lines at most: how many windows there are and how many pass, and the first of those that do not.
std::vector<CString> SummaryLines(const std::vector<WindowResult>& windows);
void PrintSummary(const std::vector<WindowResult>& windows, Output& output);
