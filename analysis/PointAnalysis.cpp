// From a drawing to its areas, the points in them, and the day of each.
#include "analysis/PointAnalysis.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "analysis/BodyInside.h"
#include "analysis/Boxes.h"
#include "analysis/DaysSun.h"
#include "analysis/DrawnAreas.h"
#include "analysis/OccluderSet.h"
#include "analysis/SceneRemarks.h"
#include "analysis/ShadingScene.h"
#include "analysis/ShadowCaster.h"
#include "analysis/SharedWork.h"
#include "analysis/Tolerances.h"
#include "analysis/UsualWindowLayers.h"
#include "analysis/WindowDay.h"
#include "analysis/WindowSides.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"

namespace {

// How far beside a plane it is asked what is inside.
constexpr double kBesidePlane = 2.0;

// What stands for an upright area where a window is asked for: a small one, well within.
DrawnWindow WindowIn(const FlatArea& shape) {
    constexpr double kSize = 20.0;
    DrawnWindow window;
    window.right = shape.right;
    window.width = kSize;
    window.height = kSize;
    window.lowerLeft = shape.At(shape.inside) - (shape.right + shape.up) * (0.5 * kSize);
    return window;
}

QcGePoint InMetres(const Vector3& place) {
    return {place.x / kMillimetresPerMetre, place.y / kMillimetresPerMetre, place.z / kMillimetresPerMetre};
}

using LinesProgress = std::function<bool(double share)>;

class Analysis {
public:
    Analysis(const AcDbDatabase& drawing, const PointRequest& request, double millimetres)
        : m_drawing(drawing), m_request(request), m_millimetres(millimetres) {}
    PointAnswer Run(const AnalysisProgress& progress, const LinesProgress& lines);

private:
    // An area with the hours whose sun is valid for it.
    struct Area {
        DrawnArea drawn;
        bool hasSide = true;
        HourSpans valid;
    };

    bool ReadDrawing(const AnalysisProgress& progress);
    void TellSides();
    bool MakePoints();
    void AnalyseAll(const AnalysisProgress& progress, const LinesProgress& lines);
    void TellValidHours(const DayOfAnalysis& day);
    HourSpans SunlitAt(const DayOfAnalysis& day, const Area& area, const Vector3& place) const;
    void Analyse(const DayOfAnalysis& day, PointResult& point) const;
    bool FollowIsolines(const DayOfAnalysis& day, const LinesProgress& goOn);
    void SumUp(OutlineResult& outline) const;
    void RemarkOnPointsInside();
    Vector3 PlaceOf(const PointResult& point) const;
    Vector3 Before(const Area& area, const Vector3& place) const;

    const AcDbDatabase& m_drawing;
    const PointRequest& m_request;
    double m_millimetres;
    OccluderSet m_occluders;
    std::vector<Area> m_areas;
    PointAnswer m_answer;
};

PointAnswer Analysis::Run(const AnalysisProgress& progress, const LinesProgress& lines) {
    if (!ReadDrawing(progress)) {
        m_answer.failure = AnalysisFailure::Cancelled;
        return std::move(m_answer);
    }
    TellSides();
    if (MakePoints())
        AnalyseAll(progress, lines);
    if (m_answer.failure != AnalysisFailure::None) {
        m_answer.outlines.clear();
        m_answer.points.clear();
        m_answer.isolines.clear();
    }
    return std::move(m_answer);
}

// False once nobody wants the answer any more.
bool Analysis::ReadDrawing(const AnalysisProgress& progress) {
    {
        const std::optional<Scene> scene = ReadScene(m_drawing, m_request.heights, progress);
        if (!scene)
            return false;
        m_occluders = MakeOccluders(*scene, m_drawing, LayersWithoutShadow(m_request), m_millimetres);
        m_answer.remarks = RemarksOn(*scene, m_drawing, m_request.heights, !m_occluders.faces.empty());
    }
    std::optional<double> level = m_request.level;
    if (level)
        *level *= kMillimetresPerMetre;
    AreasOfDrawing found = FindAreas(m_drawing, m_request.areaLayers, m_millimetres, level);
    m_answer.areaRemarks = std::move(found.remarks);
    for (DrawnArea& area : found.areas)
        m_areas.push_back({std::move(area), true, {}});
    return !progress || progress(0, 0);
}

void Analysis::TellSides() {
    const BodyInside bodies(m_occluders);
    SideRules rules{m_request.tuning.windowThickness, m_request.tuning.distancePrecision, m_request.tuning.windowOffset,
                    m_request.facing};
    if (rules.facing)
        *rules.facing += m_request.north;  // from the drawing's x axis
    std::vector<DrawnWindow> windows;
    for (Area& area : m_areas) {
        FlatArea& shape = area.drawn.shape;
        const Vector3 way = shape.outward * kBesidePlane;
        const Vector3 inside = shape.At(shape.inside);
        if (shape.plane == AreaPlane::Upright)
            windows.push_back(WindowIn(shape));
        else if (shape.plane == AreaPlane::Tilted && bodies.IsInside(inside + way) && !bodies.IsInside(inside - way))
            shape.Turn();
    }
    ::TellSides(windows, m_occluders, rules);
    auto window = windows.begin();
    for (Area& area : m_areas) {
        FlatArea& shape = area.drawn.shape;
        if (shape.plane != AreaPlane::Upright)
            continue;
        area.hasSide = window->hasSide;
        if (Dot(window->right, shape.right) < 0.0)
            shape.Turn();
        if (!area.hasSide)
            m_answer.areaRemarks.push_back({AreaRemark::Kind::NoSide, {}, area.drawn.handle, 0});
        ++window;
    }
}

// False when there are too many.
bool Analysis::MakePoints() {
    const double spacing = m_request.spacing * kMillimetresPerMetre;
    double count = 0.0;
    for (const Area& area : m_areas)
        if (area.hasSide)
            count += CountGridPoints(area.drawn.shape, spacing);
    if (count <= static_cast<double>(kMostPoints))
        for (std::size_t i = 0; i < m_areas.size(); ++i) {
            const DrawnArea& drawn = m_areas[i].drawn;
            OutlineResult outline;
            outline.handle = drawn.handle;
            outline.area = drawn.shape.area * drawn.arcShare / (kMillimetresPerMetre * kMillimetresPerMetre);
            const Vector3& outward = drawn.shape.outward;
            outline.outward = QcGePoint(outward.x, outward.y, outward.z);
            for (const FlatPoint& each : drawn.shape.corners)
                outline.corners.push_back(InMetres(drawn.shape.At(each)));
            outline.firstPoint = m_answer.points.size();
            if (m_areas[i].hasSide)
                for (const FlatPoint& each : GridPoints(drawn.shape, spacing))
                    m_answer.points.push_back({InMetres(drawn.shape.At(each)), static_cast<std::uint32_t>(i), {}, 0.0});
            outline.pointCount = m_answer.points.size() - outline.firstPoint;
            m_answer.outlines.push_back(std::move(outline));
        }
    m_answer.pointCount = std::max(count, static_cast<double>(m_answer.points.size()));
    if (m_answer.pointCount > static_cast<double>(kMostPoints))
        m_answer.failure = AnalysisFailure::TooManyPoints;
    return m_answer.failure == AnalysisFailure::None;
}

void Analysis::AnalyseAll(const AnalysisProgress& progress, const LinesProgress& lines) {
    const DaysSun sun = FindDaysSun(m_request, m_request.leastAltitude.value_or(0.0), m_answer);
    const ShadowCaster caster(m_occluders, sun.path, sun.up, m_request.tuning.distancePrecision);
    const BoxTree faceTree(BoxesAround(m_occluders.faces));
    const DayOfAnalysis day = DayOf(m_request, sun, m_occluders, faceTree, caster);
    TellValidHours(day);
    const std::size_t count = m_answer.points.size();
    const auto goOn = [&](std::size_t done) { return !progress || progress(done, count); };
    bool isDone = ShareWork(
        count, m_request.threads, [&](std::size_t i) { Analyse(day, m_answer.points[i]); }, goOn);
    for (OutlineResult& outline : m_answer.outlines)
        SumUp(outline);
    if (isDone && m_request.isolines)
        isDone = FollowIsolines(day, [&](double share) { return lines ? lines(share) : goOn(count); });
    if (isDone)
        RemarkOnPointsInside();
    else
        m_answer.failure = AnalysisFailure::Cancelled;
}

// The rules go by a wall: points that lie in none have none.
void Analysis::TellValidHours(const DayOfAnalysis& day) {
    for (Area& area : m_areas)
        area.valid = area.drawn.shape.plane == AreaPlane::Upright ? ValidHours(day, WindowIn(area.drawn.shape))
                                                                  : HourSpans(day.span);
}

Vector3 Analysis::PlaceOf(const PointResult& point) const {
    return Vector3{point.place.x, point.place.y, point.place.z} * kMillimetresPerMetre;
}

Vector3 Analysis::Before(const Area& area, const Vector3& place) const {
    return place + area.drawn.shape.outward * m_request.tuning.windowOffset;
}

HourSpans Analysis::SunlitAt(const DayOfAnalysis& day, const Area& area, const Vector3& place) const {
    SunTarget target;
    target.middle = Before(area, place);
    target.right = area.drawn.shape.right;
    target.up = area.drawn.shape.up;
    target.outward = area.drawn.shape.outward;
    const HourSpans before = Intersection(day.up, day.path.HoursBefore(target.outward, kSunInPlane, day.span));
    HourSpans lit = Difference(before, day.caster.HiddenHours(target, before));
    lit.DropShorterThan(kShortestHours);
    HourSpans sunlit = Intersection(lit, area.valid);
    sunlit.DropShorterThan(kShortestHours);
    return sunlit;
}

void Analysis::Analyse(const DayOfAnalysis& day, PointResult& point) const {
    const HourSpans sunlit = SunlitAt(day, m_areas[point.outline], PlaceOf(point));
    point.sunlit = sunlit.All();
    point.total = CountSun(sunlit, day.span, day.standard).judged;
}

// False when it is not to go on.
bool Analysis::FollowIsolines(const DayOfAnalysis& day, const LinesProgress& goOn) {
    std::size_t cellsLeft = kMostIsolineCells;
    // Between its points an area may have more than at any of them, but nowhere more than the span is long.
    const double spanHours = day.span.end - day.span.start;
    for (std::size_t i = 0; i < m_areas.size(); ++i) {
        const Area& area = m_areas[i];
        if (!area.hasSide)
            continue;
        IsolineSearch search{area.drawn.shape, m_request.spacing * kMillimetresPerMetre};
        search.mostHours = static_cast<int>(std::floor(spanHours + kMinuteTolerance / 60.0));
        search.threads = m_request.threads;
        search.minutesAt = [&](const FlatPoint& place) {
            const HourSpans sunlit = SunlitAt(day, area, area.drawn.shape.At(place));
            return CountSun(sunlit, day.span, day.standard).judged;
        };
        const double all = std::max(1.0, static_cast<double>(m_answer.points.size()));
        const double before = static_cast<double>(m_answer.outlines[i].firstPoint) / all;
        const double own = static_cast<double>(m_answer.outlines[i].pointCount) / all;
        search.goOn = [&](double share) { return goOn(before + own * share); };
        std::vector<FlatIsoline> lines;
        const IsolineOutcome outcome = FindIsolines(search, cellsLeft, lines);
        if (outcome == IsolineOutcome::Cancelled)
            return false;
        if (outcome == IsolineOutcome::TooMany)
            m_answer.areaRemarks.push_back({AreaRemark::Kind::TooManyIsolines, {}, area.drawn.handle, 0});
        for (const FlatIsoline& line : lines) {
            Isoline& placed = m_answer.isolines.emplace_back();
            placed.hours = line.hours;
            placed.outline = static_cast<std::uint32_t>(i);
            placed.isClosed = line.isClosed;
            for (const FlatPoint& point : line.points) {
                const Vector3 place = area.drawn.shape.At(point) * (1.0 / kMillimetresPerMetre);
                placed.points.emplace_back(place.x, place.y, place.z);
            }
        }
    }
    return true;
}

void Analysis::SumUp(OutlineResult& outline) const {
    if (outline.pointCount == 0)
        return;
    const auto first = m_answer.points.begin() + static_cast<std::ptrdiff_t>(outline.firstPoint);
    const auto last = first + static_cast<std::ptrdiff_t>(outline.pointCount);
    const double needed = m_request.need.value_or(0.0) * 60.0 - kMinuteTolerance;
    std::size_t enough = 0;
    outline.least = first->total;
    for (auto point = first; point != last; ++point) {
        outline.least = std::min(outline.least, point->total);
        outline.most = std::max(outline.most, point->total);
        outline.mean += point->total;
        enough += point->total >= needed ? 1 : 0;
    }
    outline.mean /= static_cast<double>(outline.pointCount);
    if (m_request.need)
        outline.share = static_cast<double>(enough) / static_cast<double>(outline.pointCount);
}

void Analysis::RemarkOnPointsInside() {
    const BodyInside bodies(m_occluders);
    for (const OutlineResult& outline : m_answer.outlines) {
        std::size_t count = 0;
        for (std::size_t i = 0; i < outline.pointCount; ++i) {
            const PointResult& point = m_answer.points[outline.firstPoint + i];
            count += point.sunlit.empty() && bodies.IsInside(Before(m_areas[point.outline], PlaceOf(point))) ? 1 : 0;
        }
        if (count != 0)
            m_answer.areaRemarks.push_back({AreaRemark::Kind::PointsInside, {}, outline.handle, count});
    }
}

}  // namespace

std::vector<CString> LayersWithoutShadow(const PointRequest& request) {
    std::vector<CString> layers = request.areaLayers;
    layers.insert(layers.end(), std::begin(kUsualWindowLayers), std::end(kUsualWindowLayers));
    return layers;
}

PointAnswer AnalysePoints(const AcDbDatabase& drawing, const PointRequest& request, const AnalysisProgress& progress,
                          const std::function<bool(double share)>& lines) {
    PointAnswer answer;
    const DrawingUnit unit = UnitOf(drawing);
    answer.unit = unit.name;
    if (!CanBeAsked(request, unit.millimetres, answer))
        return answer;
    return Analysis(drawing, request, *unit.millimetres).Run(progress, lines);
}
