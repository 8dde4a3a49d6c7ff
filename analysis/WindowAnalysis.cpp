// From a drawing to its windows, what stands around them, and the day of each.
#include "analysis/WindowAnalysis.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "analysis/Boxes.h"
#include "analysis/DrawnWindows.h"
#include "analysis/OccluderSet.h"
#include "analysis/Reach.h"
#include "analysis/SceneRemarks.h"
#include "analysis/ShadowCaster.h"
#include "analysis/SunPath.h"
#include "analysis/Tolerances.h"
#include "analysis/WindowDay.h"
#include "analysis/WindowFloors.h"
#include "analysis/WindowSides.h"
#include "facts/Angles.h"
#include "facts/SunDay.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"
#include "settings/AnalysisParameters.h"

namespace {

using Kind = AnalysisRemark::Kind;

AnalysisRemark RemarkOf(Kind kind, std::size_t count = 0, double amount = 0.0) {
    AnalysisRemark remark;
    remark.kind = kind;
    remark.count = count;
    remark.amount = amount;
    return remark;
}

// The window as it is drawn, in metres.
WindowResult ResultOf(const DrawnWindow& window, double north) {
    WindowResult result;
    result.handle = window.handle;
    result.name = window.name;
    result.building = window.building;
    result.flat = window.flat;
    result.floor = window.floor;
    if (window.hasSide)
        result.facing = FacingOf(window, north);
    else
        result.notes.push_back(WindowNote::NoSide);
    if (window.isInside)
        result.notes.insert(result.notes.begin(), WindowNote::Inside);
    result.width = window.width / kMillimetresPerMetre;
    result.height = window.height / kMillimetresPerMetre;
    result.sill = window.lowerLeft.z / kMillimetresPerMetre;
    const Vector3 across = window.right * window.width;
    const Vector3 up = {0.0, 0.0, window.height};
    const Vector3 corners[] = {window.lowerLeft, window.lowerLeft + across, window.lowerLeft + across + up,
                               window.lowerLeft + up};
    for (std::size_t i = 0; i < result.corners.size(); ++i) {
        const Vector3 corner = corners[i] * (1.0 / kMillimetresPerMetre);
        result.corners[i] = QcGePoint(corner.x, corner.y, corner.z);
    }
    return result;
}

class Analysis {
public:
    Analysis(const AcDbDatabase& drawing, const AnalysisRequest& request, double millimetres)
        : m_drawing(drawing), m_request(request), m_millimetres(millimetres) {}
    AnalysisAnswer Run(const AnalysisProgress& progress);

private:
    void ReadDrawing();
    void TellSpan();
    double LeastAltitude() const;
    HourSpans HoursOfTheSun(const SunPath& path);
    void AnalyseAll(const AnalysisProgress& progress);
    WindowResult Analyse(const DrawnWindow& window, const DayOfAnalysis& day, const Reach& reach);

    const AcDbDatabase& m_drawing;
    const AnalysisRequest& m_request;
    double m_millimetres;
    OccluderSet m_occluders;
    std::vector<DrawnWindow> m_windows;
    SunDay m_sun;
    SunPeriod m_span;             // without a length when the span is no span
    std::vector<bool> m_leftOut;  // by scope, of the entities that were in some window's way
    AnalysisAnswer m_answer;
};

AnalysisAnswer Analysis::Run(const AnalysisProgress& progress) {
    ReadDrawing();
    if (m_answer.failure == AnalysisFailure::None) {
        TellSpan();
        AnalyseAll(progress);
    }
    return std::move(m_answer);
}

void Analysis::ReadDrawing() {
    const std::vector<CString>& layers = m_request.windowLayers;
    {
        const Scene scene = BuildScene(m_drawing, {kMostSceneFaces, m_request.heights});
        m_occluders = MakeOccluders(scene, m_drawing, layers, m_millimetres);
        m_answer.remarks = RemarksOn(scene, m_drawing, m_request.heights, !m_occluders.faces.empty());
    }
    WindowsOfDrawing found = FindWindows(m_drawing, layers, m_millimetres, g_nWinThickness, m_request.plan);
    if (found.areTooMany) {
        m_answer.failure = AnalysisFailure::TooManyWindows;
        return;
    }
    m_windows = std::move(found.windows);
    m_answer.remarks.insert(m_answer.remarks.end(), found.remarks.begin(), found.remarks.end());
    SideRules sides{g_nWinThickness, g_nSunDistPrec, g_nSunWinOffset, m_request.facing};
    if (sides.facing)
        *sides.facing += m_request.north;  // from the drawing's x axis
    TellSides(m_windows, m_occluders, sides);
    TellFloors(m_windows);
}

void Analysis::TellSpan() {
    m_sun = ComputeSunDay(m_request.terms, *m_request.settings.place);
    m_answer.beijingOffset = m_sun.BeijingTime(0.0);
    if (SpanOf(m_request.settings, m_answer.beijingOffset, m_answer.span))
        m_span = m_answer.span;
    else
        m_answer.remarks.push_back(RemarkOf(Kind::SpanUnusable));
    if (!IsStep(m_request.settings.standard->step))
        m_answer.remarks.push_back(RemarkOf(Kind::StepUnusable, 0, m_request.settings.standard->step));
}

double Analysis::LeastAltitude() const {
    if (m_request.leastAltitude)
        return *m_request.leastAltitude;
    return m_request.isScoped ? g_nMinSunAngle : 0.0;
}

// What every window has in common is made once, in an order in which each thing stands on those before.
void Analysis::AnalyseAll(const AnalysisProgress& progress) {
    const SunPath path(m_sun.declination, m_sun.latitude, m_request.north);
    const HourSpans up = HoursOfTheSun(path);
    const ShadowCaster caster(m_occluders, path, up, g_nSunDistPrec);
    const BoxTree faceTree(BoxesAround(m_occluders.faces));
    const Reach reach(m_occluders, {g_nMainScopeRadius, g_nScopeFactorOfHeight, g_nBuildingHeightLimit});
    DayOfAnalysis day{*m_request.settings.standard, m_occluders, faceTree, caster, path};
    day.span = m_span;
    day.up = up;
    day.north = m_request.north;
    day.need = m_request.need;
    day.offset = g_nSunWinOffset;
    day.precision = g_nSunDistPrec;
    m_leftOut.assign(m_occluders.handles.size(), false);
    m_answer.windows.reserve(m_windows.size());
    for (const DrawnWindow& window : m_windows) {
        if (progress && !progress(m_answer.windows.size(), m_windows.size())) {
            m_answer.failure = AnalysisFailure::Cancelled;
            m_answer.windows.clear();
            return;
        }
        m_answer.windows.push_back(Analyse(window, day, reach));
    }
    const auto leftOut = std::count(m_leftOut.begin(), m_leftOut.end(), true);
    if (leftOut != 0)
        m_answer.remarks.push_back(RemarkOf(Kind::LeftOutByScope, static_cast<std::size_t>(leftOut)));
}

HourSpans Analysis::HoursOfTheSun(const SunPath& path) {
    const double altitude = LeastAltitude();
    const HourSpans up = path.HoursBefore({0.0, 0.0, 1.0}, std::sin(altitude * kRadiansPerDegree), m_span);
    if (m_span.start < m_span.end && up.IsEmpty())
        m_answer.remarks.push_back(RemarkOf(Kind::SunBelowHorizon, 0, altitude));
    if (m_sun.kind == SunDay::Kind::PolarDay)
        m_answer.remarks.push_back(RemarkOf(Kind::SunNeverSets));
    if (altitude > 0.0)
        m_answer.remarks.push_back(RemarkOf(Kind::LeftOutByAltitude, 0, altitude));
    return up;
}

WindowResult Analysis::Analyse(const DrawnWindow& window, const DayOfAnalysis& day, const Reach& reach) {
    WindowResult result = ResultOf(window, m_request.north);
    if (IsTooNarrow(day.standard, window))
        result.notes.push_back(WindowNote::Narrower);
    if (!window.hasSide) {
        result.color = ColorOf(day.standard, result.judged);
        return result;
    }
    EntityFilter counts;
    const Vector3 sill = window.lowerLeft + window.right * (0.5 * window.width);
    if (m_request.isScoped && g_bLimitClientScope)
        counts = [&, known = std::unordered_map<std::uint32_t, bool>()](std::uint32_t entity) mutable {
            const auto [each, isNew] = known.try_emplace(entity, false);
            if (isNew) {
                each->second = reach.Counts(entity, sill);
                m_leftOut[entity] = m_leftOut[entity] || !each->second;
            }
            return each->second;
        };
    AnalyseDay(day, window, counts, result);
    std::sort(result.notes.begin(), result.notes.end());
    return result;
}

}  // namespace

AnalysisAnswer AnalyseWindows(const AcDbDatabase& drawing, const AnalysisRequest& request,
                              const AnalysisProgress& progress) {
    AnalysisAnswer answer;
    const DrawingUnit unit = UnitOf(drawing);
    if (!request.settings.place || !request.settings.place->IsOnTheGlobe())
        answer.failure = AnalysisFailure::NoPlace;
    else if (!request.settings.standard)
        answer.failure = AnalysisFailure::NoStandard;
    else if (!unit.millimetres)
        answer.failure = AnalysisFailure::UnknownUnit;
    answer.unit = unit.name;
    if (answer.failure != AnalysisFailure::None)
        return answer;
    return Analysis(drawing, request, *unit.millimetres).Run(progress);
}
