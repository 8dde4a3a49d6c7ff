// The named standards that the package ships, as a table.
#include "ShippedStandards.h"

#include <iterator>

namespace {

// The year only decides which table of terms a date uses; a common year stands for all.
constexpr int kYear = 2026;

constexpr double kAnyWidth = 0.0;

struct Row {
    const wchar_t* name;
    int month, day;
    double start, end;   // hours
    int count;           // OrvoSunCount
    int totalType;       // OrvoTotalTime
    int leastPiece;      // minutes; shorter periods are dropped
    bool isWholeWindow;  // else the midpoint of its sill
    double mostWidth;    // millimetres, or kAnyWidth
    int validSun;        // OrvoValidSun
    int leastAngle;      // degrees between the ray's plan and the wall
    double step;         // minutes
};

// A row names every field in which a standard differs from the defaults.
constexpr Row kRows[] = {
    {L"上海标准", 12, 22, 9, 15, ORVO_COUNT_LONGEST, ORVO_TOTAL_ALL, 0, true, kAnyWidth, ORVO_SUN_SHANGHAI, 0, 10},
    {L"国标大寒日", 1, 20, 8, 16, ORVO_COUNT_TOTAL, ORVO_TOTAL_ALL, 5, true, 1800, ORVO_SUN_CUSTOM, 0, 1},
    {L"国标冬至日", 12, 22, 9, 15, ORVO_COUNT_TOTAL, ORVO_TOTAL_ALL, 5, true, 1800, ORVO_SUN_CUSTOM, 0, 1},
    {L"北京大寒日", 1, 20, 8, 16, ORVO_COUNT_TOTAL, ORVO_TOTAL_ALL, 5, true, kAnyWidth, ORVO_SUN_CUSTOM, 12, 1},
    {L"北京冬至日", 12, 22, 9, 15, ORVO_COUNT_TOTAL, ORVO_TOTAL_ALL, 30, false, kAnyWidth, ORVO_SUN_CUSTOM, 12, 1},
    {L"杭州大寒日", 1, 20, 9, 15, ORVO_COUNT_TOTAL, ORVO_TOTAL_LONGEST_TWO, 0, true, kAnyWidth, ORVO_SUN_CUSTOM, 0, 5},
};

}  // namespace

bool GetShippedStandard(int index, OrvoStdSet& standard) {
    if (index < 0 || index >= static_cast<int>(std::size(kRows)))
        return false;
    const Row& row = kRows[index];
    standard.Reset();
    standard.m_strName = row.name;
    standard.m_date = OrvoDate(kYear, row.month, row.day);
    standard.m_dgStartTime = row.start;
    standard.m_dgEndTime = row.end;
    standard.m_nMaxContinue = row.count;
    standard.m_nTotalTimeType = row.totalType;
    standard.m_nMinValidTime = row.leastPiece;
    standard.m_nFullWin = row.isWholeWindow ? 1 : 0;
    if (row.mostWidth > kAnyWidth) {
        standard.m_nLimitWidth = 1;
        standard.m_dMaxWidth = row.mostWidth;
    }
    standard.m_nValidSunType = row.validSun;
    standard.m_nMinValidAngle = row.leastAngle;
    standard.m_dSpace = row.step;
    return true;
}
