// Makes the faces of blocks entity by entity.
#include "scene/BlockFaces.h"

#include <algorithm>

#include "platform/host/AcDbDatabase.h"
#include "scene/BlockTable.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"

// A sound block is at most kDeepestBlock deep, so that this may call itself.
BlockFaces& BlockFacesTable::Of(const Block& block) {
    const auto [known, isNew] = m_blocks.try_emplace(&block);
    BlockFaces& faces = known->second;
    if (!isNew)
        return faces;
    faces.block = &block;
    for (const BlockEntity& entity : block.entities)
        Take(faces, entity);
    for (const InnerInsert& inner : block.inserts)
        faces.inserts.push_back({&inner, &Of(*inner.block)});
    faces.hasFaulty =
        faces.faultyCount != 0 || std::any_of(faces.inserts.begin(), faces.inserts.end(),
                                              [](const InnerFaces& inner) { return inner.faces->hasFaulty; });
    const auto empty = std::stable_partition(faces.inserts.begin(), faces.inserts.end(), [](const InnerFaces& inner) {
        return inner.faces->faceCount > 0.0 || inner.faces->raisedFaceCount > 0.0;
    });
    faces.shownCount = static_cast<std::size_t>(empty - faces.inserts.begin());
    Count(faces);
    return faces;
}

void BlockFacesTable::Count(BlockFaces& faces) {
    const double shown = static_cast<double>(faces.faces.GetCount() + faces.outlines.ownFaces);
    faces.faceCount = shown;
    faces.raisedFaceCount = shown + static_cast<double>(faces.outlines.handedDownFaces);
    for (const BlockPart& part : faces.parts)
        if (part.isHandedDown)
            faces.raisedFaceCount -= static_cast<double>(part.faceCount);
    for (const InnerFaces& inner : faces.inserts) {
        const BlockFaces& inserted = *inner.faces;
        const LayerLook* const layer = inner.insert->look.layer;
        const double copies = inner.insert->insert.CountCopies();
        faces.faceCount += copies * (layer ? inserted.CountFaces(*layer) : inserted.faceCount);
        faces.raisedFaceCount += copies * (layer ? inserted.CountFaces(*layer) : inserted.raisedFaceCount);
    }
}

void BlockFacesTable::Take(BlockFaces& faces, const BlockEntity& part) {
    const LayerLook* const layer = part.look.layer;
    if (layer && layer->isFrozen)
        return;
    const EntityGroups entity = GroupsOf(m_drawing, part.id);
    if (entity.Type() == "INSERT") {
        ++faces.faultyCount;
        return;
    }
    if (layer && !layer->isVisible)
        return;
    FlatPath path;
    const FlatOutline kind = ReadFlatOutline(m_drawing, part.id, entity, path);
    BlockOutlines& outlines = faces.outlines;
    const std::size_t handedDown = outlines.handedDown.size();
    if (TakeOutline(faces, kind, path, part.look))
        return;
    const bool isHandedDown = outlines.handedDown.size() > handedDown;
    const std::size_t first = faces.faces.GetCount();
    const std::size_t arcs = m_division.arcs;
    switch (AddEntityFaces(m_drawing, part.id, entity, m_division, faces.faces)) {
        case EntityOutcome::Other:
            ++(isHandedDown ? outlines.flatTypes : faces.passedOver)[std::string(entity.Type())];
            if (kind == FlatOutline::Closed && !IsUpright(path))
                ++(isHandedDown ? outlines.handedDownFlatCount : outlines.flatCount);
            break;
        case EntityOutcome::Faulty:
            ++faces.faultyCount;
            break;
        case EntityOutcome::Faces:
            faces.parts.push_back(
                {part.id, part.look, first, faces.faces.GetCount() - first, m_division.arcs != arcs, isHandedDown});
            break;
    }
}

// True when there is no more to take of an entity: it is a body wherever the block is inserted, or faulty as one.
bool BlockFacesTable::TakeOutline(BlockFaces& faces, FlatOutline kind, const FlatPath& path, const EntityLook& look) {
    const bool isRaised = look.layer && look.layer->Height();
    const bool mayBeRaised = isRaised || (!look.layer && m_layers.HasHeights());
    if (!mayBeRaised || kind == FlatOutline::None)
        return false;
    if (kind == FlatOutline::Open) {
        faces.outlines.open.push_back(look.layer);
        return false;
    }
    const bool isSound = kind == FlatOutline::Closed && faces.outlines.Add(look, path, m_division);
    if (isRaised && !isSound)
        ++faces.faultyCount;
    return isRaised;
}
