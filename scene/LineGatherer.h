// Gathers the lines of a drawing beside its faces: of the model space, and of the blocks that are inserted there.
// Why: docs/decisions/scene.md
#pragma once

#include <array>
#include <unordered_map>
#include <vector>

#include "scene/BlockWalk.h"
#include "scene/EntityLines.h"
#include "scene/LayerLook.h"

class AcDbDatabase;
class EntityGroups;

class LineGatherer : private BlockVisitor {
public:
    LineGatherer(const AcDbDatabase& drawing, std::size_t mostSegments);

    // A visible entity of the model space that gave no faces.
    void Take(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer, const EntityColor& color);
    // An INSERT of a sound block, on a layer that is not frozen.
    void TakeInsert(AcDbObjectId id, const Block& block, const BlockInsert& insert, const Surroundings& surroundings);

    SceneLines MoveOut();

private:
    struct Part {
        EntityLook look;
        EntityLines lines;
    };
    // Of a block: what lies on layers of its own that are seen, and what lies on layer 0.
    using Content = std::array<std::vector<Part>, 2>;

    bool WantsLayer(const LayerLook& layer) override { return layer.isVisible; }
    bool WantsInserts() const override { return false; }
    WantedInBlock CountIn(const Block& block) override;
    void Visit(const Block& block, const Placement& placement, const LayerLook& layer) override;
    void Enter(const LayerLook&) override {}
    void Leave(const LayerLook&) override {}
    void Place(const Part& part, const Placement& placement, const LayerLook& layer);
    // Adds to the last run where that looks the same.
    void AddRun(const LayerLook& layer, const EntityColor& color, std::size_t first);

    const AcDbDatabase& m_drawing;
    std::size_t m_mostSegments;
    BlockWalk m_walk;
    std::unordered_map<const Block*, Content> m_contents;
    AcDbObjectId m_id;            // whose lines are being added
    EntityColor m_insertedColor;  // of the outermost INSERT
    SceneLines m_lines;
};
