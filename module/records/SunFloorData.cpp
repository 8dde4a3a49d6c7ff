// Comparing floors.
#include "records/SunFloorData.h"

bool SunFloorData::operator==(const SunFloorData& other) const {
    return m_nKey == other.m_nKey && m_nValue == other.m_nValue && m_id == other.m_id;
}

bool SunFloorData::operator!=(const SunFloorData& other) const {
    return m_nKey != other.m_nKey;
}

bool SunFloorData::operator<(const SunFloorData& other) const {
    return m_nKey < other.m_nKey;
}

bool SunFloorData::operator>(const SunFloorData& other) const {
    return m_nKey > other.m_nKey;
}
