// What pictures of a scene show of it.
#pragma once

#include "workbench/view/MarkedShapes.h"
#include "workbench/view/SceneLists.h"
#include "workbench/view/ViewResults.h"

struct DrawnScene {
    const SceneLists& lists;
    const SceneLists* marks;  // faces that lie on others; null for none
    const MarkedShapes& marked;
    const ViewResults* results;          // null for none
    std::optional<std::size_t> chosen;   // of the windows of the results
    const HiddenLayers& hidden;          // of `lists`
    const std::atomic<bool>* isStopped;  // set when the picture is wanted no more; may be null
};

// Draws what is no face, edges only if they are wanted. Expects lighting to be off.
void DrawThinParts(const DrawnScene& scene, bool edges);
