// The faces of blocks in their own size, made when they are first asked for.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/host/AcDbObjectId.h"
#include "scene/BlockOutlines.h"
#include "scene/FaceList.h"
#include "scene/LayerLook.h"
#include "scene/Outline.h"

class AcDbDatabase;
struct Block;
struct BlockEntity;
struct InnerInsert;

// An entity of a block with faces of its own: those of BlockFaces::faces from firstFace on.
struct BlockPart {
    AcDbObjectId id;
    EntityLook look;
    std::size_t firstFace = 0;
    std::size_t faceCount = 0;
    bool hasArcs = false;       // its faces are right for a block in its own size only
    bool isHandedDown = false;  // it is a body instead, of BlockOutlines::handedDown, where a height is handed down
};

struct BlockFaces;

struct InnerFaces {
    const InnerInsert* insert = nullptr;
    BlockFaces* faces = nullptr;
    bool hasFaces = false;  // for whoever tells what an INSERT that showed the block has shown
};

struct BlockFaces {
    const Block* block = nullptr;
    FaceList faces;
    std::vector<BlockPart> parts;
    std::vector<InnerFaces> inserts;  // as the block has them, those that may show faces first
    std::size_t shownCount = 0;       // how many of them may
    BlockOutlines outlines;
    std::map<std::string, std::size_t> passedOver;  // entities of kinds without faces
    std::size_t faultyCount = 0;                    // entities of its own that are faulty, INSERTs among them
    bool hasFaulty = false;                         // it, or what it inserts
    // With all that it inserts; where an INSERT hands no height down, and where it does.
    double faceCount = 0.0;
    double raisedFaceCount = 0.0;
    bool isCounted = false;  // for whoever tells of each block once

    // With what an INSERT on this layer hands down.
    double CountFaces(const LayerLook& layer) const { return layer.Height() ? raisedFaceCount : faceCount; }
};

class BlockFacesTable {
public:
    // Arcs are divided as `division` says, with spare chords of their own.
    BlockFacesTable(const AcDbDatabase& drawing, const LayerTable& layers, const ArcDivision& division)
        : m_drawing(drawing), m_layers(layers), m_division(division) {}

    // Of a sound block, and of those in it. They stay where they are.
    BlockFaces& Of(const Block& block);

private:
    void Take(BlockFaces& faces, const BlockEntity& entity);
    bool TakeOutline(BlockFaces& faces, FlatOutline kind, const FlatPath& path, const EntityLook& look);
    void Count(BlockFaces& faces);

    const AcDbDatabase& m_drawing;
    const LayerTable& m_layers;
    ArcDivision m_division;
    std::unordered_map<const Block*, BlockFaces> m_blocks;
};
