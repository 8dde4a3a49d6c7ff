// What stands in a drawing and casts no shadow, because its faces cannot be read.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <vector>

#include "platform/base/CString.h"

class AcDbDatabase;

// How many visible entities off the windows' layers (`windowLayers` as in WindowLayers.h) have a body or a surface that
// the scene does not read: references of blocks, solids, regions, surfaces, and lines, arcs, circles and solids in plan
// with a thickness. Throws std::bad_alloc, and nothing else.
std::size_t CountUnreadBodies(const AcDbDatabase& drawing, const std::vector<CString>& windowLayers);
