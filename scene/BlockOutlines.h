// The flat outlines of a block: those that become bodies wherever it is inserted, and those that do so where the INSERT
// lies on a layer with a height.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "scene/FlatOutline.h"
#include "scene/LayerLook.h"
#include "scene/Outline.h"
#include "scene/RaisedOutline.h"

struct BlockOutline {
    EntityLook look;
    std::unique_ptr<RaisedOutline> outline;
};

struct BlockOutlines {
    std::vector<BlockOutline> own;         // on a layer of their own that has a height
    std::vector<BlockOutline> handedDown;  // on layer 0: raised where the INSERT's layer has a height
    std::size_t ownFaces = 0;              // of the bodies in the block's own size
    std::size_t handedDownFaces = 0;
    std::map<std::string, std::size_t> flatTypes;  // of those handed down, the ones that are nothing unless raised
    // Of those that Scene::flatOutlineCount counts: nothing whatever inserts the block, and nothing unless raised.
    std::size_t flatCount = 0;
    std::size_t handedDownFlatCount = 0;
    std::vector<const LayerLook*> open;  // null on layer 0; on no other layer without a height
    bool isRaised = false;               // whether an INSERT has handed down a height

    // Takes a closed one, which lies on layer 0 or on a layer with a height. False when it makes no body.
    bool Add(const EntityLook& look, FlatPath path, ArcDivision& division);
};
