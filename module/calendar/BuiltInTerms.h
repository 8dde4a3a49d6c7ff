// The solar terms that are built into the module.
#pragma once

struct BuiltInTerm {
    const wchar_t* name;
    const wchar_t* commonDate;  // M月D日 in a common year
    const wchar_t* leapDate;    // and in a leap year
    double equationOfTime;      // true less mean solar time, decimal hours
    double declination;         // decimal degrees, negative in the south
};

inline constexpr int kTermCount = 24;

// Row i is the term that begins when the sun's longitude on the ecliptic passes 270 + 15 i degrees. This is the
// system's own table, one for all common years and one for all leap years. Its numbers are whole seconds of time and
// whole minutes of arc; from which almanac they once came is not known.
//
// Their error, largest and root mean square:
//
//                                                        declination, degrees     equation of time, seconds
//     against an almanac, at the terms' instants         0.22 (秋分)  0.09        21 (小暑)  7.5
//     on the rows' days, at Beijing's noon               0.45 (谷雨)  0.19        30 (小暑)  11
//
// the first for 2024 and 2025, the second for 2001 to 2040 and against the almanacs' low-precision formulas. In those
// years each term begins on its row's day in Beijing's time or on the day before; but 秋分 of 2004 only after that day.
//
// 大寒 comes a day later in a leap year, while other terms come a day earlier or on the same day.
inline constexpr BuiltInTerm kBuiltInTerms[kTermCount] = {
    {L"冬至", L"12月22日", L"12月21日", 0.031389, -23.45},     {L"小寒", L"1月6日", L"1月6日", -0.091111, -22.583333},
    {L"大寒", L"1月20日", L"1月21日", -0.179444, -20.283333},  {L"立春", L"2月4日", L"2月4日", -0.231111, -16.45},
    {L"雨水", L"2月19日", L"2月19日", -0.2325, -11.55},        {L"惊蛰", L"3月6日", L"3月5日", -0.192222, -5.95},
    {L"春分", L"3月21日", L"3月20日", -0.125, -0.066667},      {L"清明", L"4月5日", L"4月4日", -0.050278, 5.783333},
    {L"谷雨", L"4月20日", L"4月20日", 0.014722, 11.266667},    {L"立夏", L"5月6日", L"5月5日", 0.055278, 16.333333},
    {L"小满", L"5月21日", L"5月21日", 0.058611, 20.033333},    {L"芒种", L"6月6日", L"6月5日", 0.025556, 22.583333},
    {L"夏至", L"6月22日", L"6月21日", -0.028889, 23.45},       {L"小暑", L"7月7日", L"7月7日", -0.075833, 22.666667},
    {L"大暑", L"7月23日", L"7月22日", -0.106944, 20.233333},   {L"立秋", L"8月8日", L"8月7日", -0.095556, 16.35},
    {L"处暑", L"8月24日", L"8月23日", -0.043333, 11.366667},   {L"白露", L"9月8日", L"9月7日", 0.033611, 5.983333},
    {L"秋分", L"9月23日", L"9月22日", 0.121667, 0.216667},     {L"寒露", L"10月9日", L"10月8日", 0.207778, -5.966667},
    {L"霜降", L"10月24日", L"10月23日", 0.261111, -11.483333}, {L"立冬", L"11月8日", L"11月7日", 0.271944, -16.35},
    {L"小雪", L"11月23日", L"11月22日", 0.230833, -20.183333}, {L"大雪", L"12月7日", L"12月7日", 0.149167, -22.516667},
};
