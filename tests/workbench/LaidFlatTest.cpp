// Facades turned to the paper.
#include "workbench/report/LaidFlat.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A facade from a place on, so long to the right as seen from outside, with one point a metre to the right of its lower
// left corner and two metres up, and a line of an hour above it.
OutlineResult Facade(PointAnswer& answer, const QcGePoint& outward) {
    OutlineResult outline;
    outline.outward = outward;
    const double x = -outward.y, y = outward.x;  // to the right of who looks at it
    const auto at = [&](double right, double height) { return QcGePoint(100 + x * right, 50 + y * right, height); };
    outline.corners = {at(0, 0), at(20, 0), at(20, 9), at(0, 9)};
    outline.firstPoint = answer.points.size();
    outline.pointCount = 1;
    const auto index = static_cast<std::uint32_t>(answer.outlines.size());
    answer.points.push_back({at(1, 2), index, {}, 75.0});
    answer.isolines.push_back({1, index, false, {at(0, 5), at(20, 6)}});
    answer.outlines.push_back(outline);
    return outline;
}

}  // namespace

TEST(LaidFlat, ShowsFacadesAsTheyAreSeenFromOutside) {
    PointAnswer answer;
    Facade(answer, QcGePoint(0, -1, 0));
    Facade(answer, QcGePoint(1, 0, 0));
    Facade(answer, QcGePoint(-std::sqrt(0.5), std::sqrt(0.5), 0.0));
    // Somebody before the south side has the east on the right, before the east side the north.
    EXPECT_GT(answer.outlines[0].corners[1].x, answer.outlines[0].corners[0].x);
    EXPECT_GT(answer.outlines[1].corners[1].y, answer.outlines[1].corners[0].y);
    for (std::size_t i = 0; i < answer.outlines.size(); ++i) {
        const PointAnswer flat = LaidFlat(answer, i);
        ASSERT_EQ(flat.outlines.size(), 1U);
        ASSERT_EQ(flat.points.size(), 1U);
        ASSERT_EQ(flat.isolines.size(), 1U);
        const QcGePoint origin = flat.outlines[0].corners[0];
        EXPECT_NEAR(flat.outlines[0].corners[2].x - origin.x, 20.0, 1e-9);
        EXPECT_NEAR(flat.outlines[0].corners[2].y, 9.0, 1e-9);
        EXPECT_NEAR(flat.points[0].place.x - origin.x, 1.0, 1e-9);
        EXPECT_NEAR(flat.points[0].place.y, 2.0, 1e-9);
        EXPECT_EQ(flat.points[0].place.z, 0.0);
        EXPECT_EQ(flat.points[0].total, 75.0);
        EXPECT_NEAR(flat.isolines[0].points[1].x - origin.x, 20.0, 1e-9);
        EXPECT_NEAR(flat.isolines[0].points[1].y, 6.0, 1e-9);
        EXPECT_EQ(flat.isolines[0].outline, 0U);
    }
}

TEST(LaidFlat, IsForWhatIsUprightAndHasPoints) {
    PointAnswer answer;
    Facade(answer, QcGePoint(0, -1, 0));
    Facade(answer, QcGePoint(0, 0, 1));
    Facade(answer, QcGePoint(0, 1, 0));
    answer.outlines.back().pointCount = 0;
    EXPECT_EQ(UprightOutlines(answer), (std::vector<std::size_t>{0}));
}
