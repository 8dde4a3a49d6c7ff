// The current settings: defaults, copying, the standards and the one-line note.
#include "settings/OrvoDataSet.h"

#include "frame/Resources.h"

OrvoDataSet::OrvoDataSet()
    : m_strCurCity(TranslateText(L"北京")),
      m_dgStartTime(9, 0, 0),
      m_dgEndTime(15, 0, 0),
      m_dSpace(10.0),
      m_nCurStd(0),
      m_nStartHour(9),
      m_nStartMinute(0),
      m_nEndHour(15),
      m_nEndMinute(0),
      m_nSpace(10) {}

OrvoDataSet::OrvoDataSet(const OrvoDataSet& other) : OrvoDataSet() {
    *this = other;
}

OrvoDataSet& OrvoDataSet::operator=(const OrvoDataSet& other) {
    OrvoZoneRecord::operator=(other);
    m_strCurCity = other.m_strCurCity;
    m_dgStartTime = other.m_dgStartTime;
    m_dgEndTime = other.m_dgEndTime;
    m_dSpace = other.m_dSpace;
    m_date = other.m_date;
    m_nCurStd = other.m_nCurStd;
    m_listCity = other.m_listCity;
    m_nStartHour = other.m_nStartHour;
    m_nStartMinute = other.m_nStartMinute;
    m_nEndHour = other.m_nEndHour;
    m_nEndMinute = other.m_nEndMinute;
    m_nSpace = other.m_nSpace;
    m_listStd = other.m_listStd;
    return *this;
}

OrvoStdSet& OrvoDataSet::GetStd(int index) {
    OrvoStdSet** slot = m_listStd.GetAt(index);
    if (slot && *slot)
        return **slot;
    m_stdSpare.Reset();
    m_stdSpare.m_dgStartTime = 0.0;
    m_stdSpare.m_dgEndTime = 0.0;
    m_stdSpare.m_colors = OrvoColorTable();
    return m_stdSpare;
}

int OrvoDataSet::FindStd(const wchar_t* name) const {
    int index = 0;
    for (OrvoStdSet** slot = m_listStd.GetFirst(); slot; slot = m_listStd.GetNext(slot), ++index)
        if (*slot && (*slot)->m_strName == name)
            return index;
    return -1;
}

OrvoStdSet* OrvoDataSet::NewStd(const OrvoStdSet& from) {
    OrvoStdSet* standard = new OrvoStdSet(from);
    m_listStd.Append(standard);
    return standard;
}

void OrvoDataSet::RemoveStd(int index) {
    if (index >= 0 && index < m_listStd.GetLength())
        m_listStd.Del(index);
}

CString OrvoDataSet::GetNoteString() {
    bool isTermDay = false;
    const int index = m_date.GetSTermIndex(isTermDay);
    const CString start = OrvoDegree(m_nStartHour, m_nStartMinute, 0).TimeFormat(false);
    const CString end = OrvoDegree(m_nEndHour, m_nEndMinute, 0).TimeFormat(false);
    const CString date = m_date.GetDateString();
    const CString standard = CurStd().m_strName;
    if (!isTermDay)
        return FormatTranslated(L"分析标准:%s;地区:%s;时间:%s%s～%s,计算精度:%d分钟", standard, m_strCurCity, date,
                                start, end, m_nSpace);
    const OrvoSTerm* term = CurDate().GetTerm(index);
    return FormatTranslated(L"分析标准:%s;地区:%s;时间:%s(%s)%s～%s,计算精度:%d分钟", standard, m_strCurCity, date,
                            term ? term->m_strName : CString(), start, end, m_nSpace);
}
