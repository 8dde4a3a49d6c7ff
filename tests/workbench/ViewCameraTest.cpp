// The geometry of the 3-D view, against projections done another way.
#include "workbench/view/ViewCamera.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr ViewBox kTown = {{-100.0, -50.0, 0.0}, {300.0, 250.0, 80.0}};

ViewCamera CameraAt(const ViewBox& box, int width = 800, int height = 600) {
    ViewCamera camera;
    camera.SetViewport(width, height);
    camera.SetBox(box);
    camera.Fit();
    return camera;
}

std::vector<QcGePoint> CornersOf(const ViewBox& box) {
    std::vector<QcGePoint> corners;
    for (const double x : {box.least.x, box.most.x})
        for (const double y : {box.least.y, box.most.y})
            for (const double z : {box.least.z, box.most.z})
                corners.emplace_back(x, y, z);
    return corners;
}

// What OpenGL does with the two matrices: where in the picture, and the depth from -1 to 1.
ViewPixel ThroughMatrices(const ViewCamera& camera, const QcGePoint& point, const QcGePoint& origin) {
    const auto view = camera.GetViewMatrix(origin);
    const auto projection = camera.GetProjectionMatrix();
    const double in[] = {point.x - origin.x, point.y - origin.y, point.z - origin.z, 1.0};
    double eye[4] = {};
    double clip[4] = {};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            eye[row] += view[column * 4 + row] * in[column];
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            clip[row] += projection[column * 4 + row] * eye[column];
    return {(clip[0] / clip[3] + 1.0) / 2.0 * camera.GetWidth(), (1.0 - clip[1] / clip[3]) / 2.0 * camera.GetHeight(),
            clip[2] / clip[3]};
}

void ExpectPoint(const QcGePoint& got, const QcGePoint& wanted, double tolerance) {
    EXPECT_NEAR(got.x, wanted.x, tolerance);
    EXPECT_NEAR(got.y, wanted.y, tolerance);
    EXPECT_NEAR(got.z, wanted.z, tolerance);
}

void ExpectAllFinite(const ViewCamera& camera) {
    for (const double number : camera.GetViewMatrix({5e8, -5e8, 1.0}))
        EXPECT_TRUE(std::isfinite(number));
    for (const double number : camera.GetProjectionMatrix())
        EXPECT_TRUE(std::isfinite(number));
    double nearest = 0.0;
    double farthest = 0.0;
    camera.GetDepths(nearest, farthest);
    EXPECT_LT(nearest, farthest);
    EXPECT_TRUE(camera.IsParallel() || nearest > 0.0);
    const ViewRay ray = camera.GetRayAt(3.0, 4.0);
    EXPECT_NEAR(ray.direction.Length(), 1.0, 1e-9);
    for (const QcGePoint& point : {camera.GetEye(), camera.GetTarget(), ray.start, camera.GetPointAt({1, 2, 3})})
        EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z));
}

}  // namespace

TEST(ViewCamera, LooksFromTheSouthWithEastOnTheRight) {
    ViewCamera camera = CameraAt(kTown);
    camera.Look(StandardView::South);
    ExpectPoint(camera.GetRight(), {1.0, 0.0, 0.0}, 1e-12);
    ExpectPoint(camera.GetUp(), {0.0, 0.0, 1.0}, 1e-12);
    ExpectPoint(camera.GetForward(), {0.0, 1.0, 0.0}, 1e-12);
    EXPECT_LT(camera.GetEye().y, camera.GetTarget().y);
}

TEST(ViewCamera, HasTheEyeWhereTheStandardViewSays) {
    struct Row {
        StandardView view;
        double east, north, up;  // from the target to the eye
    };
    const double half = std::sqrt(0.5);
    const double third = std::sqrt(1.0 / 3.0);
    const Row rows[] = {{StandardView::Top, 0, 0, 1},
                        {StandardView::South, 0, -1, 0},
                        {StandardView::East, 1, 0, 0},
                        {StandardView::North, 0, 1, 0},
                        {StandardView::West, -1, 0, 0},
                        {StandardView::SouthEast, third, -third, third},
                        {StandardView::SouthWest, -third, -third, third}};
    for (const Row& row : rows) {
        ViewCamera camera = CameraAt(kTown);
        camera.Look(row.view);
        const QcGeVector3d forward = camera.GetForward();
        ExpectPoint({-forward.x, -forward.y, -forward.z}, {row.east, row.north, row.up}, 1e-12);
        EXPECT_EQ(camera.IsParallel(), row.view == StandardView::Top);
    }
    ViewCamera camera;
    camera.Look(StandardView::SouthEast);
    ExpectPoint(camera.GetRight(), {half, half, 0.0}, 1e-12);
}

TEST(ViewCamera, ShowsAPlanWithNorthUp) {
    ViewCamera camera = CameraAt(kTown);
    camera.Look(StandardView::Top);
    ExpectPoint(camera.GetRight(), {1.0, 0.0, 0.0}, 1e-12);
    ExpectPoint(camera.GetUp(), {0.0, 1.0, 0.0}, 1e-12);
    EXPECT_EQ(camera.GetAltitude(), 90.0);
    // Heights do not move a point in a plan.
    const auto low = camera.Project({20.0, 30.0, 0.0});
    const auto high = camera.Project({20.0, 30.0, 80.0});
    ASSERT_TRUE(low && high);
    EXPECT_NEAR(low->x, high->x, 1e-9);
    EXPECT_NEAR(low->y, high->y, 1e-9);
}

TEST(ViewCamera, LeavesThePlanWhenTurned) {
    ViewCamera camera = CameraAt(kTown);
    camera.Look(StandardView::Top);
    camera.Orbit(10.0, 0.0);
    EXPECT_FALSE(camera.IsParallel());
    EXPECT_EQ(camera.GetAltitude(), 89.0);
    EXPECT_NEAR(camera.GetAzimuth(), 190.0, 1e-12);
}

TEST(ViewCamera, CutsTheAltitudeAndWrapsTheAzimuth) {
    ViewCamera camera;
    camera.Look(-90.0, 120.0);
    EXPECT_EQ(camera.GetAzimuth(), 270.0);
    EXPECT_EQ(camera.GetAltitude(), 89.0);
    camera.Orbit(100.0, -500.0);
    EXPECT_EQ(camera.GetAzimuth(), 10.0);
    EXPECT_EQ(camera.GetAltitude(), -89.0);
    camera.Look(-1e-30, 0.0);
    EXPECT_GE(camera.GetAzimuth(), 0.0);
    EXPECT_LT(camera.GetAzimuth(), 360.0);
}

// From the south at the distance d, a point e to the east of the target and u above it is seen at e/d and u/d over the
// tangent of half the field of view, which is 20 degrees.
TEST(ViewCamera, ProjectsBySimilarTriangles) {
    ViewCamera camera = CameraAt(kTown, 1000, 500);
    camera.Look(StandardView::South);
    const QcGePoint target = camera.GetTarget();
    const double distance = camera.GetDistance();
    const double pixels = 250.0 / std::tan(20.0 * std::acos(-1.0) / 180.0);
    const auto middle = camera.Project(target);
    ASSERT_TRUE(middle);
    EXPECT_NEAR(middle->x, 500.0, 1e-9);
    EXPECT_NEAR(middle->y, 250.0, 1e-9);
    EXPECT_NEAR(middle->depth, distance, 1e-9);
    const auto beside = camera.Project({target.x + 30.0, target.y + 40.0, target.z + 20.0});
    ASSERT_TRUE(beside);
    EXPECT_NEAR(beside->x, 500.0 + 30.0 / (distance + 40.0) * pixels, 1e-9);
    EXPECT_NEAR(beside->y, 250.0 - 20.0 / (distance + 40.0) * pixels, 1e-9);
    EXPECT_NEAR(beside->depth, distance + 40.0, 1e-9);
    EXPECT_FALSE(camera.Project({target.x, target.y - distance - 1.0, target.z}));
}

TEST(ViewCamera, AgreesWithItsMatrices) {
    for (const bool plan : {false, true}) {
        for (const QcGePoint& origin : {QcGePoint(0, 0, 0), QcGePoint(90.0, -20.0, 7.0)}) {
            ViewCamera camera = CameraAt(kTown);
            if (plan)
                camera.Look(StandardView::Top);
            else
                camera.Look(200.0, 25.0);
            camera.Fit();
            camera.Zoom(1.3, 100.0, 100.0);
            camera.Pan(17.0, -9.0);
            for (const QcGePoint& corner : CornersOf(kTown)) {
                const auto pixel = camera.Project(corner);
                ASSERT_TRUE(pixel);
                const ViewPixel other = ThroughMatrices(camera, corner, origin);
                EXPECT_NEAR(pixel->x, other.x, 1e-6);
                EXPECT_NEAR(pixel->y, other.y, 1e-6);
                EXPECT_GT(other.depth, -1.0);
                EXPECT_LT(other.depth, 1.0);
            }
        }
    }
}

TEST(ViewCamera, FindsThePointOfAPixelAgain) {
    for (const bool plan : {false, true}) {
        ViewCamera camera = CameraAt({{5e8, 5e8, 0.0}, {5e8 + 400.0, 5e8 + 300.0, 80.0}});
        camera.Look(70.0, -35.0);
        if (plan)
            camera.Look(StandardView::Top);
        const QcGePoint point(5e8 + 33.0, 5e8 + 210.0, 12.0);
        const auto pixel = camera.Project(point);
        ASSERT_TRUE(pixel);
        ExpectPoint(camera.GetPointAt(*pixel), point, 1e-5);
        const ViewRay ray = camera.GetRayAt(pixel->x, pixel->y);
        const QcGeVector3d way = point - ray.start;
        const QcGeVector3d beside = ray.direction * way;
        EXPECT_NEAR(beside.Length(), 0.0, 1e-5);
        EXPECT_NEAR(ray.direction.Length(), 1.0, 1e-12);
    }
}

TEST(ViewCamera, FitsAllCornersFromEverywhereAndAsLargeAsItCan) {
    for (const auto& [width, height] : {std::pair(800, 600), std::pair(300, 900), std::pair(1600, 200)}) {
        for (double azimuth = 0.0; azimuth < 360.0; azimuth += 23.0) {
            for (double altitude = -89.0; altitude <= 89.0; altitude += 17.8) {
                ViewCamera camera = CameraAt(kTown, width, height);
                camera.Look(azimuth, altitude);
                camera.Fit();
                double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
                for (const QcGePoint& corner : CornersOf(kTown)) {
                    const auto pixel = camera.Project(corner);
                    ASSERT_TRUE(pixel);
                    left = std::min(left, pixel->x);
                    right = std::max(right, pixel->x);
                    top = std::min(top, pixel->y);
                    bottom = std::max(bottom, pixel->y);
                }
                // In the middle, and touching the margin of 2.5 % on each side in one direction.
                EXPECT_NEAR(left, width - right, 1e-6);
                EXPECT_NEAR(top, height - bottom, 1e-6);
                EXPECT_NEAR(std::max((right - left) / width, (bottom - top) / height), 0.95, 1e-9);
            }
        }
    }
}

TEST(ViewCamera, FitsThePlan) {
    ViewCamera camera = CameraAt(kTown, 1000, 300);
    camera.Look(StandardView::Top);
    camera.Fit();
    const auto southWest = camera.Project({-100.0, -50.0, 0.0});
    const auto northEast = camera.Project({300.0, 250.0, 80.0});
    ASSERT_TRUE(southWest && northEast);
    EXPECT_NEAR(southWest->y - northEast->y, 285.0, 1e-9);
    EXPECT_NEAR(northEast->x - southWest->x, 380.0, 1e-9);
    EXPECT_NEAR(southWest->x + northEast->x, 1000.0, 1e-9);
}

TEST(ViewCamera, MovesWhatIsAtTheTargetsDepthByExactlyThePixels) {
    ViewCamera camera = CameraAt(kTown);
    camera.Look(30.0, 40.0);
    const QcGePoint point = camera.GetPointAt({222.0, 111.0, camera.GetDistance()});
    camera.Pan(35.0, -12.0);
    const auto pixel = camera.Project(point);
    ASSERT_TRUE(pixel);
    EXPECT_NEAR(pixel->x, 257.0, 1e-9);
    EXPECT_NEAR(pixel->y, 99.0, 1e-9);
}

TEST(ViewCamera, ZoomsAroundThePixel) {
    for (const bool plan : {false, true}) {
        ViewCamera camera = CameraAt(kTown);
        camera.Look(30.0, 40.0);
        if (plan)
            camera.Look(StandardView::Top);
        const QcGePoint held = camera.GetPointAt({600.0, 150.0, camera.GetDistance()});
        const QcGePoint other = camera.GetPointAt({610.0, 150.0, camera.GetDistance()});
        camera.Zoom(3.0, 600.0, 150.0);
        const auto pixel = camera.Project(held);
        const auto away = camera.Project(other);
        ASSERT_TRUE(pixel && away);
        EXPECT_NEAR(pixel->x, 600.0, 1e-6);
        EXPECT_NEAR(pixel->y, 150.0, 1e-6);
        EXPECT_NEAR(away->x, 630.0, 1e-6);
    }
}

TEST(ViewCamera, StopsZoomingBeforeNumbersGetAbsurd) {
    ViewCamera camera = CameraAt(kTown);
    for (int i = 0; i < 1000; ++i)
        camera.Zoom(10.0, 0.0, 0.0);
    EXPECT_GT(camera.GetDistance(), 1e-5);
    ExpectAllFinite(camera);
    for (int i = 0; i < 1000; ++i)
        camera.Zoom(0.1, 0.0, 0.0);
    EXPECT_LT(camera.GetDistance(), 1e9);
    ExpectAllFinite(camera);
}

TEST(ViewCamera, TakesAnotherDepthWithoutChangingThePicture) {
    for (const bool plan : {false, true}) {
        ViewCamera camera = CameraAt(kTown);
        camera.Look(30.0, 40.0);
        if (plan)
            camera.Look(StandardView::Top);
        camera.Fit();
        const QcGePoint point(10.0, 240.0, 70.0);
        const auto before = camera.Project(point);
        const auto cornerBefore = camera.Project(kTown.least);
        camera.TakeDepthOf(point);
        const auto after = camera.Project(point);
        const auto cornerAfter = camera.Project(kTown.least);
        ASSERT_TRUE(before && after && cornerBefore && cornerAfter);
        EXPECT_NEAR(before->x, after->x, 1e-6);
        EXPECT_NEAR(before->y, after->y, 1e-6);
        EXPECT_NEAR(cornerBefore->x, cornerAfter->x, 1e-6);
        EXPECT_NEAR(cornerBefore->y, cornerAfter->y, 1e-6);
        EXPECT_NEAR(after->depth, camera.GetDistance(), 1e-6);
        camera.Zoom(2.0, after->x, after->y);
        const auto zoomed = camera.Project(point);
        ASSERT_TRUE(zoomed);
        EXPECT_NEAR(zoomed->x, after->x, 1e-6);
        EXPECT_NEAR(zoomed->y, after->y, 1e-6);
    }
}

TEST(ViewCamera, IgnoresPointsBehindTheEyeAsDepths) {
    ViewCamera camera = CameraAt(kTown);
    camera.Look(StandardView::South);
    const double before = camera.GetDistance();
    camera.TakeDepthOf({0.0, -1e6, 0.0});
    camera.TakeDepthOf({NAN, 0.0, 0.0});
    EXPECT_EQ(camera.GetDistance(), before);
}

TEST(ViewCamera, SeesTheTargetAlsoFromAmidstTheBox) {
    ViewCamera camera = CameraAt({{-1e6, -1e6, 0.0}, {1e6, 1e6, 100.0}});
    camera.Look(180.0, 20.0);
    camera.Zoom(1e5, 400.0, 300.0);
    double nearest = 0.0;
    double farthest = 0.0;
    camera.GetDepths(nearest, farthest);
    EXPECT_LT(nearest, camera.GetDistance());
    EXPECT_GT(farthest, 0.9e6);  // the far edge, seen 20 degrees from above
}

TEST(ViewCamera, NeverGivesNumbersThatAreNotFinite) {
    const double inf = std::numeric_limits<double>::infinity();
    const ViewBox boxes[] = {{{0, 0, 0}, {0, 0, 0}},
                             {{5e8, 5e8, 5e8}, {5e8, 5e8, 5e8}},
                             {{0, 0, 0}, {100, 100, 0}},
                             {{0, 0, 0}, {0, 100, 0}},
                             {{-1e9, -1e9, -1e9}, {1e9, 1e9, 1e9}},
                             {{1, 1, 1}, {-1, -1, -1}},
                             {{-DBL_MAX, -DBL_MAX, -DBL_MAX}, {DBL_MAX, DBL_MAX, DBL_MAX}},
                             {{-inf, NAN, 0}, {inf, NAN, 0}},
                             {{0, 0, 0}, {DBL_MIN, DBL_MIN, DBL_MIN}}};
    for (const ViewBox& box : boxes) {
        for (const auto& [width, height] :
             {std::pair(800, 600), std::pair(0, 0), std::pair(-5, 100), std::pair(1, 99999)}) {
            for (const double altitude : {-89.0, 0.0, 30.0, 89.0, 90.0}) {
                ViewCamera camera = CameraAt(box, width, height);
                camera.Look(45.0, altitude);
                if (altitude == 90.0)
                    camera.Look(StandardView::Top);
                camera.Fit();
                ExpectAllFinite(camera);
                camera.Pan(1e300, 1e300);
                camera.Pan(-inf, NAN);
                camera.Zoom(1e300, 1e300, -1e300);
                camera.Zoom(0.0, 0.0, 0.0);
                camera.Zoom(-1.0, 0.0, 0.0);
                camera.Zoom(NAN, 0.0, 0.0);
                camera.Zoom(2.0, inf, 0.0);
                for (const double factor : {1e300, 1e-300, 1e-300, 0.0, -1.0, double(NAN), inf, 1e300})
                    camera.Magnify(factor);
                camera.Orbit(NAN, 1.0);
                camera.Orbit(1.0, inf);
                camera.Orbit(1e300, -1e300);
                ExpectAllFinite(camera);
                const ViewPixel pixel = camera.Project(box.least).value_or(ViewPixel());
                EXPECT_TRUE(std::isfinite(pixel.x) && std::isfinite(pixel.y) && std::isfinite(pixel.depth));
                camera.GetRayAt(NAN, inf);
                camera.GetPointAt({inf, NAN, -inf});
            }
        }
    }
}

TEST(ViewCamera, FitsWhatIsFlatOrALine) {
    for (const ViewBox& box : {ViewBox{{0, 0, 0}, {100, 100, 0}}, ViewBox{{0, 0, 0}, {0, 100, 0}}}) {
        for (const double azimuth : {0.0, 90.0, 200.0}) {
            ViewCamera camera = CameraAt(box);
            camera.Look(azimuth, 0.0);
            camera.Fit();
            double nearest = 0.0;
            double farthest = 0.0;
            camera.GetDepths(nearest, farthest);
            for (const QcGePoint& corner : CornersOf(box)) {
                const auto pixel = camera.Project(corner);
                ASSERT_TRUE(pixel);
                EXPECT_GE(pixel->x, 0.0);
                EXPECT_LE(pixel->x, 800.0);
                EXPECT_GE(pixel->y, 0.0);
                EXPECT_LE(pixel->y, 600.0);
                EXPECT_GT(pixel->depth, nearest);
                EXPECT_LT(pixel->depth, farthest);
            }
        }
    }
}
