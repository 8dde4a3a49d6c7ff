// Asking the facts for names.
#include "workbench/commands/NameLists.h"

#include <memory>

#include "facts/PlaceSearch.h"
#include "facts/ShippedSettings.h"
#include "facts/StandardSearch.h"
#include "settings/OrvoDataSet.h"

std::vector<CString> PlaceNames() {
    std::vector<CString> names;
    for (const Place& place : AllPlaces())
        names.push_back(place.city);
    return names;
}

std::vector<CString> StandardNames() {
    return NamesOfStandards(g_SunDataSet);
}

std::vector<CString> ShippedStandardNames() {
    const std::unique_ptr<OrvoDataSet> shipped = ReadShippedSettings();
    return shipped ? NamesOfStandards(*shipped) : std::vector<CString>();
}
