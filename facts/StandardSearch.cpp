// The standards of the settings by name, and choosing one.
#include "facts/StandardSearch.h"

#include <cmath>

#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "facts/SettingsEdit.h"
#include "platform/base/PlainText.h"
#include "settings/OrvoDataSet.h"

std::vector<CString> NamesOfStandards(const OrvoDataSet& settings) {
    std::vector<CString> names;
    for (int i = 0; i < settings.m_listStd.GetLength(); ++i) {
        const OrvoStdSet* const* slot = settings.m_listStd.GetAt(i);
        if (slot && *slot)
            names.push_back((*slot)->m_strName);
    }
    return names;
}

bool HasCurrentStandard(const OrvoDataSet& settings) {
    const OrvoStdSet* const* slot = settings.m_listStd.GetAt(settings.m_nCurStd);
    return slot && *slot;
}

CString UnknownStandardText(const OrvoDataSet& settings, const CString& name) {
    const std::vector<CString> names = NamesOfStandards(settings);
    if (names.empty())
        return FactsFormat(L"没有名为“%s”的标准：设置中没有任何标准；orvo set --reset 恢复随程序提供的标准。",
                           Printable(name));
    const std::vector<CString> nearest = NearestNames(name, names);
    if (nearest.empty())
        return FactsFormat(L"没有名为“%s”的标准。现有的标准：%s", Printable(name), JoinNames(names));
    return FactsFormat(L"没有名为“%s”的标准。相近的有：%s", Printable(name), JoinNames(nearest));
}

void UseStandard(OrvoDataSet& settings, int index) {
    settings.SetCurStdIndex(index);
    const OrvoStdSet& standard = settings.CurStd();
    SetOwnDay(settings, {standard.m_date.m_nYear, standard.m_date.m_nMonth, standard.m_date.m_nDay});
    const double start = standard.m_dgStartTime.getDegree();
    const double end = standard.m_dgEndTime.getDegree();
    if (start >= 0.0 && start < end && end <= 24.0) {
        SetOwnStart(settings, static_cast<int>(std::lround(start * 60.0)));
        SetOwnEnd(settings, static_cast<int>(std::lround(end * 60.0)));
    }
    if (standard.m_dSpace >= kLeastStep && standard.m_dSpace <= kMostStep)
        SetOwnStep(settings, static_cast<int>(standard.m_dSpace));
}
