// From a drawing to the day of one point of it.
#include "analysis/SpotAnalysis.h"

#include <cmath>

#include "analysis/Boxes.h"
#include "analysis/DaysSun.h"
#include "analysis/OccluderSet.h"
#include "analysis/ShadingScene.h"
#include "analysis/ShadowCaster.h"
#include "analysis/WindowDay.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"

namespace {

constexpr double kUpright = 1e-6;  // of a normal of length 1: how far it may rise

// A point, with directions in its plane of which the first is level.
SunTarget TargetAt(const Vector3& place, const Vector3& outward, double offset) {
    SunTarget target;
    target.outward = outward;
    const double level = std::hypot(outward.x, outward.y);
    target.right = level > kUpright ? Vector3{-outward.y / level, outward.x / level, 0.0} : Vector3{1.0, 0.0, 0.0};
    target.up = Cross(target.outward, target.right);
    target.middle = place + outward * offset;
    return target;
}

// What stands for a spot of a wall where the standard's rule asks for a window.
DrawnWindow WindowAt(const SunTarget& target) {
    DrawnWindow window;
    window.right = target.right;
    window.lowerLeft = target.middle;
    window.hasSide = true;
    return window;
}

}  // namespace

SpotAnswer AnalyseSpot(const AcDbDatabase& drawing, const SpotRequest& request, const AnalysisProgress& progress) {
    SpotAnswer answer;
    const DrawingUnit unit = UnitOf(drawing);
    answer.unit = unit.name;
    if (!CanBeAsked(request, unit.millimetres, answer))
        return answer;
    const std::optional<Scene> scene = ReadScene(drawing, request.heights, progress);
    if (!scene) {
        answer.failure = AnalysisFailure::Cancelled;
        return answer;
    }
    const OccluderSet occluders = MakeOccluders(*scene, drawing, request.windowLayers, *unit.millimetres);
    const DaysSun sun = FindDaysSun(request, request.leastAltitude.value_or(0.0), answer);
    const ShadowCaster caster(occluders, sun.path, sun.up, request.tuning.distancePrecision);
    const BoxTree faceTree(BoxesAround(occluders.faces));
    const DayOfAnalysis day = DayOf(request, sun, occluders, faceTree, caster);
    const double length = request.outward.Length();
    const Vector3 outward = Vector3{request.outward.x, request.outward.y, request.outward.z} * (1.0 / length);
    const Vector3 place = Vector3{request.place.x, request.place.y, request.place.z} * *unit.millimetres;
    const SunTarget target = TargetAt(place, outward, day.offset);
    const bool isWall = std::fabs(outward.z) <= kUpright;
    AnalyseTarget(day, target, isWall ? ValidHours(day, WindowAt(target)) : HourSpans(day.span), {}, answer.hours);
    return answer;
}
