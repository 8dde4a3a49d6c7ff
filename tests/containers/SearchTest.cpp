// Finding, bisecting and sorted insertion, which arrays and lists have in common. Every test runs on each of them.
#include "EveryContainer.h"

namespace {

template <class C>
class ContainerSearch : public EveryContainer<C> {};
TYPED_TEST_SUITE(ContainerSearch, ContainerKinds);

TYPED_TEST(ContainerSearch, FindToStopsOnTheFirstEqualElement) {
    TypeParam c = this->Make({5, 6, 5, 7});
    EXPECT_TRUE(c.FindTo(5, 0));
    EXPECT_EQ(c.GetCurPos(), 0);
    EXPECT_TRUE(c.FindTo(5, 1));
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_FALSE(c.FindTo(5, 3));
    EXPECT_TRUE(c.IsOut());
    EXPECT_FALSE(c.FindTo(7, 4));
    EXPECT_FALSE(c.FindTo(5, -1));
}

TYPED_TEST(ContainerSearch, FindScansBothEndsIncluded) {
    TypeParam c = this->Make({5, 6, 5, 7});
    c.MoveTo(3);
    EXPECT_EQ(c.Find(5, 0, -1), 0);
    EXPECT_EQ(c.Find(5, 1, 99), 2);
    EXPECT_EQ(c.Find(7, 0, 2), -1);
    EXPECT_EQ(c.Find(7, 0, 3), 3);
    EXPECT_EQ(c.Find(6, 2, 1), -1);
    EXPECT_EQ(c.Find(5, -1, -1), -1);
    EXPECT_EQ(c.Find(5, 4, -1), -1);
    EXPECT_EQ(c.GetCurPos(), 3);
    QcQuene<long> hits;
    EXPECT_EQ(c.Find(5, hits, 0, -1), 2);
    EXPECT_EQ(c.Find(7, hits, 0, -1), 1);
    EXPECT_EQ(c.Find(5, hits, 1, 1), 0);
    ASSERT_EQ(hits.GetLength(), 3);
    EXPECT_EQ(*hits.GetAt(0), 0);
    EXPECT_EQ(*hits.GetAt(1), 2);
    EXPECT_EQ(*hits.GetAt(2), 3);
}

TYPED_TEST(ContainerSearch, FindsOrAdds) {
    TypeParam c = this->Make({5, 6});
    EXPECT_EQ(c.FindOrAppend(6), 1);
    EXPECT_EQ(c.FindOrAppend(7), 2);
    c.FindOrInsertHead(5);
    c.FindOrInsertHead(4);
    EXPECT_EQ(Elements(c), (Ints{4, 5, 6, 7}));
}

TYPED_TEST(ContainerSearch, FindDelRemovesAllEqualNeighbours) {
    TypeParam c = this->Make({3, 3, 3, 1, 3, 2, 3});
    EXPECT_EQ(c.FindDel(3), 5);
    EXPECT_EQ(Elements(c), (Ints{1, 2}));
    EXPECT_TRUE(c.IsOut());
    EXPECT_EQ(c.FindDel(3), 0);
    TypeParam only = this->Make({3, 3, 3});
    EXPECT_EQ(only.FindDel(3), 3);
    EXPECT_TRUE(only.IsEmpty());
}

TYPED_TEST(ContainerSearch, BisectsASortedContainer) {
    TypeParam c = this->Make({10, 20, 20, 20, 30});
    EXPECT_TRUE(c.BFind(10, 0, -1));
    EXPECT_TRUE(c.BFind(30, 0, -1));
    EXPECT_FALSE(c.BFind(25, 0, -1));
    EXPECT_FALSE(c.BFind(30, 0, 3));
    EXPECT_FALSE(c.BFind(10, 1, -1));
    EXPECT_FALSE(c.BFind(10, 5, -1));
    EXPECT_TRUE(c.IsOut());
    EXPECT_TRUE(c.BFindTo(20, 0, -1));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_FALSE(c.BFindTo(25, 0, -1));
    EXPECT_EQ(c.GetCurPos(), 4);
    EXPECT_FALSE(c.BFindTo(5, 0, -1));
    EXPECT_EQ(c.GetCurPos(), 0);
    EXPECT_FALSE(c.BFindTo(35, 0, -1));
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(ContainerSearch, BisectsEverySizeAndPlace) {
    for (int n = 0; n < 40; ++n) {
        TypeParam c;
        for (int i = 0; i < n; ++i)
            c.Append(2 * i);
        for (int x = -1; x <= 2 * n; ++x) {
            const bool isThere = x >= 0 && x < 2 * n && x % 2 == 0;
            EXPECT_EQ(c.BFindTo(x), isThere);
            const int place = (x + 1) / 2;
            EXPECT_EQ(c.GetCurPos(), place < n ? place : -1) << n << ' ' << x;
        }
    }
}

TYPED_TEST(ContainerSearch, SortsInWithAndWithoutDoubles) {
    TypeParam c;
    for (const int x : {5, 1, 3, 9, 7})
        EXPECT_TRUE(c.SortInto(x, false));
    EXPECT_FALSE(c.SortInto(3, false));
    EXPECT_EQ(Elements(c), (Ints{1, 3, 5, 7, 9}));
    EXPECT_TRUE(c.SortInto(3, true));
    EXPECT_EQ(Elements(c), (Ints{1, 3, 3, 5, 7, 9}));
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_TRUE(c.SortInto(9, true));
    EXPECT_EQ(c.GetCurPos(), 6);
}

}  // namespace
