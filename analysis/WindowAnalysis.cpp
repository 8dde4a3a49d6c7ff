// From a drawing to its windows, what stands around them, and the day of each.
#include "analysis/WindowAnalysis.h"

#include <algorithm>
#include <utility>

#include "analysis/Boxes.h"
#include "analysis/DaysSun.h"
#include "analysis/DrawnWindows.h"
#include "analysis/OccluderSet.h"
#include "analysis/ProjectRemarks.h"
#include "analysis/Reach.h"
#include "analysis/SceneRemarks.h"
#include "analysis/ShadingScene.h"
#include "analysis/ShadowCaster.h"
#include "analysis/SharedWork.h"
#include "analysis/WindowAnalyst.h"
#include "analysis/WindowFloors.h"
#include "analysis/WindowSides.h"
#include "platform/host/DrawingUnits.h"
#include "scene/Scene.h"

namespace {

using Kind = AnalysisRemark::Kind;

AnalysisRemark RemarkOf(Kind kind, std::size_t count = 0, double amount = 0.0) {
    AnalysisRemark remark;
    remark.kind = kind;
    remark.count = count;
    remark.amount = amount;
    return remark;
}

class Analysis {
public:
    Analysis(const AcDbDatabase& drawing, const AnalysisRequest& request, double millimetres)
        : m_drawing(drawing), m_request(request), m_millimetres(millimetres) {}
    AnalysisAnswer Run(const AnalysisProgress& progress);

private:
    bool ReadDrawing(const AnalysisProgress& progress);
    double LeastAltitude() const;
    void AnalyseAll(const AnalysisProgress& progress);
    std::optional<ReachLimits> Limits() const;

    const AcDbDatabase& m_drawing;
    const AnalysisRequest& m_request;
    double m_millimetres;
    OccluderSet m_occluders;
    std::vector<DrawnWindow> m_windows;
    AnalysisAnswer m_answer;
};

AnalysisAnswer Analysis::Run(const AnalysisProgress& progress) {
    if (!ReadDrawing(progress))
        m_answer.failure = AnalysisFailure::Cancelled;
    else if (m_answer.failure == AnalysisFailure::None)
        AnalyseAll(progress);
    return std::move(m_answer);
}

// False once nobody wants the answer any more.
bool Analysis::ReadDrawing(const AnalysisProgress& progress) {
    const auto goOn = [&] { return !progress || progress(0, 0); };
    const std::vector<CString>& layers = m_request.windowLayers;
    {
        const std::optional<Scene> scene = ReadScene(m_drawing, m_request.heights, progress);
        if (!scene)
            return false;
        m_occluders = MakeOccluders(*scene, m_drawing, layers, m_millimetres, m_request.proposedLayers);
        m_answer.remarks = RemarksOn(*scene, m_drawing, m_request.heights, !m_occluders.faces.empty());
        AddRemarksOnProject({m_drawing, *scene, layers, m_request.proposedLayers}, m_answer.remarks);
    }
    if (!goOn())
        return false;
    WindowsOfDrawing found =
        FindWindows(m_drawing, layers, m_millimetres, m_request.tuning.windowThickness, m_request.plan);
    if (found.areTooMany) {
        m_answer.failure = AnalysisFailure::TooManyWindows;
        return true;
    }
    m_windows = std::move(found.windows);
    m_answer.remarks.insert(m_answer.remarks.end(), found.remarks.begin(), found.remarks.end());
    SideRules sides{m_request.tuning.windowThickness, m_request.tuning.distancePrecision, m_request.tuning.windowOffset,
                    m_request.facing};
    if (sides.facing)
        *sides.facing += m_request.north;  // from the drawing's x axis
    if (!goOn())
        return false;
    TellSides(m_windows, m_occluders, sides);
    TellFloors(m_windows);
    if (!m_windows.empty() &&
        std::all_of(m_windows.begin(), m_windows.end(), [](const DrawnWindow& each) { return each.isProposed; }))
        m_answer.remarks.push_back(RemarkOf(Kind::AllProposed, m_windows.size()));
    return goOn();
}

double Analysis::LeastAltitude() const {
    if (m_request.leastAltitude)
        return *m_request.leastAltitude;
    return m_request.isScoped ? m_request.tuning.leastSunAngle : 0.0;
}

// What every window has in common is made once, in an order in which each thing stands on those before.
void Analysis::AnalyseAll(const AnalysisProgress& progress) {
    const DaysSun sun = FindDaysSun(m_request, LeastAltitude(), m_answer);
    const ShadowCaster caster(m_occluders, sun.path, sun.up, m_request.tuning.distancePrecision);
    const BoxTree faceTree(BoxesAround(m_occluders.faces));
    const DayOfAnalysis day = DayOf(m_request, sun, m_occluders, faceTree, caster);
    // The module's rule is asked here, and not by the threads that share the work.
    std::vector<HourSpans> valid;
    valid.reserve(m_windows.size());
    for (const DrawnWindow& window : m_windows)
        valid.push_back(ValidHours(day, window));
    const WindowAnalyst analyst(day, Limits(), !m_request.proposedLayers.empty());
    m_answer.windows.resize(m_windows.size());
    const bool isDone = ShareWork(
        m_windows.size(), m_request.threads,
        [&](std::size_t i) {
            m_answer.windows[i] = analyst.Analyse({m_windows[i], valid[i]});
        },
        [&](std::size_t done) { return !progress || progress(done, m_windows.size()); });
    if (!isDone) {
        m_answer.failure = AnalysisFailure::Cancelled;
        m_answer.windows.clear();
    } else if (const std::size_t leftOut = analyst.CountLeftOut(); leftOut != 0) {
        m_answer.remarks.push_back(RemarkOf(Kind::LeftOutByScope, leftOut));
    }
}

std::optional<ReachLimits> Analysis::Limits() const {
    if (!m_request.isScoped || !m_request.tuning.limitsScope)
        return {};
    return m_request.tuning.reach;
}

}  // namespace

AnalysisAnswer AnalyseWindows(const AcDbDatabase& drawing, const AnalysisRequest& request,
                              const AnalysisProgress& progress) {
    AnalysisAnswer answer;
    const DrawingUnit unit = UnitOf(drawing);
    answer.unit = unit.name;
    if (!CanBeAsked(request, unit.millimetres, answer))
        return answer;
    return Analysis(drawing, request, *unit.millimetres).Run(progress);
}
