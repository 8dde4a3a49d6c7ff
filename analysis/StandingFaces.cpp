// Takes from a drawing what both analyses take.
#include "analysis/StandingFaces.h"

#include <vector>

#include "analysis/PointAnalysis.h"
#include "analysis/ResultLayers.h"
#include "analysis/WindowAnalysis.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"

namespace {

OccluderSet FacesIn(const AcDbDatabase& drawing, const DayRequest& request, const std::vector<CString>& withoutShadow,
                    const std::vector<CString>& proposed) {
    const DrawingUnit unit = UnitOf(drawing);
    if (!unit.millimetres)
        return {};
    return MakeOccluders(BuildScene(drawing, {kMostSceneFaces, request.heights, kResultLayers}), drawing, withoutShadow,
                         *unit.millimetres, proposed);
}

}  // namespace

OccluderSet StandingFaces(const AcDbDatabase& drawing, const AnalysisRequest& request) {
    return FacesIn(drawing, request, request.windowLayers, request.proposedLayers);
}

OccluderSet StandingFaces(const AcDbDatabase& drawing, const PointRequest& request) {
    return FacesIn(drawing, request, LayersWithoutShadow(request), {});
}
