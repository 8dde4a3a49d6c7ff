// The entities that hide the sun from windows, or take it from them, by what the drawing says of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/WindowResult.h"
#include "workbench/commands/EntityWords.h"

class AcDbDatabase;
struct AnalysisAnswer;

struct ShadingEntity {
    std::uint64_t handle = 0;  // 0: without one
    EntityWords words;
    std::size_t windows = 0;  // from how many it hides the sun at some time
};

// Those in one of the windows' lists, such as WindowResult::hidden: those of most windows first, of equal ones by their
// handles.
using HiddenList = std::vector<HiddenPeriod> WindowResult::*;
std::vector<ShadingEntity> ShadingEntitiesOf(const AcDbDatabase& drawing, const AnalysisAnswer& answer,
                                             HiddenList list = &WindowResult::hidden);
