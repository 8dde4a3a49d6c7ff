// A two-dimensional array: rows of equal length, each a plain array of its own. The first index is the row.
#pragma once

#include "containers/QcArray.h"

template <class T>
class Qc2dArray : public QcArray<QcArray<T>> {
public:
    // No rows.
    Qc2dArray() = default;
    // Default elements; a number below 1 means no row, or rows without elements.
    Qc2dArray(long nRows, long nCols) { ReAllocate(nRows, nCols, false); }
    ~Qc2dArray() override = default;
    Qc2dArray(const Qc2dArray&) = default;
    Qc2dArray(Qc2dArray&&) noexcept = default;
    Qc2dArray& operator=(const Qc2dArray&) = default;
    Qc2dArray& operator=(Qc2dArray&&) noexcept = default;

    // Makes the number of rows nRows, then the length of every row nCols; what is kept is kept row by row.
    void ReAllocate(long nRows, long nCols, bool bKeep) {
        QcArray<QcArray<T>>::ReAllocate(nRows, bKeep);
        for (long i = 0; i < this->GetLength(); ++i)
            this->GetDataBuffer()[i].ReAllocate(nCols, bKeep);
    }

    // How many rows there are, and how long the first one is.
    long GetRowNum() const { return this->GetLength(); }
    long GetColNum() const { return this->IsEmpty() ? 0 : this->GetDataBuffer()[0].GetLength(); }

    using QcArray<QcArray<T>>::GetAt;
    using QcArray<QcArray<T>>::SetAt;
    using QcArray<QcArray<T>>::SetAll;
    // By row and column; null, and false, for none. (By row alone: a whole row.)
    T* GetAt(long nRow, long nCol) const {
        const QcArray<T>* const pRow = GetAt(nRow);
        return pRow == nullptr ? nullptr : pRow->GetAt(nCol);
    }
    bool SetAt(long nRow, long nCol, const T& x) {
        T* const p = GetAt(nRow, nCol);
        if (p == nullptr)
            return false;
        *p = x;
        return true;
    }
    // Fills every element of every row.
    void SetAll(const T& x) {
        const QcElementCopy<T> copy(x);
        for (long i = 0; i < this->GetLength(); ++i)
            this->GetDataBuffer()[i].SetAll(copy.m_data);
    }
};

extern template class ORVO_API QcArray<QcArray<int>>;
extern template class ORVO_API QcArray<QcArray<double>>;
extern template class ORVO_API Qc2dArray<int>;
extern template class ORVO_API Qc2dArray<double>;
