// Gathers windows and the texts that may name them from entities, each where it is put.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/AnalysisRemark.h"
#include "analysis/DrawnWindow.h"
#include "analysis/PlanRules.h"
#include "analysis/WindowLayers.h"
#include "analysis/WindowTexts.h"
#include "platform/base/CString.h"

class AcDbDatabase;
class LayerTable;
struct LayerLook;
struct Placement;
struct PlaceInWorld;
struct WindowEntity;

class WindowGatherer {
public:
    // `millimetres` is one unit of the drawing; `names` as WindowLayers takes them.
    WindowGatherer(const AcDbDatabase& drawing, LayerTable& layers, const std::vector<CString>& names,
                   double millimetres, const PlanRules& plan);

    const WindowLayers& Layers() const { return m_windowLayers; }
    double Millimetres() const { return m_millimetres; }
    bool IsForWindows(const LayerLook& layer) { return NumberOf(layer).has_value(); }

    // What is met from here on belongs to the entity of the drawing with this handle.
    void Begin(std::uint64_t handle);
    // An entity, or one of a block, that lies on a layer of windows.
    void Take(const WindowEntity& entity, const Placement& placement, const LayerLook& layer);
    // Something that may be meant for a window, on a layer of windows, and is none.
    void Miss(const LayerLook& layer);
    // How much was met since Begin that is a window or may be meant for one; how much of that is seen, and none.
    std::size_t Met() const { return m_met; }
    std::size_t Missed() const { return m_missed; }

    std::vector<DrawnWindow> windows;  // in the order in which they were met, without names
    std::vector<WindowText> texts;
    std::vector<AnalysisRemark> invisible;  // LayerInvisible, one for each layer
    std::size_t linesWithoutHeight = 0;

private:
    std::optional<std::uint32_t> NumberOf(const LayerLook& layer);
    bool TakeOutline(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer);
    bool TakeLines(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer);
    void TakeText(const WindowEntity& entity, const PlaceInWorld& place, std::uint32_t layer);
    void Add(DrawnWindow window, std::uint32_t layer);
    void CountInvisible(const LayerLook& layer);

    const AcDbDatabase& m_drawing;
    LayerTable& m_layers;
    WindowLayers m_windowLayers;
    double m_millimetres;
    const PlanRules& m_plan;
    std::uint64_t m_handle = 0;
    std::size_t m_met = 0;
    std::size_t m_missed = 0;
    std::vector<Vector3> m_corners;
};
