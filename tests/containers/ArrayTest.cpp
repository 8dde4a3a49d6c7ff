// The plain arrays in one and two dimensions, and the element types that can do little.
#include <algorithm>

#include "TestElements.h"
#include "containers/Qc2dArray.h"
#include "containers/QcArray.h"
#include "containers/QcDList.h"
#include "containers/QcDynArray.h"
#include "containers/QcPXList.h"
#include "containers/QcXList.h"

namespace {

QcArray<int> Make(const Ints& from) {
    QcArray<int> made(static_cast<long>(from.size()));
    std::copy(from.begin(), from.end(), made.GetDataBuffer());
    return made;
}
Ints All(const QcArray<int>& array) {
    return {array.GetDataBuffer(), array.GetDataBuffer() + array.GetLength()};
}

TEST(QcArray, AllocatesExactlyItsLength) {
    QcArray<int> a(3);
    EXPECT_EQ(All(a), (Ints{0, 0, 0}));
    EXPECT_EQ(a.GetMaxIndex(), 2);
    for (const long n : {0L, -1L, 1L << 40}) {
        QcArray<int> none(n);
        EXPECT_TRUE(none.IsEmpty());
        EXPECT_EQ(none.GetDataBuffer(), nullptr);
    }
    EXPECT_EQ(sizeof(a), 2 * sizeof(void*) + sizeof(long));
    a.ReAllocate(1L << 40, true);
    EXPECT_EQ(a.GetLength(), 3);
}

TEST(QcArray, ReAllocatesWithAndWithoutKeeping) {
    QcArray<int> a = Make({1, 2, 3});
    a.ReAllocate(3, false);
    EXPECT_EQ(All(a), (Ints{1, 2, 3}));
    a.ReAllocate(5, true);
    EXPECT_EQ(All(a), (Ints{1, 2, 3, 0, 0}));
    a.ReAllocate(2, true);
    EXPECT_EQ(All(a), (Ints{1, 2}));
    a.ReAllocate(3, false);
    EXPECT_EQ(All(a), (Ints{0, 0, 0}));
    a.ReAllocate(-1, true);
    EXPECT_TRUE(a.IsEmpty());
}

TEST(QcArray, GivesAndSetsElements) {
    QcArray<int> a = Make({1, 2});
    EXPECT_TRUE(a.SetAt(1, a[0]));
    EXPECT_FALSE(a.SetAt(2, 5));
    EXPECT_FALSE(a.SetAt(-1, 5));
    EXPECT_EQ(*a.GetAt(1), 1);
    EXPECT_EQ(a.GetAt(2), nullptr);
    a[9] = 4;
    EXPECT_EQ(a[9], 0);
    const QcArray<int>& fixed = a;
    EXPECT_EQ(fixed[1], 1);
    EXPECT_EQ(fixed[-1], 0);
    EXPECT_TRUE(a.IsValidIndex(1));
    EXPECT_FALSE(a.IsValidIndex(2));
    a.SetAll(a[0]);
    EXPECT_EQ(All(a), (Ints{1, 1}));
}

TEST(QcArray, InsertsAndRemoves) {
    QcArray<int> a;
    a.Append(2);
    a.InsertHead(1);
    a.Insert(1, a[0]);
    a.Insert(99, 3);
    a.Insert(-1, a[0]);
    EXPECT_EQ(All(a), (Ints{1, 1, 2, 3, 1}));
    a.Del(2);
    a.Del(9);
    a.Del(-1);
    EXPECT_EQ(All(a), (Ints{1, 1, 3, 1}));
    EXPECT_EQ(a.FindDel(a[0]), 3);
    EXPECT_EQ(All(a), Ints{3});
    EXPECT_EQ(a.FindDel(9), 0);
    EXPECT_EQ(a.FindOrAppend(3), 0);
    EXPECT_EQ(a.FindOrAppend(4), 1);
    a.FindOrInsertHead(4);
    a.FindOrInsertHead(2);
    EXPECT_EQ(All(a), (Ints{2, 3, 4}));
    a.DelHead();
    a.DelTail();
    EXPECT_EQ(All(a), Ints{3});
    a.DelTail();
    a.DelTail();
    a.DelHead();
    EXPECT_TRUE(a.IsEmpty());
}

TEST(QcArray, Finds) {
    const QcArray<int> a = Make({1, 3, 3, 5});
    EXPECT_EQ(a.Find(3), 1);
    EXPECT_EQ(a.Find(3, 2, 99), 2);
    EXPECT_EQ(a.Find(5, 0, 2), -1);
    EXPECT_EQ(a.Find(1, -1, -1), -1);
    QcQuene<long> hits;
    EXPECT_EQ(a.Find(3, hits), 2);
    EXPECT_EQ(*hits.GetLast(), 2);
    EXPECT_TRUE(a.BFind(5));
    EXPECT_FALSE(a.BFind(4));
    EXPECT_FALSE(a.BFind(5, 0, 2));
    EXPECT_FALSE(a.BFind(1, 9, -1));
    EXPECT_FALSE(QcArray<int>().BFind(1));
}

TEST(QcArray, ReversesAndSorts) {
    QcArray<int> a = Make({1, 2, 3, 4, 5});
    a.Reverse(0, -1);
    EXPECT_EQ(All(a), (Ints{5, 4, 3, 2, 1}));
    a.Reverse(1, 2);
    EXPECT_EQ(All(a), (Ints{5, 3, 4, 2, 1}));
    a.Reverse(-1, 3);
    a.Sort(true);
    EXPECT_EQ(All(a), (Ints{1, 2, 3, 4, 5}));
    a.Sort(false);
    EXPECT_EQ(All(a), (Ints{5, 4, 3, 2, 1}));
    a.Sort(nullptr);
    a.Sort([](const int& x, const int& y) { return x - y; });
    EXPECT_EQ(All(a), (Ints{1, 2, 3, 4, 5}));
}

TEST(QcArray, CopiesAndCompares) {
    QcArray<int> a = Make({1, 2});
    QcArray<int> b(a);
    EXPECT_TRUE(a == b);
    b[1] = 3;
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b > a);
    b = a;
    b.Append(0);
    EXPECT_TRUE(a < b);
    const int* const data = b.GetDataBuffer();
    QcArray<int> moved(std::move(b));
    EXPECT_EQ(moved.GetDataBuffer(), data);
    QcArray<int>& self = moved;
    moved = self;
    EXPECT_EQ(All(moved), (Ints{1, 2, 0}));
}

TEST(QcArray, FreesItsElements) {
    {
        QcArray<Counted> a(3);
        EXPECT_EQ(Counted::s_alive, 3);
        a.Append(Counted(4));
        a.DelHead();
        QcArray<Counted> b(a);
        b.ReAllocate(1, true);
        b = a;
        EXPECT_EQ(Counted::s_alive, 6);
        EXPECT_EQ(b[2].Value(), 4);
        b.FindDel(Counted(0));
        EXPECT_EQ(Counted::s_alive, 4);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(Qc2dArray, HasRowsOfEqualLength) {
    Qc2dArray<int> a(2, 3);
    EXPECT_EQ(a.GetRowNum(), 2);
    EXPECT_EQ(a.GetColNum(), 3);
    a[1][2] = 5;
    EXPECT_EQ(*a.GetAt(1, 2), 5);
    EXPECT_TRUE(a.SetAt(0, 1, 7));
    EXPECT_FALSE(a.SetAt(2, 0, 7));
    EXPECT_FALSE(a.SetAt(0, 3, 7));
    EXPECT_EQ(a.GetAt(2, 0), nullptr);
    EXPECT_EQ(a.GetAt(0, -1), nullptr);
    EXPECT_EQ(a[9][9], 0);
    a.ReAllocate(3, 2, true);
    EXPECT_EQ(All(a[0]), (Ints{0, 7}));
    EXPECT_EQ(All(a[2]), (Ints{0, 0}));
    a.ReAllocate(2, 3, true);
    EXPECT_EQ(All(a[0]), (Ints{0, 7, 0}));
    Qc2dArray<int> b(a);
    EXPECT_TRUE(a == b);
    b.SetAll(4);
    EXPECT_EQ(All(b[1]), (Ints{4, 4, 4}));
    EXPECT_EQ(All(a[1]), (Ints{0, 0, 0}));
    b.ReAllocate(3, 3, false);
    EXPECT_EQ(All(b[0]), (Ints{0, 0, 0}));
    b.ReAllocate(-1, 4, true);
    EXPECT_EQ(b.GetRowNum(), 0);
    EXPECT_EQ(b.GetColNum(), 0);
    EXPECT_EQ(Qc2dArray<double>(2, 0).GetColNum(), 0);
}

TEST(Qc2dArray, KeepsNothingWhereItIsMadeAnewWithoutKeeping) {
    const auto sevens = [](long rows, long columns) {
        Qc2dArray<int> made(rows, columns);
        made.SetAll(7);
        return made;
    };
    Qc2dArray<int> rows = sevens(2, 2);
    rows.ReAllocate(3, 2, false);
    for (long row = 0; row < 3; ++row)
        EXPECT_EQ(All(rows[row]), (Ints{0, 0})) << "new rows, row " << row;
    Qc2dArray<int> columns = sevens(2, 2);
    columns.ReAllocate(2, 3, false);
    for (long row = 0; row < 2; ++row)
        EXPECT_EQ(All(columns[row]), (Ints{0, 0, 0})) << "rows made longer, row " << row;
    columns = sevens(2, 3);
    columns.ReAllocate(2, 2, false);
    EXPECT_EQ(All(columns[1]), (Ints{0, 0})) << "rows made shorter";
    Qc2dArray<int> same = sevens(2, 2);
    same.ReAllocate(2, 2, false);
    EXPECT_EQ(All(same[1]), (Ints{7, 7})) << "of that size already";
}

// Every virtual operation exists for these types, whether or not they can compare.
template <class C>
void EditWithoutOperators() {
    C c;
    for (int i = 0; i < 30; ++i)
        c.Append({i});
    c.InsertHead({-1});
    c.Insert(5, c[1]);
    c.Del(0);
    c.Rotate(0, 3);
    c.Rotate(3, 0);
    c.Move(0, 4);
    c.Move(4, 0);
    c.Reverse(0, -1);
    c.ReverseList();
    c.Sort(true);
    EXPECT_EQ(c.GetLength(), 31);
    EXPECT_EQ(c[0].m_n, 0);
    EXPECT_EQ(c[4].m_n, 0);
    EXPECT_EQ(c[30].m_n, 29);
    EXPECT_EQ(c.Find(c[4]), 4);
    EXPECT_EQ(c.Find({0}), -1);
    EXPECT_FALSE(c.BFind({0}));
    EXPECT_TRUE(c.BFindTo(c[7]));
    EXPECT_EQ(c.GetCurPos(), 7);
    EXPECT_EQ(c.FindDel(c[4]), 1);
    EXPECT_EQ(c.FindDel({1}), 0);
    EXPECT_EQ(c.GetLength(), 30);
    EXPECT_EQ(c[4].m_n, 4);
    c.Sort([](const auto& a, const auto& b) { return b.m_n - a.m_n; });
    EXPECT_EQ(c[0].m_n, 29);
    EXPECT_TRUE(c.SortInto({100}, false));
    EXPECT_EQ(c.GetLast()->m_n, 100);
    C copy(c);
    EXPECT_FALSE(copy == c);
    EXPECT_TRUE(c == c);
    EXPECT_FALSE(copy < c);
}

TEST(ElementTypes, NeedNoOperators) {
    EditWithoutOperators<QcDynArray<Bare>>();
    EditWithoutOperators<QcList<Bare>>();
    EditWithoutOperators<QcDList<Bare>>();
    EditWithoutOperators<QcXList<Bare>>();
    QcArray<Bare> array(2);
    array.Sort(true);
    EXPECT_EQ(array.Find(array[1]), 1);
    EXPECT_EQ(array.FindDel(array[0]), 1);
    EXPECT_FALSE(array.BFind(Bare()));
    EXPECT_EQ(array.GetLength(), 1);
    QcPXList<Bare> owner;
    owner.Append(new Bare{1});
    owner.SortEx(true);
    EXPECT_EQ(owner.FindData(owner.GetPData(0)), 0);
    EXPECT_EQ(owner.UpdateGroup(0), 1);
    EXPECT_EQ(owner.FindDataDel(owner.GetPData(0)), 1);
}

template <class C>
void SortAssignOnly() {
    C c;
    for (int i = 0; i < 50; ++i)
        c.Append(AssignOnly(i * 37 % 50));
    c.Sort(true);
    int before = -1;
    for (long i = 0; i < 50; ++i) {
        EXPECT_LE(before / 10, c[i].m_n / 10);
        before = c[i].m_n;
    }
    c.Exchange(0, 49);
    EXPECT_EQ(c[0].m_n / 10, 4);
    c.InsertHead(c[20]);
    EXPECT_EQ(c[0].m_n, c[21].m_n);
    c.Move(0, 9);
    c.Reverse(0, -1);
    EXPECT_EQ(c.GetLength(), 51);
}

TEST(ElementTypes, NeedOnlyDefaultAndAssignment) {
    SortAssignOnly<QcDynArray<AssignOnly>>();
    SortAssignOnly<QcDList<AssignOnly>>();
    QcArray<AssignOnly> array;
    for (int i = 0; i < 9; ++i)
        array.InsertHead(AssignOnly(i));
    array.SetAll(array[3]);
    EXPECT_EQ(array[8].m_n, 5);
}

template <class C>
void SortStably() {
    C c;
    for (int i = 0; i < 1000; ++i)
        c.Append(Tagged{i * 7919 % 10, i});
    for (const bool isUp : {true, false}) {
        c.Sort(isUp);
        // Equal keys keep the order that they had; each pass begins with keys whose tags rise.
        for (long i = 1; i < c.GetLength(); ++i) {
            const Tagged& a = c[i - 1];
            const Tagged& b = c[i];
            EXPECT_TRUE(isUp ? a.m_key <= b.m_key : a.m_key >= b.m_key);
            EXPECT_TRUE(a.m_key != b.m_key || a.m_tag < b.m_tag);
        }
    }
    c.Sort([](const Tagged&, const Tagged&) { return 0; });
    EXPECT_EQ(c[0].m_key, 9);
}

TEST(ElementTypes, SortingKeepsEqualElementsInOrder) {
    SortStably<QcDynArray<Tagged>>();
    SortStably<QcList<Tagged>>();
    SortStably<QcDList<Tagged>>();
}

TEST(ElementTypes, BisectionAsksTheTypesOwnEquality) {
    QcDynArray<Tagged> c;
    Fill(c, std::vector<Tagged>{{1, 0}, {2, 0}, {2, 1}, {3, 0}});
    EXPECT_TRUE(c.BFindTo(Tagged{2, 1}));
    EXPECT_EQ(c.GetCurPos(), 2);
    EXPECT_FALSE(c.BFindTo(Tagged{2, 5}));
    EXPECT_EQ(c.GetCurPos(), 3);
    EXPECT_TRUE(c.SortInto(Tagged{2, 5}, false));
    EXPECT_FALSE(c.SortInto(Tagged{2, 5}, false));
    EXPECT_EQ(c.GetLength(), 5);
}

}  // namespace
