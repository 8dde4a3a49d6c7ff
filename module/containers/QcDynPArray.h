// An array of owned pointers: see PointerOwner.h for who owns what.
#pragma once

#include "containers/PointerOwner.h"
#include "containers/QcDynArray.h"

template <class T>
class QcDynPArray : public PointerOwner<T, QcDynArray<T*>> {
    using Owner = PointerOwner<T, QcDynArray<T*>>;

public:
    // Room for nCapacity slots, which grows by steps of nAllocUnit; count 0.
    explicit QcDynPArray(long nCapacity = 0, long nAllocUnit = 10) : Owner(nCapacity, nAllocUnit) {}
    // Copies the objects, also of a container that owns none.
    QcDynPArray(const QcDynPArray& other) : Owner(other) {}
    explicit QcDynPArray(const QcDynArrayBase<T*>& other) : Owner(other) {}
    QcDynPArray& operator=(const QcDynPArray& other) {
        Owner::DeepCopy(other);
        return *this;
    }
    using Owner::operator=;
    ~QcDynPArray() override = default;
};
