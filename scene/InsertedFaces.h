// The faces that an INSERT shows: those of its block, and of the blocks in that, each where it is put.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "scene/LayerLook.h"
#include "scene/Outline.h"

class AcDbDatabase;
class FaceList;
struct BlockFaces;
struct BlockInsert;
struct BlockOutline;
struct BlockPart;
struct Placement;

// Faces that follow each other and look the same.
struct FaceRun {
    std::uint32_t layer = 0;  // which of LayerTable::Names
    EntityColor color;
    std::size_t firstFace = 0;
    std::size_t faceCount = 0;
};

enum class InsertOutcome {
    Done,     // perhaps without any face
    Faulty,   // a corner came out too far away
    TooMany,  // the list would have more faces than it may
};

class InsertedFaces {
public:
    // Adds to `faces`, which is to have at most `most`.
    InsertedFaces(const AcDbDatabase& drawing, ArcDivision& division, FaceList& faces, std::size_t most);

    // All copies of a block. With another outcome than Done the list is as it was, and there are no runs.
    InsertOutcome Add(const BlockFaces& block, const BlockInsert& insert, const Surroundings& surroundings,
                      std::vector<FaceRun>& runs);

private:
    bool AddCopies(const BlockFaces& block, const BlockInsert& insert, const Placement& outer,
                   const Surroundings& surroundings);
    bool AddBlock(const BlockFaces& block, const Placement& placement, const Surroundings& surroundings);
    bool AddPart(const BlockFaces& block, const BlockPart& part, const Placement& placement, const LayerLook& layer,
                 const Surroundings& surroundings);
    bool AddRaised(const std::vector<BlockOutline>& outlines, const Placement& placement,
                   const Surroundings& surroundings);
    bool AddDividedAnew(const BlockPart& part, const Placement& placement);
    bool AddPlaced(const FaceList& from, std::size_t first, std::size_t count, const Placement& placement);
    bool Keep(bool isNear);
    bool Spend(std::size_t work);
    void AddRun(const FaceRun& run);

    const AcDbDatabase& m_drawing;
    ArcDivision& m_division;
    FaceList& m_faces;
    std::size_t m_most;
    // How many more parts of blocks and faces of theirs are worked on, whether they are kept or not: a bound on the
    // work that a small file can ask for.
    std::size_t m_spareWork;
    InsertOutcome m_outcome = InsertOutcome::Done;
    std::vector<FaceRun> m_runs;
};
