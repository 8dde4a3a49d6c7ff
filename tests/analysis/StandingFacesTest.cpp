// What stands around in an analysis.
#include "analysis/StandingFaces.h"

#include <gtest/gtest.h>

#include "DrawingForWindows.h"
#include "analysis/PointAnalysis.h"
#include "analysis/WindowAnalysis.h"

namespace {

constexpr Site kHere;

// A body of 2000 by 3000, a pane on one layer and a sheet of ground on another.
std::string Drawing() {
    return Block(kHere, 0, 0, 2000, 3000, 0, 4000) + Upright("8=GLASS", kHere, 100, -1, 900, -1, 1000, 2000) +
           Level("8=GREEN", kHere, 5000, 0, 9000, 4000, 0);
}

bool HasFaceAtX(const OccluderSet& set, double x) {
    for (const Occluder& face : set.faces)
        for (int i = 0; i < face.count; ++i)
            if (face.corners[i].x == x)
                return true;
    return false;
}

}  // namespace

TEST(StandingFaces, AreThoseThatAnAnalysisOfWindowsLetsCastShadows) {
    const OpenDrawing drawing(DrawingWith(Drawing()));
    AnalysisRequest request;
    request.windowLayers = {L"GLASS"};
    request.proposedLayers = {L"WALL"};
    const OccluderSet set = StandingFaces(drawing.database, request);
    EXPECT_EQ(set.faces.size(), 7U);
    EXPECT_EQ(set.bodyCount, 1);
    EXPECT_FALSE(HasFaceAtX(set, 900.0));
    EXPECT_TRUE(HasFaceAtX(set, 9000.0));
    EXPECT_TRUE(set.IsProposed(set.faces[0].entity));
}

TEST(StandingFaces, LeaveOutAreasAndTheUsualWindowsForAnAnalysisOfPoints) {
    const OpenDrawing drawing(DrawingWith(Drawing() + Upright("8=WINDOW", kHere, 7777, 0, 8000, 0, 1000, 2000)));
    PointRequest request;
    request.areaLayers = {L"GREEN"};
    const OccluderSet set = StandingFaces(drawing.database, request);
    EXPECT_EQ(set.faces.size(), 7U);
    EXPECT_TRUE(HasFaceAtX(set, 900.0));
    EXPECT_FALSE(HasFaceAtX(set, 9000.0));
    EXPECT_FALSE(HasFaceAtX(set, 7777.0));
}

TEST(StandingFaces, AreMillimetresAndRaisedByTheHeightsOfLayers) {
    const OpenDrawing drawing(
        DrawingWith(Entity("LWPOLYLINE", "8=PLOT 70=1 10=0 20=0 10=2 20=0 10=2 20=3 10=0 20=3"), {}, 6));
    AnalysisRequest request;
    EXPECT_TRUE(StandingFaces(drawing.database, request).faces.empty());
    request.heights = {{L"PLOT", 5.0}};
    const OccluderSet set = StandingFaces(drawing.database, request);
    ASSERT_EQ(set.faces.size(), 6U);
    double top = 0.0;
    for (const Occluder& face : set.faces)
        for (int i = 0; i < face.count; ++i)
            top = std::max(top, face.corners[i].z);
    EXPECT_EQ(top, 5000.0);
}

TEST(StandingFaces, PassOverTheResultsOfFormerAnalyses) {
    const OpenDrawing drawing(DrawingWith(Drawing() + Level("8=ORVO_RESULT_X", kHere, 7777, 0, 8000, 4000, 0)));
    EXPECT_FALSE(HasFaceAtX(StandingFaces(drawing.database, AnalysisRequest()), 7777.0));
    PointRequest request;
    request.areaLayers = {L"GREEN"};
    EXPECT_FALSE(HasFaceAtX(StandingFaces(drawing.database, request), 7777.0));
}

TEST(StandingFaces, AreNoneWithoutAUnitThatIsALength) {
    const OpenDrawing drawing(DrawingWith(Drawing(), {}, 99));
    EXPECT_TRUE(StandingFaces(drawing.database, AnalysisRequest()).faces.empty());
}
