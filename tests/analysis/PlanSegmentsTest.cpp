// What the lines of plans are read as, as they are drawn.
#include "DrawingForWindows.h"
#include "analysis/PlanSegments.h"
#include "scene/EntityGroups.h"

namespace {

struct Reading {
    bool isAll = false;
    std::vector<PlanSegment> segments;
};

Reading Read(const std::string& entities, double millimetres = 1.0) {
    const OpenDrawing drawing(DrawingWith(entities));
    const AcDbObjectId first = drawing.database.GetEntityId(0);
    Reading reading;
    reading.isAll =
        ReadPlanSegments(drawing.database, first, GroupsOf(drawing.database, first), millimetres, reading.segments);
    return reading;
}

std::string Line(const std::string& groups) {
    return Entity("LINE", "8=WINDOW " + groups);
}
std::string Path(const std::string& groups) {
    return Entity("LWPOLYLINE", "8=WINDOW " + groups);
}
std::string OldPath(const std::string& groups) {
    return Entity("POLYLINE", "8=WINDOW 66=1 " + groups) + Entity("VERTEX", "8=WINDOW 10=0 20=0 30=77") +
           Entity("VERTEX", "8=WINDOW 10=900 20=0 30=78") + Entity("VERTEX", "8=WINDOW 10=900 20=1200 30=79") +
           Entity("SEQEND", "8=WINDOW");
}

void ExpectPoint(const QcGePoint& point, double x, double y, double z, const char* why) {
    EXPECT_NEAR(point.x, x, 1e-9) << why;
    EXPECT_NEAR(point.y, y, 1e-9) << why;
    EXPECT_NEAR(point.z, z, 1e-9) << why;
}

// Which entities are read in part, and how many lines of them.
void ExpectPart(const std::string& entities, std::size_t count, const char* why, double millimetres = 1.0) {
    const Reading reading = Read(entities, millimetres);
    EXPECT_FALSE(reading.isAll) << why;
    EXPECT_EQ(reading.segments.size(), count) << why;
}
void ExpectAll(const std::string& entities, std::size_t count, const char* why, double millimetres = 1.0) {
    const Reading reading = Read(entities, millimetres);
    EXPECT_TRUE(reading.isAll) << why;
    EXPECT_EQ(reading.segments.size(), count) << why;
}

}  // namespace

TEST(PlanSegments, AreLinesInTheWorldsAxesWhateverTheirExtrusion) {
    const Reading reading = Read(Line("10=1000 20=2000 30=900 11=2500 21=2000 31=900 39=1500 210=0 220=0 230=-1"));
    ASSERT_TRUE(reading.isAll);
    ASSERT_EQ(reading.segments.size(), 1U);
    ExpectPoint(reading.segments[0].from, 1000, 2000, 900, "from");
    ExpectPoint(reading.segments[0].to, 2500, 2000, 900, "to");
    ExpectPoint(reading.segments[0].thickness, 0, 0, -1500, "along the extrusion");
    EXPECT_TRUE(reading.segments[0].hasElevation);
}

TEST(PlanSegments, AreTheSidesOfOpenPolylinesInTheirOwnAxes) {
    const Reading flat = Read(Path("90=3 38=900 39=1500 10=0 20=0 10=900 20=0 10=900 20=1200"));
    ASSERT_TRUE(flat.isAll);
    ASSERT_EQ(flat.segments.size(), 2U);
    ExpectPoint(flat.segments[1].from, 900, 0, 900, "from");
    ExpectPoint(flat.segments[1].to, 900, 1200, 900, "to");
    ExpectPoint(flat.segments[1].thickness, 0, 0, 1500, "thickness");
    // Seen from below x runs the other way, and elevation and thickness go down.
    const Reading below = Read(Path("38=900 39=1500 210=0 220=0 230=-1 10=0 20=0 10=900 20=0"));
    ASSERT_EQ(below.segments.size(), 1U);
    ExpectPoint(below.segments[0].to, -900, 0, -900, "to");
    ExpectPoint(below.segments[0].thickness, 0, 0, -1500, "thickness");
    const Reading old = Read(OldPath("10=0 20=0 30=900 39=1500"));
    ASSERT_TRUE(old.isAll);
    ASSERT_EQ(old.segments.size(), 2U);
    ExpectPoint(old.segments[0].to, 900, 0, 900, "the polyline's elevation, not its vertices'");
}

TEST(PlanSegments, SayWhetherTheyHaveAnElevationAndAThickness) {
    const PlanSegment bare = Read(Line("10=0 20=0 11=900 21=0")).segments.at(0);
    EXPECT_FALSE(bare.hasElevation);
    EXPECT_EQ(bare.thickness.Length(), 0.0);
    const PlanSegment nearly = Read(Line("10=0 20=0 30=1e-9 11=900 21=0 31=-1e-9 39=1e-9")).segments.at(0);
    EXPECT_FALSE(nearly.hasElevation);
    EXPECT_EQ(nearly.thickness.Length(), 0.0);
    EXPECT_TRUE(Read(Line("10=0 20=0 30=0 11=900 21=0 31=0.9")).segments.at(0).hasElevation);
    EXPECT_TRUE(Read(Path("38=-0.9 10=0 20=0 10=900 20=0")).segments.at(0).hasElevation);
    EXPECT_FALSE(Read(Path("10=0 20=0 10=900 20=0")).segments.at(0).hasElevation);
}

TEST(PlanSegments, LeaveArcsAndWhatHasNoLength) {
    ExpectPart(Path("10=0 20=0 10=900 20=0 42=0.5 10=1800 20=0 10=2700 20=0"), 2, "one arc of three");
    ExpectPart(Path("10=0 20=0 42=1 10=900 20=0"), 0, "nothing but an arc");
    ExpectAll(Path("10=0 20=0 42=0.001 10=900 20=0"), 1, "an arc of less than a millimetre");
    ExpectPart(Path("10=0 20=0 42=0.001 10=900 20=0"), 0, "the same in metres", 1000.0);
    ExpectAll(Path("10=0 20=0 10=900 20=0 42=1 10=900.5 20=0 10=900.5 20=1200"), 2, "a vertex twice");
    ExpectAll(Path("10=0 20=0 10=900 20=0 42=1"), 1, "the last vertex leads nowhere");
    ExpectPart(Line("10=5 20=5 11=5 21=5"), 0, "a line without a length");
    ExpectPart(Path("10=5 20=5 10=5 20=5"), 0, "a polyline without a length");
    ExpectPart(Path("10=5 20=5"), 0, "one vertex");
    ExpectPart(Path(""), 0, "no vertex");
}

TEST(PlanSegments, OfClosedPolylinesAreThereAndBackOnly) {
    ExpectAll(Path("70=1 10=0 20=0 10=900 20=0"), 1, "two vertices");
    ExpectAll(Path("10=0 20=0 10=900 20=0 10=0 20=0"), 1, "back to the first");
    ExpectAll(Path("70=1 10=0 20=0 10=900 20=0 10=0 20=0"), 1, "both");
    ExpectPart(Path("70=1 10=0 20=0 10=900 20=0 42=0.4"), 0, "back by an arc");
    ExpectPart(Path("70=1 10=0 20=0 10=900 20=0 10=900 20=100"), 0, "around an area");
    ExpectPart(Path("10=0 20=0 10=900 20=0 10=900 20=100 10=0 20=0"), 0, "around an area, not flagged");
    ExpectPart(OldPath("70=1 10=0 20=0 30=0"), 0, "POLYLINE around an area");
}

TEST(PlanSegments, AreNotReadFromAnythingElse) {
    ExpectPart(Path("210=0 220=-1 230=0 10=0 20=900 10=900 20=900"), 0, "an upright plane");
    ExpectPart(OldPath("70=8 10=0 20=0 30=0"), 0, "three-dimensional");
    ExpectPart(OldPath("70=16 10=0 20=0 30=0"), 0, "a mesh");
    ExpectPart(Entity("CIRCLE", "8=WINDOW 10=0 20=0 40=500 39=1500"), 0, "CIRCLE");
    ExpectPart(Line("10=0 20=0"), 0, "no end");
    ExpectPart(Line("10=0 20=0 11=900 21=0 39=high"), 0, "a thickness that is no number");
    ExpectPart(Line("10=0 20=0 11=900 21=0 210=0 220=0 230=0"), 0, "no direction");
    ExpectPart(Path("90=3 10=0 20=0 10=900 20=0"), 0, "fewer vertices than it says");
    ExpectPart(Path("10=0 20=0 10=nan 20=0"), 0, "a vertex that is no number");
}
