// Walking and searching the place database.
#include "facts/PlaceSearch.h"

#include <algorithm>

#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/LatinNames.h"
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

bool IsCity(const QcDtDictItem& item) {
    return item.GetType() != QcDtKindDictionary;
}

// The first city of the name, which a deeper level may bear, too.
const QcDtDictItem* CityOf(const QcDtDictionary& province, const CString& name) {
    const QcDtDictItem* item = province.FindItem(name);
    if (!item || IsCity(*item))
        return item;
    for (int i = 0; i < province.GetCount(); ++i)
        if (IsCity(*province.GetItem(i)) && province.GetItem(i)->GetName() == name)
            return province.GetItem(i);
    return nullptr;
}

std::optional<Place> FindInProvince(const QcDtDictionary& province, const CString& name) {
    const QcDtDictItem* city = CityOf(province, name);
    return city ? std::optional<Place>(PlaceOf(province, *city)) : std::nullopt;
}

const QcDtDictionary* ProvinceAt(int index) {
    return AsDictionary(g_dictSunZone.GetItem(index));
}

// What is looked for in names.
struct Part {
    CString lower;
    CString latin;  // empty where it is none, or stands for everything
};

bool Holds(const CString& name, const Part& part) {
    CString lower = name;
    return lower.MakeLower().Find(part.lower) >= 0 || (!part.latin.IsEmpty() && BeginsInLatin(name, part.latin));
}

// A city's item, and the dictionary that it stands in.
struct City {
    const QcDtDictionary* province;
    const QcDtDictItem* item;
};

// The cities of one province, which may stand in the database more than once; of all provinces for null.
std::vector<City> CitiesOf(const CString* provinceName) {
    std::vector<City> cities;
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        if (!province || (provinceName && province->GetName() != *provinceName))
            continue;
        for (int j = 0; j < province->GetCount(); ++j)
            if (IsCity(*province->GetItem(j)))
                cities.push_back({province, province->GetItem(j)});
    }
    return cities;
}

// Some names of a province's cities, each once.
std::vector<CString> ExamplesOf(const CString& province) {
    constexpr std::size_t kMostExamples = 3;
    std::vector<CString> names;
    for (const City& city : CitiesOf(&province)) {
        const CString name = city.item->GetName();
        if (names.size() < kMostExamples && std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    }
    return names;
}

CString ProvinceText(const CString& province) {
    const std::vector<CString> examples = ExamplesOf(province);
    if (examples.empty())
        return FactsFormat(L"“%s”是省份，其中没有地区。", Printable(province));
    return FactsFormat(L"“%s”是省份，请写其中的一个地区，例如：%s", Printable(province), JoinNames(examples));
}

// The provinces that a text in Latin letters stands for, each once.
std::vector<CString> ProvincesInLatin(const CString& latin) {
    std::vector<CString> provinces;
    for (int i = 0; i < g_dictSunZone.GetCount() && !latin.IsEmpty(); ++i) {
        const CString name = ProvinceAt(i) ? ProvinceAt(i)->GetName() : CString();
        const std::vector<CString> spellings = LatinNames(name);
        if (std::find(spellings.begin(), spellings.end(), latin) != spellings.end() &&
            std::find(provinces.begin(), provinces.end(), name) == provinces.end())
            provinces.push_back(name);
    }
    return provinces;
}

std::vector<CString> NearestPlaces(const CString& name, const std::vector<Place>& places) {
    const bool isFullName = name.Find(L'/') >= 0;
    std::vector<CString> names;
    for (const Place& place : places)
        names.push_back(isFullName ? place.FullName() : place.city);
    return NearestNames(name, names);
}

// Places with the nearest spellings; those that have Latin letters themselves first.
std::vector<CString> NearestInLatin(const CString& name, const CString& latin, const std::vector<Place>& places) {
    std::vector<CString> nearest = NearestPlaces(name, places);
    std::vector<CString> spellings;
    std::vector<CString> names;  // of the same places
    for (const Place& place : places) {
        for (const CString& spelling : LatinNames(place.city)) {
            spellings.push_back(spelling);
            names.push_back(place.city);
        }
    }
    for (const CString& spelling : NearestNames(latin, spellings))
        for (std::size_t i = 0; i < spellings.size(); ++i)
            if (spellings[i] == spelling && std::find(nearest.begin(), nearest.end(), names[i]) == nearest.end())
                nearest.push_back(names[i]);
    return nearest;
}

bool IsSamePosition(const OrvoZoneRecord& record, const Place& place) {
    return record.GetTotalLong() == place.longitude && record.GetTotalLat() == place.latitude;
}

}  // namespace

std::vector<Place> AllPlaces() {
    return PlacesWith(CString());
}

std::vector<Place> PlacesWith(const CString& text) {
    CString lower = text;
    const Part part = {lower.MakeLower(), FoldLatin(text)};
    std::vector<Place> places;
    for (const City& city : CitiesOf(nullptr))
        if (Holds(city.item->GetName(), part) || Holds(city.province->GetName(), part))
            places.push_back(PlaceOf(*city.province, *city.item));
    return places;
}

std::optional<Place> FindPlace(const CString& name) {
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        if (std::optional<Place> found = province ? FindInProvince(*province, name) : std::nullopt)
            return found;
    }
    // A province may stand there more than once, and either name may hold a stroke itself.
    for (int i = 0; i < g_dictSunZone.GetCount(); ++i) {
        const QcDtDictionary* province = ProvinceAt(i);
        const CString start = province ? province->GetName() + L"/" : CString();
        if (!province || name.Left(start.GetLength()) != start)
            continue;
        if (std::optional<Place> found = FindInProvince(*province, name.Mid(start.GetLength())))
            return found;
    }
    return std::nullopt;
}

std::optional<Place> CurrentPlace() {
    return FindPlace(g_SunDataSet.m_strCurCity);
}

CString UnknownPlaceText(const CString& name) {
    if (g_dictSunZone.FindDict(name))
        return ProvinceText(name);
    const CString latin = FoldLatin(name);
    if (const std::vector<CString> provinces = ProvincesInLatin(latin); provinces.size() == 1)
        return ProvinceText(provinces.front());
    else if (!provinces.empty())
        return FactsFormat(L"“%s”可以指几个省份：%s；请写其中的一个地区。", Printable(name), JoinNames(provinces));
    const std::vector<Place> places = AllPlaces();
    if (places.empty())
        return FactsFormat(L"没有名为“%s”的地区：地区数据库是空的。", Printable(name));
    const std::vector<CString> nearest =
        latin.IsEmpty() ? NearestPlaces(name, places) : NearestInLatin(name, latin, places);
    if (nearest.empty())
        return FactsFormat(L"没有名为“%s”的地区。用“orvo places”可列出所有地区。", Printable(name));
    return FactsFormat(L"没有名为“%s”的地区。相近的有：%s", Printable(name), JoinNames(nearest));
}

OrvoZoneRecord RecordOf(const Place& place) {
    for (const City& city : CitiesOf(&place.province)) {
        if (city.item->GetName() != place.city)
            continue;
        if (const OrvoZoneRecord record = RecordOf(*city.province, *city.item); IsSamePosition(record, place))
            return record;
    }
    OrvoZoneRecord record;
    record.m_strProvince = place.province;
    record.m_strCity = place.city;
    record.m_strLongitude = DoubleToText(place.longitude);
    record.m_strLatitude = DoubleToText(place.latitude);
    return record;
}
