// What stands below a plan: its scale, where north is, and what its signs mean.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/report/PaperLegend.h"

struct PlanPicture;
struct PlanSheet;

// What a plan shows that has to be explained.
struct PlanSigns {
    bool hasColors = false;
    bool hasFailing = false;
    std::size_t namesLeftOut = 0;  // of those
    bool hasHours = false;
    bool hasUntold = false;
    bool hasCovered = false;
    bool hasProject = false;
    bool hasIsolines = false;
    bool hasShares = false;
    bool hasHandles = false;  // of areas
};
std::vector<LegendEntry> PlanLegend(const PlanPicture& picture, const PlanSigns& signs);

inline constexpr int kScaleHeight = 1500;  // hundredths of a millimetre, for the two below
std::string DrawScale(const PlanSheet& sheet, int top);
std::string DrawNorth(const PlanSheet& sheet, double north, int top);
