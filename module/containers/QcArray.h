// A plain array of a fixed number of elements: no cursor, no spare capacity. Every change of its length makes a buffer
// of exactly the new size. Lengths below 1 mean no buffer. When there is no memory, nothing changes and nothing throws.
#pragma once

#include <algorithm>
#include <limits>

#include "containers/ContainerBuffer.h"
#include "containers/ElementSort.h"
#include "containers/QcElement.h"
#include "containers/QcQuene.h"
#include "platform/base/Api.h"

template <class T>
class QcArray {
public:
    // Empty, without a buffer.
    QcArray() = default;
    // n default elements; none for n below 1.
    explicit QcArray(long n) { ReAllocate(n, false); }
    // Copies the elements; empty where there is no memory.
    QcArray(const QcArray& other) { *this = other; }
    // Takes the other one's buffer, which is empty afterwards.
    QcArray(QcArray&& other) noexcept { TakeFrom(other); }
    // Copies the elements; nothing changes where there is no memory.
    QcArray& operator=(const QcArray& other);
    // Takes the other one's buffer, which is empty afterwards.
    QcArray& operator=(QcArray&& other) noexcept {
        if (this != &other) {
            Reset();
            TakeFrom(other);
        }
        return *this;
    }
    virtual ~QcArray() { Reset(); }

    // Makes the length n, when it is another one: n default elements, of which the first are the old ones if bKeep.
    void ReAllocate(long n, bool bKeep);
    // Frees all elements.
    void Reset() {
        std::destroy_n(m_pData, m_nLength);
        QcBuffer<T>::Free(m_pData);
        m_pData = nullptr;
        m_nLength = 0;
    }

    // How many elements there are.
    long GetLength() const { return m_nLength; }
    // The last element's index, -1 in an empty array.
    long GetMaxIndex() const { return GetLength() - 1; }
    // Whether there is no element.
    bool IsEmpty() const { return m_nLength == 0; }
    // Whether an index names an element.
    bool IsValidIndex(long i) const { return i >= 0 && i < m_nLength; }

    // The first element, behind which the others lie; it stays the array's. Null when there is none.
    T* GetDataBuffer() const { return m_pData; }
    // The i-th element, null when there is none.
    T* GetAt(long i) const { return IsValidIndex(i) ? m_pData + i : nullptr; }
    // False when i names no element.
    bool SetAt(long i, const T& x) {
        if (!IsValidIndex(i))
            return false;
        m_pData[i] = x;
        return true;
    }
    // The i-th element; a default element that is nobody's when there is none.
    T& operator[](long i) { return IsValidIndex(i) ? m_pData[i] : QcElement<T>::Spare(); }
    const T& operator[](long i) const { return IsValidIndex(i) ? m_pData[i] : QcElement<T>::Spare(); }
    // Every element becomes x.
    void SetAll(const T& x) {
        const QcElementCopy<T> copy(x);
        std::fill_n(m_pData, m_nLength, copy.m_data);
    }

    // Insert puts x at index i, at the end when i names no element. x may be one of the array's own elements.
    void Append(const T& x) { Insert(m_nLength, x); }
    void Insert(long i, const T& x);
    void InsertHead(const T& x) { Insert(0, x); }
    // Nothing when i names no element.
    void Del(long i);
    // The first, and the last element; nothing in an empty array.
    void DelHead() { Del(0); }
    void DelTail() { Del(GetMaxIndex()); }

    // An end index that names no element means the last one; both are included. Find gives an index or -1, and with a
    // queue how many indexes it added; BFind looks by bisection in elements that are sorted upwards; FindDel gives how
    // many it removed.
    long Find(const T& x, long from = 0, long to = -1) const;
    long Find(const T& x, QcQuene<long>& hits, long from = 0, long to = -1) const;
    bool BFind(const T& x, long from = 0, long to = -1) const;
    long FindDel(const T& x);
    // The index of the first element equal to x, which is put in when there is none: at the end, or at the head.
    long FindOrAppend(const T& x);
    void FindOrInsertHead(const T& x);

    // Turns a run round; both ends are included.
    void Reverse(long from, long to);
    // Stable. By T's own order (nothing without one), or by cmp, which gives less than 0 when its first argument comes
    // first (nothing for null).
    void Sort(bool bAscending) { ElementSort<T>::Sort(m_pData, m_nLength, bAscending); }
    void Sort(int (*cmp)(const T&, const T&)) { ElementSort<T>::Sort(m_pData, m_nLength, cmp); }

    // As many elements, and equal ones, by T's own ==.
    bool operator==(const QcArray& other) const {
        return m_nLength == other.m_nLength &&
               std::equal(m_pData, m_pData + m_nLength, other.m_pData, &QcElement<T>::Equal);
    }
    bool operator!=(const QcArray& other) const { return !(*this == other); }
    // Element by element; an array that is the beginning of another is less.
    bool operator<(const QcArray& other) const {
        return std::lexicographical_compare(m_pData, m_pData + m_nLength, other.m_pData,
                                            other.m_pData + other.m_nLength, &QcElement<T>::Less);
    }
    bool operator>(const QcArray& other) const { return other < *this; }

private:
    void TakeFrom(QcArray& other) {
        std::swap(m_pData, other.m_pData);
        std::swap(m_nLength, other.m_nLength);
    }
    long EndIndex(long to) const { return IsValidIndex(to) ? to : GetMaxIndex(); }

    static constexpr long kMaxCount = std::numeric_limits<int>::max();

    T* m_pData = nullptr;
    int m_nLength = 0;
};

template <class T>
QcArray<T>& QcArray<T>::operator=(const QcArray& other) {
    if (this != &other) {
        ReAllocate(other.m_nLength, true);
        if (m_nLength == other.m_nLength)
            std::copy_n(other.m_pData, m_nLength, m_pData);
    }
    return *this;
}

template <class T>
void QcArray<T>::ReAllocate(long n, bool bKeep) {
    n = n < 0 ? 0 : n;
    if (n == m_nLength || n > kMaxCount)
        return;
    if (n == 0) {
        Reset();
        return;
    }
    const long nLive = !bKeep ? 0 : (n < m_nLength ? n : m_nLength);
    const bool bZeroed = QcBuffer<T>::kStartsAsZeros;
    T* const pNew = bZeroed ? QcBuffer<T>::AllocateZeroed(n) : QcBuffer<T>::Allocate(n);
    if (pNew == nullptr)
        return;
    if (!bZeroed)
        std::uninitialized_value_construct_n(pNew + nLive, n - nLive);
    std::destroy(m_pData + nLive, m_pData + m_nLength);
    QcBuffer<T>::MoveAcross(m_pData, nLive, pNew);
    QcBuffer<T>::Free(m_pData);
    m_pData = pNew;
    m_nLength = static_cast<int>(n);
}

template <class T>
void QcArray<T>::Insert(long i, const T& x) {
    const QcElementCopy<T> copy(x);
    const long nOld = m_nLength;
    if (nOld < kMaxCount)
        ReAllocate(nOld + 1, true);
    if (m_nLength == nOld)
        return;
    i = i >= 0 && i < nOld ? i : nOld;
    std::move_backward(m_pData + i, m_pData + nOld, m_pData + nOld + 1);
    m_pData[i] = copy.m_data;
}

template <class T>
void QcArray<T>::Del(long i) {
    if (IsValidIndex(i)) {
        std::move(m_pData + i + 1, m_pData + m_nLength, m_pData + i);
        ReAllocate(m_nLength - 1, true);
    }
}

template <class T>
long QcArray<T>::Find(const T& x, long from, long to) const {
    to = EndIndex(to);
    for (long i = from; i >= 0 && i <= to; ++i)
        if (QcElement<T>::Equal(m_pData[i], x))
            return i;
    return -1;
}

template <class T>
long QcArray<T>::Find(const T& x, QcQuene<long>& hits, long from, long to) const {
    long nFound = 0;
    to = EndIndex(to);
    for (long i = from; i >= 0 && i <= to; ++i)
        if (QcElement<T>::Equal(m_pData[i], x) && hits.Append(i))
            ++nFound;
    return nFound;
}

template <class T>
bool QcArray<T>::BFind(const T& x, long from, long to) const {
    const T* const pEnd = m_pData + EndIndex(to) + 1;
    const T* p = m_pData + (from < 0 ? 0 : from > m_nLength ? m_nLength : from);
    if (p < pEnd) {
        p = std::lower_bound(p, pEnd, x, &QcElement<T>::Less);
        for (; p < pEnd && !QcElement<T>::Less(x, *p); ++p)
            if (QcElement<T>::Equal(*p, x))
                return true;
    }
    return false;
}

template <class T>
long QcArray<T>::FindDel(const T& x) {
    long nKept = 0;
    if constexpr (QcElement<T>::kComparesValues) {
        const QcElementCopy<T> wanted(x);  // x may be one of those that go
        for (long i = 0; i < m_nLength; ++i) {
            if (!QcElement<T>::Equal(m_pData[i], wanted.m_data)) {
                if (nKept != i)
                    m_pData[nKept] = std::move(m_pData[i]);
                ++nKept;
            }
        }
        const long nRemoved = m_nLength - nKept;
        ReAllocate(nKept, true);
        return nRemoved;
    } else {
        nKept = m_nLength;
        Del(Find(x));
        return nKept - m_nLength;
    }
}

template <class T>
long QcArray<T>::FindOrAppend(const T& x) {
    const long nFound = Find(x);
    if (nFound >= 0)
        return nFound;
    Append(x);
    return GetMaxIndex();
}

template <class T>
void QcArray<T>::FindOrInsertHead(const T& x) {
    if (Find(x) < 0)
        InsertHead(x);
}

template <class T>
void QcArray<T>::Reverse(long from, long to) {
    to = EndIndex(to);
    for (long i = from; i >= 0 && i < to; ++i, --to)
        QcElement<T>::Swap(m_pData[i], m_pData[to]);
}

extern template class ORVO_API QcArray<int>;
extern template class ORVO_API QcArray<char>;
extern template class ORVO_API QcArray<double>;
