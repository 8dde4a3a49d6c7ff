// An array with a cursor, whose elements lie side by side. It grows by a fixed step: an element too many makes the
// capacity the wanted count plus the allocation unit. Only the counted elements live; the rest of the capacity is raw
// memory.
#pragma once

#include <algorithm>
#include <cstdint>

#include "containers/ContainerBuffer.h"
#include "containers/ElementSort.h"
#include "containers/QcCounting.h"
#include "containers/QcDynArrayBase.h"
#include "containers/QcList.h"

template <class T>
class QcDynArray : public QcDynArrayBase<T> {
    using Base = QcDynArrayBase<T>;

public:
    // Room for nCapacity elements (no buffer below 1), which grows by steps of nAllocUnit; count 0.
    explicit QcDynArray(long nCapacity = 0, long nAllocUnit = 10) {
        SetAllocUnit(nAllocUnit);
        if (nCapacity > 0)
            SetSpaceSize(nCapacity);
    }
    // Copies the elements and the allocation unit.
    QcDynArray(const QcDynArray& other) : Base() {
        m_nAllocUnit = other.m_nAllocUnit;
        Base::DeepCopy(other);
    }
    // Copies the elements of any container.
    explicit QcDynArray(const Base& other) { Base::DeepCopy(other); }
    // The elements; the allocation unit stays.
    QcDynArray& operator=(const QcDynArray& other) {
        Base::DeepCopy(other);
        return *this;
    }
    using Base::operator=;
    using Base::operator[];

    void ReAllocate(long n) override { Resize(n); }
    ~QcDynArray() override { Drop(); }
    // Count and capacity both become n, in a buffer of exactly that size.
    void SetLength(long n, bool bKeep) override;
    void Reset() override {
        Drop();
        ClearFields();
    }
    T& GetCurData() final { return this->IsOut() ? QcElement<T>::Spare() : m_pData[this->GetCurPos()]; }
    void SetCurData(const T& x) override {
        if (!this->IsOut())
            m_pData[this->GetCurPos()] = x;
    }
    void MoveToFirst() final { this->ResetCur(); }
    void MoveToNext() final { this->StepCur(); }
    void MoveToPre() final { this->SetCurPos(this->IsOut() ? this->GetMaxIndex() : this->GetCurPos() - 1); }
    void MoveToLast() final { this->SetCurPos(this->GetMaxIndex()); }
    void MoveTo(long i) final { this->SetCurPos(this->IsValidIndex(i) ? i : -1); }
    T& operator[](long i) final { return this->IsValidIndex(i) ? m_pData[i] : QcElement<T>::Spare(); }
    T* GetFirst() const final { return this->IsEmpty() ? nullptr : m_pData; }
    // An address outside the elements has no next and no previous one.
    T* GetNext(const T* p) const final {
        return BytesTo(p) + sizeof(T) < LiveBytes() ? const_cast<T*>(p) + 1 : nullptr;
    }
    T* GetPre(const T* p) const final {
        return p != m_pData && BytesTo(p) < LiveBytes() ? const_cast<T*>(p) - 1 : nullptr;
    }
    T* GetLast() const final { return this->IsEmpty() ? nullptr : m_pData + this->GetMaxIndex(); }
    T* GetAt(long i) const final { return this->IsValidIndex(i) ? m_pData + i : nullptr; }
    void InsertCur(const T& x) override { InsertAt(this->IsOut() ? this->GetLength() : this->GetCurPos(), x); }
    // Growing happens here, without a call that would need this array in memory: a loop that appends then keeps count,
    // capacity and address in registers.
    void Append(const T& x) override {
        const long n = this->GetLength();
        if (n < m_nCapacity) {
            QcBuffer<T>::BuildCopy(m_pData + n, x);
        } else {
            const QcElementCopy<T> copy(x);  // x may lie in the buffer
            const long nCapacity = n < Base::kMaxCount ? GrownTo(n + 1) : 0;
            T* const pNew = nCapacity > 0 ? QcBuffer<T>::Grow(m_pData, n, nCapacity) : nullptr;
            if (pNew == nullptr)
                return;
            m_pData = pNew;
            m_nCapacity = static_cast<int>(nCapacity);
            QcBuffer<T>::BuildCopy(m_pData + n, copy.m_data);
        }
        this->SetCount(n + 1);
        this->SetCurPos(n);
    }
    void DelCur() override;
    void Sort(int (*cmp)(const T&, const T&)) override { ElementSort<T>::Sort(m_pData, this->GetLength(), cmp); }
    void Sort(bool bAscending) override { ElementSort<T>::Sort(m_pData, this->GetLength(), bAscending); }
    bool Move(long from, long to) override;
    void InsertAfterCur(const T& x) override { InsertAt(this->GetCurPos() + 1, x); }
    long DetachAfterCur() override {
        const long nBefore = this->GetLength();
        Resize(this->GetCurPos() + 1);
        return nBefore - this->GetLength();
    }
    long Conbine(QcList<T>& other, long pos) override;
    void ReverseList() override { ReverseRun(0, this->GetLength()); }
    void Rotate(long from, long to) override;

    // Makes the capacity n. False, with nothing changed, when n is below the count or there is no memory.
    bool SetSpaceSize(long n);
    // The capacity, in elements.
    long GetSpaceSize() const { return m_nCapacity; }
    // The growth step, in elements; below 0 it counts as 0.
    void SetAllocUnit(long n) {
        m_nAllocUnit = static_cast<int>(n < 0 ? 0 : n > Base::kMaxCount ? Base::kMaxCount : n);
    }
    long GetAllocUnit() const { return m_nAllocUnit; }

    // Takes over a buffer of n elements from QcNewBuffer<T>(n) or another array's Detach; the old elements go. Memory
    // from new[], malloc or elsewhere cannot be attached: debug builds stop with a sentence, others abort. An n below
    // the buffer's number of elements takes the first n, one above it what there is. Null, or an n below 1, leaves the
    // array empty (the buffer is freed then too). Cursor out.
    void Attach(long n, T* pBuffer);
    // Hands the buffer over, to be freed with QcDeleteBuffer<T>(p) (never with delete[] or free) or attached again, and
    // leaves the array empty. Null when there is none.
    T* Detach();

protected:
    // Count n without a virtual call. New elements are default ones.
    void Resize(long n);
    // Puts x at index i, 0 to the count; the cursor is on it then.
    void InsertAt(long i, const T& x);

private:
    // How far p lies behind the first element; huge for what lies before it.
    std::uintptr_t BytesTo(const T* p) const {
        return reinterpret_cast<std::uintptr_t>(p) - reinterpret_cast<std::uintptr_t>(m_pData);
    }
    std::uintptr_t LiveBytes() const { return static_cast<std::uintptr_t>(this->GetLength()) * sizeof(T); }
    void Drop() {
        std::destroy_n(m_pData, this->GetLength());
        QcBuffer<T>::Free(m_pData);
    }
    void ClearFields() {
        m_pData = nullptr;
        m_nCapacity = 0;
        this->SetCount(0);
        this->SetCurPos(-1);
    }
    // The capacity of an array that grows because it has to hold n elements.
    long GrownTo(long n) const { return QcSumUpTo<long>(n, m_nAllocUnit, Base::kMaxCount); }
    bool Refit(long nCapacity, long nKeep, bool& rbZeroed);
    bool Reserve(long n);
    void SetCountTo(long n, bool bZeroed);
    void ReverseRun(long from, long nEnd) {
        for (--nEnd; from < nEnd; ++from, --nEnd)
            QcElement<T>::Swap(m_pData[from], m_pData[nEnd]);
    }

    T* m_pData = nullptr;
    int m_nCapacity = 0;
    int m_nAllocUnit = 10;
};

// Makes the capacity nCapacity, of which the first nKeep elements stay and the others go. False, with nothing changed,
// when there is no memory. rbZeroed tells that the bytes behind the kept elements are zeros: large fresh runs come so
// from the system, page by page as they are touched.
template <class T>
bool QcDynArray<T>::Refit(long nCapacity, long nKeep, bool& rbZeroed) {
    constexpr long kLarge = 1 << 20;
    using Buffer = QcBuffer<T>;
    rbZeroed = Buffer::kStartsAsZeros && nCapacity - nKeep > kLarge;
    T* pNew = nullptr;
    if (!rbZeroed && nKeep == this->GetLength() && nCapacity > m_nCapacity) {
        pNew = Buffer::Grow(m_pData, nKeep, nCapacity);
    } else if (Buffer::kMovesAsBytes && !rbZeroed && m_pData != nullptr && nKeep > 0) {
        pNew = Buffer::Resize(m_pData, nCapacity);
    } else {
        pNew = rbZeroed ? Buffer::AllocateZeroed(nCapacity) : Buffer::Allocate(nCapacity);
        if (pNew != nullptr) {
            std::destroy(m_pData + nKeep, m_pData + this->GetLength());
            Buffer::MoveAcross(m_pData, nKeep, pNew);
            Buffer::Free(m_pData);
        }
    }
    if (pNew == nullptr)
        return false;
    m_pData = pNew;
    m_nCapacity = static_cast<int>(nCapacity);
    this->SetCount(nKeep);
    return true;
}

// Room for n elements, which are no more than an array may have, by the growth step if there is too little.
template <class T>
bool QcDynArray<T>::Reserve(long n) {
    if (n <= m_nCapacity)
        return true;
    bool bZeroed = false;
    return Refit(GrownTo(n), this->GetLength(), bZeroed);
}

template <class T>
void QcDynArray<T>::SetCountTo(long n, bool bZeroed) {
    const long nOld = this->GetLength();
    if (n < nOld)
        std::destroy(m_pData + n, m_pData + nOld);
    else if (!bZeroed)
        std::uninitialized_value_construct_n(m_pData + nOld, n - nOld);
    this->SetCount(n);
    if (this->GetCurPos() >= n)
        this->SetCurPos(-1);
}

template <class T>
void QcDynArray<T>::Resize(long n) {
    n = n < 0 ? 0 : n;
    bool bZeroed = false;
    if (n > m_nCapacity && (n > Base::kMaxCount || !Refit(GrownTo(n), this->GetLength(), bZeroed)))
        return;
    SetCountTo(n, bZeroed);
}

template <class T>
void QcDynArray<T>::SetLength(long n, bool bKeep) {
    if (n < 1) {
        Reset();
        return;
    }
    bool bZeroed = false;
    if (n != m_nCapacity && (n > Base::kMaxCount || !Refit(n, bKeep ? std::min(n, this->GetLength()) : 0, bZeroed)))
        return;
    SetCountTo(n, bZeroed);
}

template <class T>
bool QcDynArray<T>::SetSpaceSize(long n) {
    if (n < this->GetLength() || n > Base::kMaxCount)
        return false;
    if (n == 0) {
        QcDynArray::Reset();
        return true;
    }
    bool bZeroed = false;
    return n == m_nCapacity || Refit(n, this->GetLength(), bZeroed);
}

template <class T>
void QcDynArray<T>::InsertAt(long i, const T& x) {
    const long n = this->GetLength();
    const QcElementCopy<T> copy(x);
    if (n >= Base::kMaxCount || !Reserve(n + 1))
        return;
    QcBuffer<T>::BuildCopy(m_pData + n, i == n ? copy.m_data : m_pData[n - 1]);
    if (i < n) {
        std::move_backward(m_pData + i, m_pData + n - 1, m_pData + n);
        m_pData[i] = copy.m_data;
    }
    this->SetCount(n + 1);
    this->SetCurPos(i);
}

template <class T>
void QcDynArray<T>::DelCur() {
    const long i = this->GetCurPos();
    if (i < 0)
        return;
    std::move(m_pData + i + 1, m_pData + this->GetLength(), m_pData + i);
    Resize(this->GetLength() - 1);
    this->SetCurPos(i - 1);
}

template <class T>
bool QcDynArray<T>::Move(long from, long to) {
    if (!this->IsValidIndex(from) || !this->IsValidIndex(to))
        return false;
    const QcElementCopy<T> copy(m_pData[from]);
    if (from < to)
        std::move(m_pData + from + 1, m_pData + to + 1, m_pData + from);
    else
        std::move_backward(m_pData + to, m_pData + from, m_pData + from + 1);
    m_pData[to] = copy.m_data;
    return true;
}

template <class T>
long QcDynArray<T>::Conbine(QcList<T>& other, long pos) {
    const long nOld = this->GetLength();
    const long nMore = other.GetLength();
    pos = this->IsValidIndex(pos) ? pos : nOld;
    if (nMore < 1 || nMore > Base::kMaxCount - nOld || !Reserve(nOld + nMore))
        return nOld;
    SetCountTo(nOld + nMore, false);
    std::move_backward(m_pData + pos, m_pData + nOld, m_pData + nOld + nMore);
    T* pTo = m_pData + pos;
    for (T* p = other.GetFirst(); p != nullptr; p = other.GetNext(p))
        *pTo++ = std::move(*p);
    other.QcList<T>::Reset();  // what the elements own is this array's now
    if (this->GetCurPos() >= pos)
        this->SetCurPos(this->GetCurPos() + nMore);
    return this->GetLength();
}

// Three reversals make a rotation.
template <class T>
void QcDynArray<T>::Rotate(long from, long to) {
    const long n = this->GetLength();
    if (!this->IsValidIndex(from) || !this->IsValidIndex(to) || from == to)
        return;
    const long nFirst = QcFirstOfRotation(from, to, n);
    ReverseRun(0, nFirst);
    ReverseRun(nFirst, n);
    ReverseRun(0, n);
}

template <class T>
void QcDynArray<T>::Attach(long n, T* pBuffer) {
    if (pBuffer == m_pData && pBuffer != nullptr)
        return;  // the array has it already
    this->Reset();
    if (pBuffer == nullptr)
        return;
    if (n < 1) {
        QcDeleteBuffer(pBuffer);
        return;
    }
    const long nBuilt = QcBuffer<T>::Claim(pBuffer);
    m_pData = pBuffer;
    this->SetCount(nBuilt);
    m_nCapacity = static_cast<int>(nBuilt);
    SetCountTo(std::min(n, nBuilt), false);
}

template <class T>
T* QcDynArray<T>::Detach() {
    T* const pBuffer = m_pData;
    if (pBuffer != nullptr)
        QcBuffer<T>::Loosen(pBuffer, this->GetLength());
    ClearFields();
    return pBuffer;
}

extern template class ORVO_API QcDynArray<int>;
extern template class ORVO_API QcDynArray<char>;
extern template class ORVO_API QcDynArray<double>;
