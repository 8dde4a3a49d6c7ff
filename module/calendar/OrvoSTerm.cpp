// A solar term's date, and its dictionary form.
#include "calendar/OrvoSTerm.h"

#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"

namespace {

bool IsTerm(const QcDtDictItem* item) {
    return item && item->GetAttributeValue(L"type").CompareNoCase(L"Sterm") == 0;
}

}  // namespace

MonthDay OrvoSTerm::GetMonthDay() const {
    if (m_strDate != m_strParsed) {
        m_parsed = ParseDateText(m_strDate).date;
        m_strParsed = m_strDate;
    }
    return m_parsed;
}

bool OrvoSTerm::SaveToXml(QcDtDictItem* item) const {
    if (!IsTerm(item))
        return false;
    item->SetAttributeValue(L"name", m_strName);
    item->SetAttributeValue(L"localname", m_strName);
    item->SetAttributeValue(L"date", m_strDate);
    item->SetAttributeDouble(L"dgtime", m_dgTime.getDegree());
    item->SetAttributeDouble(L"dglat", m_dgLat.getDegree());
    return true;
}

bool OrvoSTerm::ReadFromXml(QcDtDictItem* item) {
    if (!IsTerm(item))
        return false;
    m_strName = item->GetAttributeValue(L"localname");
    m_strDate = item->GetAttributeValue(L"date");
    m_dgTime = _wtof(item->GetAttributeValue(L"dgtime"));
    m_dgLat = _wtof(item->GetAttributeValue(L"dglat"));
    return true;
}
