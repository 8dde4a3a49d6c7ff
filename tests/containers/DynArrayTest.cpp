// The contiguous array: its capacity, its buffers, and the lives of its elements.
#include <cstdlib>
#include <vector>

#include "TestElements.h"
#include "containers/QcDynArray.h"

namespace {

TEST(QcDynArray, HasTheFieldsOfItsLayout) {
    EXPECT_EQ(sizeof(QcDynArrayBase<int>), sizeof(void*) + 2 * sizeof(int));
    EXPECT_EQ(sizeof(QcDynArray<int>), 2 * sizeof(void*) + 4 * sizeof(int));
}

TEST(QcDynArray, StartsWithoutABuffer) {
    QcDynArray<char> a;
    EXPECT_EQ(a.GetSpaceSize(), 0);
    EXPECT_EQ(a.GetAllocUnit(), 10);
    EXPECT_EQ(a.Detach(), nullptr);
    a.ReAllocate(1);
    EXPECT_EQ(a.GetSpaceSize(), 11);
    EXPECT_EQ(a.GetLength(), 1);
    EXPECT_EQ(a[0], '\0');
}

TEST(QcDynArray, AllocatesTheCapacityItIsMadeWith) {
    QcDynArray<int> a(5, 3);
    EXPECT_EQ(a.GetSpaceSize(), 5);
    EXPECT_EQ(a.GetLength(), 0);
    EXPECT_EQ(a.GetAllocUnit(), 3);
    EXPECT_EQ(QcDynArray<int>(-4).GetSpaceSize(), 0);
    EXPECT_EQ(QcDynArray<int>(0, -4).GetAllocUnit(), 0);
}

TEST(QcDynArray, GrowsByTheUnitBeyondWhatIsAskedFor) {
    QcDynArray<int> a;
    long grown = 0;
    long sizeBefore = 0;
    for (int i = 0; i < 1100; ++i) {
        a.Append(i);
        if (a.GetSpaceSize() != sizeBefore) {
            EXPECT_EQ(a.GetSpaceSize(), a.GetLength() + 10);
            sizeBefore = a.GetSpaceSize();
            ++grown;
        }
    }
    EXPECT_EQ(grown, 100);
    a.ReAllocate(5000);
    EXPECT_EQ(a.GetSpaceSize(), 5010);
    EXPECT_EQ(a[1099], 1099);
    EXPECT_EQ(a[1100], 0);
    a.ReAllocate(10);
    EXPECT_EQ(a.GetSpaceSize(), 5010);
    EXPECT_EQ(a.GetLength(), 10);
    a.SetAllocUnit(7);
    a.ReAllocate(6000);
    EXPECT_EQ(a.GetSpaceSize(), 6007);
}

TEST(QcDynArray, GrowsByTheUnitWhenInserting) {
    QcDynArray<int> a(2, 4);
    a.InsertHead(1);
    a.InsertHead(2);
    EXPECT_EQ(a.GetSpaceSize(), 2);
    a.InsertHead(3);
    EXPECT_EQ(a.GetSpaceSize(), 3 + 4);
}

TEST(QcDynArray, ReAllocateTakesANegativeCountForNone) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2});
    a.ReAllocate(-1);
    EXPECT_EQ(a.GetLength(), 0);
    EXPECT_EQ(a.GetSpaceSize(), 11);
}

TEST(QcDynArray, DropsTheCursorWithItsElement) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2, 3});
    a.MoveTo(2);
    a.ReAllocate(2);
    EXPECT_TRUE(a.IsOut());
    a.MoveTo(1);
    a.ReAllocate(2);
    EXPECT_EQ(a.GetCurPos(), 1);
}

TEST(QcDynArray, SetLengthAllocatesExactly) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2, 3});
    a.SetLength(7, true);
    EXPECT_EQ(a.GetSpaceSize(), 7);
    EXPECT_EQ(a.GetLength(), 7);
    a.SetLength(2, true);
    EXPECT_EQ(a.GetSpaceSize(), 2);
    EXPECT_EQ(Elements(a), (Ints{1, 2}));
    a.SetLength(4, false);
    EXPECT_EQ(a.GetSpaceSize(), 4);
    EXPECT_EQ(Elements(a), (Ints{0, 0, 0, 0}));
    a.SetLength(0, true);
    EXPECT_EQ(a.GetSpaceSize(), 0);
    EXPECT_EQ(a.Detach(), nullptr);
}

TEST(QcDynArray, SetLengthOfTheCapacityOnlySetsTheCount) {
    QcDynArray<int> a(5);
    Fill(a, Ints{1, 2, 3});
    int* const firstBefore = a.GetFirst();
    a.SetLength(5, true);
    EXPECT_EQ(a.GetFirst(), firstBefore);
    EXPECT_EQ(Elements(a), (Ints{1, 2, 3, 0, 0}));
}

TEST(QcDynArray, SetSpaceSizeKeepsTheElements) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2, 3});
    a.MoveTo(1);
    EXPECT_FALSE(a.SetSpaceSize(2));
    EXPECT_FALSE(a.SetSpaceSize(-1));
    EXPECT_FALSE(a.SetSpaceSize(1L << 33));
    EXPECT_EQ(a.GetSpaceSize(), 11);
    EXPECT_TRUE(a.SetSpaceSize(11));
    EXPECT_TRUE(a.SetSpaceSize(3));
    EXPECT_EQ(a.GetSpaceSize(), 3);
    EXPECT_TRUE(a.SetSpaceSize(1000));
    EXPECT_EQ(a.GetSpaceSize(), 1000);
    EXPECT_EQ(Elements(a), (Ints{1, 2, 3}));
    EXPECT_EQ(a.GetCurPos(), 1);
    a.Reset();
    EXPECT_EQ(a.GetSpaceSize(), 0);
    EXPECT_TRUE(a.SetSpaceSize(0));
    EXPECT_TRUE(a.SetSpaceSize(6));
    EXPECT_TRUE(a.SetSpaceSize(0));
    EXPECT_EQ(a.GetSpaceSize(), 0);
}

TEST(QcDynArray, HandsItsBufferOverAndTakesOne) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2, 3});
    int* buffer = a.Detach();
    ASSERT_NE(buffer, nullptr);
    EXPECT_EQ(buffer[2], 3);
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.GetSpaceSize(), 0);
    QcDynArray<int> b;
    Fill(b, Ints{9, 9, 9, 9});
    b.MoveToFirst();
    b.Attach(3, buffer);
    EXPECT_EQ(Elements(b), (Ints{1, 2, 3}));
    EXPECT_TRUE(b.IsOut());
    b.Append(4);
    EXPECT_EQ(b.GetLength(), 4);
    QcDeleteBuffer(b.Detach());
    b.Attach(2, QcNewBuffer<int>(2));
    EXPECT_EQ(Elements(b), (Ints{0, 0}));
    EXPECT_EQ(b.GetSpaceSize(), 2);
    b.Attach(0, nullptr);
    EXPECT_TRUE(b.IsEmpty());
    EXPECT_EQ(b.GetSpaceSize(), 0);
}

// Only debug builds look; in others the allocator aborts later, or nothing does.
TEST(QcDynArrayDeathTest, DebugBuildsSayWhichMemoryCanBeAttached) {
#ifdef NDEBUG
    GTEST_SKIP() << "a release build does not look";
#else
    const char* const kSentence = "only a buffer from QcNewBuffer or Detach";
    QcDynArray<int> a;
    std::vector<int> foreign(64, 7);
    EXPECT_DEATH(a.Attach(3, foreign.data() + 8), kSentence);
    EXPECT_DEATH(QcDeleteBuffer(foreign.data() + 8), kSentence);
    int* const made = new int[4]();
    EXPECT_DEATH(a.Attach(4, made), kSentence);
    delete[] made;

    a.Attach(3, QcNewBuffer<int>(3));
    QcDynArray<int> b;
    EXPECT_DEATH(b.Attach(3, a.GetFirst()), kSentence) << "another array holds it";
    EXPECT_DEATH(QcDeleteBuffer(a.GetFirst()), kSentence);
    b.Attach(3, a.Detach());
    EXPECT_EQ(b.GetLength(), 3);
    QcDeleteBuffer(b.Detach());
#endif
}

TEST(QcDynArray, AttachNeverReadsBeyondTheBuffer) {
    {
        QcDynArray<Counted> a;
        a.Attach(100, QcNewBuffer<Counted>(3));
        EXPECT_EQ(a.GetLength(), 3);
        a.Attach(2, QcNewBuffer<Counted>(5));
        EXPECT_EQ(a.GetLength(), 2);
        EXPECT_EQ(Counted::s_alive, 2);
        a.Attach(2, a.GetFirst());
        EXPECT_EQ(a.GetLength(), 2);
        a.Attach(-1, QcNewBuffer<Counted>(4));
        EXPECT_TRUE(a.IsEmpty());
        EXPECT_EQ(Counted::s_alive, 0);
        Fill(a, std::vector<Counted>{1, 2});
        QcDeleteBuffer(a.Detach());
        EXPECT_EQ(Counted::s_alive, 0);
    }
    EXPECT_EQ(QcNewBuffer<int>(0), nullptr);
    EXPECT_EQ(QcNewBuffer<int>(-1), nullptr);
    EXPECT_EQ(QcNewBuffer<double>(std::numeric_limits<long>::max()), nullptr);
    QcDeleteBuffer<int>(nullptr);
}

TEST(QcDynArray, OnlyItsElementsLive) {
    {
        QcDynArray<Counted> a(100);
        EXPECT_EQ(Counted::s_alive, 0);
        Fill(a, std::vector<Counted>{1, 2, 3, 4});
        EXPECT_EQ(Counted::s_alive, 4);
        a.DelHead();
        EXPECT_EQ(Counted::s_alive, 3);
        a.InsertHead(a[2]);
        for (int i = 0; i < 50; ++i)
            a.Insert(1, Counted(i));
        EXPECT_EQ(Counted::s_alive, 54);
        QcDynArray<Counted> copy(a);
        EXPECT_EQ(Counted::s_alive, 108);
        copy.SetLength(10, true);
        a.ReAllocate(20);
        EXPECT_EQ(Counted::s_alive, 30);
        a.SetSpaceSize(20);
        a.SetLength(3, false);
        EXPECT_EQ(Counted::s_alive, 13);
        copy.Sort(true);
        copy.Rotate(0, 3);
        copy.Reset();
        EXPECT_EQ(Counted::s_alive, 3);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(QcDynArray, NeighboursOfForeignAddressesAreNone) {
    QcDynArray<int> a;
    Fill(a, Ints{1, 2, 3});
    const int others[3] = {};
    const int* const other = &others[1];
    EXPECT_EQ(a.GetNext(other), nullptr);
    EXPECT_EQ(a.GetPre(other), nullptr);
    EXPECT_EQ(QcDynArray<int>().GetNext(other), nullptr);
    EXPECT_EQ(QcDynArray<int>().GetPre(other), nullptr);
}

struct alignas(64) Wide {
    double m_all[8] = {};
};

TEST(QcDynArray, AlignsWideElements) {
    QcDynArray<Wide> a;
    for (int i = 0; i < 100; ++i) {
        Wide w;
        w.m_all[7] = i;
        a.Append(w);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(a.GetFirst()) % 64, 0U);
    }
    EXPECT_EQ(a[99].m_all[7], 99);
    EXPECT_EQ(a[0].m_all[7], 0);
}

TEST(QcDynArray, StartsLargeRunsWithDefaultElements) {
    constexpr long kLarge = 3L << 20;
    QcDynArray<int> a;
    a.Append(7);
    a.ReAllocate(kLarge);
    EXPECT_EQ(a.GetSpaceSize(), kLarge + 10);
    a.Append(8);
    EXPECT_EQ(a.Find(8), kLarge);
    EXPECT_EQ(a.Find(0), 1);
    EXPECT_EQ(a[0], 7);
    a.SetLength(2 * kLarge, true);
    EXPECT_EQ(a[2 * kLarge - 1], 0);
    EXPECT_EQ(a[kLarge], 8);
}

}  // namespace
