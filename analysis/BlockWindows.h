// The windows and texts in the blocks of a drawing, read once for each block and gathered from each copy.
// Why: docs/decisions/analysis.md
#pragma once

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "analysis/WindowEntity.h"
#include "scene/BlockTable.h"
#include "scene/BlockWalk.h"

class WindowGatherer;

class BlockWindows : private BlockVisitor {
public:
    BlockWindows(const AcDbDatabase& drawing, LayerTable& layers, WindowGatherer& gatherer, std::size_t mostWindows);

    // What an INSERT shows that does not lie on a frozen layer, and the texts of its ATTRIBs. False when it would bring
    // the drawing beyond the most windows (texts among them): then nothing of its blocks is taken.
    bool Take(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer);

private:
    struct Part {
        AcDbObjectId id;
        EntityLook look;
    };
    struct Parts {
        std::vector<Part> parts;
        std::vector<WindowEntity> read;  // of the parts; empty before the first copy
        double stretch = 0.0;            // of the copy that they were read for
    };
    // Those on layers of their own that are for windows, and those on layer 0.
    using Content = std::array<Parts, 2>;

    bool WantsLayer(const LayerLook& layer) override;
    WantedInBlock CountIn(const Block& block) override;
    void Visit(const Block& block, const Placement& placement, const LayerLook& layer) override;
    void Enter(const LayerLook& layer) override;
    void Leave(const LayerLook& layer) override;

    void Consider(const Part& part, Content& content, WantedInBlock& wanted);
    void TakeParts(Parts& parts, const Placement& placement, const LayerLook& layer);
    void Read(Parts& parts, double stretch);
    // Of an INSERT on a layer, which stands for layer 0 here, too; null for one in a block on layer 0.
    std::vector<Part> AttributesOf(AcDbObjectId insert, const LayerLook* layer);

    const AcDbDatabase& m_drawing;
    LayerTable& m_layers;
    WindowGatherer& m_gatherer;
    std::size_t m_mostWindows;
    BlockTable m_blocks;
    BlockWalk m_walk;
    std::unordered_map<const Block*, Content> m_contents;
    std::vector<std::size_t> m_metBefore;  // what the gatherer had met, of each INSERT that is entered
};
