// The standards of the settings by name.
#include "facts/StandardSearch.h"

#include "facts/FactsTexts.h"
#include "facts/NearestNames.h"
#include "platform/base/PlainText.h"
#include "settings/OrvoDataSet.h"

std::vector<CString> NamesOfStandards(const OrvoDataSet& settings) {
    std::vector<CString> names;
    for (int i = 0; i < settings.m_listStd.GetLength(); ++i)
        if (const OrvoStdSet* standard = StandardAt(settings, i))
            names.push_back(standard->m_strName);
    return names;
}

const OrvoStdSet* StandardAt(const OrvoDataSet& settings, int index) {
    const OrvoStdSet* const* slot = settings.m_listStd.GetAt(index);
    return slot ? *slot : nullptr;
}

const OrvoStdSet* FindStandard(const OrvoDataSet& settings, const CString& name) {
    return StandardAt(settings, settings.FindStd(name));
}

bool HasCurrentStandard(const OrvoDataSet& settings) {
    return StandardAt(settings, settings.m_nCurStd) != nullptr;
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
