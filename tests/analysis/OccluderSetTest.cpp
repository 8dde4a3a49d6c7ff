// What casts shadows: which faces there are, which bound a closed body, and what lies in one.
#include "analysis/OccluderSet.h"

#include "DrawingForWindows.h"
#include "analysis/BodyInside.h"
#include "scene/BlocksForTests.h"

namespace {

constexpr Site kHere;
// Turned, and 500 km from the origin, as plans in the coordinates of a country are.
const Site kFarAway{37.3, {5.0e8, 4.1e8, 3.0e4}};

std::size_t LooseOf(const OccluderSet& set) {
    std::size_t count = 0;
    for (const Occluder& face : set.faces)
        count += face.body < 0 ? 1 : 0;
    return count;
}

}  // namespace

TEST(OccluderSet, HasTheFacesOfAllEntitiesInMillimetres) {
    const OpenDrawing drawing(DrawingWith(Upright("5=A1 8=WALL", kHere, 1, 2, 3, 2, 0, 4) + Entity("LINE", "5=A2") +
                                          Entity("LWPOLYLINE", "5=A3 39=3 10=0 20=0 10=1 20=0 10=1 20=1") +
                                          Triangle("")));
    const OccluderSet set = MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1000.0);
    ASSERT_EQ(set.faces.size(), 4U);
    EXPECT_EQ(set.handles, (std::vector<std::uint64_t>{0xA1, 0xA3, 0}));
    EXPECT_EQ(set.faces[0].entity, 0U);
    EXPECT_EQ(set.faces[2].entity, 1U);
    EXPECT_EQ(set.faces[3].entity, 2U);
    EXPECT_EQ(set.faces[0].count, 4);
    EXPECT_EQ(set.faces[3].count, 3);
    EXPECT_EQ(set.faces[0].corners[2].x, 3000.0);
    EXPECT_EQ(set.faces[0].corners[2].y, 2000.0);
    EXPECT_EQ(set.faces[0].corners[2].z, 4000.0);
}

TEST(OccluderSet, PassesOverTheLayersOfWindows) {
    const std::string entities = Upright("8=WALL", kHere, 0, 0, 5, 0, 0, 4) +
                                 Upright("8=Window", kHere, 0, 1, 5, 1, 0, 4) +
                                 Upright("8=窗", kHere, 0, 2, 5, 2, 0, 4) + Upright("8=glass", kHere, 0, 3, 5, 3, 0, 4);
    const OpenDrawing drawing(DrawingWith(entities));
    const Scene scene = BuildScene(drawing.database);
    const auto countWithout = [&](const std::vector<CString>& layers) {
        return MakeOccluders(scene, drawing.database, layers, 1.0).faces.size();
    };
    EXPECT_EQ(countWithout({}), 2U);
    EXPECT_EQ(countWithout({L"GLASS"}), 3U);
    EXPECT_EQ(countWithout({L" glass ", L"wall"}), 2U);
    EXPECT_EQ(countWithout({L"nothing"}), 4U);
}

TEST(OccluderSet, GivesWhatABlockShowsTheInsertsHandle) {
    const OpenDrawing drawing(
        BlockDrawing(BlockText("A", Scalene("62=1") + Scalene("62=2")) + BlockText("B", Scalene() + Insert("2=A")),
                     Insert("5=A1 2=B") + Scalene("5=A2") + Insert("5=A3 2=A") + Insert("5=A4 2=A")));
    const OccluderSet set = MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0);
    EXPECT_EQ(set.handles, (std::vector<std::uint64_t>{0xA1, 0xA2, 0xA3, 0xA4}));
    std::vector<std::uint32_t> entities;
    for (const Occluder& face : set.faces)
        entities.push_back(face.entity);
    EXPECT_EQ(entities, (std::vector<std::uint32_t>{0, 0, 0, 1, 2, 2, 3, 3}));
}

TEST(OccluderSet, PassesOverTheLayersOfWindowsWithinBlocks) {
    const std::string blocks = BlockText("A", Scalene("8=0") + Scalene("8=WINDOW") + Scalene("8=WALL"));
    const auto countOf = [&](const std::string& insert) {
        const OpenDrawing drawing(BlockDrawing(blocks, Insert("2=A " + insert)));
        return MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0).faces.size();
    };
    EXPECT_EQ(countOf("8=WALL"), 2U);
    EXPECT_EQ(countOf("8=WINDOW"), 1U) << "what lies on 0 lies on the INSERT's layer";
}

TEST(OccluderSet, FindsTheBodyOfAnExtrudedOutline) {
    for (const Site& site : {kHere, kFarAway}) {
        const OccluderSet set = OccludersIn(Block(site, 0, 0, 10000, 8000, 0, 30000));
        EXPECT_EQ(set.bodyCount, 1);
        EXPECT_EQ(set.joinedCount, 0);
        EXPECT_EQ(LooseOf(set), 0U);
    }
}

TEST(OccluderSet, FindsABodyOfSeparateFacesHoweverTheyAreOriented) {
    for (const Site& site : {kHere, kFarAway}) {
        const OccluderSet set =
            OccludersIn(LooseBox(site, 0, 0, 10000, 8000, 0, 30000) + LooseBox(site, 20000, 0, 30000, 8000, 0, 3000));
        EXPECT_EQ(set.bodyCount, 2);
        EXPECT_EQ(LooseOf(set), 0U);
        EXPECT_EQ(set.faces[0].body, set.faces[5].body);
        EXPECT_NE(set.faces[0].body, set.faces[6].body);
    }
}

TEST(OccluderSet, LeavesABoxWithoutALidLoose) {
    const OccluderSet set = OccludersIn(Upright("", kHere, 0, 0, 9, 0, 0, 5) + Upright("", kHere, 9, 0, 9, 9, 0, 5) +
                                        Upright("", kHere, 9, 9, 0, 9, 0, 5) + Upright("", kHere, 0, 9, 0, 0, 0, 5) +
                                        Level("", kHere, 0, 0, 9, 9, 0));
    EXPECT_EQ(set.bodyCount, 0);
    EXPECT_EQ(LooseOf(set), 5U);
    EXPECT_EQ(set.joinedCount, 1);
}

TEST(OccluderSet, JoinsCornersWithinATenthOfAMillimetre) {
    // The lid lies `gap` above the walls.
    const auto bodiesWithGap = [](double gap) {
        return OccludersIn(Upright("", kHere, 0, 0, 9e3, 0, 0, 5e3) + Upright("", kHere, 9e3, 0, 9e3, 9e3, 0, 5e3) +
                           Upright("", kHere, 9e3, 9e3, 0, 9e3, 0, 5e3) + Upright("", kHere, 0, 9e3, 0, 0, 0, 5e3) +
                           Level("", kHere, 0, 0, 9e3, 9e3, 0) + Level("", kHere, 0, 0, 9e3, 9e3, 5e3 + gap))
            .bodyCount;
    };
    EXPECT_EQ(bodiesWithGap(0.05), 1);
    EXPECT_EQ(bodiesWithGap(-0.05), 1);
    EXPECT_EQ(bodiesWithGap(0.3), 0);
}

TEST(OccluderSet, DividesEdgesWhereCornersOfOthersLieOnThem) {
    // The long wall's upper and lower edges meet two walls' each, and its ends the edges of two floors.
    const std::string loose =
        Upright("", kHere, 0, 0, 9e3, 0, 0, 6e3) + Upright("", kHere, 9e3, 0, 9e3, 9e3, 0, 6e3) +
        Upright("", kHere, 9e3, 9e3, 4e3, 9e3, 0, 6e3) + Upright("", kHere, 4e3, 9e3, 0, 9e3, 0, 3e3) +
        Upright("", kHere, 4e3, 9e3, 0, 9e3, 3e3, 6e3) + Upright("", kHere, 0, 9e3, 0, 0, 0, 3e3) +
        Upright("", kHere, 0, 9e3, 0, 0, 3e3, 6e3) + Level("", kHere, 0, 0, 9e3, 9e3, 0) +
        Level("", kHere, 0, 0, 4e3, 9e3, 6e3) + Level("", kHere, 4e3, 0, 9e3, 9e3, 6e3);
    EXPECT_EQ(OccludersIn(loose).bodyCount, 1);
    // An outline with a vertex in the middle of a side, which the bottom and the top pass over.
    EXPECT_EQ(OccludersIn(Extruded(kFarAway, {{0, 0}, {3e3, 0}, {9e3, 0}, {9e3, 9e3}, {0, 9e3}}, 0, 6e3)).bodyCount, 1);
}

TEST(OccluderSet, FindsTheBodyThatALooseFaceStandsOn) {
    // A canopy along an edge that two walls' parts share, and a sign on that.
    const std::string flaps =
        Level("", kHere, 0, -1500, 9e3, 0, 6e3) + Upright("", kHere, 0, -1500, 9e3, -1500, 6e3, 7e3);
    const OccluderSet set = OccludersIn(LooseBox(kHere, 0, 0, 9e3, 9e3, 0, 6e3) + flaps);
    EXPECT_EQ(set.bodyCount, 1);
    EXPECT_EQ(LooseOf(set), 2U);
    EXPECT_EQ(set.joinedCount, 1);
}

TEST(OccluderSet, LeavesFacesLooseWhereAnOddNumberMeets) {
    // Two rooms in one entity's worth of faces, and between them a wall drawn once: three faces at each of its edges.
    const std::string rooms =
        Upright("", kHere, 0, 0, 9e3, 0, 0, 6e3) + Upright("", kHere, 9e3, 0, 18e3, 0, 0, 6e3) +
        Upright("", kHere, 0, 9e3, 9e3, 9e3, 0, 6e3) + Upright("", kHere, 9e3, 9e3, 18e3, 9e3, 0, 6e3) +
        Upright("", kHere, 0, 0, 0, 9e3, 0, 6e3) + Upright("", kHere, 18e3, 0, 18e3, 9e3, 0, 6e3) +
        Level("", kHere, 0, 0, 9e3, 9e3, 0) + Level("", kHere, 9e3, 0, 18e3, 9e3, 0) +
        Level("", kHere, 0, 0, 9e3, 9e3, 6e3) + Level("", kHere, 9e3, 0, 18e3, 9e3, 6e3);
    EXPECT_EQ(OccludersIn(rooms).bodyCount, 1);
    EXPECT_EQ(OccludersIn(rooms + Upright("", kHere, 9e3, 0, 9e3, 9e3, 0, 6e3)).bodyCount, 0);
}

TEST(OccluderSet, TakesFacesDrawnTwiceForNoBody) {
    const std::string wall = Upright("", kHere, 0, 0, 9e3, 0, 0, 6e3);
    EXPECT_EQ(OccludersIn(wall + wall + wall + wall).bodyCount, 0);
    const std::string corner = wall + Upright("", kHere, 0, 0, 0, 9e3, 0, 6e3);
    EXPECT_EQ(OccludersIn(corner + corner).bodyCount, 0);
    // A rectangle and the same in four parts: all in one plane.
    EXPECT_EQ(OccludersIn(wall + Upright("", kHere, 0, 0, 4e3, 0, 0, 3e3) + Upright("", kHere, 4e3, 0, 9e3, 0, 0, 3e3) +
                          Upright("", kHere, 0, 0, 4e3, 0, 3e3, 6e3) + Upright("", kHere, 4e3, 0, 9e3, 0, 3e3, 6e3))
                  .bodyCount,
              0);
}

TEST(OccluderSet, LooksWithinAnEntityFirst) {
    // Two boxes side by side share a whole wall; as two entities they stay two bodies.
    const OccluderSet set = OccludersIn(Block(kHere, 0, 0, 9e3, 9e3, 0, 6e3) + Block(kHere, 9e3, 0, 18e3, 9e3, 0, 6e3));
    EXPECT_EQ(set.bodyCount, 2);
    // Of loose faces they are one, and still what is inside is inside.
    const OccluderSet loose =
        OccludersIn(LooseBox(kHere, 0, 0, 9e3, 9e3, 0, 6e3) + LooseBox(kHere, 9e3, 0, 18e3, 9e3, 0, 6e3));
    EXPECT_EQ(loose.bodyCount, 1);
    const BodyInside inside(loose);
    EXPECT_TRUE(inside.IsInside({4e3, 4e3, 3e3}));
    EXPECT_TRUE(inside.IsInside({14e3, 4e3, 3e3}));
    EXPECT_FALSE(inside.IsInside({19e3, 4e3, 3e3}));
}

TEST(OccluderSet, NumbersLooseFacesThatShareCorners) {
    const OccluderSet set = OccludersIn(Upright("", kHere, 0, 0, 9, 0, 0, 5) + Upright("", kHere, 50, 0, 60, 0, 0, 5) +
                                        Upright("", kHere, 9, 0, 9, 9, 5, 9) + Block(kHere, 100, 0, 110, 10, 0, 5));
    ASSERT_EQ(set.joinedCount, 2);
    EXPECT_EQ(set.faces[0].joined, set.faces[2].joined) << "by one corner";
    EXPECT_NE(set.faces[0].joined, set.faces[1].joined);
    EXPECT_EQ(set.faces[3].joined, -1) << "of a body";
}

TEST(OccluderSet, IsInsideNeitherOfTheCourtyardNorOfTheSlit) {
    for (const Site& site : {kHere, kFarAway}) {
        const OccluderSet set = OccludersIn(Courtyard(site));
        ASSERT_EQ(set.bodyCount, 1);
        const BodyInside inside(set);
        EXPECT_FALSE(inside.IsInside(site(10e3, 10e3, 4e3))) << "in the courtyard";
        EXPECT_TRUE(inside.IsInside(site(2e3, 10e3, 4e3)));
        EXPECT_TRUE(inside.IsInside(site(2.5e3, 2.6e3, 4e3))) << "beside the slit";
        EXPECT_FALSE(inside.IsInside(site(10e3, 10e3, 9001)));
        EXPECT_FALSE(inside.IsInside(site(2e3, 10e3, 9001))) << "above";
        EXPECT_FALSE(inside.IsInside(site(-2, 10e3, 4e3)));
        EXPECT_TRUE(inside.IsInside(site(2, 10e3, 4e3)));
    }
}

TEST(OccluderSet, IsInsideAConcaveBodyOnlyWithin) {
    const std::vector<std::pair<double, double>> l{{0, 0}, {20e3, 0}, {20e3, 6e3}, {6e3, 6e3}, {6e3, 20e3}, {0, 20e3}};
    for (const double degrees : {0.0, 30.0, 45.0, 91.0, 215.0}) {
        const Site site{degrees, {1e6, -2e6, 0}};
        const OccluderSet set = OccludersIn(Extruded(site, l, 0, 9e3));
        const BodyInside inside(set);
        for (double x = -1500; x < 22e3; x += 1000)
            for (double y = -1500; y < 22e3; y += 1000) {
                const bool expected = x > 0 && y > 0 && x < 20e3 && y < 20e3 && (x < 6e3 || y < 6e3);
                EXPECT_EQ(inside.IsInside(site(x, y, 4321)), expected) << degrees << " " << x << " " << y;
            }
    }
}

TEST(OccluderSet, TellsWhichBodiesAreAround) {
    const OccluderSet set = OccludersIn(Block(kHere, 0, 0, 9e3, 9e3, 0, 6e3) + Block(kHere, 5e3, 0, 15e3, 9e3, 0, 6e3));
    const BodyInside inside(set);
    EXPECT_EQ(inside.Around({2e3, 4e3, 3e3}), std::vector<std::int32_t>{0});
    EXPECT_EQ(inside.Around({7e3, 4e3, 3e3}), (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(inside.Around({12e3, 4e3, 3e3}), std::vector<std::int32_t>{1});
    EXPECT_TRUE(inside.IsInside({12e3, 4e3, 3e3}, 1));
    EXPECT_FALSE(inside.IsInside({12e3, 4e3, 3e3}, 0));
    EXPECT_TRUE(inside.Around({22e3, 4e3, 3e3}).empty());
}

TEST(OccluderSet, BearsWhatIsHugeAndManyEdgesInOneLine) {
    EXPECT_EQ(OccludersIn(Block({0, {1e49, -1e49, 0}}, 0, 0, 1e48, 1e48, 0, 1e48)).bodyCount, 1);
    // Strips whose edges all lie in one line, each of another length.
    std::string strips;
    for (int i = 1; i <= 600; ++i)
        strips += Upright("", kHere, 0, 0, i * 100.0, 0, 0, 100.0 + i);
    const OccluderSet set = OccludersIn(strips);
    EXPECT_EQ(set.bodyCount, 0);
    EXPECT_EQ(set.faces.size(), 600U);
}
