// A node of a singly linked list, and at the same time the run of nodes that begins with it: the run ends at a null
// next pointer or where the links come back to the node itself. Lists link their nodes to a ring; a node that a caller
// makes stands alone until linked.
//
// The node is its own cursor: what moves gives the node that it arrives at, and changes nothing.
#pragma once

#include <type_traits>

#include "containers/QcElement.h"

template <class T>
class QcListNode {
public:
    QcListNode() = default;
    // A copy of x, by T's copy constructor or by its assignment, linked to nothing.
    explicit QcListNode(const T& x) requires(std::is_copy_constructible_v<T>) : m_data(x) {}
    explicit QcListNode(const T& x) requires(!std::is_copy_constructible_v<T>) { m_data = x; }
    // Copies and assignments take the element only; a node keeps its own place in its run.
    QcListNode(const QcListNode& other) : QcListNode(other.m_data) {}
    QcListNode& operator=(const QcListNode& other) {
        if (this != &other)
            m_data = other.m_data;
        return *this;
    }
    ~QcListNode() = default;

    // The first (this one), the last and the i-th node of the run; GetTo gives null when there is no such node.
    QcListNode* First() { return this; }
    QcListNode* Last() {
        QcListNode* pNode = this;
        while (!EndsAt(pNode))
            pNode = pNode->m_pNext;
        return pNode;
    }
    QcListNode* GetTo(long i) {
        if (i < 0)
            return nullptr;
        QcListNode* pNode = this;
        while (i-- > 0) {
            if (EndsAt(pNode))
                return nullptr;
            pNode = pNode->m_pNext;
        }
        return pNode;
    }

    // This node's index in the run that begins at pStart (null: in its own run, so 0); -1 when it does not lie there.
    long GetCurPos(const QcListNode* pStart = nullptr) const {
        if (pStart == nullptr)
            return 0;
        const QcListNode* pNode = pStart;
        for (long i = 0;; ++i) {
            if (pNode == this)
                return i;
            if (pStart->EndsAt(pNode))
                return -1;
            pNode = pNode->m_pNext;
        }
    }

    // This node's element, and the i-th one of the run: null, or a default element that is nobody's, when there is
    // none.
    T& GetCurData() { return m_data; }
    T* GetAt(long i) {
        QcListNode* const pNode = GetTo(i);
        return pNode == nullptr ? nullptr : &pNode->m_data;
    }
    T& operator[](long i) {
        T* const pData = GetAt(i);
        return pData == nullptr ? QcElement<T>::Spare() : *pData;
    }

    // Cuts the run behind this node, which then stands alone, and gives the rest; null when there is none. For runs
    // that the caller linked; a list cuts its own with DetachAfter and SplitAt.
    QcListNode* Detach() {
        QcListNode* const pRest = m_pNext == this ? nullptr : m_pNext;
        if (pRest != nullptr) {
            QcListNode* const pLast = Last();
            if (pLast->m_pNext == this)
                pLast->m_pNext = nullptr;
        }
        m_pNext = nullptr;
        return pRest;
    }

    T m_data{};                     // the element
    QcListNode* m_pNext = nullptr;  // the node behind, which is not owned; null for none

private:
    // Whether pNode is the last one of the run that begins here.
    bool EndsAt(const QcListNode* pNode) const { return pNode->m_pNext == nullptr || pNode->m_pNext == this; }
};
