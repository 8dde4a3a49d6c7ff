// Reads the settings that were shipped, and compares a standard with the shipped one.
#include "facts/ShippedSettings.h"

#include "facts/StandardSearch.h"
#include "platform/base/Support.h"
#include "settings/OrvoDataSet.h"

CString ShippedPath(const wchar_t* name) {
    return InstalledDataFolder() + L"/" + name;
}

std::unique_ptr<OrvoDataSet> ReadShippedSettings() {
    QcDtDictionary file;
    auto settings = std::make_unique<OrvoDataSet>();
    if (!file.ReadFromXML(ShippedPath(L"SunSet.xml")) || !settings->LoadSunDataSetDict(&file))
        return nullptr;
    return settings;
}

std::optional<std::vector<const StandardField*>> ChangesFromShipped(const OrvoStdSet& standard,
                                                                    const OrvoDataSet* shipped) {
    const OrvoStdSet* original = shipped ? FindStandard(*shipped, standard.m_strName) : nullptr;
    if (!original)
        return std::nullopt;
    return DifferingFields(standard, *original);
}

int ResetStandard(OrvoDataSet& settings, const OrvoStdSet& shipped) {
    int index = settings.FindStd(shipped.m_strName);
    if (index < 0) {
        settings.NewStd(shipped);
        index = settings.FindStd(shipped.m_strName);
    }
    OrvoStdSet& standard = settings.GetStd(index);
    standard = shipped;
    standard.m_colors = shipped.m_colors;
    return index;
}
