// What is to be said of the shadows that a drawing's scene lacks.
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"

struct LayerHeight;
struct Scene;
class AcDbDatabase;

// Of layers that are not there or have nothing for the heights that the scene was made with, of faulty entities, of
// INSERTs that are too large, of bodies that are not read, and, unless anything casts a shadow, what the drawing holds
// instead.
std::vector<AnalysisRemark> RemarksOn(const Scene& scene, const AcDbDatabase& drawing,
                                      const std::vector<LayerHeight>& heights, bool hasShadows);
