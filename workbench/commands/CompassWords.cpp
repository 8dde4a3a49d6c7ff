// Directions in words.
#include "workbench/commands/CompassWords.h"

#include <cmath>

#include "workbench/Texts.h"

CString CompassWord(double direction) {
    constexpr int kCount = 8;
    constexpr double kApart = 45.0;
    constexpr const wchar_t* kFromEast[kCount] = {L"东", L"东北", L"北", L"西北", L"西", L"西南", L"南", L"东南"};
    const int nearest = static_cast<int>(std::lround(std::remainder(direction, 360.0) / kApart));
    return Say(kFromEast[(nearest + kCount) % kCount]);
}
