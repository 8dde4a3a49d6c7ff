// The node that closes a list's ring, and what the list remembers beside its links. Its own element is never shown.
#pragma once

#include "containers/QcDListNode.h"

template <class T>
class ListSentinel : public QcDListNode<T> {
public:
    // Which kind of nodes a list has.
    enum Kind {
        kSingle,  // QcListNode
        kDouble,  // QcDListNode
    };

    // Closes no ring yet.
    explicit ListSentinel(Kind kind) : m_kind(kind) {}

    // The node before the cursor's, when it is known; null when not.
    QcListNode<T>* m_pBeforeCur = nullptr;
    // Which kind of nodes the list has.
    const Kind m_kind;
};
