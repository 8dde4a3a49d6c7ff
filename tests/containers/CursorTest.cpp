// What arrays and lists have in common: the cursor, the algorithms, whole containers. Every test runs on each of them.
#include "EveryContainer.h"

namespace {

template <class C>
class Container : public EveryContainer<C> {};
TYPED_TEST_SUITE(Container, ContainerKinds);

TYPED_TEST(Container, StartsEmptyWithTheCursorOut) {
    TypeParam c;
    EXPECT_TRUE(c.IsEmpty());
    EXPECT_EQ(c.GetLength(), 0);
    EXPECT_EQ(c.GetMaxIndex(), -1);
    EXPECT_EQ(c.GetCurPos(), -1);
    EXPECT_TRUE(c.IsOut());
    EXPECT_TRUE(c.IsEnd());
    EXPECT_FALSE(c.IsBegin());
    EXPECT_FALSE(c.IsValidIndex(0));
    EXPECT_EQ(c.GetFirst(), nullptr);
    EXPECT_EQ(c.GetLast(), nullptr);
    EXPECT_EQ(c.GetAt(0), nullptr);
    EXPECT_EQ(c.GetNext(nullptr), nullptr);
    EXPECT_EQ(c.GetPre(nullptr), nullptr);
}

TYPED_TEST(Container, MovesNowhereWhenEmpty) {
    TypeParam c;
    c.MoveToFirst();
    EXPECT_EQ(c.GetCurPos(), -1);
    c.MoveToNext();
    EXPECT_EQ(c.GetCurPos(), -1);
    c.MoveToPre();
    EXPECT_EQ(c.GetCurPos(), -1);
    c.MoveToLast();
    EXPECT_EQ(c.GetCurPos(), -1);
    c.MoveTo(0);
    EXPECT_EQ(c.GetCurPos(), -1);
}

TYPED_TEST(Container, EditsNothingWhenEmpty) {
    TypeParam c;
    c.DelCur();
    c.Del(0);
    c.DelHead();
    c.DelTail();
    c.Exchange(0, 0);
    c.Reverse(0, -1);
    c.ReverseList();
    c.Rotate(0, 0);
    c.Sort(true);
    c.SetAll(3);
    c.DecreaseSize(1);
    c.SetCurData(5);
    EXPECT_FALSE(c.Move(0, 0));
    EXPECT_EQ(c.DetachAfterCur(), 0);
    EXPECT_EQ(c.FindDel(1), 0);
    EXPECT_FALSE(c.BFind(1));
    EXPECT_EQ(c.Find(1), -1);
    EXPECT_EQ(c.GetLength(), 0);
}

TYPED_TEST(Container, StepsForwardThroughAllAndThenOutAndIn) {
    TypeParam c = this->Make({7, 8, 9});
    Ints seen;
    for (c.MoveToFirst(); !c.IsOut(); c.MoveToNext()) {
        EXPECT_EQ(c.IsBegin(), seen.empty());
        EXPECT_EQ(c.GetCurPos(), static_cast<long>(seen.size()));
        seen.push_back(c.GetCurData());
    }
    EXPECT_EQ(seen, (Ints{7, 8, 9}));
    c.MoveToNext();
    EXPECT_EQ(c.GetCurPos(), 0);
    EXPECT_EQ(c.GetCur(), 7);
}

TYPED_TEST(Container, StepsBackwardThroughAllAndThenOutAndIn) {
    TypeParam c = this->Make({7, 8, 9});
    Ints seen;
    for (c.MoveToLast(); !c.IsOut(); c.MoveToPre())
        seen.push_back(c.GetCurData());
    EXPECT_EQ(seen, (Ints{9, 8, 7}));
    c.MoveToPre();
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_EQ(c.GetCur(), 9);
}

TYPED_TEST(Container, MovesToAnIndexFromAnyOther) {
    TypeParam c = this->Make({0, 10, 20, 30, 40});
    for (long from = -1; from < 5; ++from) {
        for (long to = -2; to < 7; ++to) {
            c.MoveTo(from);
            c.MoveTo(to);
            const bool isInside = to >= 0 && to < 5;
            EXPECT_EQ(c.GetCurPos(), isInside ? to : -1);
            EXPECT_EQ(c.GetCurData(), isInside ? 10 * to : 0);
        }
    }
    c.MoveTo(1L << 40);
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(Container, FirstLastAndGetToMoveAndGive) {
    TypeParam c = this->Make({1, 2, 3});
    EXPECT_EQ(c.Last(), 3);
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_EQ(c.First(), 1);
    EXPECT_EQ(c.GetCurPos(), 0);
    EXPECT_EQ(c.GetTo(1), 2);
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetTo(3), 0);
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(Container, GivesFreshDefaultElementsWhereThereIsNone) {
    TypeParam c = this->Make({1});
    c[5] = 9;
    EXPECT_EQ(c[5], 0);
    EXPECT_EQ(c[-1], 0);
    c.GetCurData() = 9;
    EXPECT_EQ(c.GetCurData(), 0);
    const TypeParam& fixed = c;
    EXPECT_EQ(fixed[5], 0);
    EXPECT_EQ(fixed[0], 1);
    EXPECT_EQ(Elements(c), Ints{1});
}

TYPED_TEST(Container, ElementAccessLeavesTheCursorAlone) {
    TypeParam c = this->Make({1, 2, 3});
    c.MoveTo(1);
    EXPECT_EQ(c[2], 3);
    c[2] = 30;
    EXPECT_EQ(*c.GetFirst(), 1);
    EXPECT_EQ(*c.GetLast(), 30);
    EXPECT_EQ(*c.GetNext(c.GetFirst()), 2);
    EXPECT_EQ(*c.GetPre(c.GetLast()), 2);
    EXPECT_EQ(c.GetNext(c.GetLast()), nullptr);
    EXPECT_EQ(c.GetPre(c.GetFirst()), nullptr);
    EXPECT_EQ(c.GetAt(3), nullptr);
    EXPECT_EQ(c.GetAt(-1), nullptr);
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetCur(), 2);
}

TYPED_TEST(Container, ReplacesTheCurrentElementOnly) {
    TypeParam c = this->Make({1, 2, 3});
    c.SetCurData(5);
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3}));
    c.MoveTo(1);
    c.SetCurData(c[2]);
    EXPECT_EQ(Elements(c), (Ints{1, 3, 3}));
}

TYPED_TEST(Container, InsertsAtTheCursorAndStaysOnTheNewElement) {
    for (long i = 0; i < 3; ++i) {
        TypeParam c = this->Make({1, 2, 3});
        Ints expected{1, 2, 3};
        expected.insert(expected.begin() + i, 9);
        c.MoveTo(i);
        c.InsertCur(9);
        EXPECT_EQ(Elements(c), expected);
        EXPECT_EQ(c.GetCurPos(), i);
        EXPECT_EQ(c.GetCur(), 9);
    }
}

TYPED_TEST(Container, InsertsAtTheEndWhenTheCursorIsOut) {
    TypeParam c = this->Make({1, 2});
    c.InsertCur(3);
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3}));
    EXPECT_EQ(c.GetCurPos(), 2);
}

TYPED_TEST(Container, InsertsBehindTheCursor) {
    TypeParam c = this->Make({1, 2});
    c.InsertAfterCur(0);
    EXPECT_EQ(Elements(c), (Ints{0, 1, 2}));
    EXPECT_EQ(c.GetCurPos(), 0);
    c.MoveToLast();
    c.InsertAfterCur(9);
    EXPECT_EQ(Elements(c), (Ints{0, 1, 2, 9}));
    EXPECT_EQ(c.GetCurPos(), 3);
    EXPECT_EQ(*c.GetLast(), 9);
    c.MoveTo(1);
    c.InsertAfterCur(5);
    EXPECT_EQ(Elements(c), (Ints{0, 1, 5, 2, 9}));
    EXPECT_EQ(c.GetCurPos(), 2);
}

TYPED_TEST(Container, InsertsByIndexHeadAndEnd) {
    TypeParam c;
    c.Insert(0, 5);
    c.InsertHead(3);
    EXPECT_EQ(c.GetCurPos(), 0);
    c.Append(9);
    EXPECT_EQ(c.GetCurPos(), 2);
    c.Insert(2, 7);
    EXPECT_EQ(c.GetCurPos(), 2);
    c.Insert(4, 10);
    c.Insert(-1, 11);
    c.Insert(100, 12);
    EXPECT_EQ(Elements(c), (Ints{3, 5, 7, 9, 10, 11, 12}));
    c << 13 << 14;
    EXPECT_EQ(*c.GetLast(), 14);
    EXPECT_EQ(c.GetLength(), 9);
}

TYPED_TEST(Container, TakesItsOwnElementsAsArguments) {
    TypeParam c = this->Make({1, 2, 3});
    for (int round = 0; round < 40; ++round) {
        c.Append(*c.GetFirst());
        c.InsertHead(*c.GetLast());
        c.Insert(1, c[2]);
        c.MoveTo(1);
        c.InsertCur(c.GetCur());
        c.InsertAfterCur(c[0]);
        EXPECT_EQ(*c.GetLast(), *c.GetFirst());
    }
    EXPECT_EQ(c.GetLength(), 3 + 5 * 40);
    const long ones = c.FindDel(*c.GetFirst());
    EXPECT_GT(ones, 1);
    EXPECT_EQ(c.Find(1), -1);
    EXPECT_TRUE(c.SortInto(c[0], true));
    c.SetAll(*c.GetLast());
    EXPECT_EQ(c.Find(3, 0, -1), c[0] == 3 ? 0 : -1);
}

TYPED_TEST(Container, RemovingStepsTheCursorBack) {
    TypeParam c = this->Make({1, 2, 3, 4});
    c.MoveTo(2);
    c.DelCur();
    EXPECT_EQ(Elements(c), (Ints{1, 2, 4}));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetCur(), 2);
    c.MoveToNext();
    EXPECT_EQ(c.GetCur(), 4);
    c.DelCur();
    EXPECT_EQ(*c.GetLast(), 2);
    c.MoveToFirst();
    c.DelCur();
    EXPECT_TRUE(c.IsOut());
    c.DelCur();
    EXPECT_EQ(Elements(c), Ints{2});
    c.MoveToNext();
    EXPECT_EQ(c.GetCur(), 2);
    c.DelCur();
    EXPECT_TRUE(c.IsEmpty());
    c.Append(6);
    EXPECT_EQ(Elements(c), Ints{6});
}

TYPED_TEST(Container, RemovesByIndexHeadAndTail) {
    TypeParam c = this->Make({1, 2, 3, 4, 5});
    c.Del(2);
    EXPECT_EQ(c.GetCurPos(), 1);
    c.DelHead();
    EXPECT_TRUE(c.IsOut());
    c.DelTail();
    EXPECT_EQ(Elements(c), (Ints{2, 4}));
    EXPECT_EQ(c.GetCurPos(), 1);
    c.Del(2);
    c.Del(-1);
    EXPECT_EQ(Elements(c), (Ints{2, 4}));
}

TYPED_TEST(Container, ReversesRuns) {
    TypeParam even = this->Make({1, 2, 3, 4});
    even.MoveTo(1);
    even.Reverse(0, -1);
    EXPECT_EQ(Elements(even), (Ints{4, 3, 2, 1}));
    EXPECT_EQ(even.GetCurPos(), 1);
    TypeParam odd = this->Make({1, 2, 3, 4, 5});
    odd.Reverse(0, -1);
    EXPECT_EQ(Elements(odd), (Ints{5, 4, 3, 2, 1}));
    odd.Reverse(1, 3);
    EXPECT_EQ(Elements(odd), (Ints{5, 2, 3, 4, 1}));
    odd.Reverse(3, 1);
    odd.Reverse(-1, 2);
    odd.Reverse(5, -1);
    EXPECT_EQ(Elements(odd), (Ints{5, 2, 3, 4, 1}));
}

TYPED_TEST(Container, ReversesRotatesAndMovesWithTheCursorsIndexKept) {
    TypeParam c = this->Make({1, 2, 3, 4, 5});
    c.MoveTo(1);
    c.ReverseList();
    EXPECT_EQ(Elements(c), (Ints{5, 4, 3, 2, 1}));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetCur(), 4);
    c.Rotate(0, 2);
    EXPECT_EQ(Elements(c), (Ints{2, 1, 5, 4, 3}));
    EXPECT_EQ(c.GetCur(), 1);
    c.Rotate(2, 0);
    EXPECT_EQ(Elements(c), (Ints{5, 4, 3, 2, 1}));
    c.Rotate(5, 0);
    c.Rotate(0, -1);
    EXPECT_EQ(Elements(c), (Ints{5, 4, 3, 2, 1}));
    EXPECT_TRUE(c.Move(0, 3));
    EXPECT_EQ(Elements(c), (Ints{4, 3, 2, 5, 1}));
    EXPECT_TRUE(c.Move(4, 0));
    EXPECT_EQ(Elements(c), (Ints{1, 4, 3, 2, 5}));
    EXPECT_TRUE(c.Move(2, 2));
    EXPECT_FALSE(c.Move(0, 5));
    EXPECT_FALSE(c.Move(-1, 0));
    EXPECT_EQ(Elements(c), (Ints{1, 4, 3, 2, 5}));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetCur(), 4);
}

TYPED_TEST(Container, ExchangesTwoElements) {
    TypeParam c = this->Make({1, 2, 3});
    c.Exchange(0, 2);
    c.Exchange(1, 1);
    c.Exchange(0, 3);
    c.Exchange(-1, 0);
    EXPECT_EQ(Elements(c), (Ints{3, 2, 1}));
}

TYPED_TEST(Container, SortsUpDownAndByFunction) {
    TypeParam c = this->Make({3, 1, 4, 1, 5, 9, 2, 6});
    c.MoveTo(2);
    c.Sort(true);
    EXPECT_EQ(Elements(c), (Ints{1, 1, 2, 3, 4, 5, 6, 9}));
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_EQ(c.GetCur(), 2);
    c.Sort(false);
    EXPECT_EQ(Elements(c), (Ints{9, 6, 5, 4, 3, 2, 1, 1}));
    c.Sort(nullptr);
    EXPECT_EQ(*c.GetFirst(), 9);
    c.Sort([](const int& a, const int& b) { return a % 3 - b % 3; });
    EXPECT_EQ(Elements(c), (Ints{9, 6, 3, 4, 1, 1, 5, 2}));
    c.MoveToFirst();
    c.MoveToNext();
    c.DelCur();
    EXPECT_EQ(Elements(c), (Ints{9, 3, 4, 1, 1, 5, 2}));
}

TYPED_TEST(Container, ChangesItsCountByN) {
    TypeParam c = this->Make({1, 2, 3});
    c.MoveTo(1);
    c.IncreaseSize(2);
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3, 0, 0}));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.GetCur(), 2);
    c.DecreaseSize(3);
    EXPECT_EQ(Elements(c), (Ints{1, 2}));
    EXPECT_EQ(c.GetCurPos(), 1);
    c.DecreaseSize(1);
    EXPECT_TRUE(c.IsOut());
    c.IncreaseSize(0);
    c.IncreaseSize(-5);
    c.DecreaseSize(-5);
    EXPECT_EQ(Elements(c), Ints{1});
    c.DecreaseSize(100);
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Container, SetsItsLength) {
    TypeParam c = this->Make({1, 2, 3});
    c.SetLength(5, true);
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3, 0, 0}));
    c.SetLength(2, true);
    EXPECT_EQ(Elements(c), (Ints{1, 2}));
    c.SetLength(4, false);
    EXPECT_EQ(c.GetLength(), 4);
    c.MoveToLast();
    c.SetLength(2, true);
    EXPECT_TRUE(c.IsOut());
    c.SetLength(-1, true);
    EXPECT_TRUE(c.IsEmpty());
    c.Append(4);
    c.Reset();
    EXPECT_TRUE(c.IsEmpty());
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(Container, RefusesAbsurdSizes) {
    TypeParam c = this->Make({1, 2});
    for (const long n : {1L << 31, 1L << 40, std::numeric_limits<long>::max()}) {
        c.ReAllocate(n);
        c.SetLength(n, true);
        c.SetLength(n, false);
        c.IncreaseSize(n);
        TypeParam huge(n);
        EXPECT_TRUE(huge.IsEmpty());
    }
    TypeParam negative(-5);
    EXPECT_TRUE(negative.IsEmpty());
    c.IncreaseSize(std::numeric_limits<long>::min());
    c.DecreaseSize(std::numeric_limits<long>::min());
    EXPECT_EQ(Elements(c), (Ints{1, 2}));
}

TYPED_TEST(Container, FillsAllElements) {
    TypeParam c = this->Make({1, 2, 3});
    c.SetAll(c[1]);
    EXPECT_EQ(Elements(c), (Ints{2, 2, 2}));
}

TYPED_TEST(Container, AppendsWholeContainersItselfIncluded) {
    TypeParam c = this->Make({1, 2});
    QcDynArray<int> array;
    Fill(array, Ints{3, 4});
    QcDList<int> list;
    Fill(list, Ints{5});
    QcArray<int> plain(2);
    plain[1] = 6;
    c << array << list << plain << QcArray<int>() << TypeParam();
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3, 4, 5, 0, 6}));
    EXPECT_EQ(c.GetCurPos(), 6);
    c << c;
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3, 4, 5, 0, 6, 1, 2, 3, 4, 5, 0, 6}));
}

TYPED_TEST(Container, CopiesWholeContainers) {
    TypeParam c = this->Make({1, 2, 3});
    c.MoveTo(1);
    TypeParam copy(c);
    EXPECT_TRUE(copy.IsOut());
    copy[0] = 9;
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3}));
    EXPECT_EQ(Elements(copy), (Ints{9, 2, 3}));
    copy = c;
    EXPECT_EQ(Elements(copy), (Ints{1, 2, 3}));
    TypeParam& self = copy;
    copy = self;
    copy.DeepCopy(self);
    EXPECT_EQ(Elements(copy), (Ints{1, 2, 3}));
    QcDynArray<int> array(c);
    EXPECT_EQ(Elements(array), (Ints{1, 2, 3}));
    array.Append(4);
    c = array;
    EXPECT_EQ(Elements(c), (Ints{1, 2, 3, 4}));
    QcArray<int> plain(2);
    c.DeepCopy(plain);
    EXPECT_EQ(Elements(c), (Ints{0, 0}));
    plain[0] = 7;
    c = plain;
    EXPECT_EQ(Elements(c), (Ints{7, 0}));
    c = TypeParam();
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Container, CopiesRuns) {
    const TypeParam c = this->Make({1, 2, 3, 4, 5});
    QcList<int> out;
    out.Append(99);
    c.Left(2, out);
    EXPECT_EQ(Elements(out), (Ints{1, 2}));
    EXPECT_TRUE(out.IsOut());
    c.Right(2, out);
    EXPECT_EQ(Elements(out), (Ints{4, 5}));
    c.Mid(1, 3, out);
    EXPECT_EQ(Elements(out), (Ints{2, 3, 4}));
    c.Mid(3, 99, out);
    EXPECT_EQ(Elements(out), (Ints{4, 5}));
    c.Right(99, out);
    EXPECT_EQ(out.GetLength(), 5);
    for (const long n : {0L, -3L}) {
        c.Left(n, out);
        EXPECT_TRUE(out.IsEmpty());
        c.Right(n, out);
        EXPECT_TRUE(out.IsEmpty());
        c.Mid(n - 1, 2, out);
        EXPECT_TRUE(out.IsEmpty());
    }
    c.Mid(5, 1, out);
    EXPECT_TRUE(out.IsEmpty());
    out.Append(99);
    c.Right(std::numeric_limits<long>::min(), out);
    EXPECT_TRUE(out.IsEmpty());
}

TYPED_TEST(Container, CopiesARunOfItselfOntoItself) {
    TypeParam c = this->Make({1, 2, 3, 4, 5});
    c.Mid(1, 3, c);
    EXPECT_EQ(Elements(c), (Ints{2, 3, 4}));
    c.Right(2, c);
    EXPECT_EQ(Elements(c), (Ints{3, 4}));
    c.Left(1, c);
    EXPECT_EQ(Elements(c), Ints{3});
    c.Left(0, c);
    EXPECT_TRUE(c.IsEmpty());
    c.Append(1);
    c.Left(std::numeric_limits<long>::min(), c);
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Container, ComparesAcrossKinds) {
    TypeParam c = this->Make({1, 2});
    QcDynArray<int> same;
    Fill(same, Ints{1, 2});
    QcDList<int> greater;
    Fill(greater, Ints{1, 3});
    QcList<int> longer;
    Fill(longer, Ints{1, 2, 0});
    EXPECT_TRUE(c == same);
    EXPECT_FALSE(c != same);
    EXPECT_TRUE(c != greater);
    EXPECT_TRUE(c != longer);
    EXPECT_FALSE(c < same);
    EXPECT_FALSE(c > same);
    EXPECT_TRUE(c < greater);
    EXPECT_TRUE(greater > c);
    EXPECT_TRUE(c < longer);
    EXPECT_FALSE(longer < c);
    EXPECT_TRUE(TypeParam() < c);
    EXPECT_TRUE(TypeParam() == QcList<int>());
}

TYPED_TEST(Container, CutsOffBehindTheCursor) {
    TypeParam c = this->Make({1, 2, 3, 4});
    c.MoveTo(1);
    EXPECT_EQ(c.DetachAfterCur(), 2);
    EXPECT_EQ(Elements(c), (Ints{1, 2}));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_EQ(c.DetachAfterCur(), 0);
    c.Append(8);
    EXPECT_EQ(Elements(c), (Ints{1, 2, 8}));
    c.MoveTo(-1);
    EXPECT_EQ(c.DetachAfterCur(), 3);
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Container, TakesOverAListsElements) {
    for (long pos = -1; pos < 5; ++pos) {
        for (long cur = -1; cur < 3; ++cur) {
            TypeParam c = this->Make({1, 2, 3});
            QcDList<int> other;
            Fill(other, Ints{8, 9});
            other.MoveToFirst();
            c.MoveTo(cur);
            EXPECT_EQ(c.Conbine(other, pos), 5);
            Ints expected{1, 2, 3};
            const bool isInside = pos >= 0 && pos < 3;
            expected.insert(isInside ? expected.begin() + pos : expected.end(), {8, 9});
            EXPECT_EQ(Elements(c), expected);
            EXPECT_EQ(c.GetCurPos(), cur >= 0 && isInside && pos <= cur ? cur + 2 : cur);
            EXPECT_EQ(c.GetCurData(), cur + 1);
            EXPECT_TRUE(other.IsEmpty());
            EXPECT_TRUE(other.IsOut());
            other.Append(4);
            EXPECT_EQ(Elements(other), Ints{4});
            EXPECT_EQ(*c.GetLast(), expected.back());
            c.DelTail();
            c.DelCur();
        }
    }
    TypeParam c = this->Make({1});
    QcList<int> empty;
    EXPECT_EQ(c.Conbine(empty, 0), 1);
}

}  // namespace
