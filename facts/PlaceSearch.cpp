// Walking and searching the place database.
#include "facts/PlaceSearch.h"

#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/PlainText.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"
#include "settings/OrvoDataSet.h"

namespace {

const QcDtDictionary* AsDictionary(const QcDtDictItem* item) {
    return item && item->GetType() == QcDtKindDictionary ? static_cast<const QcDtDictionary*>(item) : nullptr;
}

OrvoZoneRecord RecordOf(const QcDtDictionary& province, const QcDtDictItem& city) {
    OrvoZoneRecord record;
    record.m_strProvince = province.GetName();
    record.m_strCity = city.GetName();
    record.m_strLongitude = city.GetAttributeValue(L"longitude");
    record.m_strLatitude = city.GetAttributeValue(L"latitude");
    record.m_strComment = city.GetStringValue();
    return record;
}

Place PlaceOf(const OrvoZoneRecord& record) {
    return {record.m_strProvince, record.m_strCity, record.GetTotalLong(), record.GetTotalLat()};
}

Place PlaceOf(const QcDtDictionary& province, const QcDtDictItem& city) {
    return PlaceOf(RecordOf(province, city));
}

const QcDtDictItem* CityOf(const QcDtDictionary& province, const CString& name) {
    const QcDtDictItem* item = province.FindItem(name);
    return item && item->GetType() != QcDtKindDictionary ? item : nullptr;
}

std::optional<Place> FindInProvince(const QcDtDictionary& province, const CString& name) {
    const QcDtDictItem* city = CityOf(province, name);
    return city ? std::optional<Place>(PlaceOf(province, *city)) : std::nullopt;
}

const QcDtDictionary* ProvinceAt(int index) {
    return AsDictionary(g_dictSunZone.GetItem(index));
}

bool Holds(const CString& text, CString part) {
    CString folded(text);
    return folded.MakeLower().Find(part.MakeLower()) >= 0;
}

std::vector<CString> CitiesOf(const QcDtDictionary& province, int most) {
    std::vector<CString> names;
    for (int i = 0; i < province.GetCount() && static_cast<int>(names.size()) < most; ++i) {
        if (province.GetItem(i)->GetType() != QcDtKindDictionary)
            names.push_back(province.GetItem(i)->GetName());
    }
    return names;
}

bool IsSamePosition(const OrvoZoneRecord& record, const Place& place) {
    return record.GetTotalLong() == place.longitude && record.GetTotalLat() == place.latitude;
}

}  // namespace

std::vector<Place> AllPlaces() {
    return PlacesWith(CString());
}

std::vector<Place> PlacesWith(const CString& text) {
    std::vector<Place> places;
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        for (int j = 0; province && j < province->GetCount(); ++j) {
            const QcDtDictItem& city = *province->GetItem(j);
            if (city.GetType() == QcDtKindDictionary)
                continue;
            if (Holds(city.GetName(), text) || Holds(province->GetName(), text))
                places.push_back(PlaceOf(*province, city));
        }
    }
    return places;
}

std::optional<Place> FindPlace(const CString& name) {
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        if (std::optional<Place> found = province ? FindInProvince(*province, name) : std::nullopt)
            return found;
    }
    const int slash = name.Find(L'/');
    const QcDtDictionary* province = slash < 0 ? nullptr : g_dictSunZone.FindDict(name.Left(slash));
    return province ? FindInProvince(*province, name.Mid(slash + 1)) : std::nullopt;
}

std::optional<Place> CurrentPlace() {
    return FindPlace(g_SunDataSet.m_strCurCity);
}

CString UnknownPlaceText(const CString& name) {
    constexpr int kMostExamples = 3;
    if (const QcDtDictionary* province = g_dictSunZone.FindDict(name))
        return FactsFormat(L"“%s”是省份，请写其中的一个地区，例如：%s", Printable(name),
                           JoinNames(CitiesOf(*province, kMostExamples)));
    std::vector<CString> names;
    const bool isFullName = name.Find(L'/') >= 0;
    for (const Place& place : AllPlaces())
        names.push_back(isFullName ? place.FullName() : place.city);
    if (names.empty())
        return FactsFormat(L"没有名为“%s”的地区：地区数据库是空的。", Printable(name));
    const std::vector<CString> nearest = NearestNames(name, names);
    if (nearest.empty())
        return FactsFormat(L"没有名为“%s”的地区。用“orvo places”可列出所有地区。", Printable(name));
    return FactsFormat(L"没有名为“%s”的地区。相近的有：%s", Printable(name), JoinNames(nearest));
}

OrvoZoneRecord RecordOf(const Place& place) {
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        const QcDtDictItem* city =
            province && province->GetName() == place.province ? CityOf(*province, place.city) : nullptr;
        if (city && IsSamePosition(RecordOf(*province, *city), place))
            return RecordOf(*province, *city);
    }
    OrvoZoneRecord record;
    record.m_strProvince = place.province;
    record.m_strCity = place.city;
    record.m_strLongitude = DoubleToText(place.longitude);
    record.m_strLatitude = DoubleToText(place.latitude);
    return record;
}
