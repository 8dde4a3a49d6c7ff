// The containers of owned pointers: who deletes what and when, and the operations that compare objects.
#include "TestElements.h"
#include "containers/QcDynPArray.h"
#include "containers/QcPDList.h"
#include "containers/QcPXList.h"

namespace {

// -1 stands for a null slot.
template <class C>
void FillObjects(C& to, const Ints& from) {
    for (const int n : from)
        to.Append(n < 0 ? nullptr : new Counted(n));
    to.MoveTo(-1);
}
Ints Values(const QcDynArrayBase<Counted*>& all) {
    Ints values;
    for (const Counted* p : Elements(all))
        values.push_back(p == nullptr ? -1 : p->Value());
    return values;
}

template <class C>
class Owner : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(Counted::s_alive, 0);
        EXPECT_EQ(Derived::s_derived, 0);
    }
};
using Kinds = testing::Types<QcDynPArray<Counted>, QcPDList<Counted>, QcPXList<Counted>>;
TYPED_TEST_SUITE(Owner, Kinds);

TYPED_TEST(Owner, DeletesDerivedObjectsThroughTheirDestructor) {
    TypeParam c;
    c.PlaceIn(new Derived(1));
    c.Append(new Derived(2));
    c << new Derived(3);
    EXPECT_EQ(Derived::s_derived, 3);
    c.Del(1);
    EXPECT_EQ(Derived::s_derived, 2);
    c.Reset();
    EXPECT_EQ(Derived::s_derived, 0);
    c.Append(new Derived(4));
}

TYPED_TEST(Owner, DelCurDeletesTheObjectAndTheSlot) {
    TypeParam c;
    FillObjects(c, {1, 2, -1});
    c.MoveTo(1);
    c.DelCur();
    EXPECT_EQ(Counted::s_alive, 1);
    EXPECT_EQ(Values(c), (Ints{1, -1}));
    EXPECT_EQ(c.GetCurPos(), 0);
    c.DelTail();
    c.MoveTo(-1);
    c.DelCur();
    EXPECT_EQ(Values(c), Ints{1});
}

TYPED_TEST(Owner, ReleaseKeepsTheSlots) {
    TypeParam c;
    FillObjects(c, {1, 2, 3, 4, 5});
    c.Release(1);
    EXPECT_TRUE(c.IsCurEmpty());
    EXPECT_TRUE(c.IsEmptyData(1));
    EXPECT_FALSE(c.IsEmptyData(0));
    EXPECT_TRUE(c.IsEmptyData(5));
    EXPECT_EQ(c.GetDataNum(), 4);
    EXPECT_EQ(c.GetLength(), 5);
    c.Release(9);
    c.ReleaseCur();
    EXPECT_TRUE(c.IsCurEmpty());
    EXPECT_EQ(Counted::s_alive, 4);
    c.ReleaseAll();
    EXPECT_EQ(Counted::s_alive, 0);
    EXPECT_EQ(c.GetLength(), 5);
    EXPECT_EQ(c.GetDataNum(), 0);
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(Owner, TakeOffHandsTheObjectBack) {
    TypeParam c;
    FillObjects(c, {1, 2, 3, 4});
    EXPECT_EQ(c.TakeOffCur(), nullptr);
    EXPECT_EQ(c.TakeOff(4), nullptr);
    EXPECT_EQ(c.GetLength(), 4);
    Counted* p = c.TakeOff(2);
    EXPECT_EQ(p->Value(), 3);
    EXPECT_EQ(c.GetCurPos(), 1);
    delete p;
    p = c.TakeOffHead();
    EXPECT_EQ(p->Value(), 1);
    delete p;
    p = c.TakeOffTail();
    EXPECT_EQ(p->Value(), 4);
    delete p;
    EXPECT_EQ(Values(c), Ints{2});
    c.Release(0);
    EXPECT_EQ(c.TakeOffHead(), nullptr);
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Owner, FindDelRemovesTheFirstSlotOfThePointer) {
    TypeParam c;
    FillObjects(c, {1, 1, -1, 1});
    Counted* const p = c.GetPData(1);
    Counted stranger(1);
    EXPECT_EQ(c.FindDel(&stranger), 0);
    EXPECT_EQ(c.FindDel(p), 1);
    EXPECT_EQ(c.FindDel(p), 0);
    EXPECT_EQ(Values(c), (Ints{1, -1, 1}));
    EXPECT_EQ(c.FindDel(nullptr), 1);
    EXPECT_EQ(Values(c), (Ints{1, 1}));
}

TYPED_TEST(Owner, GivesPointers) {
    TypeParam c;
    FillObjects(c, {1, -1});
    EXPECT_EQ(c.GetPData(0)->Value(), 1);
    EXPECT_EQ(c.GetPData(1), nullptr);
    EXPECT_EQ(c.GetPData(2), nullptr);
    EXPECT_EQ(c.GetPData(-1), nullptr);
    EXPECT_EQ(c.GetCurPData(), nullptr);
    c.MoveToFirst();
    EXPECT_EQ(c.GetCurPData()->Value(), 1);
    EXPECT_EQ(c[0], c.GetCurPData());
    EXPECT_EQ(c[7], nullptr);
    EXPECT_EQ(c.GetDataNum(), 1);
}

TYPED_TEST(Owner, ReplacingDeletesTheOldObject) {
    TypeParam c;
    FillObjects(c, {1, 2});
    c.MoveTo(0);
    c.SetCurData(new Counted(5));
    EXPECT_EQ(Counted::s_alive, 2);
    c.SetCurData(c.GetCurPData());
    EXPECT_EQ(Values(c), (Ints{5, 2}));
    c.MoveTo(-1);
    Counted kept(6);
    c.SetCurData(&kept);
    EXPECT_EQ(Values(c), (Ints{5, 2}));
}

TYPED_TEST(Owner, DroppedSlotsDeleteTheirObjects) {
    TypeParam c;
    FillObjects(c, {1, 2, 3, 4, 5, 6});
    c.SetLength(5, true);
    EXPECT_EQ(Counted::s_alive, 5);
    c.DecreaseSize(1);
    EXPECT_EQ(Counted::s_alive, 4);
    c.MoveTo(2);
    EXPECT_EQ(c.DetachAfterCur(), 1);
    EXPECT_EQ(Values(c), (Ints{1, 2, 3}));
    c.ReAllocate(5);
    EXPECT_EQ(Values(c), (Ints{1, 2, 3, -1, -1}));
    c.SetLength(4, false);
    EXPECT_EQ(Values(c), (Ints{-1, -1, -1, -1}));
    EXPECT_EQ(Counted::s_alive, 0);
    c.SetLength(0, false);
    EXPECT_TRUE(c.IsEmpty());
}

TYPED_TEST(Owner, FindsByObjectAndPassesNullsOver) {
    TypeParam c;
    FillObjects(c, {-1, 1, 2, -1, 1});
    const Counted one(1);
    EXPECT_EQ(c.FindData(one), 1);
    EXPECT_EQ(c.FindData(&one, 2, -1), 4);
    EXPECT_EQ(c.FindData(one, 2, 3), -1);
    EXPECT_EQ(c.FindData(nullptr), -1);
    EXPECT_EQ(c.FindData(Counted(9)), -1);
    QcQuene<long> hits;
    EXPECT_EQ(c.FindData(one, hits, 0, -1), 2);
    EXPECT_EQ(*hits.GetFirst(), 1);
    EXPECT_EQ(*hits.GetLast(), 4);
    EXPECT_TRUE(c.FindDataTo(one, 0));
    EXPECT_EQ(c.GetCurPos(), 1);
    EXPECT_TRUE(c.FindDataTo(&one, 2));
    EXPECT_EQ(c.GetCurPos(), 4);
    EXPECT_FALSE(c.FindDataTo(nullptr, 0));
    EXPECT_TRUE(c.IsOut());
}

TYPED_TEST(Owner, RemovesByObjectAlsoOneOfItsOwn) {
    TypeParam c;
    FillObjects(c, {1, 1, -1, 2, 1});
    EXPECT_EQ(c.FindDataDel(*c.GetPData(0)), 3);
    EXPECT_EQ(Values(c), (Ints{-1, 2}));
    EXPECT_EQ(Counted::s_alive, 1);
    EXPECT_EQ(c.FindDataDel(nullptr), 0);
    EXPECT_EQ(c.FindDataDel(c.GetPData(1)), 1);
    EXPECT_EQ(Values(c), Ints{-1});
}

TYPED_TEST(Owner, AddsWhatItDoesNotFind) {
    TypeParam c;
    FillObjects(c, {1, -1});
    Counted one(1);
    EXPECT_EQ(c.FindDataOrAppend(&one), 0);
    EXPECT_FALSE(c.FindDataOrInsertHead(&one));
    EXPECT_EQ(c.FindDataOrAppend(new Counted(2)), 2);
    EXPECT_TRUE(c.FindDataOrInsertHead(new Counted(0)));
    EXPECT_EQ(c.FindDataOrAppend(nullptr), -1);
    EXPECT_FALSE(c.FindDataOrInsertHead(nullptr));
    EXPECT_EQ(Values(c), (Ints{0, 1, -1, 2}));
}

TYPED_TEST(Owner, SortsAndBisectsObjectsWithNullsBehind) {
    TypeParam c;
    FillObjects(c, {3, -1, 1, 2, -1});
    c.SortEx(true);
    EXPECT_EQ(Values(c), (Ints{1, 2, 3, -1, -1}));
    EXPECT_TRUE(c.BFindData(Counted(2)));
    EXPECT_FALSE(c.BFindData(Counted(5)));
    EXPECT_FALSE(c.BFindData(nullptr));
    EXPECT_TRUE(c.BFindDataTo(Counted(3)));
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_FALSE(c.BFindDataTo(Counted(9)));
    EXPECT_EQ(c.GetCurPos(), 3);
    EXPECT_FALSE(c.BFindDataTo(nullptr));
    EXPECT_TRUE(c.IsOut());
    c.SortEx(false);
    EXPECT_EQ(Values(c), (Ints{3, 2, 1, -1, -1}));
}

TYPED_TEST(Owner, ARefusedSortedInsertionLeavesTheObject) {
    TypeParam c;
    for (const int n : {5, 1, 3})
        EXPECT_TRUE(c.SortInto(new Counted(n), false));
    Counted* const p = new Counted(3);
    EXPECT_FALSE(c.SortInto(p, false));
    EXPECT_EQ(p->Value(), 3);
    EXPECT_TRUE(c.SortInto(p, true));
    EXPECT_EQ(Values(c), (Ints{1, 3, 3, 5}));
    EXPECT_EQ(c.GetPData(2), p);
    EXPECT_FALSE(c.SortInto(nullptr, true));
    EXPECT_EQ(c.GetLength(), 4);
}

TYPED_TEST(Owner, CopiesObjectsAndNeverShares) {
    TypeParam c;
    FillObjects(c, {1, -1, 2});
    TypeParam copy(c);
    EXPECT_EQ(Values(copy), (Ints{1, -1, 2}));
    EXPECT_NE(copy.GetPData(0), c.GetPData(0));
    EXPECT_TRUE(copy == c);
    copy.Release(0);
    EXPECT_TRUE(copy != c);
    copy = c;
    EXPECT_TRUE(copy == c);
    TypeParam& self = copy;
    copy = self;
    copy << copy << c;
    EXPECT_EQ(Values(copy), (Ints{1, -1, 2, 1, -1, 2, 1, -1, 2}));
    EXPECT_EQ(Counted::s_alive, 8);
    QcList<Counted*> view(c);
    EXPECT_EQ(view.GetAt(0)[0], c.GetPData(0));
    copy = view;
    TypeParam fromView(view);
    EXPECT_TRUE(fromView == c);
    QcArray<Counted*> plain(1);
    fromView << plain;
    fromView.DeepCopy(plain);
    EXPECT_EQ(Values(fromView), Ints{-1});
    c = TypeParam();
    EXPECT_TRUE(c.IsEmpty());
    EXPECT_EQ(Counted::s_alive, 2);
}

TYPED_TEST(Owner, NeverSharesThroughABaseReference) {
    TypeParam c;
    FillObjects(c, {1, 2});
    TypeParam other;
    FillObjects(other, {7});
    QcDynArrayBase<Counted*>& base = other;
    const QcDynArrayBase<Counted*>& from = c;
    base << from;
    base = from;
    base.DeepCopy(from);
    base << QcArray<Counted*>(2);
    base.SetAll(c.GetPData(0));
    from.Left(1, base);
    EXPECT_EQ(Values(other), Ints{7});
}

TYPED_TEST(Owner, CopiesRunsOfObjects) {
    TypeParam c;
    FillObjects(c, {1, 2, 3, 4});
    TypeParam out;
    FillObjects(out, {9});
    c.Mid(1, 2, out);
    EXPECT_EQ(Values(out), (Ints{2, 3}));
    EXPECT_NE(out.GetPData(0), c.GetPData(1));
    c.Left(1, out);
    EXPECT_EQ(Values(out), Ints{1});
    QcDynArray<Counted*> view;
    c.Right(2, view);
    EXPECT_EQ(view[1], c.GetPData(3));
    QcDynPArray<Counted> array;
    c.Right(1, array);
    EXPECT_EQ(Values(array), Ints{4});
    c.Mid(1, 2, c);
    EXPECT_EQ(Values(c), (Ints{2, 3}));
    c.Mid(-1, 2, out);
    EXPECT_TRUE(out.IsEmpty());
}

TYPED_TEST(Owner, FillsWithCopies) {
    TypeParam c;
    FillObjects(c, {1, -1, 3});
    c.SetAll(c.GetPData(2));
    EXPECT_EQ(Values(c), (Ints{3, 3, 3}));
    EXPECT_NE(c.GetPData(0), c.GetPData(1));
    c.SetAll(nullptr);
    EXPECT_EQ(c.GetDataNum(), 0);
}

TYPED_TEST(Owner, ComparesObjectsPairwise) {
    TypeParam a;
    TypeParam b;
    FillObjects(a, {1, -1});
    FillObjects(b, {1, -1});
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a < b);
    b.Append(new Counted(0));
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b > a);
    b.Release(0);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b);
}

TYPED_TEST(Owner, MovesObjectsBetweenOwners) {
    TypeParam c;
    FillObjects(c, {1, 2});
    QcPDList<Counted> other;
    FillObjects(other, {8, 9});
    EXPECT_EQ(c.Conbine(other, 1), 4);
    EXPECT_EQ(Values(c), (Ints{1, 8, 9, 2}));
    EXPECT_EQ(Counted::s_alive, 4);
    c.ReverseList();
    c.Exchange(0, 1);
    c.Reverse(0, -1);
    c.Rotate(0, 1);
    c.Move(0, 2);
    EXPECT_EQ(Counted::s_alive, 4);
    EXPECT_EQ(c.GetDataNum(), 4);
}

TEST(QcPDList, CutsAndSplitsWithItsObjects) {
    {
        QcPDList<Counted> list(2);
        EXPECT_EQ(list.GetDataNum(), 0);
        FillObjects(list, {1, 2, 3, 4});
        EXPECT_EQ(list.DetachAfter(4), 1);
        EXPECT_EQ(list.DetachAfter(-2), 0);
        EXPECT_EQ(list.DetachAfter(9), 0);
        EXPECT_EQ(list.DetachAfter(std::numeric_limits<long>::max()), 0);
        EXPECT_EQ(Counted::s_alive, 3);
        QcPDList<Counted> other;
        FillObjects(other, {7});
        EXPECT_EQ(list.SplitAt(2, other), 2);
        EXPECT_EQ(Values(list), (Ints{-1, -1, 1}));
        EXPECT_EQ(Values(other), (Ints{2, 3}));
        EXPECT_EQ(Counted::s_alive, 3);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(QcDynPArray, BuffersCarryTheirObjects) {
    {
        QcDynPArray<Counted> a(3, 4);
        EXPECT_EQ(a.GetSpaceSize(), 3);
        EXPECT_EQ(a.GetAllocUnit(), 4);
        FillObjects(a, {1, 2});
        Counted** const buffer = a.Detach();
        FillObjects(a, {3});
        a.Attach(2, buffer);
        EXPECT_EQ(Values(a), (Ints{1, 2}));
        EXPECT_EQ(Counted::s_alive, 2);
        a.ReAllocate(1);
        EXPECT_EQ(Counted::s_alive, 1);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(QcPXList, BringsEqualObjectsTogether) {
    {
        QcPXList<Counted> list;
        FillObjects(list, {1, 2, -1, 2, 1});
        EXPECT_EQ(list.UpdateGroup(3), 2);
        EXPECT_EQ(Values(list), (Ints{1, 2, 2, -1, 1}));
        EXPECT_EQ(list.UpdateGroup(3), 0);
        EXPECT_EQ(list.UpdateGroup(9), 0);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(PointerOwner, CopiesWhatCanCloneAsWhatItIs) {
    {
        QcPDList<Cloning> list;
        list.Append(new CloningMore(4));
        list.Append(new Cloning(5));
        const QcPDList<Cloning> copy(list);
        EXPECT_EQ(copy.GetPData(0)->Kind(), 1);
        EXPECT_EQ(copy.GetPData(1)->Kind(), 0);
        EXPECT_EQ(copy.GetPData(0)->m_n, 4);
        EXPECT_EQ(Cloning::s_alive, 4);
    }
    EXPECT_EQ(Cloning::s_alive, 0);
}

TEST(PointerOwner, LeavesNullWhereAnObjectCannotBeCopied) {
    QcDynPArray<AssignOnly> a;
    a.Append(new AssignOnly(3));
    QcDynPArray<AssignOnly> copy(a);
    EXPECT_EQ(copy.GetLength(), 1);
    EXPECT_EQ(copy.GetPData(0), nullptr);
    EXPECT_EQ(a.GetPData(0)->m_n, 3);
}

}  // namespace
