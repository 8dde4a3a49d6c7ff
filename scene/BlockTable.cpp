// Reads blocks with all the blocks that they insert.
#include "scene/BlockTable.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DxfScanner.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kName = 2;
constexpr int kIsExternal = 4 | 8;  // an attached reference, or an overlaid one

std::wstring KeyOf(const AcDbDatabase& drawing, std::string_view name) {
    return std::wstring(drawing.Decode(TrimDxfValue(name)).MakeLower().View());
}

}  // namespace

BlockTable::BlockTable(const AcDbDatabase& drawing, LayerTable& layers) : m_drawing(drawing), m_layers(layers) {
    std::vector<AcDbObjectId> heads;
    if (!drawing.GetBlocks(heads))
        throw std::bad_alloc();
    for (const AcDbObjectId head : heads)
        if (const EntityGroups groups = GroupsOf(drawing, head); const DxfGroup* const name = groups.Find(kName))
            if (const auto [block, isNew] = m_blocks.try_emplace(KeyOf(drawing, name->value)); isNew)
                block->second.head = head;
}

Block* BlockTable::BlockOf(std::string_view name) {
    const auto block = m_blocks.find(KeyOf(m_drawing, name));
    return block == m_blocks.end() ? nullptr : &block->second;
}

Block* BlockTable::Find(std::string_view name) {
    Block* const block = BlockOf(name);
    if (block && block->state == Block::State::Unread)
        Prepare(*block);
    return block;
}

// Goes down into the blocks that are inserted and closes each behind them. Nothing here calls itself: a file may hold
// a chain of a million blocks.
void BlockTable::Prepare(Block& first) {
    struct Step {
        Block* block;
        std::size_t next;
    };
    std::vector<Step> open;
    const auto enter = [&](Block& block) {
        Read(block);
        block.state = Block::State::Open;
        open.push_back({&block, 0});
    };
    enter(first);
    while (!open.empty()) {
        Block& block = *open.back().block;
        if (open.back().next == block.inserts.size()) {
            Close(block);
            open.pop_back();
            continue;
        }
        Block& inner = *block.inserts[open.back().next++].block;
        if (inner.state == Block::State::Unread)
            enter(inner);
    }
}

// All that it inserts is done, save blocks that are open: those insert this one.
void BlockTable::Close(Block& block) {
    for (const InnerInsert& inner : block.inserts) {
        const Block& inserted = *inner.block;
        if (inserted.state != Block::State::Done || inserted.isFaulty)
            block.isFaulty = true;
        block.depth = std::max(block.depth, inserted.depth + 1);
        if (block.external.empty())
            block.external = inserted.external;
    }
    if (block.depth > kDeepestBlock)
        block.isFaulty = true;
    block.state = Block::State::Done;
}

void BlockTable::Read(Block& block) {
    const EntityGroups head = GroupsOf(m_drawing, block.head);
    if ((head.Find(kX) || head.Find(kY)) && !head.Point(kX, block.base))
        block.isFaulty = true;
    for (AcDbObjectId id = m_drawing.GetNextObject(block.head); !id.isNull(); id = m_drawing.GetNextObject(id)) {
        const EntityGroups entity = GroupsOf(m_drawing, id);
        if (entity.Type() == "ENDBLK")
            break;
        Take(block, id, entity);
    }
    const DxfGroup* const name = head.Find(kName);
    if (name && (head.IntegerOr(kFlags, 0) & kIsExternal) != 0 && block.entities.empty() && block.inserts.empty())
        block.external = TrimDxfValue(name->value);
}

void BlockTable::Take(Block& block, AcDbObjectId id, const EntityGroups& entity) {
    if (IsPartOfAnother(entity) || entity.Type() == "ATTDEF" || !entity.IsInModel())
        return;
    const EntityLook look = ReadLook(entity, m_layers);
    const bool isFrozen = look.layer && look.layer->isFrozen;
    if (entity.Type() != "INSERT" || isFrozen || !TakeInsert(block, id, entity, look))
        block.entities.push_back({id, look});
}

// False for one that shows nothing.
bool BlockTable::TakeInsert(Block& block, AcDbObjectId id, const EntityGroups& entity, const EntityLook& look) {
    InnerInsert inner{id, look, {}, nullptr};
    if (ReadInsert(entity, inner.insert))
        inner.block = BlockOf(inner.insert.name);
    if (!inner.block)
        return false;
    block.inserts.push_back(std::move(inner));
    return true;
}
