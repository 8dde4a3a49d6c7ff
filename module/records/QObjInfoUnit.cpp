// Comparing pairs of texts.
#include "records/QObjInfoUnit.h"

QObjInfoUnit::QObjInfoUnit(const CString& key, const CString& value) : m_strKey(key), m_strValue(value) {}

bool QObjInfoUnit::operator==(const QObjInfoUnit& other) const {
    return m_strKey == other.m_strKey && m_strValue == other.m_strValue;
}

bool QObjInfoUnit::operator!=(const QObjInfoUnit& other) const {
    return m_strKey != other.m_strKey;
}

bool QObjInfoUnit::operator<(const QObjInfoUnit& other) const {
    return m_strKey < other.m_strKey;
}

bool QObjInfoUnit::operator>(const QObjInfoUnit& other) const {
    return m_strKey > other.m_strKey;
}
