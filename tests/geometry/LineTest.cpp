// Points along a line.
#include "geometry/Line.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "Bits.h"

namespace {

TEST(Line, IsAllZeroByDefault) {
    static_assert(!std::is_polymorphic_v<Line>);
    EXPECT_TRUE(SameBits(Line().GetPoint(0), QcGePoint(0, 0, 0)));
    EXPECT_TRUE(SameBits(Line().GetPoint(7), QcGePoint(0, 0, 0)));
}

TEST(Line, GivesItsPointAtZeroAndOneDirectionFurtherAtOne) {
    Line line({1, 2, 3}, {10, 20, 30});
    EXPECT_TRUE(SameBits(line.GetPoint(0), QcGePoint(10, 20, 30)));
    EXPECT_TRUE(SameBits(line.GetPoint(1), QcGePoint(11, 22, 33)));
    EXPECT_TRUE(SameBits(line.GetPoint(-2), QcGePoint(8, 16, 24)));
}

TEST(Line, DoesNotNormaliseItsDirection) {
    EXPECT_TRUE(SameBits(Line({3, 0, 4}, {}).GetPoint(1), QcGePoint(3, 0, 4)));
}

TEST(Line, ReplacesOnePartAtATime) {
    Line line({1, 2, 3}, {10, 20, 30});
    line.SetPoint({0, 0, 1});
    EXPECT_TRUE(SameBits(line.GetPoint(1), QcGePoint(1, 2, 4)));
    line.SetVector({5, 5, 5});
    EXPECT_TRUE(SameBits(line.GetPoint(1), QcGePoint(5, 5, 6)));
}

TEST(Line, CopiesBothParts) {
    Line original({1, 2, 3}, {10, 20, 30});
    Line copy(original);
    original.SetPoint({});
    original.SetVector({});
    EXPECT_TRUE(SameBits(copy.GetPoint(1), QcGePoint(11, 22, 33)));
}

TEST(Line, MultipliesFirstAndRoundsBeforeItAdds) {
    RandomNumbers random(2);
    for (int i = 0; i < 1000; ++i) {
        const QcGePoint d = random.Point(10);
        const QcGePoint p = random.Point(1000);
        const double t = random.Next(-5, 5);
        const volatile double x = t * d.x;
        const volatile double y = t * d.y;
        const volatile double z = t * d.z;
        ASSERT_TRUE(SameBits(Line(d, p).GetPoint(t), QcGePoint(p.x + x, p.y + y, p.z + z)));
    }
}

}  // namespace
