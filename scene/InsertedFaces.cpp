// Puts the faces of blocks where they are inserted.
#include "scene/InsertedFaces.h"

#include <algorithm>

#include "scene/BlockFaces.h"
#include "scene/BlockTable.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/Placement.h"

namespace {

constexpr std::size_t kWorkForEachFace = 4;

}  // namespace

InsertedFaces::InsertedFaces(const AcDbDatabase& drawing, ArcDivision& division, FaceList& faces, std::size_t most)
    : m_drawing(drawing), m_division(division), m_faces(faces), m_most(most), m_spareWork(kWorkForEachFace * most) {}

InsertOutcome InsertedFaces::Add(const BlockFaces& block, const BlockInsert& insert, const Surroundings& surroundings,
                                 std::vector<FaceRun>& runs) {
    runs.clear();
    // Said before anything is made: counts of an array are easily written.
    if (block.CountFaces(surroundings.layer) * insert.CountCopies() > static_cast<double>(m_most))
        return InsertOutcome::TooMany;
    const std::size_t first = m_faces.GetCount();
    m_outcome = InsertOutcome::Done;
    m_runs.clear();
    if (AddCopies(block, insert, Placement(), surroundings))
        runs.swap(m_runs);
    else
        m_faces.Shorten(first);
    return m_outcome;
}

bool InsertedFaces::AddCopies(const BlockFaces& block, const BlockInsert& insert, const Placement& outer,
                              const Surroundings& surroundings) {
    // Without faces there may be any number of copies.
    if (block.CountFaces(surroundings.layer) == 0.0)
        return true;
    for (int row = 0; row < insert.rows; ++row)
        for (int column = 0; column < insert.columns; ++column)
            if (!AddBlock(block, insert.At(block.block->base, column, row).Within(outer), surroundings))
                return false;
    return true;
}

bool InsertedFaces::AddBlock(const BlockFaces& block, const Placement& placement, const Surroundings& surroundings) {
    const bool isRaised = surroundings.layer.Height() != nullptr;
    for (const BlockPart& part : block.parts) {
        if (isRaised && part.isHandedDown)
            continue;
        if (!Spend(1))
            return false;
        const LayerLook& layer = surroundings.LayerOf(part.look);
        if (layer.isVisible && !AddPart(block, part, placement, layer, surroundings))
            return false;
    }
    if (!AddRaised(block.outlines.own, placement, surroundings) ||
        (isRaised && !AddRaised(block.outlines.handedDown, placement, surroundings)))
        return false;
    // The others would be asked in vain for each copy, and a block may have a million of them.
    for (std::size_t i = 0; i < block.shownCount; ++i) {
        const InnerFaces& inner = block.inserts[i];
        const EntityLook& look = inner.insert->look;
        const Surroundings within{surroundings.LayerOf(look), surroundings.ColorOf(look)};
        // None of them lies on a frozen layer: neither on one of its own, nor on one that is handed down.
        if (!AddCopies(*inner.faces, inner.insert->insert, placement, within))
            return false;
    }
    return true;
}

bool InsertedFaces::AddPart(const BlockFaces& block, const BlockPart& part, const Placement& placement,
                            const LayerLook& layer, const Surroundings& surroundings) {
    FaceRun run{layer.number, surroundings.ColorOf(part.look), m_faces.GetCount(), 0};
    const bool isPlaced = part.hasArcs && placement.stretch > 1.0
                              ? AddDividedAnew(part, placement)
                              : AddPlaced(block.faces, part.firstFace, part.faceCount, placement);
    run.faceCount = m_faces.GetCount() - run.firstFace;
    AddRun(run);
    return isPlaced;
}

bool InsertedFaces::AddRaised(const std::vector<BlockOutline>& outlines, const Placement& placement,
                              const Surroundings& surroundings) {
    for (const BlockOutline& each : outlines) {
        if (!Spend(1))
            return false;
        const LayerLook& layer = surroundings.LayerOf(each.look);
        FaceRun run{layer.number, surroundings.ColorOf(each.look), m_faces.GetCount(), 0};
        const bool isNear = each.outline->AddBody(placement, layer.Height()->height, m_division, m_faces);
        run.faceCount = m_faces.GetCount() - run.firstFace;
        AddRun(run);
        if (!Keep(isNear) || !Spend(run.faceCount))
            return false;
    }
    return true;
}

// A block that is enlarged has its chords as far from its arcs as they may be once they are enlarged.
bool InsertedFaces::AddDividedAnew(const BlockPart& part, const Placement& placement) {
    ArcDivision finer = m_division;
    finer.sagitta /= placement.stretch;
    FaceList faces;
    AddEntityFaces(m_drawing, part.id, GroupsOf(m_drawing, part.id), finer, faces);
    m_division.spareChords = finer.spareChords;
    return AddPlaced(faces, 0, faces.GetCount(), placement);
}

bool InsertedFaces::AddPlaced(const FaceList& from, std::size_t first, std::size_t count, const Placement& placement) {
    if (!Spend(count))
        return false;
    return Keep(m_faces.AddPlaced(from, first, count, placement));
}

bool InsertedFaces::Keep(bool isNear) {
    if (!isNear)
        m_outcome = InsertOutcome::Faulty;
    else if (m_faces.GetCount() > m_most)
        m_outcome = InsertOutcome::TooMany;
    return m_outcome == InsertOutcome::Done;
}

bool InsertedFaces::Spend(std::size_t work) {
    if (work > m_spareWork)
        m_outcome = InsertOutcome::TooMany;
    m_spareWork -= std::min(work, m_spareWork);
    return m_outcome == InsertOutcome::Done;
}

void InsertedFaces::AddRun(const FaceRun& run) {
    if (run.faceCount == 0)
        return;
    FaceRun* const last = m_runs.empty() ? nullptr : &m_runs.back();
    if (last && last->layer == run.layer && last->color == run.color)
        last->faceCount += run.faceCount;
    else
        m_runs.push_back(run);
}
