// Makes a scene in a walk over the entities of a drawing: which are seen, of which kind each is, and what it looks
// like.
#include "scene/Scene.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingUnits.h"
#include "scene/BlockCounts.h"
#include "scene/BlockFaces.h"
#include "scene/BlockTable.h"
#include "scene/EntityFaces.h"
#include "scene/EntityGroups.h"
#include "scene/FaceList.h"
#include "scene/FlatOutline.h"
#include "scene/InsertedFaces.h"
#include "scene/LayerLook.h"
#include "scene/LineGatherer.h"
#include "scene/Placement.h"
#include "scene/RaisedOutline.h"

namespace {

constexpr double kSagittaInMillimetres = 50.0;
constexpr std::size_t kAskedEvery = 256;  // entities
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
    SceneBuilder(const AcDbDatabase& drawing, const SceneOptions& options)
        : m_drawing(drawing),
          m_heights(options.heights),
          m_progress(options.progress),
          m_goOn(options.goOn),
          m_layers(drawing, options.heights, options.unseenLayers),
          m_model{m_layers.Find("0"), EntityColor()},
          m_division(DivisionFor(drawing)),
          m_blocks(drawing, m_layers),
          m_blockFaces(drawing, m_layers, m_division),
          m_inserted(drawing, m_division, m_faces, options.mostFaces) {
        m_counts.heights.resize(options.heights.size());
        if (options.hasLines)
            m_lines.emplace(drawing, options.mostSegments);
    }
    Scene Run();

private:
    void Take(AcDbObjectId id, const EntityGroups& entity);
    void TakeInsert(AcDbObjectId id, const EntityGroups& entity, const EntityLook& look);
    EntityOutcome AddFaces(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer);
    void AddRun(AcDbObjectId id, const FaceRun& run);
    void TakeFaulty(AcDbObjectId id);
    void TellLayers();

    const AcDbDatabase& m_drawing;
    const std::vector<LayerHeight>& m_heights;
    SceneProgress* m_progress;
    const std::function<bool()>& m_goOn;
    LayerTable m_layers;
    Surroundings m_model;
    ArcDivision m_division;
    BlockTable m_blocks;
    BlockFacesTable m_blockFaces;
    FaceList m_faces;
    InsertedFaces m_inserted;
    BlockCounts m_blockCounts;
    SceneCounts m_counts;
    std::vector<FaceRun> m_runs;
    std::optional<LineGatherer> m_lines;
    Scene m_scene;
};

Scene SceneBuilder::Run() {
    const std::size_t count = m_drawing.GetEntityCount();
    if (m_progress)
        m_progress->total = count;
    for (std::size_t i = 0; i < count; ++i) {
        if (m_progress) {
            m_progress->done = i;
            if (m_progress->isCancelled)
                return {};
        }
        if (m_goOn && i % kAskedEvery == 0 && !m_goOn())
            return {};
        const AcDbObjectId id = m_drawing.GetEntityId(i);
        Take(id, GroupsOf(m_drawing, id));
    }
    m_blockCounts.AddTo(m_counts);
    for (std::size_t i = 0; i < m_heights.size(); ++i)
        m_counts.heights[i].isLayerThere = m_layers.IsThere(m_heights[i]);
    m_faces.MoveTo(m_scene.faces, m_scene.least, m_scene.most);
    m_scene.passedOver = MostFrequentFirst(m_counts.passedOver);
    m_scene.faultyCount = m_counts.faultyCount;
    m_scene.flatOutlineCount = m_counts.flatOutlineCount;
    m_scene.heights = std::move(m_counts.heights);
    if (m_lines)
        m_scene.lines = m_lines->MoveOut();
    TellLayers();
    return std::move(m_scene);
}

void SceneBuilder::TellLayers() {
    m_scene.layers = m_layers.Names();
    for (std::size_t i = 0; i < m_scene.layers.size(); ++i) {
        const LayerLook& look = m_layers.At(i);
        m_scene.looks.push_back({look.isVisible, look.color.index, look.color.trueColor});
    }
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
    switch (AddFaces(id, entity, layer)) {
        case EntityOutcome::Other:
            ++m_counts.passedOver[std::string(entity.Type())];
            if (m_lines)
                m_lines->Take(id, entity, layer, m_model.ColorOf(look));
            break;
        case EntityOutcome::Faulty:
            TakeFaulty(id);
            break;
        case EntityOutcome::Faces:
            AddRun(id, {layer.number, m_model.ColorOf(look), first, m_faces.GetCount() - first});
            break;
    }
}

// Those of a closed outline are its body's where the layer has a height.
EntityOutcome SceneBuilder::AddFaces(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer) {
    FlatPath path;
    const FlatOutline kind = ReadFlatOutline(m_drawing, id, entity, path);
    const AskedHeight* const asked = layer.Height();
    if (asked && kind == FlatOutline::Unsound)
        return EntityOutcome::Faulty;
    if (asked && kind == FlatOutline::Closed) {
        const std::size_t first = m_faces.GetCount();
        if (!RaisedOutline(std::move(path)).AddBody(Placement(), asked->height, m_division, m_faces) ||
            m_faces.GetCount() == first)
            return EntityOutcome::Faulty;
        ++m_counts.heights[asked->number].bodyCount;
        return EntityOutcome::Faces;
    }
    if (asked && kind == FlatOutline::Open)
        ++m_counts.heights[asked->number].openCount;
    const EntityOutcome outcome = AddEntityFaces(m_drawing, id, entity, m_division, m_faces);
    if (outcome == EntityOutcome::Other && kind == FlatOutline::Closed && !IsUpright(path))
        ++m_counts.flatOutlineCount;
    return outcome;
}

void SceneBuilder::TakeInsert(AcDbObjectId id, const EntityGroups& entity, const EntityLook& look) {
    BlockInsert insert;
    const Block* const block = ReadInsert(entity, insert) ? m_blocks.Find(insert.name) : nullptr;
    if (!block || block->isFaulty) {
        TakeFaulty(id);
        return;
    }
    if (!block->external.empty())
        m_scene.external.push_back({id, block->external});
    BlockFaces& faces = m_blockFaces.Of(*block);
    if (faces.hasFaulty)
        m_scene.faulty.push_back(id);
    m_blockCounts.Take(faces, m_model.LayerOf(look));
    const Surroundings surroundings{m_model.LayerOf(look), m_model.ColorOf(look)};
    if (m_lines)
        m_lines->TakeInsert(id, *block, insert, surroundings);
    switch (m_inserted.Add(faces, insert, surroundings, m_runs)) {
        case InsertOutcome::TooMany:
            m_scene.tooLarge.push_back(id);
            break;
        case InsertOutcome::Faulty:
            TakeFaulty(id);
            break;
        case InsertOutcome::Done:
            if (m_runs.empty())
                ++m_counts.passedOver[kInsert];
            for (const FaceRun& run : m_runs)
                AddRun(id, run);
            break;
    }
}

void SceneBuilder::AddRun(AcDbObjectId id, const FaceRun& run) {
    m_scene.entities.push_back({id, run.layer, run.color.index, run.color.trueColor, run.firstFace, run.faceCount});
}

void SceneBuilder::TakeFaulty(AcDbObjectId id) {
    ++m_counts.faultyCount;
    if (m_scene.faulty.empty() || m_scene.faulty.back() != id)
        m_scene.faulty.push_back(id);
}

}  // namespace

Scene BuildScene(const AcDbDatabase& drawing, const SceneOptions& options) {
    return SceneBuilder(drawing, options).Run();
}
