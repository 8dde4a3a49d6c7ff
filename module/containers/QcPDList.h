// A doubly linked list of owned pointers: see PointerOwner.h for who owns what.
#pragma once

#include "containers/PointerOwner.h"
#include "containers/QcDList.h"

template <class T>
class QcPDList : public PointerOwner<T, QcDList<T*>> {
    using Owner = PointerOwner<T, QcDList<T*>>;

public:
    // n null slots, none for n below 1.
    explicit QcPDList(long n = 0) : Owner(n) {}
    // Copies the objects, also of a container that owns none.
    QcPDList(const QcPDList& other) : Owner(other) {}
    explicit QcPDList(const QcDynArrayBase<T*>& other) : Owner(other) {}
    QcPDList& operator=(const QcPDList& other) {
        Owner::DeepCopy(other);
        return *this;
    }
    using Owner::operator=;
    ~QcPDList() override = default;

    // Cuts off all slots behind index i and deletes their objects. Gives how many; see QcList.
    long DetachAfter(long i) {
        if (i == -1 || this->IsValidIndex(i))
            this->ReleaseFrom(i + 1);
        return Owner::DetachAfter(i);
    }
};
