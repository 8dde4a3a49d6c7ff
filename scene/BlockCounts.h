// What the blocks of a drawing hold that gives no faces, or a body only for a height: each block once, however often it
// is inserted.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "scene/LayerHeight.h"

struct AskedHeight;
struct BlockFaces;
struct LayerLook;

// What a scene tells beside its faces.
struct SceneCounts {
    std::map<std::string, std::size_t> passedOver;
    std::size_t faultyCount = 0;
    std::size_t flatOutlineCount = 0;
    std::vector<LayerHeightUse> heights;
};

class BlockCounts {
public:
    // A sound block that an INSERT on this layer shows, and the blocks in it.
    void Take(BlockFaces& block, const LayerLook& layer);
    // Adds the counts of all blocks that were taken.
    void AddTo(SceneCounts& counts) const;

private:
    std::vector<const BlockFaces*> m_blocks;
    // With the heights that were handed down to them.
    std::set<std::pair<const BlockFaces*, const AskedHeight*>> m_seen;
};
