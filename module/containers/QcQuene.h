// A queue: first in, first out. Find collects the indexes of matching elements in one. It has no cursor and is no
// member of the container family.
#pragma once

#include <new>

template <class T>
class QcQuene {
public:
    // Empty.
    QcQuene() = default;
    // Copies the elements, as far as there is memory.
    QcQuene(const QcQuene& other) { CopyFrom(other); }
    QcQuene& operator=(const QcQuene& other) {
        if (this != &other) {
            Reset();
            CopyFrom(other);
        }
        return *this;
    }
    ~QcQuene() { Reset(); }

    // Puts x at the end. False, with nothing changed, when there is no memory.
    bool Append(const T& x) {
        Link* const pLink = new (std::nothrow) Link;
        if (pLink == nullptr)
            return false;
        pLink->m_data = x;
        (m_pTail == nullptr ? m_pHead : m_pTail->m_pNext) = pLink;
        m_pTail = pLink;
        ++m_nCount;
        return true;
    }

    // Takes the oldest element out. False, with x unchanged, when the queue is empty.
    bool TakeOffHead(T& x) {
        if (m_pHead == nullptr)
            return false;
        Link* const pLink = m_pHead;
        x = pLink->m_data;
        m_pHead = pLink->m_pNext;
        if (m_pHead == nullptr)
            m_pTail = nullptr;
        --m_nCount;
        delete pLink;
        return true;
    }

    // The oldest element, the i-th oldest, and the newest one; null for none.
    const T* GetFirst() const { return m_pHead == nullptr ? nullptr : &m_pHead->m_data; }
    const T* GetLast() const { return m_pTail == nullptr ? nullptr : &m_pTail->m_data; }
    const T* GetAt(long i) const {
        if (i < 0 || i >= m_nCount)
            return nullptr;
        const Link* pLink = m_pHead;
        while (i-- > 0)
            pLink = pLink->m_pNext;
        return &pLink->m_data;
    }

    // How many elements there are, and whether there is none.
    long GetLength() const { return m_nCount; }
    bool IsEmpty() const { return m_nCount == 0; }

    // Frees all elements.
    void Reset() {
        while (m_pHead != nullptr) {
            Link* const pLink = m_pHead;
            m_pHead = pLink->m_pNext;
            delete pLink;
        }
        m_pTail = nullptr;
        m_nCount = 0;
    }

private:
    struct Link {
        T m_data{};
        Link* m_pNext = nullptr;
    };

    void CopyFrom(const QcQuene& other) {
        for (const Link* pLink = other.m_pHead; pLink != nullptr; pLink = pLink->m_pNext)
            Append(pLink->m_data);
    }

    Link* m_pHead = nullptr;
    Link* m_pTail = nullptr;
    long m_nCount = 0;
};
