// The blocks of a drawing: what each consists of, read when it is first asked for, whatever inserts it.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"
#include "scene/BlockInsert.h"
#include "scene/BlockOutlines.h"
#include "scene/FaceList.h"
#include "scene/LayerLook.h"
#include "scene/Outline.h"

class AcDbDatabase;
class EntityGroups;

// Blocks within blocks: so many deep.
inline constexpr int kDeepestBlock = 64;

// An entity of a block with faces of its own: those of Block::faces from firstFace on.
struct BlockPart {
    AcDbObjectId id;
    EntityLook look;
    std::size_t firstFace = 0;
    std::size_t faceCount = 0;
    bool hasArcs = false;       // its faces are right for a block in its own size only
    bool isHandedDown = false;  // it is a body instead, of BlockOutlines::handedDown, where a height is handed down
};

struct Block;

struct InnerInsert {
    EntityLook look;
    BlockInsert insert;
    Block* block = nullptr;
    bool hasFaces = false;  // for whoever tells what an INSERT that showed the block has shown
};

struct Block {
    AcDbObjectId head;
    QcGePoint base;
    FaceList faces;
    std::vector<BlockPart> parts;
    std::vector<InnerInsert> inserts;
    BlockOutlines outlines;
    std::map<std::string, std::size_t> passedOver;  // entities of kinds without faces
    std::size_t faultyCount = 0;                    // entities of its own that are faulty, missing blocks among them
    // Its data are unsound, or it contains itself, is deeper than kDeepestBlock, or contains a block of which that is
    // so.
    bool isFaulty = false;
    // In its own size, with all that it inserts; where an INSERT hands no height down, and where it does.
    double faceCount = 0.0;
    double raisedFaceCount = 0.0;
    int depth = 1;
    bool isCounted = false;  // for whoever tells of each block once

    enum class State { Unread, Open, Done };
    State state = State::Unread;

    // With what an INSERT on this layer hands down.
    double CountFaces(const LayerLook& layer) const { return layer.Height() ? raisedFaceCount : faceCount; }
};

class BlockTable {
public:
    // Arcs are divided as `division` says, with spare chords of their own.
    BlockTable(const AcDbDatabase& drawing, LayerTable& layers, const ArcDivision& division);

    // The block with a name as it stands in the file, ready; null for none. Names are compared as those of layers are;
    // of several blocks the first counts.
    Block* Find(std::string_view name);

private:
    Block* BlockOf(std::string_view name);
    void Prepare(Block& first);
    void Read(Block& block);
    void TakePart(Block& block, AcDbObjectId id, const EntityGroups& entity);
    bool TakeOutline(Block& block, FlatOutline kind, const FlatPath& path, const EntityLook& look);
    void TakeInsert(Block& block, const EntityGroups& entity, const EntityLook& look);
    static void Close(Block& block);

    const AcDbDatabase& m_drawing;
    LayerTable& m_layers;
    ArcDivision m_division;
    std::unordered_map<std::wstring, Block> m_blocks;
};
