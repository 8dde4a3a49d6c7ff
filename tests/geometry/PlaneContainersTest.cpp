// The containers of planes work through the interface that all of them share, from the module's own copy of the code.
#include "geometry/PlaneContainers.h"

#include <gtest/gtest.h>

namespace {

template <class Container>
class PlaneContainers : public testing::Test {};

using Containers = testing::Types<QcDynArray<Plane>, QcList<Plane>, QcDList<Plane>>;
TYPED_TEST_SUITE(PlaneContainers, Containers);

TYPED_TEST(PlaneContainers, HoldWalkAndFindPlanes) {
    TypeParam container;
    QcDynArrayBase<Plane>& base = container;
    for (int i = 0; i < 5; ++i)
        base.Append(Plane(i, 0, 0, 1));
    base.InsertHead(Plane(-1, 0, 0, 1));
    ASSERT_EQ(base.GetLength(), 6);
    int index = 0;
    for (base.MoveToFirst(); !base.IsOut(); base.MoveToNext(), ++index)
        EXPECT_TRUE(base.GetCurData() == Plane(index - 1, 0, 0, 1));
    EXPECT_EQ(index, 6);
    EXPECT_TRUE(base[3] == Plane(2, 0, 0, 1));
    base.MoveTo(3);
    base.DelCur();
    EXPECT_TRUE(base[3] == Plane(3, 0, 0, 1));
    base.ReverseList();
    EXPECT_TRUE(base[0] == Plane(4, 0, 0, 1));
    base.Reset();
    EXPECT_TRUE(base.IsEmpty());
}

TYPED_TEST(PlaneContainers, CopyPlanes) {
    TypeParam container;
    container.Append(Plane(1, 2, 3, 4));
    const TypeParam copy(container);
    container.Reset();
    ASSERT_EQ(copy.GetLength(), 1);
    EXPECT_TRUE(*copy.GetFirst() == Plane(1, 2, 3, 4));
}

}  // namespace
