// How many days months and years have.
#pragma once

#include <array>
#include <cstddef>

inline constexpr std::array<int, 12> kDaysOfMonth = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};  // common years

// Days of a common year before each month's first.
inline constexpr std::array<int, 12> kDaysBeforeMonth = [] {
    std::array<int, 12> before = {};
    for (std::size_t month = 1; month < before.size(); ++month)
        before[month] = before[month - 1] + kDaysOfMonth[month - 1];
    return before;
}();

// The leap years of the terms' tables: the multiples of 4, so 1900 and 2100 too.
constexpr bool IsFourthYear(long long year) {
    return year % 4 == 0;
}

// 365, or 366 in a leap year.
constexpr int DaysOfYear(bool isLeapYear) {
    return isLeapYear ? 366 : 365;
}
