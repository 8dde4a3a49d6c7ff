// The scene of a drawing as an analysis takes it: what casts shadows, and when.
// Why: docs/decisions/analysis.md
#pragma once

#include <optional>
#include <vector>

#include "analysis/DayRequest.h"
#include "analysis/SunPeriod.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "scene/Scene.h"

// The drawing's faces without those on the layers of windows (by these names; without any, the usual ones) and of
// results. Throws std::bad_alloc, and nothing else.
ORVO_API Scene BuildShadingScene(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights,
                                 const std::vector<CString>& windowLayers);

// All faces of a drawing that may cast shadows, whatever their layer, but those of results. None once the progress says
// so; it is told 0 of 0, as long as nobody knows how many there will be. Throws std::bad_alloc, and nothing else.
std::optional<Scene> ReadScene(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights,
                               const AnalysisProgress& progress);

// The span that such a request is analysed over, in true solar time; none when it is no span, or when the place or the
// standard is missing.
ORVO_API std::optional<SunPeriod> FindSpan(const DayRequest& request);
