// Reading the module's standards into plain values.
#include "facts/Standard.h"

#include "facts/DayText.h"
#include "platform/geometry/Tolerance.h"
#include "settings/OrvoStdSet.h"

namespace {

std::vector<TimeColor> TimeColorsOf(const OrvoColorTable& table) {
    std::vector<TimeColor> colors;
    for (int i = 0; i < table.GetLength(); ++i) {
        const OrvoColorMap* const* row = table.GetAt(i);
        if (row && *row)
            colors.push_back({(*row)->m_dValue, (*row)->m_nColor});
    }
    return colors;
}

std::vector<int> TypeColorsOf(const OrvoColorTable& table) {
    std::vector<int> colors;
    for (int i = 0; i < table.m_listType.GetLength(); ++i)
        colors.push_back(table.GetTypeColor(i));
    return colors;
}

}  // namespace

bool Standard::HasSpan() const {
    return start >= 0.0 && start < end && end <= 24.0;
}

bool Standard::HasStep() const {
    return step >= kLeastStep && step <= kMostStep;
}

int Standard::TimeColorOf(double hours) const {
    constexpr int kColorByLayer = 256;
    for (auto row = timeColors.rbegin(); row != timeColors.rend(); ++row)
        if (hours - row->hours >= -g_fZero)
            return row->color;
    return kColorByLayer;
}

Standard StandardOf(const OrvoStdSet& standard) {
    Standard value;
    value.name = standard.m_strName;
    value.day = DayOf(standard.m_date);
    value.start = standard.m_dgStartTime.getDegree();
    value.end = standard.m_dgEndTime.getDegree();
    value.step = standard.m_dSpace;
    value.fullWindow = standard.m_nFullWin;
    value.limitWidth = standard.m_nLimitWidth;
    value.minWidth = standard.m_dMinWidth;
    value.maxWidth = standard.m_dMaxWidth;
    value.maxContinue = standard.m_nMaxContinue;
    value.beijingTime = standard.m_nBJTime;
    value.allMaxContinueTime = standard.m_nAllMaxContinueTime;
    value.minContinueTime = standard.m_nMinContinueTime;
    value.validSunType = standard.m_nValidSunType;
    value.minValidAngle = standard.m_nMinValidAngle;
    value.minValidTime = standard.m_nMinValidTime;
    value.totalTimeType = standard.m_nTotalTimeType;
    value.minMaxValidTime = standard.m_nMinMaxValidTime;
    value.timeColors = TimeColorsOf(standard.m_colors);
    value.typeColors = TypeColorsOf(standard.m_colors);
    return value;
}
