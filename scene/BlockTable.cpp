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

std::wstring KeyOf(const AcDbDatabase& drawing, std::string_view name) {
    return std::wstring(drawing.Decode(TrimDxfValue(name)).MakeLower().View());
}

}  // namespace

BlockTable::BlockTable(const AcDbDatabase& drawing, LayerTable& layers, const ArcDivision& division)
    : m_drawing(drawing), m_layers(layers), m_division(division) {
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
    const double shown = static_cast<double>(block.faces.GetCount() + block.outlines.ownFaces);
    block.faceCount = shown;
    block.raisedFaceCount = shown + static_cast<double>(block.outlines.handedDownFaces);
    for (const BlockPart& part : block.parts)
        if (part.isHandedDown)
            block.raisedFaceCount -= static_cast<double>(part.faceCount);
    for (const InnerInsert& inner : block.inserts) {
        const Block& inserted = *inner.block;
        if (inserted.state != Block::State::Done || inserted.isFaulty)
            block.isFaulty = true;
        block.depth = std::max(block.depth, inserted.depth + 1);
        const LayerLook* const layer = inner.look.layer;
        const double copies = inner.insert.CountCopies();
        block.faceCount += copies * (layer ? inserted.CountFaces(*layer) : inserted.faceCount);
        block.raisedFaceCount += copies * (layer ? inserted.CountFaces(*layer) : inserted.raisedFaceCount);
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
        TakePart(block, id, entity);
    }
}

void BlockTable::TakePart(Block& block, AcDbObjectId id, const EntityGroups& entity) {
    if (IsPartOfAnother(entity) || entity.Type() == "ATTDEF" || !entity.IsInModel())
        return;
    const EntityLook look = ReadLook(entity, m_layers);
    const bool isInsert = entity.Type() == "INSERT";
    if (look.layer && (isInsert ? look.layer->isFrozen : !look.layer->isVisible))
        return;
    if (isInsert)
        return TakeInsert(block, entity, look);
    FlatPath path;
    const FlatOutline kind = ReadFlatOutline(m_drawing, id, entity, path);
    const std::size_t handedDown = block.outlines.handedDown.size();
    if (TakeOutline(block, kind, path, look))
        return;
    const bool isHandedDown = block.outlines.handedDown.size() > handedDown;
    const std::size_t first = block.faces.GetCount();
    const std::size_t arcs = m_division.arcs;
    switch (AddEntityFaces(m_drawing, id, entity, m_division, block.faces)) {
        case EntityOutcome::Other:
            ++(isHandedDown ? block.outlines.flatTypes : block.passedOver)[std::string(entity.Type())];
            if (kind == FlatOutline::Closed && !IsUpright(path))
                ++(isHandedDown ? block.outlines.handedDownFlatCount : block.outlines.flatCount);
            break;
        case EntityOutcome::Faulty:
            ++block.faultyCount;
            break;
        case EntityOutcome::Faces:
            block.parts.push_back(
                {id, look, first, block.faces.GetCount() - first, m_division.arcs != arcs, isHandedDown});
            break;
    }
}

// True when there is no more to take of an entity: it is a body wherever the block is inserted, or faulty as one.
bool BlockTable::TakeOutline(Block& block, FlatOutline kind, const FlatPath& path, const EntityLook& look) {
    const bool isRaised = look.layer && look.layer->Height();
    const bool mayBeRaised = isRaised || (!look.layer && m_layers.HasHeights());
    if (!mayBeRaised || kind == FlatOutline::None)
        return false;
    if (kind == FlatOutline::Open) {
        block.outlines.open.push_back(look.layer);
        return false;
    }
    const bool isSound = kind == FlatOutline::Closed && block.outlines.Add(look, path, m_division);
    if (isRaised && !isSound)
        ++block.faultyCount;
    return isRaised;
}

void BlockTable::TakeInsert(Block& block, const EntityGroups& entity, const EntityLook& look) {
    InnerInsert inner{look, {}, nullptr};
    if (ReadInsert(entity, inner.insert))
        inner.block = BlockOf(inner.insert.name);
    if (inner.block)
        block.inserts.push_back(std::move(inner));
    else
        ++block.faultyCount;
}
