// The walk over what INSERTs show: it meets what a scene shows of the same drawing, and nothing that nobody wants.
#include "scene/BlockWalk.h"

#include <map>
#include <random>
#include <tuple>

#include "BlocksForTests.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/BlockTable.h"
#include "scene/EntityGroups.h"
#include "scene/LayerLook.h"
#include "scene/Placement.h"

namespace {

constexpr std::size_t kMany = 1000000;
using Corner = std::tuple<double, double, double>;

struct Walked {
    std::map<const Block*, int> countedBlocks;
    int visits = 0;
    std::vector<Corner> corners;
    std::string entered;
    std::vector<bool> answers;  // of each INSERT
};

// Wants the 3DFACEs on the layer W.
class FaceVisitor : public BlockVisitor {
public:
    FaceVisitor(const AcDbDatabase& drawing, LayerTable& layers, Walked& walked)
        : m_drawing(drawing), m_layers(layers), m_walked(walked) {}

    bool WantsLayer(const LayerLook& layer) override { return m_layers.Names()[layer.number] == "W"; }
    WantedInBlock CountIn(const Block& block) override {
        ++m_walked.countedBlocks[&block];
        WantedInBlock wanted;
        for (const BlockEntity& entity : block.entities)
            if (GroupsOf(m_drawing, entity.id).Type() != "3DFACE")
                continue;
            else if (!entity.look.layer)
                wanted.onLayer0 = {wanted.onLayer0.wanted + 1, wanted.onLayer0.steps + 1};
            else if (WantsLayer(*entity.look.layer))
                wanted.onOwnLayers = {wanted.onOwnLayers.wanted + 1, wanted.onOwnLayers.steps + 1};
        return wanted;
    }
    void Visit(const Block& block, const Placement& placement, const LayerLook& layer) override {
        ++m_walked.visits;
        for (const BlockEntity& entity : block.entities) {
            const LayerLook& own = entity.look.layer ? *entity.look.layer : layer;
            QcGePoint corner;
            const EntityGroups groups = GroupsOf(m_drawing, entity.id);
            if (!WantsLayer(own) || !own.isVisible || groups.Type() != "3DFACE" || !groups.Point(10, corner))
                continue;
            const QcGePoint at = placement.PointAt(corner);
            m_walked.corners.emplace_back(at.x, at.y, at.z);
        }
    }
    void Enter(const LayerLook& layer) override { m_walked.entered += WantsLayer(layer) ? "(W" : "("; }
    void Leave(const LayerLook& layer) override { m_walked.entered += WantsLayer(layer) ? "W)" : ")"; }

private:
    const AcDbDatabase& m_drawing;
    LayerTable& m_layers;
    Walked& m_walked;
};

// Walks over all INSERTs of a drawing, each of which may bring so many.
Walked WalkOver(const AcDbDatabase& drawing, std::size_t most = kMany, std::size_t steps = kMany) {
    LayerTable layers(drawing);
    Walked walked;
    FaceVisitor visitor(drawing, layers, walked);
    BlockTable blocks(drawing, layers);
    BlockWalk walk(visitor, steps);
    for (std::size_t i = 0; i < drawing.GetEntityCount(); ++i) {
        const EntityGroups groups = GroupsOf(drawing, drawing.GetEntityId(i));
        BlockInsert insert;
        const LayerLook& layer = layers.Find(groups.Layer());
        if (groups.Type() != "INSERT" || layer.isFrozen || !ReadInsert(groups, insert))
            continue;
        const Block* const block = blocks.Find(insert.name);
        if (block && !block->isFaulty)
            walked.answers.push_back(walk.Walk(*block, insert, layer, most));
    }
    return walked;
}

Walked WalkOver(const std::string& blocks, const std::string& entities, std::size_t most = kMany,
                std::size_t steps = kMany) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities));
    return WalkOver(drawing.database, most, steps);
}

// The first corners of the faces on the layer W in a scene. A mirror turns the corners of a face round.
std::vector<Corner> CornersInScene(const AcDbDatabase& drawing) {
    const Scene scene = BuildScene(drawing);
    std::vector<Corner> corners;
    for (const SceneEntity& entity : scene.entities)
        for (std::size_t i = 0; i < entity.faceCount && scene.layers[entity.layer] == "W"; ++i) {
            const QcGeFace3dEX& face = scene.faces[entity.firstFace + i];
            for (int k = 0; k < face.GetPointNum(); ++k)
                corners.emplace_back(face[k].x, face[k].y, face[k].z);
        }
    return corners;
}

std::string RandomPlace(std::mt19937& random) {
    std::uniform_int_distribution<int> number(0, 50);
    const int x = number(random), y = number(random), z = number(random);
    return At(x, y, z);
}

std::string OneOf(std::mt19937& random, const std::vector<std::string>& texts) {
    return texts[random() % texts.size()];
}

std::string RandomInsert(std::mt19937& random, int below) {
    const std::vector<std::string> layers = {"8=0", "8=W", "8=X", "8=OFF", "8=FROZEN"};
    return Insert("2=B" + std::to_string(random() % static_cast<unsigned>(below)) + " " + OneOf(random, layers) + " " +
                  OneOf(random, {"", "41=-1", "42=-2 43=3", "41=0.5 42=0.5 43=0.5"}) + " " +
                  OneOf(random, {"", "50=30", "50=-90"}) + " " + OneOf(random, {"", "70=2 71=3 44=10 45=-7"}) + " " +
                  OneOf(random, {"", "210=0 220=0 230=-1", "210=1 220=0 230=0"}) + " " + RandomPlace(random));
}

std::string RandomBlocks(std::mt19937& random, int count) {
    std::string blocks;
    for (int i = 0; i < count; ++i) {
        std::string parts;
        for (int k = 0; k < 3; ++k) {
            parts += Scalene(OneOf(random, {"8=0", "8=W", "8=X", "8=OFF"}));
            if (i > 0 && random() % 2 == 0)
                parts += RandomInsert(random, i);
        }
        blocks += BlockText("B" + std::to_string(i), parts, RandomPlace(random));
    }
    return blocks;
}

}  // namespace

TEST(BlockWalk, MeetsWhatASceneShows) {
    const std::string layers = Entity("LAYER", "2=OFF 62=-3") + Entity("LAYER", "2=FROZEN 70=1 62=3");
    std::mt19937 random(5);
    std::size_t met = 0;
    for (int i = 0; i < 60; ++i) {
        const std::string blocks = RandomBlocks(random, 4);
        const OpenDrawing drawing(
            BlockDrawing(blocks, RandomInsert(random, 4) + RandomInsert(random, 4) + RandomInsert(random, 4), layers));
        const Walked walked = WalkOver(drawing.database);
        const std::vector<Corner> shown = CornersInScene(drawing.database);
        const std::vector<Corner>& corners = walked.corners;
        ASSERT_EQ(3 * corners.size(), shown.size()) << i;
        for (std::size_t k = 0; k < corners.size(); ++k)
            EXPECT_TRUE(corners[k] == shown[3 * k] || corners[k] == shown[3 * k + 1] || corners[k] == shown[3 * k + 2])
                << i << " " << k;
        met += corners.size();
    }
    EXPECT_GT(met, 1000U);
}

TEST(BlockWalk, PassesOverWhatNobodyWants) {
    // Most of it stands on layer 0, which would be wanted elsewhere.
    const std::string array = "70=1000000000 71=1000000000 ";
    const std::string tree = BlockText("LEAF", Scalene("8=0") + Scalene("8=X")) +
                             BlockText("TREE", Insert(array + "2=LEAF") + Scalene("8=0"));
    const Walked walked = WalkOver(tree + BlockText("PARK", Insert(array + "2=TREE 8=X") + Scalene("8=W")),
                                   Insert(array + "2=TREE 8=X") + Insert("2=PARK 8=X") + Insert("2=PARK 8=X"));
    EXPECT_EQ(walked.answers, (std::vector<bool>{true, true, true}));
    EXPECT_EQ(walked.visits, 2);
    EXPECT_EQ(walked.entered, "()()");
    ASSERT_EQ(walked.countedBlocks.size(), 3U);
    for (const auto& [block, count] : walked.countedBlocks)
        EXPECT_EQ(count, 1);
}

TEST(BlockWalk, KnowsBeforehandWhatWouldBeTooMuch) {
    const std::string blocks = BlockText("ONE", Scalene("8=0")) + BlockText("TEN", Insert("2=ONE 70=5 71=2"));
    const std::string huge = "70=2147483647 71=2147483647 ";
    const Walked walked =
        WalkOver(blocks + BlockText("HUGE", Insert(huge + "2=TEN")),
                 Insert("2=TEN 8=W 70=2") + Insert("2=TEN 8=W 70=3") + Insert(huge + "2=HUGE 8=W") +
                     Insert("2=ONE 8=W 70=20") + Insert("2=ONE 8=W 70=21") + Insert(huge + "2=HUGE 8=X"),
                 20);
    EXPECT_EQ(walked.answers, (std::vector<bool>{true, false, false, true, false, true}));
    EXPECT_EQ(walked.corners.size(), 40U);
}

TEST(BlockWalk, MakesNoMoreStepsThanItMay) {
    // Each copy of DEEP is entered, with the INSERT in it, to visit one face: four steps.
    const std::string blocks = BlockText("ONE", Scalene("8=W")) + BlockText("DEEP", Insert("2=ONE"));
    const std::string inserts = Insert("2=DEEP 70=10") + Insert("2=DEEP 70=2") + Insert("2=DEEP") + Insert("2=ONE");
    EXPECT_EQ(WalkOver(blocks, inserts, kMany, 40).answers, (std::vector<bool>{true, false, false, false}));
    EXPECT_EQ(WalkOver(blocks, inserts, kMany, 39).answers, (std::vector<bool>{false, true, true, true}));
    EXPECT_EQ(WalkOver(blocks, inserts, kMany, 44).answers, (std::vector<bool>{true, false, true, false}));
}

TEST(BlockWalk, EntersInsertsOnAWantedLayerWhateverTheyHold) {
    const std::string array = "70=1000000000 71=1000000000 ";
    const std::string blocks = BlockText("EMPTY", Entity("LINE", "")) +
                               BlockText("A", Insert(array + "2=EMPTY 8=W") + Insert(array + "2=EMPTY 8=X"));
    EXPECT_EQ(WalkOver(blocks, Insert(array + "2=EMPTY 8=W")).entered, "(WW)");
    EXPECT_EQ(WalkOver(blocks, Insert("2=A 8=X 70=2")).entered, "((WW)(WW))");
    EXPECT_EQ(WalkOver(blocks, Insert("2=A 8=X 70=3"), 2).answers, (std::vector<bool>{false}));
    EXPECT_EQ(WalkOver(BlockText("B", Insert("2=EMPTY 8=0")) + blocks, Insert("2=B 8=W")).entered, "(W(WW)W)");
}

TEST(BlockTable, KeepsWhatShowsNothingAmongTheEntities) {
    const std::string layers = Entity("LAYER", "2=FROZEN 70=1 62=3");
    const std::string parts = Scalene() + Insert("2=MISSING") + Insert("2=B 8=FROZEN") + Insert("2=B 41=0") +
                              Insert("2=B") + Entity("ATTDEF", "") + Entity("LINE", "60=1") + Entity("TEXT", "");
    const OpenDrawing drawing(BlockDrawing(BlockText("A", parts) + BlockText("B", ""), "", layers));
    LayerTable table(drawing.database);
    BlockTable blocks(drawing.database, table);
    const Block* const block = blocks.Find("A");
    ASSERT_TRUE(block);
    std::string types;
    for (const BlockEntity& entity : block->entities)
        types += std::string(GroupsOf(drawing.database, entity.id).Type()) + " ";
    EXPECT_EQ(types, "3DFACE INSERT INSERT INSERT TEXT ");
    ASSERT_EQ(block->inserts.size(), 1U);
    EXPECT_EQ(block->inserts[0].block, blocks.Find("b"));
    EXPECT_EQ(block->depth, 2);
    EXPECT_FALSE(block->isFaulty);
}
