// Floors by equal sills.
#include "analysis/WindowFloors.h"

#include <gtest/gtest.h>

#include <utility>

#include "analysis/WindowName.h"

namespace {

std::vector<int> FloorsOf(const std::vector<std::pair<const wchar_t*, double>>& namesAndSills) {
    std::vector<DrawnWindow> windows;
    for (const auto& [name, sill] : namesAndSills) {
        windows.emplace_back();
        windows.back().name = name;
        windows.back().building = BuildingOf(name);
        windows.back().lowerLeft.z = sill;
    }
    TellFloors(windows);
    std::vector<int> floors;
    for (const DrawnWindow& window : windows)
        floors.push_back(window.floor.value_or(0));
    return floors;
}

using Floors = std::vector<int>;

}  // namespace

TEST(WindowFloors, AreNumberedFromBelow) {
    EXPECT_EQ(FloorsOf({{L"1-201-1", 3900}, {L"1-101-1", 900}, {L"1-301-1", 6900}, {L"1-102-1", 900}}),
              (Floors{2, 1, 3, 1}));
    EXPECT_EQ(FloorsOf({{L"1-1-1", -3000}, {L"1-2-1", 0}}), (Floors{1, 2})) << "a cellar is the lowest";
    EXPECT_EQ(FloorsOf({}), Floors());
}

TEST(WindowFloors, HoldSillsWithinTenMillimetresOfTheLowest) {
    EXPECT_EQ(FloorsOf({{L"a", 900}, {L"b", 910}, {L"c", 911}, {L"d", 921}, {L"e", 922}}), (Floors{1, 1, 2, 2, 3}));
}

TEST(WindowFloors, AreEachBuildingsOwn) {
    EXPECT_EQ(FloorsOf({{L"1-101-1", 900}, {L"2-101-1", 4900}, {L"2-201-1", 7900}, {L"1-201-1", 3900}}),
              (Floors{1, 1, 2, 2}));
}

TEST(WindowFloors, OfWindowsWithoutABuildingAreThoseOfOneTogether) {
    EXPECT_EQ(FloorsOf({{L"101-1", 900}, {L"AB", 3900}, {L"#3", 6900}, {L"1-1-1", 9900}}), (Floors{1, 2, 3, 1}));
}
