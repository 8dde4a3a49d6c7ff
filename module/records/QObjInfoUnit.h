// A pair of texts about an object under analysis: what is told, and its value.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A value class. Texts compare ordinally and with regard to case.
//
// == and != answer different questions, and callers depend on it: of two pairs with one key and different values, both
// are false.
class ORVO_API QObjInfoUnit {
public:
    // Both texts empty.
    QObjInfoUnit() = default;
    // Copies of both texts.
    QObjInfoUnit(const CString& key, const CString& value);
    QObjInfoUnit(const QObjInfoUnit& other) = default;
    QObjInfoUnit& operator=(const QObjInfoUnit& other) = default;

    // Both texts are the same.
    bool operator==(const QObjInfoUnit& other) const;
    // The keys differ; the values do not count.
    bool operator!=(const QObjInfoUnit& other) const;
    // By the keys alone.
    bool operator<(const QObjInfoUnit& other) const;
    bool operator>(const QObjInfoUnit& other) const;

    CString m_strKey;    // what is told, and by what pairs are ordered
    CString m_strValue;  // what it is
};
