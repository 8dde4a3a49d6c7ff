// What all arrays and lists of the family share: one cursor, the table of virtual operations that each storage fills
// in, and the algorithms written in terms of it.
//
// The cursor is an index; -1 means that it is "out", on no element. Stepping forward from out lands on the first
// element, stepping back on the last. Inserting leaves the cursor on the new element, removing leaves it on the element
// before the removed one (out, when that was the first). Reordering (sort, reverse, rotate, exchange, move) leaves its
// index alone. Index arguments that name no element, sizes that no memory fits and null functions are refused: the
// operation then does nothing. Nothing throws. An argument may be one of the container's own elements.
#pragma once

#include <cstdlib>
#include <limits>
#include <type_traits>

#include "containers/QcArray.h"
#include "containers/QcCounting.h"
#include "containers/QcElement.h"
#include "containers/QcOwnerMark.h"
#include "containers/QcQuene.h"
#include "platform/base/Api.h"

template <class T>
class QcList;

// Counts and indexes: 32 bits signed, and a type of their own, which tells the compiler that writing to an element of
// a container of ints does not change the container's count.
enum class QcIndex : int {};

template <class T>
class QcDynArrayBase {
public:
    // ---- The virtual operations, in the order of their slots. ----

    // Makes the count n: appends default elements; arrays also drop elements behind n, lists never shrink.
    virtual void ReAllocate(long n) = 0;
    virtual ~QcDynArrayBase() = default;
    // Makes the count n. With bKeep the first elements stay; without, none has to. n below 1 empties.
    virtual void SetLength(long n, bool bKeep) = 0;
    // Frees all elements; the cursor is out.
    virtual void Reset() = 0;
    // The current element; when the cursor is out, a default element that is nobody's.
    virtual T& GetCurData() = 0;
    // Replaces the current element; nothing when the cursor is out.
    virtual void SetCurData(const T& x) = 0;
    virtual void MoveToFirst() = 0;  // out in an empty container
    virtual void MoveToNext() = 0;   // a step forward: from the last element out, from out to the first
    virtual void MoveToPre() = 0;    // a step back: from the first element out, from out to the last
    virtual void MoveToLast() = 0;   // out in an empty container
    // To the element at an index; out when i names none.
    virtual void MoveTo(long i) = 0;
    // Access that leaves the cursor alone. operator[] gives a default element that is nobody's when i names none; the
    // others give null.
    virtual T& operator[](long i) = 0;
    virtual T* GetFirst() const = 0;
    virtual T* GetNext(const T* p) const = 0;
    virtual T* GetPre(const T* p) const = 0;
    virtual T* GetLast() const = 0;
    virtual T* GetAt(long i) const = 0;
    // Puts x before the current element, at its index; at the end when the cursor is out.
    virtual void InsertCur(const T& x) = 0;
    // Puts x at index i; at the end when i names no element.
    virtual void Insert(long i, const T& x) {
        MoveTo(i);
        InsertCur(x);
    }
    // Puts x before the first element.
    virtual void InsertHead(const T& x) {
        MoveToFirst();
        InsertCur(x);
    }
    // Puts x behind the last element.
    virtual void Append(const T& x) {
        MoveToLast();
        InsertAfterCur(x);
    }
    // Removes the current element; nothing when the cursor is out.
    virtual void DelCur() = 0;
    // Stable. cmp gives less than 0 when its first argument comes first; null does nothing.
    virtual void Sort(int (*cmp)(const T&, const T&)) = 0;
    // Stable, by T's own order; nothing for a type that has none.
    virtual void Sort(bool bAscending) = 0;
    // Takes the element at index from to index to; the elements between close up. False when either names no element.
    virtual bool Move(long from, long to) = 0;
    // Puts x behind the current element; at the head when the cursor is out.
    virtual void InsertAfterCur(const T& x) = 0;
    // Cuts off and frees all elements behind the cursor (all there are, when it is out). Gives how many.
    virtual long DetachAfterCur() = 0;
    // Takes over all elements of another container, so that its first one gets index pos (at the end when pos names no
    // element); the other one is empty then. The cursor stays on its element. Gives the new count.
    virtual long Conbine(QcList<T>& other, long pos) = 0;
    // Turns the order of all elements round.
    virtual void ReverseList() = 0;
    // Turns the whole ring of elements so that the one at index from comes to stand at index to.
    virtual void Rotate(long from, long to) = 0;

    // ---- Cursor and size. ----
    // How many elements there are.
    long GetLength() const { return static_cast<long>(m_nCount); }
    // The last element's index, -1 in an empty container.
    long GetMaxIndex() const { return GetLength() - 1; }
    // Whether there is no element.
    bool IsEmpty() const { return GetLength() == 0; }
    // Whether an index names an element.
    bool IsValidIndex(long i) const { return i >= 0 && i < GetLength(); }
    // The cursor's index, -1 when it is out.
    long GetCurPos() const { return static_cast<long>(m_nCur); }
    // Whether the cursor is on the first element.
    bool IsBegin() const { return GetCurPos() == 0; }
    // Whether the cursor is on no element; IsEnd is the same, for the end of a walk.
    bool IsOut() const { return static_cast<int>(m_nCur) < 0; }
    bool IsEnd() const { return IsOut(); }
    // As GetCurData.
    T& GetCur() { return GetCurData(); }
    // Moves the cursor to the first or last element, or to the one at an index, and gives it as GetCurData does.
    T& First() {
        MoveToFirst();
        return GetCurData();
    }
    T& Last() {
        MoveToLast();
        return GetCurData();
    }
    T& GetTo(long i) {
        MoveTo(i);
        return GetCurData();
    }
    // The i-th element; a default element that is nobody's when there is none.
    const T& operator[](long i) const {
        const T* const p = GetAt(i);
        return p == nullptr ? QcElement<T>::Spare() : *p;
    }

    // ---- Finding. An end index that names no element means the last one. ----

    // Walks from start and stops on the first element equal to x; out, and false, when there is none.
    bool FindTo(const T& x, long start = 0);
    // The index of the first equal element between two indexes (both included), or -1.
    long Find(const T& x, long from = 0, long to = -1) const;
    // The same scan, adding the index of each equal element to hits. Gives how many there were.
    long Find(const T& x, QcQuene<long>& hits, long from = 0, long to = -1) const;
    // The index of the first element equal to x, which is appended when there is none.
    long FindOrAppend(const T& x);
    // Puts x at the head, unless there is an equal element.
    void FindOrInsertHead(const T& x);
    // Removes every element equal to x, and gives how many there were. The cursor ends out.
    long FindDel(const T& x);
    // Bisection in elements sorted upwards: whether one of them is equal to x. BFindTo goes to the first such element,
    // or else to where x has to be inserted (behind those that are not greater; out: at the end).
    bool BFind(const T& x, long from = 0, long to = -1) const;
    bool BFindTo(const T& x, long from = 0, long to = -1);
    // Inserts x at its place. When there is an equal element: false, unless bAllowSame, which inserts behind the equal
    // ones.
    bool SortInto(const T& x, bool bAllowSame);

    // ---- Editing by index. ----

    // Turns a run round; both ends are included.
    void Reverse(long from, long to);
    // Two elements take each other's place.
    void Exchange(long i, long j);
    // Del does nothing when i names no element; DelHead and DelTail do nothing in an empty container.
    void Del(long i) {
        MoveTo(i);
        DelCur();
    }
    void DelHead() {
        MoveToFirst();
        DelCur();
    }
    void DelTail() {
        MoveToLast();
        DelCur();
    }
    // Every element becomes x; nothing in an owning container.
    void SetAll(const T& x);
    // Count plus n default elements; count minus n, at least 0. Nothing for n below 1.
    void IncreaseSize(long n);
    void DecreaseSize(long n);

    // ---- Whole containers. Copying leaves the target's cursor out, appending leaves it on the last element. ----

    // Appends an element, or all of a container.
    QcDynArrayBase& operator<<(const T& x) {
        Append(x);
        return *this;
    }
    QcDynArrayBase& operator<<(const QcArray<T>& other);
    QcDynArrayBase& operator<<(const QcDynArrayBase& other);
    // The elements become copies of the other one's.
    void DeepCopy(const QcArray<T>& other);
    void DeepCopy(const QcDynArrayBase& other);
    QcDynArrayBase& operator=(const QcDynArrayBase& other) {
        DeepCopy(other);
        return *this;
    }
    QcDynArrayBase& operator=(const QcArray<T>& other) {
        DeepCopy(other);
        return *this;
    }
    // Make out a copy of the first n, the last n, or the n elements from index from on (fewer when there are fewer).
    void Left(long n, QcDynArrayBase& out) const { CopyRun(0, n, out); }
    void Right(long n, QcDynArrayBase& out) const { CopyRun(QcFirstOfLast<long>(n, GetLength()), n, out); }
    void Mid(long from, long n, QcDynArrayBase& out) const { CopyRun(from, n, out); }

    // As many elements, and equal ones, by T's own ==.
    bool operator==(const QcDynArrayBase& other) const;
    bool operator!=(const QcDynArrayBase& other) const { return !(*this == other); }
    // Element by element; the first pair that differs decides, and a container that is the beginning of another is
    // less.
    bool operator<(const QcDynArrayBase& other) const;
    bool operator>(const QcDynArrayBase& other) const { return other < *this; }

protected:
    // Empty, the cursor out.
    QcDynArrayBase() = default;
    QcDynArrayBase(const QcDynArrayBase& other) = delete;

    // The most elements that a container may have.
    static constexpr long kMaxCount = std::numeric_limits<int>::max();

    // Count and cursor as they are told, unchecked.
    void SetCount(long n) { m_nCount = static_cast<QcIndex>(n); }
    void SetCurPos(long i) { m_nCur = static_cast<QcIndex>(i); }
    // To the first element; out in an empty container.
    void ResetCur() { m_nCur = static_cast<QcIndex>(static_cast<int>(m_nCount) > 0 ? 0 : -1); }
    // One step forward, from the last element to out. Counted in an int and stored once: compilers then see a plain
    // counted loop in a cursor's walk, which they do not when the index's own type does the counting.
    void StepCur() {
        int i = static_cast<int>(m_nCur);
        i = i < static_cast<int>(m_nCount) - 1 ? i + 1 : -1;
        m_nCur = static_cast<QcIndex>(i);
    }

    // Whether the elements lie side by side. A wrong yes would only cost time.
    bool IsContiguous() const { return GetLast() == GetFirst() + GetMaxIndex(); }
    // Appending and copying whole containers would share objects between two owners; an owning container brings its own
    // operations for that, and these here do nothing on one.
    bool IsOwner() const {
        if constexpr (std::is_pointer_v<T>)
            return dynamic_cast<const QcOwnerMark*>(this) != nullptr;
        else
            return false;
    }
    // The first element for which isBefore is false, looked for by bisection between two indexes; its address (null:
    // none) and its index. An end index that names no element means the last one.
    template <class Before>
    const T* LowerBound(Before isBefore, long from, long to, long& rnPos) const;
    // The element in the run from p (at rnPos) on that is a match, where the run ends as soon as isAfter says so. Gives
    // null, and rnPos behind the run, when there is none.
    template <class After, class Match>
    const T* MatchInRun(const T* p, long to, After isAfter, Match isMatch, long& rnPos) const;
    // Whether there is an equal element, by bisection, and at rnPos its index, or where x has to be inserted.
    bool BSearch(const T& x, long from, long to, long& rnPos) const;
    // The index itself, or the last one when it names no element.
    long EndIndex(long to) const { return IsValidIndex(to) ? to : GetMaxIndex(); }
    // Leaves only the n elements from index from on.
    void KeepRun(long from, long n);

    // Gives a source's element behind the given one; its first one for null.
    template <class Source>
    using Next = const T* (*)(const Source&, const T*);
    static const T* NextOfArray(const QcArray<T>& array, const T* p) {
        return p == nullptr ? array.GetDataBuffer() : p + 1;
    }
    static const T* NextOfBase(const QcDynArrayBase& base, const T* p) {
        return p == nullptr ? base.GetFirst() : base.GetNext(p);
    }

private:
    template <class Source>
    void AppendAll(const Source& other, Next<Source> next);
    template <class Source>
    void CopyAll(const Source& other, Next<Source> next);
    template <class Source>
    void Overwrite(long from, long n, const Source& other, Next<Source> next);
    void CopyRun(long from, long n, QcDynArrayBase& out) const;

    QcIndex m_nCount{0};
    QcIndex m_nCur{-1};
};

template <class T>
bool QcDynArrayBase<T>::FindTo(const T& x, long start) {
    MoveTo(start);
    while (!IsOut()) {
        if (QcElement<T>::Equal(GetCurData(), x))
            return true;
        MoveToNext();
    }
    return false;
}

template <class T>
long QcDynArrayBase<T>::Find(const T& x, long from, long to) const {
    to = EndIndex(to);
    const T* p = GetAt(from);
    for (long i = from; p != nullptr && i <= to; ++i, p = GetNext(p))
        if (QcElement<T>::Equal(*p, x))
            return i;
    return -1;
}

template <class T>
long QcDynArrayBase<T>::Find(const T& x, QcQuene<long>& hits, long from, long to) const {
    to = EndIndex(to);
    long nFound = 0;
    const T* p = GetAt(from);
    for (long i = from; p != nullptr && i <= to; ++i, p = GetNext(p))
        if (QcElement<T>::Equal(*p, x) && hits.Append(i))
            ++nFound;
    return nFound;
}

template <class T>
long QcDynArrayBase<T>::FindOrAppend(const T& x) {
    const long nFound = Find(x);
    if (nFound >= 0)
        return nFound;
    Append(x);
    return GetMaxIndex();
}

template <class T>
void QcDynArrayBase<T>::FindOrInsertHead(const T& x) {
    if (Find(x) < 0)
        InsertHead(x);
}

template <class T>
long QcDynArrayBase<T>::FindDel(const T& x) {
    long nRemoved = 0;
    if constexpr (QcElement<T>::kComparesValues) {
        const QcElementCopy<T> wanted(x);  // x may be one of those that go
        MoveToFirst();
        while (!IsOut()) {
            if (QcElement<T>::Equal(GetCurData(), wanted.m_data)) {
                DelCur();
                ++nRemoved;
            }
            MoveToNext();
        }
    } else if (FindTo(x)) {
        DelCur();
        MoveTo(-1);
        nRemoved = 1;
    }
    return nRemoved;
}

template <class T>
template <class Before>
const T* QcDynArrayBase<T>::LowerBound(Before isBefore, long from, long to, long& rnPos) const {
    rnPos = from < 0 ? 0 : from;
    long nRun = EndIndex(to) - rnPos + 1;
    const T* p = GetAt(rnPos);
    const bool bContiguous = !IsEmpty() && IsContiguous();
    while (nRun > 0 && p != nullptr) {
        const long nHalf = nRun / 2;
        const T* pMid = bContiguous ? GetAt(rnPos + nHalf) : p;
        for (long i = 0; !bContiguous && i < nHalf; ++i)
            pMid = GetNext(pMid);
        if (isBefore(*pMid)) {
            rnPos += nHalf + 1;
            nRun -= nHalf + 1;
            p = GetNext(pMid);
        } else {
            nRun = nHalf;
        }
    }
    return p;
}

template <class T>
template <class After, class Match>
const T* QcDynArrayBase<T>::MatchInRun(const T* p, long to, After isAfter, Match isMatch, long& rnPos) const {
    for (to = EndIndex(to); p != nullptr && rnPos <= to && !isAfter(*p); p = GetNext(p), ++rnPos)
        if (isMatch(*p))
            return p;
    return nullptr;
}

template <class T>
bool QcDynArrayBase<T>::BSearch(const T& x, long from, long to, long& rnPos) const {
    using Element = QcElement<T>;
    const T* const p = LowerBound([&x](const T& e) { return Element::Less(e, x); }, from, to, rnPos);
    return MatchInRun(
               p, to, [&x](const T& e) { return Element::Less(x, e); },
               [&x](const T& e) { return Element::Equal(e, x); }, rnPos) != nullptr;
}

template <class T>
bool QcDynArrayBase<T>::BFind(const T& x, long from, long to) const {
    long nPos = 0;
    return BSearch(x, from, to, nPos);
}

template <class T>
bool QcDynArrayBase<T>::BFindTo(const T& x, long from, long to) {
    long nPos = 0;
    const bool bFound = BSearch(x, from, to, nPos);
    MoveTo(nPos);
    return bFound;
}

template <class T>
bool QcDynArrayBase<T>::SortInto(const T& x, bool bAllowSame) {
    if (BFindTo(x, 0, -1)) {
        if (!bAllowSame)
            return false;
        while (!IsOut() && QcElement<T>::Equal(GetCurData(), x))
            MoveToNext();
    }
    const long n = GetLength();
    InsertCur(x);
    return GetLength() > n;
}

template <class T>
void QcDynArrayBase<T>::Reverse(long from, long to) {
    to = EndIndex(to);
    if (!IsValidIndex(from) || from >= to)
        return;
    const long nRun = to - from + 1;
    T** const pRun = static_cast<T**>(std::malloc(static_cast<std::size_t>(nRun) * sizeof(T*)));
    if (pRun == nullptr)
        return;
    T* p = GetAt(from);
    for (long i = 0; i < nRun; ++i, p = GetNext(p))
        pRun[i] = p;
    for (long i = 0; i < nRun / 2; ++i)
        QcElement<T>::Swap(*pRun[i], *pRun[nRun - 1 - i]);
    std::free(static_cast<void*>(pRun));
}

template <class T>
void QcDynArrayBase<T>::Exchange(long i, long j) {
    T* const p = GetAt(i);
    T* const q = GetAt(j);
    if (p != nullptr && q != nullptr)
        QcElement<T>::Swap(*p, *q);
}

template <class T>
void QcDynArrayBase<T>::SetAll(const T& x) {
    if (IsOwner())
        return;
    const QcElementCopy<T> copy(x);
    for (T* p = GetFirst(); p != nullptr; p = GetNext(p))
        *p = copy.m_data;
}

template <class T>
void QcDynArrayBase<T>::IncreaseSize(long n) {
    if (n > 0 && n <= kMaxCount - GetLength())
        ReAllocate(GetLength() + n);
}

template <class T>
void QcDynArrayBase<T>::DecreaseSize(long n) {
    if (n < 1)
        return;
    const long nCur = GetCurPos();
    MoveTo(n < GetLength() ? GetMaxIndex() - n : -1);
    DetachAfterCur();
    MoveTo(nCur);
}

// The elements are counted first and read step by step, so that a container can be appended to itself.
template <class T>
template <class Source>
void QcDynArrayBase<T>::AppendAll(const Source& other, Next<Source> next) {
    const long nOld = GetLength();
    const long nMore = other.GetLength();
    if (nMore < 1 || nMore > kMaxCount - nOld)
        return;
    ReAllocate(nOld + nMore);
    if (GetLength() == nOld + nMore) {
        Overwrite(nOld, nMore, other, next);
        MoveToLast();
    }
}

template <class T>
template <class Source>
void QcDynArrayBase<T>::CopyAll(const Source& other, Next<Source> next) {
    const long nAll = other.GetLength();
    SetLength(nAll, true);
    if (GetLength() == nAll) {
        Overwrite(0, nAll, other, next);
        MoveTo(-1);
    }
}

template <class T>
template <class Source>
void QcDynArrayBase<T>::Overwrite(long from, long n, const Source& other, Next<Source> next) {
    T* pTo = GetAt(from);
    const T* pFrom = nullptr;
    for (long i = 0; i < n; ++i, pTo = GetNext(pTo)) {
        pFrom = next(other, pFrom);
        *pTo = *pFrom;
    }
}

template <class T>
QcDynArrayBase<T>& QcDynArrayBase<T>::operator<<(const QcArray<T>& other) {
    if (!IsOwner())
        AppendAll(other, &NextOfArray);
    return *this;
}

template <class T>
QcDynArrayBase<T>& QcDynArrayBase<T>::operator<<(const QcDynArrayBase& other) {
    if (!IsOwner())
        AppendAll(other, &NextOfBase);
    return *this;
}

template <class T>
void QcDynArrayBase<T>::DeepCopy(const QcArray<T>& other) {
    if (!IsOwner())
        CopyAll(other, &NextOfArray);
}

template <class T>
void QcDynArrayBase<T>::DeepCopy(const QcDynArrayBase& other) {
    if (this != &other && !IsOwner())
        CopyAll(other, &NextOfBase);
}

template <class T>
void QcDynArrayBase<T>::CopyRun(long from, long n, QcDynArrayBase& out) const {
    if (from < 0 || n < 0)
        n = 0;
    else if (n > GetLength() - from)
        n = GetLength() - from;
    if (out.IsOwner())
        return;
    if (&out == this) {
        out.KeepRun(from, n);
        return;
    }
    out.Reset();
    if (n < 1)
        return;
    out.ReAllocate(n);
    const T* pFrom = GetAt(from);
    for (T* pTo = out.GetFirst(); pTo != nullptr; pTo = out.GetNext(pTo), pFrom = GetNext(pFrom))
        *pTo = *pFrom;
    out.MoveTo(-1);
}

template <class T>
void QcDynArrayBase<T>::KeepRun(long from, long n) {
    T* pTo = GetFirst();
    T* pFrom = GetAt(from);
    for (long i = 0; i < n; ++i, pTo = GetNext(pTo), pFrom = GetNext(pFrom))
        QcElement<T>::Swap(*pTo, *pFrom);
    MoveTo(n - 1);
    DetachAfterCur();
    MoveTo(-1);
}

template <class T>
bool QcDynArrayBase<T>::operator==(const QcDynArrayBase& other) const {
    if (GetLength() != other.GetLength())
        return false;
    const T* q = other.GetFirst();
    for (const T* p = GetFirst(); p != nullptr; p = GetNext(p), q = other.GetNext(q))
        if (!QcElement<T>::Equal(*p, *q))
            return false;
    return true;
}

template <class T>
bool QcDynArrayBase<T>::operator<(const QcDynArrayBase& other) const {
    const T* q = other.GetFirst();
    for (const T* p = GetFirst(); p != nullptr; p = GetNext(p), q = other.GetNext(q)) {
        if (q == nullptr || QcElement<T>::Less(*q, *p))
            return false;
        if (QcElement<T>::Less(*p, *q))
            return true;
    }
    return q != nullptr;
}

extern template class ORVO_API QcDynArrayBase<int>;
extern template class ORVO_API QcDynArrayBase<char>;
extern template class ORVO_API QcDynArrayBase<double>;
