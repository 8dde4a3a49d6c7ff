// City records: splitting and formatting of positions, and the zone tree.
#include "zone/OrvoZoneRecord.h"

#include <utility>

#include "calendar/TruncateToInt.h"
#include "frame/ConfigDictionaries.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"

namespace {

void SplitPosition(double position, int& degree, int& minute) {
    degree = TruncateToInt(position);
    const double minutes = (position - degree) * 60;
    minute = TruncateToInt(minutes < 0 ? minutes - 0.5 : minutes + 0.5);
}

CString FormatPosition(double position) {
    int degree = 0;
    int minute = 0;
    SplitPosition(position, degree, minute);
    return FormatTranslated(L"%3d度%2d分", degree, minute);
}

}  // namespace

OrvoZoneRecord::OrvoZoneRecord()
    : m_strCity(TranslateText(L"未定义")),
      m_strProvince(TranslateText(L"未定义")),
      m_strLongitude(L"0.0"),
      m_strLatitude(L"0.0") {}

void OrvoZoneRecord::Reset() {}

double OrvoZoneRecord::GetTotalLong() const {
    return _wtof(m_strLongitude);
}
double OrvoZoneRecord::GetTotalLat() const {
    return _wtof(m_strLatitude);
}

void OrvoZoneRecord::GetLongitude(int& degree, int& minute) const {
    SplitPosition(GetTotalLong(), degree, minute);
}
void OrvoZoneRecord::GetLatitude(int& degree, int& minute) const {
    SplitPosition(GetTotalLat(), degree, minute);
}

void OrvoZoneRecord::FormatLongitude(CString& text) const {
    text = FormatPosition(GetTotalLong());
}
void OrvoZoneRecord::FormatLatitude(CString& text) const {
    text = FormatPosition(GetTotalLat());
}

bool OrvoZoneRecord::SaveToXml() const {
    QcDtDictionary* province = g_dictSunZone.FindOrAddDict(m_strProvince);
    if (!province)
        return false;
    province->SetName(m_strProvince);
    province->SetAttributeValue(L"type", L"PROVINCE");
    QcDtDictItem* city = province->FindOrAddItem(m_strCity, QcDtKindString);
    if (!city || city->GetType() != QcDtKindString)
        return false;
    city->SetName(m_strCity);
    city->SetAttributeValue(L"type", L"CITY");
    city->SetAttributeValue(L"latitude", m_strLatitude);
    city->SetAttributeValue(L"longitude", m_strLongitude);
    city->SetStringValue(m_strComment);
    return true;
}

bool OrvoZoneRecord::ReadFromXml(const CString& province, const CString& city) {
    QcDtDictItem* item = g_dictSunZone.FindItem(province);
    if (!item || item->GetType() != QcDtKindDictionary)
        return false;
    const QcDtDictItem* found = static_cast<QcDtDictionary*>(item)->FindItem(city);
    if (!found)
        return false;
    // The names may be this record's own fields, so they are taken before anything is overwritten.
    CString provinceName(province);
    CString cityName(city);
    m_strProvince = std::move(provinceName);
    m_strCity = std::move(cityName);
    m_strLongitude = found->GetAttributeValue(L"longitude");
    m_strLatitude = found->GetAttributeValue(L"latitude");
    m_strComment = found->GetStringValue();
    return true;
}

bool OrvoZoneRecord::operator==(const OrvoZoneRecord& other) const {
    return m_strCity.Compare(other.m_strCity) == 0;
}
bool OrvoZoneRecord::operator!=(const OrvoZoneRecord& other) const {
    return !(*this == other);
}
bool OrvoZoneRecord::operator<(const OrvoZoneRecord&) const {
    return false;
}
bool OrvoZoneRecord::operator>(const OrvoZoneRecord&) const {
    return false;
}
