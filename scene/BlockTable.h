// The blocks of a drawing: which entities each consists of and which blocks it inserts, read when it is first asked
// for, whatever inserts it.
// Why: docs/decisions/scene.md
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"
#include "scene/BlockInsert.h"
#include "scene/LayerLook.h"

class AcDbDatabase;
class EntityGroups;

// Blocks within blocks: so many deep.
inline constexpr int kDeepestBlock = 64;

struct BlockEntity {
    AcDbObjectId id;
    EntityLook look;
};

struct Block;

// A sound one, not on a frozen layer of its own.
struct InnerInsert {
    AcDbObjectId id;
    EntityLook look;
    BlockInsert insert;
    Block* block = nullptr;
};

struct Block {
    AcDbObjectId head;
    QcGePoint base;
    // Seen in the model space, in the drawing's order, on whatever layers; neither parts of others nor ATTDEFs. An
    // INSERT among them shows nothing: its layer is frozen, or its data are unsound, or its block is missing.
    std::vector<BlockEntity> entities;
    std::vector<InnerInsert> inserts;
    // Its data are unsound, or it contains itself, is deeper than kDeepestBlock, or contains a block of which that is
    // so.
    bool isFaulty = false;
    int depth = 1;
    // The first external reference that it is or inserts, by its name as it stands in the file; empty for none. One
    // that has its content in the file is an ordinary block.
    std::string external;

    enum class State { Unread, Open, Done };
    State state = State::Unread;
};

class BlockTable {
public:
    BlockTable(const AcDbDatabase& drawing, LayerTable& layers);

    // The block with a name as it stands in the file, ready; null for none. It stays where it is. Names are compared as
    // those of layers are; of several blocks the first counts.
    Block* Find(std::string_view name);

private:
    Block* BlockOf(std::string_view name);
    void Prepare(Block& first);
    void Read(Block& block);
    void Take(Block& block, AcDbObjectId id, const EntityGroups& entity);
    bool TakeInsert(Block& block, AcDbObjectId id, const EntityGroups& entity, const EntityLook& look);
    static void Close(Block& block);

    const AcDbDatabase& m_drawing;
    LayerTable& m_layers;
    std::unordered_map<std::wstring, Block> m_blocks;
};
