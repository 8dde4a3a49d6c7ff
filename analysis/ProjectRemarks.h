// What is to be said of the layers of a project.
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"

struct Scene;
class AcDbDatabase;

struct ProjectQuestion {
    const AcDbDatabase& drawing;
    const Scene& scene;
    const std::vector<CString>& windowLayers;  // as WindowLayers takes them
    const std::vector<CString>& layers;        // of the project
};

// At most one remark on each layer, in their order: that it is missing, one of windows, not to be seen, or empty.
void AddRemarksOnProject(const ProjectQuestion& question, std::vector<AnalysisRemark>& remarks);
