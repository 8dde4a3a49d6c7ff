// A list whose nodes know their neighbours on both sides: stepping back, removing and inserting at the cursor take
// constant time wherever the cursor came from, and an index is looked up from the nearer end.
#pragma once

#include "containers/QcList.h"

template <class T>
class QcDList : public QcList<T> {
    using Base = QcDynArrayBase<T>;
    using List = QcList<T>;

public:
    // What it is made of.
    using Node = QcDListNode<T>;

    // n default elements, none for n below 1.
    explicit QcDList(long n = 0) : List(ListSentinel<T>::kDouble) { List::ReAllocate(n); }
    // Copies the elements, also of another kind of container.
    QcDList(const QcDList& other) : List(ListSentinel<T>::kDouble) { Base::DeepCopy(other); }
    explicit QcDList(const Base& other) : List(ListSentinel<T>::kDouble) { Base::DeepCopy(other); }
    QcDList& operator=(const QcDList& other) {
        Base::DeepCopy(other);
        return *this;
    }
    using Base::operator=;
    ~QcDList() override = default;

    void MoveToPre() final {
        if (this->IsOut())
            this->MoveToLast();
        else
            this->SetCur(Pre(this->CurNode()), this->GetCurPos() - 1, nullptr);
    }
    T* GetPre(const T* p) const final { return p == nullptr ? nullptr : this->Data(Pre(List::NodeOf(p))); }
    T* GetAt(long i) const final {
        if (i <= this->GetLength() / 2)
            return List::GetAt(i);
        if (!this->IsValidIndex(i))
            return nullptr;
        QcListNode<T>* pNode = this->HeadNode();
        for (long n = this->GetLength(); n > i; --n)
            pNode = Pre(pNode);
        return &pNode->m_data;
    }

private:
    static Node* Pre(QcListNode<T>* pNode) { return static_cast<Node*>(pNode)->m_pPre; }
};

extern template class ORVO_API QcDList<int>;
extern template class ORVO_API QcDList<char>;
extern template class ORVO_API QcDList<double>;
