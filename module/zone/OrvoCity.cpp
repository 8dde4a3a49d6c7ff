// The comparisons of city names.
#include "zone/OrvoCity.h"

#include <utility>

OrvoCity::OrvoCity(CString name) : m_strName(std::move(name)) {}

bool OrvoCity::operator==(const OrvoCity& other) const {
    return m_strName.Compare(other.m_strName) == 0;
}
bool OrvoCity::operator!=(const OrvoCity& other) const {
    return !(*this == other);
}
bool OrvoCity::operator<(const OrvoCity& other) const {
    return m_strName.Compare(other.m_strName) < 0;
}
bool OrvoCity::operator>(const OrvoCity& other) const {
    return m_strName.Compare(other.m_strName) > 0;
}
