// Puts readings behind Chinese names.
#include "workbench/view/PlaceWords.h"

#include <cwctype>

#include "platform/base/Language.h"
#include "platform/base/LatinNames.h"

namespace {

constexpr wchar_t kLastOfAscii = 0x7F;

// Empty where there is none, or it says nothing new.
CString ReadingOf(const CString& name) {
    const std::vector<CString> readings = LatinNames(name);
    bool isLatin = true;
    for (const wchar_t each : name.View())
        isLatin = isLatin && each <= kLastOfAscii;
    if (isLatin || readings.empty() || readings.front().IsEmpty())
        return CString();
    CString reading = readings.front();
    reading.Replace(L"v", L"\u00FC");  // as it is typed
    reading.SetAt(0, static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(reading.GetAt(0)))));
    return reading;
}

bool IsChinese() {
    return g_strCurLanguage == L"Chs";
}

CString Joined(const CString& name, const CString& reading) {
    return IsChinese() || reading.IsEmpty() ? name : name + L" (" + reading + L")";
}

}  // namespace

CString NameInWords(const CString& name) {
    return Joined(name, ReadingOf(name));
}

CString PlaceInWords(const Place& place) {
    if (place.province.IsEmpty() || place.province == place.city)
        return NameInWords(place.city);
    const CString province = ReadingOf(place.province);
    const CString city = ReadingOf(place.city);
    return Joined(place.FullName(), province.IsEmpty() || city.IsEmpty() ? city : province + L"/" + city);
}
