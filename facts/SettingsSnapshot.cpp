// Remembering and restoring the settings.
#include "facts/SettingsSnapshot.h"

#include "facts/StandardSearch.h"

SettingsSnapshot::SettingsSnapshot(const OrvoDataSet& settings) : m_settings(settings) {
    for (int i = 0; i < settings.m_listStd.GetLength(); ++i) {
        const OrvoStdSet* standard = StandardAt(settings, i);
        m_colors.push_back(standard ? standard->m_colors : OrvoColorTable());
    }
}

void SettingsSnapshot::Restore(OrvoDataSet& settings) const {
    const OrvoDate date(settings.m_date);
    settings = m_settings;
    // Assigning the date has put the built-in terms behind its own.
    settings.m_date.m_listTerm = date.m_listTerm;
    settings.m_date.m_listLeapTerm = date.m_listLeapTerm;
    for (std::size_t i = 0; i < m_colors.size(); ++i)
        if (StandardAt(settings, static_cast<int>(i)))
            settings.GetStd(static_cast<int>(i)).m_colors = m_colors[i];
}
