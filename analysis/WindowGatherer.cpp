// Judges entities in place: which are windows, which are texts, and which come to nothing.
#include "analysis/WindowGatherer.h"

#include <algorithm>
#include <utility>

#include "analysis/PlacedPoints.h"
#include "analysis/PlanWindows.h"
#include "analysis/WindowEntity.h"
#include "analysis/WindowRectangle.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/LayerLook.h"

WindowGatherer::WindowGatherer(const AcDbDatabase& drawing, LayerTable& layers, const std::vector<CString>& names,
                               double millimetres, const PlanRules& plan)
    : m_drawing(drawing), m_layers(layers), m_windowLayers(drawing, names), m_millimetres(millimetres), m_plan(plan) {}

std::optional<std::uint32_t> WindowGatherer::NumberOf(const LayerLook& layer) {
    return m_windowLayers.Find(m_layers.Names()[layer.number]);
}

void WindowGatherer::Begin(std::uint64_t handle) {
    m_handle = handle;
    m_met = 0;
    m_missed = 0;
}

void WindowGatherer::Take(const WindowEntity& entity, const Placement& placement, const LayerLook& layer) {
    const std::optional<std::uint32_t> number = NumberOf(layer);
    if (!number)
        return;
    const PlaceInWorld place{placement, m_millimetres};
    if (entity.mayBeWindow) {
        if (!layer.isVisible || (!TakeOutline(entity, place, *number) && !TakeLines(entity, place, *number)))
            Miss(layer);
    } else if (layer.isVisible && !entity.text.IsEmpty()) {
        TakeText(entity, place, *number);
    }
}

void WindowGatherer::Miss(const LayerLook& layer) {
    ++m_met;
    if (layer.isVisible)
        ++m_missed;
    else
        CountInvisible(layer);
}

bool WindowGatherer::TakeOutline(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer) {
    if (!entity.outline || !PlaceOutline(*entity.outline, place, m_corners))
        return false;
    std::optional<DrawnWindow> window = RectangleOf(m_corners);
    if (!window)
        return false;
    Add(*std::move(window), layer);
    return true;
}

// False when the entity draws anything that is no line of a plan.
bool WindowGatherer::TakeLines(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer) {
    bool isAll = entity.isAllLines;
    for (const PlanSegment& line : entity.lines) {
        PlacedSegment placed{{}, {}, place.WayAt(line.thickness), line.hasElevation};
        SegmentReading reading;
        if (place.PointAt(line.from, placed.from) && place.PointAt(line.to, placed.to))
            reading = WindowOfSegment(placed, m_plan);
        if (reading.window) {
            Add(*std::move(reading.window), layer);
        } else if (reading.lacksHeight) {
            ++m_met;
            ++linesWithoutHeight;
        } else {
            isAll = false;
        }
    }
    return isAll;
}

void WindowGatherer::TakeText(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer) {
    WindowText text{entity.text, {}, layer};
    if (place.PointAt(entity.textPoint, text.place))
        texts.push_back(std::move(text));
}

void WindowGatherer::Add(DrawnWindow window, std::uint32_t layer) {
    ++m_met;
    window.handle = m_handle;
    window.layer = layer;
    windows.push_back(std::move(window));
}

void WindowGatherer::CountInvisible(const LayerLook& layer) {
    const CString name = m_drawing.Decode(m_layers.Names()[layer.number]).Trim();
    const auto known = std::find_if(invisible.begin(), invisible.end(), [&](const AnalysisRemark& remark) {
        return remark.subject.CompareNoCase(name) == 0;
    });
    if (known != invisible.end())
        ++known->count;
    else
        invisible.push_back({AnalysisRemark::Kind::LayerInvisible, name, 0, 1, 0.0});
}
