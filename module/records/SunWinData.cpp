// Comparing windows.
#include "records/SunWinData.h"

SunWinData::SunWinData(const QcGePoint& pt1, const QcGePoint& pt2, double value)
    : m_pt1(pt1), m_pt2(pt2), m_dValue(value) {}

bool SunWinData::operator==(const SunWinData& other) const {
    return m_dValue == other.m_dValue && m_pt1 == other.m_pt1 && m_pt2 == other.m_pt2;
}

bool SunWinData::operator!=(const SunWinData& other) const {
    return !(*this == other);
}

bool SunWinData::operator<(const SunWinData& other) const {
    return other.m_pt1 > m_pt1;
}

bool SunWinData::operator>(const SunWinData& other) const {
    return m_pt1 > other.m_pt1;
}
