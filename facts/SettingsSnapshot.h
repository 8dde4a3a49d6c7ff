// The settings as they were, to go back to when they cannot be saved.
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "settings/OrvoDataSet.h"

// Remembers every value of the settings, those that no file keeps included: all but the tables of solar terms in their
// dates.
class ORVO_API SettingsSnapshot {
public:
    // Copies the values; the settings may change or go.
    explicit SettingsSnapshot(const OrvoDataSet& settings);
    // Puts every value back. The standards are new objects afterwards.
    void Restore(OrvoDataSet& settings) const;

private:
    OrvoDataSet m_settings;
    std::vector<OrvoColorTable> m_colors;  // of each standard, which loses them when it is copied
};
