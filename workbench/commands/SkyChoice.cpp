// Looks for windows by their names and handles, or by their hours.
#include "workbench/commands/SkyChoice.h"

#include <algorithm>

#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/AnalysisWords.h"

namespace {

using Places = std::vector<std::size_t>;

template <class Test>
Places PlacesOf(const std::vector<WindowResult>& windows, const Test& test) {
    Places places;
    for (std::size_t i = 0; i < windows.size(); ++i)
        if (test(windows[i]))
            places.push_back(i);
    return places;
}

// Those with the fewest hours, of equal ones the first.
Places Fewest(const std::vector<WindowResult>& windows, Places places, std::size_t most) {
    std::stable_sort(places.begin(), places.end(), [&windows](std::size_t left, std::size_t right) {
        return windows[left].judged < windows[right].judged;
    });
    places.resize(std::min(places.size(), most));
    return places;
}

Places PlacesCalled(const std::vector<WindowResult>& windows, CString asked) {
    asked.Trim();
    Places named = PlacesOf(windows, [&](const WindowResult& window) { return window.name == asked; });
    if (!named.empty())
        return named;
    return PlacesOf(windows, [&](const WindowResult& window) {
        return window.handle != 0 && HandleOrNone(window.handle).CompareNoCase(asked) == 0;
    });
}

Places UsualPlaces(const std::vector<WindowResult>& windows) {
    const Places failing = PlacesOf(
        windows, [](const WindowResult& window) { return IsAnalysed(window) && !window.passes.value_or(true); });
    return failing.empty() ? Fewest(windows, PlacesOf(windows, IsAnalysed), 1) : Fewest(windows, failing, kMostSkies);
}

}  // namespace

SkyChoice ChooseSkies(const std::vector<WindowResult>& windows, const std::vector<CString>& asked) {
    if (asked.empty())
        return {UsualPlaces(windows), {}};
    SkyChoice choice;
    for (const CString& each : asked) {
        const Places places = Fewest(windows, PlacesCalled(windows, each), kMostSkies);
        if (places.empty())
            choice.unknown.push_back(each);
        for (const std::size_t place : places)
            if (std::find(choice.windows.begin(), choice.windows.end(), place) == choice.windows.end())
                choice.windows.push_back(place);
    }
    return choice;
}
