// Goes through the places for what was typed.
#include "facts/TypedPlace.h"

#include <algorithm>
#include <array>
#include <vector>

#include "facts/BareName.h"
#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "facts/PlaceSearch.h"
#include "facts/PositionText.h"
#include "platform/base/LatinNames.h"
#include "platform/base/PlainText.h"

namespace {

bool IsInLatin(const CString& name, const CString& folded) {
    const std::vector<CString> names = LatinNames(name);
    return std::find(names.begin(), names.end(), folded) != names.end();
}

// Whether something typed stands for a name: the name itself, or Latin letters for it.
bool StandsFor(const CString& typed, const CString& name) {
    if (typed == name)
        return true;
    const CString folded = FoldLatin(typed);
    if (folded.IsEmpty())
        return false;
    const CString bare = BareName(name);
    return IsInLatin(name, folded) || (bare != name && IsInLatin(bare, folded));
}

// The full names of a list of places, each once.
std::vector<CString> FullNames(const std::vector<Place>& places) {
    std::vector<CString> names;
    for (const Place& place : places)
        if (const CString name = place.FullName(); std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    return names;
}

std::vector<Place> PlacesFor(const CString& text) {
    const int stroke = text.Find(L'/');
    std::vector<Place> places;
    for (const Place& place : AllPlaces()) {
        const bool isOfProvince = stroke < 0 || StandsFor(text.Left(stroke), place.province);
        if (isOfProvince && StandsFor(stroke < 0 ? text : text.Mid(stroke + 1), place.city))
            places.push_back(place);
    }
    return places;
}

// Provinces bear the names of some places of others: 青海 has a 海南, and who types a province's name means that.
bool IsProvincesName(const CString& text, const std::vector<Place>& places) {
    const CString folded = FoldLatin(text);
    const std::vector<Place> all = AllPlaces();
    return std::none_of(places.begin(), places.end(),
                        [&](const Place& each) { return IsInLatin(each.city, folded); }) &&
           std::any_of(all.begin(), all.end(), [&](const Place& each) { return IsInLatin(each.province, folded); });
}

}  // namespace

TypedPlace FindTypedPlace(const CString& text) {
    if (const std::optional<Place> place = FindPlace(text))
        return {place, TypedPlace::Kind::Named, {}};
    if (const std::optional<TypedPosition> position = ParsePosition(text))
        return {position->place, TypedPlace::Kind::Position, position->trouble};
    const std::vector<Place> places = PlacesFor(text);
    const std::vector<CString> names = FullNames(places);
    if (names.empty() || IsProvincesName(text, places))
        return {{}, TypedPlace::Kind::Named, UnknownPlaceText(text)};
    if (names.size() > 1)
        return {{},
                TypedPlace::Kind::Named,
                FactsFormat(L"“%s”可以指几个地区，请写其中的一个：%s", Printable(text), JoinNames(names))};
    return {places.front(), TypedPlace::Kind::Named, {}};
}
