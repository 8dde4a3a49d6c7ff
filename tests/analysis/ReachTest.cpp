// How far the parameters of scope let a window look.
#include "analysis/Reach.h"

#include <gtest/gtest.h>

namespace {

// An upright face 2 wide at a distance to the east, from 0 to a height.
OccluderSet TowerAt(double distance, double height) {
    OccluderSet occluders;
    occluders.handles = {0x1F};
    Occluder face;
    face.count = 4;
    face.corners[0] = {distance, -1, 0};
    face.corners[1] = {distance, 1, 0};
    face.corners[2] = {distance, 1, height};
    face.corners[3] = {distance, -1, height};
    occluders.faces.push_back(face);
    return occluders;
}

bool Counts(double distance, double height, double sill = 0.0) {
    const OccluderSet occluders = TowerAt(distance, height);
    return Reach(occluders, {1000.0, 1.5, 400.0}).Counts(0, {0, 0, sill});
}

TEST(Reach, EndsAtTheMainRadius) {
    EXPECT_TRUE(Reach(TowerAt(1000.0, 1e6), {1000.0, 1e3, 1e6}).Counts(0, {0, 0, 0}));
    EXPECT_FALSE(Reach(TowerAt(1000.1, 1e6), {1000.0, 1e3, 1e6}).Counts(0, {0, 0, 0}));
}

TEST(Reach, GrowsWithTheHeightOverTheSill) {
    EXPECT_TRUE(Counts(150.0, 100.0));
    EXPECT_FALSE(Counts(150.1, 100.0));
    EXPECT_FALSE(Counts(150.0, 100.0, 1.0));
    EXPECT_TRUE(Counts(148.5, 100.0, 1.0));
    EXPECT_FALSE(Counts(1.0, 100.0, 101.0)) << "lower than the sill";
}

TEST(Reach, TakesHeightsOnlyUpToTheLimit) {
    EXPECT_TRUE(Counts(600.0, 400.0));
    EXPECT_TRUE(Counts(600.0, 4000.0));
    EXPECT_FALSE(Counts(600.1, 4000.0));
}

TEST(Reach, IsMeasuredInPlanToTheNearestPartOfAllFaces) {
    OccluderSet occluders = TowerAt(900.0, 100.0);
    occluders.faces.push_back(TowerAt(100.0, 50.0).faces[0]);
    EXPECT_TRUE(Reach(occluders, {1000.0, 1.5, 400.0}).Counts(0, {0, 0, 0}));
    EXPECT_TRUE(Reach(occluders, {1000.0, 1.5, 400.0}).Counts(0, {100.0, 151.0, 0})) << "150 beside it";
    EXPECT_FALSE(Reach(occluders, {1000.0, 1.5, 400.0}).Counts(0, {100.0, 151.1, 0}));
    EXPECT_FALSE(Reach(occluders, {1000.0, 1.5, 400.0}).Counts(0, {500.0, 0.0, 0})) << "only its box is near";
}

// What an INSERT shows counts as one, the low part that stands and the high one of the project; without the project the
// low part counts for itself.
TEST(Reach, TakesAnEntityOfTheDrawingAsAWhole) {
    OccluderSet occluders = TowerAt(150.0, 10.0);
    const OccluderSet tall = TowerAt(900.0, 200.0);
    occluders.faces.push_back(tall.faces[0]);
    occluders.faces[1].entity = 1;
    occluders.handles = {0x1F, 0x1F};
    occluders.proposed = {false, true};
    occluders.drawnAs = {0, 0};
    const ReachLimits limits = {1000.0, 1.5, 400.0};
    const Reach whole(occluders, limits);
    EXPECT_TRUE(whole.Counts(0, {0, 0, 0}));
    EXPECT_TRUE(whole.Counts(1, {0, 0, 0}));
    EXPECT_FALSE(Reach(occluders, limits, false).Counts(0, {0, 0, 0}));
    EXPECT_TRUE(Reach(occluders, limits, false).Counts(0, {140.0, 0, 0}));
}

}  // namespace
