// Walks through blocks within blocks, whose depth has a bound.
#include "scene/BlockCounts.h"

#include "scene/BlockFaces.h"
#include "scene/BlockTable.h"

namespace {

// On the layers of their own that have a height.
void AddOwnHeights(const BlockOutlines& outlines, SceneCounts& counts) {
    for (const BlockOutline& each : outlines.own)
        ++counts.heights[each.look.layer->Height()->number].bodyCount;
    for (const LayerLook* const layer : outlines.open)
        if (layer)
            ++counts.heights[layer->Height()->number].openCount;
}

void AddFlat(const BlockOutlines& outlines, SceneCounts& counts) {
    counts.flatOutlineCount += outlines.flatCount;
    if (outlines.isRaised)
        return;
    counts.flatOutlineCount += outlines.handedDownFlatCount;
    for (const auto& [type, count] : outlines.flatTypes)
        counts.passedOver[type] += count;
}

}  // namespace

void BlockCounts::Take(BlockFaces& block, const LayerLook& layer) {
    const AskedHeight* const asked = layer.Height();
    if (!m_seen.emplace(&block, asked).second)
        return;
    if (!std::exchange(block.isCounted, true))
        m_blocks.push_back(&block);
    block.outlines.isRaised = block.outlines.isRaised || asked;
    for (InnerFaces& inner : block.inserts) {
        const LayerLook& innerLayer = inner.insert->look.layer ? *inner.insert->look.layer : layer;
        Take(*inner.faces, innerLayer);
        inner.hasFaces = inner.hasFaces || inner.faces->CountFaces(innerLayer) != 0.0;
    }
}

void BlockCounts::AddTo(SceneCounts& counts) const {
    for (const BlockFaces* const block : m_blocks) {
        counts.faultyCount += block->faultyCount;
        for (const auto& [type, count] : block->passedOver)
            counts.passedOver[type] += count;
        for (const InnerFaces& inner : block->inserts)
            if (!inner.hasFaces)
                ++counts.passedOver["INSERT"];
        AddOwnHeights(block->outlines, counts);
        AddFlat(block->outlines, counts);
    }
    for (const auto& [block, asked] : m_seen)
        if (asked) {
            counts.heights[asked->number].bodyCount += block->outlines.handedDown.size();
            for (const LayerLook* const layer : block->outlines.open)
                counts.heights[asked->number].openCount += layer ? 0 : 1;
        }
}
