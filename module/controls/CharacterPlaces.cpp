// Walks through texts character by character.
#include "controls/CharacterPlaces.h"

namespace {

int UnitsAt(const CString& text, int unit) {
    return IsHighHalf(text.GetAt(unit)) && IsLowHalf(text.GetAt(unit + 1)) ? 2 : 1;
}

}  // namespace

bool IsHighHalf(wchar_t unit) {
    return kHasPairs && unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowHalf(wchar_t unit) {
    return kHasPairs && unit >= 0xDC00 && unit <= 0xDFFF;
}

int PlaceOf(const CString& text, int unit) {
    if (!kHasPairs)
        return unit;
    int place = 0;
    for (int next = UnitsAt(text, 0); next <= unit; next += UnitsAt(text, next))
        ++place;
    return place;
}

int UnitOf(const CString& text, int place) {
    if (!kHasPairs)
        return place;
    int unit = 0;
    for (int passed = 0; passed < place; ++passed)
        unit += UnitsAt(text, unit);
    return unit;
}

CString CharacterAt(const CString& text, int place) {
    const int unit = UnitOf(text, place);
    return text.Mid(unit, UnitOf(text, place + 1) - unit);
}
