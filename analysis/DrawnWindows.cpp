// Walks over the entities of a drawing for its windows and the texts that may name them.
#include "analysis/DrawnWindows.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "analysis/DrawnOutline.h"
#include "analysis/PlanSegments.h"
#include "analysis/PlanWindows.h"
#include "analysis/WindowLayers.h"
#include "analysis/WindowRectangle.h"
#include "analysis/WindowStoreys.h"
#include "analysis/WindowTexts.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/EntityGroups.h"
#include "scene/LayerLook.h"

namespace {

// What somebody may have meant for a window: lines, and what has an area. Dimensions, points and the like are marks.
bool MayBeMeant(std::string_view type) {
    constexpr std::string_view kKinds[] = {"3DFACE",  "LWPOLYLINE", "POLYLINE", "MESH",    "SOLID",   "TRACE",
                                           "INSERT",  "REGION",     "HATCH",    "3DSOLID", "SURFACE", "CIRCLE",
                                           "ELLIPSE", "BODY",       "LINE",     "ARC"};
    return std::find(std::begin(kKinds), std::end(kKinds), type) != std::end(kKinds);
}

PlacedSegment Placed(const PlanSegment& segment, double millimetres) {
    const auto at = [millimetres](const QcGePoint& point) { return Vector3{point.x, point.y, point.z} * millimetres; };
    return {at(segment.from), at(segment.to), at(segment.thickness), segment.hasElevation};
}

class WindowFinder {
public:
    WindowFinder(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                 const PlanRules& plan)
        : m_drawing(drawing),
          m_windowLayers(drawing, layers),
          m_layers(drawing),
          m_millimetres(millimetres),
          m_plan(plan) {}

    WindowsOfDrawing Run(double thickness);

private:
    void Take(std::size_t index, const EntityGroups& entity);
    void TakeOutline(std::size_t index, const EntityGroups& entity, std::uint32_t layer);
    bool TakeLines(AcDbObjectId id, const EntityGroups& entity, std::uint32_t layer);
    void Add(DrawnWindow window, AcDbObjectId id, std::uint32_t layer);
    void Repeat();
    void CountInvisible(std::string_view layer);
    void RemarkOnLayers();

    const AcDbDatabase& m_drawing;
    WindowLayers m_windowLayers;
    LayerTable m_layers;
    double m_millimetres;
    const PlanRules& m_plan;
    WindowsOfDrawing m_found;
    std::vector<AnalysisRemark> m_invisible;  // one for each layer
    std::vector<WindowText> m_texts;
    std::vector<Vector3> m_corners;
    std::vector<PlanSegment> m_segments;
    std::size_t m_linesWithoutHeight = 0;
};

WindowsOfDrawing WindowFinder::Run(double thickness) {
    for (std::size_t i = 0; i < m_drawing.GetEntityCount(); ++i)
        Take(i, GroupsOf(m_drawing, m_drawing.GetEntityId(i)));
    const std::size_t count =
        m_plan.storeys ? CountWithStoreys(m_found.windows, *m_plan.storeys) : m_found.windows.size();
    if (count > kMostWindows)
        return {{}, {}, true};
    NameWindows(m_found.windows, m_texts, thickness);
    if (m_linesWithoutHeight != 0)
        m_found.remarks.push_back({AnalysisRemark::Kind::LinesWithoutHeight, {}, 0, m_linesWithoutHeight, 0.0});
    Repeat();
    RemarkOnLayers();
    return std::move(m_found);
}

void WindowFinder::Take(std::size_t index, const EntityGroups& entity) {
    const std::optional<std::uint32_t> layer = m_windowLayers.Find(entity.Layer());
    if (!layer || !entity.IsInModel())
        return;
    const std::string_view type = entity.Type();
    if (!m_layers.Find(entity.Layer()).isVisible) {
        if (MayBeMeant(type))
            CountInvisible(entity.Layer());
    } else if (MayBeMeant(type)) {
        TakeOutline(index, entity, *layer);
    } else if (type == "TEXT" || type == "MTEXT") {
        WindowText text;
        if (ReadWindowText(m_drawing, entity, m_millimetres, text)) {
            text.layer = *layer;
            m_texts.push_back(std::move(text));
        }
    }
}

void WindowFinder::TakeOutline(std::size_t index, const EntityGroups& entity, std::uint32_t layer) {
    const AcDbObjectId id = m_drawing.GetEntityId(index);
    std::optional<DrawnWindow> window;
    if (ReadOutline(m_drawing, index, entity, m_millimetres, m_corners))
        window = RectangleOf(m_corners);
    if (window)
        Add(*std::move(window), id, layer);
    else if (!TakeLines(id, entity, layer))
        m_found.remarks.push_back({AnalysisRemark::Kind::NotAWindow, {}, m_drawing.GetHandle(id), 1, 0.0});
}

// False when the entity draws anything that is no line of a plan.
bool WindowFinder::TakeLines(AcDbObjectId id, const EntityGroups& entity, std::uint32_t layer) {
    m_segments.clear();
    bool isAll = ReadPlanSegments(m_drawing, id, entity, m_millimetres, m_segments);
    for (const PlanSegment& segment : m_segments) {
        SegmentReading reading = WindowOfSegment(Placed(segment, m_millimetres), m_plan);
        if (reading.window)
            Add(*std::move(reading.window), id, layer);
        else if (reading.lacksHeight)
            ++m_linesWithoutHeight;
        else
            isAll = false;
    }
    return isAll;
}

void WindowFinder::Add(DrawnWindow window, AcDbObjectId id, std::uint32_t layer) {
    window.handle = m_drawing.GetHandle(id);
    window.layer = layer;
    m_found.windows.push_back(std::move(window));
}

void WindowFinder::CountInvisible(std::string_view layer) {
    const CString name = m_drawing.Decode(layer).Trim();
    const auto known = std::find_if(m_invisible.begin(), m_invisible.end(), [&](const AnalysisRemark& remark) {
        return remark.subject.CompareNoCase(name) == 0;
    });
    if (known != m_invisible.end())
        ++known->count;
    else
        m_invisible.push_back({AnalysisRemark::Kind::LayerInvisible, name, 0, 1, 0.0});
}

void WindowFinder::Repeat() {
    if (!m_plan.storeys)
        return;
    const std::vector<DrawnWindow>& windows = m_found.windows;
    if (std::any_of(windows.begin(), windows.end(), [](const DrawnWindow& each) { return each.isLine; }))
        RepeatStoreys(m_found.windows, *m_plan.storeys);
    else
        m_found.remarks.push_back({AnalysisRemark::Kind::NothingRepeated, {}, 0, 0, 0.0});
}

void WindowFinder::RemarkOnLayers() {
    std::vector<AnalysisRemark>& remarks = m_found.remarks;
    remarks.insert(remarks.end(), m_invisible.begin(), m_invisible.end());
    if (!m_windowLayers.AreUsual())
        for (const CString& name : m_windowLayers.Missing())
            remarks.push_back({AnalysisRemark::Kind::LayerMissing, name, 0, 0, 0.0});
    if (m_found.windows.empty())
        remarks.push_back({AnalysisRemark::Kind::NoWindows, {}, 0, 0, 0.0});
}

}  // namespace

WindowsOfDrawing FindWindows(const AcDbDatabase& drawing, const std::vector<CString>& layers, double millimetres,
                             double thickness, const PlanRules& plan) {
    return WindowFinder(drawing, layers, millimetres, plan).Run(thickness);
}
