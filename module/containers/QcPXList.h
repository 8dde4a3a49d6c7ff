// A list of owned pointers whose equal objects can be brought together into groups: see PointerOwner.h for who owns
// what.
#pragma once

#include "containers/QcPDList.h"

template <class T>
class QcPXList : public QcPDList<T> {
public:
    // n null slots, none for n below 1.
    explicit QcPXList(long n = 0) : QcPDList<T>(n) {}
    QcPXList(const QcPXList&) = default;
    // Copies the objects of any container.
    explicit QcPXList(const QcDynArrayBase<T*>& other) : QcPDList<T>(other) {}
    QcPXList& operator=(const QcPXList&) = default;
    using QcPDList<T>::operator=;
    ~QcPXList() override = default;

    // Brings all objects that are equal to object i together, behind the first of them and in their order; all other
    // slots keep theirs. Gives the size of the group, 0 when slot i is null or not there. The cursor keeps its index.
    long UpdateGroup(long i) {
        const T* const p = this->GetPData(i);
        QcQuene<long> hits;
        return p == nullptr || this->FindData(*p, hits) < 1 ? 0 : this->Gather(hits);
    }
};
