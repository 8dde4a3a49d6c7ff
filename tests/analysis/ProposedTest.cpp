// Windows with a project and without it: hours found on paper, whose windows have no before, and what is said of
// layers.
#include <gtest/gtest.h>

#include <cmath>

#include "AnswerText.h"
#include "DrawingForWindows.h"
#include "PaperHouse.h"
#include "scene/BlocksForTests.h"

namespace {

using Kind = AnalysisRemark::Kind;

constexpr Site kHere;

AnalysisRequest Proposing(const CString& layer = L"PROJECT") {
    AnalysisRequest request = Winter();
    request.proposedLayers = {layer};
    return request;
}

// tan A at an hour from noon: by how much a ray goes to the west for each step to the south.
double WestwardsAt(double hours) {
    const double radians = 3.14159265358979323846 / 180.0;
    const double p = kLatitude * radians, d = -kSolstice * radians, h = hours * 15.0 * radians;
    return std::sin(h) / (std::sin(p) * std::cos(h) - std::cos(p) * std::tan(d));
}

// A tower 50 m to the south that hides the window of House from so long before noon to as long after it. Its front
// is 60 to 50 m away; the ray from the window's east edge passes its near south-west corner last.
std::uint64_t TowerFor(JudgedScene& scene, double hours) {
    const double half = WestwardsAt(hours) * (50000.0 - 5.0) - 749.95;
    return scene.Box(-half, -50100, 0, half, -50000, 200000);
}

std::vector<std::uint64_t> LostBy(const WindowResult& window) {
    return window.lost.size() == 1 ? window.lost[0].by : std::vector<std::uint64_t>();
}

std::vector<SunPeriod> LostPeriods(const WindowResult& window) {
    std::vector<SunPeriod> periods;
    for (const HiddenPeriod& each : window.lost)
        periods.push_back(each.period);
    return periods;
}

std::size_t CountOf(const AnalysisAnswer& answer, Kind kind, const CString& subject) {
    std::size_t count = 0;
    for (const AnalysisRemark& remark : answer.remarks)
        count += remark.kind == kind && remark.subject == subject ? 1 : 0;
    return count;
}

// The window with its middle at 0, and another face of the project so far behind it.
WindowResult WindowBefore(double distance, double degrees = 0.0) {
    JudgedScene scene;
    scene.StandOn(0, 0, degrees);
    scene.Window(-750, 0, 1000, 1500, 1500);
    scene.OnLayer("PROJECT");
    scene.Box(-10000, distance, 0, 10000, 8000, 30000);
    return Only(Answer(scene, Proposing()));
}

}  // namespace

// Hidden from just after 11 to just before 13: both are marks of the standard's step, and 120 minutes lie between.
TEST(Proposed, TowerTakesTwoHours) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    const double half = 1.0 - 1.0 / 600.0;
    const std::uint64_t tower = TowerFor(scene, half);
    AnalysisRequest request = Proposing();
    request.need = 9.0;
    const WindowResult window = Only(Answer(scene, request));
    const double sunset = kWinter.Sunset();
    ExpectPeriods(window.sunlit, {{12.0 - sunset, 12.0 - half}, {12.0 + half, 12.0 + sunset}});
    ASSERT_TRUE(window.before.has_value());
    ExpectPeriods(window.before->sunlit, {{12.0 - sunset, 12.0 + sunset}});
    EXPECT_TRUE(window.before->hidden.empty());
    EXPECT_NEAR(window.before->judged - window.judged, 120.0, 1e-6);
    EXPECT_EQ(window.before->passes, std::optional(true));
    EXPECT_EQ(window.passes, std::optional(false));
    ExpectPeriods(LostPeriods(window), {{12.0 - half, 12.0 + half}});
    EXPECT_EQ(LostBy(window), std::vector{tower});
}

// What stands hides the morning until half past eleven already, and a second tower of the project that is wholly within
// that shadow takes nothing.
TEST(Proposed, TakesOnlyWhatWasThere) {
    JudgedScene scene = House();
    const double seam = WestwardsAt(0.5);
    // The ray from the window's east edge passes its far south-west corner last.
    scene.Box(749.95 + seam * (20100.0 - 5.0), -20100, 0, 200000, -20000, 200000);
    scene.OnLayer("PROJECT");
    const std::uint64_t tower = TowerFor(scene, 1.0);
    const double deep = WestwardsAt(2.0);
    scene.Box(deep * 60000.0 - 500.0, -60100, 0, deep * 60000.0 + 500.0, -60000, 200000);
    const WindowResult window = Only(Answer(scene, Proposing()));
    ASSERT_TRUE(window.before.has_value());
    ExpectPeriods(window.before->sunlit, {{11.5, 12.0 + kWinter.Sunset()}});
    ExpectPeriods(LostPeriods(window), {{11.5, 13.0}});
    EXPECT_EQ(LostBy(window), std::vector{tower});
}

TEST(Proposed, ThatTakesNothingLeavesEverything) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    scene.Box(-5000, 50000, 0, 5000, 60000, 100000);  // to the north
    const WindowResult window = Only(Answer(scene, Proposing()));
    ASSERT_TRUE(window.before.has_value());
    EXPECT_EQ(TextOf(*window.before), TextOf(static_cast<const WindowHours&>(window)));
    EXPECT_TRUE(window.lost.empty());
}

TEST(Proposed, IsNothingUnlessAskedFor) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    TowerFor(scene, 1.0);
    const WindowResult window = Only(Answer(scene, Winter()));
    EXPECT_FALSE(window.before.has_value());
    EXPECT_TRUE(window.lost.empty());
}

// A face of the project cuts the window: hidden all day, with a note, and not before.
TEST(Proposed, ThatCutsAWindowCutsItNow) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    const std::uint64_t fin = scene.Box(-50, -3000, 0, 50, 3000, 20000);
    const WindowResult window = Only(Answer(scene, Proposing()));
    EXPECT_TRUE(HasNote(window, WindowNote::Cut));
    EXPECT_TRUE(window.sunlit.empty());
    ASSERT_TRUE(window.before.has_value());
    EXPECT_TRUE(window.before->notes.empty());
    ExpectPeriods(window.before->sunlit, {{12.0 - kWinter.Sunset(), 12.0 + kWinter.Sunset()}});
    EXPECT_EQ(LostBy(window), std::vector{fin});
}

// The window of a house around which the project is built is inside now, and was not.
TEST(Proposed, ThatIsBuiltAroundAWindowHasItInside) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    scene.Box(-30000, -20000, 0, 30000, 30000, 60000);
    const WindowResult window = Only(Answer(scene, Proposing()));
    EXPECT_TRUE(HasNote(window, WindowNote::Inside));
    EXPECT_TRUE(window.sunlit.empty());
    ASSERT_TRUE(window.before.has_value());
    EXPECT_TRUE(window.before->notes.empty());
    EXPECT_FALSE(window.before->sunlit.empty());
}

// A wide window is judged by its best part, which the project may make another one.
TEST(Proposed, MayChangeThePartThatIsJudged) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-3000, 0, 1000, 6000, 1500);
    scene.OnLayer("PROJECT");
    scene.Box(-3600, -3000, 0, -3100, 0, 30000);  // beside the left end
    AnalysisRequest request = Proposing();
    request.settings.standard->limitWidth = 1;
    request.settings.standard->maxWidth = 1500.0;
    const WindowResult window = Only(Answer(scene, request));
    ASSERT_TRUE(window.before.has_value());
    ASSERT_TRUE(window.part.has_value() && window.before->part.has_value());
    EXPECT_NEAR(window.before->part->from, 0.0, 1e-9) << "of equals the leftmost";
    EXPECT_GT(window.part->from, 3.0);
    EXPECT_LT(window.judged, window.before->judged);
}

TEST(Proposed, WindowsOnItHaveNoBefore) {
    for (const double degrees : {0.0, 37.0}) {
        for (const double distance : {0.0, 0.5, -0.5, 150.0, 199.0}) {
            const WindowResult window = WindowBefore(distance, degrees);
            EXPECT_TRUE(window.facing.has_value()) << distance;
            EXPECT_FALSE(window.before.has_value()) << distance;
            EXPECT_TRUE(window.lost.empty()) << distance;
        }
        EXPECT_TRUE(WindowBefore(201.0, degrees).before.has_value());
    }
}

// The face of the project is before the window and not behind it.
TEST(Proposed, WindowsBehindItHaveABefore) {
    JudgedScene scene = House();
    scene.OnLayer("PROJECT");
    scene.Face({{-5000, -150, 0}, {5000, -150, 0}, {5000, -150, 20000}, {-5000, -150, 20000}});
    const WindowResult window = Only(Answer(scene, Proposing()));
    EXPECT_TRUE(window.facing.has_value());
    EXPECT_TRUE(window.before.has_value());
}

// An annex against the wall takes everything from a window that was there; its back is no wall for it.
TEST(Proposed, WindowsThatItIsBuiltAgainstHaveABefore) {
    for (const double gap : {0.0, 0.5, -0.5, 100.0}) {
        JudgedScene scene = House();
        scene.OnLayer("PROJECT");
        const std::uint64_t annex = scene.Box(-3000, -6000, 0, 3000, -gap, 20000);
        AnalysisRequest request = Proposing();
        request.facing = 270.0;
        const WindowResult window = Only(Answer(scene, request));
        EXPECT_TRUE(window.sunlit.empty()) << gap;
        ASSERT_TRUE(window.before.has_value()) << gap;
        ExpectPeriods(window.before->sunlit, {{12.0 - kWinter.Sunset(), 12.0 + kWinter.Sunset()}});
        EXPECT_EQ(LostBy(window), std::vector{annex}) << gap;
    }
}

TEST(Proposed, WindowsThatAllLieOnItAreTold) {
    JudgedScene scene;
    scene.Window(-750, 0, 1000, 1500, 1500);
    scene.Window(-750, 0, 4000, 1500, 1500);
    scene.OnLayer("PROJECT");
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    const AnalysisAnswer answer = Answer(scene, Proposing());
    ASSERT_TRUE(HasRemark(answer, Kind::AllProposed));
    for (const AnalysisRemark& remark : answer.remarks)
        EXPECT_TRUE(remark.kind != Kind::AllProposed || remark.count == 2U);
    scene.StandOn(60000, 0, 0);
    scene.OnLayer("0");
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    EXPECT_FALSE(HasRemark(Answer(scene, Proposing()), Kind::AllProposed));
}

// Without a side there are no hours, and nothing to take.
TEST(Proposed, WindowsWithoutASideHaveNoHoursBefore) {
    JudgedScene scene;
    scene.Window(-750, 0, 1000, 1500, 1500);
    scene.OnLayer("PROJECT");
    scene.Box(-5000, -20000, 0, 5000, -12000, 30000);
    scene.Box(-5000, 12000, 0, 5000, 20000, 30000);
    const WindowResult window = Only(Answer(scene, Proposing()));
    ASSERT_FALSE(window.facing.has_value());
    ASSERT_TRUE(window.before.has_value());
    EXPECT_EQ(window.before->notes, window.notes);
    EXPECT_TRUE(window.before->sunlit.empty());
}

TEST(Proposed, LayersAreToldThatDoNothing) {
    JudgedScene scene = House();
    scene.AddLayer("2\nOFF\n70\n0\n62\n-7\n");
    scene.AddLayer("2\nFROZEN\n70\n1\n62\n7\n");
    scene.AddLayer("2\nEMPTY\n70\n0\n62\n7\n");
    for (const char* layer : {"OFF", "FROZEN", "PROJECT"}) {
        scene.OnLayer(layer);
        TowerFor(scene, 1.0);
    }
    scene.Name("words", 0, 0, 0);
    AnalysisRequest request = Winter();
    request.proposedLayers = {L"off ", L"Frozen", L"empty", L"gone", L"window", L"project", L"PROJECT"};
    const AnalysisAnswer answer = Answer(scene, request);
    EXPECT_EQ(CountOf(answer, Kind::ProposedInvisible, L"off "), 1U);
    EXPECT_EQ(CountOf(answer, Kind::ProposedInvisible, L"Frozen"), 1U);
    EXPECT_EQ(CountOf(answer, Kind::ProposedEmpty, L"empty"), 1U);
    EXPECT_EQ(CountOf(answer, Kind::ProposedMissing, L"gone"), 1U);
    EXPECT_EQ(CountOf(answer, Kind::ProposedIsWindows, L"window"), 1U);
    std::size_t told = 0;
    for (const AnalysisRemark& remark : answer.remarks)
        told += remark.kind >= Kind::ProposedMissing && remark.kind <= Kind::AllProposed ? 1 : 0;
    EXPECT_EQ(told, 5U) << "and nothing of the others";
    EXPECT_FALSE(Only(answer).lost.empty());
}

// A layer that no table lists, with a text alone.
TEST(Proposed, LayersThatOnlyEntitiesNameAreThere) {
    const std::string text = Entity("TEXT", "8=NOTES 1=a 40=1 " + At(0, 0, 0));
    const OpenDrawing drawing(DrawingWith(Block(kHere, 0, 0, 9e3, 9e3, 0, 6e3) + text));
    AnalysisRequest request = Proposing(L"notes");
    const AnalysisAnswer answer = AnalyseWindows(drawing.database, request);
    EXPECT_EQ(CountOf(answer, Kind::ProposedEmpty, L"notes"), 1U);
    EXPECT_EQ(CountOf(answer, Kind::ProposedMissing, L"notes"), 0U);
}

// A block with a tower on the INSERT's layer and one on a layer of its own: what is asked for is the project, and the
// INSERT's handle stands for both.
TEST(Proposed, InsertsMayShowBoth) {
    const std::string block = BlockText(
        "TOWERS", Extruded({}, {{-4000, -50100}, {0, -50100}, {0, -50000}, {-4000, -50000}}, 0, 200000, "8=0") +
                      Extruded({}, {{0, -50100}, {4000, -50100}, {4000, -50000}, {0, -50000}}, 0, 200000, "8=PROJECT"));
    const std::string house =
        Block(kHere, -10000, 0, 10000, 8000, 0, 30000) + Upright("5=77 8=WINDOW", kHere, -750, 0, 750, 0, 1000, 2500);
    const auto answer = [&](const CString& layer) {
        const OpenDrawing drawing(BlockDrawing(block, house + Insert("5=A1 8=STANDS 2=TOWERS")));
        return Only(AnalyseWindows(drawing.database, Proposing(layer)));
    };
    const double inner = kWinter.AtAzimuth(749.95 / (50000.0 - 5.0));
    const double outer = kWinter.AtAzimuth((4000.0 + 749.95) / (50000.0 - 5.0));
    // The tower of the project stands to the east: it takes the morning, save what the other one hides anyway.
    const WindowResult east = answer(L"PROJECT");
    ExpectPeriods(LostPeriods(east), {{12.0 - outer, 12.0 - inner}});
    EXPECT_EQ(LostBy(east), std::vector<std::uint64_t>{0xA1});
    const WindowResult west = answer(L"stands");
    ExpectPeriods(LostPeriods(west), {{12.0 + inner, 12.0 + outer}});
    EXPECT_EQ(LostBy(west), std::vector<std::uint64_t>{0xA1});
}

TEST(Proposed, SetsKeepStandingAndProposedFacesOfOneInsertTogether) {
    const OpenDrawing drawing(
        BlockDrawing(BlockText("A", Scalene("8=P") + Scalene("8=0") + Scalene("8=P") + Scalene("8=WALL")),
                     Scalene("5=A0 8=P") + Insert("5=A1 2=A 8=S") + Scalene("5=A2 8=S") + Insert("5=A3 2=A 8=P")));
    const OccluderSet set = MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0, {L"p"});
    EXPECT_EQ(set.handles, (std::vector<std::uint64_t>{0xA0, 0xA1, 0xA1, 0xA2, 0xA3, 0xA3}));
    EXPECT_EQ(set.proposed, (std::vector<bool>{true, false, true, false, false, true}));
    EXPECT_EQ(set.drawnAs, (std::vector<std::uint32_t>{0, 1, 1, 3, 4, 4}));
    std::vector<std::uint32_t> entities;
    for (const Occluder& face : set.faces)
        entities.push_back(face.entity);
    EXPECT_EQ(entities, (std::vector<std::uint32_t>{0, 1, 1, 2, 2, 3, 4, 5, 5, 5}));
    const OccluderSet none = MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0, {L"other"});
    EXPECT_TRUE(none.proposed.empty() && none.drawnAs.empty());
}

// A body whose roof is the project's is one, as it is without a project: sides are found with everything present.
TEST(Proposed, BodiesAreFoundWithEverythingPresent) {
    const std::string walls = Upright("8=0", kHere, 0, 0, 9e3, 0, 0, 6e3) +
                              Upright("8=0", kHere, 9e3, 0, 9e3, 9e3, 0, 6e3) +
                              Upright("8=0", kHere, 9e3, 9e3, 0, 9e3, 0, 6e3) +
                              Upright("8=0", kHere, 0, 9e3, 0, 0, 0, 6e3) + Level("8=0", kHere, 0, 0, 9e3, 9e3, 0);
    // Looked for among all faces the two would be one, over the edge that they share.
    const std::string other = LooseBox(kHere, 0, -5e3, 9e3, 0, 6e3, 12e3);
    const OpenDrawing drawing(
        BlockDrawing(BlockText("A", walls + Level("8=P", kHere, 0, 0, 9e3, 9e3, 6e3)), Insert("5=A1 2=A 8=S") + other));
    const Scene scene = BuildScene(drawing.database);
    const OccluderSet plain = MakeOccluders(scene, drawing.database, {}, 1.0);
    const OccluderSet split = MakeOccluders(scene, drawing.database, {}, 1.0, {L"P"});
    EXPECT_EQ(plain.bodyCount, 2);
    EXPECT_EQ(split.bodyCount, 2);
    EXPECT_TRUE(split.proposed[1]);
}
