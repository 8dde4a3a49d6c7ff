// What stands in the sky of a window, on paper.
#pragma once

#include <string>

#include "workbench/report/PaperLabels.h"
#include "workbench/report/SkyFrame.h"

struct SkyPicture;

// From far to near; what hides the sun that day is darker, and its handle stands on it where there is room. What is
// wholly behind something nearer is left out unless it hides the sun.
struct SkyBodies {
    std::string shapes;
    std::string handles;
    bool hasCulprits = false;
    bool hasOthers = false;
};
SkyBodies DrawBodies(const SkyPicture& picture, const SkyFrame& frame, PaperLabels& labels);
