// The containers where long is as wide as their counts, as some compilers have it: this file reads their headers with
// such a long. Its element type is its own, so that these containers are, too.
#include <gtest/gtest.h>

#include <algorithm>
#include <cassert>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#define long int
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#undef long

namespace {

constexpr int kMost = std::numeric_limits<int>::max();

// So small that the largest array is two gigabytes, and zero at first, so that the system gives none of them before
// they are touched.
enum class Mark : char { kNone, kSet };

static_assert(std::is_same_v<decltype(QcDynArray<Mark>().GetLength()), int>, "the long of this file is not narrow");

// An overflow in a constant is an error.
static_assert(QcSumUpTo<std::int32_t>(5, 10, kMost) == 15);
static_assert(QcSumUpTo<std::int32_t>(5, 0, kMost) == 5);
static_assert(QcSumUpTo<std::int32_t>(1, kMost, kMost) == kMost);
static_assert(QcSumUpTo<std::int32_t>(kMost, 1, kMost) == kMost);
static_assert(QcSumUpTo<std::int32_t>(kMost - 1, 1, kMost) == kMost);
static_assert(QcSumUpTo<std::int32_t>(kMost - 2, 1, kMost) == kMost - 1);
static_assert(QcFirstOfRotation<std::int32_t>(0, 1, 5) == 4);
static_assert(QcFirstOfRotation<std::int32_t>(4, 1, 5) == 3);
static_assert(QcFirstOfRotation<std::int32_t>(2, 2, 5) == 0);
static_assert(QcFirstOfRotation<std::int32_t>(0, kMost - 1, kMost) == 1);
static_assert(QcFirstOfRotation<std::int32_t>(kMost - 1, 0, kMost) == kMost - 1);
static_assert(QcFirstOfRotation<std::int32_t>(kMost - 2, kMost - 1, kMost) == kMost - 1);
static_assert(QcFirstOfLast<std::int32_t>(3, 5) == 2);
static_assert(QcFirstOfLast<std::int32_t>(7, 5) == 0);
static_assert(QcFirstOfLast<std::int32_t>(0, 5) == 5);
static_assert(QcFirstOfLast<std::int32_t>(std::numeric_limits<std::int32_t>::min(), 5) == 5);
static_assert(QcFirstOfLast<std::int32_t>(std::numeric_limits<std::int32_t>::max(), 5) == 0);

QcDynArray<Mark> WithGreatestStep() {
    QcDynArray<Mark> a(0, kMost);
    EXPECT_EQ(a.GetAllocUnit(), kMost);
    return a;
}

TEST(NarrowLong, ArraysGrowToTheMostThereCanBe) {
    QcDynArray<Mark> appended = WithGreatestStep();
    appended.Append(Mark::kSet);
    EXPECT_EQ(appended.GetLength(), 1);
    EXPECT_EQ(appended.GetSpaceSize(), kMost);
    EXPECT_EQ(appended[0], Mark::kSet);

    QcDynArray<Mark> inserted = WithGreatestStep();
    inserted.InsertHead(Mark::kSet);
    EXPECT_EQ(inserted.GetLength(), 1);
    EXPECT_EQ(inserted.GetSpaceSize(), kMost);

    QcDynArray<Mark> grown = WithGreatestStep();
    grown.ReAllocate(2);
    EXPECT_EQ(grown.GetLength(), 2);
    EXPECT_EQ(grown.GetSpaceSize(), kMost);
}

TEST(NarrowLong, FullArraysTakeNoMore) {
    QcDynArray<Mark> a;
    a.SetLength(kMost, false);
    ASSERT_EQ(a.GetLength(), kMost);
    a.Append(Mark::kSet);
    a.InsertHead(Mark::kSet);
    a.MoveToLast();
    a.InsertAfterCur(Mark::kSet);
    a.IncreaseSize(1);
    QcDList<Mark> more(1);
    EXPECT_EQ(a.Conbine(more, 0), kMost);
    EXPECT_EQ(more.GetLength(), 1);
    EXPECT_EQ(a.GetLength(), kMost);
    EXPECT_EQ(a[0], Mark::kNone);
    EXPECT_EQ(a[kMost - 1], Mark::kNone);
}

TEST(NarrowLong, FullPlainArraysTakeNoMore) {
    QcArray<Mark> a(kMost);
    ASSERT_EQ(a.GetLength(), kMost);
    a.Append(Mark::kSet);
    a.InsertHead(Mark::kSet);
    EXPECT_EQ(a.GetLength(), kMost);
    EXPECT_EQ(a[0], Mark::kNone);
    EXPECT_EQ(a[kMost - 1], Mark::kNone);
}

template <class C>
void TurnsBothWays() {
    C c;
    for (const Mark mark : {Mark::kSet, Mark::kNone, Mark::kNone})
        c.Append(mark);
    c.Rotate(0, 2);
    EXPECT_EQ(c[2], Mark::kSet);
    c.Rotate(2, 1);
    EXPECT_EQ(c[1], Mark::kSet);
}

TEST(NarrowLong, ContainersTurnBothWays) {
    TurnsBothWays<QcDynArray<Mark>>();
    TurnsBothWays<QcDList<Mark>>();
}

}  // namespace
