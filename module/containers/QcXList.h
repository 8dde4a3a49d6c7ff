// A list whose equal elements can be brought together into groups.
#pragma once

#include "containers/QcList.h"

template <class T>
class QcXList : public QcList<T> {
public:
    // n default elements, none for n below 1.
    explicit QcXList(long n = 0) : QcList<T>(n) {}
    QcXList(const QcXList&) = default;
    // Copies the elements of any container.
    explicit QcXList(const QcDynArrayBase<T>& other) : QcList<T>(other) {}
    QcXList& operator=(const QcXList&) = default;
    using QcList<T>::operator=;
    ~QcXList() override = default;

    // Brings all elements that are equal to element i together, behind the first of them and in their order; all others
    // keep theirs. Gives the size of the group, 0 when i names no element. The cursor keeps its index.
    long UpdateGroup(long i) {
        const T* const p = this->GetAt(i);
        QcQuene<long> hits;
        return p == nullptr || this->Find(*p, hits) < 1 ? 0 : this->Gather(hits);
    }
};
