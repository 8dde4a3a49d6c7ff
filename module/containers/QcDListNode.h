// A node of a doubly linked list: the element, the next pointer, the previous pointer.
#pragma once

#include "containers/QcListNode.h"

template <class T>
class QcDListNode : public QcListNode<T> {
public:
    QcDListNode() = default;
    // A copy of x, linked to nothing.
    explicit QcDListNode(const T& x) : QcListNode<T>(x) {}
    // As for the base: the element only, never the links.
    QcDListNode(const QcDListNode& other) : QcListNode<T>(other) {}
    QcDListNode& operator=(const QcDListNode& other) {
        QcListNode<T>::operator=(other);
        return *this;
    }
    ~QcDListNode() = default;

    QcDListNode* m_pPre = nullptr;  // the node before; null for none
};
