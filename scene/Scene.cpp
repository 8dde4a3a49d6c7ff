// Makes a scene in a walk over the entities of a drawing: which are seen, of which kind each is, and what it looks
// like.
#include "scene/Scene.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "scene/BlockTable.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/InsertedFaces.h"
#include "scene/LayerLook.h"

namespace {

constexpr double kSagittaInMillimetres = 50.0;
constexpr const char* kInsert = "INSERT";

ArcDivision DivisionFor(const AcDbDatabase& drawing) {
    ArcDivision division;
    division.sagitta = kSagittaInMillimetres / UnitOf(drawing).millimetres.value_or(1.0);
    return division;
}

std::vector<KindCount> MostFrequentFirst(const std::map<std::string, std::size_t>& counts) {
    std::vector<KindCount> sorted;
    for (const auto& [type, count] : counts)
        sorted.push_back({type, count});
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const KindCount& a, const KindCount& b) { return a.count > b.count; });
    return sorted;
}

class SceneBuilder {
public:
    SceneBuilder(const AcDbDatabase& drawing, std::size_t mostFaces)
        : m_drawing(drawing),
          m_layers(drawing),
          m_model{m_layers.Find("0"), EntityColor()},
          m_division(DivisionFor(drawing)),
          m_blocks(drawing, m_layers, m_division),
          m_inserted(drawing, m_division, m_faces, mostFaces) {}
    Scene Run();

private:
    void Take(AcDbObjectId id, const EntityGroups& entity);
    void TakeInsert(AcDbObjectId id, const EntityGroups& entity, const EntityLook& look);
    void Count(Block& block);
    void AddRun(AcDbObjectId id, const FaceRun& run);

    const AcDbDatabase& m_drawing;
    LayerTable m_layers;
    Surroundings m_model;
    ArcDivision m_division;
    BlockTable m_blocks;
    FaceList m_faces;
    InsertedFaces m_inserted;
    std::map<std::string, std::size_t> m_passedOver;
    std::vector<FaceRun> m_runs;
    Scene m_scene;
};

Scene SceneBuilder::Run() {
    for (std::size_t i = 0; i < m_drawing.GetEntityCount(); ++i) {
        const AcDbObjectId id = m_drawing.GetEntityId(i);
        Take(id, GroupsOf(m_drawing, id));
    }
    m_faces.MoveTo(m_scene.faces, m_scene.least, m_scene.most);
    m_scene.passedOver = MostFrequentFirst(m_passedOver);
    m_scene.layers = m_layers.Names();
    return std::move(m_scene);
}

void SceneBuilder::Take(AcDbObjectId id, const EntityGroups& entity) {
    if (IsPartOfAnother(entity) || !entity.IsInModel())
        return;
    const EntityLook look = ReadLook(entity, m_layers);
    const LayerLook& layer = m_model.LayerOf(look);
    if (entity.Type() == kInsert) {
        if (!layer.isFrozen)
            TakeInsert(id, entity, look);
        return;
    }
    if (!layer.isVisible)
        return;
    const std::size_t first = m_faces.GetCount();
    switch (AddEntityFaces(m_drawing, id, entity, m_division, m_faces)) {
        case EntityOutcome::Other:
            ++m_passedOver[std::string(entity.Type())];
            break;
        case EntityOutcome::Faulty:
            ++m_scene.faultyCount;
            break;
        case EntityOutcome::Faces:
            AddRun(id, {layer.number, m_model.ColorOf(look), first, m_faces.GetCount() - first});
            break;
    }
}

void SceneBuilder::TakeInsert(AcDbObjectId id, const EntityGroups& entity, const EntityLook& look) {
    BlockInsert insert;
    Block* const block = ReadInsert(entity, insert) ? m_blocks.Find(insert.name) : nullptr;
    if (!block || block->isFaulty) {
        ++m_scene.faultyCount;
        return;
    }
    Count(*block);
    switch (m_inserted.Add(*block, insert, {m_model.LayerOf(look), m_model.ColorOf(look)}, m_runs)) {
        case InsertOutcome::TooMany:
            m_scene.tooLarge.push_back(id);
            break;
        case InsertOutcome::Faulty:
            ++m_scene.faultyCount;
            break;
        case InsertOutcome::Done:
            if (m_runs.empty())
                ++m_passedOver[kInsert];
            for (const FaceRun& run : m_runs)
                AddRun(id, run);
            break;
    }
}

// What gives no faces in a block, and in the blocks in it; sound ones, whose depth has a bound.
void SceneBuilder::Count(Block& block) {
    if (std::exchange(block.isCounted, true))
        return;
    m_scene.faultyCount += block.faultyCount;
    for (const auto& [type, count] : block.passedOver)
        m_passedOver[type] += count;
    for (const InnerInsert& inner : block.inserts) {
        Count(*inner.block);
        if (inner.block->faceCount == 0.0)
            ++m_passedOver[kInsert];
    }
}

void SceneBuilder::AddRun(AcDbObjectId id, const FaceRun& run) {
    m_scene.entities.push_back({id, run.layer, run.color.index, run.color.trueColor, run.firstFace, run.faceCount});
}

}  // namespace

Scene BuildScene(const AcDbDatabase& drawing, std::size_t mostFaces) {
    return SceneBuilder(drawing, mostFaces).Run();
}
