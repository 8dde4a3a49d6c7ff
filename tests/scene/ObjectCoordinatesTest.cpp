// The axes that an extrusion direction gives.
#include "scene/ObjectCoordinates.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

void ExpectPoint(const QcGePoint& point, double x, double y, double z) {
    EXPECT_NEAR(point.x, x, 1e-12);
    EXPECT_NEAR(point.y, y, 1e-12);
    EXPECT_NEAR(point.z, z, 1e-12);
}

// Where the three axes of an extrusion point.
struct Axes {
    explicit Axes(const QcGeVector3d& extrusion) {
        ObjectCoordinates coordinates;
        EXPECT_TRUE(coordinates.SetExtrusion(extrusion));
        x = QcGeVector3d(coordinates.ToWorld({1, 0, 0}));
        y = QcGeVector3d(coordinates.ToWorld({0, 1, 0}));
        z = QcGeVector3d(coordinates.ToWorld({0, 0, 1}));
    }
    QcGeVector3d x, y, z;
};

}  // namespace

TEST(ObjectCoordinates, AreTheWorldsWithoutAnExtrusion) {
    const QcGePoint point(0.1, -500000.123, 1e-300);
    EXPECT_EQ(ObjectCoordinates().ToWorld(point), point);
}

TEST(ObjectCoordinates, FollowTheCoordinateAxes) {
    const Axes up({0, 0, 5});
    ExpectPoint(up.x, 1, 0, 0);
    ExpectPoint(up.y, 0, 1, 0);
    const Axes down({0, 0, -1});
    ExpectPoint(down.x, -1, 0, 0);
    ExpectPoint(down.y, 0, 1, 0);
    const Axes east({2, 0, 0});
    ExpectPoint(east.x, 0, 1, 0);
    ExpectPoint(east.y, 0, 0, 1);
    const Axes north({0, 1, 0});
    ExpectPoint(north.x, -1, 0, 0);
    ExpectPoint(north.y, 0, 0, 1);
}

TEST(ObjectCoordinates, TakeTheXAxisLevelUnlessTheExtrusionIsNearlyUpright) {
    // With length 1: x = 1/64 exactly is not near the z axis any more.
    const double limit = 1.0 / 64.0;
    const auto xAxisOf = [](double x, double y) { return Axes({x, y, std::sqrt(1.0 - x * x - y * y)}).x; };
    EXPECT_NEAR(xAxisOf(limit * 1.001, 0.0).z, 0.0, 1e-12);
    ExpectPoint(xAxisOf(limit * 1.001, 0.0), 0, 1, 0);
    ExpectPoint(xAxisOf(0.0, -limit * 1.001), 1, 0, 0);
    // Nearer, it is at right angles to the world's y axis.
    EXPECT_NEAR(xAxisOf(limit * 0.999, limit * 0.5).y, 0.0, 1e-12);
    EXPECT_GT(xAxisOf(limit * 0.999, limit * 0.5).x, 0.99);
}

TEST(ObjectCoordinates, AreRightHandedWithUnitLength) {
    for (const QcGeVector3d& extrusion :
         {QcGeVector3d(0.3, -0.4, 2), {1, 1, 1}, {-5, 0.01, -0.02}, {0.001, 0.002, -9}}) {
        const Axes axes(extrusion);
        const QcGeVector3d cross = axes.x * axes.y;
        ExpectPoint(axes.z, cross.x, cross.y, cross.z);
        EXPECT_NEAR(axes.x.Length(), 1.0, 1e-12);
        EXPECT_NEAR(axes.y.Length(), 1.0, 1e-12);
        const double length = extrusion.Length();
        ExpectPoint(axes.z, extrusion.x / length, extrusion.y / length, extrusion.z / length);
    }
}

TEST(ObjectCoordinates, StayWithoutADirection) {
    ObjectCoordinates coordinates;
    ASSERT_TRUE(coordinates.SetExtrusion({1, 0, 0}));
    EXPECT_FALSE(coordinates.SetExtrusion({0, 0, 0}));
    EXPECT_FALSE(coordinates.SetExtrusion({1e-13, 0, 0}));
    ExpectPoint(coordinates.ToWorld({0, 0, 1}), 1, 0, 0);
}

TEST(ObjectCoordinates, FromTheWorldAndBack) {
    for (const QcGeVector3d& extrusion :
         {QcGeVector3d(0, 0, 1), QcGeVector3d(0, 0, -2), QcGeVector3d(1, 0, 0), QcGeVector3d(0.3, -0.5, 0.8)}) {
        ObjectCoordinates axes;
        ASSERT_TRUE(axes.SetExtrusion(extrusion));
        const QcGePoint back = axes.ToWorld(axes.FromWorld({1.5, -2.25, 7.0}));
        EXPECT_NEAR(back.x, 1.5, 1e-12);
        EXPECT_NEAR(back.y, -2.25, 1e-12);
        EXPECT_NEAR(back.z, 7.0, 1e-12);
    }
}
