// Stable sorting of elements that lie side by side, by their own order or by a comparison function, also of elements
// that can only be assigned. When there is no memory for it, nothing changes.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <type_traits>

#include "containers/QcElement.h"

template <class T>
class ElementSort {
public:
    // By T's own order, n elements from pData on. Nothing for a type without an order.
    static void Sort(T* pData, long n, bool bAscending) {
        if constexpr (QcElement<T>::kHasOrder) {
            if (bAscending)
                Stable(pData, n, [](const T& a, const T& b) { return QcElement<T>::Less(a, b); });
            else
                Stable(pData, n, [](const T& a, const T& b) { return QcElement<T>::Less(b, a); });
        }
    }

    // By cmp, which gives less than 0 when its first argument comes first. Nothing for a null function.
    static void Sort(T* pData, long n, int (*cmp)(const T&, const T&)) {
        if (cmp != nullptr)
            Stable(pData, n, [cmp](const T& a, const T& b) { return cmp(a, b) < 0; });
    }

    // By less, which says whether its first argument comes first.
    template <class Less>
    static void Stable(T* pData, long n, Less less) {
        if (n < 2)
            return;
        if constexpr (std::is_move_constructible_v<T> && std::is_move_assignable_v<T>)
            std::stable_sort(pData, pData + n, less);
        else
            ByAddress(pData, n, less);
    }

private:
    // Sorts the addresses, then brings the elements to their places along the cycles of the permutation.
    template <class Less>
    static void ByAddress(T* pData, long n, Less less) {
        T** const pOrder = static_cast<T**>(std::malloc(static_cast<std::size_t>(n) * sizeof(T*)));
        if (pOrder == nullptr)
            return;
        for (long i = 0; i < n; ++i)
            pOrder[i] = pData + i;
        std::stable_sort(pOrder, pOrder + n, [less](const T* a, const T* b) { return less(*a, *b); });
        for (long i = 0; i < n; ++i) {
            if (pOrder[i] == pData + i)
                continue;
            const QcElementCopy<T> first(pData[i]);
            long nHole = i;
            while (pOrder[nHole] != pData + i) {
                const long nFrom = static_cast<long>(pOrder[nHole] - pData);
                pData[nHole] = pData[nFrom];
                pOrder[nHole] = pData + nHole;
                nHole = nFrom;
            }
            pData[nHole] = first.m_data;
            pOrder[nHole] = pData + nHole;
        }
        std::free(static_cast<void*>(pOrder));
    }
};
