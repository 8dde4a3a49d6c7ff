// A list with a cursor: a ring of singly linked nodes that a sentinel closes. Elements stay at their address from being
// inserted to being removed, also while the list is sorted, reversed or joined to another one.
//
// Inserting and removing at the cursor takes constant time. For a removal the list needs the node before the cursor,
// which it remembers whenever the cursor steps forward or inserts; after another movement (backward, or to the last
// element), the first removal, insertion before the cursor or step back has to look for it from the head. QcDList
// never has to.
//
// A list cannot be made without its sentinel: constructors alone let std::bad_alloc pass.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include "containers/ListSentinel.h"
#include "containers/QcCounting.h"
#include "containers/QcDListNode.h"
#include "containers/QcDynArrayBase.h"

template <class T>
class QcList : public QcDynArrayBase<T> {
    using Base = QcDynArrayBase<T>;

public:
    // What it is made of.
    using Node = QcListNode<T>;

    // n default elements, none for n below 1.
    explicit QcList(long n = 0) : QcList(ListSentinel<T>::kSingle) { QcList::ReAllocate(n); }
    // Copies the elements, also of another kind of container.
    QcList(const QcList& other) : QcList(ListSentinel<T>::kSingle) { Base::DeepCopy(other); }
    explicit QcList(const Base& other) : QcList(ListSentinel<T>::kSingle) { Base::DeepCopy(other); }
    QcList& operator=(const QcList& other) {
        Base::DeepCopy(other);
        return *this;
    }
    using Base::operator=;
    using Base::operator[];

    // Appends default elements until there are n; never shrinks.
    void ReAllocate(long n) override;
    ~QcList() override {
        FreeRun(m_pHead->m_pNext);
        delete Sentinel();
    }
    void SetLength(long n, bool bKeep) override;
    void Reset() override {
        FreeRun(m_pHead->m_pNext);
        Clear();
    }
    T& GetCurData() final { return this->IsOut() ? QcElement<T>::Spare() : m_pCur->m_data; }
    void SetCurData(const T& x) override {
        if (m_pCur != m_pHead)
            m_pCur->m_data = x;
    }
    void MoveToFirst() final { SetCur(m_pHead->m_pNext, this->IsEmpty() ? -1 : 0, m_pHead); }
    void MoveToNext() final {
        Node* const pOld = m_pCur;
        m_pCur = pOld->m_pNext;
        Sentinel()->m_pBeforeCur = pOld;
        this->StepCur();
    }
    void MoveToPre() override;
    void MoveToLast() final { SetCur(m_pTail, this->GetMaxIndex(), nullptr); }
    void MoveTo(long i) final;
    T& operator[](long i) final {
        T* const p = this->GetAt(i);
        return p == nullptr ? QcElement<T>::Spare() : *p;
    }
    T* GetFirst() const final { return Data(m_pHead->m_pNext); }
    // p is null or the address of an element of this list.
    T* GetNext(const T* p) const final { return p == nullptr ? nullptr : Data(NodeOf(p)->m_pNext); }
    T* GetPre(const T* p) const override;
    T* GetLast() const final { return Data(m_pTail); }
    T* GetAt(long i) const override;
    void InsertCur(const T& x) override;
    void Append(const T& x) override {
        SetCur(m_pTail, this->GetMaxIndex(), nullptr);
        QcList::InsertAfterCur(x);
    }
    void InsertHead(const T& x) override {
        SetCur(m_pHead, -1, m_pTail);
        QcList::InsertAfterCur(x);
    }
    void DelCur() override;
    void Sort(int (*cmp)(const T&, const T&)) override;
    void Sort(bool bAscending) override;
    bool Move(long from, long to) override;
    void InsertAfterCur(const T& x) override;
    long DetachAfterCur() override;
    long Conbine(QcList& other, long pos) override;
    void ReverseList() override;
    void Rotate(long from, long to) override;

    // Cuts off and frees all elements behind index i (all there are for -1). Gives how many; 0 when i is not -1 and
    // names no element. The cursor stays on its element, or is out when that went.
    long DetachAfter(long i);
    // Moves all elements behind index i, or behind the cursor, into another list, whose own elements go. As DetachAfter
    // otherwise; nothing when the other list is this one.
    long SplitAt(long i, QcList& other);
    long SplitAtCur(QcList& other) { return SplitAt(this->GetCurPos(), other); }

protected:
    // Moves the elements at the given indexes (in rising order) together, behind the first of them. Gives how many.
    long Gather(QcQuene<long>& hits) {
        long nFirst = 0;
        long nHit = 0;
        long nDone = 0;
        for (; hits.TakeOffHead(nHit); ++nDone)
            if (nDone == 0)
                nFirst = nHit;
            else
                QcList::Move(nHit, nFirst + nDone);
        return nDone;
    }

    // Empty, with nodes of that kind.
    explicit QcList(typename ListSentinel<T>::Kind kind)
        : m_pCur(nullptr), m_pHead(new ListSentinel<T>(kind)), m_pTail(m_pHead) {
        m_pCur = m_pHead;
        m_pHead->m_pNext = m_pHead;
        LinkPre(m_pHead, m_pHead);
    }

    // The node that closes the ring, never null; whether the nodes know both neighbours.
    ListSentinel<T>* Sentinel() const { return static_cast<ListSentinel<T>*>(m_pHead); }
    bool IsDouble() const { return Sentinel()->m_kind == ListSentinel<T>::kDouble; }
    // The cursor's node, which is the sentinel when it is out, and the sentinel.
    Node* CurNode() const { return m_pCur; }
    Node* HeadNode() const { return m_pHead; }
    // The list's node that holds the element: the element is what a node begins with.
    static Node* NodeOf(const T* p) { return reinterpret_cast<Node*>(const_cast<T*>(p)); }
    // A node's element; null for the sentinel.
    T* Data(Node* pNode) const { return pNode == m_pHead ? nullptr : &pNode->m_data; }
    // Puts the cursor on a node, whose index is i. pBefore is the node before it where that is known.
    void SetCur(Node* pNode, long i, Node* pBefore) {
        m_pCur = pNode;
        this->SetCurPos(i);
        Sentinel()->m_pBeforeCur = pBefore;
    }

private:
    // Where a node is not the sentinel of a doubly linked list, it is one of its nodes.
    static QcDListNode<T>* Double(Node* pNode) { return static_cast<QcDListNode<T>*>(pNode); }
    void LinkPre(Node* pNode, Node* pBefore) {
        if (IsDouble())
            Double(pNode)->m_pPre = Double(pBefore);
    }
    void Link(Node* pBefore, Node* pNode) {
        pBefore->m_pNext = pNode;
        LinkPre(pNode, pBefore);
    }
    Node* NewNode() const { return IsDouble() ? new (std::nothrow) QcDListNode<T>() : new (std::nothrow) Node(); }
    Node* NewNode(const T& x) const {
        return IsDouble() ? new (std::nothrow) QcDListNode<T>(x) : new (std::nothrow) Node(x);
    }
    void FreeNode(Node* pNode) const {
        if (IsDouble())
            delete Double(pNode);
        else
            delete pNode;
    }
    // Frees the nodes from here to the sentinel.
    void FreeRun(Node* pNode) const {
        while (pNode != m_pHead) {
            Node* const pNext = pNode->m_pNext;
            FreeNode(pNode);
            pNode = pNext;
        }
    }
    void Clear() {
        Link(m_pHead, m_pHead);
        m_pTail = m_pHead;
        this->SetCount(0);
        SetCur(m_pHead, -1, m_pHead);
    }
    Node* NodeAt(long i) const;
    Node* NodeBefore(Node* pNode) const;
    void CutBehind(Node* pBefore, Node* pNode);
    long CutTail(long i);
    void RestoreCur(long i) {
        SetCur(m_pHead, -1, nullptr);
        MoveTo(i);
    }
    bool BuildRun(long n, Node*& rpFirst, Node*& rpLast) const;
    bool AdaptRun(const QcList& from, long n, Node*& rpFirst, Node*& rpLast) const;
    void Splice(Node* pFirst, Node* pLast, long n, Node* pBefore);
    template <class Less>
    void SortBy(Less less);
    void CloseRing(Node* pFirst);

    Node* m_pCur;
    Node* m_pHead;
    Node* m_pTail;
};

template <class T>
QcListNode<T>* QcList<T>::NodeAt(long i) const {
    Node* pNode = m_pHead;
    for (; i >= 0; --i)
        pNode = pNode->m_pNext;
    return pNode;
}

template <class T>
QcListNode<T>* QcList<T>::NodeBefore(Node* pNode) const {
    if (IsDouble())
        return Double(pNode)->m_pPre;
    if (pNode == m_pHead)
        return m_pTail;
    if (pNode == m_pCur && Sentinel()->m_pBeforeCur != nullptr)
        return Sentinel()->m_pBeforeCur;
    Node* pBefore = m_pHead;
    while (pBefore->m_pNext != pNode)
        pBefore = pBefore->m_pNext;
    return pBefore;
}

template <class T>
void QcList<T>::MoveToPre() {
    if (this->IsOut())
        MoveToLast();
    else
        SetCur(NodeBefore(m_pCur), this->GetCurPos() - 1, nullptr);
}

template <class T>
void QcList<T>::MoveTo(long i) {
    if (!this->IsValidIndex(i)) {
        SetCur(m_pHead, -1, m_pTail);
    } else if (i == this->GetMaxIndex()) {
        if (i != this->GetCurPos())
            MoveToLast();
    } else {
        if (i < this->GetCurPos() || this->IsOut())
            MoveToFirst();
        while (this->GetCurPos() != i)
            MoveToNext();
    }
}

template <class T>
T* QcList<T>::GetPre(const T* p) const {
    return p == nullptr ? nullptr : Data(NodeBefore(NodeOf(p)));
}

template <class T>
T* QcList<T>::GetAt(long i) const {
    if (!this->IsValidIndex(i))
        return nullptr;
    return i == this->GetMaxIndex() ? GetLast() : &NodeAt(i)->m_data;
}

template <class T>
void QcList<T>::InsertAfterCur(const T& x) {
    if (this->GetLength() >= Base::kMaxCount)
        return;
    Node* const pNode = NewNode(x);
    if (pNode != nullptr) {
        const long i = this->GetCurPos() + 1;
        Node* const pBefore = m_pCur;
        Splice(pNode, pNode, 1, pBefore);
        SetCur(pNode, i, pBefore);
    }
}

template <class T>
void QcList<T>::InsertCur(const T& x) {
    if (this->IsOut()) {
        QcList::Append(x);
        return;
    }
    const long i = this->GetCurPos();
    Node* const pOld = m_pCur;
    Node* const pBefore = NodeBefore(m_pCur);
    SetCur(pBefore, i - 1, nullptr);
    QcList::InsertAfterCur(x);
    if (this->GetCurPos() != i)
        SetCur(pOld, i, pBefore);  // no memory: the cursor goes back to where it was
}

template <class T>
void QcList<T>::DelCur() {
    if (this->IsOut())
        return;
    Node* const pGone = m_pCur;
    this->MoveToPre();
    CutBehind(m_pCur, pGone);
    FreeNode(pGone);
}

// Takes the node behind pBefore out of the ring.
template <class T>
void QcList<T>::CutBehind(Node* pBefore, Node* pNode) {
    Link(pBefore, pNode->m_pNext);
    if (pNode == m_pTail)
        m_pTail = pBefore;
    this->SetCount(this->GetLength() - 1);
}

// Links a run of n nodes into the ring behind pBefore. The cursor is the caller's to set.
template <class T>
void QcList<T>::Splice(Node* pFirst, Node* pLast, long n, Node* pBefore) {
    Link(pLast, pBefore->m_pNext);
    Link(pBefore, pFirst);
    if (pBefore == m_pTail)
        m_pTail = pLast;
    this->SetCount(this->GetLength() + n);
    Sentinel()->m_pBeforeCur = nullptr;
}

// Builds a run of n default nodes, all or none. A size that the system would refuse as one block is not begun at all.
template <class T>
bool QcList<T>::BuildRun(long n, Node*& rpFirst, Node*& rpLast) const {
    constexpr long kLarge = 1 << 20;
    if (n > kLarge) {
        void* const pProbe = std::malloc(static_cast<std::size_t>(n) * (sizeof(QcDListNode<T>) + sizeof(void*)));
        if (pProbe == nullptr)
            return false;
        std::free(pProbe);
    }
    rpFirst = rpLast = nullptr;
    for (long i = 0; i < n; ++i) {
        Node* const pNode = NewNode();
        if (pNode == nullptr) {
            if (rpLast != nullptr) {
                rpLast->m_pNext = m_pHead;
                FreeRun(rpFirst);
            }
            return false;
        }
        if (rpLast == nullptr) {
            rpFirst = pNode;
        } else {
            rpLast->m_pNext = pNode;
            if (IsDouble())
                Double(pNode)->m_pPre = Double(rpLast);
        }
        rpLast = pNode;
    }
    return n > 0;
}

template <class T>
void QcList<T>::ReAllocate(long n) {
    if (n <= this->GetLength() || n > Base::kMaxCount)
        return;
    Node* pFirst = nullptr;
    Node* pLast = nullptr;
    const long nMore = n - this->GetLength();
    if (BuildRun(nMore, pFirst, pLast))
        Splice(pFirst, pLast, nMore, m_pTail);
}

template <class T>
void QcList<T>::SetLength(long n, bool bKeep) {
    if (n < 1) {
        Reset();
        return;
    }
    Node* pFirst = nullptr;
    Node* pLast = nullptr;
    if (!bKeep) {
        if (n <= Base::kMaxCount && BuildRun(n, pFirst, pLast)) {
            QcList::Reset();
            Splice(pFirst, pLast, n, m_pHead);
        }
    } else if (n < this->GetLength()) {
        QcList::DetachAfter(n - 1);
    } else {
        QcList::ReAllocate(n);
    }
}

template <class T>
long QcList<T>::DetachAfterCur() {
    return DetachAfter(this->GetCurPos());
}

template <class T>
long QcList<T>::DetachAfter(long i) {
    if (i < -1 || i >= this->GetMaxIndex())
        return 0;
    Node* const pFirst = NodeAt(i)->m_pNext;
    const long nGone = CutTail(i);
    FreeRun(pFirst);
    return nGone;
}

// Ends the list behind index i; the nodes behind it, which still lead to the sentinel, are the caller's.
template <class T>
long QcList<T>::CutTail(long i) {
    const long nGone = this->GetMaxIndex() - i;
    m_pTail = i == this->GetCurPos() ? m_pCur : NodeAt(i);
    Link(m_pTail, m_pHead);
    this->SetCount(i + 1);
    if (this->GetCurPos() > i)
        SetCur(m_pHead, -1, nullptr);
    return nGone;
}

// Makes a run of another list's nodes fit this list: nodes of the other kind are replaced by ones of its own, to which
// the elements move. False, with nothing changed, when there is no memory.
template <class T>
bool QcList<T>::AdaptRun(const QcList& from, long n, Node*& rpFirst, Node*& rpLast) const {
    if (from.IsDouble() == IsDouble())
        return true;
    Node* pFirst = nullptr;
    Node* pLast = nullptr;
    if (!BuildRun(n, pFirst, pLast))
        return false;
    Node* pOld = rpFirst;
    for (Node* pNew = pFirst;; pNew = pNew->m_pNext) {
        pNew->m_data = std::move(pOld->m_data);
        Node* const pNext = pOld->m_pNext;
        from.FreeNode(pOld);
        pOld = pNext;
        if (pNew == pLast)
            break;
    }
    rpFirst = pFirst;
    rpLast = pLast;
    return true;
}

template <class T>
long QcList<T>::SplitAt(long i, QcList& other) {
    if (&other == this || i < -1 || i >= this->GetLength())
        return 0;
    const long n = this->GetMaxIndex() - i;
    Node* const pBefore = NodeAt(i);
    Node* pFirst = pBefore->m_pNext;
    Node* pLast = m_pTail;
    if (n > 0 && !other.AdaptRun(*this, n, pFirst, pLast))
        return 0;
    other.Reset();
    if (n > 0) {
        CutTail(i);
        other.Splice(pFirst, pLast, n, other.m_pHead);
    }
    return n;
}

template <class T>
long QcList<T>::Conbine(QcList& other, long pos) {
    const long n = other.GetLength();
    if (&other == this || n < 1 || n > Base::kMaxCount - this->GetLength())
        return this->GetLength();
    Node* pFirst = other.m_pHead->m_pNext;
    Node* pLast = other.m_pTail;
    if (AdaptRun(other, n, pFirst, pLast)) {
        other.Clear();
        const bool bInside = this->IsValidIndex(pos);
        Splice(pFirst, pLast, n, bInside ? NodeAt(pos - 1) : m_pTail);
        if (bInside && this->GetCurPos() >= pos)
            this->SetCurPos(this->GetCurPos() + n);
    }
    return this->GetLength();
}

// Links a run of all nodes, which ends at null, to the sentinel again.
template <class T>
void QcList<T>::CloseRing(Node* pFirst) {
    Node* pLast = m_pHead;
    for (Node* pNode = pFirst; pNode != nullptr; pNode = pNode->m_pNext) {
        Link(pLast, pNode);
        pLast = pNode;
    }
    m_pTail = pLast;
    Link(m_pTail, m_pHead);
    RestoreCur(this->GetCurPos());
}

template <class T>
void QcList<T>::ReverseList() {
    Node* pDone = nullptr;
    for (Node* pNode = m_pHead->m_pNext; pNode != m_pHead;) {
        Node* const pNext = pNode->m_pNext;
        pNode->m_pNext = pDone;
        pDone = pNode;
        pNode = pNext;
    }
    CloseRing(pDone);
}

template <class T>
void QcList<T>::Rotate(long from, long to) {
    if (!this->IsValidIndex(from) || !this->IsValidIndex(to) || from == to)
        return;
    const long n = this->GetLength();
    Node* const pLast = NodeAt(QcFirstOfRotation(from, to, n) - 1);
    Node* const pFirst = pLast->m_pNext;
    Link(m_pTail, m_pHead->m_pNext);
    Link(m_pHead, pFirst);
    Link(pLast, m_pHead);
    m_pTail = pLast;
    RestoreCur(this->GetCurPos());
}

template <class T>
bool QcList<T>::Move(long from, long to) {
    if (!this->IsValidIndex(from) || !this->IsValidIndex(to))
        return false;
    if (from != to) {
        const long nCur = this->GetCurPos();
        Node* const pBefore = NodeAt(from - 1);
        Node* const pNode = pBefore->m_pNext;
        CutBehind(pBefore, pNode);
        Splice(pNode, pNode, 1, NodeAt(to - 1));
        RestoreCur(nCur);
    }
    return true;
}

// Sorts the nodes' addresses, which lie side by side, and relinks the ring in their order.
template <class T>
template <class Less>
void QcList<T>::SortBy(Less less) {
    const long n = this->GetLength();
    Node** const pOrder =
        n < 2 ? nullptr : static_cast<Node**>(std::malloc(static_cast<std::size_t>(n) * sizeof(Node*)));
    if (pOrder == nullptr)
        return;
    Node** pEnd = pOrder;
    for (Node* pNode = m_pHead->m_pNext; pNode != m_pHead; pNode = pNode->m_pNext)
        *pEnd++ = pNode;
    std::stable_sort(pOrder, pEnd, [less](const Node* p, const Node* q) { return less(p->m_data, q->m_data); });
    Node* pBefore = m_pHead;
    for (Node** p = pOrder; p != pEnd; ++p) {
        Link(pBefore, *p);
        pBefore = *p;
    }
    m_pTail = pBefore;
    Link(m_pTail, m_pHead);
    if (!this->IsOut())
        SetCur(pOrder[this->GetCurPos()], this->GetCurPos(), nullptr);
    std::free(static_cast<void*>(pOrder));
}

template <class T>
void QcList<T>::Sort(int (*cmp)(const T&, const T&)) {
    if (cmp != nullptr)
        SortBy([cmp](const T& a, const T& b) { return cmp(a, b) < 0; });
}

template <class T>
void QcList<T>::Sort(bool bAscending) {
    if constexpr (QcElement<T>::kHasOrder) {
        if (bAscending)
            SortBy([](const T& a, const T& b) { return QcElement<T>::Less(a, b); });
        else
            SortBy([](const T& a, const T& b) { return QcElement<T>::Less(b, a); });
    }
}

extern template class ORVO_API QcList<int>;
extern template class ORVO_API QcList<char>;
extern template class ORVO_API QcList<double>;
