// What lies under a ray.
#include "workbench/view/ScenePick.h"

#include <gtest/gtest.h>

#include <cmath>

#include "workbench/SceneForTests.h"

TEST(ScenePick, FindsTheNearestFaceFromEitherSide) {
    Scene scene;
    AddBox(scene, {0, 0, 0}, {10, 10, 10}, 1);
    const auto outside = PickScene(scene, {{5, -20, 4}, {0, 1, 0}});
    ASSERT_TRUE(outside);
    EXPECT_NEAR(outside->x, 5.0, 1e-12);
    EXPECT_NEAR(outside->y, 0.0, 1e-12);
    EXPECT_NEAR(outside->z, 4.0, 1e-12);
    const auto inside = PickScene(scene, {{5, 5, 4}, {0, 1, 0}});
    ASSERT_TRUE(inside);
    EXPECT_NEAR(inside->y, 10.0, 1e-12);
}

TEST(ScenePick, FindsBothHalvesOfAQuadrilateralAndNothingBeside) {
    Scene scene;
    AddFaces(scene, {Quad({0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0})}, 1);
    const QcGeVector3d down(0, 0, -1);
    EXPECT_TRUE(PickScene(scene, {{8, 2, 5}, down}));
    EXPECT_TRUE(PickScene(scene, {{2, 8, 5}, down}));
    EXPECT_FALSE(PickScene(scene, {{11, 5, 5}, down}));
    EXPECT_FALSE(PickScene(scene, {{5, -1, 5}, down}));
}

TEST(ScenePick, FindsNoMoreOfATriangleThanThereIs) {
    Scene scene;
    AddFaces(scene, {QcGeFace3dEX({0, 0, 0}, {10, 0, 0}, {10, 10, 0}, true)}, 1);
    const QcGeVector3d down(0, 0, -1);
    EXPECT_TRUE(PickScene(scene, {{8, 2, 5}, down}));
    EXPECT_FALSE(PickScene(scene, {{2, 8, 5}, down}));
}

TEST(ScenePick, FindsNothingBehindTheStartOrOnAnEdgeOnFaceOrInAnEmptyScene) {
    Scene scene;
    EXPECT_FALSE(PickScene(scene, {{0, 0, 0}, {0, 0, -1}}));
    AddFaces(scene, {Quad({0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0})}, 1);
    EXPECT_FALSE(PickScene(scene, {{5, 5, -1}, {0, 0, -1}}));
    EXPECT_FALSE(PickScene(scene, {{-5, 5, 0}, {1, 0, 0}}));
    AddFaces(scene, {Quad({NAN, 0, 0}, {10, 0, NAN}, {INFINITY, 10, 0}, {0, 10, 0})}, 1);
    EXPECT_FALSE(PickScene(scene, {{5, 5, -1}, {0, 0, -1}}));
}
