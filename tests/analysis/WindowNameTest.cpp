// The parts of windows' names.
#include "analysis/WindowName.h"

#include <gtest/gtest.h>

namespace {

void ExpectParts(const wchar_t* name, const wchar_t* building, const wchar_t* flat) {
    EXPECT_EQ(BuildingOf(name), building) << ToUtf8(name);
    EXPECT_EQ(FlatOf(name), flat) << ToUtf8(name);
}

}  // namespace

TEST(WindowName, HasBuildingFlatAndWindow) {
    ExpectParts(L"3-402-1", L"3", L"402");
    ExpectParts(L"3号楼-402-南1", L"3号楼", L"402");
    ExpectParts(L"A-2-402-1", L"A-2", L"402");
    ExpectParts(L" 3 - 402 - 1 ", L"3", L"402");
}

TEST(WindowName, HasAFlatWithTwoPartsAndNothingWithOne) {
    ExpectParts(L"402-1", L"", L"402");
    ExpectParts(L"1", L"", L"");
    ExpectParts(L"", L"", L"");
    ExpectParts(L"C0FFEE", L"", L"");
}

TEST(WindowName, HasNoPartsWhenOneIsBlank) {
    for (const wchar_t* name : {L"-", L"--", L"-402-1", L"3--1", L"3-402-", L"3- -1", L"-1", L"402-", L"3-402-1-"})
        ExpectParts(name, L"", L"");
}
