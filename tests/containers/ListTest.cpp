// What only linked lists can: keep an element at its address, cut, split and join; and the doubly linked one's links.
#include <limits>
#include <map>

#include "TestElements.h"
#include "containers/QcDList.h"
#include "containers/QcList.h"
#include "containers/QcXList.h"

namespace {

template <class L>
class Lists : public testing::Test {};
using Kinds = testing::Types<QcList<int>, QcDList<int>, QcXList<int>>;
TYPED_TEST_SUITE(Lists, Kinds);

TYPED_TEST(Lists, IsMadeWithDefaultElements) {
    TypeParam list(3);
    EXPECT_EQ(Elements(list), (Ints{0, 0, 0}));
    EXPECT_TRUE(list.IsOut());
    EXPECT_EQ(sizeof(list), sizeof(QcDynArrayBase<int>) + 3 * sizeof(void*));
}

TYPED_TEST(Lists, ReAllocateOnlyGrowsAndRestoresTheCursor) {
    TypeParam list;
    Fill(list, Ints{1, 2, 3});
    list.MoveTo(1);
    list.ReAllocate(5);
    EXPECT_EQ(Elements(list), (Ints{1, 2, 3, 0, 0}));
    EXPECT_EQ(list.GetCurPos(), 1);
    EXPECT_EQ(list.GetCur(), 2);
    list.ReAllocate(2);
    list.ReAllocate(-7);
    EXPECT_EQ(list.GetLength(), 5);
    list.Append(9);
    EXPECT_EQ(*list.GetLast(), 9);
}

TYPED_TEST(Lists, KeepsEachElementAtItsAddress) {
    TypeParam list;
    Fill(list, Ints{5, 3, 1, 4, 2});
    std::map<const int*, int> where;
    for (const int* p = list.GetFirst(); p != nullptr; p = list.GetNext(p))
        where[p] = *p;
    TypeParam other;
    Fill(other, Ints{7, 6});
    list.Sort(true);
    list.ReverseList();
    list.Rotate(0, 3);
    list.Move(1, 4);
    list.Conbine(other, 2);
    list.SplitAt(3, other);
    other.Conbine(list, 0);
    int seen = 0;
    for (const int* p = other.GetFirst(); p != nullptr; p = other.GetNext(p))
        seen += where.count(p) == 1 && where[p] == *p ? 1 : 0;
    EXPECT_EQ(seen, 5);
    EXPECT_EQ(other.GetLength(), 7);
}

TYPED_TEST(Lists, CutsOffBehindAnIndex) {
    TypeParam list;
    Fill(list, Ints{1, 2, 3, 4, 5});
    list.MoveTo(1);
    EXPECT_EQ(list.DetachAfter(3), 1);
    EXPECT_EQ(list.GetCur(), 2);
    EXPECT_EQ(list.DetachAfter(3), 0);
    EXPECT_EQ(list.DetachAfter(4), 0);
    EXPECT_EQ(list.DetachAfter(-2), 0);
    EXPECT_EQ(list.DetachAfter(std::numeric_limits<long>::max()), 0);
    list.ReAllocate(std::numeric_limits<long>::min());
    EXPECT_EQ(Elements(list), (Ints{1, 2, 3, 4}));
    EXPECT_EQ(list.DetachAfter(0), 3);
    EXPECT_TRUE(list.IsOut());
    EXPECT_EQ(list.DetachAfter(-1), 1);
    EXPECT_TRUE(list.IsEmpty());
}

TYPED_TEST(Lists, SplitsIntoASecondList) {
    TypeParam list;
    Fill(list, Ints{1, 2, 3, 4});
    QcList<int> single;
    QcDList<int> twofold;
    twofold.Append(99);
    list.MoveTo(2);
    EXPECT_EQ(list.SplitAtCur(single), 1);
    EXPECT_EQ(Elements(list), (Ints{1, 2, 3}));
    EXPECT_EQ(Elements(single), Ints{4});
    EXPECT_EQ(list.GetCur(), 3);
    EXPECT_EQ(list.SplitAt(0, twofold), 2);
    EXPECT_EQ(Elements(list), Ints{1});
    EXPECT_EQ(Elements(twofold), (Ints{2, 3}));
    EXPECT_TRUE(list.IsOut());
    EXPECT_EQ(list.SplitAt(0, single), 0);
    EXPECT_TRUE(single.IsEmpty());
    EXPECT_EQ(list.SplitAt(1, twofold), 0);
    EXPECT_EQ(list.SplitAt(-2, twofold), 0);
    EXPECT_EQ(list.SplitAt(-1, list), 0);
    EXPECT_EQ(Elements(twofold), (Ints{2, 3}));
    list.MoveTo(-1);
    EXPECT_EQ(list.SplitAtCur(single), 1);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(Elements(single), Ints{1});
    list.Append(6);
    single.Append(7);
    twofold.InsertHead(8);
    EXPECT_EQ(Elements(list), Ints{6});
    EXPECT_EQ(Elements(single), (Ints{1, 7}));
    EXPECT_EQ(Elements(twofold), (Ints{8, 2, 3}));
}

TYPED_TEST(Lists, JoinsBothKindsAndNotItself) {
    TypeParam list;
    Fill(list, Ints{1});
    QcList<int> single;
    Fill(single, Ints{2, 3});
    QcDList<int> twofold;
    Fill(twofold, Ints{4, 5});
    EXPECT_EQ(list.Conbine(single, -1), 3);
    EXPECT_EQ(list.Conbine(twofold, 0), 5);
    EXPECT_EQ(Elements(list), (Ints{4, 5, 1, 2, 3}));
    EXPECT_EQ(list.Conbine(list, 0), 5);
    EXPECT_EQ(Elements(list), (Ints{4, 5, 1, 2, 3}));
    twofold.Append(6);
    single.Append(7);
    EXPECT_EQ(Elements(twofold), Ints{6});
    EXPECT_EQ(Elements(single), Ints{7});
}

TYPED_TEST(Lists, RemovesAndInsertsWhereverTheCursorCameFrom) {
    TypeParam list;
    Fill(list, Ints{0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    list.MoveTo(5);
    list.MoveToNext();
    list.DelCur();
    list.DelCur();
    EXPECT_EQ(list.GetCur(), 4);
    list.InsertCur(40);
    list.InsertCur(41);
    list.MoveToNext();
    list.MoveToNext();
    EXPECT_EQ(list.GetCur(), 4);
    list.DelCur();
    EXPECT_EQ(list.GetCur(), 40);
    list.MoveToPre();
    list.MoveToPre();
    list.DelCur();
    list.InsertAfterCur(20);
    list.MoveToLast();
    list.DelCur();
    list.MoveToPre();
    list.DelCur();
    EXPECT_EQ(Elements(list), (Ints{0, 1, 2, 20, 41, 40, 8}));
    EXPECT_EQ(list.GetCur(), 40);
}

TEST(QcXList, BringsEqualElementsTogether) {
    QcXList<int> list;
    Fill(list, Ints{1, 2, 3, 2, 1, 2, 4});
    list.MoveTo(6);
    EXPECT_EQ(list.UpdateGroup(3), 3);
    EXPECT_EQ(Elements(list), (Ints{1, 2, 2, 2, 3, 1, 4}));
    EXPECT_EQ(list.GetCurPos(), 6);
    EXPECT_EQ(list.GetCur(), 4);
    EXPECT_EQ(list.UpdateGroup(6), 1);
    EXPECT_EQ(list.UpdateGroup(5), 2);
    EXPECT_EQ(Elements(list), (Ints{1, 1, 2, 2, 2, 3, 4}));
    EXPECT_EQ(list.UpdateGroup(7), 0);
    EXPECT_EQ(list.UpdateGroup(-1), 0);
    EXPECT_EQ(QcXList<int>().UpdateGroup(0), 0);
}

TEST(QcList, FreesItsElements) {
    {
        QcList<Counted> list(4);
        const int aliveBefore = Counted::s_alive;
        Fill(list, std::vector<Counted>{1, 2, 3});
        EXPECT_EQ(Counted::s_alive, aliveBefore + 3);
        list.FindDel(Counted(2));
        list.Del(0);
        EXPECT_EQ(Counted::s_alive, aliveBefore + 1);
        QcDList<Counted> twofold;
        list.SplitAt(1, twofold);
        twofold.Conbine(list, 0);
        EXPECT_EQ(twofold.GetLength(), 5);
        EXPECT_EQ(Counted::s_alive, aliveBefore + 2);
        twofold.SetLength(2, false);
        twofold.Reset();
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(QcListNode, HoldsTheElementThenTheLinks) {
    EXPECT_EQ(sizeof(QcListNode<double>), sizeof(double) + sizeof(void*));
    EXPECT_EQ(sizeof(QcDListNode<double>), sizeof(double) + 2 * sizeof(void*));
    QcDListNode<double> node(2.5);
    EXPECT_EQ(static_cast<void*>(&node.m_data), static_cast<void*>(&node));
    EXPECT_LT(static_cast<void*>(&node.m_pNext), static_cast<void*>(&node.m_pPre));
}

TEST(QcListNode, AssignsTheElementAndKeepsItsPlace) {
    QcListNode<int> a(1);
    QcListNode<int> b(2);
    a.m_pNext = &b;
    QcListNode<int> copy(a);
    EXPECT_EQ(copy.m_data, 1);
    EXPECT_EQ(copy.m_pNext, nullptr);
    a = b;
    EXPECT_EQ(a.m_data, 2);
    EXPECT_EQ(a.m_pNext, &b);
    QcDListNode<int> c(3);
    QcDListNode<int> d;
    d.m_pPre = &c;
    d = c;
    EXPECT_EQ(d.m_data, 3);
    EXPECT_EQ(d.m_pPre, &c);
}

TEST(QcListNode, WalksItsRun) {
    QcListNode<int> nodes[3] = {QcListNode<int>(10), QcListNode<int>(11), QcListNode<int>(12)};
    nodes[0].m_pNext = &nodes[1];
    nodes[1].m_pNext = &nodes[2];
    for (const bool isRing : {false, true}) {
        nodes[2].m_pNext = isRing ? &nodes[0] : nullptr;
        EXPECT_EQ(nodes[0].First(), &nodes[0]);
        EXPECT_EQ(nodes[0].Last(), &nodes[2]);
        EXPECT_EQ(nodes[0].GetTo(2), &nodes[2]);
        EXPECT_EQ(nodes[0].GetTo(3), nullptr);
        EXPECT_EQ(nodes[0].GetTo(-1), nullptr);
        EXPECT_EQ(nodes[1].GetCurData(), 11);
        EXPECT_EQ(*nodes[0].GetAt(1), 11);
        EXPECT_EQ(nodes[0].GetAt(3), nullptr);
        EXPECT_EQ(nodes[0][2], 12);
        EXPECT_EQ(nodes[0][3], 0);
        EXPECT_EQ(nodes[2].GetCurPos(), 0);
        EXPECT_EQ(nodes[2].GetCurPos(&nodes[0]), 2);
        EXPECT_EQ(nodes[0].GetCurPos(&nodes[1]), isRing ? 2 : -1);
    }
}

TEST(QcListNode, CutsItsRunBehindItself) {
    QcListNode<int> nodes[3];
    nodes[0].m_pNext = &nodes[1];
    nodes[1].m_pNext = &nodes[2];
    nodes[2].m_pNext = &nodes[0];
    EXPECT_EQ(nodes[0].Detach(), &nodes[1]);
    EXPECT_EQ(nodes[0].Last(), &nodes[0]);
    EXPECT_EQ(nodes[1].Last(), &nodes[2]);
    EXPECT_EQ(nodes[2].m_pNext, nullptr);
    EXPECT_EQ(nodes[1].Detach(), &nodes[2]);
    EXPECT_EQ(nodes[2].Detach(), nullptr);
}

TEST(QcQuene, GivesBackInOrder) {
    QcQuene<long> queue;
    long x = 7;
    EXPECT_FALSE(queue.TakeOffHead(x));
    EXPECT_EQ(x, 7);
    EXPECT_EQ(queue.GetFirst(), nullptr);
    EXPECT_EQ(queue.GetLast(), nullptr);
    for (long i = 1; i <= 3; ++i)
        EXPECT_TRUE(queue.Append(i));
    QcQuene<long> copy(queue);
    EXPECT_TRUE(queue.TakeOffHead(x));
    EXPECT_EQ(x, 1);
    EXPECT_EQ(*queue.GetFirst(), 2);
    EXPECT_EQ(*queue.GetLast(), 3);
    EXPECT_EQ(*queue.GetAt(1), 3);
    EXPECT_EQ(queue.GetAt(2), nullptr);
    EXPECT_EQ(queue.GetAt(-1), nullptr);
    EXPECT_TRUE(queue.TakeOffHead(x));
    EXPECT_TRUE(queue.TakeOffHead(x));
    EXPECT_TRUE(queue.IsEmpty());
    queue.Append(9);
    EXPECT_EQ(*queue.GetFirst(), 9);
    queue = copy;
    EXPECT_EQ(queue.GetLength(), 3);
    queue.Reset();
    EXPECT_EQ(queue.GetLength(), 0);
    EXPECT_EQ(copy.GetLength(), 3);
}

}  // namespace
