// A city's position by its names.
#include "zone/SunZoneInfo.h"

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"

int SunZoneInfo(const CString& province, const CString& city, CString& longitude, CString& latitude) {
    QcDtDictionary* dictionary = g_dictSunZone.FindDict(province);
    const QcDtDictItem* item = dictionary ? dictionary->FindItem(city) : nullptr;
    if (!item)
        return 0;
    const CString foundLongitude = item->GetAttributeValue(L"longitude");
    latitude = item->GetAttributeValue(L"latitude");
    longitude = foundLongitude;
    return 1;
}
