// What is to be said of the shadows that a drawing's scene lacks.
#pragma once

#include <vector>

#include "analysis/AnalysisRemark.h"

struct Scene;
class AcDbDatabase;

// Of faulty entities, of INSERTs that are too large, of bodies that are not read, and, unless anything casts a shadow,
// what the drawing holds instead.
std::vector<AnalysisRemark> RemarksOn(const Scene& scene, const AcDbDatabase& drawing, bool hasShadows);
