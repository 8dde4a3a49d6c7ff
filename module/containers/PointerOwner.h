// What the containers of owned pointers add to the container of pointers that they are. They own the objects that
// their slots point to, and delete them through T's destructor; a slot may be null.
//
// A pointer that goes in (Append, Insert..., SetCurData, PlaceIn, SortInto) belongs to the container from then on; an
// object must not be given twice. TakeOff... hands one back. Copying, appending or comparing whole containers works
// on the objects: copies are made with T's Clone() when it has one, else with its copy constructor (a derived object
// then loses what its class adds), and a T with neither gives null slots. Two containers never share an object.
//
// ...Data operations compare the objects. Null slots never match; they sort behind all objects.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

#include "containers/QcDynArrayBase.h"
#include "containers/QcList.h"

template <class T, class TBase>
class PointerOwner : public TBase, public QcOwnerMark {
    using Base = QcDynArrayBase<T*>;
    using Element = QcElement<T>;

public:
    using TBase::operator[];

    // Lists never shrink; an array deletes the objects of the slots behind n. New slots are null.
    void ReAllocate(long n) override {
        if constexpr (std::is_base_of_v<QcList<T*>, TBase>) {
            TBase::ReAllocate(n);
        } else {
            if (n < this->GetLength())
                ReleaseFrom(n);
            TBase::ReAllocate(n);
        }
    }
    ~PointerOwner() override { ReleaseFrom(0); }
    // With bKeep the first objects stay; without, all are deleted and the slots are null.
    void SetLength(long n, bool bKeep) override {
        if (n < this->GetLength())
            ReleaseFrom(n);
        TBase::SetLength(n, true);
        if (!bKeep && (n < 1 || n == this->GetLength()))
            ReleaseFrom(0);
    }
    // Deletes all objects and removes their slots.
    void Reset() override {
        ReleaseFrom(0);
        TBase::Reset();
    }
    // Deletes the current object, unless it is p itself. When the cursor is out, p stays the caller's.
    void SetCurData(T* const& p) override {
        if (!this->IsOut()) {
            T* const pOld = this->GetCurData();
            T* const pNew = p;
            TBase::SetCurData(pNew);
            if (pOld != pNew)
                delete pOld;
        }
    }
    // Removes the current slot and deletes its object; nothing when the cursor is out.
    void DelCur() override {
        T* const pOld = GetCurPData();
        TBase::DelCur();
        delete pOld;
    }
    // Deletes the objects that are cut off.
    long DetachAfterCur() override {
        ReleaseFrom(this->GetCurPos() + 1);
        return TBase::DetachAfterCur();
    }

    // ---- The objects. ----

    // The object of slot i, or of the current slot; it stays the container's. Null when there is none.
    T* GetPData(long i) const {
        T* const* const p = this->GetAt(i);
        return p == nullptr ? nullptr : *p;
    }
    T* GetCurPData() { return this->IsOut() ? nullptr : this->GetCurData(); }
    // The number of slots that are not null.
    long GetDataNum() const;
    // True also when there is no such slot.
    bool IsCurEmpty() { return GetCurPData() == nullptr; }
    // Whether slot i is null or not there.
    bool IsEmptyData(long i) const { return GetPData(i) == nullptr; }

    // Adds an object at the end. False, with the object left to the caller, when there is no memory.
    bool PlaceIn(T* p) {
        const long n = this->GetLength();
        this->Append(p);
        return this->GetLength() > n;
    }
    // Delete the object and leave its slot, null.
    void ReleaseCur() { SetCurData(nullptr); }
    void Release(long i) {
        this->MoveTo(i);
        ReleaseCur();
    }
    // All objects; the slots stay, null.
    void ReleaseAll();
    // Take an object out with its slot; it is the caller's then. Null when there is none.
    T* TakeOffCur();
    T* TakeOff(long i) {
        this->MoveTo(i);
        return TakeOffCur();
    }
    T* TakeOffHead() {
        this->MoveToFirst();
        return TakeOffCur();
    }
    T* TakeOffTail() {
        this->MoveToLast();
        return TakeOffCur();
    }
    // Removes and deletes the first slot that holds this very pointer: 1, or 0 when there is none.
    long FindDel(T* p);

    // ---- As the forms without Data, comparing objects. Those that take an object by pointer find none for null. ----

    // The index of the first equal object between two indexes (both included), or -1; with a queue how many there were.
    long FindData(const T& x, long from = 0, long to = -1) const;
    long FindData(const T& x, QcQuene<long>& hits, long from = 0, long to = -1) const;
    long FindData(const T* p, long from = 0, long to = -1) const { return p == nullptr ? -1 : FindData(*p, from, to); }
    // Walks from start and stops on the first equal object; out, and false, when there is none.
    bool FindDataTo(const T& x, long start = 0);
    bool FindDataTo(const T* p, long start = 0);
    // Removes and deletes all equal objects; x itself may be one of them.
    long FindDataDel(const T& x);
    long FindDataDel(const T* p) { return p == nullptr ? 0 : FindDataDel(*p); }
    // The index of the first equal object; p stays the caller's then, and is added otherwise. -1 for null.
    long FindDataOrAppend(T* p);
    // Whether p was added, and with that given away.
    bool FindDataOrInsertHead(T* p);
    // Bisection in slots sorted upwards: whether there is an equal object. BFindDataTo goes to it, or else to where x
    // has to be inserted.
    bool BFindData(const T& x, long from = 0, long to = -1) const {
        long nPos = 0;
        return BSearchData(x, from, to, nPos);
    }
    bool BFindData(const T* p, long from = 0, long to = -1) const { return p != nullptr && BFindData(*p, from, to); }
    bool BFindDataTo(const T& x, long from = 0, long to = -1);
    bool BFindDataTo(const T* p, long from = 0, long to = -1);
    // Inserts the object at its place. False (for null, or an equal object unless bAllowSame) leaves it to the caller.
    bool SortInto(T* p, bool bAllowSame);
    // Sorts by the objects' order, stably.
    void SortEx(bool bAscending);

    // ---- Whole containers. Sources may be containers that own nothing; the objects are copied from there too. ----

    // Appends an object, which is owned then, or copies of all objects of a container.
    PointerOwner& operator<<(T* p) {
        this->Append(p);
        return *this;
    }
    PointerOwner& operator<<(const Base& other);
    PointerOwner& operator<<(const QcArray<T*>& other);
    // The old objects go; copies of the other one's come.
    void DeepCopy(const Base& other);
    void DeepCopy(const QcArray<T*>& other);
    PointerOwner& operator=(const Base& other) {
        DeepCopy(other);
        return *this;
    }
    PointerOwner& operator=(const QcArray<T*>& other) {
        DeepCopy(other);
        return *this;
    }
    // Into an owning container go copies, into any other one the pointers, which stay owned here.
    void Left(long n, Base& out) const { CopyRun(0, n, out); }
    void Right(long n, Base& out) const { CopyRun(QcFirstOfLast<long>(n, this->GetLength()), n, out); }
    void Mid(long from, long n, Base& out) const { CopyRun(from, n, out); }
    // Every slot gets a copy of the object, which stays the caller's; null releases all.
    void SetAll(const T* p);

    // Pair by pair: both null, or equal objects.
    bool operator==(const PointerOwner& other) const;
    bool operator!=(const PointerOwner& other) const { return !(*this == other); }
    // The first pair that differs in order decides; null is greater than every object.
    bool operator<(const PointerOwner& other) const;
    bool operator>(const PointerOwner& other) const { return other < *this; }

    // A new object like *p; null for null, for a T that cannot be copied, or without memory.
    static T* CopyOf(const T* p);

protected:
    using TBase::TBase;
    // Empty.
    PointerOwner() = default;
    // Copies the objects.
    PointerOwner(const PointerOwner& other) : TBase(), QcOwnerMark() { DeepCopy(other); }
    explicit PointerOwner(const Base& other) { DeepCopy(other); }
    PointerOwner& operator=(const PointerOwner& other) {
        DeepCopy(other);
        return *this;
    }

    // Deletes the objects in the slots from index i on and leaves the slots null.
    void ReleaseFrom(long i);
    // As BSearch, by the objects.
    bool BSearchData(const T& x, long from, long to, long& rnPos) const;

private:
    static bool IsBefore(const T* p, const T* q) { return p != nullptr && (q == nullptr || Element::Less(*p, *q)); }
    static bool IsSame(const T* p, const T* q) {
        return p == nullptr || q == nullptr ? p == q : Element::Equal(*p, *q);
    }
    template <class Source>
    static T** CopiesOf(const Source& other, typename Base::template Next<Source> next);
    void PutIn(T** pCopies, long from, long n);
    template <class Source>
    void AppendCopies(const Source& other, typename Base::template Next<Source> next);
    template <class Source>
    void ReplaceByCopies(const Source& other, typename Base::template Next<Source> next);
    void CopyRun(long from, long n, Base& out) const;
};

template <class T, class TBase>
T* PointerOwner<T, TBase>::CopyOf(const T* p) {
    if (p == nullptr)
        return nullptr;
    if constexpr (requires {
                      { p->Clone() } -> std::convertible_to<T*>;
                  })
        return p->Clone();
    else if constexpr (std::is_copy_constructible_v<T>)
        return new (std::nothrow) T(*p);
    else
        return nullptr;
}

template <class T, class TBase>
void PointerOwner<T, TBase>::ReleaseFrom(long i) {
    for (T** p = this->GetAt(i); p != nullptr; p = this->GetNext(p)) {
        T* const pOld = *p;
        *p = nullptr;
        delete pOld;
    }
}

template <class T, class TBase>
long PointerOwner<T, TBase>::GetDataNum() const {
    long nData = 0;
    for (T* const* p = this->GetFirst(); p != nullptr; p = this->GetNext(p))
        nData += *p == nullptr ? 0 : 1;
    return nData;
}

template <class T, class TBase>
void PointerOwner<T, TBase>::ReleaseAll() {
    this->MoveToFirst();
    while (!this->IsOut()) {
        ReleaseCur();
        this->MoveToNext();
    }
}

template <class T, class TBase>
T* PointerOwner<T, TBase>::TakeOffCur() {
    if (this->IsOut())
        return nullptr;
    T* const p = this->GetCurData();
    TBase::SetCurData(nullptr);
    this->DelCur();
    return p;
}

template <class T, class TBase>
long PointerOwner<T, TBase>::FindDel(T* p) {
    if (!this->FindTo(p))
        return 0;
    this->DelCur();
    return 1;
}

template <class T, class TBase>
long PointerOwner<T, TBase>::FindData(const T& x, long from, long to) const {
    to = this->EndIndex(to);
    T* const* p = this->GetAt(from);
    for (long i = from; p != nullptr && i <= to; ++i, p = this->GetNext(p))
        if (*p != nullptr && Element::Equal(**p, x))
            return i;
    return -1;
}

template <class T, class TBase>
long PointerOwner<T, TBase>::FindData(const T& x, QcQuene<long>& hits, long from, long to) const {
    long nFound = 0;
    to = this->EndIndex(to);
    T* const* p = this->GetAt(from);
    for (long i = from; p != nullptr && i <= to; ++i, p = this->GetNext(p))
        if (*p != nullptr && Element::Equal(**p, x) && hits.Append(i))
            ++nFound;
    return nFound;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::FindDataTo(const T& x, long start) {
    this->MoveTo(start);
    while (!this->IsOut()) {
        const T* const p = this->GetCurData();
        if (p != nullptr && Element::Equal(*p, x))
            return true;
        this->MoveToNext();
    }
    return false;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::FindDataTo(const T* p, long start) {
    if (p == nullptr) {
        this->MoveTo(-1);
        return false;
    }
    return FindDataTo(*p, start);
}

template <class T, class TBase>
long PointerOwner<T, TBase>::FindDataDel(const T& x) {
    T* pItself = nullptr;  // x, if it is one of them, is needed to the end
    long nRemoved = 0;
    this->MoveToFirst();
    while (!this->IsOut()) {
        T* const p = this->GetCurData();
        if (p != nullptr && Element::Equal(*p, x)) {
            if (p == std::addressof(x))
                pItself = TakeOffCur();
            else
                this->DelCur();
            ++nRemoved;
        }
        this->MoveToNext();
    }
    delete pItself;
    return nRemoved;
}

template <class T, class TBase>
long PointerOwner<T, TBase>::FindDataOrAppend(T* p) {
    const long nFound = FindData(p);
    if (nFound >= 0 || p == nullptr)
        return nFound;
    return PlaceIn(p) ? this->GetMaxIndex() : -1;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::FindDataOrInsertHead(T* p) {
    if (p == nullptr || FindData(p) >= 0)
        return false;
    const long n = this->GetLength();
    this->InsertHead(p);
    return this->GetLength() > n;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::BSearchData(const T& x, long from, long to, long& rnPos) const {
    T* const* const p =
        this->LowerBound([&x](const T* e) { return e != nullptr && Element::Less(*e, x); }, from, to, rnPos);
    return this->MatchInRun(
               p, to, [&x](const T* e) { return e == nullptr || Element::Less(x, *e); },
               [&x](const T* e) { return Element::Equal(*e, x); }, rnPos) != nullptr;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::BFindDataTo(const T& x, long from, long to) {
    long nPos = 0;
    const bool bFound = BSearchData(x, from, to, nPos);
    this->MoveTo(nPos);
    return bFound;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::BFindDataTo(const T* p, long from, long to) {
    if (p == nullptr) {
        this->MoveTo(-1);
        return false;
    }
    return BFindDataTo(*p, from, to);
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::SortInto(T* p, bool bAllowSame) {
    if (p == nullptr)
        return false;
    if (BFindDataTo(*p)) {
        if (!bAllowSame)
            return false;
        while (GetCurPData() != nullptr && Element::Equal(*GetCurPData(), *p))
            this->MoveToNext();
    }
    const long n = this->GetLength();
    this->InsertCur(p);
    return this->GetLength() > n;
}

template <class T, class TBase>
void PointerOwner<T, TBase>::SortEx(bool bAscending) {
    if constexpr (Element::kHasOrder) {
        if (bAscending) {
            this->Sort([](T* const& p, T* const& q) { return IsBefore(p, q) ? -1 : 0; });
        } else {
            this->Sort([](T* const& p, T* const& q) {
                return p != nullptr && (q == nullptr || Element::Less(*q, *p)) ? -1 : 0;
            });
        }
    }
}

// A block of n copies, made before anything of this container goes; null for an empty source or without memory.
template <class T, class TBase>
template <class Source>
T** PointerOwner<T, TBase>::CopiesOf(const Source& other, typename Base::template Next<Source> next) {
    const long n = other.GetLength();
    if (n < 1)
        return nullptr;
    T** const pCopies = static_cast<T**>(std::malloc(static_cast<std::size_t>(n) * sizeof(T*)));
    T* const* pFrom = nullptr;
    for (long i = 0; pCopies != nullptr && i < n; ++i) {
        pFrom = next(other, pFrom);
        pCopies[i] = CopyOf(*pFrom);
    }
    return pCopies;
}

// Fills the slots from index from on with the copies, or deletes these when the slots could not be made.
template <class T, class TBase>
void PointerOwner<T, TBase>::PutIn(T** pCopies, long from, long n) {
    T** pTo = this->GetLength() == from + n ? this->GetAt(from) : nullptr;
    for (long i = 0; i < n; ++i) {
        if (pTo == nullptr) {
            delete pCopies[i];
        } else {
            *pTo = pCopies[i];
            pTo = this->GetNext(pTo);
        }
    }
    std::free(static_cast<void*>(pCopies));
}

template <class T, class TBase>
template <class Source>
void PointerOwner<T, TBase>::AppendCopies(const Source& other, typename Base::template Next<Source> next) {
    const long nOld = this->GetLength();
    const long nMore = other.GetLength();
    T** const pCopies = nMore > Base::kMaxCount - nOld ? nullptr : CopiesOf(other, next);
    if (pCopies != nullptr) {
        this->ReAllocate(nOld + nMore);
        PutIn(pCopies, nOld, nMore);
        this->MoveToLast();
    }
}

template <class T, class TBase>
template <class Source>
void PointerOwner<T, TBase>::ReplaceByCopies(const Source& other, typename Base::template Next<Source> next) {
    const long n = other.GetLength();
    T** const pCopies = CopiesOf(other, next);
    if (pCopies != nullptr) {
        SetLength(n, false);
        PutIn(pCopies, 0, n);
        this->MoveTo(-1);
    } else if (n < 1) {
        Reset();
    }
}

template <class T, class TBase>
PointerOwner<T, TBase>& PointerOwner<T, TBase>::operator<<(const Base& other) {
    AppendCopies(other, &Base::NextOfBase);
    return *this;
}

template <class T, class TBase>
PointerOwner<T, TBase>& PointerOwner<T, TBase>::operator<<(const QcArray<T*>& other) {
    AppendCopies(other, &Base::NextOfArray);
    return *this;
}

template <class T, class TBase>
void PointerOwner<T, TBase>::DeepCopy(const Base& other) {
    if (this != std::addressof(other))
        ReplaceByCopies(other, &Base::NextOfBase);
}

template <class T, class TBase>
void PointerOwner<T, TBase>::DeepCopy(const QcArray<T*>& other) {
    ReplaceByCopies(other, &Base::NextOfArray);
}

template <class T, class TBase>
void PointerOwner<T, TBase>::CopyRun(long from, long n, Base& out) const {
    if (dynamic_cast<const QcOwnerMark*>(&out) == nullptr) {
        Base::Mid(from, n, out);
        return;
    }
    n = from < 0 || n < 0 ? 0 : std::min(n, this->GetLength() - from);
    if (&out == this) {
        const_cast<PointerOwner*>(this)->KeepRun(from, n);
        return;
    }
    out.Reset();
    T* const* p = this->GetAt(from);
    for (long i = 0; i < n; ++i, p = this->GetNext(p))
        out.Append(CopyOf(*p));
    out.MoveTo(-1);
}

template <class T, class TBase>
void PointerOwner<T, TBase>::SetAll(const T* p) {
    T* const pModel = CopyOf(p);  // p may be one of the objects that go
    ReleaseFrom(0);
    for (T** pSlot = this->GetFirst(); pSlot != nullptr; pSlot = this->GetNext(pSlot))
        *pSlot = CopyOf(pModel);
    delete pModel;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::operator==(const PointerOwner& other) const {
    if (this->GetLength() != other.GetLength())
        return false;
    T* const* q = other.GetFirst();
    for (T* const* p = this->GetFirst(); p != nullptr; p = this->GetNext(p), q = other.GetNext(q))
        if (!IsSame(*p, *q))
            return false;
    return true;
}

template <class T, class TBase>
bool PointerOwner<T, TBase>::operator<(const PointerOwner& other) const {
    T* const* q = other.GetFirst();
    for (T* const* p = this->GetFirst(); p != nullptr; p = this->GetNext(p), q = other.GetNext(q)) {
        if (q == nullptr || IsBefore(*q, *p))
            return false;
        if (IsBefore(*p, *q))
            return true;
    }
    return q != nullptr;
}
